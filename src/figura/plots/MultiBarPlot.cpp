#include <figura/plots/MultiBarPlot.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/MarkerReadout.h>
#include <figura/plots/SampleSearch.h>

#include <QApplication>
#include <QColor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPalette>
#include <QPen>
#include <QPointer>
#include <QVariant>

#include <qwt_column_symbol.h>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_multi_barchart.h>

#include <climits>

using MarkerReadout::toPixel;
using SampleSearch::closestSampleIndex;
using SampleSearch::exactSampleIndex;

namespace {

int setCount(const QwtPlotMultiBarChart *chart)
{
    const QwtSeriesData<QwtSetSample> *data = chart->data();
    return data ? int(qMin<size_t>(data->size(), size_t(INT_MAX))) : 0;
}

// The neighbour of a key step, kept on the sets of a series of n > 0.
int clampIndex(int index, int n)
{
    if (index <= 0)
        return 0;
    if (index >= n - 1)
        return n - 1;
    return index;
}

// The symbol of a bar place, or null; the chart's non-const lookup is not public.
const QwtColumnSymbol *symbolAt(const QwtPlotMultiBarChart *chart, int place)
{
    return chart->symbol(place);
}

// The title of a bar place; places the host gave no title read as untitled.
QString titleAt(const QList<QwtText> &titles, int place)
{
    return place < titles.size() ? titles.at(place).text() : QString();
}

// A bar symbol filled with color, the chart's to own once it is set.
QwtColumnSymbol *columnSymbol(const QColor &color, QwtColumnSymbol::FrameStyle frameStyle, int lineWidth,
                              QwtColumnSymbol::Style style = QwtColumnSymbol::Box)
{
    auto *symbol = new QwtColumnSymbol(style);
    symbol->setPalette(QPalette(color));
    symbol->setFrameStyle(frameStyle);
    symbol->setLineWidth(lineWidth);
    return symbol;
}

constexpr Qt::AlignmentFlag AlignTrailingLabels = Qt::AlignTrailing;

} // namespace

MultiBarPlot::MultiBarPlot(QWidget *parent)
    : VoidPlot(parent)
{
    // The bars take their colours per place from the host, so the dialog
    // offers no chart colour here.
    setCustomPlotOptions((customPlotOptions() & ~PlotOptionChartColor) | PlotOptionBarChartBaseline);

    barChartValue = new QwtPlotMultiBarChart(QStringLiteral("MultiBarChart"));
    barChartValue->setBaseline(barChartBaselineValue);
    barChartValue->setLayoutPolicy(QwtPlotAbstractBarChart::ScaleSamplesToAxes);
    barChartValue->attach(this);
}

MultiBarPlot::~MultiBarPlot()
{
    // Deleting an attached item detaches it from the plot first.
    delete barChartValue;
    barChartValue = nullptr;
}

int MultiBarPlot::rtti() const
{
    return 5;
}

QwtPlotMultiBarChart *MultiBarPlot::barChart() const
{
    return barChartValue;
}

// ---------------------------------------------------------------------------
// The baseline

double MultiBarPlot::barChartBaseline()
{
    return barChartBaselineValue;
}

double MultiBarPlot::barChartBaseLineMin()
{
    return barChartBaseLineMinValue;
}

double MultiBarPlot::barChartBaseLineMax()
{
    return barChartBaseLineMaxValue;
}

void MultiBarPlot::setBarChartBaseLine(double value)
{
    if (!(value >= barChartBaseLineMinValue && value <= barChartBaseLineMaxValue))
        return;
    barChartBaselineValue = value;
    barChartValue->setBaseline(value);
}

void MultiBarPlot::setBarChartBaseLineMin(double value)
{
    barChartBaseLineMinValue = value;
}

void MultiBarPlot::setBarChartBaseLineMax(double value)
{
    barChartBaseLineMaxValue = value;
}

void MultiBarPlot::setHideZeroValueMarkerLabel(bool on)
{
    hideZeroValueMarkerLabel = on;
}

