// Curves a host may well hand over: samples that are NaN or infinite (a
// failed measurement, a division by zero), an empty curve, a single sample,
// runs of equal x. The read-out, the selection, the key steps, the log scale
// and the full-scale zoom must survive them and stay sane: no marker stands
// at a NaN or an infinity, a shown marker stands on a real sample of its own
// curve, a selection reports an index of the first curve or -1, and the axes
// keep finite bounds.

#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/TimeCurvePlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>

#include <qwt_plot_barchart.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_div.h>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace StressSupport;
using namespace TestSupport;

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();

using Series = QVector<QPointF>;
using SeriesList = QList<Series>;

template <class Base>
class Opened : public Base
{
public:
    using Base::Base;
    using VoidPlot::marker;
    using VoidPlot::selectionMarker;
    using VoidPlot::seriesMarkers;
};

template <class Base>
class OpenedCurves : public Opened<Base>
{
public:
    using Opened<Base>::Opened;
    using CurvePlot::selectSample;
    using CurvePlot::selectSampleWithKey;
};

bool isFinite(const QPointF &p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y());
}

// A run of ten good samples at x = 1 .. 10 with y = 1e-9 .. 1e-8, and the
// same run with some samples replaced.
Series goodRun()
{
    return risingSamples(10, 1.0, 1.0, 1e-9);
}

Series withSamples(std::initializer_list<std::pair<int, QPointF>> replacements)
{
    Series series = goodRun();
    for (const auto &replacement : replacements)
        series[replacement.first] = replacement.second;
    return series;
}

bool sameSample(const QPointF &a, const QPointF &b)
{
    return a.x() == b.x() && a.y() == b.y();
}

// Whether a shown marker stands on a finite sample of series. A pass that
// finds no sample leaves a marker where it stood, and one that never found a
// sample stands where it was made, at the null point.
bool standsOnSample(const QwtPlotMarker *seriesMarker, const Series &series)
{
    const QPointF value = seriesMarker->value();
    if (!isFinite(value))
        return false;
    if (value.x() == 0.0 && value.y() == 0.0)
        return true;
    for (const QPointF &sample : series)
        if (sameSample(sample, value))
            return true;
    return false;
}

bool finiteInterval(const QwtInterval &interval)
{
    return std::isfinite(interval.minValue()) && std::isfinite(interval.maxValue());
}

QString describe(const QPointF &p)
{
    return QStringLiteral("(%1, %2)").arg(p.x()).arg(p.y());
}

} // namespace

class tst_StressDegenerate : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QStandardPaths::setTestModeEnabled(true); }

private slots:
    void initTestCase();

    void curvesSurviveDegenerateSamples_data();
    void curvesSurviveDegenerateSamples();
    void barsSurviveDegenerateSamples_data();
    void barsSurviveDegenerateSamples();

    void readOutAtAGapKeepsTheMarkerAndAddsNoLine();
    void keyStepsPassOverAGap();
    void keyStepsOnlyOverGapsStayPut();
    void selectionAtAGapSelectsNothing();

private:
    template <class Plot>
    void runCurves(const SeriesList &seriesList);
    template <class Plot>
    QString checkCurveMarkers(Plot &plot, const SeriesList &seriesList);
};

void tst_StressDegenerate::initTestCase()
{
    installNoticeFilter();
}

void tst_StressDegenerate::curvesSurviveDegenerateSamples_data()
{
    QTest::addColumn<bool>("timePlot");
    QTest::addColumn<SeriesList>("seriesList");

    const QList<QPair<const char *, SeriesList>> rows = {
        {"NaN y", {withSamples({{4, QPointF(5, NaN)}}), goodRun()}},
        {"NaN x", {withSamples({{4, QPointF(NaN, 5e-9)}}), goodRun()}},
        {"NaN first and last", {withSamples({{0, QPointF(NaN, NaN)}, {9, QPointF(NaN, NaN)}})}},
        {"only NaN", {Series(5, QPointF(NaN, NaN)), goodRun()}},
        {"infinite y", {withSamples({{3, QPointF(4, Inf)}, {6, QPointF(7, -Inf)}}), goodRun()}},
        {"infinite x at the ends", {withSamples({{0, QPointF(-Inf, 1e-9)}, {9, QPointF(Inf, 1e-8)}})}},
        {"huge y", {withSamples({{5, QPointF(6, std::numeric_limits<double>::max())}}), goodRun()}},
        {"empty first curve", {Series(), goodRun()}},
        {"only empty curves", {Series(), Series()}},
        {"single sample", {Series{QPointF(5, 5e-9)}, goodRun()}},
        {"single NaN sample", {Series{QPointF(NaN, NaN)}}},
        {"equal x values", {Series{QPointF(1, 1e-9), QPointF(1, 2e-9), QPointF(1, 3e-9),
                                   QPointF(4, 4e-9), QPointF(4, 5e-9), QPointF(9, 6e-9)},
                            goodRun()}},
        {"all x equal", {Series(6, QPointF(3, 2e-9)), goodRun()}},
        {"zero and negative y", {withSamples({{2, QPointF(3, 0.0)}, {5, QPointF(6, -1e-9)}})}},
    };
    for (const auto &row : rows) {
        QTest::addRow("CurvePlot, %s", row.first) << false << row.second;
        QTest::addRow("TimeCurvePlot, %s", row.first) << true << row.second;
    }
}

