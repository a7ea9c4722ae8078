#include <figura/attributes/PlotAttributes.h>

#include <figura/attributes/AttributeJson.h>
#include <figura/defaults/PlotDefault.h>

#include <QJsonObject>
#include <QJsonValue>

#include <qwt_plot.h>

#include <variant>

namespace KelmQtPlot {

namespace {

// Stand-ins for the axes the record has no member for. Built on first use,
// when the application (and its font) exists.
QwtText &sharedAxisTitle()
{
    static QwtText title;
    return title;
}

TickLabelFormat &sharedTickLabel()
{
    static TickLabelFormat format;
    return format;
}

} // namespace

// The document, one row per key or group of keys, in the order in which
// toJson writes and fromJson reads. Each row type keeps its writing and its
// reading side by side.
//
// A missing key is treated in one of two ways on purpose. Numbers are
// written only when set, so their absence means "unset" and they are reset.
// Texts, fonts and colours of titles and formats are kept, so that a partial
// document changes only what it names.
struct PlotAttributes::Document
{
    // "plotTitleText", "plotTitleFont", "plotTitleColor", and the older
    // "plotTitle", read only. The newer text key wins over the older one, and
    // an empty text is not read: a plot always keeps its title.
    struct PlotTitle
    {
    };

    // Written when valid. Read without a validity check, so that a text that
    // names no colour unsets the member: the host then uses its own default.
    struct Color
    {
        QLatin1String key;
        QColor PlotAttributes::*member;
    };

    // Written when above `unset`, read with `unset` as the fall-back, so a
    // missing key or a value of another JSON type unsets the member.
    struct Number
    {
        QLatin1String key;
        qint32 PlotAttributes::*member;
        qint32 unset;
    };

    // As Number, for a double. NaN is never written.
    struct Real
    {
        QLatin1String key;
        double PlotAttributes::*member;
        double unset;
    };

    // A visibility flag, written as a Number with unset -1. Earlier versions
    // wrote the opposite flag under `olderHiddenKey`, read only when the newer
    // key is missing: 1 there means hidden, anything else shown. Without
    // either key the member is kept.
    struct Flag
    {
        QLatin1String key;
        QLatin1String olderHiddenKey;
        qint32 PlotAttributes::*member;
    };

    struct MarkerLabel
    {
    };
    struct PeakLabel
    {
    };

    // See axisTitleToJson and axisTitleFromJson.
    struct AxisTitle
    {
        int axisId;
    };

    struct TickLabel
    {
        int axisId;
    };

    using Row = std::variant<PlotTitle, Color, Number, Real, Flag, MarkerLabel, PeakLabel,
                             AxisTitle, TickLabel>;

    static const Row rows[];

    static void write(const PlotAttributes &attrs, QJsonObject &json, const PlotTitle &);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const PlotTitle &);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const Color &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const Color &row);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const Number &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const Number &row);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const Real &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const Real &row);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const Flag &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const Flag &row);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const MarkerLabel &);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const MarkerLabel &);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const PeakLabel &);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const PeakLabel &);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const AxisTitle &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const AxisTitle &row);
    static void write(const PlotAttributes &attrs, QJsonObject &json, const TickLabel &row);
    static void read(PlotAttributes &attrs, const QJsonObject &json, const TickLabel &row);

    // Suffixes of the axis title keys, behind the axis prefix.
    static const QLatin1String axisTitleTextKey;
    static const QLatin1String axisTitleFontKey;
    static const QLatin1String axisTitleColorKey;

    // Keys that earlier versions wrote for the bottom and left axis titles;
    // empty for other axes. Read only, and, unlike the plot title's older key,
    // they win over the newer keys when both stand there.
    static QLatin1String olderAxisTitleTextKey(int axisId);
    static QLatin1String olderAxisTitleColorKey(int axisId);
};

const PlotAttributes::Document::Row PlotAttributes::Document::rows[] = {
    PlotTitle{},
    Color{QLatin1String("canvasColor"), &PlotAttributes::canvasColor},
    Color{QLatin1String("majorGridColor"), &PlotAttributes::majorGridColor},
    Color{QLatin1String("minorGridColor"), &PlotAttributes::minorGridColor},
    Color{QLatin1String("chartColor"), &PlotAttributes::chartColor},
    Number{QLatin1String("penWidth"), &PlotAttributes::penWidth, 0},
    Real{QLatin1String("barChartBaseline"), &PlotAttributes::barChartBaseline, -1.0},
    Number{QLatin1String("timeFormat"), &PlotAttributes::timeFormat, -1},
    Flag{QLatin1String("markerVisible"), QLatin1String("markerHidden"),
         &PlotAttributes::markerVisible},
    Number{QLatin1String("markerWidth"), &PlotAttributes::markerWidth, -1},
    Color{QLatin1String("markerColor"), &PlotAttributes::markerColor},
    Flag{QLatin1String("markerLabelVisible"), QLatin1String("markerLabelHidden"),
         &PlotAttributes::markerLabelVisible},
    MarkerLabel{},
    Number{QLatin1String("peakLabelOpt"), &PlotAttributes::peakLabelOpt, -1},
    PeakLabel{},
    AxisTitle{QwtPlot::xBottom},
    AxisTitle{QwtPlot::yLeft},
    AxisTitle{QwtPlot::yRight},
    TickLabel{QwtPlot::xBottom},
    TickLabel{QwtPlot::yLeft},
    TickLabel{QwtPlot::yRight},
    Number{QLatin1String("logScale"), &PlotAttributes::logScale, -1},
    Number{QLatin1String("dragZoom"), &PlotAttributes::dragZoom, -1},
    Number{QLatin1String("autoScroll"), &PlotAttributes::autoScroll, -1},
};

