// The axis settings page and its tabs: the forms, which axes get a tab and
// what the tabs are called, the defaults by dark mode, and each operation
// forwarded by axis, including axes without a tab.

#include <figura/dialogs/AxisSettingsPanel.h>
#include <figura/dialogs/AxisSettingsTab.h>
#include <figura/plots/VoidPlot.h>

#include "PanelTestSupport.h"
#include "ui_AxisSettingsPanel.h"
#include "ui_AxisSettingsTab.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using PanelTest::DefaultsPlot;
using PanelTest::fontString;
using PanelTest::child;
using PanelTest::tickFormat;

namespace {

QStringList tabTexts(AxisSettingsPanel &panel)
{
    QStringList texts;
    auto *tabs = child<QTabWidget>(panel, QStringLiteral("tabWidget"));
    for (int i = 0; tabs && i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts;
}

AxisSettingsTab *tabAt(AxisSettingsPanel &panel, int index)
{
    auto *tabs = child<QTabWidget>(panel, QStringLiteral("tabWidget"));
    return tabs ? qobject_cast<AxisSettingsTab *>(tabs->widget(index)) : nullptr;
}

class OpenTab : public AxisSettingsTab
{
public:
    using AxisSettingsTab::AxisSettingsTab;
    using AxisSettingsTab::axisId;
    using AxisSettingsTab::defaultAxisScale;
    using AxisSettingsTab::defaultAxisTitle;
    using AxisSettingsTab::defaultTickLabel;
    using AxisSettingsTab::plot;

    // Reads protected members of a tab made by the panel. A cast of that tab
    // to OpenTab would name an object of a type it is not.
    static int axisIdOf(const AxisSettingsTab *tab) { return tab->*(&OpenTab::axisId); }
    static int defaultAxisScaleOf(const AxisSettingsTab *tab)
    {
        return tab->*(&OpenTab::defaultAxisScale);
    }
    static auto plotOf(const AxisSettingsTab *tab) { return tab->*(&OpenTab::plot); }
};

class OpenPanel : public AxisSettingsPanel
{
public:
    using AxisSettingsPanel::AxisSettingsPanel;
    using AxisSettingsPanel::tabs;
    using AxisSettingsPanel::xBottomTab;
    using AxisSettingsPanel::xTopTab;
    using AxisSettingsPanel::yLeftTab;
    using AxisSettingsPanel::yRightTab;
};

} // namespace

class tst_AxisSettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void panelFormIsAFramelessTabWidgetWithPlaceholders();
    void tabFormIsAFrameOfItsSize();
    void tabFormStacksThreeGroupsAndASpacer();
    void tabFormPlacesEachWidget_data();
    void tabFormPlacesEachWidget();
    void tabFormEndsEachGridWithAnExpandingSpacer_data();
    void tabFormEndsEachGridWithAnExpandingSpacer();
    void tabFormButtonsStartWithTheirPlaceholders();
    void rotationRangeIsMinus90To90();

    void plotWithoutRightAxisGivesTwoTabs();
    void plotWithRightAxisGivesYLeftAndYRightTabs();
    void plotWithTopAxisGivesXTopAndXBottomTabs();
    void nullPlotGivesBottomAndLeftTabsOnly();
    void tabsMapHoldsAllFourAxes();

    void axisWithoutTabIsANoOp();
    void unsetRotationLeavesSpinBoxAndReadsBackSpinBoxValue();
    void defaultScaleIsLogarithmicUntilSetDefaultAxisScale();
    void setAxisScaleEnabledFalseGreysGroupButStillAnswers();
    void setAxisScaleVisibleHidesOnlyThatAxisScaleGroup();
    void setAxisScaleShowsLinearForAnyValueButOne_data();
    void setAxisScaleShowsLinearForAnyValueButOne();

    void defaultsFollowDarkModeOfPlot_data();
    void defaultsFollowDarkModeOfPlot();
    void defaultsAreAskedForEachAxis();
    void nullPlotTabDefaultsAreEmpty();

    void setAxisTitleFillsWidgetsAndKeepsOtherAttributes();
    void axisTitleReadsEditedWidgets();
    void setDefaultAxisTitleKeepsDefaultText();
    void setTickLabelFillsWidgets();
    void setTickLabelWithInvalidColourKeepsColourButton();
    void tickLabelReadsFontAndColourButtons();
    void setDefaultTickLabelShowsOnlyAfterRestore();
    void restoreDefaultsResetsEveryTab();
    void buttonsOpenFontAndColourDialogs();

private:
    QTemporaryDir m_config;
};

void tst_AxisSettingsPanel::initTestCase()
{
    QVERIFY(PanelTest::isolateSettings(m_config, QStringLiteral("tst_axissettingspanel")));
}

