#include "devices/linux/Patience.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace wifi_profile::linux {

Cancellation::Cancellation() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

Cancellation::~Cancellation() { close(descriptor_); }

void Cancellation::cancel() {
  cancelled_ = true;
  // Fails only if the counter is full; the descriptor is readable then.
  eventfd_write(descriptor_, 1);
}

std::chrono::milliseconds Patience::left() const {
  const auto time = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  return std::max(time, std::chrono::milliseconds(0));
}

Patience Patience::atMost(std::chrono::milliseconds time) const {
  return {std::min(deadline, Clock::now() + time), cancellation};
}

Waited waitFor(int descriptor, short events, const Patience& patience) {
  std::array<pollfd, 2> watched{
      {{patience.cancellation.descriptor(), POLLIN, 0}, {descriptor, events, 0}}};
  while (true) {
    const auto left = patience.left().count();
    const int ready = poll(watched.data(), watched.size(), static_cast<int>(left));
    if (patience.cancellation.isCancelled()) return Waited::cancelled;
    if (ready > 0) return Waited::ready;
    if (ready == 0 && left == 0) return Waited::deadline;
    if (ready < 0 && errno != EINTR) return Waited::ready;  // the next call reports it
  }
}

}  // namespace wifi_profile::linux
