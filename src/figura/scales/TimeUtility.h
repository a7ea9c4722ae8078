#pragma once

#include <figura/FiguraGlobal.h>

#include <QObject>
#include <QString>

// Conversions between a count of seconds and the hours:minutes:seconds texts
// of time axes, and the time format codes by which a time axis says how it
// reads its numbers: 1 elapsed time, 2 local date and time, -1 no such code.
//
// Every operation is static and stateless. The class is a QObject only so
// that its format names have it as their translation context.
class FIGURA_EXPORT TimeUtility : public QObject
{
    Q_OBJECT

public:
    TimeUtility();

    // Splits seconds into hours, minutes and seconds. Hours are not wrapped at
    // 24, and a negative value comes back as negative seconds only.
    static void secondsToTime(double seconds, int &hours, int &minutes, double &secs);

    // "hh:mm:ss" with hours at least hourWidth digits wide and the seconds
    // with the given number of decimals. Rounded seconds do not carry into the
    // minutes, so 59.6 s reads "00:00:60" with no decimals.
    static QString secondsToTimeText(double seconds, int hourWidth, int decimals);

    // 1 or 2 for the translated names of timeFormatText, -1 for anything else.
    // The comparison keeps case.
    static int timeFormatFromText(const QString &text);

    // The translated name of a time format code; a null string for an unknown code.
    static QString timeFormatText(int format);

    // Seconds as whole milliseconds, truncated toward zero, as a time axis
    // adds them to its reference time. NaN gives 0; a value beyond qint64
    // saturates instead of overflowing.
    static qint64 secondsToMilliseconds(double seconds);

    // Reads "s", "m:s" or "h:m:s" into seconds. With one to three fields
    // seconds is always written, a field that fails to read counting as 0;
    // the result tells whether every field was a number. Other texts leave
    // seconds untouched and give false. Fields are not range-checked.
    static bool timeTextToSeconds(const QString &text, int &seconds);
};
