#include "screens/window/ReportEntries.h"

#include <QString>
#include <QVariantMap>

namespace wifi_profile {
namespace {

QString joined(const std::vector<std::string>& values) {
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) text += separatorAfter(values[i - 1]);
    text += values[i];
  }
  return QString::fromStdString(text);
}

QVariantMap entryOf(const ReportFinding& finding) {
  return {{"kind", "finding"},
          {"mark", static_cast<int>(finding.mark)},
          {"text", QString::fromStdString(finding.sentence)},
          {"values", joined(finding.values)},
          {"advice", QString::fromStdString(finding.advice)},
          {"explanation", QString::fromStdString(finding.explanation)}};
}

QVariantMap entryOf(const ReportSection& section) {
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

QVariantList entriesOf(const Report& report) {
  QVariantList entries;
  if (report.earlyEnd) entries.push_back(entryOf(*report.earlyEnd));
  for (const ReportSection& section : report.sections) {
    entries.push_back(entryOf(section));
    for (const ReportFinding& finding : section.findings) entries.push_back(entryOf(finding));
  }
  return entries;
}

}  // namespace wifi_profile
