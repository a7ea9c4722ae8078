// The title of the time axis on a shown plot: after each replot it names the
// format of the tick labels that the axis has just drawn, over zooms from
// seconds to months, in both time formats.

#include "TimeCurvePlotProbe.h"

#include <TestSupport.h>

#include <QDateTime>
#include <QtTest>

#include <qwt_scale_widget.h>

using TestSupport::PaintCounter;

namespace {

QString xTitle(const QwtPlot &plot)
{
    return plot.axisTitle(QwtPlot::xBottom).text();
}

struct Zoom
{
    double lower;
    double upper;
    QString name;
};

} // namespace

class tst_TimeCurvePlotAxisTitle : public QObject
{
    Q_OBJECT

private:
    void zoomThrough(TimeCurvePlotProbe &plot, const QString &title, const QList<Zoom> &zooms);

private Q_SLOTS:
    void cleanup();

    void shownPlotNamesTheInitialMinutes();
    void elapsedTitleFollowsZoomsFrom2SecondsTo60Days();
    void elapsedTitleFollowsZoomsBackFrom60DaysTo2Seconds();
    void localTitleFollowsZoomsWithTheDate();
    void localTitleWithoutReferenceIsPlain();
    void wheelZoomBringsTheSecondsIntoTheTitle();
    void switchToLocalKeepsPlainTitleWhileTheNameStaysTheSame();
    void switchToLocalShowsTheNewNameAfterReplot();
};

void tst_TimeCurvePlotAxisTitle::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_TimeCurvePlotAxisTitle::zoomThrough(TimeCurvePlotProbe &plot, const QString &title,
                                             const QList<Zoom> &zooms)
{
    for (const Zoom &zoom : zooms) {
        plot.setAxisScale(QwtPlot::xBottom, zoom.lower, zoom.upper, 0.0);
        plot.replot();
        const QString expected =
            zoom.name.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, zoom.name);
        QTRY_COMPARE(xTitle(plot), expected);
    }
}

void tst_TimeCurvePlotAxisTitle::shownPlotNamesTheInitialMinutes()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot));
    // 0 to 300 s: "00:05" and its like.
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
}

void tst_TimeCurvePlotAxisTitle::elapsedTitleFollowsZoomsFrom2SecondsTo60Days()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot, QSize(800, 400)));
    zoomThrough(plot, QStringLiteral("Elapsed Time"),
                {
                    {0.0, 2.0, QStringLiteral("hh:mm:ss.fff")},
                    {0.0, 10.0, QStringLiteral("hh:mm:ss")},
                    {0.0, 240.0, QStringLiteral("hh:mm:ss")},
                    {0.0, 1200.0, QStringLiteral("hh:mm")},
                    {90000.0, 90002.0, QStringLiteral("day hh:mm:ss.fff")},
                    {90000.0, 90100.0, QStringLiteral("day hh:mm:ss")},
                    {0.0, 129600.0, QStringLiteral("day hh:mm")},   // last label "1d 12:00"
                    {0.0, 259200.0, QStringLiteral("day hh:mm")},   // "3d" after "2d 12:00"
                    {0.0, 864000.0, QStringLiteral("day")},         // "10d" after "9d"
                    {0.0, 5184000.0, QStringLiteral("week")},       // 60 days
                });
}

void tst_TimeCurvePlotAxisTitle::elapsedTitleFollowsZoomsBackFrom60DaysTo2Seconds()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot, QSize(800, 400)));
    zoomThrough(plot, QStringLiteral("Elapsed Time"),
                {
                    {0.0, 5184000.0, QStringLiteral("week")},
                    {0.0, 864000.0, QStringLiteral("day")},
                    {0.0, 129600.0, QStringLiteral("day hh:mm")},
                    {0.0, 1200.0, QStringLiteral("hh:mm")},
                    {0.0, 10.0, QStringLiteral("hh:mm:ss")},
                    {0.0, 2.0, QStringLiteral("hh:mm:ss.fff")},
                });
}

