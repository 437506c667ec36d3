# Shell helpers: the air. The access points live in the network namespace "air", so that everything
# between them and the client goes through simulated radios.
#
#   air COUNT            radios for COUNT access points and the client's, wlan0
#   accessPoint WORD...  one access point, with the next free radio:
#     ssid=TEXT bssid=MAC channel=N
#     security=open|wep|wpa1|wpa2|wpa2+wpa3|wpa3  password=TEXT (wep: 10 hexadecimal digits)
#     hidden               the name is not in the beacons
#     rates=b|mixed        802.11b alone, or beside the faster ones (they are alone when not given)
#     ht40                 a 40 MHz wide channel, also in 2.4 GHz
#     country=XX           the country in the beacons (XX: two letters)
#     load=S:U:A           the BSS Load element: stations, utilisation (of 255), admission capacity
#     signal=DBM           how strong the client receives it (-30 when not given)
#     away                 not connected to the wired side
#     with=KEY=VALUE,...   more of hostapd's settings
#   gone NUMBER, back NUMBER   the access point of that number goes out of, and comes into, range

home=br-home # the bridge behind the access points
accessPoints=0

inAir() { ip netns exec air "$@"; }

phyOf() { cat "/sys/class/net/$1/phy80211/name"; } # INTERFACE

air() {
  modprobe mac80211_hwsim radios=$(($1 + 1)) || stop "no simulated radios"
  iw reg set DE
  ip netns add air
  inAir ip link set lo up
  inAir ip link add "$home" type bridge forward_delay 0
  inAir ip link set "$home" up
  air_radio=0
  while [ "$air_radio" -lt "$1" ]; do
    air_radio=$((air_radio + 1))
    air_phy=$(phyOf "wlan$air_radio")
    echo "$air_phy" >"/tmp/phy$air_radio"
    iw phy "$air_phy" set netns name air || stop "the radio $air_phy cannot be moved"
  done
}

simulated() { echo "/sys/kernel/debug/ieee80211/$(cat "/tmp/phy$1")/hwsim/$2"; } # NUMBER KNOB

# Groups are bits: radios that share none do not hear each other.
gone() { echo 2 >"$(simulated "$1" group)"; }
back() { echo 1 >"$(simulated "$1" group)"; }

# signalOf NUMBER DBM  what is received is the knob's value and the sender's power; both are set so
# that the sum is right and the knob stays in its range, down to -100.
signalOf() {
  inAir iw dev "wlan$1" set txpower fixed 500
  printf '%u' $(($2 - 5)) >"$(simulated "$1" rx_rssi)"
}

# The element as raw bytes: hostapd's own setting would change the rules of all radios here, which share
# one kernel. Channels 1 to 13, 20 dBm.
countryElement() { printf '0706%s20010d14' "$(printf %s "$1" | od -An -tx1 | tr -d ' \n')"; } # XX

securityLines() { # SECURITY PASSWORD
  case $1 in
    open) ;;
    wep) printf 'wep_default_key=0\nwep_key0=%s\nauth_algs=3\n' "$2" ;;
    wpa1) printf 'wpa=1\nwpa_key_mgmt=WPA-PSK\nwpa_pairwise=TKIP\nwpa_passphrase=%s\n' "$2" ;;
    wpa2) printf 'wpa=2\nwpa_key_mgmt=WPA-PSK\nrsn_pairwise=CCMP\nwpa_passphrase=%s\n' "$2" ;;
    wpa3)
      printf 'wpa=2\nwpa_key_mgmt=SAE\nieee80211w=2\nrsn_pairwise=CCMP\nsae_password=%s\n' "$2" ;;
    wpa2+wpa3)
      printf 'wpa=2\nwpa_key_mgmt=WPA-PSK SAE\nieee80211w=1\nrsn_pairwise=CCMP\n'
      printf 'wpa_passphrase=%s\nsae_password=%s\n' "$2" "$2" ;;
    *) stop "unknown security: $1" ;;
  esac
}

channelLines() { # WORD...
  channel=$(given channel 6 "$@")
  printf 'channel=%s\n' "$channel"
  if [ "$(given rates fast "$@")" = b ]; then
    printf 'hw_mode=b\n'
    return
  fi
  if [ "$channel" -gt 14 ]; then printf 'hw_mode=a\n'; else printf 'hw_mode=g\n'; fi
  [ "$(given rates fast "$@")" = mixed ] ||
    printf 'basic_rates=60 120 240\nsupported_rates=60 90 120 180 240 360 480 540\n'
  # WEP and TKIP are not allowed together with 802.11n.
  case $(given security open "$@") in wep | wpa1) return ;; esac
  printf 'ieee80211n=1\nwmm_enabled=1\n'
  [ -z "$(given ht40 '' "$@")" ] || printf 'ht_capab=[HT40+]\n'
}

accessPoint() {
  known "ssid bssid channel security password hidden rates ht40 country load signal away with" "$@"
  accessPoints=$((accessPoints + 1))
  radio=wlan$accessPoints
  file=/tmp/hostapd-$accessPoints.conf
  {
    printf 'interface=%s\ndriver=nl80211\nctrl_interface=/run/hostapd\n' "$radio"
    printf 'ssid=%s\nutf8_ssid=1\n' "$(given ssid Birchlane "$@")"
    bssid=$(given bssid '' "$@")
    [ -z "$bssid" ] || printf 'bssid=%s\n' "$bssid"
    [ -n "$(given away '' "$@")" ] || printf 'bridge=%s\n' "$home"
    # A scan listens for a third of the usual time between beacons, and only a beacon tells of this one.
    [ -z "$(given hidden '' "$@")" ] || printf 'ignore_broadcast_ssid=1\nbeacon_int=30\n'
    country=$(given country '' "$@")
    [ -z "$country" ] || printf 'vendor_elements=%s\n' "$(countryElement "$country")"
    load=$(given load '' "$@")
    [ -z "$load" ] || printf 'bss_load_test=%s\n' "$load"
    channelLines "$@"
    securityLines "$(given security open "$@")" "$(given password '' "$@")"
    given with '' "$@" | tr , '\n'
  } >"$file"
  inAir hostapd -B -f "/tmp/hostapd-$accessPoints.log" "$file" >/tmp/hostapd.out 2>&1 ||
    stop "hostapd does not start: $(tail -n 3 /tmp/hostapd.out "/tmp/hostapd-$accessPoints.log" | xargs)"
  signal=$(given signal '' "$@")
  [ -z "$signal" ] || signalOf "$accessPoints" "$signal"
}
