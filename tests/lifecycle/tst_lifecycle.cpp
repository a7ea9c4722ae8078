// Whole lives of the plot classes, many times over: made as the child of a
// host widget, filled, shown, driven by pointer and keys, their context menu
// built and every action triggered (dialogs included), then destroyed with
// the host. Natively the test checks that nothing outlives its owner; under
// valgrind (`make memcheck`) and LeakSanitizer it also shows any byte the
// library loses.
//
// A new plot class joins by one entry in plotKinds().

#include <figura/dialogs/ColorTextEdit.h>
#include <figura/dialogs/CustomScaleDialog.h>
#include <figura/dialogs/CustomScaleSettings.h>
#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/MultiBarPlot.h>
#include <figura/plots/TimeBarPlot.h>
#include <figura/plots/TimeCurvePlot.h>
#include <figura/plots/VoidPlot.h>

#include "TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <qwt_abstract_legend.h>
#include <qwt_column_symbol.h>
#include <qwt_legend_label.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

#include <functional>
#include <limits>

using namespace TestSupport;

namespace {

// A plot class under test: how a host makes one and fills it with data.
struct PlotKind
{
    const char *name;
    std::function<VoidPlot *(QWidget *host)> create;
    std::function<void(VoidPlot *plot, int round)> fill;
};

QVector<QPointF> someSamples(int round, int count, double xStep)
{
    QVector<QPointF> samples;
    for (int i = 0; i < count; ++i)
        samples << QPointF((i + 1) * xStep, 1e-12 * (1 + (i * 7 + round) % 13));
    return samples;
}

QwtPlotCurve *someCurve(int round, int index, double xStep)
{
    auto *curve = new QwtPlotCurve(QStringLiteral("curve %1.%2").arg(round).arg(index));
    curve->setSamples(someSamples(round + index, 50, xStep));
    curve->setSymbol(new QwtSymbol(QwtSymbol::Ellipse, QBrush(Qt::red), QPen(Qt::black), QSize(5, 5)));
    return curve;
}

// A host's subclass of a curve plot, since binding a curve to its legend
// entry is protected.
template <class Plot>
class HostCurvePlot : public Plot
{
public:
    using Plot::Plot;
    void appendWithLegend(QwtPlotCurve *curve, bool hasMarker)
    {
        this->appendCurve(curve, hasMarker);
        this->setLegend(curve);
    }
};

// Three curves in the legend, one without a series marker, and one of them
// removed again.
template <class Plot>
void fillCurves(VoidPlot *plot, int round, double xStep)
{
    auto *curvePlot = static_cast<HostCurvePlot<Plot> *>(plot);
    curvePlot->enableLegend(QwtPlot::RightLegend);
    for (int i = 0; i < 3; ++i)
        curvePlot->appendWithLegend(someCurve(round, i, xStep), i != 1);
    curvePlot->setLineAttributes(0, Qt::DashLine, 2, Qt::darkGreen);
    curvePlot->setSymbolAttributes(0, QwtSymbol::Rect, 6, Qt::blue);
    curvePlot->removeCurve(round % 3);
    curvePlot->appendWithLegend(someCurve(round, 3, xStep), true);
}

// Two bar charts, one removed again.
void fillBars(BarPlot *plot, int round)
{
    for (int i = 0; i < 3; ++i) {
        auto *chart = new QwtPlotBarChart(QStringLiteral("bars %1.%2").arg(round).arg(i));
        chart->setSamples(someSamples(round + i, 30, 1.0));
        plot->appendBarChart(chart, i != 1);
    }
    plot->setBarChartColor(0, Qt::darkYellow);
    plot->removeBarChart(round % 3);
}

void fillSets(MultiBarPlot *plot, int round)
{
    QList<QwtSetSample> sets;
    for (int i = 0; i < 20; ++i)
        sets << QwtSetSample(i + 1, {1e-9 * (1 + (i + round) % 5), 2e-9, 0.0});
    plot->updateMultiBarChart(&sets, {Qt::red, Qt::green}, {QwtText(QStringLiteral("a"))});
    plot->updateMultiBarChart(1, Qt::magenta);
}

QList<PlotKind> plotKinds()
{
    return {
        // The bare frame with a host's own curve, attached as Qwt items are.
        {"VoidPlot",
         [](QWidget *host) { return new VoidPlot(host); },
         [](VoidPlot *plot, int round) { someCurve(round, 0, 1.0)->attach(plot); }},
        {"CurvePlot",
         [](QWidget *host) { return new HostCurvePlot<CurvePlot>(host); },
         [](VoidPlot *plot, int round) { fillCurves<CurvePlot>(plot, round, 1.0); }},
        {"TimeCurvePlot",
         [](QWidget *host) { return new HostCurvePlot<TimeCurvePlot>(host); },
         [](VoidPlot *plot, int round) {
             auto *timePlot = static_cast<TimeCurvePlot *>(plot);
             const QDateTime reference(QDate(2024, 3, 31), QTime(1, 30));
             timePlot->setReferenceTime(&reference);
             timePlot->setTimeFormat(round % 2 ? 2 : 1);
             fillCurves<TimeCurvePlot>(plot, round, 6.0);
         }},
        {"BarPlot",
         [](QWidget *host) { return new BarPlot(host); },
         [](VoidPlot *plot, int round) { fillBars(static_cast<BarPlot *>(plot), round); }},
        {"TimeBarPlot",
         [](QWidget *host) { return new TimeBarPlot(host); },
         [](VoidPlot *plot, int round) { fillBars(static_cast<BarPlot *>(plot), round); }},
        {"MultiBarPlot",
         [](QWidget *host) { return new MultiBarPlot(host); },
         [](VoidPlot *plot, int round) { fillSets(static_cast<MultiBarPlot *>(plot), round); }},
    };
}

// The offscreen platform warns of each window feature it lacks, a few times
// in every life; the rest goes on to QtTest's handler.
QtMessageHandler testHandler = nullptr;

void dropPlatformNotices(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg && message.startsWith(QLatin1String("This plugin does not support")))
        return;
    testHandler(type, context, message);
}

