#pragma once

#include "GalleryPlot.h"
#include "SampleData.h"

#include <figura/plots/TimeCurvePlot.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QList>

class GrowingSeries;
class QMouseEvent;
class QTimer;

// The gallery's TimeCurvePlot page: a live trend of four partial pressures,
// one reading every 100 ms, on a local time axis counted from the start of
// the record. What the library leaves to the host is done here:
//
// - Auto-scroll: while it is on, the x axis follows the newest reading and
//   keeps the width the user zoomed to. Panning or zooming into a box
//   pauses it, so that the part the user looks at stays put; the context
//   menu turns it on again.
// - A left click selects the sample under the pointer; statusMessage()
//   describes the selection, for the status bar.
// - "Text Data" and "Text Data..." give the visible channels as CSV, with
//   local time and seconds in front.
class TrendPlot : public TimeCurvePlot, public GalleryPlot
{
    Q_OBJECT

public:
    // The record starts at start: x = 0 stands for it.
    explicit TrendPlot(const QDateTime &start, QWidget *parent = nullptr);
    ~TrendPlot() override;

    // Readings every 100 ms from 0 to seconds, as if the record had been
    // running that long; only before the first live reading.
    void prefill(double seconds);
    // Starts and stops the timer that takes a reading every 100 ms.
    void startSampling();
    void stopSampling();
    bool isSampling() const;

    // One reading of every channel at t seconds, t above the latest; the
    // x axis follows while auto-scroll is on.
    void appendReading(double t);
    double latestTime() const;
    // The reading interval in seconds and the width of the first view.
    static double readingInterval();
    static double initialWindow();

    VoidPlot *plotWidget() override;
    QString pageKey() const override;
    QString pageTitle() const override;
    QString pageCaption() const override;
    void applyPalette(bool dark) override;
    QList<QColor> seriesColors() const override;
    QString textData() const override;
    QwtText markerLabelTemplate() const override;
    void poseForScreenshot() override;

    void copyTextDataToClipboard() override;
    void exportTextDataToFile() override;

Q_SIGNALS:
    // A line for the status bar: the selected sample, or that auto-scroll
    // was paused.
    void statusMessage(const QString &text);

protected:
    void onMouseLeftClicked(QMouseEvent *event) override;
    QwtText defaultPlotTitle() override;
    QwtText defaultAxisTitle(int axisId) override;

protected Q_SLOTS:
    void toggleAutoScroll(bool enabled) override;

private:
    void takeReading();
    void followLatest();
    void pauseAutoScroll();
    void describeSelection(int index);
    QString localTimeText(double seconds) const;

    QDateTime recordStart;
    SampleData::PumpDownTrend source;
    QList<GrowingSeries *> channelSeries; // owned by the curves
    QTimer *samplingTimer = nullptr;
    QElapsedTimer clock;
    double clockOffset = 0.0; // x of the first live reading
    double latest = -1.0;
};
