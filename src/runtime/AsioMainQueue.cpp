#include "runtime/AsioMainQueue.h"

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>

namespace wifi_profile::runtime {

struct AsioMainQueue::State {
  asio::io_context context;
  asio::executor_work_guard<asio::io_context::executor_type> keep = asio::make_work_guard(context);
};

AsioMainQueue::AsioMainQueue() : state_(std::make_unique<State>()) {}

AsioMainQueue::~AsioMainQueue() = default;

void AsioMainQueue::post(Work work) { asio::post(state_->context, std::move(work)); }

void AsioMainQueue::handleNext() { state_->context.run_one(); }

asio::io_context& AsioMainQueue::context() { return state_->context; }

}  // namespace wifi_profile::runtime
