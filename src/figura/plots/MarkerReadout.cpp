#include <figura/plots/MarkerReadout.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/SampleSearch.h>

#include <QColor>
#include <QCursor>
#include <QFontMetrics>
#include <QLocale>
#include <QPen>
#include <QWidget>

#include <qwt_plot.h>
#include <qwt_series_data.h>
#include <qwt_text.h>

#include <climits>
#include <cmath>

namespace MarkerReadout {

bool isNullPoint(const QPointF &point)
{
    return point.x() == 0.0 && point.y() == 0.0;
}

bool isReadable(const QPointF &sample)
{
    return std::isfinite(sample.x()) && std::isfinite(sample.y());
}

QPointF readableSample(const QwtSeriesData<QPointF> *data, int index)
{
    if (!data || index < 0)
        return QPointF(0.0, 0.0);
    const QPointF sample = data->sample(size_t(index));
    return isReadable(sample) ? sample : QPointF(0.0, 0.0);
}

int toPixel(double value, bool rounded)
{
    if (std::isnan(value))
        return 0;
    if (rounded)
        value = std::round(value);
    if (value <= double(INT_MIN))
        return INT_MIN;
    if (value >= double(INT_MAX))
        return INT_MAX;
    return int(value);
}

int sampleCount(const QwtSeriesData<QPointF> *data)
{
    return data ? int(qMin<size_t>(data->size(), size_t(INT_MAX))) : 0;
}

QString axisValueText(const QwtPlot *plot, int axisId, double value, int xDecimals)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        // The title names the axis; the value follows the locale's decimal point.
        return plot->axisTitle(QwtPlot::xBottom).text() + QLatin1String(": ")
            + QStringLiteral("%L1").arg(value, 0, 'f', xDecimals, QLatin1Char(' '));
    case QwtPlot::yLeft:
    case QwtPlot::yRight:
        // Small values are the rule here, and negative ones are noise.
        if (value != 0.0 && !(value >= 0.001))
            return QLocale().toString(value, 'e', 2);
        return QLocale().toString(value, 'f', 4);
    default:
        return QLocale().toString(value, 'g', 6);
    }
}

QString seriesLine(bool withLegend, const QColor &color, const QString &title,
                   const QString &valueText)
{
    if (!withLegend)
        return QStringLiteral("%1: %2").arg(title, valueText);
    // One argument after the other, as a title may itself hold "%1".
    return QStringLiteral("<font color=\"%1\">%2 </font>%3: %4")
        .arg(color.name())
        .arg(PlotDefault::HTML::SquareChar)
        .arg(title)
        .arg(valueText);
}

QString lineSeparator(bool withLegend)
{
    return withLegend ? QStringLiteral("<br>") : QStringLiteral("\r\n");
}

int labelWidth(const QwtText &label, const QString &text)
{
    return QFontMetrics(label.font()).boundingRect(text).width() + 2 * label.borderPen().width();
}

int stepIndex(const QwtSeriesData<QPointF> *data, double x, VoidPlot::ShiftDirection direction)
{
    const int size = sampleCount(data);
    if (size == 0)
        return -1;

    // The neighbour of a step, kept on the samples.
    const auto clamped = [size](int index) {
        if (index <= 0)
            return 0;
        if (index >= size - 1)
            return size - 1;
        return index;
    };

    // The first readable sample from index on in the step's way, else the
    // nearest one behind it. Where the data has no gap this reads just the
    // one sample.
    const auto readableFrom = [data, size](int index, int way) {
        for (int i = index; i >= 0 && i < size; i += way) {
            if (isReadable(data->sample(size_t(i))))
                return i;
        }
        for (int i = index - way; i >= 0 && i < size; i -= way) {
            if (isReadable(data->sample(size_t(i))))
                return i;
        }
        return -1;
    };

    switch (direction) {
    case VoidPlot::ShiftLeft:
    case VoidPlot::ShiftRight: {
        int index = SampleSearch::exactSampleIndex(data, x);
        // From between two samples a step goes on from the nearest one, and
        // may thus pass over it.
        if (index < 0)
            index = SampleSearch::closestSampleIndex(data, x, SampleSearch::ClosestByBisection);
        return direction == VoidPlot::ShiftLeft ? readableFrom(clamped(index - 1), -1)
                                                : readableFrom(clamped(index + 1), 1);
    }
    case VoidPlot::ShiftHome:
        return readableFrom(0, 1);
    case VoidPlot::ShiftEnd:
        return readableFrom(size - 1, -1);
    }
    return -1;
}

void movePointerToColumn(QWidget *plot, QWidget *canvas, int pixel)
{
    const QCursor kept = plot->cursor();
    QCursor::setPos(canvas->mapToGlobal(QPoint(pixel, canvas->height())));
    plot->setCursor(kept);
}

} // namespace MarkerReadout
