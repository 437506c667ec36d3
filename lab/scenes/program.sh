# The program under test runs here with its libraries, and its record comes out.
# The same as anywhere, with its built-in scenario.
expect "it runs" program run --device demo --output json --time virtual
expect "the record has a status code" jq -e '.statusCode == 0' /out/record.json
expect "a finding is raised" raised device.isUsingCustomDNS
refuse "a value is what it is not" value device.isUsingCustomDNS false
