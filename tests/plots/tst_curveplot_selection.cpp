// Selection of a sample and key steps of the read-out: both selectSample
// forms, selecting under the read-out, showing and clearing the selection,
// the delayed sampleSelected signal, aligning and shifting the read-out and
// the mouse pointer that follows it.

#include "CurvePlotProbe.h"
#include "ReadoutTestSupport.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>

#include <QCursor>
#include <QLocale>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

#include <cmath>

using TestSupport::showActive;

using TestSupport::PaintCounter;

namespace {

QVector<QPointF> samplesAt(const QVector<double> &xs)
{
    QVector<QPointF> samples;
    for (double x : xs)
        samples.append(QPointF(x, x * 10.0));
    return samples;
}

} // namespace

class tst_CurvePlotSelection : public QObject
{
    Q_OBJECT

private:
    bool prepare(CurvePlotProbe &plot);
    int pixelOf(CurvePlotProbe &plot, double x) { return ReadoutTest::pixelOf(plot, x); }
    int roundedPixelOf(CurvePlotProbe &plot, double x)
    {
        return int(std::round(plot.transform(QwtPlot::xBottom, x)));
    }
    QPoint bottomEdge(CurvePlotProbe &plot, int column)
    {
        return plot.canvas()->mapToGlobal(QPoint(column, plot.canvas()->height()));
    }

private slots:
    void initTestCase();

    void selectSampleWithoutCurvesDoesNothing();
    void selectSampleLeftOfAllSamplesSelectsFirst();
    void selectSamplePicksNearestSampleOfFirstCurve();
    void selectSampleOfPointNotOnFirstCurveReportsMinusOne();
    void selectSampleOfPointOnFirstCurveReportsItsIndex();
    void sampleSelectedArrivesOnceAfterRepaint();
    void twoQuickSelectionsArriveInOrder();
    void deletedPlotEmitsNothingPending();

    void selectSampleWithKeySelectsSampleUnderReadout();
    void selectSampleWithKeyReportsIndexOfFirstCurve();
    void selectSampleWithKeyNeedsVisibleCurveAndSample();

    void displaySelectionMarkerByIndexNeitherReplotsNorSignals();
    void displaySelectionMarkerByIndexIgnoresBadIndex();
    void displaySelectionMarkerByIndexTruncatesWhereKeyRounds();
    void selectionLabelGoesLeftOnlyWhenItDoesNotFit();
    void clearSelectionMarkerEmitsNothing();

    void alignMarkersWithHiddenSelectionLeavesReadout();
    void alignMarkersBringsReadoutToSelection();
    void alignMarkersWithoutSampleSearchesAtColumnOfZero();

    void shiftRightOnLastSampleStaysAtEnd();
    void shiftLeftOnSecondSampleGoesToFirst();
    void shiftHomeAndEndGoToEnds();
    void shiftFromBetweenSamplesStepsFromNearest();
    void shiftBeforeFirstReadoutStartsFromZero();
    void shiftOnEmptyCurveMovesPointerToColumnOne();
    void shiftWithoutCurvesMovesPointerToColumnOne();
    void shiftEndOutsideAxisRangeKeepsPointerOnCanvas();
    void shiftMovesOtherCurvesOnlyWhereTheyShareX();
    void shiftKeepsThePlotCursorAndReplotsAtOnce();
    void arrowKeysStepTheReadout();
};

bool tst_CurvePlotSelection::prepare(CurvePlotProbe &plot)
{
    return ReadoutTest::showForReadout(plot, 10.0, 100.0);
}

void tst_CurvePlotSelection::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_CurvePlotSelection::selectSampleWithoutCurvesDoesNothing()
{
    CurvePlotProbe plot;
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.selectSample(50);
    QVERIFY(!plot.selectionMarker->isVisible());
    QCOMPARE(plot.replots, 0);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 0);
}

