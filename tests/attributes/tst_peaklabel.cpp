#include <figura/attributes/PeakLabel.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QApplication>
#include <QDebug>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QRegularExpression>
#include <QTest>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>
using RecordTest::applicationLabelFont;

namespace {

// Counts the calls of the hook that tells the plot to redraw.
class CountingLabel : public PeakLabel
{
public:
    using PeakLabel::PeakLabel;
    void itemChanged() override
    {
        ++changes;
        PeakLabel::itemChanged();
    }
    int changes = 0;
};

const QColor LabelColor(255, 0, 0);

bool isLabelPixel(QRgb pixel)
{
    return qRed(pixel) > 200 && qGreen(pixel) < 80 && qBlue(pixel) < 80;
}

// The pixels of the label's colour in an image, and where they lie.
struct LabelPixels
{
    QList<QPoint> points;
    QRect bounds;

    explicit LabelPixels(const QImage &image)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (isLabelPixel(image.pixel(x, y))) {
                    points.append(QPoint(x, y));
                    bounds |= QRect(x, y, 1, 1);
                }
            }
        }
    }

    // Mean y of the pixels in the left or right third of the bounds.
    double meanY(bool leftThird) const
    {
        const int third = bounds.width() / 3;
        double sum = 0.0;
        int count = 0;
        for (const QPoint &p : points) {
            const bool inLeft = p.x() < bounds.left() + third;
            const bool inRight = p.x() > bounds.right() - third;
            if ((leftThird && inLeft) || (!leftThird && inRight)) {
                sum += p.y();
                ++count;
            }
        }
        return count ? sum / count : 0.0;
    }
};

} // namespace

class tst_PeakLabel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void rttiIs1100AndZIs29();
    void newLabelHasDefaultFormat();
    void formatConstructorColoursPenOnlyWithValidColour();
    void fourValueConstructorStoresAsGiven();
    void fourValueConstructorCutsRotation_data();
    void fourValueConstructorCutsRotation();
    void hostFindsLabelsOnThePlotByRtti();

    void setColorWithPresentColourChangesNothing();
    void setColorReplacesWholePen();
    void setColorCallsItemChangedOnceWhenPenAlreadyMatches();
    void setFormatKeepsPenWidth();
    void setFormatWithEqualFormatChangesNothing();
    void setPenKeepsFormatColour();
    void setFontAndTextCompareFirst();
    void setTextRotationCutsToWholeDegrees();
    void setTextRotationIgnoresNaN();
    void setValueComparesBothCoordinates();
    void userDataIsInvisible();
    void copyTakesLookAndDataButNotPlotItemState();
    void copiesHaveIndependentUserData();

    void drawPutsTextAboveThePoint_data();
    void drawPutsTextAboveThePoint();
    void drawIgnoresCanvasRectAndRestoresPainter();
    void drawWithNullPainterLogsAndPaintsNothing();
    void drawWithInactivePainterLogsAndLeavesPainterAlone();
};

void tst_PeakLabel::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void tst_PeakLabel::rttiIs1100AndZIs29()
{
    const PeakLabel label;
    const QwtPlotItem &item = label;
    QCOMPARE(item.rtti(), 1100);
    QCOMPARE(PeakLabel::Rtti_PeakLabel, 1100);
    QCOMPARE(label.z(), 29.0);
    QCOMPARE(PeakLabel(QStringLiteral("a"), PeakLabelFormat()).z(), 29.0);
}

void tst_PeakLabel::newLabelHasDefaultFormat()
{
    const PeakLabel label(QStringLiteral("C60"));
    QCOMPARE(label.text(), QStringLiteral("C60"));
    QCOMPARE(label.textRotation(), -45.0);
    QCOMPARE(label.font().pointSize(), 10);
    QCOMPARE(label.font(), applicationLabelFont());
    QCOMPARE(label.color(), PlotDefault::PeakLabelColor);
    QCOMPARE(label.color(), QColor(QStringLiteral("#404040")));
    QCOMPARE(label.pen().color(), PlotDefault::PeakLabelColor);
    QCOMPARE(label.format(), PeakLabelFormat(applicationLabelFont(), PlotDefault::PeakLabelColor, -45));
    QVERIFY(PeakLabel().text().isEmpty());
}

