#pragma once

#include "GalleryPlot.h"

#include <figura/plots/TimeBarPlot.h>

#include <QList>

// The gallery's TimeBarPlot page: the mean partial pressure of three masses
// in each minute of the pump-down, as groups of bars on a time axis. The
// plot has one chart per mass; the host sets the bars of each chart a little
// apart within their minute, so that they stand side by side. The text
// export writes each minute once, with its start and end.
class CycleBarPlot : public TimeBarPlot, public GalleryPlot
{
    Q_OBJECT

public:
    explicit CycleBarPlot(QWidget *parent = nullptr);

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

private:
    // Where each chart's bars stand relative to the middle of their minute.
    QList<double> offsets;
};
