#pragma once

// The two searches of the read-outs: find the sample of a series at an x, by
// bisection over samples of ascending x. Curves, bar charts and sets of bars
// all use these, each with its own sample type; a type takes part through a
// specialisation of SampleSearch::SampleX that says where its x is.
//
// Both read samples only through QwtSeriesData::sample(i), one per step, so
// that a host's series with samples computed on demand are never copied or
// scanned: a search reads O(log n) samples.

#include <qwt_samples.h>
#include <qwt_series_data.h>

#include <QPointF>

#include <cmath>
#include <cstddef>

namespace SampleSearch {

// Where a sample type keeps the x that a series is ordered by.
template <class Sample>
struct SampleX;

template <>
struct SampleX<QPointF>
{
    static double of(const QPointF &sample) { return sample.x(); }
};

template <>
struct SampleX<QwtSetSample>
{
    static double of(const QwtSetSample &sample) { return sample.value; }
};

template <>
struct SampleX<QwtIntervalSample>
{
    static double of(const QwtIntervalSample &sample) { return sample.value; }
};

// The modes of closestSampleIndex().
enum ClosestMode {
    ClosestByEstimate = 0, // proportional guess from the ends, for evenly spaced x
    ClosestByBisection = 1 // the nearest sample, found by bisection
};

namespace Detail {

template <class Sample>
double xAt(const QwtSeriesData<Sample> *data, int index)
{
    return SampleX<Sample>::of(data->sample(std::size_t(index)));
}

// Series larger than an int can index are searched in their first INT_MAX
// samples; no plot shows more.
template <class Sample>
int lastIndex(const QwtSeriesData<Sample> *data)
{
    const std::size_t size = data->size();
    constexpr std::size_t largest = std::size_t(2147483647);
    return size > largest ? 2147483646 : int(size) - 1;
}

} // namespace Detail

// The index of a sample whose x equals x exactly, or -1. With equal x values
// in the series any one of them may be found. A null series, an empty one and
// a NaN x give -1.
template <class Sample>
int exactSampleIndex(const QwtSeriesData<Sample> *data, double x)
{
    if (!data)
        return -1;
    int low = 0;
    int high = Detail::lastIndex(data);
    while (low <= high) {
        const int middle = low + (high - low) / 2;
        const double middleX = Detail::xAt(data, middle);
        if (middleX == x)
            return middle;
        if (x > middleX)
            low = middle + 1;
        else
            high = middle - 1;
    }
    return -1;
}

// The index of the sample nearest to x, clamped to the ends of the series
// however far x lies outside; -1 for a null or empty series. A point exactly
// half way between two samples goes to the right one.
//
// Mode ClosestByEstimate guesses the index in proportion to the distance
// from the first x, for series of evenly spaced x; a series of one sample
// answers only its own x. Any other mode gives -1.
template <class Sample>
int closestSampleIndex(const QwtSeriesData<Sample> *data, double x, int mode)
{
    if (!data)
        return -1;
    const int high = Detail::lastIndex(data);
    if (high < 0)
        return -1;

    if (mode == ClosestByEstimate) {
        const double firstX = Detail::xAt(data, 0);
        if (high == 0)
            return firstX == x ? 0 : -1;
        const double lastX = Detail::xAt(data, high);
        const double t = (x - firstX) / (lastX - firstX) * high;
        if (std::isnan(t))
            return -1;
        if (t < 0.0)
            return 0;
        if (t > high)
            return high;
        return int(t + 0.5);
    }

    if (mode != ClosestByBisection)
        return -1;

    if (Detail::xAt(data, 0) >= x)
        return 0;
    if (x >= Detail::xAt(data, high))
        return high;

    int low = 0;
    int top = high;
    while (low <= top) {
        const int middle = low + (top - low) / 2;
        const double middleX = Detail::xAt(data, middle);
        if (middleX == x)
            return middle;
        if (x > middleX)
            low = middle + 1;
        else
            top = middle - 1;
    }

    // low has passed top: they are neighbours, top the left one. Only NaN in
    // the series or in x can push either of them past an end.
    if (top < 0)
        return 0;
    if (low > high)
        return high;
    if ((Detail::xAt(data, top) + Detail::xAt(data, low)) * 0.5 > x)
        return top;
    return low;
}

} // namespace SampleSearch