// ---------------------------------------------------------------------------
// Updates

void MultiBarPlot::updateMultiBarChart(int index, const QColor &color)
{
    if (!color.isValid())
        return;
    const int size = setCount(barChartValue);
    if (size == 0 || index < 0 || index >= size)
        return;
    // The same index serves as a sample number and as a place in that
    // sample's set.
    if (index >= barChartValue->data()->sample(size_t(index)).set.size())
        return;
    const QwtColumnSymbol *old = symbolAt(barChartValue, index);
    if (!old)
        return;
    // The chart deletes old when it takes the new symbol.
    barChartValue->setSymbol(index, columnSymbol(color, old->frameStyle(), old->lineWidth(), old->style()));
    replot();
}

void MultiBarPlot::updateMultiBarChart(QList<QwtSetSample> *samples)
{
    if (!samples)
        return;
    barChartValue->setSamples(*samples);
    replot();
}

void MultiBarPlot::updateMultiBarChart(QList<QwtSetSample> *samples, const QList<QColor> &colors,
                                       const QList<QwtText> &titles)
{
    if (!samples)
        return;

    // The first set decides the number of bars for all.
    const int count = samples->isEmpty() ? 0 : int(samples->first().set.size());
    if (count > 0) {
        for (int i = 0; i < count; ++i) {
            const QColor color = i < colors.size() ? colors.at(i) : chartColor();
            barChartValue->setSymbol(i, columnSymbol(color, QwtColumnSymbol::Plain, 0));
        }
        if (seriesMarkers.isEmpty()) {
            const QPen pen = marker->linePen();
            seriesMarkers.append(createMarker(pen.color(), pen.width(), false, QwtPlotMarker::VLine));
        }
    } else {
        deleteSeriesMarkers();
    }

    barChartValue->setBarTitles(titles);
    barChartValue->setSamples(*samples);
    // New titles alone do not reach a legend: tell it, and show the chart's
    // visibility in the check boxes of its entries.
    barChartValue->legendChanged();
    if (QwtLegend *legend = plotLegend()) {
        const QList<QWidget *> entries = legend->legendWidgets(itemToInfo(barChartValue));
        for (QWidget *entry : entries) {
            if (auto *label = qobject_cast<QwtLegendLabel *>(entry))
                label->setChecked(barChartValue->isVisible());
        }
    }

    refreshMarkers();
    replot();
}

// ---------------------------------------------------------------------------
// The read-out

bool MultiBarPlot::eventFilter(QObject *watched, QEvent *event)
{
    // The frame may run the context menu inside this call, and the host may
    // delete the plot while the menu is open: then the event goes no further.
    const QPointer<QObject> alive(this);
    VoidPlot::eventFilter(watched, event);
    if (!alive)
        return true;

    if (watched != canvas() || event->type() != QEvent::MouseMove)
        return false;
    // A plot in a window of another application does not track, and a chart
    // with nothing to show costs no replot.
    if (!QApplication::activeWindow() || !barChartValue->isVisible()
        || setCount(barChartValue) == 0)
        return false;

    const auto *mouseEvent = static_cast<QMouseEvent *>(event);
    if (mouseEvent->buttons() != Qt::NoButton) {
        // The user pans or zooms: the label would only flicker along.
        setAllMarkersAttrs(MarkerAttrLabelClear);
    } else if (int(QGuiApplication::queryKeyboardModifiers()) == moveMarkerKeyModifier()) {
        displayMarkers(mouseEvent->position().toPoint().x(), QwtSetSample());
    }
    replotLater();
    return false;
}

