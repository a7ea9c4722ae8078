#include <figura/plots/VoidPlot.h>

#include <figura/dialogs/CustomScaleDialog.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/PlotRenderer.h>
#include <figura/scales/PositiveLinearScaleEngine.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDebug>
#include <QFrame>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QPalette>
#include <QPen>
#include <QPointer>
#include <QTimer>
#include <QVariant>

#include <qwt_legend.h>
#include <qwt_picker_machine.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_magnifier.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text_label.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

// Data coordinates of the latest right press, on xBottom, yLeft and yRight.
// They are shared by all plots of the process: a single pointer drags one
// plot at a time, and a drag always follows its own press.
double dragAnchorX = 0.0;
double dragAnchorYLeft = 0.0;
double dragAnchorYRight = 0.0;

// A press and a release (or a context menu event) at most this many pixels
// apart on each axis count as a click, not as a drag.
constexpr int ClickTolerance = 2;

// A zoom box smaller than this in pixels, in width or height, is an accident.
constexpr double MinZoomBoxPixels = 10.0;

// Keeps the label of a marker clear of its line.
constexpr int MarkerLabelSpacing = 15;

// The border pen paints a padding of the background colour around the text.
constexpr double MarkerLabelPadding = 10.0;
constexpr double MarkerLabelRadius = 3.0;

bool withinClickTolerance(const QPoint &press, int x, int y)
{
    return x >= press.x() - ClickTolerance && x <= press.x() + ClickTolerance
        && y >= press.y() - ClickTolerance && y <= press.y() + ClickTolerance;
}

// The side of a marker symbol grows with the line width, from
// PlotDefault::SymbolWidth at PlotDefault::MarkerWidth.
int markerSymbolSide(int width)
{
    return PlotDefault::SymbolWidth - PlotDefault::MarkerWidth + width;
}

// The maps have enumerations as keys; compare as int, so that no value
// outside an enumeration is ever cast to it.
template <class Map>
bool isMapKey(const Map &map, int value)
{
    for (auto it = map.keyBegin(); it != map.keyEnd(); ++it) {
        if (int(*it) == value)
            return true;
    }
    return false;
}

void setLabelBackground(QwtText &label, const QColor &color)
{
    label.setBackgroundBrush(QBrush(color));
    label.setBorderPen(QPen(QBrush(color), MarkerLabelPadding));
}

} // namespace

VoidPlot::VoidPlot(QWidget *parent)
    : QwtPlot(parent)
{
    xScaleDiv = new QwtScaleDiv(0.0, 0.0);
    yLeftScaleDiv = new QwtScaleDiv(0.0, 0.0);
    yRightScaleDiv = new QwtScaleDiv(0.0, 0.0);

    // The title text draws with the title label's font.
    QwtText plotTitle = title();
    const QFont titleFont = titleLabel()->font();
    if (plotTitle.font() != titleFont) {
        plotTitle.setFont(titleFont);
        setTitle(plotTitle);
    }

    setMinimumHeight(PlotDefault::PlotMinHeight);
    setCanvasBackground(QBrush(PlotDefault::CanvasBackground));

    setAxisMaxMajor(QwtPlot::xBottom, PlotDefault::XAxisLinearScaleMaxMajor);
    setAxisMaxMinor(QwtPlot::xBottom, PlotDefault::XAxisLinearScaleMaxMinor);
    for (int axisId : {int(QwtPlot::yLeft), int(QwtPlot::yRight)}) {
        setAxisMaxMajor(axisId, PlotDefault::YAxisLinearScaleMaxMajor);
        setAxisMaxMinor(axisId, PlotDefault::YAxisLinearScaleMaxMinor);
    }

    // A fixed left scale until the user zooms to full scale or toggles the
    // log scale; the x axis stays on auto-scale.
    setAxisScale(QwtPlot::yLeft, PlotDefault::YLower, PlotDefault::YUpper, 0.0);
    setAxisScaleEngine(QwtPlot::xBottom, new PositiveLinearScaleEngine);

    QFont axisTitleFont = axisTitle(QwtPlot::xBottom).font();
    axisTitleFont.setWeight(QFont::Normal);
    for (int axisId : {int(QwtPlot::xBottom), int(QwtPlot::xTop), int(QwtPlot::yLeft),
                       int(QwtPlot::yRight)}) {
        QwtText text = axisTitle(axisId);
        text.setFont(axisTitleFont);
        setAxisTitle(axisId, text);
    }

    if (auto *frame = qobject_cast<QFrame *>(canvas())) {
        frame->setFrameShadow(QFrame::Plain);
        frame->setFrameShape(QFrame::StyledPanel);
    }

    axisWidget(QwtPlot::xBottom)->setMargin(0);
    axisWidget(QwtPlot::yLeft)->setMargin(0);

    grid = new QwtPlotGrid;
    // Width 0.0: cosmetic pens, one pixel on any device.
    grid->setMajorPen(PlotDefault::GridMajorColor, 0.0, Qt::SolidLine);
    grid->setMinorPen(PlotDefault::GridMinorColor, 0.0, Qt::SolidLine);
    grid->attach(this);

    // Only the wheel and the magnifier's keys zoom; the right button is the
    // zoom box's.
    auto *magnifier = new QwtPlotMagnifier(canvas());
    magnifier->setMouseButton(Qt::NoButton, Qt::NoModifier);

    panner = new QwtPlotPanner(canvas());
    panner->setCursor(Qt::ClosedHandCursor);
    panner->setAxisEnabled(QwtPlot::yRight, false);
    panner->setMouseButton(Qt::LeftButton, Qt::NoModifier);
    panner->setEnabled(true);

    zoomPicker = new QwtPlotPicker(QwtPlot::xBottom, QwtPlot::yLeft, QwtPicker::RectRubberBand,
                                   QwtPicker::AlwaysOff, canvas());
    zoomPicker->setStateMachine(new QwtPickerDragRectMachine);
    zoomPicker->setRubberBandPen(QPen(Qt::black));
    zoomPicker->setMousePattern(QwtEventPattern::MouseSelect1, Qt::RightButton, Qt::NoModifier);
    zoomPicker->setKeyPattern(QwtEventPattern::KeySelect1, Qt::Key_unknown, Qt::NoModifier);

    setFocusPolicy(Qt::StrongFocus);

    markerLabel.setColor(PlotDefault::MarkerLabelColor);
    markerLabel.setFont(axisFont(QwtPlot::yLeft));
    setLabelBackground(markerLabel, PlotDefault::MarkerLabelBgColor);
    markerLabel.setBorderRadius(MarkerLabelRadius);
    markerLabel.setRenderFlags(Qt::AlignLeft);

    marker = createMarker(PlotDefault::MarkerColor, PlotDefault::MarkerWidth, false,
                          QwtPlotMarker::VLine);

    selectionMarkerLabel = markerLabel;
    setLabelBackground(selectionMarkerLabel, PlotDefault::SelectionMarkerLabelBgColor);

    peakLabelFormat.setTextRotation(PlotDefault::PeakLabelRotation);
    peakLabelFormat.setFont(axisFont(QwtPlot::yLeft));
    peakLabelFormat.setColor(darkMode ? PlotDefault::DarkMode::PeakLabelColor
                                      : PlotDefault::PeakLabelColor);

    initializeOptions();

    replotTimer = new QTimer(this);
    replotTimer->setSingleShot(true);
    replotTimer->setInterval(PlotDefault::ReplotDelay);
    connect(replotTimer, &QTimer::timeout, this, &QwtPlot::replot);

    setDisabled(false);

    // Installed last, so that it sees canvas events before the picker, the
    // panner and the magnifier; it never eats one.
    canvas()->setAttribute(Qt::WA_MouseTracking, true);
    canvas()->installEventFilter(this);

    // QwtPlotPicker::selected is overloaded; the string form picks the QRectF one.
    connect(zoomPicker, SIGNAL(selected(QRectF)), this, SLOT(zoomInBox(QRectF)));

    defaultPlotTitleText = title();
    defaultPlotTitleText.setColor(PlotDefault::TitleTextColor);
    defaultAxisTitleText = axisTitle(QwtPlot::xBottom);
    defaultAxisTitleText.setColor(PlotDefault::TitleTextColor);
    defaultTickLabelFormat = tickLabel(QwtPlot::xBottom);
    defaultMarkerLabelText = markerLabel;
    defaultPeakLabelFormatValue = peakLabelFormat;
}

