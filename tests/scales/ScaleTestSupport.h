#pragma once

// Comparison helpers shared by the scale engine tests: the result of an
// autoScale call as one record, and scale divisions compared tick by tick,
// with NaN equal to NaN, so that a failure prints what differed.

#include <qwt_scale_div.h>
#include <qwt_scale_engine.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <cmath>

namespace ScaleTest {

inline bool sameDouble(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

struct AutoScaled
{
    double x1 = 0.0;
    double x2 = 0.0;
    double step = 0.0;

    bool operator==(const AutoScaled &o) const
    {
        return sameDouble(x1, o.x1) && sameDouble(x2, o.x2) && sameDouble(step, o.step);
    }
    bool operator!=(const AutoScaled &o) const { return !(*this == o); }
    QString toString() const
    {
        return QStringLiteral("[%1, %2] step %3")
            .arg(x1, 0, 'g', 17)
            .arg(x2, 0, 'g', 17)
            .arg(step, 0, 'g', 17);
    }
};

inline AutoScaled autoScaled(const QwtScaleEngine &engine, double x1, double x2, int maxSteps = 8)
{
    AutoScaled r{x1, x2, -12345.0};
    engine.autoScale(maxSteps, r.x1, r.x2, r.step);
    return r;
}

inline QString ticksText(const QList<double> &ticks)
{
    QStringList parts;
    for (double t : ticks)
        parts << QString::number(t, 'g', 17);
    return parts.join(QStringLiteral(", "));
}

inline QString divText(const QwtScaleDiv &div)
{
    return QStringLiteral("[%1, %2] major {%3} medium {%4} minor {%5}")
        .arg(div.lowerBound(), 0, 'g', 17)
        .arg(div.upperBound(), 0, 'g', 17)
        .arg(ticksText(div.ticks(QwtScaleDiv::MajorTick)),
             ticksText(div.ticks(QwtScaleDiv::MediumTick)),
             ticksText(div.ticks(QwtScaleDiv::MinorTick)));
}

inline bool sameDiv(const QwtScaleDiv &a, const QwtScaleDiv &b)
{
    if (!sameDouble(a.lowerBound(), b.lowerBound()) || !sameDouble(a.upperBound(), b.upperBound()))
        return false;
    for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type) {
        const QList<double> ta = a.ticks(type);
        const QList<double> tb = b.ticks(type);
        if (ta.size() != tb.size())
            return false;
        for (qsizetype i = 0; i < ta.size(); ++i) {
            if (!sameDouble(ta.at(i), tb.at(i)))
                return false;
        }
    }
    return true;
}

} // namespace ScaleTest

#define SCALE_COMPARE_AUTOSCALED(actual, expected)                                                 \
    do {                                                                                           \
        const ScaleTest::AutoScaled a_ = (actual);                                                 \
        const ScaleTest::AutoScaled e_ = (expected);                                               \
        QVERIFY2(a_ == e_, qPrintable(QStringLiteral("actual %1, expected %2")                     \
                                          .arg(a_.toString(), e_.toString())));                    \
    } while (false)

#define SCALE_COMPARE_DIV(actual, expected)                                                        \
    do {                                                                                           \
        const QwtScaleDiv a_ = (actual);                                                           \
        const QwtScaleDiv e_ = (expected);                                                         \
        QVERIFY2(ScaleTest::sameDiv(a_, e_),                                                       \
                 qPrintable(QStringLiteral("\n actual   %1\n expected %2")                         \
                                .arg(ScaleTest::divText(a_), ScaleTest::divText(e_))));            \
    } while (false)
