#include "document/find.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "core/model_profile.h"
#include "document/in_use.h"
#include "image/sample_radio.h"
#include "support/random_data.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;
using testing::kAfterCutOver;

RadioData Sample(int model = 5) {
  return image::MakeSampleRadio(static_cast<std::int16_t>(model), kAfterCutOver);
}

/// The count, then the best hits with the fields that they lead to.
std::string Found(const RadioData& data, std::string_view typed, std::size_t most) {
  const std::vector<Hit> hits = Find(data, ParseQuery(typed));
  std::string lines = CountText(hits);
  for (std::size_t i = 0; i < std::min(most, hits.size()); ++i) {
    lines += "\n" + TextOf(hits[i]) + " > " + core::PathOf(hits[i].at);
  }
  return lines;
}

struct FindRow {
  const char* typed;
  const char* lines;  ///< as many hits are compared as there are lines
  int model = 5;
  void (*arrange)(RadioData&) = nullptr;
};

const FindRow kRows[] = {
    // Numbers: the channel itself, whatever stands before the number, then those that begin so.
    {"16",
     "7 channels, 4 of them not in use\n"
     "USA 16 DISTRESS 156.800 > usa/16/enable\n"
     "INTL 16 DISTRESS 156.800 > intl/16/enable\n"
     "CANADA 16 DISTRESS 156.800 > canada/16/enable\n"
     "LMR 16 (not in use) > extra/16/enable\n"
     "USA 16A 156.800 (not in use) > usa/16A/enable"},
    {" usa  Ch 22a ", "1 channel\nUSA 22A USCG 157.100 > usa/22A/enable"},
    {"ch6 canada",
     "22 channels, 10 of them not in use\n"
     "CANADA 06 SAFETY 156.300 > canada/06/enable\n"
     "CANADA 60 TELEPHONE 160.625/156.025 > canada/60/enable"},
    {"lmr7", "1 channel\nLMR 7 L007 FERRY 147.0000 > extra/7/enable"},
    {"e12", "1 channel\nEXP 12 E012 SHORE NEWS 162.0000 > extra/12/enable"},
    // The display has some letters small, and names may come so from a file.
    {"no8", "1 channel\nLMR 5 no08 Quay 158.4000 > extra/5/enable", 5,
     [](RadioData& data) {
       data.EXP[5].CHDisplayL = "NO";
       data.EXP[5].CHDisplayR = "08";
       data.EXP[5].ChTag = "Quay";
     }},
    {"quay no0", "1 channel\nLMR 5 no08 Quay 158.4000 > extra/5/enable", 5,
     [](RadioData& data) {
       data.EXP[5].CHDisplayL = "NO";
       data.EXP[5].CHDisplayR = "08";
       data.EXP[5].ChTag = "Quay ";
     }},
    {"wx8", "1 channel\nWeather WX08 WX-8 161.650 > wx/8/enable"},
    {"8 weather", "1 channel\nWeather WX08 WX-8 161.650 > wx/8/enable"},
    // Names: their words begin so, then anything inside.
    {"dock crew", "1 channel\nLMR 2 L002 DOCK CREW 151.7000 > extra/2/enable"},
    {"sh group:exp", "1 channel\nEXP 12 E012 SHORE NEWS 162.0000 > extra/12/enable"},
    {"ew",
     "2 channels\n"
     "LMR 2 L002 DOCK CREW 151.7000 > extra/2/enable\n"
     "EXP 12 E012 SHORE NEWS 162.0000 > extra/12/enable"},
    {"rdi", "1 channel\nLMR 1 L001 ORDINARY 151.6000 > extra/1/enable", 5,
     [](RadioData& data) { data.EXP[1].ChTag = "ORDINARY"; }},
    {"ing",
     "6 channels\n"
     "LMR 4 L004 A-INGOT 154.6500 > extra/4/enable\n"
     "LMR 5 L005 INGOT 158.4000 > extra/5/enable\n"
     "USA 09 CALLING 156.450 > usa/09/enable",
     5,
     [](RadioData& data) {
       data.EXP[4].ChTag = "A-INGOT";
       data.EXP[5].ChTag = "INGOT";
       data.EXP[6].ChTag = "ROWING";
     }},
    // Frequencies: the whole one, then those that begin so.
    {"156,8 usa",
     "8 channels, 4 of them not in use\n"
     "USA 16 DISTRESS 156.800 > usa/16/enable\n"
     "USA 16A 156.800 (not in use) > usa/16A/enable\n"
     "USA 17 SAR 156.850 > usa/17/enable"},
    {"160.9",
     "3 channels\n"
     "LMR 6 L006 REPEATER 160.9000/155.2000 > extra/6/enable\n"
     "INTL 07 INTL 160.950/156.350 > intl/07/enable"},
    {"rx:155.2", "No channel found"},
    {"tx:155.2000", "1 channel\nLMR 6 L006 REPEATER 160.9000/155.2000 > extra/6/tx_enable"},
    {"rx:160.90", "1 channel\nLMR 6 L006 REPEATER 160.9000/155.2000 > extra/6/enable"},
    // Of channel 70, its plan's frequency is none to send on.
    {"tx:156.525", "3 channels, none of them in use", 5, nullptr},
    // Words lead to their fields, but for a channel or a group that is off.
    {"tx:no usa used:yes",
     "2 channels\n"
     "USA 15 COMMERCIAL 156.750 > usa/15/tx_enable\n"
     "USA 70 DSC 156.525 > usa/70/tx_enable"},
    {"power:l intl 1",
     "2 channels\n"
     "INTL 15 COMMERCIAL 156.750 > intl/15/low_power\n"
     "INTL 17 SAR 156.850 > intl/17/low_power"},
    {"up:y usa",
     "2 channels\n"
     "USA 13 BRG/BRG 156.650 > usa/13/power_up\n"
     "USA 67 BRG/BRG 156.375 > usa/67/power_up"},
    {"dup:yes usa 8",
     "5 channels, 2 of them not in use\n"
     "USA 84 TELEPHONE 161.825/157.225 > usa/84/duplex\n"
     "USA 85 TELEPHONE 161.875/157.275 > usa/85/duplex\n"
     "USA 86 TELEPHONE 161.925/157.325 > usa/86/duplex\n"
     "USA 87 161.975/157.375 (not in use) > usa/87/enable"},
    {"scan:on LMR",
     "2 channels\n"
     "LMR 1 L001 HARBOR 151.6000 > extra/1/scan_memory\n"
     "LMR 2 L002 DOCK CREW 151.7000 > extra/2/scan_memory"},
    {"scrambler:2", "1 channel\nLMR 3 L003 TUG 1 154.6000 > extra/3/scramble", 5,
     [](RadioData& data) {
       data.EXP[3].Scramble = 6;
       data.EXP[4].Scramble = 2;  // its code without the switch
     }},
    {"scrambler:yes", "1 channel\nLMR 3 L003 TUG 1 154.6000 > extra/3/scramble", 5,
     [](RadioData& data) { data.EXP[3].Scramble = 4; }},
    {"narrow:off used:yes 7", "1 channel\nLMR 7 L007 FERRY 147.0000 > extra/7/narrow"},
    {"tone:97,4", "1 channel\nLMR 1 L001 HARBOR 151.6000 > extra/1/rx_ctcss"},
    {"tone:71.9hz",
     "2 channels\n"
     "LMR 1 L001 HARBOR 151.6000 > extra/1/rx_ctcss\n"
     "LMR 2 L002 DOCK CREW 151.7000 > extra/2/rx_ctcss"},
    {"tone:no used:yes group:lmr",
     "2 channels\n"
     "LMR 3 L003 TUG 1 154.6000 > extra/3/rx_ctcss\n"
     "LMR 4 L004 TUG 2 154.6500 > extra/4/rx_ctcss",
     5, [](RadioData& data) { data.EXP[7].TxCTCSS = data.EXP[6].RxCTCSS = 1; }},
    {"dcs:032",
     "2 channels\n"
     "LMR 3 L003 TUG 1 154.6000 > extra/3/rx_dcs\n"
     "LMR 4 L004 TUG 2 154.6500 > extra/4/rx_dcs"},
    {"dcs:032i", "1 channel\nLMR 4 L004 TUG 2 154.6500 > extra/4/rx_dcs"},
    {"name:ug dcs:yes scan:no", "2 channels\nLMR 3 L003 TUG 1 154.6000 > extra/3/name"},
    {"distress group:in",
     "1 channel, not in use\n"
     "INTL 16 DISTRESS 156.800 (group not in use) > usable_groups/intl/enable",
     5, [](RadioData& data) { data.Usable[1].Enable = false; }},
    {"l00 used:no",
     "8 channels, none of them in use\n"
     "LMR 1 L001 HARBOR 151.6000 (group not in use) > usable_groups/extra/enable",
     5, [](RadioData& data) { data.LmrPresent() = false; }},
    {"10 marina",
     "1 channel, not in use\n"
     "EXP 10 E010 MARINA 157.5500 (group not in use) > exp_present",
     5, [](RadioData& data) { data.ExpPresent = false; }},
    // Where both headings list the same places, the one on show.
    {"tug", "2 channels\nEXP 3 L003 TUG 1 154.6000 > extra/3/enable", 4,
     [](RadioData& data) {
       data.LmrPresent() = false;
       data.ExpPresent = true;
     }},
    {"tug", "No channel found", 1},  // a model without names
    {"e3", "1 channel\nEXP 3 E003 154.6000 > extra/3/enable", 1},
    {"", "No channel found"},
};

