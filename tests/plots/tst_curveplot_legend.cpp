// The curve legend: binding an entry to its curve, switching curves on and
// off by real clicks on their entries, the entry's context menu with its one
// action, and the guard against curves removed while the menu is open.

#include "CurvePlotProbe.h"

#include <TestSupport.h>

#include <figura/dialogs/CurveSettingDialog.h>
#include <figura/plots/LegendPicker.h>

#include <QAction>
#include <QLocale>
#include <QMenu>
#include <QPointer>
#include <QtTest>

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>

using TestSupport::activeModal;
using TestSupport::activePopup;
using TestSupport::menuEntries;
using TestSupport::showActive;
using TestSupport::WhenShown;

namespace {

const QString BR = QStringLiteral("<br>");

QVector<QPointF> line(const QVector<double> &xs, double y)
{
    QVector<QPointF> samples;
    for (double x : xs)
        samples.append(QPointF(x, y));
    return samples;
}

QwtPlotCurve *curveAt(const QString &title, double y, const QColor &color)
{
    QwtPlotCurve *curve = makeCurve(title, line({1, 2, 3}, y));
    curve->setPen(QPen(color, 2));
    return curve;
}

QString legendLine(const QwtPlotCurve *curve, const QString &value)
{
    return QStringLiteral("<font color=\"") + curve->pen().color().name() + QStringLiteral("\">")
        + PlotDefault::HTML::SquareChar + QStringLiteral(" </font>") + curve->title().text()
        + QStringLiteral(": ") + value;
}

// Picks the menu's entry of that text, as a user would with the keyboard.
void pickEntry(QWidget *popup, const QString &text)
{
    auto *menu = qobject_cast<QMenu *>(popup);
    QVERIFY(menu);
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (QString(action->text()).remove(QLatin1Char('&')) == text)
            menu->setActiveAction(action);
    }
    QVERIFY(menu->activeAction());
    QTest::keyClick(menu, Qt::Key_Return);
}

void closeMenu(QWidget *popup)
{
    QTest::keyClick(popup, Qt::Key_Escape);
}

// A curve plot that records the menus it is asked for and the dialogs it
// runs, and passes both on unless told not to.
class LegendPlot : public CurvePlotProbe
{
public:
    using CurvePlotProbe::CurvePlotProbe;

    bool openMenus = true;
    QList<QwtPlotCurve *> menuCurves;
    QList<QwtPlotCurve *> editedCurves;
    QList<bool> editResults;

    void createLegendContextMenu(QwtPlotCurve *curve, QContextMenuEvent *event) override
    {
        menuCurves.append(curve);
        if (openMenus)
            CurvePlot::createLegendContextMenu(curve, event);
    }

    bool editCurveAttributes(QwtPlotCurve *curve) override
    {
        // The pointer is only recorded: it may be dangling by now.
        editedCurves.append(curve);
        const bool result = CurvePlot::editCurveAttributes(curve);
        editResults.append(result);
        return result;
    }

    QwtLegendLabel *labelOf(QwtPlotItem *item)
    {
        return plotLegend() ? qobject_cast<QwtLegendLabel *>(plotLegend()->legendWidget(itemToInfo(item)))
                            : nullptr;
    }

    // Appends a curve "traced" on 1, 2, 3 that counts its deaths in deaths.
    TracedCurve *appendTraced(int *deaths)
    {
        auto *traced = new TracedCurve(QStringLiteral("traced"), deaths);
        traced->setSamples(line({1, 2, 3}, 3.0));
        appendCurve(traced, true);
        return traced;
    }

    // Gives the curve its legend entry and lays it out; whether it shows.
    bool showEntryOf(QwtPlotCurve *curve)
    {
        setLegend(curve);
        replot();
        QCoreApplication::processEvents();
        return labelOf(curve) && labelOf(curve)->isVisible();
    }
};

// The curve dialog, once it runs.
QWidget *activeCurveDialog()
{
    return dynamic_cast<CurveSettingDialog *>(activeModal());
}

// Where a click on the entry lands, in the plot window.
QPoint entryPoint(LegendPlot &plot, QwtPlotItem *item)
{
    QwtLegendLabel *label = plot.labelOf(item);
    return label ? label->mapTo(&plot, label->rect().center()) : QPoint();
}

