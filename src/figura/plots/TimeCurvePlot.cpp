#include <figura/plots/TimeCurvePlot.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/scales/ElapsedTimeScaleEngine.h>
#include <figura/scales/LocalTimeScaleEngine.h>
#include <figura/scales/TimeScaleDraw.h>
#include <figura/scales/TimeUtility.h>

#include <QDateTime>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <qwt_plot_grid.h>
#include <qwt_scale_div.h>
#include <qwt_scale_engine.h>
#include <qwt_text.h>

#include <cmath>

namespace {

constexpr int ElapsedTimeFormat = 1;
constexpr int LocalTimeFormat = 2;

// Below this span of the x axis the read-out shows milliseconds.
constexpr double MillisecondSpan = 4.0;
// A value this close to zero is the zero point, which shows no decimals.
constexpr double ZeroTolerance = 1e-12;

} // namespace

TimeCurvePlot::TimeCurvePlot(QWidget *parent)
    : CurvePlot(parent)
    , elapsedTitle(tr("Elapsed Time"))
    , localTitle(tr("Local Time"))
{
    setContextMenuItems(contextMenuItems() | MenuAutoScroll);
    setCustomPlotOptions(customPlotOptions() | PlotOptionTimeFormat | PlotOptionMarkerLabelSort);

    // Custom scales of this plot are stored and offered as times.
    xScaleType = CustomScale::TimeScale;
    timeFormatValue = ElapsedTimeFormat;
    defaultTimeFormatValue = ElapsedTimeFormat;

    grid->enableXMin(true);

    QwtText xTitle = defaultAxisTitleText;
    xTitle.setText(defaultTimeFormatValue == LocalTimeFormat ? localTitle : elapsedTitle);
    QwtPlot::setAxisTitle(QwtPlot::xBottom, xTitle);

    QwtPlot::setAxisAutoScale(QwtPlot::yLeft, true);
    QwtPlot::setAxisScale(QwtPlot::xBottom, PlotDefault::XTimeMin, PlotDefault::XTimeUpper, 0.0);

    timeScaleDraw = new TimeScaleDraw;
    QwtPlot::setAxisScaleDraw(QwtPlot::xBottom, timeScaleDraw);
    connect(timeScaleDraw, &TimeScaleDraw::labelFormatChanged, this,
            &TimeCurvePlot::onTimeScaleLabelFormatChanged);
    // The axis deletes the draw when the host puts another one in its place.
    connect(timeScaleDraw, &QObject::destroyed, this, [this] { timeScaleDraw = nullptr; });

    QwtPlot::setAxisScaleEngine(QwtPlot::xBottom, new ElapsedTimeScaleEngine);

    QwtPlot::replot();
}

TimeCurvePlot::~TimeCurvePlot()
{
    // The draw outlives this part of the plot; it must neither call back
    // nor read the reference after it.
    if (timeScaleDraw) {
        disconnect(timeScaleDraw, nullptr, this, nullptr);
        timeScaleDraw->setReferenceTime(nullptr);
    }
    if (auto *engine = dynamic_cast<LocalTimeScaleEngine *>(axisScaleEngine(QwtPlot::xBottom)))
        engine->setReferenceTime(nullptr);
    delete referenceTime;
    referenceTime = nullptr;
}

int TimeCurvePlot::rtti() const
{
    return 3;
}

// ---------------------------------------------------------------------------
// Time format and reference

int TimeCurvePlot::timeFormat() const
{
    return timeFormatValue;
}

int TimeCurvePlot::defaultTimeFormat() const
{
    return defaultTimeFormatValue;
}

void TimeCurvePlot::setDefaultTimeFormat(int format)
{
    defaultTimeFormatValue = format;
}

