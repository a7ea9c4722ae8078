// The exchange of a VoidPlot with its settings dialog, driven as a user does
// it: "Customize Plot..." from the context menu of a shown plot, values
// changed in the widgets, then OK, Cancel or Restore Defaults. Checked are
// what the dialog showed, what the plot took over and which signals it gave.

#include <figura/dialogs/AxisSettingsPanel.h>
#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/dialogs/LabelSettingsPanel.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/plots/VoidPlot.h>

#include "PanelTestSupport.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_engine.h>
#include <qwt_scale_widget.h>

#include <functional>
#include <memory>
#include <vector>

using TestSupport::WhenShown;

using TestSupport::MenuPick;

namespace {

class ExchangePlot : public TestSupport::ReplotCounter<VoidPlot>
{
public:
    using ReplotCounter::ReplotCounter;
    using VoidPlot::grid;
    using VoidPlot::logScale;
    using VoidPlot::logScaleAct;
    using VoidPlot::marker;
    using VoidPlot::markerLabel;
    using VoidPlot::peakLabelAct;

    QWidget *helperDialog = nullptr;
    QString helperSawTitle; // the title edit when the hook ran, before the dialog was filled
    int loads = 0;
    int saves = 0;

protected:
    void setPlotSettingDialogHelper(QWidget *dialog) override
    {
        helperDialog = dialog;
        if (auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("titleTextEdit")))
            helperSawTitle = edit->text();
    }
    void loadToPlotSettingDialog(PlotSettingsDialog &dialog) override
    {
        ++loads;
        VoidPlot::loadToPlotSettingDialog(dialog);
    }
    void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog) override
    {
        ++saves;
        VoidPlot::saveFromPlotSettingDialog(dialog);
    }
};

// Counts every signal that an accepted dialog can give.
class SignalLog
{
public:
    explicit SignalLog(VoidPlot *plot)
    {
        add("plotTitleChanged", plot, &VoidPlot::plotTitleChanged);
        add("canvasBgColorChanged", plot, &VoidPlot::canvasBgColorChanged);
        add("majorGridColorChanged", plot, &VoidPlot::majorGridColorChanged);
        add("minorGridColorChanged", plot, &VoidPlot::minorGridColorChanged);
        add("chartColorChanged", plot, &VoidPlot::chartColorChanged);
        add("markerVisibleToggled", plot, &VoidPlot::markerVisibleToggled);
        add("markerWidthChanged", plot, &VoidPlot::markerWidthChanged);
        add("markerColorChanged", plot, &VoidPlot::markerColorChanged);
        add("markerLabelVisibleToggled", plot, &VoidPlot::markerLabelVisibleToggled);
        add("markerLabelFontColorChanged", plot, &VoidPlot::markerLabelFontColorChanged);
        add("markerLabelBgColorChanged", plot, &VoidPlot::markerLabelBgColorChanged);
        add("markerLabelAlignmentChanged", plot, &VoidPlot::markerLabelAlignmentChanged);
        add("markerLabelSortOptionChanged", plot, &VoidPlot::markerLabelSortOptionChanged);
        add("peakLabelFormatChanged", plot, &VoidPlot::peakLabelFormatChanged);
        add("peakLabelVisibilityToggled", plot, &VoidPlot::peakLabelVisibilityToggled);
        add("axisTitleChanged", plot, &VoidPlot::axisTitleChanged);
        add("tickLabelChanged", plot, &VoidPlot::tickLabelChanged);
        add("logScaleToggled", plot, &VoidPlot::logScaleToggled);
    }

    // The signals that came, with their counts.
    QMap<QString, int> counts() const
    {
        QMap<QString, int> result;
        for (const auto &[name, spy] : spies) {
            if (spy->count() > 0)
                result.insert(name, int(spy->count()));
        }
        return result;
    }

    const QSignalSpy &operator[](const char *name) const
    {
        for (const auto &[spyName, spy] : spies) {
            if (spyName == QLatin1String(name))
                return *spy;
        }
        qFatal("no spy %s", name);
    }

private:
    template <class Signal>
    void add(const char *name, VoidPlot *plot, Signal signal)
    {
        spies.emplace_back(QString::fromLatin1(name), std::make_unique<QSignalSpy>(plot, signal));
    }

    std::vector<std::pair<QString, std::unique_ptr<QSignalSpy>>> spies;
};

// Widgets of the dialog, looked up in the page they belong to.
template <class T>
T *generalWidget(PlotSettingsDialog &dialog, const char *name)
{
    auto *page = dialog.findChild<GeneralSettingsPanel *>();
    return page ? page->findChild<T *>(QLatin1String(name)) : nullptr;
}

template <class T>
T *labelWidget(PlotSettingsDialog &dialog, const char *name)
{
    auto *page = dialog.findChild<LabelSettingsPanel *>();
    return page ? page->findChild<T *>(QLatin1String(name)) : nullptr;
}

// A widget of the axis tab whose tab text is given.
template <class T>
T *axisWidget(PlotSettingsDialog &dialog, const QString &tabText, const char *name)
{
    auto *page = dialog.findChild<AxisSettingsPanel *>();
    auto *tabs = page ? page->findChild<QTabWidget *>(QStringLiteral("tabWidget")) : nullptr;
    for (int i = 0; tabs && i < tabs->count(); ++i) {
        if (tabs->tabText(i) == tabText)
            return tabs->widget(i)->findChild<T *>(QLatin1String(name));
    }
    return nullptr;
}