void clickEntry(LegendPlot &plot, QwtPlotItem *item, Qt::MouseButton button)
{
    QTest::mouseClick(plot.windowHandle(), button, Qt::NoModifier, entryPoint(plot, item));
}

} // namespace

class tst_CurvePlotLegend : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

private:
    // Shows the plot with a right legend, both axes on 0 to 10 and the x
    // axis titled "Mass", and curves a (y 1, red) and b (y 2, blue) bound to
    // their entries.
    bool prepare(LegendPlot &plot, QwtPlotCurve *&a, QwtPlotCurve *&b);
    int pixelOf(LegendPlot &plot, double x) { return int(plot.transform(QwtPlot::xBottom, x)); }

private slots:
    void init();
    void cleanup();

    void setLegendBeforeEnableLegendDoesNothing();
    void setLegendForCurveNotAttachedDoesNothing();
    void setLegendChecksEntryShowsCurveAndBindsPicker();
    void setLegendWithoutEntryShowsCurveWithoutPicker();
    void setLegendDoesNotReplot();
    void pickerIsOwnedByPlotAndOutlivesCurveAndLegend();

    void clickOnEntryHidesCurveAndDotAndRebuildsLabel();
    void clickOnLastShownEntryLeavesLabelUntilNextPass();
    void clickAgainShowsCurveAndItsLine();
    void switchOfItemThatIsNoStoredCurveOnlyShowsOrHidesIt();

    void rightClickOnEntryOpensLegendMenu();
    void rightClickAsksForTheMenuOfThatEntrysCurve();
    void rightClickOnDisabledPlotGivesNoMenu();
    void secondSetLegendGivesTwoMenus();
    void secondMenuDeletesPreviousAction();

    void menuActionOpensDialogAndAcceptanceChangesCurve();
    void menuActionOpensDialogAndCancelLeavesCurve();
    void curveRemovedDuringMenuOpensNoDialog();
    void actionTriggeredAfterCurveRemovedDoesNothing();
    void curveRemovedDuringDialogIsLeftAlone();
    void curveRemovedDuringDialogFromMenuIsHarmless();
    void legendDisabledDuringMenuIsHarmless();
};

bool tst_CurvePlotLegend::prepare(LegendPlot &plot, QwtPlotCurve *&a, QwtPlotCurve *&b)
{
    TestSupport::setAxisTitleText(plot, QwtPlot::xBottom, QStringLiteral("Mass"));
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 10.0);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 10.0);
    plot.enableLegend(QwtPlot::RightLegend);
    a = curveAt(QStringLiteral("a"), 1.0, Qt::red);
    b = curveAt(QStringLiteral("b"), 2.0, Qt::blue);
    plot.appendCurve(a, true);
    plot.appendCurve(b, true);
    plot.setLegend(a);
    plot.setLegend(b);
    if (!showActive(plot, QSize(500, 300)))
        return false;
    plot.replot();
    QCoreApplication::processEvents();
    plot.settle();
    return plot.labelOf(a) && plot.labelOf(b) && plot.labelOf(a)->isVisible();
}

void tst_CurvePlotLegend::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_CurvePlotLegend::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

// ---------------------------------------------------------------------------
// Binding

void tst_CurvePlotLegend::setLegendBeforeEnableLegendDoesNothing()
{
    LegendPlot plot;
    QwtPlotCurve *curve = curveAt(QStringLiteral("a"), 1.0, Qt::red);
    curve->setVisible(false);
    plot.appendCurve(curve, true);

    plot.setLegend(curve);

    QVERIFY(!curve->isVisible());
    QVERIFY(!curve->testLegendAttribute(QwtPlotCurve::LegendShowSymbol));
    QVERIFY(!curve->testLegendAttribute(QwtPlotCurve::LegendShowLine));
    QVERIFY(plot.findChildren<LegendPicker *>().isEmpty());
}

void tst_CurvePlotLegend::setLegendForCurveNotAttachedDoesNothing()
{
    LegendPlot plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve stranger(QStringLiteral("stranger"));
    stranger.setVisible(false);

    plot.setLegend(&stranger);

    QVERIFY(!stranger.isVisible());
    QVERIFY(!stranger.testLegendAttribute(QwtPlotCurve::LegendShowSymbol));
    QVERIFY(!stranger.testLegendAttribute(QwtPlotCurve::LegendShowLine));
    QVERIFY(plot.findChildren<LegendPicker *>().isEmpty());
}

