#include <figura/dialogs/CustomScaleSettings.h>

#include <TestSupport.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

constexpr double NoRightLower = std::numeric_limits<double>::min();
constexpr double NoRightUpper = std::numeric_limits<double>::max();

const QString MassGroup = QStringLiteral("Plot/CustomScales/MassScale");
const QString TimeGroup = QStringLiteral("Plot/CustomScales/TimeScale");

// Reaches the store's members as a host subclass would.
class Store : public CustomScaleSettings
{
public:
    using CustomScaleSettings::CustomScaleSettings;
    using CustomScaleSettings::arrayPrefix;
};

QStringList names(const CustomScaleSettings &store)
{
    QStringList result;
    for (const CustomScaleItem *item : store.items())
        result << item->name;
    return result;
}

// What a fresh store reads from the settings.
QStringList storedNames(CustomScale::XScaleType type)
{
    CustomScaleSettings store(type);
    store.load();
    return names(store);
}

int storedSize(const QString &group)
{
    return QSettings().value(group + QStringLiteral("/size"), -1).toInt();
}

} // namespace

namespace QTest {
template <>
char *toString(const CustomScaleItem &item)
{
    return qstrdup(QStringLiteral("CustomScaleItem(%1, %2, %3, %4, %5, %6, %7)")
                       .arg(item.name)
                       .arg(item.xLower, 0, 'g', 17)
                       .arg(item.xUpper, 0, 'g', 17)
                       .arg(item.yLower, 0, 'g', 17)
                       .arg(item.yUpper, 0, 'g', 17)
                       .arg(item.yRightLower, 0, 'g', 17)
                       .arg(item.yRightUpper, 0, 'g', 17)
                       .toUtf8()
                       .constData());
}
} // namespace QTest

class tst_CustomScaleSettings : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QStandardPaths::setTestModeEnabled(true); }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void scaleTypeTextNamesTheGroup_data();
    void scaleTypeTextNamesTheGroup();
    void newItemHasTableDefaults();
    void newStoreIsEmptyWithDefaults();

    void addWithoutRightAxisNamesLeftAxesOnly();
    void addWithRightAxisAppendsY2();
    void yTextsUseExponentBelowOneTenth_data();
    void yTextsUseExponentBelowOneTenth();
    void xTextsUseSixSignificantDigits_data();
    void xTextsUseSixSignificantDigits();
    void addOnTimeScaleNamesXWithTimeTexts();
    void addFollowsTheLocale();

    void addingSameValuesTwiceKeepsOneEntryAtFront();
    void addingStoredRangeMovesItToFrontWithNewValues();
    void entriesDifferingOnlyInRightLowerAreOneEntry();
    void entriesDifferingBelowTextPrecisionInXBothStay();
    void entriesDifferingBelowTextPrecisionInRightUpperBothStay();
    void sixAddsKeepFiveAndDropTheFirst();
    void setMaxItemsTakesEffectAtNextAdd();
    void setMaxItemsIgnoresValuesBelowOne();
    void addTrimsALongLoadedListToMaxItems();

    void addWritesTheArrayUnderTheTypesGroup();
    void saveOfEmptyListWritesNothing();
    void addOnUnloadedStoreRewritesArrayWithOneEntry();
    void loadReadsWhatAnotherStoreSaved();
    void loadSeesAdditionsOfAnotherLiveStore();
    void loadReplacesTheList();
    void loadIgnoresMaxItems();
    void loadGivesEmptyNameAndZeroForMissingKeys();
    void massAndTimeListsDoNotSeeEachOther();
    void changedRootKeyTakesEffectAtNextLoadOrSave();

    void corruptFileLoadsWhatCanBeRead();
    void truncatedFileWithoutSizeLoadsItsEntries();
    void unreadableNumbersLoadAsZero_data();
    void unreadableNumbersLoadAsZero();
    void hugeStoredSizeLoadsOnlyPresentEntries();

private:
    // Replaces the settings file by raw text, the way another program or a
    // crash might have left it.
    void writeSettingsFile(const QByteArray &contents);

    QTemporaryDir m_cfg;
    int m_fileCounter = 0;
};

void tst_CustomScaleSettings::initTestCase()
{
    QVERIFY(TestSupport::isolateSettings(m_cfg, QStringLiteral("tst_customscalesettings")));
    QVERIFY(QSettings().fileName().startsWith(m_cfg.path()));
}

