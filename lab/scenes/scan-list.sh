# The list of networks, beside nmcli's: the same networks, and what each of the two costs.
air 4
accessPoint ssid=Birchlane bssid=02:aa:00:00:00:01 channel=6 security=wpa2 password="correct horse" signal=-45
accessPoint ssid=Birchlane bssid=02:aa:00:00:00:02 channel=36 security=wpa2 password="correct horse" signal=-50
accessPoint ssid=Cafe bssid=02:aa:00:00:00:03 channel=11 security=open signal=-55 away
accessPoint ssid=New bssid=02:aa:00:00:00:04 channel=1 security=wpa3 password="sae secret" signal=-60 away
wired
networkManager
profile Birchlane password="correct horse" 802-11-wireless.bssid=02:aa:00:00:00:01
for network in Birchlane Cafe New; do seen "$network"; done
join Birchlane
expect "a new scan finds them" program scan --all --json --max-scan-cache-age 0
expect "there are four access points" jq -e 'map(.bssid) | sort == ["02:aa:00:00:00:01", "02:aa:00:00:00:02",
  "02:aa:00:00:00:03", "02:aa:00:00:00:04"]' /out/record.json
expect "the joined one is marked" jq -e 'map(select(.joined).bssid) == ["02:aa:00:00:00:01"]' /out/record.json
expect "the strengths are the simulated ones" jq -e 'map(.signal) == [-45, -50, -55, -60]' /out/record.json
expect "the list at hand is good enough" program scan --json
expect "each name is there once, the strongest first" jq -e 'map([.ssid, .security, .accessPoints]) ==
  [["Birchlane", "WPA2 Personal", 2], ["Cafe", "None", 1], ["New", "WPA3 Personal", 1]]' /out/record.json
expect "it is there as a table, too" program scan
expect "with a line a network" shows '-55 dBm .*None .*Cafe' cat /out/record.json

# costs TEXT COMMAND...  says how long a run takes, on average of 10, and the most memory of one: the guest's
# clock counts instructions, so that runs hardly differ
costs() {
  costs_text=$1 costs_runs=0
  shift
  costs_began=$(tr -d . </proc/uptime | cut -d' ' -f1)
  while [ "$costs_runs" -lt 10 ]; do
    costs_runs=$((costs_runs + 1))
    "$@" >/dev/null 2>&1 || { say "$costs_text: fails"; return 1; }
  done
  costs_ended=$(tr -d . </proc/uptime | cut -d' ' -f1)
  /usr/bin/time -f %M -o /tmp/memory "$@" >/dev/null
  say "$costs_text: $((costs_ended - costs_began)) ms, $(tail -n 1 /tmp/memory) KiB"
}
ours="/lab/program/ld-linux-x86-64.so.2 --library-path /lab/program /lab/program/wifi-profile.elf"
# shellcheck disable=SC2086  # several words
for form in "" --json --all; do costs "scan $form" $ours scan --max-scan-cache-age 600 $form; done
costs "nmcli" nmcli device wifi list --rescan no
