#include <figura/dialogs/CustomScaleDialog.h>

#include <TestSupport.h>

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <limits>

using TestSupport::WhenShown;

namespace {

constexpr double NoRightLower = std::numeric_limits<double>::min();
constexpr double NoRightUpper = std::numeric_limits<double>::max();

const char XLowerBad[] = "Invalid X-axis lowerbound value";
const char XUpperBad[] = "Invalid X-axis upperbound value";
const char YLowerBad[] = "Invalid Y-axis lowerbound value";
const char YUpperBad[] = "Invalid Y-axis upperbound value";
const char RightLowerBad[] = "Invalid right Y-axis lowerbound value";
const char RightUpperBad[] = "Invalid right Y-axis upperbound value";
const char XOrder[] = "Invalid X-axis boudaries. The lowerbound value must be less than the "
                      "upperbound value";
const char YOrder[] = "Invalid Y-axis boudaries. The lowerbound value must be less than the "
                      "upperbound value";
const char RightOrder[] = "Invalid right Y-axis boudaries. The lowerbound value must be less "
                          "than the upperbound value";

QLineEdit *edit(QWidget &dialog, const char *name)
{
    return dialog.findChild<QLineEdit *>(QLatin1String(name));
}

QPushButton *button(QWidget &dialog, const char *name)
{
    return dialog.findChild<QPushButton *>(QLatin1String(name));
}

QGroupBox *groupBox(QWidget &dialog, const char *name)
{
    return dialog.findChild<QGroupBox *>(QLatin1String(name));
}

// What the error box showed when it was answered.
struct ErrorBox
{
    bool shown = false;
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    QWidget *parent = nullptr;
};

// Clicks OK on a dialog that is showing, answers the message box that may
// come up with its OK button and tells what it showed.
ErrorBox clickOk(CustomScaleDialog &dialog)
{
    ErrorBox box;
    WhenShown answer([] { return qobject_cast<QMessageBox *>(QApplication::activeModalWidget()); },
                     [&box](QWidget *w) {
                         auto *message = static_cast<QMessageBox *>(w);
                         box.shown = true;
                         box.title = message->windowTitle();
                         box.text = message->text();
                         box.icon = message->icon();
                         box.buttons = message->standardButtons();
                         box.parent = message->parentWidget();
                         QTest::mouseClick(message->button(QMessageBox::Ok), Qt::LeftButton);
                     });
    QTest::mouseClick(button(dialog, "okButton"), Qt::LeftButton);
    return box;
}

void setTexts(CustomScaleDialog &dialog, const QString &xLower, const QString &xUpper,
              const QString &yLower, const QString &yUpper, const QString &rightLower,
              const QString &rightUpper)
{
    edit(dialog, "xAxisLowerEdit")->setText(xLower);
    edit(dialog, "xAxisUpperEdit")->setText(xUpper);
    edit(dialog, "yAxisLowerEdit")->setText(yLower);
    edit(dialog, "yAxisUpperEdit")->setText(yUpper);
    edit(dialog, "yRightAxisLowerEdit")->setText(rightLower);
    edit(dialog, "yRightAxisUpperEdit")->setText(rightUpper);
}

} // namespace

class tst_CustomScaleDialog : public QObject
{
    Q_OBJECT

public:
    static void initMain() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

private slots:
    void init();
    void cleanup();

    void formHasNamedWidgetsAndLayouts();
    void massScaleShowsXWithTwoDecimals();
    void timeScaleShowsXAsMaskedTime();
    void otherScaleTypeLeavesXEmpty();
    void yBoundsStartInExponentBelowOneTenth_data();
    void yBoundsStartInExponentBelowOneTenth();
    void rightBoundsStartFormattedLikeY();
    void noRightAxisDisablesItsGroupAndLeavesItEmpty();
    void textsFollowTheLocale();

