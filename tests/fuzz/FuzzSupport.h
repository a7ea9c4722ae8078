#pragma once

// Shared pieces of the fuzz targets: one application object for the whole
// run, quiet logging, reading the input as a JSON object, and a check that
// stops the run with a message when a property of a reader does not hold.

#include <QApplication>
#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QtGlobal>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace FuzzSupport {

inline void quietMessageHandler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    // The readers log a little by design (QFont::fromString warns about a bad
    // description); at thousands of inputs a second that is only noise. A
    // fatal message still ends the run, as a crash the fuzzer reports.
    if (type == QtFatalMsg)
        std::fprintf(stderr, "qFatal: %s\n", qPrintable(message));
}

// The records read QApplication::font(), so the first input creates an
// offscreen application that lives until the process ends.
inline void ensureApplication()
{
    static QApplication *app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(quietMessageHandler);
        static int argc = 1;
        static char name[] = "figura-fuzz";
        static char *argv[] = {name, nullptr};
        return new QApplication(argc, argv);
    }();
    Q_UNUSED(app);
}

// True when the bytes are a JSON document whose top level is an object.
inline bool readJsonObject(const uint8_t *data, size_t size, QJsonObject &object)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    object = document.object();
    return true;
}

inline QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

[[noreturn]] inline void fail(const char *what, const char *file, int line, const QByteArray &detail)
{
    std::fprintf(stderr, "%s:%d: property failed: %s\n%s\n", file, line, what, detail.constData());
    std::abort();
}

} // namespace FuzzSupport

// Stops the run when a property of a reader does not hold; detail is a
// QByteArray with what differed.
#define FUZZ_CHECK(condition, detail)                                               \
    do {                                                                            \
        if (!(condition))                                                           \
            FuzzSupport::fail(#condition, __FILE__, __LINE__, (detail));            \
    } while (false)
