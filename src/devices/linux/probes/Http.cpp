#include "devices/linux/probes/Http.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <curl/curl.h>
#include <memory>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

#include "devices/linux/probes/Sockets.h"
#include "devices/linux/probes/Watchdog.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr const char* kMoreRoom = "close programs, as memory or open files ran out";
// The library does not watch the socket of a second address until it is called again.
constexpr std::chrono::milliseconds kLook{200};
constexpr std::size_t kMostHeaderBytes = std::size_t{64} * 1024;

template <auto release>
struct Releaser {
  template <class T>
  void operator()(T* pointer) const {
    release(pointer);
  }
};
using Easy = std::unique_ptr<CURL, Releaser<curl_easy_cleanup>>;
using Multi = std::unique_ptr<CURLM, Releaser<curl_multi_cleanup>>;
using List = std::unique_ptr<curl_slist, Releaser<curl_slist_free_all>>;
using Url = std::unique_ptr<CURLU, Releaser<curl_url_cleanup>>;

bool isCurlReady() {
  static const bool kReady = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  return kReady;
}

// Blocks SIGPIPE for this thread: the library writes to TLS sockets in a way that raises it when
// the other side has closed the connection.
class NoBrokenPipe {
 public:
  NoBrokenPipe() {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    sigset_t pending;
    sigpending(&pending);
    wasPending_ = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  ~NoBrokenPipe() {
    const timespec now{};
    while (!wasPending_ && sigtimedwait(&pipe_, nullptr, &now) == SIGPIPE) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;

 private:
  sigset_t pipe_{};
  sigset_t before_{};
  bool wasPending_ = false;
};

std::string partOf(CURLU* url, CURLUPart part, unsigned flags) {
  char* text = nullptr;
  if (curl_url_get(url, part, &text, flags) != CURLUE_OK) return {};
  std::string result = text;
  curl_free(text);
  return result;
}

// Returns null if the text is not a URL. The library would ignore everything after a NUL.
Url parsedUrl(const std::string& text) {
  Url url(isCurlReady() ? curl_url() : nullptr);
  const bool good = url && text.find('\0') == std::string::npos &&
                    curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0) == CURLUE_OK;
  return good ? std::move(url) : nullptr;
}

// Replaces the addresses of a name that was not found, so that the library does not look the name
// up itself. No packet can be sent to this address.
constexpr const char* kNowhere = "255.255.255.255";

bool isNowhere(const Address& address) {
  return address.family() == AF_INET &&
         reinterpret_cast<const sockaddr_in*>(address.get())->sin_addr.s_addr == INADDR_NONE;
}

// The state of one transfer.
struct Transfer {
  const std::string& interface;
  std::size_t bodyLimit;
  std::chrono::milliseconds connectTime;
  Watchdog& watchdog;
  const std::vector<Address>& own;  // addresses of this machine
  bool mayStayHere = false;         // a proxy on this machine is not reached through the interface
  bool wentNowhere = false;
  bool opened = false;      // at least one socket was opened
  std::string remedy = {};  // advice about a socket that could not be opened
  HttpAnswer answer = {};
  std::size_t headerBytes = 0;
};

// Returns advice for errno's number. Empty: the network gave no address of this IP version.
std::string remedyForSocket(int error, const std::string& interface) {
  switch (error) {
    case EADDRNOTAVAIL:
      return {};
    case ENODEV:
      return "look whether " + shortText(interface) + " is still there and switched on";
    case EAFNOSUPPORT:
      return "switch on the protocol (IPv4 or IPv6) of the site's addresses";
    default:
      return kMoreRoom;
  }
}

curl_socket_t openBound(void* self, curlsocktype /*purpose*/, curl_sockaddr* to) {
  auto& transfer = *static_cast<Transfer*>(self);
  Address address;
  address.size = std::min<socklen_t>(to->addrlen, sizeof(address.storage));
  std::memcpy(&address.storage, &to->addr, address.size);
  transfer.wentNowhere = isNowhere(address);
  if (transfer.wentNowhere) return CURL_SOCKET_BAD;
  // A DNS answer or a redirect must not lead to this machine's own services.
  const bool here = !transfer.interface.empty() && staysHere(address, transfer.own);
  if (here && !transfer.mayStayHere) return CURL_SOCKET_BAD;
  Descriptor socket(::socket(to->family, to->socktype | SOCK_CLOEXEC, to->protocol));
  if (!socket || (!here && !bindToInterface(socket.number(), to->family, transfer.interface))) {
    transfer.remedy = remedyForSocket(errno, transfer.interface);
    return CURL_SOCKET_BAD;
  }
  if (!transfer.watchdog.add(socket.number())) return CURL_SOCKET_BAD;
  transfer.opened = true;
  return socket.release();
}

int closeWatched(void* self, curl_socket_t socket) {
  static_cast<Watchdog*>(self)->close(socket);
  return 0;
}

std::size_t takeBody(const char* bytes, std::size_t /*one*/, std::size_t count, void* self) {
  auto& transfer = *static_cast<Transfer*>(self);
  std::string& body = transfer.answer.body;
  const std::size_t taken = std::min(count, transfer.bodyLimit - body.size());
  body.append(bytes, taken);
  transfer.answer.cutOff = taken < count;
  return taken;  // taking less than offered ends the transfer
}

std::size_t countHeader(const char* /*bytes*/, std::size_t /*one*/, std::size_t count, void* self) {
  std::size_t& sum = static_cast<Transfer*>(self)->headerBytes;
  sum += count;
  return sum <= kMostHeaderBytes ? count : 0;
}

std::string connectProblem(CURL* easy) {
  long error = 0;
  curl_easy_getinfo(easy, CURLINFO_OS_ERRNO, &error);
  switch (error) {
    case ECONNREFUSED:
      return "refused";
    case ENETUNREACH:
    case EHOSTUNREACH:
      return "no route";
    case ETIMEDOUT:
      return "timed out";
    default:
      return "not connected";
  }
}

std::string problemOf(CURLcode code, CURL* easy) {
  switch (code) {
    case CURLE_OPERATION_TIMEDOUT:
      return "timed out";
    case CURLE_COULDNT_CONNECT:
      return connectProblem(easy);
    case CURLE_PEER_FAILED_VERIFICATION:
      return "certificate not accepted";
    case CURLE_SSL_CACERT_BADFILE:
      return "no trusted certificates on this machine";
    case CURLE_SSL_CONNECT_ERROR:
      return "no TLS";
    case CURLE_GOT_NOTHING:
      return "no answer";
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_PARTIAL_FILE:
      return "connection lost";
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
      return "no HTTP";
    case CURLE_COULDNT_RESOLVE_HOST:
      return "name not found";
    case CURLE_COULDNT_RESOLVE_PROXY:
      return "proxy not found";
    case CURLE_URL_MALFORMAT:
      return "malformed address";
    case CURLE_WRITE_ERROR:
      return "too long";
    default:
      return shortText(curl_easy_strerror(code));
  }
}

// The library also reports an endless header as lack of memory.
bool isHeaderTooLong(CURLcode code, const Transfer& transfer) {
  return code == CURLE_OUT_OF_MEMORY && transfer.opened;
}

// Returns the value for HttpAnswer::remedy.
std::string remedyFor(CURLcode code, const Transfer& transfer) {
  switch (code) {
    case CURLE_SSL_CACERT_BADFILE:
      return "install the package ca-certificates";
    case CURLE_FAILED_INIT:
    case CURLE_UNRECOVERABLE_POLL:
      return kMoreRoom;
    case CURLE_OUT_OF_MEMORY:
      return isHeaderTooLong(code, transfer) ? "" : kMoreRoom;
    case CURLE_COULDNT_CONNECT:
      return transfer.opened ? "" : transfer.remedy;
    default:
      return {};
  }
}

bool environmentNamesProxy() {
  constexpr std::array kNames{"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"};
  return std::any_of(kNames.begin(), kNames.end(), [](const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
  });
}

bool mayUseProxy(const HttpRequest& request) { return request.useProxy && environmentNamesProxy(); }

struct Addresses {
  std::string entry;    // entry for CURLOPT_RESOLVE; empty: none needed
  std::string problem;  // why there are no addresses
  std::string remedy;   // see HttpAnswer::remedy
};

Addresses addressesOf(const UrlParts& url, const HttpRequest& request, const Route& route,
                      const std::vector<Address>& own, const Deadline& deadline) {
  if (addressOf(url.host, 0, route.interface)) return {};
  auto answer = resolve(url.host, route, deadline);
  if (!answer) {
    if (answer.error().reason == Reason::failed) {
      return {{}, "no name can be looked up", kMoreRoom};
    }
    return {{}, "timed out", {}};
  }
  if (!route.interface.empty()) {
    std::erase_if(answer->addresses, [&own](const auto& address) { return isHere(address, own); });
  }
  std::string entry = url.host + ":" + url.port + ":";
  if (answer->addresses.empty()) {
    return {mayUseProxy(request) ? entry + kNowhere : "",  // a proxy may know the name
            answer->resolution.resolved ? "the name stands for this machine"
                                        : "name: " + answer->resolution.problem,
            {}};
  }
  for (const std::string& address : answer->addresses) {
    if (entry.back() != ':') entry += ',';
    entry += address.find(':') == std::string::npos ? address : "[" + address + "]";
  }
  return {entry, {}, {}};
}

void setUp(CURL* easy, const HttpRequest& request, Transfer& transfer, const curl_slist* headers,
           const curl_slist* addresses) {
  curl_easy_setopt(easy, CURLOPT_URL, request.url.c_str());
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  // Do not wait for the library's thread that looks up a proxy's name.
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
  curl_easy_setopt(easy, CURLOPT_USERAGENT, "wifi-profile/" WIFI_PROFILE_VERSION);
  if (!request.useProxy) curl_easy_setopt(easy, CURLOPT_PROXY, "");
  if (request.connectOnly) curl_easy_setopt(easy, CURLOPT_CONNECT_ONLY, 1L);
  if (!request.post.empty()) curl_easy_setopt(easy, CURLOPT_POSTFIELDS, request.post.c_str());
  if (headers != nullptr) curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers);
  if (addresses != nullptr) curl_easy_setopt(easy, CURLOPT_RESOLVE, addresses);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, openBound);
  curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, &transfer);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, closeWatched);
  curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, &transfer.watchdog);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, takeBody);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, &transfer);
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, countHeader);
  curl_easy_setopt(easy, CURLOPT_HEADERDATA, &transfer);
}

