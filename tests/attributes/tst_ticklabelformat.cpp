#include <figura/attributes/TickLabelFormat.h>
#include <figura/attributes/UnsetValue.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <qwt_plot.h>
using RecordTest::applicationLabelFont;
using RecordTest::sortedKeys;

namespace {

QFont otherFont()
{
    QFont font = applicationLabelFont();
    font.setPointSize(17);
    font.setItalic(true);
    return font;
}

TickLabelFormat fullFormat()
{
    TickLabelFormat format;
    format.font = otherFont();
    format.color = QColor(10, 20, 30);
    format.rotation = 45;
    return format;
}

} // namespace

class tst_TickLabelFormat : public QObject
{
    Q_OBJECT

private slots:
    void defaultRecordIsNotValid();
    void defaultFontIsApplicationFontAtLabelSize();
    void rotationLimitsAreInclusive_data();
    void rotationLimitsAreInclusive();
    void validityNeedsColourAndRotationButNotFont();
    void equalityComparesEveryField_data();
    void equalityComparesEveryField();
    void copiesAndSelfAssignmentKeepValues();

    void everyKeyRoundTrips_data();
    void everyKeyRoundTrips();
    void freshRecordWritesNothing();
    void zeroRotationIsNotWrittenAndReturnsUnset();
    void outOfRangeRotationIsWrittenAndReadAsItStands();
    void colourLosesAlphaOnRoundTrip();
    void defaultFontIsNotWrittenAndKeptOnRead();
    void unknownAxisLeavesJsonAndRecordUntouched_data();
    void unknownAxisLeavesJsonAndRecordUntouched();
    void xTopKeysAreWritten();
    void writingKeepsOtherKeys();

    void badInput_data();
    void badInput();
    void refusedFontTextAssignsDefaultFont();
};

void tst_TickLabelFormat::defaultRecordIsNotValid()
{
    const TickLabelFormat format;
    QVERIFY(!format.color.isValid());
    QCOMPARE(format.rotation, Figura::UnsetValue);
    QCOMPARE(format.rotation, qint32(-2147483647 - 1));
    QVERIFY(!format.isRotationValid());
    QVERIFY(!format.isValid());
}

void tst_TickLabelFormat::defaultFontIsApplicationFontAtLabelSize()
{
    const TickLabelFormat format;
    QCOMPARE(format.font, applicationLabelFont());
    QCOMPARE(format.font.pointSize(), 10);
}

void tst_TickLabelFormat::rotationLimitsAreInclusive_data()
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

void tst_TickLabelFormat::rotationLimitsAreInclusive()
{
    QFETCH(int, rotation);
    QFETCH(bool, valid);
    TickLabelFormat format;
    format.color = Qt::red;
    format.rotation = rotation;
    QCOMPARE(format.isRotationValid(), valid);
    QCOMPARE(format.isValid(), valid);
}

void tst_TickLabelFormat::validityNeedsColourAndRotationButNotFont()
{
    TickLabelFormat format;
    format.rotation = 10;
    QVERIFY(format.isRotationValid());
    QVERIFY(!format.isValid());
    format.color = Qt::blue;
    QVERIFY(format.isValid());
    format.font = QFont(QStringLiteral("no such family at all"), 1);
    QVERIFY(format.isValid());
}

void tst_TickLabelFormat::equalityComparesEveryField_data()
{
    QTest::addColumn<int>("field");
    QTest::newRow("font") << 0;
    QTest::newRow("color") << 1;
    QTest::newRow("rotation") << 2;
}

void tst_TickLabelFormat::equalityComparesEveryField()
{
    QFETCH(int, field);
    RecordTest::checkEqualityNoticesChange(fullFormat(), [field](TickLabelFormat &b) {
        switch (field) {
        case 0: b.font.setBold(!b.font.bold()); break;
        case 1: b.color = Qt::green; break;
        case 2: b.rotation = -12; break;
        }
    });
}

void tst_TickLabelFormat::copiesAndSelfAssignmentKeepValues()
{
    const TickLabelFormat source = fullFormat();
    RecordTest::checkCopiesAndSelfAssignment(source);
    TickLabelFormat copy(source);
    copy.color = Qt::yellow;
    QCOMPARE(source.color, QColor(10, 20, 30));
}

void tst_TickLabelFormat::everyKeyRoundTrips_data()
{
    QTest::addColumn<int>("axisId");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("yLeft") << int(QwtPlot::yLeft) << QStringLiteral("yLeft");
    QTest::newRow("yRight") << int(QwtPlot::yRight) << QStringLiteral("yRight");
    QTest::newRow("xBottom") << int(QwtPlot::xBottom) << QStringLiteral("xBottom");
    QTest::newRow("xTop") << int(QwtPlot::xTop) << QStringLiteral("xTop");
}

