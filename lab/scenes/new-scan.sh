# How long a healthy run with a new scan takes beside its scan.
# deadline: 120
atHome
sleep 20 # until NetworkManager's own scans are over
iw event -t >/tmp/radio-events &
sleep 1
# milliseconds  of the clock that the events have
milliseconds() { date +%s%3N; }
began=$(milliseconds)
settings
/lab/program/wifi-profile run --max-scan-cache-age 0 >/out/record.json 2>/out/program.log
status=$?
ended=$(milliseconds)
# scanEvent WORD  when it happened
scanEvent() { sed -nE "s/^([0-9]+)\.([0-9]{3})[0-9]*:.* scan $1.*/\1\2/p" /tmp/radio-events | tail -n 1; }
scanned=$(($(scanEvent finished) - $(scanEvent started)))
say "the scan: $scanned ms; before it: $(($(scanEvent started) - began)) ms; after it: $((ended - $(scanEvent finished))) ms"
expect "the run ends well" test "$status" -eq 0
expect "the run takes its scan and a second at most" test $((ended - began)) -le $((scanned + 1000))
