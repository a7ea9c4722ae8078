// The bar plot as a store: construction and options, appending and removing
// charts with their series markers, ownership, the baseline with its range
// and signal, and the colour of a chart.

#include "BarPlotProbe.h"

#include <figura/defaults/PlotDefault.h>

#include <QPalette>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

class tst_BarPlotStore : public QObject
{
    Q_OBJECT

private slots:
    void newPlotHasTypeTwoBaselineZeroAndNarrowRange();
    void newPlotRefusesBaselineOutsideNarrowRange();
    void newPlotOffersBaselineGroupAndDefaultMenu();
    void newPlotHasNoAutoScroll();

    void appendAttachesChartAndAddsMarkerOrNullEntry();
    void seriesMarkerTakesFrameMarkerColourAndWidth();
    void removeBarChartKeepsListsSideBySide();
    void removeBarChartOutOfRangeChangesNothing_data();
    void removeBarChartOutOfRangeChangesNothing();
    void removingLastMarkerHidesFrameMarkerOnlyWhenListIsEmpty();
    void removeBarChartsDeletesAllAndHidesFrameMarker();
    void barChartsIsACopy();
    void plotDeletesItsChartsWhenItDies();
    void isAnyBarChartVisibleFollowsCharts();

    void widenedRangeLetsBaselineMoveAllCharts();
    void updateWithBaselineInForceEmitsNothing();
    void updateOutsideRangeEmitsOldBaseline();
    void updateWithinRangeEmitsNewBaseline();
    void baselineBoundsAreIncluded_data();
    void baselineBoundsAreIncluded();
    void nanBaselineIsRefused();
    void rangeSettersDoNotCheckBaselineAgain();
    void chartAppendedLaterKeepsItsOwnBaseline();
    void defaultBaselineIsAPlainStore();

    void setBarChartColorOutOfRangeChangesNothing_data();
    void setBarChartColorOutOfRangeChangesNothing();
    void chartWithoutSymbolGetsPlainFrameOfDefaultWidth();
    void chartWithSymbolKeepsFrameStyleAndLineWidth();
    void setBarChartColorPutsColourIntoButtonRole();
    void setBarChartColorWithInvalidColourChangesNothing();
    void setBarChartColorDoesNotReplot();
};

void tst_BarPlotStore::newPlotHasTypeTwoBaselineZeroAndNarrowRange()
{
    BarPlotProbe plot;
    QCOMPARE(plot.rtti(), 2);
    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(plot.barChartBaseLineMin(), -1e-5);
    QCOMPARE(plot.barChartBaseLineMax(), 1e-5);
    QCOMPARE(plot.defaultBarChartBaseLine, PlotDefault::BarChartBaseline);
    QVERIFY(plot.barCharts().isEmpty());
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.marker->isVisible());
}

void tst_BarPlotStore::newPlotRefusesBaselineOutsideNarrowRange()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 5.0), true);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.setBarChartBaseLine(0.5);
    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 0.0);
    QCOMPARE(spy.count(), 0);
}

void tst_BarPlotStore::newPlotOffersBaselineGroupAndDefaultMenu()
{
    BarPlotProbe plot;
    QCOMPARE(plot.customPlotOptions(), 0x1A7);
    QVERIFY(plot.customPlotOptions() & VoidPlot::PlotOptionBarChartBaseline);
    QVERIFY(!(plot.customPlotOptions() & VoidPlot::PlotOptionLineChartWidth));
    QCOMPARE(plot.contextMenuItems(), 0x3EF);
    QCOMPARE(plot.xScaleType, CustomScale::MassScale);
}

void tst_BarPlotStore::newPlotHasNoAutoScroll()
{
    BarPlotProbe plot;
    QVERIFY(!plot.isAutoScroll());
    plot.setAutoScroll(true);
    QVERIFY(!plot.isAutoScroll());
}

void tst_BarPlotStore::appendAttachesChartAndAddsMarkerOrNullEntry()
{
    BarPlotProbe plot;
    QwtPlotBarChart *first = barsAt(QStringLiteral("a"), {1, 2}, 1.0);
    QwtPlotBarChart *second = barsAt(QStringLiteral("b"), {1, 2}, 2.0);
    plot.appendBarChart(first, false);
    plot.appendBarChart(second, true);

    QCOMPARE(plot.barCharts(), (QList<QwtPlotBarChart *>{first, second}));
    QCOMPARE(first->plot(), &plot);
    QCOMPARE(second->plot(), &plot);
    QCOMPARE(plot.seriesMarkers.size(), 2);
    QVERIFY(!plot.seriesMarkers.at(0));
    QwtPlotMarker *dot = plot.seriesMarkers.at(1);
    QVERIFY(dot);
    QCOMPARE(dot->plot(), &plot);
    QVERIFY(!dot->isVisible());
    QCOMPARE(dot->lineStyle(), QwtPlotMarker::NoLine);
    QVERIFY(dot->symbol());
    QCOMPARE(int(dot->symbol()->style()), PlotDefault::MarkerSymbolStyle);
    // Appending replots nothing and leaves the frame marker hidden.
    QVERIFY(!plot.marker->isVisible());
}

