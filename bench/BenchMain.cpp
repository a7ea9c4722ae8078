// The main() of every benchmark program: a QApplication on the offscreen
// platform first, then Google Benchmark, with the machine and the library
// versions added to the context of the JSON report.

#include "BenchSupport.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QString>
#include <QSysInfo>
#include <QThread>

#include <qwt_global.h>

#include <string>

namespace {

QString cpuModel()
{
    // Files of /proc have no size: read them whole rather than by atEnd().
    QFile cpuinfo(QStringLiteral("/proc/cpuinfo"));
    if (cpuinfo.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = cpuinfo.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("model name")) {
                const int colon = line.indexOf(':');
                if (colon >= 0)
                    return QString::fromLatin1(line.mid(colon + 1).trimmed());
            }
        }
    }
    return QSysInfo::currentCpuArchitecture();
}

QString loadAverage()
{
    QFile loadavg(QStringLiteral("/proc/loadavg"));
    if (!loadavg.open(QIODevice::ReadOnly))
        return QString();
    const QList<QByteArray> fields = loadavg.readAll().simplified().split(' ');
    return fields.size() >= 3
        ? QString::fromLatin1(fields.at(0) + ' ' + fields.at(1) + ' ' + fields.at(2))
        : QString();
}

void addContext(const char *key, const QString &value)
{
    benchmark::AddCustomContext(key, value.toStdString());
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    addContext("cpu_model", cpuModel());
    addContext("cpu_cores", QString::number(QThread::idealThreadCount()));
    addContext("load_average_at_start", loadAverage());
    addContext("qt_version", QString::fromLatin1(qVersion()));
    addContext("qwt_version", QStringLiteral(QWT_VERSION_STR));
    addContext("os", QSysInfo::prettyProductName());
    addContext("qpa_platform", QApplication::platformName());
    addContext("quick_mode", BenchSupport::quick() ? QStringLiteral("yes") : QStringLiteral("no"));

    BenchSupport::registerBenchmarks();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
