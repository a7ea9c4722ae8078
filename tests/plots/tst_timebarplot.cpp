// The bar plot over time: its type, options and auto-scroll action, the time
// axis it starts with and the labels it draws there, the x title that stays
// as set, and the read-out in hours, minutes and seconds.

#include "BarPlotProbe.h"

#include <TestSupport.h>

#include <figura/scales/TimeScaleDraw.h>

#include <QAction>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_plot_barchart.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>

#include <typeinfo>

using TestSupport::showActive;

class tst_TimeBarPlot : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void hasTypeFour();
    void addsAutoScrollMenuAndTimeFormatOption();
    void autoScrollIsOnAndReportsChanges();
    void xAxisIsTitledTimeKeepingTheFrameFont();
    void xAxisStartsOnZeroTo300SecondsAndYAxisAutoScales();
    void xAxisLabelsReadAsElapsedTime_data();
    void xAxisLabelsReadAsElapsedTime();
    void xAxisTitleStaysWhateverTheLabelsShow();
    void keepsTheFramesBaselineAndStore();

    void axisValueTextOfXIsTimeOfDay_data();
    void axisValueTextOfXIsTimeOfDay();
    void axisValueTextOfOtherAxesIsBarPlots();
    void pointerReadoutShowsTime();
};

void tst_TimeBarPlot::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_TimeBarPlot::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_TimeBarPlot::hasTypeFour()
{
    TimeBarPlotProbe plot;
    QCOMPARE(plot.rtti(), 4);
    BarPlot &asBars = plot;
    QCOMPARE(asBars.rtti(), 4);
}

void tst_TimeBarPlot::addsAutoScrollMenuAndTimeFormatOption()
{
    TimeBarPlotProbe plot;
    QCOMPARE(plot.contextMenuItems(), 0x3FF);
    QCOMPARE(plot.customPlotOptions(), 0x1E7);
    QVERIFY(plot.customPlotOptions() & VoidPlot::PlotOptionTimeFormat);
    QVERIFY(plot.customPlotOptions() & VoidPlot::PlotOptionBarChartBaseline);
    QCOMPARE(plot.xScaleType, CustomScale::TimeScale);
}

void tst_TimeBarPlot::autoScrollIsOnAndReportsChanges()
{
    TimeBarPlotProbe plot;
    QVERIFY(plot.isAutoScroll());
    auto *action = plot.findChild<QAction *>(QStringLiteral("autoScrollAct"));
    QVERIFY(action);
    QVERIFY(action->isChecked());
    QSignalSpy spy(&plot, &VoidPlot::autoScrollToggled);
    plot.setAutoScroll(false);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QVERIFY(!plot.isAutoScroll());
}

void tst_TimeBarPlot::xAxisIsTitledTimeKeepingTheFrameFont()
{
    TimeBarPlotProbe plot;
    BarPlotProbe bars;
    const QwtText title = plot.axisTitle(QwtPlot::xBottom);
    QCOMPARE(title.text(), QStringLiteral("Time (hh:mm:ss)"));
    QCOMPARE(title.font(), bars.axisTitle(QwtPlot::xBottom).font());
    QCOMPARE(title.font().weight(), QFont::Normal);
    QCOMPARE(bars.axisTitle(QwtPlot::xBottom).text(), QString());
}

void tst_TimeBarPlot::xAxisStartsOnZeroTo300SecondsAndYAxisAutoScales()
{
    TimeBarPlotProbe plot;
    BarPlotProbe bars;
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));
    plot.updateAxes();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).lowerBound(), 0.0);
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).upperBound(), 300.0);
    QVERIFY(plot.axisAutoScale(QwtPlot::yLeft));
    QVERIFY(!bars.axisAutoScale(QwtPlot::yLeft));
    // The engine stays the frame's: a time plot of bars does not bound it.
    QCOMPARE(typeid(*plot.axisScaleEngine(QwtPlot::xBottom)),
             typeid(*bars.axisScaleEngine(QwtPlot::xBottom)));

    // Bars appear; the x axis stays where it was.
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1000, 2000}, 3.0), true);
    plot.replot();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).lowerBound(), 0.0);
    QCOMPARE(plot.axisScaleDiv(QwtPlot::xBottom).upperBound(), 300.0);
}

