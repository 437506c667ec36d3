# The name server was set by hand, past NetworkManager, and does not answer; the network's own does.
mkdir -p /etc/NetworkManager/conf.d
printf '[main]\ndns=none\n' >/etc/NetworkManager/conf.d/by-hand.conf
echo "nameserver 192.168.50.253" >/etc/resolv.conf
atHome
expect "the dead server is the one in use" shows '^nameserver 192.168.50.253' cat /etc/resolv.conf
refuse "names are found" timeout 20 nslookup connectivity.test
expect "the program runs" program run --max-scan-cache-age 600
expect "names are not found" value currentNetwork.resolvedDNS false
expect "it says by whom" shows "the system's own name servers .192.168.50.253" cat /out/program.log
expect "the name servers are set by hand" value device.isUsingCustomDNS true
expect "nothing else is raised" healthy currentNetwork.resolvedDNS device.isUsingCustomDNS
