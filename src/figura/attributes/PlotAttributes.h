#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/MarkerLabelFormat.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>

#include <QColor>
#include <QFont>

#include <qwt_text.h>

class QJsonObject;

namespace KelmQtPlot {

// Everything a user may have changed about the look of a plot, as one flat
// JSON object that the host stores with its own documents. The library never
// reads or writes it by itself: the host fills the members, calls toJson,
// and later fromJson.
//
// Every member starts unset, and toJson leaves out what is unset or at its
// default. fromJson still reads the older keys of earlier versions, and a
// missing key either keeps a member (texts of the plot title, fonts,
// colours, the two visibility flags, the peak label rotation) or resets it
// (the numbers, axis title texts, tick label rotations), so reading a
// document into a used record does not give back what was written.
//
// The record holds titles and tick labels of xBottom, yLeft and yRight only.
class FIGURA_EXPORT PlotAttributes
{
public:
    PlotAttributes();
    PlotAttributes(const PlotAttributes &other);
    // Copies everything but defaultTitleFont and defaultAxisTitleFont, which
    // belong to the object as it was constructed.
    PlotAttributes &operator=(const PlotAttributes &other);
    ~PlotAttributes();

    // The member of QwtPlot::xBottom, yLeft or yRight. Any other axis gets an
    // object shared by all records for the life of the process: what is
    // written through it is seen through every record.
    QwtText &axisTitleById(int axisId);
    const QwtText &axisTitleById(int axisId) const;
    TickLabelFormat &tickLabelById(int axisId);
    const TickLabelFormat &tickLabelById(int axisId) const;

    // Adds keys to json, which is not cleared first.
    void toJson(QJsonObject &json) const;
    void fromJson(const QJsonObject &json);

    QwtText plotTitle;          // bold, PlotDefault::PlotTitleFontSize
    QColor canvasColor;
    QColor majorGridColor;
    QColor minorGridColor;
    QColor chartColor;
    qint32 penWidth = 0;        // 0: not set
    double barChartBaseline = -1.0; // -1.0 and below: not set
    qint32 timeFormat = -1;     // a time format code; -1: not set
    qint32 markerVisible = -1;  // 0 or 1; -1: not set
    qint32 markerWidth = -1;    // -1: not set
    QColor markerColor;
    qint32 markerLabelVisible = -1; // 0 or 1; -1: not set
    MarkerLabelFormat markerLabelFormat;
    qint32 peakLabelOpt = -1;   // the host's own; -1: not set
    PeakLabelFormat peakLabelFormat;
    QwtText xAxisTitle;         // QwtPlot::xBottom, PlotDefault::AxisTitleFontSize
    QwtText yAxisTitle;         // QwtPlot::yLeft
    QwtText yRightAxisTitle;    // QwtPlot::yRight
    TickLabelFormat xTickLabel;
    TickLabelFormat yTickLabel;
    TickLabelFormat yRightTickLabel;
    qint32 logScale = -1;       // the host's own; -1: not set
    qint32 dragZoom = -1;       // the host's own; -1: not set
    qint32 autoScroll = -1;     // the host's own; -1: not set

    // What the writer compares the title fonts against; fixed at construction
    // and not part of the document.
    QFont defaultTitleFont;
    QFont defaultAxisTitleFont;

private:
    void axisTitleToJson(int axisId, QJsonObject &json) const;
    void axisTitleFromJson(int axisId, const QJsonObject &json);

    struct Document; // the key table, shared by reader and writer
};

} // namespace KelmQtPlot
