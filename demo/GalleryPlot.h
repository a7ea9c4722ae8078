#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <qwt_text.h>

class VoidPlot;

// What the gallery window needs of the plot on each of its pages. The
// gallery's host subclasses of the library's plot classes implement it next
// to their library base; the window holds them through it.
class GalleryPlot
{
public:
    virtual ~GalleryPlot() = default;

    virtual VoidPlot *plotWidget() = 0;
    // Names the page in settings and screenshot files, e.g. "curveplot".
    virtual QString pageKey() const = 0;
    // The tab text and the line of text above the plot.
    virtual QString pageTitle() const = 0;
    virtual QString pageCaption() const = 0;

    // Applies the light or the dark palette through the plot's setters, the
    // colours of the data included.
    virtual void applyPalette(bool dark) = 0;
    // The colours in which the series are drawn.
    virtual QList<QColor> seriesColors() const = 0;
    // The visible series as CSV, the same for the clipboard and for files.
    virtual QString textData() const = 0;
    // The template of the read-out labels, whose font the plot reports only
    // when it changes.
    virtual QwtText markerLabelTemplate() const = 0;
    // Puts the read-out, and a selection where the plot has one, on a
    // telling sample, for pictures of the page.
    virtual void poseForScreenshot() = 0;
};
