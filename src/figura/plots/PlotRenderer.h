#pragma once

#include <figura/FiguraGlobal.h>

#include <QMap>
#include <QString>

#include <qwt_plot_renderer.h>

class QImage;
class QPainter;
class QRectF;
class QSizeF;
class QwtPlot;
class QwtScaleMap;

// Draws plots for the clipboard and for files, with the logo in the top right
// corner of the canvas, and asks for the file to export to. The plot frame
// makes one as a local object for each copy or export.
class FIGURA_AUTOTEST_EXPORT PlotRenderer : public QwtPlotRenderer
{
    Q_OBJECT

public:
    explicit PlotRenderer(QObject *parent = nullptr);

    // Asks for a file name, starting in the directory of the previous export
    // of the process, and renders the plot into it as a document of sizeMM
    // at resolution DPI, in the format of the file's suffix. False when the
    // plot is null or the user cancels; a failed write is not reported.
    bool exportPlot(QwtPlot *plot, const QString &documentName, const QSizeF &sizeMM, int resolution);

    // The base class's canvas, then renderLogo().
    void renderCanvas(const QwtPlot *plot, QPainter *painter, const QRectF &canvasRect,
                      const QwtScaleMap *maps) const override;
    // Draws logo() at PlotDefault::Export::LogoRenderHeight, its pixel size
    // kept, PlotDefault::Export::LogoRenderMargin from the top and right edge
    // of the canvas rectangle.
    virtual void renderLogo(const QwtPlot *plot, QPainter *painter, const QRectF &canvasRect) const;
    // The logo scaled to the height with its aspect kept; null if it cannot
    // be loaded.
    virtual QImage logo(int height) const;

protected:
    // File dialog filter text by image format key ("png", "jpg", ...).
    QMap<QString, QString> imageFilters;
};
