#pragma once

// A BarPlot and a TimeBarPlot that open their protected members to the
// tests, count replots and record the calls of the read-out pass, and bar
// charts for them.

#include <figura/plots/BarPlot.h>
#include <figura/plots/TimeBarPlot.h>

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QPointF>
#include <QString>
#include <QVector>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_marker.h>

template <class Plot>
class BarProbe : public Plot
{
public:
    using Plot::Plot;

    using BarPlot::axisValueText;
    using BarPlot::barChartBaseLineMaxValue;
    using BarPlot::barChartBaseLineMinValue;
    using BarPlot::barChartBaselineValue;
    using BarPlot::barChartsValue;
    using BarPlot::defaultBarChartBaseLine;
    using BarPlot::displayMarkers;
    using BarPlot::loadToPlotSettingDialog;
    using BarPlot::markerLabelWidth;
    using BarPlot::saveFromPlotSettingDialog;
    using BarPlot::shiftMarkers;
    using BarPlot::togglePlotItem;
    using VoidPlot::marker;
    using VoidPlot::markerLabel;
    using VoidPlot::seriesMarkers;
    using VoidPlot::xScaleType;

    struct DisplayCall {
        int pos;
        QPointF value;
    };
    QList<DisplayCall> displayCalls;
    int replots = 0;

    void replot() override
    {
        ++replots;
        Plot::replot();
    }

    // A new widget gets a polish request posted, and QwtPlot answers it with
    // a replot: deliver it and start counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
        displayCalls.clear();
    }

    void displayMarkers(int pos, const QPointF &value) override
    {
        displayCalls.append({pos, value});
        Plot::displayMarkers(pos, value);
    }
};

using BarPlotProbe = BarProbe<BarPlot>;
using TimeBarPlotProbe = BarProbe<TimeBarPlot>;

// A bar chart whose destruction the tests can see.
class TracedBarChart : public QwtPlotBarChart
{
public:
    explicit TracedBarChart(const QString &title, int *deaths)
        : QwtPlotBarChart(title), m_deaths(deaths) {}
    ~TracedBarChart() override
    {
        if (m_deaths)
            ++*m_deaths;
    }

private:
    int *m_deaths;
};

// A chart of bars at the given x, all of height y.
inline QwtPlotBarChart *barsAt(const QString &title, const QVector<double> &xs, double y)
{
    QVector<QPointF> samples;
    for (double x : xs)
        samples.append(QPointF(x, y));
    auto *chart = new QwtPlotBarChart(title);
    chart->setSamples(samples);
    return chart;
}

inline QwtPlotBarChart *barsOf(const QString &title, const QVector<QPointF> &samples)
{
    auto *chart = new QwtPlotBarChart(title);
    chart->setSamples(samples);
    return chart;
}