void tst_CurvePlotSelection::selectSampleLeftOfAllSamplesSelectsFirst()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    const int pos = pixelOf(plot, 0.5);
    plot.selectSample(pos);
    QVERIFY(plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->value(), QPointF(2, 20));
    QCOMPARE(plot.selectionMarker->label().text(), QStringLiteral("Mass: 2.00"));
    QCOMPARE(plot.selectionMarker->labelAlignment(), Qt::Alignment(Qt::AlignRight | Qt::AlignBottom));
    QCOMPARE(plot.selectionMarker->label().backgroundBrush().color(),
             PlotDefault::SelectionMarkerLabelBgColor);
    // The label is placed by the pointer's column, not the sample's.
    QCOMPARE(plot.selectionCalls.size(), 1);
    QCOMPARE(plot.selectionCalls.at(0).pos, pos);
    QCOMPARE(plot.replots, 1);
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 0);
    // Not the read-out.
    QVERIFY(!plot.marker->isVisible());
}

void tst_CurvePlotSelection::selectSamplePicksNearestSampleOfFirstCurve()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    plot.appendCurve(makeCurve(QStringLiteral("b"), samplesAt({4.9, 5.1})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    plot.selectSample(pixelOf(plot, 4.8));
    QCOMPARE(plot.selectionMarker->value(), QPointF(4, 40));
    plot.selectSample(pixelOf(plot, 9.9));
    QCOMPARE(plot.selectionMarker->value(), QPointF(6, 60));
    QTRY_COMPARE(spy.count(), 2);
    QCOMPARE(spy.at(0).at(0).toInt(), 1);
    QCOMPARE(spy.at(1).at(0).toInt(), 2);
}

void tst_CurvePlotSelection::selectSampleOfPointNotOnFirstCurveReportsMinusOne()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    plot.selectSample(pixelOf(plot, 5.0), QPointF(5, 1));
    QVERIFY(plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->value(), QPointF(5, 1));
    QCOMPARE(plot.selectionMarker->label().text(), QStringLiteral("Mass: 5.00"));
    QCOMPARE(plot.replots, 1);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), -1);
}

void tst_CurvePlotSelection::selectSampleOfPointOnFirstCurveReportsItsIndex()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.selectSample(3, QPointF(6, 7));
    QCOMPARE(plot.selectionMarker->value(), QPointF(6, 7));
    QCOMPARE(plot.selectionCalls.at(0).pos, 3);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 2);
}

void tst_CurvePlotSelection::sampleSelectedArrivesOnceAfterRepaint()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    PaintCounter counter(plot.canvas());
    QTest::qWait(20);
    counter.paints = 0;

    QList<int> paintsAtSignal;
    QList<int> indexes;
    connect(&plot, &CurvePlot::sampleSelected, this, [&](int index) {
        indexes.append(index);
        paintsAtSignal.append(counter.paints);
    });
    plot.selectSample(pixelOf(plot, 4.0));
    QCOMPARE(counter.paints, 0);
    QVERIFY(indexes.isEmpty());
    QTRY_COMPARE(indexes.size(), 1);
    QCOMPARE(indexes.at(0), 1);
    QVERIFY2(paintsAtSignal.at(0) >= 1, "the signal came before the canvas was repainted");
    QTest::qWait(50);
    QCOMPARE(indexes.size(), 1);
}

void tst_CurvePlotSelection::twoQuickSelectionsArriveInOrder()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6, 8})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.selectSample(pixelOf(plot, 8.0));
    plot.selectSample(pixelOf(plot, 2.0), QPointF(3.0, 1.0));
    plot.selectSample(pixelOf(plot, 4.0));
    QCOMPARE(spy.count(), 0);
    QTRY_COMPARE(spy.count(), 3);
    QCOMPARE(spy.at(0).at(0).toInt(), 3);
    QCOMPARE(spy.at(1).at(0).toInt(), -1);
    QCOMPARE(spy.at(2).at(0).toInt(), 1);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 3);
}

void tst_CurvePlotSelection::deletedPlotEmitsNothingPending()
{
    auto *plot = new CurvePlotProbe;
    plot->appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(*plot));
    int received = 0;
    QObject receiver;
    connect(plot, &CurvePlot::sampleSelected, &receiver, [&received](int) { ++received; });
    QPointer<CurvePlotProbe> guard(plot);

    plot->selectSample(pixelOf(*plot, 4.0));
    plot->selectSample(pixelOf(*plot, 2.0), QPointF(2, 5));
    delete plot;
    QVERIFY(!guard);
    QTest::qWait(50);
    QCOMPARE(received, 0);

    // A living plot next to it still gets its signals.
    CurvePlotProbe other;
    other.appendCurve(makeCurve(QStringLiteral("b"), samplesAt({1, 2})), true);
    QSignalSpy spy(&other, &CurvePlot::sampleSelected);
    other.selectSample(0, QPointF(2, 20));
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 1);
}

