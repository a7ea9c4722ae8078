// The read-out on curves: snapping by pixel and by exact x, the null point,
// the label's lines, order, side and alignment, the width estimate, the
// number formats, refreshing, and the pointer path that drives it all.

#include "CurvePlotProbe.h"
#include "ReadoutTestSupport.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/SampleSearch.h>

#include <QFontMetrics>
#include <QLocale>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_legend.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

#include <cmath>
#include <limits>

using TestSupport::mouse;
using TestSupport::showActive;

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString BR = QStringLiteral("<br>");

QwtPlotCurve *curveAt(const QString &title, const QVector<QPointF> &samples,
                      const QColor &color = Qt::black)
{
    QwtPlotCurve *curve = makeCurve(title, samples);
    curve->setPen(QPen(color, 2));
    return curve;
}

QVector<QPointF> line(const QVector<double> &xs, double y)
{
    QVector<QPointF> samples;
    for (double x : xs)
        samples.append(QPointF(x, y));
    return samples;
}

QString legendLine(const QwtPlotCurve *curve, const QString &value)
{
    return QStringLiteral("<font color=\"") + curve->pen().color().name() + QStringLiteral("\">")
        + PlotDefault::HTML::SquareChar + QStringLiteral(" </font>") + curve->title().text()
        + QStringLiteral(": ") + value;
}

} // namespace

class tst_CurvePlotReadout : public QObject
{
    Q_OBJECT

private:
    // Shows the plot with both axes on 0 to 10 and the x axis titled "Mass".
    bool prepare(CurvePlotProbe &plot);
    int pixelOf(CurvePlotProbe &plot, double x) { return ReadoutTest::pixelOf(plot, x); }
    QString labelOf(const QwtPlotMarker *m) const { return m->label().text(); }

private slots:
    void initTestCase();
    void init();

    void pointerLeftOfAllDataPutsDotsOnFirstSamples();
    void pointerRightOfAllDataPutsDotsOnLastSamplesAtEnd();
    void pointerHalfWayGoesToRightSample();
    void curveWithoutDataHidesItsDotAndAddsNoLine();
    void onlyEmptyCurveWithMarkerHidesFrameMarker();
    void curveWithoutMarkerTakesNoPart();
    void hiddenCurveAddsNoLineButPlacesFrameMarker();
    void exactValueMovesOnlyCurvesWithThatX();
    void nanValueSearchesByExactX();
    void sampleAtOriginCountsAsNotFound();
    void oddSamplesDoNotCrash();

    void defaultOrderLabelWithoutLegend();
    void defaultOrderLabelWithLegend();
    void byValueLabelPutsLargestFirst();
    void byValueLabelKeepsCurveOrderForEqualValues();
    void byValueLabelWithLegend();
    void titleWithSeparatorSortsLinesByTitle_data();
    void titleWithSeparatorSortsLinesByTitle();
    void sortMarkerItemsKeepsOrderWhenCountsMatch();
    void sortMarkerItemsOrdersByTitleWhenCountsDiffer();
    void readoutUsesLeftAxisFormatForRightAxisCurves();
    void trailingAlignmentGivesEachDotItsLine();
    void labelAlignmentFollowsSetting();
    void labelGoesLeftWhenFirstCurveSampleNearRightEdge();
    void labelSideIsDecidedByFirstCurveNotPointer();
    void hiddenMarkerLabelMovesMarkersWithoutText();
    void hiddenMarkersAndLabelsStopThePass();

    void markerLabelWidthWithoutCurvesMeasuresDummyX();
    void markerLabelWidthEstimatesFromFinalSamples();
    void markerLabelWidthOfGivenTextOrHiddenLabel();
    void axisValueTextFormats_data();
    void axisValueTextFormats();
    void axisValueTextFollowsLocale();

    void refreshMarkersKeepsXAndUpdatesValues();
    void refreshMarkersDoesNothingWithoutReadout();
    void refreshMarkersNeedsExactSampleOnFirstVisibleCurve();
    void legendSwitchHidesCurveAndDotAndRebuildsLabel();
    void setLegendNeedsLegendAndAttachedCurve();
    void hideAllMarkersClearsAtEnd();
    void setAllMarkersAttrsClearsAtEndOnlyWhenHiding();

