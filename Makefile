# Shortcuts over the scripts in tools/ (the README's commands call those
# scripts directly, so they work before make is installed).
.PHONY: run test bench screenshots sanitize clean
run:
	bash tools/run
test:
	bash tools/test
bench:
	BUILD_TYPE=Release BUILD_DIR=build-release bash tools/build && build-release/bin/calvix_bench
screenshots:
	bash tools/screenshots screenshots
sanitize:
	ASAN_OPTIONS=detect_leaks=1:intercept_tls_get_addr=0 BUILD_DIR=build-asan BUILD_TYPE=Debug CMAKE_FLAGS="-DCALVIX_SANITIZE=ON -DCALVIX_BENCH=OFF" bash tools/test
clean:
	rm -rf build build-asan build-release build-ci
