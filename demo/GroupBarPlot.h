#pragma once

#include "GalleryPlot.h"

#include <figura/plots/MultiBarPlot.h>

// The gallery's MultiBarPlot page: the partial pressures of four masses
// after each of six bake-out runs, one group of bars per run, a colour and
// a title per mass. The legend lists the masses; it is a plain one, since
// the plot has a single chart, which a checkable entry would hide whole.
class GroupBarPlot : public MultiBarPlot, public GalleryPlot
{
    Q_OBJECT

public:
    explicit GroupBarPlot(QWidget *parent = nullptr);

    VoidPlot *plotWidget() override;
    QString pageKey() const override;
    QString pageTitle() const override;
    QString pageCaption() const override;
    void applyPalette(bool dark) override;
    QList<QColor> seriesColors() const override;
    QString textData() const override;
    QwtText markerLabelTemplate() const override;
    void poseForScreenshot() override;

    void copyTextDataToClipboard() override;
    void exportTextDataToFile() override;

protected:
    QwtText defaultPlotTitle() override;
    QwtText defaultAxisTitle(int axisId) override;
};
