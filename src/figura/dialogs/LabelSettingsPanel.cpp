#include <figura/dialogs/LabelSettingsPanel.h>

#include "ui_LabelSettingsPanel.h"

#include <figura/attributes/PeakLabelFormat.h>
#include <figura/dialogs/GuiHelper.h>
#include <figura/plots/VoidPlot.h>

#include <QVariant>

namespace {

// The rotations a peak label can take, in degrees.
const int PeakLabelRotationMin = -90;
const int PeakLabelRotationMax = 90;

// Font and colour from a font button and a colour button into a new text.
QwtText fontColorText(const QAbstractButton *fontButton, const QAbstractButton *colorButton)
{
    QwtText text;
    text.setFont(GuiHelper::buttonFont(fontButton, text.font()));
    const QColor color = GuiHelper::buttonColor(colorButton, QColor());
    if (color.isValid())
        text.setColor(color);
    return text;
}

// The key of the first entry, in key order, whose text is the given one; 0
// when none is.
template <class Key>
int keyOfText(const QMap<Key, QString> &table, const QString &text)
{
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (it.value() == text)
            return int(it.key());
    }
    return 0;
}

template <class Key>
bool isKey(const QMap<Key, QString> &table, int key)
{
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (int(it.key()) == key)
            return true;
    }
    return false;
}

template <class Key>
QString textOfKey(const QMap<Key, QString> &table, int key)
{
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (int(it.key()) == key)
            return it.value();
    }
    return QString();
}

// A combo box that is not editable ignores a text it does not list; an empty
// text is meant to empty the selection, so that it reads back as no key.
void setComboText(QComboBox *box, const QString &text)
{
    if (text.isEmpty())
        box->setCurrentIndex(-1);
    else
        box->setCurrentText(text);
}

} // namespace

LabelSettingsPanel::LabelSettingsPanel(VoidPlot *plot, QWidget *parent)
    : QFrame(parent)
    , ui(std::make_unique<Ui::LabelSettingsPanel>())
    , plot(plot)
    , defaultMarkerWidth(PlotDefault::MarkerWidth)
    , defaultPeakLabelRotation(PlotDefault::PeakLabelRotation)
{
    ui->setupUi(this);

    const bool dark = plot && plot->isDarkMode();
    if (plot) {
        defaultMarkerLabel = plot->defaultMarkerLabel();
        const PeakLabelFormat peakFormat = plot->defaultPeakLabelFormat();
        defaultPeakLabel.setFont(peakFormat.font());
        defaultPeakLabel.setColor(peakFormat.color());
        // An unset rotation would pull the spin box to its bottom.
        if (peakFormat.textRotation() >= PeakLabelRotationMin
            && peakFormat.textRotation() <= PeakLabelRotationMax)
            defaultPeakLabelRotation = peakFormat.textRotation();
    } else {
        defaultPeakLabel.setColor(PlotDefault::PeakLabelColor);
    }
    defaultMarkerColor = dark ? PlotDefault::DarkMode::MarkerColor : PlotDefault::MarkerColor;
    defaultMarkerLabel.setColor(dark ? PlotDefault::DarkMode::MarkerLabelColor
                                     : PlotDefault::MarkerLabelColor);
    defaultMarkerLabelBgColor = dark ? PlotDefault::DarkMode::MarkerLabelBgColor
                                     : PlotDefault::MarkerLabelBgColor;
    if (dark)
        defaultPeakLabel.setColor(PlotDefault::DarkMode::PeakLabelColor);

    ui->markerWidthSpinBox->setRange(PlotDefault::MinMarkerWidth, PlotDefault::MaxMarkerWidth);
    for (const QString &text : Figura::MarkerLabelAlignments)
        ui->markerLabelAlignmentComboBox->addItem(text);
    for (const QString &text : Figura::MarkerLabelSortOptions)
        ui->markerLabelSortComboBox->addItem(text);
    ui->peakLabelRotationSpinBox->setRange(PeakLabelRotationMin, PeakLabelRotationMax);

    restoreDefaults();

    connect(ui->markerColorToolButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onMarkerColorButtonClicked);
    connect(ui->markerLabelFontButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onMarkerLabelFontButtonClicked);
    connect(ui->markerLabelColorToolButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onMarkerLabelColorButtonClicked);
    connect(ui->markerLabelBgColorToolButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onMarkerLabelBgColorButtonClicked);
    connect(ui->peakLabelFontButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onPeakLabelFontButtonClicked);
    connect(ui->peakLabelColorToolButton, &QAbstractButton::clicked,
            this, &LabelSettingsPanel::onPeakLabelColorButtonClicked);
}

LabelSettingsPanel::~LabelSettingsPanel() = default;

