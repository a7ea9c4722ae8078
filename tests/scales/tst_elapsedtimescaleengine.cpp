#include <figura/scales/ElapsedTimeScaleEngine.h>

#include "ScaleTestSupport.h"

#include <qwt_plot.h>

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <limits>

using ScaleTest::AutoScaled;
using ScaleTest::autoScaled;

namespace {

class Engine : public ElapsedTimeScaleEngine
{
public:
    using ElapsedTimeScaleEngine::calcMajorStepSize;
    using ElapsedTimeScaleEngine::calcMinorStepSize;
    using ElapsedTimeScaleEngine::majorSteps;
    using ElapsedTimeScaleEngine::minorSteps;
};

struct Row
{
    double widthBelow;
    double majorStep;
    int minorIntervals;
};

// The step table as a user of the time axis reads it.
const Row Table[] = {
    {2, 0.2, 4},           {4, 0.5, 5},           {11, 1, 4},            {51, 5, 5},
    {101, 10, 5},          {151, 15, 3},          {300, 30, 2},          {660, 60, 4},
    {3060, 300, 5},        {6060, 600, 5},        {9060, 900, 3},        {18000, 1800, 3},
    {43200, 3600, 4},      {82800, 7200, 2},      {122400, 10800, 3},    {162000, 14400, 4},
    {241200, 21600, 3},    {432000, 43200, 4},    {950400, 86400, 4},    {1814400, 172800, 4},
    {3628800, 345600, 4},  {6307200, 604800, 7},  {DBL_MAX, 1209600, 2},
};

const double Inf = std::numeric_limits<double>::infinity();
const double NaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_ElapsedTimeScaleEngine : public QObject
{
    Q_OBJECT

private slots:
    void tableHas23RowsEndingAtDblMax();

    void majorStepByWidth_data();
    void majorStepByWidth();
    void majorStepOfEveryRow_data();
    void majorStepOfEveryRow();
    void majorStepIgnoresStepCountAndBase();

    void minorStepByMajorStep_data();
    void minorStepByMajorStep();
    void minorStepIgnoresStepCountAndBase();

    void widthOf1e8GetsEightyThreeMajorTicks();
    void autoScaleUsesTableNotRequestedStepCount_data();
    void autoScaleUsesTableNotRequestedStepCount();
    void autoScaleShiftsNegativeStartToZero_data();
    void autoScaleShiftsNegativeStartToZero();
    void divideScaleShiftsNegativeStartToZero_data();
    void divideScaleShiftsNegativeStartToZero();
    void divideScaleBuildsTableMinorTicks_data();
    void divideScaleBuildsTableMinorTicks();

    void majorTicksEqualQwtForExplicitSteps_data();
    void majorTicksEqualQwtForExplicitSteps();
    void autoScaleEqualsQwtWhereTableStepIsQwtStep();

    void timeAxisOfAPlotUsesTableSteps();
};

void tst_ElapsedTimeScaleEngine::tableHas23RowsEndingAtDblMax()
{
    Engine engine;
    QCOMPARE(engine.majorSteps.size(), 23);
    QCOMPARE(engine.minorSteps.size(), 23);
    QCOMPARE(engine.majorSteps.lastKey(), DBL_MAX);
    QCOMPARE(engine.base(), 10u);
    for (const Row &row : Table) {
        QCOMPARE(engine.majorSteps.value(row.widthBelow), row.majorStep);
        QCOMPARE(engine.minorSteps.value(row.majorStep), row.minorIntervals);
    }
}

void tst_ElapsedTimeScaleEngine::majorStepByWidth_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("step");

    QTest::newRow("1.999") << 1.999 << 0.2;
    QTest::newRow("2") << 2.0 << 0.5;
    QTest::newRow("10.999") << 10.999 << 1.0;
    QTest::newRow("11") << 11.0 << 5.0;
    QTest::newRow("299.9") << 299.9 << 30.0;
    QTest::newRow("a width equal to a limit belongs to the next row") << 300.0 << 60.0;
    QTest::newRow("18000") << 18000.0 << 3600.0;
    QTest::newRow("432000") << 432000.0 << 86400.0;
    QTest::newRow("3628800") << 3628800.0 << 604800.0;
    QTest::newRow("6307200") << 6307200.0 << 1209600.0;
    QTest::newRow("1e300") << 1e300 << 1209600.0;
    QTest::newRow("zero") << 0.0 << 0.2;
    QTest::newRow("negative") << -5.0 << 0.2;
    QTest::newRow("negative infinity") << -Inf << 0.2;
    // Past the last limit the limit itself comes back, not the last step.
    QTest::newRow("DBL_MAX") << DBL_MAX << DBL_MAX;
    QTest::newRow("infinity") << Inf << DBL_MAX;
    QTest::newRow("NaN") << NaN << DBL_MAX;
}

