// Draws the ten images of the library's resource tree into a directory.
//
//   figura-image-generator <output-directory>
//
// Everything is drawn from geometry, with no fonts, so that the output does
// not depend on the fonts of the machine that runs the program. The icons are
// RGBA PNGs with 8 bits per channel; the logo is a palette PNG whose entries
// are black at 256 levels of opacity.

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTextStream>

#include <cmath>
#include <functional>

namespace {

const QColor Ink(0, 0, 0);
const QColor DimGray(105, 105, 105);

using Drawing = std::function<void(QPainter &)>;

QPen inkPen(qreal width, const QColor &color = Ink)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// Renders a drawing made for a square of designSize units into an image of
// pixels by pixels.
QImage render(int pixels, qreal designSize, const Drawing &draw)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(pixels / designSize, pixels / designSize);
    draw(p);
    return image;
}

void drawCategorize(QPainter &p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(Ink);
    p.drawRoundedRect(QRectF(6, 6, 16, 16), 3, 3);
    p.drawRoundedRect(QRectF(26, 6, 16, 16), 3, 3);
    p.drawRoundedRect(QRectF(6, 26, 16, 16), 3, 3);
    p.setPen(inkPen(3));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(34, 34), 6.5, 6.5);
}

void arrowHead(QPainter &p, QPointF tip, qreal angleDegrees, qreal length)
{
    const qreal a = angleDegrees * M_PI / 180.0;
    const qreal spread = 25.0 * M_PI / 180.0;
    QPolygonF head;
    head << tip
         << tip - QPointF(length * std::cos(a - spread), -length * std::sin(a - spread))
         << tip - QPointF(length * std::cos(a + spread), -length * std::sin(a + spread));
    p.setPen(inkPen(1.5));
    p.setBrush(Ink);
    p.drawPolygon(head);
}

void drawXyCoordinate(QPainter &p)
{
    p.setPen(inkPen(3));
    p.drawLine(QPointF(12, 50), QPointF(12, 9));
    p.drawLine(QPointF(10, 48), QPointF(51, 48));
    arrowHead(p, QPointF(12, 5), 90, 9);
    arrowHead(p, QPointF(55, 48), 0, 9);

    QPainterPath curve(QPointF(16, 42));
    curve.cubicTo(QPointF(26, 40), QPointF(28, 18), QPointF(36, 18));
    curve.cubicTo(QPointF(42, 18), QPointF(44, 32), QPointF(50, 30));
    p.setPen(inkPen(2.5));
    p.setBrush(Qt::NoBrush);
    p.drawPath(curve);
    p.setPen(Qt::NoPen);
    p.setBrush(Ink);
    for (const QPointF &c : {QPointF(22, 39), QPointF(36, 18), QPointF(50, 30)})
        p.drawEllipse(c, 2.6, 2.6);
}

void drawAbc(QPainter &p)
{
    p.setPen(inkPen(3.5));
    p.setBrush(Qt::NoBrush);
    // a: a bowl with its stem on the right
    p.drawEllipse(QPointF(10.5, 29), 5.5, 6);
    p.drawLine(QPointF(16, 23), QPointF(16, 35));
    // b: a tall stem with its bowl on the right
    p.drawLine(QPointF(21.5, 12), QPointF(21.5, 35));
    p.drawEllipse(QPointF(27, 29), 5.5, 6);
    // c: an open bowl
    QPainterPath c;
    c.arcMoveTo(QRectF(35, 23, 11, 12), 50);
    c.arcTo(QRectF(35, 23, 11, 12), 50, 260);
    p.drawPath(c);
}

void drawInfo(QPainter &p)
{
    p.setPen(Qt::NoPen);
    p.setBrush(DimGray);
    p.drawEllipse(QPointF(25, 25), 23, 23);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(25, 14), 3.4, 3.4);
    p.drawRoundedRect(QRectF(22, 20.5, 6, 17.5), 1.5, 1.5);
    p.drawRoundedRect(QRectF(19, 35, 12, 3.5), 1.2, 1.2);
}

