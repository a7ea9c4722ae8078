#include <figura/attributes/MarkerLabelFormat.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

using KelmQtPlot::MarkerLabelFormat;
using RecordTest::sortedKeys;

namespace {

QFont defaultLabelFont()
{
    QFont font;
    font.setPointSize(PlotDefault::LabelFontSize);
    return font;
}

QFont otherFont()
{
    QFont font = defaultLabelFont();
    font.setPointSize(13);
    font.setUnderline(true);
    return font;
}

MarkerLabelFormat fullFormat()
{
    MarkerLabelFormat format;
    format.font = otherFont();
    format.color = QColor(1, 2, 3);
    format.bgColor = QColor(4, 5, 6);
    format.alignment = Qt::AlignTop;
    format.sortOption = Figura::MarkerLabelSortByValue;
    return format;
}

} // namespace

class tst_MarkerLabelFormat : public QObject
{
    Q_OBJECT

private slots:
    void freshRecordHoldsUnsetValues();
    void equalityComparesEveryField_data();
    void equalityComparesEveryField();
    void copiesAndSelfAssignmentKeepValues();

    void freshRecordWritesNothing();
    void everyKeyRoundTrips();
    void unsetNumbersAreNotWritten();
    void sortOptionZeroIsWritten();
    void olderSortKeyWinsAndIsNotWritten();
    void olderSortKeyAloneIsRead();
    void emptyDocumentKeepsFontAndColoursResetsNumbers();
    void colourLosesAlphaOnRoundTrip();
    void writingKeepsOtherKeys();

    void badInput_data();
    void badInput();
};

void tst_MarkerLabelFormat::freshRecordHoldsUnsetValues()
{
    const MarkerLabelFormat format;
    QCOMPARE(format.font, defaultLabelFont());
    QCOMPARE(format.font.pointSize(), 10);
    QVERIFY(!format.color.isValid());
    QVERIFY(!format.bgColor.isValid());
    QCOMPARE(format.alignment, 0);
    QCOMPARE(format.sortOption, -1);
}

void tst_MarkerLabelFormat::equalityComparesEveryField_data()
{
    QTest::addColumn<int>("field");
    QTest::newRow("font") << 0;
    QTest::newRow("color") << 1;
    QTest::newRow("bgColor") << 2;
    QTest::newRow("alignment") << 3;
    QTest::newRow("sortOption") << 4;
}

void tst_MarkerLabelFormat::equalityComparesEveryField()
{
    QFETCH(int, field);
    RecordTest::checkEqualityNoticesChange(fullFormat(), [field](MarkerLabelFormat &b) {
        switch (field) {
        case 0: b.font = defaultLabelFont(); break;
        case 1: b.color = Qt::red; break;
        case 2: b.bgColor = Qt::red; break;
        case 3: b.alignment = Qt::AlignBottom; break;
        case 4: b.sortOption = Figura::MarkerLabelSortDefault; break;
        }
    });
}

void tst_MarkerLabelFormat::copiesAndSelfAssignmentKeepValues()
{
    const MarkerLabelFormat source = fullFormat();
    RecordTest::checkCopiesAndSelfAssignment(source);
}

void tst_MarkerLabelFormat::freshRecordWritesNothing()
{
    QJsonObject json;
    MarkerLabelFormat().toJson(json);
    QVERIFY(json.isEmpty());
}

void tst_MarkerLabelFormat::everyKeyRoundTrips()
{
    const MarkerLabelFormat written = fullFormat();
    QJsonObject json;
    written.toJson(json);
    QCOMPARE(sortedKeys(json), (QStringList{QStringLiteral("markerLabelAlignment"),
                                            QStringLiteral("markerLabelBgColor"),
                                            QStringLiteral("markerLabelColor"),
                                            QStringLiteral("markerLabelFont"),
                                            QStringLiteral("markerLabelSortOption")}));
    QCOMPARE(json.value(QStringLiteral("markerLabelFont")).toString(), otherFont().toString());
    QCOMPARE(json.value(QStringLiteral("markerLabelColor")).toString(), QStringLiteral("#010203"));
    QCOMPARE(json.value(QStringLiteral("markerLabelBgColor")).toString(), QStringLiteral("#040506"));
    QCOMPARE(json.value(QStringLiteral("markerLabelAlignment")).toInt(), 32);
    QCOMPARE(json.value(QStringLiteral("markerLabelSortOption")).toInt(), 1);

    MarkerLabelFormat read;
    read.fromJson(json);
    QCOMPARE(read, written);
}

void tst_MarkerLabelFormat::unsetNumbersAreNotWritten()
{
    MarkerLabelFormat format = fullFormat();
    format.alignment = 0;
    format.sortOption = -1;
    QJsonObject json;
    format.toJson(json);
    QVERIFY(!json.contains(QStringLiteral("markerLabelAlignment")));
    QVERIFY(!json.contains(QStringLiteral("markerLabelSortOption")));

    format.alignment = -4;
    format.sortOption = -2;
    QJsonObject again;
    format.toJson(again);
    QCOMPARE(sortedKeys(again), sortedKeys(json));
}