TEST(Find, BestComesFirstAndLeadsToItsField) {
  for (const FindRow& row : kRows) {
    RadioData data = Sample(row.model);
    if (row.arrange != nullptr) row.arrange(data);
    const std::string lines = row.lines;
    const auto hits = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), '\n'));
    EXPECT_EQ(Found(data, row.typed, hits), lines) << row.typed;
  }
}

TEST(Find, SaysWhatItDoesNotUnderstandAndThenFindsNothing) {
  const struct {
    const char* typed;
    const char* advice;
    bool understood;
  } rows[] = {
      {"16 tx:", "\"tx\" takes yes, no or a frequency in MHz: tx:no.", true},
      {"16 Power:x", "\"power\" takes low or high, not \"x\".", false},
      {"scan:o", "\"scan\" takes yes or no, not \"o\".", false},
      {"tone:98", "\"tone\" takes yes, no or a CTCSS tone such as 97.4, not \"98\".", false},
      {"dcs:028", "\"dcs\" takes yes, no or a DCS code such as 023 or 023I, not \"028\".", false},
      {"group:cb", "\"group\" takes usa, intl, canada, lmr, exp or weather, not \"cb\".", false},
      {"rx:1.2.3", "\"rx\" takes a frequency in MHz, not \"1.2.3\".", false},
      {"scrambler:4", "\"scrambler\" takes yes, no or a code 0 to 3, not \"4\".", false},
      {"foo:bar 16 tx:",
       "There is no word \"foo\". The words are group, name, used, rx, tx, power, up, dup, scan, "
       "scrambler, narrow, tone and dcs.",
       false},
      {"16", "", true},
  };
  for (const auto& row : rows) {
    const Query query = ParseQuery(row.typed);
    EXPECT_EQ(query.advice, row.advice) << row.typed;
    EXPECT_EQ(query.understood, row.understood) << row.typed;
    EXPECT_EQ(Find(Sample(), query).empty(), !row.understood) << row.typed;
  }
}

