// A host may delete a plot at any time, also while one of the plot's own
// menus or modal dialogs runs its event loop: a timer of the host fires in
// that loop and deletes the plot, calls deleteLater() on it (which Qt also
// carries out inside the nested loop) or deletes the window around it. The
// menu or dialog must close with the plot, exec() must return, and nothing
// may touch the dead plot afterwards.

#include <figura/dialogs/CustomScaleSettings.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/VoidPlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

#include <functional>
#include <memory>

using namespace StressSupport;
using namespace TestSupport;

namespace {

// How the host ends the plot from its timer.
enum class Kill {
    DeletePlot,      // delete plot
    DeletePlotLater, // plot->deleteLater()
    DeleteHost       // delete the window the plot lives in
};

const char *killName(Kill kill)
{
    switch (kill) {
    case Kill::DeletePlot:
        return "delete";
    case Kill::DeletePlotLater:
        return "deleteLater";
    case Kill::DeleteHost:
        return "delete host";
    }
    return "";
}

// A host window with a plot in its layout.
struct Host
{
    QPointer<QWidget> window;
    QPointer<VoidPlot> plot;

    explicit Host(const QString &className)
    {
        window = new QWidget;
        auto *layout = new QVBoxLayout(window);
        plot = makePlot(className, window);
        layout->addWidget(plot);
    }
    ~Host() { delete window; }

    void kill(Kill how)
    {
        switch (how) {
        case Kill::DeletePlot:
            delete plot;
            break;
        case Kill::DeletePlotLater:
            plot->deleteLater();
            break;
        case Kill::DeleteHost:
            delete window;
            break;
        }
    }

    QPoint canvasCentreInWindow() const
    {
        return plot->canvas()->mapTo(window, plot->canvas()->rect().center());
    }

    // A right click as the window system delivers it, at a point of the window.
    void rightClick(QPoint inWindow)
    {
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier, inWindow);
    }

    // Ends the plot the way given as soon as find() returns a widget, which
    // it keeps in shown (to check that it died with the plot).
    template <class W>
    std::unique_ptr<WhenShown> killWhenShown(std::function<QWidget *()> find, Kill how,
                                             QPointer<W> &shown)
    {
        return std::make_unique<WhenShown>(std::move(find), [this, how, &shown](QWidget *widget) {
            shown = qobject_cast<W *>(widget);
            kill(how);
        });
    }
};

// The running modal dialog if it is of the class, or has the object name its
// form gives it (a dialog without a meta-object of its own).
QDialog *activeDialogOfClass(const char *className)
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog)
        return nullptr;
    const bool matches = dialog->inherits(className)
        || dialog->objectName() == QLatin1String(className);
    return matches ? dialog : nullptr;
}

// A CurvePlot whose curve dialog a test can open directly.
class OpenCurvePlot : public CurvePlot
{
public:
    using CurvePlot::CurvePlot;
    using CurvePlot::editCurveAttributes;
};

QStringList storedScaleNames(CustomScale::XScaleType type)
{
    CustomScaleSettings store(type);
    store.load();
    QStringList names;
    for (const CustomScaleItem *item : store.items())
        names << item->name;
    return names;
}

} // namespace

Q_DECLARE_METATYPE(Kill)

class tst_LifetimeMenus : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void contextMenuClosesWhenPlotDies_data();
    void contextMenuClosesWhenPlotDies();
    void contextMenuFromKeyboardClosesWhenPlotDies_data();
    void contextMenuFromKeyboardClosesWhenPlotDies();
    void settingsDialogClosesWhenPlotDies_data();
    void settingsDialogClosesWhenPlotDies();
    void settingsDialogFromMenuClosesWhenPlotDies_data();
    void settingsDialogFromMenuClosesWhenPlotDies();
    void customScaleDialogClosesWhenPlotDiesAndStoresNothing_data();
    void customScaleDialogClosesWhenPlotDiesAndStoresNothing();
    void customScaleDialogFromMenuClosesWhenPlotDies_data();
    void customScaleDialogFromMenuClosesWhenPlotDies();
    void legendMenuClosesWhenPlotDies_data();
    void legendMenuClosesWhenPlotDies();
    void curveDialogClosesWhenPlotDies_data();
    void curveDialogClosesWhenPlotDies();
    void exportAcceptedAfterPlotDiedWritesNothing();
    void livingPlotStillAppliesAcceptedCustomScale();

