#pragma once

// Measurement-like data for the gallery: residual gas spectra of a vacuum
// chamber as a mass spectrometer records them, a pump-down trend of four
// masses, and bar summaries drawn from the same models. Everything is
// deterministic: a model with the same seed gives the same noise, so that
// screenshots and tests see the same pictures on every run.

#include <QColor>
#include <QList>
#include <QPointF>
#include <QRandomGenerator>
#include <QString>
#include <QVector>

namespace SampleData {

struct Peak
{
    double mass = 0.0;   // amu
    double height = 0.0; // ion current in A
};

// One recorded spectrum: what it shows, how the gallery draws it and the
// peaks it is made of, over a noise floor of the detector.
struct Spectrum
{
    QString title;
    QColor color;
    QList<Peak> peaks;
    double noiseFloor = 0.0;
    quint32 seed = 0;
};

// Three spectra of one chamber: vented, after pump-down, after bake-out.
QList<Spectrum> residualGasSpectra();

// A profile scan: count samples evenly spaced from firstMass to lastMass,
// Gaussian peaks whose width grows slowly with the mass, on a noisy floor.
QVector<QPointF> profileScan(const Spectrum &spectrum, double firstMass, double lastMass,
                             int count);

// A bar scan: one value per whole mass from firstMass to lastMass, the peak
// height there (or the floor), with a little noise.
QVector<QPointF> barScan(const Spectrum &spectrum, int firstMass, int lastMass);

// The ion usually behind a mass in residual gas ("N₂" for 28); empty when
// there is no usual one.
QString ionName(int mass);

// Partial pressures of four masses while a chamber pumps down: water falls,
// hydrogen breathes with the temperature, a valve lets a puff of nitrogen in
// every 90 s. Values in mbar; time in seconds from the start of the record.
class PumpDownTrend
{
public:
    struct Channel
    {
        QString title;
        QColor color;
        int mass = 0;
    };

    static constexpr int ChannelCount = 4;

    explicit PumpDownTrend(quint32 seed = 20240514);

    // ChannelCount channels: H₂, H₂O, N₂ and CO₂.
    static QList<Channel> channels();
    // One reading of every channel at time t. Each call draws fresh noise,
    // so that a series of calls is a series of measurements.
    QVector<double> sample(double t);
    // The noise-free value of one channel at time t.
    static double level(int channel, double t);

private:
    QRandomGenerator random;
};

// Gaussian noise of mean 0 and deviation 1, drawn from random.
double gaussian(QRandomGenerator &random);

} // namespace SampleData