const QLatin1String PlotAttributes::Document::axisTitleTextKey("TitleText");
const QLatin1String PlotAttributes::Document::axisTitleFontKey("TitleFont");
const QLatin1String PlotAttributes::Document::axisTitleColorKey("TitleColor");

QLatin1String PlotAttributes::Document::olderAxisTitleTextKey(int axisId)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        return QLatin1String("xAxisTitle");
    case QwtPlot::yLeft:
        return QLatin1String("yAxisTitle");
    default:
        return QLatin1String();
    }
}

QLatin1String PlotAttributes::Document::olderAxisTitleColorKey(int axisId)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        return QLatin1String("xAxisTitleColor");
    case QwtPlot::yLeft:
        return QLatin1String("yAxisTitleColor");
    default:
        return QLatin1String();
    }
}

namespace {

const QLatin1String PlotTitleTextKey("plotTitleText");
const QLatin1String OlderPlotTitleTextKey("plotTitle");
const QLatin1String PlotTitleFontKey("plotTitleFont");
const QLatin1String PlotTitleColorKey("plotTitleColor");

} // namespace

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const PlotTitle &)
{
    const QwtText &title = attrs.plotTitle;
    if (!title.text().isEmpty())
        json.insert(PlotTitleTextKey, title.text());
    AttributeJson::writeFont(json, PlotTitleFontKey, title.font(), attrs.defaultTitleFont);
    AttributeJson::writeColor(json, PlotTitleColorKey, title.color());
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const PlotTitle &)
{
    QwtText &title = attrs.plotTitle;
    const QLatin1String textKey =
        json.contains(PlotTitleTextKey) ? PlotTitleTextKey : OlderPlotTitleTextKey;
    const QString text = json.value(textKey).toString();
    if (!text.isEmpty() && text != title.text())
        title.setText(text, QwtText::AutoText);

    // QwtText::setFont and setColor also switch the text to its own font and
    // colour, so they run only for a value that is really read.
    QFont font = title.font();
    AttributeJson::readFont(json, PlotTitleFontKey, font);
    if (font != title.font())
        title.setFont(font);

    const QColor color = QColor::fromString(json.value(PlotTitleColorKey).toString());
    if (color.isValid())
        title.setColor(color);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const Color &row)
{
    AttributeJson::writeColor(json, row.key, attrs.*row.member);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const Color &row)
{
    const QString text = json.value(row.key).toString();
    if (!text.isEmpty())
        attrs.*row.member = QColor::fromString(text);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const Number &row)
{
    const qint32 value = attrs.*row.member;
    if (value > row.unset)
        json.insert(row.key, value);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const Number &row)
{
    attrs.*row.member = json.value(row.key).toInt(row.unset);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const Real &row)
{
    const double value = attrs.*row.member;
    if (value > row.unset)
        json.insert(row.key, value);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const Real &row)
{
    attrs.*row.member = json.value(row.key).toDouble(row.unset);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const Flag &row)
{
    write(attrs, json, Number{row.key, row.member, -1});
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const Flag &row)
{
    if (json.contains(row.key))
        attrs.*row.member = json.value(row.key).toInt(-1);
    else if (json.contains(row.olderHiddenKey))
        attrs.*row.member = json.value(row.olderHiddenKey).toInt(-1) == 1 ? 0 : 1;
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const MarkerLabel &)
{
    attrs.markerLabelFormat.toJson(json);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const MarkerLabel &)
{
    attrs.markerLabelFormat.fromJson(json);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const PeakLabel &)
{
    attrs.peakLabelFormat.toJson(json);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const PeakLabel &)
{
    attrs.peakLabelFormat.fromJson(json);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const AxisTitle &row)
{
    attrs.axisTitleToJson(row.axisId, json);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const AxisTitle &row)
{
    attrs.axisTitleFromJson(row.axisId, json);
}

void PlotAttributes::Document::write(const PlotAttributes &attrs, QJsonObject &json,
                                     const TickLabel &row)
{
    attrs.tickLabelById(row.axisId).toJson(row.axisId, json);
}

void PlotAttributes::Document::read(PlotAttributes &attrs, const QJsonObject &json,
                                    const TickLabel &row)
{
    attrs.tickLabelById(row.axisId).fromJson(row.axisId, json);
}

