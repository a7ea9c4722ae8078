// A thousand cycles of adding and removing series while the read-out is on
// display: series are appended with and without a series marker, the pointer
// drives the read-out, and series leave by index, by pointer, all at once,
// or not at all for an index or pointer the plot does not hold. After each
// step the series markers stand beside their series, each on a sample of its
// own series; at the end every series the plot took is deleted and the plot
// holds the items it started with.

#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/MultiBarPlot.h>
#include <figura/plots/TimeBarPlot.h>
#include <figura/plots/TimeCurvePlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTest>

#include <qwt_legend.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_multi_barchart.h>

#include <cmath>
#include <functional>
#include <memory>

using namespace StressSupport;
using namespace TestSupport;

namespace {

constexpr int Cycles = 1000;
constexpr int SamplesPerSeries = 20;

// The samples of series id: x = 1 .. 20, y = 1000 id + index, so that the y
// of a series marker tells whose sample it stands on.
QVector<QPointF> samplesOf(int id)
{
    QVector<QPointF> samples;
    for (int j = 0; j < SamplesPerSeries; ++j)
        samples << QPointF(1.0 + j, 1000.0 * id + j);
    return samples;
}

int idOfY(double y)
{
    return int(std::floor(y / 1000.0));
}

class TracedCurve : public QwtPlotCurve
{
public:
    TracedCurve(int id, int *deaths) : QwtPlotCurve(QStringLiteral("curve %1").arg(id)), m_deaths(deaths)
    {
        setSamples(samplesOf(id));
    }
    ~TracedCurve() override { ++*m_deaths; }

private:
    int *m_deaths;
};

class TracedBarChart : public QwtPlotBarChart
{
public:
    TracedBarChart(int id, int *deaths) : QwtPlotBarChart(QStringLiteral("bars %1").arg(id)), m_deaths(deaths)
    {
        setSamples(samplesOf(id));
    }
    ~TracedBarChart() override { ++*m_deaths; }

private:
    int *m_deaths;
};

template <class Base>
class Opened : public Base
{
public:
    using Base::Base;
    using VoidPlot::marker;
    using VoidPlot::seriesMarkers;
};

// One plot class's store, seen through the operations the cycles use.
struct Store
{
    std::unique_ptr<VoidPlot> plot;
    std::function<void(int id, bool hasMarker)> append;
    std::function<int()> count;
    std::function<void(int index)> removeAt;
    std::function<void()> removeAll;
    // Removes by pointer; empty where the class has no such operation.
    std::function<void(int index)> removeByPointer;
    // Asks the plot to remove a series it never took, and tells whether that
    // series is still alive after; empty where there is no removal by pointer.
    std::function<bool()> removeForeign;
    std::function<QList<QwtPlotMarker *>()> seriesMarkers;
    std::function<QwtPlotMarker *()> frameMarker;
    int deaths = 0;
    int created = 0;
};

template <class Plot>
std::unique_ptr<Store> curveStore()
{
    auto store = std::make_unique<Store>();
    auto *plot = new Opened<Plot>;
    Store *s = store.get();
    store->plot.reset(plot);
    store->append = [plot, s](int id, bool hasMarker) {
        plot->appendCurve(new TracedCurve(id, &s->deaths), hasMarker);
        ++s->created;
    };
    store->count = [plot] { return int(plot->curves().size()); };
    store->removeAt = [plot](int index) { plot->removeCurve(index); };
    store->removeAll = [plot] { plot->removeCurves(); };
    store->removeByPointer = [plot](int index) { plot->removeCurve(plot->curves().at(index)); };
    store->removeForeign = [plot] {
        int deaths = 0;
        TracedCurve foreign(-1, &deaths);
        plot->removeCurve(&foreign);
        return deaths == 0;
    };
    store->seriesMarkers = [plot] { return plot->seriesMarkers; };
    store->frameMarker = [plot] { return plot->marker; };
    return store;
}

template <class Plot>
std::unique_ptr<Store> barStore()
{
    auto store = std::make_unique<Store>();
    auto *plot = new Opened<Plot>;
    Store *s = store.get();
    store->plot.reset(plot);
    store->append = [plot, s](int id, bool hasMarker) {
        plot->appendBarChart(new TracedBarChart(id, &s->deaths), hasMarker);
        // The read-out takes a chart's colour from its symbol.
        plot->setBarChartColor(int(plot->barCharts().size()) - 1, QColor::fromHsv(id * 37 % 360, 200, 200));
        ++s->created;
    };
    store->count = [plot] { return int(plot->barCharts().size()); };
    store->removeAt = [plot](int index) { plot->removeBarChart(index); };
    store->removeAll = [plot] { plot->removeBarCharts(); };
    store->seriesMarkers = [plot] { return plot->seriesMarkers; };
    store->frameMarker = [plot] { return plot->marker; };
    return store;
}

std::unique_ptr<Store> makeStore(const QString &className)
{
    if (className == QLatin1String("CurvePlot"))
        return curveStore<CurvePlot>();
    if (className == QLatin1String("TimeCurvePlot"))
        return curveStore<TimeCurvePlot>();
    if (className == QLatin1String("BarPlot"))
        return barStore<BarPlot>();
    return barStore<TimeBarPlot>();
}

struct Series
{
    int id;
    bool hasMarker;
};

} // namespace

