// The read-out of the multi-bar plot: the one line and its label in coloured
// rich text, the set searches by pixel and by position, the side and place
// of the label, the width estimate, refreshing after new data, the key steps
// with the mouse pointer, and the pointer path that drives it all.

#include "MultiBarPlotProbe.h"
#include "ReadoutTestSupport.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>

#include <QCursor>
#include <QFontMetrics>
#include <QLocale>
#include <QtTest>

#include <qwt_legend.h>

using TestSupport::mouse;
using TestSupport::showActive;

namespace {

const QColor Red(Qt::red);
const QColor Blue(Qt::blue);
const QColor Green(Qt::darkGreen);

// One bar's line of the label, the separator ahead of it.
QString barLine(const QColor &color, const QString &title, const QString &value)
{
    return QStringLiteral("<br><font color=\"") + color.name() + QStringLiteral("\">")
        + PlotDefault::HTML::SquareChar + QStringLiteral(" </font>") + title + QStringLiteral(": ")
        + value;
}

QList<QwtText> titles(const QStringList &texts)
{
    QList<QwtText> list;
    for (const QString &text : texts)
        list.append(QwtText(text));
    return list;
}

} // namespace

class tst_MultiBarPlotReadout : public QObject
{
    Q_OBJECT

private:
    // Shows the plot with x on 0 to xMax, titled "Mass", and y on 0 to 10.
    bool prepare(MultiBarPlotProbe &plot, double xMax = 4.0);
    // Sets at the positions with two bars, "A" red at x and "B" blue at 2x.
    void fill(MultiBarPlotProbe &plot, const QVector<double> &positions = {1, 2, 3});
    int pixelOf(MultiBarPlotProbe &plot, double x) { return ReadoutTest::pixelOf(plot, x); }
    int roundedPixelOf(MultiBarPlotProbe &plot, double x)
    {
        return int(std::round(plot.transform(QwtPlot::xBottom, x)));
    }
    QPoint bottomEdge(MultiBarPlotProbe &plot, int pixel)
    {
        return plot.canvas()->mapToGlobal(QPoint(pixel, plot.canvas()->height()));
    }
    QString labelOf(const QwtPlotMarker *m) const { return m->label().text(); }

private slots:
    void initTestCase();
    void init();

    void pointerMovesBeforeFirstSamplesCauseNoReplot();
    void pointerMovesOverHiddenChartCauseNoReplot();
    void pointerReadsTheNearestSet();
    void pointerMovesRequestOneDelayedReplot();
    void pointerFollowsOnlyWithMoveModifier();
    void dragClearsLabelWithoutReadout();
    void inactiveApplicationDoesNotTrack();

    void labelIsColouredRichTextWithOrWithoutLegend();
    void sortOptionHasNoEffect();
    void barsOfNoPositiveValue_data();
    void barsOfNoPositiveValue();
    void placeWithoutSymbolAddsNoLine();
    void placeWithoutTitleReadsUntitled();
    void exactSetMovesOnlyToThatPosition();
    void setAtZeroIsAnOrdinarySet();
    void hiddenLabelMovesLineWithoutText();
    void hiddenLineAndLabelStopThePass();
    void noReadoutLineNoPass();
    void trailingAlignmentBehavesAsTop_data();
    void trailingAlignmentBehavesAsTop();
    void labelGoesLeftOnlyWhenItDoesNotFit();
    void frameMarkerStaysAtZeroOnceAReadoutRan();

    void markerLabelWidthOfGivenText();
    void markerLabelWidthWithoutSamplesMeasuresDummyX();
    void markerLabelWidthEstimatesFromLastSet();
    void axisValueTextFormats_data();
    void axisValueTextFormats();
    void axisValueTextFollowsLocale();

    void refreshMarkersKeepsXAndUpdatesValues();
    void refreshMarkersClearsLabelWhenXIsGone();
    void refreshMarkersBeforeFirstReadoutDoesNothing();
    void firstAndLastSetSample();

    void shiftWithoutSamplesTouchesNothing();
    void shiftWithoutReadoutLineTouchesNothing();
    void shiftRightAndLeftStopAtTheEnds();
    void shiftHomeAndEndGoToTheEnds();
    void shiftFromVanishedPositionStepsFromNearest();
    void shiftBeforeFirstReadoutStartsAtColumnOne();
    void shiftToSetBeyondTheAxisKeepsPointerOnCanvas();
    void arrowKeysStepTheReadout();
};

