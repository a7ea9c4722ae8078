#pragma once

// A TimeCurvePlot that opens its protected members to the tests, counts
// replots and records left clicks and title updates of a host's override.

#include <figura/plots/TimeCurvePlot.h>
#include <figura/scales/TimeScaleDraw.h>

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPointF>
#include <QStringList>
#include <QVector>

#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

class TimeCurvePlotProbe : public TimeCurvePlot
{
public:
    using TimeCurvePlot::TimeCurvePlot;

    using CurvePlot::alignMarkers;
    using CurvePlot::displayMarkers;
    using CurvePlot::selectSample;
    using CurvePlot::selectSampleWithKey;
    using TimeCurvePlot::axisValueText;
    using TimeCurvePlot::elapsedTitle;
    using TimeCurvePlot::loadToPlotSettingDialog;
    using TimeCurvePlot::localTitle;
    using TimeCurvePlot::referenceTime;
    using TimeCurvePlot::saveFromPlotSettingDialog;
    using TimeCurvePlot::timeScaleDraw;
    using TimeCurvePlot::updateTimeFormat;
    using VoidPlot::defaultAxisTitleText;
    using VoidPlot::grid;
    using VoidPlot::marker;
    using VoidPlot::selectionMarker;
    using VoidPlot::seriesMarkers;
    using VoidPlot::xScaleType;

    int replots = 0;
    int leftClicks = 0;
    QStringList titleUpdates; // formats that reached the override
    bool selectOnLeftClick = false;

    void replot() override
    {
        ++replots;
        TimeCurvePlot::replot();
    }

    // Delivers the polish request that a new widget has pending, which
    // QwtPlot answers with a replot, and starts counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
    }

    // Sets a fixed x scale and divides it at once, without a replot.
    void setXScale(double lower, double upper)
    {
        setAxisScale(QwtPlot::xBottom, lower, upper, 0.0);
        updateAxes();
    }

    QList<double> majorTicks() const
    {
        return axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick);
    }

protected:
    void onMouseLeftClicked(QMouseEvent *event) override
    {
        ++leftClicks;
        if (selectOnLeftClick)
            selectSample(event->position().toPoint().x());
    }

public:
    void updateTimeAxisTitle(const QString &format) override
    {
        titleUpdates.append(format);
        TimeCurvePlot::updateTimeAxisTitle(format);
    }
};

// Samples at x = 0, step, 2 * step ... with y = 1 + index.
inline QwtPlotCurve *timeCurve(const QString &title, int count, double step)
{
    QVector<QPointF> samples;
    for (int i = 0; i < count; ++i)
        samples.append(QPointF(i * step, 1.0 + i));
    auto *curve = new QwtPlotCurve(title);
    curve->setSamples(samples);
    return curve;
}
