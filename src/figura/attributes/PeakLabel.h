#pragma once

#include <figura/FiguraGlobal.h>

#include <QPointF>
#include <QString>
#include <QVariant>

#include <qwt_plot_item.h>

class QColor;
class QFont;
class QPen;
class PeakLabelFormat;
class PeakLabelPrivate;

// A short text at a data point, such as the name of a peak in a spectrum,
// drawn slanted (by default at -45 degrees) so that it stands above the point.
// The host creates labels, attaches them to a plot, which then owns them as
// it owns every attached item, and finds them again by rtti(). The label
// takes no part in autoscaling and keeps any number of the host's own values
// under integer keys.
//
// Setters that change what is drawn end in itemChanged(); the plot redraws
// at its next replot.
class FIGURA_EXPORT PeakLabel : public QwtPlotItem
{
public:
    // rtti() of every peak label, in the user range of QwtPlotItem.
    static constexpr int Rtti_PeakLabel = QwtPlotItem::Rtti_PlotUserItem + 100;

    // The application font at PlotDefault::LabelFontSize, the colour
    // PlotDefault::PeakLabelColor and the rotation PlotDefault::PeakLabelRotation.
    explicit PeakLabel(const QString &text = QString());
    PeakLabel(const QString &text, const PeakLabelFormat &format);
    // The rotation is cut to whole degrees.
    PeakLabel(const QString &text, const QFont &font, const QColor &color, double rotation);
    // Copies what the label shows and its user data, not what belongs to the
    // plot item: the copy is not attached and has the z value of a new label.
    PeakLabel(const PeakLabel &other);
    ~PeakLabel() override;

    PeakLabel &operator=(const PeakLabel &) = delete;

    // Rtti_PeakLabel, 1100.
    int rtti() const override;

    const QColor &color() const;
    const QFont &font() const;
    const PeakLabelFormat &format() const;
    const QPen &pen() const;
    QString text() const;
    double textRotation() const;
    QPointF value() const;
    double xValue() const;
    double yValue() const;
    // A null QVariant for a key that was never set.
    QVariant userData(int key) const;

    // Replaces the whole pen by a plain pen of that colour.
    void setColor(const QColor &color);
    void setFont(const QFont &font);
    // Takes font, colour and rotation; the pen keeps its width and style.
    void setFormat(const PeakLabelFormat &format);
    // The pen of the text; the format's colour stays as it was.
    void setPen(const QPen &pen);
    void setText(const QString &text);
    // Stored cut to whole degrees; NaN is ignored.
    void setTextRotation(double rotation);
    void setValue(const QPointF &value);
    void setValue(double x, double y);
    // User data is not drawn, so this does not call itemChanged().
    void setUserData(int key, const QVariant &value);

    // Draws the text rotated about the mapped point, above it: a negative
    // rotation starts at the point, a positive one ends there, and plus or
    // minus 90 degrees centre the text on the point's vertical line. No
    // clipping of its own; a null or inactive painter is logged and ignored.
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
              const QRectF &canvasRect) const override;

private:
    PeakLabelPrivate *d;
};