void tst_CurvePlotSelection::selectSampleWithKeySelectsSampleUnderReadout()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({1, 3, 5, 7})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    plot.displayMarkers(pixelOf(plot, 5.2), QPointF(0, 0));
    plot.selectSampleWithKey();
    QCOMPARE(plot.selectionMarker->value(), QPointF(5, 50));
    QCOMPARE(plot.selectionCalls.size(), 1);
    QCOMPARE(plot.selectionCalls.at(0).pos, roundedPixelOf(plot, 5.0));
    QCOMPARE(plot.replots, 1);
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 2);
}

void tst_CurvePlotSelection::selectSampleWithKeyReportsIndexOfFirstCurve()
{
    CurvePlotProbe plot;
    QwtPlotCurve *first = makeCurve(QStringLiteral("first"), samplesAt({1, 2, 3, 4, 5}));
    QwtPlotCurve *second = makeCurve(QStringLiteral("second"), samplesAt({2, 4, 6}));
    plot.appendCurve(first, false);
    plot.appendCurve(second, true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    // The second curve's dot decides, the index is the first curve's.
    plot.displayMarkers(pixelOf(plot, 4.0), QPointF(0, 0));
    plot.selectSampleWithKey();
    QCOMPARE(plot.selectionMarker->value(), QPointF(4, 40));
    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 3);

    plot.displayMarkers(pixelOf(plot, 6.0), QPointF(0, 0));
    plot.selectSampleWithKey();
    QCOMPARE(plot.selectionMarker->value(), QPointF(6, 60));
    QTRY_COMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toInt(), -1);
}

void tst_CurvePlotSelection::selectSampleWithKeyNeedsVisibleCurveAndSample()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = makeCurve(QStringLiteral("a"), {QPointF(0, 0), QPointF(1, 10), QPointF(2, 20)});
    plot.appendCurve(curve, true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    // No read-out yet: the dot stands at x 0, whose sample is the null point.
    plot.selectSampleWithKey();
    QVERIFY(!plot.selectionMarker->isVisible());

    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    curve->setVisible(false);
    plot.selectSampleWithKey();
    QVERIFY(!plot.selectionMarker->isVisible());

    // The read-out's x vanished from the data.
    curve->setVisible(true);
    curve->setSamples(samplesAt({0.5, 1.5}));
    plot.selectSampleWithKey();
    QVERIFY(!plot.selectionMarker->isVisible());
    QCOMPARE(plot.replots, 0);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 0);
}

void tst_CurvePlotSelection::displaySelectionMarkerByIndexNeitherReplotsNorSignals()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.displaySelectionMarker(1);
    QVERIFY(plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->value(), QPointF(4, 40));
    QCOMPARE(plot.selectionMarker->label().text(), QStringLiteral("Mass: 4.00"));
    QTest::qWait(30);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.replots, 0);
}

void tst_CurvePlotSelection::displaySelectionMarkerByIndexIgnoresBadIndex()
{
    CurvePlotProbe empty;
    empty.displaySelectionMarker(0);
    QVERIFY(!empty.selectionMarker->isVisible());

    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    for (int index : {-1, 3, 100}) {
        plot.displaySelectionMarker(index);
        QVERIFY(!plot.selectionMarker->isVisible());
    }
    QVERIFY(plot.selectionCalls.isEmpty());
}

void tst_CurvePlotSelection::displaySelectionMarkerByIndexTruncatesWhereKeyRounds()
{
    CurvePlotProbe plot;
    QVERIFY(prepare(plot));
    // An x whose column has a fraction of more than a half.
    double x = 1.0;
    while (x < 9.0) {
        const double t = plot.transform(QwtPlot::xBottom, x);
        const double fraction = t - std::floor(t);
        if (fraction > 0.6 && fraction < 0.9)
            break;
        x += 0.013;
    }
    QVERIFY(x < 9.0);
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({x})), true);

    plot.displaySelectionMarker(0);
    QCOMPARE(plot.selectionCalls.last().pos, pixelOf(plot, x));

    plot.displayMarkers(pixelOf(plot, x), QPointF(0, 0));
    plot.selectSampleWithKey();
    QCOMPARE(plot.selectionCalls.last().pos, roundedPixelOf(plot, x));
    QCOMPARE(plot.selectionCalls.last().pos, pixelOf(plot, x) + 1);
}