    void okReportsTheLastFailingCheck_data();
    void okReportsTheLastFailingCheck();
    void disabledRightGroupCausesNoError();
    void timeMaskForcesItsForm();
    void partlyTypedTimeIsRefused();

    void okAcceptsAndGettersReturnBounds();
    void okOnTimeScaleGivesSecondsAndNoRightAxisNeedsNoInput();
    void errorKeepsDialogOpenUntilCorrected();
    void cancelRejects();
};

void tst_CustomScaleDialog::init()
{
    QLocale::setDefault(QLocale::c());
}

void tst_CustomScaleDialog::cleanup()
{
    QLocale::setDefault(QLocale::c());
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_CustomScaleDialog::formHasNamedWidgetsAndLayouts()
{
    QWidget parent;
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, 0, 1, &parent);
    QCOMPARE(dialog.parentWidget(), &parent);
    QCOMPARE(dialog.objectName(), QStringLiteral("CustomScaleDialog"));
    QCOMPARE(dialog.size(), QSize(392, 339));
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Custom Scale"));
    QCOMPARE(dialog.whatsThis(), QStringLiteral(" "));

    auto *outer = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QStringLiteral("verticalLayout_5"));

    struct Group
    {
        const char *box, *title, *grid, *left, *right, *fromLabel, *lower, *toLabel, *upper;
    };
    const Group groups[] = {
        {"xAxisGroupBox", "X-Axis:", "gridLayout", "verticalLayout", "verticalLayout_2",
         "fromLabel", "xAxisLowerEdit", "toLabel", "xAxisUpperEdit"},
        {"yAxisGroupBox", "Y-Axis", "gridLayout_2", "verticalLayout_3", "verticalLayout_4",
         "fromLabel_2", "yAxisLowerEdit", "toLabel_2", "yAxisUpperEdit"},
        {"yRightAxisGroupBox", "Right Y-Axis", "gridLayout_3", "verticalLayout_6",
         "verticalLayout_7", "fromLabel_3", "yRightAxisLowerEdit", "toLabel_3",
         "yRightAxisUpperEdit"},
    };
    for (int i = 0; i < 3; ++i) {
        const Group &g = groups[i];
        QGroupBox *box = groupBox(dialog, g.box);
        QVERIFY2(box, g.box);
        QCOMPARE(outer->itemAt(i)->widget(), box);
        QCOMPARE(box->title(), QString::fromLatin1(g.title));

        auto *grid = qobject_cast<QGridLayout *>(box->layout());
        QVERIFY(grid);
        QCOMPARE(grid->objectName(), QString::fromLatin1(g.grid));
        QCOMPARE(grid->horizontalSpacing(), 12);

        auto *left = qobject_cast<QVBoxLayout *>(grid->itemAtPosition(0, 0)->layout());
        auto *right = qobject_cast<QVBoxLayout *>(grid->itemAtPosition(0, 1)->layout());
        QVERIFY(left && right);
        QCOMPARE(left->objectName(), QString::fromLatin1(g.left));
        QCOMPARE(right->objectName(), QString::fromLatin1(g.right));

        auto *fromLabel = qobject_cast<QLabel *>(left->itemAt(0)->widget());
        auto *toLabel = qobject_cast<QLabel *>(right->itemAt(0)->widget());
        QVERIFY(fromLabel && toLabel);
        QCOMPARE(fromLabel->objectName(), QString::fromLatin1(g.fromLabel));
        QCOMPARE(fromLabel->text(), QStringLiteral("From"));
        QCOMPARE(toLabel->objectName(), QString::fromLatin1(g.toLabel));
        QCOMPARE(toLabel->text(), QStringLiteral("To"));
        QCOMPARE(left->itemAt(1)->widget(), edit(dialog, g.lower));
        QCOMPARE(right->itemAt(1)->widget(), edit(dialog, g.upper));
        QVERIFY(!edit(dialog, g.lower)->validator());
        QVERIFY(!edit(dialog, g.upper)->validator());
    }

    auto *buttons = qobject_cast<QHBoxLayout *>(outer->itemAt(3)->layout());
    QVERIFY(buttons);
    QCOMPARE(buttons->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(buttons->contentsMargins().top(), 12);
    QVERIFY(buttons->itemAt(0)->spacerItem());
    QCOMPARE(buttons->itemAt(1)->widget(), button(dialog, "okButton"));
    QCOMPARE(buttons->itemAt(2)->widget(), button(dialog, "cancelButton"));
    QCOMPARE(button(dialog, "okButton")->text(), QStringLiteral("OK"));
    QCOMPARE(button(dialog, "cancelButton")->text(), QStringLiteral("Cancel"));
}