void TimeCurvePlot::setTimeFormat(int format)
{
    if (format != ElapsedTimeFormat && format != LocalTimeFormat)
        return;
    timeFormatValue = format;

    // A copy keeps the title's font and colour; the label format in
    // parentheses comes back with the next drawing that reports a new one.
    QwtText title = axisTitle(QwtPlot::xBottom);
    QwtScaleEngine *engine = nullptr;
    if (format == LocalTimeFormat) {
        title.setText(localTitle);
        auto *localEngine = new LocalTimeScaleEngine;
        if (referenceTime)
            localEngine->setReferenceTime(referenceTime);
        engine = localEngine;
    } else {
        title.setText(elapsedTitle);
        engine = new ElapsedTimeScaleEngine;
    }
    QwtPlot::setAxisScaleEngine(QwtPlot::xBottom, engine);
    QwtPlot::setAxisTitle(QwtPlot::xBottom, title);

    if (timeScaleDraw) {
        timeScaleDraw->setTimeFormat(format, nullptr);
        if (referenceTime)
            timeScaleDraw->setReferenceTime(referenceTime);
    }
}

void TimeCurvePlot::updateTimeFormat(int format)
{
    if (format == timeFormatValue)
        return;
    setTimeFormat(format);
    emit timeFormatChanged(format);
}

void TimeCurvePlot::setReferenceTime(const QDateTime *refDateTime)
{
    if (!refDateTime || !refDateTime->isValid()) {
        delete referenceTime;
        referenceTime = nullptr;
    } else {
        if (!referenceTime)
            referenceTime = new QDateTime;
        *referenceTime = refDateTime->toLocalTime();
    }

    if (timeScaleDraw)
        timeScaleDraw->setReferenceTime(referenceTime);

    if (auto *engine = dynamic_cast<LocalTimeScaleEngine *>(axisScaleEngine(QwtPlot::xBottom))) {
        engine->setReferenceTime(referenceTime);
        // Ticks of a fixed scale are aligned to the clock of the old date
        // until the axis is divided again.
        if (!QwtPlot::axisAutoScale(QwtPlot::xBottom)) {
            const QwtScaleDiv &div = axisScaleDiv(QwtPlot::xBottom);
            QwtPlot::setAxisScale(QwtPlot::xBottom, div.lowerBound(), div.upperBound(), 0.0);
            QwtPlot::updateAxes();
        }
    }
}

void TimeCurvePlot::setInitialXInterval()
{
    QwtPlot::setAxisScale(QwtPlot::xBottom, PlotDefault::XTimeMin, PlotDefault::XTimeUpper, 0.0);
}

// ---------------------------------------------------------------------------
// Axis title and texts

QwtText TimeCurvePlot::defaultAxisTitle(int axisId)
{
    QwtText title = defaultAxisTitleText;
    if (axisId == QwtPlot::xBottom)
        title.setText(defaultTimeFormatValue == LocalTimeFormat ? localTitle : elapsedTitle);
    return title;
}

void TimeCurvePlot::updateTimeAxisTitle(const QString &format)
{
    QString text = timeFormatValue == LocalTimeFormat ? localTitle : elapsedTitle;
    if (!format.isEmpty())
        text += QStringLiteral(" (%1)").arg(format);

    // Called inside the paint of the axis: setting an unchanged title would
    // lay the axis out and paint it again, without end.
    QwtText title = axisTitle(QwtPlot::xBottom);
    if (title.text() == text)
        return;
    title.setText(text, QwtText::AutoText);
    QwtPlot::setAxisTitle(QwtPlot::xBottom, title);
}

void TimeCurvePlot::onTimeScaleLabelFormatChanged(const QString &format)
{
    // Qualified: the draw's report must not depend on a host's override.
    TimeCurvePlot::updateTimeAxisTitle(format);
}

QString TimeCurvePlot::axisValueText(int axisId, double value)
{
    if (axisId != QwtPlot::xBottom)
        return CurvePlot::axisValueText(axisId, value);
    return timeFormatValue == LocalTimeFormat ? localTimeText(value) : elapsedTimeText(value);
}