void tst_CurvePlotLegend::setLegendChecksEntryShowsCurveAndBindsPicker()
{
    LegendPlot plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve *curve = curveAt(QStringLiteral("a"), 1.0, Qt::red);
    plot.appendCurve(curve, true);
    curve->setVisible(false);
    QwtLegendLabel *label = plot.labelOf(curve);
    QVERIFY(label);
    QVERIFY(!label->isChecked());

    plot.setLegend(curve);

    QVERIFY(label->isChecked());
    QVERIFY(curve->isVisible());
    QVERIFY(curve->testLegendAttribute(QwtPlotCurve::LegendShowSymbol));
    QVERIFY(curve->testLegendAttribute(QwtPlotCurve::LegendShowLine));
    const QList<LegendPicker *> pickers = plot.findChildren<LegendPicker *>(Qt::FindDirectChildrenOnly);
    QCOMPARE(pickers.size(), 1);
    QCOMPARE(pickers.first()->parent(), &plot);
}

void tst_CurvePlotLegend::setLegendWithoutEntryShowsCurveWithoutPicker()
{
    LegendPlot plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve *curve = curveAt(QStringLiteral("a"), 1.0, Qt::red);
    // An item that keeps out of the legend has no entry to bind.
    curve->setItemAttribute(QwtPlotItem::Legend, false);
    curve->setVisible(false);
    plot.appendCurve(curve, true);
    QVERIFY(!plot.labelOf(curve));

    plot.setLegend(curve);

    QVERIFY(curve->isVisible());
    QVERIFY(curve->testLegendAttribute(QwtPlotCurve::LegendShowLine));
    QVERIFY(plot.findChildren<LegendPicker *>().isEmpty());
}

void tst_CurvePlotLegend::setLegendDoesNotReplot()
{
    LegendPlot plot;
    plot.enableLegend(QwtPlot::RightLegend);
    QwtPlotCurve *curve = curveAt(QStringLiteral("a"), 1.0, Qt::red);
    plot.appendCurve(curve, true);
    plot.settle();

    plot.setLegend(curve);
    QCoreApplication::processEvents();

    QCOMPARE(plot.replots, 0);
}

void tst_CurvePlotLegend::pickerIsOwnedByPlotAndOutlivesCurveAndLegend()
{
    QPointer<LegendPicker> picker;
    {
        LegendPlot plot;
        plot.enableLegend(QwtPlot::RightLegend);
        QwtPlotCurve *curve = curveAt(QStringLiteral("a"), 1.0, Qt::red);
        plot.appendCurve(curve, true);
        plot.setLegend(curve);
        QCOMPARE(plot.findChildren<LegendPicker *>().size(), 1);
        picker = plot.findChildren<LegendPicker *>().first();

        plot.removeCurve(curve);
        plot.disableLegend();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(picker);
        QVERIFY(plot.menuCurves.isEmpty());
    }
    QVERIFY(!picker);
}

// ---------------------------------------------------------------------------
// Switching curves on and off

void tst_CurvePlotLegend::clickOnEntryHidesCurveAndDotAndRebuildsLabel()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.marker->label().text(), QStringLiteral("Mass: 2.00") + BR
                 + legendLine(a, QStringLiteral("1.0000")) + BR + legendLine(b, QStringLiteral("2.0000")));

    clickEntry(plot, b, Qt::LeftButton);

    QVERIFY(!plot.labelOf(b)->isChecked());
    QVERIFY(!b->isVisible());
    QVERIFY(!plot.seriesMarkers.at(1)->isVisible());
    QVERIFY(a->isVisible());
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    // Rebuilt at once, not on the next pointer move.
    QCOMPARE(plot.marker->label().text(),
             QStringLiteral("Mass: 2.00") + BR + legendLine(a, QStringLiteral("1.0000")));
    QVERIFY(plot.menuCurves.isEmpty());
    QTRY_VERIFY(plot.replots >= 1);
}

void tst_CurvePlotLegend::clickOnLastShownEntryLeavesLabelUntilNextPass()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    clickEntry(plot, b, Qt::LeftButton);
    const QString label = plot.marker->label().text();
    plot.displayCalls.clear();

    clickEntry(plot, a, Qt::LeftButton);

    QVERIFY(!a->isVisible());
    QVERIFY(!plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(plot.displayCalls.isEmpty());
    QCOMPARE(plot.marker->label().text(), label);

    // The next pass has no line left to show.
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    QCOMPARE(plot.marker->label().text(), QStringLiteral("Mass: 2.00"));
}

