// The trace of a run: numbered events, written to a file as they happen.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/Result.h"
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

  // `queues` must outlive the trace. `path` is for messages.
  TraceFile(const WorkQueues& queues, File file, std::string path)
      : queues_(queues), path_(std::move(path)), file_(std::move(file)) {}

  void event(std::string_view name, const Fields& fields) override;

  // Returns the error of the first write that failed.
  Status status() const;

 private:
  const WorkQueues& queues_;
  const std::string path_;
  mutable Mutex mutex_;
  File file_ GUARDED_BY(mutex_);
  Status status_ GUARDED_BY(mutex_);
  std::int64_t sequence_ GUARDED_BY(mutex_) = 0;
};

}  // namespace wifi_profile::cli
