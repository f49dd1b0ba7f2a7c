# The commands of daily use; each says in its script what it does.

.PHONY: all bench demo test fuzz coverage sdk format lint clean packages lint-packages

all: packages
	@tools/build.sh windows
	@tools/build.sh native

# Shows a directory in the tree view: make demo [DIR=folder]
demo: packages
	@tools/build.sh windows demo
	@tools/run_demo.sh $(if $(DIR),"$(DIR)")

test: packages
	@tools/run_tests.sh

# Lets a fuzzer play a hostile host: make fuzz [TIME=seconds]
fuzz:
	@tools/install_packages.sh fuzz
	@tools/fuzz.sh $(or $(TIME),60)

# Which lines and branches of src/ the native tests reach
coverage:
	@tools/install_packages.sh coverage
	@tools/coverage.sh

# Measures the library against the bare controls: make bench [DOC=1], into docs/performance.md too
bench: packages
	@QVL_BENCH_DOC=$(DOC) tools/bench.sh

sdk: packages
	@tools/make_sdk.sh

format: lint-packages
	@tools/format.sh

lint: lint-packages
	@tools/lint.sh

clean:
	rm -rf build

packages:
	@tools/install_packages.sh build

lint-packages:
	@tools/install_packages.sh lint
