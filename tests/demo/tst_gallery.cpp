// The gallery's pages as a host would use them: text export, dark mode,
// the looks kept in the settings, the live trend and the peak labels.

#include "BarMassScanPlot.h"
#include "CycleBarPlot.h"
#include "GalleryPlot.h"
#include "GalleryWindow.h"
#include "GroupBarPlot.h"
#include "MassScanPlot.h"
#include "PlotLook.h"
#include "TextData.h"
#include "TrendPlot.h"

#include "TestSupport.h"

#include <figura/attributes/PeakLabel.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/defaults/PlotDefault.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QJsonObject>
#include <QLineEdit>
#include <QMimeData>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QStatusBar>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_marker.h>

using namespace TestSupport;

namespace {

const QDateTime RecordStart(QDate(2024, 5, 14), QTime(9, 30, 0));

GalleryOptions fixedOptions(bool persistent)
{
    GalleryOptions options;
    options.live = false;
    options.persistent = persistent;
    options.recordStart = RecordStart;
    return options;
}

template <class Plot>
Plot *pageOf(const GalleryWindow &window, const char *key)
{
    return dynamic_cast<Plot *>(window.page(QString::fromLatin1(key)));
}

QStringList csvLines(const QString &csv)
{
    QStringList lines = csv.split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

QwtPlotGrid *gridOf(const QwtPlot *plot)
{
    const QwtPlotItemList grids = plot->itemList(QwtPlotItem::Rtti_PlotGrid);
    return grids.isEmpty() ? nullptr : static_cast<QwtPlotGrid *>(grids.first());
}

// The frame marker: the vertical read-out line in the marker colour (the
// selection line is red).
const QwtPlotMarker *frameMarkerOf(const QwtPlot *plot, const QColor &color)
{
    const QwtPlotItemList markers = plot->itemList(QwtPlotItem::Rtti_PlotMarker);
    for (const QwtPlotItem *item : markers) {
        const auto *marker = static_cast<const QwtPlotMarker *>(item);
        if (marker->lineStyle() == QwtPlotMarker::VLine && marker->linePen().color() == color)
            return marker;
    }
    return nullptr;
}

QAction *actionOf(QObject *plot, const char *name)
{
    return plot->findChild<QAction *>(QString::fromLatin1(name));
}

// Answers the next file dialog with target, or cancels it when target is empty.
std::unique_ptr<WhenShown> answerFileDialog(const QString &target)
{
    return std::make_unique<WhenShown>([] { return QApplication::activeModalWidget(); },
                                       [target](QWidget *w) {
                                           auto *dialog = qobject_cast<QFileDialog *>(w);
                                           if (!dialog || target.isEmpty()) {
                                               static_cast<QDialog *>(w)->reject();
                                               return;
                                           }
                                           dialog->selectFile(target);
                                           if (auto *name = dialog->findChild<QLineEdit *>(
                                                   QStringLiteral("fileNameEdit")))
                                               name->setText(QFileInfo(target).fileName());
                                           static_cast<QDialog *>(dialog)->accept();
                                       });
}

} // namespace

class tst_Gallery : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyPlotClassHasItsPage();

    void csvFieldQuotesWhatNeedsIt_data();
    void csvFieldQuotesWhatNeedsIt();
    void csvLeavesCellsEmptyWhereASeriesHasNoSample();
    void textDataOfCurvesListsOnlyTheVisibleCurves();
    void textDataOfTheTrendStartsWithLocalTimeAndSeconds();
    void textDataOfTimeBarsHasOneRowPerMinute();
    void textDataOfSetsHasAColumnPerBarTitle();
    void textDataOfHiddenBarsIsOnlyTheHeader();
    void exportTextDataToFileWritesTheSameCsv();
    void cancelledTextExportWritesNothing();

    void darkModeAppliesTheDarkPaletteThroughTheSetters();
    void darkModeActionSwitchesEveryPlot();
    void lookAppliesOnlyWhatTheDocumentHolds();
    void lookRecordsChangesReportedByThePlot();
    void lookIsStoredAtCloseAndRestoredAtStart();
    void darkModeIsRestoredAtStart();
    void brokenStoredLookIsIgnored();

