// The curve store: construction, appending and removing curves with their
// series markers side by side, line and symbol attributes, the pen width
// setting, ownership and destruction.

#include "CurvePlotProbe.h"

#include <TestSupport.h>

#include <figura/attributes/CurveAttributes.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/PlotSettingsDialog.h>

#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

#include <memory>

namespace {

QwtPlotCurve *simpleCurve(const QString &title)
{
    return makeCurve(title, {QPointF(1, 1), QPointF(2, 2), QPointF(3, 3)});
}

} // namespace

class tst_CurvePlotStore : public QObject
{
    Q_OBJECT

private slots:
    void constructsWithCurveOptions();
    void selectionMarkerIsHiddenRedLineOfFrameMarkerWidth();

    void appendWithMarkerAddsDotInFrameMarkerColour();
    void appendWithoutMarkerAddsNullEntry();
    void appendTakesCurveAsIsAndAttachesIt();
    void removeFirstOfMixedCurvesLeavesMarkerOfOther();
    void frameMarkerHiddenOnlyOnceNoEntryIsLeft();
    void removeCurveOutOfRangeChangesNothing();
    void removeCurveNeverAppendedDeletesNothing();
    void removeCurveByPointerRemovesItsMarker();
    void removeCurvesDeletesAllAndLeavesSelectionMarker();
    void destructorDeletesCurves();
    void curvesIsTheStoredList();
    void storeOperationsDoNotReplot();

    void setLineAttributes_data();
    void setLineAttributes();
    void setLineAttributesOutOfRangeIsIgnored();
    void setSymbolAttributesOnCurveWithoutSymbolInstallsNoSymbol();
    void setSymbolAttributesWithLeaveValuesCopiesSymbol();
    void setSymbolAttributesChangesGivenParts();
    void setSymbolAttributesOutOfRangeIsIgnored();

    void createSymbolUsesDefaultsForUnsetAttributes();
    void createSymbolUsesGivenAttributes();

    void updatePenWidthEmitsOnlyOnChange();
    void setPenWidthNeverEmits();
    void applyPenWidthToAllKeepsStyleAndColour();
    void settingsDialogShowsPenWidth();
    void settingsDialogChangesPenWidthAndAppliesItOnRequest();
    void chartColorLeavesCurvePens();
    void isAnyCurveVisible();
    void legendMenuRemakesItsAction();
};

void tst_CurvePlotStore::constructsWithCurveOptions()
{
    CurvePlotProbe plot;
    QCOMPARE(plot.rtti(), 1);
    QCOMPARE(plot.customPlotOptions(), 0x18F);
    QCOMPARE(plot.contextMenuItems(), 0x3EF);
    QCOMPARE(plot.penWidth(), PlotDefault::PenSize);
    QVERIFY(!plot.isSeriesMarkerAtEnd());
    QVERIFY(plot.curves().isEmpty());
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.editCurveAct);
    QVERIFY(!plot.marker->isVisible());
}

void tst_CurvePlotStore::selectionMarkerIsHiddenRedLineOfFrameMarkerWidth()
{
    CurvePlotProbe plot;
    QVERIFY(plot.selectionMarker);
    QVERIFY(plot.selectionMarker != plot.marker);
    QCOMPARE(plot.selectionMarker->plot(), static_cast<QwtPlot *>(&plot));
    QVERIFY(!plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->lineStyle(), QwtPlotMarker::VLine);
    QCOMPARE(plot.selectionMarker->linePen().color(), PlotDefault::SelectionMarkerColor);
    QCOMPARE(plot.selectionMarker->linePen().width(), plot.marker->linePen().width());
    QVERIFY(!plot.selectionMarker->symbol());
}

void tst_CurvePlotStore::appendWithMarkerAddsDotInFrameMarkerColour()
{
    CurvePlotProbe plot;
    plot.setMarkersColor(Qt::blue);
    plot.setMarkersWidth(3);
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setPen(QPen(Qt::magenta));
    plot.appendCurve(curve, true);

    QCOMPARE(plot.seriesMarkers.size(), 1);
    QwtPlotMarker *dot = plot.seriesMarkers.at(0);
    QVERIFY(dot);
    QCOMPARE(dot->plot(), static_cast<QwtPlot *>(&plot));
    QVERIFY(!dot->isVisible());
    QCOMPARE(dot->lineStyle(), QwtPlotMarker::NoLine);
    QVERIFY(dot->symbol());
    QCOMPARE(dot->symbol()->style(), QwtSymbol::Ellipse);
    QCOMPARE(dot->symbol()->size(), QSize(10, 10));
    QCOMPARE(dot->symbol()->brush().color(), QColor(Qt::blue));
    QCOMPARE(dot->symbol()->pen().color(), QColor(Qt::blue));
}

