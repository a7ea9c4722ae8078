// The two sample searches of the read-outs: exact and nearest x, on points
// and on sets of bars, their ends and odd inputs, and that they bisect.

#include "CurvePlotProbe.h"

#include <figura/plots/SampleSearch.h>

#include <QtTest>

#include <qwt_samples.h>
#include <qwt_series_data.h>

#include <cmath>
#include <limits>

using SampleSearch::closestSampleIndex;
using SampleSearch::exactSampleIndex;

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

QwtPointSeriesData series(const QVector<double> &xs)
{
    QVector<QPointF> samples;
    for (double x : xs)
        samples.append(QPointF(x, 1.0));
    return QwtPointSeriesData(samples);
}

// A set sample series counting its reads, like CountingSeries for points.
class CountingSets : public QwtSeriesData<QwtSetSample>
{
public:
    explicit CountingSets(size_t size) : m_size(size) {}
    size_t size() const override { return m_size; }
    QwtSetSample sample(size_t i) const override
    {
        ++reads;
        return QwtSetSample(double(i) * 2.0, QVector<double>{1.0, 2.0});
    }
    QRectF boundingRect() const override { return QRectF(); }
    mutable long reads = 0;

private:
    size_t m_size;
};

// Reads that a bisection over n samples may take: the two ends, one per
// halving, and the two neighbours at the end.
long bisectionBound(size_t n)
{
    return 4 + long(std::ceil(std::log2(double(n)))) + 1;
}

} // namespace

class tst_CurvePlotSearch : public QObject
{
    Q_OBJECT

private slots:
    void exactFindsOnlyEqualX_data();
    void exactFindsOnlyEqualX();
    void exactOnEmptyNullAndSingleSeries();
    void exactWithEqualXFindsOneOfThem();

    void closestSnapsToNearestSample_data();
    void closestSnapsToNearestSample();
    void closestHalfWayGoesRight();
    void closestOnEmptyNullAndSingleSeries();
    void closestWithEqualXStaysInRange();
    void estimateModeIsProportional_data();
    void estimateModeIsProportional();
    void estimateModeOnEmptyAndSingleSeries();
    void unknownModeGivesMinusOne();

    void nanAndInfinityDoNotCrash();
    void nanSamplesInSeriesDoNotCrash();

    void setSamplesAreSearchedByValue();

    void searchesReadLogarithmicallyManySamples_data();
    void searchesReadLogarithmicallyManySamples();
    void setSearchReadsLogarithmicallyManySamples();
};

void tst_CurvePlotSearch::exactFindsOnlyEqualX_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("index");
    QTest::newRow("first") << 1.0 << 0;
    QTest::newRow("middle") << 5.0 << 2;
    QTest::newRow("last") << 9.0 << 4;
    QTest::newRow("second") << 3.0 << 1;
    QTest::newRow("fourth") << 7.0 << 3;
    QTest::newRow("between") << 4.0 << -1;
    QTest::newRow("nearly equal") << 5.0000000001 << -1;
    QTest::newRow("left of all") << 0.0 << -1;
    QTest::newRow("right of all") << 10.0 << -1;
}

void tst_CurvePlotSearch::exactFindsOnlyEqualX()
{
    QFETCH(double, x);
    QFETCH(int, index);
    const QwtPointSeriesData data = series({1, 3, 5, 7, 9});
    QCOMPARE(exactSampleIndex(&data, x), index);
}

void tst_CurvePlotSearch::exactOnEmptyNullAndSingleSeries()
{
    const QwtPointSeriesData empty;
    QCOMPARE(exactSampleIndex(&empty, 0.0), -1);
    QCOMPARE(exactSampleIndex(static_cast<const QwtSeriesData<QPointF> *>(nullptr), 1.0), -1);

    const QwtPointSeriesData single = series({2.5});
    QCOMPARE(exactSampleIndex(&single, 2.5), 0);
    QCOMPARE(exactSampleIndex(&single, 2.0), -1);
}

void tst_CurvePlotSearch::exactWithEqualXFindsOneOfThem()
{
    const QwtPointSeriesData data = series({1, 2, 2, 2, 3});
    const int index = exactSampleIndex(&data, 2.0);
    QVERIFY2(index >= 1 && index <= 3, qPrintable(QString::number(index)));
    QCOMPARE(data.sample(size_t(index)).x(), 2.0);

    const QwtPointSeriesData allEqual = series({4, 4, 4, 4});
    QVERIFY(exactSampleIndex(&allEqual, 4.0) >= 0);
    QCOMPARE(exactSampleIndex(&allEqual, 5.0), -1);
}

void tst_CurvePlotSearch::closestSnapsToNearestSample_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("index");
    // Samples at 1, 3, 5, 7, 9.
    QTest::newRow("far left clamps to first") << -1e9 << 0;
    QTest::newRow("on first") << 1.0 << 0;
    QTest::newRow("near first") << 1.9 << 0;
    QTest::newRow("near second from left") << 2.1 << 1;
    QTest::newRow("exact middle") << 5.0 << 2;
    QTest::newRow("just left of middle") << 4.9 << 2;
    QTest::newRow("near fourth") << 6.2 << 3;
    QTest::newRow("on last") << 9.0 << 4;
    QTest::newRow("far right clamps to last") << 1e9 << 4;
}

