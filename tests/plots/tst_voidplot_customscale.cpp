// Custom scales as seen from a plot: editing the present ranges, storing them
// and applying a stored scale from the context menu.

#include <figura/dialogs/CustomScaleSettings.h>
#include <figura/plots/VoidPlot.h>

#include "TestSupport.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <qwt_scale_div.h>

#include <limits>

using namespace TestSupport;

namespace {

class CustomScalePlot : public VoidPlot
{
public:
    using VoidPlot::VoidPlot;
    using VoidPlot::createContextMenu;
    using VoidPlot::customScaleSettings;
    using VoidPlot::replotTimer;

    int menuLoads = 0;
    int postProcesses = 0;
    QWidget *dialogSeen = nullptr;
    bool disableStore = false;

    void loadCustomScaleMenu(QMenu &menu) override
    {
        ++menuLoads;
        VoidPlot::loadCustomScaleMenu(menu);
    }

protected:
    void customScalePostProcess() override { ++postProcesses; }
    void setCustomScaleDialogHelper(QWidget *dialog) override { dialogSeen = dialog; }
    void createCustomScaleSettings() override
    {
        if (!disableStore)
            VoidPlot::createCustomScaleSettings();
    }
};

QMenu *findSubMenu(QMenu *menu, const QString &objectName)
{
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions)
        if (action->menu() && action->menu()->objectName() == objectName)
            return action->menu();
    return nullptr;
}

// setAxisScale() takes effect on axisScaleDiv() once the axes are updated,
// which a replot would do.
QwtScaleDiv scaleDiv(VoidPlot &plot, int axisId)
{
    plot.updateAxes();
    return plot.axisScaleDiv(axisId);
}

QStringList storedNames(CustomScale::XScaleType type)
{
    CustomScaleSettings store(type);
    store.load();
    QStringList names;
    for (const CustomScaleItem *item : store.items())
        names << item->name;
    return names;
}

void setEdit(QWidget *dialog, const char *name, const QString &text)
{
    auto *edit = dialog->findChild<QLineEdit *>(QLatin1String(name));
    QVERIFY2(edit, name);
    edit->setText(text);
}

// Opens the plot's context menu at a canvas point and runs act on the
// "Custom Scale" submenu while the menu is open; the menu is closed after.
void withCustomScaleMenu(CustomScalePlot &plot, const std::function<void(QMenu *)> &act)
{
    WhenShown answer([] { return QApplication::activePopupWidget(); }, [&](QWidget *w) {
        auto *menu = qobject_cast<QMenu *>(w);
        QVERIFY(menu);
        act(findSubMenu(menu, QStringLiteral("customScaleMenu")));
        if (QApplication::activePopupWidget())
            QApplication::activePopupWidget()->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(50, 50),
                            plot.canvas()->mapToGlobal(QPoint(50, 50)));
    plot.createContextMenu(&event);
    QVERIFY(answer.fired());
}

} // namespace

class tst_VoidPlotCustomScale : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void storeIsCreatedOnDemandAsChildOfThePlot();
    void storeTakesThePlotsScaleType();
    void menuListsStoredScalesAfterASeparator();
    void clearedMenuBitBuildsNoSubmenuAndNoStore();
    void storeSwitchedOffBySubclassAddsNothingToTheMenu();
    void choosingAStoredScaleAppliesXAndLeftY();
    void storedScaleWithZeroRightBoundsLeavesVisibleRightAxis();
    void storedScaleWithRightBoundsSetsVisibleRightAxis();
    void storedScaleOnHiddenRightAxisAppliesXAndLeftYOnly();
    void editDialogStartsWithThePresentScales();
    void editDialogWithoutRightAxisGetsTheNoAxisPair();
    void cancellingTheDialogAppliesAndStoresNothing();
    void acceptingTheDialogAppliesAndStoresTheScale();
    void scaleJustSavedStandsInTheNextMenu();
    void acceptingWithVisibleRightAxisAppliesItsBounds();
    void editingBeforeAnyMenuKeepsTheStoredScales();

private:
    QTemporaryDir settingsDir;
};

