// The trace of a run: numbered events, written to a file as they happen and forwarded to listeners.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "diagnostic/platform/Trace.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::cli {

// Writes each event as one JSON object on its own line, with "seq" (from 1), "thread" and "event"
// first. Events from several threads are serialised. Any thread.
class TraceFile final : public Trace {
 public:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  using File = std::unique_ptr<std::FILE, Close>;

  // `queues` must outlive the trace. If `file` is null, events are only forwarded to listeners.
  TraceFile(const WorkQueues& queues, File file) : queues_(queues), file_(std::move(file)) {}

  // Forwards every event from now on to `listener`, in order. The listener must exist until the
  // last event.
  void addListener(Trace& listener) { listeners_.push_back(&listener); }

  void event(std::string_view name, const Fields& fields) override;

  // Returns the `errno` of the first write that failed; 0: no write has failed.
  int firstError() const;

 private:
  const WorkQueues& queues_;
  mutable std::mutex mutex_;  // guards the members below
  File file_;
  int firstError_ = 0;
  std::int64_t sequence_ = 0;
  std::vector<Trace*> listeners_;
};

}  // namespace wifi_profile::cli
