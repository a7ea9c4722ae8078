# The two commands of the README:
#   make test   installs what is missing, configures, builds and runs every test
#   make demo   the same set-up, then runs the gallery
BUILD_DIR ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?=

.PHONY: all setup configure build test demo bench install clean test-sanitize

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

clean:
	rm -rf $(BUILD_DIR)
