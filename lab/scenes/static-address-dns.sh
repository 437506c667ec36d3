# The address and the DNS servers are set by hand.
air 1
accessPoint ssid=Home channel=6 security=wpa2 password="correct horse" signal=-45
wired
networkManager
profile Home password="correct horse" ipv4.method=manual ipv4.addresses=192.168.50.200/24 \
  ipv4.gateway=192.168.50.1 ipv4.dns=203.0.113.53
seen Home
join Home
expect "the address is the one set by hand" shows 'inet 192.168.50.200/24' ip -4 addr show wlan0
expect "the method is manual" shows '^ipv4.method:manual$' nmcli -t -f ipv4.method connection show Home
expect "the DNS server is the one set by hand" shows '^nameserver 203.0.113.53$' cat /etc/resolv.conf
expect "the Internet is reached" shows full nmcli networking connectivity check
