#pragma once

// Checks of the read-out that every plot class with a read-out pass must
// pass alike. The probes count replots and record the calls of the pass
// (displayCalls); each helper starts from a plot filled by the test.

#include <TestSupport.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include <qwt_plot.h>
#include <qwt_plot_marker.h>

namespace ReadoutTest {

inline int pixelOf(const QwtPlot &plot, double x)
{
    return int(plot.transform(QwtPlot::xBottom, x));
}

inline QString labelOf(const QwtPlotMarker *marker)
{
    return marker->label().text();
}

// Shows the plot active with the x axis titled "Mass" on 0 to xMax and y on
// 0 to yMax, replotted and settled. parkPointer first moves the real pointer
// to a corner, so that the first move of a test is a move.
template <class Probe>
bool showForReadout(Probe &plot, double xMax, double yMax, bool parkPointer = false)
{
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass"));
    plot.setAxisScale(QwtPlot::xBottom, 0.0, xMax);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, yMax);
    if (!TestSupport::showActive(plot))
        return false;
    if (parkPointer)
        QTest::mouseMove(plot.windowHandle(), QPoint(1, 1));
    plot.replot();
    QCoreApplication::processEvents();
    plot.settle();
    return true;
}

inline void addAxisValueTextColumns()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
}

// The text of the current row for a value on an axis, the x axis titled "Mass".
template <class Probe>
void checkAxisValueText()
{
    QFETCH(int, axis);
    QFETCH(double, value);
    QFETCH(QString, text);
    Probe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass"));
    QCOMPARE(plot.axisValueText(axis, value), text);
}

// A plot that is not in an active window does not follow the pointer.
template <class Probe>
void checkInactiveApplicationDoesNotTrack(Probe &plot)
{
    plot.resize(400, 300);
    plot.settle();
    QTRY_VERIFY(!QApplication::activeWindow());
    TestSupport::mouse(plot.canvas(), QEvent::MouseMove, QPoint(50, 30));
    QVERIFY(plot.displayCalls.isEmpty());
    QTest::qWait(30);
    QCOMPARE(plot.replots, 0);
}

// The event filter answers only moves on the canvas, and eats none.
template <class Probe>
void checkEventsOfOtherObjectsAreIgnored(Probe &plot)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(50, 30), QPointF(50, 30), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QVERIFY(!plot.eventFilter(&plot, &move));
    QEvent other(QEvent::Enter);
    QVERIFY(!plot.eventFilter(plot.canvas(), &other));
    QVERIFY(plot.displayCalls.isEmpty());
    QTest::qWait(30);
    QCOMPARE(plot.replots, 0);
    // The filter never eats a move it handles.
    QVERIFY(!plot.eventFilter(plot.canvas(), &move));
    QCOMPARE(plot.displayCalls.size(), 1);
}

// Five moves run the pass five times but ask for one replot, later.
template <class Probe>
void checkMovesRequestOneDelayedReplot(Probe &plot)
{
    for (int i = 0; i < 5; ++i)
        TestSupport::mouse(plot.canvas(), QEvent::MouseMove, QPoint(20 + 10 * i, 30));
    QCOMPARE(plot.displayCalls.size(), 5);
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(50);
    QCOMPARE(plot.replots, 1);
}

// A move with the left button held (a drag) empties the labels and leaves
// the dots where the read-out put them at x = 2, whose x line is xLine.
template <class Probe>
void checkDragClearsLabelsWithoutReadout(Probe &plot, const QString &xLine)
{
    TestSupport::mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 2.0), 30));
    QCOMPARE(labelOf(plot.marker), xLine);
    QCOMPARE(labelOf(plot.seriesMarkers.at(0)), QStringLiteral("a: 1.0000"));
    QTRY_COMPARE(plot.replots, 1);
    plot.displayCalls.clear();

    TestSupport::mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 3.0), 40),
                       Qt::NoButton, Qt::LeftButton);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(labelOf(plot.marker).isEmpty());
    QVERIFY(labelOf(plot.seriesMarkers.at(0)).isEmpty());
    QCOMPARE(plot.seriesMarkers.at(0)->xValue(), 2.0);
    QVERIFY(plot.marker->isVisible());
    QTRY_COMPARE(plot.replots, 2);
}

} // namespace ReadoutTest
