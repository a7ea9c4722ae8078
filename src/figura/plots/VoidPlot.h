#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>
#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CustomScaleSettings.h>

#include <QColor>
#include <QList>
#include <QPen>
#include <QPoint>
#include <QString>

#include <qwt_plot.h>
#include <qwt_text.h>

class QAction;
class QContextMenuEvent;
class QKeyEvent;
class QMenu;
class QMouseEvent;
class QRectF;
class QTimer;
class QVariant;
class QwtLegend;
class QwtPlotGrid;
class QwtPlotMarker;
class QwtPlotPanner;
class QwtPlotPicker;
class QwtScaleDiv;
class PlotSettingsDialog;

// The base of every plot widget of the library: a QwtPlot that holds no data
// of its own and adds what all charts share. The canvas pans with the left
// button, zooms into a box drawn with the right button (or, in drag-zoom mode,
// stretches the axes around the press point) and magnifies with the wheel; a
// right click opens a context menu built from actions chosen by option bits;
// one vertical marker line with a label reads out values; the plot can be
// copied to the clipboard and exported; a settings dialog edits its look.
//
// Ownership: the grid and all markers are attached plot items and belong to
// the plot; the panner, the magnifier, the box-zoom picker, the replot timer,
// the actions and the custom scale store are children of the plot or its
// canvas. The caller of createMarker() keeps a pointer, the plot owns the item.
//
// Requests to redraw go through replotLater(), which restarts a single-shot
// timer of PlotDefault::ReplotDelay ms, so that a burst of pointer events ends
// in one replot after the last of them. Setters of colours and attributes do
// not replot; the caller does.
//
// Derived classes (CurvePlot, BarPlot, MultiBarPlot and their time variants)
// add the data, the read-out and their options; host applications derive
// further and fill the many hooks that have empty bodies here.
class FIGURA_EXPORT VoidPlot : public QwtPlot
{
    Q_OBJECT

public:
    // Direction of a key-driven marker step, see shiftMarkers().
    enum ShiftDirection {
        ShiftLeft = 0,
        ShiftRight = 1,
        ShiftHome = 2,
        ShiftEnd = 3
    };
    Q_ENUM(ShiftDirection)

    // Bits of customPlotOptions(): the groups that the settings dialog offers.
    enum PlotOption {
        PlotOptionTitle = 0x001,
        PlotOptionCanvas = 0x002,
        PlotOptionChartColor = 0x004,
        PlotOptionLineChartWidth = 0x008,
        PlotOptionApplyLineWidth = 0x010,
        PlotOptionBarChartBaseline = 0x020,
        PlotOptionTimeFormat = 0x040,
        PlotOptionMarker = 0x080,
        PlotOptionMarkerLabel = 0x100,
        PlotOptionMarkerLabelSort = 0x200, // only with PlotOptionMarkerLabel
        PlotOptionPeakLabel = 0x400
    };

    // Bits of contextMenuItems(): the actions that exist and stand in the menu.
    enum MenuItem {
        MenuLogScale = 0x001,
        MenuFullZoom = 0x002,
        MenuEditCustomScale = 0x004,
        MenuDragZoom = 0x008,
        MenuAutoScroll = 0x010,
        MenuPlotImageToFile = 0x020,
        MenuTextDataToFile = 0x040,
        MenuCustomPlot = 0x080,
        MenuPlotImageToClipboard = 0x100,
        MenuTextDataToClipboard = 0x200,
        MenuPeakLabel = 0x400
    };

    // Bits of setMarkerAttrs(). Where two bits contradict each other, the
    // lower one wins: Hide over Show, LineClear over LineOpaque, SymbolNone
    // over SymbolOn.
    enum MarkerAttr {
        MarkerAttrHide = 1,
        MarkerAttrShow = 2,
        MarkerAttrLineClear = 4,    // line pen alpha 0: the line vanishes, its colour stays
        MarkerAttrLineOpaque = 8,   // line pen alpha 255
        MarkerAttrSymbolNone = 16,
        MarkerAttrSymbolOn = 32,    // PlotDefault::MarkerSymbolStyle
        MarkerAttrLabelClear = 64   // the label text is emptied
    };

