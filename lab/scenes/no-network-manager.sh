# wpa_supplicant alone manages the radio, and a DHCP client the address.
air 1
accessPoint ssid=Home channel=6 security=wpa2 password="correct horse" signal=-45
wired
supplicant Home "correct horse"
address
refuse "NetworkManager is there" nmcli general
expect "the radio is joined" joinedTo Home
expect "wpa_supplicant says so" shows '^wpa_state=COMPLETED$' wpa_cli -i wlan0 status
expect "DHCP gave an address" shows 'inet 192\.168\.50\.[0-9]+/24' ip -4 addr show wlan0
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