void tst_CurvePlotLegend::clickAgainShowsCurveAndItsLine()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.displayMarkers(pixelOf(plot, 3.0), QPointF(0, 0));
    clickEntry(plot, a, Qt::LeftButton);
    QCOMPARE(plot.marker->label().text(),
             QStringLiteral("Mass: 3.00") + BR + legendLine(b, QStringLiteral("2.0000")));

    clickEntry(plot, a, Qt::LeftButton);

    QVERIFY(plot.labelOf(a)->isChecked());
    QVERIFY(a->isVisible());
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(3.0, 1.0));
    QCOMPARE(plot.marker->label().text(), QStringLiteral("Mass: 3.00") + BR
                 + legendLine(a, QStringLiteral("1.0000")) + BR + legendLine(b, QStringLiteral("2.0000")));
}

void tst_CurvePlotLegend::switchOfItemThatIsNoStoredCurveOnlyShowsOrHidesIt()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    auto *grid = new QwtPlotGrid;
    grid->setItemAttribute(QwtPlotItem::Legend, true);
    grid->setTitle(QStringLiteral("grid"));
    grid->attach(&plot);
    plot.displayMarkers(pixelOf(plot, 2.0), QPointF(0, 0));
    const QString label = plot.marker->label().text();
    plot.displayCalls.clear();

    plot.togglePlotItem(plot.itemToInfo(grid), false, 0);

    QVERIFY(!grid->isVisible());
    QVERIFY(plot.seriesMarkers.at(0)->isVisible());
    QVERIFY(plot.seriesMarkers.at(1)->isVisible());
    // The read-out is still rebuilt, and unchanged.
    QCOMPARE(plot.displayCalls.size(), 1);
    QCOMPARE(plot.marker->label().text(), label);
}

// ---------------------------------------------------------------------------
// The entry's menu

void tst_CurvePlotLegend::rightClickOnEntryOpensLegendMenu()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    QString name;
    QStringList entries;
    QPoint where;
    WhenShown close(activePopup, [&](QWidget *popup) {
        name = popup->objectName();
        entries = menuEntries(qobject_cast<QMenu *>(popup));
        where = popup->pos();
        closeMenu(popup);
    });

    clickEntry(plot, a, Qt::RightButton);

    QTRY_VERIFY(close.fired());
    QCOMPARE(name, QStringLiteral("legendContextMenu"));
    QCOMPARE(entries, QStringList{QStringLiteral("Change Curve Settings...")});
    QCOMPARE(where, plot.mapToGlobal(entryPoint(plot, a)));
    QVERIFY(plot.editCurveAct);
    QCOMPARE(plot.editCurveAct->objectName(), QStringLiteral("editCurveAct"));
    QCOMPARE(plot.editCurveAct->statusTip(), QStringLiteral("Customize curve settings"));
    QCOMPARE(plot.editCurveAct->parent(), &plot);
    // The right press also reached the entry, which it does not switch.
    QVERIFY(plot.labelOf(a)->isChecked());
    QVERIFY(a->isVisible());
    QVERIFY(plot.editedCurves.isEmpty());
}

void tst_CurvePlotLegend::rightClickAsksForTheMenuOfThatEntrysCurve()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.openMenus = false;

    clickEntry(plot, b, Qt::RightButton);
    clickEntry(plot, a, Qt::RightButton);

    QCOMPARE(plot.menuCurves, (QList<QwtPlotCurve *>{b, a}));
}

void tst_CurvePlotLegend::rightClickOnDisabledPlotGivesNoMenu()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.openMenus = false;
    QwtLegendLabel *label = plot.labelOf(a);
    plot.setEnabled(false);

    // Straight to the entry: a disabled window gets no mouse events at all.
    TestSupport::contextMenu(label, label->rect().center());
    QVERIFY(plot.menuCurves.isEmpty());

    plot.setEnabled(true);
    TestSupport::contextMenu(label, label->rect().center());
    QCOMPARE(plot.menuCurves, QList<QwtPlotCurve *>{a});
}

