// The program as people and scripts meet it: what it prints where, and how it exits.

#include <filesystem>

#include "app/cli/ProgramFixture.h"

namespace wifi_profile::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST_F(Program, PrintsTheRecordAloneOnOneLine) {
  const Outcome outcome = run("run --device demo --time virtual");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, StartsWith(R"({"data":{"currentNetwork":{"2GHzChannel":)"));
  EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1);
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Program, PrintsAReportWhenAskedTo) {
  const Outcome outcome = run("run --device demo --time virtual --output text");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("Device"), HasSubstr("Current network"),
                                 HasSubstr("Selected network"), Not(HasSubstr("\x1b"))));
}

TEST_F(Program, ExitsWithTheSizeOfANegativeStatusCode) {
  const std::string joined = R"({"scenario":1,"status":[{"ssid":"Cafe_NoMap"}]})";
  EXPECT_EQ(run(runFile(joined)).status, 7);  // joined and, by default, selected, too
  EXPECT_EQ(run(runFile(joined) + " --network-name Home").status, 6);
}

TEST_F(Program, SendsLogLinesToStandardError) {
  const Outcome outcome = run(runFile(R"({"scenario":1})"));
  EXPECT_THAT(outcome.err, StartsWith("[ERROR] - Wi-Fi Profile: Custom IPv4 failed with error: no "
                                      "answer for CustomIPv4\n"));
  EXPECT_EQ(outcome.out,
            R"({"data":{"currentNetwork":{},"device":{},"selectedNetwork":{}},"statusCode":0})"
            "\n");
}

TEST_F(Program, ShowsNothingOfAHostileTextThatATerminalWouldActOn) {
  const Outcome outcome = run(runFile(
      R"({"scenario":1,"status":[{"ssid":"\u001b[31mred\u202eder\u009b\u0007"}],"answers":
          {"CustomDNS":[{"error":{"code":1,"description":"\u001b]0;title\u0007"}}]}})"));
  const std::string name =
      R"({"scenario":1,"status":[{"ssid":"x"}],"answers":{"AmbiguousNetworkName":[{"info":
          {"NetworkName":"\u001b[31mred\u202e\u009b"}}]}})";
  for (const char* form : {"json", "text"}) {
    const Outcome named = run(runFile(name) + " --output " + form);
    EXPECT_EQ(named.out.find('\x1b'), std::string::npos) << named.out;
    EXPECT_EQ(named.out.find("\xe2\x80\xae"), std::string::npos) << named.out;
    EXPECT_EQ(named.out.find("\xc2\x9b"), std::string::npos) << named.out;
    EXPECT_THAT(named.out, HasSubstr("red"));
  }
  EXPECT_EQ(outcome.err.find('\x1b'), std::string::npos);
  EXPECT_EQ(outcome.err.find('\x07'), std::string::npos);
}

TEST_F(Program, ShowsABadByteOfANameAndDoublesItsBackslash) {
  const Outcome outcome =
      run("run --device demo --time virtual --network-name \"$(printf 'a\\377\\\\b')\" --trace " +
          path("trace"));
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(content("trace"), HasSubstr(R"("NetworkName":"a\\xFF\\\\b")"));
}

TEST_F(Program, WritesTheTraceWhileTheRunGoesOn) {
  run("run --device demo --time virtual --trace " + path("trace"));
  EXPECT_THAT(content("trace"), StartsWith(R"({"seq":1,"thread":"main","event":"host.setup"})"));
}

TEST_F(Program, PostsTheAutomationConfigurationAfterTheSetUpBegan) {
  run(runFile(R"({"scenario":1,"device":{"testAutomation":true}})") + " --trace " + path("trace"));
  EXPECT_THAT(content("trace"),
              HasSubstr(R"({"seq":2,"thread":"main","event":"host.automation","configuration":)"
                        R"({"parameters":{"maxScanCacheAge":60,"reprofileWithUI":false},)"
                        R"("predicates":{},"specifications":{}}})"));
}

