# make run, make test: install what is missing, build, and go. make help lists the rest.

SHELL := /bin/sh
JOBS ?= $(shell nproc)
FOLDER ?=
ARGS ?=
ONLY ?=
FILTER ?=
TARGET ?=
SECONDS ?= 60
EVENTS ?= 1000000
SEED ?= 1
MINUTES ?= 60
# Of each fuzz target in a soak, unless SECONDS is given.
SOAK_SECONDS = $(if $(filter file,$(origin SECONDS)),3600,$(SECONDS))

SETUP := scripts/setup.sh
CONFIGURE := $(MAKE) -s --no-print-directory
BUILD = cmake --build build/$(1) -j$(JOBS) --target $(2)

export ASAN_OPTIONS ?= detect_stack_use_after_return=1:strict_string_checks=1
export UBSAN_OPTIONS ?= print_stacktrace=1
export LSAN_OPTIONS ?= suppressions=$(CURDIR)/scripts/leaks.txt:print_suppressions=0

.PHONY: help run gallery test list-tests check format check-format lint layers check-docs check-logic check-sanitized bench docs package release-check coverage fuzz soak resources clean \
	setup-run setup-test setup-check setup-bench setup-docs setup-release setup-fuzz
.SILENT:

help:
	echo "make run [FOLDER=folder] [ARGS=...]    build in release and run the browser on a folder"
	echo "make gallery [ARGS='--dump folder']    show every class with its source, or write pictures of that"
	echo "make test [FILTER=NSView.*:Theme.*]    build and run the tests"
	echo "make list-tests                        print each test's full name"
	echo "make check                             format, lint, layers, documentation, plix::logic alone, sanitized tests"
	echo "make format                            format all sources"
	echo "make bench [ONLY=prefix]               measure; writes out/speed.html, one page, and out/bench.jsonl"
	echo "make docs                              write the guide and the reference as HTML to out/docs"
	echo "make package                           write Debian packages to out/packages"
	echo "make release-check                     install, move and use the library, and its packages in a clean Debian"
	echo "make coverage                          lines and branches that the tests reach, by folder"
	echo "make fuzz TARGET=name [SECONDS=60]     fuzz a target; without TARGET lists them"
	echo "make soak [ONLY='gallery failures fuzz browser'] [EVENTS=1000000] [SEED=1] [SECONDS=3600] [MINUTES=60]"
	echo "                                       run long: random events, failing machines, each fuzz target, memory"
	echo "make resources                         draw the library's named images anew"
	echo "make clean                             remove build/ and out/"

setup-run:
	$(SETUP) build library fonts
setup-test:
	$(SETUP) build library fonts tests toolkits
setup-check:
	$(SETUP) build library fonts tests toolkits check docs fuzz
setup-bench:
	$(SETUP) build library fonts tests toolkits benchmarks
setup-docs:
	$(SETUP) build library fonts toolkits benchmarks docs
setup-release:
	$(SETUP) build library fonts release
setup-fuzz:
	$(SETUP) build library fonts fuzz

# Ninja configures anew by itself when a list of sources changes; presets it does not know.
build/%/build.ninja: CMakePresets.json
	mkdir -p build
	cmake --preset $* >build/$*.log 2>&1 || { cat build/$*.log; rm -f $@; exit 1; }
	touch $@

run: setup-run
	$(CONFIGURE) build/release/build.ninja
	$(call BUILD,release,browser)
	build/release/examples/browser $(ARGS) $(FOLDER)

gallery: setup-run
	$(CONFIGURE) build/release/build.ninja
	$(call BUILD,release,gallery)
	build/release/examples/gallery $(ARGS)

test: setup-test
	$(CONFIGURE) build/dev/build.ninja
	$(call BUILD,dev,all)
	scripts/run-tests.py build/dev --jobs $(JOBS) --filter '$(FILTER)'

# Only the names go to standard output.
list-tests:
	{ $(SETUP) build library fonts tests toolkits && $(CONFIGURE) build/dev/build.ninja && $(call BUILD,dev,all); } >&2
	scripts/run-tests.py build/dev --list --filter '$(FILTER)'

check: setup-check check-format lint layers check-docs check-logic check-sanitized
	echo "check: all is well"

format:
	scripts/format.sh
check-format: setup-check
	scripts/format.sh --check
lint:
	scripts/lint.py
	scripts/exports.py
	scripts/speed-report.py --check
layers:
	scripts/layers.py
check-docs: setup-check
	scripts/guide.py
	scripts/docs.py check
check-logic: setup-check
	$(CONFIGURE) build/logic/build.ninja
	$(call BUILD,logic,all)
	scripts/run-tests.py build/logic --jobs $(JOBS)
check-sanitized: setup-check
	$(CONFIGURE) build/asan/build.ninja
	$(call BUILD,asan,all)
	scripts/run-tests.py build/asan --jobs $(JOBS) --filter '$(FILTER)'

bench: setup-bench
	cmake --preset release >/dev/null
	$(call BUILD,release,plix_bench)
	build/release/benchmarks/plix_bench --only '$(ONLY)' --out out/bench.jsonl; status=$$?; \
	scripts/speed-report.py out/bench.jsonl out/speed.html && exit $$status

docs: setup-docs
	$(CONFIGURE) build/release/build.ninja
	$(call BUILD,release,gallery)
	rm -rf out/docs
	build/release/examples/gallery --dump out/docs/pictures >/dev/null
	scripts/docs.py site out/docs out/docs/pictures

package: setup-release
	cmake --preset package >/dev/null
	$(call BUILD,package,all)
	cd build/package && cpack -B $(CURDIR)/out/packages

release-check: setup-release
	JOBS=$(JOBS) scripts/release-check.sh

coverage: setup-test
	$(CONFIGURE) build/coverage/build.ninja
	$(call BUILD,coverage,all)
	-find build/coverage -name '*.gcda' -delete
	scripts/run-tests.py build/coverage --jobs $(JOBS) --filter '$(FILTER)'
	scripts/coverage.py build/coverage

fuzz: setup-fuzz
	$(CONFIGURE) build/fuzz/build.ninja
	scripts/fuzz.sh '$(TARGET)' '$(SECONDS)'

soak: setup-fuzz
	JOBS=$(JOBS) EVENTS=$(EVENTS) SEED=$(SEED) SECONDS_A_TARGET=$(SOAK_SECONDS) MINUTES=$(MINUTES) scripts/soak.sh $(ONLY)

# What it draws is in the repository.
resources: setup-run
	$(CONFIGURE) build/release/build.ninja
	$(call BUILD,release,draw_resources)
	build/release/scripts/draw_resources plix/resources/images

clean:
	rm -rf build out
