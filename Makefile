# The whole set-up: `make demo` and `make test`. Everything else is for developers.
BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
JOBS       ?= $(shell nproc)
CMAKE_GEN   = -G Ninja -DCMAKE_BUILD_TYPE=Release
FUZZ_SECONDS ?= 60

.PHONY: all deps build demo test test-asan bench fuzz install clean

all: build

deps:
	@scripts/install-deps

$(BUILD)/build.ninja: | deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN)

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

demo: build
	@mkdir -p out
	$(BUILD)/tools/ovik/ovik version
	OVIK_LANGUAGE=en $(BUILD)/tools/ovik/ovik text results.file.missing demo.ovikres
	$(BUILD)/tools/ovik/ovik text results.file.missing demo.ovikres

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) $(CMAKE_GEN) -DOVIK_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DOVIK_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	@for b in $(BUILD)/bench/ovik-bench-*; do echo "== $$b"; $$b; done

fuzz:
	@scripts/install-deps --fuzz
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DOVIK_FUZZ=ON
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	@for f in $(FUZZ_BUILD)/tests/fuzz/fuzz-*; do \
	  name=$$(basename $$f); corpus=tests/fuzz/corpus/$${name#fuzz-}; \
	  mkdir -p $(FUZZ_BUILD)/corpus/$$name; \
	  echo "== $$name ($(FUZZ_SECONDS)s)"; \
	  $$f -max_total_time=$(FUZZ_SECONDS) $(FUZZ_BUILD)/corpus/$$name $$corpus || exit 1; \
	done

install: build
	cmake --install $(BUILD)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD) out
