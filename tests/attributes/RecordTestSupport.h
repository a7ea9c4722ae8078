#pragma once

// Checks that every attribute record must pass alike: copies, equality and
// the keys they write.

#include <figura/defaults/PlotDefault.h>

#include <QApplication>
#include <QFont>
#include <QJsonObject>
#include <QStringList>
#include <QTest>

namespace RecordTest {

// The application font at the size of the plot's labels.
inline QFont applicationLabelFont()
{
    QFont font = QApplication::font();
    font.setPointSize(PlotDefault::LabelFontSize);
    return font;
}

inline QStringList sortedKeys(const QJsonObject &json)
{
    QStringList keys = json.keys();
    keys.sort();
    return keys;
}

// A copy, an assignment and a self-assignment all keep the values of source.
template <class Record>
void checkCopiesAndSelfAssignment(const Record &source)
{
    Record copy(source);
    QCOMPARE(copy, source);
    Record assigned;
    assigned = source;
    QCOMPARE(assigned, source);
    Record &self = assigned;
    assigned = self;
    QCOMPARE(assigned, source);
}

// A copy of a is equal to it until change() alters one of its fields.
template <class Record, class Change>
void checkEqualityNoticesChange(const Record &a, Change change)
{
    Record b = a;
    QVERIFY(a == b);
    QVERIFY(!(a != b));
    change(b);
    QVERIFY(!(a == b));
    QVERIFY(a != b);
}

} // namespace RecordTest
