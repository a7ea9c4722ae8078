#include "GroupBarPlot.h"

#include "GalleryPalette.h"
#include "SampleData.h"
#include "TextData.h"

#include <qwt_column_symbol.h>
#include <qwt_legend.h>
#include <qwt_plot_multi_barchart.h>
#include <qwt_scale_div.h>

#include <algorithm>

namespace {

constexpr double Headroom = 1.15;
constexpr double PosedRun = 3.0;

// Pressures after each run, in mbar: H₂, H₂O, N₂, CO₂.
const double RunPressures[][4] = {
    {3.1e-9, 4.2e-8, 9.5e-9, 2.1e-9}, {2.8e-9, 1.9e-8, 6.1e-9, 1.5e-9},
    {2.6e-9, 8.5e-9, 4.4e-9, 1.1e-9}, {2.5e-9, 4.1e-9, 3.6e-9, 8.8e-10},
    {2.4e-9, 2.2e-9, 3.2e-9, 7.5e-10}, {2.4e-9, 1.4e-9, 3.0e-9, 7.0e-10},
};

QwtText titleText(const QString &text, const QwtText &like)
{
    QwtText title = like;
    title.setText(text, QwtText::AutoText);
    return title;
}

} // namespace

GroupBarPlot::GroupBarPlot(QWidget *parent)
    : MultiBarPlot(parent)
{
    setObjectName(QStringLiteral("groupBarPlot"));
    setTitle(titleText(tr("Residual gas after each bake-out"), title()));
    setAxisTitle(QwtPlot::xBottom, titleText(tr("Bake-out run"), axisTitle(QwtPlot::xBottom)));
    setAxisTitle(QwtPlot::yLeft,
                 titleText(tr("Partial pressure (mbar)"), axisTitle(QwtPlot::yLeft)));

    auto *legend = new QwtLegend;
    legend->setObjectName(QStringLiteral("massLegend"));
    insertLegend(legend, QwtPlot::BottomLegend);

    QList<QColor> colors;
    QList<QwtText> titles;
    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    for (const SampleData::PumpDownTrend::Channel &channel : channels) {
        colors.append(channel.color);
        titles.append(QwtText(channel.title));
    }

    QList<QwtSetSample> sets;
    double highest = 0.0;
    const int runs = int(std::size(RunPressures));
    for (int run = 0; run < runs; ++run) {
        QVector<double> values(std::begin(RunPressures[run]), std::end(RunPressures[run]));
        highest = std::max(highest, *std::max_element(values.cbegin(), values.cend()));
        sets.append(QwtSetSample(run + 1, values));
    }

    setAxisScale(QwtPlot::xBottom, 0.4, runs + 0.6, 1.0);
    setAxisMaxMinor(QwtPlot::xBottom, 0);
    setAxisScale(QwtPlot::yLeft, 0.0, highest * Headroom);
    updateMultiBarChart(&sets, colors, titles);
}

VoidPlot *GroupBarPlot::plotWidget()
{
    return this;
}

QString GroupBarPlot::pageKey() const
{
    return QStringLiteral("multibarplot");
}

QString GroupBarPlot::pageTitle() const
{
    return tr("MultiBarPlot");
}

QString GroupBarPlot::pageCaption() const
{
    return tr("Four masses after each of six bake-out runs, one group of bars per run. The "
              "read-out lists every bar of the group under the pointer.");
}

void GroupBarPlot::applyPalette(bool dark)
{
    GalleryPalette::applyToFrame(this, dark, markerLabel, zoomPicker);
    // The index names a place in each set here, and a set as well: there
    // are more runs than masses, so every place is a valid index.
    const QList<SampleData::PumpDownTrend::Channel> channels = SampleData::PumpDownTrend::channels();
    for (int i = 0; i < channels.size(); ++i)
        updateMultiBarChart(i, GalleryPalette::seriesColor(channels.at(i).color, dark));
}

QList<QColor> GroupBarPlot::seriesColors() const
{
    QList<QColor> colors;
    // The chart offers its symbols for reading only through a const object.
    const QwtPlotMultiBarChart *chart = barChartValue;
    const int places = int(chart->barTitles().size());
    for (int i = 0; i < places; ++i) {
        if (const QwtColumnSymbol *symbol = chart->symbol(i))
            colors.append(symbol->palette().color(QPalette::Button));
    }
    return colors;
}

QString GroupBarPlot::textData() const
{
    QList<TextData::Series> series;
    if (barChartValue->isVisible()) {
        const QList<QwtText> titles = barChartValue->barTitles();
        for (int place = 0; place < titles.size(); ++place) {
            TextData::Series s{titles.at(place).text(), {}};
            for (size_t i = 0; i < barChartValue->dataSize(); ++i) {
                const QwtSetSample set = barChartValue->sample(int(i));
                if (place < set.set.size())
                    s.samples.append(QPointF(set.value, set.set.at(place)));
            }
            series.append(s);
        }
    }
    return TextData::toCsv(TextData::numberColumn(axisTitle(QwtPlot::xBottom).text()), series);
}

QwtText GroupBarPlot::markerLabelTemplate() const
{
    return markerLabel;
}

void GroupBarPlot::poseForScreenshot()
{
    replot();
    displayMarkers(int(transform(QwtPlot::xBottom, PosedRun)), QwtSetSample());
    replot();
}

void GroupBarPlot::copyTextDataToClipboard()
{
    TextData::copyToClipboard(textData());
}

void GroupBarPlot::exportTextDataToFile()
{
    TextData::saveToFile(this, QStringLiteral("bake-out-runs.csv"), textData());
}

QwtText GroupBarPlot::defaultPlotTitle()
{
    return titleText(tr("Residual gas after each bake-out"), MultiBarPlot::defaultPlotTitle());
}

QwtText GroupBarPlot::defaultAxisTitle(int axisId)
{
    const QwtText base = MultiBarPlot::defaultAxisTitle(axisId);
    if (axisId == QwtPlot::xBottom)
        return titleText(tr("Bake-out run"), base);
    if (axisId == QwtPlot::yLeft)
        return titleText(tr("Partial pressure (mbar)"), base);
    return base;
}
