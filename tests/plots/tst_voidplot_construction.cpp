// The plot frame as constructed: its tools, axes, templates and options, the
// plain setters and signals, the legend, dark mode, the delayed replot and
// destruction.

#include "VoidPlotProbe.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/scales/PositiveLinearScaleEngine.h>

#include <QFrame>
#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <qwt_legend.h>
#include <qwt_picker_machine.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_magnifier.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_panner.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>
#include <qwt_text_label.h>

using TestSupport::ReplotCounter;

namespace {

QwtPlotMagnifier *findMagnifier(QWidget *canvas)
{
    return canvas->findChild<QwtPlotMagnifier *>();
}

} // namespace

class tst_VoidPlotConstruction : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void rttiIsZero();
    void optionsAreThoseOfTheFrame();
    void optionBitsHaveTheirValues();
    void plotNameIsEmpty();
    void titleDrawsWithTheTitleLabelFont();
    void minimumHeightAndCanvasBackground();
    void tickLimitsOfTheThreeAxes();
    void leftAxisStartsFixedAtDefaultRange();
    void xAxisHasPositiveLinearEngineAndAutoScale();
    void axisTitlesHaveNormalWeight();
    void canvasFrameIsPlainStyledPanel();
    void bottomAndLeftScalesHaveNoMargin();
    void gridHasCosmeticPensOfDefaultColours();
    void magnifierHasNoMouseButton();
    void pannerUsesLeftButtonAndSkipsRightAxis();
    void boxZoomPickerUsesRightButtonAndNoKey();
    void focusPolicyIsStrong();
    void markerLabelTemplate();
    void frameMarkerIsHiddenVerticalLine();
    void selectionMarkerStaysNullAndItsLabelIsReddish();
    void peakLabelFormatDefaults();
    void flagsAfterConstruction();
    void replotTimerIsSingleShotOfReplotDelay();
    void canvasTracksTheMouse();
    void defaultSnapshots();
    void defaultAxisTitleIsTheXAxisSnapshotForEveryAxis();
    void axisValueTextUsesSixDigits();

    void darkModeTwiceEmitsOnceAndChangesNoColour();
    void legendIsCreatedOnceAndKeepsItsPosition();
    void legendCanBeDisabledAndEnabledAgain();
    void legendCheckBoxTogglesTheItem();
    void chartColorIgnoresInvalidAndEqual();
    void canvasAndGridColoursEmitOnRealChange();
    void colourSettersIgnoreInvalidColours();
    void plotTitleEmitsOnlyOnChange();
    void plotTitleComparesWithSubTitle();
    void customPlotOptionsIsAPlainStore();

    void tenReplotLaterCallsGiveOneReplot();
    void replotLaterDoesNotReplotAtOnce();

    void tickLabelReadsFontColourAndRotation();
    void tickLabelOfUnknownAxisHasOnlyDefaults();
    void setTickLabelAppliesAndEmitsOnce();
    void setTickLabelSkipsInvalidColourAndRotation();
    void setTickLabelOfUnknownAxisDoesNothing();
    void setAxisCustomTitleWithEmptyTextChangesFontOnly();
    void setAxisCustomTitleWithEqualTitleEmitsNothing();
    void setAxisCustomTitleSignalCarriesOnlyWhatChanged();
    void setAxisCustomTitleOfUnknownAxisDoesNothing();
    void axisEngineSettersIgnoreUnknownAxis();

    void destructionFreesToolsAndActions();
};

void tst_VoidPlotConstruction::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_VoidPlotConstruction::rttiIsZero()
{
    VoidPlot plot;
    QCOMPARE(plot.rtti(), 0);
}

void tst_VoidPlotConstruction::optionsAreThoseOfTheFrame()
{
    VoidPlot plot;
    QCOMPARE(plot.contextMenuItems(), 0x3EF);
    QCOMPARE(plot.customPlotOptions(), 0x187);
}

