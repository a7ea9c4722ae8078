#pragma once

#include <figura/attributes/PlotAttributes.h>

#include <QObject>

class QJsonObject;
class GalleryPlot;
class VoidPlot;

// The look of one plot as KelmQtPlot::PlotAttributes, for the gallery to
// store in its settings. The library neither reads a record from a plot
// nor applies one, so the host keeps it: every change that the plot reports
// through its signals lands in the record, whether it came from the settings
// dialog, the context menu or the host's own calls. A fresh record is unset
// throughout and writes an empty document, so the record holds what differs
// from a new plot.
//
// apply() brings a stored document back through the plot's own setters;
// they report their changes, and the record follows. A child of the plot.
class PlotLook : public QObject
{
    Q_OBJECT

public:
    explicit PlotLook(GalleryPlot *page);

    const KelmQtPlot::PlotAttributes &attributes() const;
    QJsonObject toJson() const;
    // Applies what json holds; a key that is missing leaves the plot's
    // present value, unlike PlotAttributes::fromJson, which resets some.
    void apply(const QJsonObject &json);

private:
    void watchFrame();
    void watchPlotClass();

    GalleryPlot *page = nullptr;
    VoidPlot *plot = nullptr;
    KelmQtPlot::PlotAttributes record;
};
