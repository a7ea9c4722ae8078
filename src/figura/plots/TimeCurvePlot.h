#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/plots/CurvePlot.h>

#include <QString>

class QDateTime;
class QEvent;
class QKeyEvent;
class QObject;
class TimeScaleDraw;

// A CurvePlot over a time axis: the x values of the host's samples are
// seconds, shown as elapsed time (time format 1, the default) or as local
// date and time counted from a reference date and time (time format 2). The
// tick labels follow the zoom, from milliseconds to weeks, and the title of
// the time axis names their format, for instance "Elapsed Time (hh:mm)".
//
// Keys, beyond the arrows, Home and End that step the read-out: Return or
// Enter selects the sample under the read-out, Escape drops the selection,
// and Ctrl with an arrow, Home or End moves the selection itself.
//
// Ownership: the plot keeps its own copy of the reference time, in local
// time, and deletes it. The time scale draw and the time scale engines belong
// to the x axis; they read the plot's copy.
class FIGURA_EXPORT TimeCurvePlot : public CurvePlot
{
    Q_OBJECT

public:
    explicit TimeCurvePlot(QWidget *parent = nullptr);
    ~TimeCurvePlot() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

    // Returns 3.
    int rtti() const override;

    // The default title of the x axis is the title of the default time
    // format; the other axes keep the frame's default.
    QwtText defaultAxisTitle(int axisId) override;

    // 1 elapsed time, 2 local date and time.
    int timeFormat() const;
    // Switches format, scale engine and axis title. Any other code is
    // ignored; the same code again puts a new engine on the axis. Emits
    // nothing and does not replot.
    void setTimeFormat(int format);

    // The format that defaultAxisTitle() assumes; storing it changes nothing else.
    int defaultTimeFormat() const;
    void setDefaultTimeFormat(int format);

    // Sets the x axis to 0 to 300 s.
    virtual void setInitialXInterval();

Q_SIGNALS:
    void timeFormatChanged(int formatId);

public Q_SLOTS:
    // Takes a copy of the date and time that x = 0 stands for, in local
    // time; null or an invalid date and time clears it. Without a reference
    // a local time axis has no labels and the read-out no time. A fixed x
    // scale is divided again for the new date; nothing is replotted.
    void setReferenceTime(const QDateTime *refDateTime);

protected Q_SLOTS:
    // Sets the x axis title to the title of the present time format with
    // the label format name in parentheses behind it. Not reached by the time
    // scale draw itself: an override is for the host's own calls.
    virtual void updateTimeAxisTitle(const QString &format);

protected:
    // setTimeFormat(), and timeFormatChanged() if format differs from the
    // present one. Unknown codes are not filtered here. Declared after
    // updateTimeAxisTitle() on purpose: the order of the virtual functions is
    // part of the binary interface.
    virtual void updateTimeFormat(int format);

    void keyPressEvent(QKeyEvent *event) override;
    // The x value as a bare time ("1d 02:03:04", "2024-05-01 10:17:23"),
    // empty below zero and, for local time, without a reference; the other
    // axes as in CurvePlot.
    QString axisValueText(int axisId, double value) override;
    // The time format joins the exchange with the settings dialog; on
    // acceptance it is applied before everything else.
    void loadToPlotSettingDialog(PlotSettingsDialog &dialog) override;
    void saveFromPlotSettingDialog(const PlotSettingsDialog &dialog) override;

private Q_SLOTS:
    // Reached from the draw of the x axis, inside its paint.
    void onTimeScaleLabelFormatChanged(const QString &format);

protected:
    QString elapsedTitle;
    QString localTitle;
    int timeFormatValue = 1;
    int defaultTimeFormatValue = 1;
    // Date and time of x = 0, in local time; owned. The same object is kept
    // over later calls, so the pointers of draw and engine stay good.
    QDateTime *referenceTime = nullptr;
    // Owned by the x axis; null once the axis has deleted it.
    TimeScaleDraw *timeScaleDraw = nullptr;

private:
    QString elapsedTimeText(double value) const;
    QString localTimeText(double value) const;
};
