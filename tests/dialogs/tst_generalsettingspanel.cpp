// The general settings page: its form, its defaults by dark mode, the
// setters and getters that the dialog forwards, Restore Defaults and the
// visibility switches.

#include <figura/dialogs/DoubleValidator.h>
#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/plots/VoidPlot.h>

#include "PanelTestSupport.h"
#include "ui_GeneralSettingsPanel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using PanelTest::DefaultsPlot;
using PanelTest::fontOf;
using PanelTest::fontString;
using PanelTest::child;

namespace {

const char *const ColorButtons[] = {"titleColorToolButton", "canvasColorToolButton",
                                    "majorGridColorToolButton", "minorGridColorToolButton",
                                    "chartColorToolButton"};

QString buttonText(QWidget &root, const char *name)
{
    auto *button = root.findChild<QAbstractButton *>(QLatin1String(name));
    return button ? button->text() : QStringLiteral("<missing %1>").arg(QLatin1String(name));
}

// A panel that opens its default members to the tests.
class OpenPanel : public GeneralSettingsPanel
{
public:
    using GeneralSettingsPanel::GeneralSettingsPanel;
    using GeneralSettingsPanel::baselineFallback;
    using GeneralSettingsPanel::baselineMax;
    using GeneralSettingsPanel::baselineMin;
    using GeneralSettingsPanel::defaultBarChartBaseline;
    using GeneralSettingsPanel::defaultLineChartWidth;
    using GeneralSettingsPanel::defaultPlotTitle;
    using GeneralSettingsPanel::defaultTimeFormat;
    using GeneralSettingsPanel::plot;
};

} // namespace

class tst_GeneralSettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void formIsAStyledRaisedFrameOfItsSize();
    void formStacksFourGroupsAndASpacer();
    void formPlacesEachWidget_data();
    void formPlacesEachWidget();
    void formEndsEachGridWithAnExpandingSpacer_data();
    void formEndsEachGridWithAnExpandingSpacer();
    void formColourButtonsStartWhiteBesideTheOutlineIcon_data();
    void formColourButtonsStartWhiteBesideTheOutlineIcon();
    void formTitleFontButtonStartsWithPlaceholder();
    void formInfoButtonIsDisabledAndAutoRaised();
    void formTimeGridHasHorizontalSpacing8();

    void lineWidthRangeIsOneToFiveHundred();
    void infoButtonExplainsTheBaseline();
    void defaultsFollowDarkModeOfPlot_data();
    void defaultsFollowDarkModeOfPlot();
    void defaultsWithoutPlotAreLight();
    void defaultTitleComesFromPlotWithModeColour();

    void setColourWithInvalidColourLeavesButton_data();
    void setColourWithInvalidColourLeavesButton();
    void colourSettersShowAndGettersRead_data();
    void colourSettersShowAndGettersRead();
    void setDefaultColourShowsOnlyAfterRestore_data();
    void setDefaultColourShowsOnlyAfterRestore();
    void colourButtonClickOpensColourDialog_data();
    void colourButtonClickOpensColourDialog();
    void titleFontButtonClickOpensFontDialog();

    void lineChartWidthSetterGetterAndDefault();
    void restoreDefaultsLeavesApplyToAllCheckBox();

    void barChartBaselineReadsCForm();
    void barChartBaselineWritesSixSignificantDigits();
    void barChartBaselineUnreadableTextGivesFallback();
    void restoredBaselineWithDecimalCommaFallsBack();
    void restoreDefaultsWritesBaselineWithTwoDigits();
    void baselineRangeInstallsClampingValidator();

    void setTimeFormatSevenChecksElapsed();
    void setTimeFormatTwoChecksLocal();
    void restoreDefaultsChecksDefaultTimeFormat();

    void setPlotTitleFillsWidgets();
    void plotTitleKeepsWhatTheWidgetsDoNotEdit();
    void plotTitleReadsEditedWidgets();
    void setPlotTitleWithInvalidColourKeepsColourButton();
    void setDefaultPlotTitleKeepsDefaultText();

    void visibilitySwitchesHideTheirWidgets_data();
    void visibilitySwitchesHideTheirWidgets();
    void hiddenWidgetsKeepAnsweringGetters();

private:
    QTemporaryDir m_config;
};

void tst_GeneralSettingsPanel::initTestCase()
{
    QVERIFY(PanelTest::isolateSettings(m_config, QStringLiteral("tst_generalsettingspanel")));
}

void tst_GeneralSettingsPanel::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_GeneralSettingsPanel::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void tst_GeneralSettingsPanel::formIsAStyledRaisedFrameOfItsSize()
{
    QFrame host;
    Ui::GeneralSettingsPanel form;
    form.setupUi(&host);
    QCOMPARE(host.objectName(), QStringLiteral("GeneralSettingsPanel"));
    QCOMPARE(host.size(), QSize(407, 458));
    QCOMPARE(host.windowTitle(), QStringLiteral("Frame"));
    QCOMPARE(host.frameShape(), QFrame::StyledPanel);
    QCOMPARE(host.frameShadow(), QFrame::Raised);

    GeneralSettingsPanel panel(nullptr);
    QCOMPARE(panel.objectName(), QStringLiteral("GeneralSettingsPanel"));
    QCOMPARE(panel.frameShape(), QFrame::StyledPanel);
    QCOMPARE(panel.frameShadow(), QFrame::Raised);
}

