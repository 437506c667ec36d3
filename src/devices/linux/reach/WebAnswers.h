// What web servers answer, judged. Pure functions. Details and problems are a few words in
// printable ASCII, whatever the other side sent.
#pragma once

#include <optional>
#include <string>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/reach/Http.h"

namespace wifi_profile::machine {

// What the network's own answer says of a sign-in page (RFC 8908, 5). Empty: it does not say.
std::optional<bool> captiveFrom(const std::string& body);

// What the answer for the page at `url` says of a sign-in page. See probePortal().
checks::PortalProbe portalFrom(const HttpAnswer& answer, const std::string& url,
                               const std::string& expectedText);

// Whether the answer is the page expected. See retrievePage(). Unknown as well for an answer with a
// remedy.
checks::Known<checks::SitePage> pageFrom(const HttpAnswer& answer, const std::string& expectedText);

}  // namespace wifi_profile::machine