void tst_PeakLabel::formatConstructorColoursPenOnlyWithValidColour()
{
    const QFont font(QStringLiteral("Serif"), 12);
    const PeakLabelFormat green(font, Qt::green, 60);
    const PeakLabel label(QStringLiteral("a"), green);
    QCOMPARE(label.format(), green);
    QCOMPARE(label.textRotation(), 60.0);
    QCOMPARE(label.pen().color(), QColor(Qt::green));

    const PeakLabelFormat noColour(font, QColor(), 10);
    const PeakLabel uncoloured(QStringLiteral("a"), noColour);
    QVERIFY(!uncoloured.color().isValid());
    QCOMPARE(uncoloured.pen().color(), PlotDefault::PeakLabelColor);
}

void tst_PeakLabel::fourValueConstructorStoresAsGiven()
{
    const QFont font(QStringLiteral("Serif"), 12);
    const PeakLabel label(QStringLiteral("a"), font, QColor(), 0.0);
    QVERIFY(!label.color().isValid());
    QCOMPARE(label.pen().color(), PlotDefault::PeakLabelColor);
    QCOMPARE(label.font(), font);
    QCOMPARE(label.textRotation(), 0.0);

    const PeakLabel outOfRange(QStringLiteral("b"), font, Qt::blue, 300.0);
    QCOMPARE(outOfRange.textRotation(), 300.0);
    QCOMPARE(outOfRange.pen().color(), QColor(Qt::blue));
}

void tst_PeakLabel::fourValueConstructorCutsRotation_data()
{
    QTest::addColumn<double>("rotation");
    QTest::addColumn<double>("stored");
    QTest::newRow("12.9") << 12.9 << 12.0;
    QTest::newRow("-12.9") << -12.9 << -12.0;
    QTest::newRow("-90") << -90.0 << -90.0;
    QTest::newRow("NaN keeps the default") << std::nan("") << -45.0;
}

void tst_PeakLabel::fourValueConstructorCutsRotation()
{
    QFETCH(double, rotation);
    QFETCH(double, stored);
    const PeakLabel label(QStringLiteral("a"), applicationLabelFont(), Qt::red, rotation);
    QCOMPARE(label.textRotation(), stored);
}

void tst_PeakLabel::hostFindsLabelsOnThePlotByRtti()
{
    QwtPlot plot;
    auto *label = new PeakLabel(QStringLiteral("a"));
    label->attach(&plot);
    const QwtPlotItemList found = plot.itemList(PeakLabel::Rtti_PeakLabel);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first(), label);
    // The plot deletes it with itself.
}

void tst_PeakLabel::setColorWithPresentColourChangesNothing()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(Qt::blue, 3));
    label.changes = 0;
    label.setColor(PlotDefault::PeakLabelColor);
    QCOMPARE(label.changes, 0);
    QCOMPARE(label.pen(), QPen(Qt::blue, 3));
}

void tst_PeakLabel::setColorReplacesWholePen()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(QBrush(Qt::blue), 3, Qt::DashLine));
    label.changes = 0;
    label.setColor(Qt::green);
    QCOMPARE(label.color(), QColor(Qt::green));
    QCOMPARE(label.pen(), QPen(QColor(Qt::green)));
    QCOMPARE(label.pen().width(), 1);
    QCOMPARE(label.pen().style(), Qt::SolidLine);
    QCOMPARE(label.changes, 2);
}

void tst_PeakLabel::setColorCallsItemChangedOnceWhenPenAlreadyMatches()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(QColor(Qt::green)));
    label.changes = 0;
    label.setColor(Qt::green);
    QCOMPARE(label.color(), QColor(Qt::green));
    QCOMPARE(label.changes, 1);
}