void tst_GeneralSettingsPanel::formStacksFourGroupsAndASpacer()
{
    GeneralSettingsPanel panel(nullptr);
    auto *layout = child<QVBoxLayout>(panel, QStringLiteral("verticalLayout"));
    QVERIFY(layout);
    QCOMPARE(layout->parentWidget(), &panel);
    QCOMPARE(PanelTest::boxItems(layout),
             QStringList({QStringLiteral("plotTitleGroupBox"), QStringLiteral("canvasGroupBox"),
                          QStringLiteral("chartGroupBox"), QStringLiteral("timeGroupBox"),
                          QStringLiteral("spacer")}));
    QSpacerItem *spacer = layout->itemAt(4)->spacerItem();
    QCOMPARE(spacer->expandingDirections(), Qt::Vertical);

    const QList<QPair<QString, QString>> titles = {
        {QStringLiteral("plotTitleGroupBox"), QStringLiteral("Plot Title")},
        {QStringLiteral("canvasGroupBox"), QStringLiteral("Plot Canvas")},
        {QStringLiteral("chartGroupBox"), QStringLiteral("Bar/Line Chart")},
        {QStringLiteral("timeGroupBox"), QStringLiteral("Time Display")}};
    for (const auto &[name, title] : titles) {
        auto *box = child<QGroupBox>(panel, name);
        QVERIFY2(box, qPrintable(name));
        QCOMPARE(box->title(), title);
        QVERIFY(!box->isCheckable());
    }
}

void tst_GeneralSettingsPanel::formPlacesEachWidget_data()
{
    PanelTest::addPlacementColumns();
    const QString noText = QStringLiteral("-");
    const auto row = PanelTest::addPlacementRow;
    row("titleTextLabel", "QLabel", "plotTitleGroupBox", "gridLayout", 0, 0, 1,
        QStringLiteral("Title text"));
    row("titleTextEdit", "QLineEdit", "plotTitleGroupBox", "gridLayout", 0, 1, 1, noText);
    row("titleFontLabel", "QLabel", "plotTitleGroupBox", "gridLayout", 1, 0, 1,
        QStringLiteral("Font"));
    row("titleFontButton", "QPushButton", "plotTitleGroupBox", "gridLayout", 1, 1, 1, noText);
    row("titleColorLabel", "QLabel", "plotTitleGroupBox", "gridLayout", 1, 2, 1,
        QStringLiteral("Color"));
    row("titleColorToolButton", "QToolButton", "plotTitleGroupBox", "gridLayout", 1, 3, 1,
        noText);
    row("canvasDescription", "QLabel", "canvasGroupBox", "gridLayout_2", 0, 0, 5,
        QStringLiteral("Plot canvas is the main area that contains the charts."));
    row("canvasColorLabel", "QLabel", "canvasGroupBox", "gridLayout_2", 1, 0, 1,
        QStringLiteral("Background color"));
    row("canvasColorToolButton", "QToolButton", "canvasGroupBox", "gridLayout_2", 1, 1, 1,
        noText);
    row("majorGridColorLabel", "QLabel", "canvasGroupBox", "gridLayout_2", 2, 0, 1,
        QStringLiteral("Major grid line"));
    row("majorGridColorToolButton", "QToolButton", "canvasGroupBox", "gridLayout_2", 2, 1, 1,
        noText);
    row("minorGridColorLabel", "QLabel", "canvasGroupBox", "gridLayout_2", 2, 2, 1,
        QStringLiteral("Minor grid line"));
    row("minorGridColorToolButton", "QToolButton", "canvasGroupBox", "gridLayout_2", 2, 3, 1,
        noText);
    row("chartColorLabel", "QLabel", "chartGroupBox", "gridLayout_3", 0, 0, 1,
        QStringLiteral("Bar/line chart color"));
    row("chartColorToolButton", "QToolButton", "chartGroupBox", "gridLayout_3", 0, 1, 1, noText);
    row("chartLineWidthLabel", "QLabel", "chartGroupBox", "gridLayout_3", 1, 0, 1,
        QStringLiteral("Line width"));
    row("chartLineWidthSpinBox", "QSpinBox", "chartGroupBox", "gridLayout_3", 1, 1, 1, noText);
    row("applyLineWidthToAllCheckBox", "QCheckBox", "chartGroupBox", "gridLayout_3", 1, 3, 1,
        QStringLiteral("Apply to all"));
    row("barChartBaselineLabel", "QLabel", "chartGroupBox", "gridLayout_3", 2, 0, 1,
        QStringLiteral("Bar chart baseline"));
    row("barChartBaselineEdit", "QLineEdit", "chartGroupBox", "gridLayout_3", 2, 1, 1, noText);
    row("barChartBaseLineInfoButton", "QToolButton", "chartGroupBox", "gridLayout_3", 2, 2, 1,
        QStringLiteral("..."));
    row("timeFormatLabel", "QLabel", "timeGroupBox", "gridLayout_4", 0, 0, 1,
        QStringLiteral("Time format"));
    row("elapsedTimeRadioButton", "QRadioButton", "timeGroupBox", "gridLayout_4", 0, 1, 1,
        QStringLiteral("Elapsed time"));
    row("localTimeRadioButton", "QRadioButton", "timeGroupBox", "gridLayout_4", 0, 2, 1,
        QStringLiteral("Local date/time"));
}

