// What several fakes saw, in the one order in which it happened.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace wifi_profile {

class Events {
 public:
  void add(std::string event) { all_.push_back(std::move(event)); }
  const std::vector<std::string>& all() const { return all_; }
  void clear() { all_.clear(); }

 private:
  std::vector<std::string> all_;
};

using EventsRef = std::shared_ptr<Events>;

}  // namespace wifi_profile
