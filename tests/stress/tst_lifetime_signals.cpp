// sampleSelected() reaches the host one event-loop turn after the selection.
// In between, the host may remove curves or delete the plot, its window, or
// the plot from the slot of an earlier selection. A plot that died emits
// nothing, and a plot that lives delivers each selection once and in order.

#include <figura/plots/CurvePlot.h>
#include <figura/plots/TimeCurvePlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QList>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <qwt_plot_curve.h>

using namespace StressSupport;
using namespace TestSupport;

namespace {

// Opens the selection operations, which are protected, as a host subclass does.
template <class Base>
class Selecting : public Base
{
public:
    using Base::Base;
    using CurvePlot::selectSample;
    using CurvePlot::selectSampleWithKey;
    using CurvePlot::shiftMarkers;
};
using SelectingCurvePlot = Selecting<CurvePlot>;
using SelectingTimeCurvePlot = Selecting<TimeCurvePlot>;

// Counts what arrives from a plot, through a receiver that outlives it.
struct Receiver : QObject
{
    QList<int> indices;
    QList<const QObject *> senders;

    void listenTo(CurvePlot *plot)
    {
        connect(plot, &CurvePlot::sampleSelected, this, [this](int index) {
            indices << index;
            senders << sender();
        });
    }
};

// True once every zero-time timer started before this call has fired: they
// fire in the order in which they were started.
bool runZeroTimersStartedSoFar()
{
    bool reached = false;
    QTimer::singleShot(0, [&reached] { reached = true; });
    return QTest::qWaitFor([&reached] { return reached; });
}

// Ten samples at x = 1 .. 10, y = 1e-9 .. 1e-8.
void fill(CurvePlot *plot, int curves = 2)
{
    for (int i = 0; i < curves; ++i)
        plot->appendCurve(curveOf(QStringLiteral("curve %1").arg(i),
                                  risingSamples(10, 1.0, 1.0, 1e-9 * (i + 1))),
                          true);
}

int columnOf(QwtPlot *plot, double x)
{
    return qRound(plot->transform(QwtPlot::xBottom, x));
}

// How a selection is made.
enum class Selection { ByPixel, ByValue, ByKeyAfterStep, ByReturnKey };
// How the plot ends before the delivery.
enum class Kill { DeletePlot, DeleteWindow };

} // namespace

Q_DECLARE_METATYPE(Selection)
Q_DECLARE_METATYPE(Kill)

class tst_LifetimeSignals : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QStandardPaths::setTestModeEnabled(true); }

private slots:
    void initTestCase();

    void deletedPlotDoesNotEmitPendingSelection_data();
    void deletedPlotDoesNotEmitPendingSelection();
    void plotBornAtTheSameAddressGetsNoStaleSelection();
    void removingCurvesKeepsThePendingSelection_data();
    void removingCurvesKeepsThePendingSelection();
    void quickSelectionsArriveInOrderOnceEach();
    void manyQuickSelectionsArriveInOrderOnceEach();
    void selectionsOfTwoPlotsStayApart();
    void deletingOnePlotLeavesTheOthersSelections();
    void plotDeletedByItsFirstSelectionSendsNoSecond();
    void failedSelectionsSendNothing();

private:
    void select(CurvePlot *plot, Selection how, int step);
};

void tst_LifetimeSignals::initTestCase()
{
    installNoticeFilter();
}

// Makes one selection of the given kind; step chooses the sample.
void tst_LifetimeSignals::select(CurvePlot *plot, Selection how, int step)
{
    const double x = 1.0 + step % 10;
    switch (how) {
    case Selection::ByPixel:
        static_cast<SelectingCurvePlot *>(plot)->selectSample(columnOf(plot, x));
        break;
    case Selection::ByValue:
        static_cast<SelectingCurvePlot *>(plot)->selectSample(columnOf(plot, x),
                                                              QPointF(x, 1e-9 * x));
        break;
    case Selection::ByKeyAfterStep:
        static_cast<SelectingCurvePlot *>(plot)->shiftMarkers(VoidPlot::ShiftHome);
        static_cast<SelectingCurvePlot *>(plot)->selectSampleWithKey();
        break;
    case Selection::ByReturnKey:
        QTest::keyClick(plot, Qt::Key_Home);
        QTest::keyClick(plot, Qt::Key_Return);
        break;
    }
}

