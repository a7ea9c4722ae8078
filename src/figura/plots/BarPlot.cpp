#include <figura/plots/BarPlot.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/MarkerReadout.h>
#include <figura/plots/SampleSearch.h>

#include <QApplication>
#include <QColor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPalette>
#include <QPointer>
#include <QVariant>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_marker.h>

using MarkerReadout::isNullPoint;
using MarkerReadout::toPixel;

namespace {

int sampleCount(const QwtPlotBarChart *chart)
{
    return chart ? MarkerReadout::sampleCount(chart->data()) : 0;
}

// The colour in which a chart draws its bars. A chart without a symbol is
// drawn by Qwt with a default box symbol, whose palette is the application's.
QColor barColor(const QwtPlotBarChart *chart)
{
    const QwtColumnSymbol *symbol = chart->symbol();
    const QPalette palette = symbol ? symbol->palette() : QPalette();
    return palette.brush(QPalette::Current, QPalette::Button).color();
}

} // namespace

BarPlot::BarPlot(QWidget *parent)
    : VoidPlot(parent)
{
    setCustomPlotOptions(customPlotOptions() | PlotOptionBarChartBaseline);
}

BarPlot::~BarPlot()
{
    for (QwtPlotBarChart *chart : std::as_const(barChartsValue))
        delete chart;
    barChartsValue.clear();
}

int BarPlot::rtti() const
{
    return 2;
}

// ---------------------------------------------------------------------------
// The store

void BarPlot::appendBarChart(QwtPlotBarChart *chart, bool hasMarker)
{
    appendSeries(barChartsValue, chart, hasMarker);
}

void BarPlot::removeBarChart(int index)
{
    removeSeries(barChartsValue, index);
}

void BarPlot::removeBarCharts()
{
    removeAllSeries(barChartsValue);
}

QList<QwtPlotBarChart *> BarPlot::barCharts()
{
    return barChartsValue;
}

bool BarPlot::isAnyBarChartVisible()
{
    for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
        if (chart->isVisible())
            return true;
    }
    return false;
}

void BarPlot::setBarChartColor(int index, const QColor &color)
{
    if (index < 0 || index >= barChartsValue.size() || !color.isValid())
        return;
    QwtPlotBarChart *chart = barChartsValue.at(index);

    auto *symbol = new QwtColumnSymbol(QwtColumnSymbol::Box);
    symbol->setPalette(QPalette(color));
    if (const QwtColumnSymbol *old = chart->symbol()) {
        symbol->setFrameStyle(old->frameStyle());
        symbol->setLineWidth(old->lineWidth());
    } else {
        symbol->setFrameStyle(QwtColumnSymbol::Plain);
        symbol->setLineWidth(PlotDefault::BarLineWidth);
    }
    // The chart owns the new symbol and deletes the old one.
    chart->setSymbol(symbol);
}

// ---------------------------------------------------------------------------
// The baseline

double BarPlot::barChartBaseline()
{
    return barChartBaselineValue;
}

double BarPlot::barChartBaseLineMin()
{
    return barChartBaseLineMinValue;
}

double BarPlot::barChartBaseLineMax()
{
    return barChartBaseLineMaxValue;
}

void BarPlot::setBarChartBaseLine(double value)
{
    // Written so that NaN fails as well.
    if (!(value >= barChartBaseLineMinValue && value <= barChartBaseLineMaxValue))
        return;
    barChartBaselineValue = value;
    for (QwtPlotBarChart *chart : std::as_const(barChartsValue))
        chart->setBaseline(value);
}

void BarPlot::updateBarChartBaseline(double value)
{
    if (value == barChartBaselineValue)
        return;
    setBarChartBaseLine(value);
    // Also when the range refused the value: the signal then carries the
    // baseline that stays, so that a listener's copy is right either way.
    emit barChartBaseLineChanged(barChartBaselineValue);
}

void BarPlot::setBarChartBaseLineMin(double value)
{
    barChartBaseLineMinValue = value;
}

void BarPlot::setBarChartBaseLineMax(double value)
{
    barChartBaseLineMaxValue = value;
}

void BarPlot::setDefaultBarChartBaseLine(double value)
{
    defaultBarChartBaseLine = value;
}

// ---------------------------------------------------------------------------
// The read-out

