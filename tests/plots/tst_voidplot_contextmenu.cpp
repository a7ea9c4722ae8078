// The eleven actions, made and removed by their bits, and the context menu
// built from them: entries, separators, submenus, object names, how a right
// click opens it and the text data placeholders.

#include "VoidPlotProbe.h"

#include <TestSupport.h>

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <qwt_plot_picker.h>
#include <qwt_scale_engine.h>

using TestSupport::activePopup;
using TestSupport::menuEntries;
using TestSupport::showActive;
using TestSupport::WhenShown;

namespace {

// What one opened context menu showed, read while it was open.
struct MenuRecord
{
    bool shown = false;
    QString objectName;
    QObject *parent = nullptr;
    QStringList entries;
    QMap<QString, QStringList> submenus; // by object name
    QMap<QString, QString> submenuTitles;
    QMap<QString, bool> submenuHasIcon;
};

// Reads the next popup and closes it, or, with pick set, chooses that entry.
class MenuReader
{
public:
    explicit MenuReader(MenuRecord &record, const QString &pick = QString())
        : m_watch(activePopup, [&record, pick](QWidget *w) {
              auto *menu = qobject_cast<QMenu *>(w);
              record.shown = true;
              if (!menu) {
                  w->close();
                  return;
              }
              record.objectName = menu->objectName();
              record.parent = menu->parent();
              record.entries = menuEntries(menu);
              const QList<QMenu *> submenus = menu->findChildren<QMenu *>();
              for (QMenu *submenu : submenus) {
                  record.submenus.insert(submenu->objectName(), menuEntries(submenu));
                  record.submenuTitles.insert(submenu->objectName(), submenu->title());
                  record.submenuHasIcon.insert(submenu->objectName(), !submenu->icon().isNull());
              }
              if (!pick.isEmpty()) {
                  const QList<QAction *> actions = menu->actions();
                  for (QAction *action : actions) {
                      if (QString(action->text()).remove(QLatin1Char('&')) == pick)
                          menu->setActiveAction(action);
                  }
                  QTest::keyClick(menu, Qt::Key_Return);
              } else {
                  menu->close();
              }
          })
    {
    }

private:
    WhenShown m_watch;
};

void openMenu(VoidPlotProbe &plot, QPoint at = QPoint(30, 30))
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, plot.canvas()->mapToGlobal(at));
    plot.createContextMenu(&event);
}

} // namespace

class tst_VoidPlotContextMenu : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void actionTable_data();
    void actionTable();
    void eachBitMakesItsOwnAction_data();
    void eachBitMakesItsOwnAction();
    void defaultBitsMakeNineActions();
    void clearedBitDeletesTheAction();
    void keptBitLeavesActionAndCheckState();
    void restoredActionTakesItsCheckFromTheFlag();
    void removeActionDeletesAndNulls();
    void removeActionsClearsAllEleven();
    void actionsReachTheVirtualOperations();

    void defaultMenuReadsInOrder();
    void menuWithEveryBit();
    void menuWithoutBitsIsStillExecuted();
    void separatorFollowsLogScaleWithoutFullZoom();
    void noLeadingSeparatorWithoutTheFirstThreeBits();
    void emptyCopyToClipboardSubmenuIsLeftOut();
    void customScaleSubmenuNeedsItsBit();
    void pickingAnEntryRunsItsAction();

    void rightClickWithinTwoPixelsOpensTheMenu();
    void rightDragOfThreePixelsOpensNoMenu();
    void menuWaitsForTheReleaseOfTheRightButton();
    void menuEventFarFromThePressOpensNoMenu_data();
    void menuEventFarFromThePressOpensNoMenu();
    void menuKeyOpensTheMenuOnlyAtThePress();

    void textDataPlaceholdersLogNotImplemented();
};

