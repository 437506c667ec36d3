# The address and the DNS servers are set by hand.
air 1
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" signal=-45
wired
networkManager
profile Birchlane password="correct horse" ipv4.method=manual ipv4.addresses=192.168.50.200/24 \
  ipv4.gateway=192.168.50.1 ipv4.dns=203.0.113.53
seen Birchlane
join Birchlane
expect "the address is the one set by hand" shows 'inet 192.168.50.200/24' ip -4 addr show wlan0
expect "the method is manual" shows '^ipv4.method:manual$' nmcli -t -f ipv4.method connection show Birchlane
expect "the DNS server is the one set by hand" shows '^nameserver 203.0.113.53$' cat /etc/resolv.conf
expect "the Internet is reached" shows full nmcli networking connectivity check
expect "the program runs" program run --max-scan-cache-age 600
expect "the address by hand is raised" raised device.isUsingCustomIPv4
expect "the method is told" value device.IPv4ConfigMethod '"Manual"'
expect "the DNS servers by hand are raised" raised device.isUsingCustomDNS
expect "nothing else is raised" healthy device.isUsingCustomIPv4 device.isUsingCustomDNS
