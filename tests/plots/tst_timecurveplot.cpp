// TimeCurvePlot without a window: construction, the two time formats with
// their engines and titles, the read-out texts of x, the reference time and
// the axis title that follows the label format reported by the draw.

#include "TimeCurvePlotProbe.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CustomScaleSettings.h>
#include <figura/scales/ElapsedTimeScaleEngine.h>
#include <figura/scales/LocalTimeScaleEngine.h>
#include <figura/scales/TimeScaleDraw.h>

#include <TestSupport.h>

#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>

#include <qwt_plot_grid.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

using TestSupport::MarkingTranslator;

namespace {

QList<double> ticksFrom(double first, double step, double last)
{
    QList<double> ticks;
    for (double x = first; x <= last + 1e-9; x += step)
        ticks.append(x);
    return ticks;
}

const ElapsedTimeScaleEngine *elapsedEngine(const QwtPlot &plot)
{
    return dynamic_cast<const ElapsedTimeScaleEngine *>(plot.axisScaleEngine(QwtPlot::xBottom));
}

const LocalTimeScaleEngine *localEngine(const QwtPlot &plot)
{
    return dynamic_cast<const LocalTimeScaleEngine *>(plot.axisScaleEngine(QwtPlot::xBottom));
}

QString xTitle(const QwtPlot &plot)
{
    return plot.axisTitle(QwtPlot::xBottom).text();
}

// 10:17:23.700 on a day without a change of daylight saving near it.
QDateTime morning()
{
    return QDateTime(QDate(2024, 3, 5), QTime(10, 17, 23, 700), Qt::LocalTime);
}

} // namespace

class tst_TimeCurvePlot : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        // Local time differs from UTC here, so that a conversion shows.
        qputenv("TZ", "Europe/Berlin");
    }

private Q_SLOTS:
    void initTestCase();

    void constructionSetsTimeAxisOptionsAndItems();
    void constructionDividesTheAxisWithTheElapsedEngine();
    void titlesAreTranslatedInTheContextOfTheClass();
    void rttiIsThree();

    void defaultAxisTitleFollowsTheDefaultTimeFormat();
    void setDefaultTimeFormatChangesNothingElse();
    void setInitialXIntervalFixesZeroTo300Seconds();

    void setTimeFormatLocalSwapsEngineAndTitleSilently();
    void setTimeFormatBackToElapsed();
    void setTimeFormatAgainRemakesTheEngine();
    void setTimeFormatIgnoresUnknownCodes_data();
    void setTimeFormatIgnoresUnknownCodes();
    void setTimeFormatHandsTheReferenceToEngineAndDraw();
    void updateTimeFormatEmitsOnlyOnChange_data();
    void updateTimeFormatEmitsOnlyOnChange();

    void elapsedTimeText_data();
    void elapsedTimeText();
    void localTimeText_data();
    void localTimeText();
    void localTimeTextWithoutReferenceIsEmpty();
    void readoutLineOfXIsTheBareTime();
    void readoutWithoutReferenceStartsWithTheSeparator();
    void otherAxesReadAsInCurvePlot();

    void utcReferenceIsStoredAsTheSameInstantInLocalTime();
    void referenceIsTheProductsOwnCopyKeptAtOneAddress();
    void drawReadsTheNewReference();
    void referenceChangeRealignsAFixedLocalAxisWithoutReplot();
    void referenceChangeLeavesAnAutoScaledAxisAutoScaled();
    void nullReferenceInLocalFormatKeepsEngineAndDropsTheDate();
    void invalidReferenceClearsSilently();

    void reportedFormatGoesInParentheses();
    void repeatedFormatChangesNothing();
    void emptyFormatLeavesThePlainTitle();
    void localFormatTitleCarriesTheName();
    void setTimeFormatDropsTheReportedFormat();
    void drawReportBypassesAHostOverride();

    void replacedDrawIsForgotten();
    void drawDiesWithThePlot();
};

