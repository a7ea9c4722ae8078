#include <figura/plots/CurvePlot.h>

#include <figura/attributes/CurveAttributes.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CurveSettingDialog.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/LegendPicker.h>
#include <figura/plots/MarkerReadout.h>
#include <figura/plots/SampleSearch.h>

#include <QAction>
#include <QApplication>
#include <QBrush>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPen>
#include <QPointer>
#include <QTimer>
#include <QVariant>

#include <memory>

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

using MarkerReadout::isNullPoint;
using MarkerReadout::toPixel;
using SampleSearch::closestSampleIndex;
using SampleSearch::exactSampleIndex;

namespace {

int sampleCount(const QwtPlotCurve *curve)
{
    return curve ? MarkerReadout::sampleCount(curve->data()) : 0;
}

constexpr Qt::AlignmentFlag AlignTrailingLabels = Qt::AlignTrailing;

} // namespace

CurvePlot::CurvePlot(QWidget *parent)
    : VoidPlot(parent)
{
    setCustomPlotOptions(customPlotOptions() | PlotOptionLineChartWidth);
    // The selection is a red line of the frame marker's width; like every
    // marker it starts hidden.
    selectionMarker = createMarker(PlotDefault::SelectionMarkerColor, marker->linePen().width(),
                                   false, QwtPlotMarker::VLine);
}

CurvePlot::~CurvePlot()
{
    for (QwtPlotCurve *curve : std::as_const(curvesValue))
        delete curve;
    curvesValue.clear();
}

int CurvePlot::rtti() const
{
    return 1;
}

// ---------------------------------------------------------------------------
// The store

void CurvePlot::appendCurve(QwtPlotCurve *curve, bool hasMarker)
{
    appendSeries(curvesValue, curve, hasMarker);
}

void CurvePlot::removeCurve(int index)
{
    removeSeries(curvesValue, index);
}

void CurvePlot::removeCurve(QwtPlotCurve *curve)
{
    const int index = int(curvesValue.indexOf(curve));
    if (index >= 0)
        removeSeries(curvesValue, index);
}

void CurvePlot::removeCurves()
{
    removeAllSeries(curvesValue);
}

QList<QwtPlotCurve *> &CurvePlot::curves()
{
    return curvesValue;
}

void CurvePlot::setLineAttributes(int index, int style, int width, const QColor &color)
{
    if (index < 0 || index >= curvesValue.size())
        return;
    QwtPlotCurve *curve = curvesValue.at(index);
    QPen pen = curve->pen();
    if (style >= 0)
        pen.setStyle(static_cast<Qt::PenStyle>(style));
    if (width > 0)
        pen.setWidth(width);
    if (color.isValid())
        pen.setColor(color);
    curve->setPen(pen);
}

void CurvePlot::setSymbolAttributes(int index, int style, int size, const QColor &color)
{
    if (index < 0 || index >= curvesValue.size())
        return;
    QwtPlotCurve *curve = curvesValue.at(index);

    QwtSymbol *symbol = nullptr;
    if (const QwtSymbol *old = curve->symbol()) {
        symbol = new QwtSymbol(old->style(), old->brush(), old->pen(), old->size());
    } else {
        symbol = new QwtSymbol(static_cast<QwtSymbol::Style>(PlotDefault::SymbolStyle),
                               QBrush(PlotDefault::SymbolColor), QPen(PlotDefault::SymbolColor),
                               PlotDefault::SymbolSize);
    }
    // A negative style would be NoSymbol: this operation cannot take a symbol away.
    if (style >= 0)
        symbol->setStyle(static_cast<QwtSymbol::Style>(style));
    if (size > 0)
        symbol->setSize(size, -1);
    if (color.isValid())
        symbol->setColor(color);
    curve->setSymbol(symbol);
}

int CurvePlot::penWidth() const
{
    return penWidthValue;
}

void CurvePlot::setPenWidth(int width)
{
    penWidthValue = width;
}

void CurvePlot::updatePenWidth(int width)
{
    if (width == penWidthValue)
        return;
    penWidthValue = width;
    emit penWidthChanged(width);
}

