// The frame's markers: creation, attribute bits and their precedence, the
// visibility precheck, colour and width with their asymmetries, the label
// template's font, colour, background, alignment and sort option, series
// marker deletion and the peak label state.

#include "VoidPlotProbe.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>

#include <QSignalSpy>
#include <QtTest>

#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

using TestSupport::ReplotCounter;

namespace {

QwtPlotMarker *addSeriesMarker(VoidPlotProbe &plot, const QColor &color = PlotDefault::MarkerColor,
                               bool withSymbol = true)
{
    QwtPlotMarker *marker = plot.createMarker(color, plot.marker->linePen().width(), withSymbol,
                                              QwtPlotMarker::NoLine);
    plot.seriesMarkers << marker;
    return marker;
}

int alphaOf(const QwtPlotMarker *marker)
{
    return marker->linePen().color().alpha();
}

} // namespace

class tst_VoidPlotMarkers : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void createMarkerMakesAHiddenAttachedMarker();
    void createMarkerTurnsTransparentColourOpaque();
    void createMarkerLineStyles_data();
    void createMarkerLineStyles();
    void createMarkerSymbolGrowsWithWidth();

    void markerAttrs_data();
    void markerAttrs();
    void markerAttrsWithNullMarkerDoNothing();
    void lineAttrsSkipAMarkerWithoutLine();
    void symbolAttrsSkipAMarkerWithoutSymbol();
    void symbolAttrsKeepBrushPenAndSize();
    void labelClearKeepsTheLabelStyle();
    void allMarkersAttrsLeaveTheSelectionMarker();
    void hideAllMarkersHidesSeriesAndFrameMarkers();

    void precheckShowsOpaqueLinesWhenMarkersAreVisible();
    void hiddenMarkerWithVisibleLabelKeepsTheItemShown();
    void hiddenMarkerAndLabelHideEverything();
    void visibilitySettersEmitOnlyOnChange();

    void markersColorSkipsTheColourTheFrameMarkerHas();
    void markersColorCountsATransparentLineAsChange();
    void markersColorReachesSeriesButNotSelectionMarker();
    void markersColorIgnoresInvalidColour();
    void markersWidthReachesSelectionMarker();
    void markersWidthEmitsOnlyOnChange();
    void singleMarkerColourAndWidthIgnoreNull();

    void markerLabelFontColorTakesFontAndColourNotText();
    void markerLabelFontColorIgnoresInvalidColour();
    void markerLabelBgColorChangesTheTemplateOnly();

    void markerLabelAlignmentWhitelist_data();
    void markerLabelAlignmentWhitelist();
    void markerLabelAlignmentGetterFallsBackToFirstKey();
    void markerLabelSortOptionWhitelist_data();
    void markerLabelSortOptionWhitelist();
    void markerLabelSortOptionGetterFallsBackToFirstKey();

    void deleteSeriesMarkerIgnoresOutOfRangeIndexes();
    void deleteSeriesMarkerTakesOutOneMarker();
    void deleteSeriesMarkersEmptiesTheListAndHidesTheFrameMarker();

    void togglePeakLabelsEmitsOnChangeOnly();
    void setPeakLabelVisibleChecksTheActionAndEmitsNothing();
    void peakLabelFormatEmitsAndUpdatesOnChangeOnly();
};

void tst_VoidPlotMarkers::createMarkerMakesAHiddenAttachedMarker()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::blue, 2, false, QwtPlotMarker::VLine);
    QCOMPARE(marker->plot(), &plot);
    QVERIFY(!marker->isVisible());
    QCOMPARE(marker->labelAlignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(marker->spacing(), 15);
    QCOMPARE(marker->linePen().color(), QColor(Qt::blue));
    QCOMPARE(marker->linePen().width(), 2);
    QVERIFY(!marker->symbol());
}

void tst_VoidPlotMarkers::createMarkerTurnsTransparentColourOpaque()
{
    VoidPlotProbe plot;
    QColor clear(10, 20, 30, 0);
    QwtPlotMarker *marker = plot.createMarker(clear, 1, true, QwtPlotMarker::VLine);
    QCOMPARE(marker->linePen().color(), QColor(10, 20, 30, 255));
    QCOMPARE(marker->symbol()->pen().color(), QColor(10, 20, 30, 255));
    QCOMPARE(marker->symbol()->brush().color(), QColor(10, 20, 30, 255));

    // Any other alpha stays.
    QwtPlotMarker *half = plot.createMarker(QColor(10, 20, 30, 128), 1, false, QwtPlotMarker::VLine);
    QCOMPARE(half->linePen().color().alpha(), 128);
}

