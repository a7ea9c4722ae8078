// The time format in the exchange of a TimeCurvePlot with its settings
// dialog: the dialog shows the plot's format, and on acceptance the format
// is applied before everything that CurvePlot and the frame read back.

#include "TimeCurvePlotProbe.h"

#include <TestSupport.h>

#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/dialogs/PlotSettingsDialog.h>
#include <figura/scales/ElapsedTimeScaleEngine.h>
#include <figura/scales/LocalTimeScaleEngine.h>

#include <QDateTime>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using TestSupport::WhenShown;

namespace {

template <class T>
T *generalWidget(const PlotSettingsDialog &dialog, const char *name)
{
    auto *page = dialog.findChild<GeneralSettingsPanel *>();
    return page ? page->findChild<T *>(QLatin1String(name)) : nullptr;
}

bool isLocalEngine(const QwtPlot &plot)
{
    return dynamic_cast<const LocalTimeScaleEngine *>(plot.axisScaleEngine(QwtPlot::xBottom));
}

QString xTitle(const QwtPlot &plot)
{
    return plot.axisTitle(QwtPlot::xBottom).text();
}

// The order in which the plot tells of its changes.
class ChangeLog
{
public:
    explicit ChangeLog(TimeCurvePlot *plot)
    {
        QObject::connect(plot, &TimeCurvePlot::timeFormatChanged, &context,
                         [this](int format) { entries << QStringLiteral("time format %1").arg(format); });
        QObject::connect(plot, &CurvePlot::penWidthChanged, &context,
                         [this](int width) { entries << QStringLiteral("pen width %1").arg(width); });
        QObject::connect(plot, &VoidPlot::axisTitleChanged, &context, [this](int axisId, const QwtText &) {
            entries << QStringLiteral("axis title %1").arg(axisId);
        });
    }
    QStringList entries;

private:
    QObject context;
};

// Opens "Customize Plot..." from the canvas' context menu and runs act on
// the dialog while it is shown; act must close it.
bool customize(TimeCurvePlot &plot, const std::function<void(PlotSettingsDialog &)> &act)
{
    TestSupport::AnswerDialog<PlotSettingsDialog> answer(act);
    TestSupport::MenuPick pick(QStringLiteral("Customize Plot..."));
    const QPoint at = plot.canvas()->mapTo(&plot, QPoint(60, 60));
    QTest::mouseClick(plot.windowHandle(), Qt::RightButton, Qt::NoModifier, at);
    return QTest::qWaitFor([&] { return pick.fired() && answer.fired(); }) && answer.seen();
}

void press(PlotSettingsDialog &dialog, QDialogButtonBox::StandardButton which)
{
    dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(which)->click();
}

} // namespace

class tst_TimeCurvePlotSettings : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void loadShowsTheTimeFormat_data();
    void loadShowsTheTimeFormat();
    void loadChainsToCurvePlot();
    void saveAppliesTheFormatBeforeCurvePlot();
    void saveWithTheSameFormatKeepsTheEngineAndEmitsNothing();
    void hiddenTimeGroupIsStillReadBack();

    void customizePlotSwitchesToLocalTime();
    void cancellingCustomizePlotKeepsTheFormat();

private:
    QTemporaryDir m_config;
};

void tst_TimeCurvePlotSettings::initTestCase()
{
    // The context menu reads the stored custom scales: keep them here.
    QVERIFY(TestSupport::isolateSettings(m_config, QStringLiteral("tst_timecurveplot_settings")));
}

void tst_TimeCurvePlotSettings::init()
{
    QSettings().clear();
}

void tst_TimeCurvePlotSettings::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_TimeCurvePlotSettings::loadShowsTheTimeFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("elapsed") << 1;
    QTest::newRow("local") << 2;
}

void tst_TimeCurvePlotSettings::loadShowsTheTimeFormat()
{
    QFETCH(int, format);
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(format);
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);

    QCOMPARE(dialog.timeFormat(), format);
    QCOMPARE(generalWidget<QRadioButton>(dialog, "elapsedTimeRadioButton")->isChecked(), format == 1);
    QCOMPARE(generalWidget<QRadioButton>(dialog, "localTimeRadioButton")->isChecked(), format == 2);
    // The plot offers the group.
    QVERIFY(!generalWidget<QGroupBox>(dialog, "timeGroupBox")->isHidden());
}

