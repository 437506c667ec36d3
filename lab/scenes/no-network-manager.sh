# wpa_supplicant alone manages the radio, and a DHCP client the address.
air 1
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" signal=-45
wired
supplicant Birchlane "correct horse"
address
refuse "NetworkManager is there" nmcli general
expect "the radio is joined" joinedTo Birchlane
expect "wpa_supplicant says so" shows '^wpa_state=COMPLETED$' wpa_cli -i wlan0 status
expect "DHCP gave an address" shows 'inet 192\.168\.50\.[0-9]+/24' ip -4 addr show wlan0
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
expect "the program runs" program run --max-scan-cache-age 600
expect "the security is known" value currentNetwork.security '"WPA2 Personal"'
for key in IPv4 IPv6 DNS WebProxy; do
  expect "how $key was set up is not known" unknown "device.isUsingCustom$key" 'Custom .*NetworkManager cannot be asked'
done
expect "nor what is remembered" unknown device.isLargePNL 'Large PNL .*NetworkManager cannot be asked'
expect "nor whether the network is a phone's" unknown currentNetwork.isNimoPersonalHotspot 'Hotspot .*NetworkManager cannot be asked'
expect "nothing is raised" healthy device.isUsingCustomIPv4 device.isUsingCustomIPv6 device.isUsingCustomDNS \
  device.isUsingCustomWebProxy device.isLargePNL device.doesPNLContainHiddenNetworks \
  device.doesPNLContainConflictingSecurityType currentNetwork.isNimoPersonalHotspot
