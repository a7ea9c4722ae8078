// The multi-bar plot as a store: its one chart, the baseline and its range,
// the three update operations with their side effects, the legend switch,
// the lifetime of what it owns and the baseline's exchange with the settings
// dialog.

#include "MultiBarPlotProbe.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/PlotSettingsDialog.h>

#include <QDoubleValidator>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QToolButton>
#include <QtTest>

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_grid.h>

#include <limits>
#include <memory>

using TestSupport::WhenShown;

namespace {

const QList<QColor> Colors = {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::darkGreen)};

QList<QwtText> titles(const QStringList &texts)
{
    QList<QwtText> list;
    for (const QString &text : texts)
        list.append(QwtText(text));
    return list;
}

QColor symbolColor(const QwtColumnSymbol *symbol)
{
    return symbol ? symbol->palette().color(QPalette::Button) : QColor();
}

int markerItems(const QwtPlot &plot)
{
    return int(plot.itemList(QwtPlotItem::Rtti_PlotMarker).size());
}

} // namespace

class tst_MultiBarPlot : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

private:
    // Three sets at 1, 2, 3 with two bars each, "A" red and "B" blue.
    void fill(MultiBarPlotProbe &plot);

private slots:
    void initTestCase();
    void cleanup();

    void newPlotHasTypeOptionsAndOneChart();
    void destructorDeletesChartWithItsSymbols();

    void setBarChartBaseLineTakesOnlyValuesInRange_data();
    void setBarChartBaseLineTakesOnlyValuesInRange();
    void widenedRangeTakesNewBaselineAndIsNotCheckedAgain();

    void fullUpdateGivesEachPlacePlainBoxSymbolAndTitle();
    void fullUpdateMakesReadoutLineWithFrameMarkerPen();
    void fullUpdateKeepsTheOneReadoutLine();
    void fullUpdateWithEmptySamplesDeletesTheLineAndDataMakesANewOne();
    void firstSetDecidesTheNumberOfBars();
    void fullUpdateGivesPlacesWithoutColourTheChartColour();
    void fullUpdateReplacesAndDeletesOldSymbols();
    void fullUpdateTellsTheLegendOfNewTitles();
    void fullUpdateWithNullSamplesDoesNothing();

    void valuesUpdateKeepsColoursTitlesLineAndLabel();
    void valuesUpdateWithNullSamplesDoesNothing();

    void colourUpdateRecoloursOnePlaceKeepingItsStyle();
    void colourUpdateIgnoresWhatItCannotRecolour_data();
    void colourUpdateIgnoresWhatItCannotRecolour();

    void legendSwitchHidesChartAndReadoutLine();
    void legendCheckBoxReachesTheSwitch();
    void switchOfAnotherItemLeavesTheReadoutLine();

    void dialogShowsBaselineWithRangeButNoChartColour();
    void acceptedDialogTellsOfBaseline_data();
    void acceptedDialogTellsOfBaseline();
    void cancelledDialogChangesNothing();
};

void tst_MultiBarPlot::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void tst_MultiBarPlot::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_MultiBarPlot::fill(MultiBarPlotProbe &plot)
{
    QList<QwtSetSample> samples = setsAt({1, 2, 3}, {1, 2});
    plot.updateMultiBarChart(&samples, {Colors.at(0), Colors.at(1)},
                             titles({QStringLiteral("A"), QStringLiteral("B")}));
}

void tst_MultiBarPlot::newPlotHasTypeOptionsAndOneChart()
{
    MultiBarPlotProbe plot;
    QCOMPARE(plot.rtti(), 5);
    QCOMPARE(plot.customPlotOptions(), 0x1A3);
    QCOMPARE(plot.contextMenuItems(), 0x3EF);

    const QwtPlotItemList charts = plot.itemList(QwtPlotItem::Rtti_PlotMultiBarChart);
    QCOMPARE(charts.size(), 1);
    QVERIFY(plot.barChart());
    QCOMPARE(charts.first(), static_cast<QwtPlotItem *>(plot.barChart()));
    QCOMPARE(plot.barChart()->title().text(), QStringLiteral("MultiBarChart"));
    QCOMPARE(plot.barChart()->dataSize(), size_t(0));
    QCOMPARE(plot.barChart()->layoutPolicy(), QwtPlotAbstractBarChart::ScaleSamplesToAxes);
    QCOMPARE(plot.barChart()->style(), QwtPlotMultiBarChart::Grouped);
    QCOMPARE(plot.barChart()->baseline(), 0.0);
    QVERIFY(plot.barChart()->isVisible());
    QVERIFY(plot.seriesMarkers.isEmpty());

    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(plot.barChartBaseLineMin(), -1e-5);
    QCOMPARE(plot.barChartBaseLineMax(), 1e-5);
    QVERIFY(plot.hideZeroValueMarkerLabel);
}

