#include "host/Journal.h"

#include "controller/ErrorLog.h"
#include "platform/Dictionary.h"
#include "platform/Number.h"
#include "tests/Catalogue.h"

namespace wifi_profile {
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
  if (name == "service.request") {
    noteRequest(fields);
  } else if (name == "service.status") {
    underWay_.reset();
    statusQueryIsLast_ = true;
    const auto code = as<Number>(fieldOf(fields, "error"));
    if (!code || code->toDouble() == 0) joinedNetworkName_ = as<Text>(fieldOf(fields, "ssid"));
  } else if (name == "log") {
    noteLine(textOf(fields, "text"));
  }
}

void Journal::noteRequest(const Fields& fields) {
  const auto id = testNamed(textOf(fields, "test"));
  if (!id) return;
  const auto configuration = as<Dictionary>(fieldOf(fields, "configuration"));
  statusQueryIsLast_ = false;
  underWay_ = Test{sectionOf(catalogueTest(*id), configuration), *id};
  lines_.try_emplace(*underWay_);
}

void Journal::noteLine(const std::string& text) {
  const bool ours = text.starts_with(kErrorPrefix);
  const std::string line = ours ? text.substr(kErrorPrefix.size()) : text;
  if (underWay_) lines_[*underWay_].push_back(line);
  if (statusQueryIsLast_) statusFailure_ = line;
}

std::vector<std::string> Journal::linesOf(Section section, DiagnosticsTestID test) const {
  const std::lock_guard lock(mutex_);
  const auto found = lines_.find({section, test});
  return found == lines_.end() ? std::vector<std::string>() : found->second;
}

bool Journal::wasRequested(Section section, DiagnosticsTestID test) const {
  const std::lock_guard lock(mutex_);
  return lines_.contains({section, test});
}

TextRef Journal::joinedNetworkName() const {
  const std::lock_guard lock(mutex_);
  return joinedNetworkName_;
}

std::string Journal::statusFailure() const {
  const std::lock_guard lock(mutex_);
  return statusFailure_;
}

}  // namespace wifi_profile