void tst_VoidPlotContextMenu::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_VoidPlotContextMenu::actionTable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tip");
    QTest::addColumn<bool>("hasIcon");
    QTest::addColumn<bool>("checkable");

    QTest::newRow("log scale") << "logScaleAct" << "Enable Log Scale" << "Enable logarithmic scale"
                               << false << true;
    QTest::newRow("full zoom") << "fullZoomAct" << "Zoom to Full Scale" << "Zoom to full scale" << true
                               << false;
    QTest::newRow("edit scale") << "editCustomScaleAct" << "Edit Scale..." << "Edit custom scale"
                                << true << false;
    QTest::newRow("drag zoom")
        << "dragZoomAct" << "Enable Drag-zoom"
        << "Enable/disable drag-zoom. Box-zoom will be off if drag-zoom is enabled" << false << true;
    QTest::newRow("peak labels") << "peakLabelAct" << "Show Peak Labels" << QString() << false << true;
    QTest::newRow("auto scroll") << "autoScrollAct" << "Scroll Chart Automatically"
                                 << "Move the chart along X-axis automatically" << false << true;
    QTest::newRow("customize") << "customPlotAct" << "Customize Plot..."
                               << "Customize various plot settings" << false << false;
    QTest::newRow("image to clipboard") << "plotImgToClipboardAct" << "Plot Image"
                                        << "Copy the plot image to the clipboard" << false << false;
    QTest::newRow("image to file") << "plotImgToFileAct" << "Plot Image..."
                                   << "Export plot image to a file" << false << false;
    QTest::newRow("text to clipboard") << "textDataToClipboardAct" << "Text Data"
                                       << "Copy chart data to the clipboard" << false << false;
    QTest::newRow("text to file") << "textDataToFileAct" << "Text Data..."
                                  << "Export chart data to a text file" << false << false;
}

void tst_VoidPlotContextMenu::actionTable()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, tip);
    QFETCH(bool, hasIcon);
    QFETCH(bool, checkable);

    VoidPlotProbe plot;
    plot.setContextMenuItems(0x7FF);
    auto *action = plot.findChild<QAction *>(name, Qt::FindDirectChildrenOnly);
    QVERIFY(action);
    QCOMPARE(action->parent(), &plot);
    QCOMPARE(action->text(), text);
    QCOMPARE(action->statusTip(), tip);
    QCOMPARE(!action->icon().isNull(), hasIcon);
    QCOMPARE(action->isCheckable(), checkable);
    if (checkable) // the flags of a fresh plot: only auto scroll is on
        QCOMPARE(action->isChecked(), name == QLatin1String("autoScrollAct"));
}

void tst_VoidPlotContextMenu::eachBitMakesItsOwnAction_data()
{
    QTest::addColumn<int>("bit");
    QTest::addColumn<QString>("name");
    QTest::newRow("0x001") << 0x001 << "logScaleAct";
    QTest::newRow("0x002") << 0x002 << "fullZoomAct";
    QTest::newRow("0x004") << 0x004 << "editCustomScaleAct";
    QTest::newRow("0x008") << 0x008 << "dragZoomAct";
    QTest::newRow("0x010") << 0x010 << "autoScrollAct";
    QTest::newRow("0x020") << 0x020 << "plotImgToFileAct";
    QTest::newRow("0x040") << 0x040 << "textDataToFileAct";
    QTest::newRow("0x080") << 0x080 << "customPlotAct";
    QTest::newRow("0x100") << 0x100 << "plotImgToClipboardAct";
    QTest::newRow("0x200") << 0x200 << "textDataToClipboardAct";
    QTest::newRow("0x400") << 0x400 << "peakLabelAct";
}

void tst_VoidPlotContextMenu::eachBitMakesItsOwnAction()
{
    QFETCH(int, bit);
    QFETCH(QString, name);
    VoidPlotProbe plot;
    plot.setContextMenuItems(bit);
    QCOMPARE(plot.contextMenuItems(), bit);
    const QList<QAction *> actions = plot.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(actions.size(), 1);
    QCOMPARE(actions.first()->objectName(), name);
}

void tst_VoidPlotContextMenu::defaultBitsMakeNineActions()
{
    VoidPlotProbe plot;
    QStringList names;
    const QList<QAction *> actions = plot.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QAction *action : actions)
        names << action->objectName();
    names.sort();
    QCOMPARE(names, (QStringList{"customPlotAct", "dragZoomAct", "editCustomScaleAct", "fullZoomAct",
                                 "logScaleAct", "plotImgToClipboardAct", "plotImgToFileAct",
                                 "textDataToClipboardAct", "textDataToFileAct"}));
    QVERIFY(!plot.peakLabelAct);
    QVERIFY(!plot.autoScrollAct);
}

void tst_VoidPlotContextMenu::clearedBitDeletesTheAction()
{
    VoidPlotProbe plot;
    QPointer<QAction> fullZoom = plot.fullZoomAct;
    QVERIFY(fullZoom);
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuFullZoom);
    QVERIFY(!fullZoom);
    QVERIFY(!plot.fullZoomAct);
    QVERIFY(plot.logScaleAct);
}

