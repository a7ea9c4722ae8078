// The custom scales a user saved must survive what happens to a settings
// file: a file cut short, garbled by another program or edited by hand loads
// every entry that can still be read, and the next add() keeps them all. Two
// stores of one kind, as two plots of one kind hold, may add in turns and
// still leave one consistent list: no entry twice, none lost but to the
// limit, the most recent first.

#include <figura/dialogs/CustomScaleSettings.h>
#include <figura/plots/CurvePlot.h>

#include "StressSupport.h"
#include "TestSupport.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QSet>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <limits>

using namespace StressSupport;
using namespace TestSupport;

namespace {

constexpr double NoRightLower = std::numeric_limits<double>::min();
constexpr double NoRightUpper = std::numeric_limits<double>::max();

QStringList namesOf(const CustomScaleSettings &store)
{
    QStringList names;
    for (const CustomScaleItem *item : store.items())
        names << item->name;
    return names;
}

// What a store made now reads from the settings.
QStringList storedNames(CustomScale::XScaleType type = CustomScale::MassScale)
{
    CustomScaleSettings store(type);
    store.load();
    return namesOf(store);
}

// The name add() gives the mass range lower .. upper with the y range used here.
QString massName(int lower, int upper)
{
    return QStringLiteral("X[%1, %2] Y[1.00e-09, 1.00e-05]").arg(lower).arg(upper);
}

void addMass(CustomScaleSettings &store, int lower, int upper)
{
    store.add(lower, upper, 1e-9, 1e-5, NoRightLower, NoRightUpper);
}

} // namespace

class tst_CustomScaleRobustness : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void damagedFileLoadsEveryReadableEntry_data();
    void damagedFileLoadsEveryReadableEntry();
    void addAfterDamagedLoadKeepsReadableEntries_data();
    void addAfterDamagedLoadKeepsReadableEntries();
    void unreadableFileStillTakesNewScales_data();
    void unreadableFileStillTakesNewScales();
    void unwritableSettingsKeepTheListInMemory();
    void addWithoutLoadLeavesNoOldEntryBehindASubgroupSection();

    void storesAddingInTurnsKeepEveryEntry();
    void storesAddingInTurnsBeyondTheLimitKeepTheMostRecent();
    void sameRangeFromBothStoresIsOneEntry();
    void storesAddingInTurnsOnADamagedFileKeepItsEntries();
    void twoPlotsSavingScalesBothListThem();

private:
    // Gives the test a settings file of its own, with the raw contents.
    void writeSettingsFile(const QByteArray &contents);

    QTemporaryDir settingsDir;
    int fileCounter = 0;
};

void tst_CustomScaleRobustness::initTestCase()
{
    installNoticeFilter();
    QCoreApplication::setOrganizationName(QStringLiteral("FiguraTests"));
    QVERIFY(TestSupport::redirectSettings(settingsDir));
}

void tst_CustomScaleRobustness::init()
{
    // A fresh file per test: QSettings caches the files it has read.
    QCoreApplication::setApplicationName(
        QStringLiteral("tst_customscale_robustness_%1").arg(++fileCounter));
    QVERIFY(QSettings().fileName().startsWith(settingsDir.path()));
}

void tst_CustomScaleRobustness::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

void tst_CustomScaleRobustness::writeSettingsFile(const QByteArray &contents)
{
    const QString fileName = QSettings().fileName();
    QVERIFY(QDir().mkpath(QFileInfo(fileName).path()));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(contents), qint64(contents.size()));
}

