#include "files/partly_written.h"

#include <gtest/gtest.h>

#include "support/fakes.h"
#include "support/full_data.h"

namespace orvane::files {
namespace {

class Marks : public ::testing::Test {
 protected:
  [[nodiscard]] static core::RadioData Named(const char* name, std::int16_t model = 5) {
    core::RadioData data = testing::FullData(model);
    data.Marine[0][32].ChTag = name;
    return data;
  }
  void Begin(const core::RadioData& sent, const core::RadioData* before,
             const std::string& port = "COM3") {
    ASSERT_FALSE(marks.Begin(port, {.made = "2026-11-04 14:02:12", .port = port + " Adapter"}, sent,
                             before));
  }
  [[nodiscard]] std::string BeforeName() const {
    const Snapshot before = marks.Before(marks.At("COM3").value());
    return before.data ? before.data->Marine[0][32].ChTag : "nothing";
  }

  testing::MemoryFiles files;
  PartlyWrittenMarks marks{files, "/state/partly"};
};

TEST_F(Marks, StandFromTheFirstByteUntilTheyAreSettled) {
  EXPECT_FALSE(marks.At("COM3"));
  const core::RadioData old = Named("OLD");
  Begin(Named("NEW"), &old);
  Begin(Named("OTHER"), nullptr, "/dev/ttyUSB0");
  const std::vector<PartlyWritten> all = marks.All();
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].Text(),
            "The radio on /dev/ttyUSB0 was left partly written on 4 November at "
            "14:02.");
  EXPECT_FALSE(all[0].has_before);
  EXPECT_EQ(all[1].port, "COM3");
  EXPECT_EQ(all[1].began.model_type, 5);
  EXPECT_EQ(*marks.Sent(all[1]).data, Named("NEW"));
  EXPECT_EQ(*marks.Before(all[1]).data, old);
  marks.Settle("COM3");
  EXPECT_FALSE(marks.At("COM3"));
  EXPECT_EQ(files.files.size(), 1U) << "the other port's";
}

// What a broken run leaves is a mixture: no later copy of it is what was there before.
TEST_F(Marks, KeepWhatWasThereBeforeTheFirstBrokenRun) {
  const core::RadioData old = Named("OLD");
  const core::RadioData mixture = Named("MIXED");
  Begin(Named("NEW"), &old);
  Begin(Named("NEWER"), &mixture);
  EXPECT_EQ(BeforeName(), "OLD");
  EXPECT_EQ(marks.Sent(*marks.At("COM3")).data->Marine[0][32].ChTag, "NEWER");
  Begin(Named("NEW"), nullptr);
  EXPECT_EQ(BeforeName(), "OLD");
  // A radio of another model at the port is another radio.
  const core::RadioData other = Named("SECOND", 3);
  Begin(Named("NEW", 3), &other);
  EXPECT_EQ(BeforeName(), "SECOND");
  Begin(Named("NEW", 0), nullptr);
  EXPECT_EQ(BeforeName(), "nothing");
  Begin(Named("NEWER", 0), &mixture);
  EXPECT_EQ(BeforeName(), "nothing");
  // And after it was settled, nothing of the earlier run comes back.
  Begin(Named("NEW"), &old);
  marks.Settle("COM3");
  Begin(Named("LATER"), nullptr);
  EXPECT_FALSE(marks.At("COM3")->has_before);
}

TEST_F(Marks, StandEvenWhenTheyCannotBeRead) {
  files.files["/state/partly/COM7.partly_written.orvsnap"] = "damaged";
  ASSERT_EQ(marks.All().size(), 1U);
  EXPECT_EQ(marks.All()[0].Text(), "The radio on COM7 was left partly written.");
  EXPECT_EQ(marks.Sent(marks.All()[0]).data, nullptr);
}

}  // namespace
}  // namespace orvane::files
