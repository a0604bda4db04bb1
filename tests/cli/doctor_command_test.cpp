#include <nlohmann/json.hpp>

#include "cli_bench.h"

namespace orvane::cli {
namespace {

using Json = nlohmann::ordered_json;

TEST_F(CliBench, DoctorListsPortsAndWhoHasThem) {
  devices.holders = {{"minicom", 12}, {"cat", 13}};
  EXPECT_EQ(Run({"doctor"}), kDone);
  EXPECT_EQ(out_,
            "COM16 Simulated radio /dev/radio: in use by minicom (process 12), cat (process 13)\n");
  EXPECT_EQ(Run({"doctor", "--json"}), kDone);
  const Json port = Json::parse(out_).at("ports").at(0);
  EXPECT_EQ(port.at("number"), 16);
  EXPECT_EQ(port.at("holders").at(1), Json({{"program", "cat"}, {"process", 13}}));
  ports.ports.clear();
  EXPECT_EQ(Run({"doctor"}), kDone);
  EXPECT_EQ(out_, "(not exist)\n");
  EXPECT_TRUE(opened.empty());
}

TEST_F(CliBench, DoctorTestsAPortAndItsStatusIsTheVerdicts) {
  EXPECT_EQ(Run({"doctor", "--port", "16"}), kDone);
  EXPECT_EQ(out_,
            "COM16 Simulated radio: The cable works, and a KT740 answers.\n"
            "It can be read and programmed.\n");
  EXPECT_EQ(Run({"doctor", "--port", "16", "--model", "4"}), kFailed);
  EXPECT_NE(out_.find("it is a KT740 (code 740); the program is set to KT520 (code 520)."),
            std::string::npos)
      << out_;
  devices.holders = {{"ModemManager", 12}};
  EXPECT_EQ(Run({"doctor", "--port", "/dev/radio"}), kFailed);
  EXPECT_TRUE(out_.ends_with("\n  sudo systemctl stop ModemManager\n")) << out_;
  EXPECT_EQ(Run({"doctor", "--port", "16", "--json"}), kFailed);
  const Json test = Json::parse(out_);
  EXPECT_EQ(test.at("port"), "COM16");
  EXPECT_EQ(test.at("verdict"), "modem-manager");
  EXPECT_EQ(test.at("command"), "sudo systemctl stop ModemManager");
}

TEST_F(CliBench, CtrlCEndsTheDoctorsTest) {
  bench.radio.SetFaults(link::FaultPlan({*link::ParseFault("missing-reply@status").fault}));
  bench.radio.SetObserver([this](const link::Exchange& exchange) {
    if (exchange.kind == link::ExchangeKind::kStatus) interrupts.press();
  });
  EXPECT_EQ(Run({"doctor", "--port", "16"}), kFailed);
  EXPECT_NE(out_.find("The test was cancelled."), std::string::npos) << out_;
  EXPECT_FALSE(interrupts.press);
}

}  // namespace
}  // namespace orvane::cli