void tst_VoidPlotContextMenu::keptBitLeavesActionAndCheckState()
{
    VoidPlotProbe plot;
    QAction *dragZoom = plot.dragZoomAct;
    dragZoom->setChecked(true);
    QSignalSpy spy(&plot, &VoidPlot::dragZoomToggled);
    plot.setContextMenuItems(VoidPlot::MenuDragZoom | VoidPlot::MenuPeakLabel);
    QCOMPARE(plot.dragZoomAct, dragZoom);
    QVERIFY(dragZoom->isChecked());
    QCOMPARE(spy.count(), 0);
    // Its connection is kept as well.
    dragZoom->setChecked(false);
    QCOMPARE(spy.count(), 1);
}

void tst_VoidPlotContextMenu::restoredActionTakesItsCheckFromTheFlag()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(0);
    plot.setDragZoom(true); // only the flag: no action
    QVERIFY(plot.zoomPicker->isEnabled());
    QSignalSpy spy(&plot, &VoidPlot::dragZoomToggled);
    plot.setContextMenuItems(VoidPlot::MenuDragZoom);
    QVERIFY(plot.dragZoomAct->isChecked());
    QCOMPARE(spy.count(), 0); // checked before its connection: no slot ran
    QVERIFY(plot.isDragZoom());
}

void tst_VoidPlotContextMenu::removeActionDeletesAndNulls()
{
    VoidPlotProbe plot;
    QPointer<QAction> guard = plot.fullZoomAct;
    plot.removeAction(plot.fullZoomAct);
    QVERIFY(!guard);
    QVERIFY(!plot.fullZoomAct);
    plot.removeAction(plot.fullZoomAct); // null: nothing happens
    QVERIFY(plot.logScaleAct);
}

void tst_VoidPlotContextMenu::removeActionsClearsAllEleven()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(0x7FF);
    plot.removeActions();
    QVERIFY(plot.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly).isEmpty());
    QVERIFY(!plot.logScaleAct && !plot.fullZoomAct && !plot.editCustomScaleAct && !plot.dragZoomAct
            && !plot.peakLabelAct && !plot.autoScrollAct && !plot.customPlotAct
            && !plot.plotImgToClipboardAct && !plot.plotImgToFileAct && !plot.textDataToClipboardAct
            && !plot.textDataToFileAct);
    QCOMPARE(plot.contextMenuItems(), 0x7FF); // the bits stay; the actions are gone
}

void tst_VoidPlotContextMenu::actionsReachTheVirtualOperations()
{
    VoidPlotProbe plot;
    plot.setContextMenuItems(0x7FF);

    plot.fullZoomAct->trigger();
    QCOMPARE(plot.fullScaleZooms, 1);
    plot.customPlotAct->trigger();
    QCOMPARE(plot.plotSettingEdits, 1);
    plot.plotImgToClipboardAct->trigger();
    QCOMPARE(plot.clipboardCopies, 1);

    plot.logScaleAct->trigger();
    QCOMPARE(plot.preparedForLog, QList<bool>{true});
    QVERIFY(dynamic_cast<QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));

    QSignalSpy dragSpy(&plot, &VoidPlot::dragZoomToggled);
    plot.dragZoomAct->trigger();
    QCOMPARE(dragSpy.count(), 1);
    QSignalSpy scrollSpy(&plot, &VoidPlot::autoScrollToggled);
    plot.autoScrollAct->trigger();
    QCOMPARE(scrollSpy.count(), 1);
    QVERIFY(!plot.isAutoScroll());
    QSignalSpy peakSpy(&plot, &VoidPlot::peakLabelVisibilityToggled);
    plot.peakLabelAct->trigger();
    QCOMPARE(peakSpy.count(), 1);
    QVERIFY(plot.isPeakLabelVisible());

    QTest::ignoreMessage(QtDebugMsg, "copyTextDataToClipboard not implemented");
    plot.textDataToClipboardAct->trigger();
    QTest::ignoreMessage(QtDebugMsg, "exportTextDataToFile not implemented");
    plot.textDataToFileAct->trigger();
}

