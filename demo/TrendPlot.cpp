#include "TrendPlot.h"

#include "GalleryPalette.h"
#include "GrowingSeries.h"
#include "TextData.h"

#include <figura/defaults/PlotDefault.h>

#include <QMouseEvent>
#include <QPen>
#include <QTimer>

#include <qwt_plot_curve.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_picker.h>

#include <algorithm>

namespace {

constexpr int ReadingIntervalMs = 100;
constexpr double InitialWindowSeconds = 120.0;
// An hour of readings; the oldest tenth goes when the record is full.
constexpr int MaxReadings = 36000;
// The newest reading stays this fraction of the view away from its right edge.
constexpr double FollowMargin = 0.02;

QwtText titleText(const QString &text, const QwtText &like)
{
    QwtText title = like;
    title.setText(text, QwtText::AutoText);
    return title;
}

} // namespace

TrendPlot::TrendPlot(const QDateTime &start, QWidget *parent)
    : TimeCurvePlot(parent)
    , recordStart(start)
{
    setObjectName(QStringLiteral("trendPlot"));
    setTitle(titleText(tr("Pump-down trend"), title()));
    setAxisTitle(QwtPlot::yLeft,
                 titleText(tr("Partial pressure (mbar)"), axisTitle(QwtPlot::yLeft)));
    setCustomPlotOptions(customPlotOptions() & ~PlotOptionChartColor);

    setReferenceTime(&recordStart);
    setDefaultTimeFormat(2);
    setTimeFormat(2);

    connect(this, &CurvePlot::penWidthChanged, this, [this] {
        applyPenWidthToAll();
        replotLater();
    });

    enableLegend(QwtPlot::BottomLegend);
    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    for (const SampleData::PumpDownTrend::Channel &channel : channels) {
        auto *series = new GrowingSeries;
        auto *curve = new QwtPlotCurve(channel.title);
        curve->setData(series);
        curve->setPen(QPen(channel.color, penWidth()));
        curve->setRenderHint(QwtPlotItem::RenderAntialiased);
        appendCurve(curve, true);
        setLegend(curve);
        channelSeries.append(series);
    }

    setLogScale(true);
    setAxisScale(QwtPlot::xBottom, 0.0, InitialWindowSeconds);
    updateAxes();

    connect(this, &CurvePlot::sampleSelected, this, &TrendPlot::describeSelection);
    // Looking at a part of the record by hand pauses the following.
    connect(panner, &QwtPlotPanner::panned, this, &TrendPlot::pauseAutoScroll);
    connect(zoomPicker, qOverload<const QRectF &>(&QwtPlotPicker::selected), this,
            &TrendPlot::pauseAutoScroll);

    samplingTimer = new QTimer(this);
    samplingTimer->setInterval(ReadingIntervalMs);
    connect(samplingTimer, &QTimer::timeout, this, &TrendPlot::takeReading);
}

TrendPlot::~TrendPlot() = default;

double TrendPlot::readingInterval()
{
    return ReadingIntervalMs / 1000.0;
}

double TrendPlot::initialWindow()
{
    return InitialWindowSeconds;
}

void TrendPlot::prefill(double seconds)
{
    if (latest >= 0.0)
        return;
    const int count = int(seconds / readingInterval());
    for (int i = 0; i <= count; ++i)
        appendReading(i * readingInterval());
}

void TrendPlot::startSampling()
{
    if (samplingTimer->isActive())
        return;
    clockOffset = latest + readingInterval();
    clock.start();
    samplingTimer->start();
}

void TrendPlot::stopSampling()
{
    samplingTimer->stop();
}

bool TrendPlot::isSampling() const
{
    return samplingTimer->isActive();
}

void TrendPlot::takeReading()
{
    // The clock, not the count of timeouts, so that a busy event loop
    // leaves gaps instead of bending time.
    appendReading(clockOffset + clock.elapsed() / 1000.0);
}

void TrendPlot::appendReading(double t)
{
    if (t <= latest)
        return;
    const QVector<double> values = source.sample(t);
    for (int i = 0; i < channelSeries.size() && i < values.size(); ++i)
        channelSeries.at(i)->append(QPointF(t, values.at(i)));
    latest = t;

    if (!channelSeries.isEmpty() && channelSeries.first()->size() > size_t(MaxReadings)) {
        for (GrowingSeries *series : std::as_const(channelSeries))
            series->removeFirst(MaxReadings / 10);
    }

    followLatest();
    refreshMarkers();
    replotLater();
}

double TrendPlot::latestTime() const
{
    return latest;
}

void TrendPlot::followLatest()
{
    // With auto-scale on (after "Zoom to Full Scale") the view grows with
    // the record by itself.
    if (!isAutoScroll() || latest < 0.0 || axisAutoScale(QwtPlot::xBottom))
        return;
    // The width of the division of the last replot, which is where the
    // user's zoom shows; the axis is divided anew at the next replot only,
    // since dividing a time axis costs more than all else a reading does.
    const QwtInterval shown = axisInterval(QwtPlot::xBottom);
    const double width = shown.width() > 0.0 ? shown.width() : InitialWindowSeconds;
    const double upper = std::max(width, latest + FollowMargin * width);
    setAxisScale(QwtPlot::xBottom, upper - width, upper);
}