bool tst_MultiBarPlotReadout::prepare(MultiBarPlotProbe &plot, double xMax)
{
    return ReadoutTest::showForReadout(plot, xMax, 10.0);
}

void tst_MultiBarPlotReadout::fill(MultiBarPlotProbe &plot, const QVector<double> &positions)
{
    QList<QwtSetSample> samples = setsAt(positions, {1, 2});
    plot.updateMultiBarChart(&samples, {Red, Blue}, titles({QStringLiteral("A"), QStringLiteral("B")}));
    plot.settle();
}

void tst_MultiBarPlotReadout::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_MultiBarPlotReadout::init()
{
    QLocale::setDefault(QLocale::c());
}

// ---------------------------------------------------------------------------
// The pointer path

void tst_MultiBarPlotReadout::pointerMovesBeforeFirstSamplesCauseNoReplot()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    QVERIFY(plot.canvas()->hasMouseTracking());
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;
    for (int i = 0; i < 5; ++i)
        QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(30 + 40 * i, y)));
    QTest::qWait(50);
    QCOMPARE(plot.replots, 0);
    QVERIFY(plot.displayCalls.isEmpty());

    // Values alone make no read-out line, but there is something to show now.
    QList<QwtSetSample> samples = setsAt({1, 2, 3}, {1, 2});
    plot.updateMultiBarChart(&samples);
    plot.settle();
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.0), y)));
    QTRY_COMPARE(plot.replots, 1);
    QCOMPARE(plot.displayCalls.size(), 1);
    QVERIFY(plot.seriesMarkers.isEmpty());
}

void tst_MultiBarPlotReadout::pointerMovesOverHiddenChartCauseNoReplot()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.barChart()->setVisible(false);
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 1.0), y)));
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.0), y)));
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 3.0), y), Qt::NoButton, Qt::LeftButton);
    QTest::qWait(50);
    QCOMPARE(plot.replots, 0);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(!plot.readMarker()->isVisible());
}

void tst_MultiBarPlotReadout::pointerReadsTheNearestSet()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;

    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.4), y)));
    QTRY_COMPARE(plot.readMarker()->xValue(), 2.0);
    QVERIFY(plot.readMarker()->isVisible());
    QCOMPARE(plot.readMarker()->yValue(), 0.0);
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 2") + barLine(Red, QStringLiteral("A"), QStringLiteral("2.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("4.0000")));
    QCOMPARE(plot.displayCalls.last().pos, pixelOf(plot, 2.4));
    QVERIFY(plot.displayCalls.last().setSample.set.isEmpty());
    QTRY_COMPARE(plot.replots, 1);

    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.7), y + 10)));
    QTRY_COMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 3") + barLine(Red, QStringLiteral("A"), QStringLiteral("3.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("6.0000")));

    // Left of all sets the first is read, right of all the last.
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 0.1), y)));
    QTRY_COMPARE(plot.readMarker()->xValue(), 1.0);
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 3.9), y)));
    QTRY_COMPARE(plot.readMarker()->xValue(), 3.0);
}

void tst_MultiBarPlotReadout::pointerMovesRequestOneDelayedReplot()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    for (int i = 0; i < 5; ++i)
        mouse(plot.canvas(), QEvent::MouseMove, QPoint(20 + 30 * i, 30));
    QCOMPARE(plot.displayCalls.size(), 5);
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(50);
    QCOMPARE(plot.replots, 1);
}

void tst_MultiBarPlotReadout::pointerFollowsOnlyWithMoveModifier()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.setMoveMarkerKeyModifier(Qt::ShiftModifier);
    QWindow *window = plot.windowHandle();
    const int y = plot.canvas()->height() / 2;

    // Without Shift the read-out stands still, but a replot is requested.
    QTest::mouseMove(window, plot.canvas()->mapTo(&plot, QPoint(pixelOf(plot, 2.0), y)));
    QTRY_COMPARE(plot.replots, 1);
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(plot.readMarker()->xValue(), 0.0);

    QTest::keyPress(window, Qt::Key_Shift, Qt::ShiftModifier);
    QCOMPARE(QGuiApplication::queryKeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier));
    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 3.0), y), Qt::NoButton, Qt::NoButton,
          Qt::ShiftModifier);
    QTest::keyRelease(window, Qt::Key_Shift, Qt::NoModifier);
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
}