void tst_VoidPlotCustomScale::initTestCase()
{
    QVERIFY(TestSupport::isolateSettings(settingsDir, QStringLiteral("tst_voidplot_customscale")));
}

void tst_VoidPlotCustomScale::init()
{
    QSettings().clear();
}

void tst_VoidPlotCustomScale::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_VoidPlotCustomScale::storeIsCreatedOnDemandAsChildOfThePlot()
{
    CustomScalePlot plot;
    QVERIFY(!plot.customScaleSettings);
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    QVERIFY(plot.customScaleSettings);
    QCOMPARE(plot.customScaleSettings->parent(), &plot);
    CustomScaleSettings *first = plot.customScaleSettings;
    plot.loadCustomScaleMenu(menu);
    QCOMPARE(plot.customScaleSettings, first);
}

void tst_VoidPlotCustomScale::storeTakesThePlotsScaleType()
{
    CustomScaleSettings(CustomScale::MassScale).add(1, 2, 3, 4, 0, 0);
    CustomScalePlot plot;
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    QCOMPARE(plot.customScaleSettings->scaleType(), CustomScale::MassScale);
    QCOMPARE(plot.customScaleSettings->items().size(), 1);
}

void tst_VoidPlotCustomScale::menuListsStoredScalesAfterASeparator()
{
    {
        CustomScaleSettings store(CustomScale::MassScale);
        store.add(1, 2, 1e-10, 1e-6, 0, 0);
        store.add(5, 50, 1e-12, 1e-8, 0, 0);
    }
    CustomScalePlot plot;
    QMenu menu;
    menu.addAction(QStringLiteral("Edit Scale..."));
    plot.loadCustomScaleMenu(menu);

    const QStringList expected = QStringList{QStringLiteral("Edit Scale..."), QStringLiteral("-")}
                                 + storedNames(CustomScale::MassScale);
    QCOMPARE(menuEntries(&menu), expected);
    QCOMPARE(menu.actions().size(), 4);
}

void tst_VoidPlotCustomScale::clearedMenuBitBuildsNoSubmenuAndNoStore()
{
    CustomScalePlot plot;
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuEditCustomScale);
    QVERIFY(showActive(plot));

    bool sawSubMenu = true;
    withCustomScaleMenu(plot, [&](QMenu *sub) { sawSubMenu = sub != nullptr; });
    QVERIFY(!sawSubMenu);
    QCOMPARE(plot.menuLoads, 0);
    QVERIFY(!plot.customScaleSettings);
}

void tst_VoidPlotCustomScale::storeSwitchedOffBySubclassAddsNothingToTheMenu()
{
    CustomScaleSettings(CustomScale::MassScale).add(1, 2, 3, 4, 0, 0);
    CustomScalePlot plot;
    plot.disableStore = true;
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    QVERIFY(menu.actions().isEmpty());
    QVERIFY(!plot.customScaleSettings);
}

void tst_VoidPlotCustomScale::choosingAStoredScaleAppliesXAndLeftY()
{
    CustomScaleSettings(CustomScale::MassScale).add(2, 40, 1e-11, 1e-7, 0, 0);
    CustomScalePlot plot;
    QVERIFY(showActive(plot));
    const QString name = storedNames(CustomScale::MassScale).value(0);

    withCustomScaleMenu(plot, [&](QMenu *sub) {
        QVERIFY(sub);
        for (QAction *action : sub->actions())
            if (action->text() == name)
                action->trigger();
    });

    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).lowerBound(), 2.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).upperBound(), 40.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yLeft).lowerBound(), 1e-11);
    QCOMPARE(scaleDiv(plot, QwtPlot::yLeft).upperBound(), 1e-7);
    QVERIFY(!plot.axisAutoScale(QwtPlot::xBottom));
    QVERIFY(!plot.axisAutoScale(QwtPlot::yLeft));
    QCOMPARE(plot.postProcesses, 1);
    QVERIFY(plot.replotTimer->isActive());
}

void tst_VoidPlotCustomScale::storedScaleWithZeroRightBoundsLeavesVisibleRightAxis()
{
    CustomScaleSettings(CustomScale::MassScale).add(2, 40, 1e-11, 1e-7, 0, 0);
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisScale(QwtPlot::yRight, 3.0, 7.0);
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    menu.actions().last()->trigger();

    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).upperBound(), 40.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).lowerBound(), 3.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).upperBound(), 7.0);
}