void tst_ElapsedTimeScaleEngine::majorStepByWidth()
{
    QFETCH(double, width);
    QFETCH(double, step);
    Engine engine;
    QCOMPARE(engine.calcMajorStepSize(width, 5, 10), step);
}

void tst_ElapsedTimeScaleEngine::majorStepOfEveryRow_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("step");

    double previousLimit = 0.0;
    for (const Row &row : Table) {
        QTest::addRow("at %g", previousLimit) << previousLimit << row.majorStep;
        if (row.widthBelow != DBL_MAX) {
            const double below = std::nextafter(row.widthBelow, 0.0);
            QTest::addRow("just below %g", row.widthBelow) << below << row.majorStep;
        }
        previousLimit = row.widthBelow;
    }
}

void tst_ElapsedTimeScaleEngine::majorStepOfEveryRow()
{
    QFETCH(double, width);
    QFETCH(double, step);
    Engine engine;
    QCOMPARE(engine.calcMajorStepSize(width, 5, 10), step);
}

void tst_ElapsedTimeScaleEngine::majorStepIgnoresStepCountAndBase()
{
    Engine engine;
    for (const int steps : {-1, 0, 1, 3, 100}) {
        for (const unsigned int base : {2u, 10u, 16u})
            QCOMPARE(engine.calcMajorStepSize(250.0, steps, base), 30.0);
    }
}

void tst_ElapsedTimeScaleEngine::minorStepByMajorStep_data()
{
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("minor");

    QTest::newRow("0.2") << 0.2 << 0.05;
    QTest::newRow("0.5") << 0.5 << 0.1;
    QTest::newRow("1") << 1.0 << 0.25;
    QTest::newRow("60") << 60.0 << 15.0;
    QTest::newRow("604800") << 604800.0 << 86400.0;
    QTest::newRow("1209600") << 1209600.0 << 604800.0;
    // Between two keys the walk ends on the divisor of the last row, 2.
    QTest::newRow("2 lies between keys") << 2.0 << 1.0;
    QTest::newRow("90 lies between keys") << 90.0 << 45.0;
    QTest::newRow("1000 lies between keys") << 1000.0 << 500.0;
    QTest::newRow("below the table divides by 4") << 0.1 << 0.025;
    QTest::newRow("negative divides by 4") << -8.0 << -2.0;
    QTest::newRow("above the table divides by 1") << 2000000.0 << 2000000.0;
    QTest::newRow("infinity divides by 1") << Inf << Inf;
}

void tst_ElapsedTimeScaleEngine::minorStepByMajorStep()
{
    QFETCH(double, step);
    QFETCH(double, minor);
    Engine engine;
    QCOMPARE(engine.calcMinorStepSize(step, 5, 10), minor);
}

void tst_ElapsedTimeScaleEngine::minorStepIgnoresStepCountAndBase()
{
    Engine engine;
    for (const Row &row : Table) {
        for (const int steps : {0, 1, 10}) {
            QCOMPARE(engine.calcMinorStepSize(row.majorStep, steps, 2),
                     row.majorStep / row.minorIntervals);
        }
    }
    QVERIFY(std::isnan(engine.calcMinorStepSize(NaN, 5, 10)));
}

void tst_ElapsedTimeScaleEngine::widthOf1e8GetsEightyThreeMajorTicks()
{
    // Nothing thins the ticks: the requested number of steps is ignored.
    ElapsedTimeScaleEngine engine;
    const QwtScaleDiv div = engine.divideScale(0.0, 1e8, 5, 0);
    const QList<double> majors = div.ticks(QwtScaleDiv::MajorTick);
    QCOMPARE(majors.size(), 83);
    QCOMPARE(majors.first(), 0.0);
    QCOMPARE(majors.at(1), 1209600.0);
    QCOMPARE(majors.last(), 82 * 1209600.0);
}

