// The trace of a run: numbered events, written as they happen and told to who listens.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Trace.h"
#include "platform/WorkQueues.h"

namespace wifi_profile {

// Writes every event as one JSON object on a line of its own, with "seq" (from 1), "thread" and
// "event" first. Events from several threads are written one after another. Any thread.
class TraceFile final : public Trace {
 public:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  using File = std::unique_ptr<std::FILE, Close>;

  // `queues` must outlive the trace. `file` may be null: then events are only told to listeners.
  TraceFile(const WorkQueues& queues, File file) : queues_(queues), file_(std::move(file)) {}

  // `listener` is told of every event from now on, in order, and must outlive the trace.
  void addListener(Trace& listener) { listeners_.push_back(&listener); }

  void event(std::string_view name, const Fields& fields) override;

  // The `errno` of the first write that failed; 0: every event reached the file.
  int firstError() const;

 private:
  const WorkQueues& queues_;
  mutable std::mutex mutex_;  // guards what follows
  File file_;
  int firstError_ = 0;
  std::int64_t sequence_ = 0;
  std::vector<Trace*> listeners_;
};

}  // namespace wifi_profile
