// The data labels page: its form, the combo boxes filled from the Figura
// tables, the visibility integers, the defaults by dark mode, Restore
// Defaults and the visibility switches.

#include <figura/dialogs/LabelSettingsPanel.h>
#include <figura/plots/VoidPlot.h>

#include "PanelTestSupport.h"
#include "ui_LabelSettingsPanel.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using PanelTest::DefaultsPlot;
using PanelTest::fontString;
using PanelTest::child;
using PanelTest::fontColor;

namespace {

QStringList comboTexts(QComboBox *box)
{
    QStringList texts;
    for (int i = 0; box && i < box->count(); ++i)
        texts << box->itemText(i);
    return texts;
}

class OpenPanel : public LabelSettingsPanel
{
public:
    using LabelSettingsPanel::LabelSettingsPanel;
    using LabelSettingsPanel::defaultMarkerColor;
    using LabelSettingsPanel::defaultMarkerLabel;
    using LabelSettingsPanel::defaultMarkerLabelAlignment;
    using LabelSettingsPanel::defaultMarkerLabelBgColor;
    using LabelSettingsPanel::defaultMarkerLabelSortOption;
    using LabelSettingsPanel::defaultMarkerLabelVisibility;
    using LabelSettingsPanel::defaultMarkerVisibility;
    using LabelSettingsPanel::defaultMarkerWidth;
    using LabelSettingsPanel::defaultPeakLabel;
    using LabelSettingsPanel::defaultPeakLabelRotation;
    using LabelSettingsPanel::defaultPeakLabelVisibility;
    using LabelSettingsPanel::plot;
};

} // namespace

class tst_LabelSettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void formIsAStyledRaisedFrameOfItsSize();
    void formStacksThreeCheckableGroupsAndASpacer();
    void formPlacesEachWidget_data();
    void formPlacesEachWidget();
    void formEndsEachGridWithAnExpandingSpacer_data();
    void formEndsEachGridWithAnExpandingSpacer();
    void formButtonsStartWithTheirPlaceholders();
    void formPeakRotationRangeIsReplacedAtConstruction();
    void markerWidthRangeIsOneToFifty();
    void comboBoxesListTheTablesInKeyOrder();

    void defaultsFollowDarkModeOfPlot_data();
    void defaultsFollowDarkModeOfPlot();
    void darkPeakLabelColourIgnoresThePlotsDefault();
    void lightPeakLabelDefaultsComeFromThePlot();
    void nullPlotDefaults();

    void setMarkerVisibilityTwoUnchecksAndReadsBackOne();
    void visibilityIntegersAndBoolsShareTheirGroup_data();
    void visibilityIntegersAndBoolsShareTheirGroup();
    void setMarkerLabelAlignmentOutsideTableLeavesSelection();
    void setDefaultMarkerLabelAlignmentOutsideTableKeepsTop();
    void emptyAlignmentComboBoxReadsZero();
    void alignmentAndSortOptionRoundTrip();
    void sortOptionOutsideTableIsIgnored();
    void rotationsOfMinus90And90CanBeEnteredButNotMinus91();
    void peakLabelRotationOutsideRangeIsIgnored();

    void markerColoursAndWidthRoundTrip();
    void markerLabelTakesFontAndColourNotText();
    void markerLabelReadsButtons();
    void peakLabelTakesFontAndColour();
    void setDefaultsShowOnlyAfterRestore();
    void restoreDefaultsLeavesDescriptionAndGroupTitle();
    void emptyDescriptionHidesItForGood();
    void visibilitySwitchesHideTheirWidgets_data();
    void visibilitySwitchesHideTheirWidgets();
    void buttonsOpenFontAndColourDialogs_data();
    void buttonsOpenFontAndColourDialogs();

private:
    QTemporaryDir m_config;
};

void tst_LabelSettingsPanel::initTestCase()
{
    QVERIFY(PanelTest::isolateSettings(m_config, QStringLiteral("tst_labelsettingspanel")));
}

void tst_LabelSettingsPanel::formIsAStyledRaisedFrameOfItsSize()
{
    QFrame host;
    Ui::LabelSettingsPanel form;
    form.setupUi(&host);
    QCOMPARE(host.objectName(), QStringLiteral("LabelSettingsPanel"));
    QCOMPARE(host.size(), QSize(440, 476));
    QCOMPARE(host.windowTitle(), QStringLiteral("Frame"));
    QCOMPARE(host.frameShape(), QFrame::StyledPanel);
    QCOMPARE(host.frameShadow(), QFrame::Raised);
}

