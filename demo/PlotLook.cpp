#include "PlotLook.h"

#include "GalleryPlot.h"

#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>
#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/MultiBarPlot.h>
#include <figura/plots/TimeCurvePlot.h>
#include <figura/plots/VoidPlot.h>

#include <QJsonObject>

#include <initializer_list>

namespace {

// The axes whose titles and tick labels the record holds.
constexpr int RecordedAxes[] = {QwtPlot::xBottom, QwtPlot::yLeft, QwtPlot::yRight};

bool isRecordedAxis(int axisId)
{
    for (int axis : RecordedAxes) {
        if (axis == axisId)
            return true;
    }
    return false;
}

QString axisKeyPrefix(int axisId)
{
    switch (axisId) {
    case QwtPlot::xBottom:
        return QStringLiteral("xBottom");
    case QwtPlot::yLeft:
        return QStringLiteral("yLeft");
    case QwtPlot::yRight:
        return QStringLiteral("yRight");
    default:
        return QString();
    }
}

bool hasAny(const QJsonObject &json, std::initializer_list<QString> keys)
{
    for (const QString &key : keys) {
        if (json.contains(key))
            return true;
    }
    return false;
}

// The older title keys that the record still reads for two of the axes.
QStringList olderAxisTitleKeys(int axisId)
{
    if (axisId == QwtPlot::xBottom)
        return {QStringLiteral("xAxisTitle"), QStringLiteral("xAxisTitleColor")};
    if (axisId == QwtPlot::yLeft)
        return {QStringLiteral("yAxisTitle"), QStringLiteral("yAxisTitleColor")};
    return {};
}

int flag(bool on)
{
    return on ? 1 : 0;
}

} // namespace

PlotLook::PlotLook(GalleryPlot *page)
    : QObject(page->plotWidget())
    , page(page)
    , plot(page->plotWidget())
{
    watchFrame();
    watchPlotClass();
}

const KelmQtPlot::PlotAttributes &PlotLook::attributes() const
{
    return record;
}

QJsonObject PlotLook::toJson() const
{
    QJsonObject json;
    record.toJson(json);
    return json;
}

void PlotLook::watchFrame()
{
    connect(plot, &VoidPlot::plotTitleChanged, this,
            [this](const QwtText &title) { record.plotTitle = title; });
    connect(plot, &VoidPlot::canvasBgColorChanged, this,
            [this](const QColor &color) { record.canvasColor = color; });
    connect(plot, &VoidPlot::majorGridColorChanged, this,
            [this](const QColor &color) { record.majorGridColor = color; });
    connect(plot, &VoidPlot::minorGridColorChanged, this,
            [this](const QColor &color) { record.minorGridColor = color; });
    connect(plot, &VoidPlot::chartColorChanged, this,
            [this](const QColor &color) { record.chartColor = color; });
    connect(plot, &VoidPlot::markerVisibleToggled, this,
            [this](bool on) { record.markerVisible = flag(on); });
    connect(plot, &VoidPlot::markerWidthChanged, this,
            [this](int width) { record.markerWidth = width; });
    connect(plot, &VoidPlot::markerColorChanged, this,
            [this](const QColor &color) { record.markerColor = color; });
    connect(plot, &VoidPlot::markerLabelVisibleToggled, this,
            [this](bool on) { record.markerLabelVisible = flag(on); });
    connect(plot, &VoidPlot::markerLabelFontColorChanged, this, [this](const QwtText &text) {
        record.markerLabelFormat.font = text.font();
        record.markerLabelFormat.color = text.color();
    });
    connect(plot, &VoidPlot::markerLabelBgColorChanged, this,
            [this](const QColor &color) { record.markerLabelFormat.bgColor = color; });
    connect(plot, &VoidPlot::markerLabelAlignmentChanged, this,
            [this](int value) { record.markerLabelFormat.alignment = value; });
    connect(plot, &VoidPlot::markerLabelSortOptionChanged, this,
            [this](int value) { record.markerLabelFormat.sortOption = value; });
    connect(plot, &VoidPlot::peakLabelVisibilityToggled, this,
            [this](bool on) { record.peakLabelOpt = flag(on); });
    connect(plot, &VoidPlot::peakLabelFormatChanged, this,
            [this](const PeakLabelFormat &format) { record.peakLabelFormat = format; });
    // The signal carries the font always, the text and the colour only
    // where they changed.
    connect(plot, &VoidPlot::axisTitleChanged, this, [this](int axisId, const QwtText &title) {
        if (!isRecordedAxis(axisId))
            return;
        QwtText &stored = record.axisTitleById(axisId);
        stored.setFont(title.font());
        if (!title.text().isEmpty())
            stored.setText(title.text());
        if (title.color().isValid())
            stored.setColor(title.color());
    });
    connect(plot, &VoidPlot::tickLabelChanged, this,
            [this](int axisId, const TickLabelFormat &format) {
                if (isRecordedAxis(axisId))
                    record.tickLabelById(axisId) = format;
            });
    connect(plot, &VoidPlot::logScaleToggled, this,
            [this](bool on) { record.logScale = flag(on); });
    connect(plot, &VoidPlot::dragZoomToggled, this,
            [this](bool on) { record.dragZoom = flag(on); });
    connect(plot, &VoidPlot::autoScrollToggled, this,
            [this](bool on) { record.autoScroll = flag(on); });
}

