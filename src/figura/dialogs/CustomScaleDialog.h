#pragma once

#include <figura/FiguraGlobal.h>
#include <figura/dialogs/CustomScaleSettings.h>

#include <QDialog>

#include <memory>

namespace Ui {
class CustomScaleDialog;
}

// Lets the user type the bounds of a plot's x axis, left y axis and right y
// axis. The x bounds are numbers on a mass scale and "hhh:mm:ss" times on a
// time scale. Right bounds of (smallest positive normal double, largest
// double) mean that the plot has no right axis; its fields are then disabled.
// OK checks every field and either accepts or names one error in a message
// box; the plot reads the bounds through the getters after exec().
class FIGURA_AUTOTEST_EXPORT CustomScaleDialog : public QDialog
{
    Q_OBJECT

public:
    CustomScaleDialog(CustomScale::XScaleType scaleType, double xLower, double xUpper,
                      double yLower, double yUpper, double yRightLower, double yRightUpper,
                      QWidget *parent = nullptr);
    ~CustomScaleDialog() override;

    // Seconds on a time scale.
    double xLower() const;
    double xUpper() const;
    double yLower() const;
    double yUpper() const;
    double yRightLower() const;
    double yRightUpper() const;

private slots:
    void on_okButton_clicked();
    void on_cancelButton_clicked();

private:
    double xValue(const QString &text) const;

    std::unique_ptr<Ui::CustomScaleDialog> ui;

protected:
    CustomScale::XScaleType scaleType;
};
