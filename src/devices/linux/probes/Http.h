// A single HTTP request, for the code in this folder. Redirects are not followed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "devices/linux/Deadline.h"
#include "devices/linux/probes/Names.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::linux::probes {

struct HttpRequest {
  std::string url;
  std::size_t bodyLimit = std::size_t{64} * 1024;
  bool useProxy = false;     // the one named in the environment
  bool connectOnly = false;  // only TCP and TLS, without a request
  std::vector<std::string> headers;
  std::string post;  // empty: GET
};

struct HttpAnswer {
  bool complete = false;  // the answer is complete or cut off, or the connection is made
  long status = 0;        // 0: no answer
  std::string body;       // at most bodyLimit
  bool cutOff = false;    // the body was cut off at bodyLimit
  std::string redirect;   // absolute URL; empty: no redirect
  std::string problem;    // in a few words; empty if the answer is complete
  // Advice, if the problem is this machine's own and says nothing about the other side; else empty.
  std::string remedy;
};

// Turns an answer with a remedy into an Error.
Error notAsked(const HttpAnswer& answer);

// Makes the request. Ends with problem "timed out" at the deadline, after 5 s without a connection,
// and soon after being cancelled.
HttpAnswer exchange(const HttpRequest& request, const Route& route, const Deadline& deadline);

struct UrlParts {
  std::string scheme;  // in lower case
  std::string host;    // without brackets, in ASCII
  std::string port;
};

// Splits a URL. Empty if it is not an absolute URL of http or https.
std::optional<UrlParts> partsOf(const std::string& url);

// Resolves `reference`, found in the document at `base`; empty if it is not a valid reference.
std::string resolvedUrl(const std::string& base, const std::string& reference);

}  // namespace wifi_profile::linux::probes
