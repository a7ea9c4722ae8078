#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/plots/BarPlot.h>

#include <QString>

// A bar plot over a time axis of seconds, 0 to 300 s at the start. The x axis
// labels always read as elapsed time ("00:01", "1d 06:00" ...), following the
// zoom; its title stays "Time (hh:mm:ss)" whatever the labels show. The
// context menu offers automatic scrolling, whose flag is for the host, which
// feeds the data and moves the axis; the settings dialog shows the time
// format group, but the plot takes no value from it.
class FIGURA_EXPORT TimeBarPlot : public BarPlot
{
    Q_OBJECT

public:
    explicit TimeBarPlot(QWidget *parent = nullptr);
    ~TimeBarPlot() override;

    // Returns 4.
    int rtti() const override;

protected:
    // The x value as "Time: hh:mm:ss"; other axes as in BarPlot.
    QString axisValueText(int axisId, double value) override;
};
