# The Wi-Fi interface is a member of a bond, which has the address, the default route and the neighbours.
air 1
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
wired
{ ip link add bond0 type bond mode active-backup miimon 100 fail_over_mac active && ip link set wlan0 down &&
  ip link set wlan0 master bond0 && ip link set bond0 up; } || stop "no bond"
supplicant Birchlane "correct horse"
within 10 shows 'Currently Active Slave: wlan0' cat /proc/net/bonding/bond0 || stop "the bond does not send through Wi-Fi"
address bond0
refuse "Wi-Fi has an address" shows 'inet ' ip -4 addr show wlan0
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
expect "the program runs" program run --max-scan-cache-age 600
expect "nothing is raised" healthy device.isUsingCustomIPv4 device.isUsingCustomIPv6 device.isUsingCustomDNS \
  device.isUsingCustomWebProxy device.isLargePNL device.doesPNLContainHiddenNetworks \
  device.doesPNLContainConflictingSecurityType currentNetwork.isNimoPersonalHotspot

{ ip link add cable0 type dummy && ip link set cable0 master bond0 &&
  ip link set bond0 type bond active_slave cable0; } || stop "the bond does not change over"
expect "the bond sends through the other member" shows 'Currently Active Slave: cable0' cat /proc/net/bonding/bond0
expect "the program runs" program run --max-scan-cache-age 600
for key in pingedLAN pingedWAN resolvedDNS reachedOrvane retrievedOrvane isIPv4Assigned isCaptive; do
  expect "$key is not known then" unknown "currentNetwork.$key" 'bond0 sends through its member cable0'
done
expect "the radio's answers are known" value currentNetwork.RSSI -45
