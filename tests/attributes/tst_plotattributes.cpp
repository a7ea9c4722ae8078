#include <figura/attributes/PlotAttributes.h>
#include <figura/attributes/UnsetValue.h>
#include <figura/defaults/PlotDefault.h>

#include "AttributeToString.h"
#include "RecordTestSupport.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <qwt_plot.h>

#include <cmath>
#include <functional>

using KelmQtPlot::PlotAttributes;
using RecordTest::sortedKeys;

namespace {

QwtText titleText(const QString &text, int pointSize, const QColor &color)
{
    QwtText title(text);
    QFont font;
    font.setPointSize(pointSize);
    font.setItalic(true);
    title.setFont(font);
    title.setColor(color);
    return title;
}

TickLabelFormat tickLabel(int pointSize, const QColor &color, int rotation)
{
    TickLabelFormat format;
    format.font.setPointSize(pointSize);
    format.color = color;
    format.rotation = rotation;
    return format;
}

// Every member away from its unset value, so that every key is written.
PlotAttributes fullAttributes()
{
    PlotAttributes a;
    a.plotTitle = titleText(QStringLiteral("Spectrum"), 20, QColor(0x11, 0x22, 0x33));
    a.canvasColor = QColor(1, 1, 1);
    a.majorGridColor = QColor(2, 2, 2);
    a.minorGridColor = QColor(3, 3, 3);
    a.chartColor = QColor(4, 4, 4);
    a.penWidth = 3;
    a.barChartBaseline = 0.5;
    a.timeFormat = 2;
    a.markerVisible = 0;
    a.markerWidth = 4;
    a.markerColor = QColor(5, 5, 5);
    a.markerLabelVisible = 1;
    a.markerLabelFormat.font.setPointSize(9);
    a.markerLabelFormat.color = QColor(6, 6, 6);
    a.markerLabelFormat.bgColor = QColor(7, 7, 7);
    a.markerLabelFormat.alignment = Qt::AlignBottom;
    a.markerLabelFormat.sortOption = Figura::MarkerLabelSortByValue;
    a.peakLabelOpt = 2;
    a.peakLabelFormat = PeakLabelFormat(QFont(QStringLiteral("Serif"), 8), QColor(8, 8, 8), 30);
    a.xAxisTitle = titleText(QStringLiteral("m/z"), 11, QColor(9, 9, 9));
    a.yAxisTitle = titleText(QStringLiteral("Intensity"), 13, QColor(10, 10, 10));
    a.yRightAxisTitle = titleText(QStringLiteral("Pressure"), 15, QColor(11, 11, 11));
    a.xTickLabel = tickLabel(7, QColor(12, 12, 12), 45);
    a.yTickLabel = tickLabel(8, QColor(13, 13, 13), -30);
    a.yRightTickLabel = tickLabel(9, QColor(14, 14, 14), 90);
    a.logScale = 1;
    a.dragZoom = 0;
    a.autoScroll = 1;
    return a;
}

// Fails the current test with the name of the first member that differs.
void compareDocumentMembers(const PlotAttributes &actual, const PlotAttributes &expected)
{
    QCOMPARE(actual.plotTitle, expected.plotTitle);
    QCOMPARE(actual.canvasColor, expected.canvasColor);
    QCOMPARE(actual.majorGridColor, expected.majorGridColor);
    QCOMPARE(actual.minorGridColor, expected.minorGridColor);
    QCOMPARE(actual.chartColor, expected.chartColor);
    QCOMPARE(actual.penWidth, expected.penWidth);
    QCOMPARE(actual.barChartBaseline, expected.barChartBaseline);
    QCOMPARE(actual.timeFormat, expected.timeFormat);
    QCOMPARE(actual.markerVisible, expected.markerVisible);
    QCOMPARE(actual.markerWidth, expected.markerWidth);
    QCOMPARE(actual.markerColor, expected.markerColor);
    QCOMPARE(actual.markerLabelVisible, expected.markerLabelVisible);
    QCOMPARE(actual.markerLabelFormat, expected.markerLabelFormat);
    QCOMPARE(actual.peakLabelOpt, expected.peakLabelOpt);
    QCOMPARE(actual.peakLabelFormat, expected.peakLabelFormat);
    QCOMPARE(actual.xAxisTitle, expected.xAxisTitle);
    QCOMPARE(actual.yAxisTitle, expected.yAxisTitle);
    QCOMPARE(actual.yRightAxisTitle, expected.yRightAxisTitle);
    QCOMPARE(actual.xTickLabel, expected.xTickLabel);
    QCOMPARE(actual.yTickLabel, expected.yTickLabel);
    QCOMPARE(actual.yRightTickLabel, expected.yRightTickLabel);
    QCOMPARE(actual.logScale, expected.logScale);
    QCOMPARE(actual.dragZoom, expected.dragZoom);
    QCOMPARE(actual.autoScroll, expected.autoScroll);
}

#define COMPARE_MEMBERS(actual, expected)                                                          \
    do {                                                                                           \
        compareDocumentMembers(actual, expected);                                                  \
        if (QTest::currentTestFailed())                                                            \
            return;                                                                                \
    } while (false)

PlotAttributes changed(const std::function<void(PlotAttributes &)> &change)
{
    PlotAttributes a = fullAttributes();
    change(a);
    return a;
}

} // namespace

