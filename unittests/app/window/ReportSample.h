// A report to look at.
#pragma once

#include "report/Report.h"

namespace wifi_profile::testing {

// Two sections, every mark, a section that has a note instead of findings, and texts too long for a
// line of a phone. Its entries, counted from 0: the section Device with the findings 1 to 5, the
// section Current network with the findings 7 and 8, and the section Selected network at 9.
inline report::Report sampleReport() {
  report::Report report;
  report.summary = "2 problems, 1 thing worth a look, 1 fine, and a good many words more than fit";
  report.sections.push_back(
      {.title = "Device",
       .note = "",
       .findings = {{.mark = report::ReportMark::problem,
                     .sentence = "The signal is weak where the device stands now, and it has been "
                                 "so for as long as anybody can remember.",
                     .values = {"RSSI -74 dBm", "noise -88 dBm"},
                     .advice = "Go nearer to the access point, or clear what stands between.",
                     .explanation = "What the radio hears.\nMeasured once."},
                    {.mark = report::ReportMark::look,
                     .sentence = "Many networks are remembered.",
                     .values = {"remembered networks 87"},
                     .advice = "Forget those that are no longer used.",
                     .explanation = ""},
                    {.mark = report::ReportMark::plain,
                     .sentence = "Two devices are paired.",
                     .values = {},
                     .advice = "",
                     .explanation = ""},
                    {.mark = report::ReportMark::good,
                     .sentence = "The router answers.",
                     .values = {"pings 10"},
                     .advice = "",
                     .explanation = "A packet there and back."},
                    {.mark = report::ReportMark::unknown,
                     .sentence = "<b>No</b> answer about DNS.",
                     .values = {"timed out"},
                     .advice = "",
                     .explanation = ""}},
       .counts = {1, 1, 1, 1, 1}});
  report.sections.push_back(
      {.title = "Current network: "
                "AVeryLongNameOfANetworkWithoutASingleBlankThatDoesNotFitAPhone",
       .note = "",
       .findings = {{.mark = report::ReportMark::problem,
                     .sentence = "NoBlankInThisSentenceThatIsLongerThanAnyLineOfAPhoneCouldHold!",
                     .values = {},
                     .advice = "",
                     .explanation = ""},
                    {.mark = report::ReportMark::good,
                     .sentence = "The network is protected.",
                     .values = {"WPA2"},
                     .advice = "",
                     .explanation = ""}},
       .counts = {1, 0, 0, 1, 0}});
  report.sections.push_back({.title = "Selected network",
                             .note = "It is the current network: see above.",
                             .findings = {},
                             .counts = {}});
  return report;
}

}  // namespace wifi_profile::testing