void tst_VoidPlotConstruction::optionBitsHaveTheirValues()
{
    QCOMPARE(int(VoidPlot::PlotOptionTitle), 0x001);
    QCOMPARE(int(VoidPlot::PlotOptionCanvas), 0x002);
    QCOMPARE(int(VoidPlot::PlotOptionChartColor), 0x004);
    QCOMPARE(int(VoidPlot::PlotOptionLineChartWidth), 0x008);
    QCOMPARE(int(VoidPlot::PlotOptionApplyLineWidth), 0x010);
    QCOMPARE(int(VoidPlot::PlotOptionBarChartBaseline), 0x020);
    QCOMPARE(int(VoidPlot::PlotOptionTimeFormat), 0x040);
    QCOMPARE(int(VoidPlot::PlotOptionMarker), 0x080);
    QCOMPARE(int(VoidPlot::PlotOptionMarkerLabel), 0x100);
    QCOMPARE(int(VoidPlot::PlotOptionMarkerLabelSort), 0x200);
    QCOMPARE(int(VoidPlot::PlotOptionPeakLabel), 0x400);

    QCOMPARE(int(VoidPlot::MenuLogScale), 0x001);
    QCOMPARE(int(VoidPlot::MenuFullZoom), 0x002);
    QCOMPARE(int(VoidPlot::MenuEditCustomScale), 0x004);
    QCOMPARE(int(VoidPlot::MenuDragZoom), 0x008);
    QCOMPARE(int(VoidPlot::MenuAutoScroll), 0x010);
    QCOMPARE(int(VoidPlot::MenuPlotImageToFile), 0x020);
    QCOMPARE(int(VoidPlot::MenuTextDataToFile), 0x040);
    QCOMPARE(int(VoidPlot::MenuCustomPlot), 0x080);
    QCOMPARE(int(VoidPlot::MenuPlotImageToClipboard), 0x100);
    QCOMPARE(int(VoidPlot::MenuTextDataToClipboard), 0x200);
    QCOMPARE(int(VoidPlot::MenuPeakLabel), 0x400);

    QCOMPARE(int(VoidPlot::MarkerAttrHide), 1);
    QCOMPARE(int(VoidPlot::MarkerAttrShow), 2);
    QCOMPARE(int(VoidPlot::MarkerAttrLineClear), 4);
    QCOMPARE(int(VoidPlot::MarkerAttrLineOpaque), 8);
    QCOMPARE(int(VoidPlot::MarkerAttrSymbolNone), 16);
    QCOMPARE(int(VoidPlot::MarkerAttrSymbolOn), 32);
    QCOMPARE(int(VoidPlot::MarkerAttrLabelClear), 64);

    QCOMPARE(int(VoidPlot::ShiftLeft), 0);
    QCOMPARE(int(VoidPlot::ShiftRight), 1);
    QCOMPARE(int(VoidPlot::ShiftHome), 2);
    QCOMPARE(int(VoidPlot::ShiftEnd), 3);
}

void tst_VoidPlotConstruction::plotNameIsEmpty()
{
    VoidPlot plot;
    QVERIFY(plot.plotName().isEmpty());
}

void tst_VoidPlotConstruction::titleDrawsWithTheTitleLabelFont()
{
    VoidPlot plot;
    QCOMPARE(plot.title().font(), plot.titleLabel()->font());
}

void tst_VoidPlotConstruction::minimumHeightAndCanvasBackground()
{
    VoidPlot plot;
    QCOMPARE(plot.minimumHeight(), PlotDefault::PlotMinHeight);
    QCOMPARE(plot.canvasBackground().color(), PlotDefault::CanvasBackground);
    QCOMPARE(plot.canvasBackground().style(), Qt::SolidPattern);
}

void tst_VoidPlotConstruction::tickLimitsOfTheThreeAxes()
{
    VoidPlot plot;
    QCOMPARE(plot.axisMaxMajor(QwtPlot::xBottom), PlotDefault::XAxisLinearScaleMaxMajor);
    QCOMPARE(plot.axisMaxMinor(QwtPlot::xBottom), PlotDefault::XAxisLinearScaleMaxMinor);
    QCOMPARE(plot.axisMaxMajor(QwtPlot::yLeft), PlotDefault::YAxisLinearScaleMaxMajor);
    QCOMPARE(plot.axisMaxMinor(QwtPlot::yLeft), PlotDefault::YAxisLinearScaleMaxMinor);
    QCOMPARE(plot.axisMaxMajor(QwtPlot::yRight), PlotDefault::YAxisLinearScaleMaxMajor);
    QCOMPARE(plot.axisMaxMinor(QwtPlot::yRight), PlotDefault::YAxisLinearScaleMaxMinor);
}

void tst_VoidPlotConstruction::leftAxisStartsFixedAtDefaultRange()
{
    VoidPlot plot;
    QVERIFY(!plot.axisAutoScale(QwtPlot::yLeft));
    plot.updateAxes();
    QCOMPARE(plot.axisScaleDiv(QwtPlot::yLeft).lowerBound(), PlotDefault::YLower);
    QCOMPARE(plot.axisScaleDiv(QwtPlot::yLeft).upperBound(), PlotDefault::YUpper);
}