void tst_AxisSettingsPanel::panelFormIsAFramelessTabWidgetWithPlaceholders()
{
    QFrame host;
    Ui::AxisSettingsPanel form;
    form.setupUi(&host);
    QCOMPARE(host.objectName(), QStringLiteral("AxisSettingsPanel"));
    QCOMPARE(host.size(), QSize(640, 480));
    QCOMPARE(host.frameShape(), QFrame::NoFrame);
    auto *layout = host.findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(PanelTest::boxItems(layout), QStringList({QStringLiteral("tabWidget")}));
    QCOMPARE(form.tabWidget->count(), 2);
    QCOMPARE(form.tabWidget->widget(0)->objectName(), QStringLiteral("xAxisTab"));
    QCOMPARE(form.tabWidget->tabText(0), QStringLiteral("X-Axis"));
    QCOMPARE(form.tabWidget->widget(1)->objectName(), QStringLiteral("yAxisTab"));
    QCOMPARE(form.tabWidget->tabText(1), QStringLiteral("Y-Axis"));

    // The placeholders are gone from a built page.
    AxisSettingsPanel panel(nullptr);
    QCOMPARE(panel.frameShape(), QFrame::NoFrame);
    QVERIFY(!child(panel, QStringLiteral("xAxisTab")));
    QVERIFY(!child(panel, QStringLiteral("yAxisTab")));
}

void tst_AxisSettingsPanel::tabFormIsAFrameOfItsSize()
{
    QFrame host;
    Ui::AxisSettingsTab form;
    form.setupUi(&host);
    QCOMPARE(host.objectName(), QStringLiteral("AxisSettingsTab"));
    QCOMPARE(host.size(), QSize(424, 327));
    QCOMPARE(host.windowTitle(), QStringLiteral("Frame"));
}

void tst_AxisSettingsPanel::tabFormStacksThreeGroupsAndASpacer()
{
    AxisSettingsTab tab(QwtPlot::xBottom, nullptr);
    auto *layout = child<QVBoxLayout>(tab, QStringLiteral("verticalLayout"));
    QVERIFY(layout);
    QCOMPARE(PanelTest::boxItems(layout),
             QStringList({QStringLiteral("titleGroupBox"), QStringLiteral("labelGroupBox"),
                          QStringLiteral("scaleGroupBox"), QStringLiteral("spacer")}));
    QCOMPARE(layout->itemAt(3)->spacerItem()->expandingDirections(), Qt::Vertical);
    QCOMPARE(child<QGroupBox>(tab, QStringLiteral("titleGroupBox"))->title(),
             QStringLiteral("Axis Title"));
    QCOMPARE(child<QGroupBox>(tab, QStringLiteral("labelGroupBox"))->title(),
             QStringLiteral("Axis Tick Label"));
    QCOMPARE(child<QGroupBox>(tab, QStringLiteral("scaleGroupBox"))->title(),
             QStringLiteral("Axis Scale"));
    QCOMPARE(child<QGridLayout>(tab, QStringLiteral("gridLayout_3"))->horizontalSpacing(), 8);
}

void tst_AxisSettingsPanel::tabFormPlacesEachWidget_data()
{
    PanelTest::addPlacementColumns();
    const QString noText = QStringLiteral("-");
    const auto row = PanelTest::addPlacementRow;
    row("titleTextLabel", "QLabel", "titleGroupBox", "gridLayout", 0, 0, 1,
        QStringLiteral("Title text"));
    row("titleTextEdit", "QLineEdit", "titleGroupBox", "gridLayout", 0, 1, 1, noText);
    row("titleFontLabel", "QLabel", "titleGroupBox", "gridLayout", 1, 0, 1, QStringLiteral("Font"));
    row("titleFontButton", "QPushButton", "titleGroupBox", "gridLayout", 1, 1, 1, noText);
    row("titleColorLabel", "QLabel", "titleGroupBox", "gridLayout", 1, 2, 1,
        QStringLiteral("Color"));
    row("titleColorToolButton", "QToolButton", "titleGroupBox", "gridLayout", 1, 3, 1, noText);
    row("labelDescription", "QLabel", "labelGroupBox", "gridLayout_2", 0, 0, 5,
        QStringLiteral("A tick label displays the value at the major tick position on the axis."));
    row("labelFontLabel", "QLabel", "labelGroupBox", "gridLayout_2", 1, 0, 1, QStringLiteral("Font"));
    row("labelFontButton", "QPushButton", "labelGroupBox", "gridLayout_2", 1, 1, 1, noText);
    row("labelColorLabel", "QLabel", "labelGroupBox", "gridLayout_2", 1, 2, 1,
        QStringLiteral("Color"));
    row("labelColorToolButton", "QToolButton", "labelGroupBox", "gridLayout_2", 1, 3, 1, noText);
    row("labelRotationLabel", "QLabel", "labelGroupBox", "gridLayout_2", 2, 0, 1,
        QStringLiteral("Label rotation"));
    row("labelRotationSpinBox", "QSpinBox", "labelGroupBox", "gridLayout_2", 2, 1, 1, noText);
    row("linearRadioButton", "QRadioButton", "scaleGroupBox", "gridLayout_3", 0, 0, 1,
        QStringLiteral("Linear"));
    row("logRadioButton", "QRadioButton", "scaleGroupBox", "gridLayout_3", 0, 1, 1,
        QStringLiteral("Logarithmic"));
}

