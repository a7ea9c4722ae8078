// Pointer and keyboard on the plot frame: the event filter, box zoom,
// drag-zoom with its factor rules on linear and log axes, full scale, log
// scale toggling, the action-backed switches, panning, the wheel, the keys,
// the click test and the modifier whitelist.

#include "VoidPlotProbe.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>

#include <QSignalSpy>
#include <QtTest>

#include <qwt_interval.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_div.h>
#include <qwt_scale_engine.h>

#include <cmath>

using TestSupport::mouse;
using TestSupport::ReplotCounter;
using TestSupport::showActive;

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

namespace {

using Plot = ReplotCounter<VoidPlotProbe>;

// Fixed scales on x, left and right y, drawn once so that the divisions and
// maps are those on screen.
void setScales(Plot &plot, QwtInterval x = QwtInterval(100.0, 200.0),
               QwtInterval left = QwtInterval(0.0, 10.0), QwtInterval right = QwtInterval(0.0, 50.0))
{
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisScale(QwtPlot::xBottom, x.minValue(), x.maxValue());
    plot.setAxisScale(QwtPlot::yLeft, left.minValue(), left.maxValue());
    plot.setAxisScale(QwtPlot::yRight, right.minValue(), right.maxValue());
    plot.replot();
    plot.replots = 0;
}

QwtInterval interval(const QwtPlot &plot, int axisId)
{
    const QwtScaleDiv &division = plot.axisScaleDiv(axisId);
    return QwtInterval(division.lowerBound(), division.upperBound());
}

// The stretch of a linear axis by a drag of delta around center.
QwtInterval stretched(QwtInterval from, double delta, double center)
{
    double factor = 2.0 * delta;
    if (factor < 0.0)
        factor *= 5.0;
    factor = qMin(factor, 0.99);
    return QwtInterval(from.minValue() + (center - from.minValue()) * factor,
                       from.maxValue() - (from.maxValue() - center) * factor);
}

// Bounds equal to nine digits, relative to the bound or, near zero, to the
// width of the interval.
bool fuzzyEqual(QwtInterval a, QwtInterval b)
{
    const auto close = [&](double x, double y) {
        const double difference = qAbs(x - y);
        return difference <= 1e-9 * qMax(qAbs(x), qAbs(y)) || difference <= 1e-12 * qAbs(b.width());
    };
    return close(a.minValue(), b.minValue()) && close(a.maxValue(), b.maxValue());
}

QByteArray describe(QwtInterval i)
{
    return QByteArray::number(i.minValue(), 'g', 17) + " .. " + QByteArray::number(i.maxValue(), 'g', 17);
}

#define COMPARE_INTERVAL(actual, expected)                                                          \
    QVERIFY2(fuzzyEqual((actual), (expected)),                                                     \
             QByteArray("got " + describe(actual) + ", expected " + describe(expected)).constData())

// Holds a keyboard modifier in the state that QGuiApplication reports.
class HeldModifiers
{
public:
    HeldModifiers(QWindow *window, Qt::KeyboardModifiers modifiers)
        : m_window(window), m_modifiers(modifiers), m_key(keyOf(modifiers))
    {
        if (m_key != Qt::Key_unknown)
            QTest::keyPress(m_window, m_key, modifiers);
    }
    // Whether QGuiApplication reports the modifiers now. It does on the
    // offscreen platform; on xcb it asks the X server, which only a real
    // keyboard changes.
    bool reported() const { return QGuiApplication::queryKeyboardModifiers() == m_modifiers; }
    ~HeldModifiers()
    {
        if (m_key != Qt::Key_unknown)
            QTest::keyRelease(m_window, m_key, Qt::NoModifier);
    }

private:
    static Qt::Key keyOf(Qt::KeyboardModifiers modifiers)
    {
        if (modifiers == Qt::NoModifier)
            return Qt::Key_unknown;
        if (modifiers & Qt::ShiftModifier)
            return Qt::Key_Shift;
        if (modifiers & Qt::ControlModifier)
            return Qt::Key_Control;
        if (modifiers & Qt::AltModifier)
            return Qt::Key_Alt;
        if (modifiers & Qt::MetaModifier)
            return Qt::Key_Meta;
        return Qt::Key_Shift;
    }
    QWindow *m_window;
    Qt::KeyboardModifiers m_modifiers;
    Qt::Key m_key;
};

} // namespace

