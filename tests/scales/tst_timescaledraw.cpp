#include <figura/scales/ElapsedTimeScaleEngine.h>
#include <figura/scales/LocalTimeScaleEngine.h>
#include <figura/scales/TimeScaleDraw.h>

#include <qwt_plot.h>
#include <qwt_scale_widget.h>
#include <qwt_text.h>

#include <QDateTime>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

class Draw : public TimeScaleDraw
{
public:
    using TimeScaleDraw::labelFormat;
    using TimeScaleDraw::referenceTime;
    using TimeScaleDraw::tickLabel;
    using TimeScaleDraw::timeFormat;
};

enum class EngineKind { Elapsed, Local, Qwt };

// A plain QwtPlot whose bottom axis has a time scale draw, as the time plots set it up.
class TimeAxis
{
public:
    explicit TimeAxis(EngineKind kind = EngineKind::Elapsed, const QDateTime *reference = nullptr)
        : draw(new Draw)
    {
        plot.resize(900, 300);
        plot.setAxisScaleDraw(QwtPlot::xBottom, draw);
        QwtScaleEngine *engine = nullptr;
        switch (kind) {
        case EngineKind::Elapsed:
            engine = new ElapsedTimeScaleEngine;
            break;
        case EngineKind::Local: {
            auto *local = new LocalTimeScaleEngine;
            local->setReferenceTime(reference);
            engine = local;
            break;
        }
        case EngineKind::Qwt:
            engine = new QwtLinearScaleEngine;
            break;
        }
        plot.setAxisScaleEngine(QwtPlot::xBottom, engine);
        if (kind == EngineKind::Local)
            draw->setTimeFormat(2, reference);
    }

    void show(double lower, double upper, double step = 0.0)
    {
        plot.setAxisScale(QwtPlot::xBottom, lower, upper, step);
        plot.updateAxes();
    }

    QString label(double value) const
    {
        return plot.axisScaleDraw(QwtPlot::xBottom)->label(value).text();
    }

    // Paints the axis, which is when the draw names its label format.
    void paint()
    {
        plot.updateLayout();
        QwtScaleWidget *axis = plot.axisWidget(QwtPlot::xBottom);
        QVERIFY(axis->width() > 0 && axis->height() > 0);
        axis->grab();
    }

    QwtPlot plot;
    Draw *draw;
};

QDateTime reference()
{
    return QDateTime(QDate(2024, 5, 6), QTime(10, 17, 23));
}

} // namespace

class tst_TimeScaleDraw : public QObject
{
    Q_OBJECT

private slots:
    void startsElapsedWithoutReferenceOrParent();
    void axisOwnsTheDraw();

    void elapsedLabelsBySpan_data();
    void elapsedLabelsBySpan();
    void negativeValueHasNoLabelOnAnySpan_data();
    void negativeValueHasNoLabelOnAnySpan();
    void localLabelsBySpan_data();
    void localLabelsBySpan();
    void localLabelsWithoutValidReferenceAreEmpty_data();
    void localLabelsWithoutValidReferenceAreEmpty();
    void unknownFormatCodeWritesElapsedLabels();

    void setTimeFormatTakesReferenceOnlyForLocalTime();
    void settersRefreshCachedLabels();

    void labelFormatNames_data();
    void labelFormatNames();
    void labelFormatNamesOverZoomFrom2SecondsTo60Days();
    void unchangedNameEmitsNothing();
    void firstDrawingWithoutNameEmitsNothing();
    void scaleWithoutMajorTickInRangeGivesEmptyName();
    void tickWithEmptyLabelLeavesNameToTheNextTick();
};

void tst_TimeScaleDraw::startsElapsedWithoutReferenceOrParent()
{
    Draw draw;
    QCOMPARE(draw.timeFormat, 1);
    QVERIFY(!draw.referenceTime);
    QVERIFY(draw.labelFormat);
    QVERIFY(draw.labelFormat->isEmpty());
    QVERIFY(!draw.parent());
}

