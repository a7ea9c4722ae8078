#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/TickLabelFormat.h>

#include <QFrame>
#include <QMap>

#include <qwt_text.h>

#include <memory>

namespace Ui {
class AxisSettingsPanel;
}

class AxisSettingsTab;
class VoidPlot;

// The second page of the plot settings dialog: one AxisSettingsTab per axis.
// Bottom and left axes always have a tab; top and right axes only if the plot
// shows them when the page is built. Every operation names its axis by the
// QwtPlot::Axis value; an axis without a tab makes it a no-op, and getters
// then give -1, an empty title or a default format. The tabs are children of
// the tab widget.
class FIGURA_AUTOTEST_EXPORT AxisSettingsPanel : public QFrame
{
    Q_OBJECT

public:
    explicit AxisSettingsPanel(VoidPlot *plot, QWidget *parent = nullptr);
    ~AxisSettingsPanel() override;

    // Restores every tab, in the order of the axis identifiers.
    void restoreDefaults();

    int axisScale(int axisId) const;
    void setAxisScale(int axisId, int scale);
    void setDefaultAxisScale(int axisId, int scale);
    void setAxisScaleEnabled(int axisId, bool on);
    void setAxisScaleVisible(int axisId, bool on);

    QwtText axisTitle(int axisId) const;
    void setAxisTitle(int axisId, const QwtText &title);
    void setDefaultAxisTitle(int axisId, const QwtText &title);

    TickLabelFormat tickLabel(int axisId) const;
    void setTickLabel(int axisId, const TickLabelFormat &format);
    void setDefaultTickLabel(int axisId, const TickLabelFormat &format);

private:
    AxisSettingsTab *tab(int axisId) const;

    std::unique_ptr<Ui::AxisSettingsPanel> ui;

protected:
    VoidPlot *plot = nullptr;
    AxisSettingsTab *yLeftTab = nullptr;
    AxisSettingsTab *yRightTab = nullptr;
    AxisSettingsTab *xBottomTab = nullptr;
    AxisSettingsTab *xTopTab = nullptr;
    QMap<int, AxisSettingsTab *> tabs; // null for an axis without a tab
};
