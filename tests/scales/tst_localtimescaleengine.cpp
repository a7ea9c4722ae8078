#include <figura/scales/LocalTimeScaleEngine.h>

#include "ScaleTestSupport.h"

#include <qwt_interval.h>
#include <qwt_plot.h>

#include <QDateTime>
#include <QTimeZone>
#include <QtTest>

#include <ctime>

using ScaleTest::AutoScaled;
using ScaleTest::autoScaled;

namespace {

class Engine : public LocalTimeScaleEngine
{
public:
    using LocalTimeScaleEngine::align;
};

class ElapsedEngine : public ElapsedTimeScaleEngine
{
public:
    using ElapsedTimeScaleEngine::align;
};

QDateTime local(const char *text)
{
    QDateTime t = QDateTime::fromString(QString::fromLatin1(text), Qt::ISODateWithMs);
    t.setTimeSpec(Qt::LocalTime);
    return t;
}

// The clock times that the major ticks of a division stand for.
QStringList tickClockTimes(const QwtScaleDiv &div, const QDateTime &reference,
                           const QString &format = QStringLiteral("hh:mm:ss"))
{
    QStringList times;
    for (double tick : div.ticks(QwtScaleDiv::MajorTick))
        times << reference.addMSecs(qint64(tick * 1000.0)).toString(format);
    return times;
}

QString intervalText(const QwtInterval &i)
{
    return QStringLiteral("[%1, %2]").arg(i.minValue(), 0, 'g', 17).arg(i.maxValue(), 0, 'g', 17);
}

} // namespace

class tst_LocalTimeScaleEngine : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        // Daylight saving tests need a zone that has it; ctest sets the same.
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }

private slots:
    void initTestCase();

    void alignShiftsByTimeOfDayModuloStep_data();
    void alignShiftsByTimeOfDayModuloStep();
    void tickAfterReferenceReadsRoundClockTime();
    void autoScaleAlignsToClockTimes();
    void scaleSetByHandAlignsToClockTimes();
    void referenceAtMidnightGivesElapsedTicks();

    void nullOrInvalidReferenceBehavesAsElapsed_data();
    void nullOrInvalidReferenceBehavesAsElapsed();
    void setReferenceTimeReadsThePointeeAtDivision();
    void stepBelowOneMillisecondKeepsBaseAlignment();
    void nonPositiveStepKeepsBaseAlignment();

    void ticksCrossMidnightOnRoundTimes();
    void hourTicksCrossMidnight();
    void springForwardKeepsMinuteTicksRound();
    void springForwardDayAlignsHoursAfterTheChange();
    void twoHourStepsCountRealSecondsSinceMidnightOnDaylightSavingDay();
    void fallBackKeepsMinuteTicksRound();
    void utcReferenceAlignsToItsOwnClock();
};

void tst_LocalTimeScaleEngine::initTestCase()
{
    // 2024-03-31 02:00 does not exist in Berlin: the zone must be in force.
    const QDateTime before = local("2024-03-31T01:59:00");
    QCOMPARE(before.addSecs(60).toString(QStringLiteral("hh:mm")), QStringLiteral("03:00"));
}

void tst_LocalTimeScaleEngine::alignShiftsByTimeOfDayModuloStep_data()
{
    QTest::addColumn<QDateTime>("reference");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("x1");
    QTest::addColumn<double>("x2");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");

    QTest::newRow("step 60 at 10:17:23: offset 23")
        << local("2024-05-06T10:17:23") << 60.0 << 0.0 << 300.0 << -23.0 << 337.0;
    QTest::newRow("step 0.5 at 10:17:23.700: offset 0.2")
        << local("2024-05-06T10:17:23.700") << 0.5 << 0.0 << 2.0 << -0.2 << 2.3;
    QTest::newRow("step 1.5 truncates to 1: offset 0")
        << local("2024-05-06T10:17:23.700") << 1.5 << 0.0 << 3.0 << 0.0 << 3.0;
    QTest::newRow("step 3600 at 10:17:23: offset 1043")
        << local("2024-05-06T10:17:23") << 3600.0 << 0.0 << 7200.0 << -1043.0 << 9757.0;
    QTest::newRow("upper bound still covering needs no step")
        << local("2024-05-06T10:17:23") << 60.0 << 0.0 << 250.0 << -23.0 << 277.0;
    QTest::newRow("step 0.2 on milliseconds")
        << local("2024-05-06T10:17:23.130") << 0.2 << 1.0 << 2.0 << 0.87 << 2.07;
}