void tst_AxisSettingsPanel::tabFormPlacesEachWidget()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    AxisSettingsTab tab(QwtPlot::yLeft, nullptr);
    QWidget *widget = nullptr;
    PanelTest::checkPlacement(tab, widget);
    if (!widget)
        return;
    if (auto *label = qobject_cast<QLabel *>(widget)) {
        QCOMPARE(label->text(), text);
        const bool description = name == QStringLiteral("labelDescription");
        QCOMPARE(label->isEnabledTo(&tab), !description);
        QCOMPARE(label->wordWrap(), description);
    } else if (text != QStringLiteral("-")) {
        QCOMPARE(qobject_cast<QAbstractButton *>(widget)->text(), text);
    }
}

void tst_AxisSettingsPanel::tabFormEndsEachGridWithAnExpandingSpacer_data()
{
    PanelTest::addSpacerColumns();
    QTest::newRow("gridLayout") << QStringLiteral("gridLayout") << 1 << 4 << 60;
    QTest::newRow("gridLayout_2") << QStringLiteral("gridLayout_2") << 1 << 4 << 40;
    QTest::newRow("gridLayout_3") << QStringLiteral("gridLayout_3") << 0 << 2 << 172;
}

void tst_AxisSettingsPanel::tabFormEndsEachGridWithAnExpandingSpacer()
{
    AxisSettingsTab tab(QwtPlot::xBottom, nullptr);
    PanelTest::checkGridEndsWithSpacer(tab);
}

void tst_AxisSettingsPanel::tabFormButtonsStartWithTheirPlaceholders()
{
    QFrame host;
    Ui::AxisSettingsTab form;
    form.setupUi(&host);
    for (QToolButton *button : {form.titleColorToolButton, form.labelColorToolButton}) {
        QCOMPARE(button->text(), QStringLiteral("#ffffff"));
        QVERIFY(PanelTest::iconShows(button->icon(),
                                     QStringLiteral(":/images/square-outline.png")));
        QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
        QVERIFY(!button->autoRaise());
    }
    QCOMPARE(form.titleFontButton->text(), QStringLiteral("Time New Roman, size 9 Pt"));
    QCOMPARE(form.labelFontButton->text(), QStringLiteral("Time New Roman, size 9 Pt"));
    QCOMPARE(form.labelRotationSpinBox->suffix(), QStringLiteral(" degree(s)"));
}

void tst_AxisSettingsPanel::rotationRangeIsMinus90To90()
{
    AxisSettingsTab tab(QwtPlot::xBottom, nullptr);
    auto *spin = child<QSpinBox>(tab, QStringLiteral("labelRotationSpinBox"));
    QCOMPARE(spin->minimum(), PlotDefault::AxisLabelRotationMin);
    QCOMPARE(spin->maximum(), PlotDefault::AxisLabelRotationMax);
    QCOMPARE(spin->minimum(), -90);
    QCOMPARE(spin->maximum(), 90);
    QCOMPARE(spin->suffix(), QStringLiteral(" degree(s)"));
}

void tst_AxisSettingsPanel::plotWithoutRightAxisGivesTwoTabs()
{
    VoidPlot plot;
    QVERIFY(!plot.isAxisVisible(QwtPlot::yRight));
    OpenPanel panel(&plot);
    QCOMPARE(tabTexts(panel), QStringList({QStringLiteral("X-Axis"), QStringLiteral("Y-Axis")}));
    QCOMPARE(tabAt(panel, 0), panel.xBottomTab);
    QCOMPARE(tabAt(panel, 1), panel.yLeftTab);
    QCOMPARE(panel.yRightTab, nullptr);
    QCOMPARE(panel.xTopTab, nullptr);
}

void tst_AxisSettingsPanel::plotWithRightAxisGivesYLeftAndYRightTabs()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    OpenPanel panel(&plot);
    QCOMPARE(tabTexts(panel), QStringList({QStringLiteral("X-Axis"), QStringLiteral("Y-Left-Axis"),
                                           QStringLiteral("Y-Right-Axis")}));
    QCOMPARE(tabAt(panel, 1), panel.yLeftTab);
    QCOMPARE(tabAt(panel, 2), panel.yRightTab);
    QVERIFY(panel.yRightTab);
}

