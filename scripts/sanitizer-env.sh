# Sourced by the scripts that run sanitized programs: the options of
# AddressSanitizer, LeakSanitizer and UndefinedBehaviorSanitizer, with the
# suppression files of tests/. Only findings inside Qt, Qwt or the system
# libraries below them are suppressed; each entry says which frame it is for.
ROOT="${ROOT:-$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)}"
# allocator_may_return_null: QDataStream (QtCore, QDataStream::readBlock
# under QVariant::load) allocates whatever length a damaged "@Variant(...)"
# value in a settings file claims and copes with a failed allocation; ASan
# should fail such a request as malloc does instead of aborting the process.
export ASAN_OPTIONS="detect_leaks=1:halt_on_error=1:allocator_may_return_null=1:abort_on_error=0:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:detect_invalid_pointer_pairs=0:suppressions=$ROOT/tests/asan.supp${ASAN_OPTIONS_EXTRA:+:$ASAN_OPTIONS_EXTRA}"
export LSAN_OPTIONS="suppressions=$ROOT/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1:suppressions=$ROOT/tests/ubsan.supp"
# A hung QtTest function is named by QtTest itself if its watchdog fires
# before ctest's limit, which is four times the usual one in a sanitized
# build (tests/CMakeLists.txt): at least 240 s.
export QTEST_FUNCTION_TIMEOUT="${QTEST_FUNCTION_TIMEOUT:-200000}"
