#include <figura/defaults/PlotDefault.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QTranslator>

#include <type_traits>

// The types of the table are part of the interface: a host declares its own
// variables from them.
static_assert(std::is_same_v<decltype(PlotDefault::PlotMinHeight), const int>);
static_assert(std::is_same_v<decltype(PlotDefault::PenStyle), const int>);
static_assert(std::is_same_v<decltype(PlotDefault::SymbolStyle), const int>);
static_assert(std::is_same_v<decltype(PlotDefault::SymbolSize), const QSize>);
static_assert(std::is_same_v<decltype(PlotDefault::MarkerLineStyle), const QwtPlotMarker::LineStyle>);
static_assert(std::is_same_v<decltype(PlotDefault::MarkerSymbolStyle), const QwtSymbol::Style>);
static_assert(std::is_same_v<decltype(PlotDefault::YLower), const double>);
static_assert(std::is_same_v<decltype(PlotDefault::BarChartBaselineMin), const double>);
static_assert(std::is_same_v<decltype(PlotDefault::CanvasBackground), const QColor>);
static_assert(std::is_same_v<decltype(PlotDefault::DarkMode::BarColorTransparent), const QColor>);
static_assert(std::is_same_v<decltype(PlotDefault::Export::SizeMM), const QSizeF>);
static_assert(std::is_same_v<decltype(PlotDefault::HTML::SquareChar), const QString>);
static_assert(std::is_same_v<decltype(Figura::MarkerLabelSortOptions),
                             const QMap<Figura::MarkerLabelSortOption, QString>>);
static_assert(std::is_same_v<decltype(Figura::MarkerLabelAlignments),
                             const QMap<Qt::AlignmentFlag, QString>>);
static_assert(Figura::MarkerLabelSortDefault == 0 && Figura::MarkerLabelSortByValue == 1);

namespace {

// Answers every text of the context "QObject" with a German word, so that a
// test can tell translated texts from untranslated ones.
class LateTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        if (qstrcmp(context, "QObject") != 0)
            return QString();
        if (qstrcmp(sourceText, "Top") == 0)
            return QStringLiteral("Oben");
        if (qstrcmp(sourceText, "Default") == 0)
            return QStringLiteral("Standard");
        return QString();
    }
    bool isEmpty() const override { return false; }
};

QColor rgba(int r, int g, int b, int a) { return QColor(r, g, b, a); }

} // namespace

class tst_PlotDefault : public QObject
{
    Q_OBJECT

private slots:
    void integerScalarsHaveTheirDefaults_data();
    void integerScalarsHaveTheirDefaults();
    void realScalarsHaveTheirDefaults_data();
    void realScalarsHaveTheirDefaults();
    void symbolSizeIsEightByEight();
    void markerLineIsVertical();
    void markerSymbolIsEllipse();
    void penAndSymbolStylesAreThoseOfQtAndQwt();
    void rotationRangeContainsDefaults();
    void widthRangesContainDefaults();
    void baselineRangeContainsDefault();

    void lightPaletteHasItsColours_data();
    void lightPaletteHasItsColours();
    void darkPaletteHasItsColours_data();
    void darkPaletteHasItsColours();
    void lightLabelColoursEqualNamedGray();
    void darkLabelColoursAreOffWhite();
    void selectionMarkerLabelBackgroundIsTranslucent_data();
    void selectionMarkerLabelBackgroundIsTranslucent();
    void coloursAreRgbSoThatJsonKeepsThem();

    void exportDefaults();
    void htmlCharactersAreEntities();

    void sortOptionMapListsDefaultThenByValue();
    void alignmentMapListsTrailingFirst();
    void mapsRejectValuesOutsideTheirKeys();
    void mapTextsIgnoreTranslatorInstalledLater();
};

