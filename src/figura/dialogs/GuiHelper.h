#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QObject>

class QAbstractButton;
class QFont;
class QIcon;
class QLineEdit;
class QwtText;

// Font and colour buttons of the settings panels keep their value in
// themselves, where it can be seen and read back: a colour button shows a
// square of the colour and has the colour's name as its text; a font button
// shows the family in its own size and holds QFont::toString() of the chosen
// font in the dynamic property "fontString". Everything is static and does
// nothing for a null button.
class FIGURA_AUTOTEST_EXPORT GuiHelper : public QObject
{
    Q_OBJECT

public:
    explicit GuiHelper(QObject *parent = nullptr);

    static void setButtonFont(QAbstractButton *button, const QFont &font);
    static void setButtonColor(QAbstractButton *button, const QColor &color);

    // Open the font or colour dialog on the button's value and keep what the
    // user accepts; a cancelled dialog leaves the button as it was.
    static void chooseButtonFont(QAbstractButton *button);
    static void chooseButtonColor(QAbstractButton *button);

    // What a font button holds; current when it holds nothing or a font that
    // reads the same, so that what QFont::toString() leaves out is kept.
    static QFont buttonFont(const QAbstractButton *button, const QFont &current);
    // The colour a colour button names; current when it names none or the
    // name of a valid current, so that an alpha the name leaves out is kept.
    static QColor buttonColor(const QAbstractButton *button, const QColor &current);

    // A font and colour on a font button and a colour button; an invalid
    // colour leaves the colour button as it is.
    static void showFontAndColor(const QFont &font, const QColor &color,
                                 QAbstractButton *fontButton, QAbstractButton *colorButton);

    // A title on its line edit, font button and colour button, and back: the
    // title read back keeps what the controls do not show (render flags,
    // background, text format) unless its text was edited.
    static void showTitle(const QwtText &title, QLineEdit *textEdit,
                          QAbstractButton *fontButton, QAbstractButton *colorButton);
    static QwtText editedTitle(const QwtText &title, const QLineEdit *textEdit,
                               const QAbstractButton *fontButton,
                               const QAbstractButton *colorButton);

    // A side x side icon filled with the colour.
    static QIcon colorIcon(int side, const QColor &color);
    // The colour a text names, or an invalid colour; unlike QColor(QString)
    // it stays quiet about texts that name no colour.
    static QColor colorFromText(const QString &text);
};
