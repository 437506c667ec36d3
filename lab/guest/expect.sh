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

# What the program's record (/out/record.json) and its log (/out/program.log) say:
#
#   raised KEY              the record has true under the key, such as device.isUsingCustomDNS
#   value KEY JSON          it has this value, such as: value currentNetwork.RSSI -82
#   absent KEY              it has nothing under the key
#   unknown KEY PATTERN     so it is, and a line of the log matches the extended expression
#   healthy [KEY...]        the run completed, and every finding is as in a healthy home, but those named: all
#                           are known and no alarm is raised. Without BlueZ those of Bluetooth are not known.
raised() { value "$1" true; }
value() { jq -e --argjson wanted "$2" ".data.$1 == \$wanted" /out/record.json; }
absent() { jq -e --arg key "$1" '($key / ".") as [$part, $name] | .data[$part] | has($name) | not' /out/record.json; }
unknown() {
  cat /out/program.log
  absent "$1" && grep -qE -e "$2" /out/program.log
}

whenTrue="device.isUsingCustomIPv4 device.isUsingCustomIPv6 device.isUsingCustomDNS device.isUsingCustomWebProxy
  device.isPYNXInRealTimeMode device.doesPNLContainConflictingSecurityType device.isLargePNL
  device.doesPNLContainHiddenNetworks currentNetwork.hasDoubleNATConfiguration currentNetwork.isChannelCongested
  currentNetwork.is2GHzCongested currentNetwork.is5GHzCongested currentNetwork.hasHT40Channel
  currentNetwork.foundConflictingCountryCode currentNetwork.foundHiddenNetworks currentNetwork.hasPoorSignal
  currentNetwork.isHostedByBrellinBaseStation currentNetwork.isBeaconIntervalLong currentNetwork.isDTIMIntervalLong
  currentNetwork.hasConflictingPHYMode11AC currentNetwork.hasConflictingPHYMode11N
  currentNetwork.isUsingOpenSecurity currentNetwork.isUsingWEPSecurity currentNetwork.isUsingWPASecurity
  currentNetwork.isUsingLegacyRates currentNetwork.isUsingAmbiguousNetworkName currentNetwork.isHiddenNetwork
  currentNetwork.isNimoPersonalHotspot currentNetwork.isPasspointNetwork currentNetwork.isCaptive"
whenFalse="currentNetwork.pingedLAN currentNetwork.pingedWAN currentNetwork.resolvedDNS
  currentNetwork.reachedOrvane currentNetwork.retrievedOrvane currentNetwork.isIPv4Assigned"
ofBluetooth="device.isLargePairedBT device.isLargeConnectedBT"

healthy() {
  if [ -e /tmp/bluetoothd.log ]; then
    healthy_alarms="$whenTrue $ofBluetooth"
  else
    healthy_alarms=$whenTrue
    for healthy_key in $ofBluetooth; do unknown "$healthy_key" BlueZ || return 1; done
  fi
  # The only answer that no scene can have: what simulated radios and a Bluetooth device do to each other.
  unknown device.isHYBRIDBTCoexistenceMode 'Bluetooth Coex' || return 1
  jq -e --arg alarms "$healthy_alarms" --arg good "$whenFalse" --arg but "$*" '
    def keys($text): ($text | [splits("\\s+")]) - ($but | [splits("\\s+")]);
    def wrong($keys; $wanted):
      .data as $data | $keys | map(select(. as $key | ($data | getpath($key / ".")) != $wanted));
    (.statusCode == 0)
      and ({notFalse: wrong(keys($alarms); false), notTrue: wrong(keys($good); true)}
           | if . == {notFalse: [], notTrue: []} then true else (tojson | debug | false) end)' /out/record.json
}

# ends STATUS COMMAND...  the command's exit status is this one
ends() {
  ends_wanted=$1 ends_status=0
  shift
  "$@" || ends_status=$?
  echo "exit status $ends_status"
  [ "$ends_status" -eq "$ends_wanted" ]
}

# program ARGUMENT...  runs the program under test; its record is /out/record.json, its words /out/program.log
program() {
  [ -x /lab/program/run ] || stop "no program came along: lab/run --program PATH"
  [ -e /etc/wifi-profile/settings.json ] || settings
  ${program_user:-} /lab/program/run "$@" >/out/record.json 2>/out/program.log </dev/null
}
