// The plot settings dialog on its own: the form, the list of pages, page
// switching, Restore Defaults over all pages, and the facade that forwards
// each operation to one page.

#include <figura/dialogs/AxisSettingsPanel.h>
#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/dialogs/LabelSettingsPanel.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/VoidPlot.h>

#include "PanelTestSupport.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSizeGrip>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using TestSupport::WhenShown;
using PanelTest::child;
using PanelTest::fontColor;
using PanelTest::tickFormat;

namespace {

class OpenDialog : public PlotSettingsDialog
{
public:
    using PlotSettingsDialog::PlotSettingsDialog;
    using PlotSettingsDialog::axisPanel;
    using PlotSettingsDialog::generalPanel;
    using PlotSettingsDialog::groupNames;
    using PlotSettingsDialog::labelPanel;
    using PlotSettingsDialog::plot;
};

QAbstractButton *standardButton(QWidget &dialog, QDialogButtonBox::StandardButton which)
{
    auto *box = child<QDialogButtonBox>(dialog, QStringLiteral("buttonBox"));
    return box ? box->button(which) : nullptr;
}

} // namespace

class tst_PlotSettingsDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void formHasItsNamesLayoutsAndSize();
    void windowTitleIsPlotSettings();
    void pageTitleIsBoldAndTwoPointsLarger();
    void buttonBoxOffersOkCancelAndRestoreDefaults();
    void groupListNamesThreePagesWithIcons();
    void stackHoldsTheThreePanelsInOrder();
    void rowZeroIsCurrentAfterConstruction();
    void choosingARowShowsItsPage_data();
    void choosingARowShowsItsPage();
    void parentThatIsNoPlotGivesPanelsOnDefaults();
    void plotParentIsRemembered();
    void dialogHasNoSignalsOfItsOwn();

    void restoreDefaultsResetsAllPagesAndKeepsPageAndDialog();
    void setDefaultCanvasColorChangesNothingUntilRestoreDefaults();
    void okAndCancelCloseTheDialog_data();
    void okAndCancelCloseTheDialog();

    void isLogScaleOfAxisWithoutTabIsFalse();
    void generalFacadeForwardsToGeneralPage();
    void axisFacadeForwardsToAxisPage();
    void labelFacadeForwardsToLabelPage();
    void peakLabelFormatIsBuiltFromFontColourAndRotation();
    void setDefaultPeakLabelFormatShowsAfterRestore();
    void visibilitySwitchesReachTheirPages_data();
    void visibilitySwitchesReachTheirPages();

private:
    QTemporaryDir m_config;
};

void tst_PlotSettingsDialog::initTestCase()
{
    QVERIFY(PanelTest::isolateSettings(m_config, QStringLiteral("tst_plotsettingsdialog")));
}