    void pointerMoveDrivesReadout();
    void pointerMoveRequestsOneDelayedReplot();
    void pointerMoveFollowsOnlyWithMoveModifier();
    void pointerMoveWithModifierHeldIsIgnoredByDefault();
    void dragClearsLabelsWithoutReadout();
    void eventsOfOtherObjectsAreIgnored();
    void inactiveApplicationDoesNotTrack();

    void readoutReadsFewSamplesOfLongCurves();
};

bool tst_CurvePlotReadout::prepare(CurvePlotProbe &plot)
{
    return ReadoutTest::showForReadout(plot, 10.0, 10.0);
}

void tst_CurvePlotReadout::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_CurvePlotReadout::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_CurvePlotReadout::pointerLeftOfAllDataPutsDotsOnFirstSamples()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("b"), line({2, 3, 4, 5}, 2.0)), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 0.2), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 1));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(2, 2));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(plot.marker->xValue(), 2.0);
    QVERIFY(!plot.isSeriesMarkerAtEnd());
}

void tst_CurvePlotReadout::pointerRightOfAllDataPutsDotsOnLastSamplesAtEnd()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("b"), line({2, 3, 4, 5}, 2.0)), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 9.5), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(3, 1));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(5, 2));
    QCOMPARE(plot.marker->xValue(), 5.0);
    QVERIFY(plot.isSeriesMarkerAtEnd());

    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QVERIFY(!plot.isSeriesMarkerAtEnd());
}

void tst_CurvePlotReadout::pointerHalfWayGoesToRightSample()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 3}, 1.0)), true);
    QVERIFY(prepare(plot));

    // The first column at or right of x 2, and the one before it.
    int pixel = int(std::ceil(plot.transform(QwtPlot::xBottom, 2.0)));
    while (plot.invTransform(QwtPlot::xBottom, pixel) < 2.0)
        ++pixel;
    plot.displayMarkers(pixel, QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    plot.displayMarkers(pixel - 1, QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
}

void tst_CurvePlotReadout::curveWithoutDataHidesItsDotAndAddsNoLine()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("empty"), {}), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("a: 1.0000"));
}

void tst_CurvePlotReadout::onlyEmptyCurveWithMarkerHidesFrameMarker()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("no marker"), line({1, 2, 3}, 1.0)), false);
    plot.appendCurve(curveAt(QStringLiteral("empty"), {}), true);
    QVERIFY(prepare(plot));
    plot.marker->setVisible(true);

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(labelOf(plot.marker).isEmpty());
}

void tst_CurvePlotReadout::curveWithoutMarkerTakesNoPart()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("silent"), line({1, 2, 3, 4}, 2.0)), false);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3.00") + CRLF + QStringLiteral("a: 1.0000"));
    QCOMPARE(plot.marker->xValue(), 3.0);
    QVERIFY(plot.isSeriesMarkerAtEnd());
}

void tst_CurvePlotReadout::hiddenCurveAddsNoLineButPlacesFrameMarker()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QwtPlotCurve *hidden = curveAt(QStringLiteral("hidden"), line({1, 2, 3, 4, 5}, 2.0));
    hidden->setVisible(false);
    plot.appendCurve(hidden, true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 4.6), QPointF(0, 0));
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(5, 2));
    QCOMPARE(plot.marker->xValue(), 5.0);
    QVERIFY(plot.isSeriesMarkerAtEnd());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 5.00") + CRLF + QStringLiteral("a: 1.0000"));
}

void tst_CurvePlotReadout::exactValueMovesOnlyCurvesWithThatX()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 3, 5, 7}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("b"), line({2, 4, 6}, 2.0)), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 1.9), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 1));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(2, 2));

    plot.displayMarkers(0, QPointF(5.0, 123.0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(5, 1));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(2, 2));
    // The line stays where the last curve with a marker stands.
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("a: 1.0000"));
}

void tst_CurvePlotReadout::nanValueSearchesByExactX()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 3, 5}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);

    // A NaN is not zero: no search by pixel, and no sample has x NaN.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    plot.displayMarkers(pixelOf(plot, 5.0), QPointF(nan, 0.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    plot.displayMarkers(pixelOf(plot, 5.0), QPointF(0.0, nan));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);
    plot.displayMarkers(pixelOf(plot, 5.0), QPointF(0.0, 0.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 5.0);
}

void tst_CurvePlotReadout::sampleAtOriginCountsAsNotFound()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), {QPointF(0, 0), QPointF(1, 1), QPointF(2, 0)}), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 1));
    plot.displayMarkers(pixelOf(plot, 0.0) + 1, QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(1, 1));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 1.00"));
    // A sample at y 0 elsewhere is a real sample.
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(2, 0));
}

