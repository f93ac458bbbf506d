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

OVIK = $(BUILD)/tools/ovik/ovik
EXAMPLES = $(BUILD)/examples

# The sample packages are made during the build; their thumbnails are answered as a file
# browser would ask for them.
demo: build
	@mkdir -p out
	$(OVIK) version
	$(OVIK) draft check $(EXAMPLES)/kept.ovikwork
	$(OVIK) thumbnail $(EXAMPLES)/kept.ovikwork --size 256 --scale 2 --output out/kept-thumbnail.png --json
	$(BUILD)/tools/thumbnailer/ovik-thumbnailer -s 128 $(EXAMPLES)/kept.ovikwork out/kept-128.png
	@echo "--- a package whose kept renders are stale, and one that reaches outside itself:"
	-$(OVIK) thumbnail $(EXAMPLES)/stale.ovikwork --size 256 --output out/stale-thumbnail.png
	-$(OVIK) draft check $(EXAMPLES)/outside.ovikwork
	@echo "--- the time map of a draft that changes speed, and one moment on its three clocks:"
	$(OVIK) time $(EXAMPLES)/timed.ovikwork --table
	$(OVIK) time $(EXAMPLES)/timed.ovikwork --output 2000000 --json
	@echo "--- an object of the animation sample halfway through its fade:"
	$(OVIK) state $(EXAMPLES)/animation.ovikwork "文字 1" --at 250000 --json
	@echo "--- thumbnails composed on the spot (no kept renders): a recording, a screenshot, a photo:"
	$(OVIK) thumbnail $(EXAMPLES)/recording.ovikwork --size 512 --output out/recording-thumbnail.png --json
	$(OVIK) thumbnail $(EXAMPLES)/picture.ovikwork --size 512 --output out/picture-thumbnail.png --json
	$(OVIK) thumbnail $(EXAMPLES)/photo.ovikwork --size 512 --output out/photo-thumbnail.png --json
	@echo "--- a still of the recording at 2 s, and a filmstrip of it:"
	$(OVIK) render $(EXAMPLES)/recording.ovikwork --at 2000000 --size 960 --output out/recording-2s.png
	$(OVIK) filmstrip $(EXAMPLES)/recording.ovikwork --count 6 --height 90 --output out/recording-filmstrip.png
	@echo "Thumbnails and stills written to out/"

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) $(CMAKE_GEN) -DOVIK_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp:print_suppressions=0 ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DOVIK_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	@for b in $(BUILD)/bench/ovik-bench-*; do echo "== $$b"; $$b; done

fuzz:
	@scripts/install-deps --fuzz
	CC=clang-19 CXX=clang++-19 cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DOVIK_FUZZ=ON
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
