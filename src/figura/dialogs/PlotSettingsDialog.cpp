#include <figura/dialogs/PlotSettingsDialog.h>

#include "ui_PlotSettingsDialog.h"

#include <figura/dialogs/AxisSettingsPanel.h>
#include <figura/dialogs/GeneralSettingsPanel.h>
#include <figura/dialogs/LabelSettingsPanel.h>
#include <figura/plots/VoidPlot.h>

#include <QIcon>
#include <QItemSelectionModel>
#include <QListWidgetItem>

namespace {

const char *const GroupIcons[] = {
    ":/images/categorize-black.png",
    ":/images/xy-coordinate-black.png",
    ":/images/abc-black.png",
};

} // namespace

PlotSettingsDialog::PlotSettingsDialog(QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::PlotSettingsDialog>())
{
    ui->setupUi(this);

    ui->groupList->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    ui->pageContainer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

    // Bold from the form, two points larger than the text around it.
    QFont titleFont = ui->pageTitle->font();
    if (titleFont.pointSizeF() > 0)
        titleFont.setPointSizeF(titleFont.pointSizeF() + 2);
    else
        titleFont.setPixelSize(titleFont.pixelSize() + 2);
    ui->pageTitle->setFont(titleFont);

    setWindowTitle(tr("Plot Settings"));

    // The form's pages only stand in for the panels made here.
    while (ui->stackedWidget->count() > 0) {
        QWidget *page = ui->stackedWidget->widget(0);
        ui->stackedWidget->removeWidget(page);
        delete page;
    }

    groupNames.insert(0, tr("General"));
    groupNames.insert(1, tr("Axes"));
    groupNames.insert(2, tr("Data Labels"));

    plot = qobject_cast<VoidPlot *>(parent);

    generalPanel = new GeneralSettingsPanel(plot, this);
    axisPanel = new AxisSettingsPanel(plot, this);
    labelPanel = new LabelSettingsPanel(plot, this);
    ui->stackedWidget->addWidget(generalPanel);
    ui->stackedWidget->addWidget(axisPanel);
    ui->stackedWidget->addWidget(labelPanel);

    for (auto it = groupNames.cbegin(); it != groupNames.cend(); ++it) {
        const QIcon icon(QString::fromLatin1(GroupIcons[it.key()]));
        ui->groupList->addItem(new QListWidgetItem(icon, it.value()));
    }

    ui->groupList->setSpacing(5);
    ui->groupList->setMinimumWidth(ui->groupList->sizeHintForColumn(0) + 20);

    connect(ui->groupList->selectionModel(), &QItemSelectionModel::currentRowChanged,
            this, &PlotSettingsDialog::onGroupChanged);
    connect(ui->buttonBox, &QDialogButtonBox::clicked,
            this, &PlotSettingsDialog::onButtonBoxClicked);

    ui->groupList->setCurrentRow(0);
}

PlotSettingsDialog::~PlotSettingsDialog() = default;

void PlotSettingsDialog::onGroupChanged(const QModelIndex &current, const QModelIndex &previous)
{
    Q_UNUSED(previous)
    const int row = current.row();
    if (!groupNames.contains(row))
        return;
    ui->stackedWidget->setCurrentIndex(row);
    ui->pageTitle->setText(groupNames.value(row));
}

void PlotSettingsDialog::onButtonBoxClicked(QAbstractButton *button)
{
    // All three pages are reset, not only the one on view; the dialog stays
    // open and nothing reaches the plot.
    if (ui->buttonBox->standardButton(button) != QDialogButtonBox::RestoreDefaults)
        return;
    generalPanel->restoreDefaults();
    labelPanel->restoreDefaults();
    axisPanel->restoreDefaults();
}

// ---------------------------------------------------------------------------
// General page

void PlotSettingsDialog::setPlotTitle(const QwtText &title)
{
    generalPanel->setPlotTitle(title);
}

QwtText PlotSettingsDialog::plotTitle() const
{
    return generalPanel->plotTitle();
}

void PlotSettingsDialog::setDefaultPlotTitle(const QwtText &title)
{
    generalPanel->setDefaultPlotTitle(title);
}

