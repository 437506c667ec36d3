# The joined access point goes out of range, and comes back.
atHome
gone 1
expect "the radio notices" within 30 not joinedTo Birchlane
expect "nothing answers any more" not ping -c 2 -i 0.2 -W 1 192.168.50.1
expect "the program runs all the same" program run
expect "there is no joined network to ask about" jq -e '.statusCode == 0 and .data.currentNetwork == {}' /out/record.json
expect "what is remembered is known" value device.preferredNetworkListCount 1
back 1
seen Birchlane
join Birchlane
expect "the router answers again" ping -c 3 -i 0.2 192.168.50.1
