#include <figura/scales/TimeUtility.h>

#include <QtTest>

#include <cmath>
#include <limits>

class tst_TimeUtility : public QObject
{
    Q_OBJECT

private slots:
    void secondsToTimeSplits_data();
    void secondsToTimeSplits();
    void secondsToTimeWritesEveryOutput();
    void secondsToTimeSurvivesNonFiniteAndHugeValues();

    void secondsToTimeTextFormats_data();
    void secondsToTimeTextFormats();

    void secondsToMillisecondsTruncatesAndSaturates_data();
    void secondsToMillisecondsTruncatesAndSaturates();

    void timeTextToSecondsReads_data();
    void timeTextToSecondsReads();
    void timeTextToSecondsWithFourFieldsLeavesSecondsUntouched();
    void timeTextToSecondsOverflowFails();

    void timeFormatTextNamesTheTwoCodes();
    void timeFormatTextOfUnknownCodeIsNull_data();
    void timeFormatTextOfUnknownCodeIsNull();
    void timeFormatFromTextMatchesExactly_data();
    void timeFormatFromTextMatchesExactly();

    void isAQObjectWithoutParent();
};

void tst_TimeUtility::secondsToTimeSplits_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<double>("secs");

    QTest::newRow("zero") << 0.0 << 0 << 0 << 0.0;
    QTest::newRow("just below a minute") << 59.999 << 0 << 0 << 59.999;
    QTest::newRow("one minute") << 60.0 << 0 << 1 << 0.0;
    QTest::newRow("just below an hour") << 3599.5 << 0 << 59 << 59.5;
    QTest::newRow("one hour") << 3600.0 << 1 << 0 << 0.0;
    QTest::newRow("hours are not wrapped at a day") << 90061.5 << 25 << 1 << 1.5;
    QTest::newRow("negative stays in the seconds") << -5.0 << 0 << 0 << -5.0;
    QTest::newRow("large negative stays in the seconds") << -7200.0 << 0 << 0 << -7200.0;
}

void tst_TimeUtility::secondsToTimeSplits()
{
    QFETCH(double, seconds);
    QFETCH(int, hours);
    QFETCH(int, minutes);
    QFETCH(double, secs);

    int h = -1;
    int m = -1;
    double s = -1.0;
    TimeUtility::secondsToTime(seconds, h, m, s);
    QCOMPARE(h, hours);
    QCOMPARE(m, minutes);
    QVERIFY2(qAbs(s - secs) < 1e-9, qPrintable(QString::number(s, 'g', 17)));
}

void tst_TimeUtility::secondsToTimeWritesEveryOutput()
{
    int h = 42;
    int m = 42;
    double s = 42.0;
    TimeUtility::secondsToTime(10.0, h, m, s);
    QCOMPARE(h, 0);
    QCOMPARE(m, 0);
    QCOMPARE(s, 10.0);
}

void tst_TimeUtility::secondsToTimeSurvivesNonFiniteAndHugeValues()
{
    int h = 42;
    int m = 42;
    double s = 42.0;

    TimeUtility::secondsToTime(std::numeric_limits<double>::quiet_NaN(), h, m, s);
    QCOMPARE(h, 0);
    QCOMPARE(m, 0);
    QVERIFY(std::isnan(s));

    TimeUtility::secondsToTime(1e300, h, m, s);
    QCOMPARE(h, std::numeric_limits<int>::max());

    TimeUtility::secondsToTime(-std::numeric_limits<double>::infinity(), h, m, s);
    QCOMPARE(h, 0);
    QCOMPARE(m, 0);
    QVERIFY(std::isinf(s) && s < 0);
}

void tst_TimeUtility::secondsToTimeTextFormats_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("hourWidth");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");

    QTest::newRow("hour minute second") << 3661.0 << 2 << 0 << QStringLiteral("01:01:01");
    QTest::newRow("three hour digits and a decimal")
        << 3661.5 << 3 << 1 << QStringLiteral("001:01:01.5");
    QTest::newRow("three decimals") << 1.25 << 2 << 3 << QStringLiteral("00:00:01.250");
    QTest::newRow("rounded seconds do not carry") << 59.6 << 2 << 0 << QStringLiteral("00:00:60");
    QTest::newRow("hour width is a minimum") << 360000.0 << 2 << 0 << QStringLiteral("100:00:00");
    QTest::newRow("negative value") << -5.0 << 2 << 0 << QStringLiteral("00:00:-5");
    QTest::newRow("zero with mask width") << 0.0 << 3 << 0 << QStringLiteral("000:00:00");
    QTest::newRow("negative decimals count as none") << 5.0 << 2 << -1 << QStringLiteral("00:00:05");
}

void tst_TimeUtility::secondsToTimeTextFormats()
{
    QFETCH(double, seconds);
    QFETCH(int, hourWidth);
    QFETCH(int, decimals);
    QFETCH(QString, text);

    QCOMPARE(TimeUtility::secondsToTimeText(seconds, hourWidth, decimals), text);
}

