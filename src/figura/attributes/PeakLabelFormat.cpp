#include <figura/attributes/PeakLabelFormat.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/attributes/UnsetValue.h>

#include <QColor>
#include <QFont>
#include <QJsonObject>
#include <QJsonValue>

// Lives in this file only and is not exported: hosts see one pointer, so the
// record can grow without breaking them.
class PeakLabelFormatPrivate
{
public:
    QFont font = AttributeJson::applicationLabelFont();
    QColor color;
    int textRotation = Figura::UnsetValue;
};

namespace {

// The range is the peak label's own; it happens to match the axis labels'
// but does not follow PlotDefault.
constexpr int MinTextRotation = -90;
constexpr int MaxTextRotation = 90;

bool isTextRotationInRange(int rotation)
{
    return rotation >= MinTextRotation && rotation <= MaxTextRotation;
}

struct PeakLabelKeys
{
    QLatin1String font;
    QLatin1String color;
    // Written whenever set, 0 and out-of-range values too. Read only when in
    // range and otherwise ignored, missing key included: peak labels always
    // have some angle, so a document without one keeps the angle in force.
    QLatin1String textRotation;
};

const PeakLabelKeys Keys = {
    QLatin1String("peakLabelFont"),
    QLatin1String("peakLabelColor"),
    QLatin1String("peakLabelTextRotation"),
};

} // namespace

PeakLabelFormat::PeakLabelFormat()
    : d(new PeakLabelFormatPrivate)
{
}

PeakLabelFormat::PeakLabelFormat(const QFont &font, const QColor &color, int textRotation)
    : d(new PeakLabelFormatPrivate)
{
    d->font = font;
    d->color = color;
    d->textRotation = textRotation;
}

PeakLabelFormat::PeakLabelFormat(const PeakLabelFormat &other)
    : d(new PeakLabelFormatPrivate)
{
    *d = *other.d;
}

PeakLabelFormat &PeakLabelFormat::operator=(const PeakLabelFormat &other)
{
    if (this != &other)
        *d = *other.d;
    return *this;
}

PeakLabelFormat::~PeakLabelFormat()
{
    delete d;
}

const QFont &PeakLabelFormat::font() const
{
    return d->font;
}

const QColor &PeakLabelFormat::color() const
{
    return d->color;
}

int PeakLabelFormat::textRotation() const
{
    return d->textRotation;
}

void PeakLabelFormat::setFont(const QFont &font)
{
    d->font = font;
}

void PeakLabelFormat::setColor(const QColor &color)
{
    d->color = color;
}

void PeakLabelFormat::setTextRotation(int textRotation)
{
    d->textRotation = textRotation;
}

bool PeakLabelFormat::operator==(const PeakLabelFormat &other) const
{
    return d->font == other.d->font && d->color == other.d->color
        && d->textRotation == other.d->textRotation;
}

bool PeakLabelFormat::operator!=(const PeakLabelFormat &other) const
{
    return !(*this == other);
}

bool PeakLabelFormat::isValid() const
{
    return d->color.isValid() && isTextRotationInRange(d->textRotation);
}

void PeakLabelFormat::toJson(QJsonObject &json) const
{
    AttributeJson::writeFont(json, Keys.font, d->font, AttributeJson::applicationLabelFont());
    AttributeJson::writeColor(json, Keys.color, d->color);
    if (d->textRotation != Figura::UnsetValue)
        json.insert(Keys.textRotation, d->textRotation);
}

void PeakLabelFormat::fromJson(const QJsonObject &json)
{
    AttributeJson::readFont(json, Keys.font, d->font);
    AttributeJson::readValidColor(json, Keys.color, d->color);
    const int rotation = json.value(Keys.textRotation).toInt(Figura::UnsetValue);
    if (isTextRotationInRange(rotation) && rotation != d->textRotation)
        d->textRotation = rotation;
}