void tst_AxisSettingsPanel::plotWithTopAxisGivesXTopAndXBottomTabs()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::xTop, true);
    plot.setAxisVisible(QwtPlot::yRight, true);
    OpenPanel panel(&plot);
    QCOMPARE(tabTexts(panel),
             QStringList({QStringLiteral("X-Top-Axis"), QStringLiteral("X-Bottom-Axis"),
                          QStringLiteral("Y-Left-Axis"), QStringLiteral("Y-Right-Axis")}));
    QCOMPARE(tabAt(panel, 0), panel.xTopTab);
    QCOMPARE(tabAt(panel, 1), panel.xBottomTab);
    QCOMPARE(tabAt(panel, 2), panel.yLeftTab);
    QCOMPARE(tabAt(panel, 3), panel.yRightTab);
}

void tst_AxisSettingsPanel::nullPlotGivesBottomAndLeftTabsOnly()
{
    OpenPanel panel(nullptr);
    QCOMPARE(tabTexts(panel), QStringList({QStringLiteral("X-Axis"), QStringLiteral("Y-Axis")}));
    QVERIFY(panel.xBottomTab && panel.yLeftTab);
    QCOMPARE(panel.axisScale(QwtPlot::yRight), -1);
}

void tst_AxisSettingsPanel::tabsMapHoldsAllFourAxes()
{
    VoidPlot plot;
    OpenPanel panel(&plot);
    QCOMPARE(panel.tabs.keys(), QList<int>({QwtPlot::yLeft, QwtPlot::yRight, QwtPlot::xBottom,
                                            QwtPlot::xTop}));
    QCOMPARE(panel.tabs.value(QwtPlot::xBottom), panel.xBottomTab);
    QCOMPARE(panel.tabs.value(QwtPlot::yLeft), panel.yLeftTab);
    QCOMPARE(panel.tabs.value(QwtPlot::yRight), nullptr);
    QCOMPARE(panel.tabs.value(QwtPlot::xTop), nullptr);
    QCOMPARE(OpenTab::axisIdOf(panel.xBottomTab), int(QwtPlot::xBottom));
    QCOMPARE(OpenTab::plotOf(panel.xBottomTab), &plot);
}

void tst_AxisSettingsPanel::axisWithoutTabIsANoOp()
{
    VoidPlot plot;
    AxisSettingsPanel panel(&plot);
    const QwtText bottomTitle = panel.axisTitle(QwtPlot::xBottom);
    const int bottomScale = panel.axisScale(QwtPlot::xBottom);

    panel.setAxisScale(QwtPlot::xTop, 1);
    QCOMPARE(panel.axisScale(QwtPlot::xTop), -1);
    panel.setAxisTitle(QwtPlot::xTop, QwtText(QStringLiteral("Top")));
    QCOMPARE(panel.axisTitle(QwtPlot::xTop), QwtText());
    panel.setTickLabel(QwtPlot::xTop, tickFormat(QFont(), Qt::red, 30));
    QCOMPARE(panel.tickLabel(QwtPlot::xTop), TickLabelFormat());
    panel.setDefaultAxisScale(QwtPlot::xTop, 0);
    panel.setDefaultAxisTitle(QwtPlot::xTop, QwtText(QStringLiteral("Top")));
    panel.setDefaultTickLabel(QwtPlot::xTop, tickFormat(QFont(), Qt::red, 30));
    panel.setAxisScaleEnabled(QwtPlot::xTop, false);
    panel.setAxisScaleVisible(QwtPlot::xTop, false);
    panel.setAxisScale(99, 1);
    QCOMPARE(panel.axisScale(99), -1);
    QCOMPARE(panel.axisScale(-1), -1);

    // The tabs that exist are untouched.
    QCOMPARE(panel.axisTitle(QwtPlot::xBottom), bottomTitle);
    QCOMPARE(panel.axisScale(QwtPlot::xBottom), bottomScale);
    QCOMPARE(child<QTabWidget>(panel, QStringLiteral("tabWidget"))->count(), 2);
}

void tst_AxisSettingsPanel::unsetRotationLeavesSpinBoxAndReadsBackSpinBoxValue()
{
    AxisSettingsPanel panel(nullptr);
    panel.setTickLabel(QwtPlot::xBottom, tickFormat(QFont(), Qt::blue, 45));
    auto *spin = child<QSpinBox>(*tabAt(panel, 0), QStringLiteral("labelRotationSpinBox"));
    QCOMPARE(spin->value(), 45);

    TickLabelFormat unset = tickFormat(QFont(), Qt::red, Figura::UnsetValue);
    QVERIFY(!unset.isRotationValid());
    panel.setTickLabel(QwtPlot::xBottom, unset);
    QCOMPARE(spin->value(), 45);
    const TickLabelFormat back = panel.tickLabel(QwtPlot::xBottom);
    QCOMPARE(back.rotation, 45);
    QCOMPARE(back.color, QColor(Qt::red));

    // Out of range is as good as unset.
    panel.setTickLabel(QwtPlot::xBottom, tickFormat(QFont(), Qt::red, 100));
    QCOMPARE(spin->value(), 45);
}