void tst_VoidPlotContextMenu::defaultMenuReadsInOrder()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QVERIFY(record.shown);
    QCOMPARE(record.objectName, QStringLiteral("contextMenu"));
    QCOMPARE(record.parent, &plot);
    QCOMPARE(record.entries,
             (QStringList{"Zoom to Full Scale", ">customScaleMenu", "Enable Log Scale", "-",
                          "Enable Drag-zoom", "-", "Customize Plot...", "-", ">copyToClipboardMenu",
                          ">exportToFileMenu"}));
    QCOMPARE(record.submenuTitles.value("customScaleMenu"), QStringLiteral("Custom Scale"));
    QCOMPARE(record.submenus.value("customScaleMenu").value(0), QStringLiteral("Edit Scale..."));
    QCOMPARE(record.submenuTitles.value("copyToClipboardMenu"), QStringLiteral("Copy to Clipboard"));
    QCOMPARE(record.submenus.value("copyToClipboardMenu"), (QStringList{"Plot Image", "Text Data"}));
    QVERIFY(record.submenuHasIcon.value("copyToClipboardMenu"));
    QCOMPARE(record.submenuTitles.value("exportToFileMenu"), QStringLiteral("Export to File"));
    QCOMPARE(record.submenus.value("exportToFileMenu"), (QStringList{"Plot Image...", "Text Data..."}));
    QVERIFY(record.submenuHasIcon.value("exportToFileMenu"));

    // The menu is a local object: nothing of it stays behind.
    QVERIFY(plot.findChildren<QMenu *>().isEmpty());
}

void tst_VoidPlotContextMenu::menuWithEveryBit()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setContextMenuItems(0x7FF);
    plot.extraMenuEntry = QStringLiteral("Host Entry");
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QCOMPARE(record.entries,
             (QStringList{"Zoom to Full Scale", ">customScaleMenu", "Enable Log Scale", "-",
                          "Enable Drag-zoom", "Show Peak Labels", "Scroll Chart Automatically", "-",
                          "Customize Plot...", "-", ">copyToClipboardMenu", ">exportToFileMenu",
                          "Host Entry"}));
}

void tst_VoidPlotContextMenu::menuWithoutBitsIsStillExecuted()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setLogScale(true);
    plot.setContextMenuItems(0);
    QVERIFY(plot.logScale);
    QVERIFY(!plot.isLogScale());
    plot.extraMenuEntry = QStringLiteral("Host Entry");
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QVERIFY(record.shown);
    QCOMPARE(record.entries, QStringList{"Host Entry"});
}

void tst_VoidPlotContextMenu::separatorFollowsLogScaleWithoutFullZoom()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setContextMenuItems(VoidPlot::MenuLogScale | VoidPlot::MenuDragZoom);
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QCOMPARE(record.entries, (QStringList{"Enable Log Scale", "-", "Enable Drag-zoom", "-"}));
}

void tst_VoidPlotContextMenu::noLeadingSeparatorWithoutTheFirstThreeBits()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setContextMenuItems(VoidPlot::MenuCustomPlot | VoidPlot::MenuPlotImageToFile);
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QCOMPARE(record.entries, (QStringList{"Customize Plot...", "-", ">exportToFileMenu"}));
    QCOMPARE(record.submenus.value("exportToFileMenu"), QStringList{"Plot Image..."});
}

void tst_VoidPlotContextMenu::emptyCopyToClipboardSubmenuIsLeftOut()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setContextMenuItems(VoidPlot::MenuLogScale | VoidPlot::MenuTextDataToFile);
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QCOMPARE(record.entries, (QStringList{"Enable Log Scale", "-", ">exportToFileMenu"}));
    QCOMPARE(record.submenus.value("exportToFileMenu"), QStringList{"Text Data..."});
}

void tst_VoidPlotContextMenu::customScaleSubmenuNeedsItsBit()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuEditCustomScale);
    MenuRecord record;
    MenuReader reader(record);
    openMenu(plot);
    QVERIFY(!record.entries.contains(QStringLiteral(">customScaleMenu")));
    QCOMPARE(record.entries.first(), QStringLiteral("Zoom to Full Scale"));
    QCOMPARE(record.entries.at(1), QStringLiteral("Enable Log Scale"));
    QVERIFY(!plot.customScaleSettings);
}

void tst_VoidPlotContextMenu::pickingAnEntryRunsItsAction()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    MenuRecord record;
    MenuReader reader(record, QStringLiteral("Zoom to Full Scale"));
    openMenu(plot);
    QVERIFY(record.shown);
    QCOMPARE(plot.fullScaleZooms, 1);
}

void tst_VoidPlotContextMenu::rightClickWithinTwoPixelsOpensTheMenu()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    MenuRecord record;
    MenuReader reader(record);
    QTest::mouseClick(plot.windowHandle(), Qt::RightButton, Qt::NoModifier,
                      plot.canvas()->mapTo(&plot, QPoint(80, 60)));
    QTRY_VERIFY(record.shown);
    QCOMPARE(record.objectName, QStringLiteral("contextMenu"));
    QCOMPARE(plot.mousePressPosition(), QPoint(80, 60));
}