void tst_CustomScaleDialog::massScaleShowsXWithTwoDecimals()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 123.456, 1e-9, 1e-5, 0, 1);
    QCOMPARE(groupBox(dialog, "xAxisGroupBox")->title(), QStringLiteral("X-Axis:"));
    QVERIFY(edit(dialog, "xAxisLowerEdit")->inputMask().isEmpty());
    QVERIFY(edit(dialog, "xAxisUpperEdit")->inputMask().isEmpty());
    QCOMPARE(edit(dialog, "xAxisLowerEdit")->text(), QStringLiteral("1.00"));
    QCOMPARE(edit(dialog, "xAxisUpperEdit")->text(), QStringLiteral("123.46"));
}

void tst_CustomScaleDialog::timeScaleShowsXAsMaskedTime()
{
    CustomScaleDialog dialog(CustomScale::TimeScale, 3661, 360000, 1e-9, 1e-5, 0, 1);
    QCOMPARE(groupBox(dialog, "xAxisGroupBox")->title(), QStringLiteral("X-Axis: Time (hh:mm:ss)"));
    for (const char *name : {"xAxisLowerEdit", "xAxisUpperEdit"}) {
        QLineEdit *x = edit(dialog, name);
        QVERIFY(x->inputMask().startsWith(QStringLiteral("000:00:00")));
        // Other edits take plain text.
        QVERIFY(edit(dialog, "yAxisLowerEdit")->inputMask().isEmpty());
    }
    QCOMPARE(edit(dialog, "xAxisLowerEdit")->text(), QStringLiteral("001:01:01"));
    QCOMPARE(edit(dialog, "xAxisUpperEdit")->text(), QStringLiteral("100:00:00"));
}

void tst_CustomScaleDialog::otherScaleTypeLeavesXEmpty()
{
    CustomScaleDialog dialog(CustomScale::XScaleType(7), 1, 10, 1e-9, 1e-5, 0, 1);
    QCOMPARE(groupBox(dialog, "xAxisGroupBox")->title(), QStringLiteral("X-Axis"));
    QVERIFY(edit(dialog, "xAxisLowerEdit")->text().isEmpty());
    QVERIFY(edit(dialog, "xAxisUpperEdit")->text().isEmpty());
    QVERIFY(edit(dialog, "xAxisLowerEdit")->inputMask().isEmpty());

    // No X check at all on such a scale: empty X texts pass.
    QVERIFY(TestSupport::showActive(dialog));
    const ErrorBox box = clickOk(dialog);
    QVERIFY(!box.shown);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

void tst_CustomScaleDialog::yBoundsStartInExponentBelowOneTenth_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0.05") << 0.05 << "5.00e-02";
    QTest::newRow("0.1") << 0.1 << "0.10";
    QTest::newRow("0") << 0.0 << "0.00e+00";
    QTest::newRow("-5 by its absolute value") << -5.0 << "-5.00";
    QTest::newRow("-0.05") << -0.05 << "-5.00e-02";
    QTest::newRow("1e-14") << 1e-14 << "1.00e-14";
    QTest::newRow("1234.567") << 1234.567 << "1234.57";
}

