// bench_report <out.md> <results.json>...
//
// Reads the JSON reports of the benchmark programs and writes a short
// Markdown summary: the ratios of ours to the bare counterparts first, then
// the targets with the figures they rest on, then every absolute time, with
// the machine they were measured on. The Markdown also goes to stdout.
//
// Benchmark names are "<measure>/<side>[/<arguments>]"; the sides "qwt" and
// "qt" are the bare counterparts, any other side is ours. Each benchmark is
// represented by its median over the repetitions when there are several.
// Times are CPU times; for memory the resident size added is compared.

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

struct Result {
    QString name;      // without the timing suffix
    QString measure;
    QString side;
    QString arguments;
    double cpuNs = 0.0;
    double realNs = 0.0;
    double iterations = 0.0;   // of one run; a median stands for several
    int repetitions = 0;
    bool aggregated = false;
    QMap<QString, double> counters;
    QString error;
};

const QStringList &knownFields()
{
    static const QStringList value = {
        QStringLiteral("name"), QStringLiteral("family_index"), QStringLiteral("per_family_instance_index"),
        QStringLiteral("run_name"), QStringLiteral("run_type"), QStringLiteral("repetitions"),
        QStringLiteral("repetition_index"), QStringLiteral("threads"), QStringLiteral("iterations"),
        QStringLiteral("real_time"), QStringLiteral("cpu_time"), QStringLiteral("time_unit"),
        QStringLiteral("aggregate_name"), QStringLiteral("aggregate_unit"), QStringLiteral("error_occurred"),
        QStringLiteral("error_message"), QStringLiteral("label")};
    return value;
}

double toNanoseconds(double value, const QString &unit)
{
    if (unit == QLatin1String("us"))
        return value * 1e3;
    if (unit == QLatin1String("ms"))
        return value * 1e6;
    if (unit == QLatin1String("s"))
        return value * 1e9;
    return value;
}

// The name as registered: without the parts that Google Benchmark appends
// for the timing ("/process_time") and for run settings ("/iterations:3").
QString stripSuffix(QString name)
{
    static const QRegularExpression setting(
        QStringLiteral("/(process_time|real_time|manual_time|(iterations|repeats|min_time|threads):[^/]*)$"));
    for (;;) {
        const QRegularExpressionMatch match = setting.match(name);
        if (!match.hasMatch())
            return name;
        name.truncate(match.capturedStart());
    }
}

bool isAnchor(const QString &side)
{
    return side == QLatin1String("qwt") || side == QLatin1String("qt");
}

// All runs of one benchmark, reduced to its median aggregate, or to the mean
// of its iteration runs where no aggregate was written.
QList<Result> readResults(const QJsonArray &benchmarks)
{
    QMap<QString, QList<QJsonObject>> runs;
    QStringList order;
    for (const QJsonValue &value : benchmarks) {
        const QJsonObject run = value.toObject();
        const QString name = stripSuffix(run.value(QStringLiteral("run_name")).toString(
            run.value(QStringLiteral("name")).toString()));
        if (!runs.contains(name))
            order << name;
        runs[name] << run;
    }

    // Grouped by measure, in the order in which each measure first appears;
    // random interleaving shuffles the runs of a program.
    QStringList measures;
    for (const QString &name : std::as_const(order)) {
        const QString measure = name.section(QLatin1Char('/'), 0, 0);
        if (!measures.contains(measure))
            measures << measure;
    }
    std::stable_sort(order.begin(), order.end(), [&measures](const QString &a, const QString &b) {
        return measures.indexOf(a.section(QLatin1Char('/'), 0, 0))
            < measures.indexOf(b.section(QLatin1Char('/'), 0, 0));
    });

    QList<Result> results;
    for (const QString &name : std::as_const(order)) {
        const QList<QJsonObject> &all = runs[name];
        QList<QJsonObject> chosen;
        for (const QJsonObject &run : all) {
            if (run.value(QStringLiteral("run_type")).toString() == QLatin1String("aggregate")
                && run.value(QStringLiteral("aggregate_name")).toString() == QLatin1String("median"))
                chosen << run;
        }
        const bool aggregated = !chosen.isEmpty();
        if (chosen.isEmpty()) {
            for (const QJsonObject &run : all) {
                if (run.value(QStringLiteral("run_type")).toString() != QLatin1String("aggregate"))
                    chosen << run;
            }
        }
        if (chosen.isEmpty())
            continue;

        Result result;
        result.name = name;
        const QStringList parts = name.split(QLatin1Char('/'));
        result.measure = parts.value(0);
        result.side = parts.value(1);
        result.arguments = parts.mid(2).join(QLatin1Char('/'));
        result.repetitions = all.first().value(QStringLiteral("repetitions")).toInt(1);
        result.aggregated = aggregated;
        for (const QJsonObject &run : std::as_const(chosen)) {
            if (run.value(QStringLiteral("error_occurred")).toBool()) {
                result.error = run.value(QStringLiteral("error_message")).toString();
                continue;
            }
            const QString unit = run.value(QStringLiteral("time_unit")).toString();
            result.cpuNs += toNanoseconds(run.value(QStringLiteral("cpu_time")).toDouble(), unit) / chosen.size();
            result.realNs += toNanoseconds(run.value(QStringLiteral("real_time")).toDouble(), unit) / chosen.size();
            result.iterations += run.value(QStringLiteral("iterations")).toDouble() / chosen.size();
            for (auto it = run.constBegin(); it != run.constEnd(); ++it) {
                if (!knownFields().contains(it.key()) && it.value().isDouble())
                    result.counters[it.key()] += it.value().toDouble() / chosen.size();
            }
        }
        results << result;
    }
    return results;
}