void MultiBarPlot::displayMarkers(int pos, const QwtSetSample &setSample)
{
    if (!displayMarkersPrecheck())
        return;
    if (seriesMarkers.isEmpty() || !seriesMarkers.first())
        return;
    QwtPlotMarker *readMarker = seriesMarkers.first();
    readMarker->setLabel(QwtText());

    // An empty set asks for a search by pixel; a set at x 0 has no special
    // meaning here.
    const QwtSeriesData<QwtSetSample> *data = barChartValue->data();
    const int index = setSample.set.isEmpty()
        ? closestSampleIndex(data, invTransform(QwtPlot::xBottom, pos), SampleSearch::ClosestByBisection)
        : exactSampleIndex(data, setSample.value);
    if (index < 0)
        return;
    const QwtSetSample sample = data->sample(size_t(index));

    QString text;
    if (isMarkerLabelVisible()) {
        text = axisValueText(QwtPlot::xBottom, sample.value);
        const QList<QwtText> titles = barChartValue->barTitles();
        for (int i = 0; i < sample.set.size(); ++i) {
            const QwtColumnSymbol *symbol = symbolAt(barChartValue, i);
            if (!symbol)
                continue;
            const double v = sample.set.at(i);
            if (hideZeroValueMarkerLabel && !(v > 0.0))
                continue;
            // Always the coloured rich text, with or without a legend: the
            // colour is what tells the bars of a set apart.
            text += QStringLiteral("<br><font color=\"%1\">%2 </font>%3: %4")
                        .arg(symbol->palette().color(QPalette::Button).name(),
                             PlotDefault::HTML::SquareChar, titleAt(titles, i),
                             axisValueText(QwtPlot::yLeft, v));
        }
    }

    // There is no label per series marker here: the trailing alignment
    // shows the one label at the top.
    int alignment = markerLabelAlignment();
    if (alignment == AlignTrailingLabels)
        alignment = Qt::AlignTop;

    const int pixel = toPixel(transform(QwtPlot::xBottom, sample.value), false);
    const int limit = canvas()->width() - markerLabelWidth(QString());

    markerLabel.setText(text, QwtText::AutoText);
    readMarker->setLabel(markerLabel);
    readMarker->setValue(QPointF(sample.value, 0.0));
    // A label that just fits stays on the right.
    const int side = pixel <= limit ? Qt::AlignRight : Qt::AlignLeft;
    readMarker->setLabelAlignment(Qt::Alignment(alignment | side));
}

int MultiBarPlot::markerLabelWidth(const QString &text)
{
    QString longest = text;
    if (text.isEmpty()) {
        // An estimate from the last set, good enough to choose a side before
        // the real label exists; 444.444 stands in for x without samples.
        double x = 444.444;
        const int size = setCount(barChartValue);
        if (barChartValue->isVisible() && size > 0) {
            const QwtSetSample last = barChartValue->data()->sample(size_t(size - 1));
            x = last.value;
            const QList<QwtText> titles = barChartValue->barTitles();
            for (int i = 0; i < last.set.size(); ++i) {
                const QString candidate = QStringLiteral("M %1: %2")
                                              .arg(titleAt(titles, i),
                                                   axisValueText(QwtPlot::yLeft, last.set.at(i)));
                if (candidate.length() > longest.length())
                    longest = candidate;
            }
        }
        const QString xText = axisValueText(QwtPlot::xBottom, x);
        if (xText.length() > longest.length())
            longest = xText;
    }
    return MarkerReadout::labelWidth(markerLabel, longest);
}

void MultiBarPlot::refreshMarkers()
{
    if (seriesMarkers.isEmpty() || !seriesMarkers.first())
        return;
    QwtPlotMarker *readMarker = seriesMarkers.first();
    const double x = readMarker->xValue();
    if (setCount(barChartValue) == 0 || !(x > 0.0))
        return;

    const QwtSeriesData<QwtSetSample> *data = barChartValue->data();
    const int index = exactSampleIndex(data, x);
    if (index < 0) {
        // The position is gone from the data: nothing to read there, but the
        // line stays where the user left it.
        readMarker->setLabel(QwtText());
        return;
    }
    const QwtSetSample sample = data->sample(size_t(index));
    int pixel = toPixel(transform(QwtPlot::xBottom, qMax(0.0, sample.value)), true);
    if (pixel < 1)
        pixel = 1;
    displayMarkers(pixel, sample);
}