class tst_PlotAttributes : public QObject
{
    Q_OBJECT

private slots:
    void freshRecordHoldsUnsetValues();
    void titleFontsAreSetAtConstruction();
    void copyKeepsDefaultFontsOfSource();
    void assignmentKeepsOwnDefaultFonts();
    void selfAssignmentKeepsValues();
    void axisLookupMapsThreeAxes_data();
    void axisLookupMapsThreeAxes();
    void otherAxesShareOneFallBack();

    void freshRecordWritesEmptyObject();
    void everyKeyRoundTrips();
    void writtenValuesHaveTheirJsonTypes();
    void baselineIsWrittenAboveMinusOne_data();
    void baselineIsWrittenAboveMinusOne();
    void penWidthZeroIsNotWrittenMarkerWidthZeroIs();
    void defaultTitleFontsAreNotWritten();
    void xTopIsNeitherWrittenNorRead();
    void writingKeepsOtherKeys();

    void olderVisibilityKeysAreInverted_data();
    void olderVisibilityKeysAreInverted();
    void newerPlotTitleKeyWins();
    void emptyPlotTitleTextKeepsTitle();
    void emptyDocumentEmptiesEveryAxisTitle();
    void olderAxisTitleKeysWin();
    void rightAxisTitleAloneEmptiesTheOthers();
    void badColourTextsByKey();
    void missingKeysResetNumbersAndKeepLooks();
    void badInput_data();
    void badInput();
};

void tst_PlotAttributes::freshRecordHoldsUnsetValues()
{
    const PlotAttributes a;
    QVERIFY(a.plotTitle.text().isEmpty());
    QVERIFY(!a.plotTitle.color().isValid());
    for (const QColor &c : {a.canvasColor, a.majorGridColor, a.minorGridColor, a.chartColor, a.markerColor})
        QVERIFY(!c.isValid());
    QCOMPARE(a.penWidth, 0);
    QCOMPARE(a.barChartBaseline, -1.0);
    QCOMPARE(a.timeFormat, -1);
    QCOMPARE(a.markerVisible, -1);
    QCOMPARE(a.markerWidth, -1);
    QCOMPARE(a.markerLabelVisible, -1);
    QCOMPARE(a.markerLabelFormat, KelmQtPlot::MarkerLabelFormat());
    QCOMPARE(a.peakLabelOpt, -1);
    QCOMPARE(a.peakLabelFormat, PeakLabelFormat());
    QCOMPARE(a.xTickLabel, TickLabelFormat());
    QCOMPARE(a.yTickLabel, TickLabelFormat());
    QCOMPARE(a.yRightTickLabel, TickLabelFormat());
    QCOMPARE(a.logScale, -1);
    QCOMPARE(a.dragZoom, -1);
    QCOMPARE(a.autoScroll, -1);
}