void tst_TimeScaleDraw::axisOwnsTheDraw()
{
    QPointer<TimeScaleDraw> draw;
    {
        QwtPlot plot;
        draw = new TimeScaleDraw;
        plot.setAxisScaleDraw(QwtPlot::xBottom, draw);
        QVERIFY(draw);
    }
    QVERIFY(!draw);
}

void tst_TimeScaleDraw::elapsedLabelsBySpan_data()
{
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, double lower, double upper, double value, const char *text) {
        QTest::newRow(name) << lower << upper << value << QString::fromUtf8(text);
    };
    row("span 2: zero has whole seconds", 0, 2, 0.0, "00:00:00");
    row("span 2: zero within 1e-12 has whole seconds", 0, 2, 1e-13, "00:00:00");
    row("span 2: half a second", 0, 2, 0.5, "00:00:00.500");
    row("span 2: milliseconds", 0, 2, 1.25, "00:00:01.250");
    row("span 3.999: milliseconds", 0, 3.999, 1.25, "00:00:01.250");
    row("span 4: whole seconds", 0, 4, 1.25, "00:00:01");
    row("span 2 past a day", 90000, 90002, 90000.25, "1d 01:00:00.250");
    row("span 299: rounded seconds do not carry", 0, 299, 59.7, "00:00:60");
    row("span 299: minutes and seconds", 0, 299, 135, "00:02:15");
    row("span 299: 24 h reads 24:00:00", 0, 299, 86400, "24:00:00");
    row("span 299: 24 h and seconds only stays", 0, 299, 86405, "24:00:05");
    row("span 299: 24 h, minutes and seconds is a day", 0, 299, 88205, "1d 00:30:05");
    row("span 299: a day with zero clock keeps it", 0, 299, 172800, "2d 00:00:00");
    row("span 299: a day and an hour", 0, 299, 90000, "1d 01:00:00");
    row("span 300: no seconds", 0, 300, 90, "00:01");
    row("span 300: minutes truncated", 0, 300, 135, "00:02");
    row("span 100000: hours and minutes", 0, 100000, 19800, "05:30");
    row("span 100000: 24 h reads 24:00", 0, 100000, 86400, "24:00");
    row("span 100000: 24 h 30 reads 24:30", 0, 100000, 88200, "24:30");
    row("span 100000: 24 h 30 min 5 s is a day", 0, 100000, 88205, "1d 00:30");
    row("span 100000: 25 h", 0, 100000, 90000, "1d 01:00");
    row("span 100000: 30 h", 0, 100000, 108000, "1d 06:00");
    row("span 100000: whole days drop 00:00", 0, 100000, 172800, "2d");
    row("span 431999: 24 h reads 24:00", 0, 431999, 86400, "24:00");
    row("span 432000: 24 h is a day", 0, 432000, 86400, "1d");
    row("span 500000: half a day is empty", 0, 500000, 43200, "");
    row("span 500000: one day", 0, 500000, 86400, "1d");
    row("span 500000: a day and a half", 0, 500000, 129600, "1d");
    row("span 500000: 24 h 30 is a day", 0, 500000, 88200, "1d");
    row("span 500000: zero is empty", 0, 500000, 0, "");
    row("span 500000: three days", 0, 500000, 259200, "3d");
    row("span 3628799: days", 0, 3628799, 604800, "7d");
    row("span 3628800: weeks", 0, 3628800, 604800, "1w");
    row("span 4000000: one week", 0, 4000000, 604800, "1w");
    row("span 4000000: four weeks", 0, 4000000, 2419200, "4w");
    row("span 4000000: one day is 0w", 0, 4000000, 86400, "0w");
    row("span 4000000: below a day is empty", 0, 4000000, 43200, "");
    row("span 4000000: zero is empty", 0, 4000000, 0, "");
    row("inverted span is finest", 10, 0, 1.25, "00:00:01.250");
}