void tst_LabelSettingsPanel::formStacksThreeCheckableGroupsAndASpacer()
{
    LabelSettingsPanel panel(nullptr);
    auto *layout = child<QVBoxLayout>(panel, QStringLiteral("verticalLayout"));
    QVERIFY(layout);
    QCOMPARE(PanelTest::boxItems(layout),
             QStringList({QStringLiteral("markerGroupBox"), QStringLiteral("markerLabelGroupBox"),
                          QStringLiteral("peakLabelGroupBox"), QStringLiteral("spacer")}));
    QCOMPARE(layout->itemAt(3)->spacerItem()->expandingDirections(), Qt::Vertical);
    const QList<QPair<QString, QString>> titles = {
        {QStringLiteral("markerGroupBox"), QStringLiteral("Show Data Marker/Cursor")},
        {QStringLiteral("markerLabelGroupBox"), QStringLiteral("Show Marker Label")},
        {QStringLiteral("peakLabelGroupBox"), QStringLiteral("Show Peak Label")}};
    for (const auto &[name, title] : titles) {
        auto *box = child<QGroupBox>(panel, name);
        QVERIFY2(box, qPrintable(name));
        QCOMPARE(box->title(), title);
        QVERIFY(box->isCheckable());
    }
}

void tst_LabelSettingsPanel::formPlacesEachWidget_data()
{
    PanelTest::addPlacementColumns();
    const QString noText = QStringLiteral("-");
    const auto row = PanelTest::addPlacementRow;
    row("markerDescription", "QLabel", "markerGroupBox", "gridLayout", 0, 0, 5,
        QStringLiteral("Data marker (or cursor) refers to the vertical line at the mouse pointer "
                       "position that marks the data points."));
    row("markerWidthLabel", "QLabel", "markerGroupBox", "gridLayout", 3, 0, 1,
        QStringLiteral("Marker width "));
    row("markerWidthSpinBox", "QSpinBox", "markerGroupBox", "gridLayout", 3, 1, 1, noText);
    row("markerColorLabel", "QLabel", "markerGroupBox", "gridLayout", 3, 2, 1,
        QStringLiteral("Color"));
    row("markerColorToolButton", "QToolButton", "markerGroupBox", "gridLayout", 3, 3, 1, noText);
    row("markerLabelDescription", "QLabel", "markerLabelGroupBox", "gridLayout_2", 0, 0, 7,
        QStringLiteral("Marker label refers to the text displayed next to the data marker/cursor."));
    row("markerLabelFontLabel", "QLabel", "markerLabelGroupBox", "gridLayout_2", 3, 0, 1,
        QStringLiteral("Label font"));
    row("markerLabelFontButton", "QPushButton", "markerLabelGroupBox", "gridLayout_2", 3, 1, 1,
        noText);
    row("markerLabelColorLabel", "QLabel", "markerLabelGroupBox", "gridLayout_2", 3, 2, 1,
        QStringLiteral("Color"));
    row("markerLabelColorToolButton", "QToolButton", "markerLabelGroupBox", "gridLayout_2", 3, 3,
        1, noText);
    row("markerLabelBgColorLabel", "QLabel", "markerLabelGroupBox", "gridLayout_2", 4, 0, 1,
        QStringLiteral("Background color"));
    row("markerLabelBgColorToolButton", "QToolButton", "markerLabelGroupBox", "gridLayout_2", 4, 1,
        1, noText);
    row("markerLabelAlignmentLabel", "QLabel", "markerLabelGroupBox", "gridLayout_2", 6, 0, 1,
        QStringLiteral("Label alignment"));
    row("markerLabelAlignmentComboBox", "QComboBox", "markerLabelGroupBox", "gridLayout_2", 6, 1,
        1, noText);
    row("markerLabelSortLabel", "QLabel", "markerLabelGroupBox", "gridLayout_2", 7, 0, 1,
        QStringLiteral("Sort items in label"));
    row("markerLabelSortComboBox", "QComboBox", "markerLabelGroupBox", "gridLayout_2", 7, 1, 1,
        noText);
    row("peakLabelDescription", "QLabel", "peakLabelGroupBox", "gridLayout_3", 1, 0, 5,
        QStringLiteral("A peak label displays the text on top of a data point that may be "
                       "considered a peak."));
    row("peakLabelFontLabel", "QLabel", "peakLabelGroupBox", "gridLayout_3", 2, 0, 1,
        QStringLiteral("Label font"));
    row("peakLabelFontButton", "QPushButton", "peakLabelGroupBox", "gridLayout_3", 2, 1, 1, noText);
    row("peakLabelColorLabel", "QLabel", "peakLabelGroupBox", "gridLayout_3", 2, 2, 1,
        QStringLiteral("Color"));
    row("peakLabelColorToolButton", "QToolButton", "peakLabelGroupBox", "gridLayout_3", 2, 3, 1,
        noText);
    row("peakLabelRotationLabel", "QLabel", "peakLabelGroupBox", "gridLayout_3", 3, 0, 1,
        QStringLiteral("Label rotation"));
    row("peakLabelRotationSpinBox", "QSpinBox", "peakLabelGroupBox", "gridLayout_3", 3, 1, 1,
        noText);
}

