# Access points go out of range: a new scan does not list them, and the list on the screen becomes empty.
# deadline: 120
air 2
accessPoint ssid=Cafe channel=1 security=open signal=-50 away
accessPoint ssid=Hotel channel=11 security=open signal=-60 away
networkManager
seen Cafe
seen Hotel
expect "a new scan lists both" program scan --json --max-scan-cache-age 0
expect "so it does" jq -e 'map(.ssid) == ["Cafe", "Hotel"]' /out/record.json
onTerminal run --pick --ui terminal --output json
expect "the list on the screen has both" within 30 drawn Hotel
gone 1
expect "a new scan still lists the other one" program scan --json --max-scan-cache-age 0
expect "and not the one that is gone" jq -e 'map(.ssid) == ["Hotel"]' /out/record.json
expect "the kernel remembers it" shows 'SSID: Cafe' iw dev wlan0 scan dump
expect "an earlier scan is good enough where it may be" program scan --json --max-scan-cache-age 20
expect "it lists what was heard a while ago" jq -e 'map(.ssid) == ["Cafe", "Hotel"]' /out/record.json
gone 2
refuse "the list on the screen is empty" drawn 'No networks'
press r
expect "after a refresh the list on the screen is empty" within 30 drawn 'No networks'
press q
expect "it asks whether to stop" within 10 drawn 'Stop the diagnostic'
press '\t\r'
expect "the person leaves" closed 75
expect "a new scan lists nothing" program scan --json --max-scan-cache-age 0
expect "that is a list, too" jq -e '. == []' /out/record.json