void tst_TimeScaleDraw::elapsedLabelsBySpan()
{
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(double, value);
    QFETCH(QString, text);

    TimeAxis axis;
    axis.show(lower, upper);
    QCOMPARE(axis.plot.axisScaleDiv(QwtPlot::xBottom).range(), upper - lower);
    QCOMPARE(axis.label(value), text);
}

void tst_TimeScaleDraw::negativeValueHasNoLabelOnAnySpan_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("value");
    for (const double span : {2.0, 100.0, 1000.0, 100000.0, 500000.0, 4000000.0}) {
        QTest::addRow("-10 on %g", span) << span << -10.0;
        QTest::addRow("-2 days on %g", span) << span << -172800.0;
    }
}

void tst_TimeScaleDraw::negativeValueHasNoLabelOnAnySpan()
{
    QFETCH(double, span);
    QFETCH(double, value);

    TimeAxis axis(EngineKind::Qwt);
    axis.show(-span / 2, span / 2);
    QCOMPARE(axis.label(value), QString());
    // The sign clears the label, not the amount: the same time ahead has one
    // wherever the span shows times of that size.
    if (span < 432000.0 || -value >= 86400.0)
        QVERIFY(!axis.label(-value).isEmpty());
}

void tst_TimeScaleDraw::localLabelsBySpan_data()
{
    QTest::addColumn<double>("span");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("span 2: milliseconds") << 2.0 << 36.7 << QStringLiteral("10:17:59.700");
    QTest::newRow("span 3.999: milliseconds") << 3.999 << 36.7 << QStringLiteral("10:17:59.700");
    QTest::newRow("span 4: seconds") << 4.0 << 36.7 << QStringLiteral("10:17:59");
    QTest::newRow("span 10: seconds") << 10.0 << 37.0 << QStringLiteral("10:18:00");
    QTest::newRow("span 11: clock over date") << 11.0 << 37.0 << QStringLiteral(" 10:18:00\n2024-05-06");
    QTest::newRow("span 100: clock over date") << 100.0 << 37.0 << QStringLiteral(" 10:18:00\n2024-05-06");
    QTest::newRow("span 300: minutes over date") << 300.0 << 37.0 << QStringLiteral("   10:18\n2024-05-06");
    QTest::newRow("span 431999: minutes over date")
        << 431999.0 << 50000.0 << QStringLiteral("   00:10\n2024-05-07");
    QTest::newRow("span 432000: date only") << 432000.0 << 37.0 << QStringLiteral("2024-05-06");
    QTest::newRow("span 432000: next day") << 432000.0 << 50000.0 << QStringLiteral("2024-05-07");
    QTest::newRow("before the reference is not cleared") << 10.0 << -37.0 << QStringLiteral("10:16:46");
    QTest::newRow("milliseconds are truncated") << 2.0 << 0.0019 << QStringLiteral("10:17:23.001");
}

void tst_TimeScaleDraw::localLabelsBySpan()
{
    QFETCH(double, span);
    QFETCH(double, value);
    QFETCH(QString, text);

    const QDateTime ref = reference();
    TimeAxis axis(EngineKind::Local, &ref);
    axis.show(0.0, span);
    QCOMPARE(axis.label(value), text);
}

void tst_TimeScaleDraw::localLabelsWithoutValidReferenceAreEmpty_data()
{
    QTest::addColumn<bool>("invalid");
    QTest::newRow("null reference") << false;
    QTest::newRow("invalid reference") << true;
}

void tst_TimeScaleDraw::localLabelsWithoutValidReferenceAreEmpty()
{
    QFETCH(bool, invalid);

    const QDateTime bad;
    TimeAxis axis(EngineKind::Local, invalid ? &bad : nullptr);
    if (invalid)
        axis.draw->setReferenceTime(&bad);
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    for (const double span : {2.0, 10.0, 100.0, 1000.0, 500000.0}) {
        axis.show(0.0, span);
        QCOMPARE(axis.label(0.0), QString());
        QCOMPARE(axis.label(span / 2), QString());
        axis.paint();
    }
    QCOMPARE(spy.count(), 0);
    QVERIFY(axis.draw->labelFormat->isEmpty());

    // A name held from an earlier reference becomes empty.
    const QDateTime ref = reference();
    axis.draw->setReferenceTime(&ref);
    axis.show(0.0, 10.0);
    axis.paint();
    QCOMPARE(spy.count(), 1);
    axis.draw->setReferenceTime(invalid ? &bad : nullptr);
    axis.paint();
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.last().at(0).toString(), QString());
}

