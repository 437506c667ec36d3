# The DNS server that DHCP names does not answer; everything else works.
atHome dns=dead
expect "the dead server is the one in use" shows '^nameserver 192.168.50.253' cat /etc/resolv.conf
refuse "names are found" timeout 20 nslookup connectivity.test
expect "addresses are reached" ping -c 3 -i 0.2 203.0.113.80
refuse "NetworkManager reaches the Internet" shows full nmcli networking connectivity check