void tst_VoidPlotConstruction::xAxisHasPositiveLinearEngineAndAutoScale()
{
    VoidPlot plot;
    auto *engine = dynamic_cast<PositiveLinearScaleEngine *>(plot.axisScaleEngine(QwtPlot::xBottom));
    QVERIFY(engine);
    QCOMPARE(engine->base(), 10.0);
    QVERIFY(plot.axisAutoScale(QwtPlot::xBottom));
    QVERIFY(!dynamic_cast<PositiveLinearScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
}

void tst_VoidPlotConstruction::axisTitlesHaveNormalWeight()
{
    VoidPlot plot;
    for (int axisId : {int(QwtPlot::xBottom), int(QwtPlot::xTop), int(QwtPlot::yLeft),
                       int(QwtPlot::yRight)}) {
        QCOMPARE(plot.axisTitle(axisId).font().weight(), QFont::Normal);
    }
}

void tst_VoidPlotConstruction::canvasFrameIsPlainStyledPanel()
{
    VoidPlot plot;
    auto *frame = qobject_cast<QFrame *>(plot.canvas());
    QVERIFY(frame);
    QCOMPARE(frame->frameShadow(), QFrame::Plain);
    QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
}

void tst_VoidPlotConstruction::bottomAndLeftScalesHaveNoMargin()
{
    VoidPlot plot;
    QCOMPARE(plot.axisWidget(QwtPlot::xBottom)->margin(), 0);
    QCOMPARE(plot.axisWidget(QwtPlot::yLeft)->margin(), 0);
}

void tst_VoidPlotConstruction::gridHasCosmeticPensOfDefaultColours()
{
    VoidPlotProbe plot;
    QVERIFY(plot.grid);
    QCOMPARE(plot.grid->plot(), &plot);
    QCOMPARE(plot.grid->majorPen().color(), PlotDefault::GridMajorColor);
    QCOMPARE(plot.grid->minorPen().color(), PlotDefault::GridMinorColor);
    QCOMPARE(plot.grid->majorPen().widthF(), 0.0);
    QCOMPARE(plot.grid->minorPen().widthF(), 0.0);
    QCOMPARE(plot.grid->majorPen().style(), Qt::SolidLine);
    QVERIFY(!plot.grid->yMinEnabled());
}

void tst_VoidPlotConstruction::magnifierHasNoMouseButton()
{
    VoidPlot plot;
    QwtPlotMagnifier *magnifier = findMagnifier(plot.canvas());
    QVERIFY(magnifier);
    Qt::MouseButton button = Qt::LeftButton;
    Qt::KeyboardModifiers modifiers = Qt::ShiftModifier;
    magnifier->getMouseButton(button, modifiers);
    QCOMPARE(button, Qt::NoButton);
    QCOMPARE(modifiers, Qt::NoModifier);
    QVERIFY(magnifier->isEnabled());
}

void tst_VoidPlotConstruction::pannerUsesLeftButtonAndSkipsRightAxis()
{
    VoidPlotProbe plot;
    QVERIFY(plot.panner);
    QCOMPARE(plot.panner->parent(), plot.canvas());
    QCOMPARE(plot.panner->cursor().shape(), Qt::ClosedHandCursor);
    QVERIFY(!plot.panner->isAxisEnabled(QwtPlot::yRight));
    QVERIFY(plot.panner->isAxisEnabled(QwtPlot::yLeft));
    QVERIFY(plot.panner->isAxisEnabled(QwtPlot::xBottom));
    QVERIFY(plot.panner->isAxisEnabled(QwtPlot::xTop));
    Qt::MouseButton button = Qt::NoButton;
    Qt::KeyboardModifiers modifiers = Qt::ShiftModifier;
    plot.panner->getMouseButton(button, modifiers);
    QCOMPARE(button, Qt::LeftButton);
    QCOMPARE(modifiers, Qt::NoModifier);
    QVERIFY(plot.panner->isEnabled());
}

void tst_VoidPlotConstruction::boxZoomPickerUsesRightButtonAndNoKey()
{
    VoidPlotProbe plot;
    QwtPlotPicker *picker = plot.zoomPicker;
    QVERIFY(picker);
    QCOMPARE(picker->parent(), plot.canvas());
    QCOMPARE(picker->xAxis(), int(QwtPlot::xBottom));
    QCOMPARE(picker->yAxis(), int(QwtPlot::yLeft));
    QCOMPARE(picker->rubberBand(), QwtPicker::RectRubberBand);
    QCOMPARE(picker->trackerMode(), QwtPicker::AlwaysOff);
    QCOMPARE(picker->rubberBandPen().color(), QColor(Qt::black));
    QVERIFY(dynamic_cast<const QwtPickerDragRectMachine *>(picker->stateMachine()));
    const QList<QwtEventPattern::MousePattern> &mouse = picker->mousePattern();
    QCOMPARE(mouse[QwtEventPattern::MouseSelect1].button, Qt::RightButton);
    QCOMPARE(mouse[QwtEventPattern::MouseSelect1].modifiers, Qt::KeyboardModifiers(Qt::NoModifier));
    const QList<QwtEventPattern::KeyPattern> &keys = picker->keyPattern();
    QCOMPARE(keys[QwtEventPattern::KeySelect1].key, int(Qt::Key_unknown));
    QVERIFY(picker->isEnabled());
}

void tst_VoidPlotConstruction::focusPolicyIsStrong()
{
    VoidPlot plot;
    QCOMPARE(plot.focusPolicy(), Qt::StrongFocus);
}

void tst_VoidPlotConstruction::markerLabelTemplate()
{
    VoidPlotProbe plot;
    const QwtText &label = plot.markerLabel;
    QCOMPARE(label.color(), PlotDefault::MarkerLabelColor);
    QCOMPARE(label.font(), plot.axisFont(QwtPlot::yLeft));
    QCOMPARE(label.backgroundBrush().color(), PlotDefault::MarkerLabelBgColor);
    QCOMPARE(label.backgroundBrush().style(), Qt::SolidPattern);
    QCOMPARE(label.borderPen().widthF(), 10.0);
    QCOMPARE(label.borderPen().color(), PlotDefault::MarkerLabelBgColor);
    QCOMPARE(label.borderPen().style(), Qt::SolidLine);
    QCOMPARE(label.borderPen().capStyle(), Qt::SquareCap);
    QCOMPARE(label.borderPen().joinStyle(), Qt::BevelJoin);
    QCOMPARE(label.borderRadius(), 3.0);
    QCOMPARE(label.renderFlags(), int(Qt::AlignLeft));
}

void tst_VoidPlotConstruction::frameMarkerIsHiddenVerticalLine()
{
    VoidPlotProbe plot;
    QwtPlotMarker *marker = plot.marker;
    QVERIFY(marker);
    QCOMPARE(marker->plot(), &plot);
    QVERIFY(!marker->isVisible());
    QCOMPARE(marker->lineStyle(), QwtPlotMarker::VLine);
    QCOMPARE(marker->labelAlignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(marker->spacing(), 15);
    QCOMPARE(marker->linePen().color(), PlotDefault::MarkerColor);
    QCOMPARE(marker->linePen().width(), PlotDefault::MarkerWidth);
    QVERIFY(!marker->symbol());
    QVERIFY(plot.seriesMarkers.isEmpty());
}

void tst_VoidPlotConstruction::selectionMarkerStaysNullAndItsLabelIsReddish()
{
    VoidPlotProbe plot;
    QVERIFY(!plot.selectionMarker);
    QCOMPARE(plot.selectionMarkerLabel.backgroundBrush().color(),
             PlotDefault::SelectionMarkerLabelBgColor);
    QCOMPARE(plot.selectionMarkerLabel.borderPen().color(), PlotDefault::SelectionMarkerLabelBgColor);
    QCOMPARE(plot.selectionMarkerLabel.borderPen().widthF(), 10.0);
    QCOMPARE(plot.selectionMarkerLabel.color(), plot.markerLabel.color());
    QCOMPARE(plot.selectionMarkerLabel.font(), plot.markerLabel.font());
    QCOMPARE(plot.selectionMarkerLabel.borderRadius(), 3.0);
}

void tst_VoidPlotConstruction::peakLabelFormatDefaults()
{
    VoidPlotProbe plot;
    const PeakLabelFormat &format = plot.getPeakLabelFormat();
    QCOMPARE(format.textRotation(), PlotDefault::PeakLabelRotation);
    QCOMPARE(format.font(), plot.axisFont(QwtPlot::yLeft));
    QCOMPARE(format.color(), QColor(QStringLiteral("#404040")));
}

void tst_VoidPlotConstruction::flagsAfterConstruction()
{
    VoidPlotProbe plot;
    QVERIFY(!plot.isDarkMode());
    QVERIFY(!plot.logScale);
    QVERIFY(!plot.dragZoom);
    QVERIFY(!plot.peakLabelVisible);
    QVERIFY(plot.autoScroll);
    QVERIFY(!plot.isAutoScroll()); // no MenuAutoScroll in the frame
    QCOMPARE(plot.xScaleType, CustomScale::MassScale);
    QCOMPARE(plot.logScaleMinY(), PlotDefault::YLower);
    QCOMPARE(plot.chartColor(), PlotDefault::ChartColor);
    QVERIFY(plot.isMarkerVisible());
    QVERIFY(plot.isMarkerLabelVisible());
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignTop);
    QCOMPARE(plot.markerLabelSortOption(), Figura::MarkerLabelSortDefault);
    QCOMPARE(plot.moveMarkerKeyModifier(), int(Qt::NoModifier));
    QVERIFY(!plot.customScaleSettings);
    QVERIFY(!plot.plotLegend());
    QVERIFY(plot.subTitle().isEmpty());
    QCOMPARE(plot.mousePressPosition(), QPoint(0, 0));
    QVERIFY(plot.isEnabled());
    for (QwtScaleDiv *division : {plot.xScaleDiv, plot.yLeftScaleDiv, plot.yRightScaleDiv}) {
        QVERIFY(division);
        QCOMPARE(division->lowerBound(), 0.0);
        QCOMPARE(division->upperBound(), 0.0);
    }
}

void tst_VoidPlotConstruction::replotTimerIsSingleShotOfReplotDelay()
{
    VoidPlotProbe plot;
    QVERIFY(plot.replotTimer);
    QCOMPARE(plot.replotTimer->parent(), &plot);
    QVERIFY(plot.replotTimer->isSingleShot());
    QCOMPARE(plot.replotTimer->interval(), PlotDefault::ReplotDelay);
    QVERIFY(!plot.replotTimer->isActive());
    QVERIFY(!plot.autoReplot());
}

void tst_VoidPlotConstruction::canvasTracksTheMouse()
{
    VoidPlot plot;
    QVERIFY(plot.canvas()->hasMouseTracking());
}

void tst_VoidPlotConstruction::defaultSnapshots()
{
    VoidPlotProbe plot;
    QwtText title = plot.title();
    title.setColor(PlotDefault::TitleTextColor);
    QCOMPARE(plot.defaultPlotTitle(), title);
    QwtText axisTitle = plot.axisTitle(QwtPlot::xBottom);
    axisTitle.setColor(PlotDefault::TitleTextColor);
    QCOMPARE(plot.defaultAxisTitle(QwtPlot::xBottom), axisTitle);
    QCOMPARE(plot.defaultTickLabel(QwtPlot::xBottom), plot.tickLabel(QwtPlot::xBottom));
    QCOMPARE(plot.defaultMarkerLabel(), plot.markerLabel);
    QCOMPARE(plot.defaultPeakLabelFormat(), plot.getPeakLabelFormat());

    // Snapshots: later changes don't reach them.
    plot.setMarkerLabelBgColor(Qt::yellow);
    QCOMPARE(plot.defaultMarkerLabel().backgroundBrush().color(), PlotDefault::MarkerLabelBgColor);
}

void tst_VoidPlotConstruction::defaultAxisTitleIsTheXAxisSnapshotForEveryAxis()
{
    VoidPlot plot;
    TestSupport::setAxisTitleText(plot, QwtPlot::yLeft, QStringLiteral("Intensity"));
    QCOMPARE(plot.defaultAxisTitle(QwtPlot::yLeft), plot.defaultAxisTitle(QwtPlot::xBottom));
    QCOMPARE(plot.defaultAxisTitle(QwtPlot::yRight), plot.defaultAxisTitle(QwtPlot::xBottom));
    QCOMPARE(plot.defaultTickLabel(QwtPlot::yLeft), plot.defaultTickLabel(QwtPlot::xBottom));
}

void tst_VoidPlotConstruction::axisValueTextUsesSixDigits()
{
    VoidPlotProbe plot;
    QCOMPARE(plot.axisValueText(QwtPlot::xBottom, 1234567.0), QLocale().toString(1234567.0, 'g', 6));
    QCOMPARE(plot.axisValueText(99, 0.5), QLocale().toString(0.5, 'g', 6));
}

void tst_VoidPlotConstruction::darkModeTwiceEmitsOnceAndChangesNoColour()
{
    VoidPlotProbe plot;
    QSignalSpy spy(&plot, &VoidPlot::darkModeEnabled);
    plot.enableDarkMode(true);
    plot.enableDarkMode(true);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QVERIFY(plot.isDarkMode());
    QCOMPARE(plot.canvasBackground().color(), PlotDefault::CanvasBackground);
    QCOMPARE(plot.grid->majorPen().color(), PlotDefault::GridMajorColor);
    QCOMPARE(plot.marker->linePen().color(), PlotDefault::MarkerColor);
    plot.enableDarkMode(false);
    QCOMPARE(spy.count(), 2);
    QVERIFY(!plot.isDarkMode());
}

void tst_VoidPlotConstruction::legendIsCreatedOnceAndKeepsItsPosition()
{
    VoidPlot plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtLegend *legend = plot.plotLegend();
    QVERIFY(legend);
    QCOMPARE(plot.legend(), static_cast<QwtAbstractLegend *>(legend));
    QCOMPARE(legend->defaultItemMode(), QwtLegendData::Checkable);
    QCOMPARE(plot.plotLayout()->legendPosition(), QwtPlot::RightLegend);

    plot.enableLegend(QwtPlot::BottomLegend);
    QCOMPARE(plot.plotLegend(), legend);
    QCOMPARE(plot.plotLayout()->legendPosition(), QwtPlot::RightLegend);
}

void tst_VoidPlotConstruction::legendCanBeDisabledAndEnabledAgain()
{
    VoidPlot plot;
    plot.disableLegend(); // none yet: nothing happens
    QVERIFY(!plot.plotLegend());

    plot.enableLegend(QwtPlot::RightLegend);
    QPointer<QwtLegend> first = plot.plotLegend();
    plot.disableLegend();
    QVERIFY(!first);
    QVERIFY(!plot.plotLegend());
    QVERIFY(!plot.legend());

    plot.enableLegend(QwtPlot::TopLegend);
    QVERIFY(plot.plotLegend());
    QCOMPARE(plot.plotLayout()->legendPosition(), QwtPlot::TopLegend);
}

void tst_VoidPlotConstruction::legendCheckBoxTogglesTheItem()
{
    ReplotCounter<VoidPlotProbe> plot;
    plot.settle();
    plot.enableLegend(QwtPlot::RightLegend);
    auto *item = new QwtPlotMarker(QStringLiteral("item"));
    item->setItemAttribute(QwtPlotItem::Legend, true);
    item->attach(&plot);
    item->setVisible(true);
    QwtLegend *legend = plot.plotLegend();

    emit legend->checked(plot.itemToInfo(item), false, 0);
    QVERIFY(!item->isVisible());
    QTRY_COMPARE(plot.replots, 1);
    emit legend->checked(plot.itemToInfo(item), true, 0);
    QVERIFY(item->isVisible());

    // An unknown item still requests a replot and changes nothing else.
    emit legend->checked(QVariant(), false, 0);
    QVERIFY(item->isVisible());
}

void tst_VoidPlotConstruction::chartColorIgnoresInvalidAndEqual()
{
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::chartColorChanged);
    plot.setChartColor(QColor());
    plot.setChartColor(PlotDefault::ChartColor);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.chartColor(), PlotDefault::ChartColor);

    plot.setChartColor(Qt::magenta);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QColor>(), QColor(Qt::magenta));
    QCOMPARE(plot.chartColor(), QColor(Qt::magenta));
}

