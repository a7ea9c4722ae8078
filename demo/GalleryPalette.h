#pragma once

// The gallery's light and dark palettes. The library only keeps a dark mode
// flag; the colours of PlotDefault and PlotDefault::DarkMode reach a plot
// through its ordinary setters, here, so that the plot reports each change
// through its signals like any other.

#include <QPalette>

class QwtPlotPicker;
class QwtText;
class VoidPlot;

namespace GalleryPalette {

// The colour of a data series in either mode: a little lighter on the dark
// canvas, so that it keeps its contrast.
QColor seriesColor(const QColor &lightColor, bool dark);

// The application palette of the window around the plots: the area outside
// the canvas, axes, legends and tabs.
QPalette applicationPalette(bool dark);

// Canvas, grid, titles, tick labels, markers, marker and peak labels and the
// rubber band of picker in the colours of either mode, and the plot's dark
// mode flag. markerLabel is the plot's label template, whose font is kept.
// The colours of the data are the page's business.
void applyToFrame(VoidPlot *plot, bool dark, const QwtText &markerLabel, QwtPlotPicker *picker);

} // namespace GalleryPalette
