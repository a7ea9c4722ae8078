#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/plots/VoidPlot.h>

#include <QList>
#include <QString>

#include <qwt_samples.h>

class QColor;
class QEvent;
class QObject;
class QVariant;
class QwtPlotMultiBarChart;

// A chart of grouped bars: at each x position one QwtSetSample holds a value
// per bar of the group, and the bars of a group stand side by side, their
// width following the axis scale. The plot makes, attaches and owns exactly
// one QwtPlotMultiBarChart, reachable through barChart(); the host feeds it
// through the updateMultiBarChart() overloads, which give each place inside
// a set its colour and title. What a series is elsewhere is here a bar's
// place inside each set.
//
// The read-out is a single vertical line, the one series marker of this
// plot, whose label lists the x value and, in coloured rich text, each bar of
// the set under the pointer. Bars of no positive value are left out of the
// label unless setHideZeroValueMarkerLabel(false) is called. The keys Left,
// Right, Home and End step the read-out from set to set and move the mouse
// pointer along.
//
// Sets are expected in ascending x. All bars rise from one baseline, which
// takes only values inside [barChartBaseLineMin(), barChartBaseLineMax()];
// the settings dialog offers it, and an accepted dialog tells of it through
// multiBarChartBaseLineChanged().
//
// Unlike the setters of the frame, the update operations replot at once.
class FIGURA_EXPORT MultiBarPlot : public VoidPlot
{
    Q_OBJECT

public:
    explicit MultiBarPlot(QWidget *parent = nullptr);
    ~MultiBarPlot() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

    // Returns 5.
    int rtti() const override;

    // The one chart. It stays owned by the plot; the host may style it but
    // must not delete or detach it.
    QwtPlotMultiBarChart *barChart() const;

    // The baseline from which all bars rise, and the range it must lie in.
    double barChartBaseline();
    double barChartBaseLineMin();
    double barChartBaseLineMax();
    // Takes value if it lies in the range, bounds included, and applies it to
    // the chart; otherwise nothing happens. Emits nothing and does not replot.
    void setBarChartBaseLine(double value);
    // Plain stores: the baseline in force is not checked again.
    void setBarChartBaseLineMin(double value);
    void setBarChartBaseLineMax(double value);

    // Whether bars of value 0 or below are left out of the read-out label;
    // true at start. Takes effect with the next read-out.
    void setHideZeroValueMarkerLabel(bool on);

    // A new colour for one bar place, keeping the style of its symbol, then a
    // replot. index must be valid both as a sample number and as a place
    // inside that sample's set; a place without a symbol, an invalid colour
    // and a chart without samples are ignored.
    virtual void updateMultiBarChart(int index, const QColor &color);
    // New values alone, then a replot: colours, titles and the read-out line
    // stay, and the read-out label is not brought up to date. A null pointer
    // is ignored.
    virtual void updateMultiBarChart(QList<QwtSetSample> *samples);
    // The full update. The first sample decides the number of bars per set:
    // each place gets a box symbol of its colour and each a title, the
    // read-out line is made if there is none, or removed when samples is
    // empty; then the read-out is brought up to date and the plot replots.
    // Places beyond the end of colors get chartColor(), beyond the end of
    // titles an empty title. A null pointer is ignored.
    virtual void updateMultiBarChart(QList<QwtSetSample> *samples, const QList<QColor> &colors,
                                     const QList<QwtText> &titles);

Q_SIGNALS:
    // An accepted settings dialog with a baseline other than the present
    // one: value is the baseline in force afterwards, which is the old one
    // when the new value lay outside the range.
    void multiBarChartBaseLineChanged(double value);

protected:
    // Steps the read-out one set and moves the mouse pointer to the bottom
    // edge of the canvas under it. Does nothing without samples or before
    // the first full update; before the first read-out it starts at column 1.
    void shiftMarkers(VoidPlot::ShiftDirection direction) override;
    // The number format of the read-out: the x axis title and a whole
    // number, since bars stand on whole positions; y values in exponent form
    // below 0.001 and when negative, else fixed with 4 decimals.
    QString axisValueText(int axisId, double value) override;
    void loadToPlotSettingDialog(PlotSettingsDialog &dialog) override;
    void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog) override;

    // Width in pixels of a read-out label: of text when it is given, else an
    // estimate from the last set.
    virtual int markerLabelWidth(const QString &text);
    // The read-out pass. With an empty set in setSample, pos is a canvas
    // column and the nearest set is read; otherwise the set at exactly
    // setSample.value, if there is one. Never replots.
    virtual void displayMarkers(int pos, const QwtSetSample &setSample);
    // Redoes the read-out at its present x after new samples came; where that
    // x no longer exists, the label is cleared and the line stays.
    virtual void refreshMarkers();
    // The first and the last set of the chart, or an empty set.
    virtual QwtSetSample getFirstSetSample();
    virtual QwtSetSample getLastSetSample();

protected Q_SLOTS:
    // A legend entry was switched: the read-out line follows the chart.
    void togglePlotItem(const QVariant &itemInfo, bool on, int index) override;

protected:
    QwtPlotMultiBarChart *barChartValue = nullptr; // owned, attached
    double barChartBaselineValue = PlotDefault::BarChartBaseline;
    double barChartBaseLineMinValue = PlotDefault::BarChartBaselineMin;
    double barChartBaseLineMaxValue = PlotDefault::BarChartBaselineMax;
    bool hideZeroValueMarkerLabel = true;
};
