# Sixty networks are remembered besides the joined one.
saved 60
atHome
expect "61 Wi-Fi profiles are there" shows '^61$' sh -c "nmcli -t -f TYPE connection show | grep -cx 802-11-wireless"
expect "the radio is joined" joinedTo Birchlane
expect "the program runs" program run --max-scan-cache-age 600
expect "the long list is raised" raised device.isLargePNL
expect "all are counted" value device.preferredNetworkListCount 61
expect "nothing else is raised" healthy device.isLargePNL
