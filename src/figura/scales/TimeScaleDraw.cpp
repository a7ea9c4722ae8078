#include <figura/scales/TimeScaleDraw.h>

#include <figura/scales/TimeUtility.h>

#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <QDateTime>
#include <QRegularExpression>

#include <cmath>

namespace {

// Spans in seconds at which the labels change.
constexpr double MillisecondSpan = 4.0;    // below: seconds with milliseconds
constexpr double SecondSpan = 300.0;       // below: whole seconds
constexpr double DaySpan = 432000.0;       // from here (5 days): no clock part
constexpr double WeekSpan = 3628800.0;     // from here (6 weeks): whole weeks

// Local date and time.
constexpr double LocalMillisecondSpan = 4.0;
constexpr double LocalSecondSpan = 11.0;
constexpr double LocalTwoLineSpan = 300.0;

constexpr double ZeroTolerance = 1e-12;

const QRegularExpression &millisecondsPattern()
{
    static const QRegularExpression re(QStringLiteral("\\d\\d:\\d\\d:\\d\\d\\.\\d\\d\\d"));
    return re;
}

const QRegularExpression &secondsPattern()
{
    static const QRegularExpression re(QStringLiteral("\\d\\d:\\d\\d:\\d\\d"));
    return re;
}

const QRegularExpression &minutesPattern()
{
    static const QRegularExpression re(QStringLiteral("\\d\\d:\\d\\d"));
    return re;
}

// The name of the clock format of a label, or an empty string.
QString clockFormatName(const QString &label)
{
    if (label.contains(millisecondsPattern()))
        return QStringLiteral("hh:mm:ss.fff");
    if (label.contains(secondsPattern()))
        return QStringLiteral("hh:mm:ss");
    if (label.contains(minutesPattern()))
        return QStringLiteral("hh:mm");
    return QString();
}

} // namespace

TimeScaleDraw::TimeScaleDraw()
    : QObject(nullptr)
    , labelFormat(new QString)
{
}

TimeScaleDraw::~TimeScaleDraw()
{
    delete labelFormat;
}

void TimeScaleDraw::setReferenceTime(const QDateTime *time)
{
    referenceTime = time;
    invalidateCache();
}

void TimeScaleDraw::setTimeFormat(int format, const QDateTime *reference)
{
    timeFormat = format;
    if (format == 2 && reference)
        referenceTime = reference;
    invalidateCache();
}

void TimeScaleDraw::draw(QPainter *painter, const QPalette &palette) const
{
    QwtAbstractScaleDraw::draw(painter, palette);
    updateLabelFormat();
}

QwtText TimeScaleDraw::label(double value) const
{
    const QString text = timeFormat == 2 ? localTimeText(value) : elapsedTimeText(value);
    return QwtText(text, QwtText::AutoText);
}

QString TimeScaleDraw::localTimeText(double value) const
{
    QDateTime time;
    if (referenceTime && referenceTime->isValid())
        time = referenceTime->addMSecs(TimeUtility::secondsToMilliseconds(value));

    const double span = scaleDiv().range();
    // The blanks ahead of the two-line formats centre the clock over the date.
    QString format;
    if (span < LocalMillisecondSpan)
        format = QStringLiteral("hh:mm:ss.zzz");
    else if (span < LocalSecondSpan)
        format = QStringLiteral("hh:mm:ss");
    else if (span < LocalTwoLineSpan)
        format = QStringLiteral(" hh:mm:ss\nyyyy-MM-dd");
    else if (span < DaySpan)
        format = QStringLiteral("   hh:mm\nyyyy-MM-dd");
    else
        format = QStringLiteral("yyyy-MM-dd");

    return time.toString(format);
}

QString TimeScaleDraw::elapsedTimeText(double value) const
{
    const double absolute = std::fabs(value);
    int hours = 0;
    int minutes = 0;
    double seconds = 0.0;
    TimeUtility::secondsToTime(absolute, hours, minutes, seconds);

    const double span = scaleDiv().range();

    // Zero itself reads with whole seconds even on the finest span.
    int secondsWidth = 2;
    int decimals = 0;
    if (absolute > ZeroTolerance && span < MillisecondSpan) {
        secondsWidth = 6;
        decimals = 3;
    }

    // Exactly 24 hours, or 24 hours and whole minutes, read as "24:00" or
    // "24:30" on spans below five days; the day count starts only later.
    // Users read a day's end this way, so the asymmetry stays.
    int days = 0;
    if (hours > 24 || (hours == 24 && minutes > 0 && seconds > 0)
        || (hours == 24 && span >= DaySpan)) {
        days = hours / 24;
        hours = hours % 24;
    }

    const QLatin1Char zero('0');
    QString text;
    if (span < DaySpan) {
        text = QStringLiteral("%1:%2").arg(hours, 2, 10, zero).arg(minutes, 2, 10, zero);
        if (span < SecondSpan)
            text += QStringLiteral(":%1").arg(seconds, secondsWidth, 'f', decimals, zero);
    }

    if (days > 0) {
        const QLatin1Char blank(' ');
        if (text == QLatin1String("00:00")) {
            text = QObject::tr("%1d").arg(days, 0, 10, blank);
        } else {
            const QString clock = text.isEmpty() ? text : QLatin1Char(' ') + text;
            text = QObject::tr("%1d%2").arg(QString::number(days), clock);
        }
        if (span >= WeekSpan)
            text = QStringLiteral("%1w").arg(days / 7, 0, 10, blank);
    }

    // A negative tick has no label at all.
    if (value < 0.0)
        text.clear();

    return text;
}

void TimeScaleDraw::updateLabelFormat() const
{
    const QwtScaleDiv &div = scaleDiv();
    const QList<double> ticks = div.ticks(QwtScaleDiv::MajorTick);

    // From the largest visible time down: a tick with an empty label leaves
    // the last label open for the next one.
    QString last;
    QString secondLast;
    for (auto it = ticks.crbegin(); it != ticks.crend(); ++it) {
        if (!div.contains(*it))
            continue;
        if (last.isEmpty()) {
            last = label(*it).text();
        } else {
            secondLast = label(*it).text();
            break;
        }
    }

    QString name = clockFormatName(last);

    if (timeFormat != 2) {
        static const QRegularExpression dayPattern(QStringLiteral("\\d+d"));
        static const QRegularExpression weekPattern(QStringLiteral("\\d+w"));
        if (last.contains(dayPattern)) {
            // "2d" after "1d 12:00": the clock format is read from the tick before.
            if (!name.isEmpty()) {
                name.prepend(QLatin1String("day "));
            } else {
                const QString before = clockFormatName(secondLast);
                name = before.isEmpty() ? QStringLiteral("day")
                                        : QLatin1String("day ") + before;
            }
        } else if (last.contains(weekPattern)) {
            name = QStringLiteral("week");
        }
    } else {
        static const QRegularExpression datePattern(QStringLiteral("\\d\\d\\d\\d-\\d\\d-\\d\\d"));
        if (last.contains(datePattern))
            name += QLatin1String(" YYYY-MM-DD");
    }

    name = name.trimmed();
    if (name != *labelFormat) {
        *labelFormat = name;
        Q_EMIT const_cast<TimeScaleDraw *>(this)->labelFormatChanged(name);
    }
}
