#include "BenchSupport.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QColor>
#include <QFile>
#include <QPen>
#include <QTest>
#include <QWidget>

#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <malloc.h>
#include <unistd.h>

#include <cstdint>
#include <memory>

namespace BenchSupport {

bool quick()
{
    static const bool value = qEnvironmentVariableIntValue("BENCH_QUICK") != 0;
    return value;
}

Dataset::Dataset(int curves, int samples)
    : curveCount(curves)
    , sampleCount(samples)
{
    const std::size_t total = std::size_t(curves) * std::size_t(samples);
    xs.resize(total);
    ys.resize(total);
    // A cheap wave with noise from a linear congruential generator: no
    // trigonometry, so that 1e8 samples are made in well under a second.
    std::uint64_t state = 0x9E3779B97F4A7C15ull;
    for (int c = 0; c < curves; ++c) {
        double *x = xs.data() + std::size_t(c) * std::size_t(samples);
        double *y = ys.data() + std::size_t(c) * std::size_t(samples);
        // A few broad features per curve with a little noise, as measured
        // traces look; a busier wave would only measure Qt's line drawing.
        const int period = qMax(16, samples / 7 + 131 * c);
        for (int i = 0; i < samples; ++i) {
            state = state * 6364136223846793005ull + 1442695040888963407ull;
            const double noise = double(state >> 11) * (1.0 / 9007199254740992.0);
            const int phase = (i + 53 * c) % period;
            const double triangle = phase < period / 2 ? double(phase) / (period / 2)
                                                       : double(period - phase) / (period - period / 2);
            x[i] = double(i);
            y[i] = 0.1 + 0.8 * triangle + 0.02 * noise;
        }
    }
}

QwtPlotCurve *Dataset::makeCurve(int curve) const
{
    auto *item = new QwtPlotCurve(QStringLiteral("curve %1").arg(curve + 1));
    item->setPen(QColor::fromHsv((curve * 47) % 360, 200, 180), 1.0);
    item->setRawSamples(x(curve), y(curve), sampleCount);
    return item;
}

static std::unique_ptr<Dataset> &sharedSlot()
{
    static std::unique_ptr<Dataset> slot;
    return slot;
}

const Dataset &Dataset::shared(int curves, int samples)
{
    std::unique_ptr<Dataset> &slot = sharedSlot();
    if (!slot || slot->curves() != curves || slot->samples() != samples) {
        slot.reset();
        slot = std::make_unique<Dataset>(curves, samples);
    }
    return *slot;
}

void Dataset::releaseShared()
{
    sharedSlot().reset();
}

bool showPlot(QWidget &widget, bool activate)
{
    widget.resize(PlotSize);
    widget.show();
    if (!QTest::qWaitForWindowExposed(&widget))
        return false;
    if (!activate)
        return true;
    widget.activateWindow();
    return QTest::qWaitForWindowActive(&widget) && QApplication::activeWindow() == &widget;
}

void fixScales(QwtPlot &plot, const Dataset &data)
{
    plot.setAxisScale(QwtPlot::xBottom, 0.0, double(data.samples() - 1));
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 1.0);
    // setAxisScale only records the bounds; the division, and with it every
    // transform, follows at the next updateAxes, which replot calls.
    plot.updateAxes();
}

std::size_t residentBytes()
{
    malloc_trim(0);
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().simplified().split(' ');
    if (fields.size() < 2)
        return 0;
    return std::size_t(fields.at(1).toULongLong()) * std::size_t(sysconf(_SC_PAGESIZE));
}

void fail(benchmark::State &state, const QString &message)
{
    state.SkipWithError(message.toUtf8().constData());
}

} // namespace BenchSupport