void tst_PeakLabel::setFormatKeepsPenWidth()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(QBrush(Qt::blue), 3, Qt::DotLine));
    label.changes = 0;
    const PeakLabelFormat format(QFont(QStringLiteral("Serif"), 7), Qt::green, 15);
    label.setFormat(format);
    QCOMPARE(label.format(), format);
    QCOMPARE(label.textRotation(), 15.0);
    QCOMPARE(label.pen().width(), 3);
    QCOMPARE(label.pen().style(), Qt::DotLine);
    QCOMPARE(label.pen().color(), QColor(Qt::green));
    QCOMPARE(label.changes, 1);
}

void tst_PeakLabel::setFormatWithEqualFormatChangesNothing()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(Qt::blue, 3));
    label.changes = 0;
    label.setFormat(PeakLabelFormat(label.format()));
    QCOMPARE(label.changes, 0);
    QCOMPARE(label.pen().color(), QColor(Qt::blue));
}

void tst_PeakLabel::setPenKeepsFormatColour()
{
    CountingLabel label(QStringLiteral("a"));
    label.setPen(QPen(Qt::blue, 2));
    QCOMPARE(label.changes, 1);
    QCOMPARE(label.pen(), QPen(Qt::blue, 2));
    QCOMPARE(label.color(), PlotDefault::PeakLabelColor);
    label.setPen(QPen(Qt::blue, 2));
    QCOMPARE(label.changes, 1);
}

void tst_PeakLabel::setFontAndTextCompareFirst()
{
    CountingLabel label(QStringLiteral("a"));
    label.setFont(applicationLabelFont());
    label.setText(QStringLiteral("a"));
    QCOMPARE(label.changes, 0);

    const QFont font(QStringLiteral("Serif"), 20);
    label.setFont(font);
    QCOMPARE(label.font(), font);
    QCOMPARE(label.format().font(), font);
    QCOMPARE(label.changes, 1);
    label.setText(QStringLiteral("<b>b</b>"));
    QCOMPARE(label.text(), QStringLiteral("<b>b</b>"));
    QCOMPARE(label.changes, 2);
}

void tst_PeakLabel::setTextRotationCutsToWholeDegrees()
{
    CountingLabel label(QStringLiteral("a"));
    label.setTextRotation(30.5);
    QCOMPARE(label.format().textRotation(), 30);
    QCOMPARE(label.textRotation(), 30.0);
    QCOMPARE(label.changes, 1);
    // 30.5 never equals the stored 30, so each call counts as a change.
    label.setTextRotation(30.5);
    QCOMPARE(label.changes, 2);
    label.setTextRotation(30.0);
    QCOMPARE(label.changes, 2);
    label.setTextRotation(-0.5);
    QCOMPARE(label.textRotation(), 0.0);
}

void tst_PeakLabel::setTextRotationIgnoresNaN()
{
    CountingLabel label(QStringLiteral("a"));
    label.setTextRotation(std::nan(""));
    QCOMPARE(label.textRotation(), -45.0);
    QCOMPARE(label.changes, 0);
    label.setTextRotation(1e300);
    QCOMPARE(label.format().textRotation(), std::numeric_limits<int>::max());
}

void tst_PeakLabel::setValueComparesBothCoordinates()
{
    CountingLabel label(QStringLiteral("a"));
    label.setValue(3.0, 4.0);
    QCOMPARE(label.value(), QPointF(3.0, 4.0));
    QCOMPARE(label.xValue(), 3.0);
    QCOMPARE(label.yValue(), 4.0);
    QCOMPARE(label.changes, 1);
    label.setValue(QPointF(3.0, 4.0));
    QCOMPARE(label.changes, 1);
    label.setValue(QPointF(3.0, 5.0));
    QCOMPARE(label.yValue(), 5.0);
    QCOMPARE(label.changes, 2);
    label.setValue(2.0, 5.0);
    QCOMPARE(label.xValue(), 2.0);
    QCOMPARE(label.changes, 3);
}

