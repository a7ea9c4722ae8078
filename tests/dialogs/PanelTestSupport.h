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
#include <QGridLayout>
#include <QIcon>
#include <QImage>
#include <QLayout>
#include <QPixmap>
#include <QSettings>
#include <QSpacerItem>
#include <QTemporaryDir>
#include <QVariant>

namespace PanelTest {

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

// Sends the application settings of this test program, and those that Qt's
// colour and font dialogs keep, to a directory of its own.
inline bool isolateSettings(const QTemporaryDir &dir, const QString &application)
{
    QCoreApplication::setOrganizationName(QStringLiteral("FiguraTests"));
    QCoreApplication::setApplicationName(application);
    if (!dir.isValid())
        return false;
    for (auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        for (auto scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, dir.path());
    return true;
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
