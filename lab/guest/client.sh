# Shell helpers: the client. Its interface is wlan0, in the guest's own network namespace.
#
#   networkManager       D-Bus, udev, wpa_supplicant and NetworkManager, ready for connections
#   supplicant SSID [PASSWORD]   wpa_supplicant alone (no NetworkManager), joined
#   address [INTERFACE]  an address from DHCP, for supplicant
#   tunnel               tun0 to the router, with 10.8.0.1 and its name server behind it, takes all packets to the Internet
#   profile NAME WORD... a connection profile of NetworkManager: ssid=, password=, security=, hidden, and
#                        every other word as nmcli's "property=value"
#   join NAME            activates the profile
#   seen SSID            waits until a scan shows the network
#   atHome WORD...       the usual home: one WPA2 access point, "wired WORD...", joined by NetworkManager
#   saved COUNT          so many profiles besides, before NetworkManager starts
#   asOrdinary COMMAND...   runs it as a user without privileges
#   radioSwitch block|unblock   the software switch of the client's radio (the access points have their own)
#   bluetooth COUNT [PAIRED]   BlueZ with so many emulated controllers; the first remembers PAIRED devices as paired
#   settings             the program's targets are in the lab's own Internet ("program" calls it)

# Both are cheap, and nobody minds them twice.
systemBus() {
  [ ! -S /run/dbus/system_bus_socket ] || return 0
  mkdir -p /run/dbus
  dbus-daemon --system --fork || stop "no system bus"
}
deviceManager() {
  [ ! -d /run/udev ] || return 0
  /usr/lib/systemd/systemd-udevd --daemon 2>/tmp/udev.log || stop "no udevd"
  udevadm trigger --subsystem-match=net --subsystem-match=rfkill --subsystem-match=ieee80211
  udevadm settle
}

managerIsUp() { nmcli -t -f STATE general | grep -qvE 'unknown|asleep' && nmcli -t -f DEVICE,STATE device | grep -qE '^wlan0:(disconnected|unavailable|connected)'; }

networkManager() {
  systemBus
  deviceManager
  wpa_supplicant -u -s -B -f /tmp/supplicant.log || stop "wpa_supplicant does not start"
  NetworkManager --log-level=INFO >/tmp/manager.log 2>&1 || stop "NetworkManager does not start"
  within 30 managerIsUp || stop "NetworkManager does not see wlan0: $(nmcli -t device | xargs)"
}

profile() {
  profile_name=$1
  shift
  profile_ssid=$(given ssid "$profile_name" "$@")
  profile_security=$(given security wpa2 "$@")
  profile_password=$(given password '' "$@")
  set -- "$@" --
  [ -z "$(given hidden '' "$@")" ] || set -- "$@" 802-11-wireless.hidden yes
  case $profile_security in
    open) ;;
    wep) set -- "$@" wifi-sec.key-mgmt none wifi-sec.wep-key0 "$profile_password" ;;
    wpa3) set -- "$@" wifi-sec.key-mgmt sae wifi-sec.psk "$profile_password" ;;
    *) set -- "$@" wifi-sec.key-mgmt wpa-psk wifi-sec.psk "$profile_password" ;;
  esac
  while [ "$1" != -- ]; do
    case $1 in
      ssid=* | security=* | password=* | hidden) ;;
      *) set -- "$@" "${1%%=*}" "${1#*=}" ;;
    esac
    shift
  done
  shift
  nmcli connection add type wifi ifname wlan0 con-name "$profile_name" ssid "$profile_ssid" \
    connection.autoconnect no "$@" >/tmp/nmcli.log 2>&1 || stop "no profile $profile_name: $(cat /tmp/nmcli.log)"
}

seen() { within 60 scanShows "$1" || stop "no scan shows $1: $(nmcli -t -f SSID device wifi list --rescan no | xargs)"; }
scanShows() { nmcli -t -f SSID device wifi list --rescan auto | grep -qxF "$1"; }

join() {
  nmcli -w 60 connection up "$1" >/tmp/nmcli.log 2>&1 || stop "cannot join $1: $(cat /tmp/nmcli.log)"
}

atHome() {
  air 1
  accessPoint ssid=Birchlane channel=6 security=wpa2 password="correct horse" country=DE signal=-45
  wired "$@"
  networkManager
  profile Birchlane password="correct horse"
  seen Birchlane
  join Birchlane
}

