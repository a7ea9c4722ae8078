// The curve settings dialog: its form, its two style tables and their order
// in the combo boxes, ranges, colour buttons with their pixmap sizes, the
// colour choice, and CurvePlot::editCurveAttributes, which moves one curve's
// pen and symbol through the dialog and back, with the losses it has.

#include <TestSupport.h>

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CurveSettingDialog.h>
#include <figura/plots/CurvePlot.h>

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>
#include <QTranslator>
#include <QVBoxLayout>
#include <QtTest>

#include <qwt_plot_curve.h>
#include <qwt_symbol.h>

using TestSupport::activeModal;
using TestSupport::WhenShown;

using TestSupport::MarkingTranslator;

namespace {

// Opens the members to the tests.
class DialogProbe : public CurveSettingDialog
{
public:
    using CurveSettingDialog::CurveSettingDialog;
    using CurveSettingDialog::iconSize;
    using CurveSettingDialog::lineColorButton;
    using CurveSettingDialog::lineStyleCombo;
    using CurveSettingDialog::lineStyles;
    using CurveSettingDialog::lineWidthSpin;
    using CurveSettingDialog::symbolColorButton;
    using CurveSettingDialog::symbolSizeSpin;
    using CurveSettingDialog::symbolStyleCombo;
    using CurveSettingDialog::symbolStyles;
};

// A curve plot that opens editCurveAttributes, lets the test see the dialog
// as it was loaded, and counts replots.
class EditPlot : public CurvePlot
{
public:
    using CurvePlot::CurvePlot;
    using CurvePlot::editCurveAttributes;
    int replots = 0;
    void replot() override
    {
        ++replots;
        CurvePlot::replot();
    }
    // A new widget gets a polish request posted, and QwtPlot answers it with
    // a replot: deliver it and start counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
    }
};

struct Shown {
    bool fired = false;
    QString lineStyleText;
    int lineWidth = 0;
    QString lineColorText;
    QString symbolStyleText;
    int symbolSize = 0;
    QString symbolColorText;
};

QStringList comboTexts(const QComboBox *combo)
{
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
        texts << combo->itemText(i);
    return texts;
}

QSize pixmapSize(const QAbstractButton *button)
{
    const QList<QSize> sizes = button->icon().availableSizes();
    return sizes.size() == 1 ? sizes.first() : QSize();
}

QColor pixmapColor(const QAbstractButton *button)
{
    const QSize size = pixmapSize(button);
    return button->icon().pixmap(size).toImage().pixelColor(size.width() / 2, size.height() / 2);
}

CurveSettingDialog *curveDialog()
{
    return dynamic_cast<CurveSettingDialog *>(activeModal());
}

// Runs editCurveAttributes on curve: records what the dialog shows, then
// accepts or cancels it. The plot is settled first, so that its replots
// count from zero.
bool runDialog(EditPlot &plot, QwtPlotCurve *curve, bool accept, Shown &shown)
{
    plot.settle();
    WhenShown answer(curveDialog, [&](QWidget *w) {
        auto *dialog = dynamic_cast<CurveSettingDialog *>(w);
        const QList<QComboBox *> combos = dialog->findChildren<QComboBox *>();
        const QList<QSpinBox *> spins = dialog->findChildren<QSpinBox *>();
        const QList<QToolButton *> buttons = dialog->findChildren<QToolButton *>();
        if (combos.size() == 2 && spins.size() == 2 && buttons.size() == 2) {
            shown.fired = true;
            shown.lineStyleText = combos.at(0)->currentText();
            shown.lineWidth = spins.at(0)->value();
            shown.lineColorText = buttons.at(0)->text();
            shown.symbolStyleText = combos.at(1)->currentText();
            shown.symbolSize = spins.at(1)->value();
            shown.symbolColorText = buttons.at(1)->text();
        }
        if (accept)
            dialog->accept();
        else
            dialog->reject();
    });
    return plot.editCurveAttributes(curve);
}

} // namespace

class tst_CurveSettingDialog : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

