// The read-out on bars: snapping by pointer x and by exact x, the label with
// its whole-number x line and its lines in chart order, colours from the
// symbols, side and alignment, the width estimate, the number formats, the
// pointer path with its empty-plot rule, the key steps that take the pointer
// along, and the legend switch.

#include "BarPlotProbe.h"
#include "ReadoutTestSupport.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>

#include <QFontMetrics>
#include <QLocale>
#include <QPalette>
#include <QtTest>

#include <qwt_column_symbol.h>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_marker.h>

#include <cmath>

using TestSupport::mouse;
using TestSupport::showActive;

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString BR = QStringLiteral("<br>");

QString legendLine(const QColor &color, const QString &title, const QString &value)
{
    return QStringLiteral("<font color=\"") + color.name() + QStringLiteral("\">")
        + PlotDefault::HTML::SquareChar + QStringLiteral(" </font>") + title
        + QStringLiteral(": ") + value;
}

QString labelOf(const QwtPlotMarker *m)
{
    return m->label().text();
}

} // namespace

class tst_BarPlotReadout : public QObject
{
    Q_OBJECT

private:
    // Shows the plot with both axes on 0 to 10 and the x axis titled "Mass".
    bool prepare(BarPlotProbe &plot);
    int pixelOf(BarPlotProbe &plot, double x) { return ReadoutTest::pixelOf(plot, x); }
    int roundedPixelOf(BarPlotProbe &plot, double x)
    {
        return int(std::round(plot.transform(QwtPlot::xBottom, x)));
    }
    QPoint bottomEdge(BarPlotProbe &plot, int column)
    {
        return plot.canvas()->mapToGlobal(QPoint(column, plot.canvas()->height()));
    }
    // Moves the real pointer over the canvas of a shown plot.
    void movePointer(BarPlotProbe &plot, QPoint canvasPoint)
    {
        QTest::mouseMove(plot.windowHandle(), plot.canvas()->mapTo(&plot, canvasPoint));
    }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void twoChartsSnapToNearestBarWithLinesInChartOrder_data();
    void twoChartsSnapToNearestBarWithLinesInChartOrder();
    void chartsOfOtherPositionsSnapEachByItself();
    void pointerYAndDistanceFromBarsPlayNoPart();
    void hiddenChartAddsNoLineButPlacesFrameMarker();
    void chartWithoutMarkerTakesNoPart();
    void emptyChartHidesItsDotAndAddsNoLine();
    void noChartToReadHidesFrameMarkerAndKeepsItsText();
    void exactValueMovesOnlyChartsWithThatX();
    void barAtOriginCountsAsNotFound();
    void legendLinesTakeColourFromSymbolPalette();
    void legendLineOfChartWithoutSymbolTakesDrawnColour();
    void trailingAlignmentGivesEachDotItsLine();
    void labelAlignmentFollowsSetting();
    void labelGoesLeftWhenFirstChartBarNearRightEdge();
    void labelSideIsDecidedByFirstChart();
    void hiddenMarkerLabelEmptiesFrameLabelAfterMoving();
    void hiddenMarkersAndLabelsStopThePass();

    void markerLabelWidthWithoutChartsMeasuresDummyX();
    void markerLabelWidthEstimatesFromFinalBars();
    void markerLabelWidthEstimatesWhileLabelIsHidden();
    void markerLabelWidthOfGivenText();
    void axisValueTextFormats_data();
    void axisValueTextFormats();
    void axisValueTextFollowsLocale();

    void pointerMoveDrivesReadout();
    void pointerMoveOverNothingToReadRequestsNoReplot_data();
    void pointerMoveOverNothingToReadRequestsNoReplot();
    void pointerMoveRequestsOneDelayedReplot();
    void pointerMoveFollowsOnlyWithMoveModifier();
    void dragClearsLabelsWithoutReadout();
    void eventsOfOtherObjectsAreIgnored();
    void inactiveApplicationDoesNotTrack();

