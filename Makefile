# The two commands of the README:
#   make test   installs what is missing, configures, builds and runs every test
#   make demo   the same set-up, then runs the gallery
BUILD_DIR ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

.PHONY: all setup configure build test demo bench install clean test-sanitize fuzz memcheck

all: build

setup:
	bash scripts/setup.sh

configure: setup
	cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

demo: build
	bash scripts/run-demo.sh $(BUILD_DIR)

install: build
	cmake --install $(BUILD_DIR) $(if $(PREFIX),--prefix $(PREFIX),)

# Our layer against bare Qwt, in a Release build in $(BENCH_DIR); JSON reports
# and a Markdown summary in $(BENCH_DIR)/bench-results. BENCH_QUICK=1 for a
# short run; see bench/run-bench.sh for the other settings.
BENCH_DIR ?= build-bench
bench: setup
	cmake -S . -B $(BENCH_DIR) -DCMAKE_BUILD_TYPE=Release -DFIGURA_BUILD_BENCH=ON \
	  -DFIGURA_BUILD_TESTS=OFF -DFIGURA_BUILD_DEMO=OFF
	cmake --build $(BENCH_DIR) -j $(JOBS) --target figura_benchmarks
	bash bench/run-bench.sh $(BENCH_DIR)

# Every test again with AddressSanitizer and UndefinedBehaviorSanitizer, in build-sanitize.
test-sanitize: setup
	JOBS=$(JOBS) bash scripts/test-sanitize.sh

# Each reader under libFuzzer for FUZZ_SECONDS (default 120), in build-fuzz.
fuzz: setup
	JOBS=$(JOBS) bash scripts/fuzz.sh

# The lifecycle test under valgrind; no byte "definitely lost".
memcheck: build
	bash scripts/memcheck.sh $(BUILD_DIR)

clean:
	rm -rf $(BUILD_DIR)