void tst_LabelSettingsPanel::formPlacesEachWidget()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    LabelSettingsPanel panel(nullptr);
    QWidget *widget = nullptr;
    PanelTest::checkPlacement(panel, widget);
    if (!widget)
        return;
    if (auto *label = qobject_cast<QLabel *>(widget)) {
        QCOMPARE(label->text(), text);
        const bool description = name.endsWith(QStringLiteral("Description"));
        // Checked groups: the enabled state is the label's own.
        QCOMPARE(label->testAttribute(Qt::WA_ForceDisabled), description);
        QCOMPARE(label->wordWrap(), description);
    }
}

void tst_LabelSettingsPanel::formEndsEachGridWithAnExpandingSpacer_data()
{
    PanelTest::addSpacerColumns();
    QTest::newRow("gridLayout") << QStringLiteral("gridLayout") << 3 << 4 << 159;
    QTest::newRow("gridLayout_2") << QStringLiteral("gridLayout_2") << 3 << 6 << 33;
    QTest::newRow("gridLayout_3") << QStringLiteral("gridLayout_3") << 2 << 4 << 40;
}

void tst_LabelSettingsPanel::formEndsEachGridWithAnExpandingSpacer()
{
    LabelSettingsPanel panel(nullptr);
    PanelTest::checkGridEndsWithSpacer(panel);
}

void tst_LabelSettingsPanel::formButtonsStartWithTheirPlaceholders()
{
    QFrame host;
    Ui::LabelSettingsPanel form;
    form.setupUi(&host);
    for (QToolButton *button : {form.markerColorToolButton, form.markerLabelColorToolButton,
                                form.markerLabelBgColorToolButton, form.peakLabelColorToolButton}) {
        QCOMPARE(button->text(), QStringLiteral("#ffffff"));
        QVERIFY(PanelTest::iconShows(button->icon(),
                                     QStringLiteral(":/images/square-outline.png")));
        QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
        QVERIFY(!button->autoRaise());
    }
    QCOMPARE(form.markerLabelFontButton->text(), QStringLiteral("Time New Roman (9 Pts)"));
    QCOMPARE(form.peakLabelFontButton->text(), QStringLiteral("Time New Roman, size 9 Pt"));
    QCOMPARE(form.peakLabelRotationSpinBox->suffix(), QStringLiteral(" degree(s)"));
}

void tst_LabelSettingsPanel::formPeakRotationRangeIsReplacedAtConstruction()
{
    QFrame host;
    Ui::LabelSettingsPanel form;
    form.setupUi(&host);
    QCOMPARE(form.peakLabelRotationSpinBox->minimum(), 0);
    QCOMPARE(form.peakLabelRotationSpinBox->maximum(), 180);

    LabelSettingsPanel panel(nullptr);
    auto *spin = child<QSpinBox>(panel, QStringLiteral("peakLabelRotationSpinBox"));
    QCOMPARE(spin->minimum(), -90);
    QCOMPARE(spin->maximum(), 90);
}

void tst_LabelSettingsPanel::markerWidthRangeIsOneToFifty()
{
    LabelSettingsPanel panel(nullptr);
    auto *spin = child<QSpinBox>(panel, QStringLiteral("markerWidthSpinBox"));
    QCOMPARE(spin->minimum(), PlotDefault::MinMarkerWidth);
    QCOMPARE(spin->maximum(), PlotDefault::MaxMarkerWidth);
    QCOMPARE(spin->minimum(), 1);
    QCOMPARE(spin->maximum(), 50);
}

void tst_LabelSettingsPanel::comboBoxesListTheTablesInKeyOrder()
{
    LabelSettingsPanel panel(nullptr);
    QCOMPARE(comboTexts(child<QComboBox>(panel, QStringLiteral("markerLabelAlignmentComboBox"))),
             QStringList({QStringLiteral("Trailing"), QStringLiteral("Top"),
                          QStringLiteral("Bottom"), QStringLiteral("Middle")}));
    QCOMPARE(comboTexts(child<QComboBox>(panel, QStringLiteral("markerLabelSortComboBox"))),
             QStringList({QStringLiteral("Default"), QStringLiteral("By Value")}));
}

