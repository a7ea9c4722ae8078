#pragma once

// "Text Data" and "Text Data..." of the gallery's plots: the visible series
// as comma-separated values, to the clipboard or to a file. The library
// leaves text export to the host, which knows what its numbers mean.

#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class QWidget;

namespace TextData {

struct Series
{
    QString title;
    QVector<QPointF> samples; // ascending x
};

// How the x value of a row is written: one or more leading cells.
struct XColumns
{
    QStringList titles;
    std::function<QStringList(double)> cells;
};

// Plain numbers in C locale with 8 significant digits, one column.
XColumns numberColumn(const QString &title);

// One row per x value that any series has, one column per series; a series
// without a sample at that x leaves its cell empty, so series with
// different x values stay readable. The first row holds the titles. Lines
// end in "\n", and fields with a comma, a quote or a line break are quoted.
QString toCsv(const XColumns &x, const QList<Series> &series);

// One field, quoted where CSV needs it.
QString csvField(const QString &text);

// Puts the text on the clipboard as plain text and as "text/csv".
void copyToClipboard(const QString &csv);

// Asks for a file, starting with suggestedName in the directory of the last
// export, and writes csv there. False when the user cancels or the file
// cannot be written; the latter is also told in a message box.
bool saveToFile(QWidget *parent, const QString &suggestedName, const QString &csv);

} // namespace TextData
