# Two Bluetooth controllers, emulated, that hear each other; the first is connected to the second, and
# eleven more devices are remembered as paired.
air 0
bluetooth 2 11
expect "BlueZ has two controllers" shows '^2$' sh -c "bluetoothctl list | grep -c ^Controller"
expect "the first is powered" shows 'Powered: yes' bluetoothctl show 00:AA:01:00:00:00
btmgmt --index 1 connectable on
btmgmt --index 1 discov on
btmgmt --index 1 advertising on
bluetoothctl --timeout 8 scan on >/tmp/bluetooth-scan.log 2>&1
expect "it finds the second" shows 00:AA:01:01:00:01 bluetoothctl devices
refuse "a device is connected" shows 00:AA bluetoothctl devices Connected
bluetoothctl --timeout 10 connect 00:AA:01:01:00:01 >/tmp/bluetooth-connect.log 2>&1
expect "it is connected to the second" shows 00:AA:01:01:00:01 bluetoothctl devices Connected
expect "the program runs" program run
expect "the paired devices are counted" value device.bluetoothPairedCount 11
expect "they are many" raised device.isLargePairedBT
# Each of the two is a device of the other one's.
expect "the connected ones are counted" value device.bluetoothConnectedCount 2
expect "they are not many" value device.isLargeConnectedBT false