void tst_MultiBarPlotReadout::dragClearsLabelWithoutReadout()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QVERIFY(!labelOf(plot.readMarker()).isEmpty());
    plot.displayCalls.clear();

    mouse(plot.canvas(), QEvent::MouseMove, QPoint(pixelOf(plot, 3.0), 40), Qt::NoButton, Qt::LeftButton);
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(labelOf(plot.readMarker()).isEmpty());
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QTRY_COMPARE(plot.replots, 1);
}

void tst_MultiBarPlotReadout::inactiveApplicationDoesNotTrack()
{
    MultiBarPlotProbe plot;
    fill(plot);
    ReadoutTest::checkInactiveApplicationDoesNotTrack(plot);
}

// ---------------------------------------------------------------------------
// The pass

void tst_MultiBarPlotReadout::labelIsColouredRichTextWithOrWithoutLegend()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    const QString expected = QStringLiteral("Mass: 1")
        + barLine(Red, QStringLiteral("A"), QStringLiteral("1.0000"))
        + barLine(Blue, QStringLiteral("B"), QStringLiteral("2.0000"));

    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample());
    QCOMPARE(labelOf(plot.readMarker()), expected);

    plot.enableLegend(QwtPlot::RightLegend);
    plot.displayMarkers(0, QwtSetSample(1.0, {1.0}));
    QCOMPARE(labelOf(plot.readMarker()), expected);
}

void tst_MultiBarPlotReadout::sortOptionHasNoEffect()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    plot.displayMarkers(pixelOf(plot, 3.0), QwtSetSample());
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 3") + barLine(Red, QStringLiteral("A"), QStringLiteral("3.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("6.0000")));
}

void tst_MultiBarPlotReadout::barsOfNoPositiveValue_data()
{
    QTest::addColumn<bool>("hide");
    QTest::addColumn<QString>("bars");
    QTest::newRow("hidden by default") << true
                                       << barLine(Green, QStringLiteral("C"), QStringLiteral("3.0000"));
    QTest::newRow("shown on request")
        << false
        << barLine(Red, QStringLiteral("A"), QStringLiteral("0.0000"))
            + barLine(Blue, QStringLiteral("B"), QStringLiteral("-1.00e+00"))
            + barLine(Green, QStringLiteral("C"), QStringLiteral("3.0000"));
}

void tst_MultiBarPlotReadout::barsOfNoPositiveValue()
{
    QFETCH(bool, hide);
    QFETCH(QString, bars);
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    QList<QwtSetSample> samples = {QwtSetSample(1.0, {0.0, -1.0, 3.0}), QwtSetSample(2.0, {1.0, 1.0, 1.0})};
    plot.updateMultiBarChart(&samples, {Red, Blue, Green},
                             titles({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}));
    if (!hide)
        plot.setHideZeroValueMarkerLabel(false);
    QCOMPARE(plot.hideZeroValueMarkerLabel, hide);

    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample());
    QCOMPARE(labelOf(plot.readMarker()), QStringLiteral("Mass: 1") + bars);
}

void tst_MultiBarPlotReadout::placeWithoutSymbolAddsNoLine()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.barChart()->setSymbol(0, nullptr);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 2") + barLine(Blue, QStringLiteral("B"), QStringLiteral("4.0000")));
}

void tst_MultiBarPlotReadout::placeWithoutTitleReadsUntitled()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    QList<QwtSetSample> samples = setsAt({1, 2}, {1, 2});
    plot.updateMultiBarChart(&samples, {Red, Blue}, titles({QStringLiteral("A")}));
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 2") + barLine(Red, QStringLiteral("A"), QStringLiteral("2.0000"))
                 + barLine(Blue, QString(), QStringLiteral("4.0000")));
}

void tst_MultiBarPlotReadout::exactSetMovesOnlyToThatPosition()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);

    // The set's own values do not matter, only its position; pos is unused.
    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample(3.0, {99.0}));
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 3") + barLine(Red, QStringLiteral("A"), QStringLiteral("3.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("6.0000")));

    // A position without a set: the label is cleared and the line stays.
    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample(2.5, {1.0}));
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QVERIFY(labelOf(plot.readMarker()).isEmpty());
    QVERIFY(plot.readMarker()->isVisible());
}

