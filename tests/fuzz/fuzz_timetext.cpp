// TimeUtility::timeTextToSeconds on any text (the input as UTF-8), checked
// against a sum of the fields in 64 bits. Inputs of ten bytes or more also
// drive secondsToTimeText with the first eight bytes as the seconds, and the
// text it makes must read back to the rounded seconds, as the custom scale
// dialog relies on.

#include "FuzzSupport.h"

#include <figura/scales/TimeUtility.h>

#include <QString>
#include <QStringList>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

void checkTextToSeconds(const QString &text)
{
    const int untouched = 424242;
    int seconds = untouched;
    const bool ok = TimeUtility::timeTextToSeconds(text, seconds);

    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > 3) {
        FUZZ_CHECK(!ok && seconds == untouched, "more than three fields were read");
        return;
    }
    bool allRead = true;
    qint64 sum = 0;
    for (const QString &part : parts) {
        bool read = false;
        sum = sum * 60 + part.toInt(&read);
        allRead = allRead && read;
    }
    if (ok) {
        FUZZ_CHECK(allRead && sum == seconds,
                   text.toUtf8() + " gave " + QByteArray::number(seconds) + ", expected "
                       + QByteArray::number(sum));
    } else if (allRead) {
        // Every field is a number, so only a sum beyond int can fail.
        FUZZ_CHECK(sum > std::numeric_limits<int>::max() || sum < std::numeric_limits<int>::min(),
                   text.toUtf8() + " refused");
    }
}

void checkSecondsToText(const uint8_t *data)
{
    double value = 0.0;
    std::memcpy(&value, data, sizeof value);
    // Callers use hour widths of 2 and 3 and decimals of 0 or 1; the widths
    // stay small here, since a width of millions is only a large string.
    const int hourWidth = data[8] % 8;
    const int decimals = int(data[9] % 12) - 2;

    int hours = -1;
    int minutes = -1;
    double secs = -1.0;
    TimeUtility::secondsToTime(value, hours, minutes, secs);
    const QString text = TimeUtility::secondsToTimeText(value, hourWidth, decimals);
    FUZZ_CHECK(text.count(QLatin1Char(':')) >= 2, text.toUtf8());

    if (decimals <= 0 && std::isfinite(value) && std::fabs(value) < 1e8) {
        int back = 0;
        const bool ok = TimeUtility::timeTextToSeconds(text, back);
        FUZZ_CHECK(ok && std::fabs(back - value) <= 0.5 + 1e-6,
                   QByteArray::number(value, 'g', 17) + " -> " + text.toUtf8() + " -> "
                       + QByteArray::number(back));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    checkTextToSeconds(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (size >= 10)
        checkSecondsToText(data);
    return 0;
}
