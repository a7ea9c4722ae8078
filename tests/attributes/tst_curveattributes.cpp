#include <figura/attributes/CurveAttributes.h>
#include <figura/attributes/UnsetValue.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <qwt_symbol.h>

using KelmQtPlot::CurveAttributes;

namespace {

const QString CurveAttrs = QStringLiteral("curveAttrs");

CurveAttributes fullAttributes()
{
    CurveAttributes attrs;
    attrs.lineStyle = Qt::DashLine;
    attrs.lineWidth = 3;
    attrs.lineColor = QColor(10, 20, 30);
    attrs.symbolStyle = QwtSymbol::Diamond;
    attrs.symbolWidth = 12;
    attrs.symbolColor = QColor(40, 50, 60);
    return attrs;
}

QJsonObject wrapped(const QJsonObject &inner)
{
    return QJsonObject{{CurveAttrs, inner}};
}

} // namespace

class tst_CurveAttributes : public QObject
{
    Q_OBJECT

private slots:
    void freshRecordIsUnsetAndEmpty();
    void setDefaultsFillsEveryMember();
    void equalityComparesEveryMember_data();
    void equalityComparesEveryMember();
    void copiesAndSelfAssignmentKeepValues();
    void emptinessLooksAtStyleWidthAndColour_data();
    void emptinessLooksAtStyleWidthAndColour();

    void freshRecordWritesNoCurveAttrsKey();
    void everyKeyRoundTrips();
    void noSymbolStyleIsWrittenThoughEmpty();
    void negativeWidthIsNotWritten();
    void noPenLineStyleIsWrittenAndNotEmpty();
    void writingKeepsOtherKeys();
    void colourLosesAlphaOnRoundTrip();

    void readingWithoutCurveAttrsChangesNothing_data();
    void readingWithoutCurveAttrsChangesNothing();
    void absentKeysKeepMembers();
    void fractionalWidthReadsAsUnset();
    void lineColourAloneColoursSymbolsToo();
    void badLineColourInvalidatesBothColours();
    void symbolColourAloneSetsOnlySymbols();
    void emptySymbolColourKeepsSymbolColour();
    void badInput_data();
    void badInput();
};

void tst_CurveAttributes::freshRecordIsUnsetAndEmpty()
{
    const CurveAttributes attrs;
    QCOMPARE(attrs.lineStyle, Figura::UnsetValue);
    QCOMPARE(attrs.lineWidth, Figura::UnsetValue);
    QVERIFY(!attrs.lineColor.isValid());
    QCOMPARE(attrs.symbolStyle, Figura::UnsetValue);
    QCOMPARE(attrs.symbolWidth, Figura::UnsetValue);
    QVERIFY(!attrs.symbolColor.isValid());
    QVERIFY(attrs.isLineEmpty());
    QVERIFY(attrs.isSymbolEmpty());
}

void tst_CurveAttributes::setDefaultsFillsEveryMember()
{
    CurveAttributes attrs;
    attrs.setDefaults();
    QCOMPARE(attrs.lineStyle, int(Qt::SolidLine));
    QCOMPARE(attrs.lineWidth, 2);
    QCOMPARE(attrs.lineColor, QColor(100, 160, 235));
    QCOMPARE(attrs.symbolStyle, int(QwtSymbol::NoSymbol));
    QCOMPARE(attrs.symbolWidth, 8);
    QCOMPARE(attrs.symbolColor, PlotDefault::SymbolColor);
    QVERIFY(!attrs.isLineEmpty());
    QVERIFY(!attrs.isSymbolEmpty());
}

void tst_CurveAttributes::equalityComparesEveryMember_data()
{
    QTest::addColumn<int>("member");
    QTest::newRow("lineStyle") << 0;
    QTest::newRow("lineWidth") << 1;
    QTest::newRow("lineColor") << 2;
    QTest::newRow("symbolStyle") << 3;
    QTest::newRow("symbolWidth") << 4;
    QTest::newRow("symbolColor") << 5;
}

void tst_CurveAttributes::equalityComparesEveryMember()
{
    QFETCH(int, member);
    const CurveAttributes a = fullAttributes();
    CurveAttributes b = a;
    QVERIFY(a == b);
    QVERIFY(!(a != b));
    switch (member) {
    case 0: b.lineStyle = Qt::DotLine; break;
    case 1: b.lineWidth = 4; break;
    case 2: b.lineColor = Qt::red; break;
    case 3: b.symbolStyle = QwtSymbol::Rect; break;
    case 4: b.symbolWidth = 1; break;
    case 5: b.symbolColor = Qt::red; break;
    }
    QVERIFY(!(a == b));
    QVERIFY(a != b);
}

void tst_CurveAttributes::copiesAndSelfAssignmentKeepValues()
{
    const CurveAttributes source = fullAttributes();
    RecordTest::checkCopiesAndSelfAssignment(source);
}