void tst_PlotSettingsDialog::formHasItsNamesLayoutsAndSize()
{
    PlotSettingsDialog dialog(nullptr);
    QCOMPARE(dialog.objectName(), QStringLiteral("PlotSettingsDialog"));
    QCOMPARE(dialog.size(), QSize(640, 480));
    QVERIFY(dialog.isSizeGripEnabled());

    auto *outer = child<QVBoxLayout>(dialog, QStringLiteral("verticalLayout_2"));
    QVERIFY(outer);
    QCOMPARE(dialog.layout(), outer);
    QCOMPARE(PanelTest::boxItems(outer),
             QStringList({QStringLiteral("horizontalLayout"), QStringLiteral("buttonBox")}));
    auto *row = child<QHBoxLayout>(dialog, QStringLiteral("horizontalLayout"));
    QVERIFY(row);
    QCOMPARE(PanelTest::boxItems(row),
             QStringList({QStringLiteral("groupList"), QStringLiteral("pageContainer")}));

    auto *container = child(dialog, QStringLiteral("pageContainer"));
    auto *inner = child<QVBoxLayout>(dialog, QStringLiteral("verticalLayout"));
    QVERIFY(container && inner);
    QCOMPARE(container->layout(), inner);
    QCOMPARE(inner->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(PanelTest::boxItems(inner),
             QStringList({QStringLiteral("pageTitle"), QStringLiteral("stackedWidget")}));

    auto *list = child<QListWidget>(dialog, QStringLiteral("groupList"));
    QCOMPARE(list->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(list->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(container->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(container->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(list->spacing(), 5);
    QCOMPARE(list->minimumWidth(), list->sizeHintForColumn(0) + 20);
}

void tst_PlotSettingsDialog::windowTitleIsPlotSettings()
{
    PlotSettingsDialog dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Plot Settings"));
}

void tst_PlotSettingsDialog::pageTitleIsBoldAndTwoPointsLarger()
{
    PlotSettingsDialog dialog(nullptr);
    auto *title = child<QLabel>(dialog, QStringLiteral("pageTitle"));
    QVERIFY(title);
    QCOMPARE(title->font().weight(), QFont::Bold);
    QCOMPARE(int(QFont::Bold), 700);
    QCOMPARE(title->font().pointSizeF(), dialog.font().pointSizeF() + 2);
}

void tst_PlotSettingsDialog::buttonBoxOffersOkCancelAndRestoreDefaults()
{
    PlotSettingsDialog dialog(nullptr);
    auto *box = child<QDialogButtonBox>(dialog, QStringLiteral("buttonBox"));
    QVERIFY(box);
    QCOMPARE(box->orientation(), Qt::Horizontal);
    QCOMPARE(box->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                         | QDialogButtonBox::RestoreDefaults);
}

void tst_PlotSettingsDialog::groupListNamesThreePagesWithIcons()
{
    OpenDialog dialog(nullptr);
    auto *list = child<QListWidget>(dialog, QStringLiteral("groupList"));
    QCOMPARE(list->count(), 3);
    const QStringList titles = {QStringLiteral("General"), QStringLiteral("Axes"),
                                QStringLiteral("Data Labels")};
    const QStringList icons = {QStringLiteral(":/images/categorize-black.png"),
                               QStringLiteral(":/images/xy-coordinate-black.png"),
                               QStringLiteral(":/images/abc-black.png")};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(list->item(i)->text(), titles.at(i));
        QVERIFY2(PanelTest::iconShows(list->item(i)->icon(), icons.at(i)), qPrintable(icons.at(i)));
        QCOMPARE(dialog.groupNames.value(i), titles.at(i));
    }
    QCOMPARE(dialog.groupNames.size(), 3);
}

void tst_PlotSettingsDialog::stackHoldsTheThreePanelsInOrder()
{
    OpenDialog dialog(nullptr);
    auto *stack = child<QStackedWidget>(dialog, QStringLiteral("stackedWidget"));
    QCOMPARE(stack->count(), 3);
    QCOMPARE(stack->widget(0), static_cast<QWidget *>(dialog.generalPanel));
    QCOMPARE(stack->widget(1), static_cast<QWidget *>(dialog.axisPanel));
    QCOMPARE(stack->widget(2), static_cast<QWidget *>(dialog.labelPanel));
    // The form's placeholder pages are gone.
    QVERIFY(!child(dialog, QStringLiteral("page")));
    QVERIFY(!child(dialog, QStringLiteral("page_2")));
}

void tst_PlotSettingsDialog::rowZeroIsCurrentAfterConstruction()
{
    OpenDialog dialog(nullptr);
    QCOMPARE(child<QListWidget>(dialog, QStringLiteral("groupList"))->currentRow(), 0);
    QCOMPARE(child<QLabel>(dialog, QStringLiteral("pageTitle"))->text(), QStringLiteral("General"));
    QCOMPARE(child<QStackedWidget>(dialog, QStringLiteral("stackedWidget"))->currentWidget(),
             static_cast<QWidget *>(dialog.generalPanel));
}

void tst_PlotSettingsDialog::choosingARowShowsItsPage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("page");
    QTest::newRow("Axes") << 1 << QStringLiteral("Axes") << QStringLiteral("AxisSettingsPanel");
    QTest::newRow("Data Labels") << 2 << QStringLiteral("Data Labels")
                                 << QStringLiteral("LabelSettingsPanel");
    QTest::newRow("General") << 0 << QStringLiteral("General")
                             << QStringLiteral("GeneralSettingsPanel");
}

void tst_PlotSettingsDialog::choosingARowShowsItsPage()
{
    QFETCH(int, row);
    QFETCH(QString, title);
    QFETCH(QString, page);
    PlotSettingsDialog dialog(nullptr);
    QVERIFY(TestSupport::showActive(dialog, QSize(640, 480)));
    auto *list = child<QListWidget>(dialog, QStringLiteral("groupList"));
    if (row == 0)
        list->setCurrentRow(2);
    // By the pointer, as a user chooses a page.
    const QRect rect = list->visualItemRect(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QCOMPARE(list->currentRow(), row);
    QCOMPARE(child<QLabel>(dialog, QStringLiteral("pageTitle"))->text(), title);
    QCOMPARE(child<QStackedWidget>(dialog, QStringLiteral("stackedWidget"))->currentWidget()
                 ->objectName(),
             page);
}

void tst_PlotSettingsDialog::parentThatIsNoPlotGivesPanelsOnDefaults()
{
    QWidget parent;
    OpenDialog dialog(&parent);
    QCOMPARE(dialog.plot, nullptr);
    QCOMPARE(dialog.parentWidget(), &parent);
    auto *tabs = dialog.axisPanel->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("X-Axis"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Y-Axis"));
    QCOMPARE(dialog.canvasColor(), PlotDefault::CanvasBackground);
    QCOMPARE(dialog.markerColor(), PlotDefault::MarkerColor);
    QCOMPARE(dialog.axisScale(QwtPlot::yRight), -1);
}

void tst_PlotSettingsDialog::plotParentIsRemembered()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.enableDarkMode(true);
    OpenDialog dialog(&plot);
    QCOMPARE(dialog.plot, &plot);
    QCOMPARE(dialog.parentWidget(), static_cast<QWidget *>(&plot));
    // The pages were built on the plot: dark defaults and a right axis tab.
    QCOMPARE(dialog.canvasColor(), PlotDefault::DarkMode::CanvasBackground);
    QCOMPARE(dialog.axisScale(QwtPlot::yRight), 1);
    auto *tabs = dialog.axisPanel->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    QCOMPARE(tabs->count(), 3);
}

void tst_PlotSettingsDialog::dialogHasNoSignalsOfItsOwn()
{
    const QMetaObject &meta = PlotSettingsDialog::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        QVERIFY2(meta.method(i).methodType() != QMetaMethod::Signal, meta.method(i).methodSignature());
    QVERIFY(meta.indexOfSlot("onGroupChanged(QModelIndex,QModelIndex)") >= 0);
    QVERIFY(meta.indexOfSlot("onButtonBoxClicked(QAbstractButton*)") >= 0);
}

void tst_PlotSettingsDialog::restoreDefaultsResetsAllPagesAndKeepsPageAndDialog()
{
    VoidPlot plot;
    OpenDialog dialog(&plot);
    bool stillOpen = false;
    bool onGeneralPage = false;
    QColor canvasAfter;
    int markerWidthAfter = 0;
    Qt::AlignmentFlag alignmentAfter = Qt::AlignLeft;
    int bottomRotationAfter = 0;
    QString bottomTitleAfter;
    bool applyAllAfter = false;
    QWidget *shown = nullptr;

    WhenShown press(TestSupport::activeModal, [&](QWidget *w) {
        shown = w;
        dialog.setCanvasColor(Qt::red);
        dialog.setApplyLineWidthToAll(true);
        dialog.setMarkerWidth(33);
        dialog.setMarkerLabelAlignment(Qt::AlignBottom);
        dialog.setTickLabel(QwtPlot::xBottom, tickFormat(QFont(), Qt::red, 60));
        dialog.setAxisTitle(QwtPlot::xBottom, QwtText(QStringLiteral("changed")));
        standardButton(dialog, QDialogButtonBox::RestoreDefaults)->click();
        QCoreApplication::processEvents();
        stillOpen = dialog.isVisible();
        onGeneralPage = child<QStackedWidget>(dialog, QStringLiteral("stackedWidget"))
                            ->currentWidget() == dialog.generalPanel;
        canvasAfter = dialog.canvasColor();
        markerWidthAfter = dialog.markerWidth();
        alignmentAfter = dialog.markerLabelAlignment();
        bottomRotationAfter = dialog.tickLabel(QwtPlot::xBottom).rotation;
        bottomTitleAfter = dialog.axisTitle(QwtPlot::xBottom).text();
        applyAllAfter = dialog.isApplyLineWidthChecked();
        dialog.reject();
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(press.fired());
    QCOMPARE(shown, static_cast<QWidget *>(&dialog));
    QVERIFY(stillOpen);
    QVERIFY(onGeneralPage);
    QCOMPARE(canvasAfter, PlotDefault::CanvasBackground);
    QCOMPARE(markerWidthAfter, PlotDefault::MarkerWidth);
    QCOMPARE(alignmentAfter, Qt::AlignTop);
    QCOMPARE(bottomRotationAfter, plot.defaultTickLabel(QwtPlot::xBottom).rotation);
    QCOMPARE(bottomTitleAfter, plot.defaultAxisTitle(QwtPlot::xBottom).text());
    QVERIFY(applyAllAfter);
}

void tst_PlotSettingsDialog::setDefaultCanvasColorChangesNothingUntilRestoreDefaults()
{
    PlotSettingsDialog dialog(nullptr);
    dialog.setCanvasColor(QColor(0x21, 0x22, 0x23));
    dialog.setDefaultCanvasColor(QColor(0x31, 0x32, 0x33));
    QCOMPARE(dialog.canvasColor(), QColor(0x21, 0x22, 0x23));
    QVERIFY(TestSupport::showActive(dialog, QSize(640, 480)));
    QCOMPARE(dialog.canvasColor(), QColor(0x21, 0x22, 0x23));
    standardButton(dialog, QDialogButtonBox::RestoreDefaults)->click();
    QCOMPARE(dialog.canvasColor(), QColor(0x31, 0x32, 0x33));
    QVERIFY(dialog.isVisible());
}

void tst_PlotSettingsDialog::okAndCancelCloseTheDialog_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << int(QDialogButtonBox::Ok) << int(QDialog::Accepted);
    QTest::newRow("Cancel") << int(QDialogButtonBox::Cancel) << int(QDialog::Rejected);
}

void tst_PlotSettingsDialog::okAndCancelCloseTheDialog()
{
    QFETCH(int, button);
    QFETCH(int, result);
    PlotSettingsDialog dialog(nullptr);
    WhenShown press(TestSupport::activeModal, [&](QWidget *) {
        standardButton(dialog, QDialogButtonBox::StandardButton(button))->click();
    });
    QCOMPARE(dialog.exec(), result);
    QVERIFY(press.fired());
    QVERIFY(!dialog.isVisible());
}

void tst_PlotSettingsDialog::isLogScaleOfAxisWithoutTabIsFalse()
{
    PlotSettingsDialog dialog(nullptr);
    dialog.setAxisScale(QwtPlot::xTop, 1);
    QCOMPARE(dialog.axisScale(QwtPlot::xTop), -1);
    QVERIFY(!dialog.isLogScale(QwtPlot::xTop));
    dialog.setAxisScale(QwtPlot::yLeft, 1);
    QVERIFY(dialog.isLogScale(QwtPlot::yLeft));
    dialog.setAxisScale(QwtPlot::yLeft, 0);
    QVERIFY(!dialog.isLogScale(QwtPlot::yLeft));
}

void tst_PlotSettingsDialog::generalFacadeForwardsToGeneralPage()
{
    OpenDialog dialog(nullptr);
    GeneralSettingsPanel *page = dialog.generalPanel;

    const QwtText title = fontColor(QFont(QStringLiteral("Serif"), 16), QColor(1, 1, 1),
                                    QStringLiteral("Spectrum"));
    dialog.setPlotTitle(title);
    QCOMPARE(page->plotTitle(), title);
    QCOMPARE(dialog.plotTitle(), title);

    dialog.setCanvasColor(QColor(2, 2, 2));
    dialog.setMajorGridColor(QColor(3, 3, 3));
    dialog.setMinorGridColor(QColor(4, 4, 4));
    dialog.setChartColor(QColor(5, 5, 5));
    QCOMPARE(page->canvasColor(), QColor(2, 2, 2));
    QCOMPARE(dialog.majorGridColor(), QColor(3, 3, 3));
    QCOMPARE(dialog.minorGridColor(), QColor(4, 4, 4));
    QCOMPARE(dialog.chartColor(), QColor(5, 5, 5));

    dialog.setLineChartWidth(6);
    QCOMPARE(page->lineChartWidth(), 6);
    dialog.setApplyLineWidthToAll(true);
    QVERIFY(dialog.isApplyLineWidthChecked());
    dialog.setBarChartBaseline(7e-6);
    QCOMPARE(dialog.barChartBaseline(), 7e-6);
    dialog.setTimeFormat(2);
    QCOMPARE(page->timeFormat(), 2);
    QCOMPARE(dialog.timeFormat(), 2);

    dialog.setDefaultPlotTitle(fontColor(QFont(QStringLiteral("Sans"), 9), QColor(8, 8, 8)));
    dialog.setDefaultMajorGridColor(QColor(9, 9, 9));
    dialog.setDefaultMinorGridColor(QColor(10, 10, 10));
    dialog.setDefaultChartColor(QColor(11, 11, 11));
    dialog.setDefaultLineChartWidth(12);
    dialog.setDefaultBarChartBaseline(0.25);
    dialog.setDefaultTimeFormat(1);
    dialog.setBarChartBaselineRange(-1.0, 1.0);
    page->restoreDefaults();
    QCOMPARE(dialog.plotTitle().color(), QColor(8, 8, 8));
    QCOMPARE(dialog.majorGridColor(), QColor(9, 9, 9));
    QCOMPARE(dialog.minorGridColor(), QColor(10, 10, 10));
    QCOMPARE(dialog.chartColor(), QColor(11, 11, 11));
    QCOMPARE(dialog.lineChartWidth(), 12);
    QCOMPARE(dialog.barChartBaseline(), 0.25);
    QCOMPARE(dialog.timeFormat(), 1);
    QVERIFY(dialog.isApplyLineWidthChecked());
}

void tst_PlotSettingsDialog::axisFacadeForwardsToAxisPage()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    OpenDialog dialog(&plot);
    AxisSettingsPanel *page = dialog.axisPanel;

    dialog.setAxisScale(QwtPlot::yRight, 0);
    QCOMPARE(page->axisScale(QwtPlot::yRight), 0);
    dialog.setAxisTitle(QwtPlot::yRight, QwtText(QStringLiteral("Intensity")));
    QCOMPARE(page->axisTitle(QwtPlot::yRight).text(), QStringLiteral("Intensity"));
    QCOMPARE(dialog.axisTitle(QwtPlot::yRight).text(), QStringLiteral("Intensity"));
    const TickLabelFormat format = tickFormat(QFont(QStringLiteral("Serif"), 8), QColor(1, 2, 3), 45);
    dialog.setTickLabel(QwtPlot::yRight, format);
    QCOMPARE(page->tickLabel(QwtPlot::yRight), format);
    QCOMPARE(dialog.tickLabel(QwtPlot::yRight), format);

    dialog.setAxisScaleEnabled(QwtPlot::yRight, false);
    dialog.setAxisScaleVisible(QwtPlot::yLeft, false);
    auto *tabs = page->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
    QVERIFY(!tabs->widget(2)->findChild<QGroupBox *>(QStringLiteral("scaleGroupBox"))->isEnabled());
    QVERIFY(tabs->widget(1)->findChild<QGroupBox *>(QStringLiteral("scaleGroupBox"))->isHidden());

    dialog.setDefaultAxisScale(QwtPlot::yRight, 0);
    dialog.setDefaultAxisTitle(QwtPlot::yRight, fontColor(QFont(), QColor(4, 5, 6)));
    dialog.setDefaultTickLabel(QwtPlot::yRight, tickFormat(QFont(), QColor(7, 8, 9), -10));
    dialog.setAxisScale(QwtPlot::yRight, 1);
    page->restoreDefaults();
    QCOMPARE(dialog.axisScale(QwtPlot::yRight), 0);
    QCOMPARE(dialog.axisTitle(QwtPlot::yRight).color(), QColor(4, 5, 6));
    QCOMPARE(dialog.tickLabel(QwtPlot::yRight).color, QColor(7, 8, 9));
    QCOMPARE(dialog.tickLabel(QwtPlot::yRight).rotation, -10);
}

void tst_PlotSettingsDialog::labelFacadeForwardsToLabelPage()
{
    OpenDialog dialog(nullptr);
    LabelSettingsPanel *page = dialog.labelPanel;

    dialog.setMarkerVisible(false);
    QVERIFY(!page->isMarkerVisible());
    QCOMPARE(dialog.markerVisibility(), 1);
    dialog.setMarkerVisibility(0);
    QVERIFY(dialog.isMarkerVisible());
    dialog.setMarkerWidth(4);
    QCOMPARE(page->markerWidth(), 4);
    QCOMPARE(dialog.markerWidth(), 4);
    dialog.setMarkerColor(QColor(1, 2, 3));
    QCOMPARE(dialog.markerColor(), QColor(1, 2, 3));

    dialog.setMarkerLabelVisible(false);
    QVERIFY(!page->isMarkerLabelVisible());
    QCOMPARE(dialog.markerLabelVisibility(), 1);
    dialog.setMarkerLabelVisibility(0);
    QVERIFY(dialog.isMarkerLabelVisible());
    dialog.setMarkerLabel(fontColor(QFont(QStringLiteral("Serif"), 13), QColor(4, 5, 6)));
    QCOMPARE(page->markerLabel().color(), QColor(4, 5, 6));
    QCOMPARE(dialog.markerLabel().font(), QFont(QStringLiteral("Serif"), 13));
    dialog.setMarkerLabelBgColor(QColor(7, 8, 9));
    QCOMPARE(dialog.markerLabelBgColor(), QColor(7, 8, 9));
    dialog.setMarkerLabelAlignment(Qt::AlignVCenter);
    QCOMPARE(page->markerLabelAlignment(), Qt::AlignVCenter);
    QCOMPARE(dialog.markerLabelAlignment(), Qt::AlignVCenter);
    dialog.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    QCOMPARE(dialog.markerLabelSortOption(), Figura::MarkerLabelSortByValue);

    dialog.setPeakLabelVisible(false);
    QVERIFY(!page->isPeakLabelVisible());
    QCOMPARE(dialog.peakLabelVisibility(), 1);
    dialog.setPeakLabelVisibility(0);
    QVERIFY(dialog.isPeakLabelVisible());
    dialog.setPeakLabelDescription(QStringLiteral("Described"));
    QCOMPARE(page->findChild<QLabel *>(QStringLiteral("peakLabelDescription"))->text(),
             QStringLiteral("Described"));
    dialog.setPeakLabelGroupName(QStringLiteral("Named"));
    QCOMPARE(page->findChild<QGroupBox *>(QStringLiteral("peakLabelGroupBox"))->title(),
             QStringLiteral("Named"));

    dialog.setDefaultMarkerVisibility(1);
    dialog.setDefaultMarkerWidth(11);
    dialog.setDefaultMarkerColor(QColor(10, 10, 10));
    dialog.setDefaultMarkerLabelVisibility(1);
    dialog.setDefaultMarkerLabel(fontColor(QFont(QStringLiteral("Sans"), 8), QColor(11, 11, 11)));
    dialog.setDefaultMarkerLabelBgColor(QColor(12, 12, 12));
    dialog.setDefaultMarkerLabelAlignment(Qt::AlignTrailing);
    dialog.setDefaultMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    dialog.setDefaultPeakLabelVisibility(1);
    dialog.setMarkerLabelSortOption(Figura::MarkerLabelSortDefault);
    page->restoreDefaults();
    QVERIFY(!dialog.isMarkerVisible());
    QCOMPARE(dialog.markerWidth(), 11);
    QCOMPARE(dialog.markerColor(), QColor(10, 10, 10));
    QVERIFY(!dialog.isMarkerLabelVisible());
    QCOMPARE(dialog.markerLabel().color(), QColor(11, 11, 11));
    QCOMPARE(dialog.markerLabelBgColor(), QColor(12, 12, 12));
    QCOMPARE(dialog.markerLabelAlignment(), Qt::AlignTrailing);
    QCOMPARE(dialog.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
    QVERIFY(!dialog.isPeakLabelVisible());
}

void tst_PlotSettingsDialog::peakLabelFormatIsBuiltFromFontColourAndRotation()
{
    OpenDialog dialog(nullptr);
    const PeakLabelFormat format(QFont(QStringLiteral("Serif"), 11), QColor(0x12, 0x34, 0x56), 30);
    dialog.setPeakLabelFormat(format);
    QCOMPARE(dialog.labelPanel->peakLabelRotation(), 30);
    QCOMPARE(dialog.labelPanel->peakLabel().color(), QColor(0x12, 0x34, 0x56));
    QVERIFY(dialog.peakLabelFormat() == format);

    // A format without a rotation leaves the spin box where it stood.
    dialog.setPeakLabelFormat(PeakLabelFormat(QFont(QStringLiteral("Sans"), 7), Qt::red,
                                              Figura::UnsetValue));
    const PeakLabelFormat back = dialog.peakLabelFormat();
    QCOMPARE(back.textRotation(), 30);
    QCOMPARE(back.color(), QColor(Qt::red));
    QCOMPARE(back.font(), QFont(QStringLiteral("Sans"), 7));
}

void tst_PlotSettingsDialog::setDefaultPeakLabelFormatShowsAfterRestore()
{
    PlotSettingsDialog dialog(nullptr);
    const PeakLabelFormat before = dialog.peakLabelFormat();
    const PeakLabelFormat wanted(QFont(QStringLiteral("Serif"), 19), QColor(0x65, 0x43, 0x21), -20);
    dialog.setDefaultPeakLabelFormat(wanted);
    QVERIFY(dialog.peakLabelFormat() == before);
    standardButton(dialog, QDialogButtonBox::RestoreDefaults)->click();
    QVERIFY(dialog.peakLabelFormat() == wanted);
}

void tst_PlotSettingsDialog::visibilitySwitchesReachTheirPages_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QStringList>("hidden");
    auto row = [](const char *name, int which, const QStringList &hidden) {
        QTest::newRow(name) << which << hidden;
    };
    row("plotTitleOptions", 0, {QStringLiteral("plotTitleGroupBox")});
    row("canvasOptions", 1, {QStringLiteral("canvasGroupBox")});
    row("chartOptions", 2, {QStringLiteral("chartGroupBox")});
    row("chartColor", 3, {QStringLiteral("chartColorLabel"), QStringLiteral("chartColorToolButton")});
    row("lineChartWidth", 4,
        {QStringLiteral("chartLineWidthLabel"), QStringLiteral("chartLineWidthSpinBox")});
    row("applyLineWidth", 5, {QStringLiteral("applyLineWidthToAllCheckBox")});
    row("barChartBaseline", 6,
        {QStringLiteral("barChartBaselineLabel"), QStringLiteral("barChartBaselineEdit"),
         QStringLiteral("barChartBaseLineInfoButton")});
    row("timeFormat", 7, {QStringLiteral("timeGroupBox")});
    row("markerOptions", 8, {QStringLiteral("markerGroupBox")});
    row("markerLabelOptions", 9, {QStringLiteral("markerLabelGroupBox")});
    row("markerLabelSortOption", 10,
        {QStringLiteral("markerLabelSortLabel"), QStringLiteral("markerLabelSortComboBox")});
    row("peakLabelOptions", 11, {QStringLiteral("peakLabelGroupBox")});
}

void tst_PlotSettingsDialog::visibilitySwitchesReachTheirPages()
{
    QFETCH(int, which);
    QFETCH(QStringList, hidden);
    PlotSettingsDialog dialog(nullptr);
    auto set = [&](bool on) {
        switch (which) {
        case 0: dialog.setPlotTitleOptionsVisible(on); break;
        case 1: dialog.setCanvasOptionsVisible(on); break;
        case 2: dialog.setChartOptionsVisible(on); break;
        case 3: dialog.setChartColorVisible(on); break;
        case 4: dialog.setLineChartWidthVisible(on); break;
        case 5: dialog.setApplyLineWidthVisible(on); break;
        case 6: dialog.setBarChartBaselineVisible(on); break;
        case 7: dialog.setTimeFormatVisible(on); break;
        case 8: dialog.setMarkerOptionsVisible(on); break;
        case 9: dialog.setMarkerLabelOptionsVisible(on); break;
        case 10: dialog.setMarkerLabelSortOptionVisible(on); break;
        default: dialog.setPeakLabelOptionsVisible(on); break;
        }
    };
    set(false);
    for (const QString &name : hidden)
        QVERIFY2(child(dialog, name)->isHidden(), qPrintable(name));
    // Only those: a neighbour stays.
    QVERIFY(!child(dialog, QStringLiteral("titleTextEdit"))->isHidden());
    set(true);
    for (const QString &name : hidden)
        QVERIFY2(!child(dialog, name)->isHidden(), qPrintable(name));
}

QTEST_MAIN(tst_PlotSettingsDialog)
#include "tst_plotsettingsdialog.moc"
