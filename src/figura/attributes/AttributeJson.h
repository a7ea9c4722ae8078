#pragma once

#include <QColor>
#include <QFont>
#include <QJsonObject>
#include <QLatin1String>
#include <QString>

// Encoding shared by the attribute records: fonts stand in JSON as
// QFont::toString(), colours as "#rrggbb" (alpha is dropped on purpose, so
// documents stay readable and comparable), numbers as JSON numbers.
namespace AttributeJson {

// The text that starts every key of one axis: "xBottom", "xTop", "yLeft",
// "yRight"; empty for anything that is not a Qwt axis.
QString axisKeyPrefix(int axisId);

// The application font at the label size: the font a tick or peak label has
// before anybody changes it.
QFont applicationLabelFont();

QString fontText(const QFont &font);
QString colorText(const QColor &color);

// Writes the font unless it equals the one a fresh record holds.
void writeFont(QJsonObject &json, const QString &key, const QFont &font, const QFont &unchanged);

// Writes the colour if it is valid.
void writeColor(QJsonObject &json, const QString &key, const QColor &color);

// Reads a font text; an empty or missing text keeps `font`. A text that
// QFont::fromString refuses still yields the default font, which is assigned
// like any other: readers accept what the font parser makes of it.
void readFont(const QJsonObject &json, const QString &key, QFont &font);

// Reads a colour text; a missing, empty or unparsable text keeps `color`.
void readValidColor(const QJsonObject &json, const QString &key, QColor &color);

} // namespace AttributeJson
