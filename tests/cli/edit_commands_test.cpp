#include "cli_bench.h"
#include "files/settings_file.h"
#include "image/codec.h"

namespace orvane::cli {
namespace {

class EditCommands : public CliBench {
 protected:
  EditCommands() { files.files["boat.dat"] = files::SettingFileText(sample, bench.pump); }

  std::string Get(const std::string& path) {
    EXPECT_EQ(Run({"get", "out.dat", path}), kDone) << err_;
    return out_;
  }
};

TEST_F(EditCommands, SetFollowsTheRulesAndGetShowsTheOutcome) {
  ASSERT_EQ(Run({"set", "boat.dat", "usa/16/name=hailing", "usa/22A/low_power=On",
                 "extra/1/rx_dcs=023I", "-o", "out.dat"}),
            kDone)
      << err_;
  const struct {
    const char* path;
    const char* value;
  } rows[] = {{"USA/16/Name", "HAILING\n"},
              {"usa/22a/tx_power", "1\n"},
              {"extra/1/rx_dcs", "023I\n"},
              {"extra/1/rx_ctcss", "Off\n"}};
  for (const auto& row : rows) EXPECT_EQ(Get(row.path), row.value) << row.path;
  ASSERT_EQ(Run({"get", "out.dat", "usa/16/name", "common/sql"}), kDone);
  EXPECT_TRUE(out_.starts_with("usa/16/name=HAILING\ncommon/sql=")) << out_;
}

TEST_F(EditCommands, ARefusedValueIsNamedByItsPathAndNothingIsWritten) {
  const struct {
    const char* assignment;
    const char* said;
  } rows[] = {
      {"usa/16/name=THIRTEEN_SIGN", "usa/16/name: At most 12 characters fit.\n"},
      {"usa/16/name", "usa/16/name: A value must follow: PATH=VALUE.\n"},
      {"usa/120/name=X", "usa/120/name: There is no such field."},
      {"extra/1/rx_frequency=200", "extra/1/rx_frequency: A KT740 takes 134 to 174 MHz.\n"},
      {"extra/1/rx_frequency=Off", "Please input correct data.\n"},
      {"dsc/user_mmsi=211234567", "dsc/user_mmsi: A KT740 has no such field.\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.assignment);
    EXPECT_EQ(Run({"set", "boat.dat", "common/scan=Off", row.assignment, "-o", "out.dat"}),
              kFailed);
    EXPECT_TRUE(ErrHas(row.said)) << err_;
    EXPECT_FALSE(files.files.contains("out.dat"));
  }
  EXPECT_EQ(Run({"get", "boat.dat", "common/nothing"}), kFailed);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(Run({"set", "boat.dat", "common/scan=Off"}), kWrongUsage);
  EXPECT_EQ(Run({"get", "boat.dat"}), kWrongUsage);
}

}  // namespace
}  // namespace orvane::cli
