# A router behind a router: both translate addresses.
atHome double-nat
hop() { ping -c 1 -W 2 -t "$1" 203.0.113.80; }
expect "the first hop is a private address" shows 'From 192.168.50.1 .*Time to live exceeded' hop 1
expect "the second hop is a private address, too" shows 'From 10.0.0.1 .*Time to live exceeded' hop 2
expect "the Internet is reached" shows full nmcli networking connectivity check
expect "the program runs" program run --max-scan-cache-age 600
expect "the double NAT is not known without the router's word" unknown currentNetwork.hasDoubleNATConfiguration \
  'second router on the path \(10\.0\.0\.1\)'
expect "nothing else is raised" healthy currentNetwork.hasDoubleNATConfiguration