void tst_MultiBarPlot::destructorDeletesChartWithItsSymbols()
{
    int deaths = 0;
    {
        MultiBarPlotProbe plot;
        fill(plot);
        plot.barChart()->setSymbol(5, new TracedColumnSymbol(&deaths));
        QCOMPARE(deaths, 0);
    }
    QCOMPARE(deaths, 1);
}

void tst_MultiBarPlot::setBarChartBaseLineTakesOnlyValuesInRange_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("inside") << 5e-6 << 5e-6;
    QTest::newRow("lowest") << -1e-5 << -1e-5;
    QTest::newRow("highest") << 1e-5 << 1e-5;
    QTest::newRow("above") << 0.5 << 0.0;
    QTest::newRow("below") << -2e-5 << 0.0;
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

void tst_MultiBarPlot::setBarChartBaseLineTakesOnlyValuesInRange()
{
    QFETCH(double, value);
    QFETCH(double, expected);
    MultiBarPlotProbe plot;
    fill(plot);
    plot.settle();
    QSignalSpy spy(&plot, &MultiBarPlot::multiBarChartBaseLineChanged);

    plot.setBarChartBaseLine(value);
    QCOMPARE(plot.barChartBaseline(), expected);
    QCOMPARE(plot.barChart()->baseline(), expected);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.replots, 0);
}

void tst_MultiBarPlot::widenedRangeTakesNewBaselineAndIsNotCheckedAgain()
{
    MultiBarPlotProbe plot;
    plot.setBarChartBaseLine(0.5);
    QCOMPARE(plot.barChartBaseline(), 0.0);

    plot.setBarChartBaseLineMax(10.0);
    QCOMPARE(plot.barChartBaseLineMax(), 10.0);
    plot.setBarChartBaseLine(0.5);
    QCOMPARE(plot.barChartBaseline(), 0.5);
    QCOMPARE(plot.barChart()->baseline(), 0.5);

    // Narrowing the range again leaves the baseline in force.
    plot.setBarChartBaseLineMax(0.1);
    plot.setBarChartBaseLineMin(0.05);
    QCOMPARE(plot.barChartBaseLineMin(), 0.05);
    QCOMPARE(plot.barChartBaseline(), 0.5);
    plot.setBarChartBaseLine(0.0);
    QCOMPARE(plot.barChartBaseline(), 0.5);
}

