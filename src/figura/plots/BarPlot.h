#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/plots/VoidPlot.h>

#include <QList>
#include <QPointF>
#include <QString>

class QColor;
class QEvent;
class QObject;
class QVariant;
class QwtPlotBarChart;

// A bar chart plot: one QwtPlotBarChart per series over a shared x axis, for
// instance a spectrum with one bar per mass. The host builds each chart
// (title, samples, symbol) and hands it to appendBarChart(); from then on the
// plot owns and deletes it. The plot keeps no sample data: it reads the
// charts' series when it needs a sample, one bisection per chart and
// read-out.
//
// All bars of the plot rise from one baseline: a bar goes up from it when
// its value is above, down when below. The baseline accepted lies in a range
// that is only a sliver around zero by default; a host that wants another
// baseline widens the range first.
//
// The read-out snaps to bars: a vertical line with one dot per chart that has
// a series marker, on the bar nearest to the pointer's x, and one label with
// the x value in whole numbers and a line per visible chart, in the order of
// the charts. The keys Left, Right, Home and End step it from bar to bar and
// take the mouse pointer along.
//
// None of the store operations and setters replots; the host replots or
// calls replotLater() after adding, removing or restyling charts.
class FIGURA_EXPORT BarPlot : public VoidPlot
{
    Q_OBJECT

public:
    explicit BarPlot(QWidget *parent = nullptr);
    ~BarPlot() override;

    // Drives the read-out from pointer moves over the canvas, after the
    // frame's handling; never eats an event.
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Returns 2.
    int rtti() const override;

    // Takes ownership of chart and attaches it. With hasMarker the chart gets
    // a series marker, a dot in the colour of the frame marker; without, it
    // takes no part in the read-out. The chart keeps its own baseline: the
    // plot's reaches it with the next setBarChartBaseLine().
    void appendBarChart(QwtPlotBarChart *chart, bool hasMarker);
    // Detach and delete one chart, or all, with their series markers; an
    // index out of range is ignored.
    void removeBarChart(int index);
    void removeBarCharts();
    // The charts in the order of appendBarChart().
    QList<QwtPlotBarChart *> barCharts();
    bool isAnyBarChartVisible();

    // Gives a chart a box symbol in color, keeping the frame style and line
    // width of its present symbol (a plain frame of PlotDefault::BarLineWidth
    // for a chart without one). The read-out takes the chart's colour from
    // this symbol. An index out of range and an invalid colour are ignored.
    void setBarChartColor(int index, const QColor &color);

    double barChartBaseline();
    double barChartBaseLineMin();
    double barChartBaseLineMax();
    // Sets the baseline of all charts if value lies within the range; a value
    // outside is ignored. Emits nothing.
    void setBarChartBaseLine(double value);
    // Plain stores; the baseline in force is not checked against them.
    void setBarChartBaseLineMin(double value);
    void setBarChartBaseLineMax(double value);
    // What Restore Defaults of the settings dialog offers.
    void setDefaultBarChartBaseLine(double value);

    // As setBarChartBaseLine(), and then tells barChartBaseLineChanged() of
    // the baseline in force, unless value equals it already. A value outside
    // the range therefore reports the old baseline.
    virtual void updateBarChartBaseline(double value);

Q_SIGNALS:
    void barChartBaseLineChanged(double value);

protected:
    // Steps the read-out one bar of the first visible chart with a marker and
    // moves the mouse pointer to the bottom edge of the canvas under it.
    void shiftMarkers(VoidPlot::ShiftDirection direction) override;
    // The number format of the read-out: the x axis title and a whole number,
    // since bars stand on whole positions; y values in exponent form below
    // 0.001 and when negative, else fixed with 4 decimals.
    QString axisValueText(int axisId, double value) override;
    // The frame's exchange, and the baseline with its range and default.
    void loadToPlotSettingDialog(PlotSettingsDialog &dialog) override;
    void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog) override;

    // Width in pixels of a read-out label: of text when it is given, else an
    // estimate from the charts' final bars.
    virtual int markerLabelWidth(const QString &text);
    // The read-out pass. With value exactly (0, 0), pos is a canvas column
    // and each chart snaps to its bar nearest to that x; otherwise each chart
    // that has a bar at exactly value.x() goes there. Never replots.
    virtual void displayMarkers(int pos, const QPointF &value);

protected Q_SLOTS:
    // A legend entry was switched: the chart's series marker follows.
    void togglePlotItem(const QVariant &itemInfo, bool on, int index) override;

protected:
    // Side by side with seriesMarkers: index i of one belongs to index i of
    // the other.
    QList<QwtPlotBarChart *> barChartsValue;
    double barChartBaselineValue = PlotDefault::BarChartBaseline;
    double defaultBarChartBaseLine = PlotDefault::BarChartBaseline;
    double barChartBaseLineMinValue = PlotDefault::BarChartBaselineMin;
    double barChartBaseLineMaxValue = PlotDefault::BarChartBaselineMax;
};
