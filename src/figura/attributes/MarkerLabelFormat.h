#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QFont>

class QJsonObject;

namespace KelmQtPlot {

// How the read-out labels of markers are drawn and how their lines are
// sorted. A member of PlotAttributes, whose document it writes into flat
// ("markerLabelFont", "markerLabelColor", "markerLabelBgColor",
// "markerLabelAlignment", "markerLabelSortOption").
//
// The reader keeps a font or colour it cannot use but resets alignment and
// sort option when their keys are missing. It also understands the older key
// "markerSortingOption", which wins over the newer one.
class FIGURA_EXPORT MarkerLabelFormat
{
public:
    MarkerLabelFormat();
    MarkerLabelFormat(const MarkerLabelFormat &other);
    MarkerLabelFormat &operator=(const MarkerLabelFormat &other);
    ~MarkerLabelFormat();

    bool operator==(const MarkerLabelFormat &other) const;
    bool operator!=(const MarkerLabelFormat &other) const;

    void toJson(QJsonObject &json) const;
    void fromJson(const QJsonObject &json);

    QFont font;           // a default QFont at PlotDefault::LabelFontSize
    QColor color;         // text; invalid: not set
    QColor bgColor;       // background; invalid: not set
    qint32 alignment = 0; // a Qt::AlignmentFlag of Figura::MarkerLabelAlignments; 0: not set
    qint32 sortOption = -1; // a Figura::MarkerLabelSortOption; -1: not set
};

} // namespace KelmQtPlot
