# Thin wrapper over CMake: make build | run | test | bench | package | fuzz
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=Release
# The fuzz build stands in a folder of its own.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60

.PHONY: all bootstrap configure build run test bench screenshots package fuzz clean

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

# Every reader's fuzzer for FUZZ_SECONDS seconds each (clang's libFuzzer).
fuzz: bootstrap
	cmake -S . -B $(FUZZ_BUILD) $(CMAKE_FLAGS) -DKESTRANE_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++-14
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	FUZZ_SECONDS=$(FUZZ_SECONDS) cmake --build $(FUZZ_BUILD) --target fuzz

clean:
	rm -rf $(BUILD) $(FUZZ_BUILD)
