#include "app/cli/LastResort.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <unistd.h>

#include "app/cli/ExitStatus.h"

namespace wifi_profile::cli {
namespace {

// Does not allocate: memory may be exhausted.
[[noreturn]] void sayAndEnd(const char* reason) {
  std::array<char, 512> sentence{};
  const int length = std::snprintf(
      sentence.data(), sentence.size(),
      "wifi-profile: out of resources: %.300s; close other programs or raise the limits (ulimit)\n",
      reason);
  if (length > 0) {
    [[maybe_unused]] const ssize_t ignored =
        write(STDERR_FILENO, sentence.data(), static_cast<std::size_t>(length));
  }
  std::_Exit(kExitSystem);
}

[[noreturn]] void endWithoutHandler() {
  const std::exception_ptr thrown = std::current_exception();
  if (!thrown) std::abort();
  try {
    std::rethrow_exception(thrown);
  } catch (const std::bad_alloc&) {
    sayAndEnd("no memory");
  } catch (const std::exception& exception) {
    sayAndEnd(exception.what());
  } catch (...) {
    std::abort();
  }
}

}  // namespace

void installLastResort() { std::set_terminate(endWithoutHandler); }

}  // namespace wifi_profile::cli