    void shiftRightOnLastBarStaysAndSetsPointerToItsColumn();
    void shiftHomeWithoutDataPutsPointerAtColumnOneAndHidesFrameMarker_data();
    void shiftHomeWithoutDataPutsPointerAtColumnOneAndHidesFrameMarker();
    void shiftStepsFromBarToBarAndStopsAtEnds();
    void shiftFromBetweenBarsStepsFromNearestBar();
    void shiftHomeAndEndGoToFirstAndLastBar();
    void shiftTakesFirstVisibleChartWithMarkerRightOfZero();
    void shiftToBarOutsideViewKeepsPointerOnCanvas();
    void shiftRequestsDelayedReplot();
    void arrowKeysStepTheReadout();

    void legendSwitchHidesChartAndItsDot();
    void togglePlotItemLeavesChartWithoutMarkerAlone();
};

bool tst_BarPlotReadout::prepare(BarPlotProbe &plot)
{
    // A pointer that rests where a test moves it first would send no move.
    return ReadoutTest::showForReadout(plot, 10.0, 10.0, true);
}

void tst_BarPlotReadout::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_BarPlotReadout::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_BarPlotReadout::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_BarPlotReadout::twoChartsSnapToNearestBarWithLinesInChartOrder_data()
{
    QTest::addColumn<int>("sortOption");
    QTest::newRow("Default") << int(Figura::MarkerLabelSortDefault);
    QTest::newRow("By Value") << int(Figura::MarkerLabelSortByValue);
}

void tst_BarPlotReadout::twoChartsSnapToNearestBarWithLinesInChartOrder()
{
    QFETCH(int, sortOption);
    BarPlotProbe plot;
    // By value, "b" would stand first: bars keep the order of the charts.
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0), true);
    plot.setMarkerLabelSortOption(sortOption);
    QCOMPARE(int(plot.markerLabelSortOption()), sortOption);
    QVERIFY(prepare(plot));

    movePointer(plot, QPoint(pixelOf(plot, 2.4), plot.canvas()->height() / 2));
    QTRY_COMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(2, 4));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(2, 6));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2") + CRLF + QStringLiteral("a: 4.0000")
                                       + CRLF + QStringLiteral("b: 6.0000"));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
}

void tst_BarPlotReadout::chartsOfOtherPositionsSnapEachByItself()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1.6, 2.6, 3.6}, 6.0), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.4), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.6);
    // The line stands on the last chart's bar, and its x reads whole.
    QCOMPARE(plot.marker->xValue(), 2.6);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3") + CRLF + QStringLiteral("a: 4.0000")
                                       + CRLF + QStringLiteral("b: 6.0000"));
}

void tst_BarPlotReadout::pointerYAndDistanceFromBarsPlayNoPart()
{
    BarPlotProbe plot;
    QwtPlotBarChart *chart = barsAt(QStringLiteral("a"), {1, 2, 3}, 1.0);
    chart->setLayoutPolicy(QwtPlotBarChart::FixedSampleSize);
    chart->setLayoutHint(2.0); // bars of two pixels: the pointer is never on one
    plot.appendBarChart(chart, true);
    QVERIFY(prepare(plot));

    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 2.3), 2));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 2.3), plot.canvas()->height() - 2));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 9.5), 10));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(1, 10));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QCOMPARE(plot.displayCalls.size(), 4);
}

void tst_BarPlotReadout::hiddenChartAddsNoLineButPlacesFrameMarker()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1.6, 2.6, 3.6}, 6.0), true);
    plot.barCharts().at(1)->setVisible(false);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.4), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.6);
    QCOMPARE(plot.marker->xValue(), 2.6);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3") + CRLF + QStringLiteral("a: 4.0000"));
}

void tst_BarPlotReadout::chartWithoutMarkerTakesNoPart()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {5, 6, 7}, 6.0), false);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 6.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QCOMPARE(plot.marker->xValue(), 3.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3") + CRLF + QStringLiteral("a: 4.0000"));
}

void tst_BarPlotReadout::emptyChartHidesItsDotAndAddsNoLine()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {}, 6.0), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2") + CRLF + QStringLiteral("a: 4.0000"));
}

