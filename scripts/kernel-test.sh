#!/usr/bin/env bash
# Shows the board for real hardware at work under a real kernel: boots Debian's kernel in a small
# emulated machine with an SMBus controller, a printer port, a stub chip and the board model of
# tests/kernel, and runs that folder's programs in it. Needs neither hardware nor privileges. Skips
# with the reason and status 0 where this machine lacks something for it.
set -euo pipefail
cd "$(dirname "$0")/.."

skip() {
    echo "Kernel test skipped: $1"
    exit 0
}

# ---- what the machine is made of ---------------------------------------------------------------

for tool in qemu-system-x86_64 busybox cpio depmod make apt-get i2cdump; do
    command -v "$tool" >/dev/null || skip "there is no $tool (scripts/install-dependencies.sh ci)"
done
headers=$(find /usr/src -maxdepth 1 -name 'linux-headers-*-amd64' | sort -V | tail -n 1)
[ -n "$headers" ] || skip "there are no kernel headers (scripts/install-dependencies.sh ci)"
release=${headers#*linux-headers-}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The kernel is downloaded once and not installed: vmlinuz and the drivers of the test.
kernel=${XDG_CACHE_HOME:-$HOME/.cache}/tqx7716-kernel-test/$release
if [ ! -e "$kernel/vmlinuz" ]; then
    mkdir "$work/kernel"
    (cd "$work/kernel" && apt-get -qq -o APT::Sandbox::User=root download "linux-image-$release") ||
        skip "the package linux-image-$release cannot be downloaded"
    (cd "$work/kernel" && dpkg-deb --fsys-tarfile ./*.deb | tar -x --wildcards './boot/vmlinuz*' \
        './lib/modules/*/modules.builtin*' '*/drivers/i2c/*' '*/drivers/parport/*' '*/char/ppdev*')
    rm "$work"/kernel/*.deb
    mkdir -p "$kernel"
    cp -r "$work/kernel/lib" "$kernel"
    cp "$work"/kernel/boot/vmlinuz* "$kernel/vmlinuz"
fi

cmake --preset release >/dev/null
cmake --build --preset release --target kernel_tests tqx7716-console tqx7716
mkdir "$work/module"
cp tests/kernel/Kbuild tests/kernel/board_model.c "$work/module"
make -s -C "$headers" M="$work/module" modules

# ---- its files ---------------------------------------------------------------------------------

root=$work/root
mkdir -p "$root"/{bin,dev,etc,opt,proc,sys,tmp}
cp "$(command -v busybox)" "$root/bin"
cp -r "$kernel/lib" "$root"
mkdir "$root/lib/modules/$release/extra"
cp "$work/module/board_model.ko" "$root/lib/modules/$release/extra"
depmod -b "$root" "$release" 2>/dev/null
cp build/release/bin/{kernel_tests,tqx7716-console,tqx7716} "$root/opt"
cp "$(command -v i2cget)" "$(command -v i2cset)" "$(command -v i2cdump)" "$root/opt"

# With the libraries of each program where they are here, and what Qt loads by itself.
plugin=$(find /usr/lib -path '*/qt6/plugins/platforms/libqoffscreen.so' | head -n 1)
for file in "$root"/opt/* "$plugin"; do
    ldd "$file" | grep -o '/[^ ]*' || true
done | sort -u | xargs cp -L --parents -t "$root" -- "$plugin"
cp -RL --parents -t "$root" /etc/fonts /usr/share/fonts

cp tests/kernel/command.sh "$root/opt"

# Users by what they may: member, newcomer (in the groups from the next login on), visitor.
cat >"$root/etc/passwd" <<'END'
root:x:0:0::/:/bin/sh
member:x:1000:1000::/tmp:/bin/sh
newcomer:x:1001:1001::/tmp:/bin/sh
visitor:x:1002:1002::/tmp:/bin/sh
END
cat >"$root/etc/group" <<'END'
root:x:0:
lp:x:7:member,newcomer
i2c:x:110:member,newcomer
member:x:1000:
newcomer:x:1001:
visitor:x:1002:
END

cat >"$root/init" <<'END'
#!/bin/busybox sh
# The machine's first process. It brings the machine from one state to the next and runs the tests
# of each; the last line that it prints is the verdict.
/bin/busybox mount -t proc proc /proc
/bin/busybox --install -s /bin
export PATH=/bin QT_QPA_PLATFORM=offscreen GTEST_COLOR=no LANG=C.UTF-8
mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
chmod 1777 /tmp
verdict=passed
check() { "$@" </dev/null || { verdict=failed; echo "FAILED: $*"; }; }
as_member() { check su member -c "$*"; }

if grep -q q35 /proc/cmdline; then
    modprobe i2c-i801
    modprobe i2c-dev
    chgrp i2c /dev/i2c-*; chmod 660 /dev/i2c-*
    as_member /opt/kernel_tests --gtest_filter='Host.*Base*'
else
    as_member /opt/kernel_tests --gtest_filter='Bare.*'

    modprobe i2c-piix4
    modprobe parport_pc
    as_member /opt/kernel_tests --gtest_filter='NoNodes.*'

    modprobe i2c-dev
    modprobe ppdev
    check /opt/kernel_tests --gtest_filter='*Refused.*'
    as_member /opt/kernel_tests --gtest_filter='Host.*'

    modprobe i2c-stub chip_addr=0x2c
    modprobe board_model
    chgrp i2c /dev/i2c-*; chgrp lp /dev/parport*; chmod 660 /dev/i2c-* /dev/parport*
    i2cset -y 1 0x2c 0x16 0x41
    as_member /opt/kernel_tests --gtest_filter='Chip.*'
    as_member /opt/command.sh
    # The program itself stays up for an ordinary user, and ends when it is told to. It takes
    # SIGTERM once it is up, which takes an emulated machine its time.
    as_member '/opt/tqx7716-console 2>/dev/null &
        tries=0
        while [ $tries -lt 60 ] && ! grep -qE "^SigCgt:.*[4-7c-f]...$" /proc/$!/status; do
            sleep 1
            tries=$((tries + 1))
        done
        sleep 1
        kill $! && wait $!'
    check /opt/kernel_tests --gtest_filter='Moves.*'
fi
echo "verdict: $verdict"
poweroff -f
END
chmod 755 "$root/init"
(cd "$root" && find . | cpio --quiet -o -H newc -R 0:0) >"$work/initrd"

# ---- the runs ----------------------------------------------------------------------------------

# One with a PIIX4 controller, on which another maker's chip is at 2Ch, and one with an ICH9.
boot() {
    local machine=$1
    shift
    echo "== $machine =="
    timeout 300 qemu-system-x86_64 -machine "$machine" -cpu max -m 1024 -nodefaults -display none \
        -serial stdio -no-reboot -kernel "$kernel/vmlinuz" -initrd "$work/initrd" \
        -append "console=ttyS0 quiet panic=-1 no_timer_check $machine" "$@" | tr -d '\r' | tee "$work/log" || true
    grep -q '^verdict: passed$' "$work/log" || {
        echo "Kernel test failed on $machine"
        exit 1
    }
}
boot pc -parallel null -device i2c-ddc,address=0x2c
boot q35
echo "Kernel test passed under Linux $release"