void tst_LabelSettingsPanel::defaultsFollowDarkModeOfPlot_data()
{
    QTest::addColumn<bool>("dark");
    QTest::addColumn<QColor>("marker");
    QTest::addColumn<QColor>("label");
    QTest::addColumn<QColor>("background");
    QTest::newRow("light") << false << PlotDefault::MarkerColor << PlotDefault::MarkerLabelColor
                           << PlotDefault::MarkerLabelBgColor;
    QTest::newRow("dark") << true << PlotDefault::DarkMode::MarkerColor
                          << PlotDefault::DarkMode::MarkerLabelColor
                          << PlotDefault::DarkMode::MarkerLabelBgColor;
}

void tst_LabelSettingsPanel::defaultsFollowDarkModeOfPlot()
{
    QFETCH(bool, dark);
    QFETCH(QColor, marker);
    QFETCH(QColor, label);
    QFETCH(QColor, background);

    VoidPlot plot;
    plot.enableDarkMode(dark);
    OpenPanel panel(&plot);
    QCOMPARE(panel.plot, &plot);
    QCOMPARE(panel.markerColor(), marker);
    QCOMPARE(panel.markerLabel().color(), label);
    QCOMPARE(panel.markerLabelBgColor(), background);
    QCOMPARE(panel.markerLabel().font(), plot.defaultMarkerLabel().font());
    QCOMPARE(panel.markerWidth(), PlotDefault::MarkerWidth);
    QCOMPARE(panel.markerLabelAlignment(), Qt::AlignTop);
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortDefault);
    QVERIFY(panel.isMarkerVisible());
    QVERIFY(panel.isMarkerLabelVisible());
    QVERIFY(panel.isPeakLabelVisible());
    QCOMPARE(panel.peakLabelRotation(), PlotDefault::PeakLabelRotation);
    QCOMPARE(panel.defaultMarkerVisibility, 0);
    QCOMPARE(panel.defaultMarkerLabelVisibility, 0);
    QCOMPARE(panel.defaultPeakLabelVisibility, 0);
    QCOMPARE(panel.defaultMarkerLabelAlignment, 32);
    QCOMPARE(panel.defaultMarkerLabelSortOption, 0);
}

void tst_LabelSettingsPanel::darkPeakLabelColourIgnoresThePlotsDefault()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.peakLabelDefault = PeakLabelFormat(QFont(QStringLiteral("Serif"), 12), Qt::red, 30);
    plot.enableDarkMode(true);
    OpenPanel panel(&plot);
    QCOMPARE(panel.defaultPeakLabel.color(), PlotDefault::DarkMode::PeakLabelColor);
    QCOMPARE(panel.peakLabel().color(), PlotDefault::DarkMode::PeakLabelColor);
    // Font and rotation still come from the plot.
    QCOMPARE(panel.peakLabel().font(), QFont(QStringLiteral("Serif"), 12));
    QCOMPARE(panel.peakLabelRotation(), 30);
}

void tst_LabelSettingsPanel::lightPeakLabelDefaultsComeFromThePlot()
{
    DefaultsPlot plot;
    plot.useOwnDefaults = true;
    plot.peakLabelDefault = PeakLabelFormat(QFont(QStringLiteral("Sans"), 8), Qt::red, -60);
    plot.markerLabelDefault.setFont(QFont(QStringLiteral("Serif"), 15));
    plot.markerLabelDefault.setColor(Qt::blue); // replaced by the palette
    OpenPanel panel(&plot);
    QCOMPARE(panel.peakLabel().color(), QColor(Qt::red));
    QCOMPARE(panel.peakLabel().font(), QFont(QStringLiteral("Sans"), 8));
    QCOMPARE(panel.peakLabelRotation(), -60);
    QCOMPARE(panel.defaultPeakLabelRotation, -60);
    QCOMPARE(panel.markerLabel().font(), QFont(QStringLiteral("Serif"), 15));
    QCOMPARE(panel.markerLabel().color(), PlotDefault::MarkerLabelColor);

    // A plot without a rotation leaves the library default.
    plot.peakLabelDefault.setTextRotation(Figura::UnsetValue);
    OpenPanel unset(&plot);
    QCOMPARE(unset.peakLabelRotation(), PlotDefault::PeakLabelRotation);
}

void tst_LabelSettingsPanel::nullPlotDefaults()
{
    OpenPanel panel(nullptr);
    QCOMPARE(panel.plot, nullptr);
    QCOMPARE(panel.markerColor(), PlotDefault::MarkerColor);
    QCOMPARE(panel.markerLabel().color(), PlotDefault::MarkerLabelColor);
    QCOMPARE(panel.markerLabelBgColor(), PlotDefault::MarkerLabelBgColor);
    QCOMPARE(panel.peakLabel().color(), PlotDefault::PeakLabelColor);
    QCOMPARE(panel.peakLabelRotation(), PlotDefault::PeakLabelRotation);
}

