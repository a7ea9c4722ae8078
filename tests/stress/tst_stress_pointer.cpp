// A long burst of pointer input over the canvas of every data plot: plain
// moves that drive the read-out, moves while a modifier is held (which the
// read-out follows only when it is the move modifier), and now and then a
// pan, a box zoom, a drag-zoom and a click. Nothing may crash, the read-out
// ends where the last tracked move put it, and the whole burst costs exactly
// one replot once it is over, from the coalescing timer.

#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/MultiBarPlot.h>
#include <figura/plots/TimeBarPlot.h>
#include <figura/plots/TimeCurvePlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTest>

#include <qwt_plot_marker.h>

#include <cmath>
#include <functional>
#include <memory>

using namespace StressSupport;
using namespace TestSupport;

namespace {

// Counts replots and opens the markers to the test.
template <class Base>
class Counted : public ReplotCounter<Base>
{
public:
    using ReplotCounter<Base>::ReplotCounter;
    using VoidPlot::seriesMarkers;
};

// A counted plot seen through what every class shares.
struct PlotUnderTest
{
    std::unique_ptr<VoidPlot> plot;
    std::function<int &()> replots;
    std::function<QList<QwtPlotMarker *>()> seriesMarkers;
};

template <class Base>
PlotUnderTest counted()
{
    auto *plot = new Counted<Base>;
    return {std::unique_ptr<VoidPlot>(plot), [plot]() -> int & { return plot->replots; },
            [plot] { return plot->seriesMarkers; }};
}

PlotUnderTest makeCounted(const QString &className)
{
    if (className == QLatin1String("CurvePlot"))
        return counted<CurvePlot>();
    if (className == QLatin1String("TimeCurvePlot"))
        return counted<TimeCurvePlot>();
    if (className == QLatin1String("BarPlot"))
        return counted<BarPlot>();
    if (className == QLatin1String("TimeBarPlot"))
        return counted<TimeBarPlot>();
    return counted<MultiBarPlot>();
}

// Two series of samples at x = step, 2 step, ... (one set per x on a
// MultiBarPlot), with a legend on the curve plots.
void fill(VoidPlot *plot, int samples, double step)
{
    if (auto *curvePlot = qobject_cast<CurvePlot *>(plot)) {
        curvePlot->enableLegend(QwtPlot::RightLegend);
        for (int i = 0; i < 2; ++i)
            curvePlot->appendCurve(curveOf(QStringLiteral("curve %1").arg(i),
                                           risingSamples(samples, step, step, 1e-9 * (i + 1))),
                                   true);
    } else if (auto *barPlot = qobject_cast<BarPlot *>(plot)) {
        for (int i = 0; i < 2; ++i) {
            barPlot->appendBarChart(barChartOf(QStringLiteral("bars %1").arg(i),
                                               risingSamples(samples, step, step, 1e-9 * (i + 1))),
                                    true);
            barPlot->setBarChartColor(i, i ? Qt::blue : Qt::red);
        }
    } else if (auto *multiBarPlot = qobject_cast<MultiBarPlot *>(plot)) {
        QList<QwtSetSample> sets;
        for (int i = 0; i < samples; ++i)
            sets << QwtSetSample(step * (i + 1), {1e-9 * (i + 1), 2e-9 * (i + 1)});
        multiBarPlot->updateMultiBarChart(&sets, {Qt::red, Qt::blue},
                                          {QwtText(QStringLiteral("a")), QwtText(QStringLiteral("b"))});
    }
}

int burstSize()
{
    bool ok = false;
    const int n = qEnvironmentVariableIntValue("FIGURA_STRESS_POINTER_EVENTS", &ok);
    return ok && n > 0 ? n : 100000;
}

} // namespace

class tst_StressPointer : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QStandardPaths::setTestModeEnabled(true); }

private slots:
    void initTestCase();
    void cleanup();

    void pointerBurstEndsInOneReplot_data();
    void pointerBurstEndsInOneReplot();
};

void tst_StressPointer::initTestCase()
{
    installNoticeFilter();
}