void tst_PlotAttributes::titleFontsAreSetAtConstruction()
{
    const PlotAttributes a;
    QCOMPARE(a.plotTitle.font().pointSize(), 14);
    QCOMPARE(a.plotTitle.font().weight(), QFont::Weight(700));
    for (const QwtText *title : {&a.xAxisTitle, &a.yAxisTitle, &a.yRightAxisTitle}) {
        QVERIFY(title->text().isEmpty());
        QVERIFY(!title->color().isValid());
        QCOMPARE(title->font().pointSize(), 12);
        QVERIFY(!title->font().bold());
    }
    QCOMPARE(a.defaultTitleFont, a.plotTitle.font());
    QCOMPARE(a.defaultAxisTitleFont, a.xAxisTitle.font());
}

void tst_PlotAttributes::copyKeepsDefaultFontsOfSource()
{
    PlotAttributes source = fullAttributes();
    source.defaultTitleFont = QFont(QStringLiteral("Serif"), 30);
    source.defaultAxisTitleFont = QFont(QStringLiteral("Serif"), 31);
    const PlotAttributes copy(source);
    COMPARE_MEMBERS(copy, source);
    QCOMPARE(copy.defaultTitleFont, source.defaultTitleFont);
    QCOMPARE(copy.defaultAxisTitleFont, source.defaultAxisTitleFont);
}

void tst_PlotAttributes::assignmentKeepsOwnDefaultFonts()
{
    PlotAttributes source = fullAttributes();
    source.defaultTitleFont = QFont(QStringLiteral("Serif"), 30);
    source.defaultAxisTitleFont = QFont(QStringLiteral("Serif"), 31);
    PlotAttributes target;
    const QFont titleFont = target.defaultTitleFont;
    const QFont axisFont = target.defaultAxisTitleFont;
    target = source;
    COMPARE_MEMBERS(target, source);
    QCOMPARE(target.defaultTitleFont, titleFont);
    QCOMPARE(target.defaultAxisTitleFont, axisFont);
}

void tst_PlotAttributes::selfAssignmentKeepsValues()
{
    PlotAttributes a = fullAttributes();
    PlotAttributes &self = a;
    a = self;
    COMPARE_MEMBERS(a, fullAttributes());
}

void tst_PlotAttributes::axisLookupMapsThreeAxes_data()
{
    QTest::addColumn<int>("axisId");
    QTest::addColumn<int>("member");
    QTest::newRow("xBottom") << int(QwtPlot::xBottom) << 0;
    QTest::newRow("yLeft") << int(QwtPlot::yLeft) << 1;
    QTest::newRow("yRight") << int(QwtPlot::yRight) << 2;
}

void tst_PlotAttributes::axisLookupMapsThreeAxes()
{
    QFETCH(int, axisId);
    QFETCH(int, member);
    PlotAttributes a;
    const PlotAttributes &constA = a;
    QwtText *titles[] = {&a.xAxisTitle, &a.yAxisTitle, &a.yRightAxisTitle};
    TickLabelFormat *labels[] = {&a.xTickLabel, &a.yTickLabel, &a.yRightTickLabel};
    QCOMPARE(&a.axisTitleById(axisId), titles[member]);
    QCOMPARE(&constA.axisTitleById(axisId), titles[member]);
    QCOMPARE(&a.tickLabelById(axisId), labels[member]);
    QCOMPARE(&constA.tickLabelById(axisId), labels[member]);
}

void tst_PlotAttributes::otherAxesShareOneFallBack()
{
    PlotAttributes a;
    PlotAttributes b;
    const PlotAttributes &constB = b;

    QwtText &title = a.axisTitleById(QwtPlot::xTop);
    TickLabelFormat &label = a.tickLabelById(QwtPlot::xTop);
    for (const QwtText *member : {&a.xAxisTitle, &a.yAxisTitle, &a.yRightAxisTitle})
        QVERIFY(&title != member);
    for (const TickLabelFormat *member : {&a.xTickLabel, &a.yTickLabel, &a.yRightTickLabel})
        QVERIFY(&label != member);

    QCOMPARE(&b.axisTitleById(QwtPlot::xTop), &title);
    QCOMPARE(&constB.axisTitleById(7), &title);
    QCOMPARE(&b.tickLabelById(-1), &label);
    QCOMPARE(&constB.tickLabelById(QwtPlot::xTop), &label);

    const QwtText oldTitle = title;
    const TickLabelFormat oldLabel = label;
    title.setText(QStringLiteral("seen by all"));
    label.rotation = 12;
    QCOMPARE(constB.axisTitleById(QwtPlot::xTop).text(), QStringLiteral("seen by all"));
    QCOMPARE(PlotAttributes().tickLabelById(99).rotation, 12);
    title = oldTitle;
    label = oldLabel;
}

