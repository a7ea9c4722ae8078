#pragma once

#include <QPointF>
#include <QRectF>
#include <QVector>

#include <qwt_series_data.h>

// The samples of one live channel: a curve reads them in place while new
// ones are appended at the end and the oldest are dropped at the front. The
// bounding rectangle is kept up to date on append, so that autoscaling does
// not scan the whole history on every replot.
class GrowingSeries : public QwtSeriesData<QPointF>
{
public:
    size_t size() const override;
    QPointF sample(size_t index) const override;
    QRectF boundingRect() const override;

    // Samples must come in ascending x, as the plot's searches expect.
    void append(const QPointF &point);
    // Drops the count oldest samples.
    void removeFirst(int count);

    const QVector<QPointF> &points() const;

private:
    void recomputeBounds();

    QVector<QPointF> samples;
    QRectF bounds{1.0, 1.0, -2.0, -2.0}; // invalid until the first sample
};
