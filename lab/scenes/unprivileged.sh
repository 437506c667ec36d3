# An ordinary user without a seat looks at a joined network; polkit says what that user may do.
printf '[main]\nauth-polkit=true\n' >/etc/NetworkManager/conf.d/polkit.conf
systemBus
/usr/lib/polkit-1/polkitd --no-debug >/tmp/polkit.log 2>&1 &
atHome
refuse "the user may scan through the kernel" asOrdinary iw dev wlan0 scan
expect "the user sees the link" shows 'SSID: Birchlane' asOrdinary iw dev wlan0 link
expect "the user sees the list of networks" shows '^Birchlane$' asOrdinary nmcli -t -f SSID device wifi list --rescan no
expect "polkit denies changing the system's settings" shows 'settings.modify.system:(no|auth)' \
  asOrdinary nmcli -t general permissions
refuse "the user may switch Wi-Fi off" asOrdinary nmcli radio wifi off
expect "Wi-Fi is still on" shows enabled nmcli radio wifi
refuse "the user reads passwords" shows 'correct horse' asOrdinary nmcli -s -t connection show Birchlane
expect "Debian opens no ICMP sockets to ordinary users" shows '^1[[:space:]]+0$' cat /proc/sys/net/ipv4/ping_group_range
programAsOrdinary() { program_user=asOrdinary program "$@"; }
expect "the program runs" programAsOrdinary run
expect "the router is pinged, by connecting" raised currentNetwork.pingedLAN
expect "so is the Internet" raised currentNetwork.pingedWAN
expect "the pings were measured" value currentNetwork.pingLANResult.packetLoss 0
expect "double NAT is looked for" value currentNetwork.hasDoubleNATConfiguration false
expect "the list that NetworkManager had scanned is good enough" healthy
# Without a seat the user may not scan: what only a scan of the whole air tells is not known, with the reason.
# The joined access point is known all the same.
expect "the program runs" programAsOrdinary run --max-scan-cache-age 0
denied="isUsingAmbiguousNetworkName hasConflictingPHYMode11AC hasConflictingPHYMode11N isChannelCongested
  is2GHzCongested foundConflictingCountryCode foundHiddenNetworks"
except=device.doesPNLContainConflictingSecurityType
expect "not known: $except" unknown "$except" 'This user may not ask NetworkManager'
for key in $denied; do
  expect "not known: $key" unknown "currentNetwork.$key" 'This user may not ask NetworkManager'
  except="$except currentNetwork.$key"
done
# That 5 GHz is not crowded may be known all the same: one channel with a survey is enough for that.
# shellcheck disable=SC2086  # one word a key
expect "nothing is raised" healthy $except currentNetwork.is5GHzCongested
expect "a list that cannot be new is shown" programAsOrdinary scan --json --max-scan-cache-age 0
expect "it has the joined network" jq -e 'map(.ssid) == ["Birchlane"]' /out/record.json
expect "it says that it is not new" shows 'This user may not ask NetworkManager.*The list contains earlier results only' cat /out/program.log