class tst_VoidPlotInteraction : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void pressRecordsCanvasPosition();
    void rightPressRemembersTheScaleDivisions();
    void leftPressKeepsTheRememberedDivisions();
    void disabledPlotLeavesEventsToQwt();
    void filterEatsNoEvent();

    void boxZoomWithRealRightDrag();
    void zoomBoxBelowTenPixelsIsIgnored_data();
    void zoomBoxBelowTenPixelsIsIgnored();
    void zoomBoxLeavesTheRightAxis();
    void twoPixelRightClickLeavesAxesAsTheyAre();

    void dragZoomFollowsModifiers_data();
    void dragZoomFollowsModifiers();
    void dragZoomNeedsTheActionAndTheRightButtonAlone();
    void dragZoomDisablesBoxZoom();
    void dragZoomAlwaysStartsFromThePress();
    void dragLeftByHalfTheCanvasZoomsOutFiveTimes();
    void dragRightByTheFullCanvasIsCappedAt099();
    void dragAnchorsAreSharedByAllPlots();
    void thousandDragMovesGiveOneReplot();
    void plainPointerMovesRequestNoReplot();

    void rescaleFactorRules_data();
    void rescaleFactorRules();
    void rescaleOnLogAxisWithZeroLowerBoundUsesLogScaleMin();
    void rescaleOnLogAxisUsesLogArithmetic();
    void rescaleIgnoresOtherAxes();

    void zoomFullScaleAutoScalesXAndLeftOnly();
    void toggleLogScaleSwitchesEngineGridAndTicks();
    void setLogScaleGoesThroughTheAction();
    void setLogScaleWithoutActionStoresTheFlagOnly();
    void featureWithoutActionReadsOff();
    void setDragZoomWithoutActionLeavesThePicker();
    void autoScrollExistsOnlyWithItsBit();
    void logScaleMinYKeepsPositiveValuesOnly_data();
    void logScaleMinYKeepsPositiveValuesOnly();

    void leftDragPansXAndLeftAxis();
    void controlLeftDragIsNoPan();
    void wheelMagnifiesAroundTheCentre();

    void arrowAndHomeEndKeysShiftMarkers_data();
    void arrowAndHomeEndKeysShiftMarkers();
    void keysWithModifiersReachQWidget_data();
    void keysWithModifiersReachQWidget();

    void mouseLeftClickTest_data();
    void mouseLeftClickTest();
    void mouseLeftClickNeedsNoModifierHeld();

    void moveMarkerKeyModifierWhitelist_data();
    void moveMarkerKeyModifierWhitelist();
};

void tst_VoidPlotInteraction::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
    QCOMPARE(QGuiApplication::queryKeyboardModifiers(), Qt::KeyboardModifiers(Qt::NoModifier));
}

void tst_VoidPlotInteraction::pressRecordsCanvasPosition()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(31, 42), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(plot.mousePressPosition(), QPoint(31, 42));
    mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(31, 42), Qt::LeftButton);
    mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(7, 9), Qt::MiddleButton, Qt::MiddleButton);
    QCOMPARE(plot.mousePressPosition(), QPoint(7, 9));
    mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(7, 9), Qt::MiddleButton);
}

void tst_VoidPlotInteraction::rightPressRemembersTheScaleDivisions()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(50, 50), Qt::RightButton, Qt::RightButton);
    QCOMPARE(*plot.xScaleDiv, plot.axisScaleDiv(QwtPlot::xBottom));
    QCOMPARE(*plot.yLeftScaleDiv, plot.axisScaleDiv(QwtPlot::yLeft));
    QCOMPARE(*plot.yRightScaleDiv, plot.axisScaleDiv(QwtPlot::yRight));
    mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(50, 50), Qt::RightButton);
}

void tst_VoidPlotInteraction::leftPressKeepsTheRememberedDivisions()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(50, 50), Qt::LeftButton, Qt::LeftButton);
    mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(50, 50), Qt::LeftButton);
    QCOMPARE(plot.xScaleDiv->lowerBound(), 0.0);
    QCOMPARE(plot.xScaleDiv->upperBound(), 0.0);
}

void tst_VoidPlotInteraction::disabledPlotLeavesEventsToQwt()
{
    VoidPlotProbe plot;
    plot.setEnabled(false);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 30), QPointF(20, 30), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QVERIFY(!plot.eventFilter(plot.canvas(), &press));
    QCOMPARE(plot.mousePressPosition(), QPoint(0, 0));
    QCOMPARE(plot.xScaleDiv->upperBound(), 0.0);
}

void tst_VoidPlotInteraction::filterEatsNoEvent()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    QWidget *canvas = plot.canvas();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 30), canvas->mapToGlobal(QPointF(20, 30)),
                      Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QVERIFY(!plot.eventFilter(canvas, &press));
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 70), canvas->mapToGlobal(QPointF(60, 70)),
                     Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QVERIFY(!plot.eventFilter(canvas, &move));
    plot.setDragZoom(true);
    QVERIFY(!plot.eventFilter(canvas, &move));
    QContextMenuEvent far(QContextMenuEvent::Keyboard, QPoint(200, 200), QPoint(200, 200));
    QVERIFY(!plot.eventFilter(canvas, &far));

    // The picker behind the filter still sees the press.
    plot.setDragZoom(false);
    mouse(canvas, QEvent::MouseButtonPress, QPoint(20, 30), Qt::RightButton, Qt::RightButton);
    QVERIFY(plot.zoomPicker->isActive());
    mouse(canvas, QEvent::MouseButtonRelease, QPoint(20, 30), Qt::RightButton);
    QVERIFY(!plot.zoomPicker->isActive());
}

void tst_VoidPlotInteraction::boxZoomWithRealRightDrag()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    const QwtInterval right = interval(plot, QwtPlot::yRight);
    QSignalSpy picked(plot.zoomPicker, qOverload<const QRectF &>(&QwtPlotPicker::selected));
    QVERIFY(picked.isValid());

    QWindow *window = plot.windowHandle();
    const QPoint from = plot.canvas()->mapTo(&plot, QPoint(40, 30));
    const QPoint to = plot.canvas()->mapTo(&plot, QPoint(180, 130));
    QTest::mousePress(window, Qt::RightButton, Qt::NoModifier, from);
    QTest::mouseMove(window, (from + to) / 2);
    QTest::mouseMove(window, to);
    QTest::mouseRelease(window, Qt::RightButton, Qt::NoModifier, to);

    QTRY_COMPARE(picked.count(), 1);
    const QRectF box = picked.at(0).at(0).toRectF();
    QTRY_COMPARE(plot.replots, 1);
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(box.left(), box.right()));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(box.top(), box.bottom()));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), right);
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));

    // A drag of that length opens no menu.
    QCoreApplication::processEvents();
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_VoidPlotInteraction::zoomBoxBelowTenPixelsIsIgnored_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<bool>("zooms");
    QTest::newRow("9 by 300") << QSize(9, 300) << false;
    QTest::newRow("300 by 9") << QSize(300, 9) << false;
    QTest::newRow("9 by 9") << QSize(9, 9) << false;
    QTest::newRow("empty") << QSize(0, 0) << false;
    QTest::newRow("10 by 10") << QSize(10, 10) << true;
    QTest::newRow("120 by 80") << QSize(120, 80) << true;
}