/// What is typed on the way to an example is understood at each letter.
TEST(Find, EveryExampleIsUnderstoodWhileItIsTyped) {
  for (const FindWord& word : FindWords()) {
    for (std::size_t end = 1; end <= word.example.size(); ++end) {
      EXPECT_TRUE(ParseQuery(word.example.substr(0, end)).understood)
          << word.example.substr(0, end);
    }
    EXPECT_EQ(ParseQuery(word.example).terms.front().word, &word);
  }
}

/// Of whatever data: each channel is found by its group and number, once; and the two answers to
/// a word part the channels that have the field.
TEST(Find, EveryChannelIsFoundInEveryModel) {
  testing::RandomData random(11);
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    const RadioData data = random.Of(profile.model_type);
    std::size_t in_use = 0;
    ForEachInUse(data, [&](ChannelPlace, const ChannelRecord&) { ++in_use; });
    for (const ChannelRecord& channel : data.WX) in_use += channel.Enable ? 1 : 0;
    const std::vector<Hit> used = Find(data, ParseQuery("used:yes"));
    const std::vector<Hit> unused = Find(data, ParseQuery("used:no"));
    EXPECT_EQ(used.size(), in_use) << profile.model;
    EXPECT_EQ(used.size() + unused.size(), 3U * 240 + 10 + 40) << profile.model;
    EXPECT_EQ(Find(data, ParseQuery("dup:yes")).size() + Find(data, ParseQuery("dup:no")).size(),
              3U * 240);
    for (const Hit& hit : used) {
      const std::string typed =
          "group:" + hit.group + " " + hit.number.substr(0, hit.number.find(' '));
      const std::vector<Hit> hits = Find(data, ParseQuery(typed));
      ASSERT_FALSE(hits.empty()) << typed;
      EXPECT_EQ(std::count_if(hits.begin(), hits.end(),
                              [&](const Hit& found) { return found.channel == hit.channel; }),
                1)
          << profile.model << ": " << typed;
    }
  }
}

}  // namespace
}  // namespace orvane::document
