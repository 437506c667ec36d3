#include "host/Program.h"

int main(int argc, char** argv) {
  using namespace wifi_profile;
  return runProgram(argc, argv, Ui::terminal,
                    []() -> std::variant<std::shared_ptr<PersonScreen>, std::string> {
                      return "found terminal, expected none";
                    });
}
