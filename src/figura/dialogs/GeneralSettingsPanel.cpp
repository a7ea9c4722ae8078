#include <figura/dialogs/GeneralSettingsPanel.h>

#include "ui_GeneralSettingsPanel.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/DoubleValidator.h>
#include <figura/dialogs/GuiHelper.h>
#include <figura/plots/VoidPlot.h>

#include <QLocale>
#include <QVariant>

GeneralSettingsPanel::GeneralSettingsPanel(VoidPlot *plot, QWidget *parent)
    : QFrame(parent)
    , ui(std::make_unique<Ui::GeneralSettingsPanel>())
    , plot(plot)
    , defaultLineChartWidth(PlotDefault::PenSize)
    , defaultBarChartBaseline(PlotDefault::BarChartBaseline)
    , defaultTimeFormat(PlotDefault::TimeFormat)
    , baselineFallback(PlotDefault::BarChartBaseline)
    , baselineMin(PlotDefault::BarChartBaselineMin)
    , baselineMax(PlotDefault::BarChartBaselineMax)
{
    ui->setupUi(this);

    const bool dark = plot && plot->isDarkMode();
    if (plot)
        defaultPlotTitle = plot->defaultPlotTitle();
    defaultPlotTitle.setColor(dark ? PlotDefault::DarkMode::TitleTextColor
                                   : PlotDefault::TitleTextColor);
    defaultCanvasColor = dark ? PlotDefault::DarkMode::CanvasBackground
                              : PlotDefault::CanvasBackground;
    defaultMajorGridColor = dark ? PlotDefault::DarkMode::GridMajorColor
                                 : PlotDefault::GridMajorColor;
    defaultMinorGridColor = dark ? PlotDefault::DarkMode::GridMinorColor
                                 : PlotDefault::GridMinorColor;
    defaultChartColor = dark ? PlotDefault::DarkMode::CurveColor : PlotDefault::ChartColor;
    plotTitleValue = defaultPlotTitle;

    ui->chartLineWidthSpinBox->setRange(PlotDefault::MinPenSize, PlotDefault::MaxPenSize);
    ui->barChartBaseLineInfoButton->setToolTip(
        tr("The baseline value affects the direction of the bar.\r\n"
           "The bar displays upward if the data value is greater than\r\n"
           "the baseline and downward if it is less than the baseline."));
    installBaselineValidator(baselineMin, baselineMax);

    restoreDefaults();

    connect(ui->titleFontButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onTitleFontButtonClicked);
    connect(ui->titleColorToolButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onTitleColorButtonClicked);
    connect(ui->canvasColorToolButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onCanvasColorButtonClicked);
    connect(ui->majorGridColorToolButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onMajorGridColorButtonClicked);
    connect(ui->minorGridColorToolButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onMinorGridColorButtonClicked);
    connect(ui->chartColorToolButton, &QAbstractButton::clicked,
            this, &GeneralSettingsPanel::onChartColorButtonClicked);
}

GeneralSettingsPanel::~GeneralSettingsPanel() = default;

void GeneralSettingsPanel::restoreDefaults()
{
    ui->titleTextEdit->setText(defaultPlotTitle.text());
    GuiHelper::setButtonFont(ui->titleFontButton, defaultPlotTitle.font());
    GuiHelper::setButtonColor(ui->titleColorToolButton, defaultPlotTitle.color());

    GuiHelper::setButtonColor(ui->canvasColorToolButton, defaultCanvasColor);
    GuiHelper::setButtonColor(ui->majorGridColorToolButton, defaultMajorGridColor);
    GuiHelper::setButtonColor(ui->minorGridColorToolButton, defaultMinorGridColor);
    GuiHelper::setButtonColor(ui->chartColorToolButton, defaultChartColor);

    ui->chartLineWidthSpinBox->setValue(defaultLineChartWidth);

    // The one place where the baseline is written in the user's locale with
    // two digits; barChartBaseline() reads the C form only, so a decimal
    // comma written here does not read back.
    ui->barChartBaselineEdit->setText(QLocale().toString(defaultBarChartBaseline, 'g', 2));

    ui->elapsedTimeRadioButton->setChecked(defaultTimeFormat == 1);
    ui->localTimeRadioButton->setChecked(defaultTimeFormat == 2);
}

void GeneralSettingsPanel::setPlotTitle(const QwtText &title)
{
    GuiHelper::showTitle(title, ui->titleTextEdit, ui->titleFontButton, ui->titleColorToolButton);
    plotTitleValue = title;
}

QwtText GeneralSettingsPanel::plotTitle() const
{
    return GuiHelper::editedTitle(plotTitleValue, ui->titleTextEdit, ui->titleFontButton,
                                  ui->titleColorToolButton);
}

void GeneralSettingsPanel::setDefaultPlotTitle(const QwtText &title)
{
    QwtText changed = defaultPlotTitle;
    changed.setFont(title.font());
    changed.setColor(title.color());
    if (changed != defaultPlotTitle)
        defaultPlotTitle = changed;
}

void GeneralSettingsPanel::setCanvasColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->canvasColorToolButton, color);
}

QColor GeneralSettingsPanel::canvasColor() const
{
    return GuiHelper::colorFromText(ui->canvasColorToolButton->text());
}

void GeneralSettingsPanel::setDefaultCanvasColor(const QColor &color)
{
    if (color != defaultCanvasColor)
        defaultCanvasColor = color;
}

void GeneralSettingsPanel::setMajorGridColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->majorGridColorToolButton, color);
}

