// The main queue on Qt's own event loop.
#pragma once

#include <QObject>
#include <memory>

#include "runtime/MainQueue.h"

namespace wifi_profile {

// There must be a QCoreApplication for as long as work is posted. What Qt delivers on the main
// thread (input, timers, frames) is handled in `handleNext`.
class QtMainQueue final : public MainQueue {
 public:
  QtMainQueue();
  ~QtMainQueue() override;

  void post(Work work) override;
  void handleNext() override;

 private:
  class Receiver;
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace wifi_profile