TEST_F(Program, SpeaksTheLanguageAskedFor) {
  const auto title = [this](const std::string& arguments, const std::string& before = "") {
    run(runFile(R"({"scenario":1,"device":{"wlanWording":true}})") + arguments + " --trace " +
            path("trace"),
        before);
    const std::string trace = content("trace");
    const auto begin = trace.rfind("\"title\":\"") + 9;
    return trace.substr(begin, trace.find('"', begin) - begin);
  };
  EXPECT_EQ(title(" --language keys"), "WLAN_DIAGNOSTICS");
  EXPECT_EQ(title(" --language de"), "WLAN-Diagnose");
  EXPECT_EQ(title(""), "WLAN Diagnostics");
}

TEST_F(Program, SortsNamesByTheLocaleWhateverTheLanguageOfTheTexts) {
  const auto names = [this](const std::string& environment, const std::string& arguments) {
    run(runFile(R"({"scenario":1,"answers":{"NoScanResults":[{"result":true,"didPass":true,
                    "info":{"ScanResults":[{"ssid":"\u00C5s","bssid":"02:01"},
                                           {"ssid":"Zoo","bssid":"02:02"}]}}]},
                    "user":[{"teardown":true}]})") +
            " --pick --ui none --trace " + path("trace") + arguments,
        "", "env " + environment + " " WIFI_PROFILE_PROGRAM);
    const std::string trace = content("trace");
    const auto begin = trace.find(R"("networks":[)");
    return trace.substr(begin, trace.find(']', begin) - begin);
  };
  const auto isAfter = [](const std::string& one, const std::string& other) {
    return ::testing::Truly([one, other](const std::string& text) {
      return text.find(one) != std::string::npos && text.find(one) > text.find(other);
    });
  };
  EXPECT_THAT(names("LC_ALL=sv_SE.UTF-8", " --language en"), isAfter("\u00C5s", "Zoo"));
  EXPECT_THAT(names("-u LC_ALL LC_COLLATE=sv_SE.UTF-8 LANG=de_DE.UTF-8", ""),
              isAfter("\u00C5s", "Zoo"));
  EXPECT_THAT(names("LC_ALL=C", " --language de"), isAfter("Zoo", "\u00C5s"));
  EXPECT_THAT(names("LC_ALL=de_DE.UTF-8", ""), isAfter("Zoo", "\u00C5s"));
}

TEST_F(Program, TakesParametersAsAHostPassesThem) {
  const std::string parameters =
      file("parameters", R"({"maxScanCacheAge":5,"reprofileWithUI":false,"networkName":"Lab"})");
  run("run --device demo --time virtual --trace " + path("trace") + " --parameters " + parameters);
  EXPECT_THAT(content("trace"),
              HasSubstr(R"("configuration":{"MaxScanCacheAge":5,"NetworkName":"Lab"})"));
}

TEST_F(Program, ReadsParametersFromStandardInput) {
  const int status = std::system(
      ("echo '{\"maxScanCacheAge\":7,\"reprofileWithUI\":false}' | " WIFI_PROFILE_PROGRAM
       " run --device demo --time virtual --parameters - --trace " +
       path("trace") + " >/dev/null")
          .c_str());
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_THAT(content("trace"), HasSubstr(R"("MaxScanCacheAge":7)"));
}

TEST_F(Program, UsesColourAndABarOnATerminalOnly) {
  // What the program writes to a terminal, standard error included.
  const auto onTerminal = [this](const std::string& environment) {
    std::system(("script -qec '" + environment +
                 " " WIFI_PROFILE_PROGRAM " run --device demo --time virtual' '" +
                 path("terminal") + "' >/dev/null 2>&1")
                    .c_str());
    return content("terminal");
  };
  const std::string kGreen = "\x1b[32m";
  EXPECT_THAT(onTerminal("env -u NO_COLOR TERM=xterm"),
              AllOf(HasSubstr(kGreen + "✓"), HasSubstr("[==============================] 100 %"),
                    HasSubstr("Ping WAN")));
  EXPECT_THAT(onTerminal("env NO_COLOR=1 TERM=xterm"),
              AllOf(HasSubstr("✓"), Not(HasSubstr(kGreen)), HasSubstr("Ping WAN")));
  EXPECT_THAT(onTerminal("env -u NO_COLOR TERM=dumb"),
              AllOf(HasSubstr("✓"), Not(HasSubstr("\x1b"))));
  EXPECT_THAT(run("run --device demo --time virtual --output text").out, Not(HasSubstr("\x1b")));
}