void tst_VoidPlotInteraction::zoomBoxBelowTenPixelsIsIgnored()
{
    QFETCH(QSize, pixels);
    QFETCH(bool, zooms);

    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    const QwtInterval x = interval(plot, QwtPlot::xBottom);
    const QwtInterval left = interval(plot, QwtPlot::yLeft);

    const QPoint corner(20, 20);
    const double x1 = plot.invTransform(QwtPlot::xBottom, corner.x());
    const double x2 = plot.invTransform(QwtPlot::xBottom, corner.x() + pixels.width());
    const double yTop = plot.invTransform(QwtPlot::yLeft, corner.y() + pixels.height());
    const double yBottom = plot.invTransform(QwtPlot::yLeft, corner.y());
    const QRectF box(QPointF(x1, yTop), QPointF(x2, yBottom));
    emit plot.zoomPicker->selected(box);

    if (zooms) {
        QTRY_COMPARE(plot.replots, 1);
        COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(x1, x2));
        COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(yTop, yBottom));
    } else {
        QVERIFY(!plot.replotTimer->isActive());
        plot.replot();
        COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), x);
        COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), left);
    }
}

void tst_VoidPlotInteraction::zoomBoxLeavesTheRightAxis()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    emit plot.zoomPicker->selected(QRectF(QPointF(120.0, 2.0), QPointF(150.0, 6.0)));
    QTRY_COMPARE(plot.replots, 1);
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(120.0, 150.0));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(2.0, 6.0));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), QwtInterval(0.0, 50.0));
}

void tst_VoidPlotInteraction::twoPixelRightClickLeavesAxesAsTheyAre()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    QSignalSpy picked(plot.zoomPicker, qOverload<const QRectF &>(&QwtPlotPicker::selected));
    bool menuShown = false;
    TestSupport::WhenShown closeMenu(TestSupport::activePopup, [&](QWidget *w) {
        menuShown = true;
        w->close();
    });

    QWindow *window = plot.windowHandle();
    const QPoint from = plot.canvas()->mapTo(&plot, QPoint(60, 60));
    QTest::mousePress(window, Qt::RightButton, Qt::NoModifier, from);
    QTest::mouseMove(window, from + QPoint(2, 2));
    QTest::mouseRelease(window, Qt::RightButton, Qt::NoModifier, from + QPoint(2, 2));

    QTRY_VERIFY(menuShown);
    QCOMPARE(picked.count(), 1); // the picker's tiny box, which zoomInBox ignores
    plot.replot();
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(100.0, 200.0));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(0.0, 10.0));
}

void tst_VoidPlotInteraction::dragZoomFollowsModifiers_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("stretchesX");
    QTest::addColumn<bool>("stretchesLeft");
    QTest::addColumn<bool>("stretchesRight");

    QTest::newRow("none") << Qt::KeyboardModifiers(Qt::NoModifier) << true << true << false;
    QTest::newRow("Ctrl: right axis in place of the left")
        << Qt::KeyboardModifiers(Qt::ControlModifier) << true << false << true;
    QTest::newRow("Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << false << false << false;
    QTest::newRow("Alt") << Qt::KeyboardModifiers(Qt::AltModifier) << false << false << false;
    QTest::newRow("Meta") << Qt::KeyboardModifiers(Qt::MetaModifier) << false << false << false;
    QTest::newRow("Ctrl+Shift") << (Qt::ControlModifier | Qt::ShiftModifier) << false << false << false;
}

void tst_VoidPlotInteraction::dragZoomFollowsModifiers()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, stretchesX);
    QFETCH(bool, stretchesLeft);
    QFETCH(bool, stretchesRight);

    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    QSignalSpy toggled(&plot, &VoidPlot::dragZoomToggled);
    plot.setDragZoom(true);
    QCOMPARE(toggled.count(), 1);
    QVERIFY(plot.isDragZoom());

    QWidget *canvas = plot.canvas();
    const QPoint from(canvas->width() / 3, canvas->height() / 2);
    const QPoint to = from + QPoint(canvas->width() / 5, -canvas->height() / 6);
    const double dx = double(to.x() - from.x()) / canvas->width();
    const double dy = double(from.y() - to.y()) / canvas->height();

    const QwtInterval x = interval(plot, QwtPlot::xBottom);
    const QwtInterval left = interval(plot, QwtPlot::yLeft);
    const QwtInterval right = interval(plot, QwtPlot::yRight);
    const QwtInterval xStretched = stretched(x, dx, plot.invTransform(QwtPlot::xBottom, from.x()));
    const QwtInterval leftStretched = stretched(left, dy, plot.invTransform(QwtPlot::yLeft, from.y()));
    const QwtInterval rightStretched = stretched(right, dy, plot.invTransform(QwtPlot::yRight, from.y()));

    {
        HeldModifiers held(plot.windowHandle(), modifiers);
        if (!held.reported())
            QSKIP("the platform reports the window system's keyboard, which the test cannot hold");
        plot.replots = 0;
        mouse(canvas, QEvent::MouseButtonPress, from, Qt::RightButton, Qt::RightButton, modifiers);
        mouse(canvas, QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton, modifiers);
        QCOMPARE(plot.replots, 0);
        // Every case requests a replot, also where no axis changed.
        QTRY_COMPARE(plot.replots, 1);
        mouse(canvas, QEvent::MouseButtonRelease, to, Qt::RightButton, Qt::NoButton, modifiers);
    }

    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), stretchesX ? xStretched : x);
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), stretchesLeft ? leftStretched : left);
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), stretchesRight ? rightStretched : right);
}