template <class Plot>
QString tst_StressDegenerate::checkCurveMarkers(Plot &plot, const SeriesList &seriesList)
{
    for (int i = 0; i < plot.seriesMarkers.size(); ++i) {
        const QwtPlotMarker *seriesMarker = plot.seriesMarkers.at(i);
        if (seriesMarker && seriesMarker->isVisible() && !standsOnSample(seriesMarker, seriesList.at(i)))
            return QStringLiteral("series marker %1 stands at %2").arg(i).arg(describe(seriesMarker->value()));
    }
    if (plot.marker->isVisible() && !std::isfinite(plot.marker->xValue()))
        return QStringLiteral("the frame marker stands at x %1").arg(plot.marker->xValue());
    if (plot.selectionMarker->isVisible() && !isFinite(plot.selectionMarker->value()))
        return QStringLiteral("the selection stands at %1").arg(describe(plot.selectionMarker->value()));
    const QString label = plot.marker->label().text();
    if (label.contains(QLatin1String("nan"), Qt::CaseInsensitive)
        || label.contains(QLatin1String("inf"), Qt::CaseInsensitive))
        return QStringLiteral("the read-out reads \"%1\"").arg(label);
    return QString();
}

template <class Plot>
void tst_StressDegenerate::runCurves(const SeriesList &seriesList)
{
    OpenedCurves<Plot> plot;
    for (int i = 0; i < seriesList.size(); ++i)
        plot.appendCurve(curveOf(QStringLiteral("curve %1").arg(i), seriesList.at(i)), true);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    plot.setFocus();
    QWidget *canvas = plot.canvas();
    QSignalSpy selected(&plot, &CurvePlot::sampleSelected);
    const int firstSize = int(seriesList.first().size());
    QString problem;

    // The read-out over the whole canvas and a little beyond.
    const auto sweep = [&](const char *when) {
        for (int x = -5; x <= canvas->width() + 5; x += 3) {
            mouse(canvas, QEvent::MouseMove, QPoint(x, canvas->height() / 2));
            problem = checkCurveMarkers(plot, seriesList);
            if (!problem.isEmpty()) {
                problem = QStringLiteral("%1, pointer at %2: %3").arg(QLatin1String(when)).arg(x).arg(problem);
                return;
            }
        }
    };
    sweep("read-out");
    QVERIFY2(problem.isEmpty(), qPrintable(problem));

    // Selections across the canvas, by column and by key.
    for (int x = 0; x <= canvas->width(); x += 17) {
        plot.selectSample(x);
        problem = checkCurveMarkers(plot, seriesList);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("selection at %1: %2").arg(x).arg(problem)));
    }
    mouse(canvas, QEvent::MouseMove, canvas->rect().center());
    plot.selectSampleWithKey();
    QVERIFY2(checkCurveMarkers(plot, seriesList).isEmpty(), "selection by key");

    // Key steps to both ends and beyond.
    const QList<Qt::Key> keys = QList<Qt::Key>{Qt::Key_Home}
        + QList<Qt::Key>(firstSize + 2, Qt::Key_Right) + QList<Qt::Key>{Qt::Key_End}
        + QList<Qt::Key>(firstSize + 2, Qt::Key_Left) + QList<Qt::Key>{Qt::Key_End, Qt::Key_Home};
    for (Qt::Key key : keys) {
        QTest::keyClick(&plot, key);
        problem = checkCurveMarkers(plot, seriesList);
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("key %1: %2").arg(key).arg(problem)));
    }

    // Log scale on and off, each with a read-out, and the full-scale zoom.
    for (bool logScale : {true, false}) {
        plot.setLogScale(logScale);
        QCOMPARE(plot.isLogScale(), logScale);
        QVERIFY(finiteInterval(plot.axisInterval(QwtPlot::yLeft)));
        sweep(logScale ? "read-out on a log scale" : "read-out back on a linear scale");
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }
    plot.zoomFullScale();
    QVERIFY2(finiteInterval(plot.axisInterval(QwtPlot::xBottom)),
             qPrintable(QStringLiteral("x axis %1 to %2")
                            .arg(plot.axisInterval(QwtPlot::xBottom).minValue())
                            .arg(plot.axisInterval(QwtPlot::xBottom).maxValue())));
    QVERIFY2(finiteInterval(plot.axisInterval(QwtPlot::yLeft)),
             qPrintable(QStringLiteral("y axis %1 to %2")
                            .arg(plot.axisInterval(QwtPlot::yLeft).minValue())
                            .arg(plot.axisInterval(QwtPlot::yLeft).maxValue())));
    sweep("read-out after the full-scale zoom");
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    plot.replot();

    // Every index reported belongs to the first curve, or is -1; a first
    // curve without a readable sample gives no selection at all.
    const bool firstIsReadable = std::any_of(seriesList.first().cbegin(), seriesList.first().cend(),
                                             [](const QPointF &p) { return isFinite(p); });
    bool turned = false;
    QTimer::singleShot(0, [&turned] { turned = true; });
    QTRY_VERIFY(turned);
    QCOMPARE(selected.isEmpty(), !firstIsReadable);
    for (const QList<QVariant> &arguments : std::as_const(selected)) {
        const int index = arguments.at(0).toInt();
        QVERIFY2(index >= -1 && index < firstSize, qPrintable(QString::number(index)));
        if (index >= 0)
            QVERIFY2(isFinite(seriesList.first().at(index)),
                     qPrintable(QStringLiteral("selected %1").arg(describe(seriesList.first().at(index)))));
    }
}

