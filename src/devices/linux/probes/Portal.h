// Whether there is a sign-in page (captive portal). See Site.h for what requests have in common.
#pragma once

#include <string>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/probes/Names.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

struct PortalQuestion {
  std::string url;           // plain HTTP
  std::string expectedText;  // in the body; empty: the body must be empty
  std::string apiUrl;  // the network's captive portal API (RFC 8908), https; empty: it has none
};

// Asks the API, if there is one, and at the same time requests the page, without a proxy and
// without following a redirect. The page counts if the API gives no answer. open: 204, 200 with an
// empty body, or 200 with the expected text. portal: 200 with another body, a redirect, or 511. A
// redirect to the same host by https is neither: it gives noAnswer. 5 s in total. Reads at most 8
// KiB of the API's answer and 64 KiB of the page.
Result<facts::PortalProbe> probePortal(const PortalQuestion& question, const Route& route,
                                       const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