void tst_CurveAttributes::emptinessLooksAtStyleWidthAndColour_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("width");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("empty");
    const int unset = Figura::UnsetValue;
    QTest::newRow("all unset") << unset << unset << QColor() << true;
    QTest::newRow("-1 style, -3 width") << -1 << -3 << QColor() << true;
    QTest::newRow("style 0") << 0 << unset << QColor() << false;
    QTest::newRow("width 0") << unset << 0 << QColor() << false;
    QTest::newRow("colour") << unset << unset << QColor(Qt::red) << false;
}

void tst_CurveAttributes::emptinessLooksAtStyleWidthAndColour()
{
    QFETCH(int, style);
    QFETCH(int, width);
    QFETCH(QColor, color);
    QFETCH(bool, empty);
    CurveAttributes line;
    line.lineStyle = style;
    line.lineWidth = width;
    line.lineColor = color;
    QCOMPARE(line.isLineEmpty(), empty);
    QVERIFY(line.isSymbolEmpty());

    CurveAttributes symbol;
    symbol.symbolStyle = style;
    symbol.symbolWidth = width;
    symbol.symbolColor = color;
    QCOMPARE(symbol.isSymbolEmpty(), empty);
    QVERIFY(symbol.isLineEmpty());
}

void tst_CurveAttributes::freshRecordWritesNoCurveAttrsKey()
{
    QJsonObject json;
    CurveAttributes().toJson(json);
    QVERIFY(json.isEmpty());

    // Not even over an old one: an empty record leaves the document alone.
    QJsonObject old = wrapped(QJsonObject{{QStringLiteral("lineWidth"), 5}});
    CurveAttributes().toJson(old);
    QCOMPARE(old, wrapped(QJsonObject{{QStringLiteral("lineWidth"), 5}}));
}

void tst_CurveAttributes::everyKeyRoundTrips()
{
    const CurveAttributes written = fullAttributes();
    QJsonObject json;
    written.toJson(json);
    QCOMPARE(json.keys(), QStringList{CurveAttrs});
    const QJsonObject expected{
        {QStringLiteral("lineStyle"), int(Qt::DashLine)},
        {QStringLiteral("lineWidth"), 3},
        {QStringLiteral("lineColor"), QStringLiteral("#0a141e")},
        {QStringLiteral("symbolStyle"), int(QwtSymbol::Diamond)},
        {QStringLiteral("symbolWidth"), 12},
        {QStringLiteral("symbolColor"), QStringLiteral("#28323c")},
    };
    QCOMPARE(json.value(CurveAttrs).toObject(), expected);

    CurveAttributes read;
    read.fromJson(json);
    QCOMPARE(read, written);
}

void tst_CurveAttributes::noSymbolStyleIsWrittenThoughEmpty()
{
    CurveAttributes attrs;
    attrs.symbolStyle = QwtSymbol::NoSymbol;
    QVERIFY(attrs.isSymbolEmpty());
    QJsonObject json;
    attrs.toJson(json);
    QCOMPARE(json, wrapped(QJsonObject{{QStringLiteral("symbolStyle"), -1}}));

    CurveAttributes read;
    read.fromJson(json);
    QCOMPARE(read, attrs);
}

void tst_CurveAttributes::negativeWidthIsNotWritten()
{
    CurveAttributes attrs;
    attrs.lineWidth = -3;
    attrs.symbolWidth = -3;
    attrs.lineStyle = -2;
    QVERIFY(attrs.isLineEmpty());
    QJsonObject json;
    attrs.toJson(json);
    QVERIFY(json.isEmpty());
}

void tst_CurveAttributes::noPenLineStyleIsWrittenAndNotEmpty()
{
    CurveAttributes attrs;
    attrs.lineStyle = Qt::NoPen;
    QVERIFY(!attrs.isLineEmpty());
    QJsonObject json;
    attrs.toJson(json);
    QCOMPARE(json, wrapped(QJsonObject{{QStringLiteral("lineStyle"), 0}}));
}

void tst_CurveAttributes::writingKeepsOtherKeys()
{
    QJsonObject json{{QStringLiteral("other"), 7}};
    fullAttributes().toJson(json);
    QCOMPARE(json.value(QStringLiteral("other")).toInt(), 7);
    QVERIFY(json.value(CurveAttrs).isObject());
}

void tst_CurveAttributes::colourLosesAlphaOnRoundTrip()
{
    CurveAttributes attrs;
    attrs.lineColor = QColor(1, 2, 3, 100);
    attrs.symbolColor = QColor(4, 5, 6, 0);
    QJsonObject json;
    attrs.toJson(json);
    CurveAttributes read;
    read.fromJson(json);
    QCOMPARE(read.lineColor, QColor(1, 2, 3));
    QCOMPARE(read.symbolColor, QColor(4, 5, 6));
}

void tst_CurveAttributes::readingWithoutCurveAttrsChangesNothing_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::newRow("no key") << QJsonObject{{QStringLiteral("lineWidth"), 1}};
    QTest::newRow("empty object") << wrapped(QJsonObject());
    QTest::newRow("a number") << QJsonObject{{CurveAttrs, 5}};
    QTest::newRow("a text") << QJsonObject{{CurveAttrs, QStringLiteral("lineWidth")}};
    QTest::newRow("an array") << QJsonObject{{CurveAttrs, QJsonArray{1, 2}}};
    QTest::newRow("null") << QJsonObject{{CurveAttrs, QJsonValue()}};
}

