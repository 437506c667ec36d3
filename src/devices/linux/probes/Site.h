// Answers of web sites. See Ping.h for what all functions of this folder have in common.
//
// URLs are http or https. Their names are looked up at the name servers of `route` (the link's or,
// if these are unknown, those that the system has configured). Details and problems are a few words
// in printable ASCII, whatever the other side sent. The user agent is "wifi-profile/VERSION"; no
// cookies, no credentials, no compression, HTTP/1.1. Error (failed), with advice, if this machine
// cannot make the request: no trusted certificates, no memory, no interface of that name.
#pragma once

#include <string>

#include "analysis/facts/ReachFacts.h"
#include "devices/linux/Deadline.h"
#include "devices/linux/probes/Names.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

// Connects to the site itself (no proxy) by TCP and, if the URL is https, by TLS with a certificate
// that the system trusts, within 5 s. Sends no request.
Result<facts::SiteReach> reachSite(const std::string& url, const Route& route,
                                   const Deadline& deadline);

// Requests the page within 10 s in total (5 s for each connection). Follows at most 5 redirects, to
// http and https only, and reads the first 64 KiB. These must contain the text (empty: any body
// counts). If they do not and the page is longer, the result is unknown (notTold). Uses a proxy if
// the environment names one (http_proxy, https_proxy, HTTPS_PROXY, all_proxy, ALL_PROXY, with
// exceptions in no_proxy).
Result<facts::SitePage> retrievePage(const std::string& url, const std::string& expectedText,
                                     const Route& route, const Deadline& deadline);

}  // namespace wifi_profile::linux::probes
