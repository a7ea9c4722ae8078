// Time axes.
//
// divide: divideScale over a set of intervals from 10 seconds to 60 days, with
// the tick limits of our x axis, by ElapsedTimeScaleEngine and by
// LocalTimeScaleEngine (with a reference time) against QwtLinearScaleEngine.
//
// labels: the tick labels of a full axis, for each interval of the set:
// TimeScaleDraw::label for every major tick of the elapsed time division, as
// elapsed time and as local date and time, against QwtScaleDraw::label for
// the same ticks.
//
// axis-draw: the whole axis drawn into an image for each interval (backbone,
// ticks and labels), TimeScaleDraw against QwtScaleDraw on the same divisions.

#include "BenchSupport.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/scales/ElapsedTimeScaleEngine.h>
#include <figura/scales/LocalTimeScaleEngine.h>
#include <figura/scales/TimeScaleDraw.h>

#include <benchmark/benchmark.h>

#include <QDateTime>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPalette>

#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_text.h>

#include <memory>
#include <utility>
#include <vector>

using namespace BenchSupport;

namespace {

// Interval bounds in seconds: fine spans, clock spans, day and week spans,
// some starting at odd offsets.
const std::vector<std::pair<double, double>> &intervals()
{
    static const std::vector<std::pair<double, double>> value = {
        {0.0, 10.0},         {1234.5, 1324.5},    {0.0, 600.0},      {3000.0, 6600.0},
        {0.0, 21600.0},      {50000.0, 136400.0}, {0.0, 259200.0},   {7200.0, 1216800.0},
        {0.0, 5184000.0},    {0.0, 300.0},        {17.25, 17.75},    {86000.0, 87000.0}};
    return value;
}

const QDateTime &referenceTime()
{
    static const QDateTime value(QDate(2024, 3, 30), QTime(22, 47, 13, 250));
    return value;
}

std::unique_ptr<QwtScaleEngine> makeEngine(const QString &side)
{
    if (side == QLatin1String("figura-elapsed"))
        return std::make_unique<ElapsedTimeScaleEngine>();
    if (side == QLatin1String("figura-local")) {
        auto engine = std::make_unique<LocalTimeScaleEngine>();
        engine->setReferenceTime(&referenceTime());
        return engine;
    }
    return std::make_unique<QwtLinearScaleEngine>();
}

void divide(benchmark::State &state, QString side)
{
    const std::unique_ptr<QwtScaleEngine> engine = makeEngine(side);
    const int maxMajor = PlotDefault::XAxisLinearScaleMaxMajor;
    const int maxMinor = PlotDefault::XAxisLinearScaleMaxMinor;
    int ticks = 0;
    for (auto _ : state) {
        for (const auto &interval : intervals()) {
            QwtScaleDiv div = engine->divideScale(interval.first, interval.second, maxMajor, maxMinor);
            benchmark::DoNotOptimize(div);
            ticks += int(div.ticks(QwtScaleDiv::MajorTick).size());
        }
    }
    state.counters["intervals"] = double(intervals().size());
    state.counters["major_ticks"] = double(ticks) / double(state.iterations());
}

// The divisions that both sides label: those of the elapsed time engine.
std::vector<QwtScaleDiv> elapsedDivisions()
{
    ElapsedTimeScaleEngine engine;
    std::vector<QwtScaleDiv> divisions;
    for (const auto &interval : intervals())
        divisions.push_back(engine.divideScale(interval.first, interval.second,
                                               PlotDefault::XAxisLinearScaleMaxMajor,
                                               PlotDefault::XAxisLinearScaleMaxMinor));
    return divisions;
}

std::unique_ptr<QwtScaleDraw> makeDraw(const QString &side)
{
    if (side == QLatin1String("figura-elapsed")) {
        auto draw = std::make_unique<TimeScaleDraw>();
        draw->setTimeFormat(1, nullptr);
        return draw;
    }
    if (side == QLatin1String("figura-local")) {
        auto draw = std::make_unique<TimeScaleDraw>();
        draw->setTimeFormat(2, &referenceTime());
        return draw;
    }
    return std::make_unique<QwtScaleDraw>();
}

void labels(benchmark::State &state, QString side)
{
    const std::vector<QwtScaleDiv> divisions = elapsedDivisions();
    const std::unique_ptr<QwtScaleDraw> draw = makeDraw(side);
    int count = 0;
    for (auto _ : state) {
        for (const QwtScaleDiv &div : divisions) {
            draw->setScaleDiv(div);
            const QList<double> ticks = div.ticks(QwtScaleDiv::MajorTick);
            for (double tick : ticks) {
                QwtText text = draw->label(tick);
                benchmark::DoNotOptimize(text);
                ++count;
            }
        }
    }
    state.counters["labels"] = double(count) / double(state.iterations());
}

void axisDraw(benchmark::State &state, QString side)
{
    const std::vector<QwtScaleDiv> divisions = elapsedDivisions();
    const std::unique_ptr<QwtScaleDraw> draw = makeDraw(side);
    draw->setAlignment(QwtScaleDraw::BottomScale);
    draw->move(20.0, 2.0);
    draw->setLength(PlotSize.width() - 40);
    QImage image(PlotSize.width(), 60, QImage::Format_ARGB32_Premultiplied);
    const QPalette palette;
    for (auto _ : state) {
        for (const QwtScaleDiv &div : divisions) {
            // A new division empties the label cache, as a zoom does.
            draw->setScaleDiv(div);
            image.fill(Qt::white);
            QPainter painter(&image);
            draw->draw(&painter, palette);
        }
    }
}

} // namespace

void BenchSupport::registerBenchmarks()
{
    const QString sides[] = {QStringLiteral("figura-elapsed"), QStringLiteral("figura-local"),
                             QStringLiteral("qwt")};
    for (const QString &side : sides)
        benchmark::RegisterBenchmark(QStringLiteral("divide/%1").arg(side).toStdString().c_str(), divide, side)
            ->Unit(benchmark::kMicrosecond);
    for (const QString &side : sides)
        benchmark::RegisterBenchmark(QStringLiteral("labels/%1").arg(side).toStdString().c_str(), labels, side)
            ->Unit(benchmark::kMicrosecond);
    for (const QString &side : sides)
        benchmark::RegisterBenchmark(QStringLiteral("axis-draw/%1").arg(side).toStdString().c_str(), axisDraw,
                                     side)
            ->Unit(benchmark::kMicrosecond);
}
