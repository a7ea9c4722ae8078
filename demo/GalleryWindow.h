#pragma once

#include <QDateTime>
#include <QList>
#include <QMainWindow>
#include <QStringList>

class GalleryPlot;
class PlotLook;
class QAction;
class QCloseEvent;
class QTabWidget;
class QwtPlot;

struct GalleryOptions
{
    // A timer feeds the trend with a reading every 100 ms.
    bool live = true;
    // The looks of the plots, dark mode, the window's geometry and page are
    // read from the application's settings at start and written at close.
    bool persistent = true;
    // x = 0 of the trend; invalid means prefillSeconds before now.
    QDateTime recordStart;
    // The trend starts with this much history.
    double prefillSeconds = 180.0;
};

// The gallery: one page per plot class of the library, each a host
// subclass with realistic data, a dark mode switch, and the look of every
// plot kept in the application's settings from one run to the next.
class GalleryWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit GalleryWindow(const GalleryOptions &options = GalleryOptions(),
                           QWidget *parent = nullptr);
    ~GalleryWindow() override;

    QList<GalleryPlot *> pages() const;
    // The page of that key, or null.
    GalleryPlot *page(const QString &key) const;
    PlotLook *look(const QString &key) const;

    bool isDarkMode() const;

    // The settings key of a page's look.
    static QString lookKey(const QString &pageKey);
    void saveSettings() const;
    void restoreSettings();

    // Renders every page to "<key>.png", in light and in dark mode
    // ("<key>-dark.png"), the whole window to "gallery.png" and the curve
    // plot to "curveplot.pdf", under directory, which is made if needed.
    // Returns the files written, in that order; on a failure, what was
    // written before it, with error telling what failed.
    QStringList renderScreenshots(const QString &directory, QString *error);

public Q_SLOTS:
    // Applies the dark or the light palette to the window and every plot.
    void setDarkMode(bool on);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    struct Page
    {
        GalleryPlot *plot = nullptr;
        PlotLook *look = nullptr;
    };

    void addPage(GalleryPlot *plot);
    void createMenus();
    void showAbout();
    void showPage(int index);
    int pageIndex(const QString &key) const;

    GalleryOptions options;
    QTabWidget *tabs = nullptr;
    QAction *darkModeAct = nullptr;
    QList<Page> pageList;
    bool dark = false;
};