private:
    void addKillRows(const QStringList &classes, const QList<Kill> &kills);

    QTemporaryDir settingsDir;
};

void tst_LifetimeMenus::initTestCase()
{
    installNoticeFilter();
    QVERIFY(TestSupport::isolateSettings(settingsDir, QStringLiteral("tst_lifetime_menus")));
}

void tst_LifetimeMenus::init()
{
    QSettings().clear();
}

void tst_LifetimeMenus::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_LifetimeMenus::addKillRows(const QStringList &classes, const QList<Kill> &kills)
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<Kill>("kill");
    for (const QString &className : classes)
        for (Kill kill : kills)
            QTest::addRow("%s, %s", qPrintable(className), killName(kill)) << className << kill;
}

void tst_LifetimeMenus::contextMenuClosesWhenPlotDies_data()
{
    addKillRows(plotClassNames(), {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost});
}

// The menu of a right click on the canvas, as the window system delivers it.
void tst_LifetimeMenus::contextMenuClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));

    QPointer<QMenu> menu;
    const auto killer = host.killWhenShown(
        [] { return activeMenuNamed(QStringLiteral("contextMenu")); }, kill, menu);
    BailOut bailOut;
    host.rightClick(host.canvasCentreInWindow());

    QTRY_VERIFY(killer->fired());
    QTRY_VERIFY(!host.plot);
    QVERIFY(!menu);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::contextMenuFromKeyboardClosesWhenPlotDies_data()
{
    addKillRows({QStringLiteral("CurvePlot"), QStringLiteral("MultiBarPlot")},
                {Kill::DeletePlot, Kill::DeletePlotLater});
}

// A menu event without a held button opens the menu while the event is still
// being delivered to the canvas, the way of the menu key and of platforms that
// send the event on release.
void tst_LifetimeMenus::contextMenuFromKeyboardClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));
    const QPoint press = host.plot->canvas()->rect().center();
    mouse(host.plot->canvas(), QEvent::MouseButtonPress, press, Qt::RightButton, Qt::RightButton);
    mouse(host.plot->canvas(), QEvent::MouseButtonRelease, press, Qt::RightButton, Qt::NoButton);

    QPointer<QMenu> menu;
    const auto killer = host.killWhenShown(
        [] { return activeMenuNamed(QStringLiteral("contextMenu")); }, kill, menu);
    BailOut bailOut;
    // Posted, as the window system's events are: the plot then dies while
    // Qt is still delivering the event to its canvas.
    QCoreApplication::postEvent(host.plot->canvas(),
                                new QContextMenuEvent(QContextMenuEvent::Keyboard, press,
                                                      host.plot->canvas()->mapToGlobal(press)));

    QTRY_VERIFY(killer->fired());
    QTRY_VERIFY(!host.plot);
    QVERIFY(!menu);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::settingsDialogClosesWhenPlotDies_data()
{
    addKillRows(plotClassNames(), {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost});
}

void tst_LifetimeMenus::settingsDialogClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));

    QPointer<QDialog> dialog;
    const auto killer =
        host.killWhenShown([] { return activeDialogOfClass("PlotSettingsDialog"); }, kill, dialog);
    BailOut bailOut;
    QVERIFY(QMetaObject::invokeMethod(host.plot, "editPlotSetting", Qt::DirectConnection));

    QVERIFY(killer->fired());
    QVERIFY(!host.plot);
    QVERIFY(!dialog);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::settingsDialogFromMenuClosesWhenPlotDies_data()
{
    addKillRows({QStringLiteral("CurvePlot"), QStringLiteral("TimeBarPlot")},
                {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost});
}

