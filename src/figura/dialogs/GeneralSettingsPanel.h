#pragma once

#include <figura/FiguraGlobal.h>

#include <QColor>
#include <QFrame>

#include <qwt_text.h>

#include <memory>

namespace Ui {
class GeneralSettingsPanel;
}

class VoidPlot;

// The first page of the plot settings dialog: plot title, canvas and grid
// colours, chart colour, line width, bar chart baseline and time display.
//
// The widgets hold the values shown now; the default... members hold what
// Restore Defaults puts back. Setters change the widgets, setDefault...
// operations change only the members. Colours live in their buttons as the
// colour's name, fonts in the property "fontString" of their button. The
// plot is read once, at construction, for its dark mode and its default
// title; it is not owned and may be null.
class FIGURA_AUTOTEST_EXPORT GeneralSettingsPanel : public QFrame
{
    Q_OBJECT

public:
    explicit GeneralSettingsPanel(VoidPlot *plot, QWidget *parent = nullptr);
    ~GeneralSettingsPanel() override;

    // Copies the default members into the widgets; the apply-to-all check
    // box is left as it is.
    void restoreDefaults();

    // The title's text, font and colour are edited; whatever else the
    // QwtText holds (text format, render flags, background) survives.
    void setPlotTitle(const QwtText &title);
    QwtText plotTitle() const;
    // Takes font and colour only: the default text stays the plot's own.
    void setDefaultPlotTitle(const QwtText &title);

    // An invalid colour changes nothing.
    void setCanvasColor(const QColor &color);
    QColor canvasColor() const;
    void setDefaultCanvasColor(const QColor &color);
    void setMajorGridColor(const QColor &color);
    QColor majorGridColor() const;
    void setDefaultMajorGridColor(const QColor &color);
    void setMinorGridColor(const QColor &color);
    QColor minorGridColor() const;
    void setDefaultMinorGridColor(const QColor &color);
    void setChartColor(const QColor &color);
    QColor chartColor() const;
    void setDefaultChartColor(const QColor &color);

    void setLineChartWidth(int width);
    int lineChartWidth() const;
    void setDefaultLineChartWidth(int width);
    void setApplyLineWidthToAll(bool on);
    bool isApplyLineWidthChecked() const;

    // Written and read in the C form ("2e-06"), six significant digits; an
    // unreadable text reads as baselineFallback.
    void setBarChartBaseline(double value);
    double barChartBaseline() const;
    void setDefaultBarChartBaseline(double value);
    // Installs a new validator for the range on the baseline edit.
    void setBarChartBaselineRange(double min, double max);

    // 1 elapsed time, 2 local date and time; any other code shows elapsed time.
    void setTimeFormat(int code);
    int timeFormat() const;
    void setDefaultTimeFormat(int code);

    // Hidden widgets keep their values and go on answering their getters.
    void setPlotTitleOptionsVisible(bool on);
    void setCanvasOptionsVisible(bool on);
    void setChartOptionsVisible(bool on);
    void setChartColorVisible(bool on);
    void setLineChartWidthVisible(bool on);
    void setApplyLineWidthVisible(bool on);
    void setBarChartBaselineVisible(bool on);
    void setTimeFormatVisible(bool on);

private Q_SLOTS:
    void onTitleFontButtonClicked();
    void onTitleColorButtonClicked();
    void onCanvasColorButtonClicked();
    void onMajorGridColorButtonClicked();
    void onMinorGridColorButtonClicked();
    void onChartColorButtonClicked();

private:
    void installBaselineValidator(double min, double max);

    std::unique_ptr<Ui::GeneralSettingsPanel> ui;

protected:
    VoidPlot *plot = nullptr;
    QwtText defaultPlotTitle;
    QColor defaultCanvasColor;
    QColor defaultMajorGridColor;
    QColor defaultMinorGridColor;
    QColor defaultChartColor;
    int defaultLineChartWidth;
    double defaultBarChartBaseline;
    int defaultTimeFormat;
    QwtText plotTitleValue;        // the title as last set
    double baselineFallback;       // what barChartBaseline() gives for an unreadable text
    double baselineMin;
    double baselineMax;
};
