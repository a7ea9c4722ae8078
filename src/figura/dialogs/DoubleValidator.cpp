#include <figura/dialogs/DoubleValidator.h>

#include <QString>

#include <cmath>

DoubleValidator::DoubleValidator(QObject *parent)
    : QDoubleValidator(parent)
{
    setDecimals(20);
}

DoubleValidator::DoubleValidator(double bottom, double top, int decimals, QObject *parent)
    : QDoubleValidator(bottom, top, decimals, parent)
{
}

void DoubleValidator::fixup(QString &input) const
{
    bool ok = false;
    double value = input.toDouble(&ok);
    // "nan" reads as a number but lies in no range; treat it as unreadable.
    if (!ok || std::isnan(value))
        value = top();
    else if (value > top())
        value = top();
    else
        value = qMax(value, bottom());
    input = QString::number(value, 'g', 6);
}