void tst_VoidPlotConstruction::canvasAndGridColoursEmitOnRealChange()
{
    ReplotCounter<VoidPlotProbe> plot;
    plot.settle();
    QSignalSpy canvasSpy(&plot, &VoidPlot::canvasBgColorChanged);
    QSignalSpy majorSpy(&plot, &VoidPlot::majorGridColorChanged);
    QSignalSpy minorSpy(&plot, &VoidPlot::minorGridColorChanged);

    plot.setCanvasBgColor(PlotDefault::CanvasBackground);
    plot.setMajorGridColor(PlotDefault::GridMajorColor);
    plot.setMinorGridColor(PlotDefault::GridMinorColor);
    QCOMPARE(canvasSpy.count() + majorSpy.count() + minorSpy.count(), 0);

    plot.setCanvasBgColor(Qt::darkGray);
    plot.setMajorGridColor(Qt::blue);
    plot.setMinorGridColor(Qt::cyan);
    QCOMPARE(canvasSpy.count(), 1);
    QCOMPARE(majorSpy.count(), 1);
    QCOMPARE(minorSpy.count(), 1);
    QCOMPARE(plot.canvasBackground().color(), QColor(Qt::darkGray));
    QCOMPARE(plot.grid->majorPen().color(), QColor(Qt::blue));
    QCOMPARE(plot.grid->majorPen().widthF(), 0.0);
    QCOMPARE(plot.grid->minorPen().color(), QColor(Qt::cyan));
    QCOMPARE(majorSpy.at(0).at(0).value<QColor>(), QColor(Qt::blue));

    // The caller replots, not the setters.
    QTest::qWait(2 * PlotDefault::ReplotDelay);
    QCOMPARE(plot.replots, 0);
}

