# A healthy home: one access point, WPA2, with a working wired side for IPv4 and IPv6, and BlueZ without
# devices. Nothing is wrong, and the program says so.
bluetooth 1
atHome ipv6
expect "the radio is joined to it" joinedTo Birchlane
expect "the signal is strong" shows 'signal: -45 dBm' iw dev wlan0 link
expect "the security is WPA2" shows '^Birchlane:WPA2$' nmcli -t -f SSID,SECURITY device wifi list --rescan no
expect "the country is in the beacons" shows 'Country: DE' iw dev wlan0 scan dump
expect "DHCP gave an address" shows 'inet 192\.168\.50\.[0-9]+/24' ip -4 addr show wlan0
expect "the router answers" ping -c 3 -i 0.2 192.168.50.1
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
expect "the Internet is reached" shows full nmcli networking connectivity check
expect "IPv6 has a global address" within 20 shows 'inet6 2001:db8:50:' ip -6 addr show wlan0 scope global -tentative
expect "the router answers over IPv6" within 20 ping -c 1 2001:db8:50::1
expect "the program runs" program run --max-scan-cache-age 0
expect "everything is healthy" healthy
expect "IPv6 is there" raised currentNetwork.isIPv6Assigned
expect "the signal is the simulated one" value currentNetwork.RSSI -45
expect "the security is known" value currentNetwork.security '"WPA2 Personal"'
expect "the joined network is the one remembered" value currentNetwork.preferredNetwork.SSID '"Birchlane"'