// "Customize Plot..." chosen in the context menu: the dialog runs while the
// menu's exec() is still on the stack beneath it.
void tst_LifetimeMenus::settingsDialogFromMenuClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));

    const auto choose =
        chooseWhenShown(QStringLiteral("contextMenu"), QStringLiteral("Customize Plot..."));
    QPointer<QDialog> dialog;
    const auto killer =
        host.killWhenShown([] { return activeDialogOfClass("PlotSettingsDialog"); }, kill, dialog);
    BailOut bailOut;
    host.rightClick(host.canvasCentreInWindow());

    QTRY_VERIFY(killer->fired());
    QVERIFY(choose->fired());
    QTRY_VERIFY(!host.plot);
    QVERIFY(!dialog);
    QTRY_VERIFY(!QApplication::activeModalWidget() && !QApplication::activePopupWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::customScaleDialogClosesWhenPlotDiesAndStoresNothing_data()
{
    addKillRows(plotClassNames(), {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost});
}

void tst_LifetimeMenus::customScaleDialogClosesWhenPlotDiesAndStoresNothing()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));
    const QStringList massBefore = storedScaleNames(CustomScale::MassScale);
    const QStringList timeBefore = storedScaleNames(CustomScale::TimeScale);

    QPointer<QDialog> dialog;
    const auto killer =
        host.killWhenShown([] { return activeDialogOfClass("CustomScaleDialog"); }, kill, dialog);
    BailOut bailOut;
    host.plot->editCustomScale();

    QVERIFY(killer->fired());
    QVERIFY(!host.plot);
    QVERIFY(!dialog);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!bailOut.struck());
    QCOMPARE(storedScaleNames(CustomScale::MassScale), massBefore);
    QCOMPARE(storedScaleNames(CustomScale::TimeScale), timeBefore);
}

void tst_LifetimeMenus::customScaleDialogFromMenuClosesWhenPlotDies_data()
{
    addKillRows({QStringLiteral("VoidPlot"), QStringLiteral("TimeCurvePlot"),
                 QStringLiteral("BarPlot")},
                {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost});
}

// "Edit Scale..." in the submenu "Custom Scale": two menus and the dialog
// are open above each other when the plot dies.
void tst_LifetimeMenus::customScaleDialogFromMenuClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    {
        // A stored scale, so that the submenu lists entries of the store too.
        CustomScaleSettings store(CustomScale::MassScale);
        store.add(1, 10, 1e-9, 1e-5, std::numeric_limits<double>::min(),
                  std::numeric_limits<double>::max());
    }
    Host host(className);
    QVERIFY(showActive(*host.window));

    const auto openSub =
        openSubmenuWhenShown(QStringLiteral("contextMenu"), QStringLiteral("customScaleMenu"));
    const auto choose =
        chooseWhenShown(QStringLiteral("customScaleMenu"), QStringLiteral("Edit Scale..."));
    QPointer<QDialog> dialog;
    const auto killer =
        host.killWhenShown([] { return activeDialogOfClass("CustomScaleDialog"); }, kill, dialog);
    BailOut bailOut;
    host.rightClick(host.canvasCentreInWindow());

    QTRY_VERIFY(killer->fired());
    QVERIFY(openSub->fired());
    QVERIFY(choose->fired());
    QTRY_VERIFY(!host.plot);
    QVERIFY(!dialog);
    QTRY_VERIFY(!QApplication::activeModalWidget() && !QApplication::activePopupWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::legendMenuClosesWhenPlotDies_data()
{
    // The legend's menu opens while the window system's press is delivered,
    // so the window itself must outlive that delivery: only the plot dies.
    addKillRows({QStringLiteral("CurvePlot"), QStringLiteral("TimeCurvePlot")},
                {Kill::DeletePlot, Kill::DeletePlotLater});
}

void tst_LifetimeMenus::legendMenuClosesWhenPlotDies()
{
    QFETCH(QString, className);
    QFETCH(Kill, kill);
    Host host(className);
    QVERIFY(showActive(*host.window));
    auto *curvePlot = qobject_cast<CurvePlot *>(host.plot);
    QVERIFY(curvePlot);
    auto *label = qobject_cast<QwtLegendLabel *>(
        curvePlot->plotLegend()->legendWidget(curvePlot->itemToInfo(curvePlot->curves().first())));
    QVERIFY(label);

    QPointer<QMenu> menu;
    const auto killer = host.killWhenShown(
        [] { return activeMenuNamed(QStringLiteral("legendContextMenu")); }, kill, menu);
    BailOut bailOut;
    host.rightClick(label->mapTo(host.window, label->rect().center()));

    QTRY_VERIFY(killer->fired());
    QTRY_VERIFY(!host.plot);
    QVERIFY(!menu);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    QVERIFY(!bailOut.struck());
}

void tst_LifetimeMenus::curveDialogClosesWhenPlotDies_data()
{
    QTest::addColumn<Kill>("kill");
    for (Kill kill : {Kill::DeletePlot, Kill::DeletePlotLater, Kill::DeleteHost})
        QTest::newRow(killName(kill)) << kill;
}

void tst_LifetimeMenus::curveDialogClosesWhenPlotDies()
{
    QFETCH(Kill, kill);
    auto *window = new QWidget;
    QPointer<QWidget> windowGuard(window);
    auto *layout = new QVBoxLayout(window);
    QPointer<OpenCurvePlot> plot = new OpenCurvePlot(window);
    layout->addWidget(plot);
    auto *curve = curveOf(QStringLiteral("curve"), risingSamples(20));
    plot->appendCurve(curve, true);
    QVERIFY(showActive(*window));

    QPointer<QDialog> dialog;
    WhenShown killer([] { return activeDialogOfClass("CurveSettingDialog"); },
                     [&](QWidget *shown) {
                         dialog = qobject_cast<QDialog *>(shown);
                         if (kill == Kill::DeletePlot)
                             delete plot;
                         else if (kill == Kill::DeletePlotLater)
                             plot->deleteLater();
                         else
                             delete window;
                     });
    BailOut bailOut;
    QVERIFY(!plot->editCurveAttributes(curve));

    QVERIFY(killer.fired());
    QVERIFY(!plot);
    QVERIFY(!dialog);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!bailOut.struck());
    delete windowGuard;
}

