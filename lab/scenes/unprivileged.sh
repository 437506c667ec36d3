# An ordinary user without a seat looks at a joined network; polkit says what that user may do.
printf '[main]\nauth-polkit=true\n' >/etc/NetworkManager/conf.d/polkit.conf
systemBus
/usr/lib/polkit-1/polkitd --no-debug >/tmp/polkit.log 2>&1 &
atHome
refuse "the user may scan through the kernel" asOrdinary iw dev wlan0 scan
expect "the user sees the link" shows 'SSID: Home' asOrdinary iw dev wlan0 link
expect "the user sees the list of networks" shows '^Home$' asOrdinary nmcli -t -f SSID device wifi list --rescan no
expect "polkit denies changing the system's settings" shows 'settings.modify.system:(no|auth)' \
  asOrdinary nmcli -t general permissions
refuse "the user may switch Wi-Fi off" asOrdinary nmcli radio wifi off
expect "Wi-Fi is still on" shows enabled nmcli radio wifi
refuse "the user reads passwords" shows 'correct horse' asOrdinary nmcli -s -t connection show Home
expect "Debian opens no ICMP sockets to ordinary users" shows '^1[[:space:]]+0$' cat /proc/sys/net/ipv4/ping_group_range
