#include "MassScanPlot.h"

#include "GalleryPalette.h"
#include "SampleData.h"
#include "TextData.h"

#include <figura/defaults/PlotDefault.h>

#include <QPen>

#include <qwt_plot_curve.h>

namespace {

constexpr double FirstMass = 1.0;
constexpr double LastMass = 200.0;
constexpr int SamplesPerScan = 2000;
// The read-out of the pictures stands on the nitrogen peak.
constexpr double PosedMass = 28.0;

QwtText titleText(const QString &text, const QwtText &like)
{
    QwtText title = like;
    title.setText(text, QwtText::AutoText);
    return title;
}

} // namespace

MassScanPlot::MassScanPlot(QWidget *parent)
    : CurvePlot(parent)
{
    setObjectName(QStringLiteral("massScanPlot"));
    setTitle(titleText(tr("Residual gas spectra"), title()));
    setAxisTitle(QwtPlot::xBottom, titleText(tr("Mass (amu)"), axisTitle(QwtPlot::xBottom)));
    setAxisTitle(QwtPlot::yLeft, titleText(tr("Ion current (A)"), axisTitle(QwtPlot::yLeft)));
    setAxisScale(QwtPlot::xBottom, 0.0, LastMass);

    // One colour per curve: a single chart colour has no meaning here.
    setCustomPlotOptions(customPlotOptions() & ~PlotOptionChartColor);
    // The curves always draw with the plot's line width.
    connect(this, &CurvePlot::penWidthChanged, this, [this] {
        applyPenWidthToAll();
        replotLater();
    });

    enableLegend(QwtPlot::BottomLegend);
    const QList<SampleData::Spectrum> spectra = SampleData::residualGasSpectra();
    for (const SampleData::Spectrum &spectrum : spectra) {
        auto *curve = new QwtPlotCurve(spectrum.title);
        curve->setSamples(SampleData::profileScan(spectrum, FirstMass, LastMass, SamplesPerScan));
        curve->setPen(QPen(spectrum.color, penWidth()));
        curve->setRenderHint(QwtPlotItem::RenderAntialiased);
        appendCurve(curve, true);
        setLegend(curve);
    }

    // Spectra span six decades: they are read on a log scale.
    setLogScale(true);
}

VoidPlot *MassScanPlot::plotWidget()
{
    return this;
}

QString MassScanPlot::pageKey() const
{
    return QStringLiteral("curveplot");
}

QString MassScanPlot::pageTitle() const
{
    return tr("CurvePlot");
}

QString MassScanPlot::pageCaption() const
{
    return tr("Three residual gas spectra, 2,000 samples each. Move the pointer for the read-out, "
              "click a legend entry to hide a curve, right-click it for the curve's settings; "
              "the plot's context menu switches the log scale.");
}

void MassScanPlot::applyPalette(bool dark)
{
    GalleryPalette::applyToFrame(this, dark, markerLabel, zoomPicker);
    const QList<SampleData::Spectrum> spectra = SampleData::residualGasSpectra();
    for (int i = 0; i < spectra.size() && i < curvesValue.size(); ++i)
        setLineAttributes(i, -1, 0, GalleryPalette::seriesColor(spectra.at(i).color, dark));
}

QList<QColor> MassScanPlot::seriesColors() const
{
    QList<QColor> colors;
    for (const QwtPlotCurve *curve : std::as_const(curvesValue))
        colors.append(curve->pen().color());
    return colors;
}

QString MassScanPlot::textData() const
{
    QList<TextData::Series> series;
    for (const QwtPlotCurve *curve : std::as_const(curvesValue)) {
        if (!curve->isVisible())
            continue;
        TextData::Series s{curve->title().text(), {}};
        s.samples.reserve(int(curve->dataSize()));
        for (size_t i = 0; i < curve->dataSize(); ++i)
            s.samples.append(curve->sample(int(i)));
        series.append(s);
    }
    return TextData::toCsv(TextData::numberColumn(axisTitle(QwtPlot::xBottom).text()), series);
}

QwtText MassScanPlot::markerLabelTemplate() const
{
    return markerLabel;
}

void MassScanPlot::poseForScreenshot()
{
    replot();
    displayMarkers(int(transform(QwtPlot::xBottom, PosedMass)), QPointF(0.0, 0.0));
    replot();
}

void MassScanPlot::copyTextDataToClipboard()
{
    TextData::copyToClipboard(textData());
}

void MassScanPlot::exportTextDataToFile()
{
    TextData::saveToFile(this, QStringLiteral("spectra.csv"), textData());
}

QwtText MassScanPlot::defaultPlotTitle()
{
    return titleText(tr("Residual gas spectra"), CurvePlot::defaultPlotTitle());
}

QwtText MassScanPlot::defaultAxisTitle(int axisId)
{
    const QwtText base = CurvePlot::defaultAxisTitle(axisId);
    if (axisId == QwtPlot::xBottom)
        return titleText(tr("Mass (amu)"), base);
    if (axisId == QwtPlot::yLeft)
        return titleText(tr("Ion current (A)"), base);
    return base;
}