void tst_CurvePlotReadout::oddSamplesDoNotCrash()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("single"), {QPointF(4, 2)}), true);
    plot.appendCurve(curveAt(QStringLiteral("equal x"), line({3, 3, 3, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("nan"), {QPointF(nan, 1), QPointF(2, nan), QPointF(3, 1)}), true);
    plot.appendCurve(curveAt(QStringLiteral("inf"), {QPointF(-inf, 1), QPointF(1, inf), QPointF(inf, 1)}), true);
    plot.appendCurve(curveAt(QStringLiteral("empty"), {}), true);
    QVERIFY(prepare(plot));

    for (int pixel : {-1000, 0, pixelOf(plot, 3.0), pixelOf(plot, 9.0), 100000}) {
        plot.displayMarkers(pixel, QPointF(0, 0));
        QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(4, 2));
        QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 3.0);
    }
    for (double x : {3.0, 4.0, nan, inf, -inf})
        plot.displayMarkers(0, QPointF(x, 1.0));
    plot.refreshMarkers();
    plot.shiftMarkers(VoidPlot::ShiftRight);
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QVERIFY(plot.markerLabelWidth(QString()) > 0);
    plot.replot();
    QCoreApplication::processEvents();
}

void tst_CurvePlotReadout::defaultOrderLabelWithoutLegend()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("b"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 0.0005)), true);
    plot.appendCurve(curveAt(QStringLiteral("c"), line({1, 2, 3}, 2.0)), true);
    QVERIFY(prepare(plot));
    QCOMPARE(plot.markerLabelSortOption(), Figura::MarkerLabelSortDefault);

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("b: 1.0000")
                                       + CRLF + QStringLiteral("a: 5.00e-04") + CRLF
                                       + QStringLiteral("c: 2.0000"));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
    // Only the frame marker carries a label.
    for (const QwtPlotMarker *dot : std::as_const(plot.seriesMarkers))
        QVERIFY(labelOf(dot).isEmpty());
}

void tst_CurvePlotReadout::defaultOrderLabelWithLegend()
{
    CurvePlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), line({1, 2, 3}, 1.0), Qt::red);
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), line({1, 2, 3}, 2.0), QColor(1, 2, 3));
    plot.appendCurve(b, true);
    plot.appendCurve(a, true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + BR
                                       + QStringLiteral("<font color=\"#ff0000\">")
                                       + PlotDefault::HTML::SquareChar
                                       + QStringLiteral(" </font>b: 1.0000") + BR
                                       + QStringLiteral("<font color=\"#010203\">")
                                       + PlotDefault::HTML::SquareChar
                                       + QStringLiteral(" </font>a: 2.0000"));
}

void tst_CurvePlotReadout::byValueLabelPutsLargestFirst()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("b"), line({1, 2, 3}, 2.0)), true);
    QVERIFY(prepare(plot));
    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("b: 2.0000")
                                       + CRLF + QStringLiteral("a: 1.0000"));
}

void tst_CurvePlotReadout::byValueLabelKeepsCurveOrderForEqualValues()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("z"), line({1, 2, 3}, 2.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("low"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("m"), line({1, 2, 3}, 2.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 2.0)), true);
    QVERIFY(prepare(plot));
    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("z: 2.0000")
                                       + CRLF + QStringLiteral("m: 2.0000") + CRLF
                                       + QStringLiteral("a: 2.0000") + CRLF
                                       + QStringLiteral("low: 1.0000"));
}

void tst_CurvePlotReadout::byValueLabelWithLegend()
{
    CurvePlotProbe plot;
    plot.enableLegend(QwtPlot::BottomLegend);
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0), Qt::blue);
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), line({1, 2, 3}, 3.0), Qt::green);
    plot.appendCurve(a, true);
    plot.appendCurve(b, true);
    QVERIFY(prepare(plot));
    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);

    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3.00") + BR
                                       + legendLine(b, QStringLiteral("3.0000")) + BR
                                       + legendLine(a, QStringLiteral("1.0000")));
}

void tst_CurvePlotReadout::titleWithSeparatorSortsLinesByTitle_data()
{
    QTest::addColumn<bool>("withLegend");
    QTest::newRow("plain text") << false;
    QTest::newRow("rich text") << true;
}

