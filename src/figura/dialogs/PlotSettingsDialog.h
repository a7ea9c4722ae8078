#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>
#include <figura/defaults/PlotDefault.h>

#include <QColor>
#include <QDialog>
#include <QMap>
#include <QString>

#include <qwt_text.h>

#include <memory>

namespace Ui {
class PlotSettingsDialog;
}

class AxisSettingsPanel;
class GeneralSettingsPanel;
class LabelSettingsPanel;
class QAbstractButton;
class QModelIndex;
class VoidPlot;

// The modal dialog in which a user edits the look of one plot: a list of
// pages on the left ("General", "Axes", "Data Labels") and the pages on the
// right. The dialog holds no setting itself; every operation forwards to one
// of its three pages, which belong to the dialog through their Qt parent.
//
// A plot fills it through the setters, the setDefault... operations (what
// Restore Defaults shows later) and the visibility switches, runs exec() and
// reads the getters back after OK. Nothing reaches the plot while the dialog
// is open: it emits no signal, and Restore Defaults resets the widgets of all
// three pages and nothing else. The parent should be the plot; any other
// parent, or none, gives pages filled from PlotDefault alone and no tabs for
// the top and right axes.
//
// Visibility integers mean 0 shown and anything else hidden, the opposite
// sense to the bool operations. A hidden group keeps answering its getters.
class FIGURA_EXPORT PlotSettingsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PlotSettingsDialog(QWidget *parent = nullptr);
    ~PlotSettingsDialog() override;

    // Plot title
    void setPlotTitle(const QwtText &title);
    QwtText plotTitle() const;
    void setDefaultPlotTitle(const QwtText &title);
    void setPlotTitleOptionsVisible(bool on);

    // Canvas
    void setCanvasColor(const QColor &color);
    QColor canvasColor() const;
    void setDefaultCanvasColor(const QColor &color);
    void setMajorGridColor(const QColor &color);
    QColor majorGridColor() const;
    void setDefaultMajorGridColor(const QColor &color);
    void setMinorGridColor(const QColor &color);
    QColor minorGridColor() const;
    void setDefaultMinorGridColor(const QColor &color);
    void setCanvasOptionsVisible(bool on);

    // Chart
    void setChartColor(const QColor &color);
    QColor chartColor() const;
    void setDefaultChartColor(const QColor &color);
    void setChartColorVisible(bool on);
    void setChartOptionsVisible(bool on);
    void setLineChartWidth(int width);
    int lineChartWidth() const;
    void setDefaultLineChartWidth(int width);
    void setLineChartWidthVisible(bool on);
    void setApplyLineWidthToAll(bool on);
    bool isApplyLineWidthChecked() const;
    void setApplyLineWidthVisible(bool on);

    // Bar baseline
    void setBarChartBaseline(double value);
    double barChartBaseline() const;
    void setDefaultBarChartBaseline(double value);
    void setBarChartBaselineRange(double min, double max);
    void setBarChartBaselineVisible(bool on);

    // Time: 1 elapsed time, 2 local date and time
    void setTimeFormat(int code);
    int timeFormat() const;
    void setDefaultTimeFormat(int code);
    void setTimeFormatVisible(bool on);

    // Axes, by QwtPlot::Axis. Scale codes: 0 linear, 1 logarithmic; an axis
    // without a tab gives -1.
    void setAxisScale(int axisId, int scale);
    int axisScale(int axisId) const;
    bool isLogScale(int axisId) const;
    void setDefaultAxisScale(int axisId, int scale);
    void setAxisScaleEnabled(int axisId, bool on);
    void setAxisScaleVisible(int axisId, bool on);
    void setAxisTitle(int axisId, const QwtText &title);
    QwtText axisTitle(int axisId) const;
    void setDefaultAxisTitle(int axisId, const QwtText &title);
    void setTickLabel(int axisId, const TickLabelFormat &format);
    TickLabelFormat tickLabel(int axisId) const;
    void setDefaultTickLabel(int axisId, const TickLabelFormat &format);

    // Marker
    void setMarkerVisible(bool on);
    bool isMarkerVisible() const;
    void setMarkerVisibility(int visibility);
    int markerVisibility() const;
    void setDefaultMarkerVisibility(int visibility);
    void setMarkerWidth(int width);
    int markerWidth() const;
    void setDefaultMarkerWidth(int width);
    void setMarkerColor(const QColor &color);
    QColor markerColor() const;
    void setDefaultMarkerColor(const QColor &color);
    void setMarkerOptionsVisible(bool on);

    // Marker label
    void setMarkerLabelVisible(bool on);
    bool isMarkerLabelVisible() const;
    void setMarkerLabelVisibility(int visibility);
    int markerLabelVisibility() const;
    void setDefaultMarkerLabelVisibility(int visibility);
    void setMarkerLabel(const QwtText &label);
    QwtText markerLabel() const;
    void setDefaultMarkerLabel(const QwtText &label);
    void setMarkerLabelBgColor(const QColor &color);
    QColor markerLabelBgColor() const;
    void setDefaultMarkerLabelBgColor(const QColor &color);
    void setMarkerLabelAlignment(Qt::AlignmentFlag alignment);
    Qt::AlignmentFlag markerLabelAlignment() const;
    void setDefaultMarkerLabelAlignment(int alignment);
    void setMarkerLabelSortOption(Figura::MarkerLabelSortOption option);
    Figura::MarkerLabelSortOption markerLabelSortOption() const;
    void setDefaultMarkerLabelSortOption(int option);
    void setMarkerLabelSortOptionVisible(bool on);
    void setMarkerLabelOptionsVisible(bool on);

    // Peak label
    void setPeakLabelVisible(bool on);
    bool isPeakLabelVisible() const;
    void setPeakLabelVisibility(int visibility);
    int peakLabelVisibility() const;
    void setDefaultPeakLabelVisibility(int visibility);
    void setPeakLabelFormat(const PeakLabelFormat &format);
    PeakLabelFormat peakLabelFormat() const;
    void setDefaultPeakLabelFormat(const PeakLabelFormat &format);
    void setPeakLabelDescription(const QString &text);
    void setPeakLabelGroupName(const QString &text);
    void setPeakLabelOptionsVisible(bool on);

private Q_SLOTS:
    void onGroupChanged(const QModelIndex &current, const QModelIndex &previous);
    void onButtonBoxClicked(QAbstractButton *button);

private:
    std::unique_ptr<Ui::PlotSettingsDialog> ui;

protected:
    VoidPlot *plot = nullptr;                    // the parent, when it is a plot
    GeneralSettingsPanel *generalPanel = nullptr; // page 0
    AxisSettingsPanel *axisPanel = nullptr;       // page 1
    LabelSettingsPanel *labelPanel = nullptr;     // page 2
    QMap<int, QString> groupNames;                // page index to page title
};