CURLcode perform(CURLM* multi, CURL* easy, std::chrono::milliseconds connectTime,
                 const Deadline& deadline) {
  // The first of several addresses gets half of this time, the next one half of the rest.
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS,
                   std::max(1L, static_cast<long>(std::min(deadline.left(), connectTime).count())));
  if (curl_multi_add_handle(multi, easy) != CURLM_OK) return CURLE_FAILED_INIT;
  int running = 1;
  while (running > 0 && !deadline.isOver()) {
    if (curl_multi_perform(multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
    if (running == 0) break;
    const auto most = static_cast<int>(std::min(deadline.slice(), kLook).count());
    if (curl_multi_poll(multi, nullptr, 0, most, nullptr) != CURLM_OK) return CURLE_FAILED_INIT;
  }
  CURLcode result = CURLE_OPERATION_TIMEDOUT;
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi, &left)) {
    if (message->msg == CURLMSG_DONE) result = message->data.result;
  }
  // Sockets that the watchdog has shut down fail with other codes.
  return result != CURLE_OK && deadline.isOver() ? CURLE_OPERATION_TIMEDOUT : result;
}

HttpAnswer failure(std::string problem, std::string remedy = {}) {
  HttpAnswer answer;
  answer.problem = std::move(problem);
  answer.remedy = std::move(remedy);
  return answer;
}

