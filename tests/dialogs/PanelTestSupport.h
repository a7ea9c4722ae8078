#pragma once

// Helpers shared by the tests of the settings pages and the plot settings
// dialog: where a widget sits in a form, what a button holds, and answering
// the font and colour dialogs that the buttons open.

#include <figura/plots/VoidPlot.h>

#include <TestSupport.h>

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFontDialog>
#include <QGroupBox>
#include <QGridLayout>
#include <QIcon>
#include <QImage>
#include <QLayout>
#include <QPixmap>
#include <QSettings>
#include <QSpacerItem>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>

namespace PanelTest {

// A child widget or layout of a page by object name.
template <class T = QWidget>
T *child(QWidget &root, const QString &name)
{
    return root.findChild<T *>(name);
}

// A title or label text of the given font and colour.
inline QwtText fontColor(const QFont &font, const QColor &color, const QString &text = QString())
{
    QwtText t(text);
    t.setFont(font);
    t.setColor(color);
    return t;
}

inline TickLabelFormat tickFormat(const QFont &font, const QColor &color, int rotation)
{
    TickLabelFormat f;
    f.font = font;
    f.color = color;
    f.rotation = rotation;
    return f;
}

// Row, column and column span of a widget in a grid; -1 where it is not there.
struct GridPlace
{
    int row = -1;
    int column = -1;
    int columnSpan = -1;
};

inline GridPlace placeIn(QGridLayout *grid, QWidget *widget)
{
    GridPlace place;
    if (!grid || !widget)
        return place;
    const int index = grid->indexOf(widget);
    if (index < 0)
        return place;
    int rowSpan = 0;
    grid->getItemPosition(index, &place.row, &place.column, &rowSpan, &place.columnSpan);
    return place;
}

inline QSpacerItem *spacerAt(QGridLayout *grid, int row, int column)
{
    if (!grid)
        return nullptr;
    QLayoutItem *item = grid->itemAtPosition(row, column);
    return item ? item->spacerItem() : nullptr;
}

// The widgets, spacers and layouts of a box layout, in order, by object
// name; a spacer as "spacer".
inline QStringList boxItems(QLayout *layout)
{
    QStringList names;
    if (!layout)
        return names;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (item->widget())
            names << item->widget()->objectName();
        else if (item->layout())
            names << item->layout()->objectName();
        else if (item->spacerItem())
            names << QStringLiteral("spacer");
    }
    return names;
}

inline QImage iconImage(const QIcon &icon, QSize size)
{
    return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

// Whether an icon shows the image of a resource, at the resource's size.
inline bool iconShows(const QIcon &icon, const QString &resource)
{
    const QImage expected = QImage(resource).convertToFormat(QImage::Format_ARGB32);
    if (expected.isNull() || icon.isNull())
        return false;
    return iconImage(icon, expected.size()) == expected;
}

inline QString fontString(const QAbstractButton *button)
{
    return button ? button->property("fontString").toString() : QString();
}

// A font as the buttons keep it, read back.
inline QFont fontOf(const QAbstractButton *button)
{
    QFont font;
    font.fromString(fontString(button));
    return font;
}

// Clicks a colour button and accepts the colour dialog with a colour; an
// invalid colour cancels the dialog. Returns whether the dialog was seen.
inline bool chooseColor(QAbstractButton *button, const QColor &color)
{
    TestSupport::WhenShown answer(TestSupport::activeModal, [color](QWidget *w) {
        auto *dialog = qobject_cast<QColorDialog *>(w);
        if (!dialog) {
            w->close();
            return;
        }
        if (color.isValid()) {
            dialog->setCurrentColor(color);
            static_cast<QDialog *>(dialog)->accept();
        } else {
            static_cast<QDialog *>(dialog)->reject();
        }
    });
    button->click();
    return answer.fired();
}

// The same for a font button and the font dialog.
inline bool chooseFont(QAbstractButton *button, const QFont &font, bool accept = true)
{
    TestSupport::WhenShown answer(TestSupport::activeModal, [font, accept](QWidget *w) {
        auto *dialog = qobject_cast<QFontDialog *>(w);
        if (!dialog) {
            w->close();
            return;
        }
        dialog->setCurrentFont(font);
        if (accept)
            static_cast<QDialog *>(dialog)->accept();
        else
            static_cast<QDialog *>(dialog)->reject();
    });
    button->click();
    return answer.fired();
}

using TestSupport::isolateSettings;

// The columns of a table of the widgets of a form and where it places them.
inline void addPlacementColumns()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("groupBox");
    QTest::addColumn<QString>("grid");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("columnSpan");
    QTest::addColumn<QString>("text"); // of a label, button or check box; "-" for none
}

