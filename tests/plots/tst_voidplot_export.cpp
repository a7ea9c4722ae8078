// Image export: the renderer's logo and its place on the canvas, the save
// dialog with its filters and remembered directory, document files in PDF,
// SVG and PNG, and the clipboard image.

#include "VoidPlotProbe.h"

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/PlotRenderer.h>

#include <QClipboard>
#include <QFileDialog>
#include <QImageWriter>
#include <QLineEdit>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QtTest>

using TestSupport::activeModal;
using TestSupport::WhenShown;

namespace {

// A renderer that records the canvas rectangles it drew a logo on and can
// draw a plain coloured logo instead of the real one.
class RendererProbe : public PlotRenderer
{
public:
    using PlotRenderer::imageFilters;

    QImage plainLogo;
    mutable QList<QRectF> canvasRects;
    mutable QList<int> logoHeights;

    QImage logo(int height) const override
    {
        logoHeights << height;
        return plainLogo.isNull() ? PlotRenderer::logo(height) : plainLogo;
    }

    void renderLogo(const QwtPlot *plot, QPainter *painter, const QRectF &canvasRect) const override
    {
        canvasRects << canvasRect;
        PlotRenderer::renderLogo(plot, painter, canvasRect);
    }
};

// What the save dialog offered when it opened.
struct DialogRecord
{
    bool shown = false;
    QStringList filters;
    QString selectedFilter;
    QString directory;
    QString file;
};

// Answers the next save dialog: records it, then saves to target or, with an
// empty target, cancels.
class SaveDialogAnswer
{
public:
    SaveDialogAnswer(DialogRecord &record, const QString &target)
        : m_watch(activeModal, [&record, target](QWidget *w) {
              auto *dialog = qobject_cast<QFileDialog *>(w);
              record.shown = true;
              if (!dialog) {
                  if (auto *other = qobject_cast<QDialog *>(w))
                      other->reject();
                  return;
              }
              record.filters = dialog->nameFilters();
              record.selectedFilter = dialog->selectedNameFilter();
              record.directory = dialog->directory().absolutePath();
              record.file = dialog->selectedFiles().value(0);
              if (target.isEmpty()) {
                  dialog->reject();
                  return;
              }
              dialog->selectFile(target);
              if (auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit")))
                  name->setText(QFileInfo(target).fileName());
              static_cast<QDialog *>(dialog)->accept();
          })
    {
    }

private:
    WhenShown m_watch;
};

QImage plainImage(QSize size, QColor color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

// The bounding box of the pixels close to a colour.
QRect boxOf(const QImage &image, QColor color, int tolerance = 40)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (qAbs(c.red() - color.red()) <= tolerance && qAbs(c.green() - color.green()) <= tolerance
                && qAbs(c.blue() - color.blue()) <= tolerance) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

int darkPixels(const QImage &image, const QRect &area)
{
    int count = 0;
    const QRect inside = area & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 80)
                ++count;
        }
    }
    return count;
}

// Where the logo of the given size stands on a canvas rectangle.
QRect logoArea(const QRectF &canvas, QSize logo)
{
    const int margin = PlotDefault::Export::LogoRenderMargin;
    return QRectF(canvas.right() - logo.width() - margin, canvas.top() + margin, logo.width(),
                  logo.height())
        .toRect();
}

QSize expectedLogoSize()
{
    const QImage original(QStringLiteral(":images/KELM-logo-black.png"));
    const int height = PlotDefault::Export::LogoRenderHeight;
    return QSize(original.width() * height / original.height(), height);
}

} // namespace

class tst_VoidPlotExport : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void filterTableHasFiveImageFormats();
    void logoKeepsItsAspectAtTheRequestedHeight();
    void logoStandsTenPixelsFromCanvasTopAndRight();
    void badPainterLogsAndDrawsNoLogo();

    void nullPlotIsNotExported();
    void filterListHoldsExactlyTheWritableFormats();
    void filterFollowsTheSuffixOfTheName();
    void cancelReturnsFalseAndKeepsTheDirectory();
    void directoryInTheNameBecomesTheLastDirectory();
    void secondExportStartsInTheFirstOnesDirectory();
    void exportWritesValidDocuments_data();
    void exportWritesValidDocuments();
    void unwritableSuffixGoesOnUnchanged();
    void exportedPageShowsTheLogo();

    void clipboardGetsAnImageOfTheWidgetSizeWithLogo();

