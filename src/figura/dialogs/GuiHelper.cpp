#include <figura/dialogs/GuiHelper.h>

#include <QAbstractButton>
#include <QColorDialog>
#include <QFont>
#include <QFontDialog>
#include <QIcon>
#include <QLineEdit>
#include <QPixmap>
#include <QVariant>

#include <qwt_text.h>

namespace {

const char FontStringProperty[] = "fontString";

} // namespace

GuiHelper::GuiHelper(QObject *parent)
    : QObject(parent)
{
}

void GuiHelper::setButtonFont(QAbstractButton *button, const QFont &font)
{
    if (!button)
        return;
    button->setText(tr("%1 (size %2)").arg(font.family()).arg(font.pointSize()));

    // The button shows the family and style, but keeps its own size so that a
    // large title font does not blow up the form.
    QFont shown = font;
    const QFont own = button->font();
    if (own.pointSize() > 0)
        shown.setPointSize(own.pointSize());
    else if (own.pixelSize() > 0)
        shown.setPixelSize(own.pixelSize());
    button->setFont(shown);

    button->setProperty(FontStringProperty, font.toString());
}

void GuiHelper::setButtonColor(QAbstractButton *button, const QColor &color)
{
    if (!button || !color.isValid())
        return;
    button->setIcon(colorIcon(button->height(), color));
    button->setText(color.name());
}

void GuiHelper::chooseButtonFont(QAbstractButton *button)
{
    if (!button)
        return;
    QFont initial;
    const QString fontString = button->property(FontStringProperty).toString();
    if (!fontString.isEmpty())
        initial.fromString(fontString);

    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, initial, button, QString());
    if (!accepted)
        return;
    setButtonFont(button, chosen);
    button->setProperty(FontStringProperty, chosen.toString());
}

void GuiHelper::chooseButtonColor(QAbstractButton *button)
{
    if (!button)
        return;
    QColor initial = colorFromText(button->text());
    if (!initial.isValid())
        initial = Qt::white;

    const QColor chosen = QColorDialog::getColor(initial, button, QString());
    setButtonColor(button, chosen);
}

QFont GuiHelper::buttonFont(const QAbstractButton *button, const QFont &current)
{
    if (!button)
        return current;
    const QString fontString = button->property(FontStringProperty).toString();
    if (fontString.isEmpty() || fontString == current.toString())
        return current;
    QFont chosen;
    chosen.fromString(fontString);
    return chosen;
}

QColor GuiHelper::buttonColor(const QAbstractButton *button, const QColor &current)
{
    if (!button)
        return current;
    const QString name = button->text();
    if (name.isEmpty() || (current.isValid() && name == current.name()))
        return current;
    return colorFromText(name);
}

void GuiHelper::showFontAndColor(const QFont &font, const QColor &color,
                                 QAbstractButton *fontButton, QAbstractButton *colorButton)
{
    // Setting the same font again would only churn the button's look.
    if (fontButton && fontButton->property(FontStringProperty).toString() != font.toString())
        setButtonFont(fontButton, font);
    setButtonColor(colorButton, color);
}

void GuiHelper::showTitle(const QwtText &title, QLineEdit *textEdit,
                          QAbstractButton *fontButton, QAbstractButton *colorButton)
{
    // An unchanged text keeps the edit's cursor and undo history.
    if (textEdit && textEdit->text() != title.text())
        textEdit->setText(title.text());
    showFontAndColor(title.font(), title.color(), fontButton, colorButton);
}

QwtText GuiHelper::editedTitle(const QwtText &title, const QLineEdit *textEdit,
                               const QAbstractButton *fontButton,
                               const QAbstractButton *colorButton)
{
    QwtText edited = title;
    if (textEdit && textEdit->text() != title.text())
        edited.setText(textEdit->text(), QwtText::AutoText);
    // QwtText's setters also switch the title to its own font or colour, so
    // they are called only for a change.
    const QFont font = buttonFont(fontButton, title.font());
    if (font.toString() != title.font().toString())
        edited.setFont(font);
    // A title without a colour of its own keeps it while the button shows
    // the colour it is painted in.
    const QColor color = buttonColor(colorButton, title.color());
    if (color.name() != title.color().name())
        edited.setColor(color);
    return edited;
}

QIcon GuiHelper::colorIcon(int side, const QColor &color)
{
    QPixmap pixmap(qMax(side, 1), qMax(side, 1));
    pixmap.fill(color);
    return QIcon(pixmap);
}

QColor GuiHelper::colorFromText(const QString &text)
{
    return QColor::isValidColor(text) ? QColor(text) : QColor();
}