void tst_VoidPlotInteraction::dragZoomNeedsTheActionAndTheRightButtonAlone()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    plot.setDragZoom(true);
    QWidget *canvas = plot.canvas();

    // Two buttons held: no stretch, no replot request.
    mouse(canvas, QEvent::MouseButtonPress, QPoint(50, 50), Qt::RightButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseMove, QPoint(120, 20), Qt::NoButton, Qt::RightButton | Qt::LeftButton);
    QVERIFY(!plot.replotTimer->isActive());
    mouse(canvas, QEvent::MouseButtonRelease, QPoint(120, 20), Qt::RightButton);

    // The action gone: the flag alone does not stretch.
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuDragZoom);
    QVERIFY(plot.dragZoom);
    QVERIFY(!plot.isDragZoom());
    mouse(canvas, QEvent::MouseButtonPress, QPoint(50, 50), Qt::RightButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseMove, QPoint(120, 20), Qt::NoButton, Qt::RightButton);
    QVERIFY(!plot.replotTimer->isActive());
    mouse(canvas, QEvent::MouseButtonRelease, QPoint(120, 20), Qt::RightButton);
    plot.replot();
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(100.0, 200.0));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(0.0, 10.0));
}

void tst_VoidPlotInteraction::dragZoomDisablesBoxZoom()
{
    VoidPlotProbe plot;
    QSignalSpy toggled(&plot, &VoidPlot::dragZoomToggled);
    QVERIFY(plot.zoomPicker->isEnabled());
    plot.setDragZoom(true);
    QVERIFY(!plot.zoomPicker->isEnabled());
    QVERIFY(plot.dragZoomAct->isChecked());
    plot.setDragZoom(false);
    QVERIFY(plot.zoomPicker->isEnabled());
    QCOMPARE(toggled.count(), 2);
    QCOMPARE(toggled.at(1).at(0).toBool(), false);

    // The action's own check runs the same slot.
    plot.dragZoomAct->setChecked(true);
    QVERIFY(plot.isDragZoom());
    QVERIFY(!plot.zoomPicker->isEnabled());
}

void tst_VoidPlotInteraction::dragZoomAlwaysStartsFromThePress()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    plot.setDragZoom(true);
    QWidget *canvas = plot.canvas();
    const QPoint from(canvas->width() / 2, canvas->height() / 2);
    const QPoint to = from + QPoint(canvas->width() / 10, 0);
    const double dx = double(to.x() - from.x()) / canvas->width();
    const QwtInterval expected = stretched(QwtInterval(100.0, 200.0), dx,
                                           plot.invTransform(QwtPlot::xBottom, from.x()));

    mouse(canvas, QEvent::MouseButtonPress, from, Qt::RightButton, Qt::RightButton);
    for (int i = 0; i < 5; ++i) {
        mouse(canvas, QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton);
        plot.replot(); // the scale on screen changes, the base does not
    }
    mouse(canvas, QEvent::MouseButtonRelease, to, Qt::RightButton);
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), expected);
}

void tst_VoidPlotInteraction::dragLeftByHalfTheCanvasZoomsOutFiveTimes()
{
    Plot plot;
    QVERIFY(showActive(plot, QSize(600, 400)));
    setScales(plot, QwtInterval(10000.0, 11000.0)); // stays positive when zoomed out
    plot.setDragZoom(true);
    QWidget *canvas = plot.canvas();
    const QPoint from(canvas->width() * 3 / 4, canvas->height() / 2);
    const QPoint to(from.x() - canvas->width() / 2, from.y());
    const double dx = double(to.x() - from.x()) / canvas->width();
    const double center = plot.invTransform(QwtPlot::xBottom, from.x());
    const double factor = 2.0 * dx * 5.0;
    QVERIFY(qAbs(factor + 5.0) < 0.05);

    mouse(canvas, QEvent::MouseButtonPress, from, Qt::RightButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseButtonRelease, to, Qt::RightButton);
    QTRY_COMPARE(plot.replots, 1);
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom),
                     QwtInterval(10000.0 + (center - 10000.0) * factor,
                                 11000.0 - (11000.0 - center) * factor));
}

void tst_VoidPlotInteraction::dragRightByTheFullCanvasIsCappedAt099()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    plot.setDragZoom(true);
    QWidget *canvas = plot.canvas();
    const QPoint from(0, canvas->height() / 2);
    const QPoint to(canvas->width(), from.y());
    const double center = plot.invTransform(QwtPlot::xBottom, from.x());

    mouse(canvas, QEvent::MouseButtonPress, from, Qt::RightButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseButtonRelease, to, Qt::RightButton);
    QTRY_COMPARE(plot.replots, 1);
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom),
                     QwtInterval(100.0 + (center - 100.0) * 0.99, 200.0 - (200.0 - center) * 0.99));
    QVERIFY(interval(plot, QwtPlot::xBottom).width() > 0.0);
}

