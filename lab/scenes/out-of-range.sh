# The joined access point goes out of range, and comes back.
atHome
gone 1
expect "the radio notices" within 30 not joinedTo Home
expect "nothing answers any more" not ping -c 2 -i 0.2 -W 1 192.168.50.1
back 1
seen Home
join Home
expect "the router answers again" ping -c 3 -i 0.2 192.168.50.1