void tst_LabelSettingsPanel::setMarkerVisibilityTwoUnchecksAndReadsBackOne()
{
    LabelSettingsPanel panel(nullptr);
    panel.setMarkerVisibility(2);
    QVERIFY(!child<QGroupBox>(panel, QStringLiteral("markerGroupBox"))->isChecked());
    QCOMPARE(panel.markerVisibility(), 1);
    QVERIFY(!panel.isMarkerVisible());
    panel.setMarkerVisibility(0);
    QVERIFY(child<QGroupBox>(panel, QStringLiteral("markerGroupBox"))->isChecked());
    QCOMPARE(panel.markerVisibility(), 0);
}

void tst_LabelSettingsPanel::visibilityIntegersAndBoolsShareTheirGroup_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QString>("group");
    QTest::newRow("marker") << 0 << QStringLiteral("markerGroupBox");
    QTest::newRow("markerLabel") << 1 << QStringLiteral("markerLabelGroupBox");
    QTest::newRow("peakLabel") << 2 << QStringLiteral("peakLabelGroupBox");
}

void tst_LabelSettingsPanel::visibilityIntegersAndBoolsShareTheirGroup()
{
    QFETCH(int, which);
    QFETCH(QString, group);
    LabelSettingsPanel panel(nullptr);
    auto *box = child<QGroupBox>(panel, group);

    auto setBool = [&](bool on) {
        switch (which) {
        case 0: panel.setMarkerVisible(on); break;
        case 1: panel.setMarkerLabelVisible(on); break;
        default: panel.setPeakLabelVisible(on); break;
        }
    };
    auto getBool = [&] {
        switch (which) {
        case 0: return panel.isMarkerVisible();
        case 1: return panel.isMarkerLabelVisible();
        default: return panel.isPeakLabelVisible();
        }
    };
    auto setInt = [&](int v) {
        switch (which) {
        case 0: panel.setMarkerVisibility(v); break;
        case 1: panel.setMarkerLabelVisibility(v); break;
        default: panel.setPeakLabelVisibility(v); break;
        }
    };
    auto getInt = [&] {
        switch (which) {
        case 0: return panel.markerVisibility();
        case 1: return panel.markerLabelVisibility();
        default: return panel.peakLabelVisibility();
        }
    };
    auto setDefault = [&](int v) {
        switch (which) {
        case 0: panel.setDefaultMarkerVisibility(v); break;
        case 1: panel.setDefaultMarkerLabelVisibility(v); break;
        default: panel.setDefaultPeakLabelVisibility(v); break;
        }
    };

    setBool(false);
    QVERIFY(!box->isChecked());
    QCOMPARE(getInt(), 1);
    setInt(0);
    QVERIFY(getBool());
    setInt(-4);
    QVERIFY(!getBool());
    QCOMPARE(getInt(), 1);

    setDefault(3);
    setBool(true);
    panel.restoreDefaults();
    QVERIFY(!box->isChecked());
    setDefault(0);
    panel.restoreDefaults();
    QVERIFY(box->isChecked());
}

void tst_LabelSettingsPanel::setMarkerLabelAlignmentOutsideTableLeavesSelection()
{
    LabelSettingsPanel panel(nullptr);
    panel.setMarkerLabelAlignment(Qt::AlignBottom);
    QCOMPARE(panel.markerLabelAlignment(), Qt::AlignBottom);
    panel.setMarkerLabelAlignment(Qt::AlignLeft);
    QCOMPARE(child<QComboBox>(panel, QStringLiteral("markerLabelAlignmentComboBox"))->currentText(),
             QStringLiteral("Bottom"));
    QCOMPARE(panel.markerLabelAlignment(), Qt::AlignBottom);
}

void tst_LabelSettingsPanel::setDefaultMarkerLabelAlignmentOutsideTableKeepsTop()
{
    OpenPanel panel(nullptr);
    panel.setDefaultMarkerLabelAlignment(1);
    QCOMPARE(panel.defaultMarkerLabelAlignment, 32);
    panel.setMarkerLabelAlignment(Qt::AlignVCenter);
    panel.restoreDefaults();
    QCOMPARE(panel.markerLabelAlignment(), Qt::AlignTop);

    panel.setDefaultMarkerLabelAlignment(Qt::AlignTrailing);
    QCOMPARE(panel.defaultMarkerLabelAlignment, int(Qt::AlignTrailing));
    panel.restoreDefaults();
    QCOMPARE(panel.markerLabelAlignment(), Qt::AlignTrailing);
}