void tst_PlotAttributes::freshRecordWritesEmptyObject()
{
    QJsonObject json;
    PlotAttributes().toJson(json);
    QVERIFY2(json.isEmpty(), qPrintable(sortedKeys(json).join(QLatin1Char(' '))));
}

void tst_PlotAttributes::everyKeyRoundTrips()
{
    const PlotAttributes written = fullAttributes();
    QJsonObject json;
    written.toJson(json);

    QStringList expectedKeys = {
        QStringLiteral("plotTitleText"), QStringLiteral("plotTitleFont"), QStringLiteral("plotTitleColor"),
        QStringLiteral("canvasColor"), QStringLiteral("majorGridColor"), QStringLiteral("minorGridColor"),
        QStringLiteral("chartColor"), QStringLiteral("penWidth"), QStringLiteral("barChartBaseline"),
        QStringLiteral("timeFormat"), QStringLiteral("markerVisible"), QStringLiteral("markerWidth"),
        QStringLiteral("markerColor"), QStringLiteral("markerLabelVisible"),
        QStringLiteral("markerLabelFont"), QStringLiteral("markerLabelColor"),
        QStringLiteral("markerLabelBgColor"), QStringLiteral("markerLabelAlignment"),
        QStringLiteral("markerLabelSortOption"), QStringLiteral("peakLabelOpt"),
        QStringLiteral("peakLabelFont"), QStringLiteral("peakLabelColor"),
        QStringLiteral("peakLabelTextRotation"),
        QStringLiteral("logScale"), QStringLiteral("dragZoom"), QStringLiteral("autoScroll"),
    };
    for (const char *axis : {"xBottom", "yLeft", "yRight"}) {
        for (const char *suffix : {"TitleText", "TitleFont", "TitleColor", "TickLabelFont",
                                   "TickLabelColor", "TickLabelRotation"})
            expectedKeys << QLatin1String(axis) + QLatin1String(suffix);
    }
    expectedKeys.sort();
    QCOMPARE(expectedKeys.size(), 44);
    QCOMPARE(sortedKeys(json), expectedKeys);

    PlotAttributes read;
    read.fromJson(json);
    COMPARE_MEMBERS(read, written);
}

void tst_PlotAttributes::writtenValuesHaveTheirJsonTypes()
{
    QJsonObject json;
    fullAttributes().toJson(json);
    QCOMPARE(json.value(QStringLiteral("plotTitleText")).toString(), QStringLiteral("Spectrum"));
    QCOMPARE(json.value(QStringLiteral("plotTitleColor")).toString(), QStringLiteral("#112233"));
    QCOMPARE(json.value(QStringLiteral("plotTitleFont")).toString(),
             fullAttributes().plotTitle.font().toString());
    QCOMPARE(json.value(QStringLiteral("canvasColor")).toString(), QStringLiteral("#010101"));
    QVERIFY(json.value(QStringLiteral("penWidth")).isDouble());
    QCOMPARE(json.value(QStringLiteral("barChartBaseline")).toDouble(), 0.5);
    QCOMPARE(json.value(QStringLiteral("markerVisible")).toInt(-1), 0);
    QCOMPARE(json.value(QStringLiteral("dragZoom")).toInt(-1), 0);
    QCOMPARE(json.value(QStringLiteral("xBottomTitleText")).toString(), QStringLiteral("m/z"));
    QCOMPARE(json.value(QStringLiteral("yRightTickLabelRotation")).toInt(), 90);
}

void tst_PlotAttributes::baselineIsWrittenAboveMinusOne_data()
{
    QTest::addColumn<double>("baseline");
    QTest::addColumn<bool>("written");
    QTest::newRow("-1.0") << -1.0 << false;
    QTest::newRow("-1.5") << -1.5 << false;
    QTest::newRow("-1e300") << -1e300 << false;
    QTest::newRow("-0.5") << -0.5 << true;
    QTest::newRow("0") << 0.0 << true;
    QTest::newRow("1e-5") << 1e-5 << true;
    QTest::newRow("NaN") << std::nan("") << false;
}

