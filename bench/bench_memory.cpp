// Memory: the resident size that a plot adds with its curves.
//
// memory: 10 curves of 1,000,000 samples, each made by the host as a
// QwtPlotCurve over its own QVector<QPointF> (16 MB a curve), appended to a
// shown CurvePlot, against the same curves attached to a bare QwtPlot. The
// size is taken from /proc/self/statm before the curves are made and after
// they are in the plot and it has replotted once; the plot and its curves
// are deleted after each measure. The ratio shows whether our layer copies
// or caches samples; overhead_KiB is what ours adds beyond the samples.
//
// memory-shared: the same curves over arrays that exist before the measure
// (setRawSamples), so that only what the plots themselves allocate counts.
//
// The allocator is set to give every block of 64 KiB or more its own mapping,
// returned to the system when freed, so that one measure does not inherit the
// heap of the previous one. This is why memory has a program of its own.
//
// The time of each measure is that of making, appending and one replot.

#include "BenchSupport.h"

#include <figura/plots/CurvePlot.h>

#include <benchmark/benchmark.h>

#include <QColor>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointF>
#include <QVector>

#include <qwt_plot_curve.h>

#include <malloc.h>

using namespace BenchSupport;

namespace {

constexpr int Curves = 10;
constexpr int Samples = 1000000;
constexpr double MiB = 1024.0 * 1024.0;

void fixAllocator()
{
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024);
}

// A curve that holds its own copy of the samples, as a host makes one. The
// values change slowly, so that the replot stays short.
QwtPlotCurve *makeOwnedCurve(int curve, int samples)
{
    QVector<QPointF> points(samples);
    for (int i = 0; i < samples; ++i)
        points[i] = QPointF(double(i), 0.1 + 0.8 * double((i / 997 * (curve + 3)) % 100) / 100.0);
    auto *item = new QwtPlotCurve(QStringLiteral("curve %1").arg(curve + 1));
    item->setPen(QColor::fromHsv((curve * 47) % 360, 200, 180), 1.0);
    item->setSamples(points);
    return item;
}

struct Measure {
    double addedBytes = 0.0;
    double seconds = 0.0;
};

// Makes a plot, shows it, adds the curves through add and replots; the
// resident size is read with the plot empty and shown, and again at the end.
template <class Plot, class Add>
bool measure(Measure &result, Add add)
{
    Plot plot;
    plot.setAxisScale(QwtPlot::xBottom, 0.0, double(Samples - 1));
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 1.0);
    if (!showPlot(plot, false))
        return false;
    plot.replot();
    QCoreApplication::processEvents();

    const std::size_t before = residentBytes();
    QElapsedTimer clock;
    clock.start();
    for (int c = 0; c < Curves; ++c)
        add(plot, c);
    plot.replot();
    QCoreApplication::processEvents();
    result.seconds = double(clock.nsecsElapsed()) * 1e-9;
    result.addedBytes = double(residentBytes()) - double(before);
    return true;
}

void addToFigura(CurvePlot &plot, QwtPlotCurve *curve)
{
    plot.appendCurve(curve, true);
}

void addToQwt(QwtPlot &plot, QwtPlotCurve *curve)
{
    curve->attach(&plot);
}

template <class Plot>
void memoryOwned(benchmark::State &state, void (*add)(Plot &, QwtPlotCurve *))
{
    fixAllocator();
    double added = 0.0;
    for (auto _ : state) {
        Measure result;
        if (!measure<Plot>(result, [add](Plot &plot, int c) { add(plot, makeOwnedCurve(c, Samples)); }))
            return fail(state, QStringLiteral("the plot was not exposed"));
        state.SetIterationTime(result.seconds);
        added += result.addedBytes;
    }
    const double samplesBytes = double(Curves) * Samples * sizeof(QPointF);
    const double mean = added / double(state.iterations());
    state.counters["rss_added_MiB"] = mean / MiB;
    state.counters["samples_MiB"] = samplesBytes / MiB;
    state.counters["overhead_KiB"] = (mean - samplesBytes) / 1024.0;
}

template <class Plot>
void memoryShared(benchmark::State &state, void (*add)(Plot &, QwtPlotCurve *))
{
    fixAllocator();
    const Dataset &data = Dataset::shared(Curves, Samples);
    double added = 0.0;
    for (auto _ : state) {
        Measure result;
        if (!measure<Plot>(result, [add, &data](Plot &plot, int c) { add(plot, data.makeCurve(c)); }))
            return fail(state, QStringLiteral("the plot was not exposed"));
        state.SetIterationTime(result.seconds);
        added += result.addedBytes;
    }
    state.counters["rss_added_KiB"] = added / double(state.iterations()) / 1024.0;
}

} // namespace

void BenchSupport::registerBenchmarks()
{
    const int iterations = quick() ? 1 : 3;
    benchmark::RegisterBenchmark("memory/figura", memoryOwned<CurvePlot>, addToFigura)
        ->UseManualTime()
        ->Iterations(iterations)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("memory/qwt", memoryOwned<QwtPlot>, addToQwt)
        ->UseManualTime()
        ->Iterations(iterations)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("memory-shared/figura", memoryShared<CurvePlot>, addToFigura)
        ->UseManualTime()
        ->Iterations(iterations)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("memory-shared/qwt", memoryShared<QwtPlot>, addToQwt)
        ->UseManualTime()
        ->Iterations(iterations)
        ->Unit(benchmark::kMillisecond);
}
