#include "SampleData.h"

#include <QCoreApplication>
#include <QHash>

#include <cmath>

namespace SampleData {

namespace {

// Width of a peak as the spectrometer resolves it: about 0.4 amu at half
// height for light masses, a little wider further up.
double peakSigma(double mass)
{
    return 0.16 + 0.0009 * mass;
}

double peakSum(const QList<Peak> &peaks, double mass)
{
    double sum = 0.0;
    for (const Peak &peak : peaks) {
        const double sigma = peakSigma(peak.mass);
        const double d = (mass - peak.mass) / sigma;
        if (std::abs(d) < 12.0)
            sum += peak.height * std::exp(-0.5 * d * d);
    }
    return sum;
}

} // namespace

double gaussian(QRandomGenerator &random)
{
    // Box-Muller; 1 - u keeps the logarithm away from zero.
    const double u = 1.0 - random.generateDouble();
    const double v = random.generateDouble();
    return std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * M_PI * v);
}

QList<Spectrum> residualGasSpectra()
{
    auto tr = [](const char *text) { return QCoreApplication::translate("SampleData", text); };

    Spectrum vented;
    vented.title = tr("Vented chamber");
    vented.color = QColor(52, 120, 206);
    vented.noiseFloor = 8e-12;
    vented.seed = 11;
    vented.peaks = {{1, 2e-10},   {2, 2.5e-9},  {12, 4e-10},  {14, 5.5e-8}, {15, 2e-10},
                    {16, 4.2e-8}, {17, 3.1e-8}, {18, 1.2e-7}, {19, 2e-10},  {20, 1.4e-9},
                    {22, 2e-11},  {28, 8.6e-7}, {29, 6.2e-9}, {30, 1e-9},   {32, 2.1e-7},
                    {34, 8e-10},  {36, 3e-11},  {40, 1.1e-8}, {44, 4e-10},  {45, 5e-12}};

    Spectrum pumped;
    pumped.title = tr("After pump-down");
    pumped.color = QColor(226, 106, 40);
    pumped.noiseFloor = 2.5e-12;
    pumped.seed = 12;
    pumped.peaks = {{1, 8e-10},   {2, 1.8e-8},   {12, 1e-10},   {14, 3e-10},   {16, 3.5e-9},
                    {17, 1.2e-8}, {18, 4.6e-8},  {19, 3e-11},   {20, 4e-11},   {28, 6.5e-9},
                    {29, 5e-11},  {32, 2.5e-10}, {40, 6e-11},   {41, 8e-11},   {43, 1.1e-10},
                    {44, 1.6e-9}, {55, 6e-11},   {57, 7e-11},   {69, 3e-11},   {71, 2.5e-11},
                    {85, 1.2e-11}, {91, 8e-12},  {105, 5e-12},  {149, 1.5e-11}};

    Spectrum baked;
    baked.title = tr("After bake-out");
    baked.color = QColor(46, 160, 80);
    baked.noiseFloor = 8e-13;
    baked.seed = 13;
    baked.peaks = {{1, 3e-10},    {2, 7.5e-9}, {12, 5e-11},  {13, 1e-11},  {14, 6e-11},
                   {15, 1.2e-10}, {16, 3e-10}, {17, 1.5e-10}, {18, 6e-10}, {28, 9e-10},
                   {40, 1e-11},   {44, 2.4e-10}};

    return {vented, pumped, baked};
}

QVector<QPointF> profileScan(const Spectrum &spectrum, double firstMass, double lastMass,
                             int count)
{
    QVector<QPointF> samples;
    if (count < 2)
        return samples;
    samples.reserve(count);
    QRandomGenerator random(spectrum.seed);
    const double step = (lastMass - firstMass) / (count - 1);
    for (int i = 0; i < count; ++i) {
        const double mass = firstMass + i * step;
        // The floor scatters by about a fifth, the peaks by 2 %.
        const double floor = spectrum.noiseFloor * std::exp(0.2 * gaussian(random));
        const double signal = peakSum(spectrum.peaks, mass) * (1.0 + 0.02 * gaussian(random));
        samples.append(QPointF(mass, floor + std::max(0.0, signal)));
    }
    return samples;
}

QVector<QPointF> barScan(const Spectrum &spectrum, int firstMass, int lastMass)
{
    QVector<QPointF> samples;
    QRandomGenerator random(spectrum.seed + 1000);
    for (int mass = firstMass; mass <= lastMass; ++mass) {
        const double floor = spectrum.noiseFloor * std::exp(0.2 * gaussian(random));
        const double signal = peakSum(spectrum.peaks, mass) * (1.0 + 0.02 * gaussian(random));
        samples.append(QPointF(mass, floor + std::max(0.0, signal)));
    }
    return samples;
}

QString ionName(int mass)
{
    static const QHash<int, QString> names = {
        {1, QStringLiteral("H")},        {2, QStringLiteral("H\u2082")},
        {12, QStringLiteral("C")},       {14, QStringLiteral("N")},
        {15, QStringLiteral("CH\u2083")}, {16, QStringLiteral("O")},
        {17, QStringLiteral("OH")},      {18, QStringLiteral("H\u2082O")},
        {20, QStringLiteral("Ar\u00b2\u207a")}, {28, QStringLiteral("N\u2082")},
        {29, QStringLiteral("\u00b9\u2075N\u00b9\u2074N")}, {32, QStringLiteral("O\u2082")},
        {40, QStringLiteral("Ar")},      {44, QStringLiteral("CO\u2082")},
    };
    return names.value(mass);
}

PumpDownTrend::PumpDownTrend(quint32 seed)
    : random(seed)
{
}

QList<PumpDownTrend::Channel> PumpDownTrend::channels()
{
    auto tr = [](const char *text) { return QCoreApplication::translate("SampleData", text); };
    return {
        {tr("H\u2082 (2)"), QColor(52, 120, 206), 2},
        {tr("H\u2082O (18)"), QColor(226, 106, 40), 18},
        {tr("N\u2082 (28)"), QColor(46, 160, 80), 28},
        {tr("CO\u2082 (44)"), QColor(150, 90, 200), 44},
    };
}

double PumpDownTrend::level(int channel, double t)
{
    switch (channel) {
    case 0:
        return 2.5e-9 * (1.0 + 0.15 * std::sin(2.0 * M_PI * t / 240.0));
    case 1:
        return 1.2e-9 + 4e-8 * std::exp(-t / 400.0);
    case 2: {
        // A valve opens 10 s into every 90 s; the puff is pumped away in seconds.
        const double phase = std::fmod(t, 90.0) - 10.0;
        const double puff = phase >= 0.0 ? 2e-8 * std::exp(-phase / 6.0) : 0.0;
        return 3e-9 + puff;
    }
    case 3:
        return 6e-10 * (1.0 + 0.1 * std::sin(2.0 * M_PI * t / 75.0));
    default:
        return 0.0;
    }
}

QVector<double> PumpDownTrend::sample(double t)
{
    QVector<double> values;
    values.reserve(ChannelCount);
    for (int channel = 0; channel < ChannelCount; ++channel)
        values.append(level(channel, t) * std::exp(0.04 * gaussian(random)));
    return values;
}

} // namespace SampleData