void drawSquareOutline(QPainter &p)
{
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(Ink, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(4, 4, 18, 18));
}

void drawFile(QPainter &p)
{
    QPainterPath page(QPointF(12, 5));
    page.lineTo(29, 5);
    page.lineTo(38, 14);
    page.lineTo(38, 43);
    page.lineTo(12, 43);
    page.closeSubpath();
    p.setPen(inkPen(3));
    p.setBrush(Qt::NoBrush);
    p.drawPath(page);
    p.drawPolyline(QPolygonF({QPointF(29, 5), QPointF(29, 14), QPointF(38, 14)}));
    p.setPen(inkPen(2.5));
    p.drawLine(QPointF(18, 24), QPointF(32, 24));
    p.drawLine(QPointF(18, 30), QPointF(32, 30));
    p.drawLine(QPointF(18, 36), QPointF(27, 36));
}

void drawClipboard(QPainter &p)
{
    p.setPen(inkPen(3));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(10, 9, 28, 35), 3, 3);
    p.setPen(Qt::NoPen);
    p.setBrush(Ink);
    p.drawRoundedRect(QRectF(17, 4, 14, 9), 2.5, 2.5);
    p.setPen(inkPen(2.5));
    p.drawLine(QPointF(16, 22), QPointF(32, 22));
    p.drawLine(QPointF(16, 29), QPointF(32, 29));
    p.drawLine(QPointF(16, 36), QPointF(26, 36));
}

void drawEdit(QPainter &p)
{
    p.translate(24, 24);
    p.rotate(-45);
    p.setPen(inkPen(2.5));
    p.setBrush(Qt::NoBrush);
    // body from the eraser on the right to the sharpened wood on the left
    p.drawRoundedRect(QRectF(-10, -5, 26, 10), 1.5, 1.5);
    p.drawLine(QPointF(10, -5), QPointF(10, 5));
    p.drawPolygon(QPolygonF({QPointF(-10, -5), QPointF(-20, 0), QPointF(-10, 5)}));
    p.setPen(Qt::NoPen);
    p.setBrush(Ink);
    p.drawPolygon(QPolygonF({QPointF(-16, -2), QPointF(-21.5, 0), QPointF(-16, 2)}));
}