void tst_MultiBarPlot::fullUpdateGivesEachPlacePlainBoxSymbolAndTitle()
{
    MultiBarPlotProbe plot;
    plot.settle();
    QList<QwtSetSample> samples = setsAt({1, 2, 3, 4}, {1, 2, 3});
    const QList<QwtText> names = titles({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    plot.updateMultiBarChart(&samples, Colors, names);

    // At once, not through the delayed replot.
    QCOMPARE(plot.replots, 1);
    QCOMPARE(plot.barChart()->dataSize(), size_t(4));
    QCOMPARE(plot.barChart()->sample(1), samples.at(1));
    QCOMPARE(plot.barChart()->barTitles(), names);
    for (int i = 0; i < 3; ++i) {
        const QwtColumnSymbol *symbol = plot.symbolAt(i);
        QVERIFY(symbol);
        QCOMPARE(symbol->style(), QwtColumnSymbol::Box);
        QCOMPARE(symbol->frameStyle(), QwtColumnSymbol::Plain);
        QCOMPARE(symbol->lineWidth(), 0);
        QCOMPARE(symbolColor(symbol), Colors.at(i));
    }
    QVERIFY(!plot.symbolAt(3));
}

void tst_MultiBarPlot::fullUpdateMakesReadoutLineWithFrameMarkerPen()
{
    MultiBarPlotProbe plot;
    plot.setMarkersColor(Qt::magenta);
    plot.setMarkersWidth(3);
    // A frame marker whose line is hidden through its alpha: the new line
    // comes back opaque.
    QPen hidden = plot.marker->linePen();
    QColor clear = hidden.color();
    clear.setAlpha(0);
    hidden.setColor(clear);
    plot.marker->setLinePen(hidden);
    QCOMPARE(markerItems(plot), 1);

    fill(plot);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QwtPlotMarker *line = plot.readMarker();
    QVERIFY(line);
    QCOMPARE(markerItems(plot), 2);
    QCOMPARE(line->lineStyle(), QwtPlotMarker::VLine);
    QCOMPARE(line->linePen().color(), QColor(Qt::magenta));
    QCOMPARE(line->linePen().width(), 3);
    QVERIFY(!line->symbol());
    QVERIFY(!line->isVisible());
    QCOMPARE(line->value(), QPointF(0, 0));
}

void tst_MultiBarPlot::fullUpdateKeepsTheOneReadoutLine()
{
    MultiBarPlotProbe plot;
    fill(plot);
    QwtPlotMarker *first = plot.readMarker();
    fill(plot);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QCOMPARE(plot.readMarker(), first);
    QCOMPARE(markerItems(plot), 2);
}

void tst_MultiBarPlot::fullUpdateWithEmptySamplesDeletesTheLineAndDataMakesANewOne()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.displayMarkers(0, QwtSetSample(2.0, {2.0, 4.0}));
    QVERIFY(plot.marker->isVisible());
    plot.settle();

    QList<QwtSetSample> none;
    plot.updateMultiBarChart(&none, {}, {});
    QVERIFY(plot.seriesMarkers.isEmpty());
    QCOMPARE(markerItems(plot), 1); // the frame marker alone
    QVERIFY(!plot.marker->isVisible());
    QCOMPARE(plot.barChart()->dataSize(), size_t(0));
    QCOMPARE(plot.replots, 1);

    fill(plot);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QVERIFY(plot.readMarker());
    QCOMPARE(markerItems(plot), 2);
    QCOMPARE(plot.replots, 2);
}

void tst_MultiBarPlot::firstSetDecidesTheNumberOfBars()
{
    MultiBarPlotProbe plot;
    QList<QwtSetSample> samples = {QwtSetSample(1.0, {1.0, 2.0}), QwtSetSample(2.0, {1.0, 2.0, 3.0})};
    plot.updateMultiBarChart(&samples, Colors, titles({QStringLiteral("A"), QStringLiteral("B")}));
    QVERIFY(plot.symbolAt(0));
    QVERIFY(plot.symbolAt(1));
    QVERIFY(!plot.symbolAt(2));

    // A first set without values counts as no data at all.
    QList<QwtSetSample> hollow = {QwtSetSample(1.0), QwtSetSample(2.0, {1.0})};
    plot.updateMultiBarChart(&hollow, Colors, {});
    QVERIFY(plot.seriesMarkers.isEmpty());
    QCOMPARE(plot.barChart()->dataSize(), size_t(2));
}

void tst_MultiBarPlot::fullUpdateGivesPlacesWithoutColourTheChartColour()
{
    MultiBarPlotProbe plot;
    QList<QwtSetSample> samples = setsAt({1, 2}, {1, 2, 3});
    plot.updateMultiBarChart(&samples, {QColor(Qt::red)}, titles({QStringLiteral("A")}));
    QCOMPARE(symbolColor(plot.symbolAt(0)), QColor(Qt::red));
    QCOMPARE(symbolColor(plot.symbolAt(1)), plot.chartColor());
    QCOMPARE(symbolColor(plot.symbolAt(2)), PlotDefault::ChartColor);
    QCOMPARE(plot.barChart()->barTitles().size(), 1);
}

void tst_MultiBarPlot::fullUpdateReplacesAndDeletesOldSymbols()
{
    int deaths = 0;
    MultiBarPlotProbe plot;
    plot.barChart()->setSymbol(1, new TracedColumnSymbol(&deaths));
    fill(plot);
    QCOMPARE(deaths, 1);
    QCOMPARE(symbolColor(plot.symbolAt(1)), Colors.at(1));
}

void tst_MultiBarPlot::fullUpdateTellsTheLegendOfNewTitles()
{
    MultiBarPlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    fill(plot);
    const QList<QWidget *> widgets = plot.plotLegend()->legendWidgets(plot.itemToInfo(plot.barChart()));
    QStringList texts;
    for (QWidget *widget : widgets) {
        if (auto *label = qobject_cast<QwtLegendLabel *>(widget))
            texts << label->data().title().text();
    }
    QCOMPARE(texts, QStringList({QStringLiteral("A"), QStringLiteral("B")}));
}

void tst_MultiBarPlot::fullUpdateWithNullSamplesDoesNothing()
{
    MultiBarPlotProbe plot;
    fill(plot);
    QwtPlotMarker *line = plot.readMarker();
    plot.settle();
    plot.updateMultiBarChart(nullptr, {QColor(Qt::green)}, titles({QStringLiteral("X")}));
    QCOMPARE(plot.replots, 0);
    QCOMPARE(plot.readMarker(), line);
    QCOMPARE(plot.barChart()->dataSize(), size_t(3));
    QCOMPARE(symbolColor(plot.symbolAt(0)), Colors.at(0));
    QCOMPARE(plot.barChart()->barTitles().first().text(), QStringLiteral("A"));
}

void tst_MultiBarPlot::valuesUpdateKeepsColoursTitlesLineAndLabel()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.displayMarkers(0, QwtSetSample(2.0, {2.0, 4.0}));
    const QString label = plot.readMarker()->label().text();
    QVERIFY(!label.isEmpty());
    const QwtColumnSymbol *first = plot.symbolAt(0);
    QwtPlotMarker *line = plot.readMarker();
    plot.settle();

    QList<QwtSetSample> samples = setsAt({1, 2, 3, 4, 5}, {10, 20});
    plot.updateMultiBarChart(&samples);
    QCOMPARE(plot.replots, 1);
    QCOMPARE(plot.barChart()->dataSize(), size_t(5));
    QCOMPARE(plot.barChart()->sample(1).set, QVector<double>({20.0, 40.0}));
    QCOMPARE(plot.symbolAt(0), first);
    QCOMPARE(plot.barChart()->barTitles().size(), 2);
    QCOMPARE(plot.readMarker(), line);
    QCOMPARE(plot.readMarker()->xValue(), 2.0);
    QCOMPARE(plot.readMarker()->label().text(), label);
    QVERIFY(plot.displayCalls.isEmpty());
}