int rounds()
{
    bool ok = false;
    const int n = qEnvironmentVariableIntValue("FIGURA_LIFECYCLE_ROUNDS", &ok);
    return ok && n > 0 ? n : 100;
}

// Closes every popup menu and modal dialog shortly after it opens, so that
// any action may be triggered, and counts what it closed. A menu is closed
// through Escape, so that exec() returns as after a user's cancel.
class Closer : public QObject
{
public:
    Closer() { startTimer(10); }
    int menus = 0;
    int menuEntries = 0;
    int dialogs = 0;

protected:
    void timerEvent(QTimerEvent *) override
    {
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            ++menus;
            menuEntries += int(menu->actions().size());
            QTest::keyClick(menu, Qt::Key_Escape);
            return;
        }
        if (QWidget *popup = QApplication::activePopupWidget()) {
            popup->close();
            return;
        }
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            ++dialogs;
            dialog->reject();
        }
    }
};

} // namespace

class tst_Lifecycle : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void plotLivesEndWithTheirHost_data();
    void plotLivesEndWithTheirHost();
    void dialogsLiveAndDieWithTheirParent();

private:
    void driveOnce(VoidPlot *plot, Closer &closer);

    QTemporaryDir settingsDir;
};

void tst_Lifecycle::initTestCase()
{
    testHandler = qInstallMessageHandler(dropPlatformNotices);
    QVERIFY(TestSupport::isolateSettings(settingsDir, QStringLiteral("tst_lifecycle")));
    QSettings().clear();
}

void tst_Lifecycle::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_Lifecycle::plotLivesEndWithTheirHost_data()
{
    QTest::addColumn<int>("kind");
    const QList<PlotKind> kinds = plotKinds();
    for (int i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds.at(i).name) << i;
}

