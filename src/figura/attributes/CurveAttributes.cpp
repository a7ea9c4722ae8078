#include <figura/attributes/CurveAttributes.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/defaults/PlotDefault.h>

#include <QJsonObject>
#include <QJsonValue>

namespace KelmQtPlot {

namespace {

const QLatin1String RecordKey("curveAttrs");

enum class WriteWhen {
    NotNegative, // a negative style or width means "not chosen"
    Set          // anything but Figura::UnsetValue
};

// One row per key, in the order of writing and reading. A row holds either
// a number or a colour member.
struct Field
{
    QLatin1String key;
    qint32 CurveAttributes::*number;
    QColor CurveAttributes::*color;
    WriteWhen writeWhen;
};

const Field Fields[] = {
    {QLatin1String("lineStyle"), &CurveAttributes::lineStyle, nullptr, WriteWhen::NotNegative},
    {QLatin1String("lineWidth"), &CurveAttributes::lineWidth, nullptr, WriteWhen::NotNegative},
    {QLatin1String("lineColor"), nullptr, &CurveAttributes::lineColor, WriteWhen::Set},
    // -1 is QwtSymbol::NoSymbol, a choice of its own ("no symbols, even if
    // the plot would draw some"), so it is written like any set style.
    {QLatin1String("symbolStyle"), &CurveAttributes::symbolStyle, nullptr, WriteWhen::Set},
    {QLatin1String("symbolWidth"), &CurveAttributes::symbolWidth, nullptr, WriteWhen::NotNegative},
    // Read after "lineColor" with the same colour text: a document without
    // "symbolColor" gives the symbols the line's colour, as documents from
    // before symbol colours expect.
    {QLatin1String("symbolColor"), nullptr, &CurveAttributes::symbolColor, WriteWhen::Set},
};

bool isWritten(qint32 value, WriteWhen when)
{
    return when == WriteWhen::NotNegative ? value >= 0 : value != Figura::UnsetValue;
}

} // namespace

CurveAttributes::CurveAttributes() = default;

CurveAttributes::CurveAttributes(const CurveAttributes &other) = default;

CurveAttributes &CurveAttributes::operator=(const CurveAttributes &other)
{
    if (this != &other) {
        lineStyle = other.lineStyle;
        lineWidth = other.lineWidth;
        lineColor = other.lineColor;
        symbolStyle = other.symbolStyle;
        symbolWidth = other.symbolWidth;
        symbolColor = other.symbolColor;
    }
    return *this;
}

CurveAttributes::~CurveAttributes() = default;

bool CurveAttributes::operator==(const CurveAttributes &other) const
{
    return lineStyle == other.lineStyle && lineWidth == other.lineWidth
        && lineColor == other.lineColor && symbolStyle == other.symbolStyle
        && symbolWidth == other.symbolWidth && symbolColor == other.symbolColor;
}

bool CurveAttributes::operator!=(const CurveAttributes &other) const
{
    return !(*this == other);
}

bool CurveAttributes::isLineEmpty() const
{
    return lineStyle < 0 && lineWidth < 0 && !lineColor.isValid();
}

bool CurveAttributes::isSymbolEmpty() const
{
    return symbolStyle < 0 && symbolWidth < 0 && !symbolColor.isValid();
}

void CurveAttributes::setDefaults()
{
    lineStyle = PlotDefault::PenStyle;
    lineWidth = PlotDefault::PenSize;
    lineColor = PlotDefault::ChartColor;
    symbolStyle = PlotDefault::SymbolStyle;
    symbolWidth = PlotDefault::SymbolWidth;
    symbolColor = PlotDefault::SymbolColor;
}

void CurveAttributes::toJson(QJsonObject &json) const
{
    QJsonObject attrs;
    for (const Field &field : Fields) {
        if (field.number) {
            const qint32 value = this->*field.number;
            if (isWritten(value, field.writeWhen))
                attrs.insert(field.key, value);
        } else {
            AttributeJson::writeColor(attrs, field.key, this->*field.color);
        }
    }
    // An empty "curveAttrs" would say nothing; leave the document as it was.
    if (!attrs.isEmpty())
        json.insert(RecordKey, attrs);
}

void CurveAttributes::fromJson(const QJsonObject &json)
{
    if (!json.contains(RecordKey))
        return;
    const QJsonObject attrs = json.value(RecordKey).toObject();
    if (attrs.isEmpty())
        return;

    QString colorText; // carried from one colour row to the next, see the table
    for (const Field &field : Fields) {
        const bool present = attrs.contains(field.key);
        if (field.number) {
            // A value that is not a whole number reads as unset.
            if (present)
                this->*field.number = attrs.value(field.key).toInt(Figura::UnsetValue);
            continue;
        }
        if (present)
            colorText = attrs.value(field.key).toString();
        // Unlike the other records, a text that names no colour is taken as
        // it is: an invalid colour is this record's way of saying unset.
        if (!colorText.isEmpty())
            this->*field.color = QColor::fromString(colorText);
    }
}

} // namespace KelmQtPlot