void tst_CurvePlotReadout::titleWithSeparatorSortsLinesByTitle()
{
    QFETCH(bool, withLegend);
    CurvePlotProbe plot;
    if (withLegend)
        plot.enableLegend(QwtPlot::RightLegend);
    const QString separator = withLegend ? BR : CRLF;
    QwtPlotCurve *zeta = curveAt(QStringLiteral("zeta"), line({1, 2, 3}, 1.0), Qt::red);
    QwtPlotCurve *split = curveAt(QStringLiteral("al") + separator + QStringLiteral("pha"),
                                  line({1, 2, 3}, 2.0), Qt::blue);
    plot.appendCurve(zeta, true);
    plot.appendCurve(split, true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    const QString zetaLine = withLegend ? legendLine(zeta, QStringLiteral("1.0000"))
                                        : QStringLiteral("zeta: 1.0000");
    const QString splitLine = withLegend ? legendLine(split, QStringLiteral("2.0000"))
                                         : split->title().text() + QStringLiteral(": 2.0000");
    // The split line no longer matches one line per curve: order by title.
    QCOMPARE(labelOf(plot.marker),
             QStringLiteral("Mass: 2.00") + separator + splitLine + separator + zetaLine);
}

void tst_CurvePlotReadout::sortMarkerItemsKeepsOrderWhenCountsMatch()
{
    CurvePlotProbe plot;
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), {});
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), {});
    plot.appendCurve(b, true);
    plot.appendCurve(a, true);
    QMultiMap<QwtPlotCurve *, QString> items;
    items.insert(b, QStringLiteral("b line"));
    items.insert(a, QStringLiteral("a line"));
    QList<QString> lines{QStringLiteral("first"), QStringLiteral("second")};
    plot.sortMarkerItems(items, lines);
    QCOMPARE(lines, (QList<QString>{QStringLiteral("first"), QStringLiteral("second")}));
}

void tst_CurvePlotReadout::sortMarkerItemsOrdersByTitleWhenCountsDiffer()
{
    CurvePlotProbe plot;
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), {});
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), {});
    plot.appendCurve(b, true);
    plot.appendCurve(a, true);
    QMultiMap<QwtPlotCurve *, QString> items;
    items.insert(b, QStringLiteral("b line"));
    items.insert(a, QStringLiteral("a line"));
    QList<QString> lines{QString()};
    plot.sortMarkerItems(items, lines);
    QCOMPARE(lines, (QList<QString>{QStringLiteral("a line"), QStringLiteral("b line")}));

    QList<QString> none{QString()};
    plot.sortMarkerItems({}, none);
    QVERIFY(none.isEmpty());
}

void tst_CurvePlotReadout::readoutUsesLeftAxisFormatForRightAxisCurves()
{
    CurvePlotProbe plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    QwtPlotCurve *right = curveAt(QStringLiteral("r"), line({1, 2, 3}, 12345.5));
    right->setYAxis(QwtPlot::yRight);
    plot.appendCurve(right, true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + CRLF + QStringLiteral("r: 12345.5000"));
}

void tst_CurvePlotReadout::trailingAlignmentGivesEachDotItsLine()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("b"), line({1, 2, 3}, 2.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("off"), line({1, 2, 3}, 3.0)), false);
    QVERIFY(prepare(plot));
    plot.setMarkerLabelAlignment(Qt::AlignTrailing);

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00"));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
    QCOMPARE(labelOf(plot.seriesMarkers.at(0)), QStringLiteral("a: 1.0000"));
    QCOMPARE(labelOf(plot.seriesMarkers.at(1)), QStringLiteral("b: 2.0000"));
    QCOMPARE(plot.seriesMarkers.at(0)->labelAlignment(), Qt::Alignment(Qt::AlignRight));

    // Near the right edge the dots' labels go left: side 1 and 2 read 3.
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 3.05);
    plot.replot();
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QCOMPARE(int(plot.seriesMarkers.at(0)->labelAlignment()), 3);
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignLeft));

    // Back to one label: the dots' labels are cleared by the next pass.
    plot.setMarkerLabelAlignment(Qt::AlignBottom);
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3.00") + CRLF + QStringLiteral("a: 1.0000")
                                       + CRLF + QStringLiteral("b: 2.0000"));
}

