#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QDialog>
#include <QMap>
#include <QString>

#include <memory>

class QComboBox;
class QSpinBox;
class QToolButton;

namespace Ui {
class CurveSettingDialog;
}

// The modal dialog for one curve's line and symbol, opened from the legend's
// menu. It knows nothing of curves: its owner loads six values with the two
// set...Attributes() operations, runs it and reads the values back. Styles
// are offered by name and held as Qt::PenStyle and QwtSymbol::Style values;
// a style the tables do not list leaves its combo box on the default.
//
// Colours live in their buttons, as the colour's #rrggbb name in the text,
// so alpha is not kept. The dialog has no meta-object of its own: its texts
// are translated in the context of QDialog, and it has no signals or slots.
class FIGURA_AUTOTEST_EXPORT CurveSettingDialog : public QDialog
{
public:
    explicit CurveSettingDialog(QWidget *parent = nullptr);
    ~CurveSettingDialog() override;

    // A style that is not offered leaves the combo box as it is, a width or
    // size is clamped to the spin box's range, an invalid colour is ignored.
    void setLineAttributes(int style, int width, const QColor &color);
    void setSymbolAttributes(int style, int size, const QColor &color);

    int lineStyle() const;
    int lineWidth() const;
    QColor lineColor() const;
    int symbolStyle() const;
    int symbolSize() const;
    QColor symbolColor() const;

protected:
    // Side in pixels of the colour buttons' pixmaps.
    int iconSize = 20;
    // Display text to Qt::PenStyle value.
    QMap<QString, int> lineStyles;
    // Display text to QwtSymbol::Style value.
    QMap<QString, int> symbolStyles;
    QToolButton *lineColorButton = nullptr;
    QComboBox *lineStyleCombo = nullptr;
    QSpinBox *lineWidthSpin = nullptr;
    QComboBox *symbolStyleCombo = nullptr;
    QSpinBox *symbolSizeSpin = nullptr;
    QToolButton *symbolColorButton = nullptr;

private:
    void chooseColor(QToolButton *button);

    std::unique_ptr<Ui::CurveSettingDialog> ui;
};