void tst_StressDegenerate::curvesSurviveDegenerateSamples()
{
    QFETCH(bool, timePlot);
    QFETCH(SeriesList, seriesList);
    if (timePlot)
        runCurves<TimeCurvePlot>(seriesList);
    else
        runCurves<CurvePlot>(seriesList);
}

void tst_StressDegenerate::barsSurviveDegenerateSamples_data()
{
    QTest::addColumn<SeriesList>("seriesList");
    QTest::newRow("NaN height") << SeriesList{withSamples({{4, QPointF(5, NaN)}}), goodRun()};
    QTest::newRow("infinite height") << SeriesList{withSamples({{3, QPointF(4, Inf)}}), goodRun()};
    QTest::newRow("NaN position") << SeriesList{withSamples({{4, QPointF(NaN, 5e-9)}})};
    QTest::newRow("single bar") << SeriesList{Series{QPointF(5, 5e-9)}, goodRun()};
    QTest::newRow("equal positions") << SeriesList{Series{QPointF(2, 1e-9), QPointF(2, 3e-9)}};
}

void tst_StressDegenerate::barsSurviveDegenerateSamples()
{
    QFETCH(SeriesList, seriesList);
    Opened<BarPlot> plot;
    for (int i = 0; i < seriesList.size(); ++i) {
        plot.appendBarChart(barChartOf(QStringLiteral("bars %1").arg(i), seriesList.at(i)), true);
        plot.setBarChartColor(i, Qt::darkCyan);
    }
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    QWidget *canvas = plot.canvas();

    const auto check = [&]() -> QString {
        for (int i = 0; i < plot.seriesMarkers.size(); ++i) {
            const QwtPlotMarker *seriesMarker = plot.seriesMarkers.at(i);
            if (seriesMarker && seriesMarker->isVisible() && !standsOnSample(seriesMarker, seriesList.at(i)))
                return QStringLiteral("bar marker %1 stands at %2").arg(i).arg(describe(seriesMarker->value()));
        }
        if (plot.marker->isVisible() && !std::isfinite(plot.marker->xValue()))
            return QStringLiteral("the frame marker stands at x %1").arg(plot.marker->xValue());
        return QString();
    };
    for (int x = -5; x <= canvas->width() + 5; x += 3) {
        mouse(canvas, QEvent::MouseMove, QPoint(x, 40));
        const QString problem = check();
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("pointer at %1: %2").arg(x).arg(problem)));
    }
    for (Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                        Qt::Key_Right, Qt::Key_End, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left}) {
        QTest::keyClick(&plot, key);
        const QString problem = check();
        QVERIFY2(problem.isEmpty(), qPrintable(QStringLiteral("key %1: %2").arg(key).arg(problem)));
    }
    plot.setLogScale(true);
    plot.zoomFullScale();
    QVERIFY(finiteInterval(plot.axisInterval(QwtPlot::xBottom)));
    QVERIFY(finiteInterval(plot.axisInterval(QwtPlot::yLeft)));
    plot.replot();
}