void tst_CurvePlotStore::appendWithoutMarkerAddsNullEntry()
{
    CurvePlotProbe plot;
    plot.appendCurve(simpleCurve(QStringLiteral("a")), false);
    QCOMPARE(plot.curves().size(), 1);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QVERIFY(!plot.seriesMarkers.at(0));
}

void tst_CurvePlotStore::appendTakesCurveAsIsAndAttachesIt()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    const QPen pen(Qt::darkCyan, 4, Qt::DashLine);
    curve->setPen(pen);
    curve->setVisible(false);
    plot.appendCurve(curve, true);
    QCOMPARE(curve->plot(), static_cast<QwtPlot *>(&plot));
    QCOMPARE(plot.curves().at(0), curve);
    QCOMPARE(curve->pen(), pen);
    QVERIFY(!curve->symbol());
    QVERIFY(!curve->isVisible());
    QVERIFY(plot.itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve));
}

void tst_CurvePlotStore::removeFirstOfMixedCurvesLeavesMarkerOfOther()
{
    int deaths = 0;
    CurvePlotProbe plot;
    auto *curve = new TracedCurve(QStringLiteral("curve"), &deaths);
    QwtPlotCurve *other = simpleCurve(QStringLiteral("other"));
    plot.appendCurve(curve, false);
    plot.appendCurve(other, true);
    QCOMPARE(plot.seriesMarkers.size(), 2);
    QVERIFY(!plot.seriesMarkers.at(0));
    QwtPlotMarker *otherMarker = plot.seriesMarkers.at(1);
    QVERIFY(otherMarker);

    plot.removeCurve(0);
    QCOMPARE(deaths, 1);
    QCOMPARE(plot.curves(), QList<QwtPlotCurve *>{other});
    QCOMPARE(plot.seriesMarkers, QList<QwtPlotMarker *>{otherMarker});
    QVERIFY(!plot.itemList(QwtPlotItem::Rtti_PlotCurve).contains(curve));
}

void tst_CurvePlotStore::frameMarkerHiddenOnlyOnceNoEntryIsLeft()
{
    CurvePlotProbe plot;
    plot.appendCurve(simpleCurve(QStringLiteral("without")), false);
    plot.appendCurve(simpleCurve(QStringLiteral("with")), true);
    plot.marker->setVisible(true);

    plot.removeCurve(1);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QVERIFY(plot.marker->isVisible());
    QCOMPARE(plot.itemList(QwtPlotItem::Rtti_PlotMarker).size(), 2); // frame and selection

    plot.removeCurve(0);
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.marker->isVisible());
}

void tst_CurvePlotStore::removeCurveOutOfRangeChangesNothing()
{
    int deaths = 0;
    CurvePlotProbe plot;
    plot.appendCurve(new TracedCurve(QStringLiteral("a"), &deaths), true);
    plot.marker->setVisible(true);
    plot.removeCurve(-1);
    plot.removeCurve(1);
    QCOMPARE(deaths, 0);
    QCOMPARE(plot.curves().size(), 1);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    QVERIFY(plot.marker->isVisible());
}

void tst_CurvePlotStore::removeCurveNeverAppendedDeletesNothing()
{
    int deaths = 0;
    CurvePlotProbe plot;
    plot.appendCurve(new TracedCurve(QStringLiteral("kept"), &deaths), true);
    auto *stranger = new TracedCurve(QStringLiteral("stranger"), &deaths);
    plot.removeCurve(stranger);
    QCOMPARE(deaths, 0);
    QCOMPARE(plot.curves().size(), 1);
    QCOMPARE(plot.seriesMarkers.size(), 1);
    plot.removeCurve(static_cast<QwtPlotCurve *>(nullptr));
    QCOMPARE(plot.curves().size(), 1);
    delete stranger; // still the caller's
    QCOMPARE(deaths, 1);
}

