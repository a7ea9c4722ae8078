#include <figura/defaults/PlotDefault.h>

#include <QObject>

// The order of the definitions below is the order of initialisation and
// matters: the light label colours copy a private colour defined before them.

namespace PlotDefault {

const int PlotMinHeight = 1;
const int ReplotDelay = 5;
const int PlotTitleFontSize = 14;
const int LabelFontSize = 10;
const int AxisTitleFontSize = 12;
const int AxisLabelFontSize = 10;
const int AxisLabelRotation = 0;
const int AxisLabelRotationMin = -90;
const int AxisLabelRotationMax = 90;
const int PenStyle = Qt::SolidLine;
const int PenSize = 2;
const int MinPenSize = 1;
const int MaxPenSize = 500;
const int BarLineWidth = 1;
const int SymbolStyle = QwtSymbol::NoSymbol;
const int SymbolWidth = 8;
const int MinSymbolWidth = 1;
const int MaxSymbolWidth = 50;
const QSize SymbolSize(8, 8);
const int MarkerWidth = 1;
const int MinMarkerWidth = 1;
const int MaxMarkerWidth = 50;
const int XAxisLinearScaleMaxMajor = 10;
const int XAxisLinearScaleMaxMinor = 5;
const int YAxisLinearScaleMaxMajor = 12;
const int YAxisLinearScaleMaxMinor = 5;
const int YAxisLogScaleMaxMajor = 12;
const int YAxisLogScaleMaxMinor = 9;
const QwtPlotMarker::LineStyle MarkerLineStyle = QwtPlotMarker::VLine;
const double XTimeMin = 0.0;
const double XTimeUpper = 300.0;
const double YLower = 1e-20;
const double YUpper = 1e-05;
const double BarChartBaseline = 0.0;
const double BarChartBaselineMin = -1e-05;
const double BarChartBaselineMax = 1e-05;
const QwtSymbol::Style MarkerSymbolStyle = QwtSymbol::Ellipse;
const int PeakLabelRotation = -45;
const int TimeFormat = 1;

namespace {
const QColor LabelGray(QStringLiteral("#404040"));
}

const QColor CanvasBackground(253, 253, 253, 255);
const QColor GridMajorColor(200, 200, 200, 255);
const QColor GridMinorColor(235, 235, 235, 255);
const QColor ChartColor(100, 160, 235, 255);
const QColor MarkerLabelBgColor(251, 255, 250, 255);
const QColor SelectionMarkerLabelBgColor(255, 204, 204, 50);
const QColor SelectionMarkerColor(Qt::red);
const QColor PickerRubberBandPenColor(Qt::black);
const QColor AltPickerRubberBandPenColor(Qt::red);
const QColor TitleTextColor(Qt::black);
const QColor AxisLabelColor(Qt::black);
const QColor MarkerColor(Qt::green);
const QColor SymbolColor(Qt::black);
const QColor MarkerLabelColor(LabelGray);
const QColor PeakLabelColor(LabelGray);

namespace DarkMode {
const QColor CanvasBackground(48, 48, 48, 255);
const QColor GridMajorColor(103, 103, 103, 255);
const QColor GridMinorColor(68, 68, 68, 255);
const QColor CurveColor(100, 160, 235, 255);
const QColor BarColor(100, 160, 235, 255);
const QColor BarColorTransparent(100, 160, 235, 150);
const QColor MarkerLabelBgColor(52, 52, 52, 255);
const QColor SelectionMarkerLabelBgColor(100, 80, 80, 50);
const QColor SelectionMarkerColor(Qt::red);
const QColor PickerRubberBandPenColor(Qt::white);
const QColor AltPickerRubberBandPenColor(Qt::red);
const QColor TitleTextColor(Qt::white);
const QColor AxisLabelColor(Qt::white);
const QColor MarkerColor(Qt::green);
const QColor SymbolColor(Qt::white);
const QColor MarkerLabelColor(250, 249, 246, 255);
const QColor PeakLabelColor(250, 249, 246, 255);
} // namespace DarkMode

namespace Export {
const int LogoRenderHeight = 40;
const int LogoRenderMargin = 10;
const int DPI = 300;
const QSizeF SizeMM(300.0, 200.0);
} // namespace Export

namespace HTML {
const QString SquareChar = QStringLiteral("&#9632;");
const QString RectChar = QStringLiteral("&#9607;");
} // namespace HTML

} // namespace PlotDefault

namespace Figura {

const QMap<MarkerLabelSortOption, QString> MarkerLabelSortOptions = {
    {MarkerLabelSortDefault, QObject::tr("Default")},
    {MarkerLabelSortByValue, QObject::tr("By Value")},
};

// Written in the order of the settings form; QMap iterates by key, so
// "Trailing" (2) comes first wherever the map is listed.
const QMap<Qt::AlignmentFlag, QString> MarkerLabelAlignments = {
    {Qt::AlignTop, QObject::tr("Top")},
    {Qt::AlignBottom, QObject::tr("Bottom")},
    {Qt::AlignVCenter, QObject::tr("Middle")},
    {Qt::AlignTrailing, QObject::tr("Trailing")},
};

} // namespace Figura
