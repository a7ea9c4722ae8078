#pragma once

#include "GalleryPlot.h"

#include <figura/plots/BarPlot.h>

#include <QList>

class PeakLabel;

// The gallery's BarPlot page: the vented chamber's spectrum as one bar per
// mass, with the names of the ions on the highest peaks. The peak labels
// are the host's items: the plot only keeps their visibility flag and
// format, so this class shows, hides and restyles them when the "Show Peak
// Labels" action or the peak label format changes. The bars take the plot's
// chart colour.
class BarMassScanPlot : public BarPlot, public GalleryPlot
{
    Q_OBJECT

public:
    explicit BarMassScanPlot(QWidget *parent = nullptr);

    // The labels in the order of their peaks' height, highest first; the
    // plot owns them.
    QList<PeakLabel *> peakLabels() const;

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
    void updatePeakLabels(const PeakLabelFormat &format) override;
    QwtText defaultPlotTitle() override;
    QwtText defaultAxisTitle(int axisId) override;

protected Q_SLOTS:
    void togglePeakLabels(bool enabled) override;

private:
    void createPeakLabels();
    void showPeakLabels(bool on);

    QList<PeakLabel *> labels;
};
