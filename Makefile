# Quick start: `make run` and `make test` on a fresh Debian 12 machine.
BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)
MAKEFLAGS += --no-print-directory
WERROR := $(if $(CI),ON,OFF)

WIN_BUILD_DIR ?= build-windows

.PHONY: all deps configure build run test bench format package clean
.PHONY: deps-windows configure-windows build-windows test-windows package-windows

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DTOS_WERROR=$(WERROR) >/dev/null

build: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS)

run: build
	@bash scripts/run-gui.sh $(BUILD_DIR)

test: build
	@cd $(BUILD_DIR) && ctest -j $(JOBS) --output-on-failure

bench: configure
	@cmake --build $(BUILD_DIR) -j $(JOBS) --target benchmarks
	@bash scripts/run-benchmarks.sh $(BUILD_DIR)

format: deps
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

package: build
	@cd $(BUILD_DIR) && cpack -G DEB

clean:
	@rm -rf $(BUILD_DIR)

# Windows: cross-built with mingw-w64, tested under Wine, shipped by NSIS.
deps-windows:
	@bash scripts/install-windows-deps.sh

configure-windows: deps-windows
	@cmake -S . -B $(WIN_BUILD_DIR) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake \
		-DCMAKE_BUILD_TYPE=Release -DTOS_WERROR=$(WERROR) >/dev/null

build-windows: configure-windows
	@cmake --build $(WIN_BUILD_DIR) -j $(JOBS)

test-windows: build-windows
	@TOS_LINUX_BUILD=$(BUILD_DIR) bash scripts/test-windows.sh $(WIN_BUILD_DIR) $(JOBS)

package-windows: build-windows
	@cmake --build $(WIN_BUILD_DIR) --target installer