void tst_VoidPlotCustomScale::storedScaleWithRightBoundsSetsVisibleRightAxis()
{
    CustomScaleSettings(CustomScale::MassScale).add(2, 40, 1e-11, 1e-7, 0.0, 9.0);
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisScale(QwtPlot::yRight, 3.0, 7.0);
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    menu.actions().last()->trigger();

    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).lowerBound(), 0.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).upperBound(), 9.0);
}

void tst_VoidPlotCustomScale::storedScaleOnHiddenRightAxisAppliesXAndLeftYOnly()
{
    CustomScaleSettings(CustomScale::MassScale).add(2, 40, 1e-11, 1e-7, 1.0, 9.0);
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, false);
    plot.setAxisScale(QwtPlot::yRight, 3.0, 7.0);
    QMenu menu;
    plot.loadCustomScaleMenu(menu);
    menu.actions().last()->trigger();

    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).lowerBound(), 2.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yLeft).upperBound(), 1e-7);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).lowerBound(), 3.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).upperBound(), 7.0);
}

void tst_VoidPlotCustomScale::editDialogStartsWithThePresentScales()
{
    CustomScalePlot plot;
    plot.setAxisScale(QwtPlot::xBottom, 10.0, 20.0);
    plot.setAxisScale(QwtPlot::yLeft, 1e-9, 1e-5);
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisScale(QwtPlot::yRight, 2.0, 4.0);
    plot.updateAxes();

    QStringList texts;
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        for (const char *name : {"xAxisLowerEdit", "xAxisUpperEdit", "yAxisLowerEdit",
                                 "yAxisUpperEdit", "yRightAxisLowerEdit", "yRightAxisUpperEdit"}) {
            auto *edit = dialog->findChild<QLineEdit *>(QLatin1String(name));
            texts << (edit ? edit->text() : QStringLiteral("missing"));
        }
        static_cast<QDialog *>(dialog)->reject();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());
    QVERIFY(plot.dialogSeen);

    QLocale locale;
    QCOMPARE(locale.toDouble(texts.at(0)), 10.0);
    QCOMPARE(locale.toDouble(texts.at(1)), 20.0);
    QCOMPARE(locale.toDouble(texts.at(2)), 1e-9);
    QCOMPARE(locale.toDouble(texts.at(3)), 1e-5);
    QCOMPARE(locale.toDouble(texts.at(4)), 2.0);
    QCOMPARE(locale.toDouble(texts.at(5)), 4.0);
}

void tst_VoidPlotCustomScale::editDialogWithoutRightAxisGetsTheNoAxisPair()
{
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, false);
    bool rightGroupEnabled = true;
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        auto *group = dialog->findChild<QWidget *>(QStringLiteral("yRightAxisGroupBox"));
        rightGroupEnabled = group && group->isEnabled();
        static_cast<QDialog *>(dialog)->reject();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());
    QVERIFY(!rightGroupEnabled);
}

void tst_VoidPlotCustomScale::cancellingTheDialogAppliesAndStoresNothing()
{
    CustomScalePlot plot;
    plot.setAxisScale(QwtPlot::xBottom, 10.0, 20.0);
    plot.updateAxes();
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        setEdit(dialog, "xAxisLowerEdit", QLocale().toString(1.0));
        setEdit(dialog, "xAxisUpperEdit", QLocale().toString(2.0));
        static_cast<QDialog *>(dialog)->reject();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());

    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).lowerBound(), 10.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).upperBound(), 20.0);
    QCOMPARE(plot.postProcesses, 0);
    QVERIFY(storedNames(CustomScale::MassScale).isEmpty());
}