    void trendFollowsNewReadingsWhileAutoScrollIsOn();
    void trendStaysPutWhileAutoScrollIsOff();
    void turningAutoScrollOnJumpsToTheNewestReading();
    void panningPausesAutoScroll();
    void leftClickSelectsASampleAndTheStatusBarShowsIt();
    void trendDropsTheOldestReadingsAfterAnHour();
    void liveTrendTakesReadingsFromItsTimer();

    void peakLabelsStandOnTheHighestPeaks();
    void peakLabelsFollowTheActionAndTheFormat();
    void chartColorReachesTheBars();
    void lineWidthReachesEveryCurve();

private:
    QTemporaryDir settingsDir;
};

void tst_Gallery::initTestCase()
{
    QVERIFY(TestSupport::isolateSettings(settingsDir, QStringLiteral("tst_gallery")));
}

void tst_Gallery::init()
{
    QSettings().clear();
}

void tst_Gallery::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void tst_Gallery::everyPlotClassHasItsPage()
{
    GalleryWindow window(fixedOptions(false));
    QList<int> kinds;
    QStringList keys;
    for (GalleryPlot *page : window.pages()) {
        kinds.append(page->plotWidget()->rtti());
        keys.append(page->pageKey());
    }
    QCOMPARE(kinds, (QList<int>{1, 3, 2, 4, 5}));
    QCOMPARE(keys, (QStringList{"curveplot", "timecurveplot", "barplot", "timebarplot",
                                "multibarplot"}));
    for (const QString &key : std::as_const(keys)) {
        QVERIFY(window.look(key));
        QVERIFY(window.isAncestorOf(window.page(key)->plotWidget()));
    }
    QVERIFY(!window.page(QStringLiteral("voidplot")));
}

void tst_Gallery::csvFieldQuotesWhatNeedsIt_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("written");
    QTest::newRow("plain") << "Mass (amu)" << "Mass (amu)";
    QTest::newRow("comma") << "a,b" << "\"a,b\"";
    QTest::newRow("quote") << "say \"hi\"" << "\"say \"\"hi\"\"\"";
    QTest::newRow("line break") << "two\nlines" << "\"two\nlines\"";
    QTest::newRow("empty") << "" << "";
}

void tst_Gallery::csvFieldQuotesWhatNeedsIt()
{
    QFETCH(QString, field);
    QFETCH(QString, written);
    QCOMPARE(TextData::csvField(field), written);
}

void tst_Gallery::csvLeavesCellsEmptyWhereASeriesHasNoSample()
{
    const QList<TextData::Series> series{
        {QStringLiteral("a"), {QPointF(1, 10), QPointF(2, 20)}},
        {QStringLiteral("b, c"), {QPointF(2, 0.5), QPointF(3, 1e-9)}},
    };
    QCOMPARE(TextData::toCsv(TextData::numberColumn(QStringLiteral("x")), series),
             QStringLiteral("x,a,\"b, c\"\n1,10,\n2,20,0.5\n3,,1e-09\n"));
}

void tst_Gallery::textDataOfCurvesListsOnlyTheVisibleCurves()
{
    GalleryWindow window(fixedOptions(false));
    auto *plot = pageOf<MassScanPlot>(window, "curveplot");
    QVERIFY(plot);
    QCOMPARE(plot->curves().size(), 3);
    plot->curves().at(1)->setVisible(false);

    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    QSignalSpy changed(clipboard, &QClipboard::dataChanged);
    plot->copyTextDataToClipboard();
    QTRY_VERIFY(changed.count() >= 1);

    const QStringList lines = csvLines(clipboard->text());
    QCOMPARE(lines.size(), 1 + 2000);
    QCOMPARE(lines.first(), QStringLiteral("Mass (amu),Vented chamber,After bake-out"));
    const QStringList first = lines.at(1).split(QLatin1Char(','));
    QCOMPARE(first.size(), 3);
    const QPointF vented = plot->curves().at(0)->sample(0);
    const QPointF baked = plot->curves().at(2)->sample(0);
    QCOMPARE(first.at(0).toDouble(), vented.x());
    QVERIFY(qAbs(first.at(1).toDouble() / vented.y() - 1.0) < 1e-7);
    QVERIFY(qAbs(first.at(2).toDouble() / baked.y() - 1.0) < 1e-7);
    QVERIFY(clipboard->mimeData()->hasFormat(QStringLiteral("text/csv")));
    QCOMPARE(QString::fromUtf8(clipboard->mimeData()->data(QStringLiteral("text/csv"))),
             clipboard->text());
}

