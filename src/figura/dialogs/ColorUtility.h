#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QObject>
#include <QString>

class QToolButton;

// Colour arithmetic for hosts that derive label and highlight colours from a
// chart colour, and a ready-made colour button. Everything is static; the
// class holds no data.
class FIGURA_EXPORT ColorUtility : public QObject
{
    Q_OBJECT

public:
    explicit ColorUtility(QObject *parent = nullptr);

    // A new parentless tool button showing a size x size square of the colour
    // beside the colour's name. The caller owns it.
    static QToolButton *createColorButton(int size, const QColor &color);

    // A colour that stands out against the given one: the hue turned on by 37,
    // with a fixed lightness. An invalid colour gives an invalid colour, and an
    // unreadable name an empty string.
    static QColor getComplementColor(const QColor &color);
    static QString getComplementColor(const QString &colorName);

    // The colour moved half way to white, with a quarter less saturation.
    static QColor getLighterColor(const QColor &color);
    // The colour moved almost all the way to white, with little saturation left.
    static QColor getWashedOutColor(const QColor &color);

    // One of twelve fixed colours, cycling with the index; a negative index
    // that is not a multiple of 12 gives an invalid colour.
    static QColor getPresetComplementColor(int index);
};