private slots:
    void cleanup();

    // The form
    void formHasTitleGroupsAndButtons();
    void formHasNoMetaObjectOfItsOwn();
    void textsAreTranslatedInTheContextOfQDialogButStyleNamesAreNot();
    void styleTablesHoldTheOfferedStyles();
    void combosListDefaultFirstThenByName_data();
    void combosListDefaultFirstThenByName();
    void spinBoxesHaveRangesAndDefaults();
    void colorButtonsShowDefaultsWithIconSizePixmaps();
    void okAcceptsAndCancelRejects_data();
    void okAcceptsAndCancelRejects();

    // Loading and reading
    void lineStyleRoundTrips_data();
    void lineStyleRoundTrips();
    void symbolStyleRoundTrips_data();
    void symbolStyleRoundTrips();
    void unlistedStyleLeavesComboAsItWas();
    void unknownComboTextReadsAsFallback();
    void widthAndSizeAreClampedToTheirRanges_data();
    void widthAndSizeAreClampedToTheirRanges();
    void lineColorPixmapTakesButtonHeight();
    void symbolColorPixmapTakesIconSize();
    void invalidColorLeavesButtonAsItWas();
    void colorLosesAlpha();

    // The colour choice
    void colorChoiceStartsOnButtonColorWithDialogAsParent();
    void colorChoiceSetsNameAndIconSizePixmap_data();
    void colorChoiceSetsNameAndIconSizePixmap();
    void cancelledColorChoiceLeavesButton();

    // editCurveAttributes
    void curveValuesAreShownInDialog();
    void curveWithoutSymbolShowsDefaultsAndGetsNoSymbolObject();
    void penWidthZeroShowsOneAndBecomesOne();
    void symbolWidthSixtyComesBackAsFifty();
    void unlistedCurveStylesBecomeDefaults();
    void acceptanceRoundTripsPenAndSymbolWithStatedLosses();
    void cancelLeavesCurveAndReturnsFalse();
    void nullCurveOpensNoDialog();
};

void tst_CurveSettingDialog::cleanup()
{
    QTRY_VERIFY(!QApplication::activePopupWidget() && !QApplication::activeModalWidget());
}

// ---------------------------------------------------------------------------
// The form

void tst_CurveSettingDialog::formHasTitleGroupsAndButtons()
{
    DialogProbe dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Curve Settings"));
    QCOMPARE(dialog.windowFlags(), QDialog().windowFlags());

    auto *layout = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 18);
    QCOMPARE(layout->count(), 3);
    auto *lineGroup = qobject_cast<QGroupBox *>(layout->itemAt(0)->widget());
    auto *symbolGroup = qobject_cast<QGroupBox *>(layout->itemAt(1)->widget());
    auto *buttons = qobject_cast<QDialogButtonBox *>(layout->itemAt(2)->widget());
    QVERIFY(lineGroup && symbolGroup && buttons);
    QCOMPARE(lineGroup->title(), QStringLiteral("Curve Line"));
    QCOMPARE(symbolGroup->title(), QStringLiteral("Data Point Symbol"));
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);

    struct Cell {
        QGroupBox *group;
        QString label;
        QWidget *field;
    };
    const QList<Cell> rows{
        {lineGroup, QStringLiteral("Line Style"), dialog.lineStyleCombo},
        {lineGroup, QStringLiteral("Line Width"), dialog.lineWidthSpin},
        {lineGroup, QStringLiteral("Line Color"), dialog.lineColorButton},
        {symbolGroup, QStringLiteral("Symbol Style"), dialog.symbolStyleCombo},
        {symbolGroup, QStringLiteral("Symbol Size"), dialog.symbolSizeSpin},
        {symbolGroup, QStringLiteral("Symbol Color"), dialog.symbolColorButton},
    };
    for (int i = 0; i < rows.size(); ++i) {
        const Cell &cell = rows.at(i);
        auto *grid = qobject_cast<QGridLayout *>(cell.group->layout());
        QVERIFY(grid);
        const int row = i % 3;
        auto *label = qobject_cast<QLabel *>(grid->itemAtPosition(row, 0)->widget());
        QVERIFY(label);
        QCOMPARE(label->text(), cell.label);
        QVERIFY(cell.field);
        QCOMPARE(grid->itemAtPosition(row, 1)->widget(), cell.field);
        QCOMPARE(cell.field->parentWidget(), cell.group);
    }
}

void tst_CurveSettingDialog::formHasNoMetaObjectOfItsOwn()
{
    CurveSettingDialog dialog;
    QCOMPARE(dialog.metaObject(), &QDialog::staticMetaObject);
}

