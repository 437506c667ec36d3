# A hidden network beside the one that is joined.
air 2
accessPoint ssid=Home channel=6 security=wpa2 password="correct horse" signal=-45
accessPoint ssid=Secret bssid=02:aa:00:00:00:02 channel=11 security=wpa2 password="hidden secret" hidden away
wired
networkManager
profile Home password="correct horse"
seen Home
join Home
# Its beacon can slip through one scan: a channel is listened to for as long as one beacon takes.
expect "a scan shows a network without a name" within 30 shows '02\\:AA\\:00\\:00\\:00\\:02:$' \
  nmcli -t -f BSSID,SSID device wifi list --rescan yes
refuse "its name is known" shows Secret nmcli -t -f SSID device wifi list --rescan no
expect "the radio stays joined" joinedTo Home
