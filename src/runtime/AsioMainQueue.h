// A main queue that also waits for file descriptors and signals.
#pragma once

#include <memory>

#include "runtime/MainQueue.h"

namespace asio {
class io_context;
}

namespace wifi_profile::runtime {

class AsioMainQueue final : public MainQueue {
 public:
  AsioMainQueue();
  ~AsioMainQueue() override;

  void post(Work work) override;
  void handleNext() override;

  // Handlers of operations on this context run on the main thread, in `handleNext`.
  asio::io_context& context();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace wifi_profile::runtime
