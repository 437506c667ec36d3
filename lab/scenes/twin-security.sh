# Two networks of the same name, one with WPA2 and one open.
air 2
accessPoint ssid=Birchlane bssid=02:aa:00:00:00:01 channel=6 security=wpa2 password="correct horse" signal=-45
accessPoint ssid=Birchlane bssid=02:aa:00:00:00:02 channel=11 security=open signal=-60 away
wired
networkManager
profile Birchlane password="correct horse" 802-11-wireless.bssid=02:aa:00:00:00:01
seen Birchlane
join Birchlane
bothTwins() {
  nmcli -t -f SSID,BSSID,SECURITY device wifi list --rescan yes >/tmp/twins
  grep -qxF 'Birchlane:02\:AA\:00\:00\:00\:01:WPA2' /tmp/twins && grep -qxF 'Birchlane:02\:AA\:00\:00\:00\:02:' /tmp/twins
}
expect "the same name is there with WPA2 and open" within 30 bothTwins
expect "the radio is joined to the one with WPA2" shows 'Connected to 02:aa:00:00:00:01' iw dev wlan0 link
expect "the program runs" program run --max-scan-cache-age 600
expect "the name is ambiguous" raised currentNetwork.isUsingAmbiguousNetworkName
expect "nothing else is raised" healthy currentNetwork.isUsingAmbiguousNetworkName
profile Twin ssid=Birchlane security=open
expect "the program runs again" program run --max-scan-cache-age 600
expect "the name is now remembered with and without password" raised device.doesPNLContainConflictingSecurityType
