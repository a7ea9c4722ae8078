#pragma once

// Shared by the stress and lifetime tests: the plot classes by name, made
// with a little data, a bail-out that ends any menu or dialog a failing test
// leaves open, and the handling of the offscreen platform's notices.

#include <figura/plots/BarPlot.h>
#include <figura/plots/CurvePlot.h>
#include <figura/plots/MultiBarPlot.h>
#include <figura/plots/TimeBarPlot.h>
#include <figura/plots/TimeCurvePlot.h>
#include <figura/plots/VoidPlot.h>

#include <TestSupport.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QList>
#include <QMenu>
#include <QPointF>
#include <QString>
#include <QTest>
#include <QVector>
#include <QWidget>

#include <qwt_column_symbol.h>
#include <qwt_plot_barchart.h>
#include <qwt_plot_curve.h>
#include <qwt_samples.h>
#include <qwt_text.h>

#include <functional>
#include <memory>

namespace StressSupport {

// The plot classes of the library, by the names used as test rows.
inline QStringList plotClassNames()
{
    return {QStringLiteral("VoidPlot"), QStringLiteral("CurvePlot"),
            QStringLiteral("TimeCurvePlot"), QStringLiteral("BarPlot"),
            QStringLiteral("TimeBarPlot"), QStringLiteral("MultiBarPlot")};
}

// The classes that hold data and have a read-out.
inline QStringList dataPlotClassNames()
{
    QStringList names = plotClassNames();
    names.removeFirst();
    return names;
}

// count samples from x = first in steps of step; y rises with the index, so
// that a marker's y tells which sample it stands on.
inline QVector<QPointF> risingSamples(int count, double first = 1.0, double step = 1.0,
                                      double yScale = 1e-9)
{
    QVector<QPointF> samples;
    samples.reserve(count);
    for (int i = 0; i < count; ++i)
        samples << QPointF(first + i * step, yScale * (i + 1));
    return samples;
}

inline QwtPlotCurve *curveOf(const QString &title, const QVector<QPointF> &samples)
{
    auto *curve = new QwtPlotCurve(title);
    curve->setSamples(samples);
    return curve;
}

inline QwtPlotBarChart *barChartOf(const QString &title, const QVector<QPointF> &samples)
{
    auto *chart = new QwtPlotBarChart(title);
    chart->setSamples(samples);
    return chart;
}

inline void fillMultiBars(MultiBarPlot *plot, int sets)
{
    QList<QwtSetSample> samples;
    for (int i = 0; i < sets; ++i)
        samples << QwtSetSample(i + 1, {1e-9 * (1 + i % 5), 2e-9, 3e-9});
    plot->updateMultiBarChart(&samples, {Qt::red, Qt::green, Qt::blue},
                              {QwtText(QStringLiteral("a")), QwtText(QStringLiteral("b")),
                               QwtText(QStringLiteral("c"))});
}

// A curve plot that binds legend entries to their menu, which only a
// subclass may do.
template <class Base>
class LegendBinding : public Base
{
public:
    using Base::Base;
    using CurvePlot::setLegend;
};

// Two curves with markers, bound to a right legend.
template <class Plot>
void fillCurves(LegendBinding<Plot> *plot, int samplesPerSeries, double step)
{
    plot->enableLegend(QwtPlot::RightLegend);
    for (int i = 0; i < 2; ++i) {
        QwtPlotCurve *curve = curveOf(QStringLiteral("curve %1").arg(i),
                                      risingSamples(samplesPerSeries, step, step, 1e-9 * (i + 1)));
        plot->appendCurve(curve, true);
        plot->setLegend(curve);
    }
}

// A plot of the named class, a child of parent, with two series of
// samplesPerSeries samples (one set per x on a MultiBarPlot) and a legend
// where the class has one. A VoidPlot gets no data.
inline VoidPlot *makePlot(const QString &className, QWidget *parent, int samplesPerSeries = 50)
{
    // Time plots read their x in seconds over a 300 s axis.
    const double step = className.startsWith(QLatin1String("Time")) ? 5.0 : 1.0;
    if (className == QLatin1String("CurvePlot")) {
        auto *plot = new LegendBinding<CurvePlot>(parent);
        fillCurves(plot, samplesPerSeries, step);
        return plot;
    }
    if (className == QLatin1String("TimeCurvePlot")) {
        auto *plot = new LegendBinding<TimeCurvePlot>(parent);
        fillCurves(plot, samplesPerSeries, step);
        return plot;
    }
    if (className == QLatin1String("BarPlot") || className == QLatin1String("TimeBarPlot")) {
        BarPlot *plot = className == QLatin1String("BarPlot") ? new BarPlot(parent)
                                                               : new TimeBarPlot(parent);
        for (int i = 0; i < 2; ++i) {
            plot->appendBarChart(barChartOf(QStringLiteral("bars %1").arg(i),
                                            risingSamples(samplesPerSeries, step, step, 1e-9 * (i + 1))),
                                 true);
            plot->setBarChartColor(i, i ? Qt::blue : Qt::red);
        }
        return plot;
    }
    if (className == QLatin1String("MultiBarPlot")) {
        auto *plot = new MultiBarPlot(parent);
        fillMultiBars(plot, samplesPerSeries);
        return plot;
    }
    return new VoidPlot(parent);
}

// Ends whatever menu or modal dialog is still open after a deadline, so that
// a test whose expectation fails returns from exec() and fails instead of
// hanging. It never acts before the deadline.
class BailOut : public QObject
{
public:
    explicit BailOut(int afterMs = 10000) : m_after(afterMs)
    {
        m_clock.start();
        startTimer(50);
    }
    bool struck() const { return m_struck; }

protected:
    void timerEvent(QTimerEvent *) override
    {
        if (!m_clock.hasExpired(m_after))
            return;
        if (QWidget *popup = QApplication::activePopupWidget()) {
            m_struck = true;
            popup->close();
        }
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            m_struck = true;
            dialog->reject();
        }
    }

private:
    QElapsedTimer m_clock;
    int m_after;
    bool m_struck = false;
};