void tst_CurvePlotLegend::secondSetLegendGivesTwoMenus()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    plot.setLegend(a);
    QCOMPARE(plot.findChildren<LegendPicker *>().size(), 3);
    int menus = 0;
    WhenShown first(activePopup, [&](QWidget *popup) {
        ++menus;
        closeMenu(popup);
    });
    // The second menu opens after the first has closed.
    WhenShown second(
        [&]() -> QWidget * { return first.fired() ? activePopup() : nullptr; },
        [&](QWidget *popup) {
            ++menus;
            closeMenu(popup);
        });

    clickEntry(plot, a, Qt::RightButton);

    QCOMPARE(plot.menuCurves, (QList<QwtPlotCurve *>{a, a}));
    QCOMPARE(menus, 2);
}

void tst_CurvePlotLegend::secondMenuDeletesPreviousAction()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    WhenShown close1(activePopup, closeMenu);
    clickEntry(plot, a, Qt::RightButton);
    QVERIFY(close1.fired());
    const QPointer<QAction> first = plot.editCurveAct;
    QVERIFY(first);
    QAction *held = nullptr;
    WhenShown close2(activePopup, [&](QWidget *popup) {
        held = popup->actions().value(0);
        closeMenu(popup);
    });

    clickEntry(plot, b, Qt::RightButton);

    QVERIFY(close2.fired());
    QVERIFY(!first);
    QVERIFY(plot.editCurveAct);
    QCOMPARE(held, plot.editCurveAct);
    QCOMPARE(plot.editCurveAct->text(), QStringLiteral("Change Curve Settings..."));
    QCOMPARE(plot.editCurveAct->objectName(), QStringLiteral("editCurveAct"));
    QCOMPARE(plot.editCurveAct->statusTip(), QStringLiteral("Customize curve settings"));
    QCOMPARE(plot.findChildren<QAction *>(QStringLiteral("editCurveAct")).size(), 1);
    // The menu itself is gone with its function.
    QVERIFY(plot.findChildren<QMenu *>(QStringLiteral("legendContextMenu")).isEmpty());
}

// ---------------------------------------------------------------------------
// From the menu to the dialog

void tst_CurvePlotLegend::menuActionOpensDialogAndAcceptanceChangesCurve()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    const QPen before = b->pen();
    int shownStyle = -1;
    QColor shownColor;
    WhenShown pick(activePopup, [](QWidget *popup) { pickEntry(popup, QStringLiteral("Change Curve Settings...")); });
    WhenShown accept(
        activeCurveDialog,
        [&](QWidget *w) {
            auto *dialog = dynamic_cast<CurveSettingDialog *>(w);
            QCOMPARE(dialog->parentWidget(), &plot);
            shownStyle = dialog->lineStyle();
            shownColor = dialog->lineColor();
            dialog->setLineAttributes(Qt::DashLine, 5, QColor(0, 128, 0));
            dialog->setSymbolAttributes(3, 12, QColor(10, 20, 30));
            dialog->accept();
        });

    clickEntry(plot, b, Qt::RightButton);

    QTRY_VERIFY(accept.fired());
    QVERIFY(pick.fired());
    QCOMPARE(shownStyle, int(before.style()));
    QCOMPARE(shownColor, before.color());
    QCOMPARE(plot.editedCurves, QList<QwtPlotCurve *>{b});
    QCOMPARE(plot.editResults, QList<bool>{true});
    QCOMPARE(b->pen().style(), Qt::DashLine);
    QCOMPARE(b->pen().width(), 5);
    QCOMPARE(b->pen().color(), QColor(0, 128, 0));
    QVERIFY(b->symbol());
    QCOMPARE(int(b->symbol()->style()), 3);
    QCOMPARE(b->symbol()->size(), QSize(12, 12));
    QCOMPARE(b->symbol()->brush().color(), QColor(10, 20, 30));
    QCOMPARE(a->pen(), QPen(Qt::red, 2));
    QVERIFY(!a->symbol());
}

void tst_CurvePlotLegend::menuActionOpensDialogAndCancelLeavesCurve()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    const QPen before = a->pen();
    WhenShown pick(activePopup, [](QWidget *popup) { pickEntry(popup, QStringLiteral("Change Curve Settings...")); });
    WhenShown cancel(
        activeCurveDialog,
        [&](QWidget *w) {
            auto *dialog = dynamic_cast<CurveSettingDialog *>(w);
            dialog->setLineAttributes(Qt::DotLine, 7, Qt::green);
            dialog->reject();
        });

    clickEntry(plot, a, Qt::RightButton);

    QTRY_VERIFY(cancel.fired());
    QCOMPARE(plot.editedCurves, QList<QwtPlotCurve *>{a});
    QCOMPARE(plot.editResults, QList<bool>{false});
    QCOMPARE(a->pen(), before);
    QVERIFY(!a->symbol());
}