void tst_LabelSettingsPanel::emptyAlignmentComboBoxReadsZero()
{
    OpenPanel panel(nullptr);
    auto *box = child<QComboBox>(panel, QStringLiteral("markerLabelAlignmentComboBox"));
    box->setCurrentIndex(-1);
    QCOMPARE(box->currentText(), QString());
    QCOMPARE(int(panel.markerLabelAlignment()), 0);

    // A default key outside the table restores to the empty selection too.
    panel.defaultMarkerLabelAlignment = 1;
    box->setCurrentIndex(0);
    panel.restoreDefaults();
    QCOMPARE(box->currentIndex(), -1);
    QCOMPARE(int(panel.markerLabelAlignment()), 0);
}

void tst_LabelSettingsPanel::alignmentAndSortOptionRoundTrip()
{
    LabelSettingsPanel panel(nullptr);
    const QList<Qt::AlignmentFlag> keys = Figura::MarkerLabelAlignments.keys();
    for (Qt::AlignmentFlag key : keys) {
        panel.setMarkerLabelAlignment(key);
        QCOMPARE(panel.markerLabelAlignment(), key);
    }
    panel.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    QCOMPARE(child<QComboBox>(panel, QStringLiteral("markerLabelSortComboBox"))->currentText(),
             QStringLiteral("By Value"));
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
    panel.setMarkerLabelSortOption(Figura::MarkerLabelSortDefault);
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortDefault);
}

void tst_LabelSettingsPanel::sortOptionOutsideTableIsIgnored()
{
    OpenPanel panel(nullptr);
    panel.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    panel.setMarkerLabelSortOption(static_cast<Figura::MarkerLabelSortOption>(5));
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
    panel.setDefaultMarkerLabelSortOption(5);
    QCOMPARE(panel.defaultMarkerLabelSortOption, 0);
    panel.setDefaultMarkerLabelSortOption(1);
    QCOMPARE(panel.defaultMarkerLabelSortOption, 1);
    panel.setMarkerLabelSortOption(Figura::MarkerLabelSortDefault);
    panel.restoreDefaults();
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
}

void tst_LabelSettingsPanel::rotationsOfMinus90And90CanBeEnteredButNotMinus91()
{
    LabelSettingsPanel panel(nullptr);
    QVERIFY(TestSupport::showActive(panel, QSize(460, 500)));
    auto *spin = child<QSpinBox>(panel, QStringLiteral("peakLabelRotationSpinBox"));
    auto type = [spin](const QString &digits) {
        spin->setFocus();
        spin->selectAll();
        QTest::keyClicks(spin, digits);
        QTest::keyClick(spin, Qt::Key_Enter);
    };

    type(QStringLiteral("-90"));
    QCOMPARE(spin->value(), -90);
    QCOMPARE(panel.peakLabelRotation(), -90);
    type(QStringLiteral("90"));
    QCOMPARE(spin->value(), 90);

    type(QStringLiteral("-91"));
    QVERIFY(spin->value() != -91);
    QString text = QStringLiteral("-91 degree(s)");
    int pos = 0;
    QVERIFY(static_cast<QAbstractSpinBox *>(spin)->validate(text, pos) != QValidator::Acceptable);
}

void tst_LabelSettingsPanel::peakLabelRotationOutsideRangeIsIgnored()
{
    OpenPanel panel(nullptr);
    panel.setPeakLabelRotation(12);
    panel.setPeakLabelRotation(-91);
    QCOMPARE(panel.peakLabelRotation(), 12);
    panel.setPeakLabelRotation(Figura::UnsetValue);
    QCOMPARE(panel.peakLabelRotation(), 12);
    panel.setDefaultPeakLabelRotation(91);
    QCOMPARE(panel.defaultPeakLabelRotation, PlotDefault::PeakLabelRotation);
    panel.setDefaultPeakLabelRotation(90);
    panel.restoreDefaults();
    QCOMPARE(panel.peakLabelRotation(), 90);
}

void tst_LabelSettingsPanel::markerColoursAndWidthRoundTrip()
{
    LabelSettingsPanel panel(nullptr);
    panel.setMarkerWidth(17);
    QCOMPARE(panel.markerWidth(), 17);
    panel.setMarkerColor(QColor(0x10, 0x20, 0x30));
    QCOMPARE(panel.markerColor(), QColor(0x10, 0x20, 0x30));
    panel.setMarkerColor(QColor());
    QCOMPARE(panel.markerColor(), QColor(0x10, 0x20, 0x30));
    panel.setMarkerLabelBgColor(QColor(0x40, 0x50, 0x60));
    QCOMPARE(panel.markerLabelBgColor(), QColor(0x40, 0x50, 0x60));
    panel.setMarkerLabelBgColor(QColor());
    QCOMPARE(child<QToolButton>(panel, QStringLiteral("markerLabelBgColorToolButton"))->text(),
             QStringLiteral("#405060"));
}

