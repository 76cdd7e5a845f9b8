#!/bin/sh
# The command on the chip of each medium, and beside i2c-tools on the stub chip.
set -eu
PATH=/opt:$PATH
mkdir -p /tmp/command
cd /tmp/command
fail() {
    echo "command: $*"
    exit 1
}

tqx7716 find >found
cat found
[ "$(wc -l <found)" -eq 2 ] || fail "found something else"
if tqx7716 read 16h 2>several; then
    fail "took one chip of two"
fi
grep -q "several TQX7716" several || fail "does not say that there are several"

# The values of a dump's registers, one a line, in two capital digits.
values() {
    sed '/EEPROM/,$d' "$1" | tr -d '\r' | tr '\t' '\n' | sed -n 's/^[0-9A-F]*:\(.*\)$/0\1/p' |
        sed 's/.*\(..\)$/\1/'
}

for where in --printer-port=/dev/parport1 --smbus --smbus=/dev/i2c-1; do
    rm -f dump.txt
    tqx7716 $where write "+12V HighLim" 11.4V || fail "$where: write"
    tqx7716 $where read 46h | grep -q "B6h" || fail "$where: read"
    tqx7716 $where dump dump.txt 2>said || fail "$where: dump"
    sed '/Start of EEPROM/,$d' dump.txt >registers.txt
    [ "$(values registers.txt | wc -l)" -eq 256 ] || fail "$where: a dump of 256 registers"
    tqx7716 $where write 46h 0
    status=0
    tqx7716 $where compare registers.txt >differences || status=$?
    cat differences
    grep -q "^46h   +12V HighLim       B6h -> 0h" differences || fail "$where: compare"
    [ $status -eq 1 ] || fail "$where: status $status of a difference"
done

tqx7716 --smbus write 44h E6h
[ "$(i2cget -y 1 0x2c 0x44)" = 0xe6 ] || fail "i2cget reads another value"
i2cset -y 1 0x2c 0x45 0x5d
tqx7716 --smbus read 45h | grep -q "5Dh" || fail "read gives another value than i2cset wrote"
rm -f dump.txt
tqx7716 --smbus dump dump.txt 2>said
values dump.txt >ours
i2cdump -y 1 0x2c b | sed -n 's/^[0-9a-f]0: //p' | cut -c 1-47 | tr ' ' '\n' |
    tr 'a-f' 'A-F' >theirs
cmp ours theirs || fail "i2cdump reads another chip"
echo "command: both media and i2c-tools agree"