QColor GeneralSettingsPanel::majorGridColor() const
{
    return GuiHelper::colorFromText(ui->majorGridColorToolButton->text());
}

void GeneralSettingsPanel::setDefaultMajorGridColor(const QColor &color)
{
    if (color != defaultMajorGridColor)
        defaultMajorGridColor = color;
}

void GeneralSettingsPanel::setMinorGridColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->minorGridColorToolButton, color);
}

QColor GeneralSettingsPanel::minorGridColor() const
{
    return GuiHelper::colorFromText(ui->minorGridColorToolButton->text());
}

void GeneralSettingsPanel::setDefaultMinorGridColor(const QColor &color)
{
    if (color != defaultMinorGridColor)
        defaultMinorGridColor = color;
}

void GeneralSettingsPanel::setChartColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->chartColorToolButton, color);
}

QColor GeneralSettingsPanel::chartColor() const
{
    return GuiHelper::colorFromText(ui->chartColorToolButton->text());
}

void GeneralSettingsPanel::setDefaultChartColor(const QColor &color)
{
    if (color != defaultChartColor)
        defaultChartColor = color;
}

void GeneralSettingsPanel::setLineChartWidth(int width)
{
    if (width != ui->chartLineWidthSpinBox->value())
        ui->chartLineWidthSpinBox->setValue(width);
}

int GeneralSettingsPanel::lineChartWidth() const
{
    return ui->chartLineWidthSpinBox->value();
}

void GeneralSettingsPanel::setDefaultLineChartWidth(int width)
{
    if (width != defaultLineChartWidth)
        defaultLineChartWidth = width;
}

void GeneralSettingsPanel::setApplyLineWidthToAll(bool on)
{
    ui->applyLineWidthToAllCheckBox->setChecked(on);
}

bool GeneralSettingsPanel::isApplyLineWidthChecked() const
{
    return ui->applyLineWidthToAllCheckBox->isChecked();
}

void GeneralSettingsPanel::setBarChartBaseline(double value)
{
    ui->barChartBaselineEdit->setText(QString::number(value, 'g', 6));
}

double GeneralSettingsPanel::barChartBaseline() const
{
    bool ok = false;
    const double value = ui->barChartBaselineEdit->text().toDouble(&ok);
    return ok ? value : baselineFallback;
}

void GeneralSettingsPanel::setDefaultBarChartBaseline(double value)
{
    if (value != defaultBarChartBaseline)
        defaultBarChartBaseline = value;
}

void GeneralSettingsPanel::setBarChartBaselineRange(double min, double max)
{
    baselineMin = min;
    baselineMax = max;
    installBaselineValidator(baselineMin, baselineMax);
}

void GeneralSettingsPanel::installBaselineValidator(double min, double max)
{
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::RejectGroupSeparator);
    // The validator that this one replaces stays a child of the panel.
    auto *validator = new DoubleValidator(this);
    validator->setRange(min, max);
    validator->setLocale(locale);
    ui->barChartBaselineEdit->setValidator(validator);
}

void GeneralSettingsPanel::setTimeFormat(int code)
{
    if (code == 2)
        ui->localTimeRadioButton->setChecked(true);
    else
        ui->elapsedTimeRadioButton->setChecked(true);
}

int GeneralSettingsPanel::timeFormat() const
{
    return ui->localTimeRadioButton->isChecked() ? 2 : 1;
}

void GeneralSettingsPanel::setDefaultTimeFormat(int code)
{
    if (code != defaultTimeFormat)
        defaultTimeFormat = code;
}

void GeneralSettingsPanel::setPlotTitleOptionsVisible(bool on)
{
    ui->plotTitleGroupBox->setVisible(on);
}

void GeneralSettingsPanel::setCanvasOptionsVisible(bool on)
{
    ui->canvasGroupBox->setVisible(on);
}

void GeneralSettingsPanel::setChartOptionsVisible(bool on)
{
    ui->chartGroupBox->setVisible(on);
}

void GeneralSettingsPanel::setChartColorVisible(bool on)
{
    ui->chartColorLabel->setVisible(on);
    ui->chartColorToolButton->setVisible(on);
}

void GeneralSettingsPanel::setLineChartWidthVisible(bool on)
{
    ui->chartLineWidthLabel->setVisible(on);
    ui->chartLineWidthSpinBox->setVisible(on);
}

void GeneralSettingsPanel::setApplyLineWidthVisible(bool on)
{
    ui->applyLineWidthToAllCheckBox->setVisible(on);
}

void GeneralSettingsPanel::setBarChartBaselineVisible(bool on)
{
    ui->barChartBaselineLabel->setVisible(on);
    ui->barChartBaselineEdit->setVisible(on);
    ui->barChartBaseLineInfoButton->setVisible(on);
}

void GeneralSettingsPanel::setTimeFormatVisible(bool on)
{
    ui->timeGroupBox->setVisible(on);
}

void GeneralSettingsPanel::onTitleFontButtonClicked()
{
    GuiHelper::chooseButtonFont(ui->titleFontButton);
}

void GeneralSettingsPanel::onTitleColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->titleColorToolButton);
}

void GeneralSettingsPanel::onCanvasColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->canvasColorToolButton);
}

void GeneralSettingsPanel::onMajorGridColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->majorGridColorToolButton);
}

void GeneralSettingsPanel::onMinorGridColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->minorGridColorToolButton);
}

void GeneralSettingsPanel::onChartColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->chartColorToolButton);
}
