# Two access points claim to stand in different countries.
air 2
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Visitor channel=11 security=wpa2 password="other horse" country=US signal=-60 away
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
seen Visitor
join Birchlane
expect "one claims to be in Germany" shows 'Country: DE' iw dev wlan0 scan dump
expect "the other claims to be in the United States" shows 'Country: US' iw dev wlan0 scan dump
expect "the rules in force are Germany's" shows '^country DE' iw reg get
expect "the program runs" program run --max-scan-cache-age 600
expect "the conflict is raised" raised currentNetwork.foundConflictingCountryCode
expect "the device follows Germany's rules" value currentNetwork.adoptedCountryCode '"DE"'
expect "nothing else is raised" healthy currentNetwork.foundConflictingCountryCode