TEST_F(Program, RefusesAWrongCommandLine) {
  expectRefusal(run(""), 64, "no command given: use run, scan, tests or explain");
  expectRefusal(run("run --nonsense"), 64, "wifi-profile: unknown argument: --nonsense\n");
  expectRefusal(run("run --device"), 64, "wifi-profile: --device: no value given\n");
  expectRefusal(run("run --device demo --device demo"), 64, "--device: given more than once\n");
  expectRefusal(run("run --time soon"), 64, "found \"soon\", expected real or virtual");
  expectRefusal(run("run --output xml"), 64, "found \"xml\", expected text or json");
  expectRefusal(run("run --device demo --parameters x --network-name y"), 64,
                "--parameters cannot be used with --network-name\n");
  expectRefusal(run("run --device demo --max-scan-cache-age soon"), 64,
                "--max-scan-cache-age: found \"soon\", expected a whole number from 0 to 600");
  expectRefusal(run("run --ui x"), 64, "found \"x\", expected none, terminal or window");
  expectRefusal(run("run --device linux:"), 64, "--device: no interface name after \"linux:\"");
  expectRefusal(run("explain nonsense"), 64, "explain: unknown key \"nonsense\"; ");
}

TEST_F(Program, RefusesAnEmptyNameOnTheCommandLine) {
  for (const char* form : {"--network-name=", "--network-name ''"}) {
    expectRefusal(run("run --device demo --time virtual " + std::string(form)), 64,
                  "--network-name: found an empty name, expected the name of a network");
  }
}

TEST_F(Program, TakesAnEmptyNameOfAHostForAName) {
  std::ofstream(path("parameters"))
      << R"({"maxScanCacheAge": 60, "reprofileWithUI": false, "networkName": ""})";
  const Outcome outcome = run("run --device demo --time virtual --parameters " +
                              path("parameters") + " --trace " + path("trace"));
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(content("trace"), HasSubstr(R"("NetworkName":"")"));
}

TEST_F(Program, TakesANameThatEndsWithAnEqualsSign) {
  EXPECT_EQ(
      run("run --device demo --network-name=Cafe= --time virtual --trace " + path("trace")).status,
      0);
  EXPECT_THAT(content("trace"), HasSubstr(R"("NetworkName":"Cafe=")"));
}

TEST_F(Program, KeepsItsExitStatusWhereNobodyReadsItsMessages) {
  const auto status = [](const std::string& arguments) {
    return WEXITSTATUS(std::system((WIFI_PROFILE_PROGRAM " " + arguments).c_str()));
  };
  for (const char* nowhere : {"2>/dev/full", "2>&-"}) {
    const std::string end = std::string(" >/dev/null ") + nowhere;
    EXPECT_EQ(status("run --device /nonexistent" + end), 65);
    EXPECT_EQ(status("explain nonsense" + end), 64);
    EXPECT_EQ(status("run --nonsense" + end), 64);
    EXPECT_EQ(status("run --device demo --time virtual" + end), 0);
  }
}

TEST_F(Program, KeepsTheTraceCleanWhereAStandardDescriptorIsClosed) {
  const std::string traced =
      WIFI_PROFILE_PROGRAM " run --device demo --time virtual --trace " + path("trace");
  EXPECT_EQ(WEXITSTATUS(std::system((traced + " >&- 2>/dev/null").c_str())), 74);
  EXPECT_THAT(content("trace"), Not(HasSubstr(R"({"data")")));
}

