// The read-out at scale.
//
// readout: one pass of CurvePlot::displayMarkers by pixel over 1, 10 and 100
// curves of 1e3 to 1e7 samples, the pixel moving 3 columns per pass across
// the canvas. The bare counterpart is a QwtPlot with the same curves whose
// QwtPlotPicker tracks the pointer: its tracker text for the same position.
// Variants of ours: without label text (the searches and markers alone) and
// with a legend (rich text lines).
//
// burst: 1,000 pointer moves delivered to the canvas through the window, as
// a mouse would, with the event loop run after each, then the loop run until
// no replot is pending. Pauses of more than the replot delay between two
// moves are counted: each may rightly end in a replot of its own. Ours is a CurvePlot with the read-out following the
// pointer; the bare counterpart a QwtPlot with auto-replot and a tracking
// picker. Both hold 10 curves of 100,000 samples. Counters tell the replots
// and paints per burst; the time is the CPU time of the whole process.

#include "BenchSupport.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/CurvePlot.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QPointF>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <qwt_picker_machine.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_picker.h>
#include <qwt_text.h>

using namespace BenchSupport;

namespace {

// Samples per curve at most 1e7 and all curves together at most 1e8 pairs of
// doubles (1.6 GB): 100 curves of 1e7 samples are left out.
constexpr double MaxTotalSamples = 1e8;
constexpr int BurstMoves = 1000;
constexpr int BurstCurves = 10;
constexpr int BurstSamples = 100000;

class ReadoutPlot : public CurvePlot
{
public:
    using CurvePlot::CurvePlot;
    using VoidPlot::marker;
    using VoidPlot::replotTimer;

    int replots = 0;
    int passes = 0;

    void replot() override
    {
        ++replots;
        CurvePlot::replot();
    }

    void displayMarkers(int pos, const QPointF &value) override
    {
        ++passes;
        CurvePlot::displayMarkers(pos, value);
    }
};

class BarePlot : public QwtPlot
{
public:
    int replots = 0;

    void replot() override
    {
        ++replots;
        QwtPlot::replot();
    }
};

class TrackerPicker : public QwtPlotPicker
{
public:
    explicit TrackerPicker(QWidget *canvas)
        : QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::NoRubberBand,
                        QwtPicker::AlwaysOn, canvas)
    {
        setStateMachine(new QwtPickerTrackerMachine);
    }
    using QwtPlotPicker::trackerText;
};

// Counts paint events of the canvas and of its overlays (the picker's
// tracker and rubber band are child widgets of the canvas, made and deleted
// as needed, hence a filter on the whole application).
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *canvas)
        : canvasWidget(canvas)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    int canvasPaints = 0;
    int overlayPaints = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            if (watched == canvasWidget)
                ++canvasPaints;
            else if (canvasWidget->isAncestorOf(static_cast<QWidget *>(watched)))
                ++overlayPaints;
        }
        return false;
    }

private:
    QWidget *canvasWidget;
};

// Column of the pointer at pass i: 3 columns per pass, back and forth.
int sweep(int i, int width, int step)
{
    const int span = qMax(1, width - 1);
    const int t = (i * step) % (2 * span);
    return t <= span ? t : 2 * span - t;
}

// Whether x lies within 2 % of the middle of samples evenly spaced by 1.
bool landsInMiddle(double x, int samples)
{
    return qAbs(x - 0.5 * (samples - 1)) <= 0.02 * samples + 1.0;
}

void readoutFigura(benchmark::State &state, int curves, int samples, bool label, bool legend)
{
    const Dataset &data = Dataset::shared(curves, samples);
    ReadoutPlot plot;
    fixScales(plot, data);
    plot.setMarkerLabelVisible(label);
    if (legend)
        plot.enableLegend(QwtPlot::RightLegend);
    if (!showPlot(plot, false))
        return fail(state, QStringLiteral("the plot was not exposed"));
    for (int c = 0; c < curves; ++c)
        plot.appendCurve(data.makeCurve(c), true);

    const int width = plot.canvas()->width();
    int i = 0;
    for (auto _ : state)
        plot.displayMarkers(sweep(i++, width, 3), QPointF(0.0, 0.0));

    // The pass must have searched the whole curve: the middle of the canvas
    // lies over the middle sample.
    plot.displayMarkers(width / 2, QPointF(0.0, 0.0));
    if (!landsInMiddle(plot.marker->xValue(), samples))
        return fail(state, QStringLiteral("the read-out did not land under the pointer"));
    state.counters["curves"] = curves;
    state.counters["samples"] = samples;
}

void readoutQwt(benchmark::State &state, int curves, int samples)
{
    const Dataset &data = Dataset::shared(curves, samples);
    QwtPlot plot;
    fixScales(plot, data);
    if (!showPlot(plot, false))
        return fail(state, QStringLiteral("the plot was not exposed"));
    for (int c = 0; c < curves; ++c)
        data.makeCurve(c)->attach(&plot);
    auto *picker = new TrackerPicker(plot.canvas());

    const int width = plot.canvas()->width();
    const int y = plot.canvas()->height() / 2;
    int i = 0;
    for (auto _ : state) {
        QwtText text = picker->trackerText(QPoint(sweep(i++, width, 3), y));
        benchmark::DoNotOptimize(text);
    }

    const QString middle = picker->trackerText(QPoint(width / 2, y)).text();
    if (!landsInMiddle(middle.section(QLatin1Char(','), 0, 0).toDouble(), samples))
        return fail(state, QStringLiteral("the tracker did not read the position under the pointer"));

    state.counters["curves"] = curves;
    state.counters["samples"] = samples;
}