void tst_CurveSettingDialog::textsAreTranslatedInTheContextOfQDialogButStyleNamesAreNot()
{
    MarkingTranslator translator("QDialog");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    DialogProbe dialog;
    QCoreApplication::removeTranslator(&translator);

    QCOMPARE(dialog.windowTitle(), QStringLiteral("<Curve Settings>"));
    QStringList titles;
    QStringList labels;
    const QList<QGroupBox *> groups = dialog.findChildren<QGroupBox *>();
    for (const QGroupBox *group : groups) {
        titles << group->title();
        const QList<QLabel *> groupLabels = group->findChildren<QLabel *>();
        for (const QLabel *label : groupLabels)
            labels << label->text();
    }
    titles.sort();
    labels.sort();
    QCOMPARE(titles, (QStringList{QStringLiteral("<Curve Line>"),
                                  QStringLiteral("<Data Point Symbol>")}));
    QCOMPARE(labels, (QStringList{QStringLiteral("<Line Color>"), QStringLiteral("<Line Style>"),
                                  QStringLiteral("<Line Width>"), QStringLiteral("<Symbol Color>"),
                                  QStringLiteral("<Symbol Size>"),
                                  QStringLiteral("<Symbol Style>")}));
    QCOMPARE(dialog.lineStyleCombo->currentText(), QStringLiteral("Solid"));
    QCOMPARE(dialog.symbolStyleCombo->currentText(), QStringLiteral("No Symbol"));
}

void tst_CurveSettingDialog::styleTablesHoldTheOfferedStyles()
{
    DialogProbe dialog;
    const QMap<QString, int> lines{
        {QStringLiteral("No Line"), 0},  {QStringLiteral("Solid"), 1},
        {QStringLiteral("Dash"), 2},     {QStringLiteral("Dot"), 3},
        {QStringLiteral("Dash Dot"), 4}, {QStringLiteral("Dash Dot Dot"), 5},
    };
    const QMap<QString, int> symbols{
        {QStringLiteral("No Symbol"), int(QwtSymbol::NoSymbol)},
        {QStringLiteral("Circle"), int(QwtSymbol::Ellipse)},
        {QStringLiteral("Rectangle"), int(QwtSymbol::Rect)},
        {QStringLiteral("Diamond"), int(QwtSymbol::Diamond)},
        {QStringLiteral("Triangle"), int(QwtSymbol::Triangle)},
        {QStringLiteral("Cross (+)"), int(QwtSymbol::Cross)},
        {QStringLiteral("Diagonal Cross (x)"), int(QwtSymbol::XCross)},
    };
    QCOMPARE(dialog.lineStyles, lines);
    QCOMPARE(dialog.symbolStyles, symbols);
    QCOMPARE(int(QwtSymbol::NoSymbol), -1);
    QCOMPARE(int(QwtSymbol::Cross), 8);
    QCOMPARE(int(QwtSymbol::XCross), 9);
}

void tst_CurveSettingDialog::combosListDefaultFirstThenByName_data()
{
    QTest::addColumn<bool>("line");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("current");
    QTest::newRow("line style") << true
                                << QStringList{QStringLiteral("Solid"), QStringLiteral("Dash"),
                                               QStringLiteral("Dash Dot"), QStringLiteral("Dash Dot Dot"),
                                               QStringLiteral("Dot"), QStringLiteral("No Line")}
                                << QStringLiteral("Solid");
    QTest::newRow("symbol style") << false
                                  << QStringList{QStringLiteral("No Symbol"), QStringLiteral("Circle"),
                                                 QStringLiteral("Cross (+)"),
                                                 QStringLiteral("Diagonal Cross (x)"),
                                                 QStringLiteral("Diamond"), QStringLiteral("Rectangle"),
                                                 QStringLiteral("Triangle")}
                                  << QStringLiteral("No Symbol");
}

void tst_CurveSettingDialog::combosListDefaultFirstThenByName()
{
    QFETCH(bool, line);
    QFETCH(QStringList, texts);
    QFETCH(QString, current);
    DialogProbe dialog;
    const QComboBox *combo = line ? dialog.lineStyleCombo : dialog.symbolStyleCombo;
    QCOMPARE(comboTexts(combo), texts);
    QCOMPARE(combo->currentText(), current);
    QCOMPARE(combo->currentIndex(), 0);
    QVERIFY(!combo->isEditable());
    QCOMPARE(line ? dialog.lineStyle() : dialog.symbolStyle(),
             line ? PlotDefault::PenStyle : PlotDefault::SymbolStyle);
}

void tst_CurveSettingDialog::spinBoxesHaveRangesAndDefaults()
{
    DialogProbe dialog;
    QCOMPARE(dialog.lineWidthSpin->minimum(), 1);
    QCOMPARE(dialog.lineWidthSpin->maximum(), 500);
    QCOMPARE(dialog.lineWidthSpin->value(), 2);
    QCOMPARE(dialog.lineWidth(), PlotDefault::PenSize);
    QCOMPARE(dialog.symbolSizeSpin->minimum(), 1);
    QCOMPARE(dialog.symbolSizeSpin->maximum(), 50);
    QCOMPARE(dialog.symbolSizeSpin->value(), 8);
    QCOMPARE(dialog.symbolSize(), PlotDefault::SymbolWidth);
}