void tst_GeneralSettingsPanel::formPlacesEachWidget()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    GeneralSettingsPanel panel(nullptr);
    QWidget *widget = nullptr;
    PanelTest::checkPlacement(panel, widget);
    if (!widget)
        return;
    if (auto *label = qobject_cast<QLabel *>(widget)) {
        QCOMPARE(label->text(), text);
        // The description is greyed and wraps; the other labels do neither.
        const bool description = name == QStringLiteral("canvasDescription");
        QCOMPARE(label->isEnabledTo(&panel), !description);
        QCOMPARE(label->wordWrap(), description);
    } else if (text != QStringLiteral("-")) {
        auto *button = qobject_cast<QAbstractButton *>(widget);
        QVERIFY(button);
        QCOMPARE(button->text(), text);
    }
}

void tst_GeneralSettingsPanel::formEndsEachGridWithAnExpandingSpacer_data()
{
    PanelTest::addSpacerColumns();
    QTest::newRow("gridLayout") << QStringLiteral("gridLayout") << 1 << 4 << 58;
    QTest::newRow("gridLayout_2") << QStringLiteral("gridLayout_2") << 2 << 4 << 38;
    QTest::newRow("gridLayout_3") << QStringLiteral("gridLayout_3") << 2 << 3 << 99;
    QTest::newRow("gridLayout_4") << QStringLiteral("gridLayout_4") << 0 << 3 << 61;
}

void tst_GeneralSettingsPanel::formEndsEachGridWithAnExpandingSpacer()
{
    GeneralSettingsPanel panel(nullptr);
    PanelTest::checkGridEndsWithSpacer(panel);
}

void tst_GeneralSettingsPanel::formColourButtonsStartWhiteBesideTheOutlineIcon_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : ColorButtons)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_GeneralSettingsPanel::formColourButtonsStartWhiteBesideTheOutlineIcon()
{
    QFETCH(QString, name);
    QFrame host;
    Ui::GeneralSettingsPanel form;
    form.setupUi(&host);
    auto *button = host.findChild<QToolButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), QStringLiteral("#ffffff"));
    QVERIFY(PanelTest::iconShows(button->icon(), QStringLiteral(":/images/square-outline.png")));
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QVERIFY(!button->autoRaise());
}

void tst_GeneralSettingsPanel::formTitleFontButtonStartsWithPlaceholder()
{
    QFrame host;
    Ui::GeneralSettingsPanel form;
    form.setupUi(&host);
    QCOMPARE(form.titleFontButton->text(), QStringLiteral("Time New Roman (9 Pts)"));

    // Filled at construction: the placeholder is gone and the font is kept.
    GeneralSettingsPanel panel(nullptr);
    auto *button = child<QPushButton>(panel, QStringLiteral("titleFontButton"));
    QVERIFY(button->text() != QStringLiteral("Time New Roman (9 Pts)"));
    QVERIFY(!fontString(button).isEmpty());
}

void tst_GeneralSettingsPanel::formInfoButtonIsDisabledAndAutoRaised()
{
    GeneralSettingsPanel panel(nullptr);
    auto *button = child<QToolButton>(panel, QStringLiteral("barChartBaseLineInfoButton"));
    QVERIFY(button);
    QVERIFY(!button->isEnabled());
    QVERIFY(button->autoRaise());
    QCOMPARE(button->text(), QStringLiteral("..."));
    QVERIFY(PanelTest::iconShows(button->icon(), QStringLiteral(":/images/info-dimgray.png")));
}

void tst_GeneralSettingsPanel::formTimeGridHasHorizontalSpacing8()
{
    GeneralSettingsPanel panel(nullptr);
    auto *grid = child<QGridLayout>(panel, QStringLiteral("gridLayout_4"));
    QVERIFY(grid);
    QCOMPARE(grid->horizontalSpacing(), 8);
}