TEST_F(Program, DoesNotOverwriteWhatItReads) {
  expectRefusal(run("run --device - --parameters -"), 64, "cannot both read standard input");
  const std::string scenario = R"({"scenario":1})";
  expectRefusal(run(runFile(scenario) + " --trace " + path("scenario.json")), 64,
                "scenario.json is an input of this run");
  EXPECT_EQ(content("scenario.json"), scenario);
}

TEST_F(Program, KeepsTheTraceOutOfTheRecord) {
  const std::string traced = "run --device demo --time virtual --trace ";
  expectRefusal(run(traced + "/dev/stdout"), 64, "--trace: cannot be standard output");
  expectRefusal(run(traced + path("out")), 64, "--trace: cannot be standard output");
  EXPECT_EQ(WEXITSTATUS(std::system((WIFI_PROFILE_PROGRAM " " + traced + "/dev/stdout 2>" +
                                     path("err") + " | cat >" + path("piped"))
                                        .c_str())),
            0);
  EXPECT_EQ(content("piped"), "");
  EXPECT_THAT(content("err"), HasSubstr("--trace: cannot be standard output"));
  EXPECT_EQ(run(traced + "/dev/null").status, 0);
}

TEST_F(Program, ShowsATraceToItsOwnerOnly) {
  run("run --device demo --time virtual --trace " + path("trace"), "umask 0;");
  EXPECT_EQ(std::filesystem::status(path("trace")).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  const std::string first = content("trace");
  run("run --device demo --time virtual --trace " + path("trace"));
  EXPECT_EQ(content("trace"), first);
}

TEST_F(Program, RefusesParametersThatFailValidation) {
  expectRefusal(run("run --device demo --max-scan-cache-age 601"), 64,
                "--max-scan-cache-age: found the number 601, expected a number from 0 to 600");
  expectRefusal(run("run --device demo --network-name " + std::string(33, 'x')), 64,
                "--network-name: found a text of 33 characters, expected a text of at most 32");
  const auto refuse = [this](const std::string& text, const std::string& piece) {
    expectRefusal(run("run --device demo --parameters " + file("parameters", text)), 64, piece);
  };
  refuse("{}", "at /maxScanCacheAge: found nothing, expected a number from 0 to 600");
  refuse(R"({"maxScanCacheAge":1})", "at /reprofileWithUI: found nothing, expected true or false");
  refuse(R"({"maxScanCacheAge":1,"reprofileWithUI":false,"networkName":null})",
         "at /networkName: found null, expected a text of at most 32 characters");
  refuse("[]", "found a list, expected a JSON object");
  refuse("{\n  \"maxScanCacheAge\": 1,,", ":2:24: found");
  expectRefusal(run("run --device demo --parameters /nonexistent/file"), 64,
                "cannot open /nonexistent/file: No such file or directory");
}

TEST_F(Program, RefusesAScenarioThatCannotBeUsed) {
  expectRefusal(run("run --device /nonexistent/file"), 65,
                "cannot open /nonexistent/file: No such file or directory");
  expectRefusal(run("run --device /"), 65, "cannot read /: Is a directory");
  expectRefusal(run(runFile("{")), 65, "scenario.json:1:2: found the end of the text");
  expectRefusal(run(runFile(R"({"scenario":1,"scenario":1})")), 65, "a second time");
  expectRefusal(run(runFile(R"({"scenario":1,"device":{"power":0}})")), 65,
                "scenario.json: at /device/power: found the number 0, expected true or false");
}

TEST_F(Program, NamesTheStepOfAScriptThatCannotBeDone) {
  const Outcome outcome =
      run(runFile(R"({"scenario":1,"user":[{"tapNext":true,"duringTest":"CustomDNS"}]})"));
  EXPECT_EQ(outcome.status, 65);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err,
              HasSubstr("scenario.json: at /user/0: the navigation bar has no button\n"));
}

TEST_F(Program, RefusesADeviceThatIsNotThere) {
  expectRefusal(run("run"), 69, "--device demo");
  expectRefusal(run("run --device linux:wlan7"), 69, "linux:wlan7");
}

