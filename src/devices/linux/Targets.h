// Where the tests of the Internet go. Nothing is sent anywhere else.
#pragma once

#include <string>

namespace wifi_profile::machine {

// The defaults are the example site that IANA keeps (RFC 2606 and RFC 6761 reserve its name, and
// iana.org/domains/reserved lets everybody refer to it).
struct Targets {
  std::string pingHost = "example.com";           // a name or a numeric address
  std::string name = "example.com";               // to be looked up
  std::string portalUrl = "http://example.com/";  // plain HTTP
  std::string portalText = "Example Domain";      // in its page; empty: the page is empty
  std::string siteUrl = "https://example.com/";
  std::string siteText = "Example Domain";  // in its page; empty: any page will do

  bool operator==(const Targets&) const = default;
};

}  // namespace wifi_profile::machine
