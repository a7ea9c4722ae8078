#include <figura/scales/BoundLogScaleEngine.h>

#include "ScaleTestSupport.h"

#include <qwt_plot.h>
#include <qwt_transform.h>

#include <QtTest>

#include <cfloat>
#include <limits>
#include <memory>

using ScaleTest::AutoScaled;
using ScaleTest::autoScaled;

namespace {

const double NaN = std::numeric_limits<double>::quiet_NaN();

class TrackedEngine : public BoundLogScaleEngine
{
public:
    explicit TrackedEngine(bool *deleted) : m_deleted(deleted) {}
    ~TrackedEngine() override { *m_deleted = true; }

private:
    bool *m_deleted;
};

} // namespace

class tst_BoundLogScaleEngine : public QObject
{
    Q_OBJECT

private slots:
    void defaultFloorIsLogMinAndCeilingDblMax();
    void constructorRaisesFloorToLogMin_data();
    void constructorRaisesFloorToLogMin();
    void setFloorStoresEvenZeroAndNegative();
    void setCeilingStoresAsGiven();
    void isALogarithmicEngine();

    void autoScaleResultEqualsBaseWithBoundedEnds_data();
    void autoScaleResultEqualsBaseWithBoundedEnds();
    void autoScaleHandsBoundedEndsToTheBase();
    void newBoundTakesEffectAtNextAutoScale();

    void divideScaleIsNotBounded();
    void plotOwnsTheEngine();
};

void tst_BoundLogScaleEngine::defaultFloorIsLogMinAndCeilingDblMax()
{
    BoundLogScaleEngine engine;
    QCOMPARE(engine.floor(), QwtLogTransform::LogMin);
    QCOMPARE(engine.ceiling(), DBL_MAX);
    QCOMPARE(engine.base(), 10u);
}

void tst_BoundLogScaleEngine::constructorRaisesFloorToLogMin_data()
{
    QTest::addColumn<double>("floor");
    QTest::addColumn<double>("stored");

    QTest::newRow("zero") << 0.0 << QwtLogTransform::LogMin;
    QTest::newRow("negative") << -1.0 << QwtLogTransform::LogMin;
    QTest::newRow("NaN") << NaN << QwtLogTransform::LogMin;
    QTest::newRow("LogMin itself") << QwtLogTransform::LogMin << QwtLogTransform::LogMin;
    QTest::newRow("small positive kept") << 1e-3 << 1e-3;
    QTest::newRow("large kept") << 1e20 << 1e20;
}

void tst_BoundLogScaleEngine::constructorRaisesFloorToLogMin()
{
    QFETCH(double, floor);
    QFETCH(double, stored);

    BoundLogScaleEngine engine(floor, 1.0);
    QCOMPARE(engine.floor(), stored);
    QCOMPARE(engine.ceiling(), 1.0);
}

void tst_BoundLogScaleEngine::setFloorStoresEvenZeroAndNegative()
{
    BoundLogScaleEngine engine(0.0, 1.0);
    QCOMPARE(engine.floor(), QwtLogTransform::LogMin);
    engine.setFloor(0.0);
    QCOMPARE(engine.floor(), 0.0);
    engine.setFloor(-3.0);
    QCOMPARE(engine.floor(), -3.0);
}

void tst_BoundLogScaleEngine::setCeilingStoresAsGiven()
{
    BoundLogScaleEngine engine;
    engine.setCeiling(-1.0);
    QCOMPARE(engine.ceiling(), -1.0);
}

void tst_BoundLogScaleEngine::isALogarithmicEngine()
{
    BoundLogScaleEngine engine;
    // transformation() hands out a copy that the caller owns.
    const std::unique_ptr<QwtTransform> transform(engine.transformation());
    QVERIFY(dynamic_cast<QwtLogTransform *>(transform.get()));
}