void press(PlotSettingsDialog &dialog, QDialogButtonBox::StandardButton which)
{
    dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(which)->click();
}

// Opens "Customize Plot..." from the canvas' context menu and runs act on
// the dialog while it is shown; act must close it. Returns whether the
// dialog was seen.
bool customize(VoidPlot &plot, const std::function<void(PlotSettingsDialog &)> &act)
{
    TestSupport::AnswerDialog<PlotSettingsDialog> answer(act);
    MenuPick pick(QStringLiteral("Customize Plot..."));
    // The right click as the canvas sees it where the platform sends the
    // menu event after the release: the menu opens at once.
    const QPoint at(60, 60);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonPress, at, Qt::RightButton,
                       Qt::RightButton);
    TestSupport::mouse(plot.canvas(), QEvent::MouseButtonRelease, at, Qt::RightButton);
    TestSupport::contextMenu(plot.canvas(), at);
    return answer.seen() && pick.fired();
}

QColor textColor(QwtScaleWidget *widget)
{
    return widget->palette().color(QPalette::Text);
}

} // namespace

class tst_PlotSettingsExchange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void rightClickOpensCustomizeDialogOnThePlot();
    void dialogIsFilledFromThePlot();
    void subTitleIsShownInPlaceOfTheTitleText();
    void transparentMarkerColourIsLoadedOpaque();
    void groupsFollowTheOptionBits_data();
    void groupsFollowTheOptionBits();
    void axesAreLoadedWhateverTheBits();
    void leftScaleFollowsTheEngine();

    void cancellingChangesNothingAndDoesNotReplot();
    void restoreDefaultsThenCancelLeavesPlotUnchanged();
    void acceptingUnchangedDialogEmitsNothingAndReplotsOnce();
    void acceptingAppliesEditedValuesAndEmitsEachSignalOnce();
    void restoreDefaultsThenOkAppliesTheDefaults();
    void plotWithoutMarkerOptionShowsNoMarkerGroupAndIgnoresIt();
    void hiddenGroupsAreNotReadBack();
    void peakLabelOptionLoadsAndSavesThePeakLabel();
    void clearedAxisTitleWithNewFontKeepsTheString();
    void changedLeftScaleWithoutLogActionStoresTheFlagOnly();
    void changedLeftScaleWithLogActionChangesTheEngine();
    void rightAxisIsSavedWhenShown();

private:
    QTemporaryDir m_config;
};

void tst_PlotSettingsExchange::initTestCase()
{
    QVERIFY(PanelTest::isolateSettings(m_config, QStringLiteral("tst_plotsettingsexchange")));
}

void tst_PlotSettingsExchange::init()
{
    QSettings().clear();
}

void tst_PlotSettingsExchange::rightClickOpensCustomizeDialogOnThePlot()
{
    ExchangePlot plot;
    QVERIFY(TestSupport::showActive(plot));
    QWidget *modal = nullptr; // gone by the time it is compared: never dereferenced
    bool isSettingsDialog = false;
    QWidget *parent = nullptr;
    QString title;
    WhenShown answer(TestSupport::activeModal, [&](QWidget *w) {
        modal = w;
        isSettingsDialog = qobject_cast<PlotSettingsDialog *>(w) != nullptr;
        parent = w->parentWidget();
        title = w->windowTitle();
        static_cast<QDialog *>(w)->reject();
    });
    MenuPick pick(QStringLiteral("Customize Plot..."));
    // A real right click on the canvas, through the window.
    const QPoint at = plot.canvas()->mapTo(&plot, QPoint(80, 60));
    QTest::mouseClick(plot.windowHandle(), Qt::RightButton, Qt::NoModifier, at);
    QTRY_VERIFY(pick.fired());
    QTRY_VERIFY(answer.fired());
    QVERIFY(isSettingsDialog);
    QCOMPARE(parent, static_cast<QWidget *>(&plot));
    QCOMPARE(title, QStringLiteral("Plot Settings"));
    // The hook saw the dialog first, before the plot filled it.
    QCOMPARE(plot.helperDialog, modal);
    QCOMPARE(plot.helperSawTitle, QString());
    QCOMPARE(plot.loads, 1);
    QCOMPARE(plot.saves, 0);
}