void tst_BarPlotStore::seriesMarkerTakesFrameMarkerColourAndWidth()
{
    BarPlotProbe plot;
    plot.setMarkersColor(Qt::darkGreen);
    plot.setMarkersWidth(3);
    QwtPlotBarChart *chart = barsAt(QStringLiteral("a"), {1, 2}, 1.0);
    chart->setSymbol(new QwtColumnSymbol(QwtColumnSymbol::Box));
    plot.setBarChartColor(0, Qt::red); // no chart yet: ignored
    plot.appendBarChart(chart, true);
    plot.setBarChartColor(0, Qt::red);

    const QwtSymbol *symbol = plot.seriesMarkers.at(0)->symbol();
    QVERIFY(symbol);
    QCOMPARE(symbol->brush().color(), QColor(Qt::darkGreen));
    QCOMPARE(symbol->pen().color(), QColor(Qt::darkGreen));
    const int side = PlotDefault::SymbolWidth - PlotDefault::MarkerWidth + 3;
    QCOMPARE(symbol->size(), QSize(side, side));
}

void tst_BarPlotStore::removeBarChartKeepsListsSideBySide()
{
    int deaths = 0;
    BarPlotProbe plot;
    auto *first = new TracedBarChart(QStringLiteral("a"), &deaths);
    auto *second = new TracedBarChart(QStringLiteral("b"), &deaths);
    plot.appendBarChart(first, false);
    plot.appendBarChart(second, true);
    QwtPlotMarker *secondDot = plot.seriesMarkers.at(1);

    plot.removeBarChart(0);
    QCOMPARE(deaths, 1);
    QCOMPARE(plot.barCharts(), (QList<QwtPlotBarChart *>{second}));
    QCOMPARE(plot.seriesMarkers, (QList<QwtPlotMarker *>{secondDot}));
    QCOMPARE(plot.itemList(QwtPlotItem::Rtti_PlotBarChart).size(), 1);
}

void tst_BarPlotStore::removeBarChartOutOfRangeChangesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("negative") << -1;
    QTest::newRow("size") << 2;
    QTest::newRow("far") << 100;
}

void tst_BarPlotStore::removeBarChartOutOfRangeChangesNothing()
{
    QFETCH(int, index);
    int deaths = 0;
    BarPlotProbe plot;
    plot.appendBarChart(new TracedBarChart(QStringLiteral("a"), &deaths), true);
    plot.appendBarChart(new TracedBarChart(QStringLiteral("b"), &deaths), true);
    plot.removeBarChart(index);
    QCOMPARE(deaths, 0);
    QCOMPARE(plot.barCharts().size(), 2);
    QCOMPARE(plot.seriesMarkers.size(), 2);
}

void tst_BarPlotStore::removingLastMarkerHidesFrameMarkerOnlyWhenListIsEmpty()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2}, 1.0), false);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1, 2}, 2.0), true);
    plot.marker->setVisible(true);

    // The null entry of the first chart is still there.
    plot.removeBarChart(1);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QVERIFY(plot.marker->isVisible());

    plot.removeBarChart(0);
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.marker->isVisible());
}

void tst_BarPlotStore::removeBarChartsDeletesAllAndHidesFrameMarker()
{
    int deaths = 0;
    BarPlotProbe plot;
    for (int i = 0; i < 3; ++i)
        plot.appendBarChart(new TracedBarChart(QString::number(i), &deaths), i != 1);
    plot.marker->setVisible(true);
    const int itemsBefore = int(plot.itemList().size());

    plot.removeBarCharts();
    QCOMPARE(deaths, 3);
    QVERIFY(plot.barCharts().isEmpty());
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.marker->isVisible());
    // Three charts and two dots left the plot; grid and frame marker stay.
    QCOMPARE(int(plot.itemList().size()), itemsBefore - 5);
    QVERIFY(plot.itemList().contains(plot.marker));
}

void tst_BarPlotStore::barChartsIsACopy()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 1.0), true);
    QList<QwtPlotBarChart *> copy = plot.barCharts();
    copy.clear();
    QCOMPARE(plot.barCharts().size(), 1);
}