void tst_TickLabelFormat::everyKeyRoundTrips()
{
    QFETCH(int, axisId);
    QFETCH(QString, prefix);
    const TickLabelFormat written = fullFormat();
    QJsonObject json;
    written.toJson(axisId, json);

    const QStringList expectedKeys = {prefix + QStringLiteral("TickLabelColor"),
                                      prefix + QStringLiteral("TickLabelFont"),
                                      prefix + QStringLiteral("TickLabelRotation")};
    QCOMPARE(sortedKeys(json), expectedKeys);
    QCOMPARE(json.value(prefix + QStringLiteral("TickLabelFont")).toString(), otherFont().toString());
    QCOMPARE(json.value(prefix + QStringLiteral("TickLabelColor")).toString(), QStringLiteral("#0a141e"));
    QVERIFY(json.value(prefix + QStringLiteral("TickLabelRotation")).isDouble());
    QCOMPARE(json.value(prefix + QStringLiteral("TickLabelRotation")).toInt(), 45);

    TickLabelFormat read;
    read.fromJson(axisId, json);
    QCOMPARE(read, written);
}

void tst_TickLabelFormat::freshRecordWritesNothing()
{
    QJsonObject json;
    TickLabelFormat().toJson(QwtPlot::xBottom, json);
    QVERIFY(json.isEmpty());
}

void tst_TickLabelFormat::zeroRotationIsNotWrittenAndReturnsUnset()
{
    TickLabelFormat written = fullFormat();
    written.rotation = 0;
    QVERIFY(written.isRotationValid());
    QJsonObject json;
    written.toJson(QwtPlot::yLeft, json);
    QVERIFY(!json.contains(QStringLiteral("yLeftTickLabelRotation")));

    TickLabelFormat read = written;
    read.fromJson(QwtPlot::yLeft, json);
    QCOMPARE(read.rotation, Figura::UnsetValue);
    QVERIFY(!read.isRotationValid());
    QVERIFY(read != written);
}

void tst_TickLabelFormat::outOfRangeRotationIsWrittenAndReadAsItStands()
{
    TickLabelFormat written;
    written.rotation = 120;
    QJsonObject json;
    written.toJson(QwtPlot::xBottom, json);
    QCOMPARE(json.value(QStringLiteral("xBottomTickLabelRotation")).toInt(), 120);

    TickLabelFormat read;
    read.rotation = -45;
    read.fromJson(QwtPlot::xBottom, json);
    QCOMPARE(read.rotation, 120);
    QVERIFY(!read.isRotationValid());
}

void tst_TickLabelFormat::colourLosesAlphaOnRoundTrip()
{
    TickLabelFormat written;
    written.color = QColor(200, 100, 50, 100);
    QJsonObject json;
    written.toJson(QwtPlot::xBottom, json);
    QCOMPARE(json.value(QStringLiteral("xBottomTickLabelColor")).toString(), QStringLiteral("#c86432"));

    TickLabelFormat read;
    read.fromJson(QwtPlot::xBottom, json);
    QCOMPARE(read.color, QColor(200, 100, 50, 255));
    QCOMPARE(read.color.alpha(), 255);
}

void tst_TickLabelFormat::defaultFontIsNotWrittenAndKeptOnRead()
{
    TickLabelFormat written;
    written.font = applicationLabelFont();
    written.color = Qt::red;
    QJsonObject json;
    written.toJson(QwtPlot::yRight, json);
    QVERIFY(!json.contains(QStringLiteral("yRightTickLabelFont")));
    QVERIFY(json.contains(QStringLiteral("yRightTickLabelColor")));

    TickLabelFormat read;
    read.font = otherFont();
    read.fromJson(QwtPlot::yRight, json);
    QCOMPARE(read.font, otherFont());
}

void tst_TickLabelFormat::unknownAxisLeavesJsonAndRecordUntouched_data()
{
    QTest::addColumn<int>("axisId");
    QTest::newRow("7") << 7;
    QTest::newRow("4") << 4;
    QTest::newRow("-1") << -1;
}

void tst_TickLabelFormat::unknownAxisLeavesJsonAndRecordUntouched()
{
    QFETCH(int, axisId);
    QJsonObject json{{QStringLiteral("other"), 1}};
    fullFormat().toJson(axisId, json);
    QCOMPARE(json, (QJsonObject{{QStringLiteral("other"), 1}}));

    // Even a document for every axis does not reach an unknown one; the
    // rotation in particular is not reset to unset.
    QJsonObject everyAxis;
    for (int axis = 0; axis < QwtPlot::axisCnt; ++axis) {
        TickLabelFormat other;
        other.color = Qt::magenta;
        other.rotation = 5;
        other.toJson(axis, everyAxis);
    }
    TickLabelFormat record = fullFormat();
    record.fromJson(axisId, everyAxis);
    QCOMPARE(record, fullFormat());
    record.fromJson(axisId, QJsonObject());
    QCOMPARE(record.rotation, 45);
}

