// figura-gallery: the plot classes of Figura with realistic data.
//
//   figura-gallery                     the gallery window
//   figura-gallery --screenshots DIR   every page as PNG (and one PDF) under
//                                      DIR, one path per line on stdout

#include "GalleryWindow.h"

#include <QApplication>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QDate>
#include <QDateTime>
#include <QTextStream>
#include <QTime>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Figura"));
    QCoreApplication::setApplicationName(QStringLiteral("figura-gallery"));
    QApplication::setStyle(QStringLiteral("Fusion"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "The plot classes of Figura with realistic data."));
    parser.addHelpOption();
    const QCommandLineOption screenshots(
        QStringLiteral("screenshots"),
        QCoreApplication::translate("main",
                                    "Render every page to PNG, and the curve plot to PDF, "
                                    "under <dir>, print the paths and quit."),
        QStringLiteral("dir"));
    parser.addOption(screenshots);
    parser.process(app);

    if (parser.isSet(screenshots)) {
        // Pictures that do not change from run to run: no stored looks, no
        // live data, a fixed start of the trend.
        GalleryOptions options;
        options.live = false;
        options.persistent = false;
        options.recordStart = QDateTime(QDate(2024, 5, 14), QTime(9, 30, 0));
        GalleryWindow window(options);
        QString error;
        const QStringList written = window.renderScreenshots(parser.value(screenshots), &error);
        QTextStream out(stdout);
        for (const QString &path : written)
            out << path << '\n';
        out.flush();
        if (!error.isEmpty()) {
            QTextStream(stderr) << "figura-gallery: " << error << '\n';
            return 1;
        }
        return 0;
    }

    GalleryWindow window;
    window.show();
    return app.exec();
}
