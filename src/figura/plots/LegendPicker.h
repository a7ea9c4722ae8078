#pragma once

#include <figura/FiguraGlobal.h>

#include <QObject>

class QEvent;
class QwtLegendLabel;
class QwtPlot;
class QwtPlotCurve;

// Ties one legend entry to its curve: watches the entry's label and, on a
// right-click, asks the curve plot for the entry's context menu. It consumes
// no event, so a left click still reaches the label and switches the curve.
//
// The plot is the parent and deletes the picker; curve and label belong to
// others. A picker lives as long as its plot, also after its curve was
// removed or the legend disabled; it then never fires, since a deleted label
// sends no more events.
class FIGURA_EXPORT LegendPicker : public QObject
{
    Q_OBJECT

public:
    LegendPicker(QwtPlot *plot, QwtPlotCurve *curve, QwtLegendLabel *label);
    ~LegendPicker() override;

protected:
    // The curve that the entry stands for; not owned.
    QwtPlotCurve *curve = nullptr;
    // The watched entry; not owned.
    QwtLegendLabel *legendLabel = nullptr;

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    QwtPlot *plot();
};