void tst_PlotDefault::integerScalarsHaveTheirDefaults_data()
{
    QTest::addColumn<int>("actual");
    QTest::addColumn<int>("expected");
    QTest::newRow("PlotMinHeight") << PlotDefault::PlotMinHeight << 1;
    QTest::newRow("ReplotDelay") << PlotDefault::ReplotDelay << 5;
    QTest::newRow("PlotTitleFontSize") << PlotDefault::PlotTitleFontSize << 14;
    QTest::newRow("LabelFontSize") << PlotDefault::LabelFontSize << 10;
    QTest::newRow("AxisTitleFontSize") << PlotDefault::AxisTitleFontSize << 12;
    QTest::newRow("AxisLabelFontSize") << PlotDefault::AxisLabelFontSize << 10;
    QTest::newRow("AxisLabelRotation") << PlotDefault::AxisLabelRotation << 0;
    QTest::newRow("AxisLabelRotationMin") << PlotDefault::AxisLabelRotationMin << -90;
    QTest::newRow("AxisLabelRotationMax") << PlotDefault::AxisLabelRotationMax << 90;
    QTest::newRow("PenStyle") << PlotDefault::PenStyle << 1;
    QTest::newRow("PenSize") << PlotDefault::PenSize << 2;
    QTest::newRow("MinPenSize") << PlotDefault::MinPenSize << 1;
    QTest::newRow("MaxPenSize") << PlotDefault::MaxPenSize << 500;
    QTest::newRow("BarLineWidth") << PlotDefault::BarLineWidth << 1;
    QTest::newRow("SymbolStyle") << PlotDefault::SymbolStyle << -1;
    QTest::newRow("SymbolWidth") << PlotDefault::SymbolWidth << 8;
    QTest::newRow("MinSymbolWidth") << PlotDefault::MinSymbolWidth << 1;
    QTest::newRow("MaxSymbolWidth") << PlotDefault::MaxSymbolWidth << 50;
    QTest::newRow("MarkerWidth") << PlotDefault::MarkerWidth << 1;
    QTest::newRow("MinMarkerWidth") << PlotDefault::MinMarkerWidth << 1;
    QTest::newRow("MaxMarkerWidth") << PlotDefault::MaxMarkerWidth << 50;
    QTest::newRow("XAxisLinearScaleMaxMajor") << PlotDefault::XAxisLinearScaleMaxMajor << 10;
    QTest::newRow("XAxisLinearScaleMaxMinor") << PlotDefault::XAxisLinearScaleMaxMinor << 5;
    QTest::newRow("YAxisLinearScaleMaxMajor") << PlotDefault::YAxisLinearScaleMaxMajor << 12;
    QTest::newRow("YAxisLinearScaleMaxMinor") << PlotDefault::YAxisLinearScaleMaxMinor << 5;
    QTest::newRow("YAxisLogScaleMaxMajor") << PlotDefault::YAxisLogScaleMaxMajor << 12;
    QTest::newRow("YAxisLogScaleMaxMinor") << PlotDefault::YAxisLogScaleMaxMinor << 9;
    QTest::newRow("PeakLabelRotation") << PlotDefault::PeakLabelRotation << -45;
    QTest::newRow("TimeFormat") << PlotDefault::TimeFormat << 1;
}

void tst_PlotDefault::integerScalarsHaveTheirDefaults()
{
    QFETCH(int, actual);
    QFETCH(int, expected);
    QCOMPARE(actual, expected);
}

void tst_PlotDefault::realScalarsHaveTheirDefaults_data()
{
    QTest::addColumn<double>("actual");
    QTest::addColumn<double>("expected");
    QTest::newRow("XTimeMin") << PlotDefault::XTimeMin << 0.0;
    QTest::newRow("XTimeUpper") << PlotDefault::XTimeUpper << 300.0;
    QTest::newRow("YLower") << PlotDefault::YLower << 1e-20;
    QTest::newRow("YUpper") << PlotDefault::YUpper << 1e-05;
    QTest::newRow("BarChartBaseline") << PlotDefault::BarChartBaseline << 0.0;
    QTest::newRow("BarChartBaselineMin") << PlotDefault::BarChartBaselineMin << -1e-05;
    QTest::newRow("BarChartBaselineMax") << PlotDefault::BarChartBaselineMax << 1e-05;
}

void tst_PlotDefault::realScalarsHaveTheirDefaults()
{
    QFETCH(double, actual);
    QFETCH(double, expected);
    // exact: these are the literal values the host compares its own against
    QVERIFY2(actual == expected, qPrintable(QStringLiteral("%1 != %2").arg(actual, 0, 'g', 17).arg(expected, 0, 'g', 17)));
}

void tst_PlotDefault::symbolSizeIsEightByEight()
{
    QCOMPARE(PlotDefault::SymbolSize, QSize(8, 8));
    QCOMPARE(PlotDefault::SymbolSize.width(), PlotDefault::SymbolWidth);
}

void tst_PlotDefault::markerLineIsVertical()
{
    QCOMPARE(PlotDefault::MarkerLineStyle, QwtPlotMarker::VLine);
    QCOMPARE(int(PlotDefault::MarkerLineStyle), 2);
}

