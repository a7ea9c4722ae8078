#include <figura/attributes/TickLabelFormat.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/defaults/PlotDefault.h>

#include <QJsonObject>
#include <QJsonValue>

namespace {

// Key suffixes; the axis prefix goes in front with nothing between them.
struct TickLabelKeys
{
    QLatin1String font;
    QLatin1String color;
    // Written unless unset or PlotDefault::AxisLabelRotation, read back
    // unchecked, and a missing key reads as unset. So a rotation of 0 returns
    // as unset: the plot then keeps the rotation its axis already has.
    QLatin1String rotation;
};

const TickLabelKeys Keys = {
    QLatin1String("TickLabelFont"),
    QLatin1String("TickLabelColor"),
    QLatin1String("TickLabelRotation"),
};

} // namespace

TickLabelFormat::TickLabelFormat()
    : font(AttributeJson::applicationLabelFont())
{
}

TickLabelFormat::TickLabelFormat(const TickLabelFormat &other) = default;

TickLabelFormat &TickLabelFormat::operator=(const TickLabelFormat &other)
{
    if (this != &other) {
        font = other.font;
        color = other.color;
        rotation = other.rotation;
    }
    return *this;
}

TickLabelFormat::~TickLabelFormat() = default;

bool TickLabelFormat::operator==(const TickLabelFormat &other) const
{
    return font == other.font && color == other.color && rotation == other.rotation;
}

bool TickLabelFormat::operator!=(const TickLabelFormat &other) const
{
    return !(*this == other);
}

bool TickLabelFormat::isRotationValid() const
{
    return rotation >= PlotDefault::AxisLabelRotationMin
        && rotation <= PlotDefault::AxisLabelRotationMax;
}

bool TickLabelFormat::isValid() const
{
    return color.isValid() && isRotationValid();
}

void TickLabelFormat::toJson(int axisId, QJsonObject &json) const
{
    const QString prefix = AttributeJson::axisKeyPrefix(axisId);
    if (prefix.isEmpty())
        return;

    AttributeJson::writeFont(json, prefix + Keys.font, font, AttributeJson::applicationLabelFont());
    AttributeJson::writeColor(json, prefix + Keys.color, color);
    if (rotation != Figura::UnsetValue && rotation != PlotDefault::AxisLabelRotation)
        json.insert(prefix + Keys.rotation, rotation);
}

void TickLabelFormat::fromJson(int axisId, const QJsonObject &json)
{
    const QString prefix = AttributeJson::axisKeyPrefix(axisId);
    if (prefix.isEmpty())
        return;

    AttributeJson::readFont(json, prefix + Keys.font, font);
    AttributeJson::readValidColor(json, prefix + Keys.color, color);
    rotation = json.value(prefix + Keys.rotation).toInt(Figura::UnsetValue);
}