void tst_CustomScaleDialog::yBoundsStartInExponentBelowOneTenth()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, value, value, NoRightLower, NoRightUpper);
    QCOMPARE(edit(dialog, "yAxisLowerEdit")->text(), text);
    QCOMPARE(edit(dialog, "yAxisUpperEdit")->text(), text);
}

void tst_CustomScaleDialog::rightBoundsStartFormattedLikeY()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, 0.05, 250);
    QVERIFY(groupBox(dialog, "yRightAxisGroupBox")->isEnabled());
    QCOMPARE(edit(dialog, "yRightAxisLowerEdit")->text(), QStringLiteral("5.00e-02"));
    QCOMPARE(edit(dialog, "yRightAxisUpperEdit")->text(), QStringLiteral("250.00"));
}

void tst_CustomScaleDialog::noRightAxisDisablesItsGroupAndLeavesItEmpty()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QVERIFY(!groupBox(dialog, "yRightAxisGroupBox")->isEnabled());
    QVERIFY(edit(dialog, "yRightAxisLowerEdit")->text().isEmpty());
    QVERIFY(edit(dialog, "yRightAxisUpperEdit")->text().isEmpty());

    // Only the exact pair means "no right axis".
    CustomScaleDialog other(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, NoRightLower, 1.0);
    QVERIFY(groupBox(other, "yRightAxisGroupBox")->isEnabled());
}

void tst_CustomScaleDialog::textsFollowTheLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    CustomScaleDialog dialog(CustomScale::MassScale, 1.5, 10, 0.5, 2, NoRightLower, NoRightUpper);
    QCOMPARE(edit(dialog, "xAxisLowerEdit")->text(), QStringLiteral("1,50"));
    QCOMPARE(edit(dialog, "yAxisLowerEdit")->text(), QStringLiteral("0,50"));

    edit(dialog, "yAxisUpperEdit")->setText(QStringLiteral("2,75"));
    QCOMPARE(dialog.yUpper(), 2.75);
    QCOMPARE(dialog.xLower(), 1.5);
}

void tst_CustomScaleDialog::okReportsTheLastFailingCheck_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("texts"); // x lower, x upper, y lower, y upper, right lower, right upper
    QTest::addColumn<QString>("message");

    const int mass = CustomScale::MassScale;
    const int time = CustomScale::TimeScale;
    auto row = [](const char *name, int type, QStringList texts, const char *message) {
        QTest::newRow(name) << type << texts << QString::fromLatin1(message);
    };

    row("bad x lower", mass, {"x", "10", "0", "1", "0", "1"}, XLowerBad);
    row("empty x lower", mass, {"", "10", "0", "1", "0", "1"}, XLowerBad);
    row("bad x upper", mass, {"1", "ten", "0", "1", "0", "1"}, XUpperBad);
    row("bad x lower and upper", mass, {"a", "b", "0", "1", "0", "1"}, XUpperBad);
    row("bad y lower", mass, {"1", "10", "y", "1", "0", "1"}, YLowerBad);
    row("bad y upper", mass, {"1", "10", "0", "", "0", "1"}, YUpperBad);
    row("bad right lower", mass, {"1", "10", "0", "1", "r", "1"}, RightLowerBad);
    row("bad right upper", mass, {"1", "10", "0", "1", "0", "r"}, RightUpperBad);
    row("bad y lower wins over bad x lower", mass, {"x", "10", "y", "1", "0", "1"}, YLowerBad);
    row("bad right wins over bad y", mass, {"1", "10", "y", "1", "0", "r"}, RightUpperBad);
    row("nan is no bound", mass, {"1", "10", "nan", "1", "0", "1"}, YLowerBad);
    row("infinity is no bound", mass, {"1", "inf", "0", "1", "0", "1"}, XUpperBad);
    row("comma in the C locale", mass, {"1", "10", "0,5", "1", "0", "1"}, YLowerBad);

    row("equal x", mass, {"5", "5", "0", "1", "0", "1"}, XOrder);
    row("equal y", mass, {"1", "10", "0.5", "0.5", "0", "1"}, YOrder);
    row("equal right", mass, {"1", "10", "0", "1", "2", "2"}, RightOrder);
    row("reversed x", mass, {"10", "1", "0", "1", "0", "1"}, XOrder);
    row("reversed y", mass, {"1", "10", "1e-5", "1e-9", "0", "1"}, YOrder);
    row("reversed right", mass, {"1", "10", "0", "1", "1", "0"}, RightOrder);
    row("reversed x and y gives y", mass, {"10", "1", "1", "0", "0", "1"}, YOrder);
    row("all reversed gives right", mass, {"10", "1", "1", "0", "1", "0"}, RightOrder);
    row("bad value hides reversed bounds", mass, {"x", "10", "1", "0", "1", "0"}, XLowerBad);
    row("bad right value hides reversed x", mass, {"10", "1", "0", "1", "0", "?"}, RightUpperBad);

    row("bad time lower", time, {"001:00:", "002:00:00", "0", "1", "0", "1"}, XLowerBad);
    row("bad time upper", time, {"001:00:00", "", "0", "1", "0", "1"}, XUpperBad);
    row("equal times", time, {"001:00:00", "001:00:00", "0", "1", "0", "1"}, XOrder);
    row("reversed times", time, {"002:00:00", "001:59:59", "0", "1", "0", "1"}, XOrder);
    row("reversed times and y gives y", time, {"002:00:00", "001:00:00", "1", "0", "0", "1"},
        YOrder);
}

