#include <gtest/gtest.h>
#include <string>

#include "diagnostic/platform/Trace.h"

namespace wifi_profile {
namespace {

struct CountingTrace final : Trace {
  std::string events;
  void event(std::string_view name, const Fields& fields) override {
    events += std::string(name) + ":" + std::to_string(fields.size()) + " ";
  }
};

TEST(TraceTest, BuildsFieldsOnlyForAnInstalledTrace) {
  int built = 0;
  const auto fields = [&built] {
    ++built;
    return Trace::Fields{{"a", nullptr}};
  };
  traceEvent("x", fields);
  EXPECT_EQ(built, 0);
  CountingTrace recorder;
  const InstalledPlatform platform({.trace = &recorder});
  traceEvent("x", fields);
  traceEvent("y");
  EXPECT_EQ(built, 1);
  EXPECT_EQ(recorder.events, "x:1 y:0 ");
}

}  // namespace
}  // namespace wifi_profile