void tst_AxisSettingsPanel::defaultScaleIsLogarithmicUntilSetDefaultAxisScale()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    OpenPanel panel(&plot);
    for (AxisSettingsTab *tab : {panel.xBottomTab, panel.yLeftTab, panel.yRightTab}) {
        QCOMPARE(OpenTab::defaultAxisScaleOf(tab), 1);
        QVERIFY(child<QRadioButton>(*tab, QStringLiteral("logRadioButton"))->isChecked());
        QVERIFY(!child<QRadioButton>(*tab, QStringLiteral("linearRadioButton"))->isChecked());
        QCOMPARE(tab->axisScale(), 1);
    }

    panel.setDefaultAxisScale(QwtPlot::xBottom, 0);
    QCOMPARE(panel.axisScale(QwtPlot::xBottom), 1);
    panel.restoreDefaults();
    QCOMPARE(panel.axisScale(QwtPlot::xBottom), 0);
    QCOMPARE(panel.axisScale(QwtPlot::yLeft), 1);
}

void tst_AxisSettingsPanel::setAxisScaleEnabledFalseGreysGroupButStillAnswers()
{
    AxisSettingsPanel panel(nullptr);
    panel.setAxisScale(QwtPlot::yLeft, 1);
    panel.setAxisScaleEnabled(QwtPlot::yLeft, false);
    AxisSettingsTab *left = tabAt(panel, 1);
    auto *group = child<QGroupBox>(*left, QStringLiteral("scaleGroupBox"));
    QVERIFY(!group->isEnabled());
    QVERIFY(!child(*left, QStringLiteral("logRadioButton"))->isEnabled());
    QVERIFY(!child(*left, QStringLiteral("linearRadioButton"))->isEnabled());
    QCOMPARE(panel.axisScale(QwtPlot::yLeft), 1);
    panel.setAxisScale(QwtPlot::yLeft, 0);
    QCOMPARE(panel.axisScale(QwtPlot::yLeft), 0);
    // The other groups stay enabled, and so does the other tab.
    QVERIFY(child(*left, QStringLiteral("titleGroupBox"))->isEnabled());
    QVERIFY(child(*tabAt(panel, 0), QStringLiteral("scaleGroupBox"))->isEnabled());

    panel.setAxisScaleEnabled(QwtPlot::yLeft, true);
    QVERIFY(group->isEnabled());
}

void tst_AxisSettingsPanel::setAxisScaleVisibleHidesOnlyThatAxisScaleGroup()
{
    AxisSettingsPanel panel(nullptr);
    panel.setAxisScale(QwtPlot::xBottom, 1);
    panel.setAxisScaleVisible(QwtPlot::xBottom, false);
    QVERIFY(child(*tabAt(panel, 0), QStringLiteral("scaleGroupBox"))->isHidden());
    QVERIFY(!child(*tabAt(panel, 1), QStringLiteral("scaleGroupBox"))->isHidden());
    QCOMPARE(panel.axisScale(QwtPlot::xBottom), 1);
    panel.setAxisScaleVisible(QwtPlot::xBottom, true);
    QVERIFY(!child(*tabAt(panel, 0), QStringLiteral("scaleGroupBox"))->isHidden());
}

void tst_AxisSettingsPanel::setAxisScaleShowsLinearForAnyValueButOne_data()
{
    QTest::addColumn<int>("scale");
    QTest::addColumn<int>("shown");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("2") << 2 << 0;
    QTest::newRow("-1") << -1 << 0;
}

void tst_AxisSettingsPanel::setAxisScaleShowsLinearForAnyValueButOne()
{
    QFETCH(int, scale);
    QFETCH(int, shown);
    AxisSettingsTab tab(QwtPlot::yLeft, nullptr);
    tab.setAxisScale(1 - shown); // start from the other state
    tab.setAxisScale(scale);
    QCOMPARE(tab.axisScale(), shown);
    QCOMPARE(child<QRadioButton>(tab, QStringLiteral("logRadioButton"))->isChecked(), shown == 1);
    QCOMPARE(child<QRadioButton>(tab, QStringLiteral("linearRadioButton"))->isChecked(),
             shown == 0);
}

void tst_AxisSettingsPanel::defaultsFollowDarkModeOfPlot_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QColor>("title");
    QTest::addColumn<QColor>("label");
    QTest::newRow("light") << false << PlotDefault::TitleTextColor << PlotDefault::AxisLabelColor;
    QTest::newRow("dark") << true << PlotDefault::DarkMode::TitleTextColor
                          << PlotDefault::DarkMode::AxisLabelColor;
}