void tst_VoidPlotMarkers::createMarkerLineStyles_data()
{
    QTest::addColumn<int>("requested");
    QTest::addColumn<int>("lineStyle");
    QTest::newRow("none") << 0 << int(QwtPlotMarker::NoLine);
    QTest::newRow("horizontal") << 1 << int(QwtPlotMarker::HLine);
    QTest::newRow("vertical") << 2 << int(QwtPlotMarker::VLine);
    QTest::newRow("cross") << 3 << int(QwtPlotMarker::Cross);
    QTest::newRow("7 is no line") << 7 << int(QwtPlotMarker::NoLine);
    QTest::newRow("-1 is no line") << -1 << int(QwtPlotMarker::NoLine);
}

void tst_VoidPlotMarkers::createMarkerLineStyles()
{
    QFETCH(int, requested);
    QFETCH(int, lineStyle);
    VoidPlotProbe plot;
    QCOMPARE(int(plot.createMarker(Qt::green, 1, false, requested)->lineStyle()), lineStyle);
}

void tst_VoidPlotMarkers::createMarkerSymbolGrowsWithWidth()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::darkCyan, 3, true, 0);
    const QwtSymbol *symbol = marker->symbol();
    QVERIFY(symbol);
    QCOMPARE(symbol->size(), QSize(10, 10));
    QCOMPARE(symbol->style(), PlotDefault::MarkerSymbolStyle);
    QCOMPARE(symbol->brush().style(), Qt::SolidPattern);
    QCOMPARE(symbol->brush().color(), QColor(Qt::darkCyan));
    QCOMPARE(symbol->pen().color(), QColor(Qt::darkCyan));
    QCOMPARE(plot.createMarker(Qt::darkCyan, 1, true, 0)->symbol()->size(), QSize(8, 8));
}

void tst_VoidPlotMarkers::markerAttrs_data()
{
    QTest::addColumn<int>("attrs");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<int>("alpha");
    QTest::addColumn<int>("symbolStyle");

    const int on = PlotDefault::MarkerSymbolStyle;
    const int none = QwtSymbol::NoSymbol;
    // The marker starts hidden, with a line of alpha 255 and a symbol that
    // is switched off.
    QTest::newRow("nothing") << 0 << false << 255 << none;
    QTest::newRow("show") << int(VoidPlot::MarkerAttrShow) << true << 255 << none;
    QTest::newRow("hide wins over show")
        << int(VoidPlot::MarkerAttrHide | VoidPlot::MarkerAttrShow) << false << 255 << none;
    QTest::newRow("line clear") << int(VoidPlot::MarkerAttrLineClear) << false << 0 << none;
    QTest::newRow("line clear wins over opaque")
        << int(VoidPlot::MarkerAttrLineClear | VoidPlot::MarkerAttrLineOpaque) << false << 0 << none;
    QTest::newRow("symbol on") << int(VoidPlot::MarkerAttrSymbolOn) << false << 255 << on;
    QTest::newRow("symbol none wins over on")
        << int(VoidPlot::MarkerAttrSymbolNone | VoidPlot::MarkerAttrSymbolOn) << false << 255 << none;
    QTest::newRow("show, clear line, symbol on: 38")
        << int(VoidPlot::MarkerAttrShow | VoidPlot::MarkerAttrLineClear | VoidPlot::MarkerAttrSymbolOn)
        << true << 0 << on;
}

