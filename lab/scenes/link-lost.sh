# The link is lost in mid-run: what is asked of it is not known then, and never another network's.
# deadline: 120
air 2
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Cafe channel=6 security=open signal=-50
wired
networkManager
profile Birchlane password="correct horse"
profile Cafe security=open
seen Birchlane
seen Cafe
join Birchlane

iw event >/tmp/radio-events &
program run --max-scan-cache-age 0 &
running=$!
within 30 shows 'scan started' cat /tmp/radio-events || stop "the program does not scan"
join Cafe
expect "the radio is joined to the other network" joinedTo Cafe
expect "the program ends with a record" wait "$running"
expect "what was known before stays so" value currentNetwork.RSSI -45
for key in pingedLAN pingedWAN resolvedDNS reachedOrvane retrievedOrvane isCaptive; do
  expect "$key is not answered by the other network" unknown "currentNetwork.$key" \
    'link to "Birchlane" (changed to "Cafe"|was lost) while this was asked'
done

join Birchlane
lossy 100
program run --max-scan-cache-age 600 &
running=$!
sleep 1
gone 1
expect "the program ends with a record" wait "$running"
refuse "the radio is joined" joinedTo Birchlane
for key in pingedLAN pingedWAN resolvedDNS reachedOrvane retrievedOrvane; do
  expect "that $key is false is not said of a link that is gone" unknown "currentNetwork.$key" \
    'link to "Birchlane" was lost while this was asked'
done