// The names of the libraries that a program needs stand in it as they are.
TEST_F(Program, LoadsOnlyTheLibrariesThatItsCommandNeeds) {
#ifdef WIFI_PROFILE_UNITY_BUILD
  GTEST_SKIP() << "a program that calls one of the files that are compiled as one links them all";
#endif
  // The names of the libraries that a program needs stand in it as they are.
  const auto needs = [](const std::string& program) {
    std::ostringstream bytes;
    bytes << std::ifstream(program, std::ios::binary).rdbuf();
    std::vector<std::string> needed;
    for (const char* const library : {"libcurl.so", "libcares.so", "libsdbus-c++.so", "libnl-3.so",
                                      "libicui18n.so", "libncursesw.so"}) {
      if (bytes.str().find(library) != std::string::npos) needed.emplace_back(library);
    }
    return needed;
  };
  EXPECT_THAT(needs(WIFI_PROFILE_PROGRAM), ElementsAre("libsdbus-c++.so", "libnl-3.so"));
  EXPECT_THAT(needs(WIFI_PROFILE_PROGRAM "-run"), ElementsAre("libicui18n.so", "libncursesw.so"));
  EXPECT_THAT(needs(WIFI_PROFILE_PROGRAM "-run-linux"), SizeIs(6));
}

TEST_F(Program, SaysThatTheProgramOfARunIsMissing) {
  const std::string alone = path("wifi-profile");
  std::filesystem::copy_file(WIFI_PROFILE_PROGRAM, alone);
  expectRefusal(run("run --device demo", "", alone), 64,
                "cannot run wifi-profile-run: it is not in this program's folder");
  EXPECT_EQ(run("scan --device demo", "", alone).status, 0);
}

TEST_F(Program, DrawsNoOtherScreenThanItsOwn) {
  expectRefusal(run("run --device demo --ui window", "", WIFI_PROFILE_PROGRAM "-run"), 64,
                "--ui window: this program cannot draw it; use terminal or none");
}

TEST_F(Program, RefusesInTheProgramOfAScenarioWhatItDoesNotContain) {
  const std::string program = WIFI_PROFILE_PROGRAM "-run";
  expectRefusal(run("run --device linux", "", program), 64, "this program runs scenarios only");
  expectRefusal(run("scan --device demo", "", program), 64, "no command but run");
}

TEST_F(Program, RefusesCombinationsOfOptionsThatHaveNoMeaning) {
  expectRefusal(run("run --device demo --time virtual --ui terminal"), 64,
                "--time virtual cannot be used with a screen; use --ui none");
  expectRefusal(run("run --device linux --time virtual"), 64,
                "--time virtual is for scenarios only");
  expectRefusal(run("run --device demo --site https://example.com/"), 64,
                "--site is for --device linux only");
  expectRefusal(run(runFile(R"({"scenario":1})") + " --pick --ui none"), 64,
                "--pick with --ui none needs a scenario with \"user\"");
}

TEST_F(Program, SaysWhenOutputCannotBeWritten) {
  const Outcome trace = run("run --device demo --time virtual --trace /nonexistent/trace");
  expectRefusal(trace, 74, "cannot open /nonexistent/trace: No such file");
  const Outcome full = run("run --device demo --time virtual --trace /dev/full");
  EXPECT_EQ(full.status, 74);
  EXPECT_THAT(full.out, StartsWith("{\"data\""));  // the record is not lost over it
  const int status =
      std::system(WIFI_PROFILE_PROGRAM " run --device demo --time virtual >/dev/full 2>/dev/null");
  EXPECT_EQ(WEXITSTATUS(status), 74);
  for (const char* command : {"tests", "explain", "scan --device demo", "--version"}) {
    const std::string line =
        std::string(WIFI_PROFILE_PROGRAM " ") + command + " >/dev/full 2>'" + path("err") + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 74) << command;
    EXPECT_THAT(content("err"), StartsWith("wifi-profile: cannot write standard output: No space"));
  }
}