QString formatTime(double ns)
{
    if (ns >= 1e9)
        return QString::number(ns / 1e9, 'f', 2) + QStringLiteral(" s");
    if (ns >= 1e6)
        return QString::number(ns / 1e6, 'f', ns >= 1e8 ? 0 : 2) + QStringLiteral(" ms");
    if (ns >= 1e3)
        return QString::number(ns / 1e3, 'f', ns >= 1e5 ? 0 : 2) + QStringLiteral(" µs");
    return QString::number(ns, 'f', 0) + QStringLiteral(" ns");
}

QString formatNumber(double value)
{
    if (value == std::floor(value) && std::fabs(value) < 1e15)
        return QString::number(value, 'f', 0);
    if (value != 0.0 && (std::fabs(value) >= 1e6 || std::fabs(value) < 0.01))
        return QString::number(value, 'g', 3);
    return QString::number(value, 'f', 2);
}

// What a measure compares: the resident size added for memory, else CPU time.
QString metricOf(const Result &result)
{
    if (result.counters.contains(QStringLiteral("rss_added_MiB")))
        return QStringLiteral("rss_added_MiB");
    if (result.counters.contains(QStringLiteral("rss_added_KiB")))
        return QStringLiteral("rss_added_KiB");
    return QStringLiteral("cpu");
}

double metricValue(const Result &result, const QString &metric)
{
    return metric == QLatin1String("cpu") ? result.cpuNs : result.counters.value(metric);
}

QString formatMetric(double value, const QString &metric)
{
    if (metric == QLatin1String("rss_added_MiB"))
        return QString::number(value, 'f', 1) + QStringLiteral(" MiB");
    if (metric == QLatin1String("rss_added_KiB"))
        return QString::number(value, 'f', 0) + QStringLiteral(" KiB");
    return formatTime(value);
}

class Report
{
public:
    explicit Report(const QList<Result> &all)
        : results(all)
    {
        for (const Result &result : all)
            byName.insert(result.name, result);
    }

    const Result *find(const QString &name) const
    {
        const auto it = byName.constFind(name);
        return it == byName.constEnd() || !it->error.isEmpty() ? nullptr : &*it;
    }

    // Ours over the anchor with the same measure and arguments, or NaN.
    double ratio(const Result &ours) const
    {
        for (const char *anchor : {"qwt", "qt"}) {
            QString name = ours.measure + QLatin1Char('/') + QLatin1String(anchor);
            if (!ours.arguments.isEmpty())
                name += QLatin1Char('/') + ours.arguments;
            if (const Result *base = find(name)) {
                const QString metric = metricOf(ours);
                const double denominator = metricValue(*base, metric);
                if (denominator > 0.0)
                    return metricValue(ours, metric) / denominator;
            }
        }
        return std::nan("");
    }

    double ratioOf(const QString &name) const
    {
        const Result *ours = find(name);
        return ours ? ratio(*ours) : std::nan("");
    }

    QList<Result> results;
    QMap<QString, Result> byName;
};

QString verdict(bool measured, bool met)
{
    if (!measured)
        return QStringLiteral("not measured");
    return met ? QStringLiteral("met") : QStringLiteral("**missed**");
}

