# Wi-Fi is switched off by software, and on again.
atHome
radioSwitch block
expect "the switch is off, by software alone" shows '^wlan +blocked +unblocked' rfkill -n -o TYPE,SOFT,HARD
expect "NetworkManager says that Wi-Fi is off" within 10 shows '^disabled$' nmcli -t radio wifi
expect "the interface is unavailable" within 10 shows '^wlan0:unavailable$' nmcli -t -f DEVICE,STATE device
refuse "the radio is joined" joinedTo Birchlane
expect "the program runs without a radio" program run
expect "there is no joined network to ask about" jq -e '.statusCode == 0 and .data.currentNetwork == {}' /out/record.json
expect "what is remembered is known all the same" value device.preferredNetworkListCount 1
expect "how the network was set up is not" unknown device.isUsingCustomDNS 'Custom DNS .*wlan0 is not connected'
radioSwitch unblock
expect "Wi-Fi is on again" within 10 shows '^enabled$' nmcli -t radio wifi
seen Birchlane
join Birchlane
expect "the radio can join again" joinedTo Birchlane
