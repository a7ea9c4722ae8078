#include <figura/dialogs/ColorUtility.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QToolButton>

#include <memory>

class tst_ColorUtility : public QObject
{
    Q_OBJECT

private slots:
    void complementColorTurnsHueAndFixesLightness_data();
    void complementColorTurnsHueAndFixesLightness();
    void complementColorKeepsSaturationAndAlpha();
    void complementColorOfNameMatchesColourOverload_data();
    void complementColorOfNameMatchesColourOverload();
    void complementColorOfInvalidColourIsInvalid();
    void complementColorOfUnreadableNameIsEmpty();

    void lighterColorMovesHalfWayToWhite_data();
    void lighterColorMovesHalfWayToWhite();
    void washedOutColorMovesAlmostToWhite_data();
    void washedOutColorMovesAlmostToWhite();
    void lighterAndWashedOutOfInvalidColourAreInvalid();

    void presetComplementColorTable_data();
    void presetComplementColorTable();
    void presetComplementColorCyclesAndRejectsNegatives_data();
    void presetComplementColorCyclesAndRejectsNegatives();

    void createColorButtonShowsColourAndName();
};

namespace {

QColor hslColor(int hue, int saturation, int lightness, int alpha = 255)
{
    QColor color;
    color.setHsl(hue, saturation, lightness, alpha);
    return color;
}

QRgb iconColor(const QIcon &icon, int side)
{
    return icon.pixmap(side, side).toImage().pixel(side / 2, side / 2);
}

} // namespace

void tst_ColorUtility::complementColorTurnsHueAndFixesLightness_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("hue");
    QTest::addColumn<int>("lightness");

    QTest::newRow("hue 230 wraps at 255") << hslColor(230, 200, 50) << 12 << 100;
    QTest::newRow("hue 30 lands in the yellows") << hslColor(30, 200, 50) << 67 << 80;
    QTest::newRow("hue 24 is the first darker one") << hslColor(24, 200, 50) << 61 << 80;
    QTest::newRow("hue 23 stays bright") << hslColor(23, 200, 50) << 60 << 100;
    QTest::newRow("hue 62 is the last darker one") << hslColor(62, 200, 50) << 99 << 80;
    QTest::newRow("hue 63 is bright again") << hslColor(63, 200, 50) << 100 << 100;
    QTest::newRow("hue 218 reaches 255 without wrapping") << hslColor(218, 200, 50) << 255 << 100;
    QTest::newRow("hue 219 wraps to 1") << hslColor(219, 200, 50) << 1 << 100;
    QTest::newRow("hue 359 wraps to 141") << hslColor(359, 200, 50) << 141 << 100;
    QTest::newRow("grey has no hue and gives 36") << QColor(128, 128, 128) << 36 << 100;
    QTest::newRow("white gives 36") << QColor(Qt::white) << 36 << 100;
}

void tst_ColorUtility::complementColorTurnsHueAndFixesLightness()
{
    QFETCH(QColor, color);
    QFETCH(int, hue);
    QFETCH(int, lightness);

    const QColor complement = ColorUtility::getComplementColor(color);
    QVERIFY(complement.isValid());
    QCOMPARE(complement.hslHue(), hue);
    QCOMPARE(complement.lightness(), lightness);
}

void tst_ColorUtility::complementColorKeepsSaturationAndAlpha()
{
    const QColor complement = ColorUtility::getComplementColor(hslColor(100, 123, 40, 77));
    QCOMPARE(complement.hslSaturation(), 123);
    QCOMPARE(complement.alpha(), 77);
}

void tst_ColorUtility::complementColorOfNameMatchesColourOverload_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blue") << QStringLiteral("#0000ff");
    QTest::newRow("orange") << QStringLiteral("#ff8000");
    QTest::newRow("named colour") << QStringLiteral("darkgreen");
    QTest::newRow("grey") << QStringLiteral("#808080");
}

void tst_ColorUtility::complementColorOfNameMatchesColourOverload()
{
    QFETCH(QString, name);
    const QString complement = ColorUtility::getComplementColor(name);
    QCOMPARE(complement, ColorUtility::getComplementColor(QColor(name)).name());
    QVERIFY(complement != name);
}

void tst_ColorUtility::complementColorOfInvalidColourIsInvalid()
{
    QVERIFY(!ColorUtility::getComplementColor(QColor()).isValid());
}

void tst_ColorUtility::complementColorOfUnreadableNameIsEmpty()
{
    QVERIFY(ColorUtility::getComplementColor(QStringLiteral("no colour")).isEmpty());
    QVERIFY(ColorUtility::getComplementColor(QString()).isEmpty());
}