private:
    QTemporaryDir m_dir;
};

void tst_VoidPlotExport::initTestCase()
{
    QVERIFY(TestSupport::isolateSettings(m_dir, QStringLiteral("tst_voidplot_export")));
}

void tst_VoidPlotExport::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_VoidPlotExport::filterTableHasFiveImageFormats()
{
    RendererProbe renderer;
    QCOMPARE(renderer.imageFilters.keys(), (QStringList{"bmp", "gif", "jpg", "png", "tif"}));
    QCOMPARE(renderer.imageFilters.value("bmp"), QStringLiteral("Bitmap Images (*.bmp)"));
    QCOMPARE(renderer.imageFilters.value("jpg"), QStringLiteral("JPEG Images (*.jpg;*.jpeg)"));
    QCOMPARE(renderer.imageFilters.value("gif"), QStringLiteral("GIF Images (*.gif)"));
    QCOMPARE(renderer.imageFilters.value("png"), QStringLiteral("PNG Images (*.png)"));
    QCOMPARE(renderer.imageFilters.value("tif"), QStringLiteral("TIFF Images (*.tif;*.tiff)"));
}

void tst_VoidPlotExport::logoKeepsItsAspectAtTheRequestedHeight()
{
    PlotRenderer renderer;
    const QImage original(QStringLiteral(":images/KELM-logo-black.png"));
    QVERIFY(!original.isNull());
    QCOMPARE(renderer.logo(40).size(), expectedLogoSize());
    QCOMPARE(renderer.logo(80).height(), 80);
    QCOMPARE(renderer.logo(80).width(), original.width() * 80 / original.height());
    if (original.size() == QSize(1065, 722))
        QCOMPARE(renderer.logo(40).width(), 59);
}

void tst_VoidPlotExport::logoStandsTenPixelsFromCanvasTopAndRight()
{
    VoidPlot plot;
    plot.resize(600, 400);
    RendererProbe renderer;
    const QColor logoColor(255, 0, 255);
    renderer.plainLogo = plainImage(QSize(59, 40), logoColor);

    QImage image(600, 400, QImage::Format_ARGB32);
    image.fill(Qt::white);
    renderer.renderTo(&plot, image);

    QCOMPARE(renderer.canvasRects.size(), 1);
    QCOMPARE(renderer.logoHeights, QList<int>{PlotDefault::Export::LogoRenderHeight});
    const QRectF canvas = renderer.canvasRects.first();
    const QRect logo = boxOf(image, logoColor);
    QVERIFY(!logo.isEmpty());
    // Right edge and top: 10 pixels inside the canvas rectangle.
    QVERIFY2(qAbs(logo.left() + logo.width() - (canvas.right() - 10.0)) <= 1.0,
             qPrintable(QStringLiteral("logo %1,%2 %3x%4 on canvas %5,%6 %7x%8")
                            .arg(logo.x()).arg(logo.y()).arg(logo.width()).arg(logo.height())
                            .arg(canvas.x()).arg(canvas.y()).arg(canvas.width()).arg(canvas.height())));
    QVERIFY(qAbs(logo.top() - (canvas.top() + 10.0)) <= 1.0);
    QVERIFY(qAbs(logo.width() - 59) <= 1);
    QVERIFY(qAbs(logo.height() - 40) <= 1);
}

void tst_VoidPlotExport::badPainterLogsAndDrawsNoLogo()
{
    VoidPlot plot;
    RendererProbe renderer;
    QTest::ignoreMessage(QtCriticalMsg,
                         QRegularExpression(QStringLiteral(
                             "^Invalid painter or paintEngine PlotRenderer::renderLogo QRectF\\(")));
    renderer.renderLogo(&plot, nullptr, QRectF(0, 0, 100, 100));
    QVERIFY(renderer.logoHeights.isEmpty());
}

void tst_VoidPlotExport::nullPlotIsNotExported()
{
    PlotRenderer renderer;
    DialogRecord record;
    SaveDialogAnswer answer(record, QString());
    QVERIFY(!renderer.exportPlot(nullptr, QStringLiteral("untitled.png"), QSizeF(300, 200), 300));
    QCoreApplication::processEvents();
    QVERIFY(!record.shown);
}

