#!/usr/bin/env bash
# Checks orvexcat end to end: combining files, standard input, binary and
# compressed output read back, read errors reported with file and line,
# write failures, and the limits on what an input may hold.
set -u
tool="$1"
dir="$(mktemp -d /tmp/orvexcat-test-XXXXXX)"
trap 'rm -rf "$dir"' EXIT
failures=0
check() {  # check <description> <command...>: the command must succeed
  local what="$1"; shift
  if "$@"; then echo "ok   - $what"; else echo "FAIL - $what"; failures=$((failures + 1)); fi
}

cat > "$dir/a.ovx" <<'SCENE'
#Orvex V1.0 ascii
Separator {
  DEF red Material { diffuseColor 1 0 0 }
  Cube { width 3 }
  USE red
}
SCENE
cat > "$dir/b.ovx" <<'SCENE'
#Orvex V1.0 ascii
Sphere { radius 2.5 }
SCENE

# Two files combine under one separator.
"$tool" "$dir/a.ovx" "$dir/b.ovx" > "$dir/both.ovx" 2> "$dir/err"
check "two files: exit status 0" test $? -eq 0
check "two files: header" grep -q '^#Orvex V1.0 ascii$' "$dir/both.ovx"
check "two files: the cube" grep -q 'width 3' "$dir/both.ovx"
check "two files: the sphere" grep -q 'radius 2.5' "$dir/both.ovx"
check "two files: the shared material stays shared" grep -q 'USE red' "$dir/both.ovx"
check "two files: nothing on standard error" test ! -s "$dir/err"

# Standard input, and the output read back gives the same text.
"$tool" < "$dir/a.ovx" > "$dir/stdin.ovx"
check "standard input: exit status 0" test $? -eq 0
"$tool" "$dir/stdin.ovx" > "$dir/again.ovx"
check "standard input: a second pass changes nothing" cmp -s "$dir/stdin.ovx" "$dir/again.ovx"

# Binary and compressed files read back to the same ASCII.
"$tool" -b -o "$dir/both.bin" "$dir/both.ovx"
check "binary: exit status 0" test $? -eq 0
check "binary: binary header" grep -qa '^#Orvex V1.0 binary' "$dir/both.bin"
"$tool" "$dir/both.bin" > "$dir/from-binary.ovx"
check "binary: reads back to the same scene" cmp -s "$dir/both.ovx" "$dir/from-binary.ovx"
"$tool" -z -o "$dir/both.ovx.gz" "$dir/both.ovx"
check "compressed: exit status 0" test $? -eq 0
check "compressed: gzip signature" test "$(head -c 2 "$dir/both.ovx.gz" | od -An -tx1 | tr -d ' \n')" = "1f8b"
"$tool" "$dir/both.ovx.gz" > "$dir/from-gz.ovx"
check "compressed: reads back to the same scene" cmp -s "$dir/both.ovx" "$dir/from-gz.ovx"

# A read error: reported with file and line, status 1, nothing written.
cat > "$dir/broken.ovx" <<'SCENE'
#Orvex V1.0 ascii
Separator {
  Cube {
    width wide
  }
}
SCENE
"$tool" "$dir/a.ovx" "$dir/broken.ovx" > "$dir/out" 2> "$dir/err"
status=$?
check "read error: exit status 1" test $status -eq 1
check "read error: names the file and line" grep -q "line 4 in $dir/broken.ovx" "$dir/err"
check "read error: names the field" grep -q 'width' "$dir/err"
check "read error: no scene written" test ! -s "$dir/out"
"$tool" "$dir/missing.ovx" > /dev/null 2> "$dir/err"
check "missing file: exit status 1" test $? -eq 1
check "missing file: reported" grep -q 'missing.ovx' "$dir/err"
"$tool" -z > /dev/null 2> "$dir/err" < /dev/null
check "usage error: exit status 2" test $? -eq 2
if [ -w /dev/full ]; then
  "$tool" "$dir/b.ovx" > /dev/full 2> "$dir/err"
  check "full output device: exit status 2" test $? -eq 2
  check "full output device: reported" grep -q 'writing failed' "$dir/err"
  # A file that cannot be written: the failure shows when the file is closed.
  "$tool" "$dir/b.ovx" -o /dev/full 2> "$dir/err"
  check "full output file: exit status 2" test $? -eq 2
  check "full output file: reported" grep -q 'writing failed: /dev/full' "$dir/err"
  "$tool" -z "$dir/b.ovx" -o /dev/full 2> "$dir/err"
  check "full compressed output file: exit status 2" test $? -eq 2
  check "full compressed output file: reported" grep -q 'writing failed: /dev/full' "$dir/err"
