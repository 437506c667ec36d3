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
#                           are known and no alarm is raised. Without BlueZ those of Bluetooth are not known, and
#                           without makers in the settings not whether the access point is a base station.
raised() { value "$1" true; }
value() {
  grep -F "$1=" /out/findings
  grep -qxF -e "$1=$2" /out/findings
}
absent() { ! grep -F "$1=" /out/findings; }
unknown() {
  cat /out/program.log
  absent "$1" && grep -qE -e "$2" /out/program.log
}

whenTrue="device.isUsingCustomIPv4 device.isUsingCustomIPv6 device.isUsingCustomDNS device.isUsingCustomWebProxy
  device.isPYNXInRealTimeMode device.doesPNLContainConflictingSecurityType device.isLargePNL
  device.doesPNLContainHiddenNetworks currentNetwork.hasDoubleNATConfiguration currentNetwork.isChannelCongested
  currentNetwork.is2GHzCongested currentNetwork.is5GHzCongested currentNetwork.hasHT40Channel
  currentNetwork.foundConflictingCountryCode currentNetwork.foundHiddenNetworks currentNetwork.hasPoorSignal
  currentNetwork.isBeaconIntervalLong currentNetwork.isDTIMIntervalLong
  currentNetwork.hasConflictingPHYMode11AC currentNetwork.hasConflictingPHYMode11N
  currentNetwork.isUsingOpenSecurity currentNetwork.isUsingWEPSecurity currentNetwork.isUsingWPASecurity
  currentNetwork.isUsingLegacyRates currentNetwork.isUsingAmbiguousNetworkName currentNetwork.isHiddenNetwork
  currentNetwork.isNimoPersonalHotspot currentNetwork.isPasspointNetwork currentNetwork.isCaptive"
whenFalse="currentNetwork.pingedLAN currentNetwork.pingedWAN currentNetwork.resolvedDNS
  currentNetwork.reachedOrvane currentNetwork.retrievedOrvane currentNetwork.isIPv4Assigned"
ofBluetooth="device.isLargePairedBT device.isLargeConnectedBT"

healthy() {
  healthy_alarms=$whenTrue
  if [ -e /tmp/bluetoothd.log ]; then
    healthy_alarms="$whenTrue $ofBluetooth"
  else
    for healthy_key in $ofBluetooth; do unknown "$healthy_key" BlueZ || return 1; done
  fi
  # The only answer that no scene can have: what simulated radios and a Bluetooth device do to each other.
  unknown device.isHYBRIDBTCoexistenceMode 'Bluetooth Coex' >/dev/null || return 1
  # The lab's settings name no makers of base stations.
  unknown currentNetwork.isHostedByBrellinBaseStation 'Brellin Base Station.*makers' >/dev/null || return 1
  {
    echo statusCode=0
    for healthy_key in $healthy_alarms; do echo "$healthy_key=false"; done
    for healthy_key in $whenFalse; do echo "$healthy_key=true"; done
  } >/tmp/healthy
  for healthy_key; do
    grep -qE "^$healthy_key=" /tmp/healthy || { echo "not among what healthy looks at: $healthy_key"; return 1; }
    sed -i "/^$healthy_key=/d" /tmp/healthy
  done
  echo "not so:"
  ! grep -vxF -f /out/findings /tmp/healthy
}

# ends STATUS COMMAND...  the command's exit status is this one
ends() {
  ends_wanted=$1 ends_status=0
  shift
  "$@" || ends_status=$?
  echo "exit status $ends_status"
  [ "$ends_status" -eq "$ends_wanted" ]
}

# onTerminal ARGUMENT...  the program in a terminal of 80 columns, with a person: "press" types (as printf does),
# "drawn PATTERN" looks at all that was drawn since it began; "closed STATUS" waits for its end, with this exit
# status. One at a time.
onTerminal() {
  [ -e /etc/wifi-profile/settings.json ] || settings
  rm -f /tmp/keys
  mkfifo /tmp/keys
  TERM=linux script -qfec "stty rows 24 cols 80; /lab/program/wifi-profile $* >/out/record.json 2>/out/program.log" \
    /dev/null </tmp/keys >/out/terminal 2>&1 &
  onTerminal_process=$!
  exec 3>/tmp/keys
}
# shellcheck disable=SC2059  # its escapes are wanted
press() { printf "$1" >&3; }
closed() { ends "$1" wait "$onTerminal_process"; }
drawn() { grep -aqE -e "$1" /out/terminal; }

# program ARGUMENT...  runs the program under test: its record is /out/record.json, its words /out/program.log
program() {
  [ -x /lab/program/wifi-profile ] || stop "no program came along: lab/run --program PATH"
  [ -e /etc/wifi-profile/settings.json ] || settings
  program_status=0
  ${program_user:-} /lab/program/wifi-profile "$@" >/out/record.json 2>/out/program.log </dev/null || program_status=$?
  # A line a value, "KEY=JSON": looking there is much cheaper than a jq each time.
  jq -r 'def line($path): "\($path | map(tostring) | join("."))=\(getpath($path) | tojson)";
    objects | {statusCode} + .data | line(paths)' /out/record.json >/out/findings
  return "$program_status"
}