void tst_CurveSettingDialog::colorButtonsShowDefaultsWithIconSizePixmaps()
{
    DialogProbe dialog;
    QCOMPARE(dialog.iconSize, 20);
    QCOMPARE(dialog.lineColorButton->text(), PlotDefault::ChartColor.name());
    QCOMPARE(dialog.lineColor(), QColor(PlotDefault::ChartColor.name()));
    QCOMPARE(pixmapSize(dialog.lineColorButton), QSize(20, 20));
    QCOMPARE(pixmapColor(dialog.lineColorButton).rgb(), PlotDefault::ChartColor.rgb());
    QCOMPARE(dialog.symbolColorButton->text(), PlotDefault::SymbolColor.name());
    QCOMPARE(dialog.symbolColor(), QColor(PlotDefault::SymbolColor.name()));
    QCOMPARE(pixmapSize(dialog.symbolColorButton), QSize(20, 20));
    QCOMPARE(pixmapColor(dialog.symbolColorButton).rgb(), PlotDefault::SymbolColor.rgb());
    QCOMPARE(dialog.lineColorButton->parent()->parent(), &dialog);
    QCOMPARE(dialog.symbolColorButton->parent()->parent(), &dialog);
}

void tst_CurveSettingDialog::okAcceptsAndCancelRejects_data()
{
    QTest::addColumn<QDialogButtonBox::StandardButton>("which");
    QTest::addColumn<int>("result");
    QTest::newRow("Ok") << QDialogButtonBox::Ok << int(QDialog::Accepted);
    QTest::newRow("Cancel") << QDialogButtonBox::Cancel << int(QDialog::Rejected);
}

void tst_CurveSettingDialog::okAcceptsAndCancelRejects()
{
    QFETCH(QDialogButtonBox::StandardButton, which);
    QFETCH(int, result);
    CurveSettingDialog dialog;
    WhenShown press(curveDialog, [which](QWidget *w) {
        QPushButton *button = w->findChild<QDialogButtonBox *>()->button(which);
        QTest::mouseClick(button, Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), result);
    QVERIFY(press.fired());
}

// ---------------------------------------------------------------------------
// Loading and reading

void tst_CurveSettingDialog::lineStyleRoundTrips_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("text");
    QTest::newRow("No Line") << int(Qt::NoPen) << QStringLiteral("No Line");
    QTest::newRow("Solid") << int(Qt::SolidLine) << QStringLiteral("Solid");
    QTest::newRow("Dash") << int(Qt::DashLine) << QStringLiteral("Dash");
    QTest::newRow("Dot") << int(Qt::DotLine) << QStringLiteral("Dot");
    QTest::newRow("Dash Dot") << int(Qt::DashDotLine) << QStringLiteral("Dash Dot");
    QTest::newRow("Dash Dot Dot") << int(Qt::DashDotDotLine) << QStringLiteral("Dash Dot Dot");
}

void tst_CurveSettingDialog::lineStyleRoundTrips()
{
    QFETCH(int, style);
    QFETCH(QString, text);
    DialogProbe dialog;
    dialog.setLineAttributes(style, 3, Qt::red);
    QCOMPARE(dialog.lineStyleCombo->currentText(), text);
    QCOMPARE(dialog.lineStyle(), style);
    QCOMPARE(dialog.lineWidth(), 3);
    QCOMPARE(dialog.lineColor(), QColor(Qt::red));
}

void tst_CurveSettingDialog::symbolStyleRoundTrips_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QString>("text");
    QTest::newRow("No Symbol") << int(QwtSymbol::NoSymbol) << QStringLiteral("No Symbol");
    QTest::newRow("Circle") << int(QwtSymbol::Ellipse) << QStringLiteral("Circle");
    QTest::newRow("Rectangle") << int(QwtSymbol::Rect) << QStringLiteral("Rectangle");
    QTest::newRow("Diamond") << int(QwtSymbol::Diamond) << QStringLiteral("Diamond");
    QTest::newRow("Triangle") << int(QwtSymbol::Triangle) << QStringLiteral("Triangle");
    QTest::newRow("Cross (+)") << int(QwtSymbol::Cross) << QStringLiteral("Cross (+)");
    QTest::newRow("Diagonal Cross (x)") << int(QwtSymbol::XCross) << QStringLiteral("Diagonal Cross (x)");
}