void tst_CurvePlotSearch::closestSnapsToNearestSample()
{
    QFETCH(double, x);
    QFETCH(int, index);
    const QwtPointSeriesData data = series({1, 3, 5, 7, 9});
    QCOMPARE(closestSampleIndex(&data, x, 1), index);
}

void tst_CurvePlotSearch::closestHalfWayGoesRight()
{
    const QwtPointSeriesData two = series({1, 3});
    QCOMPARE(closestSampleIndex(&two, 2.0, 1), 1);
    const QwtPointSeriesData five = series({1, 3, 5, 7, 9});
    QCOMPARE(closestSampleIndex(&five, 6.0, 1), 3);
    QCOMPARE(closestSampleIndex(&five, 4.0, 1), 2);
}

void tst_CurvePlotSearch::closestOnEmptyNullAndSingleSeries()
{
    const QwtPointSeriesData empty;
    QCOMPARE(closestSampleIndex(&empty, 1.0, 1), -1);
    QCOMPARE(closestSampleIndex(static_cast<const QwtSeriesData<QPointF> *>(nullptr), 1.0, 1), -1);

    const QwtPointSeriesData single = series({2.5});
    QCOMPARE(closestSampleIndex(&single, -100.0, 1), 0);
    QCOMPARE(closestSampleIndex(&single, 2.5, 1), 0);
    QCOMPARE(closestSampleIndex(&single, 100.0, 1), 0);
}

void tst_CurvePlotSearch::closestWithEqualXStaysInRange()
{
    const QwtPointSeriesData data = series({1, 2, 2, 2, 3});
    const int onEqual = closestSampleIndex(&data, 2.0, 1);
    QVERIFY(onEqual >= 1 && onEqual <= 3);
    QCOMPARE(closestSampleIndex(&data, 2.9, 1), 4);
    const int nearEqual = closestSampleIndex(&data, 1.6, 1);
    QVERIFY(nearEqual >= 1 && nearEqual <= 3);

    const QwtPointSeriesData allEqual = series({4, 4, 4});
    QCOMPARE(closestSampleIndex(&allEqual, 3.0, 1), 0);
    QCOMPARE(closestSampleIndex(&allEqual, 5.0, 1), 2);
}

void tst_CurvePlotSearch::estimateModeIsProportional_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("index");
    // Samples at 0, 1, ..., 10.
    QTest::newRow("below") << -5.0 << 0;
    QTest::newRow("rounds down") << 3.4 << 3;
    QTest::newRow("rounds up") << 3.6 << 4;
    QTest::newRow("half") << 4.5 << 5;
    QTest::newRow("last") << 10.0 << 10;
    QTest::newRow("above") << 50.0 << 10;
}