void tst_BarPlotStore::plotDeletesItsChartsWhenItDies()
{
    int deaths = 0;
    {
        BarPlotProbe plot;
        plot.appendBarChart(new TracedBarChart(QStringLiteral("a"), &deaths), true);
        plot.appendBarChart(new TracedBarChart(QStringLiteral("b"), &deaths), false);
    }
    QCOMPARE(deaths, 2);

    deaths = 0;
    {
        TimeBarPlotProbe plot;
        plot.appendBarChart(new TracedBarChart(QStringLiteral("a"), &deaths), true);
    }
    QCOMPARE(deaths, 1);
}

void tst_BarPlotStore::isAnyBarChartVisibleFollowsCharts()
{
    BarPlotProbe plot;
    QVERIFY(!plot.isAnyBarChartVisible());
    QwtPlotBarChart *first = barsAt(QStringLiteral("a"), {1}, 1.0);
    QwtPlotBarChart *second = barsAt(QStringLiteral("b"), {}, 1.0);
    plot.appendBarChart(first, true);
    plot.appendBarChart(second, true);
    QVERIFY(plot.isAnyBarChartVisible());
    first->setVisible(false);
    // An empty chart counts as long as it is visible.
    QVERIFY(plot.isAnyBarChartVisible());
    second->setVisible(false);
    QVERIFY(!plot.isAnyBarChartVisible());
}

void tst_BarPlotStore::widenedRangeLetsBaselineMoveAllCharts()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 5.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1, 2, 3}, 6.0), false);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(0.5);
    QCOMPARE(plot.barChartBaseline(), 0.5);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 0.5);
    QCOMPARE(plot.barCharts().at(1)->baseline(), 0.5);
    QCOMPARE(spy.count(), 0);
}

void tst_BarPlotStore::updateWithBaselineInForceEmitsNothing()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 5.0), true);
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(0.5);
    // A chart that the host moved by itself shows that nothing is reapplied.
    plot.barCharts().at(0)->setBaseline(0.25);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.updateBarChartBaseline(0.5);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.barChartBaseline(), 0.5);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 0.25);
}

void tst_BarPlotStore::updateOutsideRangeEmitsOldBaseline()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 5.0), true);
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(0.5);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.updateBarChartBaseline(100.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), 0.5);
    QCOMPARE(plot.barChartBaseline(), 0.5);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 0.5);
}

void tst_BarPlotStore::updateWithinRangeEmitsNewBaseline()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2, 3}, 5.0), true);
    plot.setBarChartBaseLineMin(-10.0);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.updateBarChartBaseline(-2.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), -2.0);
    QCOMPARE(plot.barCharts().at(0)->baseline(), -2.0);
}

void tst_BarPlotStore::baselineBoundsAreIncluded_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("lowest") << -1e-5 << -1e-5;
    QTest::newRow("highest") << 1e-5 << 1e-5;
    QTest::newRow("inside") << 5e-6 << 5e-6;
    QTest::newRow("below") << -1.1e-5 << 0.0;
    QTest::newRow("above") << 1.1e-5 << 0.0;
}

void tst_BarPlotStore::baselineBoundsAreIncluded()
{
    QFETCH(double, value);
    QFETCH(double, expected);
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 1.0), true);
    plot.setBarChartBaseLine(value);
    QCOMPARE(plot.barChartBaseline(), expected);
    QCOMPARE(plot.barCharts().at(0)->baseline(), expected);
}

void tst_BarPlotStore::nanBaselineIsRefused()
{
    BarPlotProbe plot;
    plot.setBarChartBaseLine(qQNaN());
    QCOMPARE(plot.barChartBaseline(), 0.0);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    plot.updateBarChartBaseline(qQNaN());
    QCOMPARE(plot.barChartBaseline(), 0.0);
    // NaN never equals the baseline in force, so the refusal is reported.
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), 0.0);
}

void tst_BarPlotStore::rangeSettersDoNotCheckBaselineAgain()
{
    BarPlotProbe plot;
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(5.0);
    plot.setBarChartBaseLineMax(1.0);
    plot.setBarChartBaseLineMin(2.0);
    QCOMPARE(plot.barChartBaseline(), 5.0);
    QCOMPARE(plot.barChartBaseLineMin(), 2.0);
    QCOMPARE(plot.barChartBaseLineMax(), 1.0);
    // An empty range refuses everything, even the baseline in force.
    plot.setBarChartBaseLine(1.5);
    QCOMPARE(plot.barChartBaseline(), 5.0);
}

void tst_BarPlotStore::chartAppendedLaterKeepsItsOwnBaseline()
{
    BarPlotProbe plot;
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(3.0);
    QwtPlotBarChart *late = barsAt(QStringLiteral("late"), {1}, 1.0);
    plot.appendBarChart(late, true);
    QCOMPARE(late->baseline(), 0.0);
    plot.setBarChartBaseLine(4.0);
    QCOMPARE(late->baseline(), 4.0);
}