void tst_TimeCurvePlotSettings::loadChainsToCurvePlot()
{
    TimeCurvePlotProbe plot;
    plot.setPenWidth(5);
    plot.setAxisTitle(QwtPlot::xBottom, QwtText(QStringLiteral("Elapsed Time (hh:mm)")));
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    QCOMPARE(dialog.lineChartWidth(), 5);
    QCOMPARE(dialog.axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Elapsed Time (hh:mm)"));
}

void tst_TimeCurvePlotSettings::saveAppliesTheFormatBeforeCurvePlot()
{
    TimeCurvePlotProbe plot;
    plot.setPenWidth(2);
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    generalWidget<QRadioButton>(dialog, "localTimeRadioButton")->click();
    generalWidget<QSpinBox>(dialog, "chartLineWidthSpinBox")->setValue(4);
    QCOMPARE(dialog.timeFormat(), 2);

    ChangeLog log(&plot);
    plot.saveFromPlotSettingDialog(dialog);

    QCOMPARE(plot.timeFormat(), 2);
    QVERIFY(isLocalEngine(plot));
    QCOMPARE(plot.penWidth(), 4);
    // The title that the dialog showed comes back over the one of the new
    // format, since the format goes first; the draw renames it when it draws.
    QCOMPARE(log.entries, (QStringList{QStringLiteral("time format 2"),
                                       QStringLiteral("axis title 2"),
                                       QStringLiteral("pen width 4")}));
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
}

void tst_TimeCurvePlotSettings::saveWithTheSameFormatKeepsTheEngineAndEmitsNothing()
{
    TimeCurvePlotProbe plot;
    plot.setTimeFormat(2);
    const QwtScaleEngine *engine = plot.axisScaleEngine(QwtPlot::xBottom);
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);

    ChangeLog log(&plot);
    plot.saveFromPlotSettingDialog(dialog);

    QCOMPARE(plot.timeFormat(), 2);
    QCOMPARE(plot.axisScaleEngine(QwtPlot::xBottom), engine);
    QVERIFY(log.entries.isEmpty());
}

void tst_TimeCurvePlotSettings::hiddenTimeGroupIsStillReadBack()
{
    // The time format is the plot's own addition: the option bit only
    // hides the group, the value goes back and forth all the same.
    TimeCurvePlotProbe plot;
    plot.setCustomPlotOptions(plot.customPlotOptions() & ~VoidPlot::PlotOptionTimeFormat);
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    QVERIFY(generalWidget<QGroupBox>(dialog, "timeGroupBox")->isHidden());
    dialog.setTimeFormat(2);
    plot.saveFromPlotSettingDialog(dialog);
    QCOMPARE(plot.timeFormat(), 2);
}

void tst_TimeCurvePlotSettings::customizePlotSwitchesToLocalTime()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference);
    QVERIFY(TestSupport::showActive(plot));
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    QSignalSpy changed(&plot, &TimeCurvePlot::timeFormatChanged);
    plot.replots = 0;

    int shown = 0;
    QVERIFY(customize(plot, [&](PlotSettingsDialog &dialog) {
        shown = dialog.timeFormat();
        generalWidget<QRadioButton>(dialog, "localTimeRadioButton")->click();
        press(dialog, QDialogButtonBox::Ok);
    }));

    QCOMPARE(shown, 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toInt(), 2);
    QCOMPARE(plot.timeFormat(), 2);
    QVERIFY(isLocalEngine(plot));
    QVERIFY(plot.replots >= 1);
    // Once drawn, the axis names the local labels.
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Local Time (hh:mm YYYY-MM-DD)"));
}

void tst_TimeCurvePlotSettings::cancellingCustomizePlotKeepsTheFormat()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot));
    QSignalSpy changed(&plot, &TimeCurvePlot::timeFormatChanged);
    const QwtScaleEngine *engine = plot.axisScaleEngine(QwtPlot::xBottom);

    QVERIFY(customize(plot, [&](PlotSettingsDialog &dialog) {
        generalWidget<QRadioButton>(dialog, "localTimeRadioButton")->click();
        press(dialog, QDialogButtonBox::Cancel);
    }));

    QCOMPARE(plot.timeFormat(), 1);
    QCOMPARE(plot.axisScaleEngine(QwtPlot::xBottom), engine);
    QCOMPARE(changed.count(), 0);
}

QTEST_MAIN(tst_TimeCurvePlotSettings)
#include "tst_timecurveplot_settings.moc"
