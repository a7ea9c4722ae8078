#pragma once

#include <figura/FiguraGlobal.h>

class QColor;
class QFont;
class QJsonObject;
class PeakLabelFormatPrivate;

// How the text labels on data peaks are drawn: font, colour and text rotation
// in degrees. The plot keeps one for all its peak labels and hands it to the
// host through its signals; PeakLabel draws with it.
//
// A value type with deep copies: each object owns a private record of its
// own, so changing a copy never reaches the original. A fresh record has the
// application font at PlotDefault::LabelFontSize, an invalid colour and the
// rotation Figura::UnsetValue. Setters store what they get; only isValid()
// looks at the range.
//
// The JSON keys are "peakLabelFont", "peakLabelColor" and
// "peakLabelTextRotation". Unlike TickLabelFormat, a rotation of 0 is written,
// and a missing or out-of-range rotation is not read: the record keeps its own.
class FIGURA_EXPORT PeakLabelFormat
{
public:
    PeakLabelFormat();
    PeakLabelFormat(const QFont &font, const QColor &color, int textRotation);
    PeakLabelFormat(const PeakLabelFormat &other);
    PeakLabelFormat &operator=(const PeakLabelFormat &other);
    ~PeakLabelFormat();

    const QFont &font() const;
    const QColor &color() const;
    int textRotation() const;

    void setFont(const QFont &font);
    void setColor(const QColor &color);
    void setTextRotation(int textRotation);

    bool operator==(const PeakLabelFormat &other) const;
    bool operator!=(const PeakLabelFormat &other) const;

    // A valid colour and -90 <= text rotation <= 90; the font always counts as valid.
    bool isValid() const;

    void toJson(QJsonObject &json) const;
    void fromJson(const QJsonObject &json);

private:
    PeakLabelFormatPrivate *d;
};