void tst_PlotSettingsExchange::dialogIsFilledFromThePlot()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0x387);
    QwtText title(QStringLiteral("Spectrum"));
    title.setColor(QColor(0x10, 0x20, 0x30));
    plot.setPlotTitle(title);
    plot.setCanvasBgColor(QColor(0xf0, 0xf1, 0xf2));
    plot.setMajorGridColor(QColor(0x11, 0x11, 0x11));
    plot.setMinorGridColor(QColor(0x22, 0x22, 0x22));
    plot.setChartColor(QColor(0x33, 0x33, 0x33));
    plot.setMarkerVisible(false);
    plot.setMarkersWidth(4);
    plot.setMarkersColor(QColor(0x44, 0x44, 0x44));
    QwtText labelFont;
    labelFont.setFont(QFont(QStringLiteral("Serif"), 13));
    labelFont.setColor(QColor(0x55, 0x55, 0x55));
    plot.setMarkerLabelFontColor(labelFont);
    plot.setMarkerLabelBgColor(QColor(0x66, 0x66, 0x66));
    plot.setMarkerLabelAlignment(Qt::AlignBottom);
    plot.setMarkerLabelSortOption(Figura::MarkerLabelSortByValue);
    QVERIFY(TestSupport::showActive(plot));

    QwtText shownTitle;
    QColor canvas, major, minor, chart, markerColor, labelBg;
    bool markerVisible = true, labelVisible = false;
    int markerWidth = 0;
    QwtText shownLabel;
    Qt::AlignmentFlag alignment = Qt::AlignLeft;
    Figura::MarkerLabelSortOption sort = Figura::MarkerLabelSortDefault;
    QwtText bottomTitle, leftTitle;
    TickLabelFormat bottomLabel;
    const bool seen = customize(plot, [&](PlotSettingsDialog &d) {
        shownTitle = d.plotTitle();
        canvas = d.canvasColor();
        major = d.majorGridColor();
        minor = d.minorGridColor();
        chart = d.chartColor();
        markerVisible = d.isMarkerVisible();
        markerWidth = d.markerWidth();
        markerColor = d.markerColor();
        labelVisible = d.isMarkerLabelVisible();
        shownLabel = d.markerLabel();
        labelBg = d.markerLabelBgColor();
        alignment = d.markerLabelAlignment();
        sort = d.markerLabelSortOption();
        bottomTitle = d.axisTitle(QwtPlot::xBottom);
        leftTitle = d.axisTitle(QwtPlot::yLeft);
        bottomLabel = d.tickLabel(QwtPlot::xBottom);
        d.reject();
    });
    QVERIFY(seen);
    QCOMPARE(shownTitle.text(), QStringLiteral("Spectrum"));
    QCOMPARE(shownTitle.color(), QColor(0x10, 0x20, 0x30));
    QCOMPARE(canvas, QColor(0xf0, 0xf1, 0xf2));
    QCOMPARE(major, QColor(0x11, 0x11, 0x11));
    QCOMPARE(minor, QColor(0x22, 0x22, 0x22));
    QCOMPARE(chart, QColor(0x33, 0x33, 0x33));
    QVERIFY(!markerVisible);
    QCOMPARE(markerWidth, 4);
    QCOMPARE(markerColor, QColor(0x44, 0x44, 0x44));
    QVERIFY(labelVisible);
    QCOMPARE(shownLabel.font(), QFont(QStringLiteral("Serif"), 13));
    QCOMPARE(shownLabel.color(), QColor(0x55, 0x55, 0x55));
    QCOMPARE(labelBg, QColor(0x66, 0x66, 0x66));
    QCOMPARE(alignment, Qt::AlignBottom);
    QCOMPARE(sort, Figura::MarkerLabelSortByValue);
    QCOMPARE(bottomTitle.text(), plot.axisTitle(QwtPlot::xBottom).text());
    QCOMPARE(bottomTitle.font(), plot.axisTitle(QwtPlot::xBottom).font());
    QCOMPARE(leftTitle.font(), plot.axisTitle(QwtPlot::yLeft).font());
    QCOMPARE(bottomLabel.font, plot.tickLabel(QwtPlot::xBottom).font);
    QCOMPARE(bottomLabel.color, plot.tickLabel(QwtPlot::xBottom).color);
    QCOMPARE(bottomLabel.rotation, plot.tickLabel(QwtPlot::xBottom).rotation);
}

void tst_PlotSettingsExchange::subTitleIsShownInPlaceOfTheTitleText()
{
    ExchangePlot plot;
    plot.setPlotTitle(QwtText(QStringLiteral("Sample 7 - user part")));
    plot.setSubTitle(QStringLiteral("user part"));
    QVERIFY(TestSupport::showActive(plot));
    QString shown;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        shown = generalWidget<QLineEdit>(d, "titleTextEdit")->text();
        d.reject();
    }));
    QCOMPARE(shown, QStringLiteral("user part"));
}

void tst_PlotSettingsExchange::transparentMarkerColourIsLoadedOpaque()
{
    ExchangePlot plot;
    plot.setMarkersColor(QColor(0x12, 0x34, 0x56, 0));
    QCOMPARE(plot.marker->linePen().color().alpha(), 0);
    QVERIFY(TestSupport::showActive(plot));
    QColor shown;
    QString buttonText;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        shown = d.markerColor();
        buttonText = labelWidget<QToolButton>(d, "markerColorToolButton")->text();
        d.reject();
    }));
    QCOMPARE(shown, QColor(0x12, 0x34, 0x56));
    QCOMPARE(shown.alpha(), 255);
    QCOMPARE(buttonText, QStringLiteral("#123456"));
}