void tst_CurveSettingDialog::symbolStyleRoundTrips()
{
    QFETCH(int, style);
    QFETCH(QString, text);
    DialogProbe dialog;
    dialog.setSymbolAttributes(style, 11, Qt::blue);
    QCOMPARE(dialog.symbolStyleCombo->currentText(), text);
    QCOMPARE(dialog.symbolStyle(), style);
    QCOMPARE(dialog.symbolSize(), 11);
    QCOMPARE(dialog.symbolColor(), QColor(Qt::blue));
}

void tst_CurveSettingDialog::unlistedStyleLeavesComboAsItWas()
{
    DialogProbe dialog;
    dialog.setLineAttributes(Qt::DotLine, 3, Qt::red);
    dialog.setSymbolAttributes(QwtSymbol::Diamond, 5, Qt::red);

    dialog.setLineAttributes(Qt::CustomDashLine, 4, Qt::green);
    dialog.setSymbolAttributes(QwtSymbol::Star1, 6, Qt::green);

    QCOMPARE(dialog.lineStyleCombo->currentText(), QStringLiteral("Dot"));
    QCOMPARE(dialog.symbolStyleCombo->currentText(), QStringLiteral("Diamond"));
    // The other values of the group still load.
    QCOMPARE(dialog.lineWidth(), 4);
    QCOMPARE(dialog.symbolSize(), 6);
    QCOMPARE(dialog.lineColor(), QColor(Qt::green));
    QCOMPARE(dialog.symbolColor(), QColor(Qt::green));
}

void tst_CurveSettingDialog::unknownComboTextReadsAsFallback()
{
    DialogProbe dialog;
    dialog.lineStyleCombo->addItem(QStringLiteral("Wavy"));
    dialog.lineStyleCombo->setCurrentText(QStringLiteral("Wavy"));
    dialog.symbolStyleCombo->addItem(QStringLiteral("Star"));
    dialog.symbolStyleCombo->setCurrentText(QStringLiteral("Star"));
    QCOMPARE(dialog.lineStyle(), 1);
    QCOMPARE(dialog.symbolStyle(), -1);
}

void tst_CurveSettingDialog::widthAndSizeAreClampedToTheirRanges_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("size");
    QTest::newRow("zero") << 0 << 1 << 1;
    QTest::newRow("negative") << -4 << 1 << 1;
    QTest::newRow("inside") << 30 << 30 << 30;
    QTest::newRow("60") << 60 << 60 << 50;
    QTest::newRow("above both") << 900 << 500 << 50;
}

void tst_CurveSettingDialog::widthAndSizeAreClampedToTheirRanges()
{
    QFETCH(int, given);
    QFETCH(int, width);
    QFETCH(int, size);
    CurveSettingDialog dialog;
    dialog.setLineAttributes(Qt::SolidLine, given, QColor());
    dialog.setSymbolAttributes(QwtSymbol::Ellipse, given, QColor());
    QCOMPARE(dialog.lineWidth(), width);
    QCOMPARE(dialog.symbolSize(), size);
}

void tst_CurveSettingDialog::lineColorPixmapTakesButtonHeight()
{
    DialogProbe dialog;
    dialog.setLineAttributes(Qt::SolidLine, 2, QColor(1, 2, 3));
    const int before = dialog.lineColorButton->height();
    QCOMPARE(pixmapSize(dialog.lineColorButton), QSize(before, before));
    QCOMPARE(pixmapColor(dialog.lineColorButton), QColor(1, 2, 3));

    dialog.lineColorButton->resize(dialog.lineColorButton->width(), 37);
    dialog.setLineAttributes(Qt::SolidLine, 2, QColor(4, 5, 6));
    QCOMPARE(pixmapSize(dialog.lineColorButton), QSize(37, 37));
    QCOMPARE(dialog.lineColorButton->text(), QStringLiteral("#040506"));
}

void tst_CurveSettingDialog::symbolColorPixmapTakesIconSize()
{
    DialogProbe dialog;
    dialog.symbolColorButton->resize(dialog.symbolColorButton->width(), 37);
    dialog.setSymbolAttributes(QwtSymbol::Ellipse, 8, QColor(7, 8, 9));
    QCOMPARE(pixmapSize(dialog.symbolColorButton), QSize(20, 20));
    QCOMPARE(pixmapColor(dialog.symbolColorButton), QColor(7, 8, 9));
    QCOMPARE(dialog.symbolColorButton->text(), QStringLiteral("#070809"));
}

