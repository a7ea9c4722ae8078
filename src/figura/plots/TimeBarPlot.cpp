#include <figura/plots/TimeBarPlot.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/scales/TimeScaleDraw.h>
#include <figura/scales/TimeUtility.h>

#include <qwt_text.h>

TimeBarPlot::TimeBarPlot(QWidget *parent)
    : BarPlot(parent)
{
    setContextMenuItems(contextMenuItems() | MenuAutoScroll);
    setCustomPlotOptions(customPlotOptions() | PlotOptionTimeFormat);
    xScaleType = CustomScale::TimeScale;

    // Only the text changes: font and colour stay those of the frame.
    QwtText xTitle = axisTitle(QwtPlot::xBottom);
    xTitle.setText(tr("Time (hh:mm:ss)"));
    setAxisTitle(QwtPlot::xBottom, xTitle);

    setAxisAutoScale(QwtPlot::yLeft, true);
    setAxisScale(QwtPlot::xBottom, PlotDefault::XTimeMin, PlotDefault::XTimeUpper, 0.0);
    // The axis owns the draw. Its label format name is not wanted here: the
    // title stays as it is, and the draw stays on elapsed time.
    setAxisScaleDraw(QwtPlot::xBottom, new TimeScaleDraw);
}

TimeBarPlot::~TimeBarPlot() = default;

int TimeBarPlot::rtti() const
{
    return 4;
}

QString TimeBarPlot::axisValueText(int axisId, double value)
{
    if (axisId != QwtPlot::xBottom)
        return BarPlot::axisValueText(axisId, value);
    return QStringLiteral("%1: %2").arg(tr("Time"), TimeUtility::secondsToTimeText(value, 2, 0));
}