void tst_VoidPlotMarkers::markerAttrs()
{
    QFETCH(int, attrs);
    QFETCH(bool, visible);
    QFETCH(int, alpha);
    QFETCH(int, symbolStyle);

    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::blue, 2, true, QwtPlotMarker::VLine);
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrSymbolNone);
    QCOMPARE(int(marker->symbol()->style()), int(QwtSymbol::NoSymbol));

    plot.setMarkerAttrs(marker, attrs);
    QCOMPARE(marker->isVisible(), visible);
    QCOMPARE(alphaOf(marker), alpha);
    QCOMPARE(int(marker->symbol()->style()), symbolStyle);
    // Colour and width survive every switch.
    QCOMPARE(marker->linePen().color().rgb(), QColor(Qt::blue).rgb());
    QCOMPARE(marker->linePen().width(), 2);

    // The opaque bit brings a cleared line back.
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrLineOpaque);
    QCOMPARE(alphaOf(marker), 255);
}

void tst_VoidPlotMarkers::markerAttrsWithNullMarkerDoNothing()
{
    VoidPlotProbe plot;
    plot.setMarkerAttrs(nullptr, VoidPlot::MarkerAttrHide);
    plot.setMarkerAttrs(nullptr, 127);
    QVERIFY(plot.marker);
    QVERIFY(!plot.marker->isVisible());
}

void tst_VoidPlotMarkers::lineAttrsSkipAMarkerWithoutLine()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::blue, 2, false, QwtPlotMarker::NoLine);
    const QPen before = marker->linePen();
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrLineClear);
    QCOMPARE(marker->linePen(), before);
    QCOMPARE(alphaOf(marker), 255);
}

void tst_VoidPlotMarkers::symbolAttrsSkipAMarkerWithoutSymbol()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::blue, 2, false, QwtPlotMarker::VLine);
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrSymbolNone);
    QVERIFY(!marker->symbol());
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrSymbolOn);
    QVERIFY(!marker->symbol());
    QVERIFY(!marker->isVisible());
}

void tst_VoidPlotMarkers::symbolAttrsKeepBrushPenAndSize()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.createMarker(Qt::magenta, 5, true, QwtPlotMarker::NoLine);
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrSymbolNone);
    plot.setMarkerAttrs(marker, VoidPlot::MarkerAttrSymbolOn);
    const QwtSymbol *symbol = marker->symbol();
    QCOMPARE(symbol->style(), PlotDefault::MarkerSymbolStyle);
    QCOMPARE(symbol->size(), QSize(12, 12));
    QCOMPARE(symbol->brush().color(), QColor(Qt::magenta));
    QCOMPARE(symbol->pen().color(), QColor(Qt::magenta));
}

void tst_VoidPlotMarkers::labelClearKeepsTheLabelStyle()
{
    VoidPlotProbe plot;
    QwtText label = plot.markerLabel;
    label.setText(QStringLiteral("m/z 44"));
    plot.marker->setLabel(label);
    plot.setMarkerAttrs(plot.marker, VoidPlot::MarkerAttrLabelClear);
    QVERIFY(plot.marker->label().text().isEmpty());
    QCOMPARE(plot.marker->label().backgroundBrush(), label.backgroundBrush());
    QCOMPARE(plot.marker->label().font(), label.font());
}

void tst_VoidPlotMarkers::allMarkersAttrsLeaveTheSelectionMarker()
{
    VoidPlotProbe plot;
    QwtPlotMarker *first = addSeriesMarker(plot);
    QwtPlotMarker *second = addSeriesMarker(plot);
    plot.seriesMarkers << nullptr; // tolerated
    plot.selectionMarker = plot.createMarker(Qt::red, 1, false, QwtPlotMarker::VLine);

    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrShow | VoidPlot::MarkerAttrLineClear);
    QVERIFY(first->isVisible());
    QVERIFY(second->isVisible());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(alphaOf(plot.marker), 0);
    QVERIFY(!plot.selectionMarker->isVisible());
    QCOMPARE(alphaOf(plot.selectionMarker), 255);
}

void tst_VoidPlotMarkers::hideAllMarkersHidesSeriesAndFrameMarkers()
{
    VoidPlotProbe plot;
    QwtPlotMarker *series = addSeriesMarker(plot);
    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrShow);
    plot.hideAllMarkers();
    QVERIFY(!series->isVisible());
    QVERIFY(!plot.marker->isVisible());
    QCOMPARE(alphaOf(plot.marker), 255);
}