PlotAttributes::PlotAttributes()
{
    QFont titleFont;
    titleFont.setPointSize(PlotDefault::PlotTitleFontSize);
    titleFont.setWeight(QFont::Bold);
    plotTitle.setFont(titleFont);

    for (int axisId : {QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight}) {
        QwtText &title = axisTitleById(axisId);
        QFont font = title.font();
        font.setPointSize(PlotDefault::AxisTitleFontSize);
        title.setFont(font);
    }

    defaultTitleFont = plotTitle.font();
    defaultAxisTitleFont = xAxisTitle.font();
}

PlotAttributes::PlotAttributes(const PlotAttributes &other) = default;

PlotAttributes &PlotAttributes::operator=(const PlotAttributes &other)
{
    if (this == &other)
        return *this;

    plotTitle = other.plotTitle;
    canvasColor = other.canvasColor;
    majorGridColor = other.majorGridColor;
    minorGridColor = other.minorGridColor;
    chartColor = other.chartColor;
    penWidth = other.penWidth;
    barChartBaseline = other.barChartBaseline;
    timeFormat = other.timeFormat;
    markerVisible = other.markerVisible;
    markerWidth = other.markerWidth;
    markerColor = other.markerColor;
    markerLabelVisible = other.markerLabelVisible;
    markerLabelFormat = other.markerLabelFormat;
    peakLabelOpt = other.peakLabelOpt;
    peakLabelFormat = other.peakLabelFormat;
    xAxisTitle = other.xAxisTitle;
    yAxisTitle = other.yAxisTitle;
    yRightAxisTitle = other.yRightAxisTitle;
    xTickLabel = other.xTickLabel;
    yTickLabel = other.yTickLabel;
    yRightTickLabel = other.yRightTickLabel;
    logScale = other.logScale;
    dragZoom = other.dragZoom;
    autoScroll = other.autoScroll;
    // defaultTitleFont and defaultAxisTitleFont stay: they describe how this
    // object was built, not the look it now holds.
    return *this;
}

PlotAttributes::~PlotAttributes() = default;

QwtText &PlotAttributes::axisTitleById(int axisId)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        return xAxisTitle;
    case QwtPlot::yLeft:
        return yAxisTitle;
    case QwtPlot::yRight:
        return yRightAxisTitle;
    default:
        return sharedAxisTitle();
    }
}

const QwtText &PlotAttributes::axisTitleById(int axisId) const
{
    return const_cast<PlotAttributes *>(this)->axisTitleById(axisId);
}

TickLabelFormat &PlotAttributes::tickLabelById(int axisId)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        return xTickLabel;
    case QwtPlot::yLeft:
        return yTickLabel;
    case QwtPlot::yRight:
        return yRightTickLabel;
    default:
        return sharedTickLabel();
    }
}

const TickLabelFormat &PlotAttributes::tickLabelById(int axisId) const
{
    return const_cast<PlotAttributes *>(this)->tickLabelById(axisId);
}

void PlotAttributes::toJson(QJsonObject &json) const
{
    for (const Document::Row &row : Document::rows)
        std::visit([&](const auto &r) { Document::write(*this, json, r); }, row);
}

void PlotAttributes::fromJson(const QJsonObject &json)
{
    for (const Document::Row &row : Document::rows)
        std::visit([&](const auto &r) { Document::read(*this, json, r); }, row);
}

void PlotAttributes::axisTitleToJson(int axisId, QJsonObject &json) const
{
    const QString prefix = AttributeJson::axisKeyPrefix(axisId);
    if (prefix.isEmpty())
        return;

    const QwtText &title = axisTitleById(axisId);
    if (!title.text().isEmpty())
        json.insert(prefix + Document::axisTitleTextKey, title.text());
    AttributeJson::writeFont(json, prefix + Document::axisTitleFontKey, title.font(),
                             defaultAxisTitleFont);
    AttributeJson::writeColor(json, prefix + Document::axisTitleColorKey, title.color());
}

void PlotAttributes::axisTitleFromJson(int axisId, const QJsonObject &json)
{
    const QString prefix = AttributeJson::axisKeyPrefix(axisId);
    if (prefix.isEmpty())
        return;

    QwtText &title = axisTitleById(axisId);
    const QLatin1String olderTextKey = Document::olderAxisTitleTextKey(axisId);
    const QLatin1String olderColorKey = Document::olderAxisTitleColorKey(axisId);

    // Unlike the plot title, an axis title is set even when empty: a document
    // without it means an axis without a title.
    const QString textKey =
        !olderTextKey.isEmpty() && json.contains(olderTextKey) ? QString(olderTextKey)
                                                                : prefix + Document::axisTitleTextKey;
    title.setText(json.value(textKey).toString(), QwtText::AutoText);

    QFont font = title.font();
    AttributeJson::readFont(json, prefix + Document::axisTitleFontKey, font);
    if (font != title.font())
        title.setFont(font);

    const QString colorKey =
        !olderColorKey.isEmpty() && json.contains(olderColorKey) ? QString(olderColorKey)
                                                                  : prefix + Document::axisTitleColorKey;
    QColor color = title.color();
    AttributeJson::readValidColor(json, colorKey, color);
    if (color != title.color())
        title.setColor(color);
}

} // namespace KelmQtPlot
