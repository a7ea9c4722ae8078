#include "GalleryWindow.h"

#include "BarMassScanPlot.h"
#include "CycleBarPlot.h"
#include "GalleryPalette.h"
#include "GalleryPlot.h"
#include "GroupBarPlot.h"
#include "MassScanPlot.h"
#include "PlotLook.h"
#include "TrendPlot.h"

#include <figura/defaults/PlotDefault.h>
#include <figura/plots/VoidPlot.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <qwt_global.h>
#include <qwt_plot_renderer.h>

#include <algorithm>

namespace {

const QString GeometryKey = QStringLiteral("Gallery/geometry");
const QString DarkModeKey = QStringLiteral("Gallery/darkMode");
const QString PageKey = QStringLiteral("Gallery/page");

// The size of the window for pictures: plots of about 960 by 560 pixels.
const QSize ScreenshotWindowSize(1000, 720);

bool savePng(QWidget *widget, const QString &path, QStringList &written, QString *error)
{
    const QPixmap picture = widget->grab();
    // Quality 0 is the strongest compression of PNG's lossless kind.
    if (picture.isNull() || !picture.save(path, "PNG", 0)) {
        if (error)
            *error = QCoreApplication::translate("GalleryWindow", "could not write %1").arg(path);
        return false;
    }
    written.append(path);
    return true;
}

} // namespace

GalleryWindow::GalleryWindow(const GalleryOptions &options, QWidget *parent)
    : QMainWindow(parent)
    , options(options)
{
    setObjectName(QStringLiteral("galleryWindow"));
    setWindowTitle(tr("Figura Gallery"));

    tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("pages"));
    tabs->setDocumentMode(true);
    setCentralWidget(tabs);

    addPage(new MassScanPlot);

    QDateTime start = options.recordStart;
    if (!start.isValid())
        start = QDateTime::currentDateTime().addMSecs(qint64(-options.prefillSeconds * 1000.0));
    auto *trend = new TrendPlot(start);
    trend->prefill(options.prefillSeconds);
    connect(trend, &TrendPlot::statusMessage, this,
            [this](const QString &text) { statusBar()->showMessage(text); });
    addPage(trend);

    addPage(new BarMassScanPlot);
    addPage(new CycleBarPlot);
    addPage(new GroupBarPlot);

    createMenus();
    statusBar()->showMessage(tr("Right-click a plot for its menu; the wheel zooms, the left "
                                "button pans, the right button draws a zoom box."));
    resize(1100, 760);

    if (options.persistent)
        restoreSettings();
    if (options.live)
        trend->startSampling();
}

GalleryWindow::~GalleryWindow() = default;

void GalleryWindow::addPage(GalleryPlot *plot)
{
    auto *page = new QWidget;
    page->setObjectName(plot->pageKey() + QStringLiteral("Page"));
    auto *layout = new QVBoxLayout(page);
    auto *caption = new QLabel(plot->pageCaption(), page);
    caption->setWordWrap(true);
    layout->addWidget(caption);
    layout->addWidget(plot->plotWidget(), 1);
    const int index = tabs->addTab(page, plot->pageTitle());
    tabs->setTabToolTip(index, plot->pageCaption());

    pageList.append({plot, new PlotLook(plot)});
}

void GalleryWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu *view = menuBar()->addMenu(tr("&View"));
    darkModeAct = view->addAction(tr("&Dark Mode"));
    darkModeAct->setObjectName(QStringLiteral("darkModeAct"));
    darkModeAct->setCheckable(true);
    darkModeAct->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    darkModeAct->setStatusTip(tr("Switch all plots between the light and the dark palette"));
    connect(darkModeAct, &QAction::toggled, this, &GalleryWindow::setDarkMode);

    QMenu *help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About Figura Gallery"), this, &GalleryWindow::showAbout);
}

void GalleryWindow::showAbout()
{
    QMessageBox::about(this, tr("About Figura Gallery"),
                       tr("<p>The plot classes of Figura with realistic data, written as a "
                          "host application writes them.</p><p>Qt %1, Qwt %2</p>")
                           .arg(QString::fromLatin1(qVersion()), QStringLiteral(QWT_VERSION_STR)));
}

QList<GalleryPlot *> GalleryWindow::pages() const
{
    QList<GalleryPlot *> plots;
    for (const Page &page : pageList)
        plots.append(page.plot);
    return plots;
}

int GalleryWindow::pageIndex(const QString &key) const
{
    for (int i = 0; i < pageList.size(); ++i) {
        if (pageList.at(i).plot->pageKey() == key)
            return i;
    }
    return -1;
}