void tst_GeneralSettingsPanel::lineWidthRangeIsOneToFiveHundred()
{
    GeneralSettingsPanel panel(nullptr);
    auto *spin = child<QSpinBox>(panel, QStringLiteral("chartLineWidthSpinBox"));
    QCOMPARE(spin->minimum(), 1);
    QCOMPARE(spin->maximum(), 500);
    panel.setLineChartWidth(500);
    QCOMPARE(panel.lineChartWidth(), 500);
    panel.setLineChartWidth(501);
    QCOMPARE(panel.lineChartWidth(), 500);
}

void tst_GeneralSettingsPanel::infoButtonExplainsTheBaseline()
{
    GeneralSettingsPanel panel(nullptr);
    QCOMPARE(child(panel, QStringLiteral("barChartBaseLineInfoButton"))->toolTip(),
             QStringLiteral("The baseline value affects the direction of the bar.\r\n"
                            "The bar displays upward if the data value is greater than\r\n"
                            "the baseline and downward if it is less than the baseline."));
}

void tst_GeneralSettingsPanel::defaultsFollowDarkModeOfPlot_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QColor>("title");
    QTest::addColumn<QColor>("canvas");
    QTest::addColumn<QColor>("major");
    QTest::addColumn<QColor>("minor");
    QTest::addColumn<QColor>("chart");
    QTest::newRow("light") << false << PlotDefault::TitleTextColor
                           << PlotDefault::CanvasBackground << PlotDefault::GridMajorColor
                           << PlotDefault::GridMinorColor << PlotDefault::ChartColor;
    QTest::newRow("dark") << true << PlotDefault::DarkMode::TitleTextColor
                          << PlotDefault::DarkMode::CanvasBackground
                          << PlotDefault::DarkMode::GridMajorColor
                          << PlotDefault::DarkMode::GridMinorColor
                          << PlotDefault::DarkMode::CurveColor;
}

void tst_GeneralSettingsPanel::defaultsFollowDarkModeOfPlot()
{
    QFETCH(bool, dark);
    QFETCH(QColor, title);
    QFETCH(QColor, canvas);
    QFETCH(QColor, major);
    QFETCH(QColor, minor);
    QFETCH(QColor, chart);

    VoidPlot plot;
    plot.enableDarkMode(dark);
    OpenPanel panel(&plot);
    QCOMPARE(panel.plot, &plot);
    QCOMPARE(buttonText(panel, "titleColorToolButton"), title.name());
    QCOMPARE(panel.plotTitle().color(), title);
    QCOMPARE(panel.canvasColor(), canvas);
    QCOMPARE(panel.majorGridColor(), major);
    QCOMPARE(panel.minorGridColor(), minor);
    QCOMPARE(panel.chartColor(), chart);
    QCOMPARE(panel.lineChartWidth(), PlotDefault::PenSize);
    QCOMPARE(panel.timeFormat(), PlotDefault::TimeFormat);
    QCOMPARE(panel.barChartBaseline(), PlotDefault::BarChartBaseline);
    QCOMPARE(panel.baselineMin, PlotDefault::BarChartBaselineMin);
    QCOMPARE(panel.baselineMax, PlotDefault::BarChartBaselineMax);
    QCOMPARE(panel.baselineFallback, PlotDefault::BarChartBaseline);
    QVERIFY(!panel.isApplyLineWidthChecked());

    // The widgets come back to the same values after a change.
    panel.setCanvasColor(Qt::red);
    panel.setChartColor(Qt::blue);
    panel.restoreDefaults();
    QCOMPARE(panel.canvasColor(), canvas);
    QCOMPARE(panel.chartColor(), chart);
}

void tst_GeneralSettingsPanel::defaultsWithoutPlotAreLight()
{
    OpenPanel panel(nullptr);
    QCOMPARE(panel.plot, nullptr);
    QCOMPARE(panel.canvasColor(), PlotDefault::CanvasBackground);
    QCOMPARE(panel.chartColor(), PlotDefault::ChartColor);
    QCOMPARE(panel.defaultPlotTitle.text(), QString());
    QCOMPARE(panel.defaultPlotTitle.color(), PlotDefault::TitleTextColor);
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("titleTextEdit"))->text(), QString());
}

void tst_GeneralSettingsPanel::defaultTitleComesFromPlotWithModeColour()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.plotTitleDefault.setText(QStringLiteral("Mass Spectrum"));
    QFont font(QStringLiteral("Serif"), 17);
    font.setItalic(true);
    plot.plotTitleDefault.setFont(font);
    plot.plotTitleDefault.setColor(Qt::magenta);
    plot.enableDarkMode(true);

    GeneralSettingsPanel panel(&plot);
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("titleTextEdit"))->text(),
             QStringLiteral("Mass Spectrum"));
    QCOMPARE(fontString(child<QPushButton>(panel, QStringLiteral("titleFontButton"))),
             font.toString());
    // The plot's colour gives way to the palette of the mode.
    QCOMPARE(buttonText(panel, "titleColorToolButton"),
             PlotDefault::DarkMode::TitleTextColor.name());
    const QwtText title = panel.plotTitle();
    QCOMPARE(title.text(), QStringLiteral("Mass Spectrum"));
    QCOMPARE(title.font(), font);
}

