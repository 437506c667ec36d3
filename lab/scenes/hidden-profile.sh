# The joined network is hidden, so its profile makes the client call its name wherever it goes.
air 1
accessPoint ssid=Secret channel=11 security=wpa2 password="hidden secret" hidden signal=-50
wired
networkManager
profile Secret password="hidden secret" hidden
join Secret
expect "the radio is joined to it" joinedTo Secret
expect "the profile says that it is hidden" shows ':yes$' nmcli -t -f 802-11-wireless.hidden connection show Secret
expect "frames go through" ping -c 3 -i 0.2 192.168.50.1
expect "the program runs" program run --max-scan-cache-age 600
expect "the joined network is hidden" raised currentNetwork.isHiddenNetwork
expect "a remembered network is hidden" raised device.doesPNLContainHiddenNetworks
expect "the name is known all the same" value currentNetwork.networkName '"Secret"'
expect "it is one of those in range" value currentNetwork.hiddenNetworkCount 1
expect "nothing else is raised" healthy currentNetwork.isHiddenNetwork currentNetwork.foundHiddenNetworks \
  device.doesPNLContainHiddenNetworks