void tst_PlotDefault::markerSymbolIsEllipse()
{
    QCOMPARE(PlotDefault::MarkerSymbolStyle, QwtSymbol::Ellipse);
    QCOMPARE(int(PlotDefault::MarkerSymbolStyle), 0);
}

void tst_PlotDefault::penAndSymbolStylesAreThoseOfQtAndQwt()
{
    QCOMPARE(Qt::PenStyle(PlotDefault::PenStyle), Qt::SolidLine);
    QCOMPARE(QwtSymbol::Style(PlotDefault::SymbolStyle), QwtSymbol::NoSymbol);
}

void tst_PlotDefault::rotationRangeContainsDefaults()
{
    QVERIFY(PlotDefault::AxisLabelRotationMin < PlotDefault::AxisLabelRotationMax);
    QVERIFY(PlotDefault::AxisLabelRotation >= PlotDefault::AxisLabelRotationMin);
    QVERIFY(PlotDefault::AxisLabelRotation <= PlotDefault::AxisLabelRotationMax);
    QVERIFY(PlotDefault::PeakLabelRotation >= PlotDefault::AxisLabelRotationMin);
    QVERIFY(PlotDefault::PeakLabelRotation <= PlotDefault::AxisLabelRotationMax);
}

void tst_PlotDefault::widthRangesContainDefaults()
{
    QVERIFY(PlotDefault::PenSize >= PlotDefault::MinPenSize && PlotDefault::PenSize <= PlotDefault::MaxPenSize);
    QVERIFY(PlotDefault::SymbolWidth >= PlotDefault::MinSymbolWidth
            && PlotDefault::SymbolWidth <= PlotDefault::MaxSymbolWidth);
    QVERIFY(PlotDefault::MarkerWidth >= PlotDefault::MinMarkerWidth
            && PlotDefault::MarkerWidth <= PlotDefault::MaxMarkerWidth);
}

void tst_PlotDefault::baselineRangeContainsDefault()
{
    QVERIFY(PlotDefault::BarChartBaselineMin < PlotDefault::BarChartBaseline);
    QVERIFY(PlotDefault::BarChartBaseline < PlotDefault::BarChartBaselineMax);
    QCOMPARE(PlotDefault::BarChartBaselineMin, -PlotDefault::BarChartBaselineMax);
}

void tst_PlotDefault::lightPaletteHasItsColours_data()
{
    QTest::addColumn<QColor>("actual");
    QTest::addColumn<QColor>("expected");
    using namespace PlotDefault;
    QTest::newRow("CanvasBackground") << CanvasBackground << rgba(253, 253, 253, 255);
    QTest::newRow("GridMajorColor") << GridMajorColor << rgba(200, 200, 200, 255);
    QTest::newRow("GridMinorColor") << GridMinorColor << rgba(235, 235, 235, 255);
    QTest::newRow("ChartColor") << ChartColor << rgba(100, 160, 235, 255);
    QTest::newRow("MarkerLabelBgColor") << MarkerLabelBgColor << rgba(251, 255, 250, 255);
    QTest::newRow("SelectionMarkerLabelBgColor") << SelectionMarkerLabelBgColor << rgba(255, 204, 204, 50);
    QTest::newRow("SelectionMarkerColor") << SelectionMarkerColor << QColor(Qt::red);
    QTest::newRow("PickerRubberBandPenColor") << PickerRubberBandPenColor << QColor(Qt::black);
    QTest::newRow("AltPickerRubberBandPenColor") << AltPickerRubberBandPenColor << QColor(Qt::red);
    QTest::newRow("TitleTextColor") << TitleTextColor << QColor(Qt::black);
    QTest::newRow("AxisLabelColor") << AxisLabelColor << QColor(Qt::black);
    QTest::newRow("MarkerColor") << MarkerColor << QColor(Qt::green);
    QTest::newRow("SymbolColor") << SymbolColor << QColor(Qt::black);
    QTest::newRow("MarkerLabelColor") << MarkerLabelColor << rgba(0x40, 0x40, 0x40, 255);
    QTest::newRow("PeakLabelColor") << PeakLabelColor << rgba(0x40, 0x40, 0x40, 255);
}

void tst_PlotDefault::lightPaletteHasItsColours()
{
    QFETCH(QColor, actual);
    QFETCH(QColor, expected);
    QVERIFY(actual.isValid());
    QCOMPARE(actual, expected);
    QCOMPARE(actual.alpha(), expected.alpha());
}