    explicit VoidPlot(QWidget *parent = nullptr);
    ~VoidPlot() override;

    // Hooks for the host's data handling; empty in the whole library.
    virtual void initializeData();
    virtual void updateData();
    virtual void reset(bool all);

    // The type code of the plot class: VoidPlot 0, CurvePlot 1, BarPlot 2,
    // TimeCurvePlot 3, TimeBarPlot 4, MultiBarPlot 5.
    virtual int rtti() const;
    // A name for the host's own use; empty here.
    virtual QString plotName();

    // Auto-scales the x axis and the left y axis and replots at once; the
    // right y axis keeps its scale.
    virtual void zoomFullScale();
    // Opens the custom scale dialog on the present ranges and applies and
    // stores what the user accepts.
    virtual void editCustomScale();
    // Adds the stored custom scales to the submenu "Custom Scale".
    virtual void loadCustomScaleMenu(QMenu &menu);
    // Puts an image of the widget, at its size and with the logo, on the clipboard.
    virtual void copyImageToClipboard();
    // Asks for a file name and writes a 300 by 200 mm, 300 DPI document.
    virtual void exportImageToFile();
    // Text data export: only logs "not implemented" here; a host's subclass
    // that knows its data supplies it.
    virtual void copyTextDataToClipboard();
    virtual void exportTextDataToFile();

    // Sets the title and emits plotTitleChanged() when it differs.
    virtual void setPlotTitle(const QwtText &title);
    // Stores the colour for curves and bars, which subclasses apply.
    virtual void setChartColor(const QColor &color);
    // Width and colour of the frame marker and the series markers. The width
    // also reaches the selection marker; the colour does not, so that a
    // selection stays red.
    virtual void setMarkersWidth(int width);
    virtual void setMarkersColor(const QColor &color);
    // Put a new log or linear engine of base 10 on an axis.
    virtual void setAxisLogScaleEngine(int axisId);
    virtual void setAxisLinearScaleEngine(int axisId);

    // What Restore Defaults of the settings dialog goes back to: snapshots
    // taken at the end of construction.
    virtual QwtText defaultPlotTitle();
    virtual QwtText defaultAxisTitle(int axisId);
    virtual TickLabelFormat defaultTickLabel(int axisId);
    virtual QwtText defaultMarkerLabel();
    virtual PeakLabelFormat defaultPeakLabelFormat();

    // Dark mode only stores a flag and tells of it; applying the
    // PlotDefault::DarkMode palette is the host's business.
    void enableDarkMode(bool on);
    bool isDarkMode() const;

    // A checkable legend; a check box shows or hides its plot item. A second
    // enableLegend() while one exists changes nothing, not even its position.
    void enableLegend(QwtPlot::LegendPosition position);
    void disableLegend();
    QwtLegend *plotLegend();

    void setCanvasBgColor(const QColor &color);
    void setMajorGridColor(const QColor &color);
    void setMinorGridColor(const QColor &color);
    const QColor &chartColor() const;

    // A text shown in the settings dialog in place of the title's own text,
    // for hosts that compose the title; a plain store.
    void setSubTitle(const QString &text);
    QString subTitle();

    // Requests one replot PlotDefault::ReplotDelay ms after the last request.
    void replotLater();

    // Bits of PlotOption; read at the next opening of the settings dialog.
    void setCustomPlotOptions(int options);
    int customPlotOptions() const;
    // Bits of MenuItem; creates the actions of new bits and deletes those of
    // cleared ones. A recreated action takes its check state from its flag.
    void setContextMenuItems(int items);
    int contextMenuItems() const;
    // Resets options, flags and colours to the class defaults and brings the
    // actions in line with them.
    void initializeOptions();

    // Canvas position of the latest mouse press.
    QPoint const &mousePressPosition();

    // The modifier that must be held for the read-out to follow the pointer:
    // one of Qt::NoModifier (the default), Shift, Control or Alt. Anything
    // else is ignored.
    int moveMarkerKeyModifier() const;
    void setMoveMarkerKeyModifier(int modifier);

