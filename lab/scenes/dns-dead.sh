# The DNS server that DHCP names does not answer; everything else works.
atHome dns=dead
expect "the dead server is the one in use" shows '^nameserver 192.168.50.253' cat /etc/resolv.conf
refuse "names are found" timeout 20 nslookup connectivity.test
expect "addresses are reached" ping -c 3 -i 0.2 203.0.113.80
refuse "NetworkManager reaches the Internet" shows full nmcli networking connectivity check
iw event -t >/tmp/radio-events &
expect "the program runs" program run --max-scan-cache-age 0
ended=$(date +%s)
scanned=$(sed -n 's/^\([0-9]*\)\..*: scan finished:.*/\1/p' /tmp/radio-events | tail -n 1)
say "it took $((ended - scanned)) s after its scan"
expect "what does not answer is waited for no longer than 15 s" test $((ended - scanned)) -le 15
expect "names are not found" value currentNetwork.resolvedDNS false
expect "nor is the site reached" value currentNetwork.reachedOrvane false
expect "nor its page" value currentNetwork.retrievedOrvane false
expect "addresses are reached" raised currentNetwork.pingedWAN
expect "a portal is not known of" unknown currentNetwork.isCaptive 'Captive'
expect "nothing else is raised" healthy currentNetwork.resolvedDNS currentNetwork.reachedOrvane \
  currentNetwork.retrievedOrvane currentNetwork.isCaptive