HttpAnswer transferred(const HttpRequest& request, const Addresses& addresses, Transfer& transfer,
                       const Deadline& deadline) {
  const NoBrokenPipe noBrokenPipe;
  List headers;
  for (const std::string& header : request.headers) {
    curl_slist* longer = curl_slist_append(headers.get(), header.c_str());
    if (longer == nullptr) return failure("no memory", kMoreRoom);
    static_cast<void>(headers.release());
    headers.reset(longer);
  }
  const List resolved(
      addresses.entry.empty() ? nullptr : curl_slist_append(nullptr, addresses.entry.c_str()));
  const Multi multi(curl_multi_init());
  const Easy easy(curl_easy_init());
  if (!multi || !easy) return failure("no memory", kMoreRoom);
  setUp(easy.get(), request, transfer, headers.get(), resolved.get());
  const CURLcode code = perform(multi.get(), easy.get(), transfer.connectTime, deadline);
  HttpAnswer& answer = transfer.answer;
  curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &answer.status);
  const char* redirect = nullptr;
  curl_easy_getinfo(easy.get(), CURLINFO_REDIRECT_URL, &redirect);
  if (redirect != nullptr) answer.redirect = redirect;
  answer.complete = code == CURLE_OK || answer.cutOff;
  if (!answer.complete) {
    answer.problem =
        isHeaderTooLong(code, transfer) ? "header too long" : problemOf(code, easy.get());
    answer.remedy = remedyFor(code, transfer);
  }
  if (code == CURLE_COULDNT_CONNECT && transfer.wentNowhere && !addresses.problem.empty()) {
    answer.problem = addresses.problem;
  }
  curl_multi_remove_handle(multi.get(), easy.get());
  return answer;
}

}  // namespace