VoidPlot::~VoidPlot()
{
    removeActions();
    delete xScaleDiv;
    delete yLeftScaleDiv;
    delete yRightScaleDiv;
    xScaleDiv = yLeftScaleDiv = yRightScaleDiv = nullptr;
}

// ---------------------------------------------------------------------------
// Hooks and plain values

void VoidPlot::initializeData()
{
}

void VoidPlot::updateData()
{
}

void VoidPlot::reset(bool all)
{
    Q_UNUSED(all)
}

int VoidPlot::rtti() const
{
    return 0;
}

QString VoidPlot::plotName()
{
    return QString();
}

QwtText VoidPlot::defaultPlotTitle()
{
    return defaultPlotTitleText;
}

QwtText VoidPlot::defaultAxisTitle(int axisId)
{
    Q_UNUSED(axisId)
    return defaultAxisTitleText;
}

TickLabelFormat VoidPlot::defaultTickLabel(int axisId)
{
    Q_UNUSED(axisId)
    return defaultTickLabelFormat;
}

QwtText VoidPlot::defaultMarkerLabel()
{
    return defaultMarkerLabelText;
}

PeakLabelFormat VoidPlot::defaultPeakLabelFormat()
{
    return defaultPeakLabelFormatValue;
}

void VoidPlot::onMouseLeftClicked(QMouseEvent *event)
{
    Q_UNUSED(event)
}

void VoidPlot::customScalePostProcess()
{
}

void VoidPlot::shiftMarkers(VoidPlot::ShiftDirection direction)
{
    Q_UNUSED(direction)
}

void VoidPlot::setCustomScaleDialogHelper(QWidget *dialog)
{
    Q_UNUSED(dialog)
}

void VoidPlot::setPlotSettingDialogHelper(QWidget *dialog)
{
    Q_UNUSED(dialog)
}

void VoidPlot::updatePeakLabels(const PeakLabelFormat &format)
{
    Q_UNUSED(format)
}

void VoidPlot::appendContextMenu(QMenu &menu)
{
    Q_UNUSED(menu)
}

QString VoidPlot::axisValueText(int axisId, double value)
{
    Q_UNUSED(axisId)
    return QLocale().toString(value, 'g', 6);
}

void VoidPlot::enableDarkMode(bool on)
{
    if (on == darkMode)
        return;
    darkMode = on;
    emit darkModeEnabled(on);
}

bool VoidPlot::isDarkMode() const
{
    return darkMode;
}

void VoidPlot::enableLegend(QwtPlot::LegendPosition position)
{
    if (legendValue)
        return;
    legendValue = new QwtLegend(this);
    legendValue->setDefaultItemMode(QwtLegendData::Checkable);
    insertLegend(legendValue, position, -1.0);
    connect(legendValue, &QwtLegend::checked, this, &VoidPlot::togglePlotItem);
}

void VoidPlot::disableLegend()
{
    if (!legendValue)
        return;
    legendValue->disconnect();
    delete legendValue;
    legendValue = nullptr;
    updateLayout();
}

QwtLegend *VoidPlot::plotLegend()
{
    return legendValue;
}

void VoidPlot::togglePlotItem(const QVariant &itemInfo, bool on, int index)
{
    Q_UNUSED(index)
    if (QwtPlotItem *item = infoToItem(itemInfo))
        item->setVisible(on);
    replotLater();
}

void VoidPlot::setCanvasBgColor(const QColor &color)
{
    if (!color.isValid() || color == canvasBackground().color())
        return;
    setCanvasBackground(QBrush(color));
    emit canvasBgColorChanged(color);
}

void VoidPlot::setMajorGridColor(const QColor &color)
{
    if (!color.isValid() || color == grid->majorPen().color())
        return;
    grid->setMajorPen(color, 0.0, Qt::SolidLine);
    emit majorGridColorChanged(color);
}

void VoidPlot::setMinorGridColor(const QColor &color)
{
    if (!color.isValid() || color == grid->minorPen().color())
        return;
    grid->setMinorPen(color, 0.0, Qt::SolidLine);
    emit minorGridColorChanged(color);
}

void VoidPlot::setChartColor(const QColor &color)
{
    if (!color.isValid() || color == chartColorValue)
        return;
    chartColorValue = color;
    emit chartColorChanged(chartColorValue);
}

const QColor &VoidPlot::chartColor() const
{
    return chartColorValue;
}

void VoidPlot::setPlotTitle(const QwtText &title)
{
    // With a sub-title the dialog shows and edits it in place of the title's
    // own text, so that is what a new title is compared with.
    QwtText current = this->title();
    if (!subTitleText.isEmpty())
        current.setText(subTitleText);
    if (title == current)
        return;
    if (!subTitleText.isEmpty())
        subTitleText = title.text();
    QwtPlot::setTitle(title);
    emit plotTitleChanged(title);
}

void VoidPlot::setSubTitle(const QString &text)
{
    subTitleText = text;
}

QString VoidPlot::subTitle()
{
    return subTitleText;
}

void VoidPlot::replotLater()
{
    replotTimer->start();
}

void VoidPlot::setCustomPlotOptions(int options)
{
    customPlotOptionFlags = options;
}

int VoidPlot::customPlotOptions() const
{
    return customPlotOptionFlags;
}

void VoidPlot::setContextMenuItems(int items)
{
    contextMenuItemFlags = items;
    createActions();
}

int VoidPlot::contextMenuItems() const
{
    return contextMenuItemFlags;
}

void VoidPlot::initializeOptions()
{
    // Actions of an earlier call go first, so that none is left behind
    // unowned by a member.
    removeActions();

    logScale = false;
    dragZoom = false;
    peakLabelVisible = false;
    autoScroll = true;
    xScaleType = CustomScale::MassScale;
    logScaleMin = PlotDefault::YLower;
    chartColorValue = PlotDefault::ChartColor;
    markerVisible = true;
    markerLabelVisible = true;
    markerLabelAlignmentValue = Qt::AlignTop;
    markerLabelSortOptionValue = Figura::MarkerLabelSortDefault;
    moveMarkerKey = Qt::NoModifier;
    customPlotOptionFlags = PlotOptionTitle | PlotOptionCanvas | PlotOptionChartColor
        | PlotOptionMarker | PlotOptionMarkerLabel;
    contextMenuItemFlags = MenuLogScale | MenuFullZoom | MenuEditCustomScale | MenuDragZoom
        | MenuPlotImageToFile | MenuTextDataToFile | MenuCustomPlot | MenuPlotImageToClipboard
        | MenuTextDataToClipboard;

    createActions();
}

QPoint const &VoidPlot::mousePressPosition()
{
    return pressPosition;
}

