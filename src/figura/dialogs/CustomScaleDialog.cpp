#include <figura/dialogs/CustomScaleDialog.h>

#include "ui_CustomScaleDialog.h"

#include <figura/scales/TimeUtility.h>

#include <QLocale>
#include <QMessageBox>

#include <cmath>
#include <limits>

namespace {

constexpr double NoRightAxisLower = std::numeric_limits<double>::min();
constexpr double NoRightAxisUpper = std::numeric_limits<double>::max();

// Hours get three digits: long recordings run past 99 hours.
const int TimeHourWidth = 3;

QString boundText(double value)
{
    const QLocale locale;
    if (std::fabs(value) < 0.1)
        return locale.toString(value, 'e', 2);
    return locale.toString(value, 'f', 2);
}

// A bound must be a finite number in the user's locale; "nan" and "inf" read
// as numbers but make no axis.
bool readBound(const QString &text, double &value)
{
    bool ok = false;
    value = QLocale().toDouble(text, &ok);
    return ok && std::isfinite(value);
}

} // namespace

CustomScaleDialog::CustomScaleDialog(CustomScale::XScaleType scaleType, double xLower,
                                     double xUpper, double yLower, double yUpper,
                                     double yRightLower, double yRightUpper, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::CustomScaleDialog>())
    , scaleType(scaleType)
{
    ui->setupUi(this);
    setWhatsThis(QStringLiteral(" "));

    // The mask goes on before the texts, so that they are laid into it.
    switch (scaleType) {
    case CustomScale::MassScale: {
        const QLocale locale;
        ui->xAxisGroupBox->setTitle(tr("X-Axis:"));
        ui->xAxisLowerEdit->setInputMask(QString());
        ui->xAxisUpperEdit->setInputMask(QString());
        ui->xAxisLowerEdit->setText(locale.toString(xLower, 'f', 2));
        ui->xAxisUpperEdit->setText(locale.toString(xUpper, 'f', 2));
        break;
    }
    case CustomScale::TimeScale: {
        const QString mask = QStringLiteral("000:00:00");
        ui->xAxisGroupBox->setTitle(tr("X-Axis: Time (hh:mm:ss)"));
        ui->xAxisLowerEdit->setInputMask(mask);
        ui->xAxisUpperEdit->setInputMask(mask);
        ui->xAxisLowerEdit->setText(TimeUtility::secondsToTimeText(xLower, TimeHourWidth, 0));
        ui->xAxisUpperEdit->setText(TimeUtility::secondsToTimeText(xUpper, TimeHourWidth, 0));
        break;
    }
    }

    ui->yAxisLowerEdit->setText(boundText(yLower));
    ui->yAxisUpperEdit->setText(boundText(yUpper));

    if (yRightLower == NoRightAxisLower && yRightUpper == NoRightAxisUpper) {
        ui->yRightAxisGroupBox->setEnabled(false);
    } else {
        ui->yRightAxisLowerEdit->setText(boundText(yRightLower));
        ui->yRightAxisUpperEdit->setText(boundText(yRightUpper));
    }
}

CustomScaleDialog::~CustomScaleDialog() = default;

double CustomScaleDialog::xLower() const
{
    return xValue(ui->xAxisLowerEdit->text());
}

double CustomScaleDialog::xUpper() const
{
    return xValue(ui->xAxisUpperEdit->text());
}

double CustomScaleDialog::yLower() const
{
    return QLocale().toDouble(ui->yAxisLowerEdit->text());
}

double CustomScaleDialog::yUpper() const
{
    return QLocale().toDouble(ui->yAxisUpperEdit->text());
}

double CustomScaleDialog::yRightLower() const
{
    return QLocale().toDouble(ui->yRightAxisLowerEdit->text());
}

double CustomScaleDialog::yRightUpper() const
{
    return QLocale().toDouble(ui->yRightAxisUpperEdit->text());
}

double CustomScaleDialog::xValue(const QString &text) const
{
    if (scaleType == CustomScale::TimeScale) {
        int seconds = 0;
        TimeUtility::timeTextToSeconds(text, seconds);
        return seconds;
    }
    return QLocale().toDouble(text);
}

void CustomScaleDialog::on_okButton_clicked()
{
    // Every failing check overwrites the message, so the last one in this
    // order is the one the user sees.
    QString message;

    double xLowerValue = 0.0;
    double xUpperValue = 0.0;
    int xLowerSeconds = 0;
    int xUpperSeconds = 0;
    if (scaleType == CustomScale::MassScale) {
        if (!readBound(ui->xAxisLowerEdit->text(), xLowerValue))
            message = tr("Invalid X-axis lowerbound value");
        if (!readBound(ui->xAxisUpperEdit->text(), xUpperValue))
            message = tr("Invalid X-axis upperbound value");
    } else if (scaleType == CustomScale::TimeScale) {
        if (!TimeUtility::timeTextToSeconds(ui->xAxisLowerEdit->text(), xLowerSeconds))
            message = tr("Invalid X-axis lowerbound value");
        if (!TimeUtility::timeTextToSeconds(ui->xAxisUpperEdit->text(), xUpperSeconds))
            message = tr("Invalid X-axis upperbound value");
    }

    double yLowerValue = 0.0;
    double yUpperValue = 0.0;
    if (!readBound(ui->yAxisLowerEdit->text(), yLowerValue))
        message = tr("Invalid Y-axis lowerbound value");
    if (!readBound(ui->yAxisUpperEdit->text(), yUpperValue))
        message = tr("Invalid Y-axis upperbound value");

    if (ui->yRightAxisGroupBox->isEnabled()) {
        double lower = 0.0;
        double upper = 0.0;
        if (!readBound(ui->yRightAxisLowerEdit->text(), lower))
            message = tr("Invalid right Y-axis lowerbound value");
        if (!readBound(ui->yRightAxisUpperEdit->text(), upper))
            message = tr("Invalid right Y-axis upperbound value");
        if (message.isEmpty() && lower >= upper)
            message = tr("Invalid right Y-axis boudaries. The lowerbound value must be less than "
                         "the upperbound value");
    }

    if (message.isEmpty()) {
        const bool xReversed = (scaleType == CustomScale::MassScale && xLowerValue >= xUpperValue)
            || (scaleType == CustomScale::TimeScale && xLowerSeconds >= xUpperSeconds);
        if (xReversed)
            message = tr("Invalid X-axis boudaries. The lowerbound value must be less than the "
                         "upperbound value");
        if (yLowerValue >= yUpperValue)
            message = tr("Invalid Y-axis boudaries. The lowerbound value must be less than the "
                         "upperbound value");
    }

    if (message.isEmpty()) {
        accept();
        return;
    }
    QMessageBox::critical(this, tr("Error"), message, QMessageBox::Ok);
}

void CustomScaleDialog::on_cancelButton_clicked()
{
    reject();
}