void CurvePlot::applyPenWidthToAll()
{
    for (QwtPlotCurve *curve : std::as_const(curvesValue)) {
        QPen pen = curve->pen();
        pen.setWidth(penWidthValue);
        curve->setPen(pen);
    }
}

QwtSymbol *CurvePlot::createSymbol(const KelmQtPlot::CurveAttributes &attributes) const
{
    const int style = attributes.symbolStyle >= 0 ? attributes.symbolStyle : PlotDefault::SymbolStyle;
    const int side = attributes.symbolWidth > 0 ? attributes.symbolWidth : PlotDefault::SymbolWidth;
    const QColor color = attributes.symbolColor.isValid() ? attributes.symbolColor
                                                          : PlotDefault::SymbolColor;
    return new QwtSymbol(static_cast<QwtSymbol::Style>(style), QBrush(color, Qt::SolidPattern),
                         QPen(color), QSize(side, side));
}

bool CurvePlot::isAnyCurveVisible() const
{
    for (const QwtPlotCurve *curve : curvesValue) {
        if (curve->isVisible())
            return true;
    }
    return false;
}

// ---------------------------------------------------------------------------
// The read-out

bool CurvePlot::eventFilter(QObject *watched, QEvent *event)
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

    const auto *mouseEvent = static_cast<QMouseEvent *>(event);
    if (mouseEvent->buttons() != Qt::NoButton) {
        // The user pans or zooms: labels would only flicker along.
        setAllMarkersAttrs(MarkerAttrLabelClear);
    } else if (int(QGuiApplication::queryKeyboardModifiers()) == moveMarkerKeyModifier()) {
        displayMarkers(mouseEvent->position().toPoint().x(), QPointF(0.0, 0.0));
    }
    replotLater();
    return false;
}

void CurvePlot::displayMarkers(int pos, const QPointF &value)
{
    seriesMarkerAtEnd = false;
    if (!displayMarkersPrecheck())
        return;

    const Figura::MarkerLabelSortOption sortOption = markerLabelSortOption();
    const Qt::AlignmentFlag alignment = markerLabelAlignment();
    const bool labelVisible = isMarkerLabelVisible();
    const bool byPixel = isNullPoint(value);
    const bool withLegend = plotLegend() != nullptr;
    int side = Qt::AlignRight;
    int markerCount = 0;
    int lastIndex = -1;
    double lastX = -1.0;
    QString labelText;
    QString separator;
    QMultiMap<double, QString> byValue;
    QMultiMap<QwtPlotCurve *, QString> byCurve;

    const int count = int(qMin(curvesValue.size(), seriesMarkers.size()));
    for (int i = 0; i < count; ++i) {
        QwtPlotCurve *curve = curvesValue.at(i);
        QwtPlotMarker *seriesMarker = seriesMarkers.at(i);
        // A curve without a marker takes no part in the read-out at all.
        if (!seriesMarker)
            continue;
        seriesMarker->setLabel(QwtText());

        const QwtSeriesData<QPointF> *data = curve->data();
        const int size = sampleCount(curve);
        if (size == 0) {
            seriesMarker->setVisible(false);
            continue;
        }
        // A hidden curve goes on up to the point where its line would join
        // the label: its samples still place the frame marker.
        seriesMarker->setVisible(curve->isVisible());
        ++markerCount;
        lastIndex = i;

        int index = -1;
        if (byPixel) {
            const double x = invTransform(QwtPlot::xBottom, pos);
            index = closestSampleIndex(data, x, SampleSearch::ClosestByBisection);
        } else {
            index = exactSampleIndex(data, value.x());
        }
        // A NaN or infinite sample counts as none, like the null point.
        const QPointF sample = MarkerReadout::readableSample(data, index);
        if (isNullPoint(sample))
            continue;

        seriesMarker->setValue(sample);
        lastX = data->sample(size_t(size - 1)).x();

        if (!labelVisible)
            continue;

        // The first curve decides the side for all, once per pass.
        if (markerCount == 1) {
            const int pixel = toPixel(transform(QwtPlot::xBottom, sample.x()), false);
            const int limit = canvas()->width() - markerLabelWidth(QString());
            if (pixel > limit)
                side = Qt::AlignLeft;
        }

        const QString valueText = axisValueText(QwtPlot::yLeft, sample.y());
        const QString title = curve->title().text();
        const QString line =
            MarkerReadout::seriesLine(withLegend, curve->pen().color(), title, valueText);
        separator = MarkerReadout::lineSeparator(withLegend);

        if (alignment == AlignTrailingLabels) {
            // One label per dot, beside it.
            markerLabel.setText(line, QwtText::AutoText);
            seriesMarker->setLabel(markerLabel);
            seriesMarker->setLabelAlignment(Qt::Alignment(side | AlignTrailingLabels));
            continue;
        }

        if (seriesMarker->isVisible()) {
            labelText += separator + line;
            if (sortOption == Figura::MarkerLabelSortByValue)
                byValue.insert(sample.y(), line);
            else
                byCurve.insert(curve, line);
        }
    }

    marker->setLabel(QwtText());
    if (markerCount <= 0 || lastIndex < 0) {
        marker->setVisible(false);
        return;
    }

    // The line follows the last curve with a marker, so that in exact mode it
    // stays in place when that curve lacks the x.
    const double x = seriesMarkers.at(lastIndex)->xValue();
    marker->setValue(x, 0.0);
    seriesMarkerAtEnd = (x == lastX);

    if (!labelVisible)
        return;

    QString text = axisValueText(QwtPlot::xBottom, x);
    int vertical = alignment;
    if (alignment == AlignTrailingLabels) {
        vertical = Qt::AlignTop;
    } else {
        if (sortOption == Figura::MarkerLabelSortByValue) {
            // Largest y at the top; equal y keep the order of the curves,
            // since insert() puts a new entry ahead of its equals.
            labelText.clear();
            for (auto it = byValue.constEnd(); it != byValue.constBegin();) {
                --it;
                labelText += separator + it.value();
            }
        } else {
            // Only the leading separator goes; a plain prefix test keeps a
            // regular expression out of every pointer move.
            if (labelText.startsWith(separator))
                labelText.remove(0, separator.size());
            QList<QString> lines = labelText.split(separator, Qt::KeepEmptyParts, Qt::CaseSensitive);
            sortMarkerItems(byCurve, lines);
            if (!lines.isEmpty())
                labelText = separator + lines.join(separator);
        }
        text += labelText;
    }

    markerLabel.setText(text, QwtText::AutoText);
    marker->setLabel(markerLabel);
    marker->setLabelAlignment(Qt::Alignment(vertical | side));
}