void tst_TimeCurvePlotAxisTitle::localTitleFollowsZoomsWithTheDate()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference);
    plot.setTimeFormat(2);
    QVERIFY(TestSupport::showActive(plot, QSize(800, 400)));
    zoomThrough(plot, QStringLiteral("Local Time"),
                {
                    {0.0, 2.0, QStringLiteral("hh:mm:ss.fff")},
                    {0.0, 10.0, QStringLiteral("hh:mm:ss")},
                    {0.0, 100.0, QStringLiteral("hh:mm:ss YYYY-MM-DD")},
                    {0.0, 1000.0, QStringLiteral("hh:mm YYYY-MM-DD")},
                    {0.0, 864000.0, QStringLiteral("YYYY-MM-DD")},
                    {0.0, 5184000.0, QStringLiteral("YYYY-MM-DD")},
                });
}

void tst_TimeCurvePlotAxisTitle::localTitleWithoutReferenceIsPlain()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot));
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    plot.setTimeFormat(2);
    plot.replot();
    // No reference, no labels: the draw reports the empty name.
    QTRY_COMPARE(plot.timeScaleDraw->label(60.0).text(), QString());
    zoomThrough(plot, QStringLiteral("Local Time"),
                {
                    {0.0, 2.0, QString()},
                    {0.0, 1000.0, QString()},
                });
}

void tst_TimeCurvePlotAxisTitle::wheelZoomBringsTheSecondsIntoTheTitle()
{
    TimeCurvePlotProbe plot;
    QVERIFY(TestSupport::showActive(plot));
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
    const QPoint centre = plot.canvas()->rect().center();
    TestSupport::wheel(plot.canvas(), centre, -1); // towards the user: zoom in
    QVERIFY(plot.axisScaleDiv(QwtPlot::xBottom).range() < 300.0);
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm:ss)"));
}

void tst_TimeCurvePlotAxisTitle::switchToLocalKeepsPlainTitleWhileTheNameStaysTheSame()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference);
    QVERIFY(TestSupport::showActive(plot));
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 2.0, 0.0);
    plot.replot();
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm:ss.fff)"));

    // Milliseconds read "hh:mm:ss.fff" in both formats: the draw has nothing
    // new to report, so the title stays plain after the axis is drawn again.
    PaintCounter axisPaints(plot.axisWidget(QwtPlot::xBottom));
    plot.setTimeFormat(2);
    QCOMPARE(xTitle(plot), QStringLiteral("Local Time"));
    plot.replot();
    QTRY_VERIFY(axisPaints.paints > 0);
    QCOMPARE(plot.timeScaleDraw->label(1.0).text(), QStringLiteral("10:17:24.000"));
    QCOMPARE(xTitle(plot), QStringLiteral("Local Time"));

    // Until the name changes.
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 10.0, 0.0);
    plot.replot();
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Local Time (hh:mm:ss)"));
}

void tst_TimeCurvePlotAxisTitle::switchToLocalShowsTheNewNameAfterReplot()
{
    TimeCurvePlotProbe plot;
    const QDateTime reference(QDate(2024, 3, 5), QTime(10, 17, 23), Qt::LocalTime);
    plot.setReferenceTime(&reference);
    QVERIFY(TestSupport::showActive(plot));
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));

    plot.setTimeFormat(2);
    QCOMPARE(xTitle(plot), QStringLiteral("Local Time"));
    plot.replot();
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Local Time (hh:mm YYYY-MM-DD)"));

    plot.setTimeFormat(1);
    QCOMPARE(xTitle(plot), QStringLiteral("Elapsed Time"));
    plot.replot();
    QTRY_COMPARE(xTitle(plot), QStringLiteral("Elapsed Time (hh:mm)"));
}

QTEST_MAIN(tst_TimeCurvePlotAxisTitle)
#include "tst_timecurveplot_axistitle.moc"
