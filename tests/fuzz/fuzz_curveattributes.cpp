// KelmQtPlot::CurveAttributes::fromJson on any JSON object, both as the
// enclosing document and as the "curveAttrs" object itself. A written
// document comes back unchanged from a second fresh record, with one known
// difference: a written "lineColor" without "symbolColor" gives the line
// colour to the symbols as well.

#include "FuzzSupport.h"

#include <figura/attributes/CurveAttributes.h>

#include <QColor>

namespace {

const QLatin1String CurveAttrsKey("curveAttrs");

void check(const QJsonObject &document)
{
    KelmQtPlot::CurveAttributes fresh;
    fresh.fromJson(document);
    QJsonObject written;
    fresh.toJson(written);
    FUZZ_CHECK(written.isEmpty() || (written.size() == 1 && written.value(CurveAttrsKey).isObject()),
               "wrote " + FuzzSupport::compact(written));

    KelmQtPlot::CurveAttributes again;
    again.fromJson(written);
    QJsonObject rewritten;
    again.toJson(rewritten);

    QJsonObject expected = written;
    QJsonObject inner = written.value(CurveAttrsKey).toObject();
    if (inner.contains(QLatin1String("lineColor")) && !inner.contains(QLatin1String("symbolColor"))) {
        inner.insert(QLatin1String("symbolColor"), inner.value(QLatin1String("lineColor")));
        expected.insert(CurveAttrsKey, inner);
    }
    FUZZ_CHECK(rewritten == expected,
               "read " + FuzzSupport::compact(document) + "\nwrote " + FuzzSupport::compact(written)
                   + "\nthen " + FuzzSupport::compact(rewritten));

    KelmQtPlot::CurveAttributes used;
    used.setDefaults();
    used.fromJson(document);
    KelmQtPlot::CurveAttributes copy(used);
    copy = copy;
    FUZZ_CHECK(copy == used, "copy differs");
    // A document without "curveAttrs" or with an empty one changes nothing.
    if (document.value(CurveAttrsKey).toObject().isEmpty()) {
        KelmQtPlot::CurveAttributes defaults;
        defaults.setDefaults();
        FUZZ_CHECK(used == defaults, "changed by " + FuzzSupport::compact(document));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QJsonObject document;
    if (!FuzzSupport::readJsonObject(data, size, document))
        return 0;
    check(document);
    check(QJsonObject{{CurveAttrsKey, document}});
    return 0;
}