void tst_PlotSettingsExchange::groupsFollowTheOptionBits_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<QStringList>("hidden");
    QTest::addColumn<QStringList>("shown");

    const QString title = QStringLiteral("plotTitleGroupBox");
    const QString canvas = QStringLiteral("canvasGroupBox");
    const QString chart = QStringLiteral("chartGroupBox");
    const QStringList chartColor = {QStringLiteral("chartColorLabel"),
                                    QStringLiteral("chartColorToolButton")};
    const QStringList width = {QStringLiteral("chartLineWidthLabel"),
                               QStringLiteral("chartLineWidthSpinBox")};
    const QString applyAll = QStringLiteral("applyLineWidthToAllCheckBox");
    const QStringList baseline = {QStringLiteral("barChartBaselineLabel"),
                                  QStringLiteral("barChartBaselineEdit"),
                                  QStringLiteral("barChartBaseLineInfoButton")};
    const QString time = QStringLiteral("timeGroupBox");
    const QString marker = QStringLiteral("markerGroupBox");
    const QString markerLabel = QStringLiteral("markerLabelGroupBox");
    const QStringList sort = {QStringLiteral("markerLabelSortLabel"),
                              QStringLiteral("markerLabelSortComboBox")};
    const QString peak = QStringLiteral("peakLabelGroupBox");

    QTest::newRow("VoidPlot 0x187")
        << 0x187 << (QStringList() << width << applyAll << baseline << time << sort << peak)
        << (QStringList() << title << canvas << chart << chartColor << marker << markerLabel);
    QTest::newRow("none") << 0x000
                          << (QStringList() << title << canvas << chart << chartColor << width
                                            << applyAll << baseline << time << marker
                                            << markerLabel << peak)
                          << QStringList();
    QTest::newRow("all") << 0x7FF << QStringList()
                         << (QStringList() << title << canvas << chart << chartColor << width
                                           << applyAll << baseline << time << marker
                                           << markerLabel << sort << peak);
    QTest::newRow("sort without marker label")
        << 0x200 << (QStringList() << markerLabel) << QStringList();
    QTest::newRow("line width only")
        << 0x008 << (QStringList() << chartColor << applyAll << baseline)
        << (QStringList() << chart << width);
    QTest::newRow("baseline and time") << 0x060 << (QStringList() << chartColor << width << applyAll)
                                       << (QStringList() << chart << baseline << time);
}

void tst_PlotSettingsExchange::groupsFollowTheOptionBits()
{
    QFETCH(int, options);
    QFETCH(QStringList, hidden);
    QFETCH(QStringList, shown);

    ExchangePlot plot;
    plot.setCustomPlotOptions(options);
    QVERIFY(TestSupport::showActive(plot));
    QStringList wronglyShown;
    QStringList wronglyHidden;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        for (const QString &name : hidden) {
            QWidget *w = d.findChild<QWidget *>(name);
            if (!w || !w->isHidden())
                wronglyShown << name;
        }
        for (const QString &name : shown) {
            QWidget *w = d.findChild<QWidget *>(name);
            if (!w || w->isHidden())
                wronglyHidden << name;
        }
        d.reject();
    }));
    QCOMPARE(wronglyShown, QStringList());
    QCOMPARE(wronglyHidden, QStringList());
}

void tst_PlotSettingsExchange::axesAreLoadedWhateverTheBits()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0);
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisTitle(QwtPlot::yRight, QwtText(QStringLiteral("Right")));
    plot.setAxisTitle(QwtPlot::xBottom, QwtText(QStringLiteral("Mass")));
    QVERIFY(TestSupport::showActive(plot));

    QStringList tabTexts;
    bool bottomEnabled = true, leftEnabled = false, rightEnabled = true;
    int bottomScale = -2, leftScale = -2, rightScale = -2;
    int bottomRestored = -2, leftRestored = -2, rightRestored = -2;
    QString bottomTitle, rightTitle;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        auto *tabs = d.findChild<AxisSettingsPanel *>()->findChild<QTabWidget *>(
            QStringLiteral("tabWidget"));
        for (int i = 0; i < tabs->count(); ++i)
            tabTexts << tabs->tabText(i);
        auto enabled = [&](const QString &tab) {
            return axisWidget<QGroupBox>(d, tab, "scaleGroupBox")->isEnabled();
        };
        bottomEnabled = enabled(QStringLiteral("X-Axis"));
        leftEnabled = enabled(QStringLiteral("Y-Left-Axis"));
        rightEnabled = enabled(QStringLiteral("Y-Right-Axis"));
        bottomScale = d.axisScale(QwtPlot::xBottom);
        leftScale = d.axisScale(QwtPlot::yLeft);
        rightScale = d.axisScale(QwtPlot::yRight);
        bottomTitle = d.axisTitle(QwtPlot::xBottom).text();
        rightTitle = d.axisTitle(QwtPlot::yRight).text();
        press(d, QDialogButtonBox::RestoreDefaults);
        bottomRestored = d.axisScale(QwtPlot::xBottom);
        leftRestored = d.axisScale(QwtPlot::yLeft);
        rightRestored = d.axisScale(QwtPlot::yRight);
        d.reject();
    }));
    QCOMPARE(tabTexts, QStringList({QStringLiteral("X-Axis"), QStringLiteral("Y-Left-Axis"),
                                    QStringLiteral("Y-Right-Axis")}));
    QVERIFY(!bottomEnabled);
    QVERIFY(leftEnabled);
    QVERIFY(!rightEnabled);
    QCOMPARE(bottomScale, 0);
    QCOMPARE(leftScale, 0);
    QCOMPARE(rightScale, 0);
    QCOMPARE(bottomTitle, QStringLiteral("Mass"));
    QCOMPARE(rightTitle, QStringLiteral("Right"));
    // Only the left axis defaults to a logarithmic scale.
    QCOMPARE(bottomRestored, 0);
    QCOMPARE(leftRestored, 1);
    QCOMPARE(rightRestored, 0);
}

