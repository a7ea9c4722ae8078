#include <figura/scales/BoundLinearScaleEngine.h>

#include "ScaleTestSupport.h"

#include <qwt_plot.h>

#include <QtTest>

#include <cfloat>
#include <limits>

using ScaleTest::AutoScaled;
using ScaleTest::autoScaled;

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

// Tells a test when the plot deletes its engine.
class TrackedEngine : public BoundLinearScaleEngine
{
public:
    explicit TrackedEngine(bool *deleted) : m_deleted(deleted) {}
    ~TrackedEngine() override { *m_deleted = true; }

private:
    bool *m_deleted;
};

} // namespace

class tst_BoundLinearScaleEngine : public QObject
{
    Q_OBJECT

private slots:
    void defaultBoundsAreIntMinAndDblMax();
    void constructorStoresBoundsAsGiven();
    void settersStoreWithoutChecks();

    void autoScaleHandsBoundedEndsToTheBase_data();
    void autoScaleHandsBoundedEndsToTheBase();
    void autoScaleResultEqualsBaseWithBoundedEnds_data();
    void autoScaleResultEqualsBaseWithBoundedEnds();
    void autoScaleMayReachBeyondBoundsByAlignment();
    void newBoundTakesEffectAtNextAutoScale();

    void divideScaleIsNotBounded();
    void plotOwnsTheEngine();
};

void tst_BoundLinearScaleEngine::defaultBoundsAreIntMinAndDblMax()
{
    BoundLinearScaleEngine engine;
    QCOMPARE(engine.floor(), -2147483648.0);
    QCOMPARE(engine.ceiling(), DBL_MAX);
    QCOMPARE(engine.base(), 10u);
}

void tst_BoundLinearScaleEngine::constructorStoresBoundsAsGiven()
{
    BoundLinearScaleEngine reversed(100.0, -5.0);
    QCOMPARE(reversed.floor(), 100.0);
    QCOMPARE(reversed.ceiling(), -5.0);

    BoundLinearScaleEngine notANumber(NaN, NaN);
    QVERIFY(std::isnan(notANumber.floor()));
    QVERIFY(std::isnan(notANumber.ceiling()));
}

void tst_BoundLinearScaleEngine::settersStoreWithoutChecks()
{
    BoundLinearScaleEngine engine(0.0, 100.0);
    engine.setFloor(500.0);
    engine.setCeiling(-500.0);
    QCOMPARE(engine.floor(), 500.0);
    QCOMPARE(engine.ceiling(), -500.0);
}

// Rows: the bounds, the interval handed to autoScale, and the interval that
// must reach QwtLinearScaleEngine::autoScale. Rows with NaN or an empty
// interval only in the differential test: a floating scale widens an empty
// interval and cannot show a NaN end as it came.
static void addBoundRows(bool withOpaqueRows)
{
    QTest::addColumn<double>("floor");
    QTest::addColumn<double>("ceiling");
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("baseX1");
    QTest::addColumn<double>("baseX2");

    QTest::newRow("both ends bounded") << 0.0 << 100.0 << -5.0 << 120.0 << 0.0 << 100.0;
    QTest::newRow("inside passes unchanged") << 0.0 << 100.0 << 10.0 << 90.0 << 10.0 << 90.0;
    QTest::newRow("ends on the bounds pass unchanged") << 0.0 << 100.0 << 0.0 << 100.0 << 0.0 << 100.0;
    QTest::newRow("reversed interval passes unchanged") << 0.0 << 100.0 << 120.0 << -5.0 << 120.0 << -5.0;
    QTest::newRow("wholly below the floor: the ends cross") << 0.0 << 100.0 << -20.0 << -10.0 << 0.0 << -10.0;
    QTest::newRow("wholly above the ceiling: the ends cross") << 0.0 << 100.0 << 150.0 << 200.0 << 150.0 << 100.0;
    QTest::newRow("floor above ceiling") << 100.0 << 0.0 << 20.0 << 80.0 << 100.0 << 0.0;
    QTest::newRow("default floor raises below int range")
        << -2147483648.0 << DBL_MAX << -1e10 << 0.0 << -2147483648.0 << 0.0;
    QTest::newRow("default bounds pass ordinary data") << -2147483648.0 << DBL_MAX << -1e6 << 1e6 << -1e6 << 1e6;
    if (!withOpaqueRows)
        return;
    QTest::newRow("empty interval inside passes unchanged") << 0.0 << 100.0 << 50.0 << 50.0 << 50.0 << 50.0;
    QTest::newRow("NaN floor changes nothing") << NaN << 100.0 << -5.0 << 50.0 << -5.0 << 50.0;
    QTest::newRow("NaN ceiling changes nothing") << 0.0 << NaN << 5.0 << 120.0 << 5.0 << 120.0;
    QTest::newRow("NaN lower end is not raised") << 0.0 << 100.0 << NaN << 120.0 << NaN << 100.0;
    QTest::newRow("NaN upper end is not lowered") << 0.0 << 100.0 << -5.0 << NaN << 0.0 << NaN;
}

