#!/usr/bin/env bash
# Looks for a set-up file that its reader does not bear: builds the fuzzer with clang into build-fuzz
# and runs it. What it learns stays in build-fuzz/corpus; a finding ends it and is kept as a file
# build-fuzz/crash-*.
#     tools/fuzz.sh [SECONDS]    300 by default
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build-fuzz --target set_up_text_fuzz
mkdir -p build-fuzz/corpus
cd build-fuzz
exec ./set_up_text_fuzz -max_total_time="${1:-300}" -max_len=8192 -print_final_stats=1 \
    corpus ../tests/fuzz/corpus