bool BarPlot::eventFilter(QObject *watched, QEvent *event)
{
    // The frame may run the context menu inside this call, and the host may
    // delete the plot while the menu is open: then the event goes no further.
    const QPointer<QObject> alive(this);
    VoidPlot::eventFilter(watched, event);
    if (!alive)
        return true;

    if (watched != canvas() || event->type() != QEvent::MouseMove)
        return false;
    // A plot in a window of another application does not track.
    if (!QApplication::activeWindow())
        return false;

    // Nothing to read: not even a replot is asked for.
    qint64 visibleSamples = 0;
    for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
        if (chart->isVisible())
            visibleSamples += qint64(chart->dataSize());
    }
    if (visibleSamples == 0)
        return false;

    const auto *mouseEvent = static_cast<QMouseEvent *>(event);
    if (mouseEvent->buttons() == Qt::NoButton) {
        if (int(QGuiApplication::queryKeyboardModifiers()) == moveMarkerKeyModifier())
            displayMarkers(mouseEvent->position().toPoint().x(), QPointF(0.0, 0.0));
    } else {
        // The user pans or zooms: labels would only flicker along.
        setAllMarkersAttrs(MarkerAttrLabelClear);
    }
    replotLater();
    return false;
}

void BarPlot::displayMarkers(int pos, const QPointF &value)
{
    if (!displayMarkersPrecheck())
        return;

    const Qt::AlignmentFlag alignment = markerLabelAlignment();
    const bool labelVisible = isMarkerLabelVisible();
    const bool byPixel = isNullPoint(value);
    const bool withLegend = plotLegend() != nullptr;
    const QString separator = MarkerReadout::lineSeparator(withLegend);
    int side = Qt::AlignRight;
    int markerCount = 0;
    int lastIndex = -1;
    QString labelText;

    const int count = int(qMin(barChartsValue.size(), seriesMarkers.size()));
    for (int i = 0; i < count; ++i) {
        const QwtPlotBarChart *chart = barChartsValue.at(i);
        QwtPlotMarker *seriesMarker = seriesMarkers.at(i);
        // A chart without a marker takes no part in the read-out at all.
        if (!seriesMarker)
            continue;
        seriesMarker->setLabel(QwtText());

        const QwtSeriesData<QPointF> *data = chart->data();
        if (sampleCount(chart) == 0) {
            seriesMarker->setVisible(false);
            continue;
        }
        // A hidden chart goes on up to the point where its line would join
        // the label: its bars still place the frame marker.
        seriesMarker->setVisible(chart->isVisible());
        ++markerCount;
        lastIndex = i;

        // Each chart finds its own nearest bar, by x alone: charts of
        // different positions put their dots on different x.
        const int index = byPixel
            ? SampleSearch::closestSampleIndex(data, invTransform(QwtPlot::xBottom, pos),
                                               SampleSearch::ClosestByBisection)
            : SampleSearch::exactSampleIndex(data, value.x());
        // A NaN or infinite sample counts as none, like the null point.
        const QPointF sample = MarkerReadout::readableSample(data, index);
        if (isNullPoint(sample))
            continue;

        seriesMarker->setValue(sample);

        if (!labelVisible)
            continue;

        // The first chart decides the side for all, once per pass.
        if (markerCount == 1) {
            const int pixel = toPixel(transform(QwtPlot::xBottom, sample.x()), false);
            const int limit = canvas()->width() - markerLabelWidth(QString());
            if (pixel > limit)
                side = Qt::AlignLeft;
        }

        const QString line =
            MarkerReadout::seriesLine(withLegend, barColor(chart), chart->title().text(),
                                      axisValueText(QwtPlot::yLeft, sample.y()));

        if (alignment == Qt::AlignTrailing) {
            // One label per dot, beside it.
            markerLabel.setText(line, QwtText::AutoText);
            seriesMarker->setLabel(markerLabel);
            seriesMarker->setLabelAlignment(Qt::Alignment(side | Qt::AlignTrailing));
            continue;
        }
        // Bars keep the order of the charts: no sort option applies here.
        if (seriesMarker->isVisible())
            labelText += separator + line;
    }

    // Unlike on curves, the frame marker's label stands until it is replaced:
    // a plot without bars to read hides the line and keeps its text.
    if (markerCount <= 0 || lastIndex < 0) {
        marker->setVisible(false);
        return;
    }

    // The line follows the last chart with a marker, so that in exact mode it
    // stays in place when that chart lacks the x.
    const double x = seriesMarkers.at(lastIndex)->xValue();
    marker->setValue(x, 0.0);

    if (!labelVisible) {
        marker->setLabel(QwtText());
        return;
    }

    QString text = axisValueText(QwtPlot::xBottom, x);
    int vertical = alignment;
    if (alignment == Qt::AlignTrailing)
        vertical = Qt::AlignTop;
    else
        text += labelText;

    markerLabel.setText(text, QwtText::AutoText);
    marker->setLabel(markerLabel);
    marker->setLabelAlignment(Qt::Alignment(vertical | side));
}

