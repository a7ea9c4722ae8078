#include "CycleBarPlot.h"

#include "GalleryPalette.h"
#include "SampleData.h"
#include "TextData.h"

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>

#include <algorithm>

namespace {

constexpr double Interval = 60.0;  // s
constexpr int Intervals = 10;
constexpr double BarWidth = 14.0;  // s
constexpr double BarSpacing = 16.0; // s between the middles of neighbouring bars
constexpr double Headroom = 1.15;
// The channels of the trend shown here, by index, in the order of the bars.
constexpr int Channels[] = {1, 2, 0};

QwtText titleText(const QString &text, const QwtText &like)
{
    QwtText title = like;
    title.setText(text, QwtText::AutoText);
    return title;
}

// The mean of one channel's noise-free level over [from, to), sampled each second.
double meanLevel(int channel, double from, double to)
{
    double sum = 0.0;
    int count = 0;
    for (double t = from; t < to; t += 1.0, ++count)
        sum += SampleData::PumpDownTrend::level(channel, t);
    return count > 0 ? sum / count : 0.0;
}

} // namespace

CycleBarPlot::CycleBarPlot(QWidget *parent)
    : TimeBarPlot(parent)
{
    setObjectName(QStringLiteral("cycleBarPlot"));
    setTitle(titleText(tr("Mean partial pressure per minute"), title()));
    setAxisTitle(QwtPlot::yLeft,
                 titleText(tr("Partial pressure (mbar)"), axisTitle(QwtPlot::yLeft)));
    setAxisScale(QwtPlot::xBottom, 0.0, Interval * Intervals);
    // A colour per mass: a single chart colour has no meaning here.
    setCustomPlotOptions(customPlotOptions() & ~PlotOptionChartColor);

    enableLegend(QwtPlot::BottomLegend);
    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    const int count = int(std::size(Channels));
    double highest = 0.0;
    for (int i = 0; i < count; ++i) {
        const int channel = Channels[i];
        const double offset = (i - (count - 1) / 2.0) * BarSpacing;
        QVector<QPointF> bars;
        for (int k = 0; k < Intervals; ++k) {
            const double from = k * Interval;
            const double mean = meanLevel(channel, from, from + Interval);
            bars.append(QPointF(from + Interval / 2.0 + offset, mean));
            highest = std::max(highest, mean);
        }
        auto *chart = new QwtPlotBarChart(channels.at(channel).title);
        chart->setSamples(bars);
        chart->setLayoutPolicy(QwtPlotBarChart::ScaleSamplesToAxes);
        chart->setLayoutHint(BarWidth);
        appendBarChart(chart, true);
        setBarChartColor(i, channels.at(channel).color);
        offsets.append(offset);
    }
    setAxisScale(QwtPlot::yLeft, 0.0, highest * Headroom);
}

VoidPlot *CycleBarPlot::plotWidget()
{
    return this;
}

QString CycleBarPlot::pageKey() const
{
    return QStringLiteral("timebarplot");
}

QString CycleBarPlot::pageTitle() const
{
    return tr("TimeBarPlot");
}

QString CycleBarPlot::pageCaption() const
{
    return tr("Minute means of three masses during the pump-down, grouped by minute. The legend "
              "switches a mass off; the read-out reads every bar of the group under the pointer.");
}

void CycleBarPlot::applyPalette(bool dark)
{
    GalleryPalette::applyToFrame(this, dark, markerLabel, zoomPicker);
    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    for (int i = 0; i < int(std::size(Channels)) && i < barChartsValue.size(); ++i)
        setBarChartColor(i, GalleryPalette::seriesColor(channels.at(Channels[i]).color, dark));
}

QList<QColor> CycleBarPlot::seriesColors() const
{
    QList<QColor> colors;
    for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
        if (const QwtColumnSymbol *symbol = chart->symbol())
            colors.append(symbol->palette().color(QPalette::Button));
    }
    return colors;
}

QString CycleBarPlot::textData() const
{
    QList<TextData::Series> series;
    for (int i = 0; i < barChartsValue.size() && i < offsets.size(); ++i) {
        const QwtPlotBarChart *chart = barChartsValue.at(i);
        if (!chart->isVisible())
            continue;
        // Back to the middle of the minute, so that a minute is one row.
        TextData::Series s{chart->title().text(), {}};
        for (size_t j = 0; j < chart->dataSize(); ++j) {
            const QPointF bar = chart->sample(int(j));
            s.samples.append(QPointF(bar.x() - offsets.at(i), bar.y()));
        }
        series.append(s);
    }
    const TextData::XColumns minutes{{tr("From (s)"), tr("To (s)")}, [](double middle) {
                                         return QStringList{
                                             QString::number(middle - Interval / 2.0),
                                             QString::number(middle + Interval / 2.0)};
                                     }};
    return TextData::toCsv(minutes, series);
}

QwtText CycleBarPlot::markerLabelTemplate() const
{
    return markerLabel;
}

void CycleBarPlot::poseForScreenshot()
{
    replot();
    // The group of the fourth minute.
    displayMarkers(int(transform(QwtPlot::xBottom, 3.5 * Interval)), QPointF(0.0, 0.0));
    replot();
}

void CycleBarPlot::copyTextDataToClipboard()
{
    TextData::copyToClipboard(textData());
}

void CycleBarPlot::exportTextDataToFile()
{
    TextData::saveToFile(this, QStringLiteral("minute-means.csv"), textData());
}

QwtText CycleBarPlot::defaultPlotTitle()
{
    return titleText(tr("Mean partial pressure per minute"), TimeBarPlot::defaultPlotTitle());
}

QwtText CycleBarPlot::defaultAxisTitle(int axisId)
{
    const QwtText base = TimeBarPlot::defaultAxisTitle(axisId);
    if (axisId == QwtPlot::xBottom)
        return titleText(tr("Time (hh:mm:ss)"), base);
    if (axisId == QwtPlot::yLeft)
        return titleText(tr("Partial pressure (mbar)"), base);
    return base;
}