void tst_CurvePlotSelection::selectionLabelGoesLeftOnlyWhenItDoesNotFit()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    const QPointF value(9.5, 1.0);
    const QString text = plot.axisValueText(QwtPlot::xBottom, value.x());
    const int limit = plot.canvas()->width() - plot.markerLabelWidth(text);

    plot.displaySelectionMarker(limit, value);
    QCOMPARE(int(plot.selectionMarker->labelAlignment()), 0x42);
    plot.displaySelectionMarker(limit + 1, value);
    QCOMPARE(int(plot.selectionMarker->labelAlignment()), 0x41);
    plot.displaySelectionMarker(limit, value);
    QCOMPARE(int(plot.selectionMarker->labelAlignment()), 0x42);
    QCOMPARE(plot.selectionMarker->label().text(), text);
}

void tst_CurvePlotSelection::clearSelectionMarkerEmitsNothing()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.selectSample(pixelOf(plot, 4.0));
    QTRY_COMPARE(spy.count(), 1);
    plot.replots = 0;

    plot.clearSelectionMarker();
    QVERIFY(!plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->value(), QPointF(4, 40));
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 1);
}

void tst_CurvePlotSelection::alignMarkersWithHiddenSelectionLeavesReadout()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    plot.displaySelectionMarker(2);
    plot.clearSelectionMarker();
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    plot.displayCalls.clear();

    plot.alignMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
}

void tst_CurvePlotSelection::alignMarkersBringsReadoutToSelection()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    plot.appendCurve(makeCurve(QStringLiteral("b"), samplesAt({1, 4, 9})), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 1.0), QPointF(0, 0));
    plot.displaySelectionMarker(1);
    plot.displayCalls.clear();
    plot.replots = 0;

    plot.alignMarkers();
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(4, 40));
    QCOMPARE(plot.displayCalls.at(0).pos, roundedPixelOf(plot, 4.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 4.0);
    QCOMPARE(plot.marker->xValue(), 4.0);
    QCOMPARE(plot.replots, 0);
}

void tst_CurvePlotSelection::alignMarkersWithoutSampleSearchesAtColumnOfZero()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6}));
    plot.appendCurve(curve, true);
    QVERIFY(prepare(plot));
    plot.displaySelectionMarker(1);
    curve->setSamples(samplesAt({1, 3, 5}));
    plot.displayCalls.clear();

    plot.alignMarkers();
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(0, 0));
    QCOMPARE(plot.displayCalls.at(0).pos, roundedPixelOf(plot, 0.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);

    // A first curve without samples: nothing at all.
    curve->setSamples(QVector<QPointF>());
    plot.displayCalls.clear();
    plot.alignMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
}

void tst_CurvePlotSelection::shiftRightOnLastSampleStaysAtEnd()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(6, 60));
    QVERIFY(plot.isSeriesMarkerAtEnd());

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(6, 60));
    QVERIFY(plot.isSeriesMarkerAtEnd());
    QCOMPARE(plot.displayCalls.last().value, QPointF(6, 60));
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 6.0)));
}

void tst_CurvePlotSelection::shiftLeftOnSecondSampleGoesToFirst()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 4.0), QPointF(0, 0));
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(2, 20));
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 2.0)));
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(2, 20));
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(4, 40));
    QVERIFY(!plot.isSeriesMarkerAtEnd());
}

void tst_CurvePlotSelection::shiftHomeAndEndGoToEnds()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6, 8})), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 4.0), QPointF(0, 0));
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.marker->xValue(), 8.0);
    plot.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(plot.marker->xValue(), 2.0);
    QCOMPARE(plot.displayCalls.last().value, QPointF(2, 20));
    QCOMPARE(plot.displayCalls.last().pos, roundedPixelOf(plot, 2.0));
}

