#pragma once

#include "GalleryPlot.h"

#include <figura/plots/CurvePlot.h>

// The gallery's CurvePlot page: three residual gas spectra of one chamber,
// 2,000 samples each over mass 1 to 200, on a logarithmic current axis.
// Legend entries switch the curves on and off, and their context menu leads
// to the dialog of one curve. The curves take the plot's line width whenever
// it changes. "Text Data" and "Text Data..." give the visible spectra as CSV.
class MassScanPlot : public CurvePlot, public GalleryPlot
{
    Q_OBJECT

public:
    explicit MassScanPlot(QWidget *parent = nullptr);

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
    // Restore Defaults in the settings dialog goes back to the gallery's
    // titles, not to the empty ones of a bare plot.
    QwtText defaultPlotTitle() override;
    QwtText defaultAxisTitle(int axisId) override;
};