void tst_CurveAttributes::readingWithoutCurveAttrsChangesNothing()
{
    QFETCH(QJsonObject, json);
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(json);
    QCOMPARE(attrs, fullAttributes());
}

void tst_CurveAttributes::absentKeysKeepMembers()
{
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("symbolWidth"), 20}}));
    CurveAttributes expected = fullAttributes();
    expected.symbolWidth = 20;
    QCOMPARE(attrs, expected);
}

void tst_CurveAttributes::fractionalWidthReadsAsUnset()
{
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("lineWidth"), 2.5}}));
    QCOMPARE(attrs.lineWidth, Figura::UnsetValue);
}

void tst_CurveAttributes::lineColourAloneColoursSymbolsToo()
{
    CurveAttributes attrs;
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("lineColor"), QStringLiteral("#ff0000")}}));
    QCOMPARE(attrs.lineColor, QColor(Qt::red));
    QCOMPARE(attrs.symbolColor, QColor(Qt::red));
}

void tst_CurveAttributes::badLineColourInvalidatesBothColours()
{
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("lineColor"), QStringLiteral("nonsense")}}));
    QVERIFY(!attrs.lineColor.isValid());
    QVERIFY(!attrs.symbolColor.isValid());
    QCOMPARE(attrs.lineWidth, 3);
}

void tst_CurveAttributes::symbolColourAloneSetsOnlySymbols()
{
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("symbolColor"), QStringLiteral("#00ff00")}}));
    QCOMPARE(attrs.lineColor, QColor(10, 20, 30));
    QCOMPARE(attrs.symbolColor, QColor(Qt::green));
}

void tst_CurveAttributes::emptySymbolColourKeepsSymbolColour()
{
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(QJsonObject{{QStringLiteral("lineColor"), QStringLiteral("#0000ff")},
                                       {QStringLiteral("symbolColor"), QString()}}));
    QCOMPARE(attrs.lineColor, QColor(Qt::blue));
    QCOMPARE(attrs.symbolColor, QColor(40, 50, 60));
}

void tst_CurveAttributes::badInput_data()
{
    QTest::addColumn<QJsonObject>("inner");
    QTest::addColumn<CurveAttributes>("expected");

    const CurveAttributes start = fullAttributes();
    auto with = [&](auto change) {
        CurveAttributes attrs = start;
        change(attrs);
        return attrs;
    };
    const qint32 unset = Figura::UnsetValue;

    // A number key of another type unsets its member.
    QTest::newRow("lineStyle is a text")
        << QJsonObject{{QStringLiteral("lineStyle"), QStringLiteral("1")}}
        << with([&](CurveAttributes &a) { a.lineStyle = unset; });
    QTest::newRow("lineWidth is null")
        << QJsonObject{{QStringLiteral("lineWidth"), QJsonValue()}}
        << with([&](CurveAttributes &a) { a.lineWidth = unset; });
    QTest::newRow("symbolStyle is a bool")
        << QJsonObject{{QStringLiteral("symbolStyle"), true}}
        << with([&](CurveAttributes &a) { a.symbolStyle = unset; });
    QTest::newRow("symbolWidth is an object")
        << QJsonObject{{QStringLiteral("symbolWidth"), QJsonObject()}}
        << with([&](CurveAttributes &a) { a.symbolWidth = unset; });
    QTest::newRow("symbolWidth beyond int")
        << QJsonObject{{QStringLiteral("symbolWidth"), 1e15}}
        << with([&](CurveAttributes &a) { a.symbolWidth = unset; });
    // Numbers are stored without a range check.
    QTest::newRow("negative lineWidth is stored")
        << QJsonObject{{QStringLiteral("lineWidth"), -9}}
        << with([&](CurveAttributes &a) { a.lineWidth = -9; });
    // A colour key of another type reads as an empty text and is skipped.
    QTest::newRow("lineColor is a number")
        << QJsonObject{{QStringLiteral("lineColor"), 255}} << start;
    QTest::newRow("symbolColor is an array")
        << QJsonObject{{QStringLiteral("symbolColor"), QJsonArray()}} << start;
    QTest::newRow("symbolColor is no colour")
        << QJsonObject{{QStringLiteral("symbolColor"), QStringLiteral("#12")}}
        << with([&](CurveAttributes &a) { a.symbolColor = QColor(); });
    // The working text is emptied by a symbol colour of the wrong type.
    QTest::newRow("line colour then symbolColor of wrong type")
        << QJsonObject{{QStringLiteral("lineColor"), QStringLiteral("#ffffff")},
                       {QStringLiteral("symbolColor"), 3}}
        << with([&](CurveAttributes &a) { a.lineColor = Qt::white; });
}

void tst_CurveAttributes::badInput()
{
    QFETCH(QJsonObject, inner);
    QFETCH(CurveAttributes, expected);
    CurveAttributes attrs = fullAttributes();
    attrs.fromJson(wrapped(inner));
    QCOMPARE(attrs, expected);
}

QTEST_MAIN(tst_CurveAttributes)
#include "tst_curveattributes.moc"