void tst_BarPlotStore::defaultBaselineIsAPlainStore()
{
    BarPlotProbe plot;
    plot.setDefaultBarChartBaseLine(42.0);
    QCOMPARE(plot.defaultBarChartBaseLine, 42.0);
    QCOMPARE(plot.barChartBaseline(), 0.0);
}

void tst_BarPlotStore::setBarChartColorOutOfRangeChangesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("five of three") << 5;
    QTest::newRow("three of three") << 3;
    QTest::newRow("negative") << -1;
}

void tst_BarPlotStore::setBarChartColorOutOfRangeChangesNothing()
{
    QFETCH(int, index);
    BarPlotProbe plot;
    QList<const QwtColumnSymbol *> symbols;
    for (int i = 0; i < 3; ++i) {
        QwtPlotBarChart *chart = barsAt(QString::number(i), {1, 2}, 1.0);
        if (i == 1) {
            auto *symbol = new QwtColumnSymbol(QwtColumnSymbol::Box);
            symbol->setPalette(QPalette(Qt::green));
            chart->setSymbol(symbol);
        }
        plot.appendBarChart(chart, true);
        symbols << chart->symbol();
    }
    plot.setBarChartColor(index, Qt::red);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(plot.barCharts().at(i)->symbol(), symbols.at(i));
    QCOMPARE(symbols.at(1)->palette().color(QPalette::Button), QColor(Qt::green));
}

void tst_BarPlotStore::chartWithoutSymbolGetsPlainFrameOfDefaultWidth()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2}, 1.0), true);
    QVERIFY(!plot.barCharts().at(0)->symbol());
    plot.setBarChartColor(0, Qt::blue);
    const QwtColumnSymbol *symbol = plot.barCharts().at(0)->symbol();
    QVERIFY(symbol);
    QCOMPARE(symbol->style(), QwtColumnSymbol::Box);
    QCOMPARE(symbol->frameStyle(), QwtColumnSymbol::Plain);
    QCOMPARE(symbol->lineWidth(), PlotDefault::BarLineWidth);
}

void tst_BarPlotStore::chartWithSymbolKeepsFrameStyleAndLineWidth()
{
    BarPlotProbe plot;
    QwtPlotBarChart *chart = barsAt(QStringLiteral("a"), {1, 2}, 1.0);
    auto *old = new QwtColumnSymbol(QwtColumnSymbol::NoStyle);
    old->setFrameStyle(QwtColumnSymbol::Raised);
    old->setLineWidth(2);
    chart->setSymbol(old);
    plot.appendBarChart(chart, true);

    plot.setBarChartColor(0, Qt::blue);
    const QwtColumnSymbol *symbol = chart->symbol();
    QVERIFY(symbol != old);
    QCOMPARE(symbol->style(), QwtColumnSymbol::Box);
    QCOMPARE(symbol->frameStyle(), QwtColumnSymbol::Raised);
    QCOMPARE(symbol->lineWidth(), 2);
}

void tst_BarPlotStore::setBarChartColorPutsColourIntoButtonRole()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 1.0), true);
    plot.appendBarChart(barsAt(QStringLiteral("b"), {1}, 1.0), true);
    plot.setBarChartColor(1, QColor(10, 120, 200));
    const QPalette palette = plot.barCharts().at(1)->symbol()->palette();
    QCOMPARE(palette.brush(QPalette::Current, QPalette::Button).color(), QColor(10, 120, 200));
    QCOMPARE(palette, QPalette(QColor(10, 120, 200)));
    QVERIFY(!plot.barCharts().at(0)->symbol());
}

void tst_BarPlotStore::setBarChartColorWithInvalidColourChangesNothing()
{
    BarPlotProbe plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 1.0), true);
    plot.setBarChartColor(0, QColor());
    QVERIFY(!plot.barCharts().at(0)->symbol());
    plot.setBarChartColor(0, Qt::red);
    const QwtColumnSymbol *symbol = plot.barCharts().at(0)->symbol();
    plot.setBarChartColor(0, QColor());
    QCOMPARE(plot.barCharts().at(0)->symbol(), symbol);
    QCOMPARE(symbol->palette().color(QPalette::Button), QColor(Qt::red));
}

void tst_BarPlotStore::setBarChartColorDoesNotReplot()
{
    BarPlotProbe plot;
    plot.settle();
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1}, 1.0), true);
    plot.setBarChartColor(0, Qt::red);
    plot.updateBarChartBaseline(1e-6);
    QTest::qWait(30);
    QCOMPARE(plot.replots, 0);
}

QTEST_MAIN(tst_BarPlotStore)
#include "tst_barplot_store.moc"