void CurvePlot::sortMarkerItems(const QMultiMap<QwtPlotCurve *, QString> &items,
                                QList<QString> &lines)
{
    // One line per curve: the order of the curves stands.
    if (lines.size() == items.size())
        return;

    // No line at all, or a title that holds the separator and so split its
    // line in two: the order by title is the one that survives.
    QMultiMap<QString, QString> byTitle;
    for (auto it = items.constBegin(); it != items.constEnd(); ++it)
        byTitle.insert(it.key()->title().text(), it.value());
    lines = byTitle.values();
}

int CurvePlot::markerLabelWidth(const QString &text)
{
    QString longest = text;
    if (text.isEmpty() && isMarkerLabelVisible()) {
        // An estimate from the final samples, good enough to choose a side
        // before the real label exists. Every attached curve counts, also
        // those that reached the plot by other means than appendCurve().
        double x = 444.444;
        const QwtPlotItemList items = itemList(QwtPlotItem::Rtti_PlotCurve);
        for (QwtPlotItem *item : items) {
            const auto *curve = dynamic_cast<const QwtPlotCurve *>(item);
            if (!curve || !curve->isVisible())
                continue;
            const int size = sampleCount(curve);
            if (size == 0)
                continue;
            const QPointF last = curve->data()->sample(size_t(size - 1));
            x = last.x();
            const QString valueText = axisValueText(curve->yAxis(), last.y());
            const QString candidate =
                QStringLiteral("M %1: %2").arg(curve->title().text(), valueText);
            if (candidate.length() > longest.length())
                longest = candidate;
        }
        const QString xText = axisValueText(QwtPlot::xBottom, x);
        if (xText.length() > longest.length())
            longest = xText;
    }
    return MarkerReadout::labelWidth(markerLabel, longest);
}