void tst_CurveSettingDialog::invalidColorLeavesButtonAsItWas()
{
    DialogProbe dialog;
    const qint64 lineIcon = dialog.lineColorButton->icon().cacheKey();
    const qint64 symbolIcon = dialog.symbolColorButton->icon().cacheKey();
    dialog.setLineAttributes(Qt::DashLine, 3, QColor());
    dialog.setSymbolAttributes(QwtSymbol::Rect, 4, QColor());
    QCOMPARE(dialog.lineColorButton->text(), PlotDefault::ChartColor.name());
    QCOMPARE(dialog.symbolColorButton->text(), PlotDefault::SymbolColor.name());
    QCOMPARE(dialog.lineColorButton->icon().cacheKey(), lineIcon);
    QCOMPARE(dialog.symbolColorButton->icon().cacheKey(), symbolIcon);
    QCOMPARE(dialog.lineStyle(), int(Qt::DashLine));
    QCOMPARE(dialog.symbolStyle(), int(QwtSymbol::Rect));
}

void tst_CurveSettingDialog::colorLosesAlpha()
{
    DialogProbe dialog;
    dialog.setLineAttributes(Qt::SolidLine, 2, QColor(200, 100, 50, 60));
    dialog.setSymbolAttributes(QwtSymbol::Ellipse, 8, QColor(10, 20, 30, 0));
    QCOMPARE(dialog.lineColorButton->text(), QStringLiteral("#c86432"));
    QCOMPARE(dialog.symbolColorButton->text(), QStringLiteral("#0a141e"));
    QCOMPARE(dialog.lineColor(), QColor(200, 100, 50));
    QCOMPARE(dialog.symbolColor().alpha(), 255);
}

// ---------------------------------------------------------------------------
// The colour choice

void tst_CurveSettingDialog::colorChoiceStartsOnButtonColorWithDialogAsParent()
{
    DialogProbe dialog;
    dialog.setLineAttributes(Qt::SolidLine, 2, QColor(0x12, 0x34, 0x56));
    QVERIFY(TestSupport::showActive(dialog));
    QColor initial;
    QWidget *parent = nullptr;
    WhenShown cancel(
        [] { return qobject_cast<QColorDialog *>(activeModal()); },
        [&](QWidget *w) {
            auto *colors = qobject_cast<QColorDialog *>(w);
            initial = colors->currentColor();
            parent = colors->parentWidget();
            colors->reject();
        });

    QTest::mouseClick(dialog.lineColorButton, Qt::LeftButton);

    QTRY_VERIFY(cancel.fired());
    QCOMPARE(initial, QColor(0x12, 0x34, 0x56));
    QCOMPARE(parent, &dialog);
}

void tst_CurveSettingDialog::colorChoiceSetsNameAndIconSizePixmap_data()
{
    QTest::addColumn<bool>("line");
    QTest::newRow("line colour") << true;
    QTest::newRow("symbol colour") << false;
}

void tst_CurveSettingDialog::colorChoiceSetsNameAndIconSizePixmap()
{
    QFETCH(bool, line);
    DialogProbe dialog;
    QVERIFY(TestSupport::showActive(dialog));
    QToolButton *button = line ? dialog.lineColorButton : dialog.symbolColorButton;
    // The chosen pixmap is iconSize also where the button is higher.
    QVERIFY(button->height() != dialog.iconSize);
    WhenShown choose(
        [] { return qobject_cast<QColorDialog *>(activeModal()); },
        [](QWidget *w) {
            auto *colors = qobject_cast<QColorDialog *>(w);
            colors->setCurrentColor(QColor(40, 80, 120));
            static_cast<QDialog *>(colors)->accept();
        });

    QTest::mouseClick(button, Qt::LeftButton);

    QTRY_VERIFY(choose.fired());
    QCOMPARE(button->text(), QStringLiteral("#285078"));
    QCOMPARE(pixmapSize(button), QSize(dialog.iconSize, dialog.iconSize));
    QCOMPARE(pixmapColor(button).rgb(), QColor(40, 80, 120).rgb());
    QCOMPARE(line ? dialog.lineColor() : dialog.symbolColor(), QColor(40, 80, 120));
    // The other button keeps its colour.
    QCOMPARE(line ? dialog.symbolColor() : dialog.lineColor(),
             QColor(line ? PlotDefault::SymbolColor.name() : PlotDefault::ChartColor.name()));
}

