// figura-gallery --screenshots DIR, run as a user runs it: every page comes
// out as a picture of a drawn plot, not as a blank or uniform widget, and
// the curve plot as a PDF document.

#include "GalleryPlot.h"
#include "GalleryWindow.h"

#include <figura/defaults/PlotDefault.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QStringList PageKeys{"curveplot", "timecurveplot", "barplot", "timebarplot", "multibarplot"};

struct Census
{
    int distinctColors = 0;
    QRgb dominant = 0;
    double dominantShare = 0.0;
};

Census census(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            ++counts[line[x] | 0xff000000u];
    }
    Census result;
    result.distinctColors = int(counts.size());
    int most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > most) {
            most = it.value();
            result.dominant = it.key();
        }
    }
    result.dominantShare = double(most) / (image.width() * image.height());
    return result;
}

// Pixels within tolerance of color in every channel.
int pixelsNear(const QImage &image, const QColor &color, int tolerance)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = line[x];
            if (qAbs(qRed(p) - color.red()) <= tolerance
                && qAbs(qGreen(p) - color.green()) <= tolerance
                && qAbs(qBlue(p) - color.blue()) <= tolerance)
                ++count;
        }
    }
    return count;
}

QImage loadPicture(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_GalleryScreenshots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void printsEveryFileItWroteInOrder();
    void pageImageShowsThePlot_data();
    void pageImageShowsThePlot();
    void windowImageShowsThePagesAndAPlot();
    void curvePlotBecomesAPdfDocument();
    void unwritableFolderFailsWithAMessage();

private:
    QProcess *runGallery(const QStringList &arguments);

    QTemporaryDir scratch;
    QString shots;
    QStringList printed;
    QHash<QString, QList<QColor>> lightColors;
    QHash<QString, QList<QColor>> darkColors;
};

QProcess *tst_GalleryScreenshots::runGallery(const QStringList &arguments)
{
    auto *process = new QProcess(this);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process->setProcessEnvironment(environment);
    process->start(QStringLiteral(FIGURA_GALLERY_EXECUTABLE), arguments);
    return process;
}

void tst_GalleryScreenshots::initTestCase()
{
    QVERIFY(scratch.isValid());
    // A folder that does not exist yet: the gallery makes it.
    shots = scratch.filePath(QStringLiteral("pictures/gallery"));

    QProcess *gallery = runGallery({QStringLiteral("--screenshots"), shots});
    QVERIFY2(gallery->waitForStarted(), qPrintable(gallery->errorString()));
    QVERIFY(gallery->waitForFinished(150000));
    const QString errors = QString::fromLocal8Bit(gallery->readAllStandardError());
    QCOMPARE(gallery->exitStatus(), QProcess::NormalExit);
    QVERIFY2(gallery->exitCode() == 0, qPrintable(errors));
    printed = QString::fromLocal8Bit(gallery->readAllStandardOutput())
                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);

    // The colours the pages draw their series in, light and dark.
    GalleryOptions options;
    options.live = false;
    options.persistent = false;
    GalleryWindow window(options);
    for (GalleryPlot *page : window.pages())
        lightColors.insert(page->pageKey(), page->seriesColors());
    window.setDarkMode(true);
    for (GalleryPlot *page : window.pages())
        darkColors.insert(page->pageKey(), page->seriesColors());
    window.setDarkMode(false);
}

void tst_GalleryScreenshots::printsEveryFileItWroteInOrder()
{
    const QDir dir(shots);
    QStringList expected;
    for (const QString &key : PageKeys)
        expected << dir.filePath(key + QStringLiteral(".png"));
    expected << dir.filePath(QStringLiteral("gallery.png"))
             << dir.filePath(QStringLiteral("curveplot.pdf"));
    for (const QString &key : PageKeys)
        expected << dir.filePath(key + QStringLiteral("-dark.png"));
    QCOMPARE(printed, expected);
    for (const QString &path : std::as_const(printed))
        QVERIFY2(QFileInfo(path).isFile() && QFileInfo(path).size() > 0, qPrintable(path));
    QCOMPARE(dir.entryList(QDir::Files).size(), expected.size());
}

void tst_GalleryScreenshots::pageImageShowsThePlot_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("dark");
    for (const QString &key : PageKeys) {
        QTest::newRow(qPrintable(key)) << key << false;
        QTest::newRow(qPrintable(key + QStringLiteral(" dark"))) << key << true;
    }
}

