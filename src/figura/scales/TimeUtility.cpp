#include <figura/scales/TimeUtility.h>

#include <QStringList>

#include <cmath>
#include <limits>

namespace {

// Truncates toward zero like a cast to int, but saturates instead of being
// undefined for values outside the range of int (and gives 0 for NaN).
int truncatedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (value <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(value);
}

} // namespace

TimeUtility::TimeUtility()
    : QObject(nullptr)
{
}

void TimeUtility::secondsToTime(double seconds, int &hours, int &minutes, double &secs)
{
    hours = 0;
    minutes = 0;
    secs = 0.0;

    if (seconds < 60.0) {
        secs = seconds;
        return;
    }

    if (seconds / 60.0 < 60.0) {
        minutes = truncatedToInt(seconds / 60.0);
        secs = seconds - minutes * 60.0;
        return;
    }

    hours = truncatedToInt(seconds / 3600.0);
    minutes = truncatedToInt((seconds - hours * 3600.0) / 60.0);
    secs = seconds - hours * 3600.0 - minutes * 60.0;
}

QString TimeUtility::secondsToTimeText(double seconds, int hourWidth, int decimals)
{
    int hours = 0;
    int minutes = 0;
    double secs = 0.0;
    secondsToTime(seconds, hours, minutes, secs);

    // A negative count means no decimals, not QString's default precision.
    decimals = qMax(decimals, 0);
    const int secondsWidth = decimals < 1 ? 2 : decimals + 3;
    const QLatin1Char zero('0');
    return QStringLiteral("%1:%2:%3")
        .arg(hours, hourWidth, 10, zero)
        .arg(minutes, 2, 10, zero)
        .arg(secs, secondsWidth, 'f', decimals, zero);
}

int TimeUtility::timeFormatFromText(const QString &text)
{
    if (text == tr("Elapsed time"))
        return 1;
    if (text == tr("Local date/time"))
        return 2;
    return -1;
}

QString TimeUtility::timeFormatText(int format)
{
    switch (format) {
    case 1:
        return tr("Elapsed time");
    case 2:
        return tr("Local date/time");
    default:
        return QString();
    }
}

qint64 TimeUtility::secondsToMilliseconds(double seconds)
{
    const double ms = seconds * 1000.0;
    if (std::isnan(ms))
        return 0;
    // 9.2e18 is just inside qint64, whose limits a double cannot hold exactly.
    if (ms >= 9.2e18)
        return std::numeric_limits<qint64>::max();
    if (ms <= -9.2e18)
        return std::numeric_limits<qint64>::min();
    return qint64(ms);
}

bool TimeUtility::timeTextToSeconds(const QString &text, int &seconds)
{
    const QStringList parts = text.split(QLatin1Char(':'), Qt::KeepEmptyParts, Qt::CaseSensitive);
    if (parts.isEmpty() || parts.size() > 3)
        return false;

    // Summed in 64 bits: a sum that does not fit into an int is no time either.
    bool allRead = true;
    qint64 total = 0;
    for (const QString &part : parts) {
        bool ok = false;
        const int field = part.toInt(&ok, 10);
        allRead = allRead && ok;
        total = total * 60 + field;
        if (total > std::numeric_limits<int>::max() || total < std::numeric_limits<int>::min()) {
            allRead = false;
            total = total > 0 ? std::numeric_limits<int>::max() : std::numeric_limits<int>::min();
        }
    }

    seconds = int(total);
    return allRead;
}