void drawFullScale(QPainter &p)
{
    // four arrows from the centre into the corners around a dashed frame
    p.setPen(QPen(Ink, 2, Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(22, 22, 20, 20));
    const QPointF centre(32, 32);
    for (const QPointF &corner : {QPointF(6, 6), QPointF(58, 6), QPointF(6, 58), QPointF(58, 58)}) {
        const QPointF dir((corner.x() - centre.x()) > 0 ? 1 : -1, (corner.y() - centre.y()) > 0 ? 1 : -1);
        p.setPen(inkPen(4));
        p.drawLine(corner - dir * 16, corner - dir * 5);
        p.setPen(inkPen(1.5));
        p.setBrush(Ink);
        p.drawPolygon(QPolygonF({corner, corner - QPointF(dir.x() * 13, 0), corner - QPointF(0, dir.y() * 13)}));
        p.setBrush(Qt::NoBrush);
    }
}

// The wordmark: the letters K, E, L and M as straight-edged polygons inside a
// rounded frame, black on transparent.
QImage logo()
{
    const QSize size(1065, 722);
    QImage coverage(size, QImage::Format_ARGB32);
    coverage.fill(Qt::transparent);
    {
        QPainter p(&coverage);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(Ink, 36, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(38, 38, 1065 - 76, 722 - 76), 70, 70);

        // Overlapping opaque shapes of one colour add up to the same coverage
        // as their union, so each piece is filled on its own.
        p.setPen(Qt::NoPen);
        p.setBrush(Ink);
        const qreal s = 58;                      // stroke width
        const qreal top = 221, bottom = 501;
        const qreal mid = (top + bottom) / 2;
        auto stem = [&](qreal x) { p.drawRect(QRectF(x, top, s, bottom - top)); };
        auto quad = [&](QPointF a, QPointF b, QPointF c, QPointF d) {
            p.drawPolygon(QPolygonF({a, b, c, d}));
        };

        qreal x = 120;                           // K, 185 wide
        stem(x);
        quad({x + s, mid - 0.45 * s}, {x + 185 - 1.25 * s, top}, {x + 185, top}, {x + s, mid + 0.85 * s});
        quad({x + s + 0.35 * s, mid - 0.25 * s}, {x + 185, bottom}, {x + 185 - 1.25 * s, bottom},
             {x + s, mid + 0.35 * s});

        x = 350;                                 // E, 150 wide
        stem(x);
        p.drawRect(QRectF(x, top, 150, s));
        p.drawRect(QRectF(x, mid - s / 2, 130, s));
        p.drawRect(QRectF(x, bottom - s, 150, s));

        x = 545;                                 // L, 140 wide
        stem(x);
        p.drawRect(QRectF(x, bottom - s, 140, s));

        x = 730;                                 // M, 215 wide
        const qreal w = 215, vBottom = top + 0.72 * (bottom - top);
        stem(x);
        stem(x + w - s);
        quad({x, top}, {x + 1.15 * s, top}, {x + w / 2 + 0.55 * s, vBottom}, {x + w / 2 - 0.55 * s, vBottom});
        quad({x + w, top}, {x + w - 1.15 * s, top}, {x + w / 2 - 0.55 * s, vBottom}, {x + w / 2 + 0.55 * s, vBottom});
    }

    QImage indexed(size, QImage::Format_Indexed8);
    QList<QRgb> palette;
    palette.reserve(256);
    for (int alpha = 0; alpha < 256; ++alpha)
        palette.append(qRgba(0, 0, 0, alpha));
    indexed.setColorTable(palette);
    for (int y = 0; y < size.height(); ++y) {
        const auto *src = reinterpret_cast<const QRgb *>(coverage.constScanLine(y));
        uchar *dst = indexed.scanLine(y);
        for (int x = 0; x < size.width(); ++x)
            dst[x] = uchar(qAlpha(src[x]));
    }
    return indexed;
}

bool save(const QImage &image, const QDir &dir, const QString &name)
{
    QImageWriter writer(dir.filePath(name), QByteArrayLiteral("png"));
    writer.setQuality(0); // the smallest file, at no cost to the pixels of a PNG
    if (writer.write(image))
        return true;
    QTextStream(stderr) << name << QLatin1String(": ") << writer.errorString() << Qt::endl;
    return false;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 2) {
        QTextStream(stderr) << "usage: figura-image-generator <output-directory>" << Qt::endl;
        return 2;
    }
    QDir dir(args.at(1));
    if (!dir.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "cannot create " << args.at(1) << Qt::endl;
        return 1;
    }

    struct Icon {
        const char *name;
        int pixels;
        qreal designSize;
        Drawing draw;
    };
    const Icon icons[] = {
        {"categorize-black.png", 48, 48, drawCategorize},
        {"xy-coordinate-black.png", 60, 60, drawXyCoordinate},
        {"abc-black.png", 48, 48, drawAbc},
        {"info-dimgray.png", 50, 50, drawInfo},
        {"square-outline.png", 26, 26, drawSquareOutline},
        {"file.png", 48, 48, drawFile},
        {"clipboard.png", 48, 48, drawClipboard},
        {"edit.png", 48, 48, drawEdit},
        {"full-scale.png", 64, 64, drawFullScale},
    };
    bool ok = true;
    for (const Icon &icon : icons)
        ok = save(render(icon.pixels, icon.designSize, icon.draw), dir, QLatin1String(icon.name)) && ok;
    ok = save(logo(), dir, QStringLiteral("KELM-logo-black.png")) && ok;
    return ok ? 0 : 1;
}