void tst_ElapsedTimeScaleEngine::autoScaleUsesTableNotRequestedStepCount_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<double>("step");

    QTest::newRow("300 s in minutes") << 0.0 << 300.0 << 0.0 << 300.0 << 60.0;
    QTest::newRow("250 s in half minutes") << 0.0 << 250.0 << 0.0 << 270.0 << 30.0;
    QTest::newRow("100 s in 10 s") << 0.0 << 100.0 << 0.0 << 100.0 << 10.0;
    QTest::newRow("an hour from 10:00 in 5 min")
        << 36000.0 << 38000.0 << 36000.0 << 38100.0 << 300.0;
    QTest::newRow("two days in 6 h") << 0.0 << 172800.0 << 0.0 << 172800.0 << 21600.0;
    QTest::newRow("1.5 s in 0.2 s") << 0.1 << 1.6 << 0.0 << 1.6 << 0.2;
    QTest::newRow("empty interval at 100 widens to 50..150")
        << 100.0 << 100.0 << 50.0 << 150.0 << 10.0;
    // The shift looks at the interval as it comes in, not at the widened one.
    QTest::newRow("empty interval at 0 widens below zero")
        << 0.0 << 0.0 << -0.6 << 0.6 << 0.2;
}

void tst_ElapsedTimeScaleEngine::autoScaleUsesTableNotRequestedStepCount()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(double, step);

    for (const int maxSteps : {1, 8, 50}) {
        ElapsedTimeScaleEngine engine;
        const AutoScaled result = autoScaled(engine, x1, x2, maxSteps);
        QCOMPARE(result.step, step);
        QVERIFY2(qAbs(result.x1 - lower) < 1e-9 && qAbs(result.x2 - upper) < 1e-9,
                 qPrintable(result.toString()));
    }
}

void tst_ElapsedTimeScaleEngine::autoScaleShiftsNegativeStartToZero_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("shiftedX1");
    QTest::addColumn<double>("shiftedX2");

    QTest::newRow("negative start moves the interval up") << -10.0 << 20.0 << 0.0 << 30.0;
    QTest::newRow("positive start stays") << 10.0 << 40.0 << 10.0 << 40.0;
    QTest::newRow("reversed from positive stays") << 10.0 << -5.0 << 10.0 << -5.0;
    QTest::newRow("wholly negative keeps its width") << -5.0 << -10.0 << 0.0 << -5.0;
    QTest::newRow("zero start stays") << 0.0 << 50.0 << 0.0 << 50.0;
}

void tst_ElapsedTimeScaleEngine::autoScaleShiftsNegativeStartToZero()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, shiftedX1);
    QFETCH(double, shiftedX2);

    for (const bool floating : {false, true}) {
        ElapsedTimeScaleEngine engine;
        ElapsedTimeScaleEngine reference;
        engine.setAttribute(QwtScaleEngine::Floating, floating);
        reference.setAttribute(QwtScaleEngine::Floating, floating);
        SCALE_COMPARE_AUTOSCALED(autoScaled(engine, x1, x2), autoScaled(reference, shiftedX1, shiftedX2));
    }

    // On a floating scale the shifted interval shows as it is.
    ElapsedTimeScaleEngine floating;
    floating.setAttribute(QwtScaleEngine::Floating);
    const AutoScaled result = autoScaled(floating, x1, x2);
    QCOMPARE(result.x1, qMin(shiftedX1, shiftedX2));
    QCOMPARE(result.x2, qMax(shiftedX1, shiftedX2));
}

void tst_ElapsedTimeScaleEngine::divideScaleShiftsNegativeStartToZero_data()
{
    autoScaleShiftsNegativeStartToZero_data();
}

void tst_ElapsedTimeScaleEngine::divideScaleShiftsNegativeStartToZero()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, shiftedX1);
    QFETCH(double, shiftedX2);

    ElapsedTimeScaleEngine engine;
    const QwtScaleDiv div = engine.divideScale(x1, x2, 5, 3);
    QCOMPARE(div.lowerBound(), shiftedX1);
    QCOMPARE(div.upperBound(), shiftedX2);
    SCALE_COMPARE_DIV(div, engine.divideScale(shiftedX1, shiftedX2, 5, 3));
}

