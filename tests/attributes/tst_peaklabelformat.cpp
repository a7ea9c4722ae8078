#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/UnsetValue.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>
using RecordTest::applicationLabelFont;
using RecordTest::sortedKeys;

namespace {

QFont otherFont()
{
    QFont font = applicationLabelFont();
    font.setPointSize(15);
    font.setBold(true);
    return font;
}

PeakLabelFormat fullFormat()
{
    return PeakLabelFormat(otherFont(), QColor(1, 2, 3), 30);
}

} // namespace

class tst_PeakLabelFormat : public QObject
{
    Q_OBJECT

private slots:
    void defaultRecordIsNotValid();
    void constructorStoresValuesUnchecked();
    void settersStoreWithoutRangeCheck();
    void rotationLimitsAreInclusive_data();
    void rotationLimitsAreInclusive();
    void validityNeedsColourButNotFont();
    void equalityComparesEveryField_data();
    void equalityComparesEveryField();
    void copiesAreIndependent();
    void selfAssignmentKeepsValues();
    void objectIsOnePointerWide();

    void everyKeyRoundTrips();
    void freshRecordWritesNothing();
    void zeroRotationSurvivesRoundTrip();
    void outOfRangeRotationIsWrittenButNotRead();
    void missingRotationKeepsValue();
    void colourLosesAlphaOnRoundTrip();
    void defaultFontIsNotWrittenAndKeptOnRead();
    void writingKeepsOtherKeys();

    void badInput_data();
    void badInput();
};

void tst_PeakLabelFormat::defaultRecordIsNotValid()
{
    const PeakLabelFormat format;
    QCOMPARE(format.font(), applicationLabelFont());
    QVERIFY(!format.color().isValid());
    QCOMPARE(format.textRotation(), Figura::UnsetValue);
    QVERIFY(!format.isValid());
}

void tst_PeakLabelFormat::constructorStoresValuesUnchecked()
{
    const PeakLabelFormat format(otherFont(), QColor(), 500);
    QCOMPARE(format.font(), otherFont());
    QVERIFY(!format.color().isValid());
    QCOMPARE(format.textRotation(), 500);
}

void tst_PeakLabelFormat::settersStoreWithoutRangeCheck()
{
    PeakLabelFormat format;
    format.setFont(otherFont());
    format.setColor(QColor(9, 8, 7, 6));
    format.setTextRotation(-1000);
    QCOMPARE(format.font(), otherFont());
    QCOMPARE(format.color(), QColor(9, 8, 7, 6));
    QCOMPARE(format.textRotation(), -1000);
}

void tst_PeakLabelFormat::rotationLimitsAreInclusive_data()
{
    QTest::addColumn<int>("rotation");
    QTest::addColumn<bool>("valid");
    QTest::newRow("-91") << -91 << false;
    QTest::newRow("-90") << -90 << true;
    QTest::newRow("0") << 0 << true;
    QTest::newRow("90") << 90 << true;
    QTest::newRow("91") << 91 << false;
    QTest::newRow("unset") << int(Figura::UnsetValue) << false;
}

void tst_PeakLabelFormat::rotationLimitsAreInclusive()
{
    QFETCH(int, rotation);
    QFETCH(bool, valid);
    const PeakLabelFormat format(applicationLabelFont(), Qt::red, rotation);
    QCOMPARE(format.isValid(), valid);
}

void tst_PeakLabelFormat::validityNeedsColourButNotFont()
{
    PeakLabelFormat format(QFont(QStringLiteral("no such family at all"), 1), QColor(), 0);
    QVERIFY(!format.isValid());
    format.setColor(Qt::black);
    QVERIFY(format.isValid());
}

void tst_PeakLabelFormat::equalityComparesEveryField_data()
{
    QTest::addColumn<int>("field");
    QTest::newRow("font") << 0;
    QTest::newRow("color") << 1;
    QTest::newRow("textRotation") << 2;
}

void tst_PeakLabelFormat::equalityComparesEveryField()
{
    QFETCH(int, field);
    RecordTest::checkEqualityNoticesChange(fullFormat(), [field](PeakLabelFormat &b) {
        switch (field) {
        case 0: b.setFont(applicationLabelFont()); break;
        case 1: b.setColor(Qt::green); break;
        case 2: b.setTextRotation(31); break;
        }
    });
}

void tst_PeakLabelFormat::copiesAreIndependent()
{
    const PeakLabelFormat source = fullFormat();
    PeakLabelFormat copy(source);
    QCOMPARE(copy, source);
    copy.setColor(Qt::red);
    copy.setFont(applicationLabelFont());
    copy.setTextRotation(-7);
    QCOMPARE(source, fullFormat());

    PeakLabelFormat assigned;
    assigned = source;
    QCOMPARE(assigned, source);
    assigned.setColor(Qt::blue);
    QCOMPARE(source.color(), QColor(1, 2, 3));

    const QColor *before = &assigned.color();
    assigned = copy;
    // Assignment copies into the target's own record rather than sharing one.
    QCOMPARE(&assigned.color(), before);
    QCOMPARE(assigned, copy);
}

void tst_PeakLabelFormat::selfAssignmentKeepsValues()
{
    PeakLabelFormat format = fullFormat();
    PeakLabelFormat &self = format;
    format = self;
    QCOMPARE(format, fullFormat());
}

void tst_PeakLabelFormat::objectIsOnePointerWide()
{
    QCOMPARE(sizeof(PeakLabelFormat), sizeof(void *));
}

