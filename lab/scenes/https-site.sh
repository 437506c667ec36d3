# The site speaks HTTPS: its certificate has an authority that the client trusts, or one that it does not know.
atHome
https 443 trusted
https 8443 unknown
verified() { openssl s_client -verify_return_error -CAfile /etc/ssl/certs/ca-certificates.crt -connect "203.0.113.80:$1" </dev/null; }
expect "one certificate is good" verified 443
expect "the other's authority is not known" shows 'unable to get local issuer certificate' verified 8443
site=https://connectivity.test
expect "the program runs" program run --max-scan-cache-age 600 --site "$site/check.txt"
expect "the site takes connections and the page comes" healthy

expect "the program runs" program run --max-scan-cache-age 600 --site "$site:8443/check.txt"
expect "a certificate of an unknown authority is no site" value currentNetwork.reachedOrvane false
expect "nor a page" value currentNetwork.retrievedOrvane false
expect "it says why" shows 'certificate not accepted' cat /out/program.log
expect "nothing else is raised" healthy currentNetwork.reachedOrvane currentNetwork.retrievedOrvane

rm /etc/ssl/certs/ca-certificates.crt
expect "the program runs" program run --max-scan-cache-age 600 --site "$site/check.txt"
for key in reachedOrvane retrievedOrvane; do
  expect "$key is not known without trusted certificates" unknown "currentNetwork.$key" 'install the package ca-certificates'
done
