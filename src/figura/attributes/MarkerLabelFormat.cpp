#include <figura/attributes/MarkerLabelFormat.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/defaults/PlotDefault.h>

#include <QJsonObject>
#include <QJsonValue>

namespace KelmQtPlot {

namespace {

QFont defaultMarkerLabelFont()
{
    QFont font;
    font.setPointSize(PlotDefault::LabelFontSize);
    return font;
}

// The two numbers are written when above their unset value and read without
// condition, so a document without them resets them to unset.
constexpr qint32 UnsetAlignment = 0;
constexpr qint32 UnsetSortOption = -1;

struct MarkerLabelKeys
{
    QLatin1String font;
    QLatin1String color;
    QLatin1String bgColor;
    QLatin1String alignment;
    QLatin1String sortOption;
    // Read only, never written. Where both spellings stand, the older one
    // wins (the plot title's pair does the opposite); stored documents rely
    // on each rule as it is.
    QLatin1String olderSortOption;
};

const MarkerLabelKeys Keys = {
    QLatin1String("markerLabelFont"),
    QLatin1String("markerLabelColor"),
    QLatin1String("markerLabelBgColor"),
    QLatin1String("markerLabelAlignment"),
    QLatin1String("markerLabelSortOption"),
    QLatin1String("markerSortingOption"),
};

} // namespace

MarkerLabelFormat::MarkerLabelFormat()
    : font(defaultMarkerLabelFont())
{
}

MarkerLabelFormat::MarkerLabelFormat(const MarkerLabelFormat &other) = default;

MarkerLabelFormat &MarkerLabelFormat::operator=(const MarkerLabelFormat &other)
{
    if (this != &other) {
        font = other.font;
        color = other.color;
        bgColor = other.bgColor;
        alignment = other.alignment;
        sortOption = other.sortOption;
    }
    return *this;
}

MarkerLabelFormat::~MarkerLabelFormat() = default;

bool MarkerLabelFormat::operator==(const MarkerLabelFormat &other) const
{
    return font == other.font && color == other.color && bgColor == other.bgColor
        && alignment == other.alignment && sortOption == other.sortOption;
}

bool MarkerLabelFormat::operator!=(const MarkerLabelFormat &other) const
{
    return !(*this == other);
}

void MarkerLabelFormat::toJson(QJsonObject &json) const
{
    AttributeJson::writeFont(json, Keys.font, font, defaultMarkerLabelFont());
    AttributeJson::writeColor(json, Keys.color, color);
    AttributeJson::writeColor(json, Keys.bgColor, bgColor);
    if (alignment > UnsetAlignment)
        json.insert(Keys.alignment, alignment);
    if (sortOption > UnsetSortOption)
        json.insert(Keys.sortOption, sortOption);
}

void MarkerLabelFormat::fromJson(const QJsonObject &json)
{
    AttributeJson::readFont(json, Keys.font, font);
    AttributeJson::readValidColor(json, Keys.color, color);
    AttributeJson::readValidColor(json, Keys.bgColor, bgColor);
    alignment = json.value(Keys.alignment).toInt(UnsetAlignment);
    const QLatin1String sortKey =
        json.contains(Keys.olderSortOption) ? Keys.olderSortOption : Keys.sortOption;
    sortOption = json.value(sortKey).toInt(UnsetSortOption);
}

} // namespace KelmQtPlot
