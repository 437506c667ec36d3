# A tunnel takes all packets to the Internet and has its own name server, which nothing but the tunnel leads to.
air 1
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
wired
supplicant Birchlane "correct horse"
address
tunnel
expect "the system's packets leave by the tunnel" shows 'dev tun0' ip route get 203.0.113.80
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
refuse "the name server is reached through Wi-Fi" ping -c 1 -W 1 -I wlan0 10.8.0.1
expect "the program runs" program run --max-scan-cache-age 600
expect "names are found by its name server" value currentNetwork.resolvedDNS true
expect "it says where the packets go" shows 'reach the Internet through tun0, not through the tested Wi-Fi link' cat /out/program.log
expect "nothing is raised" healthy device.isUsingCustomIPv4 device.isUsingCustomIPv6 device.isUsingCustomDNS \
  device.isUsingCustomWebProxy device.isLargePNL device.doesPNLContainHiddenNetworks \
  device.doesPNLContainConflictingSecurityType currentNetwork.isNimoPersonalHotspot

ip route del default dev wlan0
expect "the program runs" program run --max-scan-cache-age 600
for key in pingedWAN resolvedDNS reachedOrvane retrievedOrvane; do
  expect "$key is not known without a route through Wi-Fi" unknown "currentNetwork.$key" 'default route goes through tun0'
done