void tst_PeakLabel::userDataIsInvisible()
{
    CountingLabel label(QStringLiteral("a"));
    QVERIFY(label.userData(7).isNull());
    QVERIFY(!label.userData(7).isValid());
    label.setUserData(7, 42);
    label.setUserData(7, QStringLiteral("replaced"));
    label.setUserData(-3, 1.5);
    QCOMPARE(label.userData(7), QVariant(QStringLiteral("replaced")));
    QCOMPARE(label.userData(-3), QVariant(1.5));
    QCOMPARE(label.changes, 0);
}

void tst_PeakLabel::copyTakesLookAndDataButNotPlotItemState()
{
    QwtPlot plot;
    auto *original = new PeakLabel(QStringLiteral("a"), QFont(QStringLiteral("Serif"), 9), Qt::blue, 20.0);
    original->setPen(QPen(Qt::blue, 4));
    original->setValue(1.5, 2.5);
    original->setZ(5.0);
    original->setTitle(QStringLiteral("title"));
    original->attach(&plot);

    const PeakLabel copy(*original);
    QCOMPARE(copy.text(), QStringLiteral("a"));
    QCOMPARE(copy.format(), original->format());
    QCOMPARE(copy.pen(), original->pen());
    QCOMPARE(copy.value(), QPointF(1.5, 2.5));
    QCOMPARE(copy.z(), 29.0);
    QVERIFY(!copy.plot());
    QVERIFY(copy.title().isEmpty());
}

void tst_PeakLabel::copiesHaveIndependentUserData()
{
    PeakLabel original(QStringLiteral("a"));
    original.setUserData(1, QStringLiteral("one"));
    original.setUserData(2, 2);
    PeakLabel copy(original);
    QCOMPARE(copy.userData(1), QVariant(QStringLiteral("one")));
    QCOMPARE(copy.userData(2), QVariant(2));

    copy.setUserData(1, QStringLiteral("changed"));
    original.setUserData(3, 3);
    QCOMPARE(original.userData(1), QVariant(QStringLiteral("one")));
    QVERIFY(copy.userData(3).isNull());

    copy.setColor(Qt::green);
    QCOMPARE(original.color(), PlotDefault::PeakLabelColor);
}

void tst_PeakLabel::drawPutsTextAboveThePoint_data()
{
    QTest::addColumn<int>("rotation");
    QTest::newRow("-45") << -45;
    QTest::newRow("0") << 0;
    QTest::newRow("45") << 45;
    QTest::newRow("90") << 90;
    QTest::newRow("-90") << -90;
}

void tst_PeakLabel::drawPutsTextAboveThePoint()
{
    QFETCH(int, rotation);

    QwtPlot plot;
    plot.setCanvasBackground(Qt::white);
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 100.0);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 100.0);
    // Aliased glyphs, so that every pixel of the text has exactly its colour.
    QFont font = applicationLabelFont();
    font.setPointSize(16);
    font.setStyleStrategy(QFont::NoAntialias);
    auto *label = new PeakLabel(QStringLiteral("HHHHHHHH"), font, LabelColor, rotation);
    label->setValue(50.0, 50.0);
    label->attach(&plot);
    plot.resize(500, 500);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    plot.replot();

    const QImage image = plot.canvas()->grab().toImage();
    const double px = plot.canvasMap(QwtPlot::xBottom).transform(50.0);
    const double py = plot.canvasMap(QwtPlot::yLeft).transform(50.0);
    const QSizeF textSize = QwtText(label->text()).textSize(font);
    const double h = textSize.height();

    const LabelPixels pixels(image);
    QVERIFY2(pixels.points.size() > 50, qPrintable(QString::number(pixels.points.size())));
    const QRect b = pixels.bounds;
    const QString where = QStringLiteral("point (%1, %2), label pixels %3,%4 to %5,%6")
                              .arg(px).arg(py).arg(b.left()).arg(b.top()).arg(b.right()).arg(b.bottom());

    // Above the point, and close to it.
    QVERIFY2(b.bottom() <= py + 1, qPrintable(where));
    QVERIFY2(b.bottom() >= py - h, qPrintable(where));

    switch (rotation) {
    case 0:
        QVERIFY2(b.left() >= px - 1 && b.left() <= px + h, qPrintable(where));
        QVERIFY2(b.width() > 3 * b.height(), qPrintable(where));
        break;
    case -45:
        // Starts at the point and rises to the right.
        QVERIFY2(b.left() >= px - 1 && b.left() <= px + h, qPrintable(where));
        QVERIFY2(pixels.meanY(false) < pixels.meanY(true) - b.height() / 3.0, qPrintable(where));
        break;
    case 45:
        // Comes down from the left and ends at the point.
        QVERIFY2(b.right() <= px + 1 && b.right() >= px - h, qPrintable(where));
        QVERIFY2(pixels.meanY(true) < pixels.meanY(false) - b.height() / 3.0, qPrintable(where));
        break;
    case 90:
    case -90:
        // Upright, on the point's vertical line.
        QVERIFY2(b.left() >= px - h / 2 - 1 && b.right() <= px + h / 2 + 1, qPrintable(where));
        QVERIFY2(b.height() > 3 * b.width(), qPrintable(where));
        break;
    }
}