void tst_CustomScaleSettings::init()
{
    QLocale::setDefault(QLocale::c());
    QSettings().clear();
}

void tst_CustomScaleSettings::cleanup()
{
    QLocale::setDefault(QLocale::c());
    // Tests that wrote raw files used their own application name.
    QCoreApplication::setApplicationName(QStringLiteral("tst_customscalesettings"));
}

void tst_CustomScaleSettings::writeSettingsFile(const QByteArray &contents)
{
    // A fresh file name per test, so that no cached copy of an earlier file
    // stands in for it.
    QCoreApplication::setApplicationName(
        QStringLiteral("tst_customscalesettings_raw%1").arg(++m_fileCounter));
    const QString fileName = QSettings().fileName();
    QVERIFY(QDir().mkpath(QFileInfo(fileName).path()));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

void tst_CustomScaleSettings::scaleTypeTextNamesTheGroup_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("mass") << 0 << "MassScale";
    QTest::newRow("time") << 1 << "TimeScale";
    QTest::newRow("other") << 2 << "";
    QTest::newRow("negative") << -1 << "";
}

void tst_CustomScaleSettings::scaleTypeTextNamesTheGroup()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QCOMPARE(CustomScale::xScaleTypeText(CustomScale::XScaleType(type)), text);
    QCOMPARE(int(CustomScale::MassScale), 0);
    QCOMPARE(int(CustomScale::TimeScale), 1);
}

void tst_CustomScaleSettings::newItemHasTableDefaults()
{
    const CustomScaleItem item;
    QVERIFY(item.name.isEmpty());
    QCOMPARE(item.xLower, 1.0);
    QCOMPARE(item.xUpper, 10.0);
    QCOMPARE(item.yLower, 1e-14);
    QCOMPARE(item.yUpper, 1e-06);
    QCOMPARE(item.yRightLower, 0.0);
    QCOMPARE(item.yRightUpper, 0.0);

    CustomScaleItem other = item;
    QCOMPARE(other, item);
    other.yRightLower = 1.0;
    QVERIFY(other != item);
}

void tst_CustomScaleSettings::newStoreIsEmptyWithDefaults()
{
    QObject owner;
    auto *store = new Store(CustomScale::TimeScale, &owner);
    QCOMPARE(store->parent(), &owner);
    QVERIFY(store->items().isEmpty());
    QCOMPARE(store->rootKey(), QStringLiteral("Plot/CustomScales"));
    QCOMPARE(store->maxItems(), 5);
    QCOMPARE(store->scaleType(), CustomScale::TimeScale);
    QCOMPARE(store->arrayPrefix(), TimeGroup);
    QCOMPARE(store->organizationName(), QStringLiteral("FiguraTests"));
    QCOMPARE(store->applicationName(), QStringLiteral("tst_customscalesettings"));
}

void tst_CustomScaleSettings::addWithoutRightAxisNamesLeftAxesOnly()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().size(), 1);
    const CustomScaleItem *item = store.items().first();
    QCOMPARE(item->name, QStringLiteral("X[1, 10] Y[1.00e-09, 1.00e-05]"));
    QCOMPARE(item->xLower, 1.0);
    QCOMPARE(item->xUpper, 10.0);
    QCOMPARE(item->yLower, 1e-9);
    QCOMPARE(item->yUpper, 1e-5);
    QCOMPARE(item->yRightLower, 0.0);
    QCOMPARE(item->yRightUpper, 0.0);
}

void tst_CustomScaleSettings::addWithRightAxisAppendsY2()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 0, 0.5, 0, 1);
    QCOMPARE(names(store), QStringList{QStringLiteral("X[1, 10] Y[0.00, 0.50] Y2[0.00, 1.00]")});
    QCOMPARE(store.items().first()->yRightUpper, 1.0);

    // Only the exact pair means "no right axis".
    store.add(1, 10, 0, 0.5, NoRightLower, 2.0);
    QCOMPARE(store.items().first()->name,
             QStringLiteral("X[1, 10] Y[0.00, 0.50] Y2[2.23e-308, 2.00]"));
    QCOMPARE(store.items().first()->yRightLower, NoRightLower);
}

void tst_CustomScaleSettings::yTextsUseExponentBelowOneTenth_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0.0 << "0.00";
    QTest::newRow("one tenth") << 0.1 << "0.10";
    QTest::newRow("just below one tenth") << 0.0999 << "9.99e-02";
    QTest::newRow("large") << 1234.5 << "1234.50";
    QTest::newRow("negative has no absolute value") << -5.0 << "-5.00e+00";
    QTest::newRow("tiny") << 1e-14 << "1.00e-14";
}