void tst_BarPlotReadout::noChartToReadHidesFrameMarkerAndKeepsItsText()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    const QString before = labelOf(plot.marker);
    QCOMPARE(before, QStringLiteral("Mass: 2") + CRLF + QStringLiteral("a: 4.0000"));

    plot.barCharts().at(0)->setSamples(QVector<QPointF>());
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QCOMPARE(labelOf(plot.marker), before);
}

void tst_BarPlotReadout::exactValueMovesOnlyChartsWithThatX()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 5}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));

    plot.displayMarkers(0, QPointF(5.0, 1.0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(5, 4));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(2, 6));
    // The line follows the last chart with a marker, which stayed.
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2") + CRLF + QStringLiteral("a: 4.0000"));
}

void tst_BarPlotReadout::barAtOriginCountsAsNotFound()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsOf(QStringLiteral("a"), {QPointF(0, 0), QPointF(1, 5)}), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 5));

    plot.displayMarkers(pixelOf(plot, 0.1), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 5));
    QCOMPARE(plot.marker->xValue(), 1.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 1"));
}

void tst_BarPlotReadout::legendLinesTakeColourFromSymbolPalette()
{
    BarPlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotBarChart *a = barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0);
    QwtPlotBarChart *b = barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0);
    plot.appendBarChart(a, true);
    plot.appendBarChart(b, true);
    plot.setBarChartColor(0, QColor(200, 10, 10));
    plot.setBarChartColor(1, QColor(10, 20, 200));
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker),
             QStringLiteral("Mass: 3") + BR + legendLine(QColor(200, 10, 10), QStringLiteral("a"),
                                                         QStringLiteral("4.0000"))
                 + BR + legendLine(QColor(10, 20, 200), QStringLiteral("b"), QStringLiteral("6.0000")));
}

void tst_BarPlotReadout::legendLineOfChartWithoutSymbolTakesDrawnColour()
{
    BarPlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    const QColor drawn = QPalette().brush(QPalette::Current, QPalette::Button).color();
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 1") + BR
                                       + legendLine(drawn, QStringLiteral("a"), QStringLiteral("4.0000")));
}

void tst_BarPlotReadout::trailingAlignmentGivesEachDotItsLine()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0), true);
    plot.setMarkerLabelAlignment(Qt::AlignTrailing);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2"));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
    QCOMPARE(labelOf(plot.seriesMarkers.at(0)), QStringLiteral("a: 4.0000"));
    QCOMPARE(labelOf(plot.seriesMarkers.at(1)), QStringLiteral("b: 6.0000"));
    QCOMPARE(plot.seriesMarkers.at(0)->labelAlignment(), Qt::Alignment(Qt::AlignRight));

    // Near the right edge the lines go left of their dots: flags 1 | 2.
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 3.05);
    plot.replot();
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(int(plot.seriesMarkers.at(0)->labelAlignment()), int(Qt::AlignLeft | Qt::AlignRight));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignLeft));

    // Back to one label: the dots' own lines are cleared.
    plot.setMarkerLabelAlignment(Qt::AlignTop);
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
    QVERIFY(labelOf(plot.seriesMarkers.at(1)).isEmpty());
}

void tst_BarPlotReadout::labelAlignmentFollowsSetting()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.setMarkerLabelAlignment(Qt::AlignBottom);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignBottom | Qt::AlignRight));
    plot.setMarkerLabelAlignment(Qt::AlignVCenter);
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignVCenter | Qt::AlignRight));
}

void tst_BarPlotReadout::labelGoesLeftWhenFirstChartBarNearRightEdge()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 9.8}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 9.9), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignLeft));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
}

void tst_BarPlotReadout::labelSideIsDecidedByFirstChart()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {9.8}, 6.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 9.8), QPointF(0, 0));
    QCOMPARE(plot.marker->xValue(), 9.8);
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
}