void tst_GalleryScreenshots::pageImageShowsThePlot()
{
    QFETCH(QString, key);
    QFETCH(bool, dark);
    const QString path =
        QDir(shots).filePath(key + (dark ? QStringLiteral("-dark.png") : QStringLiteral(".png")));
    const QImage picture = loadPicture(path);
    QVERIFY2(!picture.isNull(), qPrintable(path));
    QVERIFY(picture.width() >= 800 && picture.height() >= 450);

    // Most of the picture is the canvas in the palette's colour, but far
    // from all of it: axes, grid, titles and data take the rest.
    const Census seen = census(picture);
    const QColor canvas =
        dark ? PlotDefault::DarkMode::CanvasBackground : PlotDefault::CanvasBackground;
    QCOMPARE(QColor(seen.dominant), canvas);
    QVERIFY2(seen.dominantShare < 0.85, qPrintable(QString::number(seen.dominantShare)));
    // Anti-aliased text and lines in several colours give many shades.
    QVERIFY2(seen.distinctColors >= 300, qPrintable(QString::number(seen.distinctColors)));

    const QList<QColor> series = (dark ? darkColors : lightColors).value(key);
    QVERIFY(!series.isEmpty());
    for (const QColor &color : series) {
        const int count = pixelsNear(picture, color, 6);
        QVERIFY2(count >= 60, qPrintable(QStringLiteral("%1: %2 pixels of %3")
                                             .arg(key)
                                             .arg(count)
                                             .arg(color.name())));
    }
    // The grid is drawn.
    const QColor grid = dark ? PlotDefault::DarkMode::GridMajorColor : PlotDefault::GridMajorColor;
    QVERIFY(pixelsNear(picture, grid, 2) >= 500);
    // The title and the axis labels stand out against the background.
    const QColor text = dark ? QColor(Qt::white) : QColor(Qt::black);
    QVERIFY(pixelsNear(picture, text, 40) >= 300);
}

void tst_GalleryScreenshots::windowImageShowsThePagesAndAPlot()
{
    const QImage window = loadPicture(QDir(shots).filePath(QStringLiteral("gallery.png")));
    const QImage plot = loadPicture(QDir(shots).filePath(QStringLiteral("timecurveplot.png")));
    QVERIFY(!window.isNull() && !plot.isNull());
    QVERIFY(window.width() > plot.width() && window.height() > plot.height());
    for (const QColor &color : lightColors.value(QStringLiteral("timecurveplot")))
        QVERIFY(pixelsNear(window, color, 6) >= 60);
    QVERIFY(pixelsNear(window, PlotDefault::CanvasBackground, 0) > window.width() * window.height() / 4);
}

void tst_GalleryScreenshots::curvePlotBecomesAPdfDocument()
{
    QFile pdf(QDir(shots).filePath(QStringLiteral("curveplot.pdf")));
    QVERIFY(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QVERIFY(bytes.trimmed().endsWith("%%EOF"));
    QVERIFY2(bytes.size() > 20000, qPrintable(QString::number(bytes.size())));
    // 300 by 200 mm, in points.
    const QRegularExpression mediaBox(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
    const QRegularExpressionMatch match = mediaBox.match(QString::fromLatin1(bytes));
    QVERIFY(match.hasMatch());
    QVERIFY(qAbs(match.captured(1).toDouble() - 300.0 / 25.4 * 72.0) < 1.0);
    QVERIFY(qAbs(match.captured(2).toDouble() - 200.0 / 25.4 * 72.0) < 1.0);
}

void tst_GalleryScreenshots::unwritableFolderFailsWithAMessage()
{
    // A file stands where the folder should be made.
    const QString blocker = scratch.filePath(QStringLiteral("blocker"));
    QFile file(blocker);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();

    QProcess *gallery =
        runGallery({QStringLiteral("--screenshots"), blocker + QStringLiteral("/pictures")});
    QVERIFY(gallery->waitForFinished(150000));
    QCOMPARE(gallery->exitStatus(), QProcess::NormalExit);
    QCOMPARE(gallery->exitCode(), 1);
    QVERIFY(gallery->readAllStandardOutput().isEmpty());
    const QString errors = QString::fromLocal8Bit(gallery->readAllStandardError());
    QVERIFY2(errors.contains(QStringLiteral("figura-gallery: could not make the folder")),
             qPrintable(errors));
}

QTEST_MAIN(tst_GalleryScreenshots)
#include "tst_gallery_screenshots.moc"