void tst_CustomScaleRobustness::damagedFileLoadsEveryReadableEntry_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("names");

    const QByteArray first = "CustomScales\\MassScale\\1\\ScaleName=first\n"
                             "CustomScales\\MassScale\\1\\XLower=1\n"
                             "CustomScales\\MassScale\\1\\XUpper=10\n";
    const QByteArray second = "CustomScales\\MassScale\\2\\ScaleName=second\n"
                              "CustomScales\\MassScale\\2\\XLower=2\n";
    const QByteArray third = "CustomScales\\MassScale\\3\\ScaleName=third\n"
                             "CustomScales\\MassScale\\3\\XLower=3\n";
    const QStringList all{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")};

    QTest::newRow("intact") << "[Plot]\n" + first + second + third + "CustomScales\\MassScale\\size=3\n"
                            << all;
    QTest::newRow("cut in a key, no size")
        << "[Plot]\n" + first + second + "CustomScales\\MassScale\\3\\ScaleName=third\nCustomScales\\MassSc"
        << all;
    QTest::newRow("cut in a value")
        << "[Plot]\n" + first + second + "CustomScales\\MassScale\\3\\ScaleName=thi"
        << QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("thi")};
    QTest::newRow("size below the entries")
        << "[Plot]\n" + first + second + third + "CustomScales\\MassScale\\size=1\n" << all;
    QTest::newRow("size not a number")
        << "[Plot]\n" + first + second + third + "CustomScales\\MassScale\\size=three\n" << all;
    QTest::newRow("negative size")
        << "[Plot]\n" + first + second + third + "CustomScales\\MassScale\\size=-4\n" << all;
    QTest::newRow("size far above the entries")
        << "[Plot]\n" + first + second + third + "CustomScales\\MassScale\\size=99999\n" << all;
    QTest::newRow("an entry missing in the middle")
        << "[Plot]\n" + first + third + "CustomScales\\MassScale\\size=3\n"
        << QStringList{QStringLiteral("first"), QStringLiteral("third")};
    QTest::newRow("an entry of foreign keys only")
        << "[Plot]\n" + first + "CustomScales\\MassScale\\2\\Colour=red\n" + third
               + "CustomScales\\MassScale\\size=3\n"
        << QStringList{QStringLiteral("first"), QStringLiteral("third")};
    QTest::newRow("noise between the entries")
        << "[General]\ngarbage without equals sign\n\x01\x02\xff\xfe binary noise\n[Plot\n[Plot]\n"
               + first + "=value without key\n\\\\\\=\n" + second + "[[[]]]\n[Plot]\n" + third
        << all;
    QTest::newRow("NUL bytes on a line of their own")
        << "[Plot]\n" + first + QByteArray(16, '\0') + "\n" + second + third << all;
    QTest::newRow("CRLF line ends")
        << QByteArray("[Plot]\n" + first + second + third).replace("\n", "\r\n") << all;
    QTest::newRow("another section in between")
        << "[Plot]\n" + first + "[Other]\nKey=1\n[Plot]\n" + second + third << all;
    QTest::newRow("entries beside the other list")
        << "[Plot]\n" + first + "CustomScales\\TimeScale\\1\\ScaleName=time\n" + second + third
        << all;
    // QSettings parses an INI file's sections only when a key asks for them,
    // and looks at a single section for it; "Plot/Axis" sorts between "Plot"
    // and the list's keys.
    QTest::newRow("a later section of a subgroup")
        << "[Plot]\n" + first + second + third + "\n[Plot%2FAxis]\nwidth=2\n" << all;
    QTest::newRow("a section of a subgroup between the entries")
        << "[Plot]\n" + first + "[Plot%2FCusto1]\nwidth=2\n[Plot]\n" + second + third << all;
}

void tst_CustomScaleRobustness::damagedFileLoadsEveryReadableEntry()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, names);
    writeSettingsFile(contents);

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QCOMPARE(namesOf(store), names);
    // What was read of an entry is kept; a key that is missing reads as 0.
    const CustomScaleItem *firstItem = store.items().first();
    QCOMPARE(firstItem->xLower, 1.0);
    QCOMPARE(firstItem->xUpper, 10.0);
    QCOMPARE(firstItem->yLower, 0.0);
}

void tst_CustomScaleRobustness::addAfterDamagedLoadKeepsReadableEntries_data()
{
    damagedFileLoadsEveryReadableEntry_data();
}

