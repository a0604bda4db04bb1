#include "files/table_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text.h"
#include "document/compare.h"
#include "image/sample_radio.h"
#include "support/random_data.h"

namespace orvane::files {
namespace {

using core::RadioData;
using testing::kAfterCutOver;
using testing::NewData;
using testing::RandomData;
using Verdict = ImportPlan::Verdict;

RadioData Sample(int model = 5) {
  return image::MakeSampleRadio(static_cast<std::int16_t>(model), kAfterCutOver);
}

ImportPlan Plan(std::string_view text, std::string_view table, const RadioData& data) {
  return PlanImport(text, *FindTextTable(table), data, kAfterCutOver);
}

/// The plan as a reader sees it: "2 16 changes: CH Name: DISTRESS > HELP".
std::string Told(const ImportPlan& plan) {
  static constexpr const char* kWords[] = {"same", "changes", "refused"};
  std::string told = plan.unreadable;
  const auto cells = [&](const std::vector<ImportPlan::Cell>& list) {
    for (const ImportPlan::Cell& cell : list) {
      told += " " + std::string(core::FieldOf(cell.at).label) + ": " + cell.before + " > " +
              cell.after + (cell.refusal.empty() ? "" : " (" + cell.refusal + ")");
    }
  };
  for (const ImportPlan::Line& line : plan.lines) {
    told += std::to_string(line.number) + " " + line.entry + " " +
            kWords[static_cast<int>(line.verdict)] + ":" + line.refusal;
    cells(line.cells);
    told += "\n";
  }
  for (const ImportPlan::UnusedColumn& column : plan.unused) {
    told += "unused " + column.heading + ": " + column.reason + "\n";
  }
  if (!plan.elsewhere.empty()) told += "elsewhere:";
  cells(plan.elsewhere);
  return told;
}

/// The sample radio of a model that has the table.
RadioData SampleWith(std::string_view table) {
  return Sample(table == "stations" ? 3 : 5);
}

constexpr TableSeparator kSeparators[] = {TableSeparator::kComma, TableSeparator::kSemicolon,
                                          TableSeparator::kTab};

/// Texts of any bytes, and such as a spreadsheet would spoil.
void WriteWildTexts(RadioData& data, RandomData& random) {
  const std::string starts[] = {"=1+2",      "'=x", "''",  "'-", "\"",
                                "021100001", "5-6", "1E5", " ",  ""};
  for (int i = 0; i < 300; ++i) {
    const core::FieldRef at = random.AnyField();
    if (core::TableOf(at).kind == core::TableKind::kMemory) continue;
    if (!std::holds_alternative<std::string>(core::Get(data, at))) continue;
    std::string text = starts[random.Below(static_cast<int>(std::size(starts)))];
    for (int n = random.Below(5); n > 0; --n) text += static_cast<char>(random.Below(256));
    core::Set(data, at, text);
  }
}

class TablesOf : public ::testing::TestWithParam<int> {};

TEST_P(TablesOf, AnyDataComeBackAsTheyAre) {
  RandomData random(static_cast<unsigned>(GetParam()));
  for (int round = 0; round < 3; ++round) {
    RadioData data = round == 0 ? Sample(GetParam()) : random.Of(GetParam());
    if (round == 2) WriteWildTexts(data, random);
    const core::ModelProfile& profile = core::ProfileOf(data);
    ASSERT_GT(TextTables(profile).size(), 7U);
    for (const std::uint8_t table : TextTables(profile)) {
      SCOPED_TRACE(core::Catalogue()[table].id);
      for (const TableSeparator separator : kSeparators) {
        const std::string text = TableText(data, table, separator);
        const ImportPlan plan = PlanImport(text, table, data, kAfterCutOver);
        ASSERT_EQ(plan.unreadable, "");
        ASSERT_EQ(plan.Count(Verdict::kSame), core::Catalogue()[table].count) << Told(plan);
        ASSERT_EQ(plan.lines.size(), static_cast<std::size_t>(core::Catalogue()[table].count));
        ASSERT_TRUE(plan.unused.empty()) << Told(plan);
        ASSERT_TRUE(plan.changes.empty());
        ASSERT_EQ(TablesFor(text, profile), std::vector<std::uint8_t>{table});
      }
    }
  }
}

// What a radio in use holds is taken whole; of wild data a line is taken whole or refused.
TEST_P(TablesOf, WhatIsTakenIsEqualAndTheRestIsRefused) {
  RandomData random(static_cast<unsigned>(GetParam()));
  for (const bool wild : {false, true}) {
    const RadioData theirs = wild ? random.Of(GetParam()) : Sample(GetParam());
    const RadioData ours = wild ? random.Of(GetParam()) : NewData(GetParam());
    for (const std::uint8_t table : TextTables(core::ProfileOf(ours))) {
      const core::Table& described = core::Catalogue()[table];
      SCOPED_TRACE(described.id);
      const ImportPlan plan = PlanImport(TableText(theirs, table), table, ours, kAfterCutOver);
      EXPECT_TRUE(wild || plan.Count(Verdict::kRefused) == 0) << Told(plan);
      RadioData data = ours;
      core::Apply(data, plan.changes);
      std::vector<bool> differs(static_cast<std::size_t>(described.count));
      for (const document::Difference& row : document::Compare(data, theirs).rows) {
        // Names are kept in capitals.
        const bool same = core::EqualsIgnoringCase(row.ours, row.theirs);
        if (row.at.table == table && !row.IsMemory() && !same) differs[row.at.entry] = true;
      }
      ASSERT_EQ(plan.lines.size(), differs.size());
      for (std::size_t entry = 0; entry < differs.size(); ++entry) {
        const ImportPlan::Line& line = plan.lines[entry];
        ASSERT_TRUE(!differs[entry] || line.verdict == Verdict::kRefused) << Told(plan);
        ASSERT_TRUE(line.verdict != Verdict::kRefused || !line.refusal.empty() ||
                    (!line.cells.empty() && !line.cells.front().refusal.empty()));
      }
    }
  }
}

TEST_P(TablesOf, HaveAColumnForEachFieldOfTheModelUnderAHeadingOfItsOwn) {
  const RadioData data = NewData(GetParam());
  for (const std::uint8_t table : TextTables(core::ProfileOf(data))) {
    const core::Table& described = core::Catalogue()[table];
    std::vector<std::string> headings = {std::string(described.label)};
    for (const core::Field& field : described.fields) {
      if (core::HasField(core::ProfileOf(data), described, field))
        headings.emplace_back(field.label);
    }
    std::string line;
    for (const std::string& heading : headings) line += (line.empty() ? "" : "\t") + heading;
    EXPECT_TRUE(TableText(data, table, TableSeparator::kTab).starts_with(line + "\r\n")) << line;
    std::sort(headings.begin(), headings.end());
    EXPECT_EQ(std::adjacent_find(headings.begin(), headings.end()), headings.end()) << line;
  }
}

INSTANTIATE_TEST_SUITE_P(Models, TablesOf, ::testing::Range(0, 7));

TEST(TableText, KeepsSpreadsheetsFromReadingFormulasNumbersAndDates) {
  RadioData data = NewData(3);
  const struct {
    const char* name;
    const char* cell;
  } rows[] = {{"=A1", "'=A1"},   {"@X", "'@X"},     {"-", "'-"},        {"'+1", "''+1"},
              {"'N B", "'N B"},  {"007", "'007"},   {"5-6", "'5-6"},    {"1E5", "'1E5"},
              {"1.50", "'1.50"}, {"42", "42"},      {"156.8", "156.8"}, {"12:30", "'12:30"},
              {"2ND", "2ND"},    {"a,b", "\"a,b\""}};
  int station = 0;
  for (const auto& row : rows) data.Stations[++station].TagName = row.name;
  const std::string text = TableText(data, *FindTextTable("stations"));
  for (const auto& row : rows) {
    EXPECT_NE(text.find("," + std::string(row.cell) + ","), std::string::npos) << row.cell;
  }
  EXPECT_TRUE(text.starts_with("Station,"));
  data.Stations[1].TagName = "K\xD6LN";
  EXPECT_TRUE(TableText(data, *FindTextTable("stations")).starts_with("\xEF\xBB\xBFStation,"));
}

TEST(PlanImport, UnderstandsWhatSpreadsheetsAndPeopleWrite) {
  const struct {
    const char* what;
    const char* table;
    std::string text;
    const char* told;
  } rows[] = {
      {"by name, in any order, with the rest left alone", "usa",
       "Channel,CH Name\n22A,COAST GUARD\n16,DISTRESS\n",
       "2 22A changes: CH Name: USCG > COAST GUARD\n3 16 same:\n"},
      {"small letters, ids for headings, blanks around them", "usa", "x, NAME \r\n 22a ,pan\r\n",
       "2 22A changes: CH Name: USCG > PAN\n"},
      {"a mark, semicolons, a decimal comma", "extra", "\xEF\xBB\xBFn;RX Frequency\n1;157,1\n",
       "2 1 changes: Rx Frequency: 151.6 > 157.1\n"},
      {"tabs and quotes", "usa", "n\tCH Name\n16\t\"A\"\n",
       "2 16 changes: CH Name: DISTRESS > A\n"},
      {"zeros that a spreadsheet dropped", "usa", "n,CH Name\n6,SAR\n",
       "2 06 changes: CH Name: SAFTY > SAR\n"},
      {"UTF-16", "usa",
       std::string("\xFF\xFEn\0,\0N\0a\0m\0e\0\n\0", 16) + std::string("1\0006\0,\0B\0", 8),
       "2 16 changes: CH Name: DISTRESS > B\n"},
      {"Windows-1252 without a mark", "stations", "n,Name\n1,K\xF6ln\n",
       "2 1 changes: Name: SEA BREEZE > K\xC3\xB6ln\n"},
      {"one entry needs no name", "common", "\"\",SQL\n,7\n",
       "2 Common Setup changes: SQL: 5 > 7\n"},
      {"empty lines and cells beyond the headings", "usa", "n,CH Name\n,\n\n16,DISTRESS,,\n",
       "4 16 same:\n"},
      {"a line in quotes counts as two", "usa", "n,CH Name\n\"1\n6\",A\n16,C\n",
       "2 1\n6 refused:There is no such entry in USA.\n4 16 changes: CH Name: DISTRESS > C\n"},
      {"what follows is told with the line", "usa", "n,Low Power Only\n16,On\n",
       "2 16 changes: Power Code: 3 > 1 Low Power Only: Off > On\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(Told(Plan(row.text, row.table, SampleWith(row.table))), row.told);
  }
}

TEST(PlanImport, RefusesALineWithItsReasonAndTakesTheOthers) {
  const struct {
    const char* what;
    const char* table;
    std::string text;
    const char* told;
  } rows[] = {
      {"no such entry", "usa", "n,CH Name\n161,A\n",
       "2 161 refused:There is no such entry in USA.\n"},
      {"twice", "usa", "n,CH Name\n16,A\n07A,COMMERCIAL\n16,B\n",
       "2 16 changes: CH Name: DISTRESS > A\n3 07A same:\n"
       "4 16 refused:Line 2 is for the same entry.\n"},
      {"too few cells", "usa", "n,CH Name\n16\n",
       "2 16 refused:It has 1 cells, the headings have 2.\n"},
      {"too many", "usa", "n,CH Name\n16,A,B\n",
       "2 16 refused:It has 3 cells, the headings have 2.\n"},
      {"one bad cell refuses its line, not the next one", "usa",
       "n,CH Enable,CH Name\n16,perhaps,A\n67,On,B\n",
       "2 16 refused: CH Enable: On > perhaps (It must be On or Off.)\n"
       "3 67 changes: CH Name: BRG/BRG > B\n"},
      {"a number too great for its field", "common", "n,SQL\n,65539\n",
       "2 Common Setup refused: SQL: 5 > 65539 (It goes from 0 to 15.)\n"},
      {"a character without a place", "stations", "n,Name\n1,\xD0\x96\n",
       "2 1 refused: Name: SEA BREEZE > \xD0\x96 (It has a character that a radio cannot "
       "store.)\n"},
      {"a line break", "stations", "n,Name\n1,\"A\nB\"\n",
       "2 1 refused: Name: SEA BREEZE > A\nB (It has a line break or the like in it.)\n"},
      {"a comma for a point where it parts cells", "extra", "n,Rx Frequency\n1,\"157,1\"\n",
       "2 1 refused: Rx Frequency: 151.6 > 157,1 (It must be a frequency in MHz, or Off.)\n"},
      {"a channel that the radio could not use", "extra", "n,CH Enable\n30,On\n",
       "2 30 refused:The channel is in use, but it has no Rx Frequency, and CH Display has fewer "
       "than 2 characters on the left.\n"},
      {"cells that exclude each other", "extra", "n,RX CTCSS,RX DCS\n2,88.5Hz,023N\n",
       "2 2 refused: RX CTCSS: 71.9Hz > 88.5Hz (It does not go together with the other fields.)\n"},
      {"headings", "usa", "n,Colour,CH Name,RX DCS,name\n16,red,A,Off,C\n",
       "2 16 changes: CH Name: DISTRESS > A\nunused Colour: No field of USA has that name.\n"
       "unused RX DCS: A KT740 has no such field.\n"
       "unused name: The heading stands there twice; the first column counts.\n"},
      {"what follows from other data", "usa", "n,Receive Only,CH Name\n16,On,A\n15,Off,B\n",
       "2 16 changes: CH Name: DISTRESS > A\n3 15 changes: CH Name: COMMERCIAL > B\n"
       "unused Receive Only: It follows from other data and is not set: line 2 says otherwise.\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(Told(Plan(row.text, row.table, SampleWith(row.table))), row.told);
  }
}

// A group keeps one channel: which one may change, whatever the order of the lines.
TEST(PlanImport, LinesThatGoOnlyTogetherAreTakenOrRefusedTogether) {
  RadioData data = Sample();
  for (core::ChannelRecord& channel : data.Marine[1]) channel.Enable = false;
  data.Marine[1][32].Enable = true;  // channel 16
  EXPECT_EQ(Told(Plan("n,CH Enable\n16,Off\n06,On\n", "intl", data)),
            "2 16 changes: CH Enable: On > Off\n3 06 changes: CH Enable: Off > On\n");
  const ImportPlan plan = Plan("n,CH Enable,Power Code\n16,Off,3\n06,On,9\n", "intl", data);
  EXPECT_EQ(plan.Count(Verdict::kRefused), 2) << Told(plan);
  EXPECT_TRUE(plan.changes.empty());
}

TEST(PlanImport, TellsWhatFollowsInOtherTables) {
  RadioData data = Sample();
  data.ExpPresent = false;
  for (core::ChannelRecord& channel : data.EXP) {
    channel.Enable = channel.USA_Group = channel.INT_Group = channel.CAN_Group = false;
  }
  data.EXP[7].SetLmr(false);
  data.EXP[7].CAN_Group = true;
  EXPECT_EQ(Told(Plan("EXP CH,In Use\n,On\n", "exp_present", data)),
            "2 EXP CH changes: In Use: Off > On\nelsewhere: CH Enable: Off > On");
}

TEST(PlanImport, WhatIsNoTableIsUnreadableWithThePlace) {
  const struct {
    std::string text;
    const char* unreadable;
  } rows[] = {
      {"", "The file is empty."},
      {"\xEF\xBB\xBF", "The file is empty."},
      {"n,CH Name\n16,\"A\n", "line 2: A cell that begins with a quotation mark has no end."},
      {std::string("n\0,\0N\0", 6), "line 1: This is no text: there are zero bytes in it."},
      {"CH Name\n16\n", "line 1: There is one column only."},
      {"n,CH Name\n" +
           [] {
             std::string lines;
             for (int i = 0; i < 3000; ++i) lines += "16,A\n";
             return lines;
           }(),
       "line 2401: No table of this program has so many lines."},
      {"n,CH Name\n16," + std::string(1100000, 'A'), "The file is longer than 1 MB."},
  };
  for (const auto& row : rows) {
    const ImportPlan plan = Plan(row.text, "usa", Sample());
    EXPECT_TRUE(plan.unreadable.starts_with(row.unreadable)) << plan.unreadable;
    EXPECT_TRUE(plan.lines.empty() && plan.changes.empty());
    EXPECT_TRUE(TablesFor(row.text, core::ProfileOf(5)).empty());
  }
}

TEST(TablesFor, GoesByTheNameThenByHeadingsAndEntries) {
  const struct {
    const char* text;
    std::vector<std::string_view> tables;
    std::int16_t model = 5;
  } rows[] = {
      {"usa,x\n", {"usa"}},
      {"CANADA,CH Name\n16,A\n", {"canada"}},
      {"n,CH Name\n22A,A\n", {"usa", "intl", "canada"}},
      {"n,CH Name,RX DCS\n7,A,Off\n", {"extra"}},
      {"n,Name,MMSI\n30,A,1\n30,B,2\n", {"stations"}, 3},
      {"n,Name,MMSI\n1,A,1\n", {"stations", "station_groups"}, 3},
      {"DSC,User MMSI\n,1\n", {"dsc"}, 3},
      {"DSC,User MMSI\n,1\n", {}},
      {"n,Colour\n16,red\n", {}},
  };
  for (const auto& row : rows) {
    std::vector<std::string_view> ids;
    for (const std::uint8_t table : TablesFor(row.text, core::ProfileOf(row.model))) {
      ids.push_back(core::Catalogue()[table].id);
    }
    EXPECT_EQ(ids, row.tables) << row.text;
  }
}

}  // namespace
}  // namespace orvane::files
