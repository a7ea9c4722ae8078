#pragma once

// QTest::toString for the attribute records, so that a failed QCOMPARE prints
// their fields instead of "<unknown>". Found by argument-dependent lookup.

#include <figura/attributes/CurveAttributes.h>
#include <figura/attributes/MarkerLabelFormat.h>
#include <figura/attributes/PeakLabelFormat.h>
#include <figura/attributes/TickLabelFormat.h>
#include <figura/attributes/UnsetValue.h>

#include <QColor>
#include <QFont>
#include <QString>
#include <QtGlobal>

#include <qwt_text.h>

namespace AttributeText {

inline QString number(qint32 value)
{
    return value == Figura::UnsetValue ? QStringLiteral("unset") : QString::number(value);
}

inline QString color(const QColor &color)
{
    return color.isValid() ? color.name(QColor::HexArgb) : QStringLiteral("invalid");
}

inline QString font(const QFont &font)
{
    return QLatin1Char('"') + font.toString() + QLatin1Char('"');
}

inline char *toChars(const QString &text)
{
    return qstrdup(text.toUtf8().constData());
}

} // namespace AttributeText

inline char *toString(const TickLabelFormat &f)
{
    using namespace AttributeText;
    return toChars(QStringLiteral("TickLabelFormat(font %1, color %2, rotation %3)")
                       .arg(font(f.font), color(f.color), number(f.rotation)));
}

inline char *toString(const PeakLabelFormat &f)
{
    using namespace AttributeText;
    return toChars(QStringLiteral("PeakLabelFormat(font %1, color %2, textRotation %3)")
                       .arg(font(f.font()), color(f.color()), number(f.textRotation())));
}

inline char *toString(const QwtText &t)
{
    using namespace AttributeText;
    return toChars(QStringLiteral("QwtText(text \"%1\", font %2, color %3)")
                       .arg(t.text(), font(t.font()), color(t.color())));
}

namespace KelmQtPlot {

inline char *toString(const CurveAttributes &a)
{
    using namespace AttributeText;
    return toChars(QStringLiteral("CurveAttributes(lineStyle %1, lineWidth %2, lineColor %3, "
                                  "symbolStyle %4, symbolWidth %5, symbolColor %6)")
                       .arg(number(a.lineStyle), number(a.lineWidth), color(a.lineColor),
                            number(a.symbolStyle), number(a.symbolWidth), color(a.symbolColor)));
}

inline char *toString(const MarkerLabelFormat &f)
{
    using namespace AttributeText;
    return toChars(QStringLiteral("MarkerLabelFormat(font %1, color %2, bgColor %3, "
                                  "alignment %4, sortOption %5)")
                       .arg(font(f.font), color(f.color), color(f.bgColor),
                            QString::number(f.alignment), QString::number(f.sortOption)));
}

} // namespace KelmQtPlot