TickLabelFormat VoidPlot::tickLabel(int axisId)
{
    TickLabelFormat format;
    format.font = axisFont(axisId);
    format.rotation = 0;
    if (const QwtScaleWidget *widget = axisWidget(axisId)) {
        format.color = widget->palette().color(QPalette::Text);
        format.rotation = int(widget->scaleDraw()->labelRotation());
    }
    return format;
}

void VoidPlot::setTickLabel(int axisId, const TickLabelFormat &format)
{
    QwtScaleWidget *widget = axisWidget(axisId);
    if (!widget)
        return;

    bool changed = false;
    if (format.font != axisFont(axisId)) {
        setAxisFont(axisId, format.font);
        changed = true;
    }
    if (format.color.isValid() && format.color != widget->palette().color(QPalette::Text)) {
        QPalette palette = widget->palette();
        palette.setBrush(QPalette::All, QPalette::Text, QBrush(format.color));
        widget->setPalette(palette);
        changed = true;
    }
    if (format.isRotationValid() && format.rotation != int(widget->scaleDraw()->labelRotation())) {
        setAxisLabelRotation(axisId, format.rotation);
        changed = true;
    }
    if (changed)
        emit tickLabelChanged(axisId, format);
}

void VoidPlot::setAxisCustomTitle(int axisId, const QwtText &text)
{
    if (!isAxisValid(axisId))
        return;

    QwtText current = axisTitle(axisId);
    // What the signal carries: always the font, a string or a colour only
    // where those changed, so that receivers store what is present.
    QwtText changes;
    changes.setFont(text.font());
    bool changed = false;

    // An empty text keeps the title's string: it can't be cleared here.
    if (!text.isEmpty() && text.text() != current.text()) {
        changes.setText(text.text());
        current.setText(text.text());
        changed = true;
    }
    if (text.font() != current.font()) {
        current.setFont(text.font());
        changed = true;
    }
    if (text.color().isValid() && text.color() != current.color()) {
        current.setColor(text.color());
        changes.setColor(text.color());
        changed = true;
    }
    if (changed) {
        setAxisTitle(axisId, current);
        emit axisTitleChanged(axisId, changes);
    }
}

// ---------------------------------------------------------------------------
// Pointer and keyboard

bool VoidPlot::eventFilter(QObject *watched, QEvent *event)
{
    if (!isEnabled())
        return QwtPlot::eventFilter(watched, event);

    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    QWidget *canvasWidget = canvas();

    if (watched == canvasWidget && event->type() == QEvent::MouseButtonPress) {
        const auto *mouseEvent = static_cast<QMouseEvent *>(event);
        pressPosition = mouseEvent->position().toPoint();
        if (mouseEvent->button() == Qt::RightButton) {
            contextMenuPending = false;
            *xScaleDiv = axisScaleDiv(QwtPlot::xBottom);
            *yLeftScaleDiv = axisScaleDiv(QwtPlot::yLeft);
            *yRightScaleDiv = axisScaleDiv(QwtPlot::yRight);
            dragAnchorX = invTransform(QwtPlot::xBottom, pressPosition.x());
            dragAnchorYLeft = invTransform(QwtPlot::yLeft, pressPosition.y());
            dragAnchorYRight = invTransform(QwtPlot::yRight, pressPosition.y());
        }
        return false;
    }

    if (watched == canvasWidget && event->type() == QEvent::MouseMove) {
        const auto *mouseEvent = static_cast<QMouseEvent *>(event);
        if (!dragZoom || !dragZoomAct || mouseEvent->buttons() != Qt::RightButton)
            return false;

        // Fractions of the canvas; dragging right or up gives a positive value.
        const QPoint pos = mouseEvent->position().toPoint();
        if (canvasWidget->width() > 0 && canvasWidget->height() > 0) {
            const double dx = double(pos.x() - pressPosition.x()) / canvasWidget->width();
            const double dy = double(pressPosition.y() - pos.y()) / canvasWidget->height();
            if (modifiers == Qt::NoModifier) {
                rescale(QwtPlot::xBottom, dx, dragAnchorX);
                rescale(QwtPlot::yLeft, dy, dragAnchorYLeft);
            } else if (modifiers == Qt::ControlModifier) {
                rescale(QwtPlot::xBottom, dx, dragAnchorX);
                rescale(QwtPlot::yRight, dy, dragAnchorYRight);
            }
        }
        replotLater();
        return false;
    }

    if (watched == canvasWidget && event->type() == QEvent::MouseButtonRelease && contextMenuPending) {
        const auto *mouseEvent = static_cast<QMouseEvent *>(event);
        if (mouseEvent->button() == Qt::RightButton) {
            contextMenuPending = false;
            const QPoint pos = mouseEvent->position().toPoint();
            if (withinClickTolerance(pressPosition, pos.x(), pos.y())) {
                // After the release has reached the picker, so that its
                // rubber band is gone before the menu opens.
                const QPoint globalPos = mouseEvent->globalPosition().toPoint();
                const Qt::KeyboardModifiers menuModifiers = mouseEvent->modifiers();
                QMetaObject::invokeMethod(
                    this,
                    [this, pos, globalPos, menuModifiers] {
                        QContextMenuEvent menuEvent(QContextMenuEvent::Mouse, pos, globalPos,
                                                    menuModifiers);
                        createContextMenu(&menuEvent);
                    },
                    Qt::QueuedConnection);
            }
        }
        return QwtPlot::eventFilter(watched, event);
    }

    if (event->type() == QEvent::ContextMenu) {
        const auto *menuEvent = static_cast<QContextMenuEvent *>(event);
        // Where the platform sends the menu event at the right press (X11,
        // Wayland, offscreen), wait for the release: a drag of more than
        // ClickTolerance pixels is a zoom, not a click.
        if (menuEvent->reason() == QContextMenuEvent::Mouse
            && (QGuiApplication::mouseButtons() & Qt::RightButton)) {
            contextMenuPending = true;
            return false;
        }
        if (withinClickTolerance(pressPosition, menuEvent->x(), menuEvent->y())) {
            // The menu runs its own event loop, in which the host may delete
            // the plot and the canvas with it. The event must not travel on
            // to a dead receiver: take it here, accepted, so that Qt neither
            // delivers nor propagates it any further.
            const QPointer<QObject> receiver(watched);
            createContextMenu(static_cast<QContextMenuEvent *>(event));
            if (!receiver) {
                event->accept();
                return true;
            }
        }
        return false;
    }

    return QwtPlot::eventFilter(watched, event);
}

void VoidPlot::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() == Qt::NoModifier) {
        switch (event->key()) {
        case Qt::Key_Left:
            shiftMarkers(ShiftLeft);
            return;
        case Qt::Key_Right:
            shiftMarkers(ShiftRight);
            return;
        case Qt::Key_Home:
            shiftMarkers(ShiftHome);
            return;
        case Qt::Key_End:
            shiftMarkers(ShiftEnd);
            return;
        default:
            break;
        }
    }
    QWidget::keyPressEvent(event);
}

bool VoidPlot::isMouseLeftClicked(QMouseEvent *event)
{
    if (!event || event->type() != QEvent::MouseButtonRelease || event->button() != Qt::LeftButton
        || QGuiApplication::queryKeyboardModifiers() != Qt::NoModifier) {
        return false;
    }
    // Cut towards zero, not rounded.
    const QPointF pos = event->position();
    return withinClickTolerance(pressPosition, int(pos.x()), int(pos.y()));
}

int VoidPlot::moveMarkerKeyModifier() const
{
    return moveMarkerKey;
}