void tst_AxisSettingsPanel::defaultsFollowDarkModeOfPlot()
{
    QFETCH(bool, dark);
    QFETCH(QColor, title);
    QFETCH(QColor, label);

    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.axisTitleDefault.setText(QStringLiteral("Mass"));
    plot.axisTitleDefault.setColor(Qt::magenta);
    const QFont titleFont(QStringLiteral("Serif"), 13);
    plot.axisTitleDefault.setFont(titleFont);
    const QFont labelFont(QStringLiteral("Sans"), 7);
    plot.tickLabelDefault = tickFormat(labelFont, Qt::magenta, -30);
    plot.enableDarkMode(dark);

    OpenTab tab(QwtPlot::yLeft, &plot);
    QCOMPARE(tab.defaultAxisTitle.color(), title);
    QCOMPARE(tab.defaultTickLabel.color, label);
    QCOMPARE(child<QLineEdit>(tab, QStringLiteral("titleTextEdit"))->text(),
             QStringLiteral("Mass 0"));
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("titleColorToolButton"))->text(), title.name());
    QCOMPARE(fontString(child<QPushButton>(tab, QStringLiteral("titleFontButton"))),
             titleFont.toString());
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("labelColorToolButton"))->text(), label.name());
    QCOMPARE(fontString(child<QPushButton>(tab, QStringLiteral("labelFontButton"))),
             labelFont.toString());
    QCOMPARE(child<QSpinBox>(tab, QStringLiteral("labelRotationSpinBox"))->value(), -30);

    const TickLabelFormat back = tab.tickLabel();
    QCOMPARE(back.font, labelFont);
    QCOMPARE(back.color, label);
    QCOMPARE(back.rotation, -30);
    QCOMPARE(tab.axisTitle().text(), QStringLiteral("Mass 0"));
    QCOMPARE(tab.axisTitle().color(), title);
}

void tst_AxisSettingsPanel::defaultsAreAskedForEachAxis()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.axisTitleDefault.setText(QStringLiteral("Axis"));
    plot.setAxisVisible(QwtPlot::yRight, true);
    AxisSettingsPanel panel(&plot);
    QCOMPARE(plot.askedAxes, QList<int>({QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight}));
    QCOMPARE(panel.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Axis 2"));
    QCOMPARE(panel.axisTitle(QwtPlot::yLeft).text(), QStringLiteral("Axis 0"));
    QCOMPARE(panel.axisTitle(QwtPlot::yRight).text(), QStringLiteral("Axis 1"));
}

void tst_AxisSettingsPanel::nullPlotTabDefaultsAreEmpty()
{
    OpenTab tab(QwtPlot::xBottom, nullptr);
    QCOMPARE(tab.plot, nullptr);
    QCOMPARE(tab.defaultAxisTitle.text(), QString());
    QCOMPARE(tab.defaultTickLabel.font, TickLabelFormat().font);
    QCOMPARE(tab.defaultTickLabel.rotation, TickLabelFormat().rotation);
    QCOMPARE(child<QLineEdit>(tab, QStringLiteral("titleTextEdit"))->text(), QString());
    // Without a rotation of its own the default shows the axis default.
    QCOMPARE(child<QSpinBox>(tab, QStringLiteral("labelRotationSpinBox"))->value(),
             PlotDefault::AxisLabelRotation);
    // The colours are those of the light palette, not the form's white.
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("titleColorToolButton"))->text(),
             PlotDefault::TitleTextColor.name());
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("labelColorToolButton"))->text(),
             PlotDefault::AxisLabelColor.name());
}

void tst_AxisSettingsPanel::setAxisTitleFillsWidgetsAndKeepsOtherAttributes()
{
    AxisSettingsPanel panel(nullptr);
    QwtText title(QStringLiteral("<i>m</i>/z"), QwtText::PlainText);
    const QFont font(QStringLiteral("Serif"), 11);
    title.setFont(font);
    title.setColor(QColor(0x11, 0x22, 0x33));
    title.setRenderFlags(Qt::AlignRight);
    panel.setAxisTitle(QwtPlot::xBottom, title);

    AxisSettingsTab *bottom = tabAt(panel, 0);
    QCOMPARE(child<QLineEdit>(*bottom, QStringLiteral("titleTextEdit"))->text(),
             QStringLiteral("<i>m</i>/z"));
    QCOMPARE(fontString(child<QPushButton>(*bottom, QStringLiteral("titleFontButton"))),
             font.toString());
    QCOMPARE(child<QToolButton>(*bottom, QStringLiteral("titleColorToolButton"))->text(),
             QStringLiteral("#112233"));
    QVERIFY(panel.axisTitle(QwtPlot::xBottom) == title);
    // The other axis keeps its own.
    QCOMPARE(panel.axisTitle(QwtPlot::yLeft).text(), QString());

    // An invalid colour keeps the colour button.
    QwtText plain(QStringLiteral("Time"));
    panel.setAxisTitle(QwtPlot::xBottom, plain);
    QCOMPARE(child<QToolButton>(*bottom, QStringLiteral("titleColorToolButton"))->text(),
             QStringLiteral("#112233"));
}