QwtSetSample MultiBarPlot::getFirstSetSample()
{
    if (setCount(barChartValue) == 0)
        return QwtSetSample();
    return barChartValue->data()->sample(0);
}

QwtSetSample MultiBarPlot::getLastSetSample()
{
    const int size = setCount(barChartValue);
    if (size == 0)
        return QwtSetSample();
    return barChartValue->data()->sample(size_t(size - 1));
}

void MultiBarPlot::shiftMarkers(VoidPlot::ShiftDirection direction)
{
    const int size = setCount(barChartValue);
    if (size == 0 || seriesMarkers.isEmpty())
        return;

    // Before a first read-out the line stands at 0, which takes no part in
    // the search: Home and End then read the set nearest to column 1.
    const QwtPlotMarker *readMarker = seriesMarkers.first();
    const double x = readMarker ? readMarker->xValue() : 0.0;
    QwtSetSample target;
    int pixel = 1;
    if (x > 0.0) {
        const QwtSeriesData<QwtSetSample> *data = barChartValue->data();
        int index = exactSampleIndex(data, x);
        // From between two sets a step goes on from the nearest one, and may
        // thus pass over it.
        if (index < 0 && (direction == ShiftLeft || direction == ShiftRight))
            index = closestSampleIndex(data, x, SampleSearch::ClosestByBisection);

        switch (direction) {
        case ShiftLeft:
            target = data->sample(size_t(clampIndex(index - 1, size)));
            break;
        case ShiftRight:
            target = data->sample(size_t(clampIndex(index + 1, size)));
            break;
        case ShiftHome:
            target = getFirstSetSample();
            break;
        case ShiftEnd:
            target = getLastSetSample();
            break;
        }

        const double tx = target.set.isEmpty() ? 0.0 : target.value;
        pixel = toPixel(transform(QwtPlot::xBottom, tx), true);
        if (pixel < 0)
            pixel = 1;
    }

    // A set outside the visible range still brings the read-out to it, but
    // the pointer stays on the canvas.
    QWidget *canvasWidget = canvas();
    if (pixel > canvasWidget->width())
        pixel = canvasWidget->width();

    MarkerReadout::movePointerToColumn(this, canvasWidget, pixel);

    displayMarkers(pixel, target);
    replotLater();
}

QString MultiBarPlot::axisValueText(int axisId, double value)
{
    // The format of the bar plots: bars stand on whole positions.
    return MarkerReadout::axisValueText(this, axisId, value, 0);
}

// ---------------------------------------------------------------------------
// Legend

void MultiBarPlot::togglePlotItem(const QVariant &itemInfo, bool on, int index)
{
    const QwtPlotItemList charts = itemList(QwtPlotItem::Rtti_PlotMultiBarChart);
    for (int i = 0; i < charts.size(); ++i) {
        if (itemToInfo(charts.at(i)) == itemInfo && i < seriesMarkers.size()) {
            if (QwtPlotMarker *seriesMarker = seriesMarkers.at(i))
                seriesMarker->setVisible(on);
            break;
        }
    }
    VoidPlot::togglePlotItem(itemInfo, on, index);
}

// ---------------------------------------------------------------------------
// Settings exchange

void MultiBarPlot::loadToPlotSettingDialog(PlotSettingsDialog &dialog)
{
    VoidPlot::loadToPlotSettingDialog(dialog);
    dialog.setBarChartBaselineRange(barChartBaseLineMinValue, barChartBaseLineMaxValue);
    dialog.setBarChartBaseline(barChartBaselineValue);
}

void MultiBarPlot::saveFromPlotSettingDialog(const PlotSettingsDialog &dialog)
{
    VoidPlot::saveFromPlotSettingDialog(dialog);
    const double value = dialog.barChartBaseline();
    if (value == barChartBaselineValue)
        return;
    setBarChartBaseLine(value);
    // Also when the range refused the value: the signal then carries the
    // baseline that stays in force.
    emit multiBarChartBaseLineChanged(barChartBaselineValue);
}