void tst_PlotAttributes::baselineIsWrittenAboveMinusOne()
{
    QFETCH(double, baseline);
    QFETCH(bool, written);
    PlotAttributes a;
    a.barChartBaseline = baseline;
    QJsonObject json;
    a.toJson(json);
    QCOMPARE(json.contains(QStringLiteral("barChartBaseline")), written);
    if (written)
        QCOMPARE(json.value(QStringLiteral("barChartBaseline")).toDouble(), baseline);
}

void tst_PlotAttributes::penWidthZeroIsNotWrittenMarkerWidthZeroIs()
{
    PlotAttributes a;
    a.penWidth = 0;
    a.markerWidth = 0;
    QJsonObject json;
    a.toJson(json);
    QCOMPARE(json, (QJsonObject{{QStringLiteral("markerWidth"), 0}}));
}

void tst_PlotAttributes::defaultTitleFontsAreNotWritten()
{
    PlotAttributes a;
    a.plotTitle.setText(QStringLiteral("T"));
    a.xAxisTitle.setText(QStringLiteral("X"));
    a.yAxisTitle.setFont(QFont(QStringLiteral("Serif"), 5));
    QJsonObject json;
    a.toJson(json);
    QCOMPARE(sortedKeys(json), (QStringList{QStringLiteral("plotTitleText"),
                                            QStringLiteral("xBottomTitleText"),
                                            QStringLiteral("yLeftTitleFont")}));

    // The comparison is with the record's own default, not with a fixed font.
    a.defaultAxisTitleFont = a.yAxisTitle.font();
    QJsonObject again;
    a.toJson(again);
    QVERIFY(!again.contains(QStringLiteral("yLeftTitleFont")));
    QVERIFY(again.contains(QStringLiteral("yRightTitleFont")));
}

void tst_PlotAttributes::xTopIsNeitherWrittenNorRead()
{
    PlotAttributes a = fullAttributes();
    QJsonObject json;
    a.toJson(json);
    for (const QString &key : json.keys())
        QVERIFY2(!key.startsWith(QStringLiteral("xTop")), qPrintable(key));

    const TickLabelFormat before = a.tickLabelById(QwtPlot::xTop);
    const QString titleBefore = a.axisTitleById(QwtPlot::xTop).text();
    a.fromJson(QJsonObject{{QStringLiteral("xTopTitleText"), QStringLiteral("top")},
                           {QStringLiteral("xTopTickLabelRotation"), 33}});
    QCOMPARE(a.tickLabelById(QwtPlot::xTop), before);
    QCOMPARE(a.axisTitleById(QwtPlot::xTop).text(), titleBefore);
}

void tst_PlotAttributes::writingKeepsOtherKeys()
{
    QJsonObject json{{QStringLiteral("hostKey"), QStringLiteral("kept")},
                     {QStringLiteral("penWidth"), 9},
                     {QStringLiteral("canvasColor"), QStringLiteral("#abcdef")}};
    PlotAttributes a;
    a.canvasColor = Qt::red;
    a.toJson(json);
    QCOMPARE(json.value(QStringLiteral("hostKey")).toString(), QStringLiteral("kept"));
    // Not rewritten, since the record's pen width is unset: the old value stays.
    QCOMPARE(json.value(QStringLiteral("penWidth")).toInt(), 9);
    QCOMPARE(json.value(QStringLiteral("canvasColor")).toString(), QStringLiteral("#ff0000"));
}

