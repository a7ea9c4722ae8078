#include <figura/dialogs/GuiHelper.h>

#include <QAbstractButton>
#include <QColorDialog>
#include <QFont>
#include <QFontDialog>
#include <QIcon>
#include <QPixmap>
#include <QVariant>

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
