// The image resources of the library, seen from a program that links the
// library and calls nothing of it: the tree must be there because the library
// was loaded, without any Q_INIT_RESOURCE or other call of the host.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>
#include <QResource>
#include <QTest>
#include <QtEndian>

namespace {

struct PngHeader {
    bool valid = false;
    quint32 width = 0;
    quint32 height = 0;
    int bitDepth = 0;
    int colourType = 0;
};

// Reads the IHDR chunk, which PNG requires to come first.
PngHeader readPngHeader(const QByteArray &bytes)
{
    PngHeader h;
    static const char signature[] = "\x89PNG\r\n\x1a\n";
    if (bytes.size() < 33 || !bytes.startsWith(QByteArray(signature, 8)) || bytes.mid(12, 4) != "IHDR")
        return h;
    const auto *data = reinterpret_cast<const uchar *>(bytes.constData());
    h.valid = true;
    h.width = qFromBigEndian<quint32>(data + 16);
    h.height = qFromBigEndian<quint32>(data + 20);
    h.bitDepth = data[24];
    h.colourType = data[25];
    return h;
}

enum PngColourType { Palette = 3, Rgba = 6 };

QByteArray resourceBytes(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

} // namespace

class tst_ImageResources : public QObject
{
    Q_OBJECT

private slots:
    void imageLoadsAtItsSize_data();
    void imageLoadsAtItsSize();
    void imageIsPngWithEightBitsPerChannel_data() { imageLoadsAtItsSize_data(); }
    void imageIsPngWithEightBitsPerChannel();
    void imageIsStoredUncompressed_data() { imageLoadsAtItsSize_data(); }
    void imageIsStoredUncompressed();
    void imagesDirectoryHoldsTheTenImagesOnly();
    void logoLoadsWithoutSlashAfterColon();
    void logoIsBlackOnTransparent();
    void unknownImageDoesNotLoad();
};

void tst_ImageResources::imageLoadsAtItsSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("colourType");
    QTest::newRow("categorize-black") << QStringLiteral("categorize-black.png") << QSize(48, 48) << int(Rgba);
    QTest::newRow("xy-coordinate-black") << QStringLiteral("xy-coordinate-black.png") << QSize(60, 60) << int(Rgba);
    QTest::newRow("abc-black") << QStringLiteral("abc-black.png") << QSize(48, 48) << int(Rgba);
    QTest::newRow("info-dimgray") << QStringLiteral("info-dimgray.png") << QSize(50, 50) << int(Rgba);
    QTest::newRow("KELM-logo-black") << QStringLiteral("KELM-logo-black.png") << QSize(1065, 722) << int(Palette);
    QTest::newRow("square-outline") << QStringLiteral("square-outline.png") << QSize(26, 26) << int(Rgba);
    QTest::newRow("file") << QStringLiteral("file.png") << QSize(48, 48) << int(Rgba);
    QTest::newRow("clipboard") << QStringLiteral("clipboard.png") << QSize(48, 48) << int(Rgba);
    QTest::newRow("edit") << QStringLiteral("edit.png") << QSize(48, 48) << int(Rgba);
    QTest::newRow("full-scale") << QStringLiteral("full-scale.png") << QSize(64, 64) << int(Rgba);
}

void tst_ImageResources::imageLoadsAtItsSize()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    const QPixmap pixmap(QStringLiteral(":/images/") + name);
    QVERIFY2(!pixmap.isNull(), qPrintable(name));
    QCOMPARE(pixmap.size(), size);

    // icons sit on buttons of either palette: their corners show the button
    const QImage image = pixmap.toImage();
    QVERIFY(image.hasAlphaChannel());
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(image.pixel(size.width() - 1, size.height() - 1)), 0);
}

void tst_ImageResources::imageIsPngWithEightBitsPerChannel()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    QFETCH(int, colourType);
    const PngHeader h = readPngHeader(resourceBytes(QStringLiteral(":/images/") + name));
    QVERIFY(h.valid);
    QCOMPARE(int(h.width), size.width());
    QCOMPARE(int(h.height), size.height());
    QCOMPARE(h.bitDepth, 8);
    QCOMPARE(h.colourType, colourType);
}

void tst_ImageResources::imageIsStoredUncompressed()
{
    QFETCH(QString, name);
    const QResource resource(QStringLiteral(":/images/") + name);
    QVERIFY(resource.isValid());
    QVERIFY(QFileInfo(resource.absoluteFilePath()).isFile());
    QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);

    // what the library carries is the committed file, byte for byte
    QFile source(QStringLiteral(FIGURA_IMAGES_DIR "/") + name);
    QVERIFY2(source.open(QIODevice::ReadOnly), qPrintable(source.fileName()));
    const QByteArray expected = source.readAll();
    QCOMPARE(resource.size(), qint64(expected.size()));
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(resource.data()), int(resource.size())), expected);
}

void tst_ImageResources::imagesDirectoryHoldsTheTenImagesOnly()
{
    const QStringList entries =
        QDir(QStringLiteral(":/images")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    const QStringList expected{
        QStringLiteral("KELM-logo-black.png"), QStringLiteral("abc-black.png"),
        QStringLiteral("categorize-black.png"), QStringLiteral("clipboard.png"),
        QStringLiteral("edit.png"), QStringLiteral("file.png"),
        QStringLiteral("full-scale.png"), QStringLiteral("info-dimgray.png"),
        QStringLiteral("square-outline.png"), QStringLiteral("xy-coordinate-black.png"),
    };
    QCOMPARE(entries, expected);
}

void tst_ImageResources::logoLoadsWithoutSlashAfterColon()
{
    const QString withoutSlash = QStringLiteral(":images/KELM-logo-black.png");
    QVERIFY(QFile::exists(withoutSlash));
    const QPixmap logo(withoutSlash);
    QVERIFY(!logo.isNull());
    QCOMPARE(logo.size(), QSize(1065, 722));
    // both forms reach the same file
    QCOMPARE(resourceBytes(withoutSlash), resourceBytes(QStringLiteral(":/images/KELM-logo-black.png")));
}

void tst_ImageResources::logoIsBlackOnTransparent()
{
    const QImage logo(QStringLiteral(":/images/KELM-logo-black.png"));
    QCOMPARE(logo.format(), QImage::Format_Indexed8);
    const QList<QRgb> palette = logo.colorTable();
    QVERIFY(!palette.isEmpty());
    bool transparent = false, opaque = false;
    for (QRgb c : palette) {
        QCOMPARE(qRed(c) | qGreen(c) | qBlue(c), 0);
        transparent = transparent || qAlpha(c) == 0;
        opaque = opaque || qAlpha(c) == 255;
    }
    QVERIFY(transparent);
    QVERIFY(opaque);
    QCOMPARE(qAlpha(logo.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(logo.pixel(logo.width() / 2, logo.height() - 1)), 0);
}

void tst_ImageResources::unknownImageDoesNotLoad()
{
    // guards the tests above against a loader that accepts anything
    QVERIFY(!QFile::exists(QStringLiteral(":/images/no-such-image.png")));
    QVERIFY(QPixmap(QStringLiteral(":/images/no-such-image.png")).isNull());
}

QTEST_MAIN(tst_ImageResources)
#include "tst_imageresources.moc"