// One round: pointer moves, a pan, a box zoom, the wheel, the marker keys,
// the context menu, and every action of the plot triggered once, with the
// dialogs it opens cancelled.
void tst_Lifecycle::driveOnce(VoidPlot *plot, Closer &closer)
{
    QWidget *canvas = plot->canvas();
    const QPoint centre = canvas->rect().center();
    const QPoint corner = centre + QPoint(canvas->width() / 4, canvas->height() / 4);

    for (int i = 0; i < 10; ++i)
        mouse(canvas, QEvent::MouseMove, QPoint(5 + i * canvas->width() / 12, centre.y()));
    mouse(canvas, QEvent::MouseButtonPress, centre, Qt::LeftButton, Qt::LeftButton);
    mouse(canvas, QEvent::MouseButtonRelease, centre, Qt::LeftButton, Qt::NoButton); // select
    drag(canvas, centre, corner);                      // pan
    drag(canvas, centre, corner, Qt::RightButton);     // box zoom
    wheel(canvas, centre, 2);
    wheel(canvas, centre, -3);
    for (Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_End, Qt::Key_Home})
        QTest::keyClick(plot, key);

    const int menusBefore = closer.menus;
    QTest::mouseClick(plot->window()->windowHandle(), Qt::RightButton, Qt::NoModifier,
                      canvas->mapTo(plot->window(), centre));
    QTRY_VERIFY(closer.menus > menusBefore);

    // Legend entries switch their item on a click and have a menu of their
    // own in curve plots.
    if (QwtAbstractLegend *legend = plot->legend()) {
        const QList<QwtLegendLabel *> labels = legend->findChildren<QwtLegendLabel *>();
        for (QwtLegendLabel *label : labels) {
            QTest::mouseClick(label, Qt::LeftButton);
            QTest::mouseClick(label, Qt::LeftButton);
            contextMenu(label, label->rect().center());
        }
    }

    // Actions with a dialog run it modally; the closer cancels it. Toggles
    // are triggered twice, so that each round starts from the same state.
    const QList<QAction *> actions = plot->findChildren<QAction *>();
    for (QAction *action : actions) {
        action->trigger();
        if (action->isCheckable())
            action->trigger();
    }
    plot->replot();
}

void tst_Lifecycle::plotLivesEndWithTheirHost()
{
    QFETCH(int, kind);
    const PlotKind plotKind = plotKinds().at(kind);
    Closer closer;
    const int topLevels = int(QApplication::topLevelWidgets().size());
    const int n = rounds();

    for (int round = 0; round < n; ++round) {
        auto *host = new QWidget;
        auto *layout = new QVBoxLayout(host);
        QPointer<VoidPlot> plot = plotKind.create(host);
        QVERIFY(plot);
        layout->addWidget(plot);
        QPointer<QWidget> canvas = plot->canvas();
        plotKind.fill(plot, round);
        QVERIFY2(showActive(*host), "host window did not become active");
        driveOnce(plot, closer);

        delete host;
        QVERIFY(!plot);
        QVERIFY(!canvas);
        // Menus, dialogs and anything else made on the way died too.
        QCOMPARE(int(QApplication::topLevelWidgets().size()), topLevels);
    }
    QVERIFY(closer.menuEntries > 0);
    qInfo("%d lives: %d menus with %d entries and %d dialogs opened and closed", n, closer.menus,
          closer.menuEntries, closer.dialogs);
}

void tst_Lifecycle::dialogsLiveAndDieWithTheirParent()
{
    Closer closer;
    const int topLevels = int(QApplication::topLevelWidgets().size());
    const int n = rounds();
    const double noRightLower = std::numeric_limits<double>::min();
    const double noRightUpper = std::numeric_limits<double>::max();

    for (int round = 0; round < n; ++round) {
        auto *host = new QWidget;
        QPointer<QDialog> mass = new CustomScaleDialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5,
                                                       noRightLower, noRightUpper, host);
        QPointer<QDialog> time = new CustomScaleDialog(CustomScale::TimeScale, 0, 300, 1e-9, 1e-5,
                                                       0, 1, host);
        QPointer<QDialog> text = new ColorTextEdit(QStringLiteral("Peak"), QStringLiteral("m/z 28"),
                                                   QStringLiteral("#ff0000"), host);
        const int dialogsBefore = closer.dialogs;
        for (QDialog *dialog : {mass.data(), time.data(), text.data()})
            QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QCOMPARE(closer.dialogs, dialogsBefore + 3);

        auto *store = new CustomScaleSettings(round % 2 ? CustomScale::TimeScale : CustomScale::MassScale, host);
        store->load();
        store->add(round, round + 10, 1e-9, 1e-5, noRightLower, noRightUpper);
        QVERIFY(!store->items().isEmpty());

        delete host;
        QVERIFY(!mass && !time && !text);
        QCOMPARE(int(QApplication::topLevelWidgets().size()), topLevels);
    }
}

QTEST_MAIN(tst_Lifecycle)
#include "tst_lifecycle.moc"
