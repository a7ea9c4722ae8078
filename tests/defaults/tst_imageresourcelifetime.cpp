// The library's resource tree lives exactly as long as the library is loaded.
// This program does not link the library; it loads and unloads it by hand.

#include <QFile>
#include <QLibrary>
#include <QTest>

#include <dlfcn.h>

namespace {

// Whether the dynamic linker still holds the library, without loading it.
bool stillMapped(const QString &file)
{
    void *handle = dlopen(QFile::encodeName(file).constData(), RTLD_NOW | RTLD_NOLOAD);
    if (!handle)
        return false;
    dlclose(handle);
    return true;
}

} // namespace

class tst_ImageResourceLifetime : public QObject
{
    Q_OBJECT

private slots:
    void imagesComeAndGoWithTheLibrary();
};

void tst_ImageResourceLifetime::imagesComeAndGoWithTheLibrary()
{
    const QString icon = QStringLiteral(":/images/full-scale.png");
    const QString logo = QStringLiteral(":images/KELM-logo-black.png");
    QVERIFY(!QFile::exists(icon));

    QLibrary library(QStringLiteral(FIGURA_LIBRARY_FILE));
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(QFile::exists(icon));
    QVERIFY(QFile::exists(logo));

    QVERIFY2(library.unload(), qPrintable(library.errorString()));
    // A library with unique (STB_GNU_UNIQUE) symbols can never be unloaded;
    // say so rather than report missing unregistration.
    QVERIFY2(!stillMapped(library.fileName()), "the library stays loaded after it was unloaded");
    QVERIFY(!QFile::exists(icon));
    QVERIFY(!QFile::exists(logo));
}

QTEST_GUILESS_MAIN(tst_ImageResourceLifetime)
#include "tst_imageresourcelifetime.moc"
