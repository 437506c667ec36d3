# A 40 MHz wide channel in the 2.4 GHz band. hostapd first listens for others, and narrows the channel
# when there are some: hence one access point alone.
air 1
accessPoint ssid=Wide channel=6 ht40 security=wpa2 password="wide horse" signal=-45
wired
networkManager
profile Wide password="wide horse"
seen Wide
join Wide
expect "the beacons announce a second channel" shows 'secondary channel offset: above' iw dev wlan0 scan dump
expect "the radio uses 40 MHz" shows 'channel 6 .*width: 40 MHz' iw dev wlan0 info
expect "frames go through" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the wide channel is raised" raised currentNetwork.hasHT40Channel
expect "nothing else is raised" healthy currentNetwork.hasHT40Channel