void VoidPlot::setMoveMarkerKeyModifier(int modifier)
{
    static const int accepted[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                   Qt::AltModifier};
    for (int value : accepted) {
        if (value == modifier) {
            moveMarkerKey = modifier;
            return;
        }
    }
}

void VoidPlot::rescale(int axisId, double delta, double center)
{
    const QwtScaleDiv *division = nullptr;
    switch (axisId) {
    case QwtPlot::xBottom:
        division = xScaleDiv;
        break;
    case QwtPlot::yLeft:
        division = yLeftScaleDiv;
        break;
    case QwtPlot::yRight:
        division = yRightScaleDiv;
        break;
    default:
        return;
    }

    // Zooming out is five times as sensitive as zooming in, and the window
    // can never shrink to nothing.
    double factor = 2.0 * delta;
    if (factor < 0.0)
        factor *= 5.0;
    factor = qMin(factor, 0.99);

    // Always from the division at the press, so that the scale follows the
    // pointer and does not pile up from move to move.
    double lower = division->lowerBound();
    const double upper = division->upperBound();
    double newLower = 0.0;
    double newUpper = 0.0;
    if (logScale && axisId == QwtPlot::yLeft) {
        // A bound left over from a linear scale can't take a logarithm.
        if (lower <= 0.0)
            lower = logScaleMin;
        newLower = std::exp(std::log(lower) + std::log(center / lower) * factor);
        newUpper = std::exp(std::log(upper) - std::log(upper / center) * factor);
    } else {
        newLower = lower + (center - lower) * factor;
        newUpper = upper - (upper - center) * factor;
    }
    if (!std::isfinite(newLower) || !std::isfinite(newUpper))
        return;
    setAxisScale(axisId, newLower, newUpper, 0.0);
}

void VoidPlot::zoomInBox(const QRectF &rect)
{
    const double left = transform(QwtPlot::xBottom, rect.left());
    const double right = transform(QwtPlot::xBottom, rect.right());
    const double top = transform(QwtPlot::yLeft, rect.top());
    const double bottom = transform(QwtPlot::yLeft, rect.bottom());
    if (std::abs(right - left) < MinZoomBoxPixels || std::abs(bottom - top) < MinZoomBoxPixels)
        return;

    setAxisScale(QwtPlot::xBottom, rect.left(), rect.right(), 0.0);
    setAxisScale(QwtPlot::yLeft, rect.top(), rect.bottom(), 0.0);
    replotLater();
}

void VoidPlot::zoomFullScale()
{
    setAxisAutoScale(QwtPlot::xBottom, true);
    setAxisAutoScale(QwtPlot::yLeft, true);
    replot();
}

void VoidPlot::toggleDragZoom(bool enabled)
{
    dragZoom = enabled;
    // Box zoom and drag-zoom share the right button.
    zoomPicker->setEnabled(!enabled);
    emit dragZoomToggled(enabled);
}

void VoidPlot::setDragZoom(bool on)
{
    dragZoom = on;
    if (dragZoomAct)
        dragZoomAct->setChecked(on);
}

bool VoidPlot::isDragZoom() const
{
    return dragZoom && dragZoomAct;
}

void VoidPlot::toggleLogScale(bool enabled)
{
    prepareDataForLogScale(enabled);
    grid->enableYMin(enabled);
    logScale = enabled;
    if (enabled) {
        setAxisMaxMajor(QwtPlot::yLeft, PlotDefault::YAxisLogScaleMaxMajor);
        setAxisMaxMinor(QwtPlot::yLeft, PlotDefault::YAxisLogScaleMaxMinor);
        setAxisLogScaleEngine(QwtPlot::yLeft);
    } else {
        setAxisMaxMajor(QwtPlot::yLeft, PlotDefault::YAxisLinearScaleMaxMajor);
        setAxisMaxMinor(QwtPlot::yLeft, PlotDefault::YAxisLinearScaleMaxMinor);
        setAxisLinearScaleEngine(QwtPlot::yLeft);
    }
    setAxisAutoScale(QwtPlot::yLeft, true);
    emit logScaleToggled(enabled);
    replot();
}

void VoidPlot::prepareDataForLogScale(bool on)
{
    logScale = on;
}

void VoidPlot::setLogScale(bool on)
{
    logScale = on;
    if (logScaleAct)
        logScaleAct->setChecked(on);
}

bool VoidPlot::isLogScale() const
{
    return logScale && logScaleAct;
}

void VoidPlot::setAxisLogScaleEngine(int axisId)
{
    if (!isAxisValid(axisId))
        return;
    auto *engine = new QwtLogScaleEngine(10);
    setAxisScaleEngine(axisId, engine);
}

void VoidPlot::setAxisLinearScaleEngine(int axisId)
{
    if (!isAxisValid(axisId))
        return;
    auto *engine = new QwtLinearScaleEngine(10);
    setAxisScaleEngine(axisId, engine);
}

void VoidPlot::toggleAutoScroll(bool enabled)
{
    // The host moves the x axis as its data arrive; the plot keeps the flag.
    autoScroll = enabled;
    emit autoScrollToggled(enabled);
}

void VoidPlot::setAutoScroll(bool on)
{
    autoScroll = on;
    if (autoScrollAct)
        autoScrollAct->setChecked(on);
}

bool VoidPlot::isAutoScroll() const
{
    return autoScroll && autoScrollAct;
}

double VoidPlot::logScaleMinY()
{
    return logScaleMin;
}

void VoidPlot::setLogScaleMinY(double value)
{
    if (value > 0.0)
        logScaleMin = value;
}

// ---------------------------------------------------------------------------
// Markers

QwtPlotMarker *VoidPlot::createMarker(const QColor &color, int width, bool withSymbol, int lineStyle)
{
    // A colour that a line was hidden with comes back opaque.
    QColor markerColor = color;
    if (markerColor.alpha() == 0)
        markerColor.setAlpha(255);

    auto *item = new QwtPlotMarker;
    item->setVisible(false);
    switch (lineStyle) {
    case QwtPlotMarker::HLine:
    case QwtPlotMarker::VLine:
    case QwtPlotMarker::Cross:
        item->setLineStyle(static_cast<QwtPlotMarker::LineStyle>(lineStyle));
        break;
    default:
        item->setLineStyle(QwtPlotMarker::NoLine);
        break;
    }
    item->setLabelAlignment(Qt::AlignRight);
    item->setSpacing(MarkerLabelSpacing);
    item->setLinePen(QPen(QBrush(markerColor), width));
    if (withSymbol) {
        const int side = markerSymbolSide(width);
        item->setSymbol(new QwtSymbol(PlotDefault::MarkerSymbolStyle, QBrush(markerColor),
                                      QPen(markerColor), QSize(side, side)));
    }
    item->attach(this);
    return item;
}

void VoidPlot::setMarkerAttrs(QwtPlotMarker *marker, int attrs)
{
    if (!marker)
        return;

    if (attrs & (MarkerAttrHide | MarkerAttrShow))
        marker->setVisible(!(attrs & MarkerAttrHide));

    // The line vanishes through its alpha, so that colour and width survive.
    if ((attrs & (MarkerAttrLineClear | MarkerAttrLineOpaque))
        && marker->lineStyle() != QwtPlotMarker::NoLine) {
        QPen pen = marker->linePen();
        QColor color = pen.color();
        color.setAlpha((attrs & MarkerAttrLineClear) ? 0 : 255);
        pen.setColor(color);
        marker->setLinePen(pen);
    }

    if ((attrs & (MarkerAttrSymbolNone | MarkerAttrSymbolOn)) && marker->symbol()) {
        const QwtSymbol *old = marker->symbol();
        const QwtSymbol::Style style = (attrs & MarkerAttrSymbolNone) ? QwtSymbol::NoSymbol
                                                                       : PlotDefault::MarkerSymbolStyle;
        marker->setSymbol(new QwtSymbol(style, old->brush(), old->pen(), old->size()));
    }

    if (attrs & MarkerAttrLabelClear) {
        QwtText label = marker->label();
        label.setText(QString());
        marker->setLabel(label);
    }
}