void PlotSettingsDialog::setPlotTitleOptionsVisible(bool on)
{
    generalPanel->setPlotTitleOptionsVisible(on);
}

void PlotSettingsDialog::setCanvasColor(const QColor &color)
{
    generalPanel->setCanvasColor(color);
}

QColor PlotSettingsDialog::canvasColor() const
{
    return generalPanel->canvasColor();
}

void PlotSettingsDialog::setDefaultCanvasColor(const QColor &color)
{
    generalPanel->setDefaultCanvasColor(color);
}

void PlotSettingsDialog::setMajorGridColor(const QColor &color)
{
    generalPanel->setMajorGridColor(color);
}

QColor PlotSettingsDialog::majorGridColor() const
{
    return generalPanel->majorGridColor();
}

void PlotSettingsDialog::setDefaultMajorGridColor(const QColor &color)
{
    generalPanel->setDefaultMajorGridColor(color);
}

void PlotSettingsDialog::setMinorGridColor(const QColor &color)
{
    generalPanel->setMinorGridColor(color);
}

QColor PlotSettingsDialog::minorGridColor() const
{
    return generalPanel->minorGridColor();
}

void PlotSettingsDialog::setDefaultMinorGridColor(const QColor &color)
{
    generalPanel->setDefaultMinorGridColor(color);
}

void PlotSettingsDialog::setCanvasOptionsVisible(bool on)
{
    generalPanel->setCanvasOptionsVisible(on);
}

void PlotSettingsDialog::setChartColor(const QColor &color)
{
    generalPanel->setChartColor(color);
}

QColor PlotSettingsDialog::chartColor() const
{
    return generalPanel->chartColor();
}

void PlotSettingsDialog::setDefaultChartColor(const QColor &color)
{
    generalPanel->setDefaultChartColor(color);
}

void PlotSettingsDialog::setChartColorVisible(bool on)
{
    generalPanel->setChartColorVisible(on);
}

void PlotSettingsDialog::setChartOptionsVisible(bool on)
{
    generalPanel->setChartOptionsVisible(on);
}

void PlotSettingsDialog::setLineChartWidth(int width)
{
    generalPanel->setLineChartWidth(width);
}

int PlotSettingsDialog::lineChartWidth() const
{
    return generalPanel->lineChartWidth();
}

void PlotSettingsDialog::setDefaultLineChartWidth(int width)
{
    generalPanel->setDefaultLineChartWidth(width);
}

void PlotSettingsDialog::setLineChartWidthVisible(bool on)
{
    generalPanel->setLineChartWidthVisible(on);
}

void PlotSettingsDialog::setApplyLineWidthToAll(bool on)
{
    generalPanel->setApplyLineWidthToAll(on);
}

bool PlotSettingsDialog::isApplyLineWidthChecked() const
{
    return generalPanel->isApplyLineWidthChecked();
}

void PlotSettingsDialog::setApplyLineWidthVisible(bool on)
{
    generalPanel->setApplyLineWidthVisible(on);
}

void PlotSettingsDialog::setBarChartBaseline(double value)
{
    generalPanel->setBarChartBaseline(value);
}

double PlotSettingsDialog::barChartBaseline() const
{
    return generalPanel->barChartBaseline();
}

void PlotSettingsDialog::setDefaultBarChartBaseline(double value)
{
    generalPanel->setDefaultBarChartBaseline(value);
}

void PlotSettingsDialog::setBarChartBaselineRange(double min, double max)
{
    generalPanel->setBarChartBaselineRange(min, max);
}

void PlotSettingsDialog::setBarChartBaselineVisible(bool on)
{
    generalPanel->setBarChartBaselineVisible(on);
}

void PlotSettingsDialog::setTimeFormat(int code)
{
    generalPanel->setTimeFormat(code);
}

int PlotSettingsDialog::timeFormat() const
{
    return generalPanel->timeFormat();
}

void PlotSettingsDialog::setDefaultTimeFormat(int code)
{
    generalPanel->setDefaultTimeFormat(code);
}

void PlotSettingsDialog::setTimeFormatVisible(bool on)
{
    generalPanel->setTimeFormatVisible(on);
}

