// Drawing: replot and document export.
//
// replot: replot() of a shown CurvePlot with 10 curves of 100,000 samples,
// the event loop run until the canvas has painted, against a bare QwtPlot
// with the same curves. Ours is measured with the read-out hidden, as after
// construction, and with the read-out shown at the middle of the canvas, as
// while the user reads values.
//
// export: a 300 by 200 mm, 300 DPI PNG document written by renderDocument.
// "export" renders the same CurvePlot through PlotRenderer and through
// QwtPlotRenderer, so that only the renderer differs; "export-plot" is our
// whole path, CurvePlot through PlotRenderer, against a bare QwtPlot through
// QwtPlotRenderer.

#include "BenchSupport.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/PlotRenderer.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QPointF>
#include <QTemporaryDir>

#include <qwt_plot_curve.h>
#include <qwt_plot_renderer.h>

using namespace BenchSupport;

namespace {

constexpr int Curves = 10;
constexpr int Samples = 100000;

class ReadoutPlot : public CurvePlot
{
public:
    using CurvePlot::CurvePlot;
    using CurvePlot::displayMarkers;
};

class CanvasPaintCounter : public QObject
{
public:
    explicit CanvasPaintCounter(QWidget *canvas) { canvas->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

void fillFigura(ReadoutPlot &plot, const Dataset &data)
{
    fixScales(plot, data);
    for (int c = 0; c < data.curves(); ++c)
        plot.appendCurve(data.makeCurve(c), true);
}

void fillQwt(QwtPlot &plot, const Dataset &data)
{
    fixScales(plot, data);
    for (int c = 0; c < data.curves(); ++c)
        data.makeCurve(c)->attach(&plot);
}

void measureReplots(benchmark::State &state, QwtPlot &plot)
{
    if (!showPlot(plot, false))
        return fail(state, QStringLiteral("the plot was not exposed"));
    QCoreApplication::processEvents();
    CanvasPaintCounter counter(plot.canvas());
    for (auto _ : state) {
        plot.replot();
        // The canvas paints from the event loop.
        QCoreApplication::processEvents();
    }
    if (counter.paints < state.iterations())
        return fail(state, QStringLiteral("the canvas did not paint after each replot"));
    state.counters["canvas_paints"] = double(counter.paints) / double(state.iterations());
}

void replotFigura(benchmark::State &state, bool readoutShown)
{
    ReadoutPlot plot;
    fillFigura(plot, Dataset::shared(Curves, Samples));
    if (readoutShown) {
        plot.resize(PlotSize);
        plot.updateLayout();
        plot.displayMarkers(plot.canvas()->width() / 2, QPointF(0.0, 0.0));
    }
    measureReplots(state, plot);
}

void replotQwt(benchmark::State &state)
{
    QwtPlot plot;
    fillQwt(plot, Dataset::shared(Curves, Samples));
    measureReplots(state, plot);
}

// The document at the size and resolution of VoidPlot::exportImageToFile.
void measureExport(benchmark::State &state, QwtPlot &plot, QwtPlotRenderer &renderer)
{
    QTemporaryDir dir;
    if (!dir.isValid())
        return fail(state, QStringLiteral("no temporary directory"));
    const QString fileName = dir.filePath(QStringLiteral("export.png"));
    plot.resize(PlotSize);
    plot.updateLayout();
    for (auto _ : state)
        renderer.renderDocument(&plot, fileName, QStringLiteral("png"), PlotDefault::Export::SizeMM,
                                PlotDefault::Export::DPI);
    if (QFileInfo(fileName).size() == 0)
        return fail(state, QStringLiteral("no document was written"));
    state.counters["file_MiB"] = double(QFileInfo(fileName).size()) / (1024.0 * 1024.0);
}

void exportRenderer(benchmark::State &state, bool ours)
{
    ReadoutPlot plot;
    fillFigura(plot, Dataset::shared(Curves, Samples));
    PlotRenderer figuraRenderer;
    QwtPlotRenderer qwtRenderer;
    measureExport(state, plot, ours ? static_cast<QwtPlotRenderer &>(figuraRenderer) : qwtRenderer);
}

void exportPlotFigura(benchmark::State &state)
{
    ReadoutPlot plot;
    fillFigura(plot, Dataset::shared(Curves, Samples));
    PlotRenderer renderer;
    measureExport(state, plot, renderer);
}

void exportPlotQwt(benchmark::State &state)
{
    QwtPlot plot;
    fillQwt(plot, Dataset::shared(Curves, Samples));
    QwtPlotRenderer renderer;
    measureExport(state, plot, renderer);
}

} // namespace

void BenchSupport::registerBenchmarks()
{
    benchmark::RegisterBenchmark("replot/figura", replotFigura, false)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("replot/figura-readout", replotFigura, true)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("replot/qwt", replotQwt)->Unit(benchmark::kMillisecond);

    // Qt may scale and encode images on worker threads: the process counts.
    benchmark::RegisterBenchmark("export/figura", exportRenderer, true)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("export/qwt", exportRenderer, false)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("export-plot/figura", exportPlotFigura)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("export-plot/qwt", exportPlotQwt)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime();
}