class tst_StressStore : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QStandardPaths::setTestModeEnabled(true); }

private slots:
    void initTestCase();

    void appendRemoveCyclesKeepMarkersAlignedAndLeakNothing_data();
    void appendRemoveCyclesKeepMarkersAlignedAndLeakNothing();
    void multiBarUpdateCyclesKeepOneMarkerAndLeakNothing();

private:
    bool checkAlignment(Store &store, const QList<Series> &model, int cycle);

    int markersSeenOnTheirSeries = 0;
};

void tst_StressStore::initTestCase()
{
    installNoticeFilter();
}

// The markers stand beside their series: as many entries as series, null
// exactly for the series without a marker, and a shown marker on a sample of
// its own series.
bool tst_StressStore::checkAlignment(Store &store, const QList<Series> &model, int cycle)
{
    const QList<QwtPlotMarker *> markers = store.seriesMarkers();
    if (store.count() != model.size() || markers.size() != model.size()) {
        qWarning("cycle %d: %d series, %d markers, %d expected", cycle, store.count(),
                 int(markers.size()), int(model.size()));
        return false;
    }
    for (int i = 0; i < model.size(); ++i) {
        const QwtPlotMarker *seriesMarker = markers.at(i);
        if ((seriesMarker != nullptr) != model.at(i).hasMarker) {
            qWarning("cycle %d: series %d (id %d) has %s marker", cycle, i, model.at(i).id,
                     seriesMarker ? "a" : "no");
            return false;
        }
        if (!seriesMarker || !seriesMarker->isVisible())
            continue;
        const QPointF value = seriesMarker->value();
        const bool onItsSeries = idOfY(value.y()) == model.at(i).id && value.x() >= 1.0
            && value.x() <= SamplesPerSeries && value.x() == std::floor(value.x());
        if (!onItsSeries) {
            qWarning("cycle %d: marker %d stands at (%g, %g), not on series id %d", cycle, i,
                     value.x(), value.y(), model.at(i).id);
            return false;
        }
        ++markersSeenOnTheirSeries;
    }
    return true;
}

