#include <nlohmann/json.hpp>

#include "cli_bench.h"
#include "files/settings_file.h"
#include "files/snapshot.h"

namespace orvane::cli {
namespace {

class InspectCommands : public CliBench {
 protected:
  void Keep(const std::string& path, const core::RadioData& data) {
    files.files[path] = path.ends_with(".dat") ? files::SettingFileText(data, bench.pump)
                        : path.ends_with(".hex")
                            ? std::string(data.Image.Used().begin(), data.Image.Used().end())
                            : files::SnapshotText(data, {"2026-11-25 10:00:00", "saved"});
  }
};

TEST_F(InspectCommands, CheckNamesWhatIsWrongAndFailsForMoreThanNotes) {
  Keep("good.hex", sample);
  EXPECT_EQ(Run({"check", "good.hex"}), kDone) << out_;
  EXPECT_EQ(out_, "");
  sample.Marine[0][32].ChTag = "hailing";
  Keep("note.orvsnap", sample);
  EXPECT_EQ(Run({"check", "note.orvsnap"}), kDone);
  EXPECT_EQ(out_, "note: usa/16/name: Programming changes it from \"hailing\" to \"HAILING\".\n");
  sample.Common.SQL = 99;
  sample.Marine[2][32].TxEnable = false;
  Keep("bad.orvsnap", sample);
  EXPECT_EQ(Run({"check", "bad.orvsnap"}), kFailed);
  EXPECT_TRUE(
      out_.starts_with("error: common/sql: The model does not take \"99\". It goes from 0 "
                       "to 15.\nnote: usa/16/name: "))
      << out_;
  EXPECT_EQ(Run({"check", "bad.orvsnap", "--json"}), kFailed);
  const auto list = nlohmann::json::parse(out_);
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[2]["severity"], "warning");
  EXPECT_EQ(list[2]["path"], "canada/16/tx_enable");
  EXPECT_EQ(list[2]["name"], "CANADA 16 Tx Enable");
  EXPECT_EQ(list[2]["remedy"], "Let it transmit");
  EXPECT_EQ(Run({"check", "missing.hex"}), kFailed);
  EXPECT_FALSE(err_.empty());
}

TEST_F(InspectCommands, DiffTellsEqualFromDifferentFromTrouble) {
  Keep("a.hex", sample);
  Keep("a.dat", sample);
  Keep("a.orvsnap", sample);
  for (const char* other : {"a.hex", "a.dat", "a.orvsnap"}) {
    EXPECT_EQ(Run({"diff", "a.hex", other}), kDone) << other << out_;
    EXPECT_EQ(out_, "");
  }
  sample.Marine[0][32].ChTag = "SALUT \xC9";
  sample.Image[100] = 7;
  Keep("b.orvsnap", sample);
  EXPECT_EQ(Run({"diff", "a.hex", "b.orvsnap"}), kDifferent);
  EXPECT_EQ(out_,
            "usa/16/name: DISTRESS | SALUT \xC3\x89\n"
            "image/0060 USA 3 stored channel: empty | 65287\n");
  EXPECT_EQ(Run({"diff", "a.hex", "b.orvsnap", "--json"}), kDifferent);
  const auto tree = nlohmann::json::parse(out_);
  EXPECT_EQ(tree["equal"], false);
  EXPECT_EQ(tree["differences"][0]["name"], "USA 16 CH Name");
  EXPECT_EQ(tree["differences"][0]["a"], "DISTRESS");
  EXPECT_EQ(tree["differences"][1]["b"], "65287");

  Keep("other.dat", image::MakeSampleRadio(0, bench.clock.Today()));
  EXPECT_EQ(Run({"diff", "a.dat", "other.dat"}), kDifferent);
  EXPECT_EQ(out_, "different models: KT740 | RB6100S\n");
  EXPECT_EQ(Run({"diff", "a.dat", "missing.dat"}), kTrouble);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(Run({"diff", "missing.hex", "a.dat", "--json"}), kTrouble);
  EXPECT_EQ(out_, "");
}

}  // namespace
}  // namespace orvane::cli