void tst_CurvePlotReadout::labelAlignmentFollowsSetting()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    for (Qt::AlignmentFlag vertical : {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom}) {
        plot.setMarkerLabelAlignment(vertical);
        plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
        QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(vertical | Qt::AlignRight));
    }
}

void tst_CurvePlotReadout::labelGoesLeftWhenFirstCurveSampleNearRightEdge()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 5, 9.9}, 1.0)), true);
    QVERIFY(prepare(plot));

    plot.displayMarkers(pixelOf(plot, 9.9), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignLeft));
    plot.displayMarkers(pixelOf(plot, 5.0), QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
}

void tst_CurvePlotReadout::labelSideIsDecidedByFirstCurveNotPointer()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("short"), line({1, 2}, 1.0)), true);
    plot.appendCurve(curveAt(QStringLiteral("long"), line({1, 2, 9.9}, 2.0)), true);
    QVERIFY(prepare(plot));

    // The pointer and the second curve stand at the right edge, the first
    // curve's sample far left: the label stays right of the line.
    plot.displayMarkers(plot.canvas()->width() - 1, QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    QCOMPARE(plot.marker->xValue(), 9.9);
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));

    // A first curve that is hidden still decides.
    plot.curves().at(0)->setVisible(false);
    plot.curves().at(1)->setVisible(true);
    plot.displayMarkers(plot.canvas()->width() - 1, QPointF(0, 0));
    QCOMPARE(plot.marker->labelAlignment(), Qt::Alignment(Qt::AlignTop | Qt::AlignRight));
}

void tst_CurvePlotReadout::hiddenMarkerLabelMovesMarkersWithoutText()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QVERIFY(!labelOf(plot.marker).isEmpty());

    plot.setMarkerLabelVisible(false);
    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(3, 1));
    QCOMPARE(plot.marker->xValue(), 3.0);
    QVERIFY(plot.marker->isVisible());
    QVERIFY(plot.isSeriesMarkerAtEnd());
    QVERIFY(labelOf(plot.marker).isEmpty());
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
}

void tst_CurvePlotReadout::hiddenMarkersAndLabelsStopThePass()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QVERIFY(plot.isSeriesMarkerAtEnd());

    plot.setMarkerVisible(false);
    plot.setMarkerLabelVisible(false);
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    QVERIFY(!plot.isSeriesMarkerAtEnd());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
}

void tst_CurvePlotReadout::markerLabelWidthWithoutCurvesMeasuresDummyX()
{
    CurvePlotProbe plot;
    QVERIFY(prepare(plot));
    const QString dummy = plot.axisValueText(QwtPlot::xBottom, 444.444);
    QCOMPARE(dummy, QStringLiteral("Mass: 444.44"));
    const int expected = QFontMetrics(plot.markerLabel.font()).boundingRect(dummy).width()
        + 2 * plot.markerLabel.borderPen().width();
    QCOMPARE(plot.markerLabelWidth(QString()), expected);
    QCOMPARE(plot.markerLabel.borderPen().width(), 10);
}

void tst_CurvePlotReadout::markerLabelWidthEstimatesFromFinalSamples()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a rather long curve title"), line({1, 2, 3}, 1.0)), false);
    QwtPlotCurve *hidden = curveAt(QStringLiteral("an even much longer hidden curve title"),
                                   line({1, 2}, 1.0));
    hidden->setVisible(false);
    plot.appendCurve(hidden, true);
    // Attached by other means than appendCurve: counts as well.
    QwtPlotCurve *stray = curveAt(QStringLiteral("s"), line({1, 2, 7}, 0.5));
    stray->attach(&plot);
    QVERIFY(prepare(plot));

    const QFontMetrics metrics(plot.markerLabel.font());
    const int border = 2 * plot.markerLabel.borderPen().width();
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(QStringLiteral("M a rather long curve title: 1.0000")).width() + border);

    // The x text competes with the x of the last such curve.
    QwtText title = plot.axisTitle(QwtPlot::xBottom);
    title.setText(QStringLiteral("An x axis title that is longer than every curve line"));
    plot.setAxisTitle(QwtPlot::xBottom, title);
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(title.text() + QStringLiteral(": 7.00")).width() + border);
}

