// TickLabelFormat::fromJson for every axis id, known or not, on any JSON
// object; what a fresh record reads and writes must come back unchanged from
// a second fresh record, and an unknown axis must touch nothing.

#include "FuzzSupport.h"

#include <figura/attributes/TickLabelFormat.h>

#include <QStringList>

#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QJsonObject document;
    if (!FuzzSupport::readJsonObject(data, size, document))
        return 0;

    struct Axis
    {
        int id;
        const char *prefix;
    };
    const Axis axes[] = {{0, "yLeft"}, {1, "yRight"}, {2, "xBottom"}, {3, "xTop"},
                         {-1, nullptr}, {4, nullptr}, {7, nullptr},
                         {std::numeric_limits<int>::min(), nullptr}};

    for (const Axis &axis : axes) {
        TickLabelFormat fresh;
        fresh.fromJson(axis.id, document);
        QJsonObject written;
        fresh.toJson(axis.id, written);

        if (!axis.prefix) {
            FUZZ_CHECK(fresh == TickLabelFormat(), "unknown axis changed the record");
            FUZZ_CHECK(written.isEmpty(), "unknown axis wrote " + FuzzSupport::compact(written));
            continue;
        }
        const QStringList keys = written.keys();
        for (const QString &key : keys)
            FUZZ_CHECK(key.startsWith(QLatin1String(axis.prefix)), "foreign key " + key.toUtf8());

        TickLabelFormat again;
        again.fromJson(axis.id, written);
        QJsonObject rewritten;
        again.toJson(axis.id, rewritten);
        FUZZ_CHECK(written == rewritten,
                   "wrote " + FuzzSupport::compact(written) + "\nthen " + FuzzSupport::compact(rewritten));

        TickLabelFormat used;
        used.font.setFamily(QStringLiteral("Serif"));
        used.color = Qt::darkCyan;
        used.rotation = -30;
        used.fromJson(axis.id, document);
        TickLabelFormat copy(used);
        copy = copy;
        FUZZ_CHECK(copy == used, "copy differs");
    }
    return 0;
}
