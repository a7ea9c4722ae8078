#pragma once

#include <figura/FiguraGlobal.h>

#include <QList>
#include <QSettings>
#include <QString>

namespace CustomScale {
Q_NAMESPACE_EXPORT(FIGURA_EXPORT)

// The kind of x axis a custom scale belongs to; each kind has its own list.
// The fixed underlying type makes any int a valid value, so that operations
// can take and ignore one outside the enumerators.
enum XScaleType : int {
    MassScale = 0,
    TimeScale = 1
};
Q_ENUM_NS(XScaleType)

// "MassScale" or "TimeScale", the name of the type's settings group; empty for
// any other value.
FIGURA_EXPORT QString xScaleTypeText(XScaleType type);

} // namespace CustomScale

// One stored custom scale: its menu name and the bounds of the x axis, the
// left y axis and the right y axis. Right bounds of 0.0 and 0.0 mean that the
// scale leaves a right axis alone.
struct FIGURA_EXPORT CustomScaleItem
{
    QString name;
    double xLower = 1.0;
    double xUpper = 10.0;
    double yLower = 1e-14;
    double yUpper = 1e-06;
    double yRightLower = 0.0;
    double yRightUpper = 0.0;

    friend bool operator==(const CustomScaleItem &a, const CustomScaleItem &b)
    {
        return a.name == b.name && a.xLower == b.xLower && a.xUpper == b.xUpper
            && a.yLower == b.yLower && a.yUpper == b.yUpper
            && a.yRightLower == b.yRightLower && a.yRightUpper == b.yRightUpper;
    }
    friend bool operator!=(const CustomScaleItem &a, const CustomScaleItem &b) { return !(a == b); }
};

// The custom scales a user has typed, most recent first, kept in the
// application's settings (organisation and application name of
// QCoreApplication) as an array under "<rootKey>/<type>", by default
// "Plot/CustomScales/MassScale" and "Plot/CustomScales/TimeScale". The store
// owns its items; the list stays empty until load() or add().
class FIGURA_EXPORT CustomScaleSettings : public QSettings
{
    Q_OBJECT

public:
    explicit CustomScaleSettings(CustomScale::XScaleType scaleType, QObject *parent = nullptr);
    ~CustomScaleSettings() override;

    // Names the range, puts it at the front, drops an older entry of the same
    // name and bounds, cuts the list to maxItems() and saves it. The pair
    // (smallest positive normal double, largest double) as right bounds means
    // "no right axis" and is stored as 0.0, 0.0. A store that has loaded or
    // saved before reads the stored list anew first, so that the stores of
    // one kind (one per plot) can add in turns without losing each other's
    // entries; one that has done neither works on its own list alone.
    void add(double xLower, double xUpper, double yLower, double yUpper,
             double yRightLower, double yRightUpper);

    // Replaces the list with the stored one, however long it is.
    void load();
    // Writes the list; an empty list writes nothing and leaves the stored one.
    void save();

    // The longest list that add() keeps; values below 1 are ignored. A lower
    // limit takes effect at the next add().
    int maxItems() const;
    void setMaxItems(int maxItems);

    // Takes effect at the next load() or save().
    QString rootKey() const;
    void setRootKey(const QString &rootKey);

    CustomScale::XScaleType scaleType() const;

    // The items belong to the store; they live until the next load() or add().
    const QList<CustomScaleItem *> &items() const;

protected:
    // "<rootKey>/<type>", the settings group of the array.
    QString arrayPrefix() const;
    void clearItems();

    QList<CustomScaleItem *> itemsValue;
    QString rootKeyValue = QStringLiteral("Plot/CustomScales");
    int maxItemsValue = 5;
    CustomScale::XScaleType scaleTypeValue;

private:
    // Whether the array entry group (a number below the array's prefix)
    // holds at least one key of an entry.
    bool holdsEntryKey(const QString &group);

    // Makes QSettings parse every section of the file now. It parses an INI
    // section only when a key asks for it, and for a key inside a group it
    // tries a single section: "[Plot%2FAxis]" sorts between "[Plot]" and the
    // list's keys and would hide the whole list.
    void parseWholeFile();

    // Set once the list has been read from or written to the settings. From
    // then on add() starts from the stored list, so that what another store
    // of the same kind saved in the meantime is kept.
    bool followsSettings = false;
};
