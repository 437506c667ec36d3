# WPA as it was before WPA2, with TKIP.
air 1
accessPoint ssid=Attic channel=6 security=wpa1 password="old secret" signal=-50
wired
networkManager
profile Attic password="old secret"
seen Attic
join Attic
expect "the radio is joined to it" joinedTo Attic
expect "the security is WPA of the first kind" shows '^Attic:WPA1$' nmcli -t -f SSID,SECURITY device wifi list --rescan no
expect "the pairwise cipher is TKIP" shows 'Pairwise ciphers: TKIP' iw dev wlan0 scan dump
refuse "there is RSN" shows 'RSN:' iw dev wlan0 scan dump
expect "frames go through" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the first WPA is raised" raised currentNetwork.isUsingWPASecurity
expect "nothing else is raised" healthy currentNetwork.isUsingWPASecurity
