# make test   installs what is missing, builds, and runs every test (also under ASan and UBSan)
# make bench  installs what is missing, builds, and runs the benchmarks
# make build  installs what is missing and builds

BUILD_DIR ?= build
SANITIZE_DIR ?= build-sanitize
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
CTEST_FLAGS ?= --output-on-failure -j2

.PHONY: all deps build build-sanitize test test-fast bench clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD_DIR)/build.ninja: | deps
	cmake -S . -B $(BUILD_DIR) $(CMAKE_FLAGS)

$(SANITIZE_DIR)/build.ninja: | deps
	cmake -S . -B $(SANITIZE_DIR) $(CMAKE_FLAGS) -DSEP_SANITIZE=ON

build: deps $(BUILD_DIR)/build.ninja
	cmake --build $(BUILD_DIR)

build-sanitize: deps $(SANITIZE_DIR)/build.ninja
	cmake --build $(SANITIZE_DIR)

# The plain build's tests, then the same suite under the sanitizers.
test: build build-sanitize
	ctest --test-dir $(BUILD_DIR) $(CTEST_FLAGS)
	ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:fast_unwind_on_malloc=0 \
	  ctest --test-dir $(SANITIZE_DIR) $(CTEST_FLAGS)

# The plain build's tests only, for a quick check while working.
test-fast: build
	ctest --test-dir $(BUILD_DIR) $(CTEST_FLAGS)

bench: build
	cmake --build $(BUILD_DIR) --target bench_all
	@for b in $(BUILD_DIR)/bin/*_bench; do echo "== $$b"; "$$b" || exit 1; done

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR)