void tst_VoidPlotMarkers::precheckShowsOpaqueLinesWhenMarkersAreVisible()
{
    VoidPlotProbe plot;
    QwtPlotMarker *series = addSeriesMarker(plot);
    plot.setMarkerAttrs(plot.marker, VoidPlot::MarkerAttrLineClear);
    QVERIFY(plot.displayMarkersPrecheck());
    QVERIFY(plot.marker->isVisible());
    QVERIFY(series->isVisible());
    QCOMPARE(alphaOf(plot.marker), 255);
}

void tst_VoidPlotMarkers::hiddenMarkerWithVisibleLabelKeepsTheItemShown()
{
    ReplotCounter<VoidPlotProbe> plot;
    plot.settle();
    QwtPlotMarker *series = addSeriesMarker(plot);
    QSignalSpy spy(&plot, &VoidPlot::markerVisibleToggled);

    plot.setMarkerVisible(false);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), false);
    QVERIFY(!plot.isMarkerVisible());
    // The precheck ran with 6: shown, line transparent.
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(alphaOf(plot.marker), 0);
    QVERIFY(series->isVisible());
    QTRY_COMPARE(plot.replots, 1);

    QVERIFY(plot.displayMarkersPrecheck());
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(alphaOf(plot.marker), 0);
}

void tst_VoidPlotMarkers::hiddenMarkerAndLabelHideEverything()
{
    VoidPlotProbe plot;
    QwtPlotMarker *series = addSeriesMarker(plot);
    QSignalSpy spy(&plot, &VoidPlot::markerLabelVisibleToggled);
    plot.setMarkerVisible(false);
    plot.setMarkerLabelVisible(false);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!plot.isMarkerLabelVisible());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!series->isVisible());

    // A read-out stops early, and leaves everything hidden.
    QVERIFY(!plot.displayMarkersPrecheck());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!series->isVisible());

    plot.setMarkerLabelVisible(true);
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(alphaOf(plot.marker), 0);
}

void tst_VoidPlotMarkers::visibilitySettersEmitOnlyOnChange()
{
    ReplotCounter<VoidPlotProbe> plot;
    plot.settle();
    QSignalSpy markerSpy(&plot, &VoidPlot::markerVisibleToggled);
    QSignalSpy labelSpy(&plot, &VoidPlot::markerLabelVisibleToggled);
    plot.setMarkerVisible(true);
    plot.setMarkerLabelVisible(true);
    QCOMPARE(markerSpy.count() + labelSpy.count(), 0);
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(!plot.replotTimer->isActive());
}

void tst_VoidPlotMarkers::markersColorSkipsTheColourTheFrameMarkerHas()
{
    VoidPlotProbe plot;
    QwtPlotMarker *series = addSeriesMarker(plot, Qt::blue);
    QSignalSpy spy(&plot, &VoidPlot::markerColorChanged);
    plot.setMarkersColor(PlotDefault::MarkerColor);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(series->symbol()->pen().color(), QColor(Qt::blue));
}

void tst_VoidPlotMarkers::markersColorCountsATransparentLineAsChange()
{
    VoidPlotProbe plot;
    plot.setMarkerAttrs(plot.marker, VoidPlot::MarkerAttrLineClear);
    QSignalSpy spy(&plot, &VoidPlot::markerColorChanged);
    plot.setMarkersColor(PlotDefault::MarkerColor);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(alphaOf(plot.marker), 255);
}

void tst_VoidPlotMarkers::markersColorReachesSeriesButNotSelectionMarker()
{
    VoidPlotProbe plot;
    QwtPlotMarker *dot = addSeriesMarker(plot, Qt::blue, true);
    QwtPlotMarker *line = plot.createMarker(Qt::blue, 1, false, QwtPlotMarker::VLine);
    plot.seriesMarkers << line;
    plot.selectionMarker = plot.createMarker(PlotDefault::SelectionMarkerColor, 1, false,
                                             QwtPlotMarker::VLine);
    QSignalSpy spy(&plot, &VoidPlot::markerColorChanged);

    plot.setMarkersColor(Qt::darkYellow);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QColor>(), QColor(Qt::darkYellow));
    QCOMPARE(plot.marker->linePen().color(), QColor(Qt::darkYellow));
    QCOMPARE(dot->symbol()->pen().color(), QColor(Qt::darkYellow));
    QCOMPARE(dot->symbol()->brush().color(), QColor(Qt::darkYellow));
    QCOMPARE(dot->symbol()->size(), QSize(8, 8));
    QCOMPARE(line->linePen().color(), QColor(Qt::darkYellow));
    QCOMPARE(plot.selectionMarker->linePen().color(), PlotDefault::SelectionMarkerColor);
}