void writeTargets(QTextStream &out, const Report &report)
{
    out << "## Targets\n\n| target | measured | result |\n|---|---|---|\n";

    const Result *pass = report.find(QStringLiteral("readout/figura/curves:10/samples:1000000"));
    out << "| read-out pass, 10 curves of 1e6 samples, under 50 µs | "
        << (pass ? formatTime(pass->cpuNs) : QStringLiteral("-")) << " | "
        << verdict(pass, pass && pass->cpuNs < 50e3) << " |\n";

    const Result *small = report.find(QStringLiteral("readout/figura/curves:10/samples:1000"));
    const Result *large = report.find(QStringLiteral("readout/figura/curves:10/samples:10000000"));
    const bool growthMeasured = small && large && small->cpuNs > 0.0;
    const double growth = growthMeasured ? large->cpuNs / small->cpuNs : 0.0;
    out << "| growth of the pass from 1e3 to 1e7 samples at 10 curves, at most 2x | "
        << (growthMeasured ? QStringLiteral("%1x (%2 to %3)")
                                 .arg(QString::number(growth, 'f', 2), formatTime(small->cpuNs),
                                      formatTime(large->cpuNs))
                           : QStringLiteral("-"))
        << " | " << verdict(growthMeasured, growth <= 2.0) << " |\n";

    const Result *burst = report.find(QStringLiteral("burst/figura"));
    const Result *bareBurst = report.find(QStringLiteral("burst/qwt"));
    // A pause between two moves longer than the replot delay ends a burst
    // as the user's stop does; only replots beyond those count against us.
    const double replots = burst ? burst->counters.value(QStringLiteral("replots"), -1.0) : -1.0;
    const double pauses = burst ? burst->counters.value(QStringLiteral("pauses_over_delay"), 0.0) : 0.0;
    out << "| one replot per burst of 1,000 moves | "
        << (burst ? QStringLiteral("%1 replots per burst, %2 pauses between moves longer than the "
                                   "replot delay")
                        .arg(formatNumber(replots), formatNumber(pauses))
                  : QStringLiteral("-"))
        << " | " << verdict(burst, replots >= 1.0 && replots <= 1.0 + pauses) << " |\n";
    const bool burstMeasured = burst && bareBurst;
    out << "| burst CPU time at most the bare anchor's | "
        << (burstMeasured ? QStringLiteral("%1 against %2 (%3x)")
                                .arg(formatTime(burst->cpuNs), formatTime(bareBurst->cpuNs),
                                     QString::number(burst->cpuNs / bareBurst->cpuNs, 'f', 2))
                          : QStringLiteral("-"))
        << " | " << verdict(burstMeasured, burstMeasured && burst->cpuNs <= bareBurst->cpuNs) << " |\n";

    struct RatioTarget {
        const char *text;
        const char *name;
        double limit;
    };
    const RatioTarget ratioTargets[] = {
        {"replot ratio at most 1.05 (read-out hidden)", "replot/figura", 1.05},
        {"replot ratio at most 1.05 (read-out shown)", "replot/figura-readout", 1.05},
        {"memory ratio at most 1.05", "memory/figura", 1.05},
        {"export ratio at most 1.10 (CurvePlot and PlotRenderer against QwtPlot and QwtPlotRenderer)",
         "export-plot/figura", 1.10},
        {"export ratio at most 1.10 (PlotRenderer against QwtPlotRenderer, same plot)", "export/figura", 1.10}};
    for (const RatioTarget &target : ratioTargets) {
        const double value = report.ratioOf(QLatin1String(target.name));
        const bool measured = !std::isnan(value);
        out << "| " << target.text << " | " << (measured ? QString::number(value, 'f', 3) : QStringLiteral("-"))
            << " | " << verdict(measured, value <= target.limit) << " |\n";
    }
    out << "\n";
}

void writeRatios(QTextStream &out, const Report &report)
{
    out << "## Ratios: ours against the bare counterpart\n\n"
        << "CPU time (resident size added for memory), median over the repetitions, "
           "both sides measured in the same process.\n\n"
        << "| measure | ours | counterpart | arguments | ours | counterpart | ratio |\n"
        << "|---|---|---|---|---|---|---|\n";
    for (const Result &ours : report.results) {
        if (isAnchor(ours.side) || !ours.error.isEmpty())
            continue;
        const double value = report.ratio(ours);
        if (std::isnan(value))
            continue;
        const QString metric = metricOf(ours);
        QString anchorName;
        const Result *anchor = nullptr;
        for (const char *side : {"qwt", "qt"}) {
            anchorName = ours.measure + QLatin1Char('/') + QLatin1String(side)
                + (ours.arguments.isEmpty() ? QString() : QLatin1Char('/') + ours.arguments);
            anchor = report.find(anchorName);
            if (anchor)
                break;
        }
        out << "| " << ours.measure << " | " << ours.side << " | " << anchor->side << " | "
            << (ours.arguments.isEmpty() ? QStringLiteral("-") : ours.arguments) << " | "
            << formatMetric(metricValue(ours, metric), metric) << " | "
            << formatMetric(metricValue(*anchor, metric), metric) << " | " << QString::number(value, 'f', 3)
            << " |\n";
    }
    out << "\nThe read-out's counterpart, a tracker text, searches no curve and makes one line: its "
           "ratio tells what snapping to every curve costs beyond a coordinate display, not an "
           "overhead on equal work. The same holds for construction (our frame builds more tools) "
           "and for the JSON record, whose counterpart is Qt's serialisation alone.\n\n";
}