void tst_GeneralSettingsPanel::setColourWithInvalidColourLeavesButton_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("canvas") << 0;
    QTest::newRow("majorGrid") << 1;
    QTest::newRow("minorGrid") << 2;
    QTest::newRow("chart") << 3;
}

static void setColour(GeneralSettingsPanel &panel, int which, const QColor &color)
{
    switch (which) {
    case 0: panel.setCanvasColor(color); break;
    case 1: panel.setMajorGridColor(color); break;
    case 2: panel.setMinorGridColor(color); break;
    default: panel.setChartColor(color); break;
    }
}

static QColor colour(const GeneralSettingsPanel &panel, int which)
{
    switch (which) {
    case 0: return panel.canvasColor();
    case 1: return panel.majorGridColor();
    case 2: return panel.minorGridColor();
    default: return panel.chartColor();
    }
}

static void setDefaultColour(GeneralSettingsPanel &panel, int which, const QColor &color)
{
    switch (which) {
    case 0: panel.setDefaultCanvasColor(color); break;
    case 1: panel.setDefaultMajorGridColor(color); break;
    case 2: panel.setDefaultMinorGridColor(color); break;
    default: panel.setDefaultChartColor(color); break;
    }
}

static const char *const ColourButtonOf[] = {"canvasColorToolButton", "majorGridColorToolButton",
                                             "minorGridColorToolButton", "chartColorToolButton"};

void tst_GeneralSettingsPanel::setColourWithInvalidColourLeavesButton()
{
    QFETCH(int, which);
    GeneralSettingsPanel panel(nullptr);
    setColour(panel, which, QColor(10, 20, 30));
    auto *button = panel.findChild<QToolButton *>(QLatin1String(ColourButtonOf[which]));
    const qint64 iconKey = button->icon().cacheKey();
    setColour(panel, which, QColor());
    QCOMPARE(button->text(), QStringLiteral("#0a141e"));
    QCOMPARE(button->icon().cacheKey(), iconKey);
    QCOMPARE(colour(panel, which), QColor(10, 20, 30));
}

void tst_GeneralSettingsPanel::colourSettersShowAndGettersRead_data()
{
    setColourWithInvalidColourLeavesButton_data();
}

void tst_GeneralSettingsPanel::colourSettersShowAndGettersRead()
{
    QFETCH(int, which);
    GeneralSettingsPanel panel(nullptr);
    setColour(panel, which, QColor(0x12, 0x34, 0x56, 40));
    auto *button = panel.findChild<QToolButton *>(QLatin1String(ColourButtonOf[which]));
    // The name has no alpha: what comes back is opaque.
    QCOMPARE(button->text(), QStringLiteral("#123456"));
    QCOMPARE(colour(panel, which), QColor(0x12, 0x34, 0x56));
    QVERIFY(!PanelTest::iconShows(button->icon(), QStringLiteral(":/images/square-outline.png")));
}

void tst_GeneralSettingsPanel::setDefaultColourShowsOnlyAfterRestore_data()
{
    setColourWithInvalidColourLeavesButton_data();
}

void tst_GeneralSettingsPanel::setDefaultColourShowsOnlyAfterRestore()
{
    QFETCH(int, which);
    GeneralSettingsPanel panel(nullptr);
    const QColor before = colour(panel, which);
    setDefaultColour(panel, which, QColor(1, 2, 3));
    QCOMPARE(colour(panel, which), before);
    panel.restoreDefaults();
    QCOMPARE(colour(panel, which), QColor(1, 2, 3));
}

void tst_GeneralSettingsPanel::colourButtonClickOpensColourDialog_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : ColorButtons)
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_GeneralSettingsPanel::colourButtonClickOpensColourDialog()
{
    QFETCH(QString, name);
    GeneralSettingsPanel panel(nullptr);
    auto *button = child<QToolButton>(panel, name);
    QVERIFY(PanelTest::chooseColor(button, QColor(0x20, 0x40, 0x60)));
    QCOMPARE(button->text(), QStringLiteral("#204060"));
    // A cancelled dialog keeps the colour.
    QVERIFY(PanelTest::chooseColor(button, QColor()));
    QCOMPARE(button->text(), QStringLiteral("#204060"));
}

void tst_GeneralSettingsPanel::titleFontButtonClickOpensFontDialog()
{
    GeneralSettingsPanel panel(nullptr);
    auto *button = child<QPushButton>(panel, QStringLiteral("titleFontButton"));
    QVERIFY(PanelTest::chooseFont(button, QFont(QStringLiteral("Monospace"), 21)));
    const QFont chosen = fontOf(button);
    QCOMPARE(chosen.pointSize(), 21);
    QCOMPARE(panel.plotTitle().font(), chosen);

    const QString kept = fontString(button);
    QVERIFY(PanelTest::chooseFont(button, QFont(QStringLiteral("Serif"), 8), false));
    QCOMPARE(fontString(button), kept);
}

