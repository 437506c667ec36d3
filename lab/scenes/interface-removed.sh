# The interface goes away, as with a USB adapter that is pulled.
atHome
iw event >/tmp/radio-events &
program run --max-scan-cache-age 0 &
running=$!
within 30 shows 'scan started' cat /tmp/radio-events || stop "the program does not scan"
iw dev wlan0 del
expect "NetworkManager has no such device any more" within 10 not shows wlan0 nmcli -t -f DEVICE device
refuse "the kernel has one" test -e /sys/class/net/wlan0
expect "no network is listed" shows '^0$' sh -c "nmcli -t -f SSID device wifi list --rescan no | wc -l"
expect "the program ends all the same, with a record" wait "$running"
expect "the record is whole" jq -e '.statusCode == 0' /out/record.json
expect "what was known before stays so" value currentNetwork.RSSI -45
expect "what the scan would tell is not known" unknown currentNetwork.isUsingOpenSecurity 'No Security .*given up half-way'
