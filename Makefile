# Quick start: `make run` and `make test` on a fresh Debian 12 machine.
BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)
MAKEFLAGS += --no-print-directory
WERROR := $(if $(CI),ON,OFF)

WIN_BUILD_DIR ?= build-windows

.PHONY: all deps configure build run test bench format package clean test-sanitize fuzz
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

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer, stopping at
# the first report. -O1 keeps the build and the run short.
SANITIZE_DIR ?= build-sanitize
SANITIZER_ENV := ASAN_OPTIONS=halt_on_error=1:detect_leaks=1 \
	LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan-suppressions.txt \
	UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1

test-sanitize: deps
	@cmake -S . -B $(SANITIZE_DIR) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g" \
		-DTOS_SANITIZE=ON -DTOS_BUILD_BENCH=OFF -DTOS_WERROR=$(WERROR) >/dev/null
	@cmake --build $(SANITIZE_DIR) -j $(JOBS)
	@cd $(SANITIZE_DIR) && $(SANITIZER_ENV) ctest -j $(JOBS) --output-on-failure

# Coverage-guided fuzzing of every input the program reads; each target runs
# FUZZ_SECONDS on a corpus seeded from tests/data and examples/.
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 60

fuzz:
	@bash scripts/install-fuzz-deps.sh
	@cmake -S . -B $(FUZZ_DIR) -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_BUILD_TYPE=Debug \
		-DCMAKE_CXX_FLAGS_DEBUG="-O1 -g" -DTOS_BUILD_FUZZ=ON -DTOS_BUILD_GUI=OFF \
		-DTOS_BUILD_TESTS=OFF -DTOS_BUILD_BENCH=OFF -DTOS_WERROR=$(WERROR) >/dev/null
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target fuzzers
	@bash scripts/run-fuzzers.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

format: deps
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

package: build
	@cd $(BUILD_DIR) && cpack -G DEB

clean:
	@rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR) $(WIN_BUILD_DIR)

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