    // Host setters of the features that have actions: they store the flag
    // and check the action, whose toggled() does the work. A feature whose
    // action does not exist (its MenuItem bit is clear) reads as off.
    void setDragZoom(bool on);
    void setLogScale(bool on);
    void setAutoScroll(bool on);
    bool isDragZoom() const;
    bool isLogScale() const;
    bool isAutoScroll() const;

    // The stand-in for a lower bound of 0 or less when drag-zoom stretches a
    // logarithmic left axis. Values of 0 or less are ignored.
    double logScaleMinY();
    void setLogScaleMinY(double value);

    // Marker line and marker label switches; a change shows or hides the
    // markers' parts at once and requests a replot.
    void setMarkerVisible(bool on);
    bool isMarkerVisible() const;
    void setMarkerLabelVisible(bool on);
    bool isMarkerLabelVisible() const;
    // Takes font and colour of the text (not its string) for marker labels;
    // an invalid colour is ignored.
    void setMarkerLabelFontColor(const QwtText &text);
    // Reaches the frame marker's label with the next read-out.
    void setMarkerLabelBgColor(const QColor &color);
    // Keys of Figura::MarkerLabelAlignments; anything else is ignored.
    void setMarkerLabelAlignment(int value);
    void setMarkerLabelAlignment(Qt::AlignmentFlag value);
    Qt::AlignmentFlag markerLabelAlignment();
    // Keys of Figura::MarkerLabelSortOptions; anything else is ignored.
    void setMarkerLabelSortOption(int value);
    void setMarkerLabelSortOption(Figura::MarkerLabelSortOption value);
    Figura::MarkerLabelSortOption markerLabelSortOption();

    // The peak labels are the host's items; the plot keeps their visibility
    // flag and format and tells of changes. setPeakLabelVisible() emits nothing.
    void setPeakLabelVisible(bool on);
    bool isPeakLabelVisible() const;
    void setPeakLabelFormat(const PeakLabelFormat &format);
    PeakLabelFormat const &getPeakLabelFormat() const;

    // Font, colour and rotation of one axis's tick labels.
    TickLabelFormat tickLabel(int axisId);
    void setTickLabel(int axisId, const TickLabelFormat &format);
    // Applies a title from the settings dialog: an empty text keeps the
    // title's string, an invalid colour its colour. axisTitleChanged() carries
    // the font, and a string or colour only where those changed.
    void setAxisCustomTitle(int axisId, const QwtText &text);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void darkModeEnabled(bool on);
    void logScaleToggled(bool on);
    void dragZoomToggled(bool on);
    void peakLabelVisibilityToggled(bool on);
    void autoScrollToggled(bool on);
    void plotTitleChanged(QwtText title);
    void canvasBgColorChanged(QColor color);
    void majorGridColorChanged(QColor color);
    void minorGridColorChanged(QColor color);
    void chartColorChanged(QColor color);
    void markerVisibleToggled(bool on);
    void markerWidthChanged(int width);
    void markerColorChanged(QColor color);
    void markerLabelVisibleToggled(bool on);
    void markerLabelFontColorChanged(QwtText t);
    void markerLabelBgColorChanged(QColor c);
    void markerLabelAlignmentChanged(int value);
    void markerLabelSortOptionChanged(int value);
    void peakLabelFormatChanged(PeakLabelFormat format);
    void axisTitleChanged(int axisId, QwtText title);
    void tickLabelChanged(int axisId, TickLabelFormat labelFormat);

protected:
    void keyPressEvent(QKeyEvent *event) override;

