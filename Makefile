# make run    installs what is missing, builds, and opens KELVOR Lite on data/demo.kls
# make test   installs what is missing, builds, runs every test (also under ASan and UBSan) and the fuzzers
# make bench  installs what is missing, builds, and runs the benchmarks
# make build  installs what is missing and builds
# make soak   runs the editor's commands at random for long (SOAK_SEED, SOAK_STEPS)

BUILD_DIR ?= build
SANITIZE_DIR ?= build-sanitize
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 15
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
CTEST_FLAGS ?= --output-on-failure -j2
SOAK_STEPS ?= 5000
# A new seed each run unless one is given; the run prints it.
SOAK_SEED ?= $(shell date +%s)

.PHONY: all deps build build-sanitize run test test-fast soak bench fuzz clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD_DIR)/build.ninja: | deps
	cmake -S . -B $(BUILD_DIR) $(CMAKE_FLAGS)

$(FUZZ_DIR)/build.ninja: | deps
	cmake -S . -B $(FUZZ_DIR) $(CMAKE_FLAGS) -DCMAKE_CXX_COMPILER=clang++ -DSEP_FUZZ=ON

$(SANITIZE_DIR)/build.ninja: | deps
	cmake -S . -B $(SANITIZE_DIR) $(CMAKE_FLAGS) -DSEP_SANITIZE=ON

build: deps $(BUILD_DIR)/build.ninja
	cmake --build $(BUILD_DIR)

build-sanitize: deps $(SANITIZE_DIR)/build.ninja
	cmake --build $(SANITIZE_DIR)

run: build
	@if [ -z "$$DISPLAY" ]; then \
	  echo "make run opens a window and needs a display; without one: xvfb-run -a make run"; exit 1; fi
	build/bin/kelvor data/demo.kls

# The plain build's tests, the fuzz targets for a bounded time, then the suite under the sanitizers.
test: build build-sanitize fuzz
	ctest --test-dir $(BUILD_DIR) $(CTEST_FLAGS)
	ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:fast_unwind_on_malloc=0 \
	  ctest --test-dir $(SANITIZE_DIR) $(CTEST_FLAGS)

# Each reader of outside input under libFuzzer for FUZZ_SECONDS, from the checked-in seeds.
fuzz: deps $(FUZZ_DIR)/build.ninja
	cmake --build $(FUZZ_DIR)
	@for pair in ScenarioReader:scenario CsvTrackReader:csv GogReader:gog GdalTrackReader:gdal TimeStringReader:time EntityMimeData:mime; do \
	  target=$${pair%%:*}; seeds=$${pair##*:}; mkdir -p $(FUZZ_DIR)/corpus/$$seeds; \
	  echo "== fuzzing $$target for $(FUZZ_SECONDS) s"; \
	  $(FUZZ_DIR)/fuzz/$${target}Fuzz -max_total_time=$(FUZZ_SECONDS) -print_final_stats=0 \
	    $(FUZZ_DIR)/corpus/$$seeds fuzz/corpus/$$seeds > $(FUZZ_DIR)/$$target.log 2>&1 \
	    || { tail -40 $(FUZZ_DIR)/$$target.log; exit 1; }; \
	done

# The plain build's tests only, for a quick check while working.
test-fast: build
	ctest --test-dir $(BUILD_DIR) $(CTEST_FLAGS)

# The soak test for SOAK_STEPS steps from SOAK_SEED; BUILD_DIR=build-sanitize runs it in the
# sanitizer build once make build-sanitize has made that.
soak: deps $(BUILD_DIR)/build.ninja
	cmake --build $(BUILD_DIR) --target soak_tests
	SOAK_SEED=$(SOAK_SEED) SOAK_STEPS=$(SOAK_STEPS) QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:fast_unwind_on_malloc=0 \
	  $(BUILD_DIR)/bin/soak_tests --gtest_filter=Soak.RandomCommandsKeepTheScenarioConsistent

bench: build
	cmake --build $(BUILD_DIR) --target bench_all
	@for b in $(BUILD_DIR)/bin/*_bench; do echo "== $$b"; "$$b" || exit 1; done

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR)