void tst_VoidPlotInteraction::dragAnchorsAreSharedByAllPlots()
{
    Plot first;
    Plot second;
    QVERIFY(showActive(first));
    setScales(first);
    setScales(second, QwtInterval(300.0, 400.0));
    second.resize(first.size());
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    second.replot();
    first.setDragZoom(true);

    QWidget *canvas = first.canvas();
    const QPoint from(canvas->width() / 2, canvas->height() / 2);
    const QPoint to = from + QPoint(canvas->width() / 10, 0);
    const double dx = double(to.x() - from.x()) / canvas->width();

    mouse(canvas, QEvent::MouseButtonPress, from, Qt::RightButton, Qt::RightButton);
    // A press on another plot in between moves the anchors of every plot.
    mouse(second.canvas(), QEvent::MouseButtonPress, QPoint(10, 10), Qt::RightButton, Qt::RightButton);
    mouse(second.canvas(), QEvent::MouseButtonRelease, QPoint(10, 10), Qt::RightButton);
    const double sharedAnchor = second.invTransform(QwtPlot::xBottom, 10);
    QVERIFY(sharedAnchor > 250.0);

    mouse(canvas, QEvent::MouseMove, to, Qt::NoButton, Qt::RightButton);
    mouse(canvas, QEvent::MouseButtonRelease, to, Qt::RightButton);
    first.replot();
    COMPARE_INTERVAL(interval(first, QwtPlot::xBottom),
                     stretched(QwtInterval(100.0, 200.0), dx, sharedAnchor));
    QCoreApplication::processEvents();
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_VoidPlotInteraction::thousandDragMovesGiveOneReplot()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    plot.setDragZoom(true);
    QWidget *canvas = plot.canvas();
    mouse(canvas, QEvent::MouseButtonPress, QPoint(10, 10), Qt::RightButton, Qt::RightButton);
    for (int i = 0; i < 1000; ++i) {
        const QPoint p(10 + i % canvas->width(), 10 + (i / 7) % canvas->height());
        mouse(canvas, QEvent::MouseMove, p, Qt::NoButton, Qt::RightButton);
    }
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(20 * PlotDefault::ReplotDelay);
    QCOMPARE(plot.replots, 1);
    mouse(canvas, QEvent::MouseButtonRelease, QPoint(10, 10), Qt::RightButton);
}

void tst_VoidPlotInteraction::plainPointerMovesRequestNoReplot()
{
    // The frame has nothing to read out: moves without a drag cost nothing.
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    QWindow *window = plot.windowHandle();
    for (int i = 0; i < 50; ++i)
        QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(20 + i, 30 + i)));
    QVERIFY(!plot.replotTimer->isActive());
    QTest::qWait(4 * PlotDefault::ReplotDelay);
    QCOMPARE(plot.replots, 0);
}

void tst_VoidPlotInteraction::rescaleFactorRules_data()
{
    QTest::addColumn<double>("delta");
    QTest::addColumn<double>("factor");
    QTest::newRow("quarter right zooms in by 0.5") << 0.25 << 0.5;
    QTest::newRow("half right is capped") << 0.5 << 0.99;
    QTest::newRow("full right is capped") << 1.0 << 0.99;
    QTest::newRow("just below the cap") << 0.49 << 0.98;
    QTest::newRow("tenth left zooms out five times as fast") << -0.1 << -1.0;
    QTest::newRow("half left gives -5") << -0.5 << -5.0;
    QTest::newRow("two widths left has no limit") << -2.0 << -20.0;
    QTest::newRow("no drag") << 0.0 << 0.0;
}

void tst_VoidPlotInteraction::rescaleFactorRules()
{
    QFETCH(double, delta);
    QFETCH(double, factor);

    Plot plot;
    *plot.xScaleDiv = QwtScaleDiv(100.0, 200.0);
    *plot.yLeftScaleDiv = QwtScaleDiv(0.0, 10.0);
    *plot.yRightScaleDiv = QwtScaleDiv(-4.0, 4.0);
    plot.rescale(QwtPlot::xBottom, delta, 1000.0);
    plot.rescale(QwtPlot::yLeft, delta, 4.0);
    plot.rescale(QwtPlot::yRight, delta, 1.0);
    plot.setAxisScaleEngine(QwtPlot::xBottom, new QwtLinearScaleEngine); // no shift of negatives
    plot.updateAxes();

    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom),
                     QwtInterval(100.0 + (1000.0 - 100.0) * factor, 200.0 - (200.0 - 1000.0) * factor));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft),
                     QwtInterval(0.0 + 4.0 * factor, 10.0 - 6.0 * factor));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight),
                     QwtInterval(-4.0 + 5.0 * factor, 4.0 - 3.0 * factor));
    QCOMPARE(plot.replots, 0); // the caller requests the replot
}

void tst_VoidPlotInteraction::rescaleOnLogAxisWithZeroLowerBoundUsesLogScaleMin()
{
    Plot plot;
    plot.setLogScale(true);
    QVERIFY(dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    plot.setLogScaleMinY(1e-3);
    // A division remembered on a linear scale, before the switch.
    *plot.yLeftScaleDiv = QwtScaleDiv(0.0, 100.0);
    const double center = 1.0;
    const double factor = 0.5;
    plot.rescale(QwtPlot::yLeft, factor / 2.0, center);
    plot.updateAxes();

    const double lower = 1e-3;
    const double upper = 100.0;
    const QwtInterval expected(std::exp(std::log(lower) + std::log(center / lower) * factor),
                               std::exp(std::log(upper) - std::log(upper / center) * factor));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), expected);
    QVERIFY(qAbs(interval(plot, QwtPlot::yLeft).minValue() - std::sqrt(1e-3)) < 1e-12);
}

