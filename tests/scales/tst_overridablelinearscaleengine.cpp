#include <figura/scales/OverridableLinearScaleEngine.h>

#include "ScaleTestSupport.h"

#include <qwt_interval.h>
#include <qwt_plot.h>

#include <QtTest>

#include <limits>

using ScaleTest::AutoScaled;
using ScaleTest::autoScaled;

namespace {

// Records the calls of the three hooks and can replace their results.
class RecordingEngine : public OverridableLinearScaleEngine
{
public:
    mutable QList<double> majorWidths;
    mutable QList<double> minorSteps;
    mutable QList<double> alignedSteps;
    double fixedMajor = 0.0;   // 0: Qwt's choice
    double fixedMinor = 0.0;   // 0: Qwt's choice
    double alignShift = 0.0;

    // The hooks are public here so that the test can call them directly.
    QwtInterval align(const QwtInterval &interval, double stepSize) const override
    {
        alignedSteps << stepSize;
        const QwtInterval aligned = OverridableLinearScaleEngine::align(interval, stepSize);
        return QwtInterval(aligned.minValue() - alignShift, aligned.maxValue() + alignShift);
    }
    double calcMajorStepSize(double width, int numSteps, unsigned int base) const override
    {
        majorWidths << width;
        return fixedMajor != 0.0 ? fixedMajor
                                 : OverridableLinearScaleEngine::calcMajorStepSize(width, numSteps, base);
    }
    double calcMinorStepSize(double step, int numSteps, unsigned int base) const override
    {
        minorSteps << step;
        return fixedMinor != 0.0 ? fixedMinor
                                 : OverridableLinearScaleEngine::calcMinorStepSize(step, numSteps, base);
    }
};

enum Setup {
    Plain,
    Floating,
    Inverted,
    Margins,
    Symmetric,
    IncludeReference,
    SymmetricWithReference,
    InvertedFloatingWithMargins,
};

void configure(QwtScaleEngine &engine, int setup)
{
    switch (setup) {
    case Floating:
        engine.setAttribute(QwtScaleEngine::Floating);
        break;
    case Inverted:
        engine.setAttribute(QwtScaleEngine::Inverted);
        break;
    case Margins:
        engine.setMargins(1.5, 2.5);
        break;
    case Symmetric:
        engine.setAttribute(QwtScaleEngine::Symmetric);
        engine.setReference(3.0);
        break;
    case IncludeReference:
        engine.setAttribute(QwtScaleEngine::IncludeReference);
        engine.setReference(-40.0);
        break;
    case SymmetricWithReference:
        engine.setAttributes(QwtScaleEngine::Symmetric | QwtScaleEngine::IncludeReference);
        engine.setReference(100.0);
        break;
    case InvertedFloatingWithMargins:
        engine.setAttributes(QwtScaleEngine::Inverted | QwtScaleEngine::Floating);
        engine.setMargins(0.25, 0.75);
        break;
    default:
        break;
    }
}

} // namespace

class tst_OverridableLinearScaleEngine : public QObject
{
    Q_OBJECT

private slots:
    void autoScaleEqualsQwt_data();
    void autoScaleEqualsQwt();
    void divideScaleEqualsQwt_data();
    void divideScaleEqualsQwt();
    void defaultHooksEqualQwtArithmetic();

    void autoScaleAsksMajorHookForTheWidth();
    void autoScaleAlignsThroughHookUnlessFloating();
    void autoScaleInvertsAfterAlignment();
    void divideScaleAsksMajorHookOnlyWithoutStep();
    void divideScaleBoundsMajorTicksThroughAlign();
    void divideScaleSpacesMinorTicksByMinorHook();
    void minorHookIsNotAskedWithoutMinorSteps();
    void oddMinorCountGivesAMediumTick();
    void ticksNearZeroSnapToZero();
    void unusableMinorStepBuildsNoMinorTicks();
    void emptyAndOverflowingIntervalsGiveEmptyDivision();
    void worksOnAPlotAxis();
};