void tst_TimeCurvePlot::initTestCase()
{
    const QDateTime utc(QDate(2024, 3, 5), QTime(8, 0), Qt::UTC);
    QCOMPARE(utc.toLocalTime().time(), QTime(9, 0));
}

void tst_TimeCurvePlot::constructionSetsTimeAxisOptionsAndItems()
{
    TimeCurvePlotProbe plot;
    QCOMPARE(plot.contextMenuItems(), 0x3FF);
    QCOMPARE(plot.customPlotOptions(), 0x3CF);
    QVERIFY(plot.isAutoScroll());
    QCOMPARE(plot.xScaleType, CustomScale::TimeScale);
    QCOMPARE(plot.timeFormat(), 1);
    QCOMPARE(plot.defaultTimeFormat(), 1);
    QVERIFY(!plot.referenceTime);
    QVERIFY(plot.grid->xMinEnabled());
    QVERIFY(plot.axisAutoScale(QwtPlot::yLeft));
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));

    QVERIFY(plot.timeScaleDraw);
    QCOMPARE(static_cast<const QwtScaleDraw *>(plot.timeScaleDraw),
             plot.axisScaleDraw(QwtPlot::xBottom));
    QVERIFY(elapsedEngine(plot));
    QVERIFY(!localEngine(plot));

    const QwtText title = plot.axisTitle(QwtPlot::xBottom);
    QCOMPARE(title.text(), QStringLiteral("Elapsed Time"));
    QCOMPARE(title.color(), PlotDefault::TitleTextColor);
    QCOMPARE(title.font(), plot.defaultAxisTitleText.font());
}

void tst_TimeCurvePlot::constructionDividesTheAxisWithTheElapsedEngine()
{
    // The constructor's replot has divided 0 to 300 s with the time steps.
    TimeCurvePlotProbe plot;
    const QwtScaleDiv &div = plot.axisScaleDiv(QwtPlot::xBottom);
    QCOMPARE(div.lowerBound(), PlotDefault::XTimeMin);
    QCOMPARE(div.upperBound(), PlotDefault::XTimeUpper);
    QCOMPARE(plot.majorTicks(), ticksFrom(0.0, 60.0, 300.0));
    // Four minor intervals per minute; Qwt makes the middle one a medium tick.
    QVERIFY(div.ticks(QwtScaleDiv::MinorTick).contains(15.0));
    QVERIFY(div.ticks(QwtScaleDiv::MediumTick).contains(30.0));
}

void tst_TimeCurvePlot::titlesAreTranslatedInTheContextOfTheClass()
{
    MarkingTranslator translator("TimeCurvePlot");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    TimeCurvePlotProbe plot;
    plot.setXScale(0.0, 1000.0);
    const QString dayText = plot.axisValueText(QwtPlot::xBottom, 90000.0);
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(plot.elapsedTitle, QStringLiteral("<Elapsed Time>"));
    QCOMPARE(plot.localTitle, QStringLiteral("<Local Time>"));
    QCOMPARE(xTitle(plot), QStringLiteral("<Elapsed Time>"));
    QCOMPARE(dayText, QStringLiteral("<1d >01:00:00"));
}

void tst_TimeCurvePlot::rttiIsThree()
{
    TimeCurvePlotProbe plot;
    QCOMPARE(plot.rtti(), 3);
    VoidPlot &frame = plot;
    QCOMPARE(frame.rtti(), 3);
}

