#include <figura/dialogs/ColorTextEdit.h>

#include <TestSupport.h>

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using TestSupport::WhenShown;

namespace {

// Reaches the two members a host subclass sees.
class ColorTextEditUnderTest : public ColorTextEdit
{
public:
    using ColorTextEdit::ColorTextEdit;
    using ColorTextEdit::colorButton;
    using ColorTextEdit::lineEdit;
};

QColor iconCentre(const QToolButton *button)
{
    return QColor(button->icon().pixmap(20, 20).toImage().pixel(10, 10));
}

QPushButton *boxButton(QWidget *dialog, QDialogButtonBox::StandardButton which)
{
    auto *box = dialog->findChild<QDialogButtonBox *>();
    return box ? box->button(which) : nullptr;
}

} // namespace

class tst_ColorTextEdit : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void constructionShowsTitleTextAndColour();
    void layoutPlacesLabelsEditAndButton();
    void okAcceptsWithEditedText();
    void cancelRejects();
    void colourButtonOpensDialogOnCurrentColour();
    void acceptedColourReplacesNameAndIcon();
    void cancelledColourDialogKeepsColour();

private:
    QTemporaryDir m_cfg;
};

void tst_ColorTextEdit::initTestCase()
{
    // The colour dialog remembers custom colours in Qt's own settings.
    QVERIFY(TestSupport::redirectSettings(m_cfg));
}

void tst_ColorTextEdit::cleanup()
{
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_ColorTextEdit::constructionShowsTitleTextAndColour()
{
    QWidget parent;
    ColorTextEditUnderTest edit(QStringLiteral("Peak label"), QStringLiteral("m/z 44"),
                                QStringLiteral("#123456"), &parent);
    QCOMPARE(edit.parentWidget(), &parent);
    QCOMPARE(edit.windowTitle(), QStringLiteral("Peak label"));
    QCOMPARE(edit.text(), QStringLiteral("m/z 44"));
    QCOMPARE(edit.namedColor(), QStringLiteral("#123456"));

    QVERIFY(edit.lineEdit);
    QCOMPARE(edit.lineEdit->parentWidget(), &edit);
    QCOMPARE(edit.lineEdit->minimumWidth(), 250);

    QVERIFY(edit.colorButton);
    QCOMPARE(edit.colorButton->parentWidget(), &edit);
    QVERIFY(edit.colorButton->autoRaise());
    QCOMPARE(edit.colorButton->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(edit.colorButton->icon().availableSizes().value(0), QSize(20, 20));
    QCOMPARE(iconCentre(edit.colorButton), QColor(0x12, 0x34, 0x56));
}

void tst_ColorTextEdit::layoutPlacesLabelsEditAndButton()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QString(), QStringLiteral("red"));
    auto *outer = qobject_cast<QVBoxLayout *>(edit.layout());
    QVERIFY(outer);
    QCOMPARE(outer->spacing(), 18);
    QCOMPARE(outer->count(), 2);

    auto *grid = qobject_cast<QGridLayout *>(outer->itemAt(0)->layout());
    QVERIFY(grid);
    QCOMPARE(grid->spacing(), 12);
    auto *textLabel = qobject_cast<QLabel *>(grid->itemAtPosition(0, 0)->widget());
    auto *colorLabel = qobject_cast<QLabel *>(grid->itemAtPosition(0, 1)->widget());
    QVERIFY(textLabel && colorLabel);
    QCOMPARE(textLabel->text(), QStringLiteral("Enter new text"));
    QCOMPARE(colorLabel->text(), QStringLiteral("Color"));
    QCOMPARE(grid->itemAtPosition(1, 0)->widget(), edit.lineEdit);
    QCOMPARE(grid->itemAtPosition(1, 1)->widget(), edit.colorButton);

    auto *box = qobject_cast<QDialogButtonBox *>(outer->itemAt(1)->widget());
    QVERIFY(box);
    QCOMPARE(box->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
}

void tst_ColorTextEdit::okAcceptsWithEditedText()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QStringLiteral("old"), QStringLiteral("#00ff00"));
    WhenShown answer([&] { return QApplication::activeModalWidget() == &edit ? &edit : nullptr; },
                     [&](QWidget *) {
                         edit.lineEdit->clear();
                         QTest::keyClicks(edit.lineEdit, QStringLiteral("new text"));
                         QTest::mouseClick(boxButton(&edit, QDialogButtonBox::Ok), Qt::LeftButton);
                     });
    QCOMPARE(edit.exec(), int(QDialog::Accepted));
    QVERIFY(answer.fired());
    QCOMPARE(edit.text(), QStringLiteral("new text"));
    QCOMPARE(edit.namedColor(), QStringLiteral("#00ff00"));
}