void VoidPlot::setAllMarkersAttrs(int attrs)
{
    for (QwtPlotMarker *seriesMarker : std::as_const(seriesMarkers))
        setMarkerAttrs(seriesMarker, attrs);
    if (marker)
        setMarkerAttrs(marker, attrs);
}

void VoidPlot::hideAllMarkers()
{
    setAllMarkersAttrs(MarkerAttrHide);
}

bool VoidPlot::displayMarkersPrecheck()
{
    if (!markerVisible && !markerLabelVisible) {
        hideAllMarkers();
        return false;
    }
    // A hidden line with a visible label: the item stays shown and only its
    // pen turns transparent.
    setAllMarkersAttrs(markerVisible ? (MarkerAttrShow | MarkerAttrLineOpaque)
                                     : (MarkerAttrShow | MarkerAttrLineClear));
    return true;
}

void VoidPlot::setMarkerVisible(bool on)
{
    if (on == markerVisible)
        return;
    markerVisible = on;
    displayMarkersPrecheck();
    emit markerVisibleToggled(markerVisible);
    replotLater();
}

bool VoidPlot::isMarkerVisible() const
{
    return markerVisible;
}

void VoidPlot::setMarkerLabelVisible(bool on)
{
    if (on == markerLabelVisible)
        return;
    markerLabelVisible = on;
    displayMarkersPrecheck();
    emit markerLabelVisibleToggled(markerLabelVisible);
    replotLater();
}

bool VoidPlot::isMarkerLabelVisible() const
{
    return markerLabelVisible;
}

void VoidPlot::setMarkerColor(QwtPlotMarker *marker, const QColor &color)
{
    if (!marker || !color.isValid())
        return;
    if (marker->lineStyle() != QwtPlotMarker::NoLine) {
        QPen pen = marker->linePen();
        pen.setColor(color);
        marker->setLinePen(pen);
    }
    if (const QwtSymbol *old = marker->symbol()) {
        marker->setSymbol(new QwtSymbol(old->style(), QBrush(color), QPen(color), old->size()));
    }
}

void VoidPlot::setMarkerWidth(QwtPlotMarker *marker, int width)
{
    if (!marker || width < 0)
        return;
    if (marker->lineStyle() != QwtPlotMarker::NoLine) {
        QPen pen = marker->linePen();
        pen.setWidth(width);
        marker->setLinePen(pen);
    }
    if (const QwtSymbol *old = marker->symbol()) {
        const int side = markerSymbolSide(width);
        marker->setSymbol(new QwtSymbol(old->style(), old->brush(), old->pen(), QSize(side, side)));
    }
}

void VoidPlot::setMarkersColor(const QColor &color)
{
    if (!marker || !color.isValid())
        return;
    // Compared with the frame marker alone, alpha included: a line hidden
    // through its alpha differs from the same opaque colour.
    QPen pen = marker->linePen();
    if (pen.color() == color)
        return;
    pen.setColor(color);
    marker->setLinePen(pen);
    for (QwtPlotMarker *seriesMarker : std::as_const(seriesMarkers))
        setMarkerColor(seriesMarker, color);
    // The selection marker keeps its own colour on purpose: a selection stays red.
    emit markerColorChanged(color);
}

void VoidPlot::setMarkersWidth(int width)
{
    if (!marker || width < 0)
        return;
    QPen pen = marker->linePen();
    if (pen.width() == width)
        return;
    pen.setWidth(width);
    marker->setLinePen(pen);
    for (QwtPlotMarker *seriesMarker : std::as_const(seriesMarkers))
        setMarkerWidth(seriesMarker, width);
    // Unlike the colour, the width reaches the selection marker too.
    setMarkerWidth(selectionMarker, width);
    emit markerWidthChanged(width);
}

void VoidPlot::setMarkerLabelFontColor(const QwtText &text)
{
    if (!marker)
        return;
    QwtText label = marker->label();
    bool changed = false;
    if (text.font() != markerLabel.font()) {
        label.setFont(text.font());
        markerLabel.setFont(text.font());
        changed = true;
    }
    if (text.color().isValid() && text.color() != markerLabel.color()) {
        label.setColor(text.color());
        markerLabel.setColor(text.color());
        changed = true;
    }
    if (changed) {
        marker->setLabel(label);
        emit markerLabelFontColorChanged(markerLabel);
    }
}

void VoidPlot::setMarkerLabelBgColor(const QColor &color)
{
    if (!color.isValid() || color == markerLabel.backgroundBrush().color())
        return;
    // The frame marker's own label takes it with the next read-out.
    setLabelBackground(markerLabel, color);
    emit markerLabelBgColorChanged(color);
}

void VoidPlot::setMarkerLabelAlignment(int value)
{
    if (!isMapKey(Figura::MarkerLabelAlignments, value) || value == markerLabelAlignmentValue)
        return;
    markerLabelAlignmentValue = value;
    emit markerLabelAlignmentChanged(value);
}

void VoidPlot::setMarkerLabelAlignment(Qt::AlignmentFlag value)
{
    setMarkerLabelAlignment(int(value));
}

Qt::AlignmentFlag VoidPlot::markerLabelAlignment()
{
    // A value outside the map can only come from a subclass.
    if (isMapKey(Figura::MarkerLabelAlignments, markerLabelAlignmentValue))
        return static_cast<Qt::AlignmentFlag>(markerLabelAlignmentValue);
    return Figura::MarkerLabelAlignments.firstKey();
}

void VoidPlot::setMarkerLabelSortOption(int value)
{
    if (!isMapKey(Figura::MarkerLabelSortOptions, value) || value == markerLabelSortOptionValue)
        return;
    markerLabelSortOptionValue = value;
    emit markerLabelSortOptionChanged(value);
}

void VoidPlot::setMarkerLabelSortOption(Figura::MarkerLabelSortOption value)
{
    setMarkerLabelSortOption(int(value));
}

Figura::MarkerLabelSortOption VoidPlot::markerLabelSortOption()
{
    if (isMapKey(Figura::MarkerLabelSortOptions, markerLabelSortOptionValue))
        return static_cast<Figura::MarkerLabelSortOption>(markerLabelSortOptionValue);
    return Figura::MarkerLabelSortOptions.firstKey();
}

void VoidPlot::deleteSeriesMarker(int index)
{
    if (index < 0 || index >= seriesMarkers.size())
        return;
    if (QwtPlotMarker *seriesMarker = seriesMarkers.takeAt(index)) {
        seriesMarker->detach();
        delete seriesMarker;
    }
}

void VoidPlot::deleteSeriesMarkers()
{
    while (!seriesMarkers.isEmpty()) {
        if (QwtPlotMarker *seriesMarker = seriesMarkers.takeFirst()) {
            seriesMarker->detach();
            delete seriesMarker;
        }
    }
    if (marker)
        marker->setVisible(false);
}

