# NetworkManager ends and comes back while the radio is joined.
atHome
nmcli connection modify Home connection.autoconnect yes
kill "$(cat /run/NetworkManager/NetworkManager.pid)"
expect "NetworkManager is gone" within 20 not nmcli general
NetworkManager --log-level=INFO
expect "it is back and has wlan0 connected" within 60 shows '^wlan0:connected:Home$' nmcli -t -f DEVICE,STATE,CONNECTION device
expect "the radio is joined" joinedTo Home
expect "the router answers" ping -c 3 -i 0.2 192.168.50.1