void tst_Gallery::textDataOfTheTrendStartsWithLocalTimeAndSeconds()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    QVERIFY(trend);
    const QStringList lines = csvLines(trend->textData());
    // 180 s of readings every 100 ms, both ends included.
    QCOMPARE(lines.size(), 1 + 1801);
    QCOMPARE(lines.first(),
             QStringLiteral("Local time,Elapsed (s),H\u2082 (2),H\u2082O (18),N\u2082 (28),CO\u2082 (44)"));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("2024-05-14T09:30:00.000,0.000,")),
             qPrintable(lines.at(1)));
    QVERIFY2(lines.last().startsWith(QStringLiteral("2024-05-14T09:33:00.000,180.000,")),
             qPrintable(lines.last()));
}

void tst_Gallery::textDataOfTimeBarsHasOneRowPerMinute()
{
    GalleryWindow window(fixedOptions(false));
    auto *bars = pageOf<CycleBarPlot>(window, "timebarplot");
    QVERIFY(bars);
    const QStringList lines = csvLines(bars->textData());
    // Bars of one minute stand apart on the plot and share a row here.
    QCOMPARE(lines.size(), 1 + 10);
    QCOMPARE(lines.first(), QStringLiteral("From (s),To (s),H\u2082O (18),N\u2082 (28),H\u2082 (2)"));
    QVERIFY2(lines.at(1).startsWith(QStringLiteral("0,60,")), qPrintable(lines.at(1)));
    QCOMPARE(lines.at(1).split(QLatin1Char(',')).size(), 5);
    QVERIFY2(lines.last().startsWith(QStringLiteral("540,600,")), qPrintable(lines.last()));
}

void tst_Gallery::textDataOfSetsHasAColumnPerBarTitle()
{
    GalleryWindow window(fixedOptions(false));
    auto *groups = pageOf<GroupBarPlot>(window, "multibarplot");
    QVERIFY(groups);
    const QStringList lines = csvLines(groups->textData());
    QCOMPARE(lines.size(), 1 + 6);
    QCOMPARE(lines.first(),
             QStringLiteral("Bake-out run,H\u2082 (2),H\u2082O (18),N\u2082 (28),CO\u2082 (44)"));
    QCOMPARE(lines.at(1), QStringLiteral("1,3.1e-09,4.2e-08,9.5e-09,2.1e-09"));
}

void tst_Gallery::textDataOfHiddenBarsIsOnlyTheHeader()
{
    GalleryWindow window(fixedOptions(false));
    auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
    QVERIFY(bars);
    QCOMPARE(csvLines(bars->textData()).size(), 1 + 50);
    bars->barCharts().first()->setVisible(false);
    QCOMPARE(bars->textData(), QStringLiteral("Mass (amu)\n"));
}

void tst_Gallery::exportTextDataToFileWritesTheSameCsv()
{
    GalleryWindow window(fixedOptions(false));
    auto *groups = pageOf<GroupBarPlot>(window, "multibarplot");
    QVERIFY(groups);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString target = dir.filePath(QStringLiteral("runs.csv"));

    const auto answer = answerFileDialog(target);
    groups->exportTextDataToFile();
    QVERIFY(answer->fired());

    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(QString::fromUtf8(file.readAll()), groups->textData());
}

void tst_Gallery::cancelledTextExportWritesNothing()
{
    GalleryWindow window(fixedOptions(false));
    auto *plot = pageOf<MassScanPlot>(window, "curveplot");
    QTemporaryDir dir;
    QVERIFY(dir.isValid());

    const auto answer = answerFileDialog(QString());
    plot->exportTextDataToFile();
    QVERIFY(answer->fired());
    QVERIFY(QDir(dir.path()).entryList(QDir::Files).isEmpty());
}