void tst_CustomScaleRobustness::addAfterDamagedLoadKeepsReadableEntries()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, names);
    writeSettingsFile(contents);

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    addMass(store, 7, 70);
    const QStringList expected = QStringList{massName(7, 70)} + names;
    QCOMPARE(namesOf(store), expected);
    QCOMPARE(storedNames(), expected);

    // What reached the disk reads back the same, through a copy of the file
    // that no QSettings has cached.
    store.sync();
    const QString written = QSettings().fileName();
    QCoreApplication::setApplicationName(QCoreApplication::applicationName() + QStringLiteral("_copy"));
    QVERIFY(QFile::copy(written, QSettings().fileName()));
    CustomScaleSettings again(CustomScale::MassScale);
    again.load();
    QCOMPARE(namesOf(again), expected);
    addMass(again, 8, 80);
    QCOMPARE(storedNames(), QStringList{massName(8, 80)} + expected.mid(0, 4));
}

void tst_CustomScaleRobustness::addWithoutLoadLeavesNoOldEntryBehindASubgroupSection()
{
    // A store that never loaded starts a new list; the entries of the old one
    // must go even where a section of a subgroup hides them from a lookup.
    writeSettingsFile("[Plot]\n"
                      "CustomScales\\MassScale\\1\\ScaleName=old one\n"
                      "CustomScales\\MassScale\\2\\ScaleName=old two\n"
                      "CustomScales\\MassScale\\size=2\n"
                      "\n[Plot%2FAxis]\nwidth=2\n");
    CustomScaleSettings store(CustomScale::MassScale);
    addMass(store, 7, 70);
    QCOMPARE(storedNames(), QStringList{massName(7, 70)});
}

void tst_CustomScaleRobustness::unreadableFileStillTakesNewScales_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\xff\xfe\xfd", 20);
    QTest::newRow("only NUL bytes") << QByteArray(4096, '\0');
    QTest::newRow("only a size") << QByteArray("[Plot]\nCustomScales\\MassScale\\size=5\n");
    QTest::newRow("only a section") << QByteArray("[Plot]\n");
}

void tst_CustomScaleRobustness::unreadableFileStillTakesNewScales()
{
    QFETCH(QByteArray, contents);
    writeSettingsFile(contents);

    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    QVERIFY(store.items().isEmpty());
    addMass(store, 1, 10);
    addMass(store, 2, 20);
    QCOMPARE(storedNames(), (QStringList{massName(2, 20), massName(1, 10)}));
}

// A settings path that cannot be written (here a directory stands in place
// of the file) costs the persistence, not the list or the process.
void tst_CustomScaleRobustness::unwritableSettingsKeepTheListInMemory()
{
    const QString fileName = QSettings().fileName();
    QVERIFY(QDir().mkpath(fileName));
    CustomScaleSettings store(CustomScale::MassScale);
    store.load();
    addMass(store, 1, 10);
    addMass(store, 2, 20);
    QCOMPARE(namesOf(store), (QStringList{massName(2, 20), massName(1, 10)}));
    store.sync();
    QVERIFY(store.status() != QSettings::NoError);
}

void tst_CustomScaleRobustness::storesAddingInTurnsKeepEveryEntry()
{
    CustomScaleSettings first(CustomScale::MassScale);
    CustomScaleSettings second(CustomScale::MassScale);
    first.load();
    second.load();

    addMass(first, 1, 10);
    addMass(second, 2, 20);
    addMass(first, 3, 30);
    addMass(second, 4, 40);

    const QStringList expected{massName(4, 40), massName(3, 30), massName(2, 20), massName(1, 10)};
    QCOMPARE(storedNames(), expected);
    QCOMPARE(namesOf(second), expected);
    first.load();
    QCOMPARE(namesOf(first), expected);
}

void tst_CustomScaleRobustness::storesAddingInTurnsBeyondTheLimitKeepTheMostRecent()
{
    CustomScaleSettings first(CustomScale::MassScale);
    CustomScaleSettings second(CustomScale::MassScale);
    first.load();
    second.load();

    QStringList added;
    for (int i = 1; i <= 12; ++i) {
        addMass(i % 2 ? first : second, i, 10 * i);
        added.prepend(massName(i, 10 * i));
        const QStringList stored = storedNames();
        QCOMPARE(stored, added.mid(0, 5));
        // Each name once.
        QCOMPARE(QSet<QString>(stored.cbegin(), stored.cend()).size(), stored.size());
    }
}

