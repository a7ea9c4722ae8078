#include <figura/attributes/PeakLabel.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/defaults/PlotDefault.h>

#include <QDebug>
#include <QMap>
#include <QPainter>
#include <QPen>

#include <qwt_scale_map.h>
#include <qwt_text.h>

#include <cmath>
#include <limits>

class PeakLabelPrivate
{
public:
    PeakLabelFormat format{AttributeJson::applicationLabelFont(), PlotDefault::PeakLabelColor,
                           PlotDefault::PeakLabelRotation};
    QwtText text;
    QPen pen;
    // The host places the label with setValue before it is drawn; zero keeps
    // an unplaced label harmless.
    double x = 0.0;
    double y = 0.0;
    QMap<int, QVariant> userData;
};

namespace {

// Above curves (z 20) and below markers (z 30): a label never hides the
// read-out of a marker.
constexpr double PeakLabelZ = 29.0;

// Whole degrees, cut towards zero and held inside the range of int; NaN has
// no degree and gives `fallback`.
int wholeDegrees(double rotation, int fallback)
{
    if (std::isnan(rotation))
        return fallback;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::trunc(qBound(lowest, rotation, highest)));
}

} // namespace

PeakLabel::PeakLabel(const QString &text)
    : d(new PeakLabelPrivate)
{
    d->pen.setColor(d->format.color());
    // Font and colour stay off the text: draw() puts them on the painter.
    d->text.setText(text, QwtText::AutoText);
    setZ(PeakLabelZ);
}

PeakLabel::PeakLabel(const QString &text, const PeakLabelFormat &format)
    : PeakLabel(text)
{
    d->format = format;
    d->text.setFont(format.font());
    if (format.color().isValid()) {
        d->text.setColor(format.color());
        d->pen.setColor(format.color());
    }
}

PeakLabel::PeakLabel(const QString &text, const QFont &font, const QColor &color, double rotation)
    : PeakLabel(text)
{
    d->format.setFont(font);
    d->format.setColor(color);
    d->format.setTextRotation(wholeDegrees(rotation, d->format.textRotation()));
    d->text.setFont(font);
    if (color.isValid()) {
        d->text.setColor(color);
        d->pen.setColor(color);
    }
}

PeakLabel::PeakLabel(const PeakLabel &other)
    : PeakLabel(QString())
{
    d->format = other.d->format;
    d->text = other.d->text;
    d->pen = other.d->pen;
    d->x = other.d->x;
    d->y = other.d->y;
    d->userData = other.d->userData;
}

PeakLabel::~PeakLabel()
{
    delete d;
}

int PeakLabel::rtti() const
{
    return Rtti_PeakLabel;
}

const QColor &PeakLabel::color() const
{
    return d->format.color();
}

const QFont &PeakLabel::font() const
{
    return d->format.font();
}

const PeakLabelFormat &PeakLabel::format() const
{
    return d->format;
}

const QPen &PeakLabel::pen() const
{
    return d->pen;
}

QString PeakLabel::text() const
{
    return d->text.text();
}

double PeakLabel::textRotation() const
{
    return d->format.textRotation();
}

QPointF PeakLabel::value() const
{
    return QPointF(d->x, d->y);
}

double PeakLabel::xValue() const
{
    return d->x;
}

double PeakLabel::yValue() const
{
    return d->y;
}

QVariant PeakLabel::userData(int key) const
{
    return d->userData.value(key);
}

void PeakLabel::setColor(const QColor &color)
{
    if (color == d->format.color())
        return;
    d->format.setColor(color);
    d->text.setColor(color);
    const QPen pen(color);
    if (pen != d->pen) {
        d->pen = pen;
        itemChanged();
    }
    itemChanged();
}

void PeakLabel::setFont(const QFont &font)
{
    if (font == d->format.font())
        return;
    d->format.setFont(font);
    d->text.setFont(font);
    itemChanged();
}

void PeakLabel::setFormat(const PeakLabelFormat &format)
{
    if (format == d->format)
        return;
    d->format = format;
    d->pen.setColor(format.color());
    d->text.setFont(format.font());
    d->text.setColor(format.color());
    itemChanged();
}

void PeakLabel::setPen(const QPen &pen)
{
    if (pen == d->pen)
        return;
    d->pen = pen;
    itemChanged();
}

void PeakLabel::setText(const QString &text)
{
    if (text == d->text.text())
        return;
    d->text.setText(text, QwtText::AutoText);
    itemChanged();
}

void PeakLabel::setTextRotation(double rotation)
{
    // Compared before cutting: a fractional angle never equals the stored
    // whole one, so such a call always counts as a change.
    if (std::isnan(rotation) || rotation == static_cast<double>(d->format.textRotation()))
        return;
    d->format.setTextRotation(wholeDegrees(rotation, d->format.textRotation()));
    itemChanged();
}

void PeakLabel::setValue(const QPointF &value)
{
    setValue(value.x(), value.y());
}

void PeakLabel::setValue(double x, double y)
{
    if (x == d->x && y == d->y)
        return;
    d->x = x;
    d->y = y;
    itemChanged();
}

void PeakLabel::setUserData(int key, const QVariant &value)
{
    d->userData.insert(key, value);
}

void PeakLabel::draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
                     const QRectF &canvasRect) const
{
    if (!painter || !painter->paintEngine()) {
        qCritical() << "Invalid painter or paintEngine"
                    << "PeakLabel::draw" << canvasRect << xMap << yMap;
        return;
    }

    double px = xMap.transform(d->x);
    double py = yMap.transform(d->y);

    const QSizeF size = d->text.textSize(d->format.font());
    const double w = size.width();
    const double h = size.height();

    const int r = d->format.textRotation();
    painter->save();

    // Move the corner of the text box so that the rotated text stands above
    // the point: negative angles start at the point and rise to the right,
    // positive ones come down from the left and end at it, +-90 degrees stand
    // centred on the point's vertical line.
    const double a = r * 3.141592653589793 / 180.0;
    if (r == -90) {
        px -= h * 0.5;
        py -= h * 0.5;
    } else if (r == 90) {
        px += h * 0.5;
        px -= std::cos(a) * w;
        py -= h * 0.5;
        py -= std::sin(a) * w;
    } else if (r > 0) {
        px -= std::cos(a) * w;
        py -= h;
        py -= std::sin(a) * w;
    } else {
        py -= h;
    }

    painter->translate(px, py);
    painter->rotate(r);
    painter->setPen(d->pen);
    painter->setFont(d->format.font());
    d->text.setBorderRadius(0.0);
    d->text.draw(painter, QRectF(0.0, 0.0, w, h));

    painter->restore();
}
