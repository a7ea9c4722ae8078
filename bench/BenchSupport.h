#pragma once

// Shared pieces of the benchmark programs: the sample data that our plots and
// their bare Qwt counterparts read without copying, plots shown offscreen at
// one size, the resident size of the process and the short run mode.
//
// Benchmark names follow "<measure>/<side>[/<arguments>]". The side "qwt" (or
// "qt" where Qt itself is the reference) is the bare counterpart; every other
// side is ours and is compared with it by bench_report.

#include <QSize>
#include <QString>

#include <cstddef>
#include <vector>

class QWidget;
class QwtPlot;
class QwtPlotCurve;

namespace benchmark {
class State;
}

namespace BenchSupport {

// The size at which every plot of the benchmarks is shown.
constexpr QSize PlotSize(1000, 700);

// BENCH_QUICK=1: a short run that checks that everything works; the largest
// data sets are left out.
bool quick();

// Each executable registers its benchmarks here; main() calls it once the
// QApplication exists.
void registerBenchmarks();

// Samples of several curves, each with its own x and y arrays (curve c owns
// [c * samples, (c + 1) * samples)), x ascending from 0 in steps of 1, y a
// deterministic wave with noise in [0, 1]. Curves over one Dataset point into
// it through QwtCPointerData and copy nothing.
class Dataset
{
public:
    Dataset(int curves, int samples);

    int curves() const { return curveCount; }
    int samples() const { return sampleCount; }
    const double *x(int curve) const { return xs.data() + std::size_t(curve) * std::size_t(sampleCount); }
    const double *y(int curve) const { return ys.data() + std::size_t(curve) * std::size_t(sampleCount); }

    // A curve that reads curve c's arrays in place, with a pen of its own
    // colour and a title; owned by the caller.
    QwtPlotCurve *makeCurve(int curve) const;

    // The data set of the last call with these arguments, or a new one; an
    // older one of other arguments is freed first, so that at most one large
    // set lives at a time.
    static const Dataset &shared(int curves, int samples);
    static void releaseShared();

private:
    int curveCount;
    int sampleCount;
    std::vector<double> xs;
    std::vector<double> ys;
};

// Shows the widget offscreen at PlotSize and waits until it is exposed and,
// with activate, the active window (pointer moves need one).
bool showPlot(QWidget &widget, bool activate);

// Axes fixed to the data range, so that no replot scans the samples for
// auto-scaling and both sides of a comparison draw the same scales.
void fixScales(QwtPlot &plot, const Dataset &data);

// Resident size of the process in bytes, from /proc/self/statm, after
// returning freed heap memory to the system.
std::size_t residentBytes();

// Stops the run with an error message in the report.
void fail(benchmark::State &state, const QString &message);

} // namespace BenchSupport