void tst_VoidPlotConstruction::colourSettersIgnoreInvalidColours()
{
    VoidPlotProbe plot;
    QSignalSpy canvasSpy(&plot, &VoidPlot::canvasBgColorChanged);
    QSignalSpy majorSpy(&plot, &VoidPlot::majorGridColorChanged);
    QSignalSpy minorSpy(&plot, &VoidPlot::minorGridColorChanged);
    plot.setCanvasBgColor(QColor());
    plot.setMajorGridColor(QColor());
    plot.setMinorGridColor(QColor());
    QCOMPARE(canvasSpy.count() + majorSpy.count() + minorSpy.count(), 0);
    QCOMPARE(plot.canvasBackground().color(), PlotDefault::CanvasBackground);
    QCOMPARE(plot.grid->majorPen().color(), PlotDefault::GridMajorColor);
}

void tst_VoidPlotConstruction::plotTitleEmitsOnlyOnChange()
{
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::plotTitleChanged);
    plot.setPlotTitle(plot.title());
    QCOMPARE(spy.count(), 0);

    QwtText title = plot.title();
    title.setText(QStringLiteral("Spectrum"));
    plot.setPlotTitle(title);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).value<QwtText>().text(), QStringLiteral("Spectrum"));
    QCOMPARE(plot.title().text(), QStringLiteral("Spectrum"));
    QVERIFY(plot.subTitle().isEmpty());

    plot.setPlotTitle(title);
    QCOMPARE(spy.count(), 1);
}