void tst_CurvePlotStore::removeCurveByPointerRemovesItsMarker()
{
    int deaths = 0;
    CurvePlotProbe plot;
    QwtPlotCurve *first = simpleCurve(QStringLiteral("first"));
    auto *second = new TracedCurve(QStringLiteral("second"), &deaths);
    QwtPlotCurve *third = simpleCurve(QStringLiteral("third"));
    plot.appendCurve(first, true);
    plot.appendCurve(second, false);
    plot.appendCurve(third, true);
    QwtPlotMarker *firstMarker = plot.seriesMarkers.at(0);
    QwtPlotMarker *thirdMarker = plot.seriesMarkers.at(2);

    plot.removeCurve(second);
    QCOMPARE(deaths, 1);
    QCOMPARE(plot.curves(), (QList<QwtPlotCurve *>{first, third}));
    QCOMPARE(plot.seriesMarkers, (QList<QwtPlotMarker *>{firstMarker, thirdMarker}));

    plot.removeCurve(first);
    QCOMPARE(plot.curves(), QList<QwtPlotCurve *>{third});
    QCOMPARE(plot.seriesMarkers, QList<QwtPlotMarker *>{thirdMarker});
    QVERIFY(!plot.itemList(QwtPlotItem::Rtti_PlotMarker).contains(firstMarker));
}

void tst_CurvePlotStore::removeCurvesDeletesAllAndLeavesSelectionMarker()
{
    int deaths = 0;
    CurvePlotProbe plot;
    for (int i = 0; i < 3; ++i)
        plot.appendCurve(new TracedCurve(QString::number(i), &deaths), i != 1);
    plot.marker->setVisible(true);
    plot.selectionMarker->setVisible(true);
    plot.selectionMarker->setValue(2.0, 0.0);

    plot.removeCurves();
    QCOMPARE(deaths, 3);
    QVERIFY(plot.curves().isEmpty());
    QVERIFY(plot.seriesMarkers.isEmpty());
    QVERIFY(!plot.marker->isVisible());
    QVERIFY(plot.selectionMarker->isVisible());
    QCOMPARE(plot.selectionMarker->xValue(), 2.0);
    QCOMPARE(plot.itemList(QwtPlotItem::Rtti_PlotCurve).size(), 0);
    QCOMPARE(plot.itemList(QwtPlotItem::Rtti_PlotMarker).size(), 2);
}

void tst_CurvePlotStore::destructorDeletesCurves()
{
    int deaths = 0;
    {
        CurvePlotProbe plot;
        plot.appendCurve(new TracedCurve(QStringLiteral("a"), &deaths), true);
        plot.appendCurve(new TracedCurve(QStringLiteral("b"), &deaths), false);
    }
    QCOMPARE(deaths, 2);
}

void tst_CurvePlotStore::curvesIsTheStoredList()
{
    CurvePlotProbe plot;
    QCOMPARE(&plot.curves(), &plot.curvesValue);
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    plot.appendCurve(curve, true);
    QCOMPARE(plot.curves().value(0), curve);
}

void tst_CurvePlotStore::storeOperationsDoNotReplot()
{
    CurvePlotProbe plot;
    plot.settle();
    plot.appendCurve(simpleCurve(QStringLiteral("a")), true);
    plot.appendCurve(simpleCurve(QStringLiteral("b")), false);
    plot.setLineAttributes(0, 2, 3, Qt::red);
    plot.setSymbolAttributes(1, 1, 4, Qt::red);
    plot.applyPenWidthToAll();
    plot.updatePenWidth(7);
    plot.removeCurve(0);
    plot.removeCurves();
    QTest::qWait(30);
    QCOMPARE(plot.replots, 0);
}

void tst_CurvePlotStore::setLineAttributes_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("width");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("expectedStyle");
    QTest::addColumn<int>("expectedWidth");
    QTest::addColumn<QColor>("expectedColor");
    // The curve starts with a dashed dark green pen of width 3.
    const QColor start(Qt::darkGreen);
    QTest::newRow("style 0 is no pen") << 0 << 0 << QColor() << int(Qt::NoPen) << 3 << start;
    QTest::newRow("all left as they are") << -1 << 0 << QColor() << int(Qt::DashLine) << 3 << start;
    QTest::newRow("negative width leaves") << -5 << -2 << QColor() << int(Qt::DashLine) << 3 << start;
    QTest::newRow("style") << int(Qt::DotLine) << 0 << QColor() << int(Qt::DotLine) << 3 << start;
    QTest::newRow("width") << -1 << 6 << QColor() << int(Qt::DashLine) << 6 << start;
    QTest::newRow("colour") << -1 << 0 << QColor(Qt::red) << int(Qt::DashLine) << 3 << QColor(Qt::red);
    QTest::newRow("everything") << int(Qt::SolidLine) << 1 << QColor(Qt::blue) << int(Qt::SolidLine)
                                << 1 << QColor(Qt::blue);
}