void tst_VoidPlotInteraction::rescaleOnLogAxisUsesLogArithmetic()
{
    Plot plot;
    plot.setLogScale(true);
    *plot.yLeftScaleDiv = QwtScaleDiv(1e-10, 1e-2);
    *plot.yRightScaleDiv = QwtScaleDiv(0.0, 10.0);
    plot.rescale(QwtPlot::yLeft, -0.1, 1e-6); // factor -1: one decade span out on each side
    plot.rescale(QwtPlot::yRight, -0.1, 5.0); // the right axis stays linear
    plot.updateAxes();
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(1e-14, 1e2));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), QwtInterval(-5.0, 15.0));
}

void tst_VoidPlotInteraction::rescaleIgnoresOtherAxes()
{
    Plot plot;
    plot.setAxisScale(QwtPlot::xTop, 1.0, 2.0);
    plot.updateAxes();
    plot.rescale(QwtPlot::xTop, 0.25, 1.5);
    plot.rescale(99, 0.25, 1.5);
    plot.rescale(-1, 0.25, 1.5);
    plot.updateAxes();
    COMPARE_INTERVAL(interval(plot, QwtPlot::xTop), QwtInterval(1.0, 2.0));
    QVERIFY(!plot.replotTimer->isActive());
}

void tst_VoidPlotInteraction::zoomFullScaleAutoScalesXAndLeftOnly()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    QVERIFY(!plot.axisAutoScale(QwtPlot::yLeft));
    plot.zoomFullScale();
    QCOMPARE(plot.replots, 1); // at once, not delayed
    QVERIFY(plot.axisAutoScale(QwtPlot::xBottom));
    QVERIFY(plot.axisAutoScale(QwtPlot::yLeft));
    QVERIFY(!plot.axisAutoScale(QwtPlot::yRight));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), QwtInterval(0.0, 50.0));
}

void tst_VoidPlotInteraction::toggleLogScaleSwitchesEngineGridAndTicks()
{
    Plot plot;
    plot.settle();
    QSignalSpy spy(&plot, &VoidPlot::logScaleToggled);
    QwtScaleEngine *rightEngine = plot.axisScaleEngine(QwtPlot::yRight);

    plot.toggleLogScale(true);
    QCOMPARE(plot.preparedForLog, QList<bool>{true});
    QVERIFY(plot.logScale);
    QVERIFY(plot.grid->yMinEnabled());
    QCOMPARE(plot.axisMaxMajor(QwtPlot::yLeft), PlotDefault::YAxisLogScaleMaxMajor);
    QCOMPARE(plot.axisMaxMinor(QwtPlot::yLeft), PlotDefault::YAxisLogScaleMaxMinor);
    auto *log = dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft));
    QVERIFY(log);
    QCOMPARE(log->base(), 10.0);
    QVERIFY(plot.axisAutoScale(QwtPlot::yLeft));
    QCOMPARE(plot.axisScaleEngine(QwtPlot::yRight), rightEngine);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QCOMPARE(plot.replots, 1);

    plot.toggleLogScale(false);
    QCOMPARE(plot.preparedForLog, (QList<bool>{true, false}));
    QVERIFY(!plot.logScale);
    QVERIFY(!plot.grid->yMinEnabled());
    QCOMPARE(plot.axisMaxMajor(QwtPlot::yLeft), PlotDefault::YAxisLinearScaleMaxMajor);
    QCOMPARE(plot.axisMaxMinor(QwtPlot::yLeft), PlotDefault::YAxisLinearScaleMaxMinor);
    QVERIFY(!dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QVERIFY(dynamic_cast<QwtLinearScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(plot.replots, 2);
}

void tst_VoidPlotInteraction::setLogScaleGoesThroughTheAction()
{
    Plot plot;
    plot.settle();
    QSignalSpy spy(&plot, &VoidPlot::logScaleToggled);
    plot.setLogScale(true);
    QVERIFY(plot.logScaleAct->isChecked());
    QVERIFY(plot.isLogScale());
    QVERIFY(dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QCOMPARE(spy.count(), 1);

    plot.setLogScale(true); // no change of the check state: nothing runs
    QCOMPARE(spy.count(), 1);

    plot.logScaleAct->setChecked(false);
    QVERIFY(!plot.isLogScale());
    QCOMPARE(spy.count(), 2);
}

void tst_VoidPlotInteraction::setLogScaleWithoutActionStoresTheFlagOnly()
{
    Plot plot;
    plot.settle();
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuLogScale);
    QVERIFY(!plot.logScaleAct);
    QSignalSpy spy(&plot, &VoidPlot::logScaleToggled);
    plot.setLogScale(true);
    QVERIFY(plot.logScale);
    QVERIFY(!plot.isLogScale());
    QVERIFY(!dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.replots, 0);

    // The action that comes back takes its check state from the flag.
    plot.setContextMenuItems(plot.contextMenuItems() | VoidPlot::MenuLogScale);
    QVERIFY(plot.logScaleAct->isChecked());
    QVERIFY(plot.isLogScale());
}

void tst_VoidPlotInteraction::featureWithoutActionReadsOff()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(0x7FF);
    plot.setLogScale(true);
    plot.setDragZoom(true);
    plot.setAutoScroll(true);
    plot.setPeakLabelVisible(true);
    QVERIFY(plot.isLogScale() && plot.isDragZoom() && plot.isAutoScroll() && plot.isPeakLabelVisible());

    plot.setContextMenuItems(0);
    QVERIFY(plot.logScale && plot.dragZoom && plot.autoScroll && plot.peakLabelVisible);
    QVERIFY(!plot.isLogScale());
    QVERIFY(!plot.isDragZoom());
    QVERIFY(!plot.isAutoScroll());
    QVERIFY(!plot.isPeakLabelVisible());
}