// ---------------------------------------------------------------------------
// Axes page

void PlotSettingsDialog::setAxisScale(int axisId, int scale)
{
    axisPanel->setAxisScale(axisId, scale);
}

int PlotSettingsDialog::axisScale(int axisId) const
{
    return axisPanel->axisScale(axisId);
}

bool PlotSettingsDialog::isLogScale(int axisId) const
{
    return axisScale(axisId) == 1;
}

void PlotSettingsDialog::setDefaultAxisScale(int axisId, int scale)
{
    axisPanel->setDefaultAxisScale(axisId, scale);
}

void PlotSettingsDialog::setAxisScaleEnabled(int axisId, bool on)
{
    axisPanel->setAxisScaleEnabled(axisId, on);
}

void PlotSettingsDialog::setAxisScaleVisible(int axisId, bool on)
{
    axisPanel->setAxisScaleVisible(axisId, on);
}

void PlotSettingsDialog::setAxisTitle(int axisId, const QwtText &title)
{
    axisPanel->setAxisTitle(axisId, title);
}

QwtText PlotSettingsDialog::axisTitle(int axisId) const
{
    return axisPanel->axisTitle(axisId);
}

void PlotSettingsDialog::setDefaultAxisTitle(int axisId, const QwtText &title)
{
    axisPanel->setDefaultAxisTitle(axisId, title);
}

void PlotSettingsDialog::setTickLabel(int axisId, const TickLabelFormat &format)
{
    axisPanel->setTickLabel(axisId, format);
}

TickLabelFormat PlotSettingsDialog::tickLabel(int axisId) const
{
    return axisPanel->tickLabel(axisId);
}

void PlotSettingsDialog::setDefaultTickLabel(int axisId, const TickLabelFormat &format)
{
    axisPanel->setDefaultTickLabel(axisId, format);
}

// ---------------------------------------------------------------------------
// Data labels page

void PlotSettingsDialog::setMarkerVisible(bool on)
{
    labelPanel->setMarkerVisible(on);
}

bool PlotSettingsDialog::isMarkerVisible() const
{
    return labelPanel->isMarkerVisible();
}

void PlotSettingsDialog::setMarkerVisibility(int visibility)
{
    labelPanel->setMarkerVisibility(visibility);
}

int PlotSettingsDialog::markerVisibility() const
{
    return labelPanel->markerVisibility();
}

void PlotSettingsDialog::setDefaultMarkerVisibility(int visibility)
{
    labelPanel->setDefaultMarkerVisibility(visibility);
}

void PlotSettingsDialog::setMarkerWidth(int width)
{
    labelPanel->setMarkerWidth(width);
}

int PlotSettingsDialog::markerWidth() const
{
    return labelPanel->markerWidth();
}

void PlotSettingsDialog::setDefaultMarkerWidth(int width)
{
    labelPanel->setDefaultMarkerWidth(width);
}

void PlotSettingsDialog::setMarkerColor(const QColor &color)
{
    labelPanel->setMarkerColor(color);
}

QColor PlotSettingsDialog::markerColor() const
{
    return labelPanel->markerColor();
}

void PlotSettingsDialog::setDefaultMarkerColor(const QColor &color)
{
    labelPanel->setDefaultMarkerColor(color);
}

void PlotSettingsDialog::setMarkerOptionsVisible(bool on)
{
    labelPanel->setMarkerOptionsVisible(on);
}

void PlotSettingsDialog::setMarkerLabelVisible(bool on)
{
    labelPanel->setMarkerLabelVisible(on);
}

bool PlotSettingsDialog::isMarkerLabelVisible() const
{
    return labelPanel->isMarkerLabelVisible();
}

void PlotSettingsDialog::setMarkerLabelVisibility(int visibility)
{
    labelPanel->setMarkerLabelVisibility(visibility);
}

int PlotSettingsDialog::markerLabelVisibility() const
{
    return labelPanel->markerLabelVisibility();
}

void PlotSettingsDialog::setDefaultMarkerLabelVisibility(int visibility)
{
    labelPanel->setDefaultMarkerLabelVisibility(visibility);
}

