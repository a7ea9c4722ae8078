// Bugs that the sanitizers or the fuzzers found and that an ordinary build
// cannot show by a wrong result, held here by checks that fail without the fix.

#include <figura/defaults/PlotDefault.h>
#include <figura/dialogs/CustomScaleSettings.h>

#include <QTest>

#include <type_traits>

namespace {

// Direct-list-initialisation of an enumeration from an int compiles only for
// an enumeration with a fixed underlying type, the only kind for which every
// int is a valid value.
template <class Enum, class = void>
struct TakesAnyInt : std::false_type
{
};
template <class Enum>
struct TakesAnyInt<Enum, std::void_t<decltype(Enum{2})>> : std::true_type
{
};

} // namespace

class tst_SanitizerRegressions : public QObject
{
    Q_OBJECT

private slots:
    void scaleTypeOutsideEnumeratorsIsAValidValue();
    void sortOptionOutsideEnumeratorsIsAValidValue();
};

// UndefinedBehaviorSanitizer: "load of value 2, which is not a valid value for
// type 'CustomScale::XScaleType'" in xScaleTypeText and CustomScaleDialog,
// which are to take and ignore any other value.
void tst_SanitizerRegressions::scaleTypeOutsideEnumeratorsIsAValidValue()
{
    QVERIFY(TakesAnyInt<CustomScale::XScaleType>::value);
    QVERIFY(CustomScale::xScaleTypeText(CustomScale::XScaleType{2}).isEmpty());
    QVERIFY(CustomScale::xScaleTypeText(CustomScale::XScaleType{-1}).isEmpty());
}

// UndefinedBehaviorSanitizer: "load of value 2, which is not a valid value for
// type 'const Figura::MarkerLabelSortOption'" in a lookup of the sort option map.
void tst_SanitizerRegressions::sortOptionOutsideEnumeratorsIsAValidValue()
{
    QVERIFY(TakesAnyInt<Figura::MarkerLabelSortOption>::value);
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption{2}));
    QVERIFY(!Figura::MarkerLabelSortOptions.contains(Figura::MarkerLabelSortOption{-1}));
}

QTEST_GUILESS_MAIN(tst_SanitizerRegressions)
#include "tst_sanitizerregressions.moc"
