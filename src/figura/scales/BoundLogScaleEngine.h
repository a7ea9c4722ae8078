#pragma once

#include <figura/FiguraGlobal.h>

#include <qwt_scale_engine.h>

#include <cfloat>

// A logarithmic scale engine whose autoscaling starts no lower than a floor
// and ends no higher than a ceiling. Where ticks go stays with
// QwtLogScaleEngine; a scale set by hand (divideScale) is not limited.
//
// Hand it to QwtPlot::setAxisScaleEngine; the plot owns it from then on.
class FIGURA_EXPORT BoundLogScaleEngine : public QwtLogScaleEngine
{
public:
    // A floor below QwtLogTransform::LogMin is raised to it here, and only here.
    explicit BoundLogScaleEngine(double floor = 0.0, double ceiling = DBL_MAX);
    ~BoundLogScaleEngine() override;

    // Raises x1 to the floor and lowers x2 to the ceiling, each end on its own,
    // then lets the base class align the result, which may reach beyond the bounds.
    void autoScale(int maxNumSteps, double &x1, double &x2, double &stepSize) const override;

    double floor() const;
    double ceiling() const;

    // Stored as given, zero and negative floors included; new bounds take
    // effect at the next autoscale.
    void setFloor(double floor);
    void setCeiling(double ceiling);

protected:
    double floorValue;
    double ceilingValue;
};