TEST_F(Program, SaysThatAFileMayNotGrow) {
  const Outcome trace =
      run("run --device demo --time virtual --trace " + path("trace"), "ulimit -f 8;");
  EXPECT_EQ(trace.status, 74);
  EXPECT_THAT(trace.err, HasSubstr("trace: File too large"));
  EXPECT_THAT(trace.out, StartsWith("{\"data\""));
  const Outcome record = run("tests --json", "ulimit -f 1;");
  EXPECT_EQ(record.status, 74);
  EXPECT_THAT(record.err, HasSubstr("cannot write standard output: File too large"));
}

TEST_F(Program, PrintsNoRecordOfATornDownRun) {
  const Outcome outcome =
      run(runFile(R"({"scenario":1,"user":[{"teardown":true,"duringTest":"CustomDNS"}]})"));
  EXPECT_EQ(outcome.status, 75);
  EXPECT_EQ(outcome.out, "");
}

TEST_F(Program, EndsAtAnInterruptThroughTheHostsTeardown) {
  const std::string scenario =
      file("scenario.json",
           R"({"scenario":1,"answers":{"CustomDNS":[{"delay":20}],"BTCoex":[{"delay":20}]}})");
  // `exec` so that the signal meets the program itself, once its trace shows the slow test.
  const std::string command = "sh -c 'exec " WIFI_PROFILE_PROGRAM " run --device " +
                              path("scenario.json") + " --trace " + path("trace") + " >" +
                              path("out") + " 2>/dev/null' & pid=$!; until grep -qs CustomDNS " +
                              path("trace") + "; do sleep 0.05; done; kill -TERM $pid; wait $pid";
  ASSERT_NE(scenario, "");
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 130);
  EXPECT_EQ(content("out"), "");
  const std::string trace = content("trace");
  EXPECT_THAT(trace, HasSubstr("Custom DNS failed with error: cancelled"));
  EXPECT_THAT(trace, Not(HasSubstr("Bluetooth Coex failed with error: cancelled")));
  EXPECT_LT(trace.find("host.teardown"), trace.find("host.finished"));
}

TEST_F(Program, PrintsWhatTheReadmeShows) {
  const std::string report = run("run --device demo --time virtual --output text").out;
  std::ifstream readme(WIFI_PROFILE_SOURCE_DIR "/README.md");
  std::string line;
  while (std::getline(readme, line) && line != "    $ wifi-profile run --device demo") continue;
  int compared = 0;
  while (std::getline(readme, line) && (line.empty() || line.starts_with("    "))) {
    if (line.empty() || line.ends_with("…")) continue;
    EXPECT_THAT("\n" + report, HasSubstr("\n" + line.substr(4) + "\n"));
    ++compared;
  }
  EXPECT_GT(compared, 20);
}

TEST_F(Program, AnInterruptEndsAWaitOfTheScriptToo) {
  file("scenario.json", R"({"scenario":1,"user":[{"wait":20,"duringTest":"CustomDNS"}]})");
  const std::string command = "sh -c 'exec " WIFI_PROFILE_PROGRAM " run --device " +
                              path("scenario.json") + " --trace " + path("trace") + " >" +
                              path("out") + " 2>/dev/null' & pid=$!; until grep -qs CustomDNS " +
                              path("trace") + "; do sleep 0.05; done; kill -TERM $pid; wait $pid";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 130);
  EXPECT_EQ(content("out"), "");
}

TEST_F(Program, HelpsWithExamplesForEveryCommand) {
  for (const char* command : {"run", "scan", "tests", "explain"}) {
    const Outcome outcome = run(std::string(command) + " --help");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr(std::string("wifi-profile ") + command));
    EXPECT_THAT(outcome.out, HasSubstr("Examples:"));
  }
  EXPECT_EQ(run("--help").status, 0);
  EXPECT_THAT(run("--version").out, StartsWith("wifi-profile 0."));
}

}  // namespace
}  // namespace wifi_profile::testing