void CurvePlot::refreshMarkers()
{
    if (seriesMarkers.isEmpty() || curvesValue.isEmpty())
        return;

    // A read-out that is not on display stays off.
    const QwtPlotMarker *shown = nullptr;
    for (const QwtPlotMarker *seriesMarker : std::as_const(seriesMarkers)) {
        if (seriesMarker && seriesMarker->isVisible()) {
            shown = seriesMarker;
            break;
        }
    }
    if (!shown)
        return;

    const QwtPlotCurve *reference = nullptr;
    for (const QwtPlotCurve *curve : std::as_const(curvesValue)) {
        if (curve->isVisible() && sampleCount(curve) > 0) {
            reference = curve;
            break;
        }
    }
    if (!reference)
        return;

    const int index = exactSampleIndex(reference->data(), shown->xValue());
    if (index < 0)
        return;
    const QPointF sample = reference->data()->sample(size_t(index));
    displayMarkers(toPixel(transform(QwtPlot::xBottom, sample.x()), true), sample);
}

void CurvePlot::setAllMarkersAttrs(int attrs)
{
    if (attrs & MarkerAttrHide)
        seriesMarkerAtEnd = false;
    VoidPlot::setAllMarkersAttrs(attrs);
}

void CurvePlot::hideAllMarkers()
{
    VoidPlot::hideAllMarkers();
    seriesMarkerAtEnd = false;
}

bool CurvePlot::isSeriesMarkerAtEnd() const
{
    return seriesMarkerAtEnd;
}

QString CurvePlot::axisValueText(int axisId, double value)
{
    return MarkerReadout::axisValueText(this, axisId, value, 2);
}

// ---------------------------------------------------------------------------
// Selection and key steps

void CurvePlot::emitSampleSelectedLater(int index)
{
    // One event-loop turn later, after the event that selected has finished.
    // The pointer guards against a plot deleted in between.
    const QPointer<CurvePlot> plot(this);
    QTimer::singleShot(0, [plot, index] {
        if (!plot)
            return;
        // replot() only schedules the repaint, at a lower priority than this
        // call: deliver it first, so that the host sees the selection drawn.
        QCoreApplication::sendPostedEvents(plot->window(), QEvent::UpdateRequest);
        if (plot)
            emit plot->sampleSelected(index);
    });
}

void CurvePlot::selectSample(int pos)
{
    if (curvesValue.isEmpty())
        return;
    const QwtSeriesData<QPointF> *data = curvesValue.first()->data();
    const double x = invTransform(QwtPlot::xBottom, pos);
    const int index = closestSampleIndex(data, x, SampleSearch::ClosestByBisection);
    if (index < 0)
        return;
    const QPointF sample = data->sample(size_t(index));
    // A NaN or infinite sample has no place to show the selection.
    if (!MarkerReadout::isReadable(sample))
        return;
    // pos as given: the label's side follows the pointer, not the sample.
    displaySelectionMarker(pos, sample);
    replot();
    emitSampleSelectedLater(index);
}

void CurvePlot::selectSample(int pos, const QPointF &value)
{
    // The caller makes sure that a curve exists; without one the index is -1.
    const int index = curvesValue.isEmpty()
        ? -1
        : exactSampleIndex(curvesValue.first()->data(), value.x());
    displaySelectionMarker(pos, value);
    replot();
    emitSampleSelectedLater(index);
}

void CurvePlot::selectSampleWithKey()
{
    if (!isAnyCurveVisible())
        return;

    const int count = int(qMin(curvesValue.size(), seriesMarkers.size()));
    const QwtPlotCurve *curve = nullptr;
    double x = 0.0;
    for (int i = 0; i < count; ++i) {
        const QwtPlotMarker *seriesMarker = seriesMarkers.at(i);
        if (curvesValue.at(i)->isVisible() && seriesMarker && seriesMarker->xValue() >= 0.0) {
            curve = curvesValue.at(i);
            x = seriesMarker->xValue();
            break;
        }
    }
    if (!curve)
        return;

    const int index = exactSampleIndex(curve->data(), x);
    if (index < 0)
        return;
    const QPointF sample = curve->data()->sample(size_t(index));
    if (isNullPoint(sample))
        return;
    selectSample(toPixel(transform(QwtPlot::xBottom, sample.x()), true), sample);
}