void VoidPlot::togglePeakLabels(bool enabled)
{
    // The host holds the peak label items and reacts to the signal.
    if (enabled == peakLabelVisible)
        return;
    peakLabelVisible = enabled;
    emit peakLabelVisibilityToggled(enabled);
}

void VoidPlot::setPeakLabelVisible(bool on)
{
    // Stored first, so that toggled() reaches togglePeakLabels() with the
    // stored value and emits nothing.
    peakLabelVisible = on;
    if (peakLabelAct)
        peakLabelAct->setChecked(on);
}

bool VoidPlot::isPeakLabelVisible() const
{
    return peakLabelVisible && peakLabelAct;
}

void VoidPlot::setPeakLabelFormat(const PeakLabelFormat &format)
{
    if (!(format != peakLabelFormat))
        return;
    peakLabelFormat = format;
    updatePeakLabels(peakLabelFormat);
    emit peakLabelFormatChanged(peakLabelFormat);
}

PeakLabelFormat const &VoidPlot::getPeakLabelFormat() const
{
    return peakLabelFormat;
}

// ---------------------------------------------------------------------------
// Actions and the context menu

void VoidPlot::createActions()
{
    struct ActionEntry {
        QAction *VoidPlot::*action;
        int bit;
        const char *objectName;
        const char *text;
        const char *statusTip;              // null: none
        const char *icon;                   // null: none
        bool VoidPlot::*checkedFrom;        // null: not checkable
        void (VoidPlot::*toggledSlot)(bool);
        void (VoidPlot::*triggeredSlot)();
    };
    static const ActionEntry entries[] = {
        {&VoidPlot::logScaleAct, MenuLogScale, "logScaleAct", QT_TR_NOOP("Enable Log Scale"),
         QT_TR_NOOP("Enable logarithmic scale"), nullptr, &VoidPlot::logScale,
         &VoidPlot::toggleLogScale, nullptr},
        {&VoidPlot::fullZoomAct, MenuFullZoom, "fullZoomAct", QT_TR_NOOP("Zoom to Full Scale"),
         QT_TR_NOOP("Zoom to full scale"), ":/images/full-scale.png", nullptr, nullptr,
         &VoidPlot::zoomFullScale},
        {&VoidPlot::editCustomScaleAct, MenuEditCustomScale, "editCustomScaleAct",
         QT_TR_NOOP("Edit Scale..."), QT_TR_NOOP("Edit custom scale"), ":/images/edit.png", nullptr,
         nullptr, &VoidPlot::editCustomScale},
        {&VoidPlot::dragZoomAct, MenuDragZoom, "dragZoomAct", QT_TR_NOOP("Enable Drag-zoom"),
         QT_TR_NOOP("Enable/disable drag-zoom. Box-zoom will be off if drag-zoom is enabled"),
         nullptr, &VoidPlot::dragZoom, &VoidPlot::toggleDragZoom, nullptr},
        {&VoidPlot::peakLabelAct, MenuPeakLabel, "peakLabelAct", QT_TR_NOOP("Show Peak Labels"),
         nullptr, nullptr, &VoidPlot::peakLabelVisible, &VoidPlot::togglePeakLabels, nullptr},
        {&VoidPlot::autoScrollAct, MenuAutoScroll, "autoScrollAct",
         QT_TR_NOOP("Scroll Chart Automatically"),
         QT_TR_NOOP("Move the chart along X-axis automatically"), nullptr, &VoidPlot::autoScroll,
         &VoidPlot::toggleAutoScroll, nullptr},
        {&VoidPlot::customPlotAct, MenuCustomPlot, "customPlotAct", QT_TR_NOOP("Customize Plot..."),
         QT_TR_NOOP("Customize various plot settings"), nullptr, nullptr, nullptr,
         &VoidPlot::editPlotSetting},
        {&VoidPlot::plotImgToClipboardAct, MenuPlotImageToClipboard, "plotImgToClipboardAct",
         QT_TR_NOOP("Plot Image"), QT_TR_NOOP("Copy the plot image to the clipboard"), nullptr,
         nullptr, nullptr, &VoidPlot::copyImageToClipboard},
        {&VoidPlot::plotImgToFileAct, MenuPlotImageToFile, "plotImgToFileAct",
         QT_TR_NOOP("Plot Image..."), QT_TR_NOOP("Export plot image to a file"), nullptr, nullptr,
         nullptr, &VoidPlot::exportImageToFile},
        {&VoidPlot::textDataToClipboardAct, MenuTextDataToClipboard, "textDataToClipboardAct",
         QT_TR_NOOP("Text Data"), QT_TR_NOOP("Copy chart data to the clipboard"), nullptr, nullptr,
         nullptr, &VoidPlot::copyTextDataToClipboard},
        {&VoidPlot::textDataToFileAct, MenuTextDataToFile, "textDataToFileAct",
         QT_TR_NOOP("Text Data..."), QT_TR_NOOP("Export chart data to a text file"), nullptr,
         nullptr, nullptr, &VoidPlot::exportTextDataToFile},
    };

    for (const ActionEntry &entry : entries) {
        QAction *&action = this->*entry.action;
        const bool wanted = contextMenuItemFlags & entry.bit;
        if (wanted && !action) {
            const QString text = tr(entry.text);
            action = entry.icon ? new QAction(QIcon(QLatin1String(entry.icon)), text, this)
                                : new QAction(text, this);
            action->setObjectName(QLatin1String(entry.objectName));
            if (entry.statusTip)
                action->setStatusTip(tr(entry.statusTip));
            // Checked before the connection, so that a new action does not
            // run its slot.
            if (entry.checkedFrom) {
                action->setCheckable(true);
                action->setChecked(this->*entry.checkedFrom);
                connect(action, &QAction::toggled, this, entry.toggledSlot);
            } else {
                connect(action, &QAction::triggered, this, entry.triggeredSlot);
            }
        } else if (!wanted && action) {
            QObject::disconnect(action, nullptr, nullptr, nullptr);
            delete action;
            action = nullptr;
        }
    }
}

void VoidPlot::removeAction(QAction *&action)
{
    if (!action)
        return;
    QObject::disconnect(action, nullptr, nullptr, nullptr);
    delete action;
    action = nullptr;
}

void VoidPlot::removeActions()
{
    QAction *VoidPlot::*const actions[] = {
        &VoidPlot::logScaleAct,           &VoidPlot::fullZoomAct,
        &VoidPlot::editCustomScaleAct,    &VoidPlot::dragZoomAct,
        &VoidPlot::peakLabelAct,          &VoidPlot::autoScrollAct,
        &VoidPlot::customPlotAct,         &VoidPlot::plotImgToClipboardAct,
        &VoidPlot::plotImgToFileAct,      &VoidPlot::textDataToClipboardAct,
        &VoidPlot::textDataToFileAct,
    };
    for (QAction *VoidPlot::*member : actions) {
        delete (this->*member);
        this->*member = nullptr;
    }
}

