#!/usr/bin/env bash
# Lets a user without a plan work in the real window under AddressSanitizer and
# UndefinedBehaviorSanitizer. Usage: tools/soak.sh [SECONDS [SEED]], ten minutes without.
# The seed is printed, and the same one repeats the actions; after a finding the last are shown.
set -eu
cd "$(dirname "$0")/.."
. tools/setup.sh
need "${build_packages[@]}" "${run_packages[@]}" "${display_packages[@]}"
cmake --preset asan >/dev/null
cmake --build --preset asan --target korvane_soak
ASAN_OPTIONS=detect_leaks=0:detect_stack_use_after_return=1 UBSAN_OPTIONS=print_stacktrace=1 \
    exec tools/with_display.sh build/asan/bin/korvane_soak "${1:-600}" ${2:+"$2"}