void tst_CustomScaleRobustness::sameRangeFromBothStoresIsOneEntry()
{
    CustomScaleSettings first(CustomScale::MassScale);
    CustomScaleSettings second(CustomScale::MassScale);
    first.load();
    second.load();

    addMass(first, 1, 10);
    addMass(second, 2, 20);
    addMass(second, 1, 10); // the first store's range, now from the second
    addMass(first, 2, 20);  // and the other way round

    QCOMPARE(storedNames(), (QStringList{massName(2, 20), massName(1, 10)}));
}

void tst_CustomScaleRobustness::storesAddingInTurnsOnADamagedFileKeepItsEntries()
{
    writeSettingsFile("[Plot]\n"
                      "CustomScales\\MassScale\\1\\ScaleName=old one\n"
                      "garbage\n"
                      "CustomScales\\MassScale\\2\\ScaleName=old two\n"
                      "CustomScales\\MassScale\\size=1\n"
                      "CustomScales\\MassScale\\3\\ScaleNa");
    CustomScaleSettings first(CustomScale::MassScale);
    CustomScaleSettings second(CustomScale::MassScale);
    first.load();
    second.load();
    QCOMPARE(namesOf(first), (QStringList{QStringLiteral("old one"), QStringLiteral("old two")}));

    addMass(second, 1, 10);
    addMass(first, 2, 20);
    QCOMPARE(storedNames(), (QStringList{massName(2, 20), massName(1, 10), QStringLiteral("old one"),
                                         QStringLiteral("old two")}));
}

// The way users meet it: two plots of one kind, each with the menu opened
// once, save a scale each through the dialog; both scales stand in the next
// menu of either plot.
void tst_CustomScaleRobustness::twoPlotsSavingScalesBothListThem()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new CurvePlot(&window);
    auto *second = new CurvePlot(&window);
    layout->addWidget(first);
    layout->addWidget(second);
    first->setAxisScale(QwtPlot::xBottom, 1.0, 10.0);
    first->setAxisScale(QwtPlot::yLeft, 1e-9, 1e-5);
    second->setAxisScale(QwtPlot::xBottom, 2.0, 20.0);
    second->setAxisScale(QwtPlot::yLeft, 1e-9, 1e-5);
    QVERIFY(showActive(window, QSize(400, 600)));

    // The custom scale entries of a plot's next menu.
    const auto menuScales = [&window](CurvePlot *plot) {
        QStringList scales;
        WhenShown read([] { return activeMenuNamed(QStringLiteral("contextMenu")); },
                       [&scales](QWidget *shown) {
                           if (auto *sub = shown->findChild<QMenu *>(QStringLiteral("customScaleMenu"))) {
                               for (const QString &entry : menuEntries(sub))
                                   if (entry.startsWith(QLatin1String("X[")))
                                       scales << entry;
                           }
                           shown->close();
                       });
        QTest::mouseClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier,
                          plot->canvas()->mapTo(&window, plot->canvas()->rect().center()));
        if (!QTest::qWaitFor([&read] { return read.fired(); }))
            scales << QStringLiteral("no menu");
        return scales;
    };
    const auto saveScale = [](CurvePlot *plot) {
        WhenShown accept([] { return activeModal(); },
                         [](QWidget *shown) { qobject_cast<QDialog *>(shown)->accept(); });
        plot->editCustomScale();
        return accept.fired();
    };

    QCOMPARE(menuScales(first), QStringList());
    QCOMPARE(menuScales(second), QStringList());
    QVERIFY(saveScale(first));
    QVERIFY(saveScale(second));

    const QStringList both{massName(2, 20), massName(1, 10)};
    QCOMPARE(menuScales(first), both);
    QCOMPARE(menuScales(second), both);
}

QTEST_MAIN(tst_CustomScaleRobustness)
#include "tst_customscale_robustness.moc"
