#include "BarMassScanPlot.h"

#include "GalleryPalette.h"
#include "SampleData.h"
#include "TextData.h"

#include <figura/attributes/PeakLabel.h>
#include <figura/defaults/PlotDefault.h>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>

#include <algorithm>

namespace {

constexpr int FirstMass = 1;
constexpr int LastMass = 50;
constexpr int LabelledPeaks = 6;
// Room above the highest bar for its slanted label.
constexpr double Headroom = 1.3;
constexpr double PosedMass = 32.0;
// The user data key under which each label keeps its mass.
constexpr int MassKey = 0;

QwtText titleText(const QString &text, const QwtText &like)
{
    QwtText title = like;
    title.setText(text, QwtText::AutoText);
    return title;
}

} // namespace

BarMassScanPlot::BarMassScanPlot(QWidget *parent)
    : BarPlot(parent)
{
    setObjectName(QStringLiteral("barMassScanPlot"));
    setTitle(titleText(tr("Vented chamber, bar scan"), title()));
    setAxisTitle(QwtPlot::xBottom, titleText(tr("Mass (amu)"), axisTitle(QwtPlot::xBottom)));
    setAxisTitle(QwtPlot::yLeft, titleText(tr("Ion current (A)"), axisTitle(QwtPlot::yLeft)));
    setAxisScale(QwtPlot::xBottom, 0.0, LastMass + 1.0);

    // The peak labels are offered in the menu and the settings dialog.
    setContextMenuItems(contextMenuItems() | MenuPeakLabel);
    setCustomPlotOptions(customPlotOptions() | PlotOptionPeakLabel);

    const SampleData::Spectrum vented = SampleData::residualGasSpectra().constFirst();
    auto *chart = new QwtPlotBarChart(vented.title);
    chart->setSamples(SampleData::barScan(vented, FirstMass, LastMass));
    chart->setLayoutPolicy(QwtPlotBarChart::ScaleSamplesToAxes);
    chart->setLayoutHint(0.6);
    appendBarChart(chart, true);
    setBarChartColor(0, chartColor());
    connect(this, &VoidPlot::chartColorChanged, this, [this](const QColor &color) {
        setBarChartColor(0, color);
        replotLater();
    });

    double highest = 0.0;
    for (size_t i = 0; i < chart->dataSize(); ++i)
        highest = std::max(highest, chart->sample(int(i)).y());
    setAxisScale(QwtPlot::yLeft, 0.0, highest * Headroom);

    createPeakLabels();
    setPeakLabelVisible(true);
}

void BarMassScanPlot::createPeakLabels()
{
    const QwtPlotBarChart *chart = barChartsValue.constFirst();
    QVector<QPointF> bars;
    for (size_t i = 0; i < chart->dataSize(); ++i)
        bars.append(chart->sample(int(i)));
    std::sort(bars.begin(), bars.end(),
              [](const QPointF &a, const QPointF &b) { return a.y() > b.y(); });

    // Highest first; a peak right next to a labelled one stays unlabelled,
    // so that slanted texts do not run into each other.
    QList<int> labelled;
    for (int i = 0; i < bars.size() && labels.size() < LabelledPeaks; ++i) {
        const int mass = qRound(bars.at(i).x());
        if (labelled.contains(mass - 1) || labelled.contains(mass + 1))
            continue;
        labelled.append(mass);
        const QString name = SampleData::ionName(mass);
        const QString text = name.isEmpty() ? QString::number(mass)
                                            : QStringLiteral("%1 %2").arg(mass).arg(name);
        auto *label = new PeakLabel(text, getPeakLabelFormat());
        label->setValue(bars.at(i));
        label->setUserData(MassKey, mass);
        label->setVisible(false);
        label->attach(this);
        labels.append(label);
    }
}

QList<PeakLabel *> BarMassScanPlot::peakLabels() const
{
    return labels;
}

void BarMassScanPlot::togglePeakLabels(bool enabled)
{
    BarPlot::togglePeakLabels(enabled);
    // Also reached from setPeakLabelVisible(), whose flag is stored before
    // the action's toggle arrives and which therefore reports nothing.
    showPeakLabels(enabled);
}

void BarMassScanPlot::showPeakLabels(bool on)
{
    for (PeakLabel *label : std::as_const(labels))
        label->setVisible(on);
    replotLater();
}

void BarMassScanPlot::updatePeakLabels(const PeakLabelFormat &format)
{
    for (PeakLabel *label : std::as_const(labels))
        label->setFormat(format);
    replotLater();
}

VoidPlot *BarMassScanPlot::plotWidget()
{
    return this;
}

QString BarMassScanPlot::pageKey() const
{
    return QStringLiteral("barplot");
}

QString BarMassScanPlot::pageTitle() const
{
    return tr("BarPlot");
}

QString BarMassScanPlot::pageCaption() const
{
    return tr("A bar scan with the ions named on the six highest peaks. \"Show Peak Labels\" in "
              "the context menu hides them; \"Customize Plot...\" restyles them and the bars.");
}

void BarMassScanPlot::applyPalette(bool dark)
{
    GalleryPalette::applyToFrame(this, dark, markerLabel, zoomPicker);
    setChartColor(dark ? PlotDefault::DarkMode::BarColor : PlotDefault::ChartColor);
}

QList<QColor> BarMassScanPlot::seriesColors() const
{
    QList<QColor> colors;
    for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
        if (const QwtColumnSymbol *symbol = chart->symbol())
            colors.append(symbol->palette().color(QPalette::Button));
    }
    return colors;
}

QString BarMassScanPlot::textData() const
{
    QList<TextData::Series> series;
    for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
        if (!chart->isVisible())
            continue;
        TextData::Series s{chart->title().text(), {}};
        for (size_t i = 0; i < chart->dataSize(); ++i)
            s.samples.append(chart->sample(int(i)));
        series.append(s);
    }
    return TextData::toCsv(TextData::numberColumn(axisTitle(QwtPlot::xBottom).text()), series);
}

QwtText BarMassScanPlot::markerLabelTemplate() const
{
    return markerLabel;
}

void BarMassScanPlot::poseForScreenshot()
{
    replot();
    displayMarkers(int(transform(QwtPlot::xBottom, PosedMass)), QPointF(0.0, 0.0));
    replot();
}

void BarMassScanPlot::copyTextDataToClipboard()
{
    TextData::copyToClipboard(textData());
}

void BarMassScanPlot::exportTextDataToFile()
{
    TextData::saveToFile(this, QStringLiteral("bar-spectrum.csv"), textData());
}

QwtText BarMassScanPlot::defaultPlotTitle()
{
    return titleText(tr("Vented chamber, bar scan"), BarPlot::defaultPlotTitle());
}

QwtText BarMassScanPlot::defaultAxisTitle(int axisId)
{
    const QwtText base = BarPlot::defaultAxisTitle(axisId);
    if (axisId == QwtPlot::xBottom)
        return titleText(tr("Mass (amu)"), base);
    if (axisId == QwtPlot::yLeft)
        return titleText(tr("Ion current (A)"), base);
    return base;
}
