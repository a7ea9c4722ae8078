#pragma once

// A CurvePlot that opens its protected members to the tests, counts replots
// and records the calls of the virtual read-out operations it passes on.

#include <figura/plots/CurvePlot.h>

#include <QCoreApplication>
#include <QEvent>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QVector>

#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_series_data.h>


class CurvePlotProbe : public CurvePlot
{
public:
    using CurvePlot::CurvePlot;

    using CurvePlot::alignMarkers;
    using CurvePlot::axisValueText;
    using CurvePlot::curvesValue;
    using CurvePlot::displayMarkers;
    using CurvePlot::displaySelectionMarker;
    using CurvePlot::editCurveAct;
    using CurvePlot::hideAllMarkers;
    using CurvePlot::isAnyCurveVisible;
    using CurvePlot::loadToPlotSettingDialog;
    using CurvePlot::saveFromPlotSettingDialog;
    using CurvePlot::markerLabelWidth;
    using CurvePlot::refreshMarkers;
    using CurvePlot::selectSample;
    using CurvePlot::selectSampleWithKey;
    using CurvePlot::setAllMarkersAttrs;
    using CurvePlot::setLegend;
    using CurvePlot::shiftMarkers;
    using CurvePlot::sortMarkerItems;
    using CurvePlot::togglePlotItem;
    using VoidPlot::marker;
    using VoidPlot::markerLabel;
    using VoidPlot::selectionMarker;
    using VoidPlot::selectionMarkerLabel;
    using VoidPlot::seriesMarkers;

    struct DisplayCall {
        int pos;
        QPointF value;
    };
    QList<DisplayCall> displayCalls;
    QList<DisplayCall> selectionCalls;
    int replots = 0;

    void replot() override
    {
        ++replots;
        CurvePlot::replot();
    }

    // A new widget gets a polish request posted, and QwtPlot answers it with
    // a replot: deliver it and start counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
        displayCalls.clear();
        selectionCalls.clear();
    }

    void displayMarkers(int pos, const QPointF &value) override
    {
        displayCalls.append({pos, value});
        CurvePlot::displayMarkers(pos, value);
    }
    void displaySelectionMarker(int pos, const QPointF &value) override
    {
        selectionCalls.append({pos, value});
        CurvePlot::displaySelectionMarker(pos, value);
    }
};

// A curve whose destruction the tests can see.
class TracedCurve : public QwtPlotCurve
{
public:
    explicit TracedCurve(const QString &title, int *deaths)
        : QwtPlotCurve(title), m_deaths(deaths) {}
    ~TracedCurve() override
    {
        if (m_deaths)
            ++*m_deaths;
    }

private:
    int *m_deaths;
};

// Series data that computes its samples and counts how many were read, so
// that tests can see that a search bisects instead of scanning.
class CountingSeries : public QwtSeriesData<QPointF>
{
public:
    // Samples at x = offset + i * step, y = yScale * (i + 1).
    CountingSeries(size_t size, double offset = 0.0, double step = 1.0, double yScale = 1.0)
        : m_size(size), m_offset(offset), m_step(step), m_yScale(yScale) {}

    size_t size() const override { return m_size; }
    QPointF sample(size_t i) const override
    {
        ++reads;
        return QPointF(m_offset + double(i) * m_step, m_yScale * double(i + 1));
    }
    QRectF boundingRect() const override
    {
        if (m_size == 0)
            return QRectF(1.0, 1.0, -2.0, -2.0);
        const double last = m_offset + double(m_size - 1) * m_step;
        return QRectF(m_offset, m_yScale, last - m_offset, m_yScale * double(m_size - 1));
    }

    mutable long reads = 0;

private:
    size_t m_size;
    double m_offset;
    double m_step;
    double m_yScale;
};

inline QwtPlotCurve *makeCurve(const QString &title, const QVector<QPointF> &samples)
{
    auto *curve = new QwtPlotCurve(title);
    curve->setSamples(samples);
    return curve;
}