void tst_ElapsedTimeScaleEngine::divideScaleBuildsTableMinorTicks_data()
{
    QTest::addColumn<double>("upper");
    QTest::addColumn<QList<double>>("majors");
    QTest::addColumn<QList<double>>("mediums");
    QTest::addColumn<int>("minorCount");

    // 4 minor intervals: 3 ticks, the middle one medium.
    QTest::newRow("5 min in minutes, quarter minutes")
        << 300.0 << QList<double>{0, 60, 120, 180, 240, 300}
        << QList<double>{30, 90, 150, 210, 270} << 10;
    // 5 minor intervals: 4 ticks, no medium one.
    QTest::newRow("50 min in 5 min, minutes")
        << 3000.0 << QList<double>{0, 300, 600, 900, 1200, 1500, 1800, 2100, 2400, 2700, 3000}
        << QList<double>{} << 40;
    // 2 minor intervals: the one tick is medium.
    QTest::newRow("4 min 30 in half minutes")
        << 270.0 << QList<double>{0, 30, 60, 90, 120, 150, 180, 210, 240, 270}
        << QList<double>{15, 45, 75, 105, 135, 165, 195, 225, 255} << 0;
    // 7 minor intervals: a week in days, 6 ticks, none of them medium.
    QTest::newRow("50 days in weeks, days")
        << 4320000.0
        << QList<double>{0, 604800, 1209600, 1814400, 2419200, 3024000, 3628800, 4233600}
        << QList<double>{} << 43;
}

void tst_ElapsedTimeScaleEngine::divideScaleBuildsTableMinorTicks()
{
    QFETCH(double, upper);
    QFETCH(QList<double>, majors);
    QFETCH(QList<double>, mediums);
    QFETCH(int, minorCount);

    ElapsedTimeScaleEngine engine;
    const QwtScaleDiv div = engine.divideScale(0.0, upper, 5, 5);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), majors);
    QCOMPARE(div.ticks(QwtScaleDiv::MediumTick), mediums);
    QCOMPARE(div.ticks(QwtScaleDiv::MinorTick).size(), minorCount);
}

void tst_ElapsedTimeScaleEngine::majorTicksEqualQwtForExplicitSteps_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("step");

    const struct { const char *name; double x1, x2; } intervals[] = {
        {"0..300", 0, 300}, {"odd", 3.3, 97.1}, {"reversed", 100, 5}, {"a day", 0, 86400},
        {"late", 1e6, 1.0036e6}, {"fractions", 0.013, 1.71},
    };
    for (const auto &interval : intervals) {
        for (const double step : {0.2, 1.0, 7.0, 60.0, 3600.0, -15.0}) {
            QTest::addRow("%s, step %g", interval.name, step)
                << interval.x1 << interval.x2 << step;
        }
    }
}

void tst_ElapsedTimeScaleEngine::majorTicksEqualQwtForExplicitSteps()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, step);

    ElapsedTimeScaleEngine ours;
    QwtLinearScaleEngine qwt(10);
    for (const int maxMajor : {1, 5, 20})
        SCALE_COMPARE_DIV(ours.divideScale(x1, x2, maxMajor, 0, step),
                          qwt.divideScale(x1, x2, maxMajor, 0, step));
}

void tst_ElapsedTimeScaleEngine::autoScaleEqualsQwtWhereTableStepIsQwtStep()
{
    // 0..100 in at most 10 steps: both choose 10, and must then agree on
    // everything else, attributes included.
    for (const auto attributes :
         {QwtScaleEngine::Attributes(), QwtScaleEngine::Attributes(QwtScaleEngine::Inverted),
          QwtScaleEngine::Attributes(QwtScaleEngine::Floating)}) {
        ElapsedTimeScaleEngine ours;
        QwtLinearScaleEngine qwt(10);
        ours.setAttributes(attributes);
        qwt.setAttributes(attributes);
        SCALE_COMPARE_AUTOSCALED(autoScaled(ours, 3.0, 97.0, 10), autoScaled(qwt, 3.0, 97.0, 10));
    }
}

void tst_ElapsedTimeScaleEngine::timeAxisOfAPlotUsesTableSteps()
{
    QwtPlot plot;
    plot.setAxisScaleEngine(QwtPlot::xBottom, new ElapsedTimeScaleEngine);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 3600.0);
    plot.updateAxes();
    const QwtScaleDiv div = plot.axisScaleDiv(QwtPlot::xBottom);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick),
             (QList<double>{0, 600, 1200, 1800, 2400, 3000, 3600}));
}

QTEST_MAIN(tst_ElapsedTimeScaleEngine)
#include "tst_elapsedtimescaleengine.moc"
