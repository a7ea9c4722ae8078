// Keys and clicks on a shown, active TimeCurvePlot: Return and Enter select
// the sample under the read-out, Escape drops the selection, Ctrl with an
// arrow, Home or End moves the selection itself, other combinations reach
// the frame; a left click reaches the host's hook.

#include "TimeCurvePlotProbe.h"

#include <TestSupport.h>

#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include <qwt_plot_marker.h>

namespace {

// Records the keys that reach a widget, here the plot's parent: those the
// plot leaves unhandled.
class KeyRecorder : public QObject
{
public:
    explicit KeyRecorder(QWidget *widget) { widget->installEventFilter(this); }
    QList<int> keys;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress)
            keys.append(static_cast<QKeyEvent *>(event)->key());
        // Presses of the modifier keys themselves are not counted.
        static const QList<int> modifierKeys = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt,
                                                Qt::Key_Meta};
        if (!keys.isEmpty() && modifierKeys.contains(keys.last()))
            keys.removeLast();
        return false;
    }
};

// The plot in a window of the host, with one curve of eleven samples at
// 0, 10 ... 100 s, y = 1 ... 11, on the x axis of 0 to 300 s.
struct Host
{
    QWidget window;
    TimeCurvePlotProbe *plot = new TimeCurvePlotProbe;
    KeyRecorder unhandled{&window};

    Host()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(plot);
        plot->appendCurve(timeCurve(QStringLiteral("c1"), 11, 10.0), true);
    }
    bool show()
    {
        if (!TestSupport::showActive(window, QSize(600, 400)))
            return false;
        plot->setFocus();
        // The keyboard state as the window system knows it: none. A release
        // of Ctrl sent by an earlier test may have left it at Ctrl, and a
        // move to where the pointer already is would change nothing.
        QTest::mouseMove(window.windowHandle(), QPoint(5, 5));
        QTest::mouseMove(window.windowHandle(), QPoint(6, 6));
        return QTest::qWaitFor([this] { return plot->canvas()->width() > 100; });
    }
    // The read-out on the sample at x.
    void readoutAt(double x) { plot->displayMarkers(0, QPointF(x, 1.0 + x / 10.0)); }
    double readoutX() const { return plot->seriesMarkers.first()->xValue(); }
    bool isSelected() const { return plot->selectionMarker->isVisible(); }
    double selectedX() const { return plot->selectionMarker->xValue(); }
    // A click as the keyboard gives it: modifier keys go down first.
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(plot, Qt::Key(key), modifiers);
    }
    // One press of key with modifiers held, and nothing else.
    void keyPress(int key, Qt::KeyboardModifiers modifiers)
    {
        QTest::simulateEvent(plot, true, key, modifiers, QString(), false);
    }
    // Selects the sample at x with Return; the index that selected reports.
    int selectAt(double x, QSignalSpy &selected);
};

// Waits for the one sampleSelected that a selection gives and returns its index.
int selectedIndex(QSignalSpy &spy)
{
    if (!QTest::qWaitFor([&spy] { return spy.count() > 0; }))
        return -2;
    return spy.takeFirst().at(0).toInt();
}

int Host::selectAt(double x, QSignalSpy &selected)
{
    readoutAt(x);
    key(Qt::Key_Return);
    return selectedIndex(selected);
}

} // namespace

class tst_TimeCurvePlotInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void arrowsAloneMoveTheReadoutOnly();
    void returnAndEnterSelectTheSampleUnderTheReadout_data();
    void returnAndEnterSelectTheSampleUnderTheReadout();
    void escapeDropsTheSelection();
    void keysWithOtherModifiersReachTheFrame_data();
    void keysWithOtherModifiersReachTheFrame();
    void ctrlLeftWithoutSelectionStepsAndSelects();
    void ctrlHomeWithSelectionGoesToTheFirstSample();
    void ctrlKeysMoveTheSelectionOneStep_data();
    void ctrlKeysMoveTheSelectionOneStep();
    void ctrlAloneBringsTheReadoutToTheSelection();
    void ctrlWithAnotherKeyOnlyAligns();

    void leftClickReachesTheHook();
    void leftPressAndReleaseApartIsNoClick();
    void rightClickIsNoLeftClick();
    void hostCanSelectOnLeftClick();
    void eventFilterEatsNothing();
};

void tst_TimeCurvePlotInput::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_TimeCurvePlotInput::arrowsAloneMoveTheReadoutOnly()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    host.readoutAt(30.0);
    host.key(Qt::Key_Right);
    QCOMPARE(host.readoutX(), 40.0);
    host.key(Qt::Key_Home);
    QCOMPARE(host.readoutX(), 0.0);
    QVERIFY(!host.isSelected());
    QCoreApplication::processEvents();
    QCOMPARE(selected.count(), 0);
    QVERIFY(host.unhandled.keys.isEmpty());
}

