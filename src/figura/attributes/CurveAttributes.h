#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/UnsetValue.h>

#include <QColor>

class QJsonObject;

namespace KelmQtPlot {

// How one curve is drawn: style, width and colour of its line and of its
// symbols. Every member may stay unset (Figura::UnsetValue for the numbers,
// an invalid colour), and the writer leaves unset members out. The host
// stores the JSON where it likes; CurvePlot::createSymbol reads the symbol
// half.
//
// The JSON is one nested object under "curveAttrs", written only when it
// holds at least one key.
class FIGURA_EXPORT CurveAttributes
{
public:
    CurveAttributes();
    CurveAttributes(const CurveAttributes &other);
    CurveAttributes &operator=(const CurveAttributes &other);
    ~CurveAttributes();

    bool operator==(const CurveAttributes &other) const;
    bool operator!=(const CurveAttributes &other) const;

    // No style, no width (both negative) and no colour.
    bool isLineEmpty() const;
    // No style, no width (both negative) and no colour. A style of -1,
    // QwtSymbol::NoSymbol, counts as empty here although toJson writes it.
    bool isSymbolEmpty() const;

    // The library's defaults: solid line of PlotDefault::PenSize in
    // PlotDefault::ChartColor, no symbols.
    void setDefaults();

    void toJson(QJsonObject &json) const;
    void fromJson(const QJsonObject &json);

    qint32 lineStyle = Figura::UnsetValue;    // a Qt::PenStyle value
    qint32 lineWidth = Figura::UnsetValue;    // pixels
    QColor lineColor;
    qint32 symbolStyle = Figura::UnsetValue;  // a QwtSymbol::Style value
    qint32 symbolWidth = Figura::UnsetValue;  // pixels
    QColor symbolColor;
};

} // namespace KelmQtPlot
