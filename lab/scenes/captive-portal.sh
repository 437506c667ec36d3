# Every web page is the login page until somebody logs in.
atHome captive
expect "a page redirects to the login" shows 'Location: http://login.test/' \
  sh -c "printf 'GET /check.txt HTTP/1.0\r\n\r\n' | busybox nc -w 5 connectivity.test 80"
expect "NetworkManager finds the portal" shows portal nmcli networking connectivity check
expect "names are found" shows 203.0.113.80 nslookup connectivity.test
expect "the program runs" program run --max-scan-cache-age 600
expect "the sign-in page is raised" raised currentNetwork.isCaptive
expect "the remembered network has one" value currentNetwork.preferredNetwork.isCaptive true
expect "the page does not come" value currentNetwork.retrievedOrvane false
expect "nothing else is raised" healthy currentNetwork.isCaptive currentNetwork.retrievedOrvane
