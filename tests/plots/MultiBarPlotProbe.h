#pragma once

// A MultiBarPlot that opens its protected members to the tests, counts
// replots and records the read-out passes it passes on, with helpers to make
// sets of bars.

#include <figura/plots/MultiBarPlot.h>

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QVector>

#include <qwt_column_symbol.h>
#include <qwt_plot_marker.h>
#include <qwt_plot_multi_barchart.h>
#include <qwt_samples.h>
#include <qwt_text.h>

class MultiBarPlotProbe : public MultiBarPlot
{
public:
    using MultiBarPlot::MultiBarPlot;

    using MultiBarPlot::axisValueText;
    using MultiBarPlot::barChartValue;
    using MultiBarPlot::getFirstSetSample;
    using MultiBarPlot::getLastSetSample;
    using MultiBarPlot::hideZeroValueMarkerLabel;
    using MultiBarPlot::loadToPlotSettingDialog;
    using MultiBarPlot::markerLabelWidth;
    using MultiBarPlot::refreshMarkers;
    using MultiBarPlot::saveFromPlotSettingDialog;
    using MultiBarPlot::shiftMarkers;
    using MultiBarPlot::togglePlotItem;
    using VoidPlot::editPlotSetting;
    using VoidPlot::marker;
    using VoidPlot::markerLabel;
    using VoidPlot::seriesMarkers;

    struct DisplayCall {
        int pos;
        QwtSetSample setSample;
    };
    QList<DisplayCall> displayCalls;
    int replots = 0;

    void replot() override
    {
        ++replots;
        MultiBarPlot::replot();
    }

    // A new widget gets a polish request posted, and QwtPlot answers it with
    // a replot: deliver it and start counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
        displayCalls.clear();
    }

    void displayMarkers(int pos, const QwtSetSample &setSample) override
    {
        displayCalls.append({pos, setSample});
        MultiBarPlot::displayMarkers(pos, setSample);
    }

    // The symbol of a bar place, or null; the chart's non-const lookup is
    // not public.
    const QwtColumnSymbol *symbolAt(int place) const
    {
        const QwtPlotMultiBarChart *chart = barChartValue;
        return chart->symbol(place);
    }

    // The read-out line, or null before the first full update with data.
    QwtPlotMarker *readMarker() const { return seriesMarkers.isEmpty() ? nullptr : seriesMarkers.first(); }
};

// Sets at the given positions; the set at position x holds x * factor for
// each factor.
inline QList<QwtSetSample> setsAt(const QVector<double> &positions, const QVector<double> &factors)
{
    QList<QwtSetSample> samples;
    for (double x : positions) {
        QVector<double> set;
        for (double factor : factors)
            set.append(x * factor);
        samples.append(QwtSetSample(x, set));
    }
    return samples;
}

// A column symbol whose destruction the tests can see.
class TracedColumnSymbol : public QwtColumnSymbol
{
public:
    explicit TracedColumnSymbol(int *deaths)
        : QwtColumnSymbol(QwtColumnSymbol::Box), m_deaths(deaths) {}
    ~TracedColumnSymbol() override
    {
        if (m_deaths)
            ++*m_deaths;
    }

private:
    int *m_deaths;
};
