# Thin wrapper over CMake: make build | run | test | bench | package | fuzz | sanitize
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Release
# The sanitizer build and the fuzz build stand in folders of their own.
SANITIZE_BUILD ?= build-sanitize
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60

.PHONY: all bootstrap configure build run test bench screenshots package sanitize fuzz clean

all: build

bootstrap:
	scripts/bootstrap

configure: bootstrap
	cmake -S . -B $(BUILD) $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

# Builds only the command line and its data, then designs an example.
run: configure
	cmake --build $(BUILD) -j $(JOBS) --target kestrane
	$(BUILD)/bin/kestrane design $(BUILD)/bin/usrfiles/SOLVENT-LOADS-THREE-STAGE.JET

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in $(BUILD)/bin/bench_*; do echo "== $$b"; $$b; done

screenshots: build
	$(BUILD)/bin/make_screenshots docs/screenshots

# The Debian package kestrane_<version>_amd64.deb, in the build folder.
package: build
	cd $(BUILD) && cpack -G DEB

# The whole test suite built with AddressSanitizer and UndefinedBehaviorSanitizer.
sanitize: bootstrap
	cmake -S . -B $(SANITIZE_BUILD) $(CMAKE_FLAGS) -DKESTRANE_SANITIZE=ON
	cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	cd $(SANITIZE_BUILD) && ctest --output-on-failure -j $(JOBS)

# Every reader's fuzzer for FUZZ_SECONDS seconds each (clang's libFuzzer).
fuzz: bootstrap
	cmake -S . -B $(FUZZ_BUILD) $(CMAKE_FLAGS) -DKESTRANE_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++-14
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	FUZZ_SECONDS=$(FUZZ_SECONDS) cmake --build $(FUZZ_BUILD) --target fuzz

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(FUZZ_BUILD)
