#include <figura/dialogs/AxisSettingsPanel.h>

#include "ui_AxisSettingsPanel.h"

#include <figura/dialogs/AxisSettingsTab.h>
#include <figura/plots/VoidPlot.h>

AxisSettingsPanel::AxisSettingsPanel(VoidPlot *plot, QWidget *parent)
    : QFrame(parent)
    , ui(std::make_unique<Ui::AxisSettingsPanel>())
    , plot(plot)
{
    ui->setupUi(this);

    // The form's pages only stand in for the tabs made here.
    while (ui->tabWidget->count() > 0) {
        QWidget *page = ui->tabWidget->widget(0);
        ui->tabWidget->removeTab(0);
        delete page;
    }

    xBottomTab = new AxisSettingsTab(QwtPlot::xBottom, plot, this);
    if (plot && plot->isAxisVisible(QwtPlot::xTop))
        xTopTab = new AxisSettingsTab(QwtPlot::xTop, plot, this);
    yLeftTab = new AxisSettingsTab(QwtPlot::yLeft, plot, this);
    if (plot && plot->isAxisVisible(QwtPlot::yRight))
        yRightTab = new AxisSettingsTab(QwtPlot::yRight, plot, this);

    if (xTopTab) {
        ui->tabWidget->addTab(xTopTab, tr("X-Top-Axis"));
        ui->tabWidget->addTab(xBottomTab, tr("X-Bottom-Axis"));
    } else {
        ui->tabWidget->addTab(xBottomTab, tr("X-Axis"));
    }
    if (yRightTab) {
        ui->tabWidget->addTab(yLeftTab, tr("Y-Left-Axis"));
        ui->tabWidget->addTab(yRightTab, tr("Y-Right-Axis"));
    } else {
        ui->tabWidget->addTab(yLeftTab, tr("Y-Axis"));
    }

    tabs.insert(QwtPlot::xBottom, xBottomTab);
    tabs.insert(QwtPlot::yLeft, yLeftTab);
    tabs.insert(QwtPlot::yRight, yRightTab);
    tabs.insert(QwtPlot::xTop, xTopTab);
}

AxisSettingsPanel::~AxisSettingsPanel() = default;

AxisSettingsTab *AxisSettingsPanel::tab(int axisId) const
{
    return tabs.value(axisId, nullptr);
}

void AxisSettingsPanel::restoreDefaults()
{
    for (AxisSettingsTab *axisTab : std::as_const(tabs)) {
        if (axisTab)
            axisTab->restoreDefaults();
    }
}

int AxisSettingsPanel::axisScale(int axisId) const
{
    const AxisSettingsTab *axisTab = tab(axisId);
    return axisTab ? axisTab->axisScale() : -1;
}

void AxisSettingsPanel::setAxisScale(int axisId, int scale)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setAxisScale(scale);
}

void AxisSettingsPanel::setDefaultAxisScale(int axisId, int scale)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setDefaultAxisScale(scale);
}

void AxisSettingsPanel::setAxisScaleEnabled(int axisId, bool on)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setAxisScaleEnabled(on);
}

void AxisSettingsPanel::setAxisScaleVisible(int axisId, bool on)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setAxisScaleVisible(on);
}

QwtText AxisSettingsPanel::axisTitle(int axisId) const
{
    const AxisSettingsTab *axisTab = tab(axisId);
    return axisTab ? axisTab->axisTitle() : QwtText();
}

void AxisSettingsPanel::setAxisTitle(int axisId, const QwtText &title)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setAxisTitle(title);
}

void AxisSettingsPanel::setDefaultAxisTitle(int axisId, const QwtText &title)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setDefaultAxisTitle(title);
}

TickLabelFormat AxisSettingsPanel::tickLabel(int axisId) const
{
    const AxisSettingsTab *axisTab = tab(axisId);
    return axisTab ? axisTab->tickLabel() : TickLabelFormat();
}

void AxisSettingsPanel::setTickLabel(int axisId, const TickLabelFormat &format)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setTickLabel(format);
}

void AxisSettingsPanel::setDefaultTickLabel(int axisId, const TickLabelFormat &format)
{
    if (AxisSettingsTab *axisTab = tab(axisId))
        axisTab->setDefaultTickLabel(format);
}
