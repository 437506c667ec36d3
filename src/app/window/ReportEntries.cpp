#include "app/window/ReportEntries.h"

#include <QString>
#include <QVariantMap>

namespace wifi_profile::window {
namespace {

QString joined(const std::vector<std::string>& values) {
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) text += report::separatorAfter(values[i - 1]);
    text += values[i];
  }
  return QString::fromStdString(text);
}

QVariantMap entryOf(const report::ReportFinding& finding) {
  return {{"kind", "finding"},
          {"mark", static_cast<int>(finding.mark)},
          {"text", QString::fromStdString(finding.sentence)},
          {"values", joined(finding.values)},
          {"advice", QString::fromStdString(finding.advice)},
          {"explanation", QString::fromStdString(finding.explanation)}};
}

QVariantMap entryOf(const report::ReportSection& section) {
  QVariantList counts;
  for (std::size_t mark = 0; mark < section.counts.size(); ++mark) {
    if (section.counts[mark] == 0) continue;
    counts.push_back(QVariantMap{{"mark", static_cast<int>(mark)},
                                 {"count", static_cast<qulonglong>(section.counts[mark])}});
  }
  return {{"kind", "section"},
          {"text", QString::fromStdString(section.title)},
          {"note", QString::fromStdString(section.note)},
          {"counts", counts}};
}

}  // namespace

QVariantList entriesOf(const report::Report& report) {
  QVariantList entries;
  if (report.earlyEnd) entries.push_back(entryOf(*report.earlyEnd));
  for (const report::ReportSection& section : report.sections) {
    entries.push_back(entryOf(section));
    for (const report::ReportFinding& finding : section.findings)
      entries.push_back(entryOf(finding));
  }
  return entries;
}

}  // namespace wifi_profile::window