void tst_BarPlotReadout::hiddenMarkerLabelEmptiesFrameLabelAfterMoving()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    plot.setMarkerLabelAlignment(Qt::AlignTrailing);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QVERIFY(!labelOf(plot.marker).isEmpty());
    QVERIFY(!labelOf(plot.seriesMarkers.at(0)).isEmpty());

    plot.setMarkerLabelVisible(false);
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QCOMPARE(plot.marker->xValue(), 3.0);
    QVERIFY(plot.marker->isVisible());
    QVERIFY(labelOf(plot.marker).isEmpty());
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
}

void tst_BarPlotReadout::hiddenMarkersAndLabelsStopThePass()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    plot.setMarkerVisible(false);
    plot.setMarkerLabelVisible(false);
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
}

void tst_BarPlotReadout::markerLabelWidthWithoutChartsMeasuresDummyX()
{
    BarPlotProbe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass"));
    const QFontMetrics metrics(plot.markerLabel.font());
    const int border = 2 * plot.markerLabel.borderPen().width();
    QCOMPARE(border, 20);
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(QStringLiteral("Mass: 444")).width() + border);
}

void tst_BarPlotReadout::markerLabelWidthEstimatesFromFinalBars()
{
    BarPlotProbe plot;
    QwtText title = plot.axisTitle(QwtPlot::xBottom);
    title.setText(QStringLiteral("M"));
    plot.setAxisTitle(QwtPlot::xBottom, title);
    // The final bar counts, not the largest; hidden and empty charts don't,
    // charts without a marker do.
    plot.appendBarChart(barsOf(QStringLiteral("short"), {QPointF(1, 123456789.0), QPointF(2, 1.0)}),
                        true);
    plot.appendBarChart(barsOf(QStringLiteral("medium title"), {QPointF(1, 1.0)}), false);
    plot.appendBarChart(barsOf(QStringLiteral("the longest title of all of them"), {QPointF(1, 1.0)}), true);
    plot.appendBarChart(barsOf(QStringLiteral("the longest title of all of them, empty"), {}), true);
    plot.barCharts().at(2)->setVisible(false);

    const QFontMetrics metrics(plot.markerLabel.font());
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(QStringLiteral("M medium title: 1.0000")).width() + 20);
}

void tst_BarPlotReadout::markerLabelWidthEstimatesWhileLabelIsHidden()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a rather long chart title"), {1, 2}, 1.0), true);
    plot.setMarkerLabelVisible(false);
    const QFontMetrics metrics(plot.markerLabel.font());
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(QStringLiteral("M a rather long chart title: 1.0000")).width() + 20);
}

void tst_BarPlotReadout::markerLabelWidthOfGivenText()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a rather long chart title"), {1, 2}, 1.0), true);
    const QFontMetrics metrics(plot.markerLabel.font());
    QCOMPARE(plot.markerLabelWidth(QStringLiteral("x")),
             metrics.boundingRect(QStringLiteral("x")).width() + 20);
}

void tst_BarPlotReadout::axisValueTextFormats_data()
{
    ReadoutTest::addAxisValueTextColumns();
    QTest::newRow("x rounds up") << int(QwtPlot::xBottom) << 28.7 << QStringLiteral("Mass: 29");
    QTest::newRow("x rounds down") << int(QwtPlot::xBottom) << 28.3 << QStringLiteral("Mass: 28");
    QTest::newRow("x whole") << int(QwtPlot::xBottom) << 2.0 << QStringLiteral("Mass: 2");
    QTest::newRow("x negative") << int(QwtPlot::xBottom) << -3.2 << QStringLiteral("Mass: -3");
    QTest::newRow("y negative") << int(QwtPlot::yLeft) << -5.0 << QStringLiteral("-5.00e+00");
    QTest::newRow("y zero") << int(QwtPlot::yLeft) << 0.0 << QStringLiteral("0.0000");
    QTest::newRow("y small") << int(QwtPlot::yLeft) << 0.0009 << QStringLiteral("9.00e-04");
    QTest::newRow("y at 0.001") << int(QwtPlot::yLeft) << 0.001 << QStringLiteral("0.0010");
    QTest::newRow("y large") << int(QwtPlot::yLeft) << 12345.678 << QStringLiteral("12345.6780");
    QTest::newRow("right y") << int(QwtPlot::yRight) << 2.5e-7 << QStringLiteral("2.50e-07");
    QTest::newRow("top x") << int(QwtPlot::xTop) << 1234567.0 << QStringLiteral("1.23457e+06");
}