void tst_VoidPlotConstruction::plotTitleComparesWithSubTitle()
{
    VoidPlot plot;
    QwtText composed = plot.title();
    composed.setText(QStringLiteral("Run 7: Spectrum"));
    plot.setPlotTitle(composed);
    plot.setSubTitle(QStringLiteral("Spectrum"));
    QCOMPARE(plot.subTitle(), QStringLiteral("Spectrum"));

    QSignalSpy spy(&plot, &VoidPlot::plotTitleChanged);
    // The current title differs in text from the sub-title: a change.
    plot.setPlotTitle(plot.title());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(plot.subTitle(), QStringLiteral("Run 7: Spectrum"));

    // The sub-title's text on the current title counts as equal.
    QwtText same = plot.title();
    same.setText(plot.subTitle());
    plot.setPlotTitle(same);
    QCOMPARE(spy.count(), 1);
}

void tst_VoidPlotConstruction::customPlotOptionsIsAPlainStore()
{
    VoidPlotProbe plot;
    QPointer<QAction> log = plot.logScaleAct;
    plot.setCustomPlotOptions(0x7FF);
    QCOMPARE(plot.customPlotOptions(), 0x7FF);
    QCOMPARE(plot.contextMenuItems(), 0x3EF);
    QCOMPARE(plot.logScaleAct, log.data());
    plot.setCustomPlotOptions(0);
    QCOMPARE(plot.customPlotOptions(), 0);
}

