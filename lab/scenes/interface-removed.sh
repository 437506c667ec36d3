# The interface goes away, as with a USB adapter that is pulled.
atHome
iw dev wlan0 del
expect "NetworkManager has no such device any more" within 10 not shows wlan0 nmcli -t -f DEVICE device
refuse "the kernel has one" test -e /sys/class/net/wlan0
expect "no network is listed" shows '^0$' sh -c "nmcli -t -f SSID device wifi list --rescan no | wc -l"