void tst_PlotSettingsExchange::leftScaleFollowsTheEngine()
{
    ExchangePlot plot;
    plot.setLogScale(true);
    QVERIFY(dynamic_cast<const QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QVERIFY(TestSupport::showActive(plot));
    int scale = -2;
    bool logChecked = false;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        scale = d.axisScale(QwtPlot::yLeft);
        logChecked = axisWidget<QRadioButton>(d, QStringLiteral("Y-Axis"), "logRadioButton")
                         ->isChecked();
        d.reject();
    }));
    QCOMPARE(scale, 1);
    QVERIFY(logChecked);
}

void tst_PlotSettingsExchange::cancellingChangesNothingAndDoesNotReplot()
{
    ExchangePlot plot;
    QVERIFY(TestSupport::showActive(plot));
    QTRY_VERIFY(plot.replots >= 1);
    QTest::qWait(20);
    plot.replots = 0;
    const QwtText title = plot.title();
    const QColor canvas = plot.canvasBackground().color();
    const QPen markerPen = plot.marker->linePen();
    SignalLog log(&plot);

    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        generalWidget<QLineEdit>(d, "titleTextEdit")->setText(QStringLiteral("Not taken"));
        d.setCanvasColor(Qt::red);
        d.setMarkerWidth(9);
        d.setMarkerVisible(false);
        d.setAxisScale(QwtPlot::yLeft, 1);
        axisWidget<QLineEdit>(d, QStringLiteral("X-Axis"), "titleTextEdit")
            ->setText(QStringLiteral("Not taken either"));
        press(d, QDialogButtonBox::Cancel);
    }));
    QCOMPARE(plot.saves, 0);
    QCOMPARE(plot.replots, 0);
    QTest::qWait(30); // a replot requested on the way would have come by now
    QCOMPARE(plot.replots, 0);
    QCOMPARE(log.counts(), (QMap<QString, int>()));
    QVERIFY(plot.title() == title);
    QCOMPARE(plot.canvasBackground().color(), canvas);
    QCOMPARE(plot.marker->linePen(), markerPen);
    QVERIFY(plot.isMarkerVisible());
    QVERIFY(!plot.logScale);
    QVERIFY(plot.axisTitle(QwtPlot::xBottom).text().isEmpty());
}

void tst_PlotSettingsExchange::restoreDefaultsThenCancelLeavesPlotUnchanged()
{
    ExchangePlot plot;
    plot.setCanvasBgColor(QColor(0x40, 0x40, 0x40));
    plot.setMarkersWidth(5);
    QwtText title(QStringLiteral("Kept"));
    plot.setPlotTitle(title);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QColor restoredCanvas;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        press(d, QDialogButtonBox::RestoreDefaults);
        restoredCanvas = d.canvasColor();
        press(d, QDialogButtonBox::Cancel);
    }));
    QCOMPARE(restoredCanvas, PlotDefault::CanvasBackground);
    QCOMPARE(log.counts(), (QMap<QString, int>()));
    QCOMPARE(plot.canvasBackground().color(), QColor(0x40, 0x40, 0x40));
    QCOMPARE(plot.marker->linePen().width(), 5);
    QCOMPARE(plot.title().text(), QStringLiteral("Kept"));
}

void tst_PlotSettingsExchange::acceptingUnchangedDialogEmitsNothingAndReplotsOnce()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0x7FF);
    plot.setContextMenuItems(plot.contextMenuItems() | VoidPlot::MenuPeakLabel);
    plot.setAxisVisible(QwtPlot::yRight, true);
    QVERIFY(TestSupport::showActive(plot));
    QTRY_VERIFY(plot.replots >= 1);
    QTest::qWait(20);
    plot.replots = 0;
    SignalLog log(&plot);
    int replotsWhileOpen = -1;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        replotsWhileOpen = plot.replots;
        press(d, QDialogButtonBox::Ok);
    }));
    QCOMPARE(replotsWhileOpen, 0);
    QCOMPARE(plot.saves, 1);
    // Replotted at once, before the menu's exec() returned.
    QCOMPARE(plot.replots, 1);
    QCOMPARE(log.counts(), (QMap<QString, int>()));
}

