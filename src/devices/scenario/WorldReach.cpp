#include "devices/scenario/WorldParts.h"
#include "devices/scenario/WorldValues.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

template <>
facts::Pings readFact(const ValueReader& value) {
  constexpr int kMostPings = 10'000;
  constexpr double kLongestAnswer = 1e9;  // ms
  facts::Pings pings;
  value.object([&](FieldsReader& fields) {
    fields.require("target", [&](const ValueReader& field) { pings.target = field.text(); });
    takeFlag(fields, "byConnecting", pings.byConnecting);
    fields.require("sent", [&](const ValueReader& field) {
      pings.sent = static_cast<int>(field.integer(0, kMostPings));
    });
    fields.require("answers", [&](const ValueReader& field) {
      field.list([&](const ValueReader& answer) {
        pings.answers.push_back(
            std::chrono::duration<double, std::milli>(answer.number(0, kLongestAnswer)));
      });
      if (pings.answers.size() > static_cast<std::size_t>(pings.sent)) {
        field.fail(std::to_string(pings.answers.size()) + " answers", "no more than were sent");
      }
    });
    fields.require("started", [&](const ValueReader& field) { pings.started = field.date(); });
    takeFlag(fields, "isNeighbour", pings.isNeighbour);
  });
  return pings;
}

template <>
facts::NameResolution readFact(const ValueReader& value) {
  facts::NameResolution resolution;
  value.object([&](FieldsReader& fields) {
    takeText(fields, "name", resolution.name);
    fields.require("resolved",
                   [&](const ValueReader& field) { resolution.resolved = field.boolean(); });
    takeText(fields, "problem", resolution.problem);
  });
  return resolution;
}

template <>
facts::PortalProbe readFact(const ValueReader& value) {
  using enum facts::PortalProbe::Answer;
  static constexpr std::pair<std::string_view, facts::PortalProbe::Answer> kChoices[]{
      {"open", open}, {"portal", portal}, {"noAnswer", noAnswer}};
  facts::PortalProbe probe;
  value.object([&](FieldsReader& fields) {
    fields.require("answer",
                   [&](const ValueReader& field) { probe.answer = readChoice(field, kChoices); });
    takeText(fields, "detail", probe.detail);
  });
  return probe;
}

template <>
facts::SiteReach readFact(const ValueReader& value) {
  facts::SiteReach reach;
  value.object([&](FieldsReader& fields) {
    fields.require("reached", [&](const ValueReader& field) { reach.reached = field.boolean(); });
    takeText(fields, "problem", reach.problem);
  });
  return reach;
}

template <>
facts::SitePage readFact(const ValueReader& value) {
  facts::SitePage page;
  value.object([&](FieldsReader& fields) {
    fields.require("retrieved",
                   [&](const ValueReader& field) { page.retrieved = field.boolean(); });
    takeText(fields, "problem", page.problem);
  });
  return page;
}

template <>
facts::RouterOutside readFact(const ValueReader& value) {
  facts::RouterOutside outside;
  value.object([&](FieldsReader& fields) {
    fields.take("address", [&](const ValueReader& field) { outside.address = readIpv4(field); });
    fields.take("secondHop",
                [&](const ValueReader& field) { outside.secondHop = readIpv4(field); });
  });
  return outside;
}

}  // namespace wifi_profile::scenario