void tst_ColorTextEdit::cancelRejects()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QStringLiteral("old"), QStringLiteral("#00ff00"));
    WhenShown answer([&] { return QApplication::activeModalWidget() == &edit ? &edit : nullptr; },
                     [&](QWidget *) {
                         QTest::mouseClick(boxButton(&edit, QDialogButtonBox::Cancel), Qt::LeftButton);
                     });
    QCOMPARE(edit.exec(), int(QDialog::Rejected));
    QVERIFY(answer.fired());
}

void tst_ColorTextEdit::colourButtonOpensDialogOnCurrentColour()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QString(), QStringLiteral("#336699"));
    QVERIFY(TestSupport::showActive(edit));

    QColor initial;
    QWidget *dialogParent = nullptr;
    WhenShown answer([] { return qobject_cast<QColorDialog *>(QApplication::activeModalWidget()); },
                     [&](QWidget *w) {
                         auto *dialog = static_cast<QColorDialog *>(w);
                         initial = dialog->currentColor();
                         dialogParent = dialog->parentWidget();
                         static_cast<QDialog *>(dialog)->reject();
                     });
    QTest::mouseClick(edit.colorButton, Qt::LeftButton);
    QVERIFY(answer.fired());
    QCOMPARE(initial, QColor(0x33, 0x66, 0x99));
    QCOMPARE(dialogParent, &edit);
}

void tst_ColorTextEdit::acceptedColourReplacesNameAndIcon()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QString(), QStringLiteral("blue"));
    QVERIFY(TestSupport::showActive(edit));

    WhenShown answer([] { return qobject_cast<QColorDialog *>(QApplication::activeModalWidget()); },
                     [](QWidget *w) {
                         auto *dialog = static_cast<QColorDialog *>(w);
                         dialog->setCurrentColor(QColor(250, 128, 10));
                         static_cast<QDialog *>(dialog)->accept();
                     });
    QTest::mouseClick(edit.colorButton, Qt::LeftButton);
    QVERIFY(answer.fired());
    QCOMPARE(edit.namedColor(), QStringLiteral("#fa800a"));
    QCOMPARE(iconCentre(edit.colorButton), QColor(250, 128, 10));
}

void tst_ColorTextEdit::cancelledColourDialogKeepsColour()
{
    ColorTextEditUnderTest edit(QStringLiteral("t"), QString(), QStringLiteral("blue"));
    QVERIFY(TestSupport::showActive(edit));

    WhenShown answer([] { return qobject_cast<QColorDialog *>(QApplication::activeModalWidget()); },
                     [](QWidget *w) {
                         auto *dialog = static_cast<QColorDialog *>(w);
                         dialog->setCurrentColor(Qt::red);
                         static_cast<QDialog *>(dialog)->reject();
                     });
    QTest::mouseClick(edit.colorButton, Qt::LeftButton);
    QVERIFY(answer.fired());
    QCOMPARE(edit.namedColor(), QStringLiteral("blue"));
    QCOMPARE(iconCentre(edit.colorButton), QColor(Qt::blue));
}

QTEST_MAIN(tst_ColorTextEdit)
#include "tst_colortextedit.moc"
