#include <figura/dialogs/ColorUtility.h>

#include <figura/dialogs/GuiHelper.h>

#include <QToolButton>

#include <array>

namespace {

// Moves lightness towards white by lightFactor of the remaining distance and
// takes saturationFactor of the saturation away; hue and alpha stay.
QColor shiftTowardsWhite(const QColor &color, double lightFactor, double saturationFactor)
{
    if (!color.isValid())
        return QColor();
    int hue = 0;
    int saturation = 0;
    int lightness = 0;
    int alpha = 0;
    color.getHsl(&hue, &saturation, &lightness, &alpha);
    const int newLightness = int((255 - lightness) * lightFactor + lightness);
    const int newSaturation = int(saturation - saturation * saturationFactor);
    QColor result;
    result.setHsl(hue, newSaturation, newLightness, alpha);
    return result;
}

} // namespace

ColorUtility::ColorUtility(QObject *parent)
    : QObject(parent)
{
}

QToolButton *ColorUtility::createColorButton(int size, const QColor &color)
{
    auto *button = new QToolButton;
    button->setIconSize(QSize(size, size));
    button->setIcon(GuiHelper::colorIcon(size, color));
    button->setText(color.name());
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

QColor ColorUtility::getComplementColor(const QColor &color)
{
    if (!color.isValid())
        return QColor();
    int hue = 0;
    int saturation = 0;
    int lightness = 0;
    int alpha = 0;
    color.getHsl(&hue, &saturation, &lightness, &alpha);

    // The wrap at 255 rather than 359 is deliberate; hosts rely on the
    // colours it gives, so keep it.
    int h = hue + 37;
    if (h > 255)
        h -= 255;
    // Yellows and greens look bright, so they get a darker shade.
    const int newLightness = (h >= 61 && h <= 99) ? 80 : 100;

    QColor result;
    result.setHsl(h, saturation, newLightness, alpha);
    return result;
}

QString ColorUtility::getComplementColor(const QString &colorName)
{
    const QColor complement = getComplementColor(GuiHelper::colorFromText(colorName));
    return complement.isValid() ? complement.name() : QString();
}

QColor ColorUtility::getLighterColor(const QColor &color)
{
    return shiftTowardsWhite(color, 0.5, 0.25);
}

QColor ColorUtility::getWashedOutColor(const QColor &color)
{
    return shiftTowardsWhite(color, 0.95, 0.75);
}

QColor ColorUtility::getPresetComplementColor(int index)
{
    static const std::array<QColor, 12> presets = {
        QColor(100, 160, 235), QColor(235, 152, 100), QColor(206, 100, 235),
        QColor(194, 181, 43),  QColor(90, 237, 105),  QColor(237, 95, 90),
        QColor(189, 102, 255), QColor(70, 204, 191),  QColor(237, 168, 90),
        QColor(250, 102, 250), QColor(122, 116, 114), QColor(214, 210, 86),
    };
    // Truncating remainder on purpose: negative indices fall outside the table.
    const int position = index % int(presets.size());
    if (position < 0)
        return QColor();
    return presets[std::size_t(position)];
}
