# An old access point: WEP, and the slow rates of 802.11b alone.
air 1
accessPoint ssid=Old channel=1 security=wep password=123456789a rates=b signal=-50
wired
networkManager
profile Old security=wep password=123456789a
seen Old
join Old
expect "the radio is joined to it" joinedTo Old
expect "the security is WEP" shows '^Old:WEP$' nmcli -t -f SSID,SECURITY device wifi list --rescan no
expect "the beacons speak of privacy" shows 'capability:.*Privacy' iw dev wlan0 scan dump
refuse "they have RSN or WPA" shows 'RSN:|WPA:' iw dev wlan0 scan dump
expect "the rates are those of 802.11b" shows 'Supported rates: 1.0\*? 2.0\*? 5.5\*? 11.0\*? *$' iw dev wlan0 scan dump
expect "frames go through" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "WEP is raised" raised currentNetwork.isUsingWEPSecurity
expect "and the slow rates" raised currentNetwork.isUsingLegacyRates
expect "the radio mode is the old one" value currentNetwork.supportedPHYModes '["802.11b"]'
expect "nothing else is raised" healthy currentNetwork.isUsingWEPSecurity currentNetwork.isUsingLegacyRates