namespace {

int columnOf(QwtPlot *plot, double x)
{
    return qRound(plot->transform(QwtPlot::xBottom, x));
}

} // namespace

// A curve with a gap at x 5 beside a curve without one.
void tst_StressDegenerate::readOutAtAGapKeepsTheMarkerAndAddsNoLine()
{
    OpenedCurves<CurvePlot> plot;
    plot.appendCurve(curveOf(QStringLiteral("gap"), withSamples({{4, QPointF(5, NaN)}})), true);
    plot.appendCurve(curveOf(QStringLiteral("full"), goodRun()), true);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    QWidget *canvas = plot.canvas();

    mouse(canvas, QEvent::MouseMove, QPoint(columnOf(&plot, 4.0), 50));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(4, 4e-9));
    QCOMPARE(plot.marker->label().text().count(QLatin1String("\r\n")), 2);

    mouse(canvas, QEvent::MouseMove, QPoint(columnOf(&plot, 5.0), 50));
    QCOMPARE(plot.seriesMarkers.at(0)->value(), QPointF(4, 4e-9));
    QCOMPARE(plot.seriesMarkers.at(1)->value(), QPointF(5, 5e-9));
    QCOMPARE(plot.marker->xValue(), 5.0);
    const QString label = plot.marker->label().text();
    QCOMPARE(label.count(QLatin1String("\r\n")), 1);
    QVERIFY2(label.contains(QLatin1String("full: ")) && !label.contains(QLatin1String("gap: ")),
             qPrintable(label));
}

void tst_StressDegenerate::keyStepsPassOverAGap()
{
    OpenedCurves<CurvePlot> plot;
    // Gaps at x 5 and 6 and at both ends.
    plot.appendCurve(curveOf(QStringLiteral("gaps"),
                             withSamples({{0, QPointF(1, NaN)}, {4, QPointF(5, NaN)},
                                          {5, QPointF(6, Inf)}, {9, QPointF(10, NaN)}})),
                     true);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    plot.setFocus();
    const auto xAfter = [&plot](Qt::Key key) {
        QTest::keyClick(&plot, key);
        return plot.seriesMarkers.at(0)->xValue();
    };

    QCOMPARE(xAfter(Qt::Key_Home), 2.0);
    QCOMPARE(xAfter(Qt::Key_Right), 3.0);
    QCOMPARE(xAfter(Qt::Key_Right), 4.0);
    QCOMPARE(xAfter(Qt::Key_Right), 7.0);
    QCOMPARE(xAfter(Qt::Key_Left), 4.0);
    QCOMPARE(xAfter(Qt::Key_End), 9.0);
    QCOMPARE(xAfter(Qt::Key_Right), 9.0);
    QCOMPARE(xAfter(Qt::Key_Home), 2.0);
    QCOMPARE(xAfter(Qt::Key_Left), 2.0);
}

void tst_StressDegenerate::keyStepsOnlyOverGapsStayPut()
{
    OpenedCurves<CurvePlot> plot;
    plot.appendCurve(curveOf(QStringLiteral("nothing"), Series(4, QPointF(NaN, NaN))), true);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    plot.setFocus();
    for (Qt::Key key : {Qt::Key_Home, Qt::Key_Right, Qt::Key_End, Qt::Key_Left}) {
        QTest::keyClick(&plot, key);
        QVERIFY(isFinite(plot.seriesMarkers.at(0)->value()));
        QVERIFY(plot.marker->label().text().count(QLatin1String("\r\n")) == 0);
    }
}

void tst_StressDegenerate::selectionAtAGapSelectsNothing()
{
    OpenedCurves<CurvePlot> plot;
    plot.appendCurve(curveOf(QStringLiteral("gap"), withSamples({{4, QPointF(5, NaN)}})), true);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 11.0);
    QVERIFY(showActive(plot));
    QSignalSpy selected(&plot, &CurvePlot::sampleSelected);

    plot.selectSample(columnOf(&plot, 3.0));
    QTRY_COMPARE(selected.count(), 1);
    QCOMPARE(selected.at(0).at(0).toInt(), 2);
    plot.selectSample(columnOf(&plot, 5.0));
    QCOMPARE(plot.selectionMarker->value(), QPointF(3, 3e-9));
    bool turned = false;
    QTimer::singleShot(0, [&turned] { turned = true; });
    QTRY_VERIFY(turned);
    QCOMPARE(selected.count(), 1);
}

QTEST_MAIN(tst_StressDegenerate)
#include "tst_stress_degenerate.moc"
