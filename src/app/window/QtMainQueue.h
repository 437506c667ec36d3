// The main queue on Qt's event loop.
#pragma once

#include <QObject>
#include <memory>

#include "runtime/MainQueue.h"

namespace wifi_profile::window {

// A QCoreApplication must exist while work is posted. `handleNext` also handles the events that Qt
// delivers on the main thread (input, timers, frames).
class QtMainQueue final : public runtime::MainQueue {
 public:
  QtMainQueue();
  ~QtMainQueue() override;

  void post(Work work) override;
  void handleNext() override;

 private:
  class Receiver;
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace wifi_profile::window