void tst_PlotAttributes::olderVisibilityKeysAreInverted_data()
{
    QTest::addColumn<QString>("newerKey");
    QTest::addColumn<QString>("olderKey");
    QTest::addColumn<QJsonValue>("older");
    QTest::addColumn<QJsonValue>("newer");
    QTest::addColumn<int>("expected");

    const QJsonValue none(QJsonValue::Undefined);
    const struct
    {
        const char *name;
        QString newerKey;
        QString olderKey;
    } pairs[] = {
        {"marker", QStringLiteral("markerVisible"), QStringLiteral("markerHidden")},
        {"marker label", QStringLiteral("markerLabelVisible"), QStringLiteral("markerLabelHidden")},
    };
    for (const auto &pair : pairs) {
        auto row = [&](const char *what) {
            return &QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(QLatin1String(pair.name),
                                                                         QLatin1String(what))));
        };
        *row("hidden 1") << pair.newerKey << pair.olderKey << QJsonValue(1) << none << 0;
        *row("hidden 0") << pair.newerKey << pair.olderKey << QJsonValue(0) << none << 1;
        *row("hidden text") << pair.newerKey << pair.olderKey << QJsonValue(QStringLiteral("x")) << none << 1;
        *row("hidden 2") << pair.newerKey << pair.olderKey << QJsonValue(2) << none << 1;
        *row("both, newer wins") << pair.newerKey << pair.olderKey << QJsonValue(1) << QJsonValue(1) << 1;
        *row("newer of wrong type") << pair.newerKey << pair.olderKey << QJsonValue(1)
                                    << QJsonValue(QStringLiteral("1")) << -1;
        *row("newer 0") << pair.newerKey << pair.olderKey << none << QJsonValue(0) << 0;
        *row("neither keeps") << pair.newerKey << pair.olderKey << none << none << 7;
    }
}

void tst_PlotAttributes::olderVisibilityKeysAreInverted()
{
    QFETCH(QString, newerKey);
    QFETCH(QString, olderKey);
    QFETCH(QJsonValue, older);
    QFETCH(QJsonValue, newer);
    QFETCH(int, expected);

    QJsonObject json;
    if (!older.isUndefined())
        json.insert(olderKey, older);
    if (!newer.isUndefined())
        json.insert(newerKey, newer);

    PlotAttributes a;
    a.markerVisible = 7;
    a.markerLabelVisible = 7;
    a.fromJson(json);
    const int actual = newerKey == QLatin1String("markerVisible") ? a.markerVisible : a.markerLabelVisible;
    const int other = newerKey == QLatin1String("markerVisible") ? a.markerLabelVisible : a.markerVisible;
    QCOMPARE(actual, expected);
    QCOMPARE(other, 7);
}

void tst_PlotAttributes::newerPlotTitleKeyWins()
{
    PlotAttributes a;
    a.fromJson(QJsonObject{{QStringLiteral("plotTitle"), QStringLiteral("a")},
                           {QStringLiteral("plotTitleText"), QStringLiteral("b")}});
    QCOMPARE(a.plotTitle.text(), QStringLiteral("b"));

    PlotAttributes older;
    older.fromJson(QJsonObject{{QStringLiteral("plotTitle"), QStringLiteral("a")}});
    QCOMPARE(older.plotTitle.text(), QStringLiteral("a"));

    QJsonObject written;
    older.toJson(written);
    QVERIFY(!written.contains(QStringLiteral("plotTitle")));
    QCOMPARE(written.value(QStringLiteral("plotTitleText")).toString(), QStringLiteral("a"));
}

void tst_PlotAttributes::emptyPlotTitleTextKeepsTitle()
{
    PlotAttributes a = fullAttributes();
    a.fromJson(QJsonObject{{QStringLiteral("plotTitleText"), QString()},
                           {QStringLiteral("plotTitle"), QStringLiteral("older")}});
    QCOMPARE(a.plotTitle.text(), QStringLiteral("Spectrum"));
}

void tst_PlotAttributes::emptyDocumentEmptiesEveryAxisTitle()
{
    PlotAttributes a = fullAttributes();
    a.fromJson(QJsonObject());
    QVERIFY(a.xAxisTitle.text().isEmpty());
    QVERIFY(a.yAxisTitle.text().isEmpty());
    QVERIFY(a.yRightAxisTitle.text().isEmpty());
    QCOMPARE(a.plotTitle.text(), QStringLiteral("Spectrum"));
    // Only the texts go; fonts and colours of the titles stay.
    QCOMPARE(a.xAxisTitle.color(), QColor(9, 9, 9));
    QCOMPARE(a.yRightAxisTitle.font().pointSize(), 15);
}