void tst_TimeCurvePlot::defaultAxisTitleFollowsTheDefaultTimeFormat()
{
    TimeCurvePlotProbe plot;
    QwtText title = plot.defaultAxisTitle(QwtPlot::xBottom);
    QCOMPARE(title.text(), QStringLiteral("Elapsed Time"));
    QCOMPARE(title.color(), plot.defaultAxisTitleText.color());
    QCOMPARE(title.font(), plot.defaultAxisTitleText.font());

    plot.setDefaultTimeFormat(2);
    title = plot.defaultAxisTitle(QwtPlot::xBottom);
    QCOMPARE(title.text(), QStringLiteral("Local Time"));
    QCOMPARE(title.color(), plot.defaultAxisTitleText.color());

    // The other axes keep the frame's snapshot as it stands.
    for (int axisId : {int(QwtPlot::yLeft), int(QwtPlot::yRight), int(QwtPlot::xTop)})
        QVERIFY(plot.defaultAxisTitle(axisId) == plot.defaultAxisTitleText);
}

void tst_TimeCurvePlot::setDefaultTimeFormatChangesNothingElse()
{
    TimeCurvePlotProbe plot;
    const QwtScaleEngine *engine = plot.axisScaleEngine(QwtPlot::xBottom);
    QSignalSpy changed(&plot, &TimeCurvePlot::timeFormatChanged);
    plot.setDefaultTimeFormat(2);
    QCOMPARE(plot.defaultTimeFormat(), 2);
    QCOMPARE(plot.timeFormat(), 1);
    QCOMPARE(plot.axisScaleEngine(QwtPlot::xBottom), engine);
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
    QCOMPARE(changed.count(), 0);
}

void tst_TimeCurvePlot::setInitialXIntervalFixesZeroTo300Seconds()
{
    TimeCurvePlotProbe plot;
    plot.setAxisAutoScale(QwtPlot::xBottom, true);
    plot.setInitialXInterval();
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));
    plot.updateAxes();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).lowerBound(), 0.0);
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).upperBound(), 300.0);
}

void tst_TimeCurvePlot::setTimeFormatLocalSwapsEngineAndTitleSilently()
{
    TimeCurvePlotProbe plot;
    plot.settle();
    QwtText styled(QStringLiteral("Elapsed Time (hh:mm)"));
    styled.setColor(Qt::darkRed);
    styled.setFont(QFont(QStringLiteral("Serif"), 15));
    plot.setAxisTitle(QwtPlot::xBottom, styled);
    QSignalSpy changed(&plot, &TimeCurvePlot::timeFormatChanged);

    plot.setTimeFormat(2);

    QCOMPARE(plot.timeFormat(), 2);
    QVERIFY(localEngine(plot));
    const QwtText title = plot.axisTitle(QwtPlot::xBottom);
    QCOMPARE(title.text(), QStringLiteral("Local Time"));
    QCOMPARE(title.color(), QColor(Qt::darkRed));
    QCOMPARE(title.font(), QFont(QStringLiteral("Serif"), 15));
    QCOMPARE(changed.count(), 0);
    QCOMPARE(plot.replots, 0);
    QCoreApplication::processEvents();
    QCOMPARE(plot.replots, 0);
}

void tst_TimeCurvePlot::setTimeFormatBackToElapsed()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    plot.setXScale(0.0, 600.0);
    // Whole seconds for steps of a second or more: 10:17:23.700 counts as 10:17:23.
    QCOMPARE(plot.majorTicks().first(), 37.0);

    plot.setTimeFormat(1);
    QVERIFY(elapsedEngine(plot));
    QVERIFY(!localEngine(plot));
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
    plot.updateAxes();
    QCOMPARE(plot.majorTicks(), ticksFrom(0.0, 60.0, 600.0));
    QCOMPARE(plot.timeScaleDraw->label(90.0).text(), QStringLiteral("00:01"));
}

void tst_TimeCurvePlot::setTimeFormatAgainRemakesTheEngine()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    const QwtScaleEngine *first = plot.axisScaleEngine(QwtPlot::xBottom);
    plot.setTimeFormat(2);
    QVERIFY(plot.axisScaleEngine(QwtPlot::xBottom) != first);
    QVERIFY(localEngine(plot));

    const QwtScaleEngine *elapsed = plot.axisScaleEngine(QwtPlot::xBottom);
    plot.setTimeFormat(1);
    const QwtScaleEngine *again = plot.axisScaleEngine(QwtPlot::xBottom);
    plot.setTimeFormat(1);
    QVERIFY(again != elapsed);
    QVERIFY(plot.axisScaleEngine(QwtPlot::xBottom) != again);
}

