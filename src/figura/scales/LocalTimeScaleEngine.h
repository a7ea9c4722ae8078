#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/scales/ElapsedTimeScaleEngine.h>

class QDateTime;

// The elapsed time engine for axes of local date and time: axis value x
// stands for the reference time plus x seconds, and ticks are moved so that
// they fall on round clock times (10:18:00 rather than 37 s after 10:17:23).
//
// The reference time belongs to the plot; the engine only reads it. Without a
// valid reference it behaves as ElapsedTimeScaleEngine.
class FIGURA_EXPORT LocalTimeScaleEngine : public ElapsedTimeScaleEngine
{
public:
    LocalTimeScaleEngine();
    ~LocalTimeScaleEngine() override;

    // Stores the pointer; nothing is recomputed until the axis is divided again.
    void setReferenceTime(const QDateTime *time);

protected:
    // The base alignment, shifted down by the reference's time since
    // midnight modulo the step, with the upper bound stepped up again to
    // cover the interval.
    QwtInterval align(const QwtInterval &interval, double stepSize) const override;

    // The date and time that axis value 0 stands for; null at construction.
    const QDateTime *referenceTime = nullptr;
};
