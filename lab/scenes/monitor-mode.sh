# The interface is a monitor: it does not scan, which is not for want of a driver that can.
air 1
accessPoint ssid=Birchlane channel=6 security=open signal=-50
iw dev wlan0 set type monitor || stop "no monitor mode"
ip link set wlan0 up
expect "there is no list" ends 69 program scan --device linux:wlan0
expect "the mode is the reason" shows 'no station but an access point, a monitor' cat /out/program.log
ip link set wlan0 down
iw dev wlan0 set type managed