void tst_ColorUtility::lighterColorMovesHalfWayToWhite_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("saturation");
    QTest::addColumn<int>("lightness");

    QTest::newRow("white stays white") << QColor(Qt::white) << 0 << 255;
    QTest::newRow("black becomes mid grey") << QColor(Qt::black) << 0 << 127;
    // (255 - 100) * 0.5 + 100 = 177.5 and 200 - 50 = 150
    QTest::newRow("truncates lightness") << hslColor(120, 200, 100) << 150 << 177;
    // 255 - 63.75 = 191.25
    QTest::newRow("truncates saturation") << hslColor(10, 255, 0) << 191 << 127;
}

void tst_ColorUtility::lighterColorMovesHalfWayToWhite()
{
    QFETCH(QColor, color);
    QFETCH(int, saturation);
    QFETCH(int, lightness);

    const QColor lighter = ColorUtility::getLighterColor(color);
    QCOMPARE(lighter.hslSaturation(), saturation);
    QCOMPARE(lighter.lightness(), lightness);
    QCOMPARE(lighter.hslHue(), color.hslHue());
    QCOMPARE(lighter.alpha(), color.alpha());
}

void tst_ColorUtility::washedOutColorMovesAlmostToWhite_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("saturation");
    QTest::addColumn<int>("lightness");

    QTest::newRow("white stays white") << QColor(Qt::white) << 0 << 255;
    // 255 * 0.95 = 242.25
    QTest::newRow("black") << QColor(Qt::black) << 0 << 242;
    // (255 - 100) * 0.95 + 100 = 247.25 and 200 - 150 = 50
    QTest::newRow("green") << hslColor(120, 200, 100, 90) << 50 << 247;
    // 255 - 191.25 = 63.75
    QTest::newRow("truncates saturation") << hslColor(300, 255, 40) << 63 << 244;
}

void tst_ColorUtility::washedOutColorMovesAlmostToWhite()
{
    QFETCH(QColor, color);
    QFETCH(int, saturation);
    QFETCH(int, lightness);

    const QColor washed = ColorUtility::getWashedOutColor(color);
    QCOMPARE(washed.hslSaturation(), saturation);
    QCOMPARE(washed.lightness(), lightness);
    QCOMPARE(washed.hslHue(), color.hslHue());
    QCOMPARE(washed.alpha(), color.alpha());
}

void tst_ColorUtility::lighterAndWashedOutOfInvalidColourAreInvalid()
{
    QVERIFY(!ColorUtility::getLighterColor(QColor()).isValid());
    QVERIFY(!ColorUtility::getWashedOutColor(QColor()).isValid());
}

void tst_ColorUtility::presetComplementColorTable_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QColor>("color");

    const int table[12][3] = {
        {100, 160, 235}, {235, 152, 100}, {206, 100, 235}, {194, 181, 43},
        {90, 237, 105},  {237, 95, 90},   {189, 102, 255}, {70, 204, 191},
        {237, 168, 90},  {250, 102, 250}, {122, 116, 114}, {214, 210, 86},
    };
    for (int i = 0; i < 12; ++i)
        QTest::addRow("position %d", i) << i << QColor(table[i][0], table[i][1], table[i][2]);
}

void tst_ColorUtility::presetComplementColorTable()
{
    QFETCH(int, index);
    QFETCH(QColor, color);

    const QColor preset = ColorUtility::getPresetComplementColor(index);
    QCOMPARE(preset, color);
    QCOMPARE(preset.alpha(), 255);
}

void tst_ColorUtility::presetComplementColorCyclesAndRejectsNegatives_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("position"); // -1: invalid colour

    QTest::newRow("12 is position 0") << 12 << 0;
    QTest::newRow("25 is position 1") << 25 << 1;
    QTest::newRow("-12 is position 0") << -12 << 0;
    QTest::newRow("-24 is position 0") << -24 << 0;
    QTest::newRow("-1 is invalid") << -1 << -1;
    QTest::newRow("-13 is invalid") << -13 << -1;
}

void tst_ColorUtility::presetComplementColorCyclesAndRejectsNegatives()
{
    QFETCH(int, index);
    QFETCH(int, position);

    const QColor preset = ColorUtility::getPresetComplementColor(index);
    if (position < 0) {
        QVERIFY(!preset.isValid());
        return;
    }
    QCOMPARE(preset, ColorUtility::getPresetComplementColor(position));
}

void tst_ColorUtility::createColorButtonShowsColourAndName()
{
    const QColor color(12, 200, 34);
    std::unique_ptr<QToolButton> button(ColorUtility::createColorButton(18, color));
    QVERIFY(button);
    QCOMPARE(button->parent(), nullptr);
    QCOMPARE(button->text(), QStringLiteral("#0cc822"));
    QVERIFY(button->autoRaise());
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(button->iconSize(), QSize(18, 18));
    QVERIFY(!button->icon().isNull());
    QCOMPARE(button->icon().availableSizes().value(0), QSize(18, 18));
    QCOMPARE(QColor(iconColor(button->icon(), 18)), color);
}

QTEST_MAIN(tst_ColorUtility)
#include "tst_colorutility.moc"
