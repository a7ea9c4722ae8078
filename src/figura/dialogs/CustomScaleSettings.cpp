#include <figura/dialogs/CustomScaleSettings.h>

#include <figura/scales/TimeUtility.h>

#include <QLocale>
#include <QMetaEnum>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

// The keys of one array entry, shared by load() and save() so that they
// cannot drift apart. "ScaleType" belongs to the stored format but is never
// read or written: the group tells the type.
const QLatin1String ScaleNameKey("ScaleName");
[[maybe_unused]] const QLatin1String ScaleTypeKey("ScaleType");

struct BoundKey
{
    QLatin1String key;
    double CustomScaleItem::*member;
};

const BoundKey BoundKeys[] = {
    {QLatin1String("XLower"), &CustomScaleItem::xLower},
    {QLatin1String("XUpper"), &CustomScaleItem::xUpper},
    {QLatin1String("YLower"), &CustomScaleItem::yLower},
    {QLatin1String("YUpper"), &CustomScaleItem::yUpper},
    {QLatin1String("YRightLower"), &CustomScaleItem::yRightLower},
    {QLatin1String("YRightUpper"), &CustomScaleItem::yRightUpper},
};

// The right bounds a plot without a right axis hands over.
constexpr double NoRightAxisLower = std::numeric_limits<double>::min();
constexpr double NoRightAxisUpper = std::numeric_limits<double>::max();

// Small values in exponent form, the rest with two decimals. Unlike the
// dialog this looks at the signed value, so -5 reads "-5.00e+00".
QString numberText(double value)
{
    const QLocale locale;
    if (value == 0.0 || value >= 0.1)
        return locale.toString(value, 'f', 2);
    return locale.toString(value, 'e', 2);
}

bool sameBound(double a, double b)
{
    return std::fabs(a - b) < std::numeric_limits<double>::epsilon();
}

} // namespace

QString CustomScale::xScaleTypeText(XScaleType type)
{
    return QString::fromLatin1(QMetaEnum::fromType<XScaleType>().valueToKey(type));
}

CustomScaleSettings::CustomScaleSettings(CustomScale::XScaleType scaleType, QObject *parent)
    : QSettings(parent)
    , scaleTypeValue(scaleType)
{
}

CustomScaleSettings::~CustomScaleSettings()
{
    clearItems();
}

void CustomScaleSettings::add(double xLower, double xUpper, double yLower, double yUpper,
                              double yRightLower, double yRightUpper)
{
    // Another store of the same kind, another plot's, may have saved since
    // this one last read or wrote the list; sync() also takes in what another
    // process wrote to the file.
    if (followsSettings) {
        sync();
        load();
    }

    QString xLowerText;
    QString xUpperText;
    if (scaleTypeValue == CustomScale::TimeScale) {
        xLowerText = TimeUtility::secondsToTimeText(xLower, 2, 0);
        xUpperText = TimeUtility::secondsToTimeText(xUpper, 2, 0);
    } else {
        const QLocale locale;
        xLowerText = locale.toString(xLower, 'g', 6);
        xUpperText = locale.toString(xUpper, 'g', 6);
    }

    QString yRightLowerText;
    QString yRightUpperText;
    if (yRightLower == NoRightAxisLower && yRightUpper == NoRightAxisUpper) {
        yRightLower = 0.0;
        yRightUpper = 0.0;
    } else {
        yRightLowerText = numberText(yRightLower);
        yRightUpperText = numberText(yRightUpper);
    }

    QString name = QStringLiteral("X[%1, %2] Y[%3, %4]")
                       .arg(xLowerText, xUpperText, numberText(yLower), numberText(yUpper));
    if (!yRightLowerText.isEmpty() && !yRightUpperText.isEmpty())
        name += QStringLiteral(" Y2[%1, %2]").arg(yRightLowerText, yRightUpperText);

    auto *item = new CustomScaleItem;
    item->name = name;
    item->xLower = xLower;
    item->xUpper = xUpper;
    item->yLower = yLower;
    item->yUpper = yUpper;
    item->yRightLower = yRightLower;
    item->yRightUpper = yRightUpper;

    // The right lower bound stays out of the comparison on purpose: two ranges
    // that read the same in the menu and differ only there are one entry.
    for (qsizetype i = 0; i < itemsValue.size();) {
        const CustomScaleItem *old = itemsValue.at(i);
        if (old->name == item->name && sameBound(old->xLower, item->xLower)
            && sameBound(old->xUpper, item->xUpper) && sameBound(old->yLower, item->yLower)
            && sameBound(old->yUpper, item->yUpper)
            && sameBound(old->yRightUpper, item->yRightUpper)) {
            delete itemsValue.takeAt(i);
        } else {
            ++i;
        }
    }

    itemsValue.prepend(item);

    // A lowered limit or a long stored list can leave several surplus items.
    while (itemsValue.size() > maxItemsValue)
        delete itemsValue.takeLast();

    save();
}