void tst_LabelSettingsPanel::markerLabelTakesFontAndColourNotText()
{
    LabelSettingsPanel panel(nullptr);
    QwtText label = fontColor(QFont(QStringLiteral("Serif"), 14), QColor(0x70, 0x60, 0x50));
    label.setText(QStringLiteral("ignored"));
    panel.setMarkerLabel(label);
    QCOMPARE(fontString(child<QPushButton>(panel, QStringLiteral("markerLabelFontButton"))),
             QFont(QStringLiteral("Serif"), 14).toString());
    QCOMPARE(child<QToolButton>(panel, QStringLiteral("markerLabelColorToolButton"))->text(),
             QStringLiteral("#706050"));
    const QwtText back = panel.markerLabel();
    QCOMPARE(back.text(), QString());
    QCOMPARE(back.font(), QFont(QStringLiteral("Serif"), 14));
    QCOMPARE(back.color(), QColor(0x70, 0x60, 0x50));

    // An invalid colour leaves the colour button.
    panel.setMarkerLabel(fontColor(QFont(QStringLiteral("Sans"), 9), QColor()));
    QCOMPARE(panel.markerLabel().color(), QColor(0x70, 0x60, 0x50));
    QCOMPARE(panel.markerLabel().font(), QFont(QStringLiteral("Sans"), 9));
}

void tst_LabelSettingsPanel::markerLabelReadsButtons()
{
    LabelSettingsPanel panel(nullptr);
    QVERIFY(PanelTest::chooseFont(child<QPushButton>(panel, QStringLiteral("markerLabelFontButton")),
                                  QFont(QStringLiteral("Sans"), 22)));
    QVERIFY(PanelTest::chooseColor(
        child<QToolButton>(panel, QStringLiteral("markerLabelColorToolButton")), QColor(1, 2, 3)));
    QCOMPARE(panel.markerLabel().font().pointSize(), 22);
    QCOMPARE(panel.markerLabel().color(), QColor(1, 2, 3));
}

void tst_LabelSettingsPanel::peakLabelTakesFontAndColour()
{
    LabelSettingsPanel panel(nullptr);
    panel.setPeakLabel(fontColor(QFont(QStringLiteral("Serif"), 7), QColor(0xaa, 0xbb, 0xcc)));
    QCOMPARE(fontString(child<QPushButton>(panel, QStringLiteral("peakLabelFontButton"))),
             QFont(QStringLiteral("Serif"), 7).toString());
    QCOMPARE(panel.peakLabel().color(), QColor(0xaa, 0xbb, 0xcc));
    QCOMPARE(panel.peakLabel().font(), QFont(QStringLiteral("Serif"), 7));
}

void tst_LabelSettingsPanel::setDefaultsShowOnlyAfterRestore()
{
    LabelSettingsPanel panel(nullptr);
    panel.setDefaultMarkerWidth(9);
    panel.setDefaultMarkerColor(QColor(9, 9, 9));
    panel.setDefaultMarkerLabel(fontColor(QFont(QStringLiteral("Serif"), 18), QColor(8, 8, 8)));
    panel.setDefaultMarkerLabelBgColor(QColor(7, 7, 7));
    panel.setDefaultPeakLabel(fontColor(QFont(QStringLiteral("Sans"), 5), QColor(6, 6, 6)));
    panel.setDefaultPeakLabelRotation(15);
    QCOMPARE(panel.markerWidth(), PlotDefault::MarkerWidth);
    QCOMPARE(panel.markerColor(), PlotDefault::MarkerColor);
    QCOMPARE(panel.peakLabelRotation(), PlotDefault::PeakLabelRotation);

    panel.restoreDefaults();
    QCOMPARE(panel.markerWidth(), 9);
    QCOMPARE(panel.markerColor(), QColor(9, 9, 9));
    QCOMPARE(panel.markerLabel().font(), QFont(QStringLiteral("Serif"), 18));
    QCOMPARE(panel.markerLabel().color(), QColor(8, 8, 8));
    QCOMPARE(panel.markerLabelBgColor(), QColor(7, 7, 7));
    QCOMPARE(panel.peakLabel().font(), QFont(QStringLiteral("Sans"), 5));
    QCOMPARE(panel.peakLabel().color(), QColor(6, 6, 6));
    QCOMPARE(panel.peakLabelRotation(), 15);
}

