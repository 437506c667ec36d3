#include "devices/linux/probes/OwnNetwork.h"

#include <arpa/inet.h>
#include <cstring>
#include <fcntl.h>
#include <linux/ipv6.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "devices/linux/Descriptor.h"

namespace wifi_profile::linux::probes {
namespace {

bool enterOwnNetwork() {
  const uid_t user = getuid();
  const gid_t group = getgid();
  if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
  writeFile("/proc/self/setgroups", "deny");
  if (!writeFile("/proc/self/uid_map", "0 " + std::to_string(user) + " 1")) return false;
  if (!writeFile("/proc/self/gid_map", "0 " + std::to_string(group) + " 1")) return false;
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP;
  const Descriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  return ioctl(socket.number(), SIOCSIFFLAGS, &request) == 0;
}

}  // namespace

int inOwnNetwork(const std::function<bool()>& test) {
  const pid_t child = fork();
  if (child == 0) _exit(!enterOwnNetwork() ? kNotPossible : test() ? 0 : 1);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool addAddress(const std::string& address) {
  in6_ifreq ofIPv6{};
  if (inet_pton(AF_INET6, address.c_str(), &ofIPv6.ifr6_addr) == 1) {
    const Descriptor socket(::socket(AF_INET6, SOCK_DGRAM, 0));
    ofIPv6.ifr6_prefixlen = 128;
    ofIPv6.ifr6_ifindex = static_cast<int>(if_nametoindex("lo"));
    return ioctl(socket.number(), SIOCSIFADDR, &ofIPv6) == 0;
  }
  ifreq request{};
  std::strcpy(request.ifr_name, "lo:1");
  auto& ofIPv4 = reinterpret_cast<sockaddr_in&>(request.ifr_addr);
  ofIPv4.sin_family = AF_INET;
  if (inet_pton(AF_INET, address.c_str(), &ofIPv4.sin_addr) != 1) return false;
  const Descriptor socket(::socket(AF_INET, SOCK_DGRAM, 0));
  return ioctl(socket.number(), SIOCSIFADDR, &request) == 0;
}

bool writeFile(const char* path, const std::string& text) {
  const Descriptor file(open(path, O_WRONLY | O_CLOEXEC));
  return ::write(file.number(), text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

}  // namespace wifi_profile::linux::probes
