// One request of HTTP, for the code of this folder. No redirect is followed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "checks/Known.h"
#include "devices/linux/Patience.h"
#include "devices/linux/reach/Names.h"

namespace wifi_profile::machine {

struct HttpRequest {
  std::string url;
  std::size_t bodyLimit = std::size_t{64} * 1024;
  bool useProxy = false;     // the environment's
  bool connectOnly = false;  // TCP and TLS, and then nothing more
  std::vector<std::string> headers;
  std::string post;  // empty: GET
};

struct HttpAnswer {
  bool complete = false;  // the whole answer is there (or cut off), or it is connected
  long status = 0;        // 0: none came
  std::string body;       // no longer than the limit
  bool cutOff = false;    // at the limit
  std::string redirect;   // where to, absolute; empty: nowhere
  std::string problem;    // in a few words, when it is not complete
  // What would help, when the problem is this machine's own and says nothing of the other side.
  std::string remedy;
};

// Of an answer with a remedy.
checks::Unknown notAsked(const HttpAnswer& answer);

// Ends with problem "timed out" at the deadline, after 5 s without a connection, and soon after it
// was called off.
HttpAnswer exchange(const HttpRequest& request, const Way& way, const Patience& patience);

struct UrlParts {
  std::string scheme;  // in lower case
  std::string host;    // without brackets, in ASCII
  std::string port;
};

// Nothing for what is no absolute address of http or https.
std::optional<UrlParts> partsOf(const std::string& url);

// `reference` as it stands in the document at `base`; empty when there is no such address.
std::string resolvedUrl(const std::string& base, const std::string& reference);

}  // namespace wifi_profile::machine
