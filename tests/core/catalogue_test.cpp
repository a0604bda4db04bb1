#include "core/catalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "core/text.h"
#include "support/random_data.h"

namespace orvane::core {
namespace {

using testing::NewData;
using testing::RandomData;

// The first and the last entry of every table, with each of their fields.
std::vector<FieldRef> EdgesOfEveryField() {
  std::vector<FieldRef> refs;
  FieldRef at;
  for (const Table& table : Catalogue()) {
    for (const int entry : std::set<int>{0, table.count - 1}) {
      at.entry = static_cast<std::uint16_t>(entry);
      for (at.field = 0; at.field < table.fields.size(); ++at.field) refs.push_back(at);
    }
    ++at.table;
  }
  return refs;
}

TEST(Catalogue, EveryRowReadsAndWritesOneMemberOfItsOwn) {
  RandomData random(1);
  for (const FieldRef at : EdgesOfEveryField()) {
    SCOPED_TRACE(PathOf(at));
    const RadioData before = NewData(0);
    RadioData after = before;
    Value value = Get(before, at);
    while (value == Get(before, at)) value = random.ValueFor(at);
    Set(after, at, value);
    EXPECT_EQ(Differences(before, after), (std::vector<Change>{{at, Get(before, at), value}}));
  }
}

TEST(Catalogue, DifferencesLeadFromOneDataSetToTheOtherAndBack) {
  for (int model = 0; model <= 6; ++model) {
    SCOPED_TRACE(model);
    RandomData random(static_cast<unsigned>(model));
    const RadioData one = random.Of(model);
    const RadioData other = random.Of((model + 1) % 7);
    const std::vector<Change> changes = Differences(one, other);
    RadioData walked = one;
    Apply(walked, changes);
    EXPECT_TRUE(walked == other);
    EXPECT_TRUE(Differences(walked, other).empty());
    Revert(walked, changes);
    EXPECT_TRUE(walked == one);
  }
}

TEST(Catalogue, PathsNameOneFieldEach) {
  std::set<std::string> paths;
  for (const FieldRef at : EdgesOfEveryField()) {
    const std::string path = PathOf(at);
    EXPECT_TRUE(paths.insert(path).second) << path;
    EXPECT_EQ(RefOf(path), at) << path;
    EXPECT_EQ(RefOf(UpperCase(path)), at) << path;
  }
}

TEST(Catalogue, PathsAndNamesReadAsAUserWouldSayThem) {
  const struct {
    std::string path;
    std::string name;
  } rows[] = {
      {"usa/22A/name", "USA 22A CH Name"},
      {"canada/119A/tx_power", "CANADA 119A Power Code"},
      {"extra/40/rx_frequency", "EXP/LMR 40 Rx Frequency"},
      {"wx/1/enable", "Weather 1 CH Enable"},
      {"common/scan", "Common Setup SCAN"},
      {"usable_groups/intl/tx_tot", "Available CH Group intl TX TOT"},
      {"exp_present", "EXP CH In Use"},
      {"dsc/all_ships_call/urgency/hi", "DSC All Ships Call Urgency Power"},
      {"station_groups/10/mmsi", "Station Group 10 MMSI"},
      {"image/0210", "Memory 0210 Bytes"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path);
    const std::optional<FieldRef> at = RefOf(row.path);
    ASSERT_TRUE(at);
    EXPECT_EQ(NameOf(*at), row.name);
  }
  for (const char* wrong : {"", "usa", "usa/120/name", "usa/22A", "usa/22A/name/x", "extra/41/kind",
                            "extra/0/kind", "common//scan", "image/0211"}) {
    EXPECT_FALSE(RefOf(wrong)) << wrong;
  }
}

TEST(Catalogue, WhatIsShownReadsBackAsTheSameValue) {
  RandomData random(7);
  for (const FieldRef at : EdgesOfEveryField()) {
    const Notation& notation = *FieldOf(at).notation;
    for (int i = 0; i < 20; ++i) {
      const Value value = random.ValueFor(at);
      const std::string text = notation.show(value);
      EXPECT_EQ(notation.parse(text), value) << PathOf(at) << " " << text;
    }
  }
}

TEST(Catalogue, ValuesAreTypedAsTheyAreShown) {
  const struct {
    std::string path;
    std::string typed;
    std::optional<Value> value;
    std::string shown;
  } rows[] = {
      {"common/scan", "on", true, "On"},
      {"common/scan", "0", false, "Off"},
      {"common/scan", "2", std::nullopt, ""},
      {"common/tx_po_display", "last tx po", 2, "Last TX Po"},
      {"common/resume_time", "Off", 0, "Off"},
      {"common/offset_time", "-3:00", 9, "-3:00"},
      {"common/weather_alert", "#2", 2, "#2"},
      {"common/sql", "15", 15, "15"},
      {"common/sql", "15.5", std::nullopt, ""},
      {"extra/1/rx_frequency", "156.0125", 156.0125, "156.0125"},
      {"extra/1/rx_frequency", "off", 0.0, "Off"},
      {"extra/1/rx_frequency", "156,5", std::nullopt, ""},
      {"extra/1/rx_ctcss", "127.3hz", 20, "127.3Hz"},
      {"extra/1/tx_dcs", "025i", 106, "025I"},
      {"extra/1/tx_dcs", "025", std::nullopt, ""},
      {"extra/1/kind", "LMR", -1, "LMR"},
      {"extra/1/scramble", "0", 4, "0"},
      {"extra/1/scramble", "Off 3", 3, "Off 3"},
      {"usable_groups/usa/priority_ch", "22a", 45, "22A"},
      {"usable_groups/usa/priority_ch", "EXP/LMR 7", 246, "EXP/LMR 7"},
      {"usable_groups/usa/priority_ch", "Off", -1, "Off"},
      {"dsc/pos_send/hi", "Low", false, "Low"},
      {"image/0000", "00FF", std::string("\0\xFF", 2), "00FF"},
      {"image/0000", "0FF", std::nullopt, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path + " " + row.typed);
    const Notation& notation = *FieldOf(RefOf(row.path).value()).notation;
    EXPECT_EQ(notation.parse(row.typed), row.value);
    if (row.value) {
      EXPECT_EQ(notation.show(*row.value), row.shown);
    }
  }
}

TEST(Catalogue, RefusalsNameTheLimit) {
  const struct {
    int model;
    std::string path;
    Value value;
    std::string refusal;  ///< "": taken
  } rows[] = {
      {5, "extra/2/rx_frequency", 134.0, ""},
      {2, "extra/2/rx_frequency", 134.0, "A KT510 takes 137 to 174 MHz."},
      {0, "extra/2/tx_frequency", 156.0125, "A RB6100S takes 137 to 174 MHz in steps of 25 kHz."},
      {0, "extra/2/tx_frequency", 156.025, ""},
      {4, "extra/2/tx_frequency", 174.0001, "A KT520 takes 134 to 174 MHz."},
      {4, "extra/2/tx_frequency", 0.0, ""},
      {5, "usa/16/tx_power", 4, "It goes from 0 to 3."},
      {5, "common/tx_po_display", -1, "It goes from Lo Po Only to Last TX Po."},
      {5, "usa/16/name", std::string("HAILING PORT"), ""},
      {5, "usa/16/name", std::string("HAILING PORTS"), "At most 12 characters fit."},
      {5, "usa/16/name", std::string("Hailing"),
       "A channel name has capital letters, digits, blanks and - / , _ . only."},
      {5, "extra/2/display_left", std::string("M8"), ""},
      {5, "extra/2/display_left", std::string("8M"),
       "The display shows two of 0-9, A-J, L, N-U and Y; M and K in the first place only."},
      {5, "extra/2/display_right", std::string("M8"),
       "The display shows two of 0-9, A-J, L, N-U and Y."},
      {0, "dsc/user_mmsi", std::string("21123456X"), "Digits only."},
      {0, "call_signs/3/mid", std::string("2112"), "At most 3 characters fit."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.path);
    const ModelProfile& profile = ProfileOf(static_cast<std::int16_t>(row.model));
    EXPECT_EQ(RefusalOf(profile, RefOf(row.path).value(), row.value), row.refusal);
  }
}

TEST(Catalogue, FieldsExistWhereTheModelHasThem) {
  const struct {
    std::string path;
    std::string models;  ///< that have it
  } rows[] = {
      {"usa/16/name", "023456"},       {"wx/1/name", "023456"},
      {"usa/16/duplex", "0123456"},    {"wx/1/duplex", ""},
      {"usa/16/rx_frequency", ""},     {"extra/1/rx_frequency", "0123456"},
      {"dsc/user_mmsi", "03"},         {"call_signs/1/mid", "0"},
      {"common/offset_time", "03"},    {"common/rotary_beep", "0"},
      {"stations/1/mmsi", "03"},       {"usable_groups/usa/status_name", "023456"},
      {"atis/killer_group/intl", "0"}, {"wx/1/tx_enable", ""},
  };
  for (const auto& row : rows) {
    const FieldRef at = RefOf(row.path).value();
    std::string models;
    for (const ModelProfile& profile : ModelProfiles()) {
      if (HasField(profile, TableOf(at), FieldOf(at))) models += std::to_string(profile.model_type);
    }
    EXPECT_EQ(models, row.models) << row.path;
  }
}

}  // namespace
}  // namespace orvane::core
