#include <figura/scales/OverridableLinearScaleEngine.h>

#include <qwt_interval.h>
#include <qwt_math.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

// Minor ticks per major step beyond which none are built: a hook that
// returns a tiny minor step must not make the engine allocate without end.
constexpr double MaxMinorTicksPerStep = 10000.0;

} // namespace

OverridableLinearScaleEngine::OverridableLinearScaleEngine(uint base)
    : QwtLinearScaleEngine(base)
{
}

OverridableLinearScaleEngine::~OverridableLinearScaleEngine() = default;

void OverridableLinearScaleEngine::autoScale(int maxNumSteps, double &x1, double &x2,
                                             double &stepSize) const
{
    QwtInterval interval = QwtInterval(x1, x2).normalized();

    interval.setMinValue(interval.minValue() - lowerMargin());
    interval.setMaxValue(interval.maxValue() + upperMargin());

    if (testAttribute(QwtScaleEngine::Symmetric))
        interval = interval.symmetrize(reference());

    if (testAttribute(QwtScaleEngine::IncludeReference))
        interval = interval.extend(reference());

    if (interval.width() == 0.0)
        interval = buildInterval(interval.minValue());

    stepSize = calcMajorStepSize(interval.width(), qMax(maxNumSteps, 1), base());

    if (!testAttribute(QwtScaleEngine::Floating))
        interval = align(interval, stepSize);

    x1 = interval.minValue();
    x2 = interval.maxValue();

    if (testAttribute(QwtScaleEngine::Inverted)) {
        std::swap(x1, x2);
        stepSize = -stepSize;
    }
}

QwtScaleDiv OverridableLinearScaleEngine::divideScale(double x1, double x2, int maxMajorSteps,
                                                      int maxMinorSteps, double stepSize) const
{
    const QwtInterval interval = QwtInterval(x1, x2).normalized();

    if (interval.widthL() > std::numeric_limits<double>::max())
        return QwtScaleDiv();

    if (interval.width() <= 0)
        return QwtScaleDiv();

    stepSize = qAbs(stepSize);
    if (stepSize == 0.0)
        stepSize = calcMajorStepSize(interval.width(), qMax(maxMajorSteps, 1), base());

    QwtScaleDiv scaleDiv;
    if (stepSize != 0.0) {
        QList<double> ticks[QwtScaleDiv::NTickTypes];
        buildTicks(interval, stepSize, maxMinorSteps, ticks);
        scaleDiv = QwtScaleDiv(interval, ticks);
    }

    if (x1 > x2)
        scaleDiv.invert();

    return scaleDiv;
}

QwtInterval OverridableLinearScaleEngine::align(const QwtInterval &interval, double stepSize) const
{
    return QwtLinearScaleEngine::align(interval, stepSize);
}

double OverridableLinearScaleEngine::calcMajorStepSize(double intervalSize, int numSteps,
                                                       unsigned int base) const
{
    return QwtScaleArithmetic::divideInterval(intervalSize, numSteps, base);
}

double OverridableLinearScaleEngine::calcMinorStepSize(double stepSize, int numSteps,
                                                       unsigned int base) const
{
    const double minStep = QwtScaleArithmetic::divideInterval(stepSize, numSteps, base);
    if (minStep != 0.0) {
        const int numTicks = qwtCeil(qAbs(stepSize / minStep)) - 1;

        // When the minor steps do not fit into the major step, halve it instead.
        if (qwtFuzzyCompare((numTicks + 1) * qAbs(minStep), qAbs(stepSize), stepSize) > 0)
            return 0.5 * stepSize;
    }
    return minStep;
}

void OverridableLinearScaleEngine::buildTicks(const QwtInterval &interval, double stepSize,
                                              int maxMinorSteps,
                                              QList<double> ticks[QwtScaleDiv::NTickTypes]) const
{
    const QwtInterval boundingInterval = align(interval, stepSize);

    ticks[QwtScaleDiv::MajorTick] = buildMajorTicks(boundingInterval, stepSize);

    if (maxMinorSteps > 0) {
        buildMinorTicks(ticks[QwtScaleDiv::MajorTick], maxMinorSteps, stepSize,
                        ticks[QwtScaleDiv::MinorTick], ticks[QwtScaleDiv::MediumTick]);
    }

    for (int i = 0; i < QwtScaleDiv::NTickTypes; ++i) {
        ticks[i] = strip(ticks[i], interval);

        // Sums of steps miss zero by rounding errors; a tick that close is zero.
        for (double &tick : ticks[i]) {
            if (qwtFuzzyCompare(tick, 0.0, stepSize) == 0)
                tick = 0.0;
        }
    }
}

void OverridableLinearScaleEngine::buildMinorTicks(const QList<double> &majorTicks,
                                                   int maxMinorSteps, double stepSize,
                                                   QList<double> &minorTicks,
                                                   QList<double> &mediumTicks) const
{
    const double minStep = calcMinorStepSize(stepSize, maxMinorSteps, base());
    if (minStep == 0.0 || !std::isfinite(minStep))
        return;

    const double ratio = qAbs(stepSize / minStep);
    if (!(ratio <= MaxMinorTicksPerStep))
        return;

    // Ticks per major step, the major tick not counted.
    const int numTicks = qwtCeil(ratio) - 1;

    // With an odd count the middle one is a medium tick.
    const int medIndex = (numTicks % 2) ? numTicks / 2 : -1;

    for (const double majorTick : majorTicks) {
        double val = majorTick;
        for (int k = 0; k < numTicks; ++k) {
            val += minStep;

            const double alignedValue = qwtFuzzyCompare(val, 0.0, stepSize) == 0 ? 0.0 : val;
            if (k == medIndex)
                mediumTicks += alignedValue;
            else
                minorTicks += alignedValue;
        }
    }
}