void tst_PlotDefault::darkPaletteHasItsColours_data()
{
    QTest::addColumn<QColor>("actual");
    QTest::addColumn<QColor>("expected");
    using namespace PlotDefault::DarkMode;
    QTest::newRow("CanvasBackground") << CanvasBackground << rgba(48, 48, 48, 255);
    QTest::newRow("GridMajorColor") << GridMajorColor << rgba(103, 103, 103, 255);
    QTest::newRow("GridMinorColor") << GridMinorColor << rgba(68, 68, 68, 255);
    QTest::newRow("CurveColor") << CurveColor << rgba(100, 160, 235, 255);
    QTest::newRow("BarColor") << BarColor << rgba(100, 160, 235, 255);
    QTest::newRow("BarColorTransparent") << BarColorTransparent << rgba(100, 160, 235, 150);
    QTest::newRow("MarkerLabelBgColor") << MarkerLabelBgColor << rgba(52, 52, 52, 255);
    QTest::newRow("SelectionMarkerLabelBgColor") << SelectionMarkerLabelBgColor << rgba(100, 80, 80, 50);
    QTest::newRow("SelectionMarkerColor") << SelectionMarkerColor << QColor(Qt::red);
    QTest::newRow("PickerRubberBandPenColor") << PickerRubberBandPenColor << QColor(Qt::white);
    QTest::newRow("AltPickerRubberBandPenColor") << AltPickerRubberBandPenColor << QColor(Qt::red);
    QTest::newRow("TitleTextColor") << TitleTextColor << QColor(Qt::white);
    QTest::newRow("AxisLabelColor") << AxisLabelColor << QColor(Qt::white);
    QTest::newRow("MarkerColor") << MarkerColor << QColor(Qt::green);
    QTest::newRow("SymbolColor") << SymbolColor << QColor(Qt::white);
    QTest::newRow("MarkerLabelColor") << MarkerLabelColor << rgba(250, 249, 246, 255);
    QTest::newRow("PeakLabelColor") << PeakLabelColor << rgba(250, 249, 246, 255);
}

void tst_PlotDefault::darkPaletteHasItsColours()
{
    QFETCH(QColor, actual);
    QFETCH(QColor, expected);
    QVERIFY(actual.isValid());
    QCOMPARE(actual, expected);
    QCOMPARE(actual.alpha(), expected.alpha());
}

void tst_PlotDefault::lightLabelColoursEqualNamedGray()
{
    const QColor gray(QStringLiteral("#404040"));
    QVERIFY(PlotDefault::PeakLabelColor.isValid());
    QVERIFY(PlotDefault::MarkerLabelColor.isValid());
    QCOMPARE(PlotDefault::PeakLabelColor, gray);
    QCOMPARE(PlotDefault::MarkerLabelColor, gray);
    QCOMPARE(PlotDefault::PeakLabelColor.name(QColor::HexRgb), QStringLiteral("#404040"));
}

void tst_PlotDefault::darkLabelColoursAreOffWhite()
{
    QCOMPARE(PlotDefault::DarkMode::MarkerLabelColor, PlotDefault::DarkMode::PeakLabelColor);
    QVERIFY(PlotDefault::DarkMode::MarkerLabelColor != QColor(Qt::white));
    QVERIFY(PlotDefault::DarkMode::MarkerLabelColor.lightness() > PlotDefault::DarkMode::CanvasBackground.lightness());
}

void tst_PlotDefault::selectionMarkerLabelBackgroundIsTranslucent_data()
{
    QTest::addColumn<QColor>("canvas");
    QTest::addColumn<QColor>("labelBackground");
    QTest::newRow("light") << PlotDefault::CanvasBackground << PlotDefault::SelectionMarkerLabelBgColor;
    QTest::newRow("dark") << PlotDefault::DarkMode::CanvasBackground
                          << PlotDefault::DarkMode::SelectionMarkerLabelBgColor;
}

void tst_PlotDefault::selectionMarkerLabelBackgroundIsTranslucent()
{
    QFETCH(QColor, canvas);
    QFETCH(QColor, labelBackground);
    QCOMPARE(labelBackground.alpha(), 50);

    // A label background painted over the canvas leaves the canvas visible:
    // the pixel is neither the canvas nor the opaque background colour, and
    // the canvas still weighs more in it than the label does.
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(canvas);
    {
        QPainter p(&image);
        p.fillRect(image.rect(), labelBackground);
    }
    const QColor shown = image.pixelColor(0, 0);
    QVERIFY(shown != canvas);
    QVERIFY(shown.rgb() != labelBackground.rgb());
    QVERIFY(qAbs(shown.red() - canvas.red()) <= qAbs(shown.red() - labelBackground.red()));
    QVERIFY(qAbs(shown.green() - canvas.green()) <= qAbs(shown.green() - labelBackground.green()));
}

