# Sourced by the scripts that run sanitized programs: the options of
# AddressSanitizer, LeakSanitizer and UndefinedBehaviorSanitizer, with the
# suppression files of tests/. Only findings inside Qt, Qwt or the system
# libraries below them are suppressed; each entry says which frame it is for.
ROOT="${ROOT:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)}"
export ASAN_OPTIONS="detect_leaks=1:halt_on_error=1:abort_on_error=0:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:detect_invalid_pointer_pairs=0:suppressions=$ROOT/tests/asan.supp${ASAN_OPTIONS_EXTRA:+:$ASAN_OPTIONS_EXTRA}"
export LSAN_OPTIONS="suppressions=$ROOT/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1:suppressions=$ROOT/tests/ubsan.supp"
# Sanitized code runs several times slower: give each QtTest function more
# time than the default five minutes before it counts as hung.
export QTEST_FUNCTION_TIMEOUT="${QTEST_FUNCTION_TIMEOUT:-900000}"
