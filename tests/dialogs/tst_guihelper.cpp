#include <figura/dialogs/GuiHelper.h>

#include <TestSupport.h>

#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QFontInfo>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <qwt_text.h>

using TestSupport::WhenShown;

class tst_GuiHelper : public TestSupport::DialogTestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nullButtonIsIgnored();

    void setButtonFontShowsFamilyAndSize();
    void setButtonFontKeepsTheButtonsOwnSize();
    void setButtonFontStoresFontString();

    void setButtonColorShowsSquareAndName();
    void setButtonColorIgnoresInvalidColour();

    void chooseButtonColorStartsFromButtonColour();
    void chooseButtonColorOnNonColourTextStartsOnWhite_data();
    void chooseButtonColorOnNonColourTextStartsOnWhite();
    void chooseButtonColorKeepsAcceptedColour();
    void chooseButtonColorCancelledLeavesButton();

    void chooseButtonFontStartsFromFontString();
    void chooseButtonFontWithoutFontStringStartsFromDefaultFont();
    void chooseButtonFontKeepsAcceptedFont();
    void chooseButtonFontCancelledLeavesButton();

    void buttonFontReadsTheHeldFont();
    void buttonFontKeepsCurrentWhenTheButtonHoldsTheSameOrNothing();
    void buttonColorReadsTheNamedColour();
    void buttonColorKeepsCurrentAlphaWhenTheNameIsTheSame();
    void showFontAndColorLeavesColourButtonForInvalidColour();
    void showTitleFillsEditAndButtons();
    void editedTitleWithoutChangesIsTheTitle();
    void editedTitleTakesEditedTextFontAndColour();
    void editedTitleKeepsMissingColourWhileButtonShowsPaintedColour();

private:
    QTemporaryDir m_cfg;
};

namespace {

QColor iconCentre(const QAbstractButton &button, int side)
{
    const QImage image = button.icon().pixmap(side, side).toImage();
    return QColor(image.pixel(side / 2, side / 2));
}

// A family the font dialog can really offer on this machine.
QString availableFamily()
{
    return QFontInfo(QFont()).family();
}

QFont someFont()
{
    QFont font(availableFamily(), 23);
    font.setItalic(true);
    font.setBold(true);
    return font;
}

// Answers the colour dialog that a choose call opens: records its starting
// colour and parent, then accepts `answer` or, if it is invalid, cancels.
struct ColorDialogAnswer
{
    QColor answer;
    QColor initial;
    QWidget *parent = nullptr;

    WhenShown *start()
    {
        return new WhenShown(
            [] { return qobject_cast<QColorDialog *>(QApplication::activeModalWidget()); },
            [this](QWidget *w) {
                auto *dialog = static_cast<QColorDialog *>(w);
                initial = dialog->currentColor();
                parent = dialog->parentWidget();
                if (answer.isValid()) {
                    dialog->setCurrentColor(answer);
                    static_cast<QDialog *>(dialog)->accept();
                } else {
                    static_cast<QDialog *>(dialog)->reject();
                }
            });
    }
};

struct FontDialogAnswer
{
    bool accept = true;
    QFont answer;
    QFont initial;
    QWidget *parent = nullptr;

    WhenShown *start()
    {
        return new WhenShown(
            [] { return qobject_cast<QFontDialog *>(QApplication::activeModalWidget()); },
            [this](QWidget *w) {
                auto *dialog = static_cast<QFontDialog *>(w);
                initial = dialog->currentFont();
                parent = dialog->parentWidget();
                if (accept) {
                    dialog->setCurrentFont(answer);
                    static_cast<QDialog *>(dialog)->accept();
                } else {
                    static_cast<QDialog *>(dialog)->reject();
                }
            });
    }
};

} // namespace

void tst_GuiHelper::initTestCase()
{
    // The colour dialog remembers custom colours in Qt's own settings.
    QVERIFY(TestSupport::redirectSettings(m_cfg));
}