void tst_LocalTimeScaleEngine::alignShiftsByTimeOfDayModuloStep()
{
    QFETCH(QDateTime, reference);
    QFETCH(double, step);
    QFETCH(double, x1);
    QFETCH(double, x2);
    QFETCH(double, lower);
    QFETCH(double, upper);

    Engine engine;
    engine.setReferenceTime(&reference);
    const QwtInterval aligned = engine.align(QwtInterval(x1, x2), step);
    QVERIFY2(qAbs(aligned.minValue() - lower) < 1e-9 && qAbs(aligned.maxValue() - upper) < 1e-9,
             qPrintable(intervalText(aligned)));
}

void tst_LocalTimeScaleEngine::tickAfterReferenceReadsRoundClockTime()
{
    const QDateTime reference = local("2024-05-06T10:17:23");
    Engine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 300.0, 10, 0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{37, 97, 157, 217, 277}));
    QCOMPARE(tickClockTimes(div, reference),
             (QStringList{QStringLiteral("10:18:00"), QStringLiteral("10:19:00"),
                          QStringLiteral("10:20:00"), QStringLiteral("10:21:00"),
                          QStringLiteral("10:22:00")}));
}

void tst_LocalTimeScaleEngine::autoScaleAlignsToClockTimes()
{
    const QDateTime reference = local("2024-05-06T10:17:23");
    Engine engine;
    engine.setReferenceTime(&reference);
    const AutoScaled result = autoScaled(engine, 0.0, 250.0, 10);
    QCOMPARE(result.step, 30.0);
    QCOMPARE(result.x1, -23.0);
    QCOMPARE(result.x2, 277.0);
}

void tst_LocalTimeScaleEngine::scaleSetByHandAlignsToClockTimes()
{
    QDateTime reference = local("2024-05-06T10:17:23");
    auto *engine = new LocalTimeScaleEngine;
    engine->setReferenceTime(&reference);
    QwtPlot plot;
    plot.setAxisScaleEngine(QwtPlot::xBottom, engine);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 300.0);
    plot.updateAxes();
    const QwtScaleDiv div = plot.axisScaleDiv(QwtPlot::xBottom);
    QCOMPARE(div.lowerBound(), 0.0);
    QCOMPARE(div.upperBound(), 300.0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{37, 97, 157, 217, 277}));
    // Minor ticks follow the shifted majors: quarter minutes on the clock.
    QVERIFY(div.ticks(QwtScaleDiv::MinorTick).contains(22.0));
    QVERIFY(div.ticks(QwtScaleDiv::MediumTick).contains(67.0));
}

void tst_LocalTimeScaleEngine::referenceAtMidnightGivesElapsedTicks()
{
    const QDateTime reference = local("2024-05-06T00:00:00");
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    ElapsedTimeScaleEngine elapsed;
    for (const double upper : {1.5, 100.0, 3600.0, 86400.0 * 3})
        SCALE_COMPARE_DIV(engine.divideScale(0.0, upper, 5, 5), elapsed.divideScale(0.0, upper, 5, 5));
}

void tst_LocalTimeScaleEngine::nullOrInvalidReferenceBehavesAsElapsed_data()
{
    QTest::addColumn<int>("setting");

    QTest::newRow("never set") << 0;
    QTest::newRow("set to null") << 1;
    QTest::newRow("invalid date and time") << 2;
}