void tst_CurvePlotReadout::markerLabelWidthOfGivenTextOrHiddenLabel()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    const QFontMetrics metrics(plot.markerLabel.font());
    const QString text = QStringLiteral("Some given text");
    QCOMPARE(plot.markerLabelWidth(text), metrics.boundingRect(text).width() + 20);

    plot.setMarkerLabelVisible(false);
    QCOMPARE(plot.markerLabelWidth(QString()), metrics.boundingRect(QString()).width() + 20);
    QCOMPARE(plot.markerLabelWidth(text), metrics.boundingRect(text).width() + 20);
}

void tst_CurvePlotReadout::axisValueTextFormats_data()
{
    ReadoutTest::addAxisValueTextColumns();
    QTest::newRow("left negative") << int(QwtPlot::yLeft) << -5.0 << QStringLiteral("-5.00e+00");
    QTest::newRow("left tiny negative") << int(QwtPlot::yLeft) << -0.0001 << QStringLiteral("-1.00e-04");
    QTest::newRow("left zero") << int(QwtPlot::yLeft) << 0.0 << QStringLiteral("0.0000");
    QTest::newRow("left below 0.001") << int(QwtPlot::yLeft) << 0.0009 << QStringLiteral("9.00e-04");
    QTest::newRow("left 0.001") << int(QwtPlot::yLeft) << 0.001 << QStringLiteral("0.0010");
    QTest::newRow("left large") << int(QwtPlot::yLeft) << 123456.78 << QStringLiteral("123456.7800");
    QTest::newRow("left typical") << int(QwtPlot::yLeft) << 1e-12 << QStringLiteral("1.00e-12");
    QTest::newRow("right below 0.001") << int(QwtPlot::yRight) << 0.0009 << QStringLiteral("9.00e-04");
    QTest::newRow("right fixed") << int(QwtPlot::yRight) << 2.5 << QStringLiteral("2.5000");
    QTest::newRow("bottom") << int(QwtPlot::xBottom) << 28.7 << QStringLiteral("Mass: 28.70");
    QTest::newRow("bottom rounds") << int(QwtPlot::xBottom) << 2.005001 << QStringLiteral("Mass: 2.01");
    QTest::newRow("top") << int(QwtPlot::xTop) << 1234567.0 << QStringLiteral("1.23457e+06");
    QTest::newRow("top small") << int(QwtPlot::xTop) << 0.5 << QStringLiteral("0.5");
}

void tst_CurvePlotReadout::axisValueTextFormats()
{
    ReadoutTest::checkAxisValueText<CurvePlotProbe>();
}

void tst_CurvePlotReadout::axisValueTextFollowsLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CurvePlotProbe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Masse"));
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 28.7), QStringLiteral("Masse: 28,70"));
    QCOMPARE(plot.axisValueText(QwtPlot::yLeft, 2.5), QStringLiteral("2,5000"));
    QLocale::setDefault(QLocale::c());
}

void tst_CurvePlotReadout::refreshMarkersKeepsXAndUpdatesValues()
{
    CurvePlotProbe plot;
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0));
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), line({1, 2, 3}, 2.0));
    plot.appendCurve(a, true);
    plot.appendCurve(b, true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QVERIFY(plot.isSeriesMarkerAtEnd());

    a->setSamples(line({1, 2, 3, 4, 5}, 4.0));
    b->setSamples(line({1, 2, 3, 4, 5}, 5.0));
    plot.displayCalls.clear();
    plot.refreshMarkers();
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(3, 4));
    QCOMPARE(plot.displayCalls.at(0).pos, int(std::round(plot.transform(QwtPlot::xBottom, 3.0))));
    QCOMPARE(plot.marker->xValue(), 3.0);
    QVERIFY(!plot.isSeriesMarkerAtEnd());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 3.00") + CRLF + QStringLiteral("a: 4.0000")
                                       + CRLF + QStringLiteral("b: 5.0000"));
}

void tst_CurvePlotReadout::refreshMarkersDoesNothingWithoutReadout()
{
    CurvePlotProbe plot;
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());

    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());

    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    plot.hideAllMarkers();
    plot.displayCalls.clear();
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
}

void tst_CurvePlotReadout::refreshMarkersNeedsExactSampleOnFirstVisibleCurve()
{
    CurvePlotProbe plot;
    QwtPlotCurve *hidden = curveAt(QStringLiteral("hidden"), line({1, 2, 3}, 1.0));
    QwtPlotCurve *other = curveAt(QStringLiteral("other"), line({1.5, 2.5}, 2.0));
    plot.appendCurve(hidden, true);
    plot.appendCurve(other, false);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    hidden->setVisible(false);
    // The marker of the hidden curve is still on display, but the first
    // visible curve with data has no sample at its x.
    plot.displayCalls.clear();
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());

    other->setSamples(line({1.5, 2.0, 2.5}, 7.0));
    plot.refreshMarkers();
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(2.0, 7.0));
}