void tst_BarPlotReadout::axisValueTextFormats()
{
    ReadoutTest::checkAxisValueText<BarPlotProbe>();
}

void tst_BarPlotReadout::axisValueTextFollowsLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    BarPlotProbe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Masse"));
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 28.7), QStringLiteral("Masse: 29"));
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 12345.0), QStringLiteral("Masse: 12.345"));
    QCOMPARE(plot.axisValueText(QwtPlot::yLeft, 2.5), QStringLiteral("2,5000"));
}

void tst_BarPlotReadout::pointerMoveDrivesReadout()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4, 5, 6, 7, 8, 9}, 1.0), true);
    QVERIFY(prepare(plot));
    QVERIFY(plot.canvas()->hasMouseTracking());
    QVERIFY(plot.windowHandle());

    const int y = plot.canvas()->height() / 2;
    movePointer(plot, QPoint(pixelOf(plot, 3.1), y));
    QTRY_COMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QCOMPARE(plot.displayCalls.last().value, QPointF(0, 0));
    QCOMPARE(plot.displayCalls.last().pos, pixelOf(plot, 3.1));
    QVERIFY(plot.marker->isVisible());

    movePointer(plot, QPoint(pixelOf(plot, 6.8), y + 5));
    QTRY_COMPARE(plot.seriesMarkers.at(0)->xValue(), 7.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 7") + CRLF + QStringLiteral("a: 1.0000"));
    QTRY_VERIFY(plot.replots >= 1);
}

void tst_BarPlotReadout::pointerMoveOverNothingToReadRequestsNoReplot_data()
{
    QTest::addColumn<int>("charts");     // how many charts, all with a marker
    QTest::addColumn<bool>("withBars");  // whether they have bars
    QTest::addColumn<int>("hidden");     // how many of them, from the first, are hidden
    QTest::newRow("no chart") << 0 << false << 0;
    QTest::newRow("empty charts") << 2 << false << 0;
    QTest::newRow("all charts hidden") << 2 << true << 2;
}

void tst_BarPlotReadout::pointerMoveOverNothingToReadRequestsNoReplot()
{
    QFETCH(int, charts);
    QFETCH(bool, withBars);
    QFETCH(int, hidden);
    BarPlotProbe plot;
    for (int i = 0; i < charts; ++i) {
        plot.appendBarChart(barsAt(QString::number(i), withBars ? QVector<double>{1, 2, 3}
                                                                : QVector<double>{}, 1.0),
                            true);
        plot.barCharts().at(i)->setVisible(i >= hidden);
    }
    QVERIFY(prepare(plot));
    plot.marker->setVisible(false);

    const int y = plot.canvas()->height() / 2;
    for (double x : {2.0, 4.0, 6.0})
        movePointer(plot, QPoint(pixelOf(plot, x), y));
    // A button held would clear labels and replot elsewhere: not here.
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 5.0), y), Qt::NoButton,
          Qt::LeftButton);
    QTest::qWait(50);
    QCOMPARE(plot.replots, 0);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(!plot.marker->isVisible());

    // The same moves over something to read do replot: the count above is real.
    plot.appendBarChart(barsAt(QStringLiteral("visible"), {1, 2, 3}, 1.0), true);
    movePointer(plot, QPoint(pixelOf(plot, 3.0), y));
    QTRY_VERIFY(plot.replots >= 1);
    QVERIFY(!plot.displayCalls.isEmpty());
}

void tst_BarPlotReadout::pointerMoveRequestsOneDelayedReplot()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 1.0), true);
    QVERIFY(prepare(plot));
    ReadoutTest::checkMovesRequestOneDelayedReplot(plot);
}

