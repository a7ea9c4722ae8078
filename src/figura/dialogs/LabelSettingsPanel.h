#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/defaults/PlotDefault.h>

#include <QColor>
#include <QFrame>

#include <qwt_text.h>

#include <memory>

namespace Ui {
class LabelSettingsPanel;
}

class VoidPlot;

// The third page of the plot settings dialog, "Data Labels": the data
// marker, the marker label and the peak label, each in a checkable group
// whose check state means that the thing is shown. The two combo boxes list
// the texts of Figura::MarkerLabelAlignments and Figura::MarkerLabelSortOptions
// in key order and are read back by text.
//
// The visibility integers mean 0 shown and anything else hidden, the opposite
// sense to the bool operations. Like the other pages it keeps the values of
// Restore Defaults in its default... members; the plot, not owned and
// possibly null, is read once at construction.
class FIGURA_AUTOTEST_EXPORT LabelSettingsPanel : public QFrame
{
    Q_OBJECT

public:
    explicit LabelSettingsPanel(VoidPlot *plot, QWidget *parent = nullptr);
    ~LabelSettingsPanel() override;

    // Copies the default members into the widgets; the peak label's
    // description and group title are left as they are.
    void restoreDefaults();

    void setMarkerVisible(bool on);
    bool isMarkerVisible() const;
    void setMarkerVisibility(int visibility);
    int markerVisibility() const;
    void setDefaultMarkerVisibility(int visibility);
    void setMarkerWidth(int width);
    int markerWidth() const;
    void setDefaultMarkerWidth(int width);
    // An invalid colour changes nothing.
    void setMarkerColor(const QColor &color);
    QColor markerColor() const;
    void setDefaultMarkerColor(const QColor &color);

    void setMarkerLabelVisible(bool on);
    bool isMarkerLabelVisible() const;
    void setMarkerLabelVisibility(int visibility);
    int markerLabelVisibility() const;
    void setDefaultMarkerLabelVisibility(int visibility);
    // Font and colour of the label; its text is not used.
    void setMarkerLabel(const QwtText &label);
    QwtText markerLabel() const;
    void setDefaultMarkerLabel(const QwtText &label);
    void setMarkerLabelBgColor(const QColor &color);
    QColor markerLabelBgColor() const;
    void setDefaultMarkerLabelBgColor(const QColor &color);
    // Keys outside the tables are ignored; an entry that matches no text of
    // its table reads as 0.
    void setMarkerLabelAlignment(Qt::AlignmentFlag alignment);
    Qt::AlignmentFlag markerLabelAlignment() const;
    void setDefaultMarkerLabelAlignment(int alignment);
    void setMarkerLabelSortOption(Figura::MarkerLabelSortOption option);
    Figura::MarkerLabelSortOption markerLabelSortOption() const;
    void setDefaultMarkerLabelSortOption(int option);

    void setPeakLabelVisible(bool on);
    bool isPeakLabelVisible() const;
    void setPeakLabelVisibility(int visibility);
    int peakLabelVisibility() const;
    void setDefaultPeakLabelVisibility(int visibility);
    // Font and colour of the label; its text is not used.
    void setPeakLabel(const QwtText &label);
    QwtText peakLabel() const;
    void setDefaultPeakLabel(const QwtText &label);
    // Degrees; a rotation outside -90 .. 90 is ignored.
    void setPeakLabelRotation(int rotation);
    int peakLabelRotation() const;
    void setDefaultPeakLabelRotation(int rotation);
    // An empty text hides the description for good.
    void setPeakLabelDescription(const QString &text);
    void setPeakLabelGroupName(const QString &text);

    void setMarkerOptionsVisible(bool on);
    void setMarkerLabelOptionsVisible(bool on);
    void setMarkerLabelSortOptionVisible(bool on);
    void setPeakLabelOptionsVisible(bool on);

private Q_SLOTS:
    void onMarkerColorButtonClicked();
    void onMarkerLabelFontButtonClicked();
    void onMarkerLabelColorButtonClicked();
    void onMarkerLabelBgColorButtonClicked();
    void onPeakLabelFontButtonClicked();
    void onPeakLabelColorButtonClicked();

private:
    std::unique_ptr<Ui::LabelSettingsPanel> ui;

protected:
    VoidPlot *plot = nullptr;
    int defaultMarkerVisibility = 0;
    int defaultMarkerWidth;
    QColor defaultMarkerColor;
    int defaultMarkerLabelVisibility = 0;
    QwtText defaultMarkerLabel;
    QColor defaultMarkerLabelBgColor;
    int defaultMarkerLabelAlignment = Qt::AlignTop;
    int defaultMarkerLabelSortOption = Figura::MarkerLabelSortDefault;
    int defaultPeakLabelVisibility = 0;
    QwtText defaultPeakLabel;         // font and colour
    int defaultPeakLabelRotation;
};
