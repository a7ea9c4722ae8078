// CustomScaleSettings::load from any bytes as the application's settings
// file. Both stores load what they find; then a new range is added to a
// short list, which cuts it and saves it, and a third store must load back
// the very list that was saved.

#include "FuzzSupport.h"

#include <figura/dialogs/CustomScaleSettings.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

const QString Organization = QStringLiteral("FiguraFuzz");

// All settings paths point into one temporary directory, so that no input
// reads or writes the user's or the system's settings. /dev/shm keeps the
// file traffic of thousands of inputs a second off the disk where it exists.
QTemporaryDir &settingsDir()
{
    static QTemporaryDir dir(QDir(QStringLiteral("/dev/shm")).exists()
                                 ? QStringLiteral("/dev/shm/figura-fuzz-XXXXXX")
                                 : QDir::tempPath() + QStringLiteral("/figura-fuzz-XXXXXX"));
    static const bool pointed = [] {
        for (auto format : {QSettings::NativeFormat, QSettings::IniFormat})
            for (auto scope : {QSettings::UserScope, QSettings::SystemScope})
                QSettings::setPath(format, scope, dir.path());
        QCoreApplication::setOrganizationName(Organization);
        return QDir(dir.path()).mkpath(Organization);
    }();
    if (!dir.isValid() || !pointed)
        std::abort();
    return dir;
}

QByteArray describe(const CustomScaleItem &item)
{
    return item.name.toUtf8() + ' ' + QByteArray::number(item.xLower) + ' '
        + QByteArray::number(item.xUpper) + ' ' + QByteArray::number(item.yLower) + ' '
        + QByteArray::number(item.yUpper) + ' ' + QByteArray::number(item.yRightLower) + ' '
        + QByteArray::number(item.yRightUpper);
}

void checkLoaded(const CustomScaleSettings &store)
{
    for (const CustomScaleItem *item : store.items()) {
        FUZZ_CHECK(item != nullptr, "null item");
        for (double bound : {item->xLower, item->xUpper, item->yLower, item->yUpper,
                             item->yRightLower, item->yRightUpper})
            FUZZ_CHECK(std::isfinite(bound), describe(*item));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    QTemporaryDir &dir = settingsDir();

    // One file name for all inputs: QSettings keeps what it parsed in a cache
    // by name, but reads the file again whenever a new object opens it.
    const QString application = QStringLiteral("input");
    QCoreApplication::setApplicationName(application);
    const QString path = dir.filePath(Organization + QLatin1Char('/') + application
                                      + QStringLiteral(".conf"));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }

    {
        CustomScaleSettings mass(CustomScale::MassScale);
        mass.load();
        checkLoaded(mass);

        CustomScaleSettings time(CustomScale::TimeScale);
        time.load();
        checkLoaded(time);
        time.setMaxItems(3);
        time.add(0.0, 300.0, 1e-20, 1e-05, std::numeric_limits<double>::min(),
                 std::numeric_limits<double>::max());
        FUZZ_CHECK(time.items().size() >= 1 && time.items().size() <= 3,
                   QByteArray::number(time.items().size()) + " items after add");
        FUZZ_CHECK(time.items().constFirst()->name.startsWith(QStringLiteral("X[00:00:00, 00:05:00] Y[")),
                   describe(*time.items().constFirst()));

        CustomScaleSettings reread(CustomScale::TimeScale);
        reread.load();
        FUZZ_CHECK(reread.items().size() == time.items().size(),
                   QByteArray::number(reread.items().size()) + " items read back, "
                       + QByteArray::number(time.items().size()) + " saved");
        for (qsizetype i = 0; i < reread.items().size(); ++i)
            FUZZ_CHECK(*reread.items().at(i) == *time.items().at(i),
                       "saved  " + describe(*time.items().at(i)) + "\nloaded "
                           + describe(*reread.items().at(i)));
        checkLoaded(reread);
    }
    QFile::remove(path);
    return 0;
}