void tst_PeakLabelFormat::everyKeyRoundTrips()
{
    const PeakLabelFormat written = fullFormat();
    QJsonObject json;
    written.toJson(json);
    QCOMPARE(sortedKeys(json), (QStringList{QStringLiteral("peakLabelColor"),
                                            QStringLiteral("peakLabelFont"),
                                            QStringLiteral("peakLabelTextRotation")}));
    QCOMPARE(json.value(QStringLiteral("peakLabelFont")).toString(), otherFont().toString());
    QCOMPARE(json.value(QStringLiteral("peakLabelColor")).toString(), QStringLiteral("#010203"));
    QVERIFY(json.value(QStringLiteral("peakLabelTextRotation")).isDouble());
    QCOMPARE(json.value(QStringLiteral("peakLabelTextRotation")).toInt(), 30);

    PeakLabelFormat read;
    read.fromJson(json);
    QCOMPARE(read, written);
}

void tst_PeakLabelFormat::freshRecordWritesNothing()
{
    QJsonObject json;
    PeakLabelFormat().toJson(json);
    QVERIFY(json.isEmpty());
}

void tst_PeakLabelFormat::zeroRotationSurvivesRoundTrip()
{
    PeakLabelFormat written = fullFormat();
    written.setTextRotation(0);
    QJsonObject json;
    written.toJson(json);
    QCOMPARE(json.value(QStringLiteral("peakLabelTextRotation")).toInt(-1), 0);

    PeakLabelFormat read(applicationLabelFont(), QColor(), -45);
    read.fromJson(json);
    QCOMPARE(read.textRotation(), 0);
    QCOMPARE(read, written);
}

void tst_PeakLabelFormat::outOfRangeRotationIsWrittenButNotRead()
{
    PeakLabelFormat written;
    written.setTextRotation(120);
    QJsonObject json;
    written.toJson(json);
    QCOMPARE(json, (QJsonObject{{QStringLiteral("peakLabelTextRotation"), 120}}));

    PeakLabelFormat read;
    read.setTextRotation(-45);
    read.fromJson(json);
    QCOMPARE(read.textRotation(), -45);
}

void tst_PeakLabelFormat::missingRotationKeepsValue()
{
    PeakLabelFormat read = fullFormat();
    read.fromJson(QJsonObject());
    QCOMPARE(read, fullFormat());
}

void tst_PeakLabelFormat::colourLosesAlphaOnRoundTrip()
{
    PeakLabelFormat written;
    written.setColor(QColor(0, 128, 255, 100));
    QJsonObject json;
    written.toJson(json);
    PeakLabelFormat read;
    read.fromJson(json);
    QCOMPARE(read.color(), QColor(0, 128, 255));
    QCOMPARE(read.color().alpha(), 255);
}

void tst_PeakLabelFormat::defaultFontIsNotWrittenAndKeptOnRead()
{
    PeakLabelFormat written(applicationLabelFont(), Qt::red, 10);
    QJsonObject json;
    written.toJson(json);
    QVERIFY(!json.contains(QStringLiteral("peakLabelFont")));

    PeakLabelFormat read = fullFormat();
    read.fromJson(json);
    QCOMPARE(read.font(), otherFont());
}

void tst_PeakLabelFormat::writingKeepsOtherKeys()
{
    QJsonObject json{{QStringLiteral("keep"), true}, {QStringLiteral("peakLabelFont"), QStringLiteral("x")}};
    PeakLabelFormat format;
    format.setTextRotation(5);
    format.toJson(json);
    QCOMPARE(json.value(QStringLiteral("keep")).toBool(), true);
    QCOMPARE(json.value(QStringLiteral("peakLabelFont")).toString(), QStringLiteral("x"));
    QCOMPARE(json.value(QStringLiteral("peakLabelTextRotation")).toInt(), 5);
}

void tst_PeakLabelFormat::badInput_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<PeakLabelFormat>("expected");

    const PeakLabelFormat start = fullFormat();
    auto doc = [](const char *key, const QJsonValue &value) {
        return QJsonObject{{QLatin1String(key), value}};
    };

    QTest::newRow("font is a number") << doc("peakLabelFont", 12) << start;
    QTest::newRow("font is empty") << doc("peakLabelFont", QString()) << start;
    QTest::newRow("colour is a bool") << doc("peakLabelColor", true) << start;
    QTest::newRow("colour is empty") << doc("peakLabelColor", QString()) << start;
    QTest::newRow("colour is no colour") << doc("peakLabelColor", QStringLiteral("nonsense")) << start;
    QTest::newRow("colour is an array") << doc("peakLabelColor", QJsonArray{1, 2, 3}) << start;
    QTest::newRow("rotation is a text") << doc("peakLabelTextRotation", QStringLiteral("10")) << start;
    QTest::newRow("rotation is fractional") << doc("peakLabelTextRotation", 2.5) << start;
    QTest::newRow("rotation is null") << doc("peakLabelTextRotation", QJsonValue()) << start;
    QTest::newRow("rotation -91") << doc("peakLabelTextRotation", -91) << start;
    QTest::newRow("rotation 91") << doc("peakLabelTextRotation", 91) << start;
    QTest::newRow("rotation beyond int") << doc("peakLabelTextRotation", -1e12) << start;

    PeakLabelFormat atMinus90 = start;
    atMinus90.setTextRotation(-90);
    QTest::newRow("rotation -90 is read") << doc("peakLabelTextRotation", -90) << atMinus90;
    PeakLabelFormat at90 = start;
    at90.setTextRotation(90);
    QTest::newRow("rotation 90.0 is read") << doc("peakLabelTextRotation", 90.0) << at90;
}

void tst_PeakLabelFormat::badInput()
{
    QFETCH(QJsonObject, json);
    QFETCH(PeakLabelFormat, expected);
    PeakLabelFormat record = fullFormat();
    record.fromJson(json);
    QCOMPARE(record, expected);
}

QTEST_MAIN(tst_PeakLabelFormat)
#include "tst_peaklabelformat.moc"