void tst_CustomScaleSettings::yTextsUseExponentBelowOneTenth()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 2, value, 5000, value, 5000);
    QCOMPARE(store.items().first()->name,
             QStringLiteral("X[1, 2] Y[%1, 5000.00] Y2[%1, 5000.00]").arg(text));
}

void tst_CustomScaleSettings::xTextsUseSixSignificantDigits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("integer") << 44.0 << "44";
    QTest::newRow("fraction") << 0.5 << "0.5";
    QTest::newRow("seven digits") << 1234567.0 << "1.23457e+06";
    QTest::newRow("tiny") << 1e-7 << "1e-07";
    QTest::newRow("negative") << -3.25 << "-3.25";
}

void tst_CustomScaleSettings::xTextsUseSixSignificantDigits()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(value, value, 1, 2, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().first()->name, QStringLiteral("X[%1, %1] Y[1.00, 2.00]").arg(text));
}

void tst_CustomScaleSettings::addOnTimeScaleNamesXWithTimeTexts()
{
    CustomScaleSettings store(CustomScale::TimeScale);
    store.add(3661, 360000, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(names(store),
             QStringList{QStringLiteral("X[01:01:01, 100:00:00] Y[1.00e-09, 1.00e-05]")});
    QCOMPARE(store.items().first()->xUpper, 360000.0);
}

void tst_CustomScaleSettings::addFollowsTheLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1.5, 10, 0.05, 0.5, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().first()->name, QStringLiteral("X[1,5, 10] Y[5,00E-02, 0,50]"));
}

void tst_CustomScaleSettings::addingSameValuesTwiceKeepsOneEntryAtFront()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(2, 20, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    store.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    store.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(names(store), (QStringList{QStringLiteral("X[1, 10] Y[1.00e-09, 1.00e-05]"),
                                        QStringLiteral("X[2, 20] Y[1.00e-09, 1.00e-05]")}));
    QCOMPARE(storedNames(CustomScale::MassScale), names(store));
}

void tst_CustomScaleSettings::addingStoredRangeMovesItToFrontWithNewValues()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 0, 1, 1.001e-09, 1);
    store.add(2, 20, 0, 1, 0, 1);
    store.add(1, 10, 0, 1, 1.002e-09, 1);
    QCOMPARE(store.items().size(), 2);
    QCOMPARE(store.items().at(0)->xLower, 1.0);
    QCOMPARE(store.items().at(0)->yRightLower, 1.002e-09);
    QCOMPARE(store.items().at(1)->xLower, 2.0);
}

void tst_CustomScaleSettings::entriesDifferingOnlyInRightLowerAreOneEntry()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 0, 1, 1.001e-09, 1);
    store.add(1, 10, 0, 1, 1.002e-09, 1);
    QCOMPARE(names(store), QStringList{QStringLiteral("X[1, 10] Y[0.00, 1.00] Y2[1.00e-09, 1.00]")});
    QCOMPARE(store.items().first()->yRightLower, 1.002e-09);
}

void tst_CustomScaleSettings::entriesDifferingBelowTextPrecisionInXBothStay()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1.0000001, 10, 0, 1, NoRightLower, NoRightUpper);
    store.add(1.0000002, 10, 0, 1, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().size(), 2);
    QCOMPARE(store.items().at(0)->name, store.items().at(1)->name);
    QCOMPARE(store.items().at(0)->xLower, 1.0000002);
    QCOMPARE(store.items().at(1)->xLower, 1.0000001);
}

void tst_CustomScaleSettings::entriesDifferingBelowTextPrecisionInRightUpperBothStay()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 0, 1, 0, 1.0);
    store.add(1, 10, 0, 1, 0, 1.000001);
    QCOMPARE(store.items().size(), 2);
    QCOMPARE(store.items().at(0)->name, store.items().at(1)->name);
}

void tst_CustomScaleSettings::sixAddsKeepFiveAndDropTheFirst()
{
    CustomScaleSettings store(CustomScale::MassScale);
    for (int i = 1; i <= 6; ++i)
        store.add(i, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().size(), 5);
    QCOMPARE(store.items().first()->xLower, 6.0);
    QCOMPARE(store.items().last()->xLower, 2.0);
    for (const CustomScaleItem *item : store.items())
        QVERIFY(item->xLower != 1.0);
    QCOMPARE(storedSize(MassGroup), 5);
    QCOMPARE(storedNames(CustomScale::MassScale), names(store));
}