void tst_VoidPlotInteraction::setDragZoomWithoutActionLeavesThePicker()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuDragZoom);
    QSignalSpy spy(&plot, &VoidPlot::dragZoomToggled);
    plot.setDragZoom(true);
    QVERIFY(plot.dragZoom);
    QVERIFY(!plot.isDragZoom());
    QVERIFY(plot.zoomPicker->isEnabled());
    QCOMPARE(spy.count(), 0);
}

void tst_VoidPlotInteraction::autoScrollExistsOnlyWithItsBit()
{
    VoidPlotProbe plot;
    QVERIFY(!plot.autoScrollAct);
    QVERIFY(plot.autoScroll);
    QVERIFY(!plot.isAutoScroll());

    plot.setContextMenuItems(plot.contextMenuItems() | VoidPlot::MenuAutoScroll);
    QVERIFY(plot.autoScrollAct);
    QVERIFY(plot.autoScrollAct->isChecked());
    QVERIFY(plot.isAutoScroll());

    QSignalSpy spy(&plot, &VoidPlot::autoScrollToggled);
    plot.setAutoScroll(false);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QVERIFY(!plot.isAutoScroll());
    QVERIFY(!plot.autoScrollAct->isChecked());
}

void tst_VoidPlotInteraction::logScaleMinYKeepsPositiveValuesOnly_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("kept");
    QTest::newRow("zero") << 0.0 << PlotDefault::YLower;
    QTest::newRow("negative") << -1.0 << PlotDefault::YLower;
    QTest::newRow("NaN") << std::nan("") << PlotDefault::YLower;
    QTest::newRow("positive") << 1e-9 << 1e-9;
    QTest::newRow("large") << 5.0 << 5.0;
}

void tst_VoidPlotInteraction::logScaleMinYKeepsPositiveValuesOnly()
{
    QFETCH(double, value);
    QFETCH(double, kept);
    VoidPlot plot;
    plot.setLogScaleMinY(value);
    QCOMPARE(plot.logScaleMinY(), kept);
}

void tst_VoidPlotInteraction::leftDragPansXAndLeftAxis()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    TestSupport::drag(plot.canvas(), QPoint(100, 100), QPoint(60, 130));
    QTRY_VERIFY(plot.replots >= 1);
    QVERIFY(interval(plot, QwtPlot::xBottom).minValue() > 100.0);
    QVERIFY(interval(plot, QwtPlot::yLeft).minValue() > 0.0);
    COMPARE_INTERVAL(interval(plot, QwtPlot::yRight), QwtInterval(0.0, 50.0));
}

void tst_VoidPlotInteraction::controlLeftDragIsNoPan()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    {
        HeldModifiers held(plot.windowHandle(), Qt::ControlModifier);
        TestSupport::drag(plot.canvas(), QPoint(100, 100), QPoint(60, 130), Qt::LeftButton,
                          Qt::ControlModifier);
    }
    QTest::qWait(4 * PlotDefault::ReplotDelay);
    plot.replot();
    COMPARE_INTERVAL(interval(plot, QwtPlot::xBottom), QwtInterval(100.0, 200.0));
    COMPARE_INTERVAL(interval(plot, QwtPlot::yLeft), QwtInterval(0.0, 10.0));
}

void tst_VoidPlotInteraction::wheelMagnifiesAroundTheCentre()
{
    Plot plot;
    QVERIFY(showActive(plot));
    setScales(plot);
    const QPoint centre(plot.canvas()->width() / 2, plot.canvas()->height() / 2);

    TestSupport::wheel(plot.canvas(), centre, -1);
    QTRY_VERIFY(plot.replots >= 1);
    const QwtInterval in = interval(plot, QwtPlot::xBottom);
    QVERIFY2(qAbs(in.width() - 100.0 * 0.9) < 1e-6, QByteArray::number(in.width()).constData());
    QVERIFY(qAbs(0.5 * (in.minValue() + in.maxValue()) - 150.0) < 1e-6);
    QVERIFY(qAbs(interval(plot, QwtPlot::yLeft).width() - 10.0 * 0.9) < 1e-9);

    TestSupport::wheel(plot.canvas(), centre, 1);
    QTRY_VERIFY(qAbs(interval(plot, QwtPlot::xBottom).width() - 100.0) < 1e-6);
}

void tst_VoidPlotInteraction::arrowAndHomeEndKeysShiftMarkers_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("direction");
    QTest::newRow("Left") << int(Qt::Key_Left) << int(VoidPlot::ShiftLeft);
    QTest::newRow("Right") << int(Qt::Key_Right) << int(VoidPlot::ShiftRight);
    QTest::newRow("Home") << int(Qt::Key_Home) << int(VoidPlot::ShiftHome);
    QTest::newRow("End") << int(Qt::Key_End) << int(VoidPlot::ShiftEnd);
}

void tst_VoidPlotInteraction::arrowAndHomeEndKeysShiftMarkers()
{
    QFETCH(int, key);
    QFETCH(int, direction);

    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setFocus();
    QTRY_VERIFY(plot.hasFocus());
    QTest::keyClick(plot.windowHandle(), Qt::Key(key));
    QCOMPARE(plot.shifts, QList<VoidPlot::ShiftDirection>{VoidPlot::ShiftDirection(direction)});

    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&plot, &event);
    QVERIFY(event.isAccepted());
    QCOMPARE(plot.shifts.size(), 2);
}

