#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the libraries, and builds and runs a project that uses them.
#
#   consumer_test.sh install shared|static        install into WORK/<kind>/prefix
#   consumer_test.sh find_package shared|static   the consumer, with the CMake package
#   consumer_test.sh pkg_config shared|static     the consumer, with the pkg-config files
#       or debian, for what debian_package_test.sh has installed
#   consumer_test.sh add_subdirectory             the consumer, with the source tree in its own
#
# The environment says with what: SOURCE and BUILD of the libraries, WORK (a directory to use up),
# VERSION, CMAKE, GENERATOR, CC, CXX, LAUNCHER.
# shellcheck disable=SC2153
set -euo pipefail

way=$1
kind=${2:-}
consumer=$SOURCE/tests/packaging/consumer
prefix=$WORK/$kind/prefix
build=$WORK/$kind/$way

cmake_configure() {
    "$CMAKE" -G "$GENERATOR" -B "$build" -DCMAKE_C_COMPILER="$CC" -DCMAKE_CXX_COMPILER="$CXX" \
        -DCMAKE_C_COMPILER_LAUNCHER="$LAUNCHER" -DCMAKE_CXX_COMPILER_LAUNCHER="$LAUNCHER" "$@"
}

# Installs the build directory $1. The prefix is moved afterwards, and must not mind.
install_from() {
    rm -rf "$prefix" "$WORK/$kind/first-prefix"
    "$CMAKE" --install "$1" --prefix "$WORK/$kind/first-prefix" >/dev/null
    mv "$WORK/$kind/first-prefix" "$prefix"
}

install_static() {
    cmake_configure -S "$SOURCE" -DBUILD_SHARED_LIBS=OFF -DORV_BUILD_TESTS=OFF \
        -DORV_BUILD_EXAMPLES=OFF
    "$CMAKE" --build "$build"
    install_from "$build"
}

build_consumer() {
    "$CMAKE" --build "$build"
    "$build/consumer"
    "$build/c_consumer"
}

use_find_package() {
    rm -rf "$build"
    cmake_configure -S "$consumer" -DORVXX_VERSION="$VERSION" -DCMAKE_PREFIX_PATH="$prefix"
    build_consumer
}

use_add_subdirectory() {
    rm -rf "$build"
    cmake_configure -S "$consumer" -DORVXX_SOURCE="$SOURCE" -DORV_WARNINGS_AS_ERRORS=ON \
        -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$build/prefix"
    build_consumer
    # A project that contains the libraries must not install them along with itself.
    "$CMAKE" --install "$build" >/dev/null
    if [ -e "$build/prefix" ]; then
        echo "add_subdirectory brought install rules:" >&2
        find "$build/prefix" >&2
        exit 1
    fi
}

use_pkg_config() {
    local file static=()
    file=$(find "$prefix/" -name orvxx.pc)
    export PKG_CONFIG_PATH=${file%/*}
    [ "$kind" != static ] || static=(--static)
    mkdir -p "$build"

    local version
    version=$(pkg-config --modversion orvxx)
    if [ "$version" != "$VERSION" ]; then
        echo "orvxx.pc is of version $version and the libraries of $VERSION" >&2
        exit 1
    fi

    # Words of pkg-config's output are options each.
    # shellcheck disable=SC2046
    "$CXX" -std=c++20 $(pkg-config --cflags orvxx) "$consumer/main.cpp" -o "$build/consumer" \
        $(pkg-config "${static[@]}" --libs orvxx) -Wl,-rpath,"$(pkg-config --variable=libdir orvxx)"
    # shellcheck disable=SC2046
    "$CC" -std=c11 $(pkg-config --cflags orv) "$consumer/main.c" -o "$build/c_consumer" \
        $(pkg-config "${static[@]}" --libs orv) -Wl,-rpath,"$(pkg-config --variable=libdir orv)"
    "$build/consumer"
    "$build/c_consumer"
}

case $way in
install) if [ "$kind" = static ]; then install_static; else install_from "$BUILD"; fi ;;
find_package) use_find_package ;;
pkg_config) use_pkg_config ;;
add_subdirectory) use_add_subdirectory ;;
*) exit 2 ;;
esac
