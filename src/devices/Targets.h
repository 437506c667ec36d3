// The hosts that the tests of the Internet contact. docs/SETTINGS.md lists the other recipients:
// they belong to the network, or are hosts that these redirect to.
#pragma once

#include <string>

namespace wifi_profile::devices {

// The defaults are IANA's example site: RFC 2606 and RFC 6761 reserve its name, and
// iana.org/domains/reserved permits its use as an example.
struct Targets {
  std::string pingHost = "example.com";           // a name or a numeric address
  std::string name = "example.com";               // the name to look up
  std::string portalUrl = "http://example.com/";  // plain HTTP
  std::string portalText = "Example Domain";      // in its page; an empty page counts, too
  std::string siteUrl = "https://example.com/";
  std::string siteText = "Example Domain";  // in its page; empty: any page will do

  bool operator==(const Targets&) const = default;
};

}  // namespace wifi_profile::devices
