#!/usr/bin/env bash
# Usage: run.sh prepare|cmake|pkg_config <cmake> <build directory> <work directory> <compiler>
set -euo pipefail

way=$1 cmake=$2 build=$3 work=$4 compiler=$5
here=$(cd "$(dirname "$0")" && pwd)
prefix=$work/prefix

expect_greeting() {
    local output
    output=$("$@")
    if [[ $output != '{"name":"Ada","scores":[3,5]}' ]]; then
        echo "the consumer wrote: $output"
        exit 1
    fi
}

case $way in
    prepare)
        rm -rf "$prefix" "$work/moved"
        "$cmake" --install "$build" --prefix "$prefix" > /dev/null
        # Moved away from where it was installed: nothing in it may remember that place.
        mv "$prefix" "$work/moved" ;;
    cmake)
        rm -rf "$work/consumer"
        "$cmake" -S "$here/consumer" -B "$work/consumer" -DCMAKE_CXX_COMPILER="$compiler" \
            -DCMAKE_PREFIX_PATH="$work/moved" -DCMAKE_BUILD_TYPE=Release
        "$cmake" --build "$work/consumer"
        expect_greeting "$work/consumer/consumer"
        for program in "$work"/consumer/*_consumer; do
            if [[ -x $program ]]; then expect_greeting "$program"; fi
        done ;;
    pkg_config)
        pc=$(find "$work/moved" -name ordana.pc -printf '%h')
        export PKG_CONFIG_PATH=$pc
        read -ra flags <<< "$(pkg-config --cflags --libs ordana)"
        "$compiler" -std=c++17 "$here/consumer/main.cpp" -o "$work/pkg_config_consumer" "${flags[@]}"
        LD_LIBRARY_PATH=$(pkg-config --variable=libdir ordana)
        export LD_LIBRARY_PATH
        expect_greeting "$work/pkg_config_consumer"
        for format in yaml cbor; do
            if [[ ! -e $pc/ordana-$format.pc ]]; then continue; fi
            read -ra flags <<< "$(pkg-config --cflags --libs "ordana-$format")"
            "$compiler" -std=c++17 "$here/consumer/$format.cpp" -o "$work/pkg_config_${format}_consumer" "${flags[@]}"
            expect_greeting "$work/pkg_config_${format}_consumer"
        done ;;
    *)
        echo "unknown way: $way"
        exit 2 ;;
esac