void tst_TimeScaleDraw::unknownFormatCodeWritesElapsedLabels()
{
    const QDateTime ref = reference();
    TimeAxis axis;
    axis.draw->setTimeFormat(3, &ref);
    axis.show(0.0, 100.0);
    QCOMPARE(axis.label(37.0), QStringLiteral("00:00:37"));
    QVERIFY(!axis.draw->referenceTime);
}

void tst_TimeScaleDraw::setTimeFormatTakesReferenceOnlyForLocalTime()
{
    const QDateTime first = reference();
    const QDateTime second(QDate(2030, 1, 2), QTime(3, 4, 5));

    Draw draw;
    draw.setTimeFormat(1, &first);
    QCOMPARE(draw.timeFormat, 1);
    QVERIFY(!draw.referenceTime);

    draw.setTimeFormat(2, nullptr);
    QCOMPARE(draw.timeFormat, 2);
    QVERIFY(!draw.referenceTime);

    draw.setTimeFormat(2, &first);
    QCOMPARE(draw.referenceTime, &first);

    // Null keeps the reference; elapsed time keeps it too, unused.
    draw.setTimeFormat(2, nullptr);
    QCOMPARE(draw.referenceTime, &first);
    draw.setTimeFormat(1, &second);
    QCOMPARE(draw.referenceTime, &first);

    draw.setReferenceTime(&second);
    QCOMPARE(draw.referenceTime, &second);
    draw.setReferenceTime(nullptr);
    QVERIFY(!draw.referenceTime);
}

void tst_TimeScaleDraw::settersRefreshCachedLabels()
{
    const QDateTime first = reference();
    const QDateTime second(QDate(2030, 1, 2), QTime(3, 4, 5));
    TimeAxis axis(EngineKind::Local, &first);
    axis.show(0.0, 10.0);
    const QFont font;

    QCOMPARE(axis.draw->tickLabel(font, 0.0).text(), QStringLiteral("10:17:23"));
    axis.draw->setReferenceTime(&second);
    QCOMPARE(axis.draw->tickLabel(font, 0.0).text(), QStringLiteral("03:04:05"));
    axis.draw->setTimeFormat(1, nullptr);
    QCOMPARE(axis.draw->tickLabel(font, 0.0).text(), QStringLiteral("00:00:00"));
}

void tst_TimeScaleDraw::labelFormatNames_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<double>("lower");
    QTest::addColumn<double>("upper");
    QTest::addColumn<QString>("name");

    QTest::newRow("elapsed 2 s") << 1 << 0.0 << 2.0 << QStringLiteral("hh:mm:ss.fff");
    QTest::newRow("elapsed 10 s") << 1 << 0.0 << 10.0 << QStringLiteral("hh:mm:ss");
    QTest::newRow("elapsed 5 min") << 1 << 0.0 << 300.0 << QStringLiteral("hh:mm");
    QTest::newRow("elapsed 2 s after a day") << 1 << 90000.0 << 90002.0 << QStringLiteral("day hh:mm:ss.fff");
    QTest::newRow("elapsed 200 s after a day") << 1 << 90000.0 << 90200.0 << QStringLiteral("day hh:mm:ss");
    QTest::newRow("elapsed 100000 s") << 1 << 0.0 << 100000.0 << QStringLiteral("day hh:mm");
    QTest::newRow("elapsed 2 days: 2d after 1d 18:00") << 1 << 0.0 << 172800.0 << QStringLiteral("day hh:mm");
    QTest::newRow("elapsed 5 days") << 1 << 0.0 << 432000.0 << QStringLiteral("day");
    QTest::newRow("elapsed 60 days") << 1 << 0.0 << 5184000.0 << QStringLiteral("week");
    QTest::newRow("local 2 s") << 2 << 0.0 << 2.0 << QStringLiteral("hh:mm:ss.fff");
    QTest::newRow("local 10 s") << 2 << 0.0 << 10.0 << QStringLiteral("hh:mm:ss");
    QTest::newRow("local 100 s") << 2 << 0.0 << 100.0 << QStringLiteral("hh:mm:ss YYYY-MM-DD");
    QTest::newRow("local an hour") << 2 << 0.0 << 3600.0 << QStringLiteral("hh:mm YYYY-MM-DD");
    QTest::newRow("local 500000 s") << 2 << 0.0 << 500000.0 << QStringLiteral("YYYY-MM-DD");
    QTest::newRow("local 60 days") << 2 << 0.0 << 5184000.0 << QStringLiteral("YYYY-MM-DD");
}