void tst_PlotAttributes::olderAxisTitleKeysWin()
{
    PlotAttributes a;
    a.fromJson(QJsonObject{{QStringLiteral("xAxisTitle"), QStringLiteral("old")},
                           {QStringLiteral("xBottomTitleText"), QStringLiteral("new")},
                           {QStringLiteral("xAxisTitleColor"), QStringLiteral("#ff0000")},
                           {QStringLiteral("xBottomTitleColor"), QStringLiteral("#00ff00")},
                           {QStringLiteral("yAxisTitle"), QStringLiteral("old y")},
                           {QStringLiteral("yLeftTitleText"), QStringLiteral("new y")},
                           {QStringLiteral("yAxisTitleColor"), QStringLiteral("#0000ff")},
                           {QStringLiteral("yLeftTitleColor"), QStringLiteral("#00ff00")}});
    QCOMPARE(a.xAxisTitle.text(), QStringLiteral("old"));
    QCOMPARE(a.xAxisTitle.color(), QColor(Qt::red));
    QCOMPARE(a.yAxisTitle.text(), QStringLiteral("old y"));
    QCOMPARE(a.yAxisTitle.color(), QColor(Qt::blue));

    QJsonObject written;
    a.toJson(written);
    QVERIFY(!written.contains(QStringLiteral("xAxisTitle")));
    QVERIFY(!written.contains(QStringLiteral("yAxisTitleColor")));
    QCOMPARE(written.value(QStringLiteral("xBottomTitleText")).toString(), QStringLiteral("old"));
}

void tst_PlotAttributes::rightAxisTitleAloneEmptiesTheOthers()
{
    PlotAttributes a = fullAttributes();
    a.fromJson(QJsonObject{{QStringLiteral("yRightTitleText"), QStringLiteral("t")}});
    QCOMPARE(a.yRightAxisTitle.text(), QStringLiteral("t"));
    QVERIFY(a.xAxisTitle.text().isEmpty());
    QVERIFY(a.yAxisTitle.text().isEmpty());
}

void tst_PlotAttributes::badColourTextsByKey()
{
    PlotAttributes a = fullAttributes();
    a.fromJson(QJsonObject{{QStringLiteral("canvasColor"), QStringLiteral("nonsense")},
                           {QStringLiteral("plotTitleColor"), QStringLiteral("nonsense")},
                           {QStringLiteral("markerLabelColor"), QStringLiteral("nonsense")}});
    QVERIFY(!a.canvasColor.isValid());
    QCOMPARE(a.plotTitle.color(), QColor(0x11, 0x22, 0x33));
    QCOMPARE(a.markerLabelFormat.color, QColor(6, 6, 6));
}

void tst_PlotAttributes::missingKeysResetNumbersAndKeepLooks()
{
    PlotAttributes a = fullAttributes();
    a.fromJson(QJsonObject());

    PlotAttributes expected = fullAttributes();
    // Reset by a missing key.
    expected.penWidth = 0;
    expected.barChartBaseline = -1.0;
    expected.timeFormat = -1;
    expected.markerWidth = -1;
    expected.peakLabelOpt = -1;
    expected.logScale = -1;
    expected.dragZoom = -1;
    expected.autoScroll = -1;
    expected.markerLabelFormat.alignment = 0;
    expected.markerLabelFormat.sortOption = -1;
    expected.xAxisTitle.setText(QString());
    expected.yAxisTitle.setText(QString());
    expected.yRightAxisTitle.setText(QString());
    expected.xTickLabel.rotation = Figura::UnsetValue;
    expected.yTickLabel.rotation = Figura::UnsetValue;
    expected.yRightTickLabel.rotation = Figura::UnsetValue;
    // Everything else, markerVisible, markerLabelVisible and the peak label
    // rotation among it, is kept.
    COMPARE_MEMBERS(a, expected);
}

