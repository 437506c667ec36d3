# The router that DHCP names is not there.
atHome gateway=dead
expect "the dead router is the one in use" shows 'default via 192.168.50.254 dev wlan0' ip route
refuse "it answers" ping -c 3 -i 0.2 -W 1 192.168.50.254
refuse "the Internet is reached" ping -c 3 -i 0.2 -W 1 203.0.113.80
expect "the air is fine: another address here answers" ping -c 3 -i 0.2 192.168.50.1