void tst_CurvePlotStore::setLineAttributes()
{
    QFETCH(int, style);
    QFETCH(int, width);
    QFETCH(QColor, color);
    QFETCH(int, expectedStyle);
    QFETCH(int, expectedWidth);
    QFETCH(QColor, expectedColor);

    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    QPen pen(Qt::darkGreen, 3, Qt::DashLine);
    pen.setCapStyle(Qt::RoundCap);
    curve->setPen(pen);
    plot.appendCurve(curve, true);

    plot.setLineAttributes(0, style, width, color);
    QCOMPARE(int(curve->pen().style()), expectedStyle);
    QCOMPARE(curve->pen().width(), expectedWidth);
    QCOMPARE(curve->pen().color(), expectedColor);
    QCOMPARE(curve->pen().capStyle(), Qt::RoundCap);
}

void tst_CurvePlotStore::setLineAttributesOutOfRangeIsIgnored()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    const QPen pen(Qt::darkGreen, 3, Qt::DashLine);
    curve->setPen(pen);
    plot.appendCurve(curve, true);
    plot.setLineAttributes(1, 0, 9, Qt::red);
    plot.setLineAttributes(-1, 0, 9, Qt::red);
    QCOMPARE(curve->pen(), pen);
}

void tst_CurvePlotStore::setSymbolAttributesOnCurveWithoutSymbolInstallsNoSymbol()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    plot.appendCurve(curve, true);
    QVERIFY(!curve->symbol());

    plot.setSymbolAttributes(0, -1, 0, QColor());
    QVERIFY(curve->symbol());
    QCOMPARE(curve->symbol()->style(), QwtSymbol::NoSymbol);
    QCOMPARE(curve->symbol()->size(), PlotDefault::SymbolSize);
    QCOMPARE(curve->symbol()->brush().color(), PlotDefault::SymbolColor);
    QCOMPARE(curve->symbol()->pen().color(), PlotDefault::SymbolColor);
}

void tst_CurvePlotStore::setSymbolAttributesWithLeaveValuesCopiesSymbol()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setSymbol(new QwtSymbol(QwtSymbol::Triangle, QBrush(Qt::yellow), QPen(Qt::cyan, 2),
                                   QSize(6, 9)));
    const QwtSymbol *before = curve->symbol();
    const QwtSymbol::Style style = before->style();
    const QBrush brush = before->brush();
    const QPen pen = before->pen();
    const QSize size = before->size();
    plot.appendCurve(curve, true);

    plot.setSymbolAttributes(0, -1, 0, QColor());
    const QwtSymbol *after = curve->symbol();
    QVERIFY(after);
    QCOMPARE(after->style(), style);
    QCOMPARE(after->brush(), brush);
    QCOMPARE(after->pen(), pen);
    QCOMPARE(after->size(), size);
}

void tst_CurvePlotStore::setSymbolAttributesChangesGivenParts()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setSymbol(new QwtSymbol(QwtSymbol::Triangle, QBrush(Qt::yellow), QPen(Qt::cyan, 2),
                                   QSize(6, 9)));
    plot.appendCurve(curve, true);

    plot.setSymbolAttributes(0, QwtSymbol::Diamond, 0, QColor());
    QCOMPARE(curve->symbol()->style(), QwtSymbol::Diamond);
    QCOMPARE(curve->symbol()->size(), QSize(6, 9));

    plot.setSymbolAttributes(0, -1, 5, QColor());
    QCOMPARE(curve->symbol()->style(), QwtSymbol::Diamond);
    QCOMPARE(curve->symbol()->size(), QSize(5, 5));
    QCOMPARE(curve->symbol()->brush().color(), QColor(Qt::yellow));

    // QwtSymbol::setColor: a filled style takes the colour in its brush.
    plot.setSymbolAttributes(0, -1, 0, QColor(Qt::red));
    QCOMPARE(curve->symbol()->brush().color(), QColor(Qt::red));
    QCOMPARE(curve->symbol()->pen().color(), QColor(Qt::cyan));
    QCOMPARE(curve->symbol()->pen().width(), 2);

    // A line style takes it in its pen.
    plot.setSymbolAttributes(0, QwtSymbol::Cross, 0, QColor(Qt::blue));
    QCOMPARE(curve->symbol()->style(), QwtSymbol::Cross);
    QCOMPARE(curve->symbol()->pen().color(), QColor(Qt::blue));
    QCOMPARE(curve->symbol()->brush().color(), QColor(Qt::red));
    QCOMPARE(curve->symbol()->size(), QSize(5, 5));
}

