#pragma once

// The pieces of the marker read-out that the series plots share: the number
// format of the read-out, the line of one series in the label, the width
// estimate of a label, the sample a key step leads to and the pointer move
// that goes with a key step. Curves and bar charts are both QwtSeriesStore
// of QPointF, so these serve them alike; the multi-bar plot shares the number
// format. Internal to the library.

#include <figura/plots/VoidPlot.h>

#include <QPointF>
#include <QString>

class QColor;
class QWidget;
class QwtPlot;
class QwtText;
template <typename T>
class QwtSeriesData;

namespace MarkerReadout {

// The point (0, 0) stands for "no sample" throughout the marker code, also
// where a series really has a sample there. Exact, unlike QPointF's ==,
// which takes 1e-13 for zero; NaN is not zero.
bool isNullPoint(const QPointF &point);

// Whether a sample has a place on the canvas: both coordinates finite. The
// read-outs treat any other sample as they treat the null point, as no
// sample, so that no marker stands at a NaN or an infinity and no label reads
// "nan" where a host's data has a gap.
bool isReadable(const QPointF &sample);

// The sample at index, or the null point for a negative index and for a
// sample that is not readable.
QPointF readableSample(const QwtSeriesData<QPointF> *data, int index);

// A pixel position as int, rounded or truncated as the caller says. NaN
// gives 0; values beyond the int range, which a far zoom can give, are
// clamped.
int toPixel(double value, bool rounded);

// The number of samples of a series, 0 for none; series beyond the int
// range count as INT_MAX.
int sampleCount(const QwtSeriesData<QPointF> *data);

// The read-out text of a value on an axis of plot. xBottom: the axis title,
// a colon and the value in fixed form with xDecimals decimals, with the
// locale's decimal point. yLeft and yRight: exponent form with 2 decimals for
// negative values and those below 0.001 other than 0, else fixed with 4
// decimals. Any other axis: the locale's 'g' form with 6 digits.
QString axisValueText(const QwtPlot *plot, int axisId, double value, int xDecimals);

// One series' line of a read-out label: with a legend, a square in the
// series colour ahead of "title: value" in rich text; without, the plain
// "title: value".
QString seriesLine(bool withLegend, const QColor &color, const QString &title,
                   const QString &valueText);
// What goes ahead of each series line: "<br>" with a legend, "\r\n" without.
QString lineSeparator(bool withLegend);

// Width in pixels of a label of the read-out template holding text: the text
// in the template's font and the padding that its border pen gives on both
// sides.
int labelWidth(const QwtText &label, const QString &text);

// The sample index that a key step leads to from x on a series of ascending
// x with at least one sample: Home the first, End the last, Left and Right
// the neighbour of the sample at x, or, where no sample has exactly x, of the
// nearest one, so that a step may pass over it. The walk stops at the ends.
// A step passes over samples that are not readable, in its direction, and
// where none is left that way, it stays on the nearest readable one behind.
// -1 for an unknown direction and for a series without a readable sample.
int stepIndex(const QwtSeriesData<QPointF> *data, double x, VoidPlot::ShiftDirection direction);

// Puts the mouse pointer on the bottom edge of canvas in the column pixel, so
// that pointer and read-out stay in one column, and gives plot back the
// cursor shape it had.
void movePointerToColumn(QWidget *plot, QWidget *canvas, int pixel);

} // namespace MarkerReadout