void tst_TickLabelFormat::xTopKeysAreWritten()
{
    QJsonObject json;
    fullFormat().toJson(QwtPlot::xTop, json);
    QCOMPARE(json.size(), 3);
    for (const QString &key : json.keys())
        QVERIFY2(key.startsWith(QStringLiteral("xTop")), qPrintable(key));
}

void tst_TickLabelFormat::writingKeepsOtherKeys()
{
    QJsonObject json{{QStringLiteral("keep"), QStringLiteral("me")},
                     {QStringLiteral("xBottomTickLabelRotation"), 33}};
    TickLabelFormat format;
    format.color = Qt::red; // rotation stays unset, so the old rotation key is not rewritten
    format.toJson(QwtPlot::xBottom, json);
    QCOMPARE(json.value(QStringLiteral("keep")).toString(), QStringLiteral("me"));
    QCOMPARE(json.value(QStringLiteral("xBottomTickLabelRotation")).toInt(), 33);
    QCOMPARE(json.value(QStringLiteral("xBottomTickLabelColor")).toString(), QStringLiteral("#ff0000"));
}

void tst_TickLabelFormat::badInput_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<TickLabelFormat>("expected");

    const TickLabelFormat start = fullFormat();
    TickLabelFormat unsetRotation = start;
    unsetRotation.rotation = Figura::UnsetValue;

    auto doc = [](const char *suffix, const QJsonValue &value) {
        return QJsonObject{{QStringLiteral("xBottom") + QLatin1String(suffix), value},
                           {QStringLiteral("xBottomTickLabelRotation"), 45}};
    };

    // Font and colour of the wrong type or unusable keep what the record has.
    QTest::newRow("font is a number") << doc("TickLabelFont", 12) << start;
    QTest::newRow("font is empty") << doc("TickLabelFont", QString()) << start;
    QTest::newRow("font is an object") << doc("TickLabelFont", QJsonObject()) << start;
    QTest::newRow("colour is a number") << doc("TickLabelColor", 255) << start;
    QTest::newRow("colour is empty") << doc("TickLabelColor", QString()) << start;
    QTest::newRow("colour is no colour") << doc("TickLabelColor", QStringLiteral("nonsense")) << start;
    QTest::newRow("colour is an array") << doc("TickLabelColor", QJsonArray()) << start;

    // The rotation is taken without check: anything but a whole number unsets it.
    auto rotation = [](const QJsonValue &value) {
        return QJsonObject{{QStringLiteral("xBottomTickLabelRotation"), value}};
    };
    TickLabelFormat rotation120 = start;
    rotation120.rotation = 120;
    TickLabelFormat rotationMinus300 = start;
    rotationMinus300.rotation = -300;
    QTest::newRow("rotation missing") << QJsonObject() << unsetRotation;
    QTest::newRow("rotation is a text") << rotation(QStringLiteral("30")) << unsetRotation;
    QTest::newRow("rotation is fractional") << rotation(2.5) << unsetRotation;
    QTest::newRow("rotation is a bool") << rotation(true) << unsetRotation;
    QTest::newRow("rotation is null") << rotation(QJsonValue()) << unsetRotation;
    QTest::newRow("rotation beyond int") << rotation(1e12) << unsetRotation;
    QTest::newRow("rotation 120 is stored") << rotation(120) << rotation120;
    QTest::newRow("rotation -300 is stored") << rotation(-300) << rotationMinus300;
    QTest::newRow("rotation 12.0 reads as 12") << rotation(12.0) << [&] {
        TickLabelFormat f = start;
        f.rotation = 12;
        return f;
    }();
}

void tst_TickLabelFormat::badInput()
{
    QFETCH(QJsonObject, json);
    QFETCH(TickLabelFormat, expected);
    TickLabelFormat record = fullFormat();
    record.fromJson(QwtPlot::xBottom, json);
    QCOMPARE(record, expected);
}

void tst_TickLabelFormat::refusedFontTextAssignsDefaultFont()
{
    // More fields than QFont knows: fromString refuses, and the default font
    // it leaves behind is what the record gets.
    const QString refused(20, QLatin1Char(','));
    TickLabelFormat record = fullFormat();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^QFont::fromString")));
    record.fromJson(QwtPlot::xBottom, QJsonObject{{QStringLiteral("xBottomTickLabelFont"), refused}});
    QCOMPARE(record.font, QFont());
    QCOMPARE(record.color, QColor(10, 20, 30));
}

QTEST_MAIN(tst_TickLabelFormat)
#include "tst_ticklabelformat.moc"
