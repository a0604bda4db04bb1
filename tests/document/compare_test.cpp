#include "document/compare.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/field_ref.h"
#include "image/sample_radio.h"
#include "support/random_data.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;
using testing::kAfterCutOver;
using testing::NewData;

RadioData Sample(int model = 5) {
  return image::MakeSampleRadio(static_cast<std::int16_t>(model), kAfterCutOver);
}

std::string Lines(const Comparison& comparison) {
  std::string lines;
  for (const Difference& row : comparison.rows) {
    lines += row.name + ": " + row.ours + " | " + row.theirs + "\n";
  }
  return lines;
}

TEST(Compare, EachChangedFieldIsARowOfItsOwnAndNothingElse) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    SCOPED_TRACE(profile.model);
    const RadioData ours = Sample(profile.model_type);
    EXPECT_TRUE(Compare(ours, ours).AreEqual());
    testing::RandomData random(7);
    for (int i = 0; i < 400; ++i) {
      const core::FieldRef at = random.AnyField();
      const core::Table& table = core::TableOf(at);
      if (table.kind == core::TableKind::kMemory) continue;
      RadioData theirs = ours;
      core::Set(theirs, at, random.ValueFor(at));
      const core::Field& field = core::FieldOf(at);
      const bool shown = !field.derived && core::HasField(profile, table, field) &&
                         core::Get(ours, at) != core::Get(theirs, at);
      const Comparison comparison = Compare(ours, theirs);
      ASSERT_EQ(comparison.rows.size(), shown ? 1U : 0U) << core::PathOf(at);
      if (!shown) continue;
      EXPECT_EQ(comparison.rows[0].at, at);
      EXPECT_EQ(comparison.rows[0].name, core::NameOf(at));
      EXPECT_EQ(comparison.rows[0].ours, field.notation->show(core::Get(ours, at)));
      EXPECT_EQ(comparison.rows[0].theirs, field.notation->show(core::Get(theirs, at)));
    }
  }
}

TEST(Compare, MemoryWithoutAFieldIsNamedByTheLayoutAndWhatRecordsTellIsLeftOut) {
  const struct {
    int model, offset, value;
    const char* lines;
  } rows[] = {
      {5, 100, 18, "USA 3 stored channel: empty | 65298\n"},
      {5, 168, 0xDB, "SEL1: 1 | 0\n"},
      {5, 515, 'X', "text 1: \"Radio...........\" | \"RadXo...........\"\n"},
      {5, 0x2FE, 0x12, "table 6: "},
      {5, 769, 3, "USA 00 second flag byte: 255 | 3\n"},
      {5, 0x1F80 + 0x1FF0, 7, "Memory 3F70: FF | 07\n"},
      {5, 92, 0x0F, "Memory 005C: 00 | 0F\n"},
      {5, 505, 0xF0, "Memory 01F9 bits 3..0: 15 | 0\n"},
      {0, 505, 0xF0, ""},  // the killer groups, which the records tell
      {5, 95, 1, ""},      // the checksum
      {5, 90, 0, ""},      // the radio's own
      {5, 3072, 'Q', ""},  // a name
      {5, 768, 0xC1, ""},  // the bit that is always written 0
      {1, 0x2000, 1, ""},  // beyond the last byte of that model
      {5, 0x3FF2, 3, ""},  // the product
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.offset);
    const RadioData ours = Sample(row.model);
    RadioData theirs = ours;
    testing::SetBytes(theirs.Image, row.offset, {row.value});
    ASSERT_NE(ours.Image[row.offset], theirs.Image[row.offset]);
    const Comparison comparison = Compare(ours, theirs);
    EXPECT_TRUE(Lines(comparison).starts_with(row.lines)) << Lines(comparison);
    EXPECT_EQ(comparison.rows.size(), *row.lines == '\0' ? 0U : 1U);
    RadioData taken = ours;
    EXPECT_TRUE(TakeOver(taken, theirs, comparison.rows, kAfterCutOver).empty());
    EXPECT_EQ(taken.Image == theirs.Image, !comparison.rows.empty());
  }
}

TEST(Compare, TheListOfAllFieldsHoldsTheDifferencesAndEachOtherFieldOnce) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    SCOPED_TRACE(profile.model);
    const RadioData ours = Sample(profile.model_type);
    testing::RandomData random(3);
    RadioData theirs = ours;
    random.Scatter(theirs, 500);
    std::vector<core::FieldRef> expected;
    for (const core::Change& change : core::Differences(ours, theirs)) {
      const core::Field& field = core::FieldOf(change.at);
      const bool shown = !field.derived && core::HasField(profile, core::TableOf(change.at), field);
      if (shown) expected.push_back(change.at);
    }
    ASSERT_GT(expected.size(), 50U);
    const std::vector<ComparedField> all = CompareFields(ours, theirs, Listed::kAll);
    std::vector<core::FieldRef> differing;
    for (const ComparedField& each : all) {
      if (each.differs) differing.push_back(each.at);
    }
    EXPECT_EQ(differing, expected);
    const auto fields_of_16 = std::count_if(all.begin(), all.end(), [](const ComparedField& each) {
      return core::PathOf(each.at).starts_with("usa/16/");
    });
    EXPECT_EQ(fields_of_16, profile.has_channel_names ? 10 : 8);
    EXPECT_EQ(all.size(), CompareFields(ours, ours, Listed::kAll).size());
    EXPECT_TRUE(CompareFields(ours, ours, Listed::kDifferences).empty());
  }
}

TEST(Compare, DataSetsOfDifferentModelsAreNotCompared) {
  const Comparison comparison = Compare(NewData(5), NewData(4));
  EXPECT_TRUE(comparison.different_models);
  EXPECT_FALSE(comparison.AreEqual());
  EXPECT_TRUE(comparison.rows.empty());
}

