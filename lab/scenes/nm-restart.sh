# NetworkManager ends and comes back while the radio is joined.
atHome
nmcli connection modify Birchlane connection.autoconnect yes
iw event >/tmp/radio-events &
program run --max-scan-cache-age 0 &
running=$!
within 30 shows 'scan started' cat /tmp/radio-events || stop "the program does not scan"
kill "$(cat /run/NetworkManager/NetworkManager.pid)"
expect "NetworkManager is gone" within 20 not nmcli general
NetworkManager --log-level=INFO
expect "it is back and has wlan0 connected" within 60 shows '^wlan0:connected:Birchlane$' nmcli -t -f DEVICE,STATE,CONNECTION device
expect "the radio is joined" joinedTo Birchlane
expect "the router answers" ping -c 3 -i 0.2 192.168.50.1
expect "the program ends all the same, with a record" wait "$running"
expect "the record is whole" jq -e '.statusCode == 0' /out/record.json
expect "what was known before stays so" value currentNetwork.RSSI -45
expect "what the scan would tell is not known" unknown currentNetwork.foundHiddenNetworks 'Hidden Scan Results .*given up half-way'