GalleryPlot *GalleryWindow::page(const QString &key) const
{
    for (const Page &page : pageList) {
        if (page.plot->pageKey() == key)
            return page.plot;
    }
    return nullptr;
}

PlotLook *GalleryWindow::look(const QString &key) const
{
    for (const Page &page : pageList) {
        if (page.plot->pageKey() == key)
            return page.look;
    }
    return nullptr;
}

bool GalleryWindow::isDarkMode() const
{
    return dark;
}

void GalleryWindow::setDarkMode(bool on)
{
    if (on == dark)
        return;
    dark = on;
    QApplication::setPalette(GalleryPalette::applicationPalette(on));
    for (const Page &page : std::as_const(pageList)) {
        page.plot->applyPalette(on);
        page.plot->plotWidget()->replot();
    }
    if (darkModeAct && darkModeAct->isChecked() != on)
        darkModeAct->setChecked(on);
}

QString GalleryWindow::lookKey(const QString &pageKey)
{
    return QStringLiteral("Gallery/Looks/") + pageKey;
}

void GalleryWindow::saveSettings() const
{
    QSettings settings;
    settings.setValue(GeometryKey, saveGeometry());
    settings.setValue(DarkModeKey, dark);
    settings.setValue(PageKey, tabs->currentIndex());
    for (const Page &page : pageList) {
        const QByteArray json = QJsonDocument(page.look->toJson()).toJson(QJsonDocument::Compact);
        settings.setValue(lookKey(page.plot->pageKey()), QString::fromUtf8(json));
    }
}

void GalleryWindow::restoreSettings()
{
    QSettings settings;
    restoreGeometry(settings.value(GeometryKey).toByteArray());
    // The palette first: a stored look may change some of its colours again.
    setDarkMode(settings.value(DarkModeKey, false).toBool());
    for (const Page &page : std::as_const(pageList)) {
        const QString key = lookKey(page.plot->pageKey());
        const QString text = settings.value(key).toString();
        if (text.isEmpty())
            continue;
        QJsonParseError parseError;
        const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &parseError);
        if (parseError.error != QJsonParseError::NoError || !document.isObject()) {
            qWarning("figura-gallery: ignoring the stored look %s: %s", qPrintable(key),
                     qPrintable(parseError.errorString()));
            continue;
        }
        page.look->apply(document.object());
    }
    const int index = settings.value(PageKey, 0).toInt();
    if (index >= 0 && index < tabs->count())
        tabs->setCurrentIndex(index);
}

void GalleryWindow::closeEvent(QCloseEvent *event)
{
    if (options.persistent)
        saveSettings();
    QMainWindow::closeEvent(event);
}

void GalleryWindow::showPage(int index)
{
    tabs->setCurrentIndex(index);
    // Layout and the first replot happen in the event loop.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

QStringList GalleryWindow::renderScreenshots(const QString &directory, QString *error)
{
    QStringList written;
    if (!QDir().mkpath(directory)) {
        if (error)
            *error = tr("could not make the folder %1").arg(directory);
        return written;
    }
    const QDir dir(directory);

    // Laid out and painted like a shown window, without appearing on a screen.
    setAttribute(Qt::WA_DontShowOnScreen, true);
    resize(ScreenshotWindowSize);
    show();

    for (int pass = 0; pass < 2; ++pass) {
        const bool darkPass = pass == 1;
        setDarkMode(darkPass);
        for (int i = 0; i < pageList.size(); ++i) {
            showPage(i);
            GalleryPlot *plot = pageList.at(i).plot;
            plot->poseForScreenshot();
            QCoreApplication::processEvents();
            const QString stem = plot->pageKey() + (darkPass ? QStringLiteral("-dark") : QString());
            if (!savePng(plot->plotWidget(), dir.filePath(stem + QStringLiteral(".png")), written,
                         error))
                return written;
        }
        if (darkPass)
            continue;

        // The window on the trend page, whose selection the status bar describes.
        showPage(std::max(0, pageIndex(QStringLiteral("timecurveplot"))));
        if (!savePng(this, dir.filePath(QStringLiteral("gallery.png")), written, error))
            return written;

        const QString pdf = dir.filePath(QStringLiteral("curveplot.pdf"));
        QFile::remove(pdf);
        QwtPlotRenderer renderer;
        renderer.renderDocument(pageList.constFirst().plot->plotWidget(), pdf,
                                QStringLiteral("pdf"), PlotDefault::Export::SizeMM,
                                PlotDefault::Export::DPI);
        if (!QFileInfo(pdf).isFile() || QFileInfo(pdf).size() == 0) {
            if (error)
                *error = tr("could not write %1").arg(pdf);
            return written;
        }
        written.append(pdf);
    }
    setDarkMode(false);
    return written;
}