void tst_CurvePlotSearch::estimateModeIsProportional()
{
    QFETCH(double, x);
    QFETCH(int, index);
    const QwtPointSeriesData data = series({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    QCOMPARE(closestSampleIndex(&data, x, 0), index);
}

void tst_CurvePlotSearch::estimateModeOnEmptyAndSingleSeries()
{
    const QwtPointSeriesData empty;
    QCOMPARE(closestSampleIndex(&empty, 1.0, 0), -1);
    const QwtPointSeriesData single = series({2.0});
    QCOMPARE(closestSampleIndex(&single, 2.0, 0), 0);
    QCOMPARE(closestSampleIndex(&single, 2.5, 0), -1);
    // Equal ends give no proportion at all.
    const QwtPointSeriesData flat = series({3, 3, 3});
    QCOMPARE(closestSampleIndex(&flat, 3.0, 0), -1);
}

void tst_CurvePlotSearch::unknownModeGivesMinusOne()
{
    const QwtPointSeriesData data = series({1, 2, 3});
    QCOMPARE(closestSampleIndex(&data, 2.0, 2), -1);
    QCOMPARE(closestSampleIndex(&data, 2.0, -1), -1);
}

void tst_CurvePlotSearch::nanAndInfinityDoNotCrash()
{
    const QwtPointSeriesData data = series({1, 3, 5, 7, 9});
    QCOMPARE(exactSampleIndex(&data, NaN), -1);
    const int nearNaN = closestSampleIndex(&data, NaN, 1);
    QVERIFY(nearNaN >= 0 && nearNaN <= 4);
    QCOMPARE(closestSampleIndex(&data, NaN, 0), -1);

    QCOMPARE(closestSampleIndex(&data, Inf, 1), 4);
    QCOMPARE(closestSampleIndex(&data, -Inf, 1), 0);
    QCOMPARE(exactSampleIndex(&data, Inf), -1);
    QCOMPARE(closestSampleIndex(&data, Inf, 0), 4);
    QCOMPARE(closestSampleIndex(&data, -Inf, 0), 0);

    const QwtPointSeriesData withInf = series({-Inf, 0, 1, Inf});
    QCOMPARE(exactSampleIndex(&withInf, Inf), 3);
    QCOMPARE(exactSampleIndex(&withInf, -Inf), 0);
    QCOMPARE(closestSampleIndex(&withInf, 0.4, 1), 1);
    QCOMPARE(closestSampleIndex(&withInf, 1e300, 1), 2);
}

void tst_CurvePlotSearch::nanSamplesInSeriesDoNotCrash()
{
    const QVector<QVector<double>> cases = {
        {NaN},
        {NaN, NaN, NaN},
        {NaN, 1, 2, 3},
        {1, 2, 3, NaN},
        {1, NaN, 3, NaN, 5},
    };
    for (const QVector<double> &xs : cases) {
        const QwtPointSeriesData data = series(xs);
        const int n = int(xs.size());
        for (double x : {-10.0, 0.0, 1.0, 2.5, 3.0, 10.0, NaN, Inf, -Inf}) {
            const int exact = exactSampleIndex(&data, x);
            QVERIFY(exact >= -1 && exact < n);
            if (exact >= 0)
                QCOMPARE(data.sample(size_t(exact)).x(), x);
            const int closest = closestSampleIndex(&data, x, 1);
            QVERIFY2(closest >= 0 && closest < n, qPrintable(QString::number(closest)));
            const int estimate = closestSampleIndex(&data, x, 0);
            QVERIFY(estimate >= -1 && estimate < n);
        }
    }
}

void tst_CurvePlotSearch::setSamplesAreSearchedByValue()
{
    QVector<QwtSetSample> sets;
    for (double v : {1.0, 2.0, 3.0})
        sets.append(QwtSetSample(v, QVector<double>{v * 10, v * 20}));
    const QwtSetSeriesData data(sets);
    QCOMPARE(exactSampleIndex(&data, 2.0), 1);
    QCOMPARE(exactSampleIndex(&data, 2.4), -1);
    QCOMPARE(closestSampleIndex(&data, 2.4, 1), 1);
    QCOMPARE(closestSampleIndex(&data, 2.6, 1), 2);
    QCOMPARE(closestSampleIndex(&data, -7.0, 1), 0);

    const QwtSetSeriesData empty;
    QCOMPARE(exactSampleIndex(&empty, 1.0), -1);
    QCOMPARE(closestSampleIndex(&empty, 1.0, 1), -1);
}

void tst_CurvePlotSearch::searchesReadLogarithmicallyManySamples_data()
{
    QTest::addColumn<qulonglong>("size");
    QTest::newRow("1e3") << qulonglong(1000);
    QTest::newRow("1e6") << qulonglong(1000000);
}

void tst_CurvePlotSearch::searchesReadLogarithmicallyManySamples()
{
    QFETCH(qulonglong, size);
    const long bound = bisectionBound(size);
    CountingSeries data(size, 0.0, 1.0);

    // Positions all over the series: on samples, between them, outside.
    const double last = double(size - 1);
    const QVector<double> xs = {-5.0, 0.0, 0.4, 1.0, 17.5, last / 3.0, last / 2.0 + 0.25,
                                last * 0.9, last - 0.5, last, last + 100.0};
    long worstExact = 0;
    long worstClosest = 0;
    for (double x : xs) {
        data.reads = 0;
        const int exact = exactSampleIndex(&data, x);
        worstExact = qMax(worstExact, data.reads);
        if (x == std::floor(x) && x >= 0.0 && x <= last)
            QCOMPARE(exact, int(x));
        else
            QCOMPARE(exact, -1);

        data.reads = 0;
        const int closest = closestSampleIndex(&data, x, 1);
        worstClosest = qMax(worstClosest, data.reads);
        const double expected = qBound(0.0, std::floor(x + 0.5), last);
        QCOMPARE(closest, int(expected));
    }
    QVERIFY2(worstExact <= bound, qPrintable(QStringLiteral("%1 reads").arg(worstExact)));
    QVERIFY2(worstClosest <= bound, qPrintable(QStringLiteral("%1 reads").arg(worstClosest)));
    // The searches do read the series, through sample() alone.
    QVERIFY(worstClosest > 0 && worstExact > 0);
}

void tst_CurvePlotSearch::setSearchReadsLogarithmicallyManySamples()
{
    CountingSets data(1000000);
    data.reads = 0;
    QCOMPARE(exactSampleIndex(&data, 777776.0), 388888);
    QVERIFY(data.reads <= bisectionBound(1000000));
    data.reads = 0;
    QCOMPARE(closestSampleIndex(&data, 777777.2, 1), 388889);
    QVERIFY(data.reads <= bisectionBound(1000000));
}

QTEST_APPLESS_MAIN(tst_CurvePlotSearch)
#include "tst_curveplot_search.moc"
