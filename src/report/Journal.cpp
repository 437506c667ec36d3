#include "report/Journal.h"

#include "diagnostic/controller/ErrorLog.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::report {
namespace {

ObjectRef fieldOf(const Trace::Fields& fields, std::string_view key) {
  for (const auto& [name, value] : fields) {
    if (name == key) return value;
  }
  return nullptr;
}

std::string textOf(const Trace::Fields& fields, std::string_view key) {
  const auto text = as<Text>(fieldOf(fields, key));
  return text ? text->string() : std::string();
}

Section sectionOf(const CatalogueTest& test, const DictionaryRef& configuration) {
  if (test.subject == TestSubject::device) return Section::device;
  const bool forSelected = configuration && configuration->objectForKey("NetworkName");
  return forSelected ? Section::selectedNetwork : Section::currentNetwork;
}

}  // namespace

void Journal::event(std::string_view name, const Fields& fields) {
  const std::lock_guard lock(mutex_);
  if (ended_) return;
  if (name == "service.request") {
    noteRequest(fields);
  } else if (name == "service.status") {
    noteStatus(fields);
  } else if (name == "service.cancel") {
    ended_ = true;
  } else if (name == "log") {
    noteLine(textOf(fields, "text"));
  }
}

void Journal::noteRequest(const Fields& fields) {
  const auto id = testNamed(textOf(fields, "test"));
  if (!id) return;
  const CatalogueTest& row = catalogueTest(*id);
  const Test test{sectionOf(row, as<Dictionary>(fieldOf(fields, "configuration"))), *id};
  statusQueryFailed_.erase(std::this_thread::get_id());
  underWay_.insert_or_assign(std::this_thread::get_id(), test);
  lines_.try_emplace(test);
  if (row.subject == TestSubject::device) testsBegan_ = true;
}

void Journal::noteStatus(const Fields& fields) {
  const auto thread = std::this_thread::get_id();
  underWay_.erase(thread);
  statusQueryFailed_.erase(thread);
  const auto code = as<Number>(fieldOf(fields, "error"));
  const bool failed = code && code->toDouble() != 0;
  if (failed) statusQueryFailed_.insert(thread);
  if (!failed && !testsBegan_) statusFailure_.clear();
}

void Journal::noteLine(const std::string& text) {
  const auto thread = std::this_thread::get_id();
  const bool ours = text.starts_with(kErrorPrefix);
  const std::string line = ours ? text.substr(kErrorPrefix.size()) : text;
  if (const auto test = underWay_.find(thread); test != underWay_.end()) {
    TestLines& lines = lines_[test->second];
    (ours ? lines.ofDiagnostic : lines.ofService).push_back(line);
  } else if (statusQueryFailed_.contains(thread) && !testsBegan_) {
    statusFailure_ = line;
  }
}

TestLines Journal::linesOf(Section section, DiagnosticsTestID test) const {
  const std::lock_guard lock(mutex_);
  const auto found = lines_.find({section, test});
  return found == lines_.end() ? TestLines() : found->second;
}

bool Journal::wasRequested(Section section, DiagnosticsTestID test) const {
  const std::lock_guard lock(mutex_);
  return lines_.contains({section, test});
}

std::string Journal::statusFailure() const {
  const std::lock_guard lock(mutex_);
  return statusFailure_;
}

}  // namespace wifi_profile::report