void tst_Gallery::darkModeAppliesTheDarkPaletteThroughTheSetters()
{
    namespace Dark = PlotDefault::DarkMode;
    GalleryWindow window(fixedOptions(false));
    QVERIFY(!window.isDarkMode());

    QList<QSignalSpy *> spies;
    for (GalleryPlot *page : window.pages())
        spies.append(new QSignalSpy(page->plotWidget(), &VoidPlot::canvasBgColorChanged));

    window.setDarkMode(true);
    QVERIFY(window.isDarkMode());
    for (GalleryPlot *page : window.pages()) {
        VoidPlot *plot = page->plotWidget();
        const QByteArray key = page->pageKey().toLatin1();
        QVERIFY2(plot->isDarkMode(), key.constData());
        QCOMPARE(plot->canvasBackground().color(), Dark::CanvasBackground);
        QCOMPARE(gridOf(plot)->majorPen().color(), Dark::GridMajorColor);
        QCOMPARE(gridOf(plot)->minorPen().color(), Dark::GridMinorColor);
        QCOMPARE(plot->title().color(), Dark::TitleTextColor);
        QCOMPARE(plot->axisTitle(QwtPlot::yLeft).color(), Dark::TitleTextColor);
        QCOMPARE(plot->tickLabel(QwtPlot::xBottom).color, Dark::AxisLabelColor);
        QCOMPARE(plot->getPeakLabelFormat().color(), Dark::PeakLabelColor);
        // The series keep their hue and get lighter.
        for (const QColor &color : page->seriesColors())
            QVERIFY2(color.lightness() > 100, key.constData());
    }
    for (QSignalSpy *spy : std::as_const(spies))
        QCOMPARE(spy->count(), 1);
    QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 80);

    window.setDarkMode(false);
    for (GalleryPlot *page : window.pages()) {
        VoidPlot *plot = page->plotWidget();
        QVERIFY(!plot->isDarkMode());
        QCOMPARE(plot->canvasBackground().color(), PlotDefault::CanvasBackground);
        QCOMPARE(gridOf(plot)->majorPen().color(), PlotDefault::GridMajorColor);
        QCOMPARE(plot->title().color(), PlotDefault::TitleTextColor);
        QCOMPARE(plot->tickLabel(QwtPlot::xBottom).color, PlotDefault::AxisLabelColor);
        QCOMPARE(plot->getPeakLabelFormat().color(), PlotDefault::PeakLabelColor);
    }
    qDeleteAll(spies);
}

void tst_Gallery::darkModeActionSwitchesEveryPlot()
{
    GalleryWindow window(fixedOptions(false));
    QAction *darkModeAct = window.findChild<QAction *>(QStringLiteral("darkModeAct"));
    QVERIFY(darkModeAct);
    QVERIFY(darkModeAct->isCheckable());
    darkModeAct->trigger();
    QVERIFY(window.isDarkMode());
    for (GalleryPlot *page : window.pages())
        QCOMPARE(page->plotWidget()->canvasBackground().color(),
                 PlotDefault::DarkMode::CanvasBackground);
    window.setDarkMode(false);
    QVERIFY(!darkModeAct->isChecked());
}

void tst_Gallery::lookAppliesOnlyWhatTheDocumentHolds()
{
    GalleryWindow window(fixedOptions(false));
    GalleryPlot *page = window.page(QStringLiteral("curveplot"));
    PlotLook *look = window.look(QStringLiteral("curveplot"));
    VoidPlot *plot = page->plotWidget();
    QCOMPARE(look->toJson(), QJsonObject());

    const QString title = plot->title().text();
    const QColor major = gridOf(plot)->majorPen().color();
    look->apply(QJsonObject());
    QCOMPARE(plot->title().text(), title);
    QCOMPARE(look->toJson(), QJsonObject());

    look->apply(QJsonObject{{QStringLiteral("canvasColor"), QStringLiteral("#102030")},
                            {QStringLiteral("yLeftTitleText"), QStringLiteral("Current")}});
    QCOMPARE(plot->canvasBackground().color(), QColor(0x10, 0x20, 0x30));
    QCOMPARE(plot->axisTitle(QwtPlot::yLeft).text(), QStringLiteral("Current"));
    // What the document lacks stays, unlike in a record read from it.
    QCOMPARE(plot->title().text(), title);
    QCOMPARE(plot->axisTitle(QwtPlot::xBottom).text(), QStringLiteral("Mass (amu)"));
    QCOMPARE(gridOf(plot)->majorPen().color(), major);

    const QJsonObject stored = look->toJson();
    QCOMPARE(stored.value(QStringLiteral("canvasColor")).toString(), QStringLiteral("#102030"));
    QCOMPARE(stored.value(QStringLiteral("yLeftTitleText")).toString(), QStringLiteral("Current"));
    QVERIFY(!stored.contains(QStringLiteral("plotTitleText")));
}

