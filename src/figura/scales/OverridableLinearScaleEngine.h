#pragma once

#include <figura/FiguraGlobal.h>

#include <qwt_scale_div.h>
#include <qwt_scale_engine.h>

#include <QList>

class QwtInterval;

// A QwtLinearScaleEngine whose alignment and step choices are virtual hooks.
//
// QwtLinearScaleEngine keeps align() non-virtual and picks its steps in
// file-local helpers, so a subclass cannot change them. This class repeats
// Qwt's interval handling (margins, reference and symmetry attributes,
// widening of an empty interval, alignment unless Floating, inversion) and
// tick building around three hooks. Their default implementations are Qwt's
// own arithmetic, so that this engine, not overridden, divides exactly as
// QwtLinearScaleEngine does.
class FIGURA_EXPORT OverridableLinearScaleEngine : public QwtLinearScaleEngine
{
public:
    explicit OverridableLinearScaleEngine(uint base = 10);
    ~OverridableLinearScaleEngine() override;

    // Normalises the interval, applies margins and attributes, asks
    // calcMajorStepSize for the step and aligns the bounds through align.
    void autoScale(int maxNumSteps, double &x1, double &x2, double &stepSize) const override;

    // Takes the step from calcMajorStepSize when stepSize is 0, bounds the
    // ticks through align and spaces minor ticks by calcMinorStepSize.
    QwtScaleDiv divideScale(double x1, double x2, int maxMajorSteps, int maxMinorSteps,
                            double stepSize = 0.0) const override;

protected:
    // Widens a normalised interval so that it starts and ends on ticks. Called
    // by autoScale (unless Floating is set) and for the bounds of the major
    // ticks in divideScale, so an override also holds on scales set by hand.
    virtual QwtInterval align(const QwtInterval &interval, double stepSize) const;

    // The major step for an interval of width intervalSize that should hold
    // at most numSteps steps. Called whenever no step is given.
    virtual double calcMajorStepSize(double intervalSize, int numSteps, unsigned int base) const;

    // The distance between minor ticks for a major step that should hold at
    // most numSteps minor steps. Called only when minor ticks are asked for.
    virtual double calcMinorStepSize(double stepSize, int numSteps, unsigned int base) const;

private:
    void buildTicks(const QwtInterval &interval, double stepSize, int maxMinorSteps,
                    QList<double> ticks[QwtScaleDiv::NTickTypes]) const;
    void buildMinorTicks(const QList<double> &majorTicks, int maxMinorSteps, double stepSize,
                         QList<double> &minorTicks, QList<double> &mediumTicks) const;
};