void tst_CurvePlotStore::setSymbolAttributesOutOfRangeIsIgnored()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    plot.appendCurve(curve, true);
    plot.setSymbolAttributes(1, 2, 5, Qt::red);
    plot.setSymbolAttributes(-1, 2, 5, Qt::red);
    QVERIFY(!curve->symbol());
}

void tst_CurvePlotStore::createSymbolUsesDefaultsForUnsetAttributes()
{
    CurvePlotProbe plot;
    const KelmQtPlot::CurveAttributes unset;
    std::unique_ptr<QwtSymbol> symbol(plot.createSymbol(unset));
    QVERIFY(symbol);
    QCOMPARE(int(symbol->style()), PlotDefault::SymbolStyle);
    QCOMPARE(symbol->size(), QSize(PlotDefault::SymbolWidth, PlotDefault::SymbolWidth));
    QCOMPARE(symbol->brush(), QBrush(PlotDefault::SymbolColor, Qt::SolidPattern));
    QCOMPARE(symbol->pen().color(), PlotDefault::SymbolColor);

    KelmQtPlot::CurveAttributes zero;
    zero.symbolStyle = -3;
    zero.symbolWidth = 0;
    std::unique_ptr<QwtSymbol> fallback(plot.createSymbol(zero));
    QCOMPARE(int(fallback->style()), PlotDefault::SymbolStyle);
    QCOMPARE(fallback->size(), QSize(PlotDefault::SymbolWidth, PlotDefault::SymbolWidth));
}

void tst_CurvePlotStore::createSymbolUsesGivenAttributes()
{
    CurvePlotProbe plot;
    KelmQtPlot::CurveAttributes attributes;
    attributes.symbolStyle = QwtSymbol::Rect;
    attributes.symbolWidth = 12;
    attributes.symbolColor = QColor(10, 20, 30);
    std::unique_ptr<QwtSymbol> symbol(plot.createSymbol(attributes));
    QCOMPARE(symbol->style(), QwtSymbol::Rect);
    QCOMPARE(symbol->size(), QSize(12, 12));
    QCOMPARE(symbol->brush(), QBrush(QColor(10, 20, 30), Qt::SolidPattern));
    QCOMPARE(symbol->pen().color(), QColor(10, 20, 30));
    // A factory for the host: nothing of the plot changes.
    QVERIFY(plot.curves().isEmpty());
}

void tst_CurvePlotStore::updatePenWidthEmitsOnlyOnChange()
{
    CurvePlotProbe plot;
    QSignalSpy spy(&plot, &CurvePlot::penWidthChanged);
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setPen(QPen(Qt::red, 1));
    plot.appendCurve(curve, true);

    plot.updatePenWidth(plot.penWidth());
    QCOMPARE(spy.count(), 0);
    plot.updatePenWidth(5);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 5);
    QCOMPARE(plot.penWidth(), 5);
    plot.updatePenWidth(5);
    QCOMPARE(spy.count(), 1);
    // The curves are the host's to change.
    QCOMPARE(curve->pen().width(), 1);
}

void tst_CurvePlotStore::setPenWidthNeverEmits()
{
    CurvePlotProbe plot;
    QSignalSpy spy(&plot, &CurvePlot::penWidthChanged);
    plot.setPenWidth(9);
    QCOMPARE(plot.penWidth(), 9);
    plot.setPenWidth(1);
    QCOMPARE(plot.penWidth(), 1);
    QCOMPARE(spy.count(), 0);
}