void tst_VoidPlotExport::filterListHoldsExactlyTheWritableFormats()
{
    VoidPlot plot;
    RendererProbe renderer;
    QStringList expected{QStringLiteral("PDF Documents (*.pdf)"), QStringLiteral("SVG Documents (*.svg)")};
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    for (const QByteArray &format : formats) {
        const QString key = QString::fromLatin1(format);
        if (renderer.imageFilters.contains(key))
            expected << renderer.imageFilters.value(key);
    }
    QVERIFY(expected.contains(QStringLiteral("PNG Images (*.png)")));

    DialogRecord record;
    SaveDialogAnswer answer(record, QString());
    QVERIFY(!renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(300, 200), 300));
    QVERIFY(record.shown);
    QCOMPARE(record.filters, expected);
    QCOMPARE(record.selectedFilter, QStringLiteral("PNG Images (*.png)"));
    QCOMPARE(QFileInfo(record.file).fileName(), QStringLiteral("untitled.png"));
}

void tst_VoidPlotExport::filterFollowsTheSuffixOfTheName()
{
    VoidPlot plot;
    PlotRenderer renderer;
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (!formats.contains("bmp"))
        QSKIP("this Qt writes no BMP");
    DialogRecord record;
    SaveDialogAnswer answer(record, QString());
    QVERIFY(!renderer.exportPlot(&plot, QStringLiteral("untitled.BMP"), QSizeF(300, 200), 300));
    QCOMPARE(record.selectedFilter, QStringLiteral("Bitmap Images (*.bmp)"));
}

void tst_VoidPlotExport::cancelReturnsFalseAndKeepsTheDirectory()
{
    QTemporaryDir first;
    VoidPlot plot;
    PlotRenderer renderer;
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, first.filePath(QStringLiteral("kept.png")));
        QVERIFY(renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(30, 20), 30));
        QVERIFY(QFileInfo::exists(first.filePath(QStringLiteral("kept.png"))));
    }
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, QString());
        QVERIFY(!renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(30, 20), 30));
        QCOMPARE(record.directory, QDir(first.path()).absolutePath());
    }
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, QString());
        QVERIFY(!renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(30, 20), 30));
        QCOMPARE(record.directory, QDir(first.path()).absolutePath());
    }
}

void tst_VoidPlotExport::directoryInTheNameBecomesTheLastDirectory()
{
    QTemporaryDir other;
    VoidPlot plot;
    PlotRenderer renderer;
    {
        // Cancelled, but the directory of the name was taken before the dialog.
        DialogRecord record;
        SaveDialogAnswer answer(record, QString());
        QVERIFY(!renderer.exportPlot(&plot, other.filePath(QStringLiteral("named.png")), QSizeF(30, 20), 30));
        QCOMPARE(record.directory, QDir(other.path()).absolutePath());
        QCOMPARE(record.file, QDir(other.path()).absoluteFilePath(QStringLiteral("named.png")));
    }
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, QString());
        QVERIFY(!renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(30, 20), 30));
        QCOMPARE(record.directory, QDir(other.path()).absolutePath());
    }
}

void tst_VoidPlotExport::secondExportStartsInTheFirstOnesDirectory()
{
    QTemporaryDir first;
    VoidPlot plot;
    plot.resize(300, 200);
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, first.filePath(QStringLiteral("one.png")));
        plot.exportImageToFile();
        QVERIFY(record.shown);
        QCOMPARE(QFileInfo(record.file).fileName(), QStringLiteral("untitled.png"));
    }
    QVERIFY(QFileInfo::exists(first.filePath(QStringLiteral("one.png"))));
    {
        DialogRecord record;
        SaveDialogAnswer answer(record, QString());
        plot.exportImageToFile();
        QVERIFY(record.shown);
        QCOMPARE(record.directory, QDir(first.path()).absolutePath());
        QCOMPARE(record.file, QDir(first.path()).absoluteFilePath(QStringLiteral("untitled.png")));
    }
}

void tst_VoidPlotExport::exportWritesValidDocuments_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("PDF") << "plot.pdf";
    QTest::newRow("SVG") << "plot.svg";
    QTest::newRow("PNG") << "plot.png";
}

