#include "runtime/Interrupts.h"

#include <asio/io_context.hpp>
#include <asio/signal_set.hpp>
#include <csignal>
#include <thread>
#include <utility>

namespace wifi_profile::runtime {
namespace {

bool isIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

struct Interrupts::State {
  explicit State(std::function<void()> toCall) : handler(std::move(toCall)) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      if (!isIgnored(signal)) signals.add(signal);
    }
    wait();
    thread = std::thread([this] { context.run(); });
  }

  void wait() {
    signals.async_wait([this](const asio::error_code& error, int) {
      if (error) return;
      handler();
      wait();
    });
  }

  std::function<void()> handler;
  asio::io_context context;
  asio::signal_set signals{context};
  std::thread thread;
};

Interrupts::Interrupts(std::function<void()> handler)
    : state_(std::make_unique<State>(std::move(handler))) {}

Interrupts::~Interrupts() {
  state_->context.stop();
  state_->thread.join();
}

}  // namespace wifi_profile::runtime