void tst_CurveSettingDialog::cancelledColorChoiceLeavesButton()
{
    DialogProbe dialog;
    QVERIFY(TestSupport::showActive(dialog));
    const QString text = dialog.symbolColorButton->text();
    const qint64 icon = dialog.symbolColorButton->icon().cacheKey();
    WhenShown cancel(
        [] { return qobject_cast<QColorDialog *>(activeModal()); },
        [](QWidget *w) {
            auto *colors = qobject_cast<QColorDialog *>(w);
            colors->setCurrentColor(Qt::yellow);
            colors->reject();
        });

    QTest::mouseClick(dialog.symbolColorButton, Qt::LeftButton);

    QTRY_VERIFY(cancel.fired());
    QCOMPARE(dialog.symbolColorButton->text(), text);
    QCOMPARE(dialog.symbolColorButton->icon().cacheKey(), icon);
}

// ---------------------------------------------------------------------------
// editCurveAttributes

void tst_CurveSettingDialog::curveValuesAreShownInDialog()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    curve->setPen(QColor(0x11, 0x22, 0x33), 4, Qt::DashDotLine);
    curve->setSymbol(new QwtSymbol(QwtSymbol::Triangle, QBrush(QColor(0x44, 0x55, 0x66)),
                                   QPen(Qt::black), QSize(13, 9)));
    plot.appendCurve(curve, true);
    Shown shown;

    QVERIFY(!runDialog(plot, curve, false, shown));
    QVERIFY(shown.fired);

    QCOMPARE(shown.lineStyleText, QStringLiteral("Dash Dot"));
    QCOMPARE(shown.lineWidth, 4);
    QCOMPARE(shown.lineColorText, QStringLiteral("#112233"));
    QCOMPARE(shown.symbolStyleText, QStringLiteral("Triangle"));
    // The width of the symbol's size, and the brush's colour.
    QCOMPARE(shown.symbolSize, 13);
    QCOMPARE(shown.symbolColorText, QStringLiteral("#445566"));
}

void tst_CurveSettingDialog::curveWithoutSymbolShowsDefaultsAndGetsNoSymbolObject()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    curve->setPen(Qt::red, 2, Qt::SolidLine);
    plot.appendCurve(curve, true);
    QVERIFY(!curve->symbol());
    Shown shown;

    QVERIFY(runDialog(plot, curve, true, shown));
    QVERIFY(shown.fired);

    QCOMPARE(shown.symbolStyleText, QStringLiteral("No Symbol"));
    QCOMPARE(shown.symbolSize, 8);
    QCOMPARE(shown.symbolColorText, PlotDefault::SymbolColor.name());
    const QwtSymbol *symbol = curve->symbol();
    QVERIFY(symbol);
    QCOMPARE(symbol->style(), QwtSymbol::NoSymbol);
    QCOMPARE(symbol->size(), QSize(8, 8));
    QCOMPARE(symbol->brush().color(), QColor(PlotDefault::SymbolColor.name()));
    QCOMPARE(symbol->pen().color(), QColor(PlotDefault::SymbolColor.name()));
    QCOMPARE(plot.replots, 1);
}

void tst_CurveSettingDialog::penWidthZeroShowsOneAndBecomesOne()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    curve->setPen(Qt::red, 0, Qt::SolidLine);
    plot.appendCurve(curve, true);
    Shown shown;

    QVERIFY(runDialog(plot, curve, true, shown));
    QVERIFY(shown.fired);

    QCOMPARE(shown.lineWidth, 1);
    QCOMPARE(curve->pen().width(), 1);
}

void tst_CurveSettingDialog::symbolWidthSixtyComesBackAsFifty()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    curve->setSymbol(new QwtSymbol(QwtSymbol::Rect, QBrush(Qt::green), QPen(Qt::green), QSize(60, 60)));
    plot.appendCurve(curve, true);
    Shown shown;

    QVERIFY(runDialog(plot, curve, true, shown));
    QVERIFY(shown.fired);

    QCOMPARE(shown.symbolSize, 50);
    QCOMPARE(curve->symbol()->size(), QSize(50, 50));
    QCOMPARE(curve->symbol()->style(), QwtSymbol::Rect);
}