void tst_VoidPlotContextMenu::rightDragOfThreePixelsOpensNoMenu()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    MenuRecord record;
    MenuReader reader(record);
    QWindow *window = plot.windowHandle();
    const QPoint from = plot.canvas()->mapTo(&plot, QPoint(80, 60));
    QTest::mousePress(window, Qt::RightButton, Qt::NoModifier, from);
    QTest::mouseMove(window, from + QPoint(3, 0));
    QTest::mouseRelease(window, Qt::RightButton, Qt::NoModifier, from + QPoint(3, 0));
    // The menu would be posted at the release: let every posted event run.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QVERIFY(!record.shown);
    QVERIFY(!QApplication::activePopupWidget());

    // The same through the menu event at the release, as platforms that send
    // it there do.
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(80, 60), Qt::RightButton,
                       Qt::RightButton);
    TestSupport::mouse(plot.canvas(), QEvent::MouseMove, QPoint(80, 63), Qt::NoButton, Qt::RightButton);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(80, 63), Qt::RightButton);
    TestSupport::contextMenu(plot.canvas(), QPoint(80, 63));
    QCoreApplication::processEvents();
    QVERIFY(!record.shown);
}

void tst_VoidPlotContextMenu::menuWaitsForTheReleaseOfTheRightButton()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    MenuRecord record;
    MenuReader reader(record);
    QWindow *window = plot.windowHandle();
    const QPoint at = plot.canvas()->mapTo(&plot, QPoint(50, 50));
    QTest::mousePress(window, Qt::RightButton, Qt::NoModifier, at);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QVERIFY(!record.shown);
    QTest::mouseMove(window, at + QPoint(2, -2));
    QTest::mouseRelease(window, Qt::RightButton, Qt::NoModifier, at + QPoint(2, -2));
    QTRY_VERIFY(record.shown);
}

void tst_VoidPlotContextMenu::menuEventFarFromThePressOpensNoMenu_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("opens");
    QTest::newRow("at the press") << QPoint(0, 0) << true;
    QTest::newRow("2 right, 2 up") << QPoint(2, -2) << true;
    QTest::newRow("2 left, 2 down") << QPoint(-2, 2) << true;
    QTest::newRow("3 right") << QPoint(3, 0) << false;
    QTest::newRow("3 up") << QPoint(0, -3) << false;
    QTest::newRow("far away") << QPoint(100, 40) << false;
}

void tst_VoidPlotContextMenu::menuEventFarFromThePressOpensNoMenu()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, opens);

    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    const QPoint press(60, 50);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonPress, press, Qt::RightButton, Qt::RightButton);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonRelease, press + offset, Qt::RightButton);
    MenuRecord record;
    MenuReader reader(record);
    // A menu event from a platform that sends it at the release.
    TestSupport::contextMenu(plot.canvas(), press + offset);
    QCoreApplication::processEvents();
    QCOMPARE(record.shown, opens);
}

void tst_VoidPlotContextMenu::menuKeyOpensTheMenuOnlyAtThePress()
{
    VoidPlotProbe plot;
    QVERIFY(showActive(plot));
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonPress, QPoint(40, 40), Qt::LeftButton,
                       Qt::LeftButton);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonRelease, QPoint(40, 40), Qt::LeftButton);
    {
        MenuRecord record;
        MenuReader reader(record);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(41, 39),
                              plot.canvas()->mapToGlobal(QPoint(41, 39)));
        QCoreApplication::sendEvent(plot.canvas(), &key);
        QVERIFY(record.shown);
    }
    {
        MenuRecord record;
        MenuReader reader(record);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(120, 90),
                              plot.canvas()->mapToGlobal(QPoint(120, 90)));
        QCoreApplication::sendEvent(plot.canvas(), &key);
        QCoreApplication::processEvents();
        QVERIFY(!record.shown);
    }
}

void tst_VoidPlotContextMenu::textDataPlaceholdersLogNotImplemented()
{
    VoidPlot plot;
    QTest::ignoreMessage(QtDebugMsg, "copyTextDataToClipboard not implemented");
    plot.copyTextDataToClipboard();
    QTest::ignoreMessage(QtDebugMsg, "exportTextDataToFile not implemented");
    plot.exportTextDataToFile();
}

QTEST_MAIN(tst_VoidPlotContextMenu)
#include "tst_voidplot_contextmenu.moc"
