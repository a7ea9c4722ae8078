#include <figura/scales/ElapsedTimeScaleEngine.h>

#include <cfloat>
#include <iterator>

namespace {

struct StepRow
{
    double widthBelow; // seconds
    double majorStep;  // seconds
    int minorIntervals;
};

const StepRow StepTable[] = {
    {2, 0.2, 4},
    {4, 0.5, 5},
    {11, 1, 4},
    {51, 5, 5},
    {101, 10, 5},
    {151, 15, 3},
    {300, 30, 2},
    {660, 60, 4},
    {3060, 300, 5},
    {6060, 600, 5},
    {9060, 900, 3},
    {18000, 1800, 3},
    {43200, 3600, 4},
    {82800, 7200, 2},
    {122400, 10800, 3},
    {162000, 14400, 4},
    {241200, 21600, 3},
    {432000, 43200, 4},
    {950400, 86400, 4},
    {1814400, 172800, 4},
    {3628800, 345600, 4},
    {6307200, 604800, 7},
    {DBL_MAX, 1209600, 2},
};

} // namespace

ElapsedTimeScaleEngine::ElapsedTimeScaleEngine()
    : OverridableLinearScaleEngine(10)
{
    for (const StepRow &row : StepTable) {
        majorSteps.insert(row.widthBelow, row.majorStep);
        minorSteps.insert(row.majorStep, row.minorIntervals);
    }
}

ElapsedTimeScaleEngine::~ElapsedTimeScaleEngine() = default;

void ElapsedTimeScaleEngine::autoScale(int maxNumSteps, double &x1, double &x2,
                                       double &stepSize) const
{
    if (x1 < 0.0) {
        x2 += -x1;
        x1 = 0.0;
    }
    OverridableLinearScaleEngine::autoScale(maxNumSteps, x1, x2, stepSize);
}

QwtScaleDiv ElapsedTimeScaleEngine::divideScale(double x1, double x2, int maxMajorSteps,
                                                int maxMinorSteps, double stepSize) const
{
    if (x1 < 0.0) {
        x2 += -x1;
        x1 = 0.0;
    }
    return OverridableLinearScaleEngine::divideScale(x1, x2, maxMajorSteps, maxMinorSteps,
                                                     stepSize);
}

double ElapsedTimeScaleEngine::calcMajorStepSize(double intervalSize, int, unsigned int) const
{
    const QList<double> limits = majorSteps.keys();
    if (limits.isEmpty())
        return 0.0;

    // The first limit strictly above the width, searched in the half that
    // holds it.
    const qsizetype n = limits.size();
    const qsizetype mid = n / 2;
    qsizetype from = mid + 1;
    qsizetype to = n - 1;
    if (limits.at(mid) > intervalSize) {
        from = 0;
        to = mid;
    }

    for (qsizetype i = from; i <= to; ++i) {
        if (limits.at(i) > intervalSize) {
            const double step = majorSteps.value(limits.at(i));
            if (step >= 0.0)
                return step;
            break;
        }
    }

    // Reached only by a width of DBL_MAX or more, infinity or NaN. The result
    // is the limit itself, not the last step: such a scale gets no inner ticks.
    return limits.last();
}

double ElapsedTimeScaleEngine::calcMinorStepSize(double stepSize, int, unsigned int) const
{
    if (minorSteps.isEmpty())
        return 0.0;

    int divisor = 1;
    const auto exact = minorSteps.constFind(stepSize);
    if (exact != minorSteps.constEnd() && exact.key() == stepSize) {
        divisor = exact.value();
    } else if (stepSize < minorSteps.firstKey()) {
        divisor = minorSteps.first();
    } else if (stepSize > minorSteps.lastKey()) {
        divisor = 1;
    } else {
        // A step between two keys ends with the divisor of the last row, not
        // of the next key: every entry at or above the step overwrites it.
        // Steps off the table come only from explicit steps, and scales set
        // by hand have always been divided this way.
        for (auto it = minorSteps.constBegin(); it != minorSteps.constEnd(); ++it) {
            if (!(it.key() < stepSize))
                divisor = it.value();
        }
    }

    return stepSize / double(divisor);
}