void tst_TimeCurvePlotInput::returnAndEnterSelectTheSampleUnderTheReadout_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << int(Qt::Key_Return) << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Enter") << int(Qt::Key_Enter) << Qt::KeyboardModifiers(Qt::NoModifier);
    QTest::newRow("Enter of the keypad") << int(Qt::Key_Enter)
                                         << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void tst_TimeCurvePlotInput::returnAndEnterSelectTheSampleUnderTheReadout()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    host.readoutAt(30.0);
    host.key(key, modifiers);
    QVERIFY(host.isSelected());
    QCOMPARE(host.selectedX(), 30.0);
    QCOMPARE(host.readoutX(), 30.0);
    QCOMPARE(selectedIndex(selected), 3);
    QVERIFY(host.unhandled.keys.isEmpty());
}

void tst_TimeCurvePlotInput::escapeDropsTheSelection()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    QVERIFY(host.isSelected());

    host.plot->replots = 0;
    host.key(Qt::Key_Escape);
    QVERIFY(!host.isSelected());
    QCOMPARE(host.readoutX(), 50.0);
    QTRY_VERIFY(host.plot->replots > 0);
    QCOMPARE(selected.count(), 0);
    QVERIFY(host.unhandled.keys.isEmpty());
}

void tst_TimeCurvePlotInput::keysWithOtherModifiersReachTheFrame_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Shift+Escape") << int(Qt::Key_Escape) << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Alt+Return") << int(Qt::Key_Return) << Qt::KeyboardModifiers(Qt::AltModifier);
    QTest::newRow("Shift+Left") << int(Qt::Key_Left) << Qt::KeyboardModifiers(Qt::ShiftModifier);
    QTest::newRow("Ctrl+Shift+Home")
        << int(Qt::Key_Home) << Qt::KeyboardModifiers(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::newRow("Ctrl+keypad Left")
        << int(Qt::Key_Left) << Qt::KeyboardModifiers(Qt::ControlModifier | Qt::KeypadModifier);
    QTest::newRow("plain A") << int(Qt::Key_A) << Qt::KeyboardModifiers(Qt::NoModifier);
}

void tst_TimeCurvePlotInput::keysWithOtherModifiersReachTheFrame()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    host.readoutAt(80.0);

    host.keyPress(key, modifiers);

    // Nothing moved, and the frame passed the key on to the parent.
    QVERIFY(host.isSelected());
    QCOMPARE(host.selectedX(), 50.0);
    QCOMPARE(host.readoutX(), 80.0);
    QCOMPARE(host.unhandled.keys, QList<int>{key});
    QCoreApplication::processEvents();
    QCOMPARE(selected.count(), 0);
}

void tst_TimeCurvePlotInput::ctrlLeftWithoutSelectionStepsAndSelects()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    // A dropped selection keeps its place, but there is nothing to align to.
    QCOMPARE(host.selectAt(70.0, selected), 7);
    host.key(Qt::Key_Escape);
    QVERIFY(!host.isSelected());
    host.readoutAt(30.0);

    host.key(Qt::Key_Left, Qt::ControlModifier);

    QCOMPARE(host.readoutX(), 20.0);
    QVERIFY(host.isSelected());
    QCOMPARE(host.selectedX(), 20.0);
    QCOMPARE(selectedIndex(selected), 2);
}

void tst_TimeCurvePlotInput::ctrlHomeWithSelectionGoesToTheFirstSample()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    host.readoutAt(80.0);

    host.key(Qt::Key_Home, Qt::ControlModifier);

    QCOMPARE(host.readoutX(), 0.0);
    QCOMPARE(host.plot->marker->xValue(), 0.0);
    QVERIFY(host.isSelected());
    QCOMPARE(host.selectedX(), 0.0);
    QCOMPARE(selectedIndex(selected), 0);
}

void tst_TimeCurvePlotInput::ctrlKeysMoveTheSelectionOneStep_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("x");
    QTest::addColumn<int>("index");
    QTest::newRow("Ctrl+Left") << int(Qt::Key_Left) << 40.0 << 4;
    QTest::newRow("Ctrl+Right") << int(Qt::Key_Right) << 60.0 << 6;
    QTest::newRow("Ctrl+End") << int(Qt::Key_End) << 100.0 << 10;
}