void tst_MultiBarPlot::valuesUpdateWithNullSamplesDoesNothing()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.settle();
    plot.updateMultiBarChart(nullptr);
    QCOMPARE(plot.replots, 0);
    QCOMPARE(plot.barChart()->dataSize(), size_t(3));
}

void tst_MultiBarPlot::colourUpdateRecoloursOnePlaceKeepingItsStyle()
{
    MultiBarPlotProbe plot;
    fill(plot);
    auto *styled = new QwtColumnSymbol(QwtColumnSymbol::Box);
    styled->setFrameStyle(QwtColumnSymbol::Raised);
    styled->setLineWidth(2);
    styled->setPalette(QPalette(Qt::yellow));
    plot.barChart()->setSymbol(1, styled);
    const QwtColumnSymbol *other = plot.symbolAt(0);
    plot.settle();

    plot.updateMultiBarChart(1, QColor(Qt::cyan));
    QCOMPARE(plot.replots, 1);
    const QwtColumnSymbol *symbol = plot.symbolAt(1);
    QVERIFY(symbol);
    QCOMPARE(symbolColor(symbol), QColor(Qt::cyan));
    QCOMPARE(symbol->style(), QwtColumnSymbol::Box);
    QCOMPARE(symbol->frameStyle(), QwtColumnSymbol::Raised);
    QCOMPARE(symbol->lineWidth(), 2);
    QCOMPARE(plot.symbolAt(0), other);
    QCOMPARE(symbolColor(other), Colors.at(0));
}