void tst_MultiBarPlotReadout::setAtZeroIsAnOrdinarySet()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot, {0, 1, 2});
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QCOMPARE(plot.readMarker()->xValue(), 2.0);

    QList<QwtSetSample> samples = {QwtSetSample(0.0, {5.0, 0.0}), QwtSetSample(1.0, {1.0, 1.0})};
    plot.updateMultiBarChart(&samples);
    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample(0.0, {5.0, 0.0}));
    QCOMPARE(plot.readMarker()->xValue(), 0.0);
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 0") + barLine(Red, QStringLiteral("A"), QStringLiteral("5.0000")));
}

void tst_MultiBarPlotReadout::hiddenLabelMovesLineWithoutText()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.setMarkerLabelVisible(false);
    plot.displayMarkers(pixelOf(plot, 3.0), QwtSetSample());
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QVERIFY(plot.readMarker()->isVisible());
    QVERIFY(labelOf(plot.readMarker()).isEmpty());
    QCOMPARE(plot.readMarker()->linePen().color().alpha(), 255);

    // A label without its line: the line turns transparent, the text stays.
    plot.setMarkerLabelVisible(true);
    plot.setMarkerVisible(false);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QVERIFY(plot.readMarker()->isVisible());
    QCOMPARE(plot.readMarker()->linePen().color().alpha(), 0);
    QVERIFY(labelOf(plot.readMarker()).startsWith(QStringLiteral("Mass: 2<br>")));
}

void tst_MultiBarPlotReadout::hiddenLineAndLabelStopThePass()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    const QString label = labelOf(plot.readMarker());
    plot.setMarkerVisible(false);
    plot.setMarkerLabelVisible(false);

    plot.displayMarkers(pixelOf(plot, 3.0), QwtSetSample());
    QVERIFY(!plot.readMarker()->isVisible());
    QVERIFY(!plot.marker->isVisible());
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QCOMPARE(labelOf(plot.readMarker()), label);
}

void tst_MultiBarPlotReadout::noReadoutLineNoPass()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    QList<QwtSetSample> samples = setsAt({1, 2, 3}, {1, 2});
    plot.updateMultiBarChart(&samples);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(plot.marker->label().text().isEmpty());
}

void tst_MultiBarPlotReadout::trailingAlignmentBehavesAsTop_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("vertical");
    QTest::newRow("Trailing") << int(Qt::AlignTrailing) << int(Qt::AlignTop);
    QTest::newRow("Top") << int(Qt::AlignTop) << int(Qt::AlignTop);
    QTest::newRow("Middle") << int(Qt::AlignVCenter) << int(Qt::AlignVCenter);
    QTest::newRow("Bottom") << int(Qt::AlignBottom) << int(Qt::AlignBottom);
}

void tst_MultiBarPlotReadout::trailingAlignmentBehavesAsTop()
{
    QFETCH(int, setting);
    QFETCH(int, vertical);
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.setMarkerLabelAlignment(setting);
    QCOMPARE(int(plot.markerLabelAlignment()), setting);

    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample());
    QCOMPARE(int(plot.readMarker()->labelAlignment()), vertical | int(Qt::AlignRight));
    // The one label holds all bars, whatever the alignment.
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 1") + barLine(Red, QStringLiteral("A"), QStringLiteral("1.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("2.0000")));
}

void tst_MultiBarPlotReadout::labelGoesLeftOnlyWhenItDoesNotFit()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot, 10.0));
    fill(plot, {1, 2, 3, 4, 5, 6, 7, 8, 9});
    const int limit = plot.canvas()->width() - plot.markerLabelWidth(QString());
    QVERIFY(limit > 0);

    // The last set whose line leaves room for the label, and the first that
    // does not.
    int fits = 0;
    int tooFar = 0;
    for (int x = 1; x <= 9; ++x) {
        if (pixelOf(plot, x) <= limit)
            fits = x;
        else if (!tooFar)
            tooFar = x;
    }
    QVERIFY(fits > 0);
    QVERIFY(tooFar > 0);

    plot.displayMarkers(0, QwtSetSample(fits, {1.0}));
    QCOMPARE(plot.readMarker()->xValue(), double(fits));
    QCOMPARE(int(plot.readMarker()->labelAlignment()), int(Qt::AlignTop | Qt::AlignRight));
    plot.displayMarkers(0, QwtSetSample(tooFar, {1.0}));
    QCOMPARE(plot.readMarker()->xValue(), double(tooFar));
    QCOMPARE(int(plot.readMarker()->labelAlignment()), int(Qt::AlignTop | Qt::AlignLeft));
}