void LabelSettingsPanel::restoreDefaults()
{
    ui->markerGroupBox->setChecked(defaultMarkerVisibility == 0);
    ui->markerWidthSpinBox->setValue(defaultMarkerWidth);
    GuiHelper::setButtonColor(ui->markerColorToolButton, defaultMarkerColor);

    ui->markerLabelGroupBox->setChecked(defaultMarkerLabelVisibility == 0);
    GuiHelper::setButtonFont(ui->markerLabelFontButton, defaultMarkerLabel.font());
    GuiHelper::setButtonColor(ui->markerLabelColorToolButton, defaultMarkerLabel.color());
    GuiHelper::setButtonColor(ui->markerLabelBgColorToolButton, defaultMarkerLabelBgColor);
    setComboText(ui->markerLabelAlignmentComboBox,
                 textOfKey(Figura::MarkerLabelAlignments, defaultMarkerLabelAlignment));
    setComboText(ui->markerLabelSortComboBox,
                 textOfKey(Figura::MarkerLabelSortOptions, defaultMarkerLabelSortOption));

    ui->peakLabelGroupBox->setChecked(defaultPeakLabelVisibility == 0);
    GuiHelper::setButtonFont(ui->peakLabelFontButton, defaultPeakLabel.font());
    GuiHelper::setButtonColor(ui->peakLabelColorToolButton, defaultPeakLabel.color());
    ui->peakLabelRotationSpinBox->setValue(defaultPeakLabelRotation);
}

void LabelSettingsPanel::setMarkerVisible(bool on)
{
    ui->markerGroupBox->setChecked(on);
}

bool LabelSettingsPanel::isMarkerVisible() const
{
    return ui->markerGroupBox->isChecked();
}

void LabelSettingsPanel::setMarkerVisibility(int visibility)
{
    ui->markerGroupBox->setChecked(visibility == 0);
}

int LabelSettingsPanel::markerVisibility() const
{
    return ui->markerGroupBox->isChecked() ? 0 : 1;
}

void LabelSettingsPanel::setDefaultMarkerVisibility(int visibility)
{
    if (visibility != defaultMarkerVisibility)
        defaultMarkerVisibility = visibility;
}

void LabelSettingsPanel::setMarkerWidth(int width)
{
    ui->markerWidthSpinBox->setValue(width);
}

int LabelSettingsPanel::markerWidth() const
{
    return ui->markerWidthSpinBox->value();
}

void LabelSettingsPanel::setDefaultMarkerWidth(int width)
{
    if (width != defaultMarkerWidth)
        defaultMarkerWidth = width;
}

void LabelSettingsPanel::setMarkerColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->markerColorToolButton, color);
}

QColor LabelSettingsPanel::markerColor() const
{
    return GuiHelper::colorFromText(ui->markerColorToolButton->text());
}

void LabelSettingsPanel::setDefaultMarkerColor(const QColor &color)
{
    if (color != defaultMarkerColor)
        defaultMarkerColor = color;
}

void LabelSettingsPanel::setMarkerLabelVisible(bool on)
{
    ui->markerLabelGroupBox->setChecked(on);
}

bool LabelSettingsPanel::isMarkerLabelVisible() const
{
    return ui->markerLabelGroupBox->isChecked();
}

void LabelSettingsPanel::setMarkerLabelVisibility(int visibility)
{
    ui->markerLabelGroupBox->setChecked(visibility == 0);
}

int LabelSettingsPanel::markerLabelVisibility() const
{
    return ui->markerLabelGroupBox->isChecked() ? 0 : 1;
}

void LabelSettingsPanel::setDefaultMarkerLabelVisibility(int visibility)
{
    if (visibility != defaultMarkerLabelVisibility)
        defaultMarkerLabelVisibility = visibility;
}

void LabelSettingsPanel::setMarkerLabel(const QwtText &label)
{
    GuiHelper::showFontAndColor(label.font(), label.color(), ui->markerLabelFontButton,
                                ui->markerLabelColorToolButton);
}

QwtText LabelSettingsPanel::markerLabel() const
{
    return fontColorText(ui->markerLabelFontButton, ui->markerLabelColorToolButton);
}

void LabelSettingsPanel::setDefaultMarkerLabel(const QwtText &label)
{
    if (label != defaultMarkerLabel)
        defaultMarkerLabel = label;
}

void LabelSettingsPanel::setMarkerLabelBgColor(const QColor &color)
{
    GuiHelper::setButtonColor(ui->markerLabelBgColorToolButton, color);
}

QColor LabelSettingsPanel::markerLabelBgColor() const
{
    return GuiHelper::colorFromText(ui->markerLabelBgColorToolButton->text());
}

void LabelSettingsPanel::setDefaultMarkerLabelBgColor(const QColor &color)
{
    if (color != defaultMarkerLabelBgColor)
        defaultMarkerLabelBgColor = color;
}

void LabelSettingsPanel::setMarkerLabelAlignment(Qt::AlignmentFlag alignment)
{
    if (isKey(Figura::MarkerLabelAlignments, alignment))
        ui->markerLabelAlignmentComboBox->setCurrentText(
            textOfKey(Figura::MarkerLabelAlignments, alignment));
}

Qt::AlignmentFlag LabelSettingsPanel::markerLabelAlignment() const
{
    return static_cast<Qt::AlignmentFlag>(
        keyOfText(Figura::MarkerLabelAlignments, ui->markerLabelAlignmentComboBox->currentText()));
}