void tst_GuiHelper::cleanup()
{
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_GuiHelper::nullButtonIsIgnored()
{
    // A dialog opened for a null button would show up here.
    WhenShown guard([] { return QApplication::activeModalWidget(); },
                    [](QWidget *w) { static_cast<QDialog *>(w)->reject(); }, 200);
    GuiHelper::setButtonFont(nullptr, someFont());
    GuiHelper::setButtonColor(nullptr, Qt::red);
    GuiHelper::chooseButtonFont(nullptr);
    GuiHelper::chooseButtonColor(nullptr);
    QTest::qWait(100);
    QVERIFY(!guard.fired());
}

void tst_GuiHelper::setButtonFontShowsFamilyAndSize()
{
    QPushButton button;
    const QFont font = someFont();
    GuiHelper::setButtonFont(&button, font);
    QCOMPARE(button.text(), QStringLiteral("%1 (size 23)").arg(font.family()));
}

void tst_GuiHelper::setButtonFontKeepsTheButtonsOwnSize()
{
    QPushButton button;
    QFont own = button.font();
    own.setPointSize(9);
    button.setFont(own);

    GuiHelper::setButtonFont(&button, someFont());
    QCOMPARE(button.font().pointSize(), 9);
    QCOMPARE(button.font().family(), someFont().family());
    QVERIFY(button.font().italic());
    QVERIFY(button.font().bold());
}

void tst_GuiHelper::setButtonFontStoresFontString()
{
    QPushButton button;
    GuiHelper::setButtonFont(&button, someFont());
    QCOMPARE(button.property("fontString").toString(), someFont().toString());
}

void tst_GuiHelper::setButtonColorShowsSquareAndName()
{
    QToolButton button;
    button.resize(60, 26);
    GuiHelper::setButtonColor(&button, QColor(10, 20, 250));
    QCOMPARE(button.text(), QStringLiteral("#0a14fa"));
    QVERIFY(!button.icon().isNull());
    QCOMPARE(button.icon().availableSizes().value(0), QSize(26, 26));
    QCOMPARE(iconCentre(button, 26), QColor(10, 20, 250));
}

void tst_GuiHelper::setButtonColorIgnoresInvalidColour()
{
    QToolButton button;
    GuiHelper::setButtonColor(&button, Qt::green);
    const qint64 iconKey = button.icon().cacheKey();

    GuiHelper::setButtonColor(&button, QColor());
    QCOMPARE(button.text(), QStringLiteral("#00ff00"));
    QCOMPARE(button.icon().cacheKey(), iconKey);
}

void tst_GuiHelper::chooseButtonColorStartsFromButtonColour()
{
    QToolButton button;
    GuiHelper::setButtonColor(&button, QColor(0x12, 0x34, 0x56));

    ColorDialogAnswer dialog;
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonColor(&button);
    QVERIFY(answer->fired());
    QCOMPARE(dialog.initial, QColor(0x12, 0x34, 0x56));
    QCOMPARE(dialog.parent, &button);
}

void tst_GuiHelper::chooseButtonColorOnNonColourTextStartsOnWhite_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no colour") << QStringLiteral("Color...");
    QTest::newRow("empty") << QString();
}

void tst_GuiHelper::chooseButtonColorOnNonColourTextStartsOnWhite()
{
    QFETCH(QString, text);
    QToolButton button;
    button.setText(text);

    ColorDialogAnswer dialog;
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonColor(&button);
    QVERIFY(answer->fired());
    QCOMPARE(dialog.initial, QColor(Qt::white));
    QCOMPARE(button.text(), text);
}

void tst_GuiHelper::chooseButtonColorKeepsAcceptedColour()
{
    QToolButton button;
    button.resize(50, 20);
    GuiHelper::setButtonColor(&button, Qt::blue);

    ColorDialogAnswer dialog;
    dialog.answer = Qt::red;
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonColor(&button);
    QVERIFY(answer->fired());
    QCOMPARE(button.text(), QStringLiteral("#ff0000"));
    QCOMPARE(iconCentre(button, 20), QColor(Qt::red));
}

void tst_GuiHelper::chooseButtonColorCancelledLeavesButton()
{
    QToolButton button;
    GuiHelper::setButtonColor(&button, Qt::blue);
    const qint64 iconKey = button.icon().cacheKey();

    ColorDialogAnswer dialog; // invalid answer: cancel
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonColor(&button);
    QVERIFY(answer->fired());
    QCOMPARE(button.text(), QStringLiteral("#0000ff"));
    QCOMPARE(button.icon().cacheKey(), iconKey);
}