void tst_TimeUtility::timeTextToSecondsReads_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<bool>("result");

    QTest::newRow("seconds only") << QStringLiteral("90") << 90 << true;
    QTest::newRow("minutes and seconds") << QStringLiteral("1:30") << 90 << true;
    QTest::newRow("hours minutes seconds") << QStringLiteral("01:02:03") << 3723 << true;
    QTest::newRow("minutes above 59 are taken as they stand") << QStringLiteral("90:00") << 5400 << true;
    QTest::newRow("seconds above 59 are taken as they stand") << QStringLiteral("0:0:75") << 75 << true;
    QTest::newRow("empty second field fails and counts as 0") << QStringLiteral("1:") << 60 << false;
    QTest::newRow("empty first field fails and counts as 0") << QStringLiteral(":30") << 30 << false;
    QTest::newRow("empty text") << QString() << 0 << false;
    QTest::newRow("empty hour field") << QStringLiteral(":1:1") << 61 << false;
    QTest::newRow("letters in the minutes") << QStringLiteral("1:x:5") << 3605 << false;
    QTest::newRow("letters alone") << QStringLiteral("abc") << 0 << false;
    QTest::newRow("decimal seconds are no integer") << QStringLiteral("1.5") << 0 << false;
    QTest::newRow("negative field") << QStringLiteral("-1:30") << -30 << true;
}

void tst_TimeUtility::timeTextToSecondsReads()
{
    QFETCH(QString, text);
    QFETCH(int, seconds);
    QFETCH(bool, result);

    int s = 12345;
    QCOMPARE(TimeUtility::timeTextToSeconds(text, s), result);
    QCOMPARE(s, seconds);
}

void tst_TimeUtility::timeTextToSecondsWithFourFieldsLeavesSecondsUntouched()
{
    int s = 777;
    QVERIFY(!TimeUtility::timeTextToSeconds(QStringLiteral("1:2:3:4"), s));
    QCOMPARE(s, 777);
    QVERIFY(!TimeUtility::timeTextToSeconds(QStringLiteral(":::"), s));
    QCOMPARE(s, 777);
}

void tst_TimeUtility::timeTextToSecondsOverflowFails()
{
    int s = 0;
    QVERIFY(!TimeUtility::timeTextToSeconds(QStringLiteral("999999999:00:00"), s));
    QCOMPARE(s, std::numeric_limits<int>::max());
    QVERIFY(TimeUtility::timeTextToSeconds(QStringLiteral("596523:14:07"), s));
    QCOMPARE(s, std::numeric_limits<int>::max());
}

void tst_TimeUtility::timeFormatTextNamesTheTwoCodes()
{
    QCOMPARE(TimeUtility::timeFormatText(1), QStringLiteral("Elapsed time"));
    QCOMPARE(TimeUtility::timeFormatText(2), QStringLiteral("Local date/time"));
    QCOMPARE(TimeUtility::timeFormatFromText(TimeUtility::timeFormatText(1)), 1);
    QCOMPARE(TimeUtility::timeFormatFromText(TimeUtility::timeFormatText(2)), 2);
}

void tst_TimeUtility::timeFormatTextOfUnknownCodeIsNull_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("0") << 0;
    QTest::newRow("3") << 3;
    QTest::newRow("-1") << -1;
}

void tst_TimeUtility::timeFormatTextOfUnknownCodeIsNull()
{
    QFETCH(int, format);
    QVERIFY(TimeUtility::timeFormatText(format).isNull());
}

void tst_TimeUtility::timeFormatFromTextMatchesExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("format");

    QTest::newRow("elapsed") << QStringLiteral("Elapsed time") << 1;
    QTest::newRow("local") << QStringLiteral("Local date/time") << 2;
    QTest::newRow("case differs") << QStringLiteral("elapsed time") << -1;
    QTest::newRow("trailing blank") << QStringLiteral("Elapsed time ") << -1;
    QTest::newRow("plot title is no format name") << QStringLiteral("Elapsed Time") << -1;
    QTest::newRow("empty") << QString() << -1;
}

void tst_TimeUtility::timeFormatFromTextMatchesExactly()
{
    QFETCH(QString, text);
    QFETCH(int, format);
    QCOMPARE(TimeUtility::timeFormatFromText(text), format);
}

void tst_TimeUtility::isAQObjectWithoutParent()
{
    TimeUtility utility;
    QVERIFY(!utility.parent());
    QCOMPARE(utility.metaObject()->className(), "TimeUtility");
}

void tst_TimeUtility::secondsToMillisecondsTruncatesAndSaturates_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<qint64>("milliseconds");
    const qint64 max = std::numeric_limits<qint64>::max();
    const qint64 min = std::numeric_limits<qint64>::min();
    const double inf = std::numeric_limits<double>::infinity();

    QTest::newRow("zero") << 0.0 << qint64(0);
    QTest::newRow("whole seconds") << 90.0 << qint64(90000);
    QTest::newRow("fraction truncated") << 1.2349 << qint64(1234);
    QTest::newRow("negative truncated toward zero") << -1.2349 << qint64(-1234);
    QTest::newRow("below a millisecond") << 0.0009 << qint64(0);
    QTest::newRow("a century") << 3155760000.0 << qint64(3155760000000);
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << qint64(0);
    QTest::newRow("infinity") << inf << max;
    QTest::newRow("minus infinity") << -inf << min;
    QTest::newRow("beyond qint64") << 1e300 << max;
    QTest::newRow("below qint64") << -1e300 << min;
}

void tst_TimeUtility::secondsToMillisecondsTruncatesAndSaturates()
{
    QFETCH(double, seconds);
    QFETCH(qint64, milliseconds);
    QCOMPARE(TimeUtility::secondsToMilliseconds(seconds), milliseconds);
}

QTEST_GUILESS_MAIN(tst_TimeUtility)
#include "tst_timeutility.moc"
