#pragma once

#include <figura/FiguraGlobal.h>

#include <qwt_scale_engine.h>

#include <cfloat>

// A linear scale engine whose autoscaling starts no lower than a floor and
// ends no higher than a ceiling. Where ticks go stays with QwtLinearScaleEngine;
// a scale set by hand (divideScale) is not limited.
//
// Hand it to QwtPlot::setAxisScaleEngine; the plot owns it from then on.
class FIGURA_EXPORT BoundLinearScaleEngine : public QwtLinearScaleEngine
{
public:
    explicit BoundLinearScaleEngine(double floor = -2147483648.0, double ceiling = DBL_MAX);
    ~BoundLinearScaleEngine() override;

    // Raises x1 to the floor and lowers x2 to the ceiling, each end on its own,
    // then lets the base class align the result. The base may widen the
    // interval beyond the bounds by up to a step; that is not clipped again.
    void autoScale(int maxNumSteps, double &x1, double &x2, double &stepSize) const override;

    double floor() const;
    double ceiling() const;

    // New bounds take effect at the next autoscale; nothing is checked or redrawn.
    void setFloor(double floor);
    void setCeiling(double ceiling);

protected:
    double floorValue;
    double ceilingValue;
};
