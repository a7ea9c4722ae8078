#include <figura/dialogs/DoubleValidator.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <limits>

class tst_DoubleValidator : public QObject
{
    Q_OBJECT

private slots:
    void defaultConstructorAllowsTwentyDecimals();
    void rangeConstructorKeepsRangeAndDecimals();
    void fixupClampsIntoRange_data();
    void fixupClampsIntoRange();
    void lineEditFixesUpOnReturn();
};

void tst_DoubleValidator::defaultConstructorAllowsTwentyDecimals()
{
    QObject owner;
    auto *validator = new DoubleValidator(&owner);
    QCOMPARE(validator->parent(), &owner);
    QCOMPARE(validator->decimals(), 20);
    QDoubleValidator base;
    QCOMPARE(validator->bottom(), base.bottom());
    QCOMPARE(validator->top(), base.top());
}

void tst_DoubleValidator::rangeConstructorKeepsRangeAndDecimals()
{
    DoubleValidator validator(-2.5, 7.0, 3);
    QCOMPARE(validator.bottom(), -2.5);
    QCOMPARE(validator.top(), 7.0);
    QCOMPARE(validator.decimals(), 3);
}

void tst_DoubleValidator::fixupClampsIntoRange_data()
{
    QTest::addColumn<double>("bottom");
    QTest::addColumn<double>("top");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("output");

    QTest::newRow("unreadable gives top") << -1e-05 << 1e-05 << "abc" << "1e-05";
    QTest::newRow("empty gives top") << -1e-05 << 1e-05 << "" << "1e-05";
    QTest::newRow("below bottom gives bottom") << -1e-05 << 1e-05 << "-1" << "-1e-05";
    QTest::newRow("above top gives top") << -1e-05 << 1e-05 << "1" << "1e-05";
    QTest::newRow("inside is kept") << -1e-05 << 1e-05 << "0.000001" << "1e-06";
    QTest::newRow("bottom itself") << -1e-05 << 1e-05 << "-0.00001" << "-1e-05";
    QTest::newRow("six significant digits") << 0.0 << 1e7 << "1234567" << "1.23457e+06";
    QTest::newRow("plain number") << 0.0 << 100.0 << "42.5" << "42.5";
    QTest::newRow("locale comma is unreadable") << 0.0 << 100.0 << "1,5" << "100";
    QTest::newRow("nan gives top") << 0.0 << 100.0 << "nan" << "100";
    QTest::newRow("infinity gives top") << 0.0 << 100.0 << "inf" << "100";
    QTest::newRow("minus infinity gives bottom") << 0.0 << 100.0 << "-inf" << "0";
}

void tst_DoubleValidator::fixupClampsIntoRange()
{
    QFETCH(double, bottom);
    QFETCH(double, top);
    QFETCH(QString, input);
    QFETCH(QString, output);

    DoubleValidator validator(bottom, top, 10);
    validator.fixup(input);
    QCOMPARE(input, output);
}

void tst_DoubleValidator::lineEditFixesUpOnReturn()
{
    QLineEdit edit;
    auto *validator = new DoubleValidator(0.0, 1.0, 3, &edit);
    validator->setLocale(QLocale::c());
    edit.setValidator(validator);
    edit.setText(QStringLiteral("5"));
    QVERIFY(!edit.hasAcceptableInput());

    QSignalSpy finished(&edit, &QLineEdit::editingFinished);
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.text(), QStringLiteral("1"));
    QCOMPARE(finished.count(), 1);
}

QTEST_MAIN(tst_DoubleValidator)
#include "tst_doublevalidator.moc"