void tst_MarkerLabelFormat::sortOptionZeroIsWritten()
{
    MarkerLabelFormat format;
    format.sortOption = Figura::MarkerLabelSortDefault;
    QJsonObject json;
    format.toJson(json);
    QCOMPARE(json, (QJsonObject{{QStringLiteral("markerLabelSortOption"), 0}}));
}

void tst_MarkerLabelFormat::olderSortKeyWinsAndIsNotWritten()
{
    MarkerLabelFormat format;
    format.fromJson(QJsonObject{{QStringLiteral("markerSortingOption"), 2},
                                {QStringLiteral("markerLabelSortOption"), 1}});
    QCOMPARE(format.sortOption, 2);

    QJsonObject json;
    format.toJson(json);
    QCOMPARE(json, (QJsonObject{{QStringLiteral("markerLabelSortOption"), 2}}));
}

void tst_MarkerLabelFormat::olderSortKeyAloneIsRead()
{
    MarkerLabelFormat format;
    format.fromJson(QJsonObject{{QStringLiteral("markerSortingOption"), 1}});
    QCOMPARE(format.sortOption, 1);
}

void tst_MarkerLabelFormat::emptyDocumentKeepsFontAndColoursResetsNumbers()
{
    MarkerLabelFormat format = fullFormat();
    format.fromJson(QJsonObject());
    QCOMPARE(format.font, otherFont());
    QCOMPARE(format.color, QColor(1, 2, 3));
    QCOMPARE(format.bgColor, QColor(4, 5, 6));
    QCOMPARE(format.alignment, 0);
    QCOMPARE(format.sortOption, -1);
}

void tst_MarkerLabelFormat::colourLosesAlphaOnRoundTrip()
{
    MarkerLabelFormat format;
    format.color = QColor(10, 20, 30, 100);
    format.bgColor = QColor(251, 255, 250, 50);
    QJsonObject json;
    format.toJson(json);
    MarkerLabelFormat read;
    read.fromJson(json);
    QCOMPARE(read.color, QColor(10, 20, 30));
    QCOMPARE(read.bgColor, QColor(251, 255, 250));
}

void tst_MarkerLabelFormat::writingKeepsOtherKeys()
{
    QJsonObject json{{QStringLiteral("markerLabelAlignment"), 64}, {QStringLiteral("x"), 1}};
    MarkerLabelFormat format;
    format.color = Qt::red;
    format.toJson(json);
    QCOMPARE(json.value(QStringLiteral("markerLabelAlignment")).toInt(), 64);
    QCOMPARE(json.value(QStringLiteral("x")).toInt(), 1);
    QCOMPARE(json.value(QStringLiteral("markerLabelColor")).toString(), QStringLiteral("#ff0000"));
}

void tst_MarkerLabelFormat::badInput_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<MarkerLabelFormat>("expected");

    // Every row also carries the numbers of fullFormat, so that only the key
    // under test can make a difference.
    auto doc = [](const char *key, const QJsonValue &value) {
        QJsonObject json{{QStringLiteral("markerLabelAlignment"), int(Qt::AlignTop)},
                         {QStringLiteral("markerLabelSortOption"), 1}};
        json.insert(QLatin1String(key), value);
        return json;
    };
    const MarkerLabelFormat start = fullFormat();
    auto with = [&](auto change) {
        MarkerLabelFormat format = start;
        change(format);
        return format;
    };

    QTest::newRow("font is a number") << doc("markerLabelFont", 3) << start;
    QTest::newRow("font is empty") << doc("markerLabelFont", QString()) << start;
    QTest::newRow("colour is no colour") << doc("markerLabelColor", QStringLiteral("nonsense")) << start;
    QTest::newRow("colour is a number") << doc("markerLabelColor", 0xff0000) << start;
    QTest::newRow("background is no colour") << doc("markerLabelBgColor", QStringLiteral("#zzzzzz")) << start;
    QTest::newRow("background is an object") << doc("markerLabelBgColor", QJsonObject()) << start;
    QTest::newRow("alignment is a text")
        << doc("markerLabelAlignment", QStringLiteral("32"))
        << with([](MarkerLabelFormat &f) { f.alignment = 0; });
    QTest::newRow("alignment outside the map is stored")
        << doc("markerLabelAlignment", 4096)
        << with([](MarkerLabelFormat &f) { f.alignment = 4096; });
    QTest::newRow("sort option is fractional")
        << doc("markerLabelSortOption", 0.5)
        << with([](MarkerLabelFormat &f) { f.sortOption = -1; });
    QTest::newRow("older sort key of wrong type hides the newer one")
        << doc("markerSortingOption", QStringLiteral("1"))
        << with([](MarkerLabelFormat &f) { f.sortOption = -1; });
}

void tst_MarkerLabelFormat::badInput()
{
    QFETCH(QJsonObject, json);
    QFETCH(MarkerLabelFormat, expected);
    MarkerLabelFormat format = fullFormat();
    format.fromJson(json);
    QCOMPARE(format, expected);
}

QTEST_MAIN(tst_MarkerLabelFormat)
#include "tst_markerlabelformat.moc"