// The file dialog of the export has no parent and outlives the plot; a file
// chosen after the plot died is not written.
void tst_LifetimeMenus::exportAcceptedAfterPlotDiedWritesNothing()
{
    Host host(QStringLiteral("CurvePlot"));
    QVERIFY(showActive(*host.window));
    QTemporaryDir target;
    QVERIFY(target.isValid());
    const QString fileName = target.filePath(QStringLiteral("plot.png"));

    WhenShown accept([] { return activeDialogOfClass("QFileDialog"); }, [&](QWidget *shown) {
        host.kill(Kill::DeletePlot);
        auto *fileDialog = qobject_cast<QFileDialog *>(shown);
        fileDialog->selectFile(fileName);
        if (auto *name = fileDialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
            name->setText(QFileInfo(fileName).fileName());
        static_cast<QDialog *>(fileDialog)->accept();
    });
    BailOut bailOut;
    host.plot->exportImageToFile();

    QVERIFY(accept.fired());
    QVERIFY(!host.plot);
    QVERIFY(!bailOut.struck());
    QVERIFY(!QFileInfo::exists(fileName));
}

// The guards must not change what a living plot does with an accepted dialog.
void tst_LifetimeMenus::livingPlotStillAppliesAcceptedCustomScale()
{
    Host host(QStringLiteral("CurvePlot"));
    QVERIFY(showActive(*host.window));
    WhenShown accept([] { return activeDialogOfClass("CustomScaleDialog"); },
                     [](QWidget *shown) { qobject_cast<QDialog *>(shown)->accept(); });
    BailOut bailOut;
    const QwtInterval before = host.plot->axisInterval(QwtPlot::xBottom);
    host.plot->editCustomScale();

    QVERIFY(accept.fired());
    QVERIFY(host.plot);
    QCOMPARE(host.plot->axisInterval(QwtPlot::xBottom).minValue(), before.minValue());
    QCOMPARE(host.plot->axisInterval(QwtPlot::xBottom).maxValue(), before.maxValue());
    QCOMPARE(storedScaleNames(CustomScale::MassScale).size(), 1);
    QVERIFY(!bailOut.struck());
}

QTEST_MAIN(tst_LifetimeMenus)
#include "tst_lifetime_menus.moc"
