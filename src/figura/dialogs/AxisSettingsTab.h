#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/TickLabelFormat.h>

#include <QFrame>

#include <qwt_text.h>

#include <memory>

namespace Ui {
class AxisSettingsTab;
}

class VoidPlot;

// One tab of the axis settings page: title, tick labels and scale kind of one
// axis. Like the other pages it keeps the values shown in its widgets and the
// values of Restore Defaults in its default... members. The plot, not owned
// and possibly null, is read once at construction for its dark mode and its
// default title and tick label.
class FIGURA_AUTOTEST_EXPORT AxisSettingsTab : public QFrame
{
    Q_OBJECT

public:
    AxisSettingsTab(int axisId, VoidPlot *plot, QWidget *parent = nullptr);
    ~AxisSettingsTab() override;

    void restoreDefaults();

    // 0 linear, 1 logarithmic; any other value shows a linear scale.
    void setAxisScale(int scale);
    int axisScale() const;
    void setDefaultAxisScale(int scale);
    // Both act on the whole scale group; a disabled or hidden group still
    // answers axisScale().
    void setAxisScaleEnabled(bool on);
    void setAxisScaleVisible(bool on);

    // The title's text, font and colour are edited; whatever else the
    // QwtText holds survives.
    void setAxisTitle(const QwtText &title);
    QwtText axisTitle() const;
    // Takes font and colour only: the default text stays the plot's own.
    void setDefaultAxisTitle(const QwtText &title);

    // A rotation outside the valid range leaves the spin box where it stands;
    // tickLabel() always gives the spin box's rotation.
    void setTickLabel(const TickLabelFormat &format);
    TickLabelFormat tickLabel() const;
    void setDefaultTickLabel(const TickLabelFormat &format);

private Q_SLOTS:
    void onTitleFontButtonClicked();
    void onTitleColorButtonClicked();
    void onTickLabelFontButtonClicked();
    void onTickLabelColorButtonClicked();

private:
    std::unique_ptr<Ui::AxisSettingsTab> ui;

protected:
    int axisId;
    VoidPlot *plot = nullptr;
    QwtText defaultAxisTitle;
    TickLabelFormat defaultTickLabel;
    int defaultAxisScale = 1;
    QwtText axisTitleValue;           // the title as last set
    TickLabelFormat tickLabelValue;   // the format as last set
};
