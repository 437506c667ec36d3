#include "app/window/QtMainQueue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

namespace wifi_profile::window {
namespace {

const QEvent::Type kWorkEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

struct WorkEvent final : QEvent {
  explicit WorkEvent(Work toDo) : QEvent(kWorkEvent), work(std::move(toDo)) {}
  Work work;
};

}  // namespace

class QtMainQueue::Receiver final : public QObject {
 public:
  QEventLoop* loop = nullptr;  // the loop that waits for the next work

  bool event(QEvent* event) override {
    if (event->type() != kWorkEvent) return QObject::event(event);
    auto& work = static_cast<WorkEvent*>(event)->work;
    work();
    work = nullptr;  // releases what the work keeps alive
    if (loop) loop->quit();
    return true;
  }
};

QtMainQueue::QtMainQueue() : receiver_(std::make_unique<Receiver>()) {}

QtMainQueue::~QtMainQueue() = default;

void QtMainQueue::post(Work work) {
  QCoreApplication::postEvent(receiver_.get(), new WorkEvent(std::move(work)));
}

void QtMainQueue::handleNext() {
  QEventLoop loop;
  receiver_->loop = &loop;
  loop.exec();
  receiver_->loop = nullptr;
}

}  // namespace wifi_profile::window