saved() {
  saved_number=0
  while [ "$saved_number" -lt "$1" ]; do
    saved_number=$((saved_number + 1))
    printf '[connection]\nid=Trip %s\ntype=wifi\n[wifi]\nssid=Trip %s\n' "$saved_number" "$saved_number" \
      >"/etc/NetworkManager/system-connections/trip-$saved_number.nmconnection"
  done
  chmod 600 /etc/NetworkManager/system-connections/*
}

asOrdinary() { setpriv --reuid=1000 --regid=1000 --clear-groups --inh-caps=-all --bounding-set=-all "$@"; }

supplicant() {
  {
    printf 'ctrl_interface=/run/wpa_supplicant\nnetwork={\n ssid="%s"\n' "$1"
    if [ -n "${2:-}" ]; then printf ' psk="%s"\n}\n' "$2"; else printf ' key_mgmt=NONE\n}\n'; fi
  } >/tmp/supplicant.conf
  wpa_supplicant -B -i wlan0 -D nl80211 -c /tmp/supplicant.conf -f /tmp/supplicant.log >/dev/null ||
    stop "wpa_supplicant does not start"
  within 60 joinedTo "$1" || stop "wpa_supplicant does not join $1"
}

radioSwitch() {
  for radio_switch in /sys/class/net/wlan0/phy80211/rfkill*; do rfkill "$1" "${radio_switch##*rfkill}"; done
}

# address [INTERFACE]   asks for one with DHCP, where no NetworkManager does
address() {
  cat >/tmp/lease <<'END'
#!/bin/sh
[ "$1" = bound ] || exit 0
ip addr add "$ip/$mask" dev "$interface"
ip route add default via "$router" dev "$interface"
echo "nameserver $dns" >/etc/resolv.conf
END
  chmod 755 /tmp/lease
  busybox udhcpc -i "${1:-wlan0}" -n -q -s /tmp/lease >/tmp/lease.log 2>&1 || stop "no address: $(xargs </tmp/lease.log)"
}

# The router drops what comes for the tunnel's end past the tunnel.
tunnel() {
  tunnel_own=$(ip -4 -o addr show wlan0 | sed -E 's/.* inet ([0-9.]+).*/\1/')
  { inAir ip link add tun0 type ipip local 192.168.50.1 remote "$tunnel_own" &&
    inAir ip addr add 10.8.0.1/24 dev tun0 && inAir ip link set tun0 up &&
    inAir nft "add table ip tunnel; add chain ip tunnel in { type filter hook input priority 0; };
      add rule ip tunnel in iifname $home ip daddr 10.8.0.1 drop" &&
    inAir dnsmasq --conf-file=/dev/null --pid-file=/run/dnsmasq-tunnel --user=root --no-resolv --no-hosts \
      --bind-interfaces --listen-address=10.8.0.1 --no-dhcp-interface=tun0 --address=/test/203.0.113.80 &&
    ip link add tun0 type ipip local "$tunnel_own" remote 192.168.50.1 && ip addr add 10.8.0.2/24 dev tun0 &&
    ip link set tun0 up && ip route add 0.0.0.0/1 dev tun0 && ip route add 128.0.0.0/1 dev tun0; } ||
    stop "no tunnel"
  echo "nameserver 10.8.0.1" >/etc/resolv.conf
}

# joinedTo SSID   the radio is joined to it, whoever did that
joinedTo() { iw dev wlan0 link | grep -qxF "	SSID: $1"; }

bluetooth() {
  systemBus
  modprobe hci_vhci || stop "no emulated Bluetooth"
  btvirt -L "-l$1" >/tmp/btvirt.log 2>&1 &
  within 10 test -e "/sys/class/bluetooth/hci$(($1 - 1))" || stop "no controller: $(cat /tmp/btvirt.log)"
  bluetooth_paired=0
  while [ "$bluetooth_paired" -lt "${2:-0}" ]; do
    bluetooth_paired=$((bluetooth_paired + 1))
    bluetooth_store=$(printf '/var/lib/bluetooth/00:AA:01:00:00:00/02:BB:00:00:00:%02X' "$bluetooth_paired")
    mkdir -p "$bluetooth_store"
    {
      printf '[General]\nName=Thing %s\nSupportedTechnologies=LE;\nAddressType=public\n' "$bluetooth_paired"
      printf '[LongTermKey]\nKey=%032X\nAuthenticated=0\nEncSize=16\nEDiv=1\nRand=1\n' "$bluetooth_paired"
    } >"$bluetooth_store/info"
  done
  /usr/libexec/bluetooth/bluetoothd -n >/tmp/bluetoothd.log 2>&1 &
  within 20 shows '^Controller' bluetoothctl list || stop "BlueZ has no controller: $(cat /tmp/bluetoothd.log)"
}

settings() {
  mkdir -p /etc/wifi-profile
  cat >/etc/wifi-profile/settings.json <<'END'
{
  "internet": {"pingHost": "203.0.113.80", "name": "connectivity.test",
               "portalUrl": "http://connectivity.test/check.txt", "portalText": "online"},
  "site": {"url": "http://connectivity.test/check.txt", "text": "online"}
}
END
}
