#include "GalleryPalette.h"

#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/plots/VoidPlot.h>

#include <QApplication>
#include <QPen>
#include <QStyle>

#include <qwt_plot_picker.h>
#include <qwt_text.h>

namespace GalleryPalette {

QColor seriesColor(const QColor &lightColor, bool dark)
{
    return dark ? lightColor.lighter(130) : lightColor;
}

QPalette applicationPalette(bool dark)
{
    if (!dark)
        return QApplication::style()->standardPalette();

    const QColor window(37, 37, 38);
    const QColor base(30, 30, 30);
    const QColor button(53, 53, 53);
    const QColor text(230, 230, 230);
    const QColor disabledText(127, 127, 127);

    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, button);
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, disabledText);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, button);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, QColor(255, 80, 80));
    palette.setColor(QPalette::Light, QColor(70, 70, 70));
    palette.setColor(QPalette::Midlight, QColor(62, 62, 62));
    palette.setColor(QPalette::Mid, QColor(45, 45, 45));
    palette.setColor(QPalette::Dark, QColor(25, 25, 25));
    palette.setColor(QPalette::Shadow, QColor(15, 15, 15));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(100, 160, 235));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, disabledText);
    palette.setColor(QPalette::Disabled, QPalette::Text, disabledText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabledText);
    return palette;
}

void applyToFrame(VoidPlot *plot, bool dark, const QwtText &markerLabel, QwtPlotPicker *picker)
{
    if (!plot)
        return;
    namespace Dark = PlotDefault::DarkMode;

    plot->enableDarkMode(dark);
    plot->setCanvasBgColor(dark ? Dark::CanvasBackground : PlotDefault::CanvasBackground);
    plot->setMajorGridColor(dark ? Dark::GridMajorColor : PlotDefault::GridMajorColor);
    plot->setMinorGridColor(dark ? Dark::GridMinorColor : PlotDefault::GridMinorColor);

    QwtText title = plot->title();
    title.setColor(dark ? Dark::TitleTextColor : PlotDefault::TitleTextColor);
    plot->setPlotTitle(title);

    for (int axisId : {int(QwtPlot::xBottom), int(QwtPlot::yLeft), int(QwtPlot::yRight)}) {
        if (!plot->isAxisVisible(axisId))
            continue;
        QwtText axisTitle = plot->axisTitle(axisId);
        axisTitle.setColor(dark ? Dark::TitleTextColor : PlotDefault::TitleTextColor);
        plot->setAxisCustomTitle(axisId, axisTitle);
        TickLabelFormat tickLabel = plot->tickLabel(axisId);
        tickLabel.color = dark ? Dark::AxisLabelColor : PlotDefault::AxisLabelColor;
        plot->setTickLabel(axisId, tickLabel);
    }

    plot->setMarkersColor(dark ? Dark::MarkerColor : PlotDefault::MarkerColor);
    QwtText label = markerLabel;
    label.setColor(dark ? Dark::MarkerLabelColor : PlotDefault::MarkerLabelColor);
    plot->setMarkerLabelFontColor(label);
    plot->setMarkerLabelBgColor(dark ? Dark::MarkerLabelBgColor : PlotDefault::MarkerLabelBgColor);

    PeakLabelFormat peakLabel = plot->getPeakLabelFormat();
    peakLabel.setColor(dark ? Dark::PeakLabelColor : PlotDefault::PeakLabelColor);
    plot->setPeakLabelFormat(peakLabel);

    if (picker)
        picker->setRubberBandPen(
            QPen(dark ? Dark::PickerRubberBandPenColor : PlotDefault::PickerRubberBandPenColor));
}

} // namespace GalleryPalette
