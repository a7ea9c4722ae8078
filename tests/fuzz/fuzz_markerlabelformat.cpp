// KelmQtPlot::MarkerLabelFormat::fromJson on any JSON object: alignment and
// sort option follow their keys (the older "markerSortingOption" first), and
// what a fresh record reads and writes must come back unchanged from a
// second fresh record.

#include "FuzzSupport.h"

#include <figura/attributes/MarkerLabelFormat.h>

#include <QColor>
#include <QFont>
#include <QJsonValue>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QJsonObject document;
    if (!FuzzSupport::readJsonObject(data, size, document))
        return 0;

    KelmQtPlot::MarkerLabelFormat fresh;
    fresh.fromJson(document);
    FUZZ_CHECK(fresh.alignment == document.value(QLatin1String("markerLabelAlignment")).toInt(0),
               QByteArray::number(fresh.alignment));
    const QLatin1String sortKey(document.contains(QLatin1String("markerSortingOption"))
                                    ? "markerSortingOption"
                                    : "markerLabelSortOption");
    FUZZ_CHECK(fresh.sortOption == document.value(sortKey).toInt(-1),
               QByteArray::number(fresh.sortOption));

    QJsonObject written;
    fresh.toJson(written);
    KelmQtPlot::MarkerLabelFormat again;
    again.fromJson(written);
    QJsonObject rewritten;
    again.toJson(rewritten);
    FUZZ_CHECK(written == rewritten,
               "wrote " + FuzzSupport::compact(written) + "\nthen " + FuzzSupport::compact(rewritten));

    KelmQtPlot::MarkerLabelFormat used;
    used.font = QFont(QStringLiteral("Serif"), 15);
    used.color = Qt::darkGreen;
    used.bgColor = Qt::yellow;
    used.alignment = Qt::AlignRight;
    used.sortOption = 2;
    used.fromJson(document);
    KelmQtPlot::MarkerLabelFormat copy(used);
    copy = copy;
    FUZZ_CHECK(copy == used, "copy differs");
    return 0;
}