void tst_Gallery::lookRecordsChangesReportedByThePlot()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    PlotLook *look = window.look(QStringLiteral("timecurveplot"));
    QVERIFY(trend && look);

    trend->setMarkersColor(QColor(255, 0, 255));
    trend->setMarkerLabelAlignment(Qt::AlignBottom);
    trend->updatePenWidth(3);
    QwtText title = trend->title();
    title.setText(QStringLiteral("Chamber 3"));
    trend->setPlotTitle(title);
    actionOf(trend, "logScaleAct")->trigger();

    const KelmQtPlot::PlotAttributes &record = look->attributes();
    QCOMPARE(record.markerColor, QColor(255, 0, 255));
    QCOMPARE(record.markerLabelFormat.alignment, qint32(Qt::AlignBottom));
    QCOMPARE(record.penWidth, 3);
    QCOMPARE(record.plotTitle.text(), QStringLiteral("Chamber 3"));
    QCOMPARE(record.logScale, 0);
    QCOMPARE(record.canvasColor, QColor());
}

void tst_Gallery::lookIsStoredAtCloseAndRestoredAtStart()
{
    const QColor paper(255, 250, 240);
    {
        GalleryWindow window(fixedOptions(true));
        auto *spectrum = pageOf<MassScanPlot>(window, "curveplot");
        spectrum->setCanvasBgColor(paper);
        QwtText title = spectrum->title();
        title.setText(QStringLiteral("Chamber 3"));
        spectrum->setPlotTitle(title);
        spectrum->setMarkersWidth(3);
        QwtText axis = spectrum->axisTitle(QwtPlot::yLeft);
        axis.setText(QStringLiteral("Current (A)"));
        spectrum->setAxisCustomTitle(QwtPlot::yLeft, axis);

        auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
        bars->setChartColor(QColor(200, 0, 0));
        actionOf(bars, "peakLabelAct")->trigger();
        QVERIFY(!bars->isPeakLabelVisible());

        auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
        actionOf(trend, "logScaleAct")->trigger();
        QVERIFY(!trend->isLogScale());
        window.close();
    }
    QVERIFY(!QSettings().value(GalleryWindow::lookKey(QStringLiteral("curveplot"))).toString().isEmpty());

    GalleryWindow window(fixedOptions(true));
    auto *spectrum = pageOf<MassScanPlot>(window, "curveplot");
    QCOMPARE(spectrum->canvasBackground().color(), paper);
    QCOMPARE(spectrum->title().text(), QStringLiteral("Chamber 3"));
    QCOMPARE(spectrum->axisTitle(QwtPlot::yLeft).text(), QStringLiteral("Current (A)"));
    const QwtPlotMarker *marker = frameMarkerOf(spectrum, PlotDefault::MarkerColor);
    QVERIFY(marker);
    QCOMPARE(marker->linePen().width(), 3);

    auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
    QCOMPARE(bars->chartColor(), QColor(200, 0, 0));
    QCOMPARE(bars->seriesColors(), QList<QColor>{QColor(200, 0, 0)});
    QVERIFY(!bars->isPeakLabelVisible());
    for (const PeakLabel *label : bars->peakLabels())
        QVERIFY(!label->isVisible());

    QVERIFY(!pageOf<TrendPlot>(window, "timecurveplot")->isLogScale());
    // A page nobody touched stays as it was made.
    auto *groups = pageOf<GroupBarPlot>(window, "multibarplot");
    QCOMPARE(groups->canvasBackground().color(), PlotDefault::CanvasBackground);
}

void tst_Gallery::darkModeIsRestoredAtStart()
{
    {
        GalleryWindow window(fixedOptions(true));
        window.setDarkMode(true);
        window.close();
    }
    GalleryWindow window(fixedOptions(true));
    QVERIFY(window.isDarkMode());
    QVERIFY(window.findChild<QAction *>(QStringLiteral("darkModeAct"))->isChecked());
    for (GalleryPlot *page : window.pages()) {
        QVERIFY(page->plotWidget()->isDarkMode());
        QCOMPARE(page->plotWidget()->canvasBackground().color(),
                 PlotDefault::DarkMode::CanvasBackground);
    }
}

