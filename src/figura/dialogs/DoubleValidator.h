#pragma once

#include <figura/FiguraGlobal.h>

#include <QDoubleValidator>

// A QDoubleValidator whose fix-up clamps the text into the range instead of
// leaving it unacceptable. An unreadable text becomes the top of the range.
class FIGURA_EXPORT DoubleValidator : public QDoubleValidator
{
    Q_OBJECT

public:
    // The full range of doubles with 20 decimals.
    explicit DoubleValidator(QObject *parent = nullptr);
    DoubleValidator(double bottom, double top, int decimals, QObject *parent = nullptr);

    // Called by QLineEdit when editing ends on an unacceptable text; the text
    // is replaced by the nearest value of the range in six significant digits.
    void fixup(QString &input) const override;
};
