// The trace of a run: numbered events, written to a file as they happen.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "diagnostic/platform/Mutex.h"
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

  // `queues` must outlive the trace.
  TraceFile(const WorkQueues& queues, File file) : queues_(queues), file_(std::move(file)) {}

  void event(std::string_view name, const Fields& fields) override;

  // Returns the `errno` of the first write that failed; 0: no write has failed.
  int firstError() const;

 private:
  const WorkQueues& queues_;
  mutable Mutex mutex_;
  File file_ GUARDED_BY(mutex_);
  int firstError_ GUARDED_BY(mutex_) = 0;
  std::int64_t sequence_ GUARDED_BY(mutex_) = 0;
};

}  // namespace wifi_profile::cli