void tst_CurvePlotStore::applyPenWidthToAllKeepsStyleAndColour()
{
    CurvePlotProbe plot;
    QwtPlotCurve *dashed = simpleCurve(QStringLiteral("a"));
    dashed->setPen(QPen(Qt::red, 1, Qt::DashLine));
    QwtPlotCurve *dotted = simpleCurve(QStringLiteral("b"));
    dotted->setPen(QPen(Qt::blue, 8, Qt::DotLine));
    plot.appendCurve(dashed, true);
    plot.appendCurve(dotted, false);
    plot.setPenWidth(4);
    plot.applyPenWidthToAll();
    QCOMPARE(dashed->pen(), QPen(Qt::red, 4, Qt::DashLine));
    QCOMPARE(dotted->pen(), QPen(Qt::blue, 4, Qt::DotLine));
}

void tst_CurvePlotStore::settingsDialogShowsPenWidth()
{
    CurvePlotProbe plot;
    plot.setPenWidth(6);
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    QCOMPARE(dialog.lineChartWidth(), 6);
}

void tst_CurvePlotStore::settingsDialogChangesPenWidthAndAppliesItOnRequest()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setPen(QPen(Qt::red, 1, Qt::DashLine));
    plot.appendCurve(curve, true);
    // The host offers the apply-to-all choice.
    plot.setCustomPlotOptions(plot.customPlotOptions() | VoidPlot::PlotOptionApplyLineWidth);
    QSignalSpy spy(&plot, &CurvePlot::penWidthChanged);

    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    dialog.setLineChartWidth(4);
    dialog.setApplyLineWidthToAll(false);
    plot.saveFromPlotSettingDialog(dialog);
    QCOMPARE(plot.penWidth(), 4);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(curve->pen().width(), 1);

    // The same width again: no signal, but the curves take it on request.
    dialog.setApplyLineWidthToAll(true);
    plot.saveFromPlotSettingDialog(dialog);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(curve->pen(), QPen(Qt::red, 4, Qt::DashLine));
}

void tst_CurvePlotStore::chartColorLeavesCurvePens()
{
    CurvePlotProbe plot;
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    curve->setPen(QPen(Qt::red, 2));
    plot.appendCurve(curve, true);
    QSignalSpy spy(&plot, &VoidPlot::chartColorChanged);
    plot.setChartColor(Qt::green);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(curve->pen().color(), QColor(Qt::red));
}

void tst_CurvePlotStore::isAnyCurveVisible()
{
    CurvePlotProbe plot;
    QVERIFY(!plot.isAnyCurveVisible());
    QwtPlotCurve *a = simpleCurve(QStringLiteral("a"));
    QwtPlotCurve *b = simpleCurve(QStringLiteral("b"));
    a->setVisible(false);
    b->setVisible(false);
    plot.appendCurve(a, true);
    plot.appendCurve(b, false);
    QVERIFY(!plot.isAnyCurveVisible());
    b->setVisible(true);
    QVERIFY(plot.isAnyCurveVisible());
}

void tst_CurvePlotStore::legendMenuRemakesItsAction()
{
    CurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot));
    QwtPlotCurve *curve = simpleCurve(QStringLiteral("a"));
    plot.appendCurve(curve, true);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(10, 10), plot.mapToGlobal(QPoint(10, 10)));

    QStringList entries;
    QString menuName;
    TestSupport::WhenShown first(TestSupport::activePopup, [&](QWidget *w) {
        menuName = w->objectName();
        entries = TestSupport::menuEntries(qobject_cast<QMenu *>(w));
        QTest::keyClick(w, Qt::Key_Escape);
    });
    plot.createLegendContextMenu(curve, &event);
    QVERIFY(first.fired());
    QCOMPARE(menuName, QStringLiteral("legendContextMenu"));
    QCOMPARE(entries, QStringList{QStringLiteral("Change Curve Settings...")});
    QPointer<QAction> firstAction = plot.editCurveAct;
    QVERIFY(firstAction);
    QCOMPARE(firstAction->objectName(), QStringLiteral("editCurveAct"));
    QCOMPARE(firstAction->statusTip(), QStringLiteral("Customize curve settings"));
    QCOMPARE(firstAction->parent(), static_cast<QObject *>(&plot));

    TestSupport::WhenShown second(TestSupport::activePopup,
                                  [](QWidget *w) { QTest::keyClick(w, Qt::Key_Escape); });
    plot.createLegendContextMenu(curve, &event);
    QVERIFY(second.fired());
    QVERIFY(!firstAction);
    QVERIFY(plot.editCurveAct);
    QCOMPARE(plot.editCurveAct->objectName(), QStringLiteral("editCurveAct"));
}

QTEST_MAIN(tst_CurvePlotStore)
#include "tst_curveplot_store.moc"