void tst_VoidPlotConstruction::tenReplotLaterCallsGiveOneReplot()
{
    ReplotCounter<VoidPlot> plot;
    QVERIFY(TestSupport::showActive(plot));
    QTRY_VERIFY(plot.replots >= 1); // the polish replot
    QTest::qWait(2 * PlotDefault::ReplotDelay);
    plot.replots = 0;

    for (int i = 0; i < 10; ++i)
        plot.replotLater();
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QTest::qWait(10 * PlotDefault::ReplotDelay);
    QCOMPARE(plot.replots, 1);
}

void tst_VoidPlotConstruction::replotLaterDoesNotReplotAtOnce()
{
    ReplotCounter<VoidPlotProbe> plot;
    plot.settle();
    plot.replotLater();
    QVERIFY(plot.replotTimer->isActive());
    QCOMPARE(plot.replots, 0);
    QTRY_COMPARE(plot.replots, 1);
    QVERIFY(!plot.replotTimer->isActive());
}

void tst_VoidPlotConstruction::tickLabelReadsFontColourAndRotation()
{
    VoidPlot plot;
    plot.setAxisLabelRotation(QwtPlot::yLeft, -30.7);
    const TickLabelFormat format = plot.tickLabel(QwtPlot::yLeft);
    QCOMPARE(format.font, plot.axisFont(QwtPlot::yLeft));
    QCOMPARE(format.color, plot.axisWidget(QwtPlot::yLeft)->palette().color(QPalette::Text));
    QCOMPARE(format.rotation, -30); // cut towards zero
    QCOMPARE(plot.tickLabel(QwtPlot::xBottom).rotation, 0);
}

void tst_VoidPlotConstruction::tickLabelOfUnknownAxisHasOnlyDefaults()
{
    VoidPlot plot;
    const TickLabelFormat format = plot.tickLabel(99);
    QVERIFY(!format.color.isValid());
    QCOMPARE(format.rotation, 0);
}

void tst_VoidPlotConstruction::setTickLabelAppliesAndEmitsOnce()
{
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::tickLabelChanged);
    TickLabelFormat format = plot.tickLabel(QwtPlot::yLeft);
    plot.setTickLabel(QwtPlot::yLeft, format);
    QCOMPARE(spy.count(), 0);

    format.font.setPointSize(format.font.pointSize() + 3);
    format.color = Qt::darkRed;
    format.rotation = 45;
    plot.setTickLabel(QwtPlot::yLeft, format);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), int(QwtPlot::yLeft));
    QCOMPARE(spy.at(0).at(1).value<TickLabelFormat>(), format);
    QCOMPARE(plot.axisFont(QwtPlot::yLeft), format.font);
    QCOMPARE(plot.axisWidget(QwtPlot::yLeft)->palette().color(QPalette::Active, QPalette::Text),
             QColor(Qt::darkRed));
    QCOMPARE(plot.axisWidget(QwtPlot::yLeft)->palette().color(QPalette::Disabled, QPalette::Text),
             QColor(Qt::darkRed));
    QCOMPARE(plot.axisWidget(QwtPlot::yLeft)->scaleDraw()->labelRotation(), 45.0);
    QCOMPARE(plot.tickLabel(QwtPlot::yLeft), format);
}

void tst_VoidPlotConstruction::setTickLabelSkipsInvalidColourAndRotation()
{
    VoidPlot plot;
    const TickLabelFormat before = plot.tickLabel(QwtPlot::xBottom);
    QSignalSpy spy(&plot, &VoidPlot::tickLabelChanged);

    TickLabelFormat format = before;
    format.color = QColor();
    format.rotation = 100;
    QVERIFY(!format.isRotationValid());
    plot.setTickLabel(QwtPlot::xBottom, format);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.tickLabel(QwtPlot::xBottom), before);

    // With a real change elsewhere, the bad parts stay skipped.
    format.font.setItalic(!format.font.italic());
    plot.setTickLabel(QwtPlot::xBottom, format);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(plot.tickLabel(QwtPlot::xBottom).color, before.color);
    QCOMPARE(plot.tickLabel(QwtPlot::xBottom).rotation, 0);
}

void tst_VoidPlotConstruction::setTickLabelOfUnknownAxisDoesNothing()
{
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::tickLabelChanged);
    TickLabelFormat format;
    format.color = Qt::red;
    format.rotation = 10;
    plot.setTickLabel(99, format);
    plot.setTickLabel(-1, format);
    QCOMPARE(spy.count(), 0);
}