void tst_TimeBarPlot::xAxisLabelsReadAsElapsedTime_data()
{
    QTest::addColumn<double>("upper");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("label");
    QTest::newRow("start, minutes") << 300.0 << 90.0 << QStringLiteral("00:01");
    QTest::newRow("start, zero") << 300.0 << 0.0 << QStringLiteral("00:00");
    QTest::newRow("start, end") << 300.0 << 300.0 << QStringLiteral("00:05");
    QTest::newRow("seconds") << 100.0 << 75.0 << QStringLiteral("00:01:15");
    QTest::newRow("milliseconds") << 2.0 << 0.5 << QStringLiteral("00:00:00.500");
    QTest::newRow("days") << 100000.0 << 90000.0 << QStringLiteral("1d 01:00");
}

void tst_TimeBarPlot::xAxisLabelsReadAsElapsedTime()
{
    QFETCH(double, upper);
    QFETCH(double, value);
    QFETCH(QString, label);
    TimeBarPlotProbe plot;
    QVERIFY(dynamic_cast<const TimeScaleDraw *>(plot.axisScaleDraw(QwtPlot::xBottom)));
    if (upper != 300.0)
        plot.setAxisScale(QwtPlot::xBottom, 0.0, upper);
    plot.updateAxes();
    QCOMPARE(plot.axisScaleDraw(QwtPlot::xBottom)->label(value).text(), label);
}

void tst_TimeBarPlot::xAxisTitleStaysWhateverTheLabelsShow()
{
    TimeBarPlotProbe plot;
    auto *draw = dynamic_cast<TimeScaleDraw *>(plot.axisScaleDraw(QwtPlot::xBottom));
    QVERIFY(draw);
    QSignalSpy formats(draw, &TimeScaleDraw::labelFormatChanged);
    QVERIFY(showActive(plot));
    QTRY_VERIFY(formats.count() >= 1);
    QCOMPARE(formats.last().at(0).toString(), QStringLiteral("hh:mm"));

    plot.setAxisScale(QwtPlot::xBottom, 0.0, 2.0);
    plot.replot();
    QTRY_COMPARE(formats.last().at(0).toString(), QStringLiteral("hh:mm:ss.fff"));
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Time (hh:mm:ss)"));
}

void tst_TimeBarPlot::keepsTheFramesBaselineAndStore()
{
    TimeBarPlotProbe plot;
    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(plot.barChartBaseLineMin(), -1e-5);
    QCOMPARE(plot.barChartBaseLineMax(), 1e-5);
    plot.appendBarChart(barsAt(QStringLiteral("a"), {60, 120}, 3.0), true);
    plot.setBarChartBaseLineMax(1.0);
    plot.setBarChartBaseLine(0.5);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 0.5);
    QCOMPARE(plot.seriesMarkers.size(), 1);
}

void tst_TimeBarPlot::axisValueTextOfXIsTimeOfDay_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("an hour, a minute, a second") << 3661.0 << QStringLiteral("Time: 01:01:01");
    QTest::newRow("zero") << 0.0 << QStringLiteral("Time: 00:00:00");
    QTest::newRow("seconds round") << 59.6 << QStringLiteral("Time: 00:00:60");
    QTest::newRow("beyond a day") << 360000.0 << QStringLiteral("Time: 100:00:00");
}

void tst_TimeBarPlot::axisValueTextOfXIsTimeOfDay()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    TimeBarPlotProbe plot;
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, value), text);
}

void tst_TimeBarPlot::axisValueTextOfOtherAxesIsBarPlots()
{
    TimeBarPlotProbe plot;
    BarPlotProbe bars;
    for (int axis : {int(QwtPlot::yLeft), int(QwtPlot::yRight), int(QwtPlot::xTop)}) {
        for (double value : {-5.0, 0.0, 0.0009, 2.5, 1234567.0})
            QCOMPARE(plot.axisValueText(axis, value), bars.axisValueText(axis, value));
    }
    QCOMPARE(plot.axisValueText(QwtPlot::yLeft, 2.5), QStringLiteral("2.5000"));
}

void tst_TimeBarPlot::pointerReadoutShowsTime()
{
    TimeBarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("counts"), {60, 120, 180}, 4.0), true);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 10.0);
    QVERIFY(showActive(plot));
    QTest::mouseMove(plot.windowHandle(), QPoint(1, 1));
    plot.replot();
    QCoreApplication::processEvents();
    plot.settle();

    const int pixel = int(plot.transform(QwtPlot::xBottom, 130.0));
    QTest::mouseMove(plot.windowHandle(),
                     plot.canvas()->mapTo(&plot, QPoint(pixel, plot.canvas()->height() / 2)));
    QTRY_COMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 120.0);
    QCOMPARE(plot.marker->label().text(),
             QStringLiteral("Time: 00:02:00\r\ncounts: 4.0000"));
    QTRY_VERIFY(plot.replots >= 1);
}

QTEST_MAIN(tst_TimeBarPlot)
#include "tst_timebarplot.moc"
