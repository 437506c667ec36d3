# WPA3 alone, in 5 GHz.
air 1
accessPoint ssid=New channel=36 security=wpa3 password="sae secret" signal=-50
wired
networkManager
profile New security=wpa3 password="sae secret"
seen New
join New
expect "the radio is joined to it" joinedTo New
expect "the security is WPA3" shows '^New:WPA3$' nmcli -t -f SSID,SECURITY device wifi list --rescan no
expect "the channel is in 5 GHz" shows 'freq: 5180' iw dev wlan0 link
expect "management frames are protected" shows 'MFP-required' iw dev wlan0 scan dump
expect "frames go through" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the security is known" value currentNetwork.security '"WPA3 Personal"'
expect "the channel is known" value currentNetwork.currentChannel 36
expect "nothing is raised" healthy