void tst_LifetimeSignals::deletedPlotDoesNotEmitPendingSelection_data()
{
    QTest::addColumn<Selection>("how");
    QTest::addColumn<Kill>("kill");
    const QList<QPair<const char *, Selection>> selections = {
        {"by pixel", Selection::ByPixel},
        {"by value", Selection::ByValue},
        {"by key after a step", Selection::ByKeyAfterStep},
        {"by the Return key", Selection::ByReturnKey}};
    // Not deleteLater(): a plot that is only scheduled for deletion is alive
    // at the next turn and rightly delivers.
    const QList<QPair<const char *, Kill>> kills = {{"delete", Kill::DeletePlot},
                                                   {"delete window", Kill::DeleteWindow}};
    for (const auto &selection : selections)
        for (const auto &kill : kills)
            QTest::addRow("%s, %s", selection.first, kill.first) << selection.second << kill.second;
}

void tst_LifetimeSignals::deletedPlotDoesNotEmitPendingSelection()
{
    QFETCH(Selection, how);
    QFETCH(Kill, kill);
    auto *window = new QWidget;
    auto *layout = new QVBoxLayout(window);
    // The Return key selects on a TimeCurvePlot only.
    QPointer<CurvePlot> plot;
    if (how == Selection::ByReturnKey)
        plot = new SelectingTimeCurvePlot(window);
    else
        plot = new SelectingCurvePlot(window);
    layout->addWidget(plot);
    fill(plot);
    QVERIFY(showActive(*window));
    plot->setFocus();
    Receiver receiver;
    receiver.listenTo(plot);

    select(plot, how, 3);
    QVERIFY(receiver.indices.isEmpty()); // not before the next turn
    switch (kill) {
    case Kill::DeletePlot:
        delete plot.data();
        break;
    case Kill::DeleteWindow:
        delete window;
        window = nullptr;
        break;
    }

    QVERIFY(!plot);
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(receiver.indices, QList<int>());
    delete window;
}

// The delivery must not reach whatever object takes the dead plot's place in
// memory: without its guard it would make a newcomer there emit.
void tst_LifetimeSignals::plotBornAtTheSameAddressGetsNoStaleSelection()
{
    int reused = 0;
    for (int round = 0; round < 20; ++round) {
        auto *plot = new SelectingCurvePlot;
        fill(plot);
        plot->resize(400, 300);
        plot->replot();
        plot->selectSample(columnOf(plot, 4.0));
        const void *address = plot;
        delete plot;

        auto *newcomer = new SelectingCurvePlot;
        if (static_cast<const void *>(newcomer) == address)
            ++reused;
        QSignalSpy spy(newcomer, &CurvePlot::sampleSelected);
        QVERIFY(runZeroTimersStartedSoFar());
        QCOMPARE(spy.count(), 0);
        delete newcomer;
    }
    qInfo("a new plot took the old one's address in %d of 20 rounds", reused);
}

void tst_LifetimeSignals::removingCurvesKeepsThePendingSelection_data()
{
    QTest::addColumn<int>("removal");
    QTest::newRow("removeCurves") << 0;
    QTest::newRow("removeCurve by index") << 1;
    QTest::newRow("removeCurve by pointer") << 2;
    QTest::newRow("removed and others appended") << 3;
}