QString TimeCurvePlot::elapsedTimeText(double value) const
{
    if (value < 0.0)
        return QString();

    int hours = 0;
    int minutes = 0;
    double seconds = 0.0;
    TimeUtility::secondsToTime(value, hours, minutes, seconds);

    const double span = axisScaleDiv(QwtPlot::xBottom).range();
    int fieldWidth = 2;
    int decimals = 0;
    if (value > ZeroTolerance && span < MillisecondSpan) {
        fieldWidth = 6;
        decimals = 3;
    }

    int days = 0;
    if (hours >= 24) {
        days = hours / 24;
        hours = hours % 24;
    }

    // Seconds are rounded, not truncated, and do not carry: 59.6 reads 60.
    const QLatin1Char zero('0');
    QString text = QStringLiteral("%1:%2:%3")
                       .arg(hours, 2, 10, zero)
                       .arg(minutes, 2, 10, zero)
                       .arg(seconds, fieldWidth, 'f', decimals, zero);
    if (days > 0)
        text.prepend(tr("%1d ").arg(days, 0, 10, QLatin1Char(' ')));
    return text;
}

QString TimeCurvePlot::localTimeText(double value) const
{
    if (!referenceTime || value < 0.0)
        return QString();

    const QDateTime time = referenceTime->addMSecs(TimeUtility::secondsToMilliseconds(value));
    const double span = axisScaleDiv(QwtPlot::xBottom).range();
    const QString format = value > ZeroTolerance && span < MillisecondSpan
        ? QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")
        : QStringLiteral("yyyy-MM-dd hh:mm:ss");
    return time.toString(format);
}

// ---------------------------------------------------------------------------
// Keys and pointer

void TimeCurvePlot::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    Qt::KeyboardModifiers modifiers = event->modifiers();
    // Enter is the key of the keypad, and its events say so.
    if (key == Qt::Key_Enter)
        modifiers &= ~Qt::KeypadModifier;

    if (modifiers == Qt::NoModifier) {
        if (key == Qt::Key_Escape) {
            clearSelectionMarker();
            return;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            selectSampleWithKey();
            return;
        }
    }

    if (modifiers == Qt::ControlModifier) {
        // Every key while Ctrl is down, Ctrl itself included, first brings
        // the read-out to the selection, so that a step starts from there.
        alignMarkers();
        ShiftDirection direction = ShiftLeft;
        switch (key) {
        case Qt::Key_Left:
            direction = ShiftLeft;
            break;
        case Qt::Key_Right:
            direction = ShiftRight;
            break;
        case Qt::Key_Home:
            direction = ShiftHome;
            break;
        case Qt::Key_End:
            direction = ShiftEnd;
            break;
        default:
            return;
        }
        shiftMarkers(direction);
        selectSampleWithKey();
        return;
    }

    CurvePlot::keyPressEvent(event);
}

bool TimeCurvePlot::eventFilter(QObject *watched, QEvent *event)
{
    // The frame may run the context menu inside this call, and the host may
    // delete the plot while the menu is open: then the event goes no further.
    const QPointer<QObject> alive(this);
    CurvePlot::eventFilter(watched, event);
    if (!alive)
        return true;

    if (watched != canvas())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        auto *mouseEvent = static_cast<QMouseEvent *>(event);
        if (isMouseLeftClicked(mouseEvent))
            onMouseLeftClicked(mouseEvent);
        return false;
    }
    default:
        return false;
    }
}

// ---------------------------------------------------------------------------
// Settings exchange

void TimeCurvePlot::loadToPlotSettingDialog(PlotSettingsDialog &dialog)
{
    CurvePlot::loadToPlotSettingDialog(dialog);
    dialog.setTimeFormat(timeFormatValue);
}

void TimeCurvePlot::saveFromPlotSettingDialog(const PlotSettingsDialog &dialog)
{
    // The format first: it sets the axis title, which the dialog's own
    // title may then override.
    updateTimeFormat(dialog.timeFormat());
    CurvePlot::saveFromPlotSettingDialog(dialog);
}
