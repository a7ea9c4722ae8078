#pragma once

// Small helpers shared by the widget tests: making a plot the active window,
// sending pointer events to the canvas and answering menus and modal dialogs
// from a poller that runs inside their nested event loops.

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QMouseEvent>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>
#include <QWheelEvent>
#include <QWidget>

#include <qwt_plot.h>
#include <qwt_text.h>

#include <functional>

namespace TestSupport {

inline bool showActive(QWidget &w, QSize size = QSize(400, 300))
{
    w.resize(size);
    w.show();
    if (!QTest::qWaitForWindowExposed(&w))
        return false;
    w.activateWindow();
    return QTest::qWaitForWindowActive(&w) && QApplication::activeWindow() == &w;
}

inline void mouse(QWidget *w, QEvent::Type type, QPoint p, Qt::MouseButton button = Qt::NoButton,
                  Qt::MouseButtons held = Qt::NoButton, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QMouseEvent ev(type, QPointF(p), QPointF(w->mapToGlobal(p)), button, held, mods);
    QCoreApplication::sendEvent(w, &ev);
}

inline void wheel(QWidget *w, QPoint p, int notches, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QWheelEvent ev(QPointF(p), QPointF(w->mapToGlobal(p)), QPoint(), QPoint(0, 120 * notches),
                   Qt::NoButton, mods, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(w, &ev);
}

inline void contextMenu(QWidget *w, QPoint p)
{
    QContextMenuEvent ev(QContextMenuEvent::Mouse, p, w->mapToGlobal(p), Qt::NoModifier);
    QCoreApplication::sendEvent(w, &ev);
}

inline void drag(QWidget *w, QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    mouse(w, QEvent::MouseButtonPress, from, button, button, mods);
    mouse(w, QEvent::MouseMove, to, Qt::NoButton, button, mods);
    mouse(w, QEvent::MouseButtonRelease, to, button, Qt::NoButton, mods);
}

// Runs act(w) on the first widget that find() returns, polling every 20 ms.
// Set it up before the blocking exec(); it gives up after the timeout and
// closes whatever popup or modal dialog is open, so a test fails, never hangs.
class WhenShown : public QObject
{
public:
    WhenShown(std::function<QWidget *()> find, std::function<void(QWidget *)> act, int timeoutMs = 5000)
        : m_find(std::move(find)), m_act(std::move(act)), m_timeout(timeoutMs)
    {
        m_clock.start();
        m_id = startTimer(20);
    }
    bool fired() const { return m_fired; }

protected:
    void timerEvent(QTimerEvent *) override
    {
        if (m_fired)
            return;
        if (QWidget *w = m_find()) {
            killTimer(m_id);
            m_fired = true;
            m_act(w);
            return;
        }
        if (!m_clock.hasExpired(m_timeout))
            return;
        killTimer(m_id);
        if (QWidget *p = QApplication::activePopupWidget())
            p->close();
        if (auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
            d->reject();
    }

private:
    std::function<QWidget *()> m_find;
    std::function<void(QWidget *)> m_act;
    QElapsedTimer m_clock;
    int m_timeout;
    int m_id = 0;
    bool m_fired = false;
};

inline QWidget *activePopup() { return QApplication::activePopupWidget(); }

// The entries of a menu as text: an action by its text without '&', a
// separator as "-", a submenu as ">" followed by its object name.
inline QStringList menuEntries(const QMenu *menu)
{
    QStringList entries;
    if (!menu)
        return entries;
    const QList<QAction *> actions = menu->actions();
    for (const QAction *action : actions) {
        if (action->isSeparator())
            entries << QStringLiteral("-");
        else if (action->menu())
            entries << QLatin1Char('>') + action->menu()->objectName();
        else
            entries << QString(action->text()).remove(QLatin1Char('&'));
    }
    return entries;
}
inline QWidget *activeModal() { return QApplication::activeModalWidget(); }

// Picks an entry of the next context menu.
class MenuPick
{
public:
    explicit MenuPick(const QString &entry)
        : m_watch(activePopup, [entry](QWidget *w) {
              auto *menu = qobject_cast<QMenu *>(w);
              if (!menu) {
                  w->close();
                  return;
              }
              const QList<QAction *> actions = menu->actions();
              for (QAction *action : actions) {
                  if (QString(action->text()).remove(QLatin1Char('&')) == entry)
                      menu->setActiveAction(action);
              }
              QTest::keyClick(menu, Qt::Key_Return);
          })
    {
    }
    bool fired() const { return m_watch.fired(); }

private:
    WhenShown m_watch;
};

// Hands the modal dialog of class Dialog to act as soon as it runs (act ends
// it); any other modal widget that comes first is closed. seen() tells
// whether act ran.
template <class Dialog>
class AnswerDialog : public WhenShown
{
public:
    explicit AnswerDialog(std::function<void(Dialog &)> act)
        : WhenShown(activeModal, [this, act = std::move(act)](QWidget *w) {
              auto *dialog = qobject_cast<Dialog *>(w);
              if (!dialog) {
                  w->close();
                  return;
              }
              m_seen = true;
              act(*dialog);
          })
    {
    }
    bool seen() const { return m_seen; }

private:
    bool m_seen = false;
};

// Counts replots of any QwtPlot subclass.
template <class Base>
class ReplotCounter : public Base
{
public:
    using Base::Base;
    int replots = 0;
    void replot() override
    {
        ++replots;
        Base::replot();
    }
    // A new widget gets a polish request posted, and QwtPlot answers it with
    // a replot: deliver it and start counting from zero.
    void settle()
    {
        QCoreApplication::sendPostedEvents(this, QEvent::PolishRequest);
        replots = 0;
    }
};

// For initMain(): Qt's own dialogs instead of native ones, and the standard
// paths of test mode.
inline void useTestDialogsAndPaths()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QStandardPaths::setTestModeEnabled(true);
}

// A base for test classes that drive Qt's own dialogs: QTEST_MAIN calls its
// initMain() before the application exists.
class DialogTestCase : public QObject
{
public:
    static void initMain() { useTestDialogsAndPaths(); }
};

// Sends every QSettings file, Qt's own included, to a temporary directory.
inline bool redirectSettings(const QTemporaryDir &dir)
{
    if (!dir.isValid())
        return false;
    for (auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        for (auto scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, dir.path());
    return true;
}

// Sends the application settings of this test program, and those that Qt's
// colour and font dialogs keep, to a directory of its own.
inline bool isolateSettings(const QTemporaryDir &dir, const QString &application)
{
    QCoreApplication::setOrganizationName(QStringLiteral("FiguraTests"));
    QCoreApplication::setApplicationName(application);
    return redirectSettings(dir);
}

// Gives an axis title a new text and keeps its font, colour and the rest.
inline void setAxisTitleText(QwtPlot &plot, int axisId, const QString &text)
{
    QwtText title = plot.axisTitle(axisId);
    title.setText(text);
    plot.setAxisTitle(axisId, title);
}

// Counts paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

// Translates the texts of one context by putting a mark around them.
class MarkingTranslator : public QTranslator
{
public:
    explicit MarkingTranslator(const char *context) : m_context(context) {}
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *disambiguation,
                      int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        if (qstrcmp(context, m_context) != 0)
            return QString();
        return QStringLiteral("<%1>").arg(QString::fromUtf8(sourceText));
    }

private:
    const char *m_context;
};

} // namespace TestSupport
