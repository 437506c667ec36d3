# Two of five packets to the client are lost.
atHome
lossy 40
lossIsAbout40() {
  lost=$(ping -c 200 -i 0.05 -W 1 192.168.50.1 | grep -oE '[0-9]+(\.[0-9]+)?% packet loss' | cut -d. -f1 | tr -dc 0-9)
  echo "lost $lost %"
  [ "$lost" -ge 25 ] && [ "$lost" -le 55 ]
}
expect "about 40 % of the pings are lost" lossIsAbout40
expect "the radio stays joined" joinedTo Birchlane
expect "the program runs" program run --max-scan-cache-age 600
# Three pings may all be lost, or none; but what answers has a share of losses.
lossIsTold() {
  jq -e '.data.currentNetwork | if .pingedLAN then .pingLANResult.packetLoss | . >= 0 and . < 100
    else .pingedLAN == false end' /out/record.json
}
expect "the losses are told" lossIsTold
