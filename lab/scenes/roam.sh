# The link moves to another access point of its network in mid-run, and then to another channel with it: what its radio
# gives is not known, what is reached is.
# deadline: 120
air 2
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-50
wired
supplicant Birchlane "correct horse"
address
expect "the first access point is joined" shows 'Connected to 02:00:00:00:01:00' iw dev wlan0 link

# inMidRun COMMAND...  runs the program, which has a list at hand, and the command between its two surveys
inMidRun() {
  expect "there is a list at hand" program scan --max-scan-cache-age 0
  program run --max-scan-cache-age 600 &
  running=$!
  sleep 0.8
  "$@" || stop "cannot be done in mid-run: $*"
  expect "the program ends with a record" wait "$running"
}
reached="pingedLAN pingedWAN resolvedDNS reachedOrvane retrievedOrvane isIPv4Assigned"

inMidRun wpa_cli -i wlan0 roam 02:00:00:00:02:00
expect "the second access point is joined" shows 'Connected to 02:00:00:00:02:00' iw dev wlan0 link
expect "what was known before stays so" value currentNetwork.RSSI -45
expect "how busy the channel is is not known" unknown currentNetwork.isChannelCongested \
  'link to "Birchlane" moved to another access point while this was asked'
for key in $reached; do expect "$key is known" value "currentNetwork.$key" true; done

inMidRun hostapd_cli -p /run/hostapd -i wlan2 chan_switch 2 2462 ht
expect "the channel changed" within 10 shows 'freq: 2462' iw dev wlan0 link
expect "what was known before stays so" value currentNetwork.RSSI -50
expect "how busy the channel is is not known" unknown currentNetwork.isChannelCongested \
  'link to "Birchlane" changed its channel while this was asked'
for key in $reached; do expect "$key is known" value "currentNetwork.$key" true; done