void tst_GeneralSettingsPanel::lineChartWidthSetterGetterAndDefault()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setLineChartWidth(7);
    QCOMPARE(panel.lineChartWidth(), 7);
    panel.setDefaultLineChartWidth(4);
    QCOMPARE(panel.lineChartWidth(), 7);
    panel.restoreDefaults();
    QCOMPARE(panel.lineChartWidth(), 4);
}

void tst_GeneralSettingsPanel::restoreDefaultsLeavesApplyToAllCheckBox()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setApplyLineWidthToAll(true);
    QVERIFY(panel.isApplyLineWidthChecked());
    panel.restoreDefaults();
    QVERIFY(panel.isApplyLineWidthChecked());
    panel.setApplyLineWidthToAll(false);
    panel.restoreDefaults();
    QVERIFY(!panel.isApplyLineWidthChecked());
}

void tst_GeneralSettingsPanel::barChartBaselineReadsCForm()
{
    GeneralSettingsPanel panel(nullptr);
    auto *edit = child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"));
    edit->setText(QStringLiteral("2e-06"));
    QCOMPARE(panel.barChartBaseline(), 0.000002);
}

void tst_GeneralSettingsPanel::barChartBaselineWritesSixSignificantDigits()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setBarChartBaseline(1.23456789e-6);
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"))->text(),
             QStringLiteral("1.23457e-06"));
    QCOMPARE(panel.barChartBaseline(), 1.23457e-6);

    // The C form even where the user's locale writes a decimal comma.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    panel.setBarChartBaseline(0.5);
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"))->text(),
             QStringLiteral("0.5"));
    QCOMPARE(panel.barChartBaseline(), 0.5);
}

void tst_GeneralSettingsPanel::barChartBaselineUnreadableTextGivesFallback()
{
    OpenPanel panel(nullptr);
    child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"))->setText(QStringLiteral("abc"));
    QCOMPARE(panel.barChartBaseline(), panel.baselineFallback);
    panel.baselineFallback = -3.5;
    QCOMPARE(panel.barChartBaseline(), -3.5);
}

void tst_GeneralSettingsPanel::restoredBaselineWithDecimalCommaFallsBack()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    OpenPanel panel(nullptr);
    panel.baselineFallback = 7.0; // tells the fallback from a value read
    panel.setDefaultBarChartBaseline(0.5);
    panel.restoreDefaults();
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"))->text(),
             QStringLiteral("0,5"));
    QCOMPARE(panel.barChartBaseline(), 7.0);
}

void tst_GeneralSettingsPanel::restoreDefaultsWritesBaselineWithTwoDigits()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setDefaultBarChartBaseline(0.123456);
    panel.restoreDefaults();
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"))->text(),
             QStringLiteral("0.12"));
    QCOMPARE(panel.barChartBaseline(), 0.12);
}

void tst_GeneralSettingsPanel::baselineRangeInstallsClampingValidator()
{
    OpenPanel panel(nullptr);
    auto *edit = child<QLineEdit>(panel, QStringLiteral("barChartBaselineEdit"));
    auto *first = qobject_cast<const DoubleValidator *>(edit->validator());
    QVERIFY(first);
    QCOMPARE(first->bottom(), PlotDefault::BarChartBaselineMin);
    QCOMPARE(first->top(), PlotDefault::BarChartBaselineMax);
    QVERIFY(first->locale().numberOptions() & QLocale::RejectGroupSeparator);

    panel.setBarChartBaselineRange(-2.0, 3.0);
    QCOMPARE(panel.baselineMin, -2.0);
    QCOMPARE(panel.baselineMax, 3.0);
    auto *second = qobject_cast<const DoubleValidator *>(edit->validator());
    QVERIFY(second);
    QVERIFY(second != first);
    QCOMPARE(second->bottom(), -2.0);
    QCOMPARE(second->top(), 3.0);
    // The replaced validator stays with the panel.
    QCOMPARE(first->parent(), &panel);

    // Editing ends on a value above the range: the validator clamps it.
    edit->setText(QStringLiteral("9"));
    QString text = edit->text();
    second->fixup(text);
    QCOMPARE(text, QStringLiteral("3"));
}

void tst_GeneralSettingsPanel::setTimeFormatSevenChecksElapsed()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setTimeFormat(2);
    panel.setTimeFormat(7);
    QVERIFY(child<QRadioButton>(panel, QStringLiteral("elapsedTimeRadioButton"))->isChecked());
    QVERIFY(!child<QRadioButton>(panel, QStringLiteral("localTimeRadioButton"))->isChecked());
    QCOMPARE(panel.timeFormat(), 1);
}