void tst_LocalTimeScaleEngine::nullOrInvalidReferenceBehavesAsElapsed()
{
    QFETCH(int, setting);

    Engine engine;
    ElapsedEngine elapsed;
    const QDateTime valid = local("2024-05-06T10:17:23");
    const QDateTime invalid(QDate(2024, 13, 40), QTime(10, 0));
    QVERIFY(!invalid.isValid());
    if (setting == 1) {
        engine.setReferenceTime(&valid);
        engine.setReferenceTime(nullptr);
    } else if (setting == 2) {
        engine.setReferenceTime(&invalid);
    }

    const struct { double x1, x2; } intervals[] = {
        {0, 300}, {3.3, 97.1}, {-10, 20}, {1000, 250000}, {0, 1.7}, {5, 5},
    };
    for (const auto &i : intervals) {
        SCALE_COMPARE_DIV(engine.divideScale(i.x1, i.x2, 5, 5), elapsed.divideScale(i.x1, i.x2, 5, 5));
        SCALE_COMPARE_AUTOSCALED(autoScaled(engine, i.x1, i.x2), autoScaled(elapsed, i.x1, i.x2));
        const QwtInterval a = engine.align(QwtInterval(i.x1, i.x2), 60.0);
        const QwtInterval b = elapsed.align(QwtInterval(i.x1, i.x2), 60.0);
        QCOMPARE(a.minValue(), b.minValue());
        QCOMPARE(a.maxValue(), b.maxValue());
    }
}

void tst_LocalTimeScaleEngine::setReferenceTimeReadsThePointeeAtDivision()
{
    QDateTime reference = local("2024-05-06T10:17:23");
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    QCOMPARE(engine.divideScale(0.0, 300.0, 10, 0).ticks(QwtScaleDiv::MajorTick).first(), 37.0);

    // The plot changes its own copy in place; the engine reads it next time.
    reference = local("2024-05-06T10:17:50");
    QCOMPARE(engine.divideScale(0.0, 300.0, 10, 0).ticks(QwtScaleDiv::MajorTick).first(), 10.0);
}

void tst_LocalTimeScaleEngine::stepBelowOneMillisecondKeepsBaseAlignment()
{
    // The modulus truncates to zero milliseconds: there is nothing to divide by.
    const QDateTime reference = local("2024-05-06T10:17:23.700");
    Engine engine;
    ElapsedEngine elapsed;
    engine.setReferenceTime(&reference);
    const QwtInterval a = engine.align(QwtInterval(0.0, 0.01), 0.0005);
    const QwtInterval b = elapsed.align(QwtInterval(0.0, 0.01), 0.0005);
    QCOMPARE(a.minValue(), b.minValue());
    QCOMPARE(a.maxValue(), b.maxValue());
}

void tst_LocalTimeScaleEngine::nonPositiveStepKeepsBaseAlignment()
{
    const QDateTime reference = local("2024-05-06T10:17:23.700");
    Engine engine;
    ElapsedEngine elapsed;
    engine.setReferenceTime(&reference);
    for (const double step : {0.0, -60.0}) {
        const QwtInterval a = engine.align(QwtInterval(0.0, 300.0), step);
        const QwtInterval b = elapsed.align(QwtInterval(0.0, 300.0), step);
        QVERIFY(ScaleTest::sameDouble(a.minValue(), b.minValue()));
        QVERIFY(ScaleTest::sameDouble(a.maxValue(), b.maxValue()));
    }
}

void tst_LocalTimeScaleEngine::ticksCrossMidnightOnRoundTimes()
{
    const QDateTime reference = local("2024-05-06T23:47:10");
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 1200.0, 10, 0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{170, 470, 770, 1070}));
    QCOMPARE(tickClockTimes(div, reference, QStringLiteral("yyyy-MM-dd hh:mm:ss")),
             (QStringList{QStringLiteral("2024-05-06 23:50:00"), QStringLiteral("2024-05-06 23:55:00"),
                          QStringLiteral("2024-05-07 00:00:00"), QStringLiteral("2024-05-07 00:05:00")}));
}

void tst_LocalTimeScaleEngine::hourTicksCrossMidnight()
{
    const QDateTime reference = local("2024-05-06T22:30:00");
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 20000.0, 10, 0);
    QCOMPARE(tickClockTimes(div, reference, QStringLiteral("dd hh:mm:ss")),
             (QStringList{QStringLiteral("06 23:00:00"), QStringLiteral("07 00:00:00"),
                          QStringLiteral("07 01:00:00"), QStringLiteral("07 02:00:00"),
                          QStringLiteral("07 03:00:00"), QStringLiteral("07 04:00:00")}));
}

void tst_LocalTimeScaleEngine::springForwardKeepsMinuteTicksRound()
{
    // 02:00 CET is 03:00 CEST: the clock skips an hour between two ticks.
    const QDateTime reference = local("2024-03-31T01:47:10");
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 1200.0, 10, 0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{170, 470, 770, 1070}));
    QCOMPARE(tickClockTimes(div, reference),
             (QStringList{QStringLiteral("01:50:00"), QStringLiteral("01:55:00"),
                          QStringLiteral("03:00:00"), QStringLiteral("03:05:00")}));
}

