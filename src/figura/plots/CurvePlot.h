#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/plots/VoidPlot.h>

#include <QList>
#include <QMultiMap>
#include <QPointF>
#include <QString>

class QAction;
class QColor;
class QContextMenuEvent;
class QEvent;
class QObject;
class QVariant;
class QwtPlotCurve;
class QwtSymbol;

namespace KelmQtPlot {
class CurveAttributes;
}

// The line chart of the library. The host builds each QwtPlotCurve (title,
// data, pen, symbol) and hands it to appendCurve(); from then on the plot owns
// and deletes it. The plot keeps no sample data: it reads the curves' series
// through QwtSeriesData::sample() when it needs a sample, one bisection per
// curve and read-out, so that long curves stay cheap.
//
// The read-out follows the pointer: a vertical line with one dot per curve
// that has a series marker, snapped to real samples, and one label with the
// x value and a line per curve. A selection is a second, red line on one
// sample of the first curve, told to the host by sampleSelected() one
// event-loop turn later. The keys Left, Right, Home and End step the read-out
// from sample to sample.
//
// Curves are expected in ascending x. Curves that are meant to be read
// together share their x values: the key steps and refreshMarkers() look for
// a sample of exactly the same x on every curve.
//
// None of the store operations replots; the host replots or calls
// replotLater() after adding, removing or restyling curves.
class FIGURA_EXPORT CurvePlot : public VoidPlot
{
    Q_OBJECT

public:
    explicit CurvePlot(QWidget *parent = nullptr);
    ~CurvePlot() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

    // Returns 1.
    int rtti() const override;

    // Takes ownership of curve and attaches it. With hasMarker the curve gets
    // a series marker, a dot in the colour of the frame marker; without, it
    // takes no part in the read-out. Duplicates are not looked for.
    void appendCurve(QwtPlotCurve *curve, bool hasMarker);
    // Detach and delete one curve and its series marker; an index out of
    // range or a curve that is not in the list is ignored, and such a curve
    // stays the caller's.
    void removeCurve(int index);
    void removeCurve(QwtPlotCurve *curve);
    void removeCurves();
    // The curves in the order of appendCurve(). The host may read the list
    // and call into the curves, but must not add or remove entries through it.
    QList<QwtPlotCurve *> &curves();

    // Change the pen or the symbol of one curve. Each argument has a value
    // that leaves its attribute as it is: a negative style, a width or size
    // of zero or less, an invalid colour. A line style of 0 is Qt::NoPen. A
    // symbol cannot be taken away here; a curve without one gets a default
    // symbol to change.
    void setLineAttributes(int index, int style, int width, const QColor &color);
    void setSymbolAttributes(int index, int style, int size, const QColor &color);

    // The line width that the settings dialog shows; the curves' pens are
    // separate from it. setPenWidth() only stores.
    int penWidth() const;
    void setPenWidth(int width);

    // Hides the selection line and requests a replot; emits nothing.
    void clearSelectionMarker();
    // True while the read-out stands on the last sample of the last curve
    // with a marker.
    bool isSeriesMarkerAtEnd() const;

    // Stores the width and emits penWidthChanged() when it differs; the
    // curves are left to the host.
    virtual void updatePenWidth(int width);
    // Gives every curve's pen the width penWidth(), keeping style and colour.
    virtual void applyPenWidthToAll();
    // A factory for the host: a new symbol, owned by the caller, from the
    // symbol half of the attributes, defaults where they are unset.
    virtual QwtSymbol *createSymbol(const KelmQtPlot::CurveAttributes &attributes) const;
    // Shows the legend entry's menu for curve at the event's global position.
    // Called by the entry's LegendPicker on a right-click. The menu's one
    // action, editCurveAct, is made anew for each menu and leads to
    // editCurveAttributes(), unless the curve left the plot in the meantime.
    virtual void createLegendContextMenu(QwtPlotCurve *curve, QContextMenuEvent *event);

Q_SIGNALS:
    void penWidthChanged(int width);
    // An index into the samples of the first curve, -1 if the selected x is
    // not one of its samples. Delivered one event-loop turn after the
    // selection, once the plot has been redrawn; never after the plot died.
    void sampleSelected(int index);

protected:
    // Steps the read-out one sample of the first visible curve with a marker
    // and moves the mouse pointer to the bottom edge of the canvas under it.
    void shiftMarkers(VoidPlot::ShiftDirection direction) override;
    // The number format of the read-out: the x axis title and a value with 2
    // decimals; y values in exponent form below 0.001 and when negative,
    // else fixed with 4 decimals.
    QString axisValueText(int axisId, double value) override;
    void loadToPlotSettingDialog(PlotSettingsDialog &dialog) override;
    void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog) override;
    // Chain to the frame and keep isSeriesMarkerAtEnd() right.
    void setAllMarkersAttrs(int attrs) override;
    void hideAllMarkers() override;

    // Width in pixels of a read-out label: of text when it is given, else an
    // estimate from the curves' final samples.
    virtual int markerLabelWidth(const QString &text);
    // Binds the legend entry of an attached curve to it: the entry is checked,
    // the curve shown, and a LegendPicker owned by the plot gives the entry
    // its menu. Does nothing without a legend; does not replot. Each call
    // makes a new picker, so a second call gives a second menu.
    virtual void setLegend(QwtPlotCurve *curve);
    // Orders the lines of the label for the "Default" option: the order of
    // the curves, unless a line holds the separator itself; then by title.
    virtual void sortMarkerItems(const QMultiMap<QwtPlotCurve *, QString> &items,
                                 QList<QString> &lines);
    // The read-out pass. With value exactly (0, 0), pos is a canvas column
    // and each curve snaps to its nearest sample; otherwise each curve that
    // has a sample of x value.x() goes there. Never replots.
    virtual void displayMarkers(int pos, const QPointF &value);
    // Redoes the read-out at its present x, after the curves got new samples.
    virtual void refreshMarkers();
    // Shows the selection on one sample of the first curve, without a
    // replot or a signal.
    virtual void displaySelectionMarker(int index);
    // The drawing step of every selection: the line at value, the label at
    // the bottom, on the right of the line unless it would not fit there.
    virtual void displaySelectionMarker(int pos, const QPointF &value);
    // Brings the read-out to the selection.
    virtual void alignMarkers();
    // Selects value; the index is that of a sample of the first curve with
    // exactly its x, or -1.
    virtual void selectSample(int pos, const QPointF &value);
    // Selects the sample of the first curve nearest to the canvas column pos.
    virtual void selectSample(int pos);
    // Selects the sample under the read-out.
    virtual void selectSampleWithKey();
    // Runs the curve settings dialog for one curve and, on OK only, gives it
    // a new pen and symbol from the dialog and replots; true if the curve was
    // changed. Cap and join style, alpha and a separate symbol outline are
    // not kept.
    virtual bool editCurveAttributes(QwtPlotCurve *curve);
    virtual bool isAnyCurveVisible() const;

protected Q_SLOTS:
    // A legend entry was switched: its series marker follows, and the
    // read-out is rebuilt with or without the curve.
    void togglePlotItem(const QVariant &itemInfo, bool on, int index) override;

protected:
    QList<QwtPlotCurve *> curvesValue;
    int penWidthValue = PlotDefault::PenSize;
    bool seriesMarkerAtEnd = false;
    QAction *editCurveAct = nullptr;

private:
    // Emits sampleSelected(index) one event-loop turn later, unless the plot
    // is gone by then.
    void emitSampleSelectedLater(int index);
};