std::optional<UrlParts> partsOf(const std::string& url) {
  const Url parsed = parsedUrl(url);
  if (!parsed) return {};
  UrlParts parts{partOf(parsed.get(), CURLUPART_SCHEME, 0),
                 partOf(parsed.get(), CURLUPART_HOST, CURLU_PUNYCODE),
                 partOf(parsed.get(), CURLUPART_PORT, CURLU_DEFAULT_PORT)};
  if (parts.scheme != "http" && parts.scheme != "https") return {};
  if (parts.host.starts_with('[')) parts.host = parts.host.substr(1, parts.host.size() - 2);
  if (parts.host.empty()) return {};
  return parts;
}

std::string resolvedUrl(const std::string& base, const std::string& reference) {
  const Url url = parsedUrl(base);
  if (!url || reference.find('\0') != std::string::npos ||
      curl_url_set(url.get(), CURLUPART_URL, reference.c_str(), 0) != CURLUE_OK) {
    return {};
  }
  return partOf(url.get(), CURLUPART_URL, 0);
}

Error notAsked(const HttpAnswer& answer) {
  return {Reason::failed,
          "The site could not be asked (" + answer.problem + "): " + answer.remedy + "."};
}

HttpAnswer exchange(const HttpRequest& request, const Route& route, const Deadline& deadline) {
  if (!isCurlReady()) return failure("no memory", kMoreRoom);
  const auto url = partsOf(request.url);
  if (!url) return failure("no address of http or https");
  const auto own = ownAddresses();
  if (!own) return failure("no descriptor", kMoreRoom);
  const Addresses addresses = addressesOf(*url, request, route, *own, deadline);
  if (addresses.entry.empty() && !addresses.problem.empty())
    return failure(addresses.problem, addresses.remedy);
  try {
    Watchdog watchdog(deadline);
    Transfer transfer{.interface = route.interface,
                      .bodyLimit = request.bodyLimit,
                      .connectTime = route.connectTime,
                      .watchdog = watchdog,
                      .own = *own,
                      .mayStayHere = mayUseProxy(request) && !isHere(url->host, *own)};
    return transferred(request, addresses, transfer, deadline);
  } catch (const std::system_error&) {
    return failure("no thread or descriptor", kMoreRoom);
  }
}

}  // namespace wifi_profile::linux::probes