void tst_MultiBarPlot::colourUpdateIgnoresWhatItCannotRecolour_data()
{
    QTest::addColumn<int>("sets");
    QTest::addColumn<int>("places");
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("dropSymbol");
    // Every place of the chart has a symbol unless dropSymbol takes place 0's.
    QTest::newRow("no samples") << 0 << 3 << 0 << QColor(Qt::cyan) << false;
    QTest::newRow("place without symbol") << 3 << 3 << 0 << QColor(Qt::cyan) << true;
    QTest::newRow("negative index") << 3 << 3 << -1 << QColor(Qt::cyan) << false;
    QTest::newRow("index beyond the samples") << 2 << 3 << 2 << QColor(Qt::cyan) << false;
    QTest::newRow("index beyond the set") << 3 << 2 << 2 << QColor(Qt::cyan) << false;
    QTest::newRow("invalid colour") << 3 << 3 << 0 << QColor() << false;
}

void tst_MultiBarPlot::colourUpdateIgnoresWhatItCannotRecolour()
{
    QFETCH(int, sets);
    QFETCH(int, places);
    QFETCH(int, index);
    QFETCH(QColor, color);
    QFETCH(bool, dropSymbol);

    MultiBarPlotProbe plot;
    QVector<double> positions;
    for (int i = 1; i <= sets; ++i)
        positions.append(i);
    QVector<double> factors;
    for (int i = 1; i <= places; ++i)
        factors.append(i);
    QList<QwtSetSample> samples = setsAt(positions, factors);
    plot.updateMultiBarChart(&samples, Colors, {});
    for (int place = 0; place < 3; ++place) {
        if (!plot.symbolAt(place))
            plot.barChart()->setSymbol(place, new QwtColumnSymbol(QwtColumnSymbol::Box));
    }
    if (dropSymbol)
        plot.barChart()->setSymbol(0, nullptr);
    QList<const QwtColumnSymbol *> before;
    for (int place = 0; place < 3; ++place)
        before << plot.symbolAt(place);
    plot.settle();

    plot.updateMultiBarChart(index, color);
    QCOMPARE(plot.replots, 0);
    for (int place = 0; place < 3; ++place)
        QCOMPARE(plot.symbolAt(place), before.at(place));
    QVERIFY(symbolColor(plot.symbolAt(2)) != QColor(Qt::cyan));
}

void tst_MultiBarPlot::legendSwitchHidesChartAndReadoutLine()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.displayMarkers(0, QwtSetSample(2.0, {2.0, 4.0}));
    QVERIFY(plot.readMarker()->isVisible());
    plot.settle();

    const QVariant info = plot.itemToInfo(plot.barChart());
    plot.togglePlotItem(info, false, 1);
    QVERIFY(!plot.barChart()->isVisible());
    QVERIFY(!plot.readMarker()->isVisible());
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);

    plot.togglePlotItem(info, true, 1);
    QVERIFY(plot.barChart()->isVisible());
    QVERIFY(plot.readMarker()->isVisible());
}

void tst_MultiBarPlot::legendCheckBoxReachesTheSwitch()
{
    MultiBarPlotProbe plot;
    plot.enableLegend(QwtPlot::RightLegend);
    fill(plot);
    plot.displayMarkers(0, QwtSetSample(2.0, {2.0, 4.0}));

    const QList<QWidget *> widgets = plot.plotLegend()->legendWidgets(plot.itemToInfo(plot.barChart()));
    QCOMPARE(widgets.size(), 2);
    auto *label = qobject_cast<QwtLegendLabel *>(widgets.at(1));
    QVERIFY(label);
    QCOMPARE(label->itemMode(), QwtLegendData::Checkable);
    // The boxes show the chart's visibility.
    QVERIFY(label->isChecked());

    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(!label->isChecked());
    QVERIFY(!plot.barChart()->isVisible());
    QVERIFY(!plot.readMarker()->isVisible());

    QTest::mouseClick(label, Qt::LeftButton);
    QVERIFY(plot.barChart()->isVisible());
    QVERIFY(plot.readMarker()->isVisible());
}

