#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/UnsetValue.h>

#include <QColor>
#include <QFont>

class QJsonObject;

// How the tick labels of one axis are drawn: font, colour and rotation in
// degrees. A plain value record; the plot keeps one per axis and the settings
// dialog edits copies of it.
//
// The JSON keys of a record start with the name of its axis ("xBottom",
// "xTop", "yLeft", "yRight"). The writer leaves out what a fresh record
// holds, and a rotation of 0, the default of an axis; the reader keeps
// a font or colour it cannot use, but takes the rotation as it finds it, so
// a missing rotation comes back as Figura::UnsetValue.
//
// The application object must exist when a record is constructed or written,
// because the default font is the application font.
class FIGURA_EXPORT TickLabelFormat
{
public:
    TickLabelFormat();
    TickLabelFormat(const TickLabelFormat &other);
    TickLabelFormat &operator=(const TickLabelFormat &other);
    ~TickLabelFormat();

    bool operator==(const TickLabelFormat &other) const;
    bool operator!=(const TickLabelFormat &other) const;

    // PlotDefault::AxisLabelRotationMin <= rotation <= PlotDefault::AxisLabelRotationMax.
    bool isRotationValid() const;
    // A valid colour and a valid rotation; the font always counts as valid.
    bool isValid() const;

    // Both do nothing for an axisId that is not a Qwt axis.
    void toJson(int axisId, QJsonObject &json) const;
    void fromJson(int axisId, const QJsonObject &json);

    QFont font;      // the application font at PlotDefault::LabelFontSize
    QColor color;    // invalid: not set
    qint32 rotation = Figura::UnsetValue;
};
