#include <figura/scales/PositiveLinearScaleEngine.h>

#include <qwt_scale_div.h>

PositiveLinearScaleEngine::PositiveLinearScaleEngine()
    : QwtLinearScaleEngine(10)
{
}

void PositiveLinearScaleEngine::autoScale(int maxNumSteps, double &x1, double &x2,
                                          double &stepSize) const
{
    if (x1 < 0.0) {
        x2 += -x1;
        x1 = 0.0;
    }
    QwtLinearScaleEngine::autoScale(maxNumSteps, x1, x2, stepSize);
}

QwtScaleDiv PositiveLinearScaleEngine::divideScale(double x1, double x2, int maxMajorSteps,
                                                   int maxMinorSteps, double stepSize) const
{
    if (x1 < 0.0) {
        x2 += -x1;
        x1 = 0.0;
    }
    return QwtLinearScaleEngine::divideScale(x1, x2, maxMajorSteps, maxMinorSteps, stepSize);
}