void PlotLook::watchPlotClass()
{
    if (auto *curvePlot = qobject_cast<CurvePlot *>(plot)) {
        connect(curvePlot, &CurvePlot::penWidthChanged, this,
                [this](int width) { record.penWidth = width; });
    }
    if (auto *timePlot = qobject_cast<TimeCurvePlot *>(plot)) {
        connect(timePlot, &TimeCurvePlot::timeFormatChanged, this,
                [this](int format) { record.timeFormat = format; });
    }
    if (auto *barPlot = qobject_cast<BarPlot *>(plot)) {
        connect(barPlot, &BarPlot::barChartBaseLineChanged, this,
                [this](double value) { record.barChartBaseline = value; });
    }
    if (auto *multiBarPlot = qobject_cast<MultiBarPlot *>(plot)) {
        connect(multiBarPlot, &MultiBarPlot::multiBarChartBaseLineChanged, this,
                [this](double value) { record.barChartBaseline = value; });
    }
}

void PlotLook::apply(const QJsonObject &json)
{
    KelmQtPlot::PlotAttributes loaded;
    loaded.fromJson(json);

    // Each group: merge what the document holds into the plot's present
    // value, keep that in the record and hand it to the plot's setter. A
    // setter that finds nothing to change reports nothing, so the record
    // is written here as well as by the signals.
    if (hasAny(json, {QStringLiteral("plotTitleText"), QStringLiteral("plotTitle"),
                      QStringLiteral("plotTitleFont"), QStringLiteral("plotTitleColor")})) {
        QwtText title = plot->title();
        if (!loaded.plotTitle.text().isEmpty())
            title.setText(loaded.plotTitle.text(), QwtText::AutoText);
        if (json.contains(QStringLiteral("plotTitleFont")))
            title.setFont(loaded.plotTitle.font());
        if (loaded.plotTitle.color().isValid())
            title.setColor(loaded.plotTitle.color());
        record.plotTitle = title;
        plot->setPlotTitle(title);
    }

    if (loaded.canvasColor.isValid()) {
        record.canvasColor = loaded.canvasColor;
        plot->setCanvasBgColor(loaded.canvasColor);
    }
    if (loaded.majorGridColor.isValid()) {
        record.majorGridColor = loaded.majorGridColor;
        plot->setMajorGridColor(loaded.majorGridColor);
    }
    if (loaded.minorGridColor.isValid()) {
        record.minorGridColor = loaded.minorGridColor;
        plot->setMinorGridColor(loaded.minorGridColor);
    }
    if (loaded.chartColor.isValid()) {
        record.chartColor = loaded.chartColor;
        plot->setChartColor(loaded.chartColor);
    }

    if (auto *curvePlot = qobject_cast<CurvePlot *>(plot); curvePlot && loaded.penWidth > 0) {
        record.penWidth = loaded.penWidth;
        curvePlot->updatePenWidth(loaded.penWidth);
    }
    if (loaded.barChartBaseline > -1.0) {
        if (auto *barPlot = qobject_cast<BarPlot *>(plot)) {
            record.barChartBaseline = loaded.barChartBaseline;
            barPlot->updateBarChartBaseline(loaded.barChartBaseline);
        } else if (auto *multiBarPlot = qobject_cast<MultiBarPlot *>(plot)) {
            record.barChartBaseline = loaded.barChartBaseline;
            multiBarPlot->setBarChartBaseLine(loaded.barChartBaseline);
        }
    }
    if (auto *timePlot = qobject_cast<TimeCurvePlot *>(plot);
        timePlot && (loaded.timeFormat == 1 || loaded.timeFormat == 2)) {
        record.timeFormat = loaded.timeFormat;
        timePlot->setTimeFormat(loaded.timeFormat);
    }

    if (loaded.markerVisible >= 0) {
        record.markerVisible = loaded.markerVisible;
        plot->setMarkerVisible(loaded.markerVisible != 0);
    }
    if (loaded.markerWidth >= 0) {
        record.markerWidth = loaded.markerWidth;
        plot->setMarkersWidth(loaded.markerWidth);
    }
    if (loaded.markerColor.isValid()) {
        record.markerColor = loaded.markerColor;
        plot->setMarkersColor(loaded.markerColor);
    }
    if (loaded.markerLabelVisible >= 0) {
        record.markerLabelVisible = loaded.markerLabelVisible;
        plot->setMarkerLabelVisible(loaded.markerLabelVisible != 0);
    }

    const KelmQtPlot::MarkerLabelFormat &labelFormat = loaded.markerLabelFormat;
    if (hasAny(json, {QStringLiteral("markerLabelFont"), QStringLiteral("markerLabelColor")})) {
        QwtText label = page->markerLabelTemplate();
        if (json.contains(QStringLiteral("markerLabelFont")))
            label.setFont(labelFormat.font);
        if (labelFormat.color.isValid())
            label.setColor(labelFormat.color);
        record.markerLabelFormat.font = label.font();
        record.markerLabelFormat.color = label.color();
        plot->setMarkerLabelFontColor(label);
    }
    if (labelFormat.bgColor.isValid()) {
        record.markerLabelFormat.bgColor = labelFormat.bgColor;
        plot->setMarkerLabelBgColor(labelFormat.bgColor);
    }
    if (labelFormat.alignment != 0) {
        record.markerLabelFormat.alignment = labelFormat.alignment;
        plot->setMarkerLabelAlignment(int(labelFormat.alignment));
    }
    if (labelFormat.sortOption >= 0) {
        record.markerLabelFormat.sortOption = labelFormat.sortOption;
        plot->setMarkerLabelSortOption(int(labelFormat.sortOption));
    }

    if (hasAny(json, {QStringLiteral("peakLabelFont"), QStringLiteral("peakLabelColor"),
                      QStringLiteral("peakLabelTextRotation")})) {
        PeakLabelFormat format = plot->getPeakLabelFormat();
        if (json.contains(QStringLiteral("peakLabelFont")))
            format.setFont(loaded.peakLabelFormat.font());
        if (loaded.peakLabelFormat.color().isValid())
            format.setColor(loaded.peakLabelFormat.color());
        const int rotation = loaded.peakLabelFormat.textRotation();
        if (rotation >= -90 && rotation <= 90)
            format.setTextRotation(rotation);
        record.peakLabelFormat = format;
        plot->setPeakLabelFormat(format);
    }
    // Applied after the format, so that labels shown now come up in it.
    if (loaded.peakLabelOpt >= 0) {
        record.peakLabelOpt = loaded.peakLabelOpt;
        plot->setPeakLabelVisible(loaded.peakLabelOpt != 0);
    }

    for (int axisId : RecordedAxes) {
        const QString prefix = axisKeyPrefix(axisId);
        QStringList titleKeys = olderAxisTitleKeys(axisId);
        titleKeys << prefix + QStringLiteral("TitleText") << prefix + QStringLiteral("TitleFont")
                  << prefix + QStringLiteral("TitleColor");
        bool hasTitle = false;
        for (const QString &key : std::as_const(titleKeys))
            hasTitle = hasTitle || json.contains(key);
        if (hasTitle) {
            const QwtText &stored = loaded.axisTitleById(axisId);
            QwtText title = plot->axisTitle(axisId);
            if (!stored.text().isEmpty())
                title.setText(stored.text(), QwtText::AutoText);
            if (json.contains(prefix + QStringLiteral("TitleFont")))
                title.setFont(stored.font());
            if (stored.color().isValid())
                title.setColor(stored.color());
            record.axisTitleById(axisId) = title;
            plot->setAxisCustomTitle(axisId, title);
        }

        if (hasAny(json, {prefix + QStringLiteral("TickLabelFont"),
                          prefix + QStringLiteral("TickLabelColor"),
                          prefix + QStringLiteral("TickLabelRotation")})) {
            const TickLabelFormat &stored = loaded.tickLabelById(axisId);
            TickLabelFormat format = plot->tickLabel(axisId);
            if (json.contains(prefix + QStringLiteral("TickLabelFont")))
                format.font = stored.font;
            if (stored.color.isValid())
                format.color = stored.color;
            if (stored.isRotationValid())
                format.rotation = stored.rotation;
            record.tickLabelById(axisId) = format;
            plot->setTickLabel(axisId, format);
        }
    }

    if (loaded.logScale >= 0) {
        record.logScale = loaded.logScale;
        plot->setLogScale(loaded.logScale != 0);
    }
    if (loaded.dragZoom >= 0) {
        record.dragZoom = loaded.dragZoom;
        plot->setDragZoom(loaded.dragZoom != 0);
    }
    if (loaded.autoScroll >= 0) {
        record.autoScroll = loaded.autoScroll;
        plot->setAutoScroll(loaded.autoScroll != 0);
    }

    plot->replot();
}
