// What the web answers. See Ping.h for what all functions of this folder have in common.
//
// Addresses are http or https. Names in them are asked of the way's name servers (the link's, or
// where these are not known, those that the system has configured). Details and problems are a few
// words in printable ASCII, whatever the other side sent. The user agent is "wifi-profile/VERSION";
// no cookies, no credentials, no compression, HTTP/1.1. Unknown (failed), with what would help,
// where it is this machine that cannot ask: no trusted certificates, no memory, no interface of
// that name.
#pragma once

#include <string>

#include "checks/Known.h"
#include "checks/ReachFacts.h"
#include "devices/linux/Patience.h"
#include "devices/linux/reach/Names.h"

namespace wifi_profile::machine {

struct PortalQuestion {
  std::string url;           // plain HTTP
  std::string expectedText;  // in the body; empty: a body must be empty
  std::string apiUrl;        // the network's own answer (RFC 8908), https; empty: it gave none
};

// Asks the API, if there is one, and the page beside it, which counts if the API does not say,
// without a proxy and without following a redirect. 204, 200 without a body, and 200 with the text
// expected: open. Another body, a redirect and 511: portal. A redirect to the same host by https
// says neither: no answer. 5 s in all. The API's answer is read up to 8 KiB, the page up to 64 KiB.
checks::Known<checks::PortalProbe> probePortal(const PortalQuestion& question, const Way& way,
                                               const Patience& patience);

// TCP to the site itself (no proxy), and TLS with a certificate that the system trusts if the
// address is https, within 5 s. No request is sent.
checks::Known<checks::SiteReach> reachSite(const std::string& url, const Way& way,
                                           const Patience& patience);

// Gets the page within 10 s in all (5 s for each connection): at most 5 redirects, to http and
// https only, and the first 64 KiB. The text (empty: any will do) must be in these; where they do
// not have it and the page goes on, it is unknown (notTold). A proxy is used when the environment
// names one (http_proxy, https_proxy, HTTPS_PROXY, all_proxy, ALL_PROXY, and no_proxy for
// exceptions).
checks::Known<checks::SitePage> retrievePage(const std::string& url,
                                             const std::string& expectedText, const Way& way,
                                             const Patience& patience);

}  // namespace wifi_profile::machine