void tst_PlotSettingsExchange::acceptingAppliesEditedValuesAndEmitsEachSignalOnce()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0x387);
    QVERIFY(TestSupport::showActive(plot));
    QTRY_VERIFY(plot.replots >= 1);
    QTest::qWait(20);
    plot.replots = 0;
    SignalLog log(&plot);
    const QFont labelFont(QStringLiteral("Serif"), 17);

    bool chosen = true;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        generalWidget<QLineEdit>(d, "titleTextEdit")->setText(QStringLiteral("Edited title"));
        chosen &= PanelTest::chooseColor(generalWidget<QToolButton>(d, "titleColorToolButton"),
                                         QColor(0x01, 0x02, 0x03));
        chosen &= PanelTest::chooseColor(generalWidget<QToolButton>(d, "canvasColorToolButton"),
                                         QColor(0xfa, 0xfb, 0xfc));
        chosen &= PanelTest::chooseColor(generalWidget<QToolButton>(d, "majorGridColorToolButton"),
                                         QColor(0x0a, 0x0a, 0x0a));
        chosen &= PanelTest::chooseColor(generalWidget<QToolButton>(d, "minorGridColorToolButton"),
                                         QColor(0x0b, 0x0b, 0x0b));
        chosen &= PanelTest::chooseColor(generalWidget<QToolButton>(d, "chartColorToolButton"),
                                         QColor(0x0c, 0x0c, 0x0c));

        // Unchecking a group disables its widgets: edit them first.
        labelWidget<QSpinBox>(d, "markerWidthSpinBox")->setValue(6);
        chosen &= PanelTest::chooseColor(labelWidget<QToolButton>(d, "markerColorToolButton"),
                                         QColor(0x0d, 0x0d, 0x0d));
        labelWidget<QGroupBox>(d, "markerGroupBox")->setChecked(false);
        chosen &= PanelTest::chooseFont(labelWidget<QPushButton>(d, "markerLabelFontButton"),
                                        labelFont);
        chosen &= PanelTest::chooseColor(labelWidget<QToolButton>(d, "markerLabelColorToolButton"),
                                         QColor(0x0e, 0x0e, 0x0e));
        chosen &= PanelTest::chooseColor(
            labelWidget<QToolButton>(d, "markerLabelBgColorToolButton"), QColor(0x0f, 0x0f, 0x0f));
        labelWidget<QComboBox>(d, "markerLabelAlignmentComboBox")->setCurrentText(
            QStringLiteral("Middle"));
        labelWidget<QComboBox>(d, "markerLabelSortComboBox")->setCurrentText(
            QStringLiteral("By Value"));
        labelWidget<QGroupBox>(d, "markerLabelGroupBox")->setChecked(false);

        axisWidget<QLineEdit>(d, QStringLiteral("X-Axis"), "titleTextEdit")
            ->setText(QStringLiteral("m/z"));
        axisWidget<QSpinBox>(d, QStringLiteral("X-Axis"), "labelRotationSpinBox")->setValue(30);
        chosen &= PanelTest::chooseColor(
            axisWidget<QToolButton>(d, QStringLiteral("Y-Axis"), "titleColorToolButton"),
            QColor(0x21, 0x22, 0x23));
        chosen &= PanelTest::chooseColor(
            axisWidget<QToolButton>(d, QStringLiteral("Y-Axis"), "labelColorToolButton"),
            QColor(0x31, 0x32, 0x33));
        axisWidget<QRadioButton>(d, QStringLiteral("Y-Axis"), "logRadioButton")->click();
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(chosen);
    QCOMPARE(plot.saves, 1);
    QVERIFY(plot.replots >= 1);

    QCOMPARE(plot.title().text(), QStringLiteral("Edited title"));
    QCOMPARE(plot.title().color(), QColor(0x01, 0x02, 0x03));
    QCOMPARE(plot.canvasBackground().color(), QColor(0xfa, 0xfb, 0xfc));
    QCOMPARE(plot.grid->majorPen().color(), QColor(0x0a, 0x0a, 0x0a));
    QCOMPARE(plot.grid->minorPen().color(), QColor(0x0b, 0x0b, 0x0b));
    QCOMPARE(plot.chartColor(), QColor(0x0c, 0x0c, 0x0c));
    QVERIFY(!plot.isMarkerVisible());
    QCOMPARE(plot.marker->linePen().width(), 6);
    QCOMPARE(plot.marker->linePen().color().rgb(), QColor(0x0d, 0x0d, 0x0d).rgb());
    QVERIFY(!plot.isMarkerLabelVisible());
    QCOMPARE(plot.markerLabel.font().pointSize(), 17);
    QCOMPARE(plot.markerLabel.color(), QColor(0x0e, 0x0e, 0x0e));
    QCOMPARE(plot.markerLabel.backgroundBrush().color(), QColor(0x0f, 0x0f, 0x0f));
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignVCenter);
    QCOMPARE(plot.markerLabelSortOption(), Figura::MarkerLabelSortByValue);
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("m/z"));
    QCOMPARE(int(plot.axisWidget(QwtPlot::xBottom)->scaleDraw()->labelRotation()), 30);
    QCOMPARE(plot.axisTitle(QwtPlot::yLeft).color(), QColor(0x21, 0x22, 0x23));
    QCOMPARE(textColor(plot.axisWidget(QwtPlot::yLeft)), QColor(0x31, 0x32, 0x33));
    QVERIFY(plot.isLogScale());
    QVERIFY(dynamic_cast<const QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));

    QMap<QString, int> expected;
    for (const char *name :
         {"plotTitleChanged", "canvasBgColorChanged", "majorGridColorChanged",
          "minorGridColorChanged", "chartColorChanged", "markerVisibleToggled",
          "markerWidthChanged", "markerColorChanged", "markerLabelVisibleToggled",
          "markerLabelFontColorChanged", "markerLabelBgColorChanged",
          "markerLabelAlignmentChanged", "markerLabelSortOptionChanged", "logScaleToggled"})
        expected.insert(QString::fromLatin1(name), 1);
    expected.insert(QStringLiteral("axisTitleChanged"), 2);
    expected.insert(QStringLiteral("tickLabelChanged"), 2);
    QCOMPARE(log.counts(), expected);

    // What the signals carry.
    QCOMPARE(log["plotTitleChanged"].at(0).at(0).value<QwtText>().text(),
             QStringLiteral("Edited title"));
    QCOMPARE(log["markerWidthChanged"].at(0).at(0).toInt(), 6);
    QCOMPARE(log["markerLabelAlignmentChanged"].at(0).at(0).toInt(), int(Qt::AlignVCenter));
    QCOMPARE(log["logScaleToggled"].at(0).at(0).toBool(), true);
    QCOMPARE(log["axisTitleChanged"].at(0).at(0).toInt(), int(QwtPlot::xBottom));
    QCOMPARE(log["axisTitleChanged"].at(0).at(1).value<QwtText>().text(), QStringLiteral("m/z"));
    QCOMPARE(log["axisTitleChanged"].at(1).at(0).toInt(), int(QwtPlot::yLeft));
    QCOMPARE(log["axisTitleChanged"].at(1).at(1).value<QwtText>().color(), QColor(0x21, 0x22, 0x23));
    QCOMPARE(log["tickLabelChanged"].at(0).at(0).toInt(), int(QwtPlot::xBottom));
    QCOMPARE(log["tickLabelChanged"].at(0).at(1).value<TickLabelFormat>().rotation, 30);
    QCOMPARE(log["tickLabelChanged"].at(1).at(0).toInt(), int(QwtPlot::yLeft));
}