void tst_MultiBarPlotReadout::frameMarkerStaysAtZeroOnceAReadoutRan()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    QVERIFY(!plot.marker->isVisible());

    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(plot.marker->xValue(), 0.0);
    QVERIFY(plot.marker->label().text().isEmpty());

    plot.displayMarkers(pixelOf(plot, 3.0), QwtSetSample());
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(plot.marker->xValue(), 0.0);
    QVERIFY(plot.marker->isVisible());
}

// ---------------------------------------------------------------------------
// Width estimate and number formats

void tst_MultiBarPlotReadout::markerLabelWidthOfGivenText()
{
    MultiBarPlotProbe plot;
    fill(plot);
    const QString text = QStringLiteral("Some label text");
    const int expected = QFontMetrics(plot.markerLabel.font()).boundingRect(text).width() + 2 * 10;
    QCOMPARE(plot.markerLabelWidth(text), expected);
}

void tst_MultiBarPlotReadout::markerLabelWidthWithoutSamplesMeasuresDummyX()
{
    MultiBarPlotProbe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass"));
    const QFontMetrics metrics(plot.markerLabel.font());
    const int dummy = metrics.boundingRect(QStringLiteral("Mass: 444")).width() + 20;
    QCOMPARE(plot.markerLabelWidth(QString()), dummy);

    // A hidden chart counts as none.
    fill(plot);
    plot.barChart()->setVisible(false);
    QCOMPARE(plot.markerLabelWidth(QString()), dummy);
}

void tst_MultiBarPlotReadout::markerLabelWidthEstimatesFromLastSet()
{
    MultiBarPlotProbe plot;
    QwtText title = plot.axisTitle(QwtPlot::xBottom);
    title.setText(QStringLiteral("Mass"));
    plot.setAxisTitle(QwtPlot::xBottom, title);
    QList<QwtSetSample> samples = {QwtSetSample(1.0, {1.0, 2.0}), QwtSetSample(12345.0, {3.0, 0.5})};
    plot.updateMultiBarChart(&samples, {Red, Blue},
                             titles({QStringLiteral("A"), QStringLiteral("A longer title")}));
    const QFontMetrics metrics(plot.markerLabel.font());
    const int expected = metrics.boundingRect(QStringLiteral("M A longer title: 0.5000")).width() + 20;
    QCOMPARE(plot.markerLabelWidth(QString()), expected);

    // Estimated also while the label is hidden.
    plot.setMarkerLabelVisible(false);
    QCOMPARE(plot.markerLabelWidth(QString()), expected);

    // With short titles the x line of the last set is the longest.
    plot.barChart()->setBarTitles(titles({QStringLiteral("a"), QStringLiteral("b")}));
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass per charge"));
    QCOMPARE(plot.markerLabelWidth(QString()),
             metrics.boundingRect(QStringLiteral("Mass per charge: 12345")).width() + 20);
}

void tst_MultiBarPlotReadout::axisValueTextFormats_data()
{
    ReadoutTest::addAxisValueTextColumns();
    QTest::newRow("x rounds to whole") << int(QwtPlot::xBottom) << 28.7 << QStringLiteral("Mass: 29");
    QTest::newRow("x whole") << int(QwtPlot::xBottom) << 2.0 << QStringLiteral("Mass: 2");
    QTest::newRow("x large") << int(QwtPlot::xBottom) << 12345.4 << QStringLiteral("Mass: 12345");
    QTest::newRow("y negative") << int(QwtPlot::yLeft) << -5.0 << QStringLiteral("-5.00e+00");
    QTest::newRow("y zero") << int(QwtPlot::yLeft) << 0.0 << QStringLiteral("0.0000");
    QTest::newRow("y small") << int(QwtPlot::yLeft) << 0.0009 << QStringLiteral("9.00e-04");
    QTest::newRow("y from 0.001") << int(QwtPlot::yLeft) << 0.001 << QStringLiteral("0.0010");
    QTest::newRow("y large") << int(QwtPlot::yLeft) << 1234.5 << QStringLiteral("1234.5000");
    QTest::newRow("right y") << int(QwtPlot::yRight) << 1e-7 << QStringLiteral("1.00e-07");
    QTest::newRow("top x") << int(QwtPlot::xTop) << 1234567.0 << QStringLiteral("1.23457e+06");
}

