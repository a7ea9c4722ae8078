#include <figura/plots/LegendPicker.h>

#include <figura/plots/CurvePlot.h>

#include <QContextMenuEvent>
#include <QEvent>
#include <QPointer>

#include <qwt_legend_label.h>
#include <qwt_plot.h>

LegendPicker::LegendPicker(QwtPlot *plot, QwtPlotCurve *curve, QwtLegendLabel *label)
    : QObject(plot)
    , curve(curve)
    , legendLabel(label)
{
    if (legendLabel)
        legendLabel->installEventFilter(this);
}

LegendPicker::~LegendPicker() = default;

QwtPlot *LegendPicker::plot()
{
    return qobject_cast<QwtPlot *>(parent());
}

bool LegendPicker::eventFilter(QObject *watched, QEvent *event)
{
    QwtPlot *owner = plot();
    if (owner && owner->isEnabled() && watched == legendLabel
        && event->type() == QEvent::ContextMenu) {
        if (auto *curvePlot = qobject_cast<CurvePlot *>(owner)) {
            // The menu runs its own event loop, in which the host may disable
            // the legend and so delete this entry. The event must not travel
            // on to a dead label: take it here, accepted, so that Qt neither
            // delivers nor propagates it any further.
            const QPointer<QObject> entry(watched);
            curvePlot->createLegendContextMenu(curve, static_cast<QContextMenuEvent *>(event));
            if (!entry) {
                event->accept();
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}