void tst_TimeCurvePlot::setTimeFormatIgnoresUnknownCodes_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("code");
    QTest::newRow("0 on elapsed") << 1 << 0;
    QTest::newRow("3 on elapsed") << 1 << 3;
    QTest::newRow("-1 on local") << 2 << -1;
    QTest::newRow("100 on local") << 2 << 100;
}

void tst_TimeCurvePlot::setTimeFormatIgnoresUnknownCodes()
{
    QFETCH(int, start);
    QFETCH(int, code);
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(start);
    const QwtScaleEngine *engine = plot.axisScaleEngine(QwtPlot::xBottom);
    const QString title = xTitle(plot);

    plot.setTimeFormat(code);

    QCOMPARE(plot.timeFormat(), start);
    QCOMPARE(plot.axisScaleEngine(QwtPlot::xBottom), engine);
    QCOMPARE(xTitle(plot), title);
}

void tst_TimeCurvePlot::setTimeFormatHandsTheReferenceToEngineAndDraw()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference = QDateTime(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference); // while elapsed
    plot.setXScale(0.0, 600.0);
    QCOMPARE(plot.majorTicks().first(), 0.0);

    plot.setTimeFormat(2);
    plot.updateAxes();
    // A tick at 37 s reads 10:18:00.
    QCOMPARE(plot.majorTicks().first(), 37.0);
    QCOMPARE(plot.majorTicks().last(), 577.0);
    QCOMPARE(plot.timeScaleDraw->label(37.0).text(), QStringLiteral("   10:18\n2024-03-05"));
}

void tst_TimeCurvePlot::updateTimeFormatEmitsOnlyOnChange_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("format");  // after the call
    QTest::addColumn<int>("emitted"); // the signal's argument, or 0 for none
    QTest::newRow("elapsed to local") << 1 << 2 << 2 << 2;
    QTest::newRow("local to elapsed") << 2 << 1 << 1 << 1;
    QTest::newRow("same format") << 1 << 1 << 1 << 0;
    // Compares only: an unknown code is told although nothing changed.
    QTest::newRow("unknown code") << 1 << 5 << 1 << 5;
}

void tst_TimeCurvePlot::updateTimeFormatEmitsOnlyOnChange()
{
    QFETCH(int, start);
    QFETCH(int, code);
    QFETCH(int, format);
    QFETCH(int, emitted);
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(start);
    QSignalSpy changed(&plot, &TimeCurvePlot::timeFormatChanged);

    plot.updateTimeFormat(code);

    QCOMPARE(plot.timeFormat(), format);
    if (emitted == 0) {
        QCOMPARE(changed.count(), 0);
    } else {
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), emitted);
    }
}

void tst_TimeCurvePlot::elapsedTimeText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("span");
    QTest::addColumn<QString>("text");
    QTest::newRow("day, seconds rounded") << 90061.5 << 1000.0 << QStringLiteral("1d 01:01:02");
    QTest::newRow("day, milliseconds") << 90061.5 << 2.0 << QStringLiteral("1d 01:01:01.500");
    QTest::newRow("milliseconds with zeros in front")
        << 1.25 << 2.0 << QStringLiteral("00:00:01.250");
    QTest::newRow("zero on a long span") << 0.0 << 1000.0 << QStringLiteral("00:00:00");
    QTest::newRow("zero on a short span") << 0.0 << 2.0 << QStringLiteral("00:00:00");
    QTest::newRow("next to zero on a short span") << 1e-13 << 2.0 << QStringLiteral("00:00:00");
    QTest::newRow("negative") << -1.0 << 1000.0 << QString();
    QTest::newRow("negative on a short span") << -0.5 << 2.0 << QString();
    QTest::newRow("one day") << 86400.0 << 1000.0 << QStringLiteral("1d 00:00:00");
    QTest::newRow("one day on a short span") << 86400.0 << 2.0 << QStringLiteral("1d 00:00:00.000");
    QTest::newRow("seconds round to 60") << 59.6 << 1000.0 << QStringLiteral("00:00:60");
    QTest::newRow("span of 4 s shows whole seconds") << 1.25 << 4.0 << QStringLiteral("00:00:01");
    QTest::newRow("end of the first day") << 86399.0 << 1000.0 << QStringLiteral("23:59:59");
    QTest::newRow("ten days") << 882000.0 << 1000.0 << QStringLiteral("10d 05:00:00");
}