void tst_TimeScaleDraw::labelFormatNames()
{
    QFETCH(int, format);
    QFETCH(double, lower);
    QFETCH(double, upper);
    QFETCH(QString, name);

    const QDateTime ref = reference();
    TimeAxis axis(format == 2 ? EngineKind::Local : EngineKind::Elapsed, &ref);
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    axis.show(lower, upper);
    axis.paint();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), name);
    QCOMPARE(*axis.draw->labelFormat, name);
}

void tst_TimeScaleDraw::labelFormatNamesOverZoomFrom2SecondsTo60Days()
{
    TimeAxis axis;
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    for (const double span : {2.0, 10.0, 60.0, 299.0, 300.0, 3600.0, 86399.0, 100000.0, 172800.0,
                              432000.0, 1000000.0, 3628800.0, 5184000.0, 2.0}) {
        axis.show(0.0, span);
        axis.paint();
    }

    QStringList names;
    for (const QList<QVariant> &arguments : spy)
        names << arguments.at(0).toString();
    QCOMPARE(names, (QStringList{QStringLiteral("hh:mm:ss.fff"), QStringLiteral("hh:mm:ss"),
                                 QStringLiteral("hh:mm"), QStringLiteral("day hh:mm"),
                                 QStringLiteral("day"), QStringLiteral("week"),
                                 QStringLiteral("hh:mm:ss.fff")}));
}

void tst_TimeScaleDraw::unchangedNameEmitsNothing()
{
    TimeAxis axis;
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    axis.show(0.0, 300.0);
    axis.paint();
    axis.paint();
    axis.show(0.0, 3600.0);
    axis.paint();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("hh:mm"));
}

void tst_TimeScaleDraw::firstDrawingWithoutNameEmitsNothing()
{
    // Every tick is negative: no label, no name, nothing to report.
    TimeAxis axis(EngineKind::Qwt);
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    axis.show(-300.0, -100.0);
    axis.paint();
    QCOMPARE(spy.count(), 0);
}

void tst_TimeScaleDraw::scaleWithoutMajorTickInRangeGivesEmptyName()
{
    TimeAxis axis;
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    axis.show(0.0, 10.0);
    axis.paint();
    QCOMPARE(spy.count(), 1);

    axis.show(0.1, 0.9, 10.0);
    QVERIFY(axis.plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick).isEmpty());
    axis.paint();
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1).at(0).toString(), QString());
}

void tst_TimeScaleDraw::tickWithEmptyLabelLeavesNameToTheNextTick()
{
    // An inverted scale ends on its negative tick, whose label is empty; the
    // zero tick before it names the format.
    TimeAxis axis(EngineKind::Qwt);
    QSignalSpy spy(axis.draw, &TimeScaleDraw::labelFormatChanged);
    axis.show(200.0, -100.0, 100.0);
    const QList<double> ticks = axis.plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick);
    QCOMPARE(ticks.last(), -100.0);
    axis.paint();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("hh:mm:ss"));
}

QTEST_MAIN(tst_TimeScaleDraw)
#include "tst_timescaledraw.moc"