void tst_CurvePlotSelection::shiftFromBetweenSamplesStepsFromNearest()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = makeCurve(QStringLiteral("a"), samplesAt({1, 3, 5}));
    plot.appendCurve(curve, true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    // New data no longer holds the read-out's x; 2.9 is nearest to 3.
    curve->setSamples(samplesAt({1, 2.9, 3.2, 5}));

    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 1.0);

    // From 3.2, with 3.3 nearest in the new data, a step right passes over it.
    plot.displayMarkers(0, QPointF(3.2, 1.0));
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.2);
    curve->setSamples(samplesAt({1, 2.9, 3.3, 5}));
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 5.0);
}

void tst_CurvePlotSelection::shiftBeforeFirstReadoutStartsFromZero()
{
    CurvePlotProbe right;
    right.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({1, 3, 5})), true);
    QVERIFY(prepare(right));
    right.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(right.seriesMarkers.at(0)->xValue(), 3.0);

    CurvePlotProbe home;
    home.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({1, 3, 5})), true);
    QVERIFY(prepare(home));
    home.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(home.seriesMarkers.at(0)->xValue(), 1.0);
}

void tst_CurvePlotSelection::shiftOnEmptyCurveMovesPointerToColumnOne()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("empty"), {}), true);
    QVERIFY(prepare(plot));
    plot.seriesMarkers.at(0)->setVisible(true);
    plot.marker->setVisible(true);

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, 1));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.at(0).pos, 1);
    QCOMPARE(plot.displayCalls.at(0).value, QPointF(0, 0));
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(!plot.marker->isVisible());
    QCOMPARE(plot.replots, 1);
}

void tst_CurvePlotSelection::shiftWithoutCurvesMovesPointerToColumnOne()
{
    CurvePlotProbe plot;
    QVERIFY(prepare(plot));
    plot.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, 1));
    QCOMPARE(plot.displayCalls.size(), 1);
    QVERIFY(!plot.marker->isVisible());
}

void tst_CurvePlotSelection::shiftEndOutsideAxisRangeKeepsPointerOnCanvas()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 20})), true);
    QVERIFY(prepare(plot));
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(20, 200));
    QCOMPARE(plot.marker->xValue(), 20.0);
    QVERIFY(plot.isSeriesMarkerAtEnd());
    QCOMPARE(plot.displayCalls.last().pos, plot.canvas()->width());
    QCOMPARE(QCursor::pos(), bottomEdge(plot, plot.canvas()->width()));
}

void tst_CurvePlotSelection::shiftMovesOtherCurvesOnlyWhereTheyShareX()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({1, 2, 3, 4})), true);
    plot.appendCurve(makeCurve(QStringLiteral("b"), samplesAt({2, 4})), true);
    QVERIFY(prepare(plot));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.0);

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 3.0);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.0);
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 4.0);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 4.0);

    // A hidden first curve hands the reference on to the next one.
    plot.curves().at(0)->setVisible(false);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.seriesMarkers.at(1)->xValue(), 2.0);
}

void tst_CurvePlotSelection::shiftKeepsThePlotCursorAndReplotsAtOnce()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6})), true);
    QVERIFY(prepare(plot));
    plot.setCursor(Qt::CrossCursor);
    plot.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(plot.cursor().shape(), Qt::CrossCursor);
    QCOMPARE(plot.replots, 1);
}

void tst_CurvePlotSelection::arrowKeysStepTheReadout()
{
    CurvePlotProbe plot;
    plot.appendCurve(makeCurve(QStringLiteral("a"), samplesAt({2, 4, 6, 8})), true);
    QVERIFY(prepare(plot));
    QTest::keyClick(&plot, Qt::Key_End);
    QCOMPARE(plot.marker->xValue(), 8.0);
    QTest::keyClick(&plot, Qt::Key_Left);
    QCOMPARE(plot.marker->xValue(), 6.0);
    QTest::keyClick(&plot, Qt::Key_Home);
    QCOMPARE(plot.marker->xValue(), 2.0);
    QTest::keyClick(&plot, Qt::Key_Right);
    QCOMPARE(plot.marker->xValue(), 4.0);
    // Return selects nothing on a plain curve plot.
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    QTest::keyClick(&plot, Qt::Key_Return);
    QTest::qWait(30);
    QCOMPARE(spy.count(), 0);
    QVERIFY(!plot.selectionMarker->isVisible());
}

QTEST_MAIN(tst_CurvePlotSelection)
#include "tst_curveplot_selection.moc"
