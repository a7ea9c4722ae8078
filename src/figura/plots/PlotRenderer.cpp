#include <figura/plots/PlotRenderer.h>

#include <figura/defaults/PlotDefault.h>

#include <QDebug>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPointer>
#include <QStringList>

#include <qwt_plot.h>

PlotRenderer::PlotRenderer(QObject *parent)
    : QwtPlotRenderer(parent)
{
    const QString images = tr("Images");
    imageFilters.insert(QStringLiteral("bmp"), QStringLiteral("Bitmap ") + images + QStringLiteral(" (*.bmp)"));
    imageFilters.insert(QStringLiteral("jpg"), QStringLiteral("JPEG ") + images + QStringLiteral(" (*.jpg;*.jpeg)"));
    imageFilters.insert(QStringLiteral("gif"), QStringLiteral("GIF ") + images + QStringLiteral(" (*.gif)"));
    imageFilters.insert(QStringLiteral("png"), QStringLiteral("PNG ") + images + QStringLiteral(" (*.png)"));
    imageFilters.insert(QStringLiteral("tif"), QStringLiteral("TIFF ") + images + QStringLiteral(" (*.tif;*.tiff)"));
}

bool PlotRenderer::exportPlot(QwtPlot *plot, const QString &documentName, const QSizeF &sizeMM,
                              int resolution)
{
    if (!plot)
        return false;

    QString fileName = documentName;

    const QString documents = tr("Documents");
    QStringList filters;
    filters << QStringLiteral("PDF ") + documents + QStringLiteral(" (*.pdf)")
            << QStringLiteral("SVG ") + documents + QStringLiteral(" (*.svg)");
    QString selectedFilter;

    // Qt lists "jpeg" beside "jpg" and "tiff" beside "tif"; only the short
    // names have a filter, so each format is offered once.
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    for (const QByteArray &format : formats) {
        const QString key = QString::fromLatin1(format);
        const auto it = imageFilters.constFind(key);
        if (it == imageFilters.constEnd())
            continue;
        filters << it.value();
        if (fileName.endsWith(key, Qt::CaseInsensitive))
            selectedFilter = it.value();
    }

    // The directory of the last export, for the life of the process.
    static QString lastDirectory;
    const QFileInfo documentInfo(fileName);
    if (documentInfo.fileName() == fileName) {
        if (!lastDirectory.isEmpty())
            fileName = lastDirectory + QLatin1Char('/') + fileName;
    } else {
        lastDirectory = documentInfo.path();
    }

    // The file dialog has no parent and runs its own event loop, in which the
    // host may delete the plot: then there is nothing left to export.
    const QPointer<QwtPlot> alive(plot);
    fileName = QFileDialog::getSaveFileName(nullptr, tr("Export File Name"), fileName,
                                            filters.join(QStringLiteral(";;")), &selectedFilter);
    if (fileName.isEmpty() || !alive)
        return false;

    const QFileInfo target(fileName);
    lastDirectory = target.path();
    renderDocument(plot, fileName, target.suffix(), sizeMM, resolution);
    return true;
}

void PlotRenderer::renderCanvas(const QwtPlot *plot, QPainter *painter, const QRectF &canvasRect,
                                const QwtScaleMap *maps) const
{
    QwtPlotRenderer::renderCanvas(plot, painter, canvasRect, maps);
    renderLogo(plot, painter, canvasRect);
}

void PlotRenderer::renderLogo(const QwtPlot *plot, QPainter *painter, const QRectF &canvasRect) const
{
    Q_UNUSED(plot)
    if (!painter || !painter->paintEngine()) {
        qCritical() << "Invalid painter or paintEngine" << "PlotRenderer::renderLogo" << canvasRect;
        return;
    }

    const QImage image = logo(PlotDefault::Export::LogoRenderHeight);
    if (image.isNull())
        return;

    // In the painter's units: the logo keeps its pixel size, so it comes out
    // small on a high-resolution page.
    const QRectF target(canvasRect.right() - image.width() - PlotDefault::Export::LogoRenderMargin,
                        canvasRect.top() + PlotDefault::Export::LogoRenderMargin,
                        image.width(), image.height());

    painter->save();
    painter->setPen(Qt::NoPen);
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->drawImage(target, image);
    painter->restore();
}

QImage PlotRenderer::logo(int height) const
{
    // The resource path without a slash behind the colon reaches the same file.
    const QImage image(QStringLiteral(":images/KELM-logo-black.png"));
    if (image.isNull()) {
        qWarning("Failed to load KELM logo");
        return QImage();
    }
    return image.scaled(image.width() * height / image.height(), height, Qt::KeepAspectRatio,
                        Qt::SmoothTransformation);
}