void CurvePlot::displaySelectionMarker(int index)
{
    if (curvesValue.isEmpty())
        return;
    const QwtPlotCurve *first = curvesValue.first();
    if (index < 0 || index >= sampleCount(first))
        return;
    const QPointF sample = first->data()->sample(size_t(index));
    if (!MarkerReadout::isReadable(sample))
        return;
    // Truncated, where the other callers round: a selection put back by the
    // host keeps the column it had.
    displaySelectionMarker(toPixel(transform(QwtPlot::xBottom, sample.x()), false), sample);
}

void CurvePlot::displaySelectionMarker(int pos, const QPointF &value)
{
    selectionMarker->setVisible(true);
    selectionMarker->setValue(value);

    const QString text = axisValueText(QwtPlot::xBottom, value.x());
    selectionMarkerLabel.setText(text, QwtText::AutoText);
    selectionMarker->setLabel(selectionMarkerLabel);

    // A label that just fits stays on the right.
    const int limit = canvas()->width() - markerLabelWidth(text);
    selectionMarker->setLabelAlignment(pos <= limit ? Qt::Alignment(Qt::AlignRight | Qt::AlignBottom)
                                                    : Qt::Alignment(Qt::AlignLeft | Qt::AlignBottom));
}

void CurvePlot::clearSelectionMarker()
{
    // The marker keeps its value, so that alignMarkers() has nothing to align
    // to while it is hidden.
    selectionMarker->setVisible(false);
    replotLater();
}

void CurvePlot::alignMarkers()
{
    if (!selectionMarker->isVisible() || curvesValue.isEmpty())
        return;
    const QwtPlotCurve *first = curvesValue.first();
    if (sampleCount(first) == 0)
        return;
    const double x = selectionMarker->xValue();
    if (x < 0.0)
        return;
    const int index = exactSampleIndex(first->data(), x);
    const QPointF sample = index < 0 ? QPointF(0.0, 0.0) : first->data()->sample(size_t(index));
    displayMarkers(toPixel(transform(QwtPlot::xBottom, sample.x()), true), sample);
}

void CurvePlot::shiftMarkers(VoidPlot::ShiftDirection direction)
{
    // The reference: the first visible curve whose dot stands right of 0,
    // else the last curve walked, with the x read last.
    const QwtPlotCurve *curve = nullptr;
    double x = 0.0;
    for (int i = 0; i < curvesValue.size(); ++i) {
        curve = curvesValue.at(i);
        const QwtPlotMarker *seriesMarker = i < seriesMarkers.size() ? seriesMarkers.at(i) : nullptr;
        if (curve->isVisible() && seriesMarker) {
            x = seriesMarker->xValue();
            if (x > 0.0)
                break;
        }
    }

    QPointF sample(0.0, 0.0);
    int pixel = 1;
    const int size = sampleCount(curve);
    if (curve && x >= 0.0 && size > 0) {
        const QwtSeriesData<QPointF> *data = curve->data();
        const int target = MarkerReadout::stepIndex(data, x, direction);
        if (target >= 0)
            sample = data->sample(size_t(target));

        pixel = toPixel(transform(QwtPlot::xBottom, sample.x()), true);
        if (pixel < 0)
            pixel = 1;
    }

    // A sample outside the visible range still brings the read-out to it,
    // but the pointer stays on the canvas.
    QWidget *canvasWidget = canvas();
    if (pixel > canvasWidget->width())
        pixel = canvasWidget->width();

    MarkerReadout::movePointerToColumn(this, canvasWidget, pixel);

    displayMarkers(pixel, sample);
    replot();
}

// ---------------------------------------------------------------------------
// Legend

void CurvePlot::setLegend(QwtPlotCurve *curve)
{
    QwtLegend *legend = plotLegend();
    if (!legend || !curve)
        return;
    if (!itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve))
        return;

    curve->setLegendAttribute(QwtPlotCurve::LegendShowSymbol, true);
    curve->setLegendAttribute(QwtPlotCurve::LegendShowLine, true);
    // Without a label the curve still shows; it only has no menu.
    if (auto *label = qobject_cast<QwtLegendLabel *>(legend->legendWidget(itemToInfo(curve)))) {
        label->setChecked(true);
        new LegendPicker(this, curve, label);
    }
    curve->setVisible(true);
}

