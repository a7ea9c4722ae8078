// Checks what a host relies on first: the constants, the Figura maps, the
// image resources and, once the library has it, a plot widget.

#include <figura/defaults/PlotDefault.h>
#ifdef FIGURA_HOST_WITH_VOIDPLOT
#include <figura/plots/VoidPlot.h>
#endif

#include <QApplication>
#include <QPixmap>

#include <cstdio>

#ifdef FIGURA_BUILD_AUTOTESTS
#error "the installed package must not switch on the exports meant for the tests"
#endif

namespace {

int failures = 0;

void check(bool ok, const char *what)
{
    std::printf("%s: %s\n", ok ? "ok  " : "FAIL", what);
    if (!ok)
        ++failures;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    check(PlotDefault::ReplotDelay == 5, "PlotDefault::ReplotDelay is 5");
    check(PlotDefault::YLower == 1e-20, "PlotDefault::YLower is 1e-20");
    check(PlotDefault::PeakLabelColor == QColor(QStringLiteral("#404040")), "PlotDefault::PeakLabelColor is #404040");
    check(PlotDefault::DarkMode::CanvasBackground == QColor(48, 48, 48), "the dark canvas background is 48, 48, 48");
    check(PlotDefault::Export::SizeMM == QSizeF(300.0, 200.0), "PlotDefault::Export::SizeMM is 300 by 200");
    check(PlotDefault::HTML::SquareChar == QStringLiteral("&#9632;"), "PlotDefault::HTML::SquareChar");
    check(Figura::MarkerLabelAlignments.firstKey() == Qt::AlignTrailing, "the alignment map starts with Trailing");
    check(Figura::MarkerLabelSortOptions.value(Figura::MarkerLabelSortByValue) == QStringLiteral("By Value"),
          "the sort option map holds \"By Value\"");
    check(QPixmap(QStringLiteral(":/images/full-scale.png")).size() == QSize(64, 64),
          ":/images/full-scale.png loads at 64 by 64");
    check(QPixmap(QStringLiteral(":images/KELM-logo-black.png")).size() == QSize(1065, 722),
          ":images/KELM-logo-black.png loads at 1065 by 722");

#ifdef FIGURA_HOST_WITH_VOIDPLOT
    {
        VoidPlot plot;
        plot.resize(400, 300);
        plot.replot();
        check(plot.canvas() != nullptr, "a VoidPlot is created, has a canvas and replots");
    }
#endif

    return failures == 0 ? 0 : 1;
}
