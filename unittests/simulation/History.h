// What happened in a run, for a person to read, and the first thing that should not have.
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::simulation {

inline std::string quoted(const TextRef& text) {
  return text ? "\"" + text->string() + "\"" : "none";
}

// Any thread. A history that is not kept remembers violations only.
class History {
 public:
  // `when` is written in front of each line: the time and the thread.
  History(bool kept, std::function<std::string()> when) : kept_(kept), when_(std::move(when)) {}
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  template <class Compose>
  void note(Compose compose) {
    if (kept_) add(compose());
  }

  // Notes the violation; the first one is the run's.
  void violated(std::string what) {
    if (kept_) add("VIOLATED: " + what);
    const std::lock_guard lock(mutex_);
    if (!violation_) violation_ = std::move(what);
  }
  template <class Compose>
  void require(bool holds, Compose compose) {
    if (!holds) violated(compose());
  }

  // When the run is over.
  const std::optional<std::string>& violation() const { return violation_; }
  const std::vector<std::string>& lines() const { return lines_; }

 private:
  void add(const std::string& text) {
    std::string line = when_() + text;
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(line));
  }

  const bool kept_;
  const std::function<std::string()> when_;
  std::mutex mutex_;  // guards what follows
  std::vector<std::string> lines_;
  std::optional<std::string> violation_;
};

}  // namespace wifi_profile::simulation