void tst_VoidPlotCustomScale::acceptingTheDialogAppliesAndStoresTheScale()
{
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, false);
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        setEdit(dialog, "xAxisLowerEdit", QLocale().toString(3.0));
        setEdit(dialog, "xAxisUpperEdit", QLocale().toString(30.0));
        setEdit(dialog, "yAxisLowerEdit", QLocale().toString(1e-12, 'e', 2));
        setEdit(dialog, "yAxisUpperEdit", QLocale().toString(1e-6, 'e', 2));
        dialog->findChild<QPushButton *>(QStringLiteral("okButton"))->click();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());

    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).lowerBound(), 3.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::xBottom).upperBound(), 30.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yLeft).lowerBound(), 1e-12);
    QCOMPARE(scaleDiv(plot, QwtPlot::yLeft).upperBound(), 1e-6);
    QCOMPARE(plot.postProcesses, 1);
    QVERIFY(plot.replotTimer->isActive());

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(store.items().size(), 1);
    const CustomScaleItem *item = store.items().first();
    QCOMPARE(item->xLower, 3.0);
    QCOMPARE(item->xUpper, 30.0);
    QCOMPARE(item->yLower, 1e-12);
    QCOMPARE(item->yUpper, 1e-6);
    // The no-right-axis pair is stored as 0.0 and 0.0.
    QCOMPARE(item->yRightLower, 0.0);
    QCOMPARE(item->yRightUpper, 0.0);
}

void tst_VoidPlotCustomScale::scaleJustSavedStandsInTheNextMenu()
{
    CustomScalePlot plot;
    QVERIFY(showActive(plot));
    withCustomScaleMenu(plot, [](QMenu *sub) { QVERIFY(sub); });
    QVERIFY(plot.customScaleSettings);

    WhenShown answer(activeModal, [&](QWidget *dialog) {
        setEdit(dialog, "xAxisLowerEdit", QLocale().toString(4.0));
        setEdit(dialog, "xAxisUpperEdit", QLocale().toString(44.0));
        dialog->findChild<QPushButton *>(QStringLiteral("okButton"))->click();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());
    const QStringList names = storedNames(CustomScale::MassScale);
    QCOMPARE(names.size(), 1);

    QStringList entries;
    withCustomScaleMenu(plot, [&](QMenu *sub) { entries = menuEntries(sub); });
    QVERIFY2(entries.contains(names.first()), qPrintable(entries.join(QLatin1Char('|'))));
}

void tst_VoidPlotCustomScale::acceptingWithVisibleRightAxisAppliesItsBounds()
{
    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisScale(QwtPlot::yRight, 1.0, 2.0);
    plot.updateAxes();
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        setEdit(dialog, "yRightAxisLowerEdit", QLocale().toString(5.0, 'e', 2));
        setEdit(dialog, "yRightAxisUpperEdit", QLocale().toString(50.0, 'e', 2));
        dialog->findChild<QPushButton *>(QStringLiteral("okButton"))->click();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).lowerBound(), 5.0);
    QCOMPARE(scaleDiv(plot, QwtPlot::yRight).upperBound(), 50.0);

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(store.items().size(), 1);
    QCOMPARE(store.items().first()->yRightLower, 5.0);
    QCOMPARE(store.items().first()->yRightUpper, 50.0);
}

void tst_VoidPlotCustomScale::editingBeforeAnyMenuKeepsTheStoredScales()
{
    {
        CustomScaleSettings store(CustomScale::MassScale);
        store.add(1, 2, 1e-10, 1e-6, 0, 0);
        store.add(5, 50, 1e-12, 1e-8, 0, 0);
    }
    QCOMPARE(storedNames(CustomScale::MassScale).size(), 2);

    CustomScalePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, false);
    WhenShown answer(activeModal, [&](QWidget *dialog) {
        setEdit(dialog, "xAxisLowerEdit", QLocale().toString(7.0));
        setEdit(dialog, "xAxisUpperEdit", QLocale().toString(70.0));
        setEdit(dialog, "yAxisLowerEdit", QLocale().toString(1e-12, 'e', 2));
        setEdit(dialog, "yAxisUpperEdit", QLocale().toString(1e-6, 'e', 2));
        dialog->findChild<QPushButton *>(QStringLiteral("okButton"))->click();
    });
    plot.editCustomScale();
    QVERIFY(answer.fired());

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(store.items().size(), 3);
    QCOMPARE(store.items().first()->xLower, 7.0);
}

QTEST_MAIN(tst_VoidPlotCustomScale)
#include "tst_voidplot_customscale.moc"
