#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/scales/OverridableLinearScaleEngine.h>

#include <QMap>

// A linear engine for axes of seconds: the major step comes from a fixed
// table of steps that fall on seconds, minutes, hours and days (15 s, 5 min,
// 6 h, 1 day ...) chosen by the width of the interval alone, each with a
// fixed number of minor intervals. Time does not go below zero on these axes:
// an interval that starts below zero is moved up, keeping its width.
//
// Hand it to QwtPlot::setAxisScaleEngine; the plot owns it from then on.
class FIGURA_EXPORT ElapsedTimeScaleEngine : public OverridableLinearScaleEngine
{
public:
    ElapsedTimeScaleEngine();
    ~ElapsedTimeScaleEngine() override;

    void autoScale(int maxNumSteps, double &x1, double &x2, double &stepSize) const override;
    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize = 0.0) const override;

protected:
    // The step of the first row whose width limit lies strictly above
    // intervalSize. The number of steps and the base are ignored.
    double calcMajorStepSize(double intervalSize, int numSteps, unsigned int base) const override;

    // stepSize divided by the minor interval count of its row. The number of
    // steps and the base are ignored.
    double calcMinorStepSize(double stepSize, int numSteps, unsigned int base) const override;

    // Key: upper limit of interval width in seconds; value: the major step
    // for widths below it. The last limit is DBL_MAX.
    QMap<double, double> majorSteps;
    // Key: a major step in seconds; value: the minor intervals it holds.
    QMap<double, int> minorSteps;
};
