#pragma once

// A VoidPlot that opens its protected members to the tests and records the
// calls of its hooks.

#include <figura/plots/VoidPlot.h>

#include <QAction>
#include <QList>
#include <QMenu>

class VoidPlotProbe : public VoidPlot
{
public:
    using VoidPlot::VoidPlot;

    using VoidPlot::autoScroll;
    using VoidPlot::axisValueText;
    using VoidPlot::createCustomScaleSettings;
    using VoidPlot::autoScrollAct;
    using VoidPlot::createContextMenu;
    using VoidPlot::createMarker;
    using VoidPlot::customPlotAct;
    using VoidPlot::deleteSeriesMarker;
    using VoidPlot::deleteSeriesMarkers;
    using VoidPlot::displayMarkersPrecheck;
    using VoidPlot::dragZoom;
    using VoidPlot::dragZoomAct;
    using VoidPlot::editCustomScaleAct;
    using VoidPlot::fullZoomAct;
    using VoidPlot::grid;
    using VoidPlot::hideAllMarkers;
    using VoidPlot::isMouseLeftClicked;
    using VoidPlot::logScale;
    using VoidPlot::logScaleAct;
    using VoidPlot::logScaleMin;
    using VoidPlot::marker;
    using VoidPlot::markerLabel;
    using VoidPlot::markerLabelAlignmentValue;
    using VoidPlot::markerLabelSortOptionValue;
    using VoidPlot::panner;
    using VoidPlot::peakLabelAct;
    using VoidPlot::peakLabelFormat;
    using VoidPlot::peakLabelVisible;
    using VoidPlot::plotImgToClipboardAct;
    using VoidPlot::plotImgToFileAct;
    using VoidPlot::pressPosition;
    using VoidPlot::removeAction;
    using VoidPlot::removeActions;
    using VoidPlot::replotTimer;
    using VoidPlot::rescale;
    using VoidPlot::selectionMarker;
    using VoidPlot::selectionMarkerLabel;
    using VoidPlot::seriesMarkers;
    using VoidPlot::setAllMarkersAttrs;
    using VoidPlot::setMarkerAttrs;
    using VoidPlot::setMarkerColor;
    using VoidPlot::setMarkerWidth;
    using VoidPlot::textDataToClipboardAct;
    using VoidPlot::textDataToFileAct;
    using VoidPlot::toggleAutoScroll;
    using VoidPlot::toggleDragZoom;
    using VoidPlot::toggleLogScale;
    using VoidPlot::togglePeakLabels;
    using VoidPlot::xScaleDiv;
    using VoidPlot::xScaleType;
    using VoidPlot::yLeftScaleDiv;
    using VoidPlot::yRightScaleDiv;
    using VoidPlot::zoomPicker;
    using VoidPlot::customScaleSettings;
    using VoidPlot::legendValue;

    // Calls of the hooks, in order.
    QList<ShiftDirection> shifts;
    QList<bool> preparedForLog;
    QList<PeakLabelFormat> peakLabelUpdates;
    int fullScaleZooms = 0;
    int plotSettingEdits = 0;
    int clipboardCopies = 0;

    // What appendContextMenu() adds; none by default.
    QString extraMenuEntry;

    void shiftMarkers(ShiftDirection direction) override { shifts << direction; }

    void zoomFullScale() override
    {
        ++fullScaleZooms;
        VoidPlot::zoomFullScale();
    }

protected:
    void prepareDataForLogScale(bool on) override
    {
        preparedForLog << on;
        VoidPlot::prepareDataForLogScale(on);
    }

    void updatePeakLabels(const PeakLabelFormat &format) override { peakLabelUpdates << format; }

    void editPlotSetting() override { ++plotSettingEdits; }

    void appendContextMenu(QMenu &menu) override
    {
        if (!extraMenuEntry.isEmpty())
            menu.addAction(extraMenuEntry);
    }

public:
    void copyImageToClipboard() override
    {
        ++clipboardCopies;
        VoidPlot::copyImageToClipboard();
    }
};
