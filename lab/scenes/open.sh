# A network without encryption.
air 1
accessPoint ssid=Cafe channel=11 security=open signal=-55
wired
networkManager
profile Cafe security=open
seen Cafe
join Cafe
expect "the radio is joined to it" joinedTo Cafe
expect "no security is announced" shows '^Cafe:$' nmcli -t -f SSID,SECURITY device wifi list --rescan no
refuse "the beacons speak of privacy" shows 'capability:.*Privacy' iw dev wlan0 scan dump
expect "the Internet is reached" shows full nmcli networking connectivity check
expect "the program runs" program run --max-scan-cache-age 600
expect "the network is open" raised currentNetwork.isUsingOpenSecurity
expect "nothing else is raised" healthy currentNetwork.isUsingOpenSecurity
refuse "everything is healthy" healthy