void tst_AxisSettingsPanel::axisTitleReadsEditedWidgets()
{
    AxisSettingsPanel panel(nullptr);
    QwtText title(QStringLiteral("Before"));
    title.setColor(Qt::black);
    title.setBackgroundBrush(QBrush(Qt::cyan));
    panel.setAxisTitle(QwtPlot::yLeft, title);

    AxisSettingsTab *left = tabAt(panel, 1);
    child<QLineEdit>(*left, QStringLiteral("titleTextEdit"))->setText(QStringLiteral("After"));
    QVERIFY(PanelTest::chooseColor(child<QToolButton>(*left, QStringLiteral("titleColorToolButton")),
                                   QColor(0x44, 0x55, 0x66)));
    QVERIFY(PanelTest::chooseFont(child<QPushButton>(*left, QStringLiteral("titleFontButton")),
                                  QFont(QStringLiteral("Sans"), 17)));

    const QwtText back = panel.axisTitle(QwtPlot::yLeft);
    QCOMPARE(back.text(), QStringLiteral("After"));
    QCOMPARE(back.color(), QColor(0x44, 0x55, 0x66));
    QCOMPARE(back.font().pointSize(), 17);
    QCOMPARE(back.backgroundBrush(), QBrush(Qt::cyan));
}

void tst_AxisSettingsPanel::setDefaultAxisTitleKeepsDefaultText()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.axisTitleDefault.setText(QStringLiteral("Mass"));
    OpenTab tab(QwtPlot::xBottom, &plot);

    QwtText other(QStringLiteral("X"));
    const QFont font(QStringLiteral("Serif"), 21);
    other.setFont(font);
    other.setColor(Qt::darkRed);
    tab.setDefaultAxisTitle(other);
    QCOMPARE(tab.defaultAxisTitle.text(), QStringLiteral("Mass 2"));
    QCOMPARE(tab.defaultAxisTitle.font(), font);
    QCOMPARE(tab.defaultAxisTitle.color(), QColor(Qt::darkRed));
    QVERIFY(fontString(child<QPushButton>(tab, QStringLiteral("titleFontButton")))
            != font.toString());

    child<QLineEdit>(tab, QStringLiteral("titleTextEdit"))->setText(QStringLiteral("typed"));
    tab.restoreDefaults();
    QCOMPARE(child<QLineEdit>(tab, QStringLiteral("titleTextEdit"))->text(),
             QStringLiteral("Mass 2"));
    QCOMPARE(fontString(child<QPushButton>(tab, QStringLiteral("titleFontButton"))),
             font.toString());
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("titleColorToolButton"))->text(),
             QColor(Qt::darkRed).name());
}

void tst_AxisSettingsPanel::setTickLabelFillsWidgets()
{
    AxisSettingsTab tab(QwtPlot::yLeft, nullptr);
    const QFont font(QStringLiteral("Monospace"), 9);
    tab.setTickLabel(tickFormat(font, QColor(0x0a, 0x0b, 0x0c), -90));
    QCOMPARE(fontString(child<QPushButton>(tab, QStringLiteral("labelFontButton"))),
             font.toString());
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("labelColorToolButton"))->text(),
             QStringLiteral("#0a0b0c"));
    QCOMPARE(child<QSpinBox>(tab, QStringLiteral("labelRotationSpinBox"))->value(), -90);
    QCOMPARE(tab.tickLabel(), tickFormat(font, QColor(0x0a, 0x0b, 0x0c), -90));
    tab.setTickLabel(tickFormat(font, QColor(0x0a, 0x0b, 0x0c), 90));
    QCOMPARE(tab.tickLabel().rotation, 90);
}

void tst_AxisSettingsPanel::setTickLabelWithInvalidColourKeepsColourButton()
{
    AxisSettingsTab tab(QwtPlot::yLeft, nullptr);
    tab.setTickLabel(tickFormat(QFont(), QColor(1, 2, 3), 10));
    tab.setTickLabel(tickFormat(QFont(), QColor(), 20));
    QCOMPARE(child<QToolButton>(tab, QStringLiteral("labelColorToolButton"))->text(),
             QStringLiteral("#010203"));
    // What the button shows is what comes back, not the invalid colour.
    QCOMPARE(tab.tickLabel().color, QColor(1, 2, 3));
    QCOMPARE(tab.tickLabel().rotation, 20);
}

