# The commands of everyday work; `make help` lists them. CMake does the building, this file only
# names its presets.
PREFIX ?= /usr/local
DESTDIR ?=
JOBS ?= $(shell nproc)

# A compiler cache saves repeated work where one is installed; nothing depends on it.
export CMAKE_CXX_COMPILER_LAUNCHER ?= $(shell command -v ccache 2>/dev/null)

windows_systems := i686 x86_64
packages := packaging/install-debian-packages
cpp_files = git ls-files -z '*.cpp' '*.h'

.PHONY: help deps build run test desktop desktop-test bench pictures \
        windows windows-package test-windows bench-windows install install-desktop package package-desktop \
        test-packages format check format-check words-check arrows-check sizes-check tidy clean

help:                ## this list
	@sed -n 's/^\([a-z-]*\):.*## /\1\t/p' $(MAKEFILE_LIST) | expand -t 18

deps:                ## install the Debian packages that are missing
	@$(packages) packaging/debian-packages.txt

build: deps          ## programs in build/bin, libraries in build/lib
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS)

run: build           ## the tour: a sound is opened, cut, undone, redone, saved (FILE=… for your own)
	@mkdir -p out
	build/bin/mavrin2 run examples/tour.lua $(if $(FILE),"$(FILE)")

test: deps           ## build with sanitizers and run every test
	cmake --preset dev
	cmake --build --preset dev --parallel $(JOBS)
	ctest --preset dev --parallel $(JOBS)

desktop: deps        ## mavrin2-editor, the editor in a window, in build/bin; installs Qt
	@$(packages) packaging/debian-desktop-packages.txt
	cmake --preset desktop
	cmake --build --preset desktop --parallel $(JOBS)

desktop-test: deps   ## build mavrin2-editor with sanitizers and run its tests
	@$(packages) packaging/debian-desktop-packages.txt
	cmake --preset desktop-dev
	cmake --build --preset desktop-dev --parallel $(JOBS) --target desktop_tests mavrin2_registry
	ctest --preset desktop-dev --parallel $(JOBS)

bench: deps          ## measure against the programs one would use instead
	@$(packages) packaging/debian-bench-packages.txt
	cmake --preset bench
	cmake --build --preset bench --parallel $(JOBS)
	bench/run

pictures: build      ## draw the pictures of docs/operations.md again
	docs/pictures/draw-operations

# The programs that describe the type libraries run here, so they come from the native build.
windows: deps        ## the DLLs for Windows, in build/windows/i686/bin and build/windows/x86_64/bin
	packaging/windows-libraries $(windows_systems)
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS) --target idl
	set -e; for system in $(windows_systems); do \
	    cmake --preset windows-$$system; \
	    cmake --build --preset windows-$$system --parallel $(JOBS) --target components; \
	done

windows-package: windows ## a zip for each architecture, in build/windows: the DLLs, scripts that register them, licences
	for system in $(windows_systems); do packaging/windows-package $$system || exit; done

test-windows: windows-package build ## build the tests for Windows and run them in Wine
	tests/windows/run $(JOBS)

bench-windows: windows ## what creating the control and calling it late costs in Wine
	bench/windows/run $(JOBS)

install: build       ## install below PREFIX (/usr/local), inside DESTDIR
	DESTDIR="$(DESTDIR)" cmake --install build/release --prefix "$(abspath $(PREFIX))"

install-desktop: desktop ## the same with mavrin2-editor
	DESTDIR="$(DESTDIR)" cmake --install build/release --prefix "$(abspath $(PREFIX))"

package: build       ## Debian packages of program, components and headers, in build/packages
	@$(packages) packaging/debian-packaging-packages.txt
	packaging/build-packages

package-desktop: desktop ## the same with mavrin2-editor
	@$(packages) packaging/debian-packaging-packages.txt
	packaging/build-packages

test-packages:       ## install, use and remove the packages in a bare Debian 12
	packaging/test-packages

format: deps         ## put every source file into the project's format
	$(cpp_files) | xargs -0r clang-format -i

check: format-check words-check arrows-check sizes-check tidy ## what CI checks besides the tests

format-check: deps
	$(cpp_files) | xargs -0r clang-format --dry-run -Werror

words-check: deps
	python3 tests/architecture/check_words.py

arrows-check: deps
	python3 tests/architecture/check_arrows.py

sizes-check: deps
	python3 tests/architecture/check_sizes.py

# FILES=… limits the check to some files; what was fine before and has not changed is not read again.
tidy: deps
	cmake --preset dev
	.ci/tidy $(FILES)

clean:               ## remove everything that was built
	rm -rf build out