void tst_VoidPlotInteraction::keysWithModifiersReachQWidget_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    const int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End};
    const Qt::KeyboardModifier modifiers[] = {Qt::ShiftModifier, Qt::ControlModifier,
                                              Qt::AltModifier, Qt::MetaModifier, Qt::KeypadModifier};
    for (int key : keys) {
        for (Qt::KeyboardModifier modifier : modifiers) {
            const QByteArray name = QKeySequence(key).toString().toLatin1() + " with "
                + QByteArray::number(int(modifier), 16);
            QTest::newRow(name.constData()) << key << Qt::KeyboardModifiers(modifier);
        }
    }
    QTest::newRow("Up, no modifier") << int(Qt::Key_Up) << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("A, no modifier") << int(Qt::Key_A) << Qt::KeyboardModifiers(Qt::NoModifier);
}

void tst_VoidPlotInteraction::keysWithModifiersReachQWidget()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);

    VoidPlotProbe plot;
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&plot, &event);
    QVERIFY(!event.isAccepted()); // QWidget::keyPressEvent ignores it
    QVERIFY(plot.shifts.isEmpty());

    // A sent key press sets the application's modifier state: clear it again.
    QKeyEvent clear(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier);
    QCoreApplication::sendEvent(&plot, &clear);
}

void tst_VoidPlotInteraction::mouseLeftClickTest_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("button");
    QTest::addColumn<QPointF>("position");
    QTest::addColumn<bool>("clicked");

    const int release = QEvent::MouseButtonRelease;
    QTest::newRow("release at the press") << release << int(Qt::LeftButton) << QPointF(40, 40) << true;
    QTest::newRow("2 pixels off on both axes") << release << int(Qt::LeftButton) << QPointF(42, 38) << true;
    QTest::newRow("3 pixels off in x") << release << int(Qt::LeftButton) << QPointF(43, 40) << false;
    QTest::newRow("3 pixels off in y") << release << int(Qt::LeftButton) << QPointF(40, 37) << false;
    QTest::newRow("2.9 cut to 2") << release << int(Qt::LeftButton) << QPointF(42.9, 42.9) << true;
    QTest::newRow("37.1 cut to 37") << release << int(Qt::LeftButton) << QPointF(37.1, 40) << false;
    QTest::newRow("right button") << release << int(Qt::RightButton) << QPointF(40, 40) << false;
    QTest::newRow("a press, not a release")
        << int(QEvent::MouseButtonPress) << int(Qt::LeftButton) << QPointF(40, 40) << false;
    QTest::newRow("a double click")
        << int(QEvent::MouseButtonDblClick) << int(Qt::LeftButton) << QPointF(40, 40) << false;
}

void tst_VoidPlotInteraction::mouseLeftClickTest()
{
    QFETCH(int, type);
    QFETCH(int, button);
    QFETCH(QPointF, position);
    QFETCH(bool, clicked);

    VoidPlotProbe plot;
    plot.pressPosition = QPoint(40, 40);
    QMouseEvent event(QEvent::Type(type), position, position, Qt::MouseButton(button),
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button),
                      Qt::NoModifier);
    QCOMPARE(plot.isMouseLeftClicked(&event), clicked);
}

void tst_VoidPlotInteraction::mouseLeftClickNeedsNoModifierHeld()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.pressPosition = QPoint(40, 40);
    QMouseEvent event(QEvent::MouseButtonRelease, QPointF(40, 40), QPointF(40, 40), Qt::LeftButton,
                      Qt::NoButton, Qt::NoModifier);
    {
        HeldModifiers held(plot.windowHandle(), Qt::ShiftModifier);
        if (!held.reported())
            QSKIP("the platform reports the window system's keyboard, which the test cannot hold");
        QVERIFY(!plot.isMouseLeftClicked(&event));
    }
    QVERIFY(plot.isMouseLeftClicked(&event));
}

void tst_VoidPlotInteraction::moveMarkerKeyModifierWhitelist_data()
{
    QTest::addColumn<int>("modifier");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("none") << int(Qt::NoModifier) << true;
    QTest::newRow("Shift") << int(Qt::ShiftModifier) << true;
    QTest::newRow("Ctrl") << int(Qt::ControlModifier) << true;
    QTest::newRow("Alt") << int(Qt::AltModifier) << true;
    QTest::newRow("Meta") << int(Qt::MetaModifier) << false;
    QTest::newRow("Shift and Ctrl") << int(Qt::ShiftModifier | Qt::ControlModifier) << false;
    QTest::newRow("Keypad") << int(Qt::KeypadModifier) << false;
    QTest::newRow("a key code") << int(Qt::Key_Shift) << false;
    QTest::newRow("negative") << -1 << false;
}

void tst_VoidPlotInteraction::moveMarkerKeyModifierWhitelist()
{
    QFETCH(int, modifier);
    QFETCH(bool, accepted);

    VoidPlot plot;
    plot.setMoveMarkerKeyModifier(Qt::AltModifier);
    plot.setMoveMarkerKeyModifier(modifier);
    QCOMPARE(plot.moveMarkerKeyModifier(), accepted ? modifier : int(Qt::AltModifier));
}

QTEST_MAIN(tst_VoidPlotInteraction)
#include "tst_voidplot_interaction.moc"
