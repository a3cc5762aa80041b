#!/usr/bin/env bash
# Usage: run.sh prepare|cmake|pkg_config|without_formats <cmake> <build directory> <work directory> <compiler>
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
        for format in yaml cbor sqlite; do
            if [[ ! -e $pc/ordana-$format.pc ]]; then continue; fi
            packages=("ordana-$format")
            if [[ $format == sqlite ]]; then packages+=(sqlite3); fi # which the program itself calls
            read -ra flags <<< "$(pkg-config --cflags --libs "${packages[@]}")"
            "$compiler" -std=c++17 "$here/consumer/$format.cpp" -o "$work/pkg_config_${format}_consumer" "${flags[@]}"
            expect_greeting "$work/pkg_config_${format}_consumer"
        done ;;
    without_formats)
        # As on a machine that has none of their libraries. The library itself is not built again.
        without=$work/without
        rm -rf "$without"
        "$cmake" -S "$here/../.." -B "$without/build" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Release \
            -DORDANA_BUILD_TESTS=OFF -DORDANA_BUILD_EXAMPLES=OFF \
            -DORDANA_YAML_LIBRARY=OFF -DORDANA_CBOR_LIBRARY=OFF -DORDANA_SQLITE_LIBRARY=OFF > "$without.log"
        for notice in "ordana::yaml is left out: yaml was not found (on Debian and Ubuntu: apt-get install libyaml-dev)" \
            "ordana::cbor is left out: cbor was not found (on Debian and Ubuntu: apt-get install libcbor-dev)" \
            "ordana::sqlite is left out: sqlite3 was not found (on Debian and Ubuntu: apt-get install libsqlite3-dev)"; do
            if ! grep -qF "$notice" "$without.log"; then echo "no notice: $notice"; cat "$without.log"; exit 1; fi
        done
        cp -a "$build"/src/libordana.so* "$without/build/src/"
        "$cmake" --install "$without/build" --prefix "$without/prefix" > /dev/null
        if find "$without/prefix" | grep -iE '(yaml|cbor|sqlite)'; then echo "installed without its library"; exit 1; fi
        configure_consumer() {
            "$cmake" -S "$here/consumer" -B "$without/$1" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Release \
                -DCMAKE_PREFIX_PATH="$without/prefix" -DORDANA_CONSUMER_COMPONENTS="$2" 2>&1
        }
        configure_consumer optional "OPTIONAL_COMPONENTS;yaml;cbor;sqlite"
        "$cmake" --build "$without/optional"
        expect_greeting "$without/optional/consumer"
        if compgen -G "$without/optional/*_consumer"; then echo "a consumer of what is not there"; exit 1; fi
        if configure_consumer required "COMPONENTS;yaml" > "$without.log"; then
            echo "a component that is not there was found"
            exit 1
        fi
        if ! tr -s ' \n' ' ' < "$without.log" | grep -qF "ordana::yaml was not built with this package"; then
            cat "$without.log"
            exit 1
        fi ;;
    *)
        echo "unknown way: $way"
        exit 2 ;;
esac