void tst_BoundLinearScaleEngine::autoScaleHandsBoundedEndsToTheBase_data()
{
    addBoundRows(false);
}

void tst_BoundLinearScaleEngine::autoScaleHandsBoundedEndsToTheBase()
{
    QFETCH(double, floor);
    QFETCH(double, ceiling);
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, baseX1);
    QFETCH(double, baseX2);

    // A floating scale is not aligned: what comes out is what reached the
    // base class, only put in order.
    BoundLinearScaleEngine engine(floor, ceiling);
    engine.setAttribute(QwtScaleEngine::Floating);
    const AutoScaled result = autoScaled(engine, x1, x2);
    QCOMPARE(result.x1, qMin(baseX1, baseX2));
    QCOMPARE(result.x2, qMax(baseX1, baseX2));
}

void tst_BoundLinearScaleEngine::autoScaleResultEqualsBaseWithBoundedEnds_data()
{
    addBoundRows(true);
}

void tst_BoundLinearScaleEngine::autoScaleResultEqualsBaseWithBoundedEnds()
{
    QFETCH(double, floor);
    QFETCH(double, ceiling);
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, baseX1);
    QFETCH(double, baseX2);

    for (const bool floating : {false, true}) {
        for (const int maxSteps : {1, 5, 8}) {
            BoundLinearScaleEngine engine(floor, ceiling);
            QwtLinearScaleEngine base(10);
            engine.setAttribute(QwtScaleEngine::Floating, floating);
            base.setAttribute(QwtScaleEngine::Floating, floating);
            SCALE_COMPARE_AUTOSCALED(autoScaled(engine, x1, x2, maxSteps),
                                     autoScaled(base, baseX1, baseX2, maxSteps));
        }
    }
}

void tst_BoundLinearScaleEngine::autoScaleMayReachBeyondBoundsByAlignment()
{
    BoundLinearScaleEngine engine(0.5, 99.5);
    const AutoScaled result = autoScaled(engine, -5.0, 120.0, 5);
    QCOMPARE(result.x1, 0.0);
    QCOMPARE(result.x2, 100.0);
    QCOMPARE(result.step, 20.0);
}

void tst_BoundLinearScaleEngine::newBoundTakesEffectAtNextAutoScale()
{
    BoundLinearScaleEngine engine(0.0, 100.0);
    engine.setAttribute(QwtScaleEngine::Floating);
    QCOMPARE(autoScaled(engine, -5.0, 120.0).x1, 0.0);

    engine.setFloor(40.0);
    engine.setCeiling(60.0);
    const AutoScaled result = autoScaled(engine, -5.0, 120.0);
    QCOMPARE(result.x1, 40.0);
    QCOMPARE(result.x2, 60.0);
}

void tst_BoundLinearScaleEngine::divideScaleIsNotBounded()
{
    BoundLinearScaleEngine engine(0.0, 100.0);
    QwtLinearScaleEngine base(10);
    const QwtScaleDiv div = engine.divideScale(-50.0, 200.0, 5, 4);
    QCOMPARE(div.lowerBound(), -50.0);
    QCOMPARE(div.upperBound(), 200.0);
    SCALE_COMPARE_DIV(div, base.divideScale(-50.0, 200.0, 5, 4));
}

void tst_BoundLinearScaleEngine::plotOwnsTheEngine()
{
    bool deleted = false;
    {
        QwtPlot plot;
        plot.setAxisScaleEngine(QwtPlot::yLeft, new TrackedEngine(&deleted));
        QVERIFY(dynamic_cast<BoundLinearScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
        QVERIFY(!deleted);
    }
    QVERIFY(deleted);
}

QTEST_MAIN(tst_BoundLinearScaleEngine)
#include "tst_boundlinearscaleengine.moc"
