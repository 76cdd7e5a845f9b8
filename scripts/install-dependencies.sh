#!/usr/bin/env bash
# Installs what is missing of the Debian packages that the console is built, run and tested with.
# Every dependency of the project stands here, once.
#
# Usage: install-dependencies.sh [build|test|ci]     each includes those before it
set -euo pipefail

build=(
    g++ cmake ninja-build
    libi2c-dev                                       # the SMBus calls of the kernel
    libcli11-dev nlohmann-json3-dev                  # arguments and JSON of the command
    qt6-base-dev libgl-dev libqt6svg6                # widgets, and the reader of the icons
    fonts-inter fonts-jetbrains-mono                 # the faces for words and for numbers
    cmark-gfm librsvg2-bin                           # make the handbook and the icons
)
tests=(
    libgtest-dev libgmock-dev libbenchmark-dev git
    xvfb dbus-daemon at-spi2-core                    # a desktop without a screen
)
ci=(
    clang-format clang-tidy
    clang libclang-rt-dev                                  # fuzzing
    gcovr                                                  # coverage
    appstream desktop-file-utils dpkg-dev lintian mandoc   # check the package
    qemu-system-x86 busybox-static cpio kmod make i2c-tools   # the machine of kernel-test.sh
    linux-headers-amd64                              # and its board model
)

wanted=("${build[@]}")
case "${1:-build}" in
build) ;;
test) wanted+=("${tests[@]}") ;;
ci) wanted+=("${tests[@]}" "${ci[@]}") ;;
*)
    echo "usage: $0 [build|test|ci]" >&2
    exit 2
    ;;
esac

missing=()
for package in "${wanted[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing; install them as root, then try again:" >&2
        echo "  apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
