// The files of texts, embedded when the library was built.
#pragma once

#include <string_view>
#include <vector>

namespace wifi_profile::runtime {

// The content of runtime/strings/<language>.txt: UTF-8; lines `KEY = text`, comment lines that
// begin with `#`, and empty lines. A test checks the files for this form.
struct StringFile {
  std::string_view language;  // ISO 639-1
  std::string_view content;
};

// Any thread.
const std::vector<StringFile>& stringFiles();

}  // namespace wifi_profile::runtime