void tst_MultiBarPlotReadout::axisValueTextFormats()
{
    ReadoutTest::checkAxisValueText<MultiBarPlotProbe>();
}

void tst_MultiBarPlotReadout::axisValueTextFollowsLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    MultiBarPlotProbe plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Masse"));
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 12345.0), QStringLiteral("Masse: 12.345"));
    QCOMPARE(plot.axisValueText(QwtPlot::yLeft, 1.5), QStringLiteral("1,5000"));
}

// ---------------------------------------------------------------------------
// Refresh and the ends

void tst_MultiBarPlotReadout::refreshMarkersKeepsXAndUpdatesValues()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    plot.displayCalls.clear();

    // The full update refreshes: the read-out stays on 2 with its new values.
    QList<QwtSetSample> samples = setsAt({1, 2, 3, 4}, {10, 20});
    plot.updateMultiBarChart(&samples, {Red, Blue}, titles({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.first().pos, qMax(1, roundedPixelOf(plot, 2.0)));
    QCOMPARE(plot.displayCalls.first().setSample, samples.at(1));
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 2") + barLine(Red, QStringLiteral("A"), QStringLiteral("20.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("40.0000")));

    // After values alone the host refreshes itself.
    QList<QwtSetSample> values = setsAt({1, 2, 3}, {3, 4});
    plot.updateMultiBarChart(&values);
    plot.refreshMarkers();
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 2") + barLine(Red, QStringLiteral("A"), QStringLiteral("6.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("8.0000")));
}

void tst_MultiBarPlotReadout::refreshMarkersClearsLabelWhenXIsGone()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    QVERIFY(!labelOf(plot.readMarker()).isEmpty());
    plot.displayCalls.clear();

    QList<QwtSetSample> samples = setsAt({1, 3, 5}, {1, 2});
    plot.updateMultiBarChart(&samples);
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(labelOf(plot.readMarker()).isEmpty());
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QVERIFY(plot.readMarker()->isVisible());
}

void tst_MultiBarPlotReadout::refreshMarkersBeforeFirstReadoutDoesNothing()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    plot.refreshMarkers(); // no line yet
    fill(plot, {0, 1, 2});
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
    QVERIFY(labelOf(plot.readMarker()).isEmpty());
    QVERIFY(!plot.readMarker()->isVisible());

    // Without data a line at a real position stays as it is.
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    const QString label = labelOf(plot.readMarker());
    QList<QwtSetSample> none;
    plot.updateMultiBarChart(&none);
    plot.displayCalls.clear();
    plot.refreshMarkers();
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(labelOf(plot.readMarker()), label);
}

void tst_MultiBarPlotReadout::firstAndLastSetSample()
{
    MultiBarPlotProbe plot;
    QCOMPARE(plot.getFirstSetSample(), QwtSetSample());
    QCOMPARE(plot.getLastSetSample(), QwtSetSample());

    QList<QwtSetSample> samples = setsAt({1, 2, 3}, {1, 2});
    plot.updateMultiBarChart(&samples);
    QCOMPARE(plot.getFirstSetSample(), samples.first());
    QCOMPARE(plot.getLastSetSample(), samples.last());
}

// ---------------------------------------------------------------------------
// Key steps

void tst_MultiBarPlotReadout::shiftWithoutSamplesTouchesNothing()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    const QPoint away = plot.mapToGlobal(QPoint(5, 5));
    QCursor::setPos(away);
    QTRY_COMPARE(QCursor::pos(), away);
    plot.settle();

    for (auto direction : {VoidPlot::ShiftLeft, VoidPlot::ShiftRight, VoidPlot::ShiftHome, VoidPlot::ShiftEnd})
        plot.shiftMarkers(direction);
    QTest::qWait(30);
    QCOMPARE(QCursor::pos(), away);
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(plot.replots, 0);
}

