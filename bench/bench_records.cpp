// Records and construction.
//
// json-roundtrip: a KelmQtPlot::PlotAttributes with every member set, written
// with toJson, serialised to compact text, parsed and read back with
// fromJson into a new record. The reference ("qt") is the serialisation and
// parsing of the same JSON object alone, so that the ratio tells what the
// record's own writer and reader add to Qt's JSON.
//
// construct: construction and destruction of each plot class of the library
// that exists in this build, not shown, against a bare QwtPlot.

#include "BenchSupport.h"

#include <figura/attributes/PlotAttributes.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/VoidPlot.h>

#ifdef FIGURA_BENCH_HAS_TimeCurvePlot
#include <figura/plots/TimeCurvePlot.h>
#endif
#ifdef FIGURA_BENCH_HAS_BarPlot
#include <figura/plots/BarPlot.h>
#endif
#ifdef FIGURA_BENCH_HAS_TimeBarPlot
#include <figura/plots/TimeBarPlot.h>
#endif
#ifdef FIGURA_BENCH_HAS_MultiBarPlot
#include <figura/plots/MultiBarPlot.h>
#endif

#include <benchmark/benchmark.h>

#include <QColor>
#include <QFont>
#include <QJsonDocument>
#include <QJsonObject>

#include <qwt_plot.h>

using namespace BenchSupport;

namespace {

KelmQtPlot::PlotAttributes fullRecord()
{
    KelmQtPlot::PlotAttributes record;
    QFont font(QStringLiteral("DejaVu Sans"), 11);
    font.setItalic(true);

    record.plotTitle.setText(QStringLiteral("Partial pressures"));
    record.plotTitle.setFont(font);
    record.plotTitle.setColor(QColor(10, 20, 30));
    record.canvasColor = QColor(250, 250, 245);
    record.majorGridColor = QColor(200, 200, 200);
    record.minorGridColor = QColor(230, 230, 230);
    record.chartColor = QColor(0, 90, 160);
    record.penWidth = 3;
    record.barChartBaseline = 1e-12;
    record.timeFormat = 2;
    record.markerVisible = 1;
    record.markerWidth = 2;
    record.markerColor = QColor(200, 30, 30);
    record.markerLabelVisible = 1;
    record.markerLabelFormat.font = font;
    record.markerLabelFormat.color = QColor(20, 20, 20);
    record.markerLabelFormat.bgColor = QColor(255, 255, 200);
    record.markerLabelFormat.alignment = Qt::AlignBottom;
    record.markerLabelFormat.sortOption = Figura::MarkerLabelSortByValue;
    record.peakLabelOpt = 1;
    record.peakLabelFormat = PeakLabelFormat(font, QColor(60, 60, 60), 45);
    const int axes[] = {QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight};
    for (int axis : axes) {
        QwtText &title = record.axisTitleById(axis);
        title.setText(QStringLiteral("Axis %1 [unit]").arg(axis));
        title.setFont(font);
        title.setColor(QColor(40, 40, 40));
        TickLabelFormat &tick = record.tickLabelById(axis);
        tick.font = font;
        tick.color = QColor(50, 50, 50);
        tick.rotation = 30;
    }
    record.logScale = 1;
    record.dragZoom = 0;
    record.autoScroll = 1;
    return record;
}

void jsonFigura(benchmark::State &state)
{
    const KelmQtPlot::PlotAttributes record = fullRecord();
    int keys = 0;
    for (auto _ : state) {
        QJsonObject json;
        record.toJson(json);
        const QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Compact);
        KelmQtPlot::PlotAttributes read;
        read.fromJson(QJsonDocument::fromJson(text).object());
        benchmark::DoNotOptimize(read);
        keys = int(json.size());
    }
    state.counters["keys"] = keys;
}

void jsonQt(benchmark::State &state)
{
    QJsonObject json;
    fullRecord().toJson(json);
    for (auto _ : state) {
        const QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Compact);
        QJsonObject read = QJsonDocument::fromJson(text).object();
        benchmark::DoNotOptimize(read);
    }
    state.counters["keys"] = double(json.size());
}

template <class Plot>
void construct(benchmark::State &state)
{
    for (auto _ : state) {
        auto *plot = new Plot;
        benchmark::DoNotOptimize(plot);
        delete plot;
    }
}

template <class Plot>
void registerConstruction(const char *name)
{
    benchmark::RegisterBenchmark(name, construct<Plot>)->Unit(benchmark::kMicrosecond);
}

} // namespace

void BenchSupport::registerBenchmarks()
{
    benchmark::RegisterBenchmark("json-roundtrip/figura", jsonFigura)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("json-roundtrip/qt", jsonQt)->Unit(benchmark::kMicrosecond);

    registerConstruction<VoidPlot>("construct/figura-VoidPlot");
    registerConstruction<CurvePlot>("construct/figura-CurvePlot");
#ifdef FIGURA_BENCH_HAS_TimeCurvePlot
    registerConstruction<TimeCurvePlot>("construct/figura-TimeCurvePlot");
#endif
#ifdef FIGURA_BENCH_HAS_BarPlot
    registerConstruction<BarPlot>("construct/figura-BarPlot");
#endif
#ifdef FIGURA_BENCH_HAS_TimeBarPlot
    registerConstruction<TimeBarPlot>("construct/figura-TimeBarPlot");
#endif
#ifdef FIGURA_BENCH_HAS_MultiBarPlot
    registerConstruction<MultiBarPlot>("construct/figura-MultiBarPlot");
#endif
    registerConstruction<QwtPlot>("construct/qwt");
}
