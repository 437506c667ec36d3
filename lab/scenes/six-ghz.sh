# An access point in 6 GHz, whose beacons have a DS Parameter Set nevertheless.
air 1
accessPoint ssid=Birchlane channel=5 security=wpa3 password="correct horse" signal=-50 \
  with=hw_mode=a,op_class=131,ieee80211ax=1,sae_pwe=1,he_oper_centr_freq_seg0_idx=5
networkManager
expect "the radio hears it" within 60 shows 'freq: 5975' iw dev wlan0 scan freq 5975
expect "its beacons have the element" shows 'DS Parameter set: channel 5' iw dev wlan0 scan dump
expect "the list at hand is good enough" program scan --json
expect "it is in 6 GHz" jq -e 'map([.ssid, .band, .channel, .frequency, .width, .generation]) ==
  [["Birchlane", "6 GHz", 5, 5975, 20, "6E"]]' /out/record.json