void tst_GeneralSettingsPanel::setTimeFormatTwoChecksLocal()
{
    GeneralSettingsPanel panel(nullptr);
    QCOMPARE(panel.timeFormat(), 1);
    panel.setTimeFormat(2);
    QVERIFY(child<QRadioButton>(panel, QStringLiteral("localTimeRadioButton"))->isChecked());
    QVERIFY(!child<QRadioButton>(panel, QStringLiteral("elapsedTimeRadioButton"))->isChecked());
    QCOMPARE(panel.timeFormat(), 2);
}

void tst_GeneralSettingsPanel::restoreDefaultsChecksDefaultTimeFormat()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setDefaultTimeFormat(2);
    QCOMPARE(panel.timeFormat(), 1);
    panel.restoreDefaults();
    QCOMPARE(panel.timeFormat(), 2);
    panel.setDefaultTimeFormat(1);
    panel.restoreDefaults();
    QCOMPARE(panel.timeFormat(), 1);
}

void tst_GeneralSettingsPanel::setPlotTitleFillsWidgets()
{
    GeneralSettingsPanel panel(nullptr);
    QwtText title(QStringLiteral("Run 12"));
    const QFont font(QStringLiteral("Serif"), 15);
    title.setFont(font);
    title.setColor(QColor(0x80, 0x10, 0x20));
    panel.setPlotTitle(title);
    QCOMPARE(child<QLineEdit>(panel, QStringLiteral("titleTextEdit"))->text(),
             QStringLiteral("Run 12"));
    QCOMPARE(fontString(child<QPushButton>(panel, QStringLiteral("titleFontButton"))),
             font.toString());
    QCOMPARE(buttonText(panel, "titleColorToolButton"), QStringLiteral("#801020"));
    QCOMPARE(panel.plotTitle(), title);
}

void tst_GeneralSettingsPanel::plotTitleKeepsWhatTheWidgetsDoNotEdit()
{
    GeneralSettingsPanel panel(nullptr);
    // Plain text that looks like markup: the text engine is part of what
    // QwtText compares, so a lost format would show.
    QwtText title(QStringLiteral("<b>Run</b> 12"), QwtText::PlainText);
    title.setRenderFlags(Qt::AlignLeft | Qt::AlignTop);
    title.setBackgroundBrush(QBrush(Qt::yellow));
    title.setColor(Qt::black);
    panel.setPlotTitle(title);

    QwtText back = panel.plotTitle();
    QVERIFY(back == title);
    QwtText rich = title;
    rich.setText(title.text(), QwtText::RichText);
    QVERIFY(!(back == rich));
    QCOMPARE(back.renderFlags(), int(Qt::AlignLeft | Qt::AlignTop));

    // An edited text is taken with automatic format; the rest still survives.
    child<QLineEdit>(panel, QStringLiteral("titleTextEdit"))->setText(QStringLiteral("Run 13"));
    back = panel.plotTitle();
    QCOMPARE(back.text(), QStringLiteral("Run 13"));
    QCOMPARE(back.backgroundBrush(), QBrush(Qt::yellow));
    QCOMPARE(back.renderFlags(), int(Qt::AlignLeft | Qt::AlignTop));
}

void tst_GeneralSettingsPanel::plotTitleReadsEditedWidgets()
{
    GeneralSettingsPanel panel(nullptr);
    QwtText title(QStringLiteral("Before"));
    title.setColor(Qt::black);
    panel.setPlotTitle(title);

    child<QLineEdit>(panel, QStringLiteral("titleTextEdit"))->setText(QStringLiteral("After"));
    QVERIFY(PanelTest::chooseColor(child<QToolButton>(panel, QStringLiteral("titleColorToolButton")),
                                   QColor(0, 0x80, 0)));
    const QFont font(QStringLiteral("Sans"), 19);
    QVERIFY(PanelTest::chooseFont(child<QPushButton>(panel, QStringLiteral("titleFontButton")), font));

    const QwtText back = panel.plotTitle();
    QCOMPARE(back.text(), QStringLiteral("After"));
    QCOMPARE(back.color(), QColor(0, 0x80, 0));
    QCOMPARE(back.font().pointSize(), 19);
}

void tst_GeneralSettingsPanel::setPlotTitleWithInvalidColourKeepsColourButton()
{
    GeneralSettingsPanel panel(nullptr);
    QwtText title(QStringLiteral("No colour"));
    panel.setPlotTitle(title);
    QCOMPARE(buttonText(panel, "titleColorToolButton"), PlotDefault::TitleTextColor.name());
}