void tst_OverridableLinearScaleEngine::autoScaleEqualsQwt_data()
{
    QTest::addColumn<int>("setup");
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<int>("maxSteps");

    const struct { const char *name; double x1, x2; } intervals[] = {
        {"0..300", 0, 300}, {"reversed", 120, -5}, {"empty at 7", 7, 7}, {"empty at 0", 0, 0},
        {"small", 0.0013, 0.0071}, {"negative", -1234.5, -17.25}, {"huge", -1e300, 1e300},
        {"around DBL_MAX", 1e308, std::numeric_limits<double>::max()}, {"odd", 3.3, 97.1},
    };
    const struct { const char *name; int setup; } setups[] = {
        {"plain", Plain}, {"floating", Floating}, {"inverted", Inverted}, {"margins", Margins},
        {"symmetric", Symmetric}, {"include reference", IncludeReference},
        {"symmetric with reference", SymmetricWithReference},
        {"inverted floating margins", InvertedFloatingWithMargins},
    };
    for (const auto &setup : setups) {
        for (const auto &interval : intervals) {
            for (const int steps : {0, 1, 5, 8}) {
                QTest::addRow("%s, %s, %d steps", setup.name, interval.name, steps)
                    << setup.setup << interval.x1 << interval.x2 << steps;
            }
        }
    }
}

void tst_OverridableLinearScaleEngine::autoScaleEqualsQwt()
{
    QFETCH(int, setup);
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(int, maxSteps);

    OverridableLinearScaleEngine ours;
    QwtLinearScaleEngine qwt(10);
    configure(ours, setup);
    configure(qwt, setup);
    SCALE_COMPARE_AUTOSCALED(autoScaled(ours, x1, x2, maxSteps), autoScaled(qwt, x1, x2, maxSteps));
}

void tst_OverridableLinearScaleEngine::divideScaleEqualsQwt_data()
{
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<int>("maxMajor");
    QTest::addColumn<int>("maxMinor");
    QTest::addColumn<double>("step");

    const struct { const char *name; double x1, x2; } intervals[] = {
        {"0..300", 0, 300}, {"reversed", 100, -5}, {"crossing zero", -0.3, 0.7},
        {"small", 0.0013, 0.0071}, {"negative", -1234.5, -17.25}, {"odd", 3.3, 97.1},
        {"1e8", 0, 1e8},
    };
    for (const auto &interval : intervals) {
        for (const int major : {0, 1, 5, 10}) {
            for (const int minor : {0, 2, 5, 10}) {
                for (const double step : {0.0, 7.0, -25.0}) {
                    QTest::addRow("%s, %d/%d, step %g", interval.name, major, minor, step)
                        << interval.x1 << interval.x2 << major << minor << step;
                }
            }
        }
    }
}

void tst_OverridableLinearScaleEngine::divideScaleEqualsQwt()
{
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(int, maxMajor);
    QFETCH(int, maxMinor);
    QFETCH(double, step);

    OverridableLinearScaleEngine ours;
    QwtLinearScaleEngine qwt(10);
    SCALE_COMPARE_DIV(ours.divideScale(x1, x2, maxMajor, maxMinor, step),
                      qwt.divideScale(x1, x2, maxMajor, maxMinor, step));
}

void tst_OverridableLinearScaleEngine::defaultHooksEqualQwtArithmetic()
{
    RecordingEngine engine;
    for (const double width : {0.0, 1.0, 7.3, 300.0, 1e-5, 86400.0}) {
        for (const int steps : {0, 1, 3, 10}) {
            QCOMPARE(engine.calcMajorStepSize(width, steps, 10),
                     QwtScaleArithmetic::divideInterval(width, steps, 10));
        }
    }
    // The minor step of Qwt: a round fraction of the major step, or half the
    // major step when the round fraction does not divide it (10 in 15).
    QCOMPARE(engine.calcMinorStepSize(10.0, 5, 10), 2.0);
    QCOMPARE(engine.calcMinorStepSize(10.0, 10, 10), 1.0);
    QCOMPARE(engine.calcMinorStepSize(20.0, 3, 10), 10.0);
    QCOMPARE(engine.calcMinorStepSize(15.0, 2, 10), 7.5);
    QCOMPARE(engine.calcMinorStepSize(10.0, 0, 10), 0.0);
}