void tst_VoidPlotExport::exportWritesValidDocuments()
{
    QFETCH(QString, fileName);
    QTemporaryDir dir;
    const QString target = dir.filePath(fileName);
    VoidPlot plot;
    plot.resize(400, 300);
    QwtText title(QStringLiteral("Export"));
    plot.setPlotTitle(title);

    DialogRecord record;
    SaveDialogAnswer answer(record, target);
    plot.exportImageToFile();
    QVERIFY(record.shown);

    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    QVERIFY(!content.isEmpty());
    const QString suffix = QFileInfo(target).suffix();
    if (suffix == QLatin1String("pdf")) {
        QVERIFY(content.startsWith("%PDF-"));
        QVERIFY(content.contains("%%EOF"));
    } else if (suffix == QLatin1String("svg")) {
        QSvgRenderer svg(content);
        QVERIFY(svg.isValid());
        const QSizeF size = svg.viewBoxF().size();
        // 300 by 200 mm at 300 DPI.
        QVERIFY(qAbs(size.width() - 300.0 / 25.4 * 300.0) < 1.0);
        QVERIFY(qAbs(size.height() - 200.0 / 25.4 * 300.0) < 1.0);
    } else {
        const QImage image = QImage::fromData(content, "PNG");
        QVERIFY(!image.isNull());
        QCOMPARE(image.size(), QSize(3543, 2362));
    }
}

void tst_VoidPlotExport::unwritableSuffixGoesOnUnchanged()
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("plot.xyz"));
    VoidPlot plot;
    PlotRenderer renderer;
    DialogRecord record;
    SaveDialogAnswer answer(record, target);
    QVERIFY(renderer.exportPlot(&plot, QStringLiteral("untitled.png"), QSizeF(30, 20), 30));
    QVERIFY(record.shown);
    // No writer for "xyz": nothing is written, and no other name was made up.
    QVERIFY(!QFileInfo::exists(target));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList());
}

void tst_VoidPlotExport::exportedPageShowsTheLogo()
{
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("page.png"));
    VoidPlot plot;
    plot.resize(400, 300);
    RendererProbe renderer;
    renderer.renderDocument(&plot, target, QStringLiteral("png"), PlotDefault::Export::SizeMM,
                            PlotDefault::Export::DPI);
    QCOMPARE(renderer.canvasRects.size(), 1);
    const QImage page(target);
    QCOMPARE(page.size(), QSize(3543, 2362));

    // The logo stands in the painter's units, which the renderer scales from
    // the plot's resolution to the page's.
    QTransform toPage;
    toPage.scale(double(PlotDefault::Export::DPI) / plot.logicalDpiX(),
                 double(PlotDefault::Export::DPI) / plot.logicalDpiY());
    const QRect logo = toPage.mapRect(QRectF(logoArea(renderer.canvasRects.first(), expectedLogoSize())))
                           .toRect();
    QVERIFY(darkPixels(page, logo) > logo.width() * logo.height() / 20);
    QCOMPARE(darkPixels(page, logo.translated(-3 * logo.width(), logo.height())), 0);
}

void tst_VoidPlotExport::clipboardGetsAnImageOfTheWidgetSizeWithLogo()
{
    VoidPlot plot;
    QVERIFY(TestSupport::showActive(plot, QSize(500, 350)));
    QClipboard *clipboard = QGuiApplication::clipboard();
    QVERIFY(clipboard);
    clipboard->clear();
    QSignalSpy changed(clipboard, &QClipboard::dataChanged);

    plot.copyImageToClipboard();
    QTRY_VERIFY(changed.count() >= 1);
    QImage image;
    QTRY_VERIFY(!(image = clipboard->image()).isNull());
    QCOMPARE(image.size(), plot.size());

    const QRect canvas = plot.canvas()->geometry();
    const QRect logo = logoArea(QRectF(canvas), expectedLogoSize()).adjusted(-2, -2, 2, 2);
    QVERIFY(darkPixels(image, logo) > logo.width() * logo.height() / 20);
    QCOMPARE(darkPixels(image, logo.translated(-3 * logo.width(), logo.height())), 0);
}

QTEST_MAIN(tst_VoidPlotExport)
#include "tst_voidplot_export.moc"
