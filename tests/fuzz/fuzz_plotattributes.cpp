// KelmQtPlot::PlotAttributes::fromJson on any JSON object: into a fresh record
// and into one whose every member is set, then written and read once more.
// What a fresh record reads and writes must come back unchanged from a
// second fresh record: the document is a fixed point after one round.

#include "FuzzSupport.h"

#include <figura/attributes/PlotAttributes.h>

#include <QColor>
#include <QFont>
#include <qwt_plot.h>

namespace {

KelmQtPlot::PlotAttributes populated()
{
    KelmQtPlot::PlotAttributes a;
    a.plotTitle.setText(QStringLiteral("Title"));
    a.plotTitle.setColor(QColor(10, 20, 30));
    QFont font(QStringLiteral("Serif"), 17);
    font.setItalic(true);
    a.plotTitle.setFont(font);
    a.canvasColor = QColor(1, 2, 3);
    a.majorGridColor = QColor(4, 5, 6);
    a.minorGridColor = QColor(7, 8, 9);
    a.chartColor = QColor(10, 11, 12);
    a.penWidth = 3;
    a.barChartBaseline = 0.5;
    a.timeFormat = 2;
    a.markerVisible = 1;
    a.markerWidth = 4;
    a.markerColor = QColor(13, 14, 15);
    a.markerLabelVisible = 0;
    a.markerLabelFormat.font = font;
    a.markerLabelFormat.color = QColor(16, 17, 18);
    a.markerLabelFormat.bgColor = QColor(19, 20, 21);
    a.markerLabelFormat.alignment = Qt::AlignLeft;
    a.markerLabelFormat.sortOption = 1;
    a.peakLabelOpt = 5;
    a.peakLabelFormat = PeakLabelFormat(font, QColor(22, 23, 24), -45);
    for (int axis : {QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight}) {
        a.axisTitleById(axis).setText(QStringLiteral("Axis %1").arg(axis));
        a.axisTitleById(axis).setColor(QColor(30 + axis, 40, 50));
        a.axisTitleById(axis).setFont(font);
        a.tickLabelById(axis).font = font;
        a.tickLabelById(axis).color = QColor(60 + axis, 70, 80);
        a.tickLabelById(axis).rotation = 30;
    }
    a.logScale = 1;
    a.dragZoom = 0;
    a.autoScroll = 1;
    return a;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QJsonObject document;
    if (!FuzzSupport::readJsonObject(data, size, document))
        return 0;

    KelmQtPlot::PlotAttributes fresh;
    fresh.fromJson(document);
    QJsonObject written;
    fresh.toJson(written);

    KelmQtPlot::PlotAttributes again;
    again.fromJson(written);
    QJsonObject rewritten;
    again.toJson(rewritten);
    FUZZ_CHECK(written == rewritten,
               "read " + FuzzSupport::compact(document) + "\nwrote " + FuzzSupport::compact(written)
                   + "\nthen " + FuzzSupport::compact(rewritten));

    // A used record: the reader's comparisons with held values take the
    // other branches. Writing into a document that holds other keys must
    // keep them.
    KelmQtPlot::PlotAttributes used = populated();
    used.fromJson(document);
    QJsonObject merged = document;
    used.toJson(merged);
    for (auto it = document.constBegin(); it != document.constEnd(); ++it)
        FUZZ_CHECK(merged.contains(it.key()), "lost key " + it.key().toUtf8());

    KelmQtPlot::PlotAttributes copy(used);
    copy = fresh;
    copy = copy;
    QJsonObject copied;
    copy.toJson(copied);
    FUZZ_CHECK(copied == written, "copy wrote " + FuzzSupport::compact(copied));
    return 0;
}
