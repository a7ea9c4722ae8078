// Bugs that the sanitizers or the fuzzers found, held here by checks that
// fail without the fix. Settings files of the fuzz corpus that found a bug
// are replayed by the fuzz_*_corpus tests as well.

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CustomScaleSettings.h>

#include <TestSupport.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <type_traits>

namespace {

// Direct-list-initialisation of an enumeration from an int compiles only for
// an enumeration with a fixed underlying type, the only kind for which every
// int is a valid value.
template <class Enum, class = void>
struct TakesAnyInt : std::false_type
{
};
template <class Enum>
struct TakesAnyInt<Enum, std::void_t<decltype(Enum{2})>> : std::true_type
{
};

} // namespace

class tst_Regressions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void scaleTypeOutsideEnumeratorsIsAValidValue();
    void sortOptionOutsideEnumeratorsIsAValidValue();
    void farIndexInSettingsLoadsOnlyPresentEntries_data();
    void farIndexInSettingsLoadsOnlyPresentEntries();

private:
    QTemporaryDir settingsDir;
};

void tst_Regressions::initTestCase()
{
    QVERIFY(TestSupport::isolateSettings(settingsDir, QStringLiteral("tst_regressions")));
}

// UndefinedBehaviorSanitizer: "load of value 2, which is not a valid value for
// type 'CustomScale::XScaleType'" in xScaleTypeText and CustomScaleDialog,
// which are to take and ignore any other value.
void tst_Regressions::scaleTypeOutsideEnumeratorsIsAValidValue()
{
    QVERIFY(TakesAnyInt<CustomScale::XScaleType>::value);
    QVERIFY(CustomScale::xScaleTypeText(CustomScale::XScaleType{2}).isEmpty());
    QVERIFY(CustomScale::xScaleTypeText(CustomScale::XScaleType{-1}).isEmpty());
}

// UndefinedBehaviorSanitizer: "load of value 2, which is not a valid value for
// type 'const Figura::MarkerLabelSortOption'" in a lookup of the sort option map.
void tst_Regressions::sortOptionOutsideEnumeratorsIsAValidValue()
{
    QVERIFY(TakesAnyInt<Figura::MarkerLabelSortOption>::value);
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption{2}));
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption{-1}));
}

// Fuzzing: one entry under a far index made load() create an item for every
// index below it, minutes of work and gigabytes for a file of a few bytes,
// whenever the custom scale menu was built.
void tst_Regressions::farIndexInSettingsLoadsOnlyPresentEntries_data()
{
    QTest::addColumn<QByteArray>("size");
    QTest::newRow("no size") << QByteArray();
    QTest::newRow("size as far") << QByteArray("CustomScales\\MassScale\\size=2000000000\n");
}

void tst_Regressions::farIndexInSettingsLoadsOnlyPresentEntries()
{
    QFETCH(QByteArray, size);
    const QString path = QSettings().fileName();
    QDir().mkpath(QFileInfo(path).absolutePath());
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[Plot]\n"
                   "CustomScales\\MassScale\\1\\ScaleName=first\n"
                   "CustomScales\\MassScale\\3\\ScaleName=third\n"
                   "CustomScales\\MassScale\\2000000000\\ScaleName=far\n"
                   + size);
    }
    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QStringList names;
    for (const CustomScaleItem *item : store.items())
        names << item->name;
    QCOMPARE(names, (QStringList{QStringLiteral("first"), QStringLiteral("third"), QStringLiteral("far")}));
}

QTEST_GUILESS_MAIN(tst_Regressions)
#include "tst_regressions.moc"
