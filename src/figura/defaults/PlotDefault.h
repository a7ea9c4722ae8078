#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QMap>
#include <QSize>
#include <QSizeF>
#include <QString>

#include <qwt_plot_marker.h>
#include <qwt_symbol.h>

// Every default of the library. The library reads part of this table; the
// rest, the dark palette above all, is for the host to apply. Nothing here
// changes at run time.
//
// The scalars and the colours given by components are constant data. The
// colours given by name or by Qt::GlobalColor, the HTML strings and the
// Figura maps are initialised dynamically while the library loads, so the
// static initialisers of other units must not read them.
namespace PlotDefault {

FIGURA_EXPORT extern const int PlotMinHeight;
FIGURA_EXPORT extern const int ReplotDelay;          // milliseconds
FIGURA_EXPORT extern const int PlotTitleFontSize;
FIGURA_EXPORT extern const int LabelFontSize;
FIGURA_EXPORT extern const int AxisTitleFontSize;
FIGURA_EXPORT extern const int AxisLabelFontSize;
FIGURA_EXPORT extern const int AxisLabelRotation;    // degrees
FIGURA_EXPORT extern const int AxisLabelRotationMin;
FIGURA_EXPORT extern const int AxisLabelRotationMax;
FIGURA_EXPORT extern const int PenStyle;             // Qt::SolidLine
FIGURA_EXPORT extern const int PenSize;
FIGURA_EXPORT extern const int MinPenSize;
FIGURA_EXPORT extern const int MaxPenSize;
FIGURA_EXPORT extern const int BarLineWidth;
FIGURA_EXPORT extern const int SymbolStyle;          // QwtSymbol::NoSymbol
FIGURA_EXPORT extern const int SymbolWidth;
FIGURA_EXPORT extern const int MinSymbolWidth;
FIGURA_EXPORT extern const int MaxSymbolWidth;
FIGURA_EXPORT extern const QSize SymbolSize;
FIGURA_EXPORT extern const int MarkerWidth;
FIGURA_EXPORT extern const int MinMarkerWidth;
FIGURA_EXPORT extern const int MaxMarkerWidth;
FIGURA_EXPORT extern const int XAxisLinearScaleMaxMajor;
FIGURA_EXPORT extern const int XAxisLinearScaleMaxMinor;
FIGURA_EXPORT extern const int YAxisLinearScaleMaxMajor;
FIGURA_EXPORT extern const int YAxisLinearScaleMaxMinor;
FIGURA_EXPORT extern const int YAxisLogScaleMaxMajor;
FIGURA_EXPORT extern const int YAxisLogScaleMaxMinor;
FIGURA_EXPORT extern const QwtPlotMarker::LineStyle MarkerLineStyle;
FIGURA_EXPORT extern const double XTimeMin;          // seconds
FIGURA_EXPORT extern const double XTimeUpper;        // seconds
FIGURA_EXPORT extern const double YLower;
FIGURA_EXPORT extern const double YUpper;
FIGURA_EXPORT extern const double BarChartBaseline;
FIGURA_EXPORT extern const double BarChartBaselineMin;
FIGURA_EXPORT extern const double BarChartBaselineMax;
FIGURA_EXPORT extern const QwtSymbol::Style MarkerSymbolStyle;
FIGURA_EXPORT extern const int PeakLabelRotation;    // degrees
FIGURA_EXPORT extern const int TimeFormat;           // 1 elapsed, 2 local

FIGURA_EXPORT extern const QColor CanvasBackground;
FIGURA_EXPORT extern const QColor GridMajorColor;
FIGURA_EXPORT extern const QColor GridMinorColor;
FIGURA_EXPORT extern const QColor ChartColor;
FIGURA_EXPORT extern const QColor MarkerLabelBgColor;
FIGURA_EXPORT extern const QColor SelectionMarkerLabelBgColor;
FIGURA_EXPORT extern const QColor SelectionMarkerColor;
FIGURA_EXPORT extern const QColor PickerRubberBandPenColor;
FIGURA_EXPORT extern const QColor AltPickerRubberBandPenColor;
FIGURA_EXPORT extern const QColor TitleTextColor;
FIGURA_EXPORT extern const QColor AxisLabelColor;
FIGURA_EXPORT extern const QColor MarkerColor;
FIGURA_EXPORT extern const QColor SymbolColor;
FIGURA_EXPORT extern const QColor MarkerLabelColor;
FIGURA_EXPORT extern const QColor PeakLabelColor;

// The dark palette; the host applies it, the settings panels offer it as
// their restore-defaults values in dark mode.
namespace DarkMode {
FIGURA_EXPORT extern const QColor CanvasBackground;
FIGURA_EXPORT extern const QColor GridMajorColor;
FIGURA_EXPORT extern const QColor GridMinorColor;
FIGURA_EXPORT extern const QColor CurveColor;
FIGURA_EXPORT extern const QColor BarColor;
FIGURA_EXPORT extern const QColor BarColorTransparent;
FIGURA_EXPORT extern const QColor MarkerLabelBgColor;
FIGURA_EXPORT extern const QColor SelectionMarkerLabelBgColor;
FIGURA_EXPORT extern const QColor SelectionMarkerColor;
FIGURA_EXPORT extern const QColor PickerRubberBandPenColor;
FIGURA_EXPORT extern const QColor AltPickerRubberBandPenColor;
FIGURA_EXPORT extern const QColor TitleTextColor;
FIGURA_EXPORT extern const QColor AxisLabelColor;
FIGURA_EXPORT extern const QColor MarkerColor;
FIGURA_EXPORT extern const QColor SymbolColor;
FIGURA_EXPORT extern const QColor MarkerLabelColor;
FIGURA_EXPORT extern const QColor PeakLabelColor;
} // namespace DarkMode

namespace Export {
FIGURA_EXPORT extern const int LogoRenderHeight;     // pixels
FIGURA_EXPORT extern const int LogoRenderMargin;     // pixels from the canvas' top and right edge
FIGURA_EXPORT extern const int DPI;
FIGURA_EXPORT extern const QSizeF SizeMM;
} // namespace Export

namespace HTML {
FIGURA_EXPORT extern const QString SquareChar;
FIGURA_EXPORT extern const QString RectChar;
} // namespace HTML

} // namespace PlotDefault

namespace Figura {

// The fixed underlying type makes any int a valid value, so that a value
// outside the enumerators can be looked up in the map and ignored.
enum MarkerLabelSortOption : int {
    MarkerLabelSortDefault = 0, // the plain order of the series
    MarkerLabelSortByValue = 1  // the items of a marker label sorted by their value
};

// Display texts, which are also the lists of accepted values. Their texts are
// translated once, while the library loads.
FIGURA_EXPORT extern const QMap<MarkerLabelSortOption, QString> MarkerLabelSortOptions;
FIGURA_EXPORT extern const QMap<Qt::AlignmentFlag, QString> MarkerLabelAlignments;

} // namespace Figura