void tst_CurveSettingDialog::unlistedCurveStylesBecomeDefaults()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    QPen pen(Qt::red, 3);
    pen.setDashPattern({1.0, 2.0, 3.0, 4.0});
    QCOMPARE(pen.style(), Qt::CustomDashLine);
    curve->setPen(pen);
    curve->setSymbol(new QwtSymbol(QwtSymbol::Star1, QBrush(Qt::red), QPen(Qt::red), QSize(9, 9)));
    plot.appendCurve(curve, true);
    Shown shown;

    QVERIFY(runDialog(plot, curve, true, shown));
    QVERIFY(shown.fired);

    QCOMPARE(shown.lineStyleText, QStringLiteral("Solid"));
    QCOMPARE(shown.symbolStyleText, QStringLiteral("No Symbol"));
    QCOMPARE(curve->pen().style(), Qt::SolidLine);
    QCOMPARE(curve->symbol()->style(), QwtSymbol::NoSymbol);
    QCOMPARE(curve->pen().width(), 3);
    QCOMPARE(curve->symbol()->size(), QSize(9, 9));
}

void tst_CurveSettingDialog::acceptanceRoundTripsPenAndSymbolWithStatedLosses()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    QPen pen(QColor(10, 20, 30, 128), 7, Qt::DashDotDotLine, Qt::RoundCap, Qt::MiterJoin);
    curve->setPen(pen);
    curve->setSymbol(new QwtSymbol(QwtSymbol::XCross, QBrush(QColor(90, 80, 70, 40)),
                                   QPen(QColor(1, 1, 1), 3), QSize(12, 12)));
    plot.appendCurve(curve, true);
    const QwtSymbol *before = curve->symbol();

    Shown shown;
    QVERIFY(runDialog(plot, curve, true, shown));
    QVERIFY(shown.fired);

    // Kept: style, width and the colour without its alpha.
    QCOMPARE(curve->pen().style(), Qt::DashDotDotLine);
    QCOMPARE(curve->pen().width(), 7);
    QCOMPARE(curve->pen().color(), QColor(10, 20, 30));
    // Lost: cap and join go back to those of a new pen.
    QCOMPARE(curve->pen().capStyle(), QPen().capStyle());
    QCOMPARE(curve->pen().joinStyle(), QPen().joinStyle());
    // A new symbol: style and size kept, one colour for fill and outline.
    QVERIFY(curve->symbol() != before);
    QCOMPARE(curve->symbol()->style(), QwtSymbol::XCross);
    QCOMPARE(curve->symbol()->size(), QSize(12, 12));
    QCOMPARE(curve->symbol()->brush().color(), QColor(90, 80, 70));
    QCOMPARE(curve->symbol()->brush().style(), Qt::SolidPattern);
    QCOMPARE(curve->symbol()->pen().color(), QColor(90, 80, 70));
    QCOMPARE(plot.replots, 1);
}

void tst_CurveSettingDialog::cancelLeavesCurveAndReturnsFalse()
{
    EditPlot plot;
    auto *curve = new QwtPlotCurve(QStringLiteral("c"));
    const QPen pen(QColor(10, 20, 30, 128), 7, Qt::DashLine, Qt::RoundCap, Qt::MiterJoin);
    curve->setPen(pen);
    curve->setSymbol(new QwtSymbol(QwtSymbol::Diamond, QBrush(Qt::red), QPen(Qt::black), QSize(5, 5)));
    plot.appendCurve(curve, true);
    plot.settle();
    const QwtSymbol *symbol = curve->symbol();
    bool result = true;
    WhenShown cancel(curveDialog, [](QWidget *w) {
        auto *dialog = dynamic_cast<CurveSettingDialog *>(w);
        dialog->setLineAttributes(Qt::DotLine, 1, Qt::green);
        dialog->setSymbolAttributes(QwtSymbol::Ellipse, 20, Qt::green);
        QTest::mouseClick(w->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel),
                          Qt::LeftButton);
    });

    result = plot.editCurveAttributes(curve);

    QVERIFY(cancel.fired());
    QVERIFY(!result);
    QCOMPARE(curve->pen(), pen);
    QCOMPARE(curve->symbol(), symbol);
    QCOMPARE(symbol->style(), QwtSymbol::Diamond);
    QCOMPARE(plot.replots, 0);
}

void tst_CurveSettingDialog::nullCurveOpensNoDialog()
{
    EditPlot plot;
    bool seen = false;
    WhenShown watch(
        curveDialog,
        [&](QWidget *w) {
            seen = true;
            static_cast<QDialog *>(w)->reject();
        },
        200);
    QVERIFY(!plot.editCurveAttributes(nullptr));
    QCoreApplication::processEvents();
    QVERIFY(!seen);
}

QTEST_MAIN(tst_CurveSettingDialog)
#include "tst_curvesettingdialog.moc"
