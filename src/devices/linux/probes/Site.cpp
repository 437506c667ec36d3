#include "devices/linux/probes/Site.h"

#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/Sockets.h"
#include "devices/linux/probes/WebAnswers.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr std::chrono::milliseconds kReachTime{5000};
constexpr std::chrono::milliseconds kPageTime{10000};
constexpr int kMostRedirects = 5;

}  // namespace

Result<facts::SiteReach> reachSite(const std::string& url, const Route& route,
                                   const Deadline& deadline) {
  if (deadline.isOver()) return cancelled();
  const HttpAnswer answer = exchange({.url = url, .connectOnly = true, .headers = {}, .post = {}},
                                     route, deadline.atMost(kReachTime));
  if (deadline.isCancelled()) return cancelled();
  if (!answer.remedy.empty()) return notAsked(answer);
  return facts::SiteReach{answer.complete, answer.problem};
}

Result<facts::SitePage> retrievePage(const std::string& url, const std::string& expectedText,
                                     const Route& route, const Deadline& deadline) {
  const Deadline ours = deadline.atMost(kPageTime);
  if (ours.isOver()) return cancelled();
  std::string next = url;
  for (int redirects = 0; redirects <= kMostRedirects; ++redirects) {
    const HttpAnswer answer =
        exchange({.url = next, .useProxy = true, .headers = {}, .post = {}}, route, ours);
    if (deadline.isCancelled()) return cancelled();
    if (answer.redirect.empty() || answer.status / 100 != 3) {
      return pageFrom(answer, expectedText);
    }
    next = answer.redirect;
  }
  return facts::SitePage{false, "too many redirects"};
}

}  // namespace wifi_profile::linux::probes