// Makes an entry of an open menu the current one and presses Return on it, as
// a user does: the menu closes and exec() returns that action. False if the
// menu has no entry of that text.
inline bool chooseEntry(QMenu *menu, const QString &text)
{
    if (!menu)
        return false;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (QString(action->text()).remove(QLatin1Char('&')) == text) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
            return true;
        }
    }
    return false;
}

// Opens the submenu of an open menu by its object name, with the Right key.
inline bool openSubmenu(QMenu *menu, const QString &objectName)
{
    if (!menu)
        return false;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->menu() && action->menu()->objectName() == objectName) {
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Right);
            return true;
        }
    }
    return false;
}

inline QMenu *activeMenuNamed(const QString &objectName)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    return menu && menu->objectName() == objectName ? menu : nullptr;
}

// Chooses the entry of the menu of that object name as soon as it is open.
inline std::unique_ptr<TestSupport::WhenShown> chooseWhenShown(const QString &menuName,
                                                               const QString &entry)
{
    return std::make_unique<TestSupport::WhenShown>(
        [menuName] { return activeMenuNamed(menuName); },
        [entry](QWidget *shown) { QVERIFY(chooseEntry(qobject_cast<QMenu *>(shown), entry)); });
}

// Opens the submenu of the menu of that object name as soon as it is open.
inline std::unique_ptr<TestSupport::WhenShown> openSubmenuWhenShown(const QString &menuName,
                                                                    const QString &submenuName)
{
    return std::make_unique<TestSupport::WhenShown>(
        [menuName] { return activeMenuNamed(menuName); }, [submenuName](QWidget *shown) {
            QVERIFY(openSubmenu(qobject_cast<QMenu *>(shown), submenuName));
        });
}

// The offscreen platform warns of each window feature it lacks; everything
// else goes on to QtTest's handler.
inline QtMessageHandler &previousHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

inline void dropPlatformNotices(QtMsgType type, const QMessageLogContext &context,
                                const QString &message)
{
    if (type == QtWarningMsg && message.startsWith(QLatin1String("This plugin does not support")))
        return;
    previousHandler()(type, context, message);
}

inline void installNoticeFilter()
{
    if (!previousHandler())
        previousHandler() = qInstallMessageHandler(dropPlatformNotices);
}

} // namespace StressSupport
