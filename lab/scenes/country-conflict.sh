# Two access points claim to stand in different countries.
air 2
accessPoint ssid=Home channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Visitor channel=11 security=wpa2 password="other horse" country=US signal=-60 away
wired
networkManager
profile Home password="correct horse"
seen Home
seen Visitor
join Home
expect "one claims to be in Germany" shows 'Country: DE' iw dev wlan0 scan dump
expect "the other claims to be in the United States" shows 'Country: US' iw dev wlan0 scan dump
expect "the rules in force are Germany's" shows '^country DE' iw reg get