void tst_PlotDefault::coloursAreRgbSoThatJsonKeepsThem()
{
    // Colours travel in JSON as "#rrggbb"; a colour of another model (HSV, CMYK) would
    // come back as a different (if equal-looking) QColor.
    const QColor colours[] = {
        PlotDefault::CanvasBackground, PlotDefault::SelectionMarkerColor, PlotDefault::MarkerLabelColor,
        PlotDefault::DarkMode::CurveColor, PlotDefault::DarkMode::TitleTextColor,
        PlotDefault::DarkMode::PeakLabelColor,
    };
    for (const QColor &c : colours) {
        QCOMPARE(c.spec(), QColor::Rgb);
        QCOMPARE(QColor(c.name(QColor::HexRgb)), QColor(c.red(), c.green(), c.blue()));
    }
}

void tst_PlotDefault::exportDefaults()
{
    QCOMPARE(PlotDefault::Export::LogoRenderHeight, 40);
    QCOMPARE(PlotDefault::Export::LogoRenderMargin, 10);
    QCOMPARE(PlotDefault::Export::DPI, 300);
    QCOMPARE(PlotDefault::Export::SizeMM, QSizeF(300.0, 200.0));
}

void tst_PlotDefault::htmlCharactersAreEntities()
{
    QCOMPARE(PlotDefault::HTML::SquareChar, QStringLiteral("&#9632;"));
    QCOMPARE(PlotDefault::HTML::RectChar, QStringLiteral("&#9607;"));
}

void tst_PlotDefault::sortOptionMapListsDefaultThenByValue()
{
    const auto &map = Figura::MarkerLabelSortOptions;
    QCOMPARE(map.size(), 2);
    const QList<Figura::MarkerLabelSortOption> keys{Figura::MarkerLabelSortDefault, Figura::MarkerLabelSortByValue};
    QCOMPARE(map.keys(), keys);
    QCOMPARE(map.values(), QStringList({QStringLiteral("Default"), QStringLiteral("By Value")}));
    QCOMPARE(map.value(Figura::MarkerLabelSortByValue), QStringLiteral("By Value"));
}

void tst_PlotDefault::alignmentMapListsTrailingFirst()
{
    const auto &map = Figura::MarkerLabelAlignments;
    QCOMPARE(map.size(), 4);
    QCOMPARE(map.firstKey(), Qt::AlignTrailing);
    QCOMPARE(map.first(), QStringLiteral("Trailing"));

    const QList<Qt::AlignmentFlag> keys{Qt::AlignTrailing, Qt::AlignTop, Qt::AlignBottom, Qt::AlignVCenter};
    QCOMPARE(map.keys(), keys);
    QStringList listed;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        listed << it.value();
    QCOMPARE(listed, QStringList({QStringLiteral("Trailing"), QStringLiteral("Top"), QStringLiteral("Bottom"),
                                  QStringLiteral("Middle")}));
    QCOMPARE(int(map.firstKey()), 2);
    QCOMPARE(int(map.lastKey()), 128);
}

void tst_PlotDefault::mapsRejectValuesOutsideTheirKeys()
{
    QVERIFY(!Figura::MarkerLabelAlignments.contains(Qt::AlignLeft));
    QVERIFY(!Figura::MarkerLabelAlignments.contains(Qt::AlignHCenter));
    QVERIFY(!Figura::MarkerLabelAlignments.contains(Qt::AlignLeading));
    QVERIFY(!Figura::MarkerLabelAlignments.contains(Qt::AlignmentFlag(int(Qt::AlignTop | Qt::AlignBottom))));
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption(2)));
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption(-1)));
    QVERIFY(Figura::MarkerLabelSortOptions.value(Figura::MarkerLabelSortOption(2)).isNull());
}

void tst_PlotDefault::mapTextsIgnoreTranslatorInstalledLater()
{
    LateTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    // the translator is live: a text translated now comes out German
    QCOMPARE(QObject::tr("Top"), QStringLiteral("Oben"));
    // but the maps were translated while the library loaded
    QCOMPARE(Figura::MarkerLabelAlignments.value(Qt::AlignTop), QStringLiteral("Top"));
    QCOMPARE(Figura::MarkerLabelSortOptions.value(Figura::MarkerLabelSortDefault), QStringLiteral("Default"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
}

QTEST_MAIN(tst_PlotDefault)
#include "tst_plotdefault.moc"