int BarPlot::markerLabelWidth(const QString &text)
{
    QString longest = text;
    if (text.isEmpty()) {
        // An estimate from the final bars, good enough to choose a side
        // before the real label exists; estimated also while labels are off.
        for (const QwtPlotBarChart *chart : std::as_const(barChartsValue)) {
            const int size = sampleCount(chart);
            if (!chart->isVisible() || size == 0)
                continue;
            const QPointF last = chart->data()->sample(size_t(size - 1));
            const QString candidate = QStringLiteral("M %1: %2").arg(
                chart->title().text(), axisValueText(QwtPlot::yLeft, last.y()));
            if (candidate.length() > longest.length())
                longest = candidate;
        }
        // A stand-in x of typical length; bars have whole positions anyway.
        const QString xText = axisValueText(QwtPlot::xBottom, 444.444);
        if (xText.length() > longest.length())
            longest = xText;
    }
    return MarkerReadout::labelWidth(markerLabel, longest);
}

QString BarPlot::axisValueText(int axisId, double value)
{
    return MarkerReadout::axisValueText(this, axisId, value, 0);
}

void BarPlot::shiftMarkers(VoidPlot::ShiftDirection direction)
{
    // The reference: the first visible chart whose dot stands right of 0,
    // else the last chart walked, with the x read last.
    const QwtPlotBarChart *chart = nullptr;
    double x = 0.0;
    for (int i = 0; i < barChartsValue.size(); ++i) {
        chart = barChartsValue.at(i);
        const QwtPlotMarker *seriesMarker = i < seriesMarkers.size() ? seriesMarkers.at(i) : nullptr;
        if (chart->isVisible() && seriesMarker) {
            x = seriesMarker->xValue();
            if (x > 0.0)
                break;
        }
    }

    QPointF target(0.0, 0.0);
    int pixel = 1;
    if (chart && x >= 0.0 && sampleCount(chart) > 0) {
        const QwtSeriesData<QPointF> *data = chart->data();
        const int index = MarkerReadout::stepIndex(data, x, direction);
        if (index >= 0)
            target = data->sample(size_t(index));
        const double tx = isNullPoint(target) ? 0.0 : target.x();
        pixel = toPixel(transform(QwtPlot::xBottom, tx), true);
        if (pixel < 0)
            pixel = 1;
    }

    // A bar outside the visible range still brings the read-out to it, but
    // the pointer stays on the canvas.
    QWidget *canvasWidget = canvas();
    if (pixel > canvasWidget->width())
        pixel = canvasWidget->width();
    MarkerReadout::movePointerToColumn(this, canvasWidget, pixel);

    displayMarkers(pixel, target);
    replotLater();
}

void BarPlot::togglePlotItem(const QVariant &itemInfo, bool on, int index)
{
    // The position among the plot's bar charts, as the legend knows them,
    // is taken for the position among the series markers.
    const QwtPlotItemList charts = itemList(QwtPlotItem::Rtti_PlotBarChart);
    for (int i = 0; i < charts.size(); ++i) {
        if (itemToInfo(charts.at(i)) != itemInfo)
            continue;
        if (i < seriesMarkers.size()) {
            if (QwtPlotMarker *seriesMarker = seriesMarkers.at(i))
                seriesMarker->setVisible(on);
            break;
        }
    }
    VoidPlot::togglePlotItem(itemInfo, on, index);
}

// ---------------------------------------------------------------------------
// Settings exchange

void BarPlot::loadToPlotSettingDialog(PlotSettingsDialog &dialog)
{
    VoidPlot::loadToPlotSettingDialog(dialog);
    // The range first, so that the edit accepts the values that follow.
    dialog.setBarChartBaselineRange(barChartBaseLineMinValue, barChartBaseLineMaxValue);
    dialog.setDefaultBarChartBaseline(defaultBarChartBaseLine);
    dialog.setBarChartBaseline(barChartBaselineValue);
}

void BarPlot::saveFromPlotSettingDialog(const PlotSettingsDialog &dialog)
{
    VoidPlot::saveFromPlotSettingDialog(dialog);
    updateBarChartBaseline(dialog.barChartBaseline());
}
