#include <figura/scales/LocalTimeScaleEngine.h>

#include <qwt_interval.h>

#include <QDateTime>
#include <QTime>

#include <cmath>

LocalTimeScaleEngine::LocalTimeScaleEngine() = default;

LocalTimeScaleEngine::~LocalTimeScaleEngine() = default;

void LocalTimeScaleEngine::setReferenceTime(const QDateTime *time)
{
    if (referenceTime != time)
        referenceTime = time;
}

QwtInterval LocalTimeScaleEngine::align(const QwtInterval &interval, double stepSize) const
{
    const QwtInterval aligned = ElapsedTimeScaleEngine::align(interval, stepSize);
    if (!referenceTime || !referenceTime->isValid())
        return aligned;

    // A step that is not positive would never cover the interval in the loop below.
    if (!(stepSize > 0.0) || !std::isfinite(stepSize))
        return aligned;

    // Midnight in the reference's own time zone; the plot's reference is in
    // local time.
    QDateTime midnight = *referenceTime;
    midnight.setTime(QTime(0, 0, 0, 0));

    double offset = 0.0;
    if (stepSize >= 1.0) {
        // The step truncated to int, as clock steps are whole seconds.
        const qint64 modulus = qint64(qMin(stepSize, 2147483647.0));
        qint64 rest = midnight.secsTo(*referenceTime) % modulus;
        if (rest < 0)
            rest += modulus;
        offset = double(rest);
    } else {
        const qint64 modulus = qint64(int(stepSize * 1000.0));
        // Below a millisecond there is nothing to divide by; the table's
        // smallest step is 0.2 s, so only an explicit step gets here.
        if (modulus == 0)
            return aligned;
        qint64 rest = midnight.msecsTo(*referenceTime) % modulus;
        if (rest < 0)
            rest += modulus;
        offset = double(rest) / 1000.0;
    }

    const double lower = aligned.minValue() - offset;
    double upper = aligned.maxValue() - offset;
    while (upper < interval.maxValue()) {
        const double next = upper + stepSize;
        if (!(next > upper))
            break;
        upper = next;
    }

    return QwtInterval(lower, upper);
}