void writeAbsolute(QTextStream &out, const Report &report)
{
    out << "## Absolute figures\n\n"
        << "| benchmark | CPU time | wall time | runs | counters |\n|---|---|---|---|---|\n";
    for (const Result &result : report.results) {
        if (!result.error.isEmpty()) {
            out << "| " << result.name << " | error: " << result.error << " | | | |\n";
            continue;
        }
        QStringList counters;
        for (auto it = result.counters.constBegin(); it != result.counters.constEnd(); ++it)
            counters << it.key() + QLatin1Char('=') + formatNumber(it.value());
        const QString runs = result.aggregated
            ? QStringLiteral("median of %1").arg(result.repetitions)
            : QStringLiteral("%1 iterations").arg(formatNumber(result.iterations));
        out << "| " << result.name << " | " << formatTime(result.cpuNs) << " | " << formatTime(result.realNs)
            << " | " << runs << " | " << counters.join(QStringLiteral(", ")) << " |\n";
    }
    out << "\n";
}

void writeMachine(QTextStream &out, const QJsonObject &context, int repetitions)
{
    const auto text = [&context](const char *key) {
        const QJsonValue value = context.value(QLatin1String(key));
        return value.isDouble() ? QString::number(value.toDouble()) : value.toString();
    };
    QStringList load;
    for (const QJsonValue &value : context.value(QStringLiteral("load_avg")).toArray())
        load << QString::number(value.toDouble(), 'f', 2);

    out << "## Machine\n\n"
        << "- CPU: " << text("cpu_model") << ", " << text("num_cpus") << " cores at "
        << text("mhz_per_cpu") << " MHz (" << text("cpu_cores") << " usable threads)\n"
        << "- OS: " << text("os") << "; Qt " << text("qt_version") << ", Qwt " << text("qwt_version")
        << ", platform " << text("qpa_platform") << "\n"
        << "- load average at the start: " << text("load_average_at_start")
        << "; at the last program's start: " << load.join(QStringLiteral(" ")) << "\n"
        << "- run: " << text("date") << ", " << repetitions << " repetition(s) per benchmark"
        << (text("quick_mode") == QLatin1String("yes") ? QStringLiteral(", short run (BENCH_QUICK)")
                                                       : QString())
        << "\n\n"
        << "The machine is shared: wall times suffer most from other load; CPU times and the "
           "ratios, measured in one process, much less. Google Benchmark's own library may report "
           "itself as a debug build; that concerns its loop, not the code measured.\n\n";
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "usage: bench_report <out.md> <results.json>...\n");
        return 2;
    }

    QList<Result> results;
    QJsonObject context;
    for (const QString &path : arguments.mid(2)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "bench_report: cannot read %s\n", qPrintable(path));
            return 1;
        }
        // Google Benchmark writes NaN and Infinity (a coefficient of variation
        // of a mean of 0), which JSON does not know.
        QString text = QString::fromUtf8(file.readAll());
        static const QRegularExpression notANumber(QStringLiteral(":\\s*-?(NaN|Infinity|nan|inf)\\b"));
        text.replace(notANumber, QStringLiteral(": null"));
        QJsonParseError error;
        const QJsonObject document = QJsonDocument::fromJson(text.toUtf8(), &error).object();
        if (error.error != QJsonParseError::NoError) {
            // A program whose benchmarks were all filtered out writes nothing.
            if (!text.trimmed().isEmpty())
                std::fprintf(stderr, "bench_report: %s: %s\n", qPrintable(path), qPrintable(error.errorString()));
            continue;
        }
        const QJsonObject fileContext = document.value(QStringLiteral("context")).toObject();
        if (context.isEmpty())
            context = fileContext;
        else
            context.insert(QStringLiteral("load_avg"), fileContext.value(QStringLiteral("load_avg")));
        results << readResults(document.value(QStringLiteral("benchmarks")).toArray());
    }

    int repetitions = 1;
    for (const Result &result : std::as_const(results))
        repetitions = qMax(repetitions, result.repetitions);

    QString markdown;
    QTextStream out(&markdown);
    const Report report(results);
    out << "# Figura benchmarks\n\n"
        << "Our classes against bare Qwt doing the same work; the Benchmarks section of the "
           "README says what each measure does. The read-out is not measured on 100 curves of "
           "1e7 samples: 1e9 pairs of doubles (16 GB) are more than a shared machine should "
           "hold.\n\n";
    writeRatios(out, report);
    writeTargets(out, report);
    writeMachine(out, context, repetitions);
    writeAbsolute(out, report);
    out.flush();

    QFile output(arguments.at(1));
    if (!output.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        std::fprintf(stderr, "bench_report: cannot write %s\n", qPrintable(arguments.at(1)));
        return 1;
    }
    output.write(markdown.toUtf8());
    std::fputs(markdown.toUtf8().constData(), stdout);
    return 0;
}