void tst_PeakLabel::drawIgnoresCanvasRectAndRestoresPainter()
{
    QImage image(300, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QFont font = applicationLabelFont();
    font.setStyleStrategy(QFont::NoAntialias);
    PeakLabel label(QStringLiteral("HHHH"), font, LabelColor, 0.0);
    label.setValue(10.0, 10.0);

    QwtScaleMap xMap;
    xMap.setScaleInterval(0.0, 20.0);
    xMap.setPaintInterval(0.0, 200.0);
    QwtScaleMap yMap;
    yMap.setScaleInterval(0.0, 20.0);
    yMap.setPaintInterval(300.0, 0.0);

    QPainter painter(&image);
    const QPen pen(Qt::darkCyan, 5);
    painter.setPen(pen);
    const QTransform transform = painter.transform();
    // The point (100, 150) lies far outside this canvas rectangle.
    label.draw(&painter, xMap, yMap, QRectF(0.0, 0.0, 10.0, 10.0));
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.transform(), transform);
    painter.end();

    const LabelPixels pixels(image);
    QVERIFY(pixels.points.size() > 10);
    QVERIFY(pixels.bounds.left() >= 99);
    QVERIFY(pixels.bounds.bottom() <= 151);
    QVERIFY(!pixels.bounds.intersects(QRect(0, 0, 10, 10)));
}

void tst_PeakLabel::drawWithNullPainterLogsAndPaintsNothing()
{
    const PeakLabel label(QStringLiteral("a"));
    QwtScaleMap xMap;
    xMap.setPaintInterval(0.0, 100.0);
    QwtScaleMap yMap;
    yMap.setScaleInterval(-1.0, 1.0);
    const QRectF canvasRect(1.0, 2.0, 30.0, 40.0);

    QString expected;
    QDebug(&expected) << "Invalid painter or paintEngine"
                      << "PeakLabel::draw" << canvasRect << xMap << yMap;
    QTest::ignoreMessage(QtCriticalMsg, qPrintable(expected.trimmed()));
    label.draw(nullptr, xMap, yMap, canvasRect);
}

void tst_PeakLabel::drawWithInactivePainterLogsAndLeavesPainterAlone()
{
    const PeakLabel label(QStringLiteral("a"));
    QPainter painter; // no device, so no paint engine
    QVERIFY(!painter.paintEngine());
    QTest::ignoreMessage(QtCriticalMsg,
                         QRegularExpression(QStringLiteral("^Invalid painter or paintEngine PeakLabel::draw QRectF")));
    // save() or restore() on it would warn, which fails this test (see init).
    label.draw(&painter, QwtScaleMap(), QwtScaleMap(), QRectF());
    QVERIFY(!painter.isActive());
}

QTEST_MAIN(tst_PeakLabel)
#include "tst_peaklabel.moc"
