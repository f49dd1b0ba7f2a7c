# The everyday commands. The head of each script says what it does.

.PHONY: all bench clean coverage demo docs format fuzz lint package packages test

all: packages
	@tools/build.sh windows
	@tools/build.sh linux

# Shows a folder in the demo: make demo [DIR=folder]
demo: packages
	@tools/build.sh windows demo
	@tools/run_demo.sh $(if $(DIR),"$(DIR)")

test:
	@tools/install_packages.sh test
	@tests/scripts/run_tests.sh

# make fuzz [TIME=seconds]
fuzz:
	@tools/install_packages.sh fuzz
	@tools/fuzz.sh $(or $(TIME),60)

coverage:
	@tools/install_packages.sh coverage
	@tools/coverage.sh

# make bench [DOC=1]: with DOC also writes docs/performance.md
bench: packages
	@QVL_BENCH_DOC=$(DOC) tools/bench.sh

docs:
	@tools/install_packages.sh docs
	@tools/make_docs.sh

package:
	@tools/install_packages.sh docs
	@tools/make_package.sh

format:
	@tools/install_packages.sh lint
	@tools/format.sh

lint:
	@tools/install_packages.sh lint
	@tools/lint.sh

clean:
	rm -rf build

packages:
	@tools/install_packages.sh build
