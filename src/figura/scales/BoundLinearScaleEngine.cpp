#include <figura/scales/BoundLinearScaleEngine.h>

BoundLinearScaleEngine::BoundLinearScaleEngine(double floor, double ceiling)
    : QwtLinearScaleEngine(10)
    , floorValue(floor)
    , ceilingValue(ceiling)
{
}

BoundLinearScaleEngine::~BoundLinearScaleEngine() = default;

void BoundLinearScaleEngine::autoScale(int maxNumSteps, double &x1, double &x2,
                                       double &stepSize) const
{
    // Each end is compared with its own bound only, and a reversed interval is
    // not put in order first: the ends may cross, and the base class sorts that out.
    if (floorValue > x1)
        x1 = floorValue;
    if (x2 > ceilingValue)
        x2 = ceilingValue;

    QwtLinearScaleEngine::autoScale(maxNumSteps, x1, x2, stepSize);
}

double BoundLinearScaleEngine::floor() const
{
    return floorValue;
}

double BoundLinearScaleEngine::ceiling() const
{
    return ceilingValue;
}

void BoundLinearScaleEngine::setFloor(double floor)
{
    floorValue = floor;
}

void BoundLinearScaleEngine::setCeiling(double ceiling)
{
    ceilingValue = ceiling;
}
