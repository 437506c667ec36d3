# Shell helpers: the wired side of the access points, behind the bridge of air.sh.
#
#     client --air-- [air: 192.168.50.1] -- [street: 198.51.100.1, with double-nat 10.0.0.1] -- [world]
#
# In "world" answer a DNS server (203.0.113.53) and a web server (203.0.113.80, connectivity.test). Every other
# name under "test" has that address, too, but many.test has 100, too many for an answer over UDP.
#   wired WORD...
#     dns=dead         the DNS server that DHCP names is not there
#     gateway=dead     the router that DHCP names is not there
#     captive          every web page is answered with a redirection to a login page
#     double-nat       the street translates addresses as well, and its own are private
#     ipv6             the router announces 2001:db8:50::/64
#   https PORT trusted|unknown   the web server answers HTTPS at the port as well, with a certificate for
#                      connectivity.test; its authority is among those that the client trusts, or is not
#   lossy PERCENT      from now on that share of the packets to the client is lost

inWorld() { ip netns exec world "$@"; }

# cable LEFT RIGHT NETWORK  connects two namespaces: NETWORK.1 is the right end's address, NETWORK.2 the
# left's, whose way to everything else it becomes
cable() {
  ip -n "$1" link add "to-$2" type veth peer name "to-$1" netns "$2"
  ip -n "$1" addr add "$3.2/24" dev "to-$2"
  ip -n "$2" addr add "$3.1/24" dev "to-$1"
  ip -n "$1" link set "to-$2" up
  ip -n "$2" link set "to-$1" up
  ip -n "$1" route add default via "$3.1"
}

# translate NAMESPACE INTERFACE  a router's usual work
translate() {
  ip netns exec "$1" sh -c 'echo 1 >/proc/sys/net/ipv4/ip_forward'
  ip netns exec "$1" nft "add table ip nat; add chain ip nat post { type nat hook postrouting priority 100; };
    add rule ip nat post oifname $2 masquerade" || stop "nft does not translate"
}

# daemon NAMESPACE ARGUMENT...  a dnsmasq there
daemon() {
  daemon_namespace=$1
  shift
  ip netns exec "$daemon_namespace" dnsmasq --conf-file=/dev/null --pid-file="/run/dnsmasq-$daemon_namespace" \
    --user=root --log-facility="/tmp/dnsmasq-$daemon_namespace.log" --no-resolv --no-hosts "$@" ||
    stop "dnsmasq does not start in $daemon_namespace"
}

world() {
  ip netns add world
  ip -n world link set lo up
  for world_address in 203.0.113.53 203.0.113.80; do ip -n world addr add "$world_address/32" dev lo; done
  seq -f '203.0.113.%g many.test' 101 200 >/tmp/hosts
  daemon world --bind-interfaces --listen-address=203.0.113.53 --address=/test/203.0.113.80 --addn-hosts=/tmp/hosts \
    --no-dhcp-interface=lo
  mkdir -p /tmp/www
  printf online >/tmp/www/check.txt
  inWorld busybox httpd -p 203.0.113.80:80 -h /tmp/www
}

# Answers whatever is asked by sending it to the login page.
portal() {
  cat >/tmp/portal <<'END'
#!/bin/sh
while read -r line && [ "${#line}" -gt 1 ]; do :; done
printf 'HTTP/1.1 302 Found\r\nLocation: http://login.test/\r\nContent-Length: 0\r\nConnection: close\r\n\r\n'
END
  chmod 755 /tmp/portal
  inAir busybox nc -ll -p 8080 -e /tmp/portal >/tmp/portal.log 2>&1 &
  inAir nft "add chain ip nat pre { type nat hook prerouting priority -100; };
    add rule ip nat pre iifname $home tcp dport 80 redirect to :8080" || stop "nft does not redirect"
}

wired() {
  known "dns gateway captive double-nat ipv6" "$@"
  world
  inAir ip addr add 192.168.50.1/24 dev "$home"
  ip netns add street
  cable street world 192.0.2
  if [ -n "$(given double-nat '' "$@")" ]; then
    cable air street 10.0.0
    translate street to-world
  else
    cable air street 198.51.100
    ip netns exec street sh -c 'echo 1 >/proc/sys/net/ipv4/ip_forward'
    ip -n world route add 198.51.100.0/24 via 192.0.2.2
  fi
  translate air to-street
  wired_dns=192.168.50.1 wired_router=192.168.50.1
  [ "$(given dns alive "$@")" = alive ] || wired_dns=192.168.50.253
  [ "$(given gateway alive "$@")" = alive ] || wired_router=192.168.50.254
  [ -z "$(given captive '' "$@")" ] || portal
  set -- "$@" --
  if [ -n "$(given ipv6 '' "$@")" ]; then
    inAir ip -6 addr add 2001:db8:50::1/64 dev "$home"
    set -- "$@" --enable-ra --dhcp-range=2001:db8:50::,ra-stateless
  fi
  while [ "$1" != -- ]; do shift; done
  shift
  daemon air --interface="$home" --except-interface=lo --bind-interfaces --server=203.0.113.53 --no-ping \
    --dhcp-range=192.168.50.10,192.168.50.99,1h \
    --dhcp-option=option:router,"$wired_router" --dhcp-option=option:dns-server,"$wired_dns" \
    --dhcp-authoritative --dhcp-leasefile=/tmp/leases "$@"
}

# Its certificates are made here and not with the image, because the guest has a date of its own.
https() {
  known "trusted unknown" "$2"
  https_files=/tmp/https-$1
  # shellcheck disable=SC2086  # several words
  {
    https_new="-newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 30"
    openssl req -x509 $https_new -subj "/CN=Authority $1" -keyout "$https_files-authority.key" \
      -out "$https_files-authority" &&
      openssl req -x509 $https_new -subj /CN=connectivity.test -extensions usr_cert \
        -addext subjectAltName=DNS:connectivity.test -CA "$https_files-authority" \
        -CAkey "$https_files-authority.key" -keyout "$https_files.key" -out "$https_files"
  } >"$https_files.log" 2>&1 || stop "no certificate"
  mkdir -p /etc/ssl/certs
  [ "$2" != trusted ] || cat "$https_files-authority" >>/etc/ssl/certs/ca-certificates.crt
  (cd /tmp/www && inWorld openssl s_server -WWW -quiet -accept "203.0.113.80:$1" -cert "$https_files" \
    -key "$https_files.key" </dev/null >"$https_files-server.log" 2>&1) &
  within 10 shows ":$1 " inWorld ss -ltn || stop "no HTTPS server"
}

lossy() { inAir tc qdisc add dev "$home" root netem loss "$1%" || stop "no netem"; }
