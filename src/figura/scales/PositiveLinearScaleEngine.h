#pragma once

#include <figura/FiguraGlobal.h>

#include <qwt_scale_engine.h>

// A linear scale engine, base 10, that never lets a scale start below zero.
// An interval with a negative lower bound is moved up as a whole, so that it
// starts at zero and keeps its width; the upper bound alone is never looked
// at. Plots put it on their x axis, where masses and elapsed times live.
class FIGURA_EXPORT PositiveLinearScaleEngine : public QwtLinearScaleEngine
{
public:
    PositiveLinearScaleEngine();

    void autoScale(int maxNumSteps, double &x1, double &x2, double &stepSize) const override;
    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize = 0.0) const override;
};