void VoidPlot::createContextMenu(QContextMenuEvent *event)
{
    if (!event)
        return;

    const int items = contextMenuItemFlags;
    const auto has = [items](int bits) { return (items & bits) != 0; };
    const auto add = [](QMenu &menu, QAction *action) {
        if (action)
            menu.addAction(action);
    };

    // Built afresh from the actions each time, on the heap and not as a local,
    // because a host may delete the plot while exec() runs, even from a slot
    // that an entry of the menu started. Qt still works on a menu while it
    // activates an entry, so the menu must outlive the plot then: it leaves
    // the dying plot, closes, and is deleted here once exec() has returned.
    const QPointer<QMenu> contextMenu = new QMenu(this);
    contextMenu->setObjectName(QStringLiteral("contextMenu"));
    connect(this, &QObject::destroyed, contextMenu, [menu = contextMenu.data()] {
        menu->setParent(nullptr, menu->windowFlags());
        menu->close();
    });

    if (has(MenuFullZoom))
        add(*contextMenu, fullZoomAct);

    auto *customScaleMenu = new QMenu(tr("Custom Scale"), contextMenu);
    customScaleMenu->setObjectName(QStringLiteral("customScaleMenu"));
    if (has(MenuEditCustomScale)) {
        add(*customScaleMenu, editCustomScaleAct);
        loadCustomScaleMenu(*customScaleMenu);
        contextMenu->addMenu(customScaleMenu);
    }

    if (has(MenuLogScale))
        add(*contextMenu, logScaleAct);
    if (has(MenuLogScale | MenuFullZoom | MenuEditCustomScale))
        contextMenu->addSeparator();

    if (has(MenuDragZoom))
        add(*contextMenu, dragZoomAct);
    if (has(MenuPeakLabel))
        add(*contextMenu, peakLabelAct);
    if (has(MenuAutoScroll))
        add(*contextMenu, autoScrollAct);
    if (has(MenuDragZoom | MenuAutoScroll | MenuPeakLabel))
        contextMenu->addSeparator();

    if (has(MenuCustomPlot)) {
        add(*contextMenu, customPlotAct);
        contextMenu->addSeparator();
    }

    auto *copyMenu = new QMenu(tr("Copy to Clipboard"), contextMenu);
    copyMenu->setIcon(QIcon(QStringLiteral(":/images/clipboard.png")));
    copyMenu->setObjectName(QStringLiteral("copyToClipboardMenu"));
    if (has(MenuPlotImageToClipboard))
        add(*copyMenu, plotImgToClipboardAct);
    if (has(MenuTextDataToClipboard))
        add(*copyMenu, textDataToClipboardAct);
    if (!copyMenu->isEmpty())
        contextMenu->addMenu(copyMenu);

    auto *exportMenu = new QMenu(tr("Export to File"), contextMenu);
    exportMenu->setIcon(QIcon(QStringLiteral(":/images/file.png")));
    exportMenu->setObjectName(QStringLiteral("exportToFileMenu"));
    if (has(MenuPlotImageToFile))
        add(*exportMenu, plotImgToFileAct);
    if (has(MenuTextDataToFile))
        add(*exportMenu, textDataToFileAct);
    if (!exportMenu->isEmpty())
        contextMenu->addMenu(exportMenu);

    appendContextMenu(*contextMenu);

    contextMenu->exec(event->globalPos());
    // The plot may be gone by now: nothing but the menu may be touched.
    delete contextMenu.data();
}

void VoidPlot::copyTextDataToClipboard()
{
    qDebug("copyTextDataToClipboard not implemented");
}

void VoidPlot::exportTextDataToFile()
{
    qDebug("exportTextDataToFile not implemented");
}

// ---------------------------------------------------------------------------
// Image export

void VoidPlot::copyImageToClipboard()
{
    QImage image(size(), QImage::Format_RGB32);
    image.fill(palette().color(backgroundRole()));
    PlotRenderer renderer;
    renderer.renderTo(this, image);
    if (QClipboard *clipboard = QGuiApplication::clipboard())
        clipboard->setImage(image, QClipboard::Clipboard);
}

void VoidPlot::exportImageToFile()
{
    PlotRenderer renderer;
    renderer.exportPlot(this, QStringLiteral("untitled.png"), PlotDefault::Export::SizeMM,
                        PlotDefault::Export::DPI);
}

// ---------------------------------------------------------------------------
// The exchange with the settings dialog and the custom scale commands.

void VoidPlot::editPlotSetting()
{
    // A child of the plot on the heap, not a local: if the host deletes the
    // plot while the dialog runs, the dialog dies with it, exec() returns, and
    // nothing of the plot may be touched after that.
    const QPointer<PlotSettingsDialog> dialog = new PlotSettingsDialog(this);
    setPlotSettingDialogHelper(dialog);
    loadToPlotSettingDialog(*dialog);
    const int result = dialog->exec();
    if (!dialog)
        return;
    const std::unique_ptr<PlotSettingsDialog> owner(dialog.data());
    if (result != QDialog::Accepted)
        return;
    saveFromPlotSettingDialog(*dialog);
    replot();
}

void VoidPlot::loadToPlotSettingDialog(PlotSettingsDialog &dialog)
{
    const int options = customPlotOptionFlags;

    if (options & PlotOptionTitle) {
        // A host that composes the title lets the user edit only its own part.
        QwtText shown = title();
        if (!subTitleText.isEmpty())
            shown.setText(subTitleText);
        dialog.setPlotTitle(shown);
    } else {
        dialog.setPlotTitleOptionsVisible(false);
    }

    if (options & PlotOptionCanvas) {
        dialog.setCanvasColor(canvasBackground().color());
        dialog.setMajorGridColor(grid->majorPen().color());
        dialog.setMinorGridColor(grid->minorPen().color());
    } else {
        dialog.setCanvasOptionsVisible(false);
    }

    if (options & PlotOptionChartColor)
        dialog.setChartColor(chartColorValue);
    else
        dialog.setChartColorVisible(false);
    dialog.setLineChartWidthVisible(options & PlotOptionLineChartWidth);
    dialog.setApplyLineWidthVisible(options & PlotOptionApplyLineWidth);
    dialog.setBarChartBaselineVisible(options & PlotOptionBarChartBaseline);
    dialog.setChartOptionsVisible(options
                                  & (PlotOptionChartColor | PlotOptionLineChartWidth
                                     | PlotOptionApplyLineWidth | PlotOptionBarChartBaseline));
    dialog.setTimeFormatVisible(options & PlotOptionTimeFormat);

    if (options & PlotOptionMarker) {
        dialog.setMarkerVisible(markerVisible);
        const QPen pen = marker->linePen();
        dialog.setMarkerWidth(pen.width());
        // A line hidden through its alpha still has a colour worth editing.
        QColor color = pen.color();
        if (color.alpha() == 0)
            color.setAlpha(255);
        dialog.setMarkerColor(color);
    } else {
        dialog.setMarkerOptionsVisible(false);
    }

    if (options & PlotOptionMarkerLabel) {
        dialog.setMarkerLabelVisible(markerLabelVisible);
        dialog.setMarkerLabel(markerLabel);
        dialog.setMarkerLabelBgColor(markerLabel.backgroundBrush().color());
        dialog.setMarkerLabelAlignment(static_cast<Qt::AlignmentFlag>(markerLabelAlignmentValue));
        if (options & PlotOptionMarkerLabelSort)
            dialog.setMarkerLabelSortOption(
                static_cast<Figura::MarkerLabelSortOption>(markerLabelSortOptionValue));
        else
            dialog.setMarkerLabelSortOptionVisible(false);
    } else {
        dialog.setMarkerLabelOptionsVisible(false);
    }

    if (options & PlotOptionPeakLabel) {
        dialog.setPeakLabelVisible(peakLabelVisible);
        dialog.setPeakLabelFormat(peakLabelFormat);
    } else {
        dialog.setPeakLabelOptionsVisible(false);
    }

    // The axes whatever the options say. Only the left y axis lets the user
    // choose its scale, and its default is logarithmic.
    auto loadAxis = [this, &dialog](int axisId) {
        dialog.setAxisTitle(axisId, axisTitle(axisId));
        dialog.setTickLabel(axisId, tickLabel(axisId));
    };
    auto loadLinearAxis = [&loadAxis, &dialog](int axisId) {
        loadAxis(axisId);
        dialog.setAxisScale(axisId, 0);
        dialog.setDefaultAxisScale(axisId, 0);
        dialog.setAxisScaleEnabled(axisId, false);
    };
    loadLinearAxis(QwtPlot::xBottom);
    if (isAxisVisible(QwtPlot::xTop))
        loadLinearAxis(QwtPlot::xTop);
    loadAxis(QwtPlot::yLeft);
    const bool logEngine =
        dynamic_cast<const QwtLogScaleEngine *>(axisScaleEngine(QwtPlot::yLeft)) != nullptr;
    dialog.setAxisScale(QwtPlot::yLeft, logEngine ? 1 : 0);
    dialog.setDefaultAxisScale(QwtPlot::yLeft, 1);
    if (isAxisVisible(QwtPlot::yRight))
        loadLinearAxis(QwtPlot::yRight);
}