void tst_VoidPlotMarkers::markersColorIgnoresInvalidColour()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::markerColorChanged);
    plot.setMarkersColor(QColor());
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.marker->linePen().color(), PlotDefault::MarkerColor);
}

void tst_VoidPlotMarkers::markersWidthReachesSelectionMarker()
{
    VoidPlotProbe plot;
    QwtPlotMarker *dot = addSeriesMarker(plot, Qt::blue, true);
    plot.selectionMarker = plot.createMarker(PlotDefault::SelectionMarkerColor, 1, false,
                                             QwtPlotMarker::VLine);
    QSignalSpy spy(&plot, &VoidPlot::markerWidthChanged);
    plot.setMarkersWidth(4);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 4);
    QCOMPARE(plot.marker->linePen().width(), 4);
    QCOMPARE(plot.selectionMarker->linePen().width(), 4);
    QCOMPARE(plot.selectionMarker->linePen().color(), PlotDefault::SelectionMarkerColor);
    QCOMPARE(dot->symbol()->size(), QSize(11, 11));
    QCOMPARE(dot->linePen().width(), 1); // no line: its pen is left alone
}

void tst_VoidPlotMarkers::markersWidthEmitsOnlyOnChange()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::markerWidthChanged);
    plot.setMarkersWidth(PlotDefault::MarkerWidth);
    plot.setMarkersWidth(-3);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.marker->linePen().width(), PlotDefault::MarkerWidth);
}

void tst_VoidPlotMarkers::singleMarkerColourAndWidthIgnoreNull()
{
    VoidPlotProbe plot;
    plot.setMarkerColor(nullptr, Qt::red);
    plot.setMarkerWidth(nullptr, 3);
    QwtPlotMarker *marker = plot.createMarker(Qt::blue, 1, true, QwtPlotMarker::HLine);
    plot.setMarkerColor(marker, Qt::red);
    plot.setMarkerWidth(marker, 3);
    QCOMPARE(marker->linePen().color(), QColor(Qt::red));
    QCOMPARE(marker->linePen().width(), 3);
    QCOMPARE(marker->symbol()->size(), QSize(10, 10));
    QCOMPARE(marker->symbol()->pen().color(), QColor(Qt::red));
    QCOMPARE(plot.marker->linePen().color(), PlotDefault::MarkerColor);
}

void tst_VoidPlotMarkers::markerLabelFontColorTakesFontAndColourNotText()
{
    VoidPlotProbe plot;
    QwtText shown = plot.markerLabel;
    shown.setText(QStringLiteral("12.5"));
    plot.marker->setLabel(shown);
    QSignalSpy spy(&plot, &VoidPlot::markerLabelFontColorChanged);

    plot.setMarkerLabelFontColor(plot.markerLabel);
    QCOMPARE(spy.count(), 0);

    QFont font = plot.markerLabel.font();
    font.setPointSize(font.pointSize() + 5);
    QwtText text(QStringLiteral("ignored"));
    text.setFont(font);
    text.setColor(Qt::darkBlue);
    plot.setMarkerLabelFontColor(text);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(plot.markerLabel.font(), font);
    QCOMPARE(plot.markerLabel.color(), QColor(Qt::darkBlue));
    QVERIFY(plot.markerLabel.text().isEmpty());
    QCOMPARE(plot.marker->label().text(), QStringLiteral("12.5"));
    QCOMPARE(plot.marker->label().font(), font);
    QCOMPARE(plot.marker->label().color(), QColor(Qt::darkBlue));
    const QwtText sent = spy.at(0).at(0).value<QwtText>();
    QCOMPARE(sent, plot.markerLabel);
}

void tst_VoidPlotMarkers::markerLabelFontColorIgnoresInvalidColour()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::markerLabelFontColorChanged);
    QwtText text;
    text.setFont(plot.markerLabel.font());
    text.setColor(QColor());
    plot.setMarkerLabelFontColor(text);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.markerLabel.color(), PlotDefault::MarkerLabelColor);
}