fi

# Input limits. The options and their defaults are in the usage text.
"$tool" -h > "$dir/usage"
check "usage: names --max-input-bytes" grep -q -- '--max-input-bytes N' "$dir/usage"
check "usage: names --max-inflated-bytes" grep -q -- '--max-inflated-bytes N' "$dir/usage"
"$tool" --max-input-bytes lots "$dir/b.ovx" > /dev/null 2> "$dir/err"
check "bad byte count: exit status 2" test $? -eq 2
check "bad byte count: reported" grep -q 'needs a byte count' "$dir/err"
# A file below the limit reads; one above is refused with a read error.
"$tool" --max-input-bytes 1K "$dir/b.ovx" > "$dir/out" 2> "$dir/err"
check "input limit: a small file reads" test $? -eq 0
head -c 3000 /dev/zero | tr '\0' ' ' >> "$dir/b.ovx"
"$tool" --max-input-bytes 1K "$dir/b.ovx" > "$dir/out" 2> "$dir/err"
check "input limit: exit status 1" test $? -eq 1
check "input limit: reported with the file" grep -q "larger than the limit of 1024 bytes" "$dir/err"
check "input limit: nothing written" test ! -s "$dir/out"
# An endless stream with a valid header stops at the limit, quickly.
start=$SECONDS
{ echo '#Orvex V1.0 ascii'; yes ''; } | "$tool" --max-input-bytes 1M > "$dir/out" 2> "$dir/err"
status=$?
check "endless standard input: exit status 1" test $status -eq 1
check "endless standard input: reported" grep -q "larger than the limit of 1048576 bytes" "$dir/err"
check "endless standard input: stops within seconds" test $((SECONDS - start)) -lt 20
# /dev/zero is no scene file: refused at once, whatever the limit.
if [ -r /dev/zero ]; then
  start=$SECONDS
  "$tool" --max-input-bytes 1M /dev/zero > "$dir/out" 2> "$dir/err"
  check "/dev/zero: exit status 1" test $? -eq 1
  check "/dev/zero: read error" grep -q "read error" "$dir/err"
  "$tool" /dev/zero > "$dir/out" 2> "$dir/err"
  check "/dev/zero with the default limit: exit status 1" test $? -eq 1
  check "/dev/zero: stops within seconds" test $((SECONDS - start)) -lt 20
fi
# A compressed file that inflates beyond the limit (64 MiB of blanks in
# about 64 KB) is refused once the limit is reached.
{ echo '#Orvex V1.0 ascii'; head -c 67108864 /dev/zero | tr '\0' ' '; } | gzip -9 > "$dir/bomb.ovx.gz"
"$tool" --max-inflated-bytes 1M "$dir/bomb.ovx.gz" > "$dir/out" 2> "$dir/err"
check "inflated limit: exit status 1" test $? -eq 1
check "inflated limit: reported" grep -q "inflates to more than the limit of 1048576 bytes" "$dir/err"
# The limit is exact: the compressed scene inflates to the size of both.ovx.
inflated=$(wc -c < "$dir/both.ovx")
"$tool" --max-inflated-bytes "$inflated" "$dir/both.ovx.gz" > "$dir/out" 2> "$dir/err"
check "inflated limit: a file at the limit reads" test $? -eq 0
check "inflated limit: to the same scene" cmp -s "$dir/both.ovx" "$dir/out"
"$tool" --max-inflated-bytes $((inflated - 1)) "$dir/both.ovx.gz" > "$dir/out" 2> "$dir/err"
check "inflated limit: a byte less is refused" test $? -eq 1

# A number beyond the range of its field names the line.
printf '#Orvex V1.0 ascii\rSeparator {\r  Cube {\r    width 1e999999\r  }\r}\r' > "$dir/range.ovx"
"$tool" "$dir/range.ovx" > "$dir/out" 2> "$dir/err"
check "out of range: exit status 1" test $? -eq 1
check "out of range: names the number and the line (CR line ends)" \
  grep -q "Number 1e999999 is out of range" "$dir/err"
check "out of range: line 4" grep -q "line 4 in $dir/range.ovx" "$dir/err"

if [ $failures -ne 0 ]; then echo "$failures check(s) failed"; exit 1; fi
echo "all checks passed"