void tst_GuiHelper::chooseButtonFontStartsFromFontString()
{
    QPushButton button;
    GuiHelper::setButtonFont(&button, someFont());

    FontDialogAnswer dialog;
    dialog.accept = false;
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonFont(&button);
    QVERIFY(answer->fired());
    QCOMPARE(dialog.parent, &button);
    QCOMPARE(dialog.initial.pointSize(), 23);
    QCOMPARE(dialog.initial.family(), availableFamily());
}

void tst_GuiHelper::chooseButtonFontWithoutFontStringStartsFromDefaultFont()
{
    QPushButton button;
    QFont own(QStringLiteral("Monospace"), 31);
    button.setFont(own);

    FontDialogAnswer dialog;
    dialog.accept = false;
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonFont(&button);
    QVERIFY(answer->fired());
    QCOMPARE(dialog.initial.pointSize(), QFont().pointSize());
}

void tst_GuiHelper::chooseButtonFontKeepsAcceptedFont()
{
    QPushButton button;
    QFont own = button.font();
    own.setPointSize(8);
    button.setFont(own);
    GuiHelper::setButtonFont(&button, QFont(QStringLiteral("Sans"), 12));

    FontDialogAnswer dialog;
    dialog.answer = QFont(availableFamily(), 23);
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonFont(&button);
    QVERIFY(answer->fired());

    QFont stored;
    QVERIFY(stored.fromString(button.property("fontString").toString()));
    QCOMPARE(stored.pointSize(), 23);
    QCOMPARE(stored.family(), availableFamily());
    QCOMPARE(button.text(), QStringLiteral("%1 (size 23)").arg(availableFamily()));
    QCOMPARE(button.font().pointSize(), 8);
    QCOMPARE(button.font().family(), availableFamily());
}

void tst_GuiHelper::chooseButtonFontCancelledLeavesButton()
{
    QPushButton button;
    GuiHelper::setButtonFont(&button, someFont());
    // A text that setButtonFont would not give, so that applying the starting
    // font again after a cancel shows.
    button.setText(QStringLiteral("Title font"));
    const QString text = button.text();
    const QFont font = button.font();
    const QString fontString = button.property("fontString").toString();

    FontDialogAnswer dialog;
    dialog.accept = false;
    dialog.answer = QFont(QStringLiteral("Sans"), 40);
    std::unique_ptr<WhenShown> answer(dialog.start());
    GuiHelper::chooseButtonFont(&button);
    QVERIFY(answer->fired());

    QCOMPARE(button.text(), text);
    QCOMPARE(button.font(), font);
    QCOMPARE(button.property("fontString").toString(), fontString);
}

void tst_GuiHelper::buttonFontReadsTheHeldFont()
{
    QPushButton button;
    GuiHelper::setButtonFont(&button, someFont());
    QCOMPARE(GuiHelper::buttonFont(&button, QFont()).toString(), someFont().toString());
}

void tst_GuiHelper::buttonFontKeepsCurrentWhenTheButtonHoldsTheSameOrNothing()
{
    QPushButton button;
    QFont current = someFont();
    current.setHintingPreference(QFont::PreferNoHinting); // not in toString()
    QCOMPARE(GuiHelper::buttonFont(&button, current).hintingPreference(),
             QFont::PreferNoHinting);
    QCOMPARE(GuiHelper::buttonFont(nullptr, current).hintingPreference(),
             QFont::PreferNoHinting);

    GuiHelper::setButtonFont(&button, someFont());
    QCOMPARE(GuiHelper::buttonFont(&button, current).hintingPreference(),
             QFont::PreferNoHinting);
}

void tst_GuiHelper::buttonColorReadsTheNamedColour()
{
    QToolButton button;
    QCOMPARE(GuiHelper::buttonColor(&button, Qt::blue), QColor(Qt::blue));
    GuiHelper::setButtonColor(&button, QColor(1, 2, 3));
    QCOMPARE(GuiHelper::buttonColor(&button, Qt::blue), QColor(1, 2, 3));
    QCOMPARE(GuiHelper::buttonColor(&button, QColor()), QColor(1, 2, 3));
    button.setText(QStringLiteral("no colour"));
    QVERIFY(!GuiHelper::buttonColor(&button, Qt::blue).isValid());
}

