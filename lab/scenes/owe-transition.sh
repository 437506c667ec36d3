# An open network with an encrypted half, which has no name in its beacons: that is no hidden network.
air 3
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Cafe bssid=02:aa:00:00:00:02 channel=11 security=open signal=-55 away \
  with=owe_transition_bssid=02:aa:00:00:00:03,owe_transition_ssid='"Cafe-owe"'
accessPoint ssid=Cafe-owe bssid=02:aa:00:00:00:03 channel=11 security=open hidden signal=-55 away \
  with=wpa=2,wpa_key_mgmt=OWE,rsn_pairwise=CCMP,ieee80211w=2,owe_transition_bssid=02:aa:00:00:00:02,owe_transition_ssid='"Cafe"'
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
seen Cafe
join Birchlane
expect "the encrypted half is heard" within 60 shows '02:aa:00:00:00:03' iw dev wlan0 scan dump
expect "the program runs" program run --max-scan-cache-age 600
expect "no hidden network is found" healthy