void tst_CurvePlotReadout::legendSwitchHidesCurveAndDotAndRebuildsLabel()
{
    CurvePlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve *a = curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0), Qt::red);
    QwtPlotCurve *b = curveAt(QStringLiteral("b"), line({1, 2, 3}, 2.0), Qt::blue);
    plot.appendCurve(a, true);
    plot.appendCurve(b, true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));

    plot.togglePlotItem(plot.itemToInfo(b), false, 0);
    QVERIFY(!b->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + BR + legendLine(a, QStringLiteral("1.0000")));

    // No dot left on display: the label stays until the next pass.
    plot.togglePlotItem(plot.itemToInfo(a), false, 0);
    QVERIFY(!a->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + BR + legendLine(a, QStringLiteral("1.0000")));

    plot.togglePlotItem(plot.itemToInfo(b), true, 0);
    QVERIFY(b->isVisible());
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 2.00") + BR + legendLine(b, QStringLiteral("2.0000")));
    QTRY_VERIFY(plot.replots >= 1);
}

void tst_CurvePlotReadout::setLegendNeedsLegendAndAttachedCurve()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0));
    curve->setVisible(false);
    plot.appendCurve(curve, true);
    plot.setLegend(curve);
    QVERIFY(!curve->isVisible());
    QVERIFY(!curve->testLegendAttribute(QwtPlotCurve::LegendShowSymbol));

    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve stranger(QStringLiteral("stranger"));
    stranger.setVisible(false);
    plot.setLegend(&stranger);
    QVERIFY(!stranger.isVisible());

    plot.setLegend(curve);
    QVERIFY(curve->isVisible());
    QVERIFY(curve->testLegendAttribute(QwtPlotCurve::LegendShowSymbol));
    QVERIFY(curve->testLegendAttribute(QwtPlotCurve::LegendShowLine));
}

void tst_CurvePlotReadout::hideAllMarkersClearsAtEnd()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.displaySelectionMarker(0);
    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QVERIFY(plot.isSeriesMarkerAtEnd());

    plot.hideAllMarkers();
    QVERIFY(!plot.isSeriesMarkerAtEnd());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(plot.selectionMarker->isVisible());
}

void tst_CurvePlotReadout::setAllMarkersAttrsClearsAtEndOnlyWhenHiding()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.displaySelectionMarker(0);
    plot.displayMarkers(pixelOf(plot, 9.0), QPointF(0, 0));
    QVERIFY(plot.isSeriesMarkerAtEnd());

    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrLabelClear);
    QVERIFY(plot.isSeriesMarkerAtEnd());
    QVERIFY(labelOf(plot.marker).isEmpty());
    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrShow | VoidPlot::MarkerAttrLineClear);
    QVERIFY(plot.isSeriesMarkerAtEnd());
    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrHide | VoidPlot::MarkerAttrShow);
    QVERIFY(!plot.isSeriesMarkerAtEnd());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(plot.selectionMarker->isVisible());
}

void tst_CurvePlotReadout::pointerMoveDrivesReadout()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3, 4, 5, 6, 7, 8, 9}, 1.0)), true);
    QVERIFY(prepare(plot));
    QVERIFY(plot.canvas()->hasMouseTracking());
    QWindow *window = plot.windowHandle();
    QVERIFY(window);

    const int y = plot.canvas()->height() / 2;
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 3.1), y)));
    QTRY_COMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QVERIFY(!plot.displayCalls.isEmpty());
    QCOMPARE(plot.displayCalls.last().value, QPointF(0, 0));
    QCOMPARE(plot.displayCalls.last().pos, pixelOf(plot, 3.1));
    QVERIFY(plot.marker->isVisible());

    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 6.8), y + 5)));
    QTRY_COMPARE(plot.seriesMarkers.at(0)->xValue(), 7.0);
    QCOMPARE(labelOf(plot.marker), QStringLiteral("Mass: 7.00") + CRLF + QStringLiteral("a: 1.0000"));
}

void tst_CurvePlotReadout::pointerMoveRequestsOneDelayedReplot()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    ReadoutTest::checkMovesRequestOneDelayedReplot(plot);
}