void PlotSettingsDialog::setMarkerLabel(const QwtText &label)
{
    labelPanel->setMarkerLabel(label);
}

QwtText PlotSettingsDialog::markerLabel() const
{
    return labelPanel->markerLabel();
}

void PlotSettingsDialog::setDefaultMarkerLabel(const QwtText &label)
{
    labelPanel->setDefaultMarkerLabel(label);
}

void PlotSettingsDialog::setMarkerLabelBgColor(const QColor &color)
{
    labelPanel->setMarkerLabelBgColor(color);
}

QColor PlotSettingsDialog::markerLabelBgColor() const
{
    return labelPanel->markerLabelBgColor();
}

void PlotSettingsDialog::setDefaultMarkerLabelBgColor(const QColor &color)
{
    labelPanel->setDefaultMarkerLabelBgColor(color);
}

void PlotSettingsDialog::setMarkerLabelAlignment(Qt::AlignmentFlag alignment)
{
    labelPanel->setMarkerLabelAlignment(alignment);
}

Qt::AlignmentFlag PlotSettingsDialog::markerLabelAlignment() const
{
    return labelPanel->markerLabelAlignment();
}

void PlotSettingsDialog::setDefaultMarkerLabelAlignment(int alignment)
{
    labelPanel->setDefaultMarkerLabelAlignment(alignment);
}

void PlotSettingsDialog::setMarkerLabelSortOption(Figura::MarkerLabelSortOption option)
{
    labelPanel->setMarkerLabelSortOption(option);
}

Figura::MarkerLabelSortOption PlotSettingsDialog::markerLabelSortOption() const
{
    return labelPanel->markerLabelSortOption();
}

void PlotSettingsDialog::setDefaultMarkerLabelSortOption(int option)
{
    labelPanel->setDefaultMarkerLabelSortOption(option);
}

void PlotSettingsDialog::setMarkerLabelSortOptionVisible(bool on)
{
    labelPanel->setMarkerLabelSortOptionVisible(on);
}

void PlotSettingsDialog::setMarkerLabelOptionsVisible(bool on)
{
    labelPanel->setMarkerLabelOptionsVisible(on);
}

void PlotSettingsDialog::setPeakLabelVisible(bool on)
{
    labelPanel->setPeakLabelVisible(on);
}

bool PlotSettingsDialog::isPeakLabelVisible() const
{
    return labelPanel->isPeakLabelVisible();
}

void PlotSettingsDialog::setPeakLabelVisibility(int visibility)
{
    labelPanel->setPeakLabelVisibility(visibility);
}

int PlotSettingsDialog::peakLabelVisibility() const
{
    return labelPanel->peakLabelVisibility();
}

void PlotSettingsDialog::setDefaultPeakLabelVisibility(int visibility)
{
    labelPanel->setDefaultPeakLabelVisibility(visibility);
}

void PlotSettingsDialog::setPeakLabelFormat(const PeakLabelFormat &format)
{
    QwtText label;
    label.setFont(format.font());
    label.setColor(format.color());
    labelPanel->setPeakLabel(label);
    labelPanel->setPeakLabelRotation(format.textRotation());
}

PeakLabelFormat PlotSettingsDialog::peakLabelFormat() const
{
    const QwtText label = labelPanel->peakLabel();
    return PeakLabelFormat(label.font(), label.color(), labelPanel->peakLabelRotation());
}

void PlotSettingsDialog::setDefaultPeakLabelFormat(const PeakLabelFormat &format)
{
    QwtText label;
    label.setFont(format.font());
    label.setColor(format.color());
    labelPanel->setDefaultPeakLabel(label);
    labelPanel->setDefaultPeakLabelRotation(format.textRotation());
}

void PlotSettingsDialog::setPeakLabelDescription(const QString &text)
{
    labelPanel->setPeakLabelDescription(text);
}

void PlotSettingsDialog::setPeakLabelGroupName(const QString &text)
{
    labelPanel->setPeakLabelGroupName(text);
}

void PlotSettingsDialog::setPeakLabelOptionsVisible(bool on)
{
    labelPanel->setPeakLabelOptionsVisible(on);
}
