// Where the tests of the Internet go. docs/SETTINGS.md says what else is sent something: all of it
// belongs to the network, or to what these redirect to.
#pragma once

#include <string>

namespace wifi_profile::machine {

// The defaults are the example site that IANA keeps (RFC 2606 and RFC 6761 reserve its name, and
// iana.org/domains/reserved lets everybody refer to it).
struct Targets {
  std::string pingHost = "example.com";           // a name or a numeric address
  std::string name = "example.com";               // to be looked up
  std::string portalUrl = "http://example.com/";  // plain HTTP
  std::string portalText = "Example Domain";      // in its page; an empty page will do, too
  std::string siteUrl = "https://example.com/";
  std::string siteText = "Example Domain";  // in its page; empty: any page will do

  bool operator==(const Targets&) const = default;
};

}  // namespace wifi_profile::machine
