# The joined network's profile names a proxy configuration.
air 1
accessPoint ssid=Office channel=6 security=wpa2 password="correct horse" signal=-45
wired
networkManager
profile Office password="correct horse" proxy.method=auto proxy.pac-url=http://proxy.test/proxy.pac
seen Office
join Office
expect "the profile has it" shows '^proxy.pac-url:http://proxy.test/proxy.pac$' nmcli -t -f proxy connection show Office
expect "the Internet is reached" shows full nmcli networking connectivity check
expect "the program runs" program run --max-scan-cache-age 600
expect "the proxy is raised" raised device.isUsingCustomWebProxy
expect "nothing else is raised" healthy device.isUsingCustomWebProxy