void tst_TimeCurvePlotInput::ctrlKeysMoveTheSelectionOneStep()
{
    QFETCH(int, key);
    QFETCH(double, x);
    QFETCH(int, index);
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    // The read-out wanders off; the step starts from the selection all the same.
    host.readoutAt(90.0);

    host.key(key, Qt::ControlModifier);

    QCOMPARE(host.selectedX(), x);
    QCOMPARE(host.readoutX(), x);
    QCOMPARE(selectedIndex(selected), index);
    QVERIFY(host.unhandled.keys.isEmpty());
}

void tst_TimeCurvePlotInput::ctrlAloneBringsTheReadoutToTheSelection()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    host.readoutAt(80.0);

    QTest::keyPress(host.plot, Qt::Key_Control, Qt::ControlModifier);

    QCOMPARE(host.readoutX(), 50.0);
    QCOMPARE(host.selectedX(), 50.0);
    QTest::keyRelease(host.plot, Qt::Key_Control, Qt::NoModifier);
    QCoreApplication::processEvents();
    QCOMPARE(selected.count(), 0);
}

void tst_TimeCurvePlotInput::ctrlWithAnotherKeyOnlyAligns()
{
    Host host;
    QVERIFY(host.show());
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    QCOMPARE(host.selectAt(50.0, selected), 5);
    host.readoutAt(80.0);

    host.key(Qt::Key_A, Qt::ControlModifier);

    QCOMPARE(host.readoutX(), 50.0);
    QCOMPARE(host.selectedX(), 50.0);
    // The key ends there: neither the frame nor the parent sees it.
    QVERIFY(host.unhandled.keys.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(selected.count(), 0);
}

void tst_TimeCurvePlotInput::leftClickReachesTheHook()
{
    Host host;
    QVERIFY(host.show());
    QWidget *canvas = host.plot->canvas();
    const QPoint at(100, 80);
    TestSupport::mouse(canvas, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(host.plot->leftClicks, 0);
    TestSupport::mouse(canvas, QEvent::MouseButtonRelease, at + QPoint(2, -2), Qt::LeftButton);
    QCOMPARE(host.plot->leftClicks, 1);
}

void tst_TimeCurvePlotInput::leftPressAndReleaseApartIsNoClick()
{
    Host host;
    QVERIFY(host.show());
    QWidget *canvas = host.plot->canvas();
    TestSupport::drag(canvas, QPoint(100, 80), QPoint(104, 80));
    QCOMPARE(host.plot->leftClicks, 0);
}

void tst_TimeCurvePlotInput::rightClickIsNoLeftClick()
{
    Host host;
    QVERIFY(host.show());
    QWidget *canvas = host.plot->canvas();
    const QPoint at(100, 80);
    TestSupport::mouse(canvas, QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton);
    TestSupport::mouse(canvas, QEvent::MouseButtonRelease, at, Qt::RightButton);
    QCOMPARE(host.plot->leftClicks, 0);
}

void tst_TimeCurvePlotInput::hostCanSelectOnLeftClick()
{
    Host host;
    QVERIFY(host.show());
    host.plot->selectOnLeftClick = true;
    QSignalSpy selected(host.plot, &CurvePlot::sampleSelected);
    const int column = int(host.plot->transform(QwtPlot::xBottom, 60.0));
    const QPoint at(column + 1, 80);
    TestSupport::mouse(host.plot->canvas(), QEvent::MouseButtonPress, at, Qt::LeftButton,
                       Qt::LeftButton);
    TestSupport::mouse(host.plot->canvas(), QEvent::MouseButtonRelease, at, Qt::LeftButton);
    QCOMPARE(selectedIndex(selected), 6);
    QCOMPARE(host.selectedX(), 60.0);
}

void tst_TimeCurvePlotInput::eventFilterEatsNothing()
{
    Host host;
    QVERIFY(host.show());
    QWidget *canvas = host.plot->canvas();
    const QPoint at(100, 80);
    TestSupport::mouse(canvas, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(at), QPointF(canvas->mapToGlobal(at)),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);

    // Only the canvas counts.
    QVERIFY(!host.plot->eventFilter(host.plot, &release));
    QCOMPARE(host.plot->leftClicks, 0);
    QVERIFY(!host.plot->eventFilter(canvas, &release));
    QCOMPARE(host.plot->leftClicks, 1);

    QEvent enter(QEvent::Enter);
    QVERIFY(!host.plot->eventFilter(canvas, &enter));
    QCOMPARE(host.plot->leftClicks, 1);
}

QTEST_MAIN(tst_TimeCurvePlotInput)
#include "tst_timecurveplot_input.moc"