void CurvePlot::createLegendContextMenu(QwtPlotCurve *curve, QContextMenuEvent *event)
{
    if (!event)
        return;

    // On the heap, and rescued from a plot that dies while the menu runs, as
    // in VoidPlot::createContextMenu(): it closes and is deleted here.
    const QPointer<QMenu> menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("legendContextMenu"));
    connect(this, &QObject::destroyed, menu, [orphan = menu.data()] {
        orphan->setParent(nullptr, orphan->windowFlags());
        orphan->close();
    });

    // The action of the last menu lives until the next one is made.
    delete editCurveAct;
    editCurveAct = new QAction(tr("Change Curve Settings..."), this);
    editCurveAct->setObjectName(QStringLiteral("editCurveAct"));
    editCurveAct->setStatusTip(tr("Customize curve settings"));
    connect(editCurveAct, &QAction::triggered, this, [this, curve] {
        // The host may have removed the curve while the menu was open, or
        // since: the pointer is only used while the plot still holds it.
        if (itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve))
            editCurveAttributes(curve);
    });

    menu->addAction(editCurveAct);
    menu->exec(event->globalPos());
    // The plot may be gone by now: nothing but the menu may be touched.
    delete menu.data();
}

void CurvePlot::togglePlotItem(const QVariant &itemInfo, bool on, int index)
{
    for (int i = 0; i < curvesValue.size() && i < seriesMarkers.size(); ++i) {
        if (itemToInfo(curvesValue.at(i)) == itemInfo) {
            if (QwtPlotMarker *seriesMarker = seriesMarkers.at(i))
                seriesMarker->setVisible(on);
            break;
        }
    }
    VoidPlot::togglePlotItem(itemInfo, on, index);
    refreshMarkers();
}

bool CurvePlot::editCurveAttributes(QwtPlotCurve *curve)
{
    if (!curve)
        return false;

    // On the heap as the plot's child, so that it dies with a plot that the
    // host deletes while it runs; then nothing of the plot may be touched.
    const QPointer<CurveSettingDialog> dialog = new CurveSettingDialog(this);
    const QPen pen = curve->pen();
    dialog->setLineAttributes(pen.style(), pen.width(), pen.color());
    if (const QwtSymbol *symbol = curve->symbol())
        dialog->setSymbolAttributes(symbol->style(), symbol->size().width(), symbol->brush().color());

    // The dialog runs its own event loop, in which the host may delete the
    // curve; a curve that was attached and is no more is left alone.
    const bool attached = itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve);
    const int result = dialog->exec();
    if (!dialog)
        return false;
    const std::unique_ptr<CurveSettingDialog> owner(dialog.data());
    if (result != QDialog::Accepted)
        return false;
    if (attached && !itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve))
        return false;

    // A pen of the three values only: cap and join go back to those of a new
    // pen. Likewise the symbol takes one colour for brush and outline, and
    // is set also for "No Symbol".
    curve->setPen(dialog->lineColor(), dialog->lineWidth(), static_cast<Qt::PenStyle>(dialog->lineStyle()));
    const QColor symbolColor = dialog->symbolColor();
    curve->setSymbol(new QwtSymbol(static_cast<QwtSymbol::Style>(dialog->symbolStyle()),
                                   QBrush(symbolColor), QPen(symbolColor),
                                   QSize(dialog->symbolSize(), dialog->symbolSize())));
    replot();
    return true;
}

// ---------------------------------------------------------------------------
// Settings exchange

void CurvePlot::loadToPlotSettingDialog(PlotSettingsDialog &dialog)
{
    VoidPlot::loadToPlotSettingDialog(dialog);
    dialog.setLineChartWidth(penWidthValue);
}

void CurvePlot::saveFromPlotSettingDialog(const PlotSettingsDialog &dialog)
{
    VoidPlot::saveFromPlotSettingDialog(dialog);
    updatePenWidth(dialog.lineChartWidth());
    if (dialog.isApplyLineWidthChecked())
        applyPenWidthToAll();
}