void tst_VoidPlotMarkers::markerLabelBgColorChangesTheTemplateOnly()
{
    VoidPlotProbe plot;
    QwtText shown = plot.markerLabel;
    shown.setText(QStringLiteral("x"));
    plot.marker->setLabel(shown);
    QSignalSpy spy(&plot, &VoidPlot::markerLabelBgColorChanged);

    plot.setMarkerLabelBgColor(PlotDefault::MarkerLabelBgColor);
    plot.setMarkerLabelBgColor(QColor());
    QCOMPARE(spy.count(), 0);

    plot.setMarkerLabelBgColor(Qt::yellow);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QColor>(), QColor(Qt::yellow));
    QCOMPARE(plot.markerLabel.backgroundBrush().color(), QColor(Qt::yellow));
    QCOMPARE(plot.markerLabel.backgroundBrush().style(), Qt::SolidPattern);
    QCOMPARE(plot.markerLabel.borderPen().color(), QColor(Qt::yellow));
    QCOMPARE(plot.markerLabel.borderPen().widthF(), 10.0);
    // The frame marker takes it with its next read-out.
    QCOMPARE(plot.marker->label().backgroundBrush().color(), PlotDefault::MarkerLabelBgColor);
}

void tst_VoidPlotMarkers::markerLabelAlignmentWhitelist_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("1 (AlignLeft) is ignored") << 1 << false;
    QTest::newRow("2 (AlignTrailing) is accepted") << 2 << true;
    QTest::newRow("32 (AlignTop) is the value held") << 32 << false;
    QTest::newRow("64 (AlignBottom)") << 64 << true;
    QTest::newRow("128 (AlignVCenter)") << 128 << true;
    QTest::newRow("132 (AlignCenter) is ignored") << 132 << false;
    QTest::newRow("0 is ignored") << 0 << false;
    QTest::newRow("-1 is ignored") << -1 << false;
    QTest::newRow("a huge value is ignored") << 0x7FFFFFFF << false;
}

void tst_VoidPlotMarkers::markerLabelAlignmentWhitelist()
{
    QFETCH(int, value);
    QFETCH(bool, accepted);
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::markerLabelAlignmentChanged);
    plot.setMarkerLabelAlignment(value);
    QCOMPARE(spy.count(), accepted ? 1 : 0);
    QCOMPARE(int(plot.markerLabelAlignment()), accepted ? value : int(Qt::AlignTop));
    if (accepted)
        QCOMPARE(spy.at(0).at(0).toInt(), value);

    plot.setMarkerLabelAlignment(Qt::AlignBottom);
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignBottom);
}

void tst_VoidPlotMarkers::markerLabelAlignmentGetterFallsBackToFirstKey()
{
    VoidPlotProbe plot;
    plot.markerLabelAlignmentValue = 1;
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignTrailing);
}

void tst_VoidPlotMarkers::markerLabelSortOptionWhitelist_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("by value") << 1 << true;
    QTest::newRow("default is the value held") << 0 << false;
    QTest::newRow("2 is ignored") << 2 << false;
    QTest::newRow("-1 is ignored") << -1 << false;
}

void tst_VoidPlotMarkers::markerLabelSortOptionWhitelist()
{
    QFETCH(int, value);
    QFETCH(bool, accepted);
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::markerLabelSortOptionChanged);
    plot.setMarkerLabelSortOption(value);
    QCOMPARE(spy.count(), accepted ? 1 : 0);
    QCOMPARE(int(plot.markerLabelSortOption()), accepted ? value : 0);

    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    QCOMPARE(plot.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
}

void tst_VoidPlotMarkers::markerLabelSortOptionGetterFallsBackToFirstKey()
{
    VoidPlotProbe plot;
    plot.markerLabelSortOptionValue = 9;
    QCOMPARE(plot.markerLabelSortOption(), Figura::MarkerLabelSortDefault);
}

