#include "GrowingSeries.h"

#include <algorithm>

size_t GrowingSeries::size() const
{
    return size_t(samples.size());
}

QPointF GrowingSeries::sample(size_t index) const
{
    return samples.at(qsizetype(index));
}

QRectF GrowingSeries::boundingRect() const
{
    return bounds;
}

void GrowingSeries::append(const QPointF &point)
{
    samples.append(point);
    if (samples.size() == 1) {
        bounds = QRectF(point, QSizeF(0.0, 0.0));
        return;
    }
    bounds.setLeft(std::min(bounds.left(), point.x()));
    bounds.setRight(std::max(bounds.right(), point.x()));
    bounds.setTop(std::min(bounds.top(), point.y()));
    bounds.setBottom(std::max(bounds.bottom(), point.y()));
}

void GrowingSeries::removeFirst(int count)
{
    if (count <= 0)
        return;
    samples.remove(0, std::min<qsizetype>(count, samples.size()));
    recomputeBounds();
}

const QVector<QPointF> &GrowingSeries::points() const
{
    return samples;
}

void GrowingSeries::recomputeBounds()
{
    if (samples.isEmpty()) {
        bounds = QRectF(1.0, 1.0, -2.0, -2.0);
        return;
    }
    bounds = QRectF(samples.first(), QSizeF(0.0, 0.0));
    for (const QPointF &point : std::as_const(samples)) {
        bounds.setLeft(std::min(bounds.left(), point.x()));
        bounds.setRight(std::max(bounds.right(), point.x()));
        bounds.setTop(std::min(bounds.top(), point.y()));
        bounds.setBottom(std::max(bounds.bottom(), point.y()));
    }
}