void CustomScaleSettings::load()
{
    clearItems();
    parseWholeFile();

    const QString prefix = arrayPrefix();

    // The entries that are there decide, not the stored size: a file cut
    // short has lost it (QSettings writes it after the entries), and one
    // edited by hand may hold more entries than it says. Nothing that can be
    // read is dropped, and neither a wild size nor a wild index makes empty
    // entries: the work is bound by the file, not by the numbers in it. A
    // group without a single key of an entry is no entry.
    beginGroup(prefix);
    QList<int> indices; // of the entries present, from 1 as QSettings counts
    const QStringList groups = childGroups();
    for (const QString &entry : groups) {
        bool isIndex = false;
        const int index = entry.toInt(&isIndex);
        if (isIndex && index > 0 && holdsEntryKey(QString::number(index)))
            indices.append(index);
    }
    endGroup();
    // "2" and "02" are one index.
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());

    beginReadArray(prefix);
    for (const int index : std::as_const(indices)) {
        setArrayIndex(index - 1);
        auto *item = new CustomScaleItem;
        // A missing key reads as an empty name or 0.0, not as the default of
        // a new item; so does a number that cannot be read.
        item->name = value(ScaleNameKey).toString();
        for (const BoundKey &bound : BoundKeys) {
            const double number = value(bound.key).toDouble();
            item->*bound.member = std::isfinite(number) ? number : 0.0;
        }
        itemsValue.append(item);
    }
    endArray();
    followsSettings = true;
}

void CustomScaleSettings::save()
{
    if (itemsValue.isEmpty())
        return;
    parseWholeFile();

    const QString prefix = arrayPrefix();
    beginWriteArray(prefix);
    for (qsizetype i = 0; i < itemsValue.size(); ++i) {
        const CustomScaleItem *item = itemsValue.at(i);
        setArrayIndex(int(i));
        setValue(ScaleNameKey, item->name);
        for (const BoundKey &bound : BoundKeys)
            setValue(bound.key, item->*bound.member);
    }
    endArray();

    // Entries of a longer list saved before would otherwise stay in the file
    // behind the new size.
    beginGroup(prefix);
    const QStringList groups = childGroups();
    for (const QString &entry : groups) {
        bool isIndex = false;
        const int index = entry.toInt(&isIndex);
        if (isIndex && index > itemsValue.size())
            remove(entry);
    }
    endGroup();
    followsSettings = true;
}

int CustomScaleSettings::maxItems() const
{
    return maxItemsValue;
}

void CustomScaleSettings::setMaxItems(int maxItems)
{
    if (maxItems < 1)
        return;
    maxItemsValue = maxItems;
}

QString CustomScaleSettings::rootKey() const
{
    return rootKeyValue;
}

void CustomScaleSettings::setRootKey(const QString &rootKey)
{
    rootKeyValue = rootKey;
}

CustomScale::XScaleType CustomScaleSettings::scaleType() const
{
    return scaleTypeValue;
}

const QList<CustomScaleItem *> &CustomScaleSettings::items() const
{
    return itemsValue;
}

bool CustomScaleSettings::holdsEntryKey(const QString &group)
{
    beginGroup(group);
    const QStringList keys = childKeys();
    endGroup();
    if (keys.contains(ScaleNameKey))
        return true;
    for (const BoundKey &bound : BoundKeys) {
        if (keys.contains(bound.key))
            return true;
    }
    return false;
}

void CustomScaleSettings::parseWholeFile()
{
    // Only a listing of the top level parses all sections; our groups are
    // always closed between calls, so this is the top level.
    static_cast<void>(childGroups());
}

QString CustomScaleSettings::arrayPrefix() const
{
    return QStringLiteral("%1/%2").arg(rootKeyValue, CustomScale::xScaleTypeText(scaleTypeValue));
}

void CustomScaleSettings::clearItems()
{
    qDeleteAll(itemsValue);
    itemsValue.clear();
}