inline void addPlacementRow(const char *name, const char *cls, const char *box, const char *grid,
                            int r, int c, int span, const QString &text)
{
    QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(cls)
                        << QString::fromLatin1(box) << QString::fromLatin1(grid) << r << c << span
                        << text;
}

// Checks that the widget of the current placement row has its class and sits
// at its place in the grid that is the layout of its group box; sets widget
// to it only when all of that holds.
inline void checkPlacement(QWidget &root, QWidget *&widget)
{
    widget = nullptr;
    QFETCH(QString, name);
    QFETCH(QString, className);
    QFETCH(QString, groupBox);
    QFETCH(QString, grid);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, columnSpan);

    QWidget *found = child(root, name);
    QVERIFY(found);
    QCOMPARE(QString::fromLatin1(found->metaObject()->className()), className);
    auto *box = child<QGroupBox>(root, groupBox);
    QVERIFY(box);
    auto *layout = box->findChild<QGridLayout *>(grid);
    QVERIFY(layout);
    QCOMPARE(box->layout(), layout);
    const GridPlace place = placeIn(layout, found);
    QCOMPARE(place.row, row);
    QCOMPARE(place.column, column);
    QCOMPARE(place.columnSpan, columnSpan);
    widget = found;
}

// The columns of a table of the spacers that end the grids of a form.
inline void addSpacerColumns()
{
    QTest::addColumn<QString>("grid");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("width");
}

// Checks the spacer of the current row: where it sits, its width, and that
// it expands.
inline void checkGridEndsWithSpacer(QWidget &root)
{
    QFETCH(QString, grid);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(int, width);
    QSpacerItem *spacer = spacerAt(child<QGridLayout>(root, grid), row, column);
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint().width(), width);
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
}

// A plot whose restore-defaults values are chosen by the test.
class DefaultsPlot : public VoidPlot
{
public:
    using VoidPlot::VoidPlot;

    QwtText plotTitleDefault;
    QwtText axisTitleDefault;
    TickLabelFormat tickLabelDefault;
    QwtText markerLabelDefault;
    PeakLabelFormat peakLabelDefault;
    bool useOwnDefaults = false;
    QList<int> askedAxes; // the axes defaultAxisTitle() was asked for

    QwtText defaultPlotTitle() override
    {
        return useOwnDefaults ? plotTitleDefault : VoidPlot::defaultPlotTitle();
    }
    QwtText defaultAxisTitle(int axisId) override
    {
        askedAxes << axisId;
        if (!useOwnDefaults)
            return VoidPlot::defaultAxisTitle(axisId);
        QwtText title = axisTitleDefault;
        title.setText(title.text() + QStringLiteral(" %1").arg(axisId));
        return title;
    }
    TickLabelFormat defaultTickLabel(int axisId) override
    {
        return useOwnDefaults ? tickLabelDefault : VoidPlot::defaultTickLabel(axisId);
    }
    QwtText defaultMarkerLabel() override
    {
        return useOwnDefaults ? markerLabelDefault : VoidPlot::defaultMarkerLabel();
    }
    PeakLabelFormat defaultPeakLabelFormat() override
    {
        return useOwnDefaults ? peakLabelDefault : VoidPlot::defaultPeakLabelFormat();
    }
};

} // namespace PanelTest