void tst_GuiHelper::buttonColorKeepsCurrentAlphaWhenTheNameIsTheSame()
{
    QToolButton button;
    GuiHelper::setButtonColor(&button, QColor(1, 2, 3));
    const QColor translucent(1, 2, 3, 100);
    QCOMPARE(GuiHelper::buttonColor(&button, translucent).alpha(), 100);
}

void tst_GuiHelper::showFontAndColorLeavesColourButtonForInvalidColour()
{
    QPushButton fontButton;
    QToolButton colorButton;
    GuiHelper::showFontAndColor(someFont(), Qt::red, &fontButton, &colorButton);
    QCOMPARE(fontButton.property("fontString").toString(), someFont().toString());
    QCOMPARE(colorButton.text(), QStringLiteral("#ff0000"));

    GuiHelper::showFontAndColor(QFont(), QColor(), &fontButton, &colorButton);
    QCOMPARE(fontButton.property("fontString").toString(), QFont().toString());
    QCOMPARE(colorButton.text(), QStringLiteral("#ff0000"));
    GuiHelper::showFontAndColor(QFont(), Qt::red, nullptr, nullptr);
}

void tst_GuiHelper::showTitleFillsEditAndButtons()
{
    QLineEdit edit;
    QPushButton fontButton;
    QToolButton colorButton;
    QwtText title(QStringLiteral("Pressure"));
    title.setFont(someFont());
    title.setColor(QColor(0, 128, 0));

    GuiHelper::showTitle(title, &edit, &fontButton, &colorButton);
    QCOMPARE(edit.text(), QStringLiteral("Pressure"));
    QCOMPARE(fontButton.property("fontString").toString(), someFont().toString());
    QCOMPARE(colorButton.text(), QStringLiteral("#008000"));
}

void tst_GuiHelper::editedTitleWithoutChangesIsTheTitle()
{
    QLineEdit edit;
    QPushButton fontButton;
    QToolButton colorButton;
    QwtText title(QStringLiteral("<b>Current</b>"), QwtText::RichText);
    title.setFont(someFont());
    title.setColor(QColor(0, 0, 255, 90));
    title.setRenderFlags(Qt::AlignLeft);

    GuiHelper::showTitle(title, &edit, &fontButton, &colorButton);
    const QwtText edited = GuiHelper::editedTitle(title, &edit, &fontButton, &colorButton);
    QCOMPARE(edited, title);
    QCOMPARE(edited.color().alpha(), 90);
}

void tst_GuiHelper::editedTitleTakesEditedTextFontAndColour()
{
    QLineEdit edit;
    QPushButton fontButton;
    QToolButton colorButton;
    QwtText title(QStringLiteral("Current"));
    title.setRenderFlags(Qt::AlignLeft);
    GuiHelper::showTitle(title, &edit, &fontButton, &colorButton);

    edit.setText(QStringLiteral("Current [A]"));
    GuiHelper::setButtonFont(&fontButton, someFont());
    GuiHelper::setButtonColor(&colorButton, QColor(200, 0, 0));
    const QwtText edited = GuiHelper::editedTitle(title, &edit, &fontButton, &colorButton);
    QCOMPARE(edited.text(), QStringLiteral("Current [A]"));
    QCOMPARE(edited.font().toString(), someFont().toString());
    QCOMPARE(edited.color(), QColor(200, 0, 0));
    QVERIFY(edited.testPaintAttribute(QwtText::PaintUsingTextFont));
    QVERIFY(edited.testPaintAttribute(QwtText::PaintUsingTextColor));
    QCOMPARE(edited.renderFlags(), int(Qt::AlignLeft));
}

void tst_GuiHelper::editedTitleKeepsMissingColourWhileButtonShowsPaintedColour()
{
    QLineEdit edit;
    QPushButton fontButton;
    QToolButton colorButton;
    GuiHelper::setButtonColor(&colorButton, Qt::black);
    const QwtText title(QStringLiteral("Time"));
    GuiHelper::showTitle(title, &edit, &fontButton, &colorButton);

    const QwtText edited = GuiHelper::editedTitle(title, &edit, &fontButton, &colorButton);
    QVERIFY(!edited.color().isValid());
    QVERIFY(!edited.testPaintAttribute(QwtText::PaintUsingTextColor));
    QVERIFY(!edited.testPaintAttribute(QwtText::PaintUsingTextFont));
}

QTEST_MAIN(tst_GuiHelper)
#include "tst_guihelper.moc"