void tst_MultiBarPlotReadout::shiftWithoutReadoutLineTouchesNothing()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    QList<QwtSetSample> samples = setsAt({1, 2, 3}, {1, 2});
    plot.updateMultiBarChart(&samples);
    const QPoint away = plot.mapToGlobal(QPoint(5, 5));
    QCursor::setPos(away);
    QTRY_COMPARE(QCursor::pos(), away);
    plot.settle();

    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QTest::qWait(30);
    QCOMPARE(QCursor::pos(), away);
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(plot.replots, 0);
}

void tst_MultiBarPlotReadout::shiftRightAndLeftStopAtTheEnds()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());
    plot.settle();

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 3.0)));
    QCOMPARE(plot.displayCalls.last().pos, roundedPixelOf(plot, 3.0));
    QCOMPARE(plot.displayCalls.last().setSample, QwtSetSample(3.0, {3.0, 6.0}));
    // Through the delayed replot.
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);

    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 3.0)));
    QCOMPARE(labelOf(plot.readMarker()),
             QStringLiteral("Mass: 3") + barLine(Red, QStringLiteral("A"), QStringLiteral("3.0000"))
                 + barLine(Blue, QStringLiteral("B"), QStringLiteral("6.0000")));

    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 1.0)));
}

void tst_MultiBarPlotReadout::shiftHomeAndEndGoToTheEnds()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());

    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 3.0)));
    plot.shiftMarkers(VoidPlot::ShiftHome);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, roundedPixelOf(plot, 1.0)));
}

void tst_MultiBarPlotReadout::shiftFromVanishedPositionStepsFromNearest()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot, 6.0));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());

    // 2 is gone; of 1 and 3 the half-way point goes to the right one.
    QList<QwtSetSample> samples = setsAt({1, 3, 5}, {1, 2});
    plot.updateMultiBarChart(&samples);
    plot.shiftMarkers(VoidPlot::ShiftRight);
    QCOMPARE(plot.readMarker()->xValue(), 5.0);

    plot.displayMarkers(0, QwtSetSample(3.0, {1.0}));
    QList<QwtSetSample> shifted = setsAt({1, 2.9, 5}, {1, 2});
    plot.updateMultiBarChart(&shifted);
    plot.shiftMarkers(VoidPlot::ShiftLeft);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
}

void tst_MultiBarPlotReadout::shiftBeforeFirstReadoutStartsAtColumnOne()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    QCOMPARE(plot.readMarker()->xValue(), 0.0);

    // End does nothing useful yet: the read-out goes to the set nearest to
    // column 1, not to the last set.
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, 1));
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.displayCalls.first().pos, 1);
    QVERIFY(plot.displayCalls.first().setSample.set.isEmpty());
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
    QTRY_COMPARE(plot.replots, 1);

    // From there the steps work.
    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
}

void tst_MultiBarPlotReadout::shiftToSetBeyondTheAxisKeepsPointerOnCanvas()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot, {1, 2, 30});
    plot.displayMarkers(pixelOf(plot, 2.0), QwtSetSample());

    plot.shiftMarkers(VoidPlot::ShiftEnd);
    QCOMPARE(plot.readMarker()->xValue(), 30.0);
    QCOMPARE(QCursor::pos(), bottomEdge(plot, plot.canvas()->width()));
    QCOMPARE(plot.displayCalls.last().pos, plot.canvas()->width());
}

void tst_MultiBarPlotReadout::arrowKeysStepTheReadout()
{
    MultiBarPlotProbe plot;
    QVERIFY(prepare(plot));
    fill(plot);
    plot.displayMarkers(pixelOf(plot, 1.0), QwtSetSample());
    plot.setFocus();
    QTRY_VERIFY(plot.hasFocus());

    QTest::keyClick(&plot, Qt::Key_Right);
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QTest::keyClick(&plot, Qt::Key_End);
    QCOMPARE(plot.readMarker()->xValue(), 3.0);
    QTest::keyClick(&plot, Qt::Key_Left);
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QTest::keyClick(&plot, Qt::Key_Home);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
    // With a modifier a key is not a step.
    QTest::keyClick(&plot, Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(plot.readMarker()->xValue(), 1.0);
}

QTEST_MAIN(tst_MultiBarPlotReadout)
#include "tst_multibarplot_readout.moc"