void tst_OverridableLinearScaleEngine::autoScaleAsksMajorHookForTheWidth()
{
    RecordingEngine engine;
    engine.fixedMajor = 7.0;
    const AutoScaled result = autoScaled(engine, 3.0, 40.0, 5);
    QCOMPARE(engine.majorWidths, QList<double>{37.0});
    QCOMPARE(result.step, 7.0);
    QCOMPARE(result.x1, 0.0);
    QCOMPARE(result.x2, 42.0);
}

void tst_OverridableLinearScaleEngine::autoScaleAlignsThroughHookUnlessFloating()
{
    RecordingEngine engine;
    engine.alignShift = 1.0;
    AutoScaled result = autoScaled(engine, 0.0, 100.0, 5);
    QCOMPARE(engine.alignedSteps, QList<double>{20.0});
    QCOMPARE(result.x1, -1.0);
    QCOMPARE(result.x2, 101.0);

    engine.alignedSteps.clear();
    engine.setAttribute(QwtScaleEngine::Floating);
    result = autoScaled(engine, 0.0, 100.0, 5);
    QVERIFY(engine.alignedSteps.isEmpty());
    QCOMPARE(result.x1, 0.0);
    QCOMPARE(result.x2, 100.0);
}

void tst_OverridableLinearScaleEngine::autoScaleInvertsAfterAlignment()
{
    RecordingEngine engine;
    engine.fixedMajor = 7.0;
    engine.setAttribute(QwtScaleEngine::Inverted);
    const AutoScaled result = autoScaled(engine, 3.0, 40.0, 5);
    QCOMPARE(engine.alignedSteps, QList<double>{7.0});
    QCOMPARE(result.x1, 42.0);
    QCOMPARE(result.x2, 0.0);
    QCOMPARE(result.step, -7.0);
}

void tst_OverridableLinearScaleEngine::divideScaleAsksMajorHookOnlyWithoutStep()
{
    RecordingEngine engine;
    engine.fixedMajor = 7.0;
    QwtScaleDiv div = engine.divideScale(0.0, 30.0, 3, 0, 0.0);
    QCOMPARE(engine.majorWidths, QList<double>{30.0});
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{0, 7, 14, 21, 28}));

    engine.majorWidths.clear();
    div = engine.divideScale(0.0, 30.0, 3, 0, -10.0);
    QVERIFY(engine.majorWidths.isEmpty());
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{0, 10, 20, 30}));
}

void tst_OverridableLinearScaleEngine::divideScaleBoundsMajorTicksThroughAlign()
{
    // A bounding interval shifted by half a step puts every major tick
    // between the multiples of the step: a scale set by hand follows align.
    RecordingEngine engine;
    engine.alignShift = 5.0;
    const QwtScaleDiv div = engine.divideScale(0.0, 30.0, 3, 0, 10.0);
    QCOMPARE(engine.alignedSteps, QList<double>{10.0});
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{5, 15, 25}));
    QCOMPARE(div.lowerBound(), 0.0);
    QCOMPARE(div.upperBound(), 30.0);
}

void tst_OverridableLinearScaleEngine::divideScaleSpacesMinorTicksByMinorHook()
{
    RecordingEngine engine;
    engine.fixedMinor = 2.5;
    const QwtScaleDiv div = engine.divideScale(0.0, 20.0, 3, 100, 10.0);
    QCOMPARE(engine.minorSteps, QList<double>{10.0});
    QCOMPARE(div.ticks(QwtScaleDiv::MinorTick), (QList<double>{2.5, 7.5, 12.5, 17.5}));
    QCOMPARE(div.ticks(QwtScaleDiv::MediumTick), (QList<double>{5, 15}));
}