void tst_Gallery::brokenStoredLookIsIgnored()
{
    QSettings().setValue(GalleryWindow::lookKey(QStringLiteral("curveplot")),
                         QStringLiteral("{\"canvasColor\": "));
    QSettings().setValue(GalleryWindow::lookKey(QStringLiteral("barplot")),
                         QStringLiteral("{\"canvasColor\": \"#102030\"}"));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("ignoring the stored look .*curveplot")));
    GalleryWindow window(fixedOptions(true));
    QCOMPARE(window.page(QStringLiteral("curveplot"))->plotWidget()->canvasBackground().color(),
             PlotDefault::CanvasBackground);
    QCOMPARE(window.page(QStringLiteral("barplot"))->plotWidget()->canvasBackground().color(),
             QColor(0x10, 0x20, 0x30));
}

void tst_Gallery::trendFollowsNewReadingsWhileAutoScrollIsOn()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    QVERIFY(trend->isAutoScroll());
    QCOMPARE(trend->latestTime(), 180.0);
    trend->replot();
    const QwtInterval before = trend->axisInterval(QwtPlot::xBottom);
    QCOMPARE(before.width(), TrendPlot::initialWindow());
    QVERIFY(before.maxValue() >= 180.0);

    trend->appendReading(240.0);
    // The axis moves with the replot that the reading asks for.
    QTRY_VERIFY(trend->axisInterval(QwtPlot::xBottom).maxValue() >= 240.0);
    const QwtInterval after = trend->axisInterval(QwtPlot::xBottom);
    QVERIFY(after.minValue() < 240.0);
    QCOMPARE(after.width(), before.width());
}

void tst_Gallery::trendStaysPutWhileAutoScrollIsOff()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    trend->replot();
    trend->setAutoScroll(false);
    QVERIFY(!trend->isAutoScroll());
    const QwtInterval before = trend->axisInterval(QwtPlot::xBottom);
    trend->appendReading(400.0);
    trend->replot();
    QCOMPARE(trend->axisInterval(QwtPlot::xBottom), before);
    QCOMPARE(trend->latestTime(), 400.0);
}

void tst_Gallery::turningAutoScrollOnJumpsToTheNewestReading()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    trend->setAutoScroll(false);
    trend->appendReading(600.0);
    trend->replot();
    QVERIFY(trend->axisInterval(QwtPlot::xBottom).maxValue() < 600.0);
    actionOf(trend, "autoScrollAct")->trigger();
    QVERIFY(trend->isAutoScroll());
    QTRY_VERIFY(trend->axisInterval(QwtPlot::xBottom).maxValue() >= 600.0);
}

void tst_Gallery::panningPausesAutoScroll()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    window.findChild<QTabWidget *>(QStringLiteral("pages"))->setCurrentIndex(1);
    QVERIFY(showActive(window, QSize(900, 600)));
    QVERIFY(trend->isAutoScroll());

    QWidget *canvas = trend->canvas();
    drag(canvas, QPoint(300, 150), QPoint(200, 150));
    QTRY_VERIFY(!trend->isAutoScroll());
    QVERIFY(window.statusBar()->currentMessage().contains(QStringLiteral("paused")));
}

void tst_Gallery::leftClickSelectsASampleAndTheStatusBarShowsIt()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    window.findChild<QTabWidget *>(QStringLiteral("pages"))->setCurrentIndex(1);
    QVERIFY(showActive(window, QSize(900, 600)));
    QSignalSpy selected(trend, &CurvePlot::sampleSelected);

    QWidget *canvas = trend->canvas();
    const QPoint click(canvas->width() / 2, canvas->height() / 2);
    mouse(canvas, QEvent::MouseButtonPress, click, Qt::LeftButton, Qt::LeftButton);
    mouse(canvas, QEvent::MouseButtonRelease, click, Qt::LeftButton, Qt::NoButton);
    QTRY_COMPARE(selected.count(), 1);

    const int index = selected.first().first().toInt();
    const double x = trend->invTransform(QwtPlot::xBottom, click.x());
    const double sampleX = trend->curves().first()->sample(index).x();
    QVERIFY2(qAbs(sampleX - x) <= TrendPlot::readingInterval(),
             qPrintable(QStringLiteral("%1 against %2").arg(sampleX).arg(x)));
    const QString message = window.statusBar()->currentMessage();
    QVERIFY2(message.startsWith(QStringLiteral("Sample %1 at 2024-05-14 ").arg(index)),
             qPrintable(message));
    // A click is no pan: the view keeps following.
    QVERIFY(trend->isAutoScroll());
}

