# Wi-Fi is switched off by software, and on again.
atHome
radioSwitch block
expect "the switch is off, by software alone" shows '^wlan +blocked +unblocked' rfkill -n -o TYPE,SOFT,HARD
expect "NetworkManager says that Wi-Fi is off" within 10 shows '^disabled$' nmcli -t radio wifi
expect "the interface is unavailable" within 10 shows '^wlan0:unavailable$' nmcli -t -f DEVICE,STATE device
refuse "the radio is joined" joinedTo Home
radioSwitch unblock
expect "Wi-Fi is on again" within 10 shows '^enabled$' nmcli -t radio wifi
seen Home
join Home
expect "the radio can join again" joinedTo Home