void tst_OverridableLinearScaleEngine::minorHookIsNotAskedWithoutMinorSteps()
{
    RecordingEngine engine;
    engine.fixedMinor = 2.5;
    const QwtScaleDiv div = engine.divideScale(0.0, 20.0, 3, 0, 10.0);
    QVERIFY(engine.minorSteps.isEmpty());
    QVERIFY(div.ticks(QwtScaleDiv::MinorTick).isEmpty());
    QVERIFY(div.ticks(QwtScaleDiv::MediumTick).isEmpty());
}

void tst_OverridableLinearScaleEngine::oddMinorCountGivesAMediumTick()
{
    // Four minor intervals make three ticks inside a step; the middle one is medium.
    RecordingEngine engine;
    engine.fixedMinor = 15.0;
    const QwtScaleDiv div = engine.divideScale(0.0, 60.0, 1, 10, 60.0);
    QCOMPARE(div.ticks(QwtScaleDiv::MinorTick), (QList<double>{15, 45}));
    QCOMPARE(div.ticks(QwtScaleDiv::MediumTick), QList<double>{30});

    // Two intervals make one tick, which is then the medium one.
    engine.fixedMinor = 30.0;
    const QwtScaleDiv halves = engine.divideScale(0.0, 60.0, 1, 10, 60.0);
    QVERIFY(halves.ticks(QwtScaleDiv::MinorTick).isEmpty());
    QCOMPARE(halves.ticks(QwtScaleDiv::MediumTick), QList<double>{30});
}

void tst_OverridableLinearScaleEngine::ticksNearZeroSnapToZero()
{
    OverridableLinearScaleEngine engine;
    const QwtScaleDiv div = engine.divideScale(-0.3, 0.3, 10, 2, 0.1);
    const QList<double> majors = div.ticks(QwtScaleDiv::MajorTick);
    QCOMPARE(majors.size(), 7);
    QVERIFY(majors.contains(0.0));
    for (double tick : majors)
        QVERIFY2(tick == 0.0 || qAbs(tick) > 1e-9, qPrintable(QString::number(tick, 'g', 17)));
}

void tst_OverridableLinearScaleEngine::unusableMinorStepBuildsNoMinorTicks()
{
    RecordingEngine engine;
    for (const double minor : {std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN(), 1e-12}) {
        engine.fixedMinor = minor;
        const QwtScaleDiv div = engine.divideScale(0.0, 20.0, 3, 5, 10.0);
        QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{0, 10, 20}));
        QVERIFY(div.ticks(QwtScaleDiv::MinorTick).isEmpty());
        QVERIFY(div.ticks(QwtScaleDiv::MediumTick).isEmpty());
    }
}

void tst_OverridableLinearScaleEngine::emptyAndOverflowingIntervalsGiveEmptyDivision()
{
    OverridableLinearScaleEngine engine;
    QVERIFY(engine.divideScale(5.0, 5.0, 5, 5).isEmpty());
    const double max = std::numeric_limits<double>::max();
    QVERIFY(engine.divideScale(-max, max, 5, 5).isEmpty());
}

void tst_OverridableLinearScaleEngine::worksOnAPlotAxis()
{
    QwtPlot plot;
    auto *engine = new RecordingEngine;
    engine->fixedMajor = 7.0;
    plot.setAxisScaleEngine(QwtPlot::xBottom, engine);
    plot.setAxisAutoScale(QwtPlot::xBottom, false);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 30.0);
    plot.updateAxes();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick),
             (QList<double>{0, 7, 14, 21, 28}));
}

QTEST_MAIN(tst_OverridableLinearScaleEngine)
#include "tst_overridablelinearscaleengine.moc"