// The index was taken at the selection; what the store does afterwards does
// not stop, repeat or change the delivery.
void tst_LifetimeSignals::removingCurvesKeepsThePendingSelection()
{
    QFETCH(int, removal);
    SelectingCurvePlot plot;
    fill(&plot, 3);
    QVERIFY(showActive(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    plot.selectSample(columnOf(&plot, 6.0));
    switch (removal) {
    case 0:
        plot.removeCurves();
        break;
    case 1:
        plot.removeCurve(0);
        break;
    case 2:
        plot.removeCurve(plot.curves().first());
        break;
    case 3:
        plot.removeCurves();
        fill(&plot, 1);
        break;
    }

    QTRY_COMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 5);
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(spy.count(), 1);
}

void tst_LifetimeSignals::quickSelectionsArriveInOrderOnceEach()
{
    SelectingCurvePlot plot;
    fill(&plot);
    QVERIFY(showActive(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);

    plot.selectSample(columnOf(&plot, 7.0));
    plot.selectSample(columnOf(&plot, 2.0), QPointF(2.0, 2e-9));
    plot.selectSample(columnOf(&plot, 2.5), QPointF(2.5, 1.0)); // no such x: -1
    QCOMPARE(spy.count(), 0);

    QTRY_COMPARE(spy.count(), 3);
    QCOMPARE(spy.at(0).at(0).toInt(), 6);
    QCOMPARE(spy.at(1).at(0).toInt(), 1);
    QCOMPARE(spy.at(2).at(0).toInt(), -1);
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(spy.count(), 3);
}

void tst_LifetimeSignals::manyQuickSelectionsArriveInOrderOnceEach()
{
    SelectingCurvePlot plot;
    fill(&plot);
    QVERIFY(showActive(plot));
    Receiver receiver;
    receiver.listenTo(&plot);

    QList<int> expected;
    for (int i = 0; i < 500; ++i) {
        plot.selectSample(columnOf(&plot, 1.0 + i % 10));
        expected << i % 10;
    }
    QTRY_COMPARE(receiver.indices.size(), expected.size());
    QCOMPARE(receiver.indices, expected);
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(receiver.indices.size(), expected.size());
}

void tst_LifetimeSignals::selectionsOfTwoPlotsStayApart()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new SelectingCurvePlot(&window);
    auto *second = new SelectingCurvePlot(&window);
    layout->addWidget(first);
    layout->addWidget(second);
    fill(first);
    fill(second);
    QVERIFY(showActive(window, QSize(400, 600)));
    Receiver receiver;
    receiver.listenTo(first);
    receiver.listenTo(second);

    first->selectSample(columnOf(first, 1.0));
    second->selectSample(columnOf(second, 2.0));
    first->selectSample(columnOf(first, 3.0));
    second->selectSample(columnOf(second, 4.0));

    QTRY_COMPARE(receiver.indices.size(), 4);
    QCOMPARE(receiver.indices, (QList<int>{0, 1, 2, 3}));
    QCOMPARE(receiver.senders,
             (QList<const QObject *>{first, second, first, second}));
}

void tst_LifetimeSignals::deletingOnePlotLeavesTheOthersSelections()
{
    auto *doomed = new SelectingCurvePlot;
    SelectingCurvePlot survivor;
    fill(doomed);
    fill(&survivor);
    QVERIFY(showActive(survivor));
    doomed->resize(400, 300);
    doomed->replot();
    Receiver receiver;
    receiver.listenTo(&survivor);
    receiver.listenTo(doomed);

    survivor.selectSample(columnOf(&survivor, 5.0));
    doomed->selectSample(columnOf(doomed, 9.0));
    survivor.selectSample(columnOf(&survivor, 6.0));
    delete doomed;

    QTRY_COMPARE(receiver.indices.size(), 2);
    QCOMPARE(receiver.indices, (QList<int>{4, 5}));
    QCOMPARE(receiver.senders, (QList<const QObject *>{&survivor, &survivor}));
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(receiver.indices.size(), 2);
}

// A host that closes the plot when a sample is chosen, while a second
// selection is on its way.
void tst_LifetimeSignals::plotDeletedByItsFirstSelectionSendsNoSecond()
{
    QPointer<SelectingCurvePlot> plot = new SelectingCurvePlot;
    fill(plot);
    QVERIFY(showActive(*plot));
    Receiver receiver;
    connect(plot, &CurvePlot::sampleSelected, &receiver, [&receiver, &plot](int index) {
        receiver.indices << index;
        delete plot.data();
    });

    plot->selectSample(columnOf(plot, 2.0));
    plot->selectSample(columnOf(plot, 8.0));

    QTRY_VERIFY(!plot);
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(receiver.indices, QList<int>{1});
}

// Selections that find nothing end before the delivery is set up.
void tst_LifetimeSignals::failedSelectionsSendNothing()
{
    SelectingCurvePlot plot;
    QVERIFY(showActive(plot));
    QSignalSpy spy(&plot, &CurvePlot::sampleSelected);
    plot.selectSample(10);          // no curves
    plot.selectSampleWithKey();     // no curves
    plot.appendCurve(curveOf(QStringLiteral("empty"), {}), true);
    plot.selectSample(10);          // a curve without samples
    plot.selectSampleWithKey();     // no read-out on display
    plot.clearSelectionMarker();
    QVERIFY(runZeroTimersStartedSoFar());
    QCOMPARE(spy.count(), 0);
}

QTEST_MAIN(tst_LifetimeSignals)
#include "tst_lifetime_signals.moc"