void tst_CustomScaleDialog::okReportsTheLastFailingCheck()
{
    QFETCH(int, type);
    QFETCH(QStringList, texts);
    QFETCH(QString, message);

    CustomScaleDialog dialog(CustomScale::XScaleType(type), 1, 10, 1e-9, 1e-5, 0, 1);
    QVERIFY(TestSupport::showActive(dialog));
    setTexts(dialog, texts[0], texts[1], texts[2], texts[3], texts[4], texts[5]);

    const ErrorBox box = clickOk(dialog);
    QVERIFY(box.shown);
    QCOMPARE(box.text, message);
    QCOMPARE(box.title, QStringLiteral("Error"));
    QCOMPARE(box.icon, QMessageBox::Critical);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.parent, &dialog);

    // The dialog stays open with the user's text.
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(edit(dialog, "yAxisLowerEdit")->text(), texts[2]);
    QCOMPARE(edit(dialog, "yRightAxisUpperEdit")->text(), texts[5]);
}

void tst_CustomScaleDialog::disabledRightGroupCausesNoError()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QVERIFY(TestSupport::showActive(dialog));
    const ErrorBox box = clickOk(dialog);
    QVERIFY2(!box.shown, qPrintable(box.text));
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void tst_CustomScaleDialog::timeMaskForcesItsForm()
{
    CustomScaleDialog dialog(CustomScale::TimeScale, 0, 300, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QVERIFY(TestSupport::showActive(dialog));
    QLineEdit *lower = edit(dialog, "xAxisLowerEdit");
    lower->setFocus();
    lower->selectAll();
    QTest::keyClick(lower, Qt::Key_Delete);
    lower->home(false);
    QTest::keyClicks(lower, QStringLiteral("1a23x4567890"));
    QCOMPARE(lower->text(), QStringLiteral("123:45:67"));
    QCOMPARE(dialog.xLower(), (123 * 60 + 45) * 60 + 67.0);
}

void tst_CustomScaleDialog::partlyTypedTimeIsRefused()
{
    CustomScaleDialog dialog(CustomScale::TimeScale, 0, 300, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    QVERIFY(TestSupport::showActive(dialog));
    QLineEdit *lower = edit(dialog, "xAxisLowerEdit");
    lower->setFocus();
    lower->selectAll();
    QTest::keyClick(lower, Qt::Key_Delete);
    lower->home(false);
    QTest::keyClicks(lower, QStringLiteral("12"));

    const ErrorBox box = clickOk(dialog);
    QVERIFY(box.shown);
    QCOMPARE(box.text, QString::fromLatin1(XLowerBad));
    QVERIFY(dialog.isVisible());
}

void tst_CustomScaleDialog::okAcceptsAndGettersReturnBounds()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, 0, 1);
    WhenShown fill([&] { return QApplication::activeModalWidget() == &dialog ? &dialog : nullptr; },
                   [&](QWidget *) {
                       setTexts(dialog, QStringLiteral("2.5"), QStringLiteral("44"),
                                QStringLiteral("1e-12"), QStringLiteral("0.25"),
                                QStringLiteral("-3"), QStringLiteral("7.5"));
                       const ErrorBox box = clickOk(dialog);
                       QVERIFY2(!box.shown, qPrintable(box.text));
                   });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(fill.fired());
    QCOMPARE(dialog.xLower(), 2.5);
    QCOMPARE(dialog.xUpper(), 44.0);
    QCOMPARE(dialog.yLower(), 1e-12);
    QCOMPARE(dialog.yUpper(), 0.25);
    QCOMPARE(dialog.yRightLower(), -3.0);
    QCOMPARE(dialog.yRightUpper(), 7.5);
}