void tst_StressStore::appendRemoveCyclesKeepMarkersAlignedAndLeakNothing_data()
{
    QTest::addColumn<QString>("className");
    for (const char *name : {"CurvePlot", "TimeCurvePlot", "BarPlot", "TimeBarPlot"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_StressStore::appendRemoveCyclesKeepMarkersAlignedAndLeakNothing()
{
    QFETCH(QString, className);
    std::unique_ptr<Store> store = makeStore(className);
    VoidPlot *plot = store->plot.get();
    plot->enableLegend(QwtPlot::RightLegend);
    plot->setAxisScale(QwtPlot::xBottom, 0.0, SamplesPerSeries + 1.0);
    QVERIFY(showActive(*plot, QSize(600, 400)));
    QWidget *canvas = plot->canvas();
    const int itemsAtStart = int(plot->itemList().size());

    QRandomGenerator random(20240531);
    markersSeenOnTheirSeries = 0;
    QList<Series> model;
    int nextId = 1;
    int byIndex = 0, byPointer = 0, all = 0, ignored = 0;

    for (int cycle = 0; cycle < Cycles; ++cycle) {
        const int appends = 1 + cycle % 4;
        for (int k = 0; k < appends; ++k) {
            const Series series{nextId++, random.bounded(3) != 0};
            store->append(series.id, series.hasMarker);
            model << series;
        }
        QVERIFY2(checkAlignment(*store, model, cycle), "after appending");

        // The read-out follows the pointer over the canvas.
        const QPoint at(5 + (cycle * 13) % (canvas->width() - 10), canvas->height() / 2);
        mouse(canvas, QEvent::MouseMove, at);
        QVERIFY2(checkAlignment(*store, model, cycle), "after a read-out");

        switch (cycle % 6) {
        case 0:
        case 1: { // one or two by index
            for (int k = 0; k <= cycle % 2 && !model.isEmpty(); ++k) {
                const int index = int(random.bounded(int(model.size())));
                store->removeAt(index);
                model.removeAt(index);
                ++byIndex;
            }
            break;
        }
        case 2: // by pointer where the class has it, else by index
            if (!model.isEmpty()) {
                const int index = int(random.bounded(int(model.size())));
                if (store->removeByPointer) {
                    store->removeByPointer(index);
                    ++byPointer;
                } else {
                    store->removeAt(index);
                    ++byIndex;
                }
                model.removeAt(index);
            }
            break;
        case 3: // what the plot does not hold changes nothing
            store->removeAt(-1);
            store->removeAt(int(model.size()));
            if (store->removeForeign)
                QVERIFY2(store->removeForeign(), "a curve the plot never took was deleted");
            ++ignored;
            break;
        case 4: // the last one
            if (!model.isEmpty()) {
                store->removeAt(int(model.size()) - 1);
                model.removeLast();
                ++byIndex;
            }
            break;
        case 5: // all of them, when there are many
            if (model.size() > 8) {
                store->removeAll();
                model.clear();
                ++all;
            }
            break;
        }
        QVERIFY2(checkAlignment(*store, model, cycle), "after removing");
        if (model.isEmpty())
            QVERIFY(!store->frameMarker()->isVisible());

        // A read-out after the removal, and now and then a drawing of it all.
        mouse(canvas, QEvent::MouseMove, at + QPoint(3, 0));
        QVERIFY2(checkAlignment(*store, model, cycle), "after a read-out past the removal");
        if (cycle % 50 == 0)
            plot->replot();

        QCOMPARE(store->deaths, store->created - int(model.size()));
        QCOMPARE(int(plot->itemList().size()),
                 itemsAtStart + int(model.size())
                     + int(std::count_if(model.cbegin(), model.cend(),
                                         [](const Series &s) { return s.hasMarker; })));
    }

    store->removeAll();
    QCOMPARE(store->count(), 0);
    QVERIFY(store->seriesMarkers().isEmpty());
    QVERIFY(!store->frameMarker()->isVisible());
    QCOMPARE(store->deaths, store->created);
    QCOMPARE(int(plot->itemList().size()), itemsAtStart);
    QVERIFY(plot->plotLegend()->isEmpty());
    plot->replot();
    // The read-out really ran: shown markers were checked on the way.
    QVERIFY(markersSeenOnTheirSeries > Cycles);
    qInfo("%d series made; removed %d by index, %d by pointer, %d times all, %d removals "
          "ignored; %d shown markers checked",
          store->created, byIndex, byPointer, all, ignored, markersSeenOnTheirSeries);
}

// The one chart of a MultiBarPlot is refilled with ever other sets; its one
// marker exists exactly while the chart holds sets.
void tst_StressStore::multiBarUpdateCyclesKeepOneMarkerAndLeakNothing()
{
    Opened<MultiBarPlot> plot;
    plot.setAxisScale(QwtPlot::xBottom, 0.0, SamplesPerSeries + 1.0);
    QVERIFY(showActive(plot, QSize(600, 400)));
    QWidget *canvas = plot.canvas();
    const int itemsAtStart = int(plot.itemList().size());
    QVERIFY(plot.seriesMarkers.isEmpty());

    for (int cycle = 0; cycle < Cycles; ++cycle) {
        // Every fifth update has no sets at all.
        const int bars = cycle % 5 == 4 ? 0 : 1 + cycle % 4;
        QList<QwtSetSample> sets;
        QList<QColor> colors;
        QList<QwtText> titles;
        if (bars > 0) {
            for (int j = 0; j < SamplesPerSeries; ++j) {
                QVector<double> values;
                for (int b = 0; b < bars; ++b)
                    values << 1000.0 * cycle + j + b;
                sets << QwtSetSample(1.0 + j, values);
            }
            for (int b = 0; b < bars; ++b) {
                colors << QColor::fromHsv(b * 60, 200, 200);
                titles << QwtText(QStringLiteral("bar %1").arg(b));
            }
        }
        plot.updateMultiBarChart(&sets, colors, titles);
        QCOMPARE(int(plot.seriesMarkers.size()), bars > 0 ? 1 : 0);
        QCOMPARE(int(plot.itemList().size()), itemsAtStart + (bars > 0 ? 1 : 0));

        mouse(canvas, QEvent::MouseMove, QPoint(5 + (cycle * 13) % (canvas->width() - 10), 50));
        if (bars > 0) {
            // The read-out stands on one of the present sets.
            const double x = plot.seriesMarkers.first()->xValue();
            QVERIFY2(x >= 1.0 && x <= SamplesPerSeries && x == std::floor(x),
                     qPrintable(QString::number(x)));
            // New values only, with the same count: the marker stays.
            for (QwtSetSample &set : sets)
                for (double &value : set.set)
                    value += 0.5;
            plot.updateMultiBarChart(&sets);
            QCOMPARE(int(plot.seriesMarkers.size()), 1);
        }
        if (cycle % 50 == 0)
            plot.replot();
    }

    QList<QwtSetSample> none;
    plot.updateMultiBarChart(&none, {}, {});
    QVERIFY(plot.seriesMarkers.isEmpty());
    QCOMPARE(int(plot.itemList().size()), itemsAtStart);
}

QTEST_MAIN(tst_StressStore)
#include "tst_stress_store.moc"