void tst_MultiBarPlot::switchOfAnotherItemLeavesTheReadoutLine()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.displayMarkers(0, QwtSetSample(2.0, {2.0, 4.0}));
    const QwtPlotItemList grids = plot.itemList(QwtPlotItem::Rtti_PlotGrid);
    QCOMPARE(grids.size(), 1);

    plot.togglePlotItem(plot.itemToInfo(grids.first()), false, 0);
    QVERIFY(!grids.first()->isVisible());
    QVERIFY(plot.readMarker()->isVisible());
    QVERIFY(plot.barChart()->isVisible());
}

void tst_MultiBarPlot::dialogShowsBaselineWithRangeButNoChartColour()
{
    MultiBarPlotProbe plot;
    plot.setBarChartBaseLineMin(-2.0);
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(0.5);

    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    QCOMPARE(dialog.barChartBaseline(), 0.5);

    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("barChartBaselineEdit"));
    QVERIFY(edit);
    QVERIFY(!edit->isHidden());
    const auto *validator = qobject_cast<const QDoubleValidator *>(edit->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), -2.0);
    QCOMPARE(validator->top(), 10.0);

    auto *colorButton = dialog.findChild<QToolButton *>(QStringLiteral("chartColorToolButton"));
    QVERIFY(colorButton);
    QVERIFY(colorButton->isHidden());
}

void tst_MultiBarPlot::acceptedDialogTellsOfBaseline_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("emissions");
    QTest::newRow("new value in range") << QStringLiteral("0.5") << 0.5 << 1;
    QTest::newRow("lowest value") << QStringLiteral("-2") << -2.0 << 1;
    // The signal comes all the same and carries the baseline that stays.
    QTest::newRow("value above the range") << QStringLiteral("100") << 0.25 << 1;
    QTest::newRow("same value") << QStringLiteral("0.25") << 0.25 << 0;
}

void tst_MultiBarPlot::acceptedDialogTellsOfBaseline()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QFETCH(int, emissions);

    MultiBarPlotProbe plot;
    fill(plot);
    plot.setBarChartBaseLineMin(-2.0);
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(0.25);
    plot.settle();
    QSignalSpy spy(&plot, &MultiBarPlot::multiBarChartBaseLineChanged);

    QString shown;
    WhenShown answer(TestSupport::activeModal, [&](QWidget *w) {
        auto *dialog = qobject_cast<PlotSettingsDialog *>(w);
        QVERIFY(dialog);
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("barChartBaselineEdit"));
        QVERIFY(edit);
        shown = edit->text();
        edit->setText(text);
        static_cast<QDialog *>(dialog)->accept();
    });
    plot.editPlotSetting();
    QVERIFY(answer.fired());

    QCOMPARE(shown, QStringLiteral("0.25"));
    QCOMPARE(plot.barChartBaseline(), expected);
    QCOMPARE(plot.barChart()->baseline(), expected);
    QCOMPARE(spy.count(), emissions);
    if (emissions)
        QCOMPARE(spy.first().first().toDouble(), expected);
    QCOMPARE(plot.replots, 1);
}

void tst_MultiBarPlot::cancelledDialogChangesNothing()
{
    MultiBarPlotProbe plot;
    fill(plot);
    plot.setBarChartBaseLineMax(10.0);
    plot.settle();
    QSignalSpy spy(&plot, &MultiBarPlot::multiBarChartBaseLineChanged);

    WhenShown answer(TestSupport::activeModal, [&](QWidget *w) {
        if (auto *edit = w->findChild<QLineEdit *>(QStringLiteral("barChartBaselineEdit")))
            edit->setText(QStringLiteral("0.5"));
        static_cast<QDialog *>(w)->reject();
    });
    plot.editPlotSetting();
    QVERIFY(answer.fired());

    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(plot.barChart()->baseline(), 0.0);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.replots, 0);
}

QTEST_MAIN(tst_MultiBarPlot)
#include "tst_multibarplot.moc"