void tst_CustomScaleDialog::okOnTimeScaleGivesSecondsAndNoRightAxisNeedsNoInput()
{
    CustomScaleDialog dialog(CustomScale::TimeScale, 60, 7200, 1e-9, 1e-5, NoRightLower, NoRightUpper);
    WhenShown fill([&] { return QApplication::activeModalWidget() == &dialog ? &dialog : nullptr; },
                   [&](QWidget *) {
                       edit(dialog, "xAxisUpperEdit")->setText(QStringLiteral("010:00:30"));
                       const ErrorBox box = clickOk(dialog);
                       QVERIFY2(!box.shown, qPrintable(box.text));
                   });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(fill.fired());
    QCOMPARE(dialog.xLower(), 60.0);
    QCOMPARE(dialog.xUpper(), 36030.0);
    QCOMPARE(dialog.yLower(), 1e-9);
    QCOMPARE(dialog.yUpper(), 1e-5);
}

void tst_CustomScaleDialog::errorKeepsDialogOpenUntilCorrected()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, 0, 1);
    QStringList messages;
    WhenShown fill([&] { return QApplication::activeModalWidget() == &dialog ? &dialog : nullptr; },
                   [&](QWidget *) {
                       edit(dialog, "yAxisUpperEdit")->setText(QStringLiteral("1e-20"));
                       const ErrorBox first = clickOk(dialog);
                       messages << first.text;
                       // Still open and modal: correct the value and try again.
                       QVERIFY(dialog.isVisible());
                       edit(dialog, "yAxisUpperEdit")->setText(QStringLiteral("1e-3"));
                       const ErrorBox second = clickOk(dialog);
                       QVERIFY2(!second.shown, qPrintable(second.text));
                   });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QVERIFY(fill.fired());
    QCOMPARE(messages, QStringList{QString::fromLatin1(YOrder)});
    QCOMPARE(dialog.yUpper(), 1e-3);
}

void tst_CustomScaleDialog::cancelRejects()
{
    CustomScaleDialog dialog(CustomScale::MassScale, 1, 10, 1e-9, 1e-5, 0, 1);
    WhenShown cancel([&] { return QApplication::activeModalWidget() == &dialog ? &dialog : nullptr; },
                     [&](QWidget *) {
                         // Even bad input does not stop a cancel.
                         edit(dialog, "xAxisLowerEdit")->setText(QStringLiteral("nonsense"));
                         QTest::mouseClick(button(dialog, "cancelButton"), Qt::LeftButton);
                     });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
    QVERIFY(cancel.fired());
}

QTEST_MAIN(tst_CustomScaleDialog)
#include "tst_customscaledialog.moc"