void tst_LabelSettingsPanel::restoreDefaultsLeavesDescriptionAndGroupTitle()
{
    LabelSettingsPanel panel(nullptr);
    panel.setPeakLabelDescription(QStringLiteral("Peaks are named by the host."));
    panel.setPeakLabelGroupName(QStringLiteral("Show Compound Names"));
    panel.restoreDefaults();
    QCOMPARE(child<QLabel>(panel, QStringLiteral("peakLabelDescription"))->text(),
             QStringLiteral("Peaks are named by the host."));
    QCOMPARE(child<QGroupBox>(panel, QStringLiteral("peakLabelGroupBox"))->title(),
             QStringLiteral("Show Compound Names"));
}

void tst_LabelSettingsPanel::emptyDescriptionHidesItForGood()
{
    LabelSettingsPanel panel(nullptr);
    auto *description = child<QLabel>(panel, QStringLiteral("peakLabelDescription"));
    QVERIFY(!description->isHidden());
    panel.setPeakLabelDescription(QString());
    QVERIFY(description->isHidden());
    panel.setPeakLabelDescription(QStringLiteral("Back again?"));
    QVERIFY(description->isHidden());
    QCOMPARE(description->text(), QStringLiteral("Back again?"));
}

void tst_LabelSettingsPanel::visibilitySwitchesHideTheirWidgets_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<QStringList>("hidden");
    QTest::newRow("markerOptions") << 0 << QStringList({QStringLiteral("markerGroupBox")});
    QTest::newRow("markerLabelOptions")
        << 1 << QStringList({QStringLiteral("markerLabelGroupBox")});
    QTest::newRow("markerLabelSortOption")
        << 2
        << QStringList(
               {QStringLiteral("markerLabelSortLabel"), QStringLiteral("markerLabelSortComboBox")});
    QTest::newRow("peakLabelOptions") << 3 << QStringList({QStringLiteral("peakLabelGroupBox")});
}

void tst_LabelSettingsPanel::visibilitySwitchesHideTheirWidgets()
{
    QFETCH(int, which);
    QFETCH(QStringList, hidden);
    LabelSettingsPanel panel(nullptr);
    QVERIFY(TestSupport::showActive(panel, QSize(460, 500)));
    const QStringList all = {QStringLiteral("markerGroupBox"), QStringLiteral("markerLabelGroupBox"),
                             QStringLiteral("peakLabelGroupBox"),
                             QStringLiteral("markerLabelSortLabel"),
                             QStringLiteral("markerLabelSortComboBox")};
    auto set = [&](bool on) {
        switch (which) {
        case 0: panel.setMarkerOptionsVisible(on); break;
        case 1: panel.setMarkerLabelOptionsVisible(on); break;
        case 2: panel.setMarkerLabelSortOptionVisible(on); break;
        default: panel.setPeakLabelOptionsVisible(on); break;
        }
    };
    panel.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    set(false);
    for (const QString &name : all)
        QCOMPARE(child(panel, name)->isHidden(), hidden.contains(name));
    // Hidden widgets keep answering.
    QCOMPARE(panel.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
    QVERIFY(panel.isMarkerVisible());
    set(true);
    for (const QString &name : all)
        QVERIFY2(child(panel, name)->isVisible(), qPrintable(name));
}

void tst_LabelSettingsPanel::buttonsOpenFontAndColourDialogs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFont");
    QTest::newRow("markerColorToolButton") << QStringLiteral("markerColorToolButton") << false;
    QTest::newRow("markerLabelFontButton") << QStringLiteral("markerLabelFontButton") << true;
    QTest::newRow("markerLabelColorToolButton")
        << QStringLiteral("markerLabelColorToolButton") << false;
    QTest::newRow("markerLabelBgColorToolButton")
        << QStringLiteral("markerLabelBgColorToolButton") << false;
    QTest::newRow("peakLabelFontButton") << QStringLiteral("peakLabelFontButton") << true;
    QTest::newRow("peakLabelColorToolButton") << QStringLiteral("peakLabelColorToolButton") << false;
}

void tst_LabelSettingsPanel::buttonsOpenFontAndColourDialogs()
{
    QFETCH(QString, name);
    QFETCH(bool, isFont);
    LabelSettingsPanel panel(nullptr);
    auto *button = child<QAbstractButton>(panel, name);
    QVERIFY(button);
    if (isFont) {
        QVERIFY(PanelTest::chooseFont(button, QFont(QStringLiteral("Serif"), 26)));
        QCOMPARE(PanelTest::fontOf(button).pointSize(), 26);
    } else {
        QVERIFY(PanelTest::chooseColor(button, QColor(0x66, 0x77, 0x88)));
        QCOMPARE(button->text(), QStringLiteral("#667788"));
    }
}

QTEST_MAIN(tst_LabelSettingsPanel)
#include "tst_labelsettingspanel.moc"