void tst_BarPlotReadout::pointerMoveFollowsOnlyWithMoveModifier()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4, 5, 6, 7, 8, 9}, 1.0), true);
    QVERIFY(prepare(plot));
    plot.setMoveMarkerKeyModifier(Qt::ShiftModifier);
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;

    // Without Shift the read-out stands still, but a replot is requested.
    movePointer(plot, QPoint(pixelOf(plot, 2.0), y));
    QTRY_COMPARE(plot.replots, 1);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(!plot.marker->isVisible());

    QTest::keyPress(window, Qt::Key_Shift, Qt::ShiftModifier);
    if (QGuiApplication::queryKeyboardModifiers() != Qt::ShiftModifier) {
        QTest::keyRelease(window, Qt::Key_Shift, Qt::NoModifier);
        QSKIP("The keyboard state comes from the X server here, which QTest cannot set");
    }
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 4.0), y), Qt::NoButton,
          Qt::NoButton, Qt::ShiftModifier);
    QTest::keyRelease(window, Qt::Key_Shift, Qt::NoModifier);
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);

    // Shift released: the read-out stays where the user left it.
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 8.0), y));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
}

void tst_BarPlotReadout::dragClearsLabelsWithoutReadout()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 1.0), true);
    plot.setMarkerLabelAlignment(Qt::AlignTrailing);
    QVERIFY(prepare(plot));
    ReadoutTest::checkDragClearsLabelsWithoutReadout(plot, QStringLiteral("Mass: 2"));
}

void tst_BarPlotReadout::eventsOfOtherObjectsAreIgnored()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 1.0), true);
    QVERIFY(prepare(plot));
    ReadoutTest::checkEventsOfOtherObjectsAreIgnored(plot);
}

void tst_BarPlotReadout::inactiveApplicationDoesNotTrack()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 1.0), true);
    ReadoutTest::checkInactiveApplicationDoesNotTrack(plot);
}

void tst_BarPlotReadout::shiftRightOnLastBarStaysAndSetsPointerToItsColumn()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(3.0, 1.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    plot.displayCalls.clear();

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(3, 4));
    QCOMPARE(plot.marker->xValue(), 3.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 3.0)));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).pos, roundedPixelOf(plot, 3.0));
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(3, 4));
}

void tst_BarPlotReadout::shiftHomeWithoutDataPutsPointerAtColumnOneAndHidesFrameMarker_data()
{
    QTest::addColumn<bool>("withChart");
    QTest::newRow("no chart") << false;
    QTest::newRow("empty chart") << true;
}

void tst_BarPlotReadout::shiftHomeWithoutDataPutsPointerAtColumnOneAndHidesFrameMarker()
{
    QFETCH(bool, withChart);
    BarPlotProbe plot;
    if (withChart)
        plot.appendBarChart(barsAt(QStringLiteral("a"), {}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.marker->setVisible(true);
    QCursor::setPos(plot.canvas()->mapToGlobal(QPoint(100, 20)));

    plot.shiftMarkers(VoidPlot::ShiftHome);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, 1));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).pos, 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(0, 0));
    QVERIFY(!plot.marker->isVisible());
}

void tst_BarPlotReadout::shiftStepsFromBarToBarAndStopsAtEnds()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(2.0, 1.0));

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 3.0)));
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 1.0)));
    // From the first bar the walk stops.
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 1") + CRLF + QStringLiteral("a: 4.0000"));
}

void tst_BarPlotReadout::shiftFromBetweenBarsStepsFromNearestBar()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4}, 4.0), true);
    QVERIFY(prepare(plot));
    // The dot stands off the bars, as a host may have put it.
    plot.seriesMarkers.at(0)->setValue(2.2, 0.0);
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);

    plot.seriesMarkers.at(0)->setValue(2.2, 0.0);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);

    plot.seriesMarkers.at(0)->setValue(3.9, 0.0);
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
}

void tst_BarPlotReadout::shiftHomeAndEndGoToFirstAndLastBar()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(2.0, 1.0));
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 4.0)));
    plot.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 1.0)));
}