void tst_VoidPlotMarkers::deleteSeriesMarkerIgnoresOutOfRangeIndexes()
{
    VoidPlotProbe plot;
    QwtPlotMarker *first = addSeriesMarker(plot);
    QwtPlotMarker *second = addSeriesMarker(plot);
    plot.deleteSeriesMarker(-1);
    plot.deleteSeriesMarker(2);
    plot.deleteSeriesMarker(1000);
    QCOMPARE(plot.seriesMarkers, (QList<QwtPlotMarker *>{first, second}));
    QCOMPARE(first->plot(), &plot);
}

void tst_VoidPlotMarkers::deleteSeriesMarkerTakesOutOneMarker()
{
    VoidPlotProbe plot;
    QwtPlotMarker *first = addSeriesMarker(plot);
    addSeriesMarker(plot);
    QwtPlotMarker *third = addSeriesMarker(plot);
    const int items = plot.itemList().size();
    plot.deleteSeriesMarker(1);
    QCOMPARE(plot.seriesMarkers, (QList<QwtPlotMarker *>{first, third}));
    QCOMPARE(plot.itemList().size(), items - 1);

    plot.seriesMarkers.insert(0, nullptr); // a null entry is taken out as well
    plot.deleteSeriesMarker(0);
    QCOMPARE(plot.seriesMarkers, (QList<QwtPlotMarker *>{first, third}));
}

void tst_VoidPlotMarkers::deleteSeriesMarkersEmptiesTheListAndHidesTheFrameMarker()
{
    VoidPlotProbe plot;
    addSeriesMarker(plot);
    addSeriesMarker(plot);
    plot.seriesMarkers << nullptr;
    plot.setAllMarkersAttrs(VoidPlot::MarkerAttrShow);
    const int items = plot.itemList().size();
    plot.deleteSeriesMarkers();
    QVERIFY(plot.seriesMarkers.isEmpty());
    QCOMPARE(plot.itemList().size(), items - 2);
    QVERIFY(!plot.marker->isVisible());
    QCOMPARE(plot.marker->plot(), &plot);
}

void tst_VoidPlotMarkers::togglePeakLabelsEmitsOnChangeOnly()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::peakLabelVisibilityToggled);
    plot.togglePeakLabels(false);
    QCOMPARE(spy.count(), 0);
    plot.togglePeakLabels(true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QVERIFY(plot.peakLabelVisible);
    QVERIFY(!plot.isPeakLabelVisible()); // no MenuPeakLabel in the frame's bits
}

void tst_VoidPlotMarkers::setPeakLabelVisibleChecksTheActionAndEmitsNothing()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(plot.contextMenuItems() | VoidPlot::MenuPeakLabel);
    QVERIFY(plot.peakLabelAct);
    QVERIFY(!plot.peakLabelAct->isChecked());
    QSignalSpy spy(&plot, &VoidPlot::peakLabelVisibilityToggled);

    plot.setPeakLabelVisible(true);
    QVERIFY(plot.peakLabelAct->isChecked());
    QVERIFY(plot.isPeakLabelVisible());
    QCOMPARE(spy.count(), 0);

    // The user's check through the action does emit.
    plot.peakLabelAct->setChecked(false);
    QCOMPARE(spy.count(), 1);
    QVERIFY(!plot.isPeakLabelVisible());
}

void tst_VoidPlotMarkers::peakLabelFormatEmitsAndUpdatesOnChangeOnly()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::peakLabelFormatChanged);
    plot.setPeakLabelFormat(plot.getPeakLabelFormat());
    QCOMPARE(spy.count(), 0);
    QVERIFY(plot.peakLabelUpdates.isEmpty());

    PeakLabelFormat format = plot.getPeakLabelFormat();
    format.setTextRotation(30);
    format.setColor(Qt::darkMagenta);
    plot.setPeakLabelFormat(format);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<PeakLabelFormat>(), format);
    QCOMPARE(plot.getPeakLabelFormat(), format);
    QCOMPARE(plot.peakLabelUpdates, QList<PeakLabelFormat>{format});

    // Out-of-range values are stored as they come: the format checks nothing.
    format.setTextRotation(120);
    plot.setPeakLabelFormat(format);
    QCOMPARE(plot.getPeakLabelFormat().textRotation(), 120);
    QCOMPARE(spy.count(), 2);
}

QTEST_MAIN(tst_VoidPlotMarkers)
#include "tst_voidplot_markers.moc"