void tst_TimeCurvePlot::elapsedTimeText()
{
    QFETCH(double, value);
    QFETCH(double, span);
    QFETCH(QString, text);
    TimeCurvePlotProbe plot;
    plot.setXScale(0.0, span);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, value), text);
}

void tst_TimeCurvePlot::localTimeText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("span");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole seconds") << 5.0 << 300.0 << QStringLiteral("2024-03-05 10:17:28");
    QTest::newRow("milliseconds") << 0.25 << 2.0 << QStringLiteral("2024-03-05 10:17:23.950");
    QTest::newRow("milliseconds truncated") << 0.0019 << 2.0 << QStringLiteral("2024-03-05 10:17:23.701");
    QTest::newRow("zero point") << 0.0 << 2.0 << QStringLiteral("2024-03-05 10:17:23");
    QTest::newRow("span of 4 s") << 0.25 << 4.0 << QStringLiteral("2024-03-05 10:17:23");
    QTest::newRow("the date changes") << 90000.0 << 1000.0 << QStringLiteral("2024-03-06 11:17:23");
    QTest::newRow("negative") << -1.0 << 300.0 << QString();
}

void tst_TimeCurvePlot::localTimeText()
{
    QFETCH(double, value);
    QFETCH(double, span);
    QFETCH(QString, text);
    TimeCurvePlotProbe plot;
    const QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    plot.setXScale(0.0, span);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, value), text);
}

void tst_TimeCurvePlot::localTimeTextWithoutReferenceIsEmpty()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 5.0), QString());
    QCOMPARE(plot.timeScaleDraw->label(5.0).text(), QString());
}

void tst_TimeCurvePlot::readoutLineOfXIsTheBareTime()
{
    TimeCurvePlotProbe plot;
    plot.appendCurve(timeCurve(QStringLiteral("c1"), 10, 5.0), true);
    plot.displayMarkers(0, QPointF(10.0, 3.0));
    QCOMPARE(plot.marker->label().text(),
             QStringLiteral("00:00:10\r\nc1: ") + QLocale().toString(3.0, 'f', 4));
}

void tst_TimeCurvePlot::readoutWithoutReferenceStartsWithTheSeparator()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    plot.appendCurve(timeCurve(QStringLiteral("c1"), 10, 5.0), true);
    plot.displayMarkers(0, QPointF(10.0, 3.0));
    QCOMPARE(plot.marker->xValue(), 10.0);
    QCOMPARE(plot.marker->label().text(), QStringLiteral("\r\nc1: ") + QLocale().toString(3.0, 'f', 4));
}

void tst_TimeCurvePlot::otherAxesReadAsInCurvePlot()
{
    TimeCurvePlotProbe plot;
    QCOMPARE(plot.axisValueText(QwtPlot::yLeft, 0.5), QLocale().toString(0.5, 'f', 4));
    QCOMPARE(plot.axisValueText(QwtPlot::yRight, 1e-5), QLocale().toString(1e-5, 'e', 2));
}

