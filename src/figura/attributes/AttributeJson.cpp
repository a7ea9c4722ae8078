#include <figura/attributes/AttributeJson.h>

#include <figura/defaults/PlotDefault.h>

#include <QApplication>
#include <QJsonValue>

namespace AttributeJson {

QString axisKeyPrefix(int axisId)
{
    // The numbers are QwtPlot::Axis values; written out so that this file
    // need not pull in the plot header.
    switch (axisId) {
    case 0:
        return QStringLiteral("yLeft");
    case 1:
        return QStringLiteral("yRight");
    case 2:
        return QStringLiteral("xBottom");
    case 3:
        return QStringLiteral("xTop");
    default:
        return QString();
    }
}

QFont applicationLabelFont()
{
    QFont font = QApplication::font();
    font.setPointSize(PlotDefault::LabelFontSize);
    return font;
}

QString fontText(const QFont &font)
{
    return font.toString();
}

QString colorText(const QColor &color)
{
    return color.name(QColor::HexRgb);
}

void writeFont(QJsonObject &json, const QString &key, const QFont &font, const QFont &unchanged)
{
    if (font != unchanged)
        json.insert(key, fontText(font));
}

void writeColor(QJsonObject &json, const QString &key, const QColor &color)
{
    if (color.isValid())
        json.insert(key, colorText(color));
}

void readFont(const QJsonObject &json, const QString &key, QFont &font)
{
    const QString text = json.value(key).toString();
    if (text.isEmpty())
        return;
    QFont read;
    read.fromString(text);
    if (read != font)
        font = read;
}

void readValidColor(const QJsonObject &json, const QString &key, QColor &color)
{
    const QString text = json.value(key).toString();
    if (text.isEmpty())
        return;
    const QColor read = QColor::fromString(text);
    if (read.isValid() && read != color)
        color = read;
}

} // namespace AttributeJson
