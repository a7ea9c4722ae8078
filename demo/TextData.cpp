#include "TextData.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QSaveFile>

#include <map>

namespace TextData {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("TextData", text);
}

QString number(double value)
{
    return QString::number(value, 'g', 8);
}

// Where the next file dialog starts: the folder of the last export of this
// run, the home folder at first.
QString &lastDirectory()
{
    static QString directory = QDir::homePath();
    return directory;
}

} // namespace

XColumns numberColumn(const QString &title)
{
    return {QStringList{title}, [](double x) { return QStringList{number(x)}; }};
}

QString csvField(const QString &text)
{
    if (!text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"'))
        && !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r')))
        return text;
    QString quoted = text;
    quoted.replace(QStringLiteral("\""), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QString toCsv(const XColumns &x, const QList<Series> &series)
{
    // x value -> one cell per series, empty where a series has no sample there.
    std::map<double, QStringList> rows;
    const int columns = int(series.size());
    for (int column = 0; column < columns; ++column) {
        for (const QPointF &sample : series.at(column).samples) {
            QStringList &row = rows[sample.x()];
            if (row.isEmpty()) {
                for (int i = 0; i < columns; ++i)
                    row.append(QString());
            }
            row[column] = number(sample.y());
        }
    }

    QStringList header;
    for (const QString &title : x.titles)
        header.append(csvField(title));
    for (const Series &s : series)
        header.append(csvField(s.title));

    QString csv = header.join(QLatin1Char(',')) + QLatin1Char('\n');
    for (const auto &[xValue, cells] : rows) {
        QStringList line;
        for (const QString &cell : x.cells(xValue))
            line.append(csvField(cell));
        line.append(cells);
        csv += line.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return csv;
}

void copyToClipboard(const QString &csv)
{
    auto *mime = new QMimeData;
    mime->setText(csv);
    mime->setData(QStringLiteral("text/csv"), csv.toUtf8());
    QGuiApplication::clipboard()->setMimeData(mime);
}

bool saveToFile(QWidget *parent, const QString &suggestedName, const QString &csv)
{
    const QString fileName = QFileDialog::getSaveFileName(
        parent, tr("Export Text Data"), QDir(lastDirectory()).filePath(suggestedName),
        tr("CSV files (*.csv);;Text files (*.txt);;All files (*)"));
    if (fileName.isEmpty())
        return false;
    lastDirectory() = QFileInfo(fileName).absolutePath();

    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        file.write(csv.toUtf8());
        if (file.commit())
            return true;
    }
    QMessageBox::warning(parent, tr("Export Text Data"),
                         tr("Could not write %1: %2")
                             .arg(QDir::toNativeSeparators(fileName), file.errorString()));
    return false;
}

} // namespace TextData
