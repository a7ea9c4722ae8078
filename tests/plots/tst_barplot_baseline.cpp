// The baseline as the user meets it: bars drawn up from it and down from it,
// and its exchange with the settings dialog ("Customize Plot..."), where the
// plot offers its range, its default and its value and takes the edited
// value back.

#include "BarPlotProbe.h"

#include <TestSupport.h>

#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/dialogs/PlotSettingsDialog.h>

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QValidator>
#include <QtTest>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>

#include <functional>

using TestSupport::WhenShown;

namespace {

class BaselinePlot : public BarPlotProbe
{
public:
    using BarPlotProbe::BarPlotProbe;
    using VoidPlot::editPlotSetting;

    int updates = 0;
    QList<double> updateValues;

    void updateBarChartBaseline(double value) override
    {
        ++updates;
        updateValues << value;
        BarPlotProbe::updateBarChartBaseline(value);
    }
};

template <class T>
T *generalWidget(QWidget *dialog, const char *name)
{
    auto *page = dialog->findChild<GeneralSettingsPanel *>();
    return page ? page->findChild<T *>(QLatin1String(name)) : nullptr;
}

QPushButton *dialogButton(QWidget *dialog, QDialogButtonBox::StandardButton which)
{
    auto *box = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    return box ? box->button(which) : nullptr;
}

// Runs the settings dialog of plot, hands it to act while it is open and
// returns whether it was seen. act ends the dialog.
bool runDialog(BaselinePlot &plot, const std::function<void(PlotSettingsDialog &)> &act)
{
    TestSupport::AnswerDialog<PlotSettingsDialog> answer(act);
    plot.editPlotSetting();
    return answer.seen() && answer.fired();
}

// The colour of the canvas at plot coordinates, as last drawn.
QColor canvasColorAt(BarPlotProbe &plot, const QImage &image, double x, double y)
{
    const int px = int(plot.transform(QwtPlot::xBottom, x));
    const int py = int(plot.transform(QwtPlot::yLeft, y));
    return image.pixelColor(px, py);
}

} // namespace

class tst_BarPlotBaseline : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void barsRiseFromBaselineAndFallBelowItAfterRangeIsWidened();

    void dialogShowsRangeDefaultAndBaseline();
    void acceptedDialogAppliesEditedBaselineOnce();
    void acceptedDialogWithBaselineUnchangedEmitsNothing();
    void cancelledDialogChangesNothing();
    void restoreDefaultsOffersThePlotsDefault();
    void hiddenBaselineGroupIsStillReadBack();
    void timeBarPlotShowsTimeFormatGroupAndBaseline();
};

void tst_BarPlotBaseline::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_BarPlotBaseline::barsRiseFromBaselineAndFallBelowItAfterRangeIsWidened()
{
    BarPlotProbe plot;
    QwtPlotBarChart *chart = barsAt(QStringLiteral("a"), {2, 5, 8}, 5.0);
    chart->setLayoutPolicy(QwtPlotBarChart::ScaleSampleToCanvas);
    chart->setLayoutHint(0.8);
    plot.appendBarChart(chart, true);
    plot.setBarChartColor(0, Qt::red);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 10.0);
    plot.setAxisScale(QwtPlot::yLeft, -10.0, 10.0);
    plot.resize(400, 300);
    plot.replot();
    const QColor red(Qt::red);

    // From 0 up to 5: red between, canvas above.
    QImage image = plot.canvas()->grab().toImage();
    QCOMPARE(canvasColorAt(plot, image, 5.0, 2.5), red);
    QCOMPARE(canvasColorAt(plot, image, 2.0, 2.5), red);
    QVERIFY(canvasColorAt(plot, image, 5.0, 6.5) != red);
    QVERIFY(canvasColorAt(plot, image, 5.0, -1.0) != red);

    // The default range refuses a baseline of 8.
    plot.setBarChartBaseLine(8.0);
    plot.replot();
    image = plot.canvas()->grab().toImage();
    QCOMPARE(canvasColorAt(plot, image, 5.0, 2.5), red);
    QVERIFY(canvasColorAt(plot, image, 5.0, 6.5) != red);

    // Widened, it takes 8: the bars now fall from 8 down to 5.
    plot.setBarChartBaseLineMin(-20.0);
    plot.setBarChartBaseLineMax(20.0);
    plot.setBarChartBaseLine(8.0);
    plot.replot();
    image = plot.canvas()->grab().toImage();
    QCOMPARE(canvasColorAt(plot, image, 5.0, 6.5), red);
    QCOMPARE(canvasColorAt(plot, image, 8.0, 6.5), red);
    QVERIFY(canvasColorAt(plot, image, 5.0, 2.5) != red);
    QVERIFY(canvasColorAt(plot, image, 5.0, 9.0) != red);
}

void tst_BarPlotBaseline::dialogShowsRangeDefaultAndBaseline()
{
    BaselinePlot plot;
    plot.setBarChartBaseLineMin(-10.0);
    plot.setBarChartBaseLineMax(10.0);
    plot.setDefaultBarChartBaseLine(2.0);
    plot.setBarChartBaseLine(1.5);

    QString shown;
    bool visible = false;
    QValidator::State inRange = QValidator::Invalid;
    QValidator::State outOfRange = QValidator::Acceptable;
    QVERIFY(runDialog(plot, [&](PlotSettingsDialog &dialog) {
        auto *edit = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit");
        QVERIFY(edit);
        shown = edit->text();
        visible = edit->isVisibleTo(&dialog);
        QString text = QStringLiteral("9.5");
        int pos = 0;
        inRange = edit->validator()->validate(text, pos);
        text = QStringLiteral("50");
        outOfRange = edit->validator()->validate(text, pos);
        dialog.reject();
    }));
    QCOMPARE(shown, QStringLiteral("1.5"));
    QVERIFY(visible);
    QCOMPARE(inRange, QValidator::Acceptable);
    QVERIFY(outOfRange != QValidator::Acceptable);
}

