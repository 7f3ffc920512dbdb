# Entry points: make test (the style check, then the plain and sanitized
# suites), make check-style, make bench, make fuzz, make demo. Each installs
# what is missing first.
BUILD      ?= build
ASAN_BUILD ?= build-asan
BENCH_BUILD?= build-bench
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
JOBS       ?= $(shell nproc)
CMAKE_GEN  := -G Ninja

.PHONY: all deps check-style test test-plain test-asan bench fuzz demo clean

all: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) -j $(JOBS)

deps:
	@./scripts/install-deps.sh

test: check-style test-plain test-asan

# The conventions of CONTRIBUTING.md that a script can check; the symbol
# check reads the static archive, so that target is built first.
check-style: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUTILS_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS) --target UtilsStatic
	./scripts/check-style.sh --build $(BUILD)

test-plain: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUTILS_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

test-asan: deps
	cmake -S . -B $(ASAN_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DUTILS_SANITIZE=ON
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --test-dir $(ASAN_BUILD) --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BENCH_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release -DUTILS_BENCH=ON -DUTILS_TESTS=OFF
	cmake --build $(BENCH_BUILD) -j $(JOBS)
	@set -e; for b in $(BENCH_BUILD)/bench/bench_*; do \
	  [ -x "$$b" ] || continue; echo "== $$b"; "$$b" --benchmark_counters_tabular=true; done

fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DUTILS_FUZZ=ON -DUTILS_TESTS=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	@set -e; for f in $(FUZZ_BUILD)/fuzz/fuzz_*; do \
	  [ -x "$$f" ] || continue; name=$$(basename $$f); corpus=$(FUZZ_BUILD)/corpus/$$name; \
	  mkdir -p $$corpus; seeds=fuzz/seeds/$$name; [ -d $$seeds ] || seeds=; \
	  echo "== $$name ($(FUZZ_SECONDS) s)"; \
	  $$f -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 -artifact_prefix=$(FUZZ_BUILD)/ $$corpus $$seeds; done

demo: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) -j $(JOBS) --target utts example_images
	@set -e; for f in examples/*.ssml; do \
	  echo "== utts normalize $$f"; $(BUILD)/tools/utts normalize "$$f"; printf '\n\n'; done
	@echo "== utts labels examples/mixed-language.ssml (en-US, the Chinese name replaced)"
	@$(BUILD)/tools/utts labels examples/mixed-language.ssml
	@echo "== utts labels -l zh-CN examples/mixed-language.ssml (only the Chinese name kept)"
	@$(BUILD)/tools/utts labels -l zh-CN examples/mixed-language.ssml
	@echo "== utts lookup build/data/example.model.img data/example.labels (the leaf of each tree)"
	@$(BUILD)/tools/utts lookup $(BUILD)/data/example.model.img data/example.labels
	@cmake --build $(BUILD) -j $(JOBS) --target demo_voice > /dev/null
	@echo "== utts generate build/data/demo-voice.img (a demonstration voice, not a trained one) on the labels of examples/mixed-language.ssml"
	@$(BUILD)/tools/utts labels examples/mixed-language.ssml > $(BUILD)/mixed-language.lab
	@$(BUILD)/tools/utts generate -o $(BUILD)/mixed-language.tracks $(BUILD)/data/demo-voice.img $(BUILD)/mixed-language.lab
	@head -n 6 $(BUILD)/mixed-language.tracks; echo "..."; awk '!/^#/ && $$1 != "-1e+10"' $(BUILD)/mixed-language.tracks | head -n 6
	@echo "... $$(grep -vc '^#' $(BUILD)/mixed-language.tracks) frames of 5 ms in $(BUILD)/mixed-language.tracks (log F0 -1e+10 where unvoiced)"
	@if command -v gnuplot > /dev/null; then \
	  $(BUILD)/tools/utts generate --plot $(BUILD)/mixed-language.png -o /dev/null $(BUILD)/data/demo-voice.img $(BUILD)/mixed-language.lab && \
	  echo "plot: $(BUILD)/mixed-language.png"; else echo "(gnuplot is not installed: no plot)"; fi

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(BENCH_BUILD) $(FUZZ_BUILD)
