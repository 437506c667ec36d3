#include "devices/linux/probes/Portal.h"

#include <optional>

#include "devices/linux/Workers.h"
#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/Sockets.h"
#include "devices/linux/probes/WebAnswers.h"

namespace wifi_profile::linux::probes {
namespace {

using facts::PortalProbe;
using Answer = PortalProbe::Answer;

constexpr std::chrono::milliseconds kPortalTime{5000};

std::optional<PortalProbe> askApi(const std::string& url, const Route& route,
                                  const Deadline& deadline) {
  if (const auto parts = partsOf(url); !parts || parts->scheme != "https") return {};
  const HttpAnswer answer = exchange({.url = url,
                                      .bodyLimit = std::size_t{8} * 1024,
                                      .headers = {"Accept: application/captive+json"},
                                      .post = {}},
                                     route, deadline);
  if (!answer.complete || answer.cutOff || answer.status != 200) return {};
  const auto captive = captiveFrom(answer.body);
  if (!captive) return {};
  if (*captive) return PortalProbe{Answer::portal, "the network's own answer: captive"};
  return PortalProbe{Answer::open, "the network's own answer: not captive"};
}

Result<PortalProbe> askPage(const PortalQuestion& question, const Route& route,
                            const Deadline& deadline) {
  if (const auto parts = partsOf(question.url); !parts || parts->scheme != "http") {
    return PortalProbe{Answer::noAnswer, "no address of http"};
  }
  const HttpAnswer answer =
      exchange({.url = question.url, .headers = {}, .post = {}}, route, deadline);
  if (deadline.isCancelled()) return cancelled();
  if (!answer.remedy.empty()) return notAsked(answer);
  return portalFrom(answer, question.url, question.expectedText);
}

}  // namespace

Result<PortalProbe> probePortal(const PortalQuestion& question, const Route& route,
                                const Deadline& deadline) {
  if (deadline.isOver()) return cancelled();
  const Deadline ours = deadline.atMost(kPortalTime);
  if (question.apiUrl.empty()) return askPage(question, route, ours);
  Alongside told([&] { return askApi(question.apiUrl, route, ours); });
  auto page = askPage(question, route, ours);
  if (const auto answer = told.get()) return *answer;
  return page;
}

}  // namespace wifi_profile::linux::probes
