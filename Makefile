# Entry points: make test (the style check, then the plain and sanitized
# suites), make check-style, make bench, make fuzz, make demo. Each installs
# what is missing first.
BUILD      ?= build
ASAN_BUILD ?= build-asan
BENCH_BUILD?= build-bench
FUZZ_BUILD ?= build-fuzz
ARMHF_BUILD?= build-armhf
FUZZ_SECONDS ?= 60
FUZZ_RUNS  ?=
JOBS       ?= $(shell nproc)
CMAKE_GEN  := -G Ninja

.PHONY: all deps deps-armhf check-style test test-plain test-asan test-valgrind test-armhf bench fuzz demo clean

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

# The whole suite cross-built for 32-bit ARM and run under qemu-arm.
deps-armhf: deps
	@./scripts/install-deps.sh --armhf

test-armhf: deps-armhf
	cmake -S . -B $(ARMHF_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCMAKE_TOOLCHAIN_FILE=cmake/armhf-toolchain.cmake
	cmake --build $(ARMHF_BUILD) -j $(JOBS)
	ctest --test-dir $(ARMHF_BUILD) --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BENCH_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release -DUTILS_BENCH=ON -DUTILS_TESTS=OFF
	cmake --build $(BENCH_BUILD) -j $(JOBS)
	@set -e; for b in $(BENCH_BUILD)/bench/bench_*; do \
	  [ -x "$$b" ] || continue; echo "== $$b"; "$$b" --benchmark_counters_tabular=true; done

fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DUTILS_FUZZ=ON -DUTILS_TESTS=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	./scripts/run-fuzz.sh $(FUZZ_BUILD) $(FUZZ_SECONDS) $(FUZZ_RUNS)

# The plain test programs under valgrind's memcheck, which also sees reads by
# the uninstrumented dependencies; any error fails the run.
test-valgrind: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DUTILS_BENCH=ON
	cmake --build $(BUILD) -j $(JOBS)
	./scripts/run-valgrind.sh $(BUILD)

demo: deps
	cmake -S . -B $(BUILD) $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(BUILD) -j $(JOBS) --target utts example_images sample_dict demo_voice
	@set -e; for f in examples/*.ssml; do \
	  echo "== utts normalize $$f"; $(BUILD)/tools/utts normalize "$$f"; printf '\n\n'; done
	@echo "== utts labels examples/mixed-language.ssml (en-US, the Chinese name replaced)"
	@$(BUILD)/tools/utts labels examples/mixed-language.ssml
	@echo "== utts labels -l zh-CN examples/mixed-language.ssml (only the Chinese name kept)"
	@$(BUILD)/tools/utts labels -l zh-CN examples/mixed-language.ssml
	@echo "== utts analyze --stages examples/news-zh.ssml (the whole front end, stage by stage)"
	@$(BUILD)/tools/utts analyze --stages examples/news-zh.ssml | head -n 120
	@echo "   ... (the labels of all phrases: $$($(BUILD)/tools/utts analyze examples/news-zh.ssml | wc -l) lines)"
	@echo "== utts analyze examples/chinese.txt (plain text: labels of the first phrase)"
	@$(BUILD)/tools/utts analyze examples/chinese.txt | head -n 12
	@echo "== utts analyze examples/news-zh.ssml | utts generate build/data/demo-voice.img (the whole chain)"
	@$(BUILD)/tools/utts analyze examples/news-zh.ssml > $(BUILD)/news-zh.lab
	@$(BUILD)/tools/utts generate -o $(BUILD)/news-zh.tracks $(BUILD)/data/demo-voice.img $(BUILD)/news-zh.lab
	@echo "$$(wc -l < $(BUILD)/news-zh.lab) labels, $$(grep -vc '^#' $(BUILD)/news-zh.tracks) frames of 5 ms in $(BUILD)/news-zh.tracks"
	@if command -v gnuplot > /dev/null; then \
	  $(BUILD)/tools/utts generate --plot $(BUILD)/news-zh.png -o /dev/null $(BUILD)/data/demo-voice.img $(BUILD)/news-zh.lab && \
	  echo "plot: $(BUILD)/news-zh.png"; fi
	@echo "== utts analyze --stages examples/news.ssml (English: every stage; no pronunciation source, so no labels)"
	@$(BUILD)/tools/utts analyze --stages examples/news.ssml 2>&1 | sed -n '/^== breaks/,/^== stress/p' | head -n 40
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
	rm -rf $(BUILD) $(ASAN_BUILD) $(BENCH_BUILD) $(FUZZ_BUILD) $(ARMHF_BUILD)
