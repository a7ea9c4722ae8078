// PeakLabelFormat::fromJson on any JSON object: a rotation it takes lies in
// -90..90, and what a fresh record reads and writes must come back unchanged
// from a second fresh record.

#include "FuzzSupport.h"

#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/UnsetValue.h>

#include <QColor>
#include <QFont>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QJsonObject document;
    if (!FuzzSupport::readJsonObject(data, size, document))
        return 0;

    PeakLabelFormat fresh;
    fresh.fromJson(document);
    FUZZ_CHECK(fresh.textRotation() == Figura::UnsetValue
                   || (fresh.textRotation() >= -90 && fresh.textRotation() <= 90),
               QByteArray::number(fresh.textRotation()));
    QJsonObject written;
    fresh.toJson(written);

    // Compared as JSON: QFont::fromString(toString()) need not give back an
    // equal QFont (a family that fontconfig substitutes, say).
    PeakLabelFormat again;
    again.fromJson(written);
    QJsonObject rewritten;
    again.toJson(rewritten);
    FUZZ_CHECK(written == rewritten,
               "wrote " + FuzzSupport::compact(written) + "\nthen " + FuzzSupport::compact(rewritten));

    PeakLabelFormat used(QFont(QStringLiteral("Serif"), 15), Qt::darkRed, 120);
    used.fromJson(document);
    PeakLabelFormat copy;
    copy = used;
    copy = copy;
    FUZZ_CHECK(copy == used, "copy differs");
    copy.setTextRotation(used.textRotation() == 1 ? 2 : 1);
    FUZZ_CHECK(copy != used, "copies share their data");
    return 0;
}