void tst_LocalTimeScaleEngine::springForwardDayAlignsHoursAfterTheChange()
{
    const QDateTime reference = local("2024-03-31T10:17:23");
    Engine engine;
    engine.setReferenceTime(&reference);

    const QwtScaleDiv minutes = engine.divideScale(0.0, 300.0, 10, 0);
    QCOMPARE(tickClockTimes(minutes, reference).first(), QStringLiteral("10:18:00"));

    const QwtScaleDiv hours = engine.divideScale(0.0, 20000.0, 10, 0);
    QCOMPARE(tickClockTimes(hours, reference).first(), QStringLiteral("11:00:00"));
    for (const QString &time : tickClockTimes(hours, reference))
        QVERIFY2(time.endsWith(QLatin1String(":00:00")), qPrintable(time));
}

void tst_LocalTimeScaleEngine::twoHourStepsCountRealSecondsSinceMidnightOnDaylightSavingDay()
{
    // Only 9 h 17 min 23 s have passed since midnight at 10:17:23 on this day,
    // so two-hour ticks fall on odd clock hours; on other days on even ones.
    const QDateTime dstDay = local("2024-03-31T10:17:23");
    const QDateTime ordinaryDay = local("2024-05-06T10:17:23");
    Engine engine;

    engine.setReferenceTime(&dstDay);
    const QwtScaleDiv onDstDay = engine.divideScale(0.0, 60000.0, 10, 0);
    QCOMPARE(onDstDay.ticks(QwtScaleDiv::MajorTick).first(), 2557.0);
    QCOMPARE(tickClockTimes(onDstDay, dstDay).first(), QStringLiteral("11:00:00"));

    engine.setReferenceTime(&ordinaryDay);
    const QwtScaleDiv onOrdinaryDay = engine.divideScale(0.0, 60000.0, 10, 0);
    QCOMPARE(tickClockTimes(onOrdinaryDay, ordinaryDay).first(), QStringLiteral("12:00:00"));
}

void tst_LocalTimeScaleEngine::fallBackKeepsMinuteTicksRound()
{
    // 03:00 CEST is 02:00 CET: the clock repeats an hour. The reference is
    // the first 02:47:10 of the day, made from UTC to be unambiguous.
    const QDateTime reference =
        QDateTime(QDate(2024, 10, 27), QTime(0, 47, 10), Qt::UTC).toLocalTime();
    QCOMPARE(reference.toString(QStringLiteral("hh:mm:ss")), QStringLiteral("02:47:10"));
    QVERIFY(reference.isDaylightTime());

    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 1200.0, 10, 0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick), (QList<double>{170, 470, 770, 1070}));
    QCOMPARE(tickClockTimes(div, reference),
             (QStringList{QStringLiteral("02:50:00"), QStringLiteral("02:55:00"),
                          QStringLiteral("02:00:00"), QStringLiteral("02:05:00")}));

    const QDateTime later = local("2024-10-27T10:17:23");
    engine.setReferenceTime(&later);
    const QwtScaleDiv hours = engine.divideScale(0.0, 20000.0, 10, 0);
    QCOMPARE(tickClockTimes(hours, later).first(), QStringLiteral("11:00:00"));
}

void tst_LocalTimeScaleEngine::utcReferenceAlignsToItsOwnClock()
{
    // Midnight is taken in the reference's own time zone: three-hour ticks
    // fall on 12:00 UTC, not on 13:00 UTC (15:00 in Berlin, from Berlin's midnight).
    const QDateTime reference(QDate(2024, 5, 6), QTime(10, 17, 23), Qt::UTC);
    LocalTimeScaleEngine engine;
    engine.setReferenceTime(&reference);
    const QwtScaleDiv div = engine.divideScale(0.0, 100000.0, 10, 0);
    QCOMPARE(div.ticks(QwtScaleDiv::MajorTick).first(), 6157.0);
    QCOMPARE(tickClockTimes(div, reference).first(), QStringLiteral("12:00:00"));
}

QTEST_MAIN(tst_LocalTimeScaleEngine)
#include "tst_localtimescaleengine.moc"