void TrendPlot::toggleAutoScroll(bool enabled)
{
    TimeCurvePlot::toggleAutoScroll(enabled);
    if (enabled) {
        followLatest();
        replotLater();
    }
}

void TrendPlot::pauseAutoScroll()
{
    if (!isAutoScroll())
        return;
    setAutoScroll(false);
    emit statusMessage(tr("Auto-scroll paused; \"Scroll Chart Automatically\" in the context "
                          "menu resumes it."));
}

void TrendPlot::onMouseLeftClicked(QMouseEvent *event)
{
    selectSample(qRound(event->position().x()));
}

void TrendPlot::describeSelection(int index)
{
    if (curvesValue.isEmpty() || index < 0 || size_t(index) >= curvesValue.first()->dataSize()) {
        emit statusMessage(tr("No sample at the selection"));
        return;
    }
    const double t = curvesValue.first()->sample(index).x();
    QStringList values;
    for (const QwtPlotCurve *curve : std::as_const(curvesValue)) {
        if (!curve->isVisible() || size_t(index) >= curve->dataSize())
            continue;
        values.append(QStringLiteral("%1 %2").arg(curve->title().text(),
                                                  QString::number(curve->sample(index).y(), 'g', 3)));
    }
    emit statusMessage(tr("Sample %1 at %2: %3 (mbar)")
                           .arg(index)
                           .arg(localTimeText(t), values.join(QStringLiteral(", "))));
}

QString TrendPlot::localTimeText(double seconds) const
{
    return recordStart.addMSecs(qint64(seconds * 1000.0)).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
}

VoidPlot *TrendPlot::plotWidget()
{
    return this;
}

QString TrendPlot::pageKey() const
{
    return QStringLiteral("timecurveplot");
}

QString TrendPlot::pageTitle() const
{
    return tr("TimeCurvePlot");
}

QString TrendPlot::pageCaption() const
{
    return tr("A live trend of four masses, one reading every 100 ms. Click to select a sample "
              "(shown in the status bar); drag or zoom a box to look back, which pauses "
              "auto-scroll.");
}

void TrendPlot::applyPalette(bool dark)
{
    GalleryPalette::applyToFrame(this, dark, markerLabel, zoomPicker);
    // The selection's label is not among the plot's setters.
    const QColor background = dark ? PlotDefault::DarkMode::SelectionMarkerLabelBgColor
                                   : PlotDefault::SelectionMarkerLabelBgColor;
    selectionMarkerLabel.setBackgroundBrush(QBrush(background));
    selectionMarkerLabel.setColor(dark ? PlotDefault::DarkMode::MarkerLabelColor
                                       : PlotDefault::MarkerLabelColor);

    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    for (int i = 0; i < channels.size() && i < curvesValue.size(); ++i)
        setLineAttributes(i, -1, 0, GalleryPalette::seriesColor(channels.at(i).color, dark));
}

QList<QColor> TrendPlot::seriesColors() const
{
    QList<QColor> colors;
    for (const QwtPlotCurve *curve : std::as_const(curvesValue))
        colors.append(curve->pen().color());
    return colors;
}

QString TrendPlot::textData() const
{
    QList<TextData::Series> series;
    for (int i = 0; i < curvesValue.size() && i < channelSeries.size(); ++i) {
        if (curvesValue.at(i)->isVisible())
            series.append({curvesValue.at(i)->title().text(), channelSeries.at(i)->points()});
    }
    const TextData::XColumns time{
        {tr("Local time"), tr("Elapsed (s)")}, [this](double t) {
            return QStringList{recordStart.addMSecs(qint64(t * 1000.0))
                                   .toString(QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz")),
                               QString::number(t, 'f', 3)};
        }};
    return TextData::toCsv(time, series);
}

QwtText TrendPlot::markerLabelTemplate() const
{
    return markerLabel;
}

void TrendPlot::poseForScreenshot()
{
    replot();
    const int width = canvas()->width();
    selectSample(int(width * 0.72));
    displayMarkers(int(width * 0.38), QPointF(0.0, 0.0));
    replot();
}

void TrendPlot::copyTextDataToClipboard()
{
    TextData::copyToClipboard(textData());
}

void TrendPlot::exportTextDataToFile()
{
    TextData::saveToFile(this, QStringLiteral("trend.csv"), textData());
}

QwtText TrendPlot::defaultPlotTitle()
{
    return titleText(tr("Pump-down trend"), TimeCurvePlot::defaultPlotTitle());
}

QwtText TrendPlot::defaultAxisTitle(int axisId)
{
    const QwtText base = TimeCurvePlot::defaultAxisTitle(axisId);
    if (axisId == QwtPlot::yLeft)
        return titleText(tr("Partial pressure (mbar)"), base);
    return base;
}