void tst_BarPlotReadout::shiftTakesFirstVisibleChartWithMarkerRightOfZero()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("no marker"), {1.5, 2.5}, 1.0), false);
    plot.appendBarChart(barsAt(QStringLiteral("hidden"), {1.2, 2.2}, 1.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("reference"), {1, 2, 3, 4}, 4.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("other"), {1, 2, 3, 4, 5}, 5.0), true);
    plot.barCharts().at(1)->setVisible(false);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(2.0, 1.0));
    plot.seriesMarkers.at(1)->setValue(2.2, 0.0);
    plot.seriesMarkers.at(3)->setValue(5.0, 0.0);

    plot.shiftMarkers(VoidPlot::ShiftEnd);
    // The reference chart's last bar, and the others follow where they share it.
    QCOMPARE(plot.displayCalls.last().value, QPointF(4, 4));
    QCOMPARE(plot.seriesMarkers.at(2)->xValue(), 4.0);
    QCOMPARE(plot.seriesMarkers.at(3)->xValue(), 4.0);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.2);
}

void tst_BarPlotReadout::shiftToBarOutsideViewKeepsPointerOnCanvas()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 30}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(2.0, 1.0));
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 30.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, plot.canvas()->width()));
}

void tst_BarPlotReadout::shiftRequestsDelayedReplot()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(0, QPointF(1.0, 1.0));
    plot.shiftMarkers(VoidPlot::ShiftRight);
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(50);
    QCOMPARE(plot.replots, 1);
}

void tst_BarPlotReadout::arrowKeysStepTheReadout()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3, 4}, 4.0), true);
    QVERIFY(prepare(plot));
    QTest::keyClick(&plot, Qt::Key_End);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
    QTest::keyClick(&plot, Qt::Key_Left);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QTest::keyClick(&plot, Qt::Key_Home);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    QTest::keyClick(&plot, Qt::Key_Right);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    QTRY_COMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 2.0)));
}

void tst_BarPlotReadout::legendSwitchHidesChartAndItsDot()
{
    BarPlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotBarChart *a = barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0);
    QwtPlotBarChart *b = barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0);
    plot.appendBarChart(a, true);
    plot.appendBarChart(b, true);
    plot.setBarChartColor(0, Qt::red);
    plot.setBarChartColor(1, Qt::blue);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());

    auto *label = qobject_cast<QwtLegendLabel *>(plot.plotLegend()->legendWidget(plot.itemToInfo(b)));
    QVERIFY(label);
    // Checking the entry of a shown chart is the host's affair; it emits nothing.
    label->setChecked(true);
    QVERIFY(b->isVisible());
    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(!label->isChecked());
    QVERIFY(!b->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QTRY_VERIFY(plot.replots >= 1);

    // The next pass leaves the hidden chart out of the label.
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker),
             QStringLiteral("Mass: 3") + BR
                 + legendLine(QColor(Qt::red), QStringLiteral("a"), QStringLiteral("4.0000")));

    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(b->isVisible());
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());
}

void tst_BarPlotReadout::togglePlotItemLeavesChartWithoutMarkerAlone()
{
    BarPlotProbe plot;
    QwtPlotBarChart *a = barsAt(QStringLiteral("a"), {1, 2, 3}, 4.0);
    QwtPlotBarChart *b = barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0);
    plot.appendBarChart(a, false);
    plot.appendBarChart(b, true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());

    plot.togglePlotItem(plot.itemToInfo(a), false, 0);
    QVERIFY(!a->isVisible());
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());

    plot.togglePlotItem(plot.itemToInfo(b), false, 1);
    QVERIFY(!b->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());

    // An item that is not a bar chart is only shown or hidden.
    plot.togglePlotItem(plot.itemToInfo(plot.marker), false, 0);
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    plot.togglePlotItem(plot.itemToInfo(b), true, 1);
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(!plot.marker->isVisible());
    QTRY_VERIFY(plot.replots >= 1);
}

QTEST_MAIN(tst_BarPlotReadout)
#include "tst_barplot_readout.moc"
