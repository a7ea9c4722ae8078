#pragma once

#include <figura/FiguraGlobal.h>

#include <qwt_scale_draw.h>

#include <QObject>
#include <QString>

class QDateTime;
class QPainter;
class QPalette;

// Tick labels of a time axis that follow the zoom: from milliseconds on a
// span of seconds to weeks on a span of months, as elapsed time or as local
// date and time. After each drawing it names the format of the labels it has
// just drawn ("hh:mm", "day hh:mm", " YYYY-MM-DD" behind clock formats ...)
// and reports a changed name through labelFormatChanged.
//
// The axis owns the draw once it is handed to QwtPlot::setAxisScaleDraw. The
// reference time belongs to the plot; the draw only reads it.
class FIGURA_AUTOTEST_EXPORT TimeScaleDraw : public QObject, public QwtScaleDraw
{
    Q_OBJECT

public:
    TimeScaleDraw();
    ~TimeScaleDraw() override;

    // Neither setter redraws; the plot does that.
    void setReferenceTime(const QDateTime *time);
    // The reference is taken only for format 2 and a non-null pointer.
    void setTimeFormat(int format, const QDateTime *reference);

    // Draws the scale, then updates the label format name from the ticks.
    void draw(QPainter *painter, const QPalette &palette) const override;

    // The label of a tick for the span of the current scale division.
    QwtText label(double value) const override;

Q_SIGNALS:
    // Emitted during draw when the name of the label format changes. A
    // connected slot runs inside the axis's paint and must not repaint.
    void labelFormatChanged(const QString &format);

protected:
    // A time format code: 1 elapsed time, 2 local date and time.
    int timeFormat = 1;
    // The date and time of axis value 0; null at construction.
    const QDateTime *referenceTime = nullptr;
    // The format name last reported. Held by pointer because it changes in
    // the const draw.
    QString *labelFormat = nullptr;

private:
    QString elapsedTimeText(double value) const;
    QString localTimeText(double value) const;
    void updateLabelFormat() const;
};
