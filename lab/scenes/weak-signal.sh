# The joined access point is far away.
air 1
accessPoint ssid=Far channel=6 security=wpa2 password="far horse" signal=-82
wired
networkManager
profile Far password="far horse"
seen Far
join Far
expect "the signal is weak" shows 'signal: -82 dBm' iw dev wlan0 link
expect "frames go through all the same" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the signal is weak" raised currentNetwork.hasPoorSignal
expect "it is the simulated one" value currentNetwork.RSSI -82
expect "nothing else is raised" healthy currentNetwork.hasPoorSignal
