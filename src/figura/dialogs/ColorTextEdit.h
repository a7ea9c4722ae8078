#pragma once

#include <figura/FiguraGlobal.h>

#include <QDialog>

class QLineEdit;
class QToolButton;

// A small dialog for a host that lets the user change a text and its colour,
// say of a peak label. Run it with exec() and read text() and namedColor()
// after acceptance. The edit and the colour button are children of the dialog.
class FIGURA_EXPORT ColorTextEdit : public QDialog
{
    Q_OBJECT

public:
    ColorTextEdit(const QString &title, const QString &text, const QString &colorName,
                  QWidget *parent = nullptr);

    QString text() const;
    // The colour as its name, "#rrggbb" once the user picked one.
    QString namedColor() const;

protected:
    QLineEdit *lineEdit = nullptr;
    QToolButton *colorButton = nullptr;

private slots:
    void getColor();
};