void tst_Gallery::trendDropsTheOldestReadingsAfterAnHour()
{
    GalleryWindow window(fixedOptions(false));
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    QwtPlotCurve *curve = trend->curves().first();
    size_t largest = curve->dataSize();
    double t = trend->latestTime();
    while (curve->dataSize() >= largest) {
        largest = curve->dataSize();
        t += TrendPlot::readingInterval();
        trend->appendReading(t);
    }
    QCOMPARE(largest, size_t(36000));
    QCOMPARE(curve->dataSize(), size_t(36001 - 3600));
    for (QwtPlotCurve *channel : trend->curves())
        QCOMPARE(channel->dataSize(), curve->dataSize());
    QVERIFY(curve->sample(0).x() > 0.0);
    QCOMPARE(curve->sample(int(curve->dataSize()) - 1).x(), t);
}

void tst_Gallery::liveTrendTakesReadingsFromItsTimer()
{
    GalleryOptions options = fixedOptions(false);
    options.live = true;
    GalleryWindow window(options);
    auto *trend = pageOf<TrendPlot>(window, "timecurveplot");
    QVERIFY(trend->isSampling());
    const double start = trend->latestTime();
    QTRY_VERIFY(trend->latestTime() > start);
    trend->stopSampling();
    QVERIFY(!trend->isSampling());
}

void tst_Gallery::peakLabelsStandOnTheHighestPeaks()
{
    GalleryWindow window(fixedOptions(false));
    auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
    const QList<PeakLabel *> labels = bars->peakLabels();
    QCOMPARE(labels.size(), 6);
    QCOMPARE(bars->itemList(PeakLabel::Rtti_PeakLabel).size(), 6);
    QStringList texts;
    for (const PeakLabel *label : labels) {
        texts.append(label->text());
        QVERIFY(label->isVisible());
        QCOMPARE(label->plot(), static_cast<QwtPlot *>(bars));
        QCOMPARE(label->userData(0).toInt(), qRound(label->xValue()));
    }
    // Highest first; 17 stands between two labelled peaks and is left out.
    QCOMPARE(texts, (QStringList{"28 N\u2082", "32 O\u2082", "18 H\u2082O", "14 N", "16 O",
                                 "40 Ar"}));
    QVERIFY(bars->isPeakLabelVisible());
}

void tst_Gallery::peakLabelsFollowTheActionAndTheFormat()
{
    GalleryWindow window(fixedOptions(false));
    auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
    QAction *peakLabelAct = actionOf(bars, "peakLabelAct");
    QVERIFY(peakLabelAct);
    QVERIFY(peakLabelAct->isChecked());

    peakLabelAct->trigger();
    for (const PeakLabel *label : bars->peakLabels())
        QVERIFY(!label->isVisible());
    peakLabelAct->trigger();
    for (const PeakLabel *label : bars->peakLabels())
        QVERIFY(label->isVisible());

    PeakLabelFormat format = bars->getPeakLabelFormat();
    format.setColor(QColor(200, 0, 0));
    format.setTextRotation(30);
    bars->setPeakLabelFormat(format);
    for (const PeakLabel *label : bars->peakLabels()) {
        QCOMPARE(label->color(), QColor(200, 0, 0));
        QCOMPARE(label->textRotation(), 30.0);
    }
}

void tst_Gallery::chartColorReachesTheBars()
{
    GalleryWindow window(fixedOptions(false));
    auto *bars = pageOf<BarMassScanPlot>(window, "barplot");
    QCOMPARE(bars->seriesColors(), QList<QColor>{PlotDefault::ChartColor});
    bars->setChartColor(QColor(10, 120, 40));
    QCOMPARE(bars->seriesColors(), QList<QColor>{QColor(10, 120, 40)});
}

void tst_Gallery::lineWidthReachesEveryCurve()
{
    GalleryWindow window(fixedOptions(false));
    auto *spectrum = pageOf<MassScanPlot>(window, "curveplot");
    spectrum->updatePenWidth(4);
    for (const QwtPlotCurve *curve : spectrum->curves())
        QCOMPARE(curve->pen().width(), 4);
}

QTEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