void tst_BarPlotBaseline::acceptedDialogAppliesEditedBaselineOnce()
{
    BaselinePlot plot;
    plot.appendBarChart(barsAt(QStringLiteral("a"), {1, 2}, 5.0), true);
    plot.setBarChartBaseLineMin(-10.0);
    plot.setBarChartBaseLineMax(10.0);
    plot.settle();
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);

    QVERIFY(runDialog(plot, [&](PlotSettingsDialog &dialog) {
        auto *edit = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit");
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("3.5"));
        QCOMPARE(edit->text(), QStringLiteral("3.5"));
        dialogButton(&dialog, QDialogButtonBox::Ok)->click();
    }));
    QCOMPARE(plot.updates, 1);
    QCOMPARE(plot.barChartBaseline(), 3.5);
    QCOMPARE(plot.barCharts().at(0)->baseline(), 3.5);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), 3.5);
    QCOMPARE(plot.replots, 1);
}

void tst_BarPlotBaseline::acceptedDialogWithBaselineUnchangedEmitsNothing()
{
    BaselinePlot plot;
    plot.setBarChartBaseLineMax(10.0);
    plot.setBarChartBaseLine(4.0);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    QVERIFY(runDialog(plot, [](PlotSettingsDialog &dialog) {
        dialogButton(&dialog, QDialogButtonBox::Ok)->click();
    }));
    QCOMPARE(plot.updateValues, QList<double>{4.0});
    QCOMPARE(plot.barChartBaseline(), 4.0);
    QCOMPARE(spy.count(), 0);
}

void tst_BarPlotBaseline::cancelledDialogChangesNothing()
{
    BaselinePlot plot;
    plot.setBarChartBaseLineMax(10.0);
    plot.settle();
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);
    QVERIFY(runDialog(plot, [](PlotSettingsDialog &dialog) {
        auto *edit = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit");
        edit->setText(QStringLiteral("7"));
        dialogButton(&dialog, QDialogButtonBox::Cancel)->click();
    }));
    QCOMPARE(plot.updates, 0);
    QCOMPARE(plot.barChartBaseline(), 0.0);
    QCOMPARE(spy.count(), 0);
    QCOMPARE(plot.replots, 0);
}

void tst_BarPlotBaseline::restoreDefaultsOffersThePlotsDefault()
{
    BaselinePlot plot;
    plot.setBarChartBaseLineMin(-10.0);
    plot.setBarChartBaseLineMax(10.0);
    plot.setDefaultBarChartBaseLine(-2.0);
    plot.setBarChartBaseLine(6.0);
    QSignalSpy spy(&plot, &BarPlot::barChartBaseLineChanged);

    QString restored;
    QVERIFY(runDialog(plot, [&](PlotSettingsDialog &dialog) {
        dialogButton(&dialog, QDialogButtonBox::RestoreDefaults)->click();
        restored = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit")->text();
        dialogButton(&dialog, QDialogButtonBox::Ok)->click();
    }));
    QCOMPARE(restored, QStringLiteral("-2"));
    QCOMPARE(plot.barChartBaseline(), -2.0);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDouble(), -2.0);
}

void tst_BarPlotBaseline::hiddenBaselineGroupIsStillReadBack()
{
    // The option bit chooses what the dialog shows; the plot's own values go
    // both ways regardless.
    BaselinePlot plot;
    plot.setCustomPlotOptions(plot.customPlotOptions() & ~VoidPlot::PlotOptionBarChartBaseline);
    plot.setBarChartBaseLineMax(10.0);
    bool visible = true;
    QVERIFY(runDialog(plot, [&](PlotSettingsDialog &dialog) {
        auto *edit = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit");
        visible = edit->isVisibleTo(&dialog);
        edit->setText(QStringLiteral("5"));
        dialogButton(&dialog, QDialogButtonBox::Ok)->click();
    }));
    QVERIFY(!visible);
    QCOMPARE(plot.barChartBaseline(), 5.0);
}

void tst_BarPlotBaseline::timeBarPlotShowsTimeFormatGroupAndBaseline()
{
    TimeBarPlotProbe plot;
    PlotSettingsDialog dialog(&plot);
    plot.loadToPlotSettingDialog(dialog);
    auto *timeGroup = generalWidget<QGroupBox>(&dialog, "timeGroupBox");
    auto *baselineEdit = generalWidget<QLineEdit>(&dialog, "barChartBaselineEdit");
    QVERIFY(timeGroup);
    QVERIFY(baselineEdit);
    QVERIFY(timeGroup->isVisibleTo(&dialog));
    QVERIFY(baselineEdit->isVisibleTo(&dialog));
    QCOMPARE(dialog.timeFormat(), 1);
}

QTEST_MAIN(tst_BarPlotBaseline)
#include "tst_barplot_baseline.moc"