void tst_TimeCurvePlot::utcReferenceIsStoredAsTheSameInstantInLocalTime()
{
    TimeCurvePlotProbe plot;
    const QDateTime utc(QDate(2024, 3, 5), QTime(8, 0), Qt::UTC);
    plot.setReferenceTime(&utc);
    QVERIFY(plot.referenceTime);
    QCOMPARE(plot.referenceTime->timeSpec(), Qt::LocalTime);
    QCOMPARE(plot.referenceTime->toMSecsSinceEpoch(), utc.toMSecsSinceEpoch());
    QCOMPARE(plot.referenceTime->time(), QTime(9, 0));

    plot.setTimeFormat(2);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 0.0), QStringLiteral("2024-03-05 09:00:00"));
}

void tst_TimeCurvePlot::referenceIsTheProductsOwnCopyKeptAtOneAddress()
{
    TimeCurvePlotProbe plot;
    QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    const QDateTime *kept = plot.referenceTime;
    QVERIFY(kept);
    QVERIFY(kept != &reference);

    reference = reference.addDays(3);
    QCOMPARE(*plot.referenceTime, morning());

    plot.setReferenceTime(&reference);
    QCOMPARE(plot.referenceTime, kept);
    QCOMPARE(*plot.referenceTime, morning().addDays(3));
}

void tst_TimeCurvePlot::drawReadsTheNewReference()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    plot.setXScale(0.0, 100.0);
    const QDateTime first = morning();
    plot.setReferenceTime(&first);
    QCOMPARE(plot.timeScaleDraw->label(0.0).text(), QStringLiteral(" 10:17:23\n2024-03-05"));

    const QDateTime second(QDate(2025, 1, 2), QTime(23, 59, 30), Qt::LocalTime);
    plot.setReferenceTime(&second);
    QCOMPARE(plot.timeScaleDraw->label(40.0).text(), QStringLiteral(" 00:00:10\n2025-01-03"));
}

void tst_TimeCurvePlot::referenceChangeRealignsAFixedLocalAxisWithoutReplot()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    plot.setXScale(0.0, 600.0);
    plot.settle();

    const QDateTime first(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&first);
    QCOMPARE(plot.majorTicks().first(), 37.0);

    const QDateTime second(QDate(2024, 3, 5), QTime(10, 17, 50), Qt::LocalTime);
    plot.setReferenceTime(&second);
    QCOMPARE(plot.majorTicks().first(), 10.0);
    QCOMPARE(plot.majorTicks().last(), 550.0);

    // The bounds stay, the scale stays fixed, and nothing was drawn.
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).lowerBound(), 0.0);
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).upperBound(), 600.0);
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));
    QCOMPARE(plot.replots, 0);
}

void tst_TimeCurvePlot::referenceChangeLeavesAnAutoScaledAxisAutoScaled()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    plot.setAxisAutoScale(QwtPlot::xBottom, true);
    const QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    QVERIFY(plot.axisAutoScale(QwtPlot::xBottom));
}

void tst_TimeCurvePlot::nullReferenceInLocalFormatKeepsEngineAndDropsTheDate()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    plot.setXScale(0.0, 600.0);
    QCOMPARE(plot.majorTicks().first(), 37.0);
    QVERIFY(!plot.axisValueText(QwtPlot::xBottom, 5.0).isEmpty());
    const QwtScaleEngine *engine = plot.axisScaleEngine(QwtPlot::xBottom);

    plot.setReferenceTime(nullptr);

    QVERIFY(!plot.referenceTime);
    QCOMPARE(plot.axisScaleEngine(QwtPlot::xBottom), engine);
    QCOMPARE(plot.timeFormat(), 2);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 5.0), QString());
    QCOMPARE(plot.timeScaleDraw->label(60.0).text(), QString());
    // The engine got the null as well: ticks fall on whole minutes of the axis.
    QCOMPARE(plot.majorTicks(), ticksFrom(0.0, 60.0, 600.0));
}