void tst_CustomScaleSettings::setMaxItemsTakesEffectAtNextAdd()
{
    CustomScaleSettings store(CustomScale::MassScale);
    for (int i = 1; i <= 5; ++i)
        store.add(i, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);

    store.setMaxItems(3);
    QCOMPARE(store.maxItems(), 3);
    QCOMPARE(store.items().size(), 5);
    QCOMPARE(storedNames(CustomScale::MassScale).size(), 5);

    store.add(6, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().size(), 3);
    QCOMPARE(store.items().at(0)->xLower, 6.0);
    QCOMPARE(store.items().at(1)->xLower, 5.0);
    QCOMPARE(store.items().at(2)->xLower, 4.0);
    QCOMPARE(storedSize(MassGroup), 3);
    QCOMPARE(storedNames(CustomScale::MassScale), names(store));
    // Entries of the longer list are gone from the file, not only hidden behind the size.
    QVERIFY(!QSettings().contains(MassGroup + QStringLiteral("/4/ScaleName")));
    QVERIFY(!QSettings().contains(MassGroup + QStringLiteral("/5/XLower")));
}

void tst_CustomScaleSettings::setMaxItemsIgnoresValuesBelowOne()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.setMaxItems(2);
    store.setMaxItems(0);
    store.setMaxItems(-4);
    QCOMPARE(store.maxItems(), 2);
}

void tst_CustomScaleSettings::addTrimsALongLoadedListToMaxItems()
{
    {
        QSettings settings;
        settings.beginWriteArray(MassGroup);
        for (int i = 0; i < 9; ++i) {
            settings.setArrayIndex(i);
            settings.setValue("ScaleName", QStringLiteral("stored %1").arg(i));
            settings.setValue("XLower", double(i));
        }
        settings.endArray();
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(store.items().size(), 9);

    store.add(100, 200, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(names(store), (QStringList{QStringLiteral("X[100, 200] Y[1.00e-09, 1.00e-05]"),
                                        QStringLiteral("stored 0"), QStringLiteral("stored 1"),
                                        QStringLiteral("stored 2"), QStringLiteral("stored 3")}));
}

void tst_CustomScaleSettings::addWritesTheArrayUnderTheTypesGroup()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 0, 0.5, 0.25, 1);
    store.sync();

    QSettings settings;
    QCOMPARE(settings.value(MassGroup + QStringLiteral("/size")).toInt(), 1);
    settings.beginGroup(MassGroup + QStringLiteral("/1"));
    QStringList keys = settings.childKeys();
    keys.sort();
    QCOMPARE(keys, (QStringList{"ScaleName", "XLower", "XUpper", "YLower", "YRightLower",
                                "YRightUpper", "YUpper"}));
    QCOMPARE(settings.value("ScaleName").toString(),
             QStringLiteral("X[1, 10] Y[0.00, 0.50] Y2[0.25, 1.00]"));
    QCOMPARE(settings.value("XLower").toDouble(), 1.0);
    QCOMPARE(settings.value("XUpper").toDouble(), 10.0);
    QCOMPARE(settings.value("YLower").toDouble(), 0.0);
    QCOMPARE(settings.value("YUpper").toDouble(), 0.5);
    QCOMPARE(settings.value("YRightLower").toDouble(), 0.25);
    QCOMPARE(settings.value("YRightUpper").toDouble(), 1.0);
    settings.endGroup();
    QVERIFY(!settings.childGroups().contains(QStringLiteral("TimeScale")));
}

