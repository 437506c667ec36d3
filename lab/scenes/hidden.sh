# A hidden network beside the one that is joined.
air 2
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" signal=-45
accessPoint ssid=Secret bssid=02:aa:00:00:00:02 channel=11 security=wpa2 password="hidden secret" hidden away
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
join Birchlane
# Its beacon can slip through one scan: a channel is listened to for as long as one beacon takes.
expect "a scan shows a network without a name" within 30 shows '02\\:AA\\:00\\:00\\:00\\:02:$' \
  nmcli -t -f BSSID,SSID device wifi list --rescan yes
refuse "its name is known" shows Secret nmcli -t -f SSID device wifi list --rescan no
expect "the radio stays joined" joinedTo Birchlane
expect "the program runs" program run --max-scan-cache-age 600
expect "a hidden network is found" raised currentNetwork.foundHiddenNetworks
expect "it is one" value currentNetwork.hiddenNetworkCount 1
expect "nothing else is raised" healthy currentNetwork.foundHiddenNetworks
