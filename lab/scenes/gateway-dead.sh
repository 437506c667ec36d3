# The router that DHCP names is not there.
atHome gateway=dead
expect "the dead router is the one in use" shows 'default via 192.168.50.254 dev wlan0' ip route
refuse "it answers" ping -c 3 -i 0.2 -W 1 192.168.50.254
refuse "the Internet is reached" ping -c 3 -i 0.2 -W 1 203.0.113.80
expect "the air is fine: another address here answers" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the router does not answer" value currentNetwork.pingedLAN false
expect "nor does the Internet" value currentNetwork.pingedWAN false
expect "names are found: their server is another one" raised currentNetwork.resolvedDNS
expect "the site is not reached" value currentNetwork.reachedOrvane false
expect "nor its page" value currentNetwork.retrievedOrvane false
expect "a portal is not known of" unknown currentNetwork.isCaptive 'Captive'
expect "nor a second router" unknown currentNetwork.hasDoubleNATConfiguration 'Double NAT'
expect "nothing else is raised" healthy currentNetwork.pingedLAN currentNetwork.pingedWAN \
  currentNetwork.reachedOrvane currentNetwork.retrievedOrvane currentNetwork.isCaptive \
  currentNetwork.hasDoubleNATConfiguration