void LabelSettingsPanel::setDefaultMarkerLabelAlignment(int alignment)
{
    if (isKey(Figura::MarkerLabelAlignments, alignment) && alignment != defaultMarkerLabelAlignment)
        defaultMarkerLabelAlignment = alignment;
}

void LabelSettingsPanel::setMarkerLabelSortOption(Figura::MarkerLabelSortOption option)
{
    if (isKey(Figura::MarkerLabelSortOptions, option))
        ui->markerLabelSortComboBox->setCurrentText(
            textOfKey(Figura::MarkerLabelSortOptions, option));
}

Figura::MarkerLabelSortOption LabelSettingsPanel::markerLabelSortOption() const
{
    return static_cast<Figura::MarkerLabelSortOption>(
        keyOfText(Figura::MarkerLabelSortOptions, ui->markerLabelSortComboBox->currentText()));
}

void LabelSettingsPanel::setDefaultMarkerLabelSortOption(int option)
{
    if (isKey(Figura::MarkerLabelSortOptions, option) && option != defaultMarkerLabelSortOption)
        defaultMarkerLabelSortOption = option;
}

void LabelSettingsPanel::setPeakLabelVisible(bool on)
{
    ui->peakLabelGroupBox->setChecked(on);
}

bool LabelSettingsPanel::isPeakLabelVisible() const
{
    return ui->peakLabelGroupBox->isChecked();
}

void LabelSettingsPanel::setPeakLabelVisibility(int visibility)
{
    ui->peakLabelGroupBox->setChecked(visibility == 0);
}

int LabelSettingsPanel::peakLabelVisibility() const
{
    return ui->peakLabelGroupBox->isChecked() ? 0 : 1;
}

void LabelSettingsPanel::setDefaultPeakLabelVisibility(int visibility)
{
    if (visibility != defaultPeakLabelVisibility)
        defaultPeakLabelVisibility = visibility;
}

void LabelSettingsPanel::setPeakLabel(const QwtText &label)
{
    GuiHelper::showFontAndColor(label.font(), label.color(), ui->peakLabelFontButton,
                                ui->peakLabelColorToolButton);
}

QwtText LabelSettingsPanel::peakLabel() const
{
    return fontColorText(ui->peakLabelFontButton, ui->peakLabelColorToolButton);
}

void LabelSettingsPanel::setDefaultPeakLabel(const QwtText &label)
{
    if (label != defaultPeakLabel)
        defaultPeakLabel = label;
}

void LabelSettingsPanel::setPeakLabelRotation(int rotation)
{
    if (rotation < PeakLabelRotationMin || rotation > PeakLabelRotationMax)
        return;
    if (rotation != ui->peakLabelRotationSpinBox->value())
        ui->peakLabelRotationSpinBox->setValue(rotation);
}

int LabelSettingsPanel::peakLabelRotation() const
{
    return ui->peakLabelRotationSpinBox->value();
}

void LabelSettingsPanel::setDefaultPeakLabelRotation(int rotation)
{
    if (rotation < PeakLabelRotationMin || rotation > PeakLabelRotationMax)
        return;
    if (rotation != defaultPeakLabelRotation)
        defaultPeakLabelRotation = rotation;
}

void LabelSettingsPanel::setPeakLabelDescription(const QString &text)
{
    // Only ever hidden here, never shown again: a host that cleared the
    // description once keeps it away.
    if (text.isEmpty())
        ui->peakLabelDescription->hide();
    else
        ui->peakLabelDescription->setText(text);
}

void LabelSettingsPanel::setPeakLabelGroupName(const QString &text)
{
    ui->peakLabelGroupBox->setTitle(text);
}

void LabelSettingsPanel::setMarkerOptionsVisible(bool on)
{
    ui->markerGroupBox->setVisible(on);
}

void LabelSettingsPanel::setMarkerLabelOptionsVisible(bool on)
{
    ui->markerLabelGroupBox->setVisible(on);
}

void LabelSettingsPanel::setMarkerLabelSortOptionVisible(bool on)
{
    ui->markerLabelSortLabel->setVisible(on);
    ui->markerLabelSortComboBox->setVisible(on);
}

void LabelSettingsPanel::setPeakLabelOptionsVisible(bool on)
{
    ui->peakLabelGroupBox->setVisible(on);
}

void LabelSettingsPanel::onMarkerColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->markerColorToolButton);
}

void LabelSettingsPanel::onMarkerLabelFontButtonClicked()
{
    GuiHelper::chooseButtonFont(ui->markerLabelFontButton);
}

void LabelSettingsPanel::onMarkerLabelColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->markerLabelColorToolButton);
}

void LabelSettingsPanel::onMarkerLabelBgColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->markerLabelBgColorToolButton);
}

void LabelSettingsPanel::onPeakLabelFontButtonClicked()
{
    GuiHelper::chooseButtonFont(ui->peakLabelFontButton);
}

void LabelSettingsPanel::onPeakLabelColorButtonClicked()
{
    GuiHelper::chooseButtonColor(ui->peakLabelColorToolButton);
}