void tst_GeneralSettingsPanel::setDefaultPlotTitleKeepsDefaultText()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.plotTitleDefault.setText(QStringLiteral("Original"));
    OpenPanel panel(&plot);

    QwtText other(QStringLiteral("X"));
    const QFont font(QStringLiteral("Serif"), 23);
    other.setFont(font);
    other.setColor(Qt::darkCyan);
    panel.setDefaultPlotTitle(other);
    QCOMPARE(panel.defaultPlotTitle.text(), QStringLiteral("Original"));
    QCOMPARE(panel.defaultPlotTitle.font(), font);
    QCOMPARE(panel.defaultPlotTitle.color(), QColor(Qt::darkCyan));

    // Nothing shows before Restore Defaults.
    auto *edit = child<QLineEdit>(panel, QStringLiteral("titleTextEdit"));
    QVERIFY(fontString(child<QPushButton>(panel, QStringLiteral("titleFontButton")))
            != font.toString());
    panel.restoreDefaults();
    QCOMPARE(edit->text(), QStringLiteral("Original"));
    QCOMPARE(fontString(child<QPushButton>(panel, QStringLiteral("titleFontButton"))),
             font.toString());
    QCOMPARE(buttonText(panel, "titleColorToolButton"), QColor(Qt::darkCyan).name());
}

void tst_GeneralSettingsPanel::visibilitySwitchesHideTheirWidgets_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QStringList>("hidden");
    QTest::newRow("plotTitleOptions") << 0 << QStringList({QStringLiteral("plotTitleGroupBox")});
    QTest::newRow("canvasOptions") << 1 << QStringList({QStringLiteral("canvasGroupBox")});
    QTest::newRow("chartOptions") << 2 << QStringList({QStringLiteral("chartGroupBox")});
    QTest::newRow("chartColor") << 3
                                << QStringList({QStringLiteral("chartColorLabel"),
                                                QStringLiteral("chartColorToolButton")});
    QTest::newRow("lineChartWidth") << 4
                                    << QStringList({QStringLiteral("chartLineWidthLabel"),
                                                    QStringLiteral("chartLineWidthSpinBox")});
    QTest::newRow("applyLineWidth")
        << 5 << QStringList({QStringLiteral("applyLineWidthToAllCheckBox")});
    QTest::newRow("barChartBaseline")
        << 6
        << QStringList({QStringLiteral("barChartBaselineLabel"),
                        QStringLiteral("barChartBaselineEdit"),
                        QStringLiteral("barChartBaseLineInfoButton")});
    QTest::newRow("timeFormat") << 7 << QStringList({QStringLiteral("timeGroupBox")});
}

static void setVisible(GeneralSettingsPanel &panel, int which, bool on)
{
    switch (which) {
    case 0: panel.setPlotTitleOptionsVisible(on); break;
    case 1: panel.setCanvasOptionsVisible(on); break;
    case 2: panel.setChartOptionsVisible(on); break;
    case 3: panel.setChartColorVisible(on); break;
    case 4: panel.setLineChartWidthVisible(on); break;
    case 5: panel.setApplyLineWidthVisible(on); break;
    case 6: panel.setBarChartBaselineVisible(on); break;
    default: panel.setTimeFormatVisible(on); break;
    }
}

void tst_GeneralSettingsPanel::visibilitySwitchesHideTheirWidgets()
{
    QFETCH(int, which);
    QFETCH(QStringList, hidden);

    GeneralSettingsPanel panel(nullptr);
    QVERIFY(TestSupport::showActive(panel, QSize(420, 480)));
    const QStringList all = {QStringLiteral("plotTitleGroupBox"), QStringLiteral("canvasGroupBox"),
                             QStringLiteral("chartGroupBox"), QStringLiteral("timeGroupBox"),
                             QStringLiteral("chartColorLabel"), QStringLiteral("chartColorToolButton"),
                             QStringLiteral("chartLineWidthLabel"),
                             QStringLiteral("chartLineWidthSpinBox"),
                             QStringLiteral("applyLineWidthToAllCheckBox"),
                             QStringLiteral("barChartBaselineLabel"),
                             QStringLiteral("barChartBaselineEdit"),
                             QStringLiteral("barChartBaseLineInfoButton")};
    for (const QString &name : all)
        QVERIFY2(child(panel, name)->isVisible(), qPrintable(name));

    setVisible(panel, which, false);
    for (const QString &name : all) {
        // A widget inside a hidden group is not shown either, but it is not
        // the one the switch hid.
        QCOMPARE(child(panel, name)->isHidden(), hidden.contains(name));
    }

    setVisible(panel, which, true);
    for (const QString &name : all)
        QVERIFY2(child(panel, name)->isVisible(), qPrintable(name));
}

void tst_GeneralSettingsPanel::hiddenWidgetsKeepAnsweringGetters()
{
    GeneralSettingsPanel panel(nullptr);
    panel.setChartColor(QColor(9, 8, 7));
    panel.setLineChartWidth(12);
    panel.setBarChartBaseline(5e-6);
    panel.setTimeFormat(2);
    for (int which = 0; which < 8; ++which)
        setVisible(panel, which, false);
    QCOMPARE(panel.chartColor(), QColor(9, 8, 7));
    QCOMPARE(panel.lineChartWidth(), 12);
    QCOMPARE(panel.barChartBaseline(), 5e-6);
    QCOMPARE(panel.timeFormat(), 2);
}

QTEST_MAIN(tst_GeneralSettingsPanel)
#include "tst_generalsettingspanel.moc"