void tst_AxisSettingsPanel::tickLabelReadsFontAndColourButtons()
{
    AxisSettingsTab tab(QwtPlot::xBottom, nullptr);
    tab.setTickLabel(tickFormat(QFont(QStringLiteral("Serif"), 8), Qt::black, 0));
    QVERIFY(PanelTest::chooseColor(child<QToolButton>(tab, QStringLiteral("labelColorToolButton")),
                                   QColor(0x99, 0x88, 0x77)));
    QVERIFY(PanelTest::chooseFont(child<QPushButton>(tab, QStringLiteral("labelFontButton")),
                                  QFont(QStringLiteral("Sans"), 14)));
    child<QSpinBox>(tab, QStringLiteral("labelRotationSpinBox"))->setValue(-15);
    const TickLabelFormat back = tab.tickLabel();
    QCOMPARE(back.color, QColor(0x99, 0x88, 0x77));
    QCOMPARE(back.font.pointSize(), 14);
    QCOMPARE(back.rotation, -15);
}

void tst_AxisSettingsPanel::setDefaultTickLabelShowsOnlyAfterRestore()
{
    AxisSettingsPanel panel(nullptr);
    const TickLabelFormat before = panel.tickLabel(QwtPlot::yLeft);
    const TickLabelFormat wanted =
        tickFormat(QFont(QStringLiteral("Serif"), 16), QColor(5, 6, 7), 33);
    panel.setDefaultTickLabel(QwtPlot::yLeft, wanted);
    QCOMPARE(panel.tickLabel(QwtPlot::yLeft), before);
    panel.restoreDefaults();
    QCOMPARE(panel.tickLabel(QwtPlot::yLeft).color, QColor(5, 6, 7));
    QCOMPARE(panel.tickLabel(QwtPlot::yLeft).rotation, 33);
    QCOMPARE(panel.tickLabel(QwtPlot::yLeft).font, wanted.font);
}

void tst_AxisSettingsPanel::restoreDefaultsResetsEveryTab()
{
    VoidPlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisVisible(QwtPlot::xTop, true);
    AxisSettingsPanel panel(&plot);
    const QList<int> axes = {QwtPlot::yLeft, QwtPlot::yRight, QwtPlot::xBottom, QwtPlot::xTop};
    QMap<int, QwtText> titles;
    QMap<int, TickLabelFormat> labels;
    for (int axis : axes) {
        titles.insert(axis, panel.axisTitle(axis));
        labels.insert(axis, panel.tickLabel(axis));
        QwtText changed(QStringLiteral("changed"));
        changed.setColor(Qt::yellow);
        panel.setAxisTitle(axis, changed);
        panel.setTickLabel(axis, tickFormat(QFont(QStringLiteral("Serif"), 30), Qt::yellow, 12));
        panel.setAxisScale(axis, 0);
    }
    panel.restoreDefaults();
    for (int axis : axes) {
        QCOMPARE(panel.axisTitle(axis).text(), titles.value(axis).text());
        QCOMPARE(panel.axisTitle(axis).color(), titles.value(axis).color());
        QCOMPARE(panel.tickLabel(axis).color, labels.value(axis).color);
        QCOMPARE(panel.tickLabel(axis).rotation, labels.value(axis).rotation);
        QCOMPARE(panel.axisScale(axis), 1);
    }
}

void tst_AxisSettingsPanel::buttonsOpenFontAndColourDialogs()
{
    AxisSettingsTab tab(QwtPlot::xBottom, nullptr);
    auto *titleFont = child<QPushButton>(tab, QStringLiteral("titleFontButton"));
    const QString kept = fontString(titleFont);
    QVERIFY(PanelTest::chooseFont(titleFont, QFont(QStringLiteral("Serif"), 25), false));
    QCOMPARE(fontString(titleFont), kept);
    QVERIFY(PanelTest::chooseFont(titleFont, QFont(QStringLiteral("Serif"), 25)));
    QCOMPARE(PanelTest::fontOf(titleFont).pointSize(), 25);

    auto *labelColor = child<QToolButton>(tab, QStringLiteral("labelColorToolButton"));
    QVERIFY(PanelTest::chooseColor(labelColor, QColor(0x31, 0x41, 0x59)));
    QCOMPARE(labelColor->text(), QStringLiteral("#314159"));
    auto *titleColor = child<QToolButton>(tab, QStringLiteral("titleColorToolButton"));
    QVERIFY(PanelTest::chooseColor(titleColor, QColor(0x27, 0x18, 0x28)));
    QCOMPARE(titleColor->text(), QStringLiteral("#271828"));
    auto *labelFont = child<QPushButton>(tab, QStringLiteral("labelFontButton"));
    QVERIFY(PanelTest::chooseFont(labelFont, QFont(QStringLiteral("Sans"), 6)));
    QCOMPARE(PanelTest::fontOf(labelFont).pointSize(), 6);
}

QTEST_MAIN(tst_AxisSettingsPanel)
#include "tst_axissettingspanel.moc"
