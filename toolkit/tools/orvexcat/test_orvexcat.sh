#!/usr/bin/env bash
# Checks orvexcat end to end: combining files, standard input, binary and
# compressed output read back, and read errors reported with file and line.
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
fi

if [ $failures -ne 0 ]; then echo "$failures check(s) failed"; exit 1; fi
echo "all checks passed"
