# Five access points on one channel; the joined one says in its beacons how busy the air is.
air 5
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" load=9:230:100 signal=-45
for neighbour in 2 3 4 5; do
  accessPoint ssid="Neighbour $neighbour" channel=6 security=wpa2+wpa3 password="correct horse" signal=-6$neighbour away
done
wired
networkManager
profile Birchlane password="correct horse"
for neighbour in 2 3 4 5; do seen "Neighbour $neighbour"; done
join Birchlane
expect "the access point tells how busy the channel is" shows 'channel utilisation: 230/255' iw dev wlan0 scan dump
expect "and how many stations it has" shows 'station count: 9' iw dev wlan0 scan dump
expect "five networks share the channel" shows '^5$' sh -c "nmcli -t -f CHAN device wifi list --rescan no | grep -cx 6"
expect "the program runs" program run --max-scan-cache-age 600
expect "the channel is crowded" raised currentNetwork.isChannelCongested
refuse "it is the recommended one" value currentNetwork.2GHzChannel 6
expect "nothing else is raised" healthy currentNetwork.isChannelCongested currentNetwork.is2GHzCongested
