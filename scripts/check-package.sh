#!/usr/bin/env bash
# Packs the release build as a Debian package, checks the package and a plain installation, and
# starts the simulator from each. Needs no root and leaves nothing behind but the package.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/release

fail() {
    echo "check-package: $*" >&2
    exit 1
}

# check_programs ROOT: every desktop entry starts a program and shows an icon that are there, and
# every program has its man page.
check_programs() {
    local root=$1 entry program icon
    for program in tqx7716-console tqx7716-simulator tqx7716; do
        [ -x "$root/bin/$program" ] || fail "$root/bin/$program is missing"
        [ -s "$root/share/man/man1/$program.1.gz" ] || fail "$program has no man page"
    done
    for entry in "$root"/share/applications/*.desktop; do
        desktop-file-validate "$entry"
        program=$(sed -n 's/^Exec=//p' "$entry")
        [ -x "$root/bin/$program" ] || fail "$entry starts $program, which is missing"
        icon=$(sed -n 's/^Icon=//p' "$entry")
        for icon in "48x48/apps/$icon.png" "scalable/apps/$icon.svg"; do
            [ -s "$root/share/icons/hicolor/$icon" ] || fail "$icon of $entry is missing"
        done
    done
}

# check_handbook ROOT: it is where the program looks for it, and no link in it is dead.
check_handbook() {
    local documents=$1/bin/../share/doc/tqx7716-console page link
    [ -s "$documents/handbook/index.html" ] || fail "the handbook is not at $documents/handbook"
    while IFS= read -r page; do
        while IFS= read -r link; do
            [ -s "$(dirname "$page")/$link" ] || fail "$page leads to $link, which is missing"
        done < <(grep -oE '(href|src)="[^"#:]+[#"]' "$page" | sed -E 's/^[a-z]+="//; s/[#"]$//')
    done < <(find "$documents/" -name '*.html')
}

# check_start ROOT: the simulator comes up and stays.
check_start() {
    local status=0
    HOME=$work XDG_RUNTIME_DIR=$work QT_QPA_PLATFORM=offscreen \
        timeout --kill-after=5 2 "$1/bin/tqx7716-simulator" || status=$?
    [ $status -eq 124 ] || fail "$1/bin/tqx7716-simulator ended by itself, status $status"
}

# check_command ROOT: the command works on its board, and its completion knows the registers.
check_command() {
    "$1/bin/tqx7716" --simulated read EEPROM3 >/dev/null || fail "$1/bin/tqx7716 does not work"
    (
        PATH=$1/bin:$PATH
        # shellcheck disable=SC1090,SC1091
        source "$1/share/bash-completion/completions/tqx7716"
        COMP_WORDS=(tqx7716 read Comp) COMP_CWORD=2
        _tqx7716
        [ "${COMPREPLY[*]}" = CompanyID ]
    ) || fail "the completion does not work"
}

check_tree() {
    check_programs "$1"
    check_handbook "$1"
    check_start "$1"
    check_command "$1"
}

# check_version VERSION: what is written by hand names the version that is built.
check_version() {
    local version=$1
    dpkg-parsechangelog --file packaging/debian/changelog --show-field Version |
        grep -qxF "$version" || fail "packaging/debian/changelog does not begin with $version"
    grep -qF "<release version=\"$version\"" packaging/metainfo/*.xml ||
        fail "the metainfo has no release $version"
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

rm -rf $build/package
cmake --preset release >/dev/null
cmake --build --preset release
cpack --preset release
package=$(echo $build/package/*.deb)
check_version "$(dpkg-deb --field "$package" Version)"
mandoc -T lint -W warning packaging/man/*.in
lintian --allow-root --fail-on error,warning "$package"
apt-get install --simulate --quiet=2 "./$package" >/dev/null ||
    fail "its dependencies cannot be had on this system"

dpkg-deb --extract "$package" "$work/unpacked"
check_tree "$work/unpacked/usr"
appstreamcli validate-tree --no-net --pedantic "$work/unpacked"

cmake --install $build --prefix "$work/installed" >/dev/null
check_tree "$work/installed"
echo "$package is in order"
