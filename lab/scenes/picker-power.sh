# The list of networks on a terminal, where somebody switches Wi-Fi on; then it goes off.
air 2
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Cafe channel=11 security=open signal=-60 away
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
join Birchlane
radioSwitch block
expect "Wi-Fi is off" within 10 shows '^disabled$' nmcli -t radio wifi
onTerminal run --pick --ui terminal --output json
expect "it asks whether to switch Wi-Fi on" within 20 drawn 'Wi-Fi is off'
refuse "it does so without an answer" shows '^enabled$' nmcli -t radio wifi
press '\r'
expect "yes switches it on" within 20 shows '^enabled$' nmcli -t radio wifi
expect "the first list has what a scan right after it heard" within 30 drawn Cafe
radioSwitch block
expect "it says that Wi-Fi went off" within 20 drawn 'Wi-Fi is off'
press q
expect "the exit status says so" closed 5
expect "so does the record" jq -e '.statusCode == -5' /out/record.json

onTerminal run --pick --ui terminal --output json
expect "it asks again" within 20 drawn 'Wi-Fi is off'
press '\t\r'
expect "no leaves it off" within 20 drawn 'answered with No'
press q
expect "the exit status says so, too" closed 4
expect "Wi-Fi is still off" shows '^disabled$' nmcli -t radio wifi
