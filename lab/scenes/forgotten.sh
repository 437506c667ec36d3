# The kernel has forgotten what a scan heard, and NetworkManager has not: a list that lacks it is no scan.
# deadline: 300
printf '[main]\nauth-polkit=true\n' >/etc/NetworkManager/conf.d/polkit.conf
systemBus
/usr/lib/polkit-1/polkitd --no-debug >/tmp/polkit.log 2>&1 &
air 3
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
accessPoint ssid=Cafe bssid=02:aa:00:00:00:02 channel=11 security=open signal=-55 away
accessPoint ssid=Hidden bssid=02:aa:00:00:00:03 channel=1 security=wpa2 password="hidden secret" hidden signal=-60 away
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
seen Cafe
join Birchlane
managerShows() { nmcli -t -f BSSID device wifi list --rescan no | sed "s|[\\]||g" | grep -qi "$1"; }
expect "NetworkManager heard the hidden one" within 60 managerShows 02:aa:00:00:00:03
expect "the kernel forgets all but the joined one" within 200 not shows 'SSID: Cafe' iw dev wlan0 scan dump
expect "NetworkManager still lists the others" managerShows 02:aa:00:00:00:02
programAsOrdinary() { program_user=asOrdinary program "$@"; }
expect "a user who may not scan gets a list" programAsOrdinary scan --json --max-scan-cache-age 600
expect "it has what NetworkManager lists" jq -e 'map(.ssid) | contains(["Birchlane", "Cafe"])' /out/record.json
expect "with its signal, band and security" jq -e 'map(select(.ssid == "Cafe"))[0] | .signal == -55 and
  .channel == 11 and .security == "None"' /out/record.json
expect "the same user runs the program" programAsOrdinary run --max-scan-cache-age 600
expect "the hidden network is found" raised currentNetwork.foundHiddenNetworks
expect "that countries agree is not known" unknown currentNetwork.foundConflictingCountryCode 'NetworkManager.s list'
expect "root has a new scan made" program scan --json --max-scan-cache-age 600
expect "which heard them all" jq -e 'map(.ssid) | contains(["Birchlane", "Cafe"])' /out/record.json
