#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes the Debian packages, looks at what they hold, installs them into a directory, and removes
# them again. Needs no root.
#
#   debian_package_test.sh install    make, look, install; WORK/debian/prefix leads to the files
#   debian_package_test.sh remove     nothing may be left
#
# The environment says with what: BUILD (directory of the libraries), WORK (a directory to use up),
# VERSION, CPACK.
# shellcheck disable=SC2153
set -euo pipefail

packages=$WORK/debian/packages
root=$WORK/debian/root
# dpkg wants ldconfig and start-stop-daemon in the path of whoever runs it.
PATH=$PATH:/usr/sbin:/sbin
export LC_ALL=C

fail() {
    echo "$*" >&2
    exit 1
}

make_packages() {
    rm -rf "$WORK/debian"
    mkdir -p "$packages"
    "$CPACK" -G DEB --config "$BUILD/CPackConfig.cmake" -B "$packages"
}

# deb NAME: the file of a package.
deb() {
    local files=("$packages/$1"_*.deb)
    if [ ${#files[@]} != 1 ] || [ ! -f "${files[0]}" ]; then fail "no package $1"; fi
    echo "${files[0]}"
}

# expect_field PACKAGE FIELD PATTERN: a control field matches the whole of an extended pattern.
expect_field() {
    local value
    value=$(dpkg-deb -f "$(deb "$1")" "$2" | head -n 1)
    grep -qxE "$3" <<<"$value" || fail "$1: $2 is \"$value\" and should be $3"
}

# expect_files PACKAGE MODE PATTERN...: there is one file or more for each pattern, of that mode,
# and none for which there is no pattern. Links are shown with their targets.
expect_files() {
    local name=$1 mode=$2 pattern listing patterns
    shift 2
    listing=$(dpkg-deb -c "$(deb "$name")" | grep -v '^d' | sed -E 's/  +/ /g' | cut -d ' ' -f 1,2,6-)
    for pattern; do
        grep -qxE -- "$mode root/root \./usr/$pattern" <<<"$listing" ||
            fail "$name has no $mode $pattern among
$listing"
    done
    patterns=$(printf '%s|' "$@" "share/doc/$name/copyright")
    if grep -vxE -- "$mode root/root \./usr/(${patterns%|})" <<<"$listing"; then
        fail "$name has these files besides"
    fi
}

look_at_packages() {
    local name arch lib='lib/[^/]+' major=${VERSION%%.*}
    arch=$(dpkg --print-architecture)
    runtime=liborvxx$major
    for name in "$runtime" "$runtime-dbg" liborvxx-dev; do
        expect_field "$name" Version "${VERSION//./\\.}"
        expect_field "$name" Architecture "$arch"
        expect_field "$name" Maintainer '.+ <.+@.+>'
        expect_field "$name" Priority optional
        expect_field "$name" Description 'C\+\+20 foundation library .+'
        [ "$(dpkg-deb -f "$(deb "$name")" Description | wc -l)" -gt 1 ] ||
            fail "$name has no long description"
    done
    expect_field "$runtime" Section libs
    expect_field liborvxx-dev Section libdevel
    expect_field "$runtime-dbg" Section debug
    expect_field "$runtime" Depends 'libc6 .*, libgcc-s1 .*, libstdc\+\+6 [^,]*'
    expect_field liborvxx-dev Depends "$runtime \(= ${VERSION//./\\.}\)"
    expect_field "$runtime-dbg" Depends "$runtime \(= ${VERSION//./\\.}\)"

    expect_files "$runtime" '[-l]rw.r[-w].r[-w].' \
        "$lib/liborv(xx)?\.so\.$major -> liborv(xx)?\.so\.$VERSION" "$lib/liborv(xx)?\.so\.$VERSION"
    expect_files liborvxx-dev '[-l]rw.r[-w].r[-w].' \
        "$lib/liborv(xx)?\.so -> liborv(xx)?\.so\.$major" 'include/orv/liborv(xx)?/.+\.h' \
        "$lib/cmake/orvxx/orvxx(Targets(-[a-z]+)?|Config|ConfigVersion)\.cmake" \
        "$lib/pkgconfig/orv(xx)?\.pc" 'share/doc/liborvxx-dev/LICENSES/.+' \
        'share/doc/liborvxx-dev/(README|CHANGELOG)\.md'
    expect_files "$runtime-dbg" '-rw-r--r--' 'lib/debug/\.build-id/../[0-9a-f]+\.debug' \
        "share/gdb/auto-load/usr/$lib/liborvxx\.so\.$VERSION-gdb\.py"
    for name in orv orvxx; do
        dpkg-deb -I "$(deb "$runtime")" shlibs |
            grep -xE "lib$name $major $runtime \(>= ${VERSION//./\\.}\)" >/dev/null || fail "no shlibs of lib$name"
    done
    dpkg-deb --fsys-tarfile "$(deb "$runtime")" | tar -xO "./usr/share/doc/$runtime/copyright" |
        grep 'Neither the name of Intel Corporation' >/dev/null || fail "copyright lacks Intel's licence"
}

look_at_libraries() {
    local library id
    while read -r library; do
        ! readelf -d "$library" | grep -E 'RPATH|RUNPATH' || fail "$library has a run path"
        ! readelf -S "$library" | grep -E '\.(debug_info|symtab)' || fail "$library has debug symbols"
        id=$(readelf -n "$library" | sed -n 's/.*Build ID: //p')
        readelf -S "$root/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug" |
            grep '\.symtab' >/dev/null ||
            fail "no debug symbols for $library"
    done < <(find "$root/usr/lib" -name '*.so.*' -type f ! -name '*.py')
}

# As on a system where nothing but what the packages depend on is installed.
as_root() {
    fakeroot dpkg --root="$root" --log=/dev/null --force-depends --force-script-chrootless "$@"
}

install_packages() {
    mkdir -p "$root/var/lib/dpkg/"{info,updates,triggers}
    touch "$root/var/lib/dpkg/status"
    as_root --install "$packages"/*.deb
    ln -s root/usr "$WORK/debian/prefix"
}

remove_packages() {
    [ -d "$root/usr/include/orv" ] || fail "nothing is installed"
    as_root --purge "liborvxx${VERSION%%.*}" "liborvxx${VERSION%%.*}-dbg" liborvxx-dev
    if find "$root" -path "$root/var/lib/dpkg" -prune -o ! -type d -print | grep .; then
        fail "left behind after removal"
    fi
    ! grep -rl orvxx "$root/var/lib/dpkg/info" || fail "left in the database after removal"
}

case $1 in
install)
    make_packages
    look_at_packages
    install_packages
    look_at_libraries
    ;;
remove) remove_packages ;;
*) exit 2 ;;
esac
