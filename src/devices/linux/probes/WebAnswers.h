// Evaluates the answers of web servers. Pure functions. Details and problems are a few words in
// printable ASCII, whatever the other side sent.
#pragma once

#include <optional>
#include <string>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/probes/Http.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

// Returns whether the captive portal API (RFC 8908, 5) reports a sign-in page. Empty: it does not
// say.
std::optional<bool> captiveFrom(const std::string& body);

// Evaluates the answer for the page at `url`. See probePortal().
facts::PortalProbe portalFrom(const HttpAnswer& answer, const std::string& url,
                              const std::string& expectedText);

// Evaluates the answer for the expected page. See retrievePage(). Error also for an answer with a
// remedy.
Result<facts::SitePage> pageFrom(const HttpAnswer& answer, const std::string& expectedText);

}  // namespace wifi_profile::linux::probes