    // True for a left release without modifiers within 2 pixels of its press.
    virtual bool isMouseLeftClicked(QMouseEvent *event);
    // Called by plots that test isMouseLeftClicked(); empty in the library.
    virtual void onMouseLeftClicked(QMouseEvent *event);
    // Runs after a custom scale changed the axes, before the replot; empty here.
    virtual void customScalePostProcess();
    // Stretches an axis around center by a drag of delta (a fraction of the
    // canvas, positive to the right or up), always from the scale at the press.
    // Only xBottom, yLeft and yRight take part. Does not replot.
    virtual void rescale(int axisId, double delta, double center);
    // Runs first when the log scale is toggled, before the engine changes,
    // so that a plot can prepare its data; stores the flag here.
    virtual void prepareDataForLogScale(bool on);
    // Moves the read-out by a key; empty here, the data plots implement it.
    virtual void shiftMarkers(VoidPlot::ShiftDirection direction);
    // Applies marker and label visibility to all markers before a read-out;
    // false means that nothing is to be shown and the read-out must stop.
    virtual bool displayMarkersPrecheck();
    // Makes the custom scale store on first use. A subclass that leaves
    // customScaleSettings null switches the custom scale submenu off.
    virtual void createCustomScaleSettings();
    // Gets the custom scale dialog before it is shown; empty here.
    virtual void setCustomScaleDialogHelper(QWidget *dialog);
    // The text of an axis value in read-out labels: the locale's 'g' format,
    // 6 digits. Time plots show times.
    virtual QString axisValueText(int axisId, double value);
    // Fill the settings dialog from the plot and read it back on acceptance.
    // Subclasses chain to these and add their own values.
    virtual void loadToPlotSettingDialog(PlotSettingsDialog &dialog);
    virtual void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog);
    // Gets the settings dialog before it is filled; empty here.
    virtual void setPlotSettingDialogHelper(QWidget *dialog);
    // Called after the peak label format changed, for hosts that restyle
    // their peak labels here; empty in the library.
    virtual void updatePeakLabels(const PeakLabelFormat &format);
    // Lets a subclass add entries at the end of the context menu; empty here.
    virtual void appendContextMenu(QMenu &menu);
    // Creates the actions of set MenuItem bits and deletes those of clear ones.
    virtual void createActions();
    // Applies MarkerAttr bits to one marker; a null marker is ignored.
    virtual void setMarkerAttrs(QwtPlotMarker *marker, int attrs);
    // setMarkerAttrs() on the series markers and the frame marker, not on the
    // selection marker. Subclasses with marker state of their own chain here.
    virtual void setAllMarkersAttrs(int attrs);
    virtual void hideAllMarkers();

    // A hidden marker attached to the plot. Line styles other than HLine,
    // VLine and Cross give NoLine; a transparent colour comes back opaque.
    QwtPlotMarker *createMarker(const QColor &color, int width, bool withSymbol, int lineStyle);
    // Colour and width of one marker's line and symbol; null is ignored.
    void setMarkerColor(QwtPlotMarker *marker, const QColor &color);
    void setMarkerWidth(QwtPlotMarker *marker, int width);
    // Detach and delete series markers; deleteSeriesMarkers() also hides the
    // frame marker, since without series there is nothing to read.
    void deleteSeriesMarker(int index);
    void deleteSeriesMarkers();

    // The series store shared by the plots that keep one plot item per
    // series (curves, bar charts): the subclass's list of items and
    // seriesMarkers run side by side, index i of one belonging to index i of
    // the other, and these three keep them so.
    // appendSeries() takes ownership of item, attaches it and appends a
    // series marker, a dot in the frame marker's present colour and width
    // without a line, or a null entry when hasMarker is false. It neither
    // checks for duplicates nor touches the legend. removeSeries() detaches
    // and deletes the item at index and its marker, and hides the frame
    // marker once no entry is left; an index out of range is ignored.
    // removeAllSeries() removes from the front until the list is empty.
    template <class Item>
    void appendSeries(QList<Item *> &items, Item *item, bool hasMarker);
    template <class Item>
    void removeSeries(QList<Item *> &items, int index);
    template <class Item>
    void removeAllSeries(QList<Item *> &items);

    // Deletes an action and sets the pointer to null.
    void removeAction(QAction *&action);
    void removeActions();
    // Builds the context menu afresh from the actions and runs it.
    void createContextMenu(QContextMenuEvent *event);

protected Q_SLOTS:
    // The slots behind the checkable actions; overrides should chain here.
    virtual void toggleLogScale(bool enabled);
    virtual void toggleDragZoom(bool enabled);
    virtual void togglePeakLabels(bool enabled);
    virtual void toggleAutoScroll(bool enabled);
    // Runs the settings dialog and applies what the user accepts.
    virtual void editPlotSetting();
    // Reached by the legend's check boxes: shows or hides the item.
    virtual void togglePlotItem(const QVariant &itemInfo, bool on, int index);