void tst_CurvePlotLegend::curveRemovedDuringMenuOpensNoDialog()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    int deaths = 0;
    auto *traced = plot.appendTraced(&deaths);
    QVERIFY(plot.showEntryOf(traced));
    bool dialogSeen = false;
    WhenShown watchDialog(
        activeCurveDialog,
        [&](QWidget *w) {
            dialogSeen = true;
            static_cast<QDialog *>(w)->reject();
        },
        1000);
    WhenShown removeThenPick(activePopup, [&](QWidget *popup) {
        plot.removeCurve(traced);
        pickEntry(popup, QStringLiteral("Change Curve Settings..."));
    });

    const QPointer<QwtLegendLabel> entry = plot.labelOf(traced);
    clickEntry(plot, traced, Qt::RightButton);

    QVERIFY(removeThenPick.fired());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!entry);
    QCOMPARE(deaths, 1);
    QVERIFY(plot.editedCurves.isEmpty());
    QVERIFY(!dialogSeen);
    QCOMPARE(plot.curves(), (QList<QwtPlotCurve *>{a, b}));
}

void tst_CurvePlotLegend::actionTriggeredAfterCurveRemovedDoesNothing()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    WhenShown close(activePopup, closeMenu);
    clickEntry(plot, b, Qt::RightButton);
    QVERIFY(close.fired());
    QVERIFY(plot.editCurveAct);

    plot.removeCurve(b);
    plot.editCurveAct->trigger();

    QVERIFY(plot.editedCurves.isEmpty());
    QVERIFY(!activeModal());
}

void tst_CurvePlotLegend::curveRemovedDuringDialogIsLeftAlone()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    int deaths = 0;
    auto *traced = plot.appendTraced(&deaths);
    plot.settle();
    WhenShown removeThenAccept(
        activeCurveDialog,
        [&](QWidget *w) {
            plot.removeCurve(traced);
            static_cast<QDialog *>(w)->accept();
        });

    const bool changed = plot.editCurveAttributes(traced);

    QVERIFY(removeThenAccept.fired());
    QVERIFY(!changed);
    QCOMPARE(deaths, 1);
    QCOMPARE(plot.replots, 0);
}

void tst_CurvePlotLegend::curveRemovedDuringDialogFromMenuIsHarmless()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    int deaths = 0;
    auto *traced = plot.appendTraced(&deaths);
    QVERIFY(plot.showEntryOf(traced));
    WhenShown pick(activePopup, [](QWidget *popup) { pickEntry(popup, QStringLiteral("Change Curve Settings...")); });
    WhenShown removeThenAccept(
        activeCurveDialog,
        [&](QWidget *w) {
            plot.removeCurve(traced);
            static_cast<QDialog *>(w)->accept();
        });
    const QPointer<QwtLegendLabel> entry = plot.labelOf(traced);

    clickEntry(plot, traced, Qt::RightButton);

    QTRY_VERIFY(removeThenAccept.fired());
    QCOMPARE(deaths, 1);
    QCOMPARE(plot.editResults, QList<bool>{false});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!entry);
    QCOMPARE(plot.curves(), (QList<QwtPlotCurve *>{a, b}));
}

void tst_CurvePlotLegend::legendDisabledDuringMenuIsHarmless()
{
    LegendPlot plot;
    QwtPlotCurve *a = nullptr;
    QwtPlotCurve *b = nullptr;
    QVERIFY(prepare(plot, a, b));
    const QPointer<QwtLegendLabel> entry = plot.labelOf(a);
    // The legend goes at once, with the entry whose event is on its way.
    WhenShown disableThenClose(activePopup, [&](QWidget *popup) {
        plot.disableLegend();
        closeMenu(popup);
    });

    clickEntry(plot, a, Qt::RightButton);

    QVERIFY(disableThenClose.fired());
    QVERIFY(!entry);
    QVERIFY(!plot.plotLegend());
    QCOMPARE(plot.menuCurves, QList<QwtPlotCurve *>{a});
    QVERIFY(a->isVisible());
}

QTEST_MAIN(tst_CurvePlotLegend)
#include "tst_curveplot_legend.moc"
