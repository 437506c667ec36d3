#include "app/cli/TraceFile.h"

#include <cerrno>

#include "app/cli/Files.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile::cli {

void TraceFile::event(std::string_view name, const Fields& fields) {
  const MutexLock lock(mutex_);
  ++sequence_;
  std::string line = "{\"seq\":" + std::to_string(sequence_) + ",\"thread\":\"" +
                     (queues_.onMainThread() ? "main" : "background") +
                     "\",\"event\":" + runtime::jsonString(name);
  for (const auto& [key, value] : fields) {
    line += ',' + runtime::jsonString(key);
    line += ':' + runtime::jsonText(value);
  }
  line += "}\n";
  // Flush each line, so that a reader can follow the run.
  const bool written = std::fwrite(line.data(), 1, line.size(), file_.get()) == line.size();
  if ((!written || std::fflush(file_.get()) != 0) && status_) {
    status_ = systemError("cannot write " + path_, errno);
  }
}

Status TraceFile::status() const {
  const MutexLock lock(mutex_);
  return status_;
}

}  // namespace wifi_profile::cli