private Q_SLOTS:
    void zoomInBox(const QRectF &rect);

protected:
    bool darkMode = false;
    QwtPlotPanner *panner = nullptr;
    QwtPlotGrid *grid = nullptr;
    QwtPlotPicker *zoomPicker = nullptr;
    QList<QwtPlotMarker *> seriesMarkers;  // one per series, in series order
    QwtText markerLabel;                    // template of all marker labels
    QwtPlotMarker *marker = nullptr;        // the frame marker: the read-out line
    QwtPlotMarker *selectionMarker = nullptr; // made by CurvePlot only
    QwtText selectionMarkerLabel;
    PeakLabelFormat peakLabelFormat;
    CustomScale::XScaleType xScaleType = CustomScale::MassScale;
    CustomScaleSettings *customScaleSettings = nullptr;
    QString subTitleText;
    int contextMenuItemFlags = 0;
    int customPlotOptionFlags = 0;

    QAction *logScaleAct = nullptr;
    QAction *fullZoomAct = nullptr;
    QAction *editCustomScaleAct = nullptr;
    QAction *dragZoomAct = nullptr;
    QAction *peakLabelAct = nullptr;
    QAction *plotImgToClipboardAct = nullptr;
    QAction *plotImgToFileAct = nullptr;
    QAction *textDataToClipboardAct = nullptr;
    QAction *textDataToFileAct = nullptr;
    QAction *autoScrollAct = nullptr;
    QAction *customPlotAct = nullptr;

    bool logScale = false;
    bool dragZoom = false;
    bool peakLabelVisible = false;
    bool autoScroll = true;
    QColor chartColorValue;
    bool markerVisible = true;
    bool markerLabelVisible = true;
    int markerLabelAlignmentValue = Qt::AlignTop;
    int markerLabelSortOptionValue = Figura::MarkerLabelSortDefault;
    int moveMarkerKey = Qt::NoModifier;

    QwtText defaultPlotTitleText;
    QwtText defaultAxisTitleText;
    TickLabelFormat defaultTickLabelFormat;
    QwtText defaultMarkerLabelText;
    PeakLabelFormat defaultPeakLabelFormatValue;

    double logScaleMin = PlotDefault::YLower;
    // The scale divisions at the latest right press, the base of drag-zoom.
    QwtScaleDiv *xScaleDiv = nullptr;
    QwtScaleDiv *yLeftScaleDiv = nullptr;
    QwtScaleDiv *yRightScaleDiv = nullptr;
    QPoint pressPosition;
    QTimer *replotTimer = nullptr;
    // The legend while enabled; named so as not to hide QwtPlot::legend().
    QwtLegend *legendValue = nullptr;

private:
    // Set when the platform delivers the context menu at the right press;
    // the menu then waits for the release, so that a drag can cancel it.
    bool contextMenuPending = false;
};

template <class Item>
void VoidPlot::appendSeries(QList<Item *> &items, Item *item, bool hasMarker)
{
    items.append(item);
    item->attach(this);
    QwtPlotMarker *seriesMarker = nullptr;
    if (hasMarker) {
        // The frame marker's colour, not the series': all dots look alike.
        const QPen pen = marker->linePen();
        seriesMarker = createMarker(pen.color(), pen.width(), true, QwtPlotMarker::NoLine);
    }
    seriesMarkers.append(seriesMarker);
}

template <class Item>
void VoidPlot::removeSeries(QList<Item *> &items, int index)
{
    if (index < 0 || index >= items.size())
        return;
    if (Item *item = items.takeAt(index)) {
        item->detach();
        delete item;
    }
    deleteSeriesMarker(index);
    if (seriesMarkers.isEmpty() && marker)
        marker->setVisible(false);
}

template <class Item>
void VoidPlot::removeAllSeries(QList<Item *> &items)
{
    while (!items.isEmpty())
        removeSeries(items, 0);
}