void tst_VoidPlotConstruction::setAxisCustomTitleWithEmptyTextChangesFontOnly()
{
    VoidPlot plot;
    QwtText named = plot.axisTitle(QwtPlot::xBottom);
    named.setText(QStringLiteral("Mass"));
    plot.setAxisTitle(QwtPlot::xBottom, named);

    QSignalSpy spy(&plot, &VoidPlot::axisTitleChanged);
    QFont font = named.font();
    font.setPointSize(font.pointSize() + 4);
    QwtText text;
    text.setFont(font);
    plot.setAxisCustomTitle(QwtPlot::xBottom, text);

    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Mass"));
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).font(), font);
    QCOMPARE(spy.count(), 1);
    const QwtText changes = spy.at(0).at(1).value<QwtText>();
    QCOMPARE(changes.font(), font);
    QVERIFY(changes.text().isEmpty());
    QVERIFY(!changes.color().isValid());
}

void tst_VoidPlotConstruction::setAxisCustomTitleWithEqualTitleEmitsNothing()
{
    VoidPlot plot;
    QwtText title = plot.axisTitle(QwtPlot::yLeft);
    title.setText(QStringLiteral("Current"));
    title.setColor(Qt::black);
    plot.setAxisTitle(QwtPlot::yLeft, title);

    QSignalSpy spy(&plot, &VoidPlot::axisTitleChanged);
    plot.setAxisCustomTitle(QwtPlot::yLeft, title);
    QCOMPARE(spy.count(), 0);
}

void tst_VoidPlotConstruction::setAxisCustomTitleSignalCarriesOnlyWhatChanged()
{
    VoidPlot plot;
    QwtText title = plot.axisTitle(QwtPlot::yLeft);
    title.setText(QStringLiteral("Current"));
    title.setColor(Qt::black);
    plot.setAxisTitle(QwtPlot::yLeft, title);

    QSignalSpy spy(&plot, &VoidPlot::axisTitleChanged);
    QwtText text = title;
    text.setText(QStringLiteral("Pressure"));
    plot.setAxisCustomTitle(QwtPlot::yLeft, text);
    QCOMPARE(spy.count(), 1);
    QwtText changes = spy.takeFirst().at(1).value<QwtText>();
    QCOMPARE(changes.text(), QStringLiteral("Pressure"));
    QVERIFY(!changes.color().isValid());
    QCOMPARE(changes.font(), title.font());

    text.setColor(Qt::darkGreen);
    plot.setAxisCustomTitle(QwtPlot::yLeft, text);
    QCOMPARE(spy.count(), 1);
    changes = spy.takeFirst().at(1).value<QwtText>();
    QVERIFY(changes.text().isEmpty());
    QCOMPARE(changes.color(), QColor(Qt::darkGreen));
    QCOMPARE(plot.axisTitle(QwtPlot::yLeft).color(), QColor(Qt::darkGreen));

    // An invalid colour keeps the title's colour.
    text.setColor(QColor());
    plot.setAxisCustomTitle(QwtPlot::yLeft, text);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.axisTitle(QwtPlot::yLeft).color(), QColor(Qt::darkGreen));
}

void tst_VoidPlotConstruction::setAxisCustomTitleOfUnknownAxisDoesNothing()
{
    VoidPlot plot;
    QSignalSpy spy(&plot, &VoidPlot::axisTitleChanged);
    plot.setAxisCustomTitle(99, QwtText(QStringLiteral("Nowhere")));
    plot.setAxisCustomTitle(-1, QwtText(QStringLiteral("Nowhere")));
    QCOMPARE(spy.count(), 0);
}

void tst_VoidPlotConstruction::axisEngineSettersIgnoreUnknownAxis()
{
    VoidPlot plot;
    plot.setAxisLogScaleEngine(99);
    plot.setAxisLinearScaleEngine(-3);
    plot.setAxisLogScaleEngine(QwtPlot::yRight);
    QVERIFY(dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yRight)));
    QCOMPARE(plot.axisScaleEngine(QwtPlot::yRight)->base(), 10.0);
    plot.setAxisLinearScaleEngine(QwtPlot::yRight);
    QVERIFY(dynamic_cast<QwtLinearScaleEngine *>(plot.axisScaleEngine(QwtPlot::yRight)));
    QCOMPARE(plot.axisScaleEngine(QwtPlot::yRight)->base(), 10.0);
}

void tst_VoidPlotConstruction::destructionFreesToolsAndActions()
{
    auto *plot = new VoidPlotProbe;
    plot->setContextMenuItems(0x7FF);
    QPointer<QObject> panner = plot->panner;
    QPointer<QObject> picker = plot->zoomPicker;
    QPointer<QObject> magnifier = findMagnifier(plot->canvas());
    QPointer<QObject> timer = plot->replotTimer;
    QList<QPointer<QAction>> actions;
    const QList<QAction *> all = plot->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(all.size(), 11);
    for (QAction *action : all)
        actions << action;
    plot->enableLegend(QwtPlot::RightLegend);
    QPointer<QObject> legend = plot->plotLegend();

    delete plot;
    QVERIFY(!panner);
    QVERIFY(!picker);
    QVERIFY(!magnifier);
    QVERIFY(!timer);
    QVERIFY(!legend);
    for (const QPointer<QAction> &action : std::as_const(actions))
        QVERIFY(!action);
}

QTEST_MAIN(tst_VoidPlotConstruction)
#include "tst_voidplot_construction.moc"