void tst_CustomScaleSettings::saveOfEmptyListWritesNothing()
{
    {
        CustomScaleSettings first(CustomScale::MassScale);
        first.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.save();
    QCOMPARE(storedNames(CustomScale::MassScale),
             QStringList{QStringLiteral("X[1, 10] Y[1.00e-09, 1.00e-05]")});
}

void tst_CustomScaleSettings::addOnUnloadedStoreRewritesArrayWithOneEntry()
{
    {
        CustomScaleSettings first(CustomScale::MassScale);
        for (int i = 1; i <= 3; ++i)
            first.add(i, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(7, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(store.items().size(), 1);
    QCOMPARE(storedSize(MassGroup), 1);
    QCOMPARE(storedNames(CustomScale::MassScale),
             QStringList{QStringLiteral("X[7, 100] Y[1.00e-09, 1.00e-05]")});
}

void tst_CustomScaleSettings::loadReadsWhatAnotherStoreSaved()
{
    QList<CustomScaleItem> saved;
    {
        CustomScaleSettings first(CustomScale::MassScale);
        first.add(1.25, 10, 1e-12, 3e-7, NoRightLower, NoRightUpper);
        first.add(0.1, 1e6, 0.0, 2.5, -1.0, 1.0 / 3.0);
        for (const CustomScaleItem *item : first.items())
            saved << *item;
    }
    CustomScaleSettings second(CustomScale::MassScale);
    second.load();
    QCOMPARE(second.items().size(), saved.size());
    for (int i = 0; i < saved.size(); ++i)
        QCOMPARE(*second.items().at(i), saved.at(i));
}

void tst_CustomScaleSettings::loadSeesAdditionsOfAnotherLiveStore()
{
    // Two plots of the same kind each keep a store for their lifetime.
    CustomScaleSettings first(CustomScale::MassScale);
    CustomScaleSettings second(CustomScale::MassScale);
    second.load();
    QVERIFY(second.items().isEmpty());

    first.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    second.load();
    QCOMPARE(names(second), names(first));
}

void tst_CustomScaleSettings::loadReplacesTheList()
{
    {
        CustomScaleSettings first(CustomScale::MassScale);
        first.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.setRootKey(QStringLiteral("Elsewhere"));
    store.add(2, 20, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    store.add(3, 30, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    store.setRootKey(QStringLiteral("Plot/CustomScales"));
    store.load();
    QCOMPARE(names(store), QStringList{QStringLiteral("X[1, 10] Y[1.00e-09, 1.00e-05]")});
    store.load();
    QCOMPARE(store.items().size(), 1);
}

void tst_CustomScaleSettings::loadIgnoresMaxItems()
{
    {
        CustomScaleSettings first(CustomScale::MassScale);
        for (int i = 1; i <= 4; ++i)
            first.add(i, 100, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.setMaxItems(2);
    store.load();
    QCOMPARE(store.items().size(), 4);
}

void tst_CustomScaleSettings::loadGivesEmptyNameAndZeroForMissingKeys()
{
    {
        QSettings settings;
        settings.beginWriteArray(MassGroup, 2);
        settings.setArrayIndex(0);
        settings.setValue("XUpper", 42.0);
        settings.setArrayIndex(1);
        settings.setValue("ScaleName", QStringLiteral("named only"));
        settings.endArray();
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(store.items().size(), 2);

    CustomScaleItem first;
    first.xLower = first.yLower = first.yUpper = 0.0;
    first.xUpper = 42.0;
    QCOMPARE(*store.items().at(0), first);

    CustomScaleItem second;
    second.name = QStringLiteral("named only");
    second.xLower = second.xUpper = second.yLower = second.yUpper = 0.0;
    QCOMPARE(*store.items().at(1), second);
}

void tst_CustomScaleSettings::massAndTimeListsDoNotSeeEachOther()
{
    CustomScaleSettings mass(CustomScale::MassScale);
    CustomScaleSettings time(CustomScale::TimeScale);
    mass.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    time.add(60, 120, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    time.add(0, 300, 1e-9, 1e-5, NoRightLower, NoRightUpper);

    mass.load();
    time.load();
    QCOMPARE(names(mass), QStringList{QStringLiteral("X[1, 10] Y[1.00e-09, 1.00e-05]")});
    QCOMPARE(names(time), (QStringList{QStringLiteral("X[00:00:00, 00:05:00] Y[1.00e-09, 1.00e-05]"),
                                       QStringLiteral("X[00:01:00, 00:02:00] Y[1.00e-09, 1.00e-05]")}));
    QCOMPARE(storedSize(MassGroup), 1);
    QCOMPARE(storedSize(TimeGroup), 2);
}

void tst_CustomScaleSettings::changedRootKeyTakesEffectAtNextLoadOrSave()
{
    CustomScaleSettings store(CustomScale::MassScale);
    store.add(1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);

    store.setRootKey(QStringLiteral("Host/Ranges"));
    QCOMPARE(store.rootKey(), QStringLiteral("Host/Ranges"));
    QCOMPARE(store.items().size(), 1); // nothing reloaded yet

    store.save();
    QCOMPARE(storedSize(QStringLiteral("Host/Ranges/MassScale")), 1);
    QCOMPARE(storedSize(MassGroup), 1);

    store.add(2, 20, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QCOMPARE(storedSize(QStringLiteral("Host/Ranges/MassScale")), 2);
    QCOMPARE(storedSize(MassGroup), 1);

    store.setRootKey(QStringLiteral("Plot/CustomScales"));
    store.load();
    QCOMPARE(store.items().size(), 1);
}

void tst_CustomScaleSettings::corruptFileLoadsWhatCanBeRead()
{
    writeSettingsFile(
        "[General]\n"
        "garbage without equals sign\n"
        "\x01\x02\xff\xfe binary noise\n"
        "[Plot\n"
        "[Plot]\n"
        "CustomScales\\MassScale\\1\\ScaleName=first\n"
        "CustomScales\\MassScale\\1\\XLower=1.5\n"
        "CustomScales\\MassScale\\1\\XUpper=abc\n"
        "CustomScales\\MassScale\\1\\YLower=@Variant(\\0\\0\\0\\x6)\n"
        "CustomScales\\MassScale\\1\\YUpper=2e-5\n"
        "=value without key\n"
        "CustomScales\\MassScale\\2\\ScaleName=second\n"
        "CustomScales\\MassScale\\2\\XLower=3\n"
        "CustomScales\\MassScale\\2\\YRightUpper=@ByteArray(7)\n"
        "CustomScales\\MassScale\\size=2\n");

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(names(store), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
    const CustomScaleItem *first = store.items().at(0);
    QCOMPARE(first->xLower, 1.5);
    QCOMPARE(first->xUpper, 0.0);
    QCOMPARE(first->yLower, 0.0);
    QCOMPARE(first->yUpper, 2e-5);
    QCOMPARE(store.items().at(1)->xLower, 3.0);
}

void tst_CustomScaleSettings::truncatedFileWithoutSizeLoadsItsEntries()
{
    // QSettings writes the size after the entries, so a file cut short loses it first.
    writeSettingsFile("[Plot]\n"
                      "CustomScales\\MassScale\\1\\ScaleName=first\n"
                      "CustomScales\\MassScale\\1\\XLower=1\n"
                      "CustomScales\\MassScale\\2\\ScaleName=second\n"
                      "CustomScales\\MassScale\\2\\XLower=2\n"
                      "CustomScales\\MassScale\\3\\ScaleName=third\n"
                      "CustomScales\\MassScale\\3\\XLow");

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(names(store), (QStringList{QStringLiteral("first"), QStringLiteral("second"),
                                        QStringLiteral("third")}));
    QCOMPARE(store.items().at(1)->xLower, 2.0);
    QCOMPARE(store.items().at(2)->xLower, 0.0);
}

void tst_CustomScaleSettings::unreadableNumbersLoadAsZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("letters") << QByteArray("abc");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("half a number") << QByteArray("1.5e");
    QTest::newRow("nan") << QByteArray("nan");
    QTest::newRow("infinity") << QByteArray("inf");
    QTest::newRow("list") << QByteArray("1, 2");
    QTest::newRow("broken variant") << QByteArray("@Variant(\\0\\0\\0\\x87\\0)");
}

void tst_CustomScaleSettings::unreadableNumbersLoadAsZero()
{
    QFETCH(QByteArray, text);
    writeSettingsFile("[Plot]\n"
                      "CustomScales\\TimeScale\\1\\ScaleName=entry\n"
                      "CustomScales\\TimeScale\\1\\XLower=" + text + "\n"
                      "CustomScales\\TimeScale\\1\\XUpper=300\n"
                      "CustomScales\\TimeScale\\size=1\n");

    CustomScaleSettings store(CustomScale::TimeScale);
    store.load();
    QCOMPARE(store.items().size(), 1);
    QCOMPARE(store.items().first()->name, QStringLiteral("entry"));
    QCOMPARE(store.items().first()->xLower, 0.0);
    QCOMPARE(store.items().first()->xUpper, 300.0);
}

void tst_CustomScaleSettings::hugeStoredSizeLoadsOnlyPresentEntries()
{
    writeSettingsFile("[Plot]\n"
                      "CustomScales\\MassScale\\1\\ScaleName=first\n"
                      "CustomScales\\MassScale\\2\\ScaleName=second\n"
                      "CustomScales\\MassScale\\size=2000000000\n");

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(names(store), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

QTEST_MAIN(tst_CustomScaleSettings)
#include "tst_customscalesettings.moc"
