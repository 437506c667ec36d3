# The answer for a name is too long for UDP: it comes cut, and the name server is asked again over TCP.
atHome
settings
sed -i 's/"name": "connectivity.test"/"name": "many.test"/' /etc/wifi-profile/settings.json
tcpdump -i wlan0 -U -Z root -w /tmp/dns.pcap port 53 2>/tmp/tcpdump.log &
within 10 test -s /tmp/dns.pcap || stop "tcpdump does not record: $(xargs </tmp/tcpdump.log)"
expect "the program runs" program run --max-scan-cache-age 600
expect "the name is found" value currentNetwork.resolvedDNS true
expect "nothing is raised" healthy
seenPackets() { tcpdump -r /tmp/dns.pcap -Z root -n "$@" | tee /tmp/seen && test -s /tmp/seen; }
# Byte 10 behind UDP's ports has DNS's flag for a cut answer; the other filter is for packets with content.
expect "the answer over UDP was cut" seenPackets 'udp src port 53 and udp[10] & 2 != 0'
expect "it came over TCP" seenPackets 'tcp src port 53 and tcp[tcpflags] & tcp-push != 0'

inAir nft "add table inet filter; add chain inet filter in { type filter hook input priority 0; };
  add rule inet filter in tcp dport 53 reject with tcp reset" || stop "nft does not reject"
expect "the program runs" program run --max-scan-cache-age 600
expect "without TCP the name is not found" value currentNetwork.resolvedDNS false
expect "nothing else is raised" healthy currentNetwork.resolvedDNS
