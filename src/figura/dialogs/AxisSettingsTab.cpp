#include <figura/dialogs/AxisSettingsTab.h>

#include "ui_AxisSettingsTab.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/GuiHelper.h>
#include <figura/plots/VoidPlot.h>

#include <QVariant>

AxisSettingsTab::AxisSettingsTab(int axisId, VoidPlot *plot, QWidget *parent)
    : QFrame(parent)
    , ui(std::make_unique<Ui::AxisSettingsTab>())
    , axisId(axisId)
    , plot(plot)
{
    ui->setupUi(this);

    // Without a plot the title stays empty and the format a fresh record, but
    // both still get the colours of the light palette, as on the other pages,
    // so that no colour button is left showing the form's white.
    const bool dark = plot && plot->isDarkMode();
    if (plot) {
        defaultAxisTitle = plot->defaultAxisTitle(axisId);
        defaultTickLabel = plot->defaultTickLabel(axisId);
    }
    defaultAxisTitle.setColor(dark ? PlotDefault::DarkMode::TitleTextColor
                                   : PlotDefault::TitleTextColor);
    defaultTickLabel.color = dark ? PlotDefault::DarkMode::AxisLabelColor
                                  : PlotDefault::AxisLabelColor;
    axisTitleValue = defaultAxisTitle;
    tickLabelValue = defaultTickLabel;

    ui->labelRotationSpinBox->setRange(PlotDefault::AxisLabelRotationMin,
                                       PlotDefault::AxisLabelRotationMax);
    restoreDefaults();

    connect(ui->titleFontButton, &QAbstractButton::clicked,
            this, &AxisSettingsTab::onTitleFontButtonClicked);
    connect(ui->titleColorToolButton, &QAbstractButton::clicked,
            this, &AxisSettingsTab::onTitleColorButtonClicked);
    connect(ui->labelFontButton, &QAbstractButton::clicked,
            this, &AxisSettingsTab::onTickLabelFontButtonClicked);
    connect(ui->labelColorToolButton, &QAbstractButton::clicked,
            this, &AxisSettingsTab::onTickLabelColorButtonClicked);
}

AxisSettingsTab::~AxisSettingsTab() = default;

void AxisSettingsTab::restoreDefaults()
{
    ui->titleTextEdit->setText(defaultAxisTitle.text());
    GuiHelper::setButtonFont(ui->titleFontButton, defaultAxisTitle.font());
    GuiHelper::setButtonColor(ui->titleColorToolButton, defaultAxisTitle.color());

    GuiHelper::setButtonFont(ui->labelFontButton, defaultTickLabel.font);
    GuiHelper::setButtonColor(ui->labelColorToolButton, defaultTickLabel.color);
    // A default record without a rotation (no plot behind the tab) means the
    // axis default, not the bottom of the spin box's range.
    ui->labelRotationSpinBox->setValue(defaultTickLabel.isRotationValid()
                                           ? defaultTickLabel.rotation
                                           : PlotDefault::AxisLabelRotation);

    if (defaultAxisScale == 1)
        ui->logRadioButton->setChecked(true);
    else if (defaultAxisScale == 0)
        ui->linearRadioButton->setChecked(true);
}

void AxisSettingsTab::setAxisScale(int scale)
{
    const bool log = scale == 1;
    // The checked one goes first: an exclusive radio button cannot be
    // unchecked while it is the checked one of its group.
    if (log) {
        ui->logRadioButton->setChecked(true);
        ui->linearRadioButton->setChecked(false);
    } else {
        ui->linearRadioButton->setChecked(true);
        ui->logRadioButton->setChecked(false);
    }
}

int AxisSettingsTab::axisScale() const
{
    return ui->logRadioButton->isChecked() ? 1 : 0;
}

void AxisSettingsTab::setDefaultAxisScale(int scale)
{
    if (scale != defaultAxisScale)
        defaultAxisScale = scale;
}

void AxisSettingsTab::setAxisScaleEnabled(bool on)
{
    ui->scaleGroupBox->setEnabled(on);
}

void AxisSettingsTab::setAxisScaleVisible(bool on)
{
    ui->scaleGroupBox->setVisible(on);
}

void AxisSettingsTab::setAxisTitle(const QwtText &title)
{
    GuiHelper::showTitle(title, ui->titleTextEdit, ui->titleFontButton, ui->titleColorToolButton);
    axisTitleValue = title;
}

QwtText AxisSettingsTab::axisTitle() const
{
    return GuiHelper::editedTitle(axisTitleValue, ui->titleTextEdit, ui->titleFontButton,
                                  ui->titleColorToolButton);
}

void AxisSettingsTab::setDefaultAxisTitle(const QwtText &title)
{
    QwtText changed = defaultAxisTitle;
    changed.setFont(title.font());
    changed.setColor(title.color());
    if (changed != defaultAxisTitle)
        defaultAxisTitle = changed;
}

void AxisSettingsTab::setTickLabel(const TickLabelFormat &format)
{
    GuiHelper::showFontAndColor(format.font, format.color, ui->labelFontButton,
                                ui->labelColorToolButton);
    if (format.isRotationValid())
        ui->labelRotationSpinBox->setValue(format.rotation);
    tickLabelValue = format;
}

TickLabelFormat AxisSettingsTab::tickLabel() const
{
    TickLabelFormat format = tickLabelValue;
    format.font = GuiHelper::buttonFont(ui->labelFontButton, format.font);
    format.color = GuiHelper::buttonColor(ui->labelColorToolButton, format.color);
    format.rotation = ui->labelRotationSpinBox->value();
    return format;
}

void AxisSettingsTab::setDefaultTickLabel(const TickLabelFormat &format)
{
    if (format != defaultTickLabel)
        defaultTickLabel = format;
}

void AxisSettingsTab::onTitleFontButtonClicked()
{
    GuiHelper::chooseButtonFont(ui->titleFontButton);
}

void AxisSettingsTab::onTitleColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->titleColorToolButton);
}

void AxisSettingsTab::onTickLabelFontButtonClicked()
{
    GuiHelper::chooseButtonFont(ui->labelFontButton);
}

void AxisSettingsTab::onTickLabelColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->labelColorToolButton);
}
