#include <figura/dialogs/CurveSettingDialog.h>

#include "ui_CurveSettingDialog.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/ColorUtility.h>
#include <figura/dialogs/GuiHelper.h>

#include <QColorDialog>
#include <QComboBox>
#include <QSpinBox>
#include <QStringList>
#include <QToolButton>

#include <qwt_symbol.h>

namespace {

// The default first, the other names in the map's (alphabetical) order.
void fillStyleCombo(QComboBox *combo, const QMap<QString, int> &styles, int defaultStyle)
{
    QStringList texts = styles.keys();
    const QString defaultText = styles.key(defaultStyle);
    const qsizetype index = texts.indexOf(defaultText);
    if (index > 0)
        texts.move(index, 0);
    combo->insertItems(0, texts);
    combo->setCurrentText(defaultText);
}

// Selects the name of style, if the table has one.
void showStyle(QComboBox *combo, const QMap<QString, int> &styles, int style)
{
    for (auto it = styles.constBegin(); it != styles.constEnd(); ++it) {
        if (it.value() == style) {
            combo->setCurrentText(it.key());
            return;
        }
    }
}

void showColor(QToolButton *button, int side, const QColor &color)
{
    button->setIcon(GuiHelper::colorIcon(side, color));
    button->setText(color.name());
}

} // namespace

CurveSettingDialog::CurveSettingDialog(QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::CurveSettingDialog>())
{
    // The style names are names of drawing styles, the same in every language.
    lineStyles.insert(QStringLiteral("No Line"), Qt::NoPen);
    lineStyles.insert(QStringLiteral("Solid"), Qt::SolidLine);
    lineStyles.insert(QStringLiteral("Dash"), Qt::DashLine);
    lineStyles.insert(QStringLiteral("Dot"), Qt::DotLine);
    lineStyles.insert(QStringLiteral("Dash Dot"), Qt::DashDotLine);
    lineStyles.insert(QStringLiteral("Dash Dot Dot"), Qt::DashDotDotLine);

    symbolStyles.insert(QStringLiteral("No Symbol"), QwtSymbol::NoSymbol);
    symbolStyles.insert(QStringLiteral("Circle"), QwtSymbol::Ellipse);
    symbolStyles.insert(QStringLiteral("Rectangle"), QwtSymbol::Rect);
    symbolStyles.insert(QStringLiteral("Diamond"), QwtSymbol::Diamond);
    symbolStyles.insert(QStringLiteral("Triangle"), QwtSymbol::Triangle);
    symbolStyles.insert(QStringLiteral("Cross (+)"), QwtSymbol::Cross);
    symbolStyles.insert(QStringLiteral("Diagonal Cross (x)"), QwtSymbol::XCross);

    ui->setupUi(this);
    // The form's texts are not translated by the form: they belong to the
    // context of QDialog, as the dialog has no meta-object of its own.
    setWindowTitle(QDialog::tr("Curve Settings"));
    ui->lineGroupBox->setTitle(QDialog::tr("Curve Line"));
    ui->lineStyleLabel->setText(QDialog::tr("Line Style"));
    ui->lineWidthLabel->setText(QDialog::tr("Line Width"));
    ui->lineColorLabel->setText(QDialog::tr("Line Color"));
    ui->symbolGroupBox->setTitle(QDialog::tr("Data Point Symbol"));
    ui->symbolStyleLabel->setText(QDialog::tr("Symbol Style"));
    ui->symbolSizeLabel->setText(QDialog::tr("Symbol Size"));
    ui->symbolColorLabel->setText(QDialog::tr("Symbol Color"));

    lineStyleCombo = ui->lineStyleCombo;
    fillStyleCombo(lineStyleCombo, lineStyles, PlotDefault::PenStyle);
    lineWidthSpin = ui->lineWidthSpin;
    lineWidthSpin->setRange(PlotDefault::MinPenSize, PlotDefault::MaxPenSize);
    lineWidthSpin->setValue(PlotDefault::PenSize);
    lineColorButton = ColorUtility::createColorButton(iconSize, PlotDefault::ChartColor);
    ui->lineGridLayout->addWidget(lineColorButton, 2, 1);

    symbolStyleCombo = ui->symbolStyleCombo;
    fillStyleCombo(symbolStyleCombo, symbolStyles, PlotDefault::SymbolStyle);
    symbolSizeSpin = ui->symbolSizeSpin;
    symbolSizeSpin->setRange(PlotDefault::MinSymbolWidth, PlotDefault::MaxSymbolWidth);
    symbolSizeSpin->setValue(PlotDefault::SymbolWidth);
    symbolColorButton = ColorUtility::createColorButton(iconSize, PlotDefault::SymbolColor);
    ui->symbolGridLayout->addWidget(symbolColorButton, 2, 1);

    connect(lineColorButton, &QToolButton::clicked, this, [this] { chooseColor(lineColorButton); });
    connect(symbolColorButton, &QToolButton::clicked, this, [this] { chooseColor(symbolColorButton); });
}

CurveSettingDialog::~CurveSettingDialog() = default;

void CurveSettingDialog::chooseColor(QToolButton *button)
{
    const QColor color = QColorDialog::getColor(GuiHelper::colorFromText(button->text()), this,
                                                QString(), QColorDialog::ColorDialogOptions());
    if (!color.isValid())
        return;
    showColor(button, iconSize, color);
}

void CurveSettingDialog::setLineAttributes(int style, int width, const QColor &color)
{
    showStyle(lineStyleCombo, lineStyles, style);
    lineWidthSpin->setValue(width);
    // Unlike the symbol button's, this pixmap takes the button's present
    // height rather than iconSize. The asymmetry is deliberate: keep it.
    if (color.isValid())
        showColor(lineColorButton, lineColorButton->height(), color);
}

void CurveSettingDialog::setSymbolAttributes(int style, int size, const QColor &color)
{
    showStyle(symbolStyleCombo, symbolStyles, style);
    symbolSizeSpin->setValue(size);
    if (color.isValid())
        showColor(symbolColorButton, iconSize, color);
}

int CurveSettingDialog::lineStyle() const
{
    return lineStyles.value(lineStyleCombo->currentText(), Qt::SolidLine);
}

int CurveSettingDialog::lineWidth() const
{
    return lineWidthSpin->value();
}

QColor CurveSettingDialog::lineColor() const
{
    return GuiHelper::colorFromText(lineColorButton->text());
}

int CurveSettingDialog::symbolStyle() const
{
    return symbolStyles.value(symbolStyleCombo->currentText(), QwtSymbol::NoSymbol);
}

int CurveSettingDialog::symbolSize() const
{
    return symbolSizeSpin->value();
}

QColor CurveSettingDialog::symbolColor() const
{
    return GuiHelper::colorFromText(symbolColorButton->text());
}