void VoidPlot::saveFromPlotSettingDialog(const PlotSettingsDialog &dialog)
{
    // Hidden groups are not read back, so that the dialog's defaults cannot
    // leak into the plot.
    const int options = customPlotOptionFlags;

    if (options & PlotOptionTitle)
        setPlotTitle(dialog.plotTitle());
    if (options & PlotOptionCanvas) {
        setCanvasBgColor(dialog.canvasColor());
        setMajorGridColor(dialog.majorGridColor());
        setMinorGridColor(dialog.minorGridColor());
    }
    if (options & PlotOptionChartColor)
        setChartColor(dialog.chartColor());
    if (options & PlotOptionMarker) {
        setMarkerVisible(dialog.isMarkerVisible());
        setMarkersWidth(dialog.markerWidth());
        setMarkersColor(dialog.markerColor());
    }
    if (options & PlotOptionMarkerLabel) {
        setMarkerLabelVisible(dialog.isMarkerLabelVisible());
        setMarkerLabelFontColor(dialog.markerLabel());
        setMarkerLabelBgColor(dialog.markerLabelBgColor());
        setMarkerLabelAlignment(dialog.markerLabelAlignment());
        if (options & PlotOptionMarkerLabelSort)
            setMarkerLabelSortOption(dialog.markerLabelSortOption());
    }
    if (options & PlotOptionPeakLabel) {
        setPeakLabelVisible(dialog.isPeakLabelVisible());
        setPeakLabelFormat(dialog.peakLabelFormat());
    }

    setAxisCustomTitle(QwtPlot::xBottom, dialog.axisTitle(QwtPlot::xBottom));
    setTickLabel(QwtPlot::xBottom, dialog.tickLabel(QwtPlot::xBottom));
    setAxisCustomTitle(QwtPlot::yLeft, dialog.axisTitle(QwtPlot::yLeft));
    setTickLabel(QwtPlot::yLeft, dialog.tickLabel(QwtPlot::yLeft));

    // The engine changes through the action, whose toggled() runs
    // toggleLogScale(); without the action only the flag follows the dialog.
    const int scale = dialog.axisScale(QwtPlot::yLeft);
    if (scale != (logScale ? 1 : 0)) {
        logScale = scale == 1;
        if (logScaleAct)
            logScaleAct->setChecked(logScale);
    }

    if (isAxisVisible(QwtPlot::xTop)) {
        setAxisCustomTitle(QwtPlot::xTop, dialog.axisTitle(QwtPlot::xTop));
        setTickLabel(QwtPlot::xTop, dialog.tickLabel(QwtPlot::xTop));
    }
    if (isAxisVisible(QwtPlot::yRight)) {
        setAxisCustomTitle(QwtPlot::yRight, dialog.axisTitle(QwtPlot::yRight));
        setTickLabel(QwtPlot::yRight, dialog.tickLabel(QwtPlot::yRight));
    }
}

void VoidPlot::editCustomScale()
{
    // A host may call this without a menu having been opened first.
    createCustomScaleSettings();

    const QwtScaleDiv xDiv = axisScaleDiv(QwtPlot::xBottom);
    const QwtScaleDiv yDiv = axisScaleDiv(QwtPlot::yLeft);

    // This pair tells the dialog and the store that there is no right axis.
    double yRightLower = std::numeric_limits<double>::min();
    double yRightUpper = std::numeric_limits<double>::max();
    if (isAxisVisible(QwtPlot::yRight)) {
        const QwtScaleDiv yRightDiv = axisScaleDiv(QwtPlot::yRight);
        yRightLower = yRightDiv.lowerBound();
        yRightUpper = yRightDiv.upperBound();
    }

    // On the heap as the plot's child, as in editPlotSetting(): the dialog
    // dies with a plot that the host deletes while it runs.
    const QPointer<CustomScaleDialog> dialog =
        new CustomScaleDialog(xScaleType, xDiv.lowerBound(), xDiv.upperBound(), yDiv.lowerBound(),
                              yDiv.upperBound(), yRightLower, yRightUpper, this);
    setCustomScaleDialogHelper(dialog);
    const int result = dialog->exec();
    if (!dialog)
        return;
    const std::unique_ptr<CustomScaleDialog> owner(dialog.data());
    if (result != QDialog::Accepted)
        return;

    const double xLower = dialog->xLower();
    const double xUpper = dialog->xUpper();
    const double yLower = dialog->yLower();
    const double yUpper = dialog->yUpper();
    setAxisScale(QwtPlot::xBottom, xLower, xUpper, 0.0);
    setAxisScale(QwtPlot::yLeft, yLower, yUpper, 0.0);
    if (isAxisVisible(QwtPlot::yRight)) {
        yRightLower = dialog->yRightLower();
        yRightUpper = dialog->yRightUpper();
        setAxisScale(QwtPlot::yRight, yRightLower, yRightUpper, 0.0);
    }
    customScalePostProcess();
    replotTimer->start();

    if (customScaleSettings) {
        // A host may call this before any menu has read the store; adding to
        // a list never read would replace the user's stored scales.
        customScaleSettings->load();
        customScaleSettings->add(xLower, xUpper, yLower, yUpper, yRightLower, yRightUpper);
    }
}

void VoidPlot::loadCustomScaleMenu(QMenu &menu)
{
    createCustomScaleSettings();
    if (!customScaleSettings)
        return;

    menu.addSeparator();
    // Read anew each time, so that scales stored by other plots show up.
    customScaleSettings->load();
    for (const CustomScaleItem *item : customScaleSettings->items()) {
        QAction *action = menu.addAction(item->name);
        // A copy of the scale: the store may reload its items while the menu is open.
        const CustomScaleItem scale = *item;
        connect(action, &QAction::triggered, this, [this, scale] {
            setAxisScale(QwtPlot::xBottom, scale.xLower, scale.xUpper, 0.0);
            setAxisScale(QwtPlot::yLeft, scale.yLower, scale.yUpper, 0.0);
            // Both right bounds 0.0: the scale was saved on a plot without a
            // right axis, so it leaves any right axis alone.
            if (isAxisVisible(QwtPlot::yRight)
                && !(scale.yRightLower == 0.0 && scale.yRightUpper == 0.0))
                setAxisScale(QwtPlot::yRight, scale.yRightLower, scale.yRightUpper, 0.0);
            customScalePostProcess();
            replotTimer->start();
        });
    }
}

void VoidPlot::createCustomScaleSettings()
{
    if (!customScaleSettings)
        customScaleSettings = new CustomScaleSettings(xScaleType, this);
}