void tst_CurvePlotReadout::pointerMoveFollowsOnlyWithMoveModifier()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3, 4, 5, 6, 7, 8, 9}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.setMoveMarkerKeyModifier(Qt::ShiftModifier);
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;

    // Without Shift the read-out stands still, but a replot is requested.
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.0), y)));
    QTRY_COMPARE(plot.replots, 1);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(!plot.marker->isVisible());

    QTest::keyPress(window, Qt::Key_Shift, Qt::ShiftModifier);
    QCOMPARE(QGuiApplication::queryKeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier));
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 4.0), y), Qt::NoButton,
          Qt::NoButton, Qt::ShiftModifier);
    QTest::keyRelease(window, Qt::Key_Shift, Qt::NoModifier);
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);

    // Shift released: the marker stays where the user left it.
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 8.0), y));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
}

void tst_CurvePlotReadout::pointerMoveWithModifierHeldIsIgnoredByDefault()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    QWindow *window = plot.windowHandle();
    QTest::keyPress(window, Qt::Key_Control, Qt::ControlModifier);
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 2.0), 30), Qt::NoButton,
          Qt::NoButton, Qt::ControlModifier);
    QTest::keyRelease(window, Qt::Key_Control, Qt::NoModifier);
    QVERIFY(plot.displayCalls.isEmpty());
    QTRY_COMPARE(plot.replots, 1);

    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 2.0), 40));
    QCOMPARE(plot.displayCalls.size(), 1);
}

void tst_CurvePlotReadout::dragClearsLabelsWithoutReadout()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    plot.setMarkerLabelAlignment(Qt::AlignTrailing);
    ReadoutTest::checkDragClearsLabelsWithoutReadout(plot, QStringLiteral("Mass: 2.00"));
}

void tst_CurvePlotReadout::eventsOfOtherObjectsAreIgnored()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    QVERIFY(prepare(plot));
    ReadoutTest::checkEventsOfOtherObjectsAreIgnored(plot);
}

void tst_CurvePlotReadout::inactiveApplicationDoesNotTrack()
{
    CurvePlotProbe plot;
    plot.appendCurve(curveAt(QStringLiteral("a"), line({1, 2, 3}, 1.0)), true);
    ReadoutTest::checkInactiveApplicationDoesNotTrack(plot);
}

void tst_CurvePlotReadout::readoutReadsFewSamplesOfLongCurves()
{
    CurvePlotProbe plot;
    QList<CountingSeries *> series;
    const size_t size = 1000000;
    for (int i = 0; i < 10; ++i) {
        auto *curve = new QwtPlotCurve(QStringLiteral("curve %1").arg(i));
        // Evenly spaced over 0 to 10, each curve with its own offset.
        auto *data = new CountingSeries(size, 0.001 * i, 10.0 / double(size), 1e-6 * (i + 1));
        curve->setData(data);
        series.append(data);
        plot.appendCurve(curve, true);
    }
    // Not shown: drawing ten million samples is not what this measures.
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 10.0);
    plot.resize(400, 300);
    plot.replot();

    const auto totalReads = [&series] {
        long total = 0;
        for (CountingSeries *data : std::as_const(series))
            total += data->reads;
        return total;
    };
    const auto resetReads = [&series] {
        for (CountingSeries *data : std::as_const(series))
            data->reads = 0;
    };
    // Per curve: one bisection, the sample found, its final sample, and the
    // final sample once more for the side's width estimate.
    const long perCurve = 4 + long(std::ceil(std::log2(double(size)))) + 1 + 3;

    resetReads();
    plot.displayMarkers(pixelOf(plot, 4.2), QPointF(0, 0));
    QVERIFY2(totalReads() <= 10 * perCurve, qPrintable(QString::number(totalReads())));
    QCOMPARE(plot.marker->label().text().count(CRLF), 10);

    resetReads();
    const QPointF onFirst = plot.seriesMarkers.at(0)->value();
    plot.displayMarkers(0, onFirst);
    QVERIFY2(totalReads() <= 10 * perCurve, qPrintable(QString::number(totalReads())));

    resetReads();
    plot.refreshMarkers();
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QVERIFY2(totalReads() <= 3 * 10 * perCurve, qPrintable(QString::number(totalReads())));
}

QTEST_MAIN(tst_CurvePlotReadout)
#include "tst_curveplot_readout.moc"