void tst_StressPointer::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_StressPointer::pointerBurstEndsInOneReplot_data()
{
    QTest::addColumn<QString>("className");
    for (const QString &name : dataPlotClassNames())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_StressPointer::pointerBurstEndsInOneReplot()
{
    QFETCH(QString, className);
    const int samples = 200;
    const double step = className.startsWith(QLatin1String("Time")) ? 1.0 : 0.25;
    PlotUnderTest under = makeCounted(className);
    VoidPlot *plot = under.plot.get();
    fill(plot, samples, step);
    plot->setAxisScale(QwtPlot::xBottom, 0.0, step * (samples + 1));
    QVERIFY(showActive(*plot, QSize(600, 400)));
    QTRY_VERIFY(under.replots() >= 1);

    QWidget *canvas = plot->canvas();
    QVERIFY(canvas->hasMouseTracking());
    QWindow *window = plot->windowHandle();
    const int width = canvas->width();
    const int height = canvas->height();
    const QPoint centre = canvas->rect().center();
    const int n = burstSize();

    // The keyboard state the plots read is that of the window system, so a
    // held modifier is a key press on the window.
    bool shiftHeld = false;
    const auto holdShift = [&](bool on) {
        if (on == shiftHeld)
            return;
        if (on)
            QTest::keyPress(window, Qt::Key_Shift, Qt::ShiftModifier);
        else
            QTest::keyRelease(window, Qt::Key_Shift, Qt::NoModifier);
        shiftHeld = on;
    };

    QElapsedTimer clock;
    clock.start();
    int tracked = 0;
    QPoint last;
    for (int i = 0; i < n; ++i) {
        // The second half follows the pointer only with Shift down.
        if (i == n / 2)
            plot->setMoveMarkerKeyModifier(Qt::ShiftModifier);
        // Shift is held for one stretch of 1000 events in every three.
        if (i % 1000 == 0)
            holdShift((i / 1000) % 3 == 1);

        if (i % 10000 == 5000) {
            // Now and then a gesture: each ends with the buttons up.
            const Qt::KeyboardModifiers mods = shiftHeld ? Qt::ShiftModifier : Qt::NoModifier;
            switch ((i / 10000) % 4) {
            case 0: // a pan
                drag(canvas, centre, centre + QPoint(7, -3), Qt::LeftButton, mods);
                break;
            case 1: // a box zoom, then back to the whole range
                drag(canvas, QPoint(20, 20), QPoint(width / 2, height / 2), Qt::RightButton, mods);
                plot->setAxisScale(QwtPlot::xBottom, 0.0, step * (samples + 1));
                break;
            case 2: // a drag-zoom with several moves
                plot->setDragZoom(true);
                mouse(canvas, QEvent::MouseButtonPress, centre, Qt::RightButton, Qt::RightButton, mods);
                for (int k = 1; k <= 5; ++k)
                    mouse(canvas, QEvent::MouseMove, centre + QPoint(k, -k), Qt::NoButton,
                          Qt::RightButton, mods);
                mouse(canvas, QEvent::MouseButtonRelease, centre + QPoint(5, -5), Qt::RightButton,
                      Qt::NoButton, mods);
                plot->setDragZoom(false);
                plot->setAxisScale(QwtPlot::xBottom, 0.0, step * (samples + 1));
                break;
            case 3: // clicks of both buttons
                for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
                    mouse(canvas, QEvent::MouseButtonPress, centre, button, button, mods);
                    mouse(canvas, QEvent::MouseButtonRelease, centre, button, Qt::NoButton, mods);
                }
                break;
            }
            continue;
        }

        // Back and forth over the canvas, a little beyond both edges too.
        const int sweep = i % (2 * (width + 20));
        const int x = sweep < width + 20 ? sweep - 10 : 2 * (width + 20) - sweep - 10;
        last = QPoint(x, (i * 7) % height);
        mouse(canvas, QEvent::MouseMove, last, Qt::NoButton, Qt::NoButton,
              shiftHeld ? Qt::ShiftModifier : Qt::NoModifier);
        if ((i < n / 2) != shiftHeld)
            ++tracked;
    }

    // The last move follows the pointer: bring the read-out to a known column.
    holdShift(true);
    last = QPoint(width / 3, height / 2);
    mouse(canvas, QEvent::MouseMove, last, Qt::NoButton, Qt::NoButton, Qt::ShiftModifier);
    holdShift(false);
    qInfo("%d events, %d of them tracked moves, in %lld ms", n + 1, tracked, clock.elapsed());

    // The sample nearest to that column; half way goes to the right one.
    const double pointerX = plot->invTransform(QwtPlot::xBottom, last.x());
    const double nearest = step * qBound(1.0, std::floor(pointerX / step + 0.5), double(samples));
    const QList<QwtPlotMarker *> markers = under.seriesMarkers();
    QVERIFY(!markers.isEmpty());
    for (const QwtPlotMarker *seriesMarker : markers) {
        QVERIFY(seriesMarker);
        QVERIFY(seriesMarker->isVisible());
        QCOMPARE(seriesMarker->xValue(), nearest);
    }

    // Nothing was drawn since the last gesture; now exactly one replot follows.
    under.replots() = 0;
    QTRY_COMPARE(under.replots(), 1);
    QTest::qWait(50);
    QCOMPARE(under.replots(), 1);
}

QTEST_MAIN(tst_StressPointer)
#include "tst_stress_pointer.moc"