// One burst of moves over the canvas of a shown, active plot. Returns the
// number of pauses between two moves longer than the replot delay: there
// the delayed replot may rightly fire within the burst, as it does when the
// user stops. On a busy machine the scheduler makes such pauses.
int moveBurst(QWidget &plot, QWidget *canvas)
{
    QWindow *window = plot.windowHandle();
    const QPoint origin = canvas->mapTo(&plot, QPoint(0, 0));
    const int y = canvas->height() / 2;
    const qint64 delayNs = qint64(PlotDefault::ReplotDelay) * 1000000;
    int pauses = 0;
    QElapsedTimer clock;
    clock.start();
    qint64 previous = 0;
    for (int i = 0; i < BurstMoves; ++i) {
        const qint64 now = clock.nsecsElapsed();
        if (i > 0 && now - previous > delayNs)
            ++pauses;
        previous = now;
        QTest::mouseMove(window, origin + QPoint(sweep(i, canvas->width(), 1), y));
    }
    return pauses;
}

// Runs the event loop until the delayed replot has happened.
void settle(ReadoutPlot &plot)
{
    while (plot.replotTimer->isActive())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}

void burstFigura(benchmark::State &state)
{
    const Dataset &data = Dataset::shared(BurstCurves, BurstSamples);
    ReadoutPlot plot;
    fixScales(plot, data);
    for (int c = 0; c < data.curves(); ++c)
        plot.appendCurve(data.makeCurve(c), true);
    if (!showPlot(plot, true))
        return fail(state, QStringLiteral("the plot did not become the active window"));
    plot.replot();
    settle(plot);
    // A first burst outside the count, as for the bare plot.
    moveBurst(plot, plot.canvas());
    settle(plot);
    PaintCounter paints(plot.canvas());

    const int replots = plot.replots;
    const int passes = plot.passes;
    int pauses = 0;
    for (auto _ : state) {
        pauses += moveBurst(plot, plot.canvas());
        settle(plot);
    }
    if (plot.passes == passes)
        return fail(state, QStringLiteral("the read-out did not follow the pointer"));

    const double bursts = double(state.iterations());
    state.counters["moves"] = BurstMoves;
    state.counters["readout_passes"] = (plot.passes - passes) / bursts;
    state.counters["replots"] = (plot.replots - replots) / bursts;
    state.counters["pauses_over_delay"] = pauses / bursts;
    state.counters["canvas_paints"] = paints.canvasPaints / bursts;
    state.counters["overlay_paints"] = paints.overlayPaints / bursts;
}

void burstQwt(benchmark::State &state)
{
    const Dataset &data = Dataset::shared(BurstCurves, BurstSamples);
    BarePlot plot;
    fixScales(plot, data);
    for (int c = 0; c < data.curves(); ++c)
        data.makeCurve(c)->attach(&plot);
    new TrackerPicker(plot.canvas());
    plot.setAutoReplot(true);
    if (!showPlot(plot, true))
        return fail(state, QStringLiteral("the plot did not become the active window"));
    plot.replot();
    QCoreApplication::processEvents();
    // The tracker's overlay widget exists from the first move on.
    moveBurst(plot, plot.canvas());
    QCoreApplication::processEvents();
    PaintCounter paints(plot.canvas());

    const int replots = plot.replots;
    int pauses = 0;
    for (auto _ : state) {
        pauses += moveBurst(plot, plot.canvas());
        QCoreApplication::processEvents();
    }

    const double bursts = double(state.iterations());
    state.counters["moves"] = BurstMoves;
    state.counters["replots"] = (plot.replots - replots) / bursts;
    state.counters["pauses_over_delay"] = pauses / bursts;
    state.counters["canvas_paints"] = paints.canvasPaints / bursts;
    state.counters["overlay_paints"] = paints.overlayPaints / bursts;
}

std::string readoutName(const char *side, int curves, int samples)
{
    return QStringLiteral("readout/%1/curves:%2/samples:%3")
        .arg(QLatin1String(side))
        .arg(curves)
        .arg(samples)
        .toStdString();
}

} // namespace

void BenchSupport::registerBenchmarks()
{
    const int sampleCounts[] = {1000, 100000, 1000000, 10000000};
    const int curveCounts[] = {1, 10, 100};
    for (int samples : sampleCounts) {
        if (quick() && samples > 100000)
            continue;
        for (int curves : curveCounts) {
            if (double(curves) * samples > MaxTotalSamples)
                continue;
            benchmark::RegisterBenchmark(readoutName("figura", curves, samples).c_str(),
                                         readoutFigura, curves, samples, true, false)
                ->Unit(benchmark::kMicrosecond);
            benchmark::RegisterBenchmark(readoutName("qwt", curves, samples).c_str(), readoutQwt,
                                         curves, samples)
                ->Unit(benchmark::kMicrosecond);
            if (curves == 10) {
                benchmark::RegisterBenchmark(readoutName("figura-nolabel", curves, samples).c_str(),
                                             readoutFigura, curves, samples, false, false)
                    ->Unit(benchmark::kMicrosecond);
                if (samples == 1000000 || (quick() && samples == 100000))
                    benchmark::RegisterBenchmark(
                        readoutName("figura-legend", curves, samples).c_str(), readoutFigura,
                        curves, samples, true, true)
                        ->Unit(benchmark::kMicrosecond);
            }
        }
    }

    benchmark::RegisterBenchmark("burst/figura", burstFigura)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("burst/qwt", burstQwt)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}
