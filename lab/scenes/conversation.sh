# What the program asks while it runs, of whom and how often: "calls" in the results. What the kernel says to it is
# there, too (netlink.pcap): the tests of the readers and the fuzzers start from such a recording.
# deadline: 120
bluetooth 1
air 8
accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE load=3:120:0 signal=-45 \
  with="eap_server=1,wps_state=2,manufacturer=Fictional Radios,model_name=Home Box,device_name=Living room"
accessPoint ssid=Birchlane channel=36 security=wpa2+wpa3 password="correct horse" signal=-50 ht40 \
  with=ieee80211ac=1,vht_oper_chwidth=1,vht_oper_centr_freq_seg0_idx=42,ieee80211ax=1
accessPoint ssid=Attic channel=1 security=wep password=0123456789 rates=b signal=-60 away
accessPoint ssid=Cellar channel=11 security=wpa1 password="correct horse" signal=-65 away
accessPoint ssid=Garden channel=44 security=wpa3 password="sae secret" signal=-70 away
accessPoint ssid=Hidden channel=3 security=wpa2 password="correct horse" hidden signal=-75 away
accessPoint ssid=Quiet channel=9 signal=-85 away \
  with=wpa=2,wpa_key_mgmt=OWE,rsn_pairwise=CCMP,ieee80211w=2
enterprise=ieee8021x=1,wpa=2,wpa_key_mgmt=WPA-EAP,rsn_pairwise=CCMP,auth_server_addr=127.0.0.1,auth_server_shared_secret=x
accessPoint ssid=Airport channel=13 signal=-80 away \
  with=$enterprise,interworking=1,internet=1,asra=1,access_network_type=2,venue_group=10,venue_type=1,hs20=1
wired
networkManager
profile Birchlane password="correct horse"
seen Birchlane
join Birchlane

{ ip link add nlmon0 type nlmon && ip link set nlmon0 up; } || stop "what is said to the kernel cannot be recorded"
tcpdump -i nlmon0 -U -Z root -w /out/netlink.pcap 2>/out/tcpdump.log &
recorder=$!
within 10 test -s /out/netlink.pcap || stop "tcpdump does not record: $(xargs </out/tcpdump.log)"
expect "the program scans" program scan --all --json --max-scan-cache-age 0
expect "all networks are there" jq -e 'map(.ssid // "-") | unique == ["-", "Airport", "Attic", "Birchlane", "Cellar",
  "Garden", "Quiet"]' /out/record.json

began=$(tr -d . </proc/uptime | cut -d' ' -f1)
/lab/program/wifi-profile run --max-scan-cache-age 600 >/dev/null 2>&1
say "a run with the list at hand: $((($(tr -d . </proc/uptime | cut -d' ' -f1) - began) * 10)) ms"

# asked COUNT PATTERN  so many calls of the run look like that
asked() { [ "$(grep -cE "$2" /out/calls)" -eq "$1" ]; }
program_user="strace -f -q -e trace=connect,sendmsg,sendto -s 64 -o /out/calls"
expect "the program runs" program run --max-scan-cache-age 600
program_user=
say "$(grep -cE 'NLM_F_REQUEST.(NLM_F_DUMP|0x300)' /out/calls) dumps, $(grep -c sendmsg /out/calls) calls on the bus"
expect "there is one connection to the system's bus" asked 1 'connect\(.*system_bus_socket'

sleep 2 # it writes what it has received
kill "$recorder"
wait "$recorder" || true
ip link del nlmon0
