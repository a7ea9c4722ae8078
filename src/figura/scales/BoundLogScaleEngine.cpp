#include <figura/scales/BoundLogScaleEngine.h>

#include <qwt_transform.h>

#include <QtGlobal>

BoundLogScaleEngine::BoundLogScaleEngine(double floor, double ceiling)
    : QwtLogScaleEngine(10)
    , floorValue(qMax(QwtLogTransform::LogMin, floor))
    , ceilingValue(ceiling)
{
}

BoundLogScaleEngine::~BoundLogScaleEngine() = default;

void BoundLogScaleEngine::autoScale(int maxNumSteps, double &x1, double &x2,
                                    double &stepSize) const
{
    // Each end is compared with its own bound only; see BoundLinearScaleEngine.
    if (floorValue > x1)
        x1 = floorValue;
    if (x2 > ceilingValue)
        x2 = ceilingValue;

    QwtLogScaleEngine::autoScale(maxNumSteps, x1, x2, stepSize);
}

double BoundLogScaleEngine::floor() const
{
    return floorValue;
}

double BoundLogScaleEngine::ceiling() const
{
    return ceilingValue;
}

void BoundLogScaleEngine::setFloor(double floor)
{
    floorValue = floor;
}

void BoundLogScaleEngine::setCeiling(double ceiling)
{
    ceilingValue = ceiling;
}