TEST(Compare, ARadioHoldsWhatIsLeftOfTheDataAfterProgramming) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    SCOPED_TRACE(profile.model);
    const RadioData data = NewData(profile.model_type);
    RadioData radio = data;
    image::EncodeAll(radio, kAfterCutOver);
    image::ConsistencyPass(radio);
    image::DecodeAll(radio);
    EXPECT_FALSE(Compare(data, radio).AreEqual()) << "power code 0 takes Tx Enable along";
    EXPECT_TRUE(Compare(*AfterProgramming(data, kAfterCutOver), radio).AreEqual());
    radio.Marine[0][32].Enable = false;
    EXPECT_EQ(Lines(Compare(*AfterProgramming(data, kAfterCutOver), radio)),
              "USA 16 CH Enable: On | Off\n");
  }
}

TEST(TakeOver, OfEverythingLeavesOnlyWhatIsRefused) {
  for (int seed = 0; seed < 14; ++seed) {
    SCOPED_TRACE(seed);
    testing::RandomData random(static_cast<unsigned>(seed));
    // Wild data are refused in many places, radios in use in none.
    const int model = seed % 7;
    const RadioData theirs = seed < 7 ? random.Of(model) : Sample(model);
    RadioData data = seed < 7 ? random.Of(model) : NewData(model);
    const Comparison before = Compare(data, theirs);
    ASSERT_GT(before.rows.size(), seed < 7 ? 500U : 100U);
    const std::vector<TakeOverRefusal> refusals =
        TakeOver(data, theirs, before.rows, kAfterCutOver);
    EXPECT_LT(refusals.size(), seed < 7 ? before.rows.size() : 1);
    const Comparison after = Compare(data, theirs);
    ASSERT_EQ(after.rows.size(), refusals.size()) << Lines(after).substr(0, 2000);
    for (const TakeOverRefusal& refusal : refusals) {
      EXPECT_FALSE(refusal.reason.empty()) << refusal.name;
      EXPECT_TRUE(std::any_of(after.rows.begin(), after.rows.end(), [&](const Difference& row) {
        return row.at == refusal.at && !row.IsMemory();
      })) << refusal.name;
    }
  }
}

struct TakeOverRow {
  const char* what;
  void (*ours)(RadioData&);
  void (*theirs)(RadioData&);
  std::vector<const char*> chosen;  ///< names, in this order
  const char* left;                 ///< the comparison afterwards
  const char* refusals;
};

TEST(TakeOver, GoesByTheRulesAndTouchesNothingThatWasEqual) {
  const TakeOverRow rows[] = {
      {"a power code that both have stays, though enabling chooses one",
       [](RadioData& data) {
         data.Marine[0][32].Enable = false;
         data.Marine[0][32].TXPower = 2;
       },
       [](RadioData& data) { data.Marine[0][32].TXPower = 2; },
       {"USA 16 CH Enable"},
       "",
       ""},
      {"a tone switches off the code that was not chosen",
       [](RadioData& data) { data.EXP[1].TxDCS = 7; },
       [](RadioData& data) {
         data.EXP[1].TxCTCSS = 9;
         data.EXP[1].TxDCS = 8;
       },
       {"EXP/LMR 1 TX CTCSS"},
       "EXP/LMR 1 TX DCS: Off | 047N\n",
       ""},
      {"the last channel of a group goes off once the other one is on",
       [](RadioData& data) {
         for (ChannelRecord& channel : data.Marine[1]) channel.Enable = false;
         data.Marine[1][18].Enable = true;
       },
       [](RadioData& data) {
         for (ChannelRecord& channel : data.Marine[1]) channel.Enable = false;
         data.Marine[1][32].Enable = true;
       },
       {"INTL 09 CH Enable", "INTL 16 CH Enable"},
       "",
       ""},
      {"the law is stronger than the other radio",
       [](RadioData&) {},
       [](RadioData& data) { data.EXP[1].Narrow = false; },
       {"EXP/LMR 1 Narrow"},
       "EXP/LMR 1 Narrow: On | Off\n",
       "EXP/LMR 1 Narrow: LMR channels from 150 to 174 MHz are narrow, by rule of the FCC.\n"},
      {"a name comes in capitals",
       [](RadioData&) {},
       [](RadioData& data) { data.Marine[2][32].ChTag = "hailing"; },
       {"CANADA 16 CH Name"},
       "CANADA 16 CH Name: HAILING | hailing\n",
       "CANADA 16 CH Name: It is kept in capitals.\n"},
      {"what is not chosen stays",
       [](RadioData&) {},
       [](RadioData& data) {
         data.Common.SQL = 9;
         data.Common.Dual_Watch = !data.Common.Dual_Watch;
       },
       {"Common Setup Dual Watch"},
       "Common Setup SQL: 5 | 9\n",
       ""},
  };
  for (const TakeOverRow& row : rows) {
    SCOPED_TRACE(row.what);
    RadioData data = Sample();
    RadioData theirs = data;
    row.ours(data);
    row.theirs(theirs);
    std::vector<Difference> chosen;
    for (const Difference& each : Compare(data, theirs).rows) {
      if (std::count(row.chosen.begin(), row.chosen.end(), each.name) > 0) chosen.push_back(each);
    }
    ASSERT_EQ(chosen.size(), row.chosen.size());
    std::string refused;
    for (const TakeOverRefusal& each : TakeOver(data, theirs, chosen, kAfterCutOver)) {
      refused += each.name + ": " + each.reason + "\n";
    }
    EXPECT_EQ(refused, row.refusals);
    EXPECT_EQ(Lines(Compare(data, theirs)), row.left);
  }
}

}  // namespace
}  // namespace orvane::document