void tst_BoundLogScaleEngine::autoScaleResultEqualsBaseWithBoundedEnds_data()
{
    QTest::addColumn<double>("floor");
    QTest::addColumn<double>("ceiling");
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("baseX1");
    QTest::addColumn<double>("baseX2");

    QTest::newRow("both ends bounded") << 1e-3 << 1e3 << 1e-6 << 1e6 << 1e-3 << 1e3;
    QTest::newRow("inside passes unchanged") << 1e-3 << 1e3 << 1e-2 << 1e2 << 1e-2 << 1e2;
    QTest::newRow("reversed interval passes unchanged") << 1e-3 << 1e3 << 1e6 << 1e-6 << 1e6 << 1e-6;
    QTest::newRow("empty interval inside passes unchanged") << 1e-3 << 1e3 << 1.0 << 1.0 << 1.0 << 1.0;
    QTest::newRow("wholly below the floor: the ends cross") << 1e-3 << 1e3 << 1e-9 << 1e-6 << 1e-3 << 1e-6;
    QTest::newRow("default floor raises zero to LogMin")
        << 0.0 << DBL_MAX << 0.0 << 100.0 << QwtLogTransform::LogMin << 100.0;
    QTest::newRow("NaN floor changes nothing") << NaN << 1e3 << 1e-6 << 1e2 << 1e-6 << 1e2;
    QTest::newRow("NaN ceiling changes nothing") << 1e-3 << NaN << 1e-2 << 1e6 << 1e-2 << 1e6;
    QTest::newRow("NaN lower end is not raised") << 1e-3 << 1e3 << NaN << 1e6 << NaN << 1e3;
}

void tst_BoundLogScaleEngine::autoScaleResultEqualsBaseWithBoundedEnds()
{
    QFETCH(double, floor);
    QFETCH(double, ceiling);
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, baseX1);
    QFETCH(double, baseX2);

    for (const bool floating : {false, true}) {
        BoundLogScaleEngine engine(floor, ceiling);
        QwtLogScaleEngine base(10);
        engine.setAttribute(QwtScaleEngine::Floating, floating);
        base.setAttribute(QwtScaleEngine::Floating, floating);
        SCALE_COMPARE_AUTOSCALED(autoScaled(engine, x1, x2, 8), autoScaled(base, baseX1, baseX2, 8));
    }
}

void tst_BoundLogScaleEngine::autoScaleHandsBoundedEndsToTheBase()
{
    // A floating scale is not aligned: the bounded ends come out as they went in.
    BoundLogScaleEngine engine(1e-3, 1e3);
    engine.setAttribute(QwtScaleEngine::Floating);
    const AutoScaled result = autoScaled(engine, 1e-6, 1e6);
    QCOMPARE(result.x1, 1e-3);
    QCOMPARE(result.x2, 1e3);
}

void tst_BoundLogScaleEngine::newBoundTakesEffectAtNextAutoScale()
{
    BoundLogScaleEngine engine(1e-3, 1e3);
    engine.setAttribute(QwtScaleEngine::Floating);
    QCOMPARE(autoScaled(engine, 1e-6, 1e6).x1, 1e-3);

    // A zero floor set later is not raised: zero is not above 1e-6.
    engine.setFloor(0.0);
    engine.setCeiling(1e5);
    const AutoScaled result = autoScaled(engine, 1e-6, 1e6);
    QCOMPARE(result.x1, 1e-6);
    QCOMPARE(result.x2, 1e5);
}

void tst_BoundLogScaleEngine::divideScaleIsNotBounded()
{
    BoundLogScaleEngine engine(1e-3, 1e3);
    QwtLogScaleEngine base(10);
    const QwtScaleDiv div = engine.divideScale(1e-6, 1e6, 8, 9);
    QCOMPARE(div.lowerBound(), 1e-6);
    QCOMPARE(div.upperBound(), 1e6);
    SCALE_COMPARE_DIV(div, base.divideScale(1e-6, 1e6, 8, 9));
}

void tst_BoundLogScaleEngine::plotOwnsTheEngine()
{
    bool deleted = false;
    {
        QwtPlot plot;
        plot.setAxisScaleEngine(QwtPlot::yLeft, new TrackedEngine(&deleted));
        QVERIFY(!deleted);
    }
    QVERIFY(deleted);
}

QTEST_MAIN(tst_BoundLogScaleEngine)
#include "tst_boundlogscaleengine.moc"
