// DoubleValidator::fixup on any text. The first byte chooses the range: one
// of a few fixed ones, or, when the input is long enough, bottom, top and
// decimals read from the next seventeen bytes. The rest is the text, as
// UTF-8. Within a sane range the result must read as a number inside it, up
// to the six significant digits of the text.

#include "FuzzSupport.h"

#include <figura/dialogs/DoubleValidator.h>

#include <QString>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>

namespace {

bool inRange(double value, double bottom, double top)
{
    const auto slack = [](double bound) { return std::fabs(bound) * 1e-5; };
    return value >= bottom - slack(bottom) && value <= top + slack(top);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::ensureApplication();
    if (size == 0)
        return 0;

    std::unique_ptr<DoubleValidator> validator;
    size_t used = 1;
    switch (data[0] % 5) {
    case 0:
        validator = std::make_unique<DoubleValidator>(-1e-05, 1e-05, 20);
        break;
    case 1:
        validator = std::make_unique<DoubleValidator>();
        break;
    case 2:
        validator = std::make_unique<DoubleValidator>(0.0, 100.0, 2);
        break;
    case 3:
        validator = std::make_unique<DoubleValidator>(1e-20, 1e-05, 25);
        break;
    default:
        if (size < 18)
            return 0;
        double bottom = 0.0;
        double top = 0.0;
        std::memcpy(&bottom, data + 1, sizeof bottom);
        std::memcpy(&top, data + 9, sizeof top);
        validator = std::make_unique<DoubleValidator>(bottom, top, int(int8_t(data[17])));
        used = 18;
        break;
    }

    QString text = QString::fromUtf8(reinterpret_cast<const char *>(data + used),
                                     qsizetype(size - used));
    validator->fixup(text);
    FUZZ_CHECK(!text.isEmpty(), "empty result");

    const double bottom = validator->bottom();
    const double top = validator->top();
    if (std::isfinite(bottom) && std::isfinite(top) && bottom <= top) {
        bool ok = false;
        const double value = text.toDouble(&ok);
        FUZZ_CHECK(ok && inRange(value, bottom, top),
                   text.toUtf8() + " outside " + QByteArray::number(bottom) + ".."
                       + QByteArray::number(top));
    }
    return 0;
}