void tst_PlotSettingsExchange::restoreDefaultsThenOkAppliesTheDefaults()
{
    ExchangePlot plot;
    plot.setCanvasBgColor(QColor(0x40, 0x40, 0x40));
    plot.setMarkersWidth(5);
    plot.setMarkerLabelAlignment(Qt::AlignBottom);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        press(d, QDialogButtonBox::RestoreDefaults);
        press(d, QDialogButtonBox::Ok);
    }));
    QCOMPARE(plot.canvasBackground().color(), PlotDefault::CanvasBackground);
    QCOMPARE(plot.marker->linePen().width(), PlotDefault::MarkerWidth);
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignTop);
    QCOMPARE(log["canvasBgColorChanged"].count(), 1);
    QCOMPARE(log["markerWidthChanged"].count(), 1);
    QCOMPARE(log["markerLabelAlignmentChanged"].count(), 1);
    QCOMPARE(log["plotTitleChanged"].count(), 0);
}

void tst_PlotSettingsExchange::plotWithoutMarkerOptionShowsNoMarkerGroupAndIgnoresIt()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0x187 & ~VoidPlot::PlotOptionMarker);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    bool groupHidden = false;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        groupHidden = labelWidget<QGroupBox>(d, "markerGroupBox")->isHidden();
        // Whatever the hidden group holds must not reach the plot.
        labelWidget<QGroupBox>(d, "markerGroupBox")->setChecked(false);
        labelWidget<QSpinBox>(d, "markerWidthSpinBox")->setValue(12);
        d.setMarkerColor(Qt::magenta);
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(groupHidden);
    QVERIFY(plot.isMarkerVisible());
    QCOMPARE(plot.marker->linePen().width(), PlotDefault::MarkerWidth);
    QCOMPARE(plot.marker->linePen().color(), PlotDefault::MarkerColor);
    QCOMPARE(log["markerVisibleToggled"].count(), 0);
    QCOMPARE(log["markerWidthChanged"].count(), 0);
    QCOMPARE(log["markerColorChanged"].count(), 0);
}

void tst_PlotSettingsExchange::hiddenGroupsAreNotReadBack()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        // The dialog's defaults and any value in a hidden group stay there.
        d.setPlotTitle(QwtText(QStringLiteral("Hidden title")));
        d.setCanvasColor(Qt::red);
        d.setChartColor(Qt::red);
        d.setMarkerLabelVisible(false);
        d.setMarkerLabelAlignment(Qt::AlignBottom);
        d.setPeakLabelVisible(true);
        press(d, QDialogButtonBox::Ok);
    }));
    QCOMPARE(log.counts(), (QMap<QString, int>()));
    QVERIFY(plot.title().text().isEmpty());
    QCOMPARE(plot.canvasBackground().color(), PlotDefault::CanvasBackground);
    QCOMPARE(plot.chartColor(), PlotDefault::ChartColor);
    QVERIFY(plot.isMarkerLabelVisible());
    QCOMPARE(plot.markerLabelAlignment(), Qt::AlignTop);
}