void tst_TimeCurvePlot::invalidReferenceClearsSilently()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    TimeCurvePlotProbe plot;
    const QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    const QDateTime invalid;
    plot.setReferenceTime(&invalid);
    QVERIFY(!plot.referenceTime);
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 5.0), QString());
}

void tst_TimeCurvePlot::reportedFormatGoesInParentheses()
{
    TimeCurvePlotProbe plot;
    QwtText styled(QStringLiteral("Elapsed Time"));
    styled.setColor(Qt::darkBlue);
    plot.setAxisTitle(QwtPlot::xBottom, styled);

    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm"));

    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).color(), QColor(Qt::darkBlue));

    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("day hh:mm:ss"));
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (day hh:mm:ss)"));
}

void tst_TimeCurvePlot::repeatedFormatChangesNothing()
{
    TimeCurvePlotProbe plot;
    // Rich text: a title set again would come back as auto text.
    const QwtText rich(QStringLiteral("Elapsed Time (hh:mm)"), QwtText::RichText);
    plot.setAxisTitle(QwtPlot::xBottom, rich);
    QVERIFY(plot.axisTitle(QwtPlot::xBottom) == rich);

    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm"));
    QVERIFY(plot.axisTitle(QwtPlot::xBottom) == rich);

    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm:ss"));
    QVERIFY(plot.axisTitle(QwtPlot::xBottom) != rich);
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm:ss)"));
}

void tst_TimeCurvePlot::emptyFormatLeavesThePlainTitle()
{
    TimeCurvePlotProbe plot;
    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm"));
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    emit plot.timeScaleDraw->labelFormatChanged(QString());
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
}

void tst_TimeCurvePlot::localFormatTitleCarriesTheName()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm YYYY-MM-DD"));
    QCOMPARE(xTitle(plot), QStringLiteral("Local Time (hh:mm YYYY-MM-DD)"));
}

void tst_TimeCurvePlot::setTimeFormatDropsTheReportedFormat()
{
    TimeCurvePlotProbe plot;
    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm"));
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    plot.setTimeFormat(2);
    QCOMPARE(xTitle(plot), QStringLiteral("Local Time"));
    plot.setTimeFormat(1);
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
}

void tst_TimeCurvePlot::drawReportBypassesAHostOverride()
{
    TimeCurvePlotProbe plot;
    emit plot.timeScaleDraw->labelFormatChanged(QStringLiteral("hh:mm"));
    QVERIFY(plot.titleUpdates.isEmpty());
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));

    // The slot that a host overrides has the same effect when called.
    plot.updateTimeAxisTitle(QStringLiteral("week"));
    QCOMPARE(plot.titleUpdates, QStringList{QStringLiteral("week")});
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time (week)"));
}

void tst_TimeCurvePlot::replacedDrawIsForgotten()
{
    TimeCurvePlotProbe plot;
    QPointer<TimeScaleDraw> draw = plot.timeScaleDraw;
    plot.setAxisScaleDraw(QwtPlot::xBottom, new QwtScaleDraw);
    QVERIFY(!draw);
    QVERIFY(!plot.timeScaleDraw);

    // Format and reference go on working without a draw to tell.
    const QDateTime reference = morning();
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    QVERIFY(localEngine(plot));
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 0.0), QStringLiteral("2024-03-05 10:17:23"));
    plot.replot();
}

void tst_TimeCurvePlot::drawDiesWithThePlot()
{
    auto *plot = new TimeCurvePlotProbe;
    const QDateTime reference = morning();
    plot->setReferenceTime(&reference);
    plot->setTimeFormat(2);
    QPointer<TimeScaleDraw> draw = plot->timeScaleDraw;
    QVERIFY(draw);
    delete plot;
    QVERIFY(!draw);
}

QTEST_MAIN(tst_TimeCurvePlot)
#include "tst_timecurveplot.moc"
