# Shell helpers: what a scene expects. A check that fails is counted; the scene goes on.
checks=0
failures=0

# expect TEXT COMMAND...  the command succeeds
expect() {
  expect_text=$1
  shift
  checks=$((checks + 1))
  if "$@" >/tmp/expect.out 2>&1; then
    say "ok: $expect_text"
  else
    failures=$((failures + 1))
    say "FAILED: $expect_text"
    echo "  command: $*"
    tail -n 20 /tmp/expect.out | sed 's/^/  /'
  fi
}

# refuse TEXT COMMAND...  the command fails
refuse() {
  refuse_text=$1
  shift
  expect "not so: $refuse_text" not "$@"
}
not() { ! "$@"; }

# shows PATTERN COMMAND...  the command's output has a line that matches the extended expression
shows() {
  shows_pattern=$1
  shift
  "$@" >/tmp/shows.out 2>&1
  cat /tmp/shows.out
  grep -qE -e "$shows_pattern" /tmp/shows.out
}

# raised KEY              the program's record has true under the key, such as device.isUsingCustomDNS
# value KEY JSON          it has this value, such as: value currentNetwork.RSSI -82
raised() { value "$1" true; }
value() { jq -e --argjson wanted "$2" ".data.$1 == \$wanted" /out/record.json; }

# program ARGUMENT...  runs the program under test; its record is /out/record.json, its words /out/program.log
program() {
  [ -x /lab/program/run ] || stop "no program came along: lab/run --program PATH"
  /lab/program/run "$@" >/out/record.json 2>/out/program.log </dev/null
}