void tst_PlotSettingsExchange::peakLabelOptionLoadsAndSavesThePeakLabel()
{
    ExchangePlot plot;
    plot.setCustomPlotOptions(0x187 | VoidPlot::PlotOptionPeakLabel);
    plot.setContextMenuItems(plot.contextMenuItems() | VoidPlot::MenuPeakLabel);
    QVERIFY(plot.peakLabelAct);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    bool checkedWhenShown = true;
    int rotationShown = 0;
    QColor colourShown;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        checkedWhenShown = labelWidget<QGroupBox>(d, "peakLabelGroupBox")->isChecked();
        rotationShown = d.peakLabelFormat().textRotation();
        colourShown = d.peakLabelFormat().color();
        labelWidget<QGroupBox>(d, "peakLabelGroupBox")->setChecked(true);
        labelWidget<QSpinBox>(d, "peakLabelRotationSpinBox")->setValue(60);
        PanelTest::chooseColor(labelWidget<QToolButton>(d, "peakLabelColorToolButton"),
                               QColor(0x70, 0x71, 0x72));
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(!checkedWhenShown);
    QCOMPARE(rotationShown, PlotDefault::PeakLabelRotation);
    QCOMPARE(colourShown, PlotDefault::PeakLabelColor);

    QVERIFY(plot.isPeakLabelVisible());
    QVERIFY(plot.peakLabelAct->isChecked());
    QCOMPARE(plot.getPeakLabelFormat().textRotation(), 60);
    QCOMPARE(plot.getPeakLabelFormat().color(), QColor(0x70, 0x71, 0x72));
    QCOMPARE(log["peakLabelFormatChanged"].count(), 1);
    // Showing the peak labels from the dialog tells nobody.
    QCOMPARE(log["peakLabelVisibilityToggled"].count(), 0);
}

void tst_PlotSettingsExchange::clearedAxisTitleWithNewFontKeepsTheString()
{
    ExchangePlot plot;
    plot.setAxisTitle(QwtPlot::xBottom, QwtText(QStringLiteral("Mass")));
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    bool chosen = false;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        axisWidget<QLineEdit>(d, QStringLiteral("X-Axis"), "titleTextEdit")->clear();
        chosen = PanelTest::chooseFont(
            axisWidget<QPushButton>(d, QStringLiteral("X-Axis"), "titleFontButton"),
            QFont(QStringLiteral("Serif"), 24));
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(chosen);
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Mass"));
    QCOMPARE(plot.axisTitle(QwtPlot::xBottom).font().pointSize(), 24);
    QCOMPARE(log["axisTitleChanged"].count(), 1);
    const QwtText changes = log["axisTitleChanged"].at(0).at(1).value<QwtText>();
    QVERIFY(changes.text().isEmpty());
    QCOMPARE(changes.font().pointSize(), 24);
}

void tst_PlotSettingsExchange::changedLeftScaleWithoutLogActionStoresTheFlagOnly()
{
    ExchangePlot plot;
    plot.setContextMenuItems(plot.contextMenuItems() & ~VoidPlot::MenuLogScale);
    QVERIFY(!plot.logScaleAct);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        axisWidget<QRadioButton>(d, QStringLiteral("Y-Axis"), "logRadioButton")->click();
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(plot.logScale);
    QVERIFY(!plot.isLogScale()); // no action, so the feature reads as off
    QVERIFY(!dynamic_cast<const QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QCOMPARE(log["logScaleToggled"].count(), 0);
}

void tst_PlotSettingsExchange::changedLeftScaleWithLogActionChangesTheEngine()
{
    ExchangePlot plot;
    plot.setLogScale(true);
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        axisWidget<QRadioButton>(d, QStringLiteral("Y-Axis"), "linearRadioButton")->click();
        press(d, QDialogButtonBox::Ok);
    }));
    QVERIFY(!plot.logScale);
    QVERIFY(!plot.logScaleAct->isChecked());
    QVERIFY(!dynamic_cast<const QwtLogScaleEngine *>(plot.axisScaleEngine(QwtPlot::yLeft)));
    QCOMPARE(log["logScaleToggled"].count(), 1);
    QCOMPARE(log["logScaleToggled"].at(0).at(0).toBool(), false);
}

void tst_PlotSettingsExchange::rightAxisIsSavedWhenShown()
{
    ExchangePlot plot;
    plot.setAxisVisible(QwtPlot::yRight, true);
    plot.setAxisTitle(QwtPlot::yRight, QwtText(QStringLiteral("Pressure")));
    QVERIFY(TestSupport::showActive(plot));
    SignalLog log(&plot);
    QVERIFY(customize(plot, [&](PlotSettingsDialog &d) {
        axisWidget<QLineEdit>(d, QStringLiteral("Y-Right-Axis"), "titleTextEdit")
            ->setText(QStringLiteral("Temperature"));
        axisWidget<QSpinBox>(d, QStringLiteral("Y-Right-Axis"), "labelRotationSpinBox")
            ->setValue(-45);
        press(d, QDialogButtonBox::Ok);
    }));
    QCOMPARE(plot.axisTitle(QwtPlot::yRight).text(), QStringLiteral("Temperature"));
    QCOMPARE(int(plot.axisWidget(QwtPlot::yRight)->scaleDraw()->labelRotation()), -45);
    QCOMPARE(log["axisTitleChanged"].count(), 1);
    QCOMPARE(log["axisTitleChanged"].at(0).at(0).toInt(), int(QwtPlot::yRight));
    QCOMPARE(log["tickLabelChanged"].count(), 1);
    QCOMPARE(log["tickLabelChanged"].at(0).at(0).toInt(), int(QwtPlot::yRight));
}

QTEST_MAIN(tst_PlotSettingsExchange)
#include "tst_plotsettingsexchange.moc"