void tst_PlotAttributes::badInput_data()
{
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<PlotAttributes>("expected");

    // Each row holds the numbers of fullAttributes, so that only the key
    // under test can make a difference.
    auto doc = [](const char *key, const QJsonValue &value) {
        QJsonObject json;
        fullAttributes().toJson(json);
        json.insert(QLatin1String(key), value);
        return json;
    };
    const PlotAttributes same = fullAttributes();

    // Numbers of the wrong type count as missing and take their unset value.
    QTest::newRow("penWidth is a text") << doc("penWidth", QStringLiteral("3"))
        << changed([](PlotAttributes &a) { a.penWidth = 0; });
    QTest::newRow("barChartBaseline is a text") << doc("barChartBaseline", QStringLiteral("0.5"))
        << changed([](PlotAttributes &a) { a.barChartBaseline = -1.0; });
    QTest::newRow("timeFormat is fractional") << doc("timeFormat", 1.5)
        << changed([](PlotAttributes &a) { a.timeFormat = -1; });
    QTest::newRow("markerWidth is a bool") << doc("markerWidth", true)
        << changed([](PlotAttributes &a) { a.markerWidth = -1; });
    QTest::newRow("peakLabelOpt is null") << doc("peakLabelOpt", QJsonValue())
        << changed([](PlotAttributes &a) { a.peakLabelOpt = -1; });
    QTest::newRow("logScale is an array") << doc("logScale", QJsonArray{1})
        << changed([](PlotAttributes &a) { a.logScale = -1; });
    QTest::newRow("autoScroll beyond int") << doc("autoScroll", 1e10)
        << changed([](PlotAttributes &a) { a.autoScroll = -1; });
    QTest::newRow("markerVisible is a text") << doc("markerVisible", QStringLiteral("1"))
        << changed([](PlotAttributes &a) { a.markerVisible = -1; });
    // Numbers are not range-checked.
    QTest::newRow("timeFormat 99 is stored") << doc("timeFormat", 99)
        << changed([](PlotAttributes &a) { a.timeFormat = 99; });
    QTest::newRow("baseline -0.75 is stored") << doc("barChartBaseline", -0.75)
        << changed([](PlotAttributes &a) { a.barChartBaseline = -0.75; });

    // Colour keys of the wrong type read as empty texts and keep the member.
    QTest::newRow("canvasColor is a number") << doc("canvasColor", 5) << same;
    QTest::newRow("markerColor is empty") << doc("markerColor", QString()) << same;
    QTest::newRow("chartColor is no colour") << doc("chartColor", QStringLiteral("#1234567"))
        << changed([](PlotAttributes &a) { a.chartColor = QColor(); });

    // Plot title.
    QTest::newRow("plotTitleText is a number") << doc("plotTitleText", 5) << same;
    QTest::newRow("plotTitleFont is a number") << doc("plotTitleFont", 5) << same;
    QTest::newRow("plotTitleColor is an object") << doc("plotTitleColor", QJsonObject()) << same;

    // Axis titles: the text is set whatever it is, fonts and colours are kept.
    QTest::newRow("xBottomTitleText is a number") << doc("xBottomTitleText", 5)
        << changed([](PlotAttributes &a) { a.xAxisTitle.setText(QString()); });
    QTest::newRow("older xAxisTitle of wrong type hides the newer")
        << doc("xAxisTitle", QJsonArray())
        << changed([](PlotAttributes &a) { a.xAxisTitle.setText(QString()); });
    QTest::newRow("yLeftTitleFont is a number") << doc("yLeftTitleFont", 5) << same;
    QTest::newRow("yRightTitleColor is no colour") << doc("yRightTitleColor", QStringLiteral("nonsense")) << same;
    QTest::newRow("older yAxisTitleColor of wrong type")
        << doc("yAxisTitleColor", 1) << same;

    // Nested formats follow their own rules.
    QTest::newRow("peakLabelTextRotation out of range") << doc("peakLabelTextRotation", 200) << same;
    QTest::newRow("tick label rotation is a text") << doc("yLeftTickLabelRotation", QStringLiteral("5"))
        << changed([](PlotAttributes &a) { a.yTickLabel.rotation = Figura::UnsetValue; });
    QTest::newRow("markerLabelBgColor is no colour") << doc("markerLabelBgColor", QStringLiteral("nonsense")) << same;
}

void tst_PlotAttributes::badInput()
{
    QFETCH(QJsonObject, json);
    QFETCH(PlotAttributes, expected);
    PlotAttributes a = fullAttributes();
    a.fromJson(json);
    COMPARE_MEMBERS(a, expected);
}

QTEST_MAIN(tst_PlotAttributes)
#include "tst_plotattributes.moc"
