#include "document/document.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/field_ref.h"
#include "document/edits.h"
#include "support/random_data.h"

namespace orvane::document {
namespace {

using core::RadioData;
using testing::kAfterCutOver;
using testing::NewData;
using testing::RandomData;

std::unique_ptr<Contents> Fresh(int model = 5) {
  return std::make_unique<Contents>(Contents{.data = NewData(model)});
}

std::string& Name(RadioData& data) {
  return data.Marine[0][32].ChTag;
}

void Rename(Document& document, std::string name,
            Document::Manner manner = Document::Manner::kChoice) {
  const RadioData& data = document.Data();
  document.Edit(
      core::RefTo<&core::ChannelRecord::ChTag>(data, data.Marine[0][32]),
      [&](RadioData& edited) { Name(edited) = std::move(name); }, manner);
}
constexpr Document::Manner kTyped = Document::Manner::kTyping;

// One edit by a rule, by a field of its own, or by several of them.
void AnyEdit(Document& document, RandomData& random) {
  using Kind = ChannelPlace::Kind;
  document.Edit("", [&](RadioData& data) {
    const auto kind = static_cast<Kind>(random.Below(5));
    const ChannelPlace place{kind,
                             kind <= Kind::kCanada ? random.Below(240) : 1 + random.Below(40)};
    const bool on = random.Below(2) == 1;
    switch (random.Below(7)) {
      case 0:
        static_cast<void>(EnableChannel(data, place, on, kAfterCutOver));
        break;
      case 1:
        SetTransmit(data, place, on, !on);
        break;
      case 2:
        SetCtcss(data, place, on ? Way::kReceive : Way::kTransmit, random.Below(51));
        break;
      case 3:
        SwitchGroup(data, static_cast<std::size_t>(random.Below(4)), on);
        break;
      case 4:
        SwitchExp(data, on);
        break;
      case 5:
        SetFrequency(data, place, Way::kTransmit, 150 + random.Below(20), kAfterCutOver);
        break;
      default:
        random.Scatter(data, 1 + random.Below(5));
    }
  });
}

class RandomWalk : public ::testing::TestWithParam<int> {};

// Every data set met on the way is remembered; the history must come back to each of them.
TEST_P(RandomWalk, UndoAndRedoComeBackToEveryPlace) {
  RandomData random(static_cast<unsigned>(GetParam()));
  Document document(Fresh(GetParam()));
  std::vector<RadioData> places = {document.Data()};
  int edits = 0;
  for (int i = 0; i < 250; ++i) {
    const int choice = random.Below(10);
    const std::size_t done = document.DoneCount();
    if (choice < 2 && document.CanUndo()) {
      document.Undo();
    } else if (choice < 4 && document.CanRedo()) {
      document.Redo();
    } else if (choice == 4) {
      document.GoTo(static_cast<std::size_t>(random.Below(static_cast<int>(places.size()))));
    } else if (choice == 5) {
      places.resize(done + 1);
      places.push_back(random.Of(random.Below(7)));
      document.Replace("Open", {.data = places.back()}, random.Below(2) == 1);
    } else {
      AnyEdit(document, random);
      if (document.DoneCount() == done) continue;
      ++edits;
      places.resize(done + 1);
      places.push_back(document.Data());
    }
    ASSERT_EQ(document.Steps().size() + 1, places.size()) << i;
    ASSERT_TRUE(document.Data() == places[document.DoneCount()]) << i;
  }
  EXPECT_GT(edits, 50);
}

INSTANTIATE_TEST_SUITE_P(Models, RandomWalk, ::testing::Range(0, 7));

TEST(Document, AnEditThatThrowsOrChangesNothingLeavesNoStep) {
  Document document(Fresh());
  const RadioData before = document.Data();
  EXPECT_FALSE(document.Edit("", [](RadioData&) {}));
  EXPECT_THROW(document.Edit("",
                             [](RadioData& data) {
                               Name(data) = "HALF";
                               throw std::runtime_error("stopped");
                             }),
               std::runtime_error);
  EXPECT_TRUE(document.Data() == before);
  EXPECT_FALSE(document.CanUndo());
  EXPECT_FALSE(document.HasChanged());
}

TEST(Document, LettersTypedIntoOneBoxAreOneStep) {
  Document document(Fresh());
  for (const char* text : {"H", "HA", "HAI"}) Rename(document, text, kTyped);
  document.EndTyping();  // the box was left
  for (const char* text : {"HAIL", "HAILS"}) Rename(document, text, kTyped);
  Rename(document, "PASTED");
  ASSERT_EQ(document.Steps().size(), 3U);
  EXPECT_EQ(document.Steps()[0].name, "CH16 CH Name");
  document.Undo();
  document.Undo();
  EXPECT_EQ(document.Data().Marine[0][32].ChTag, "HAI");
  document.Undo();
  EXPECT_EQ(document.Data().Marine[0][32].ChTag, "DISTRESS");
}

TEST(Document, ASavedPlaceIsFoundAgainFromBothSides) {
  Document document(Fresh());
  Rename(document, "ONE", kTyped);
  document.MarkSaved("boat.dat", "14:02");
  EXPECT_TRUE(document.IsSaved());
  EXPECT_TRUE(document.HasChanged()) << "the question on exit is not about files";
  Rename(document, "TWO", kTyped);  // joins no step that the file holds
  EXPECT_EQ(document.Steps().size(), 2U);
  EXPECT_FALSE(document.IsSaved());
  document.Undo();
  EXPECT_TRUE(document.IsSaved());
  document.Undo();
  EXPECT_FALSE(document.IsSaved());
  document.GoTo(2);
  document.MarkSaved("boat.dat", "14:03");  // overwrites what the first place was saved as
  document.Undo();
  EXPECT_FALSE(document.IsSaved());
}

TEST(Document, AReplacementComesBackWithItsFileAndItsMark) {
  Document document(Fresh());
  Rename(document, "ONE");
  document.MarkSaved("one.dat", "9:01");
  document.Replace(
      "Open two.dat",
      {.data = NewData(4), .file_name = "two.dat", .origin = Origin::kOpened, .time = "9:02"},
      true);
  EXPECT_TRUE(document.IsSaved());
  EXPECT_TRUE(document.IsAsItCame());
  Rename(document, "TWO");
  document.MarkSaved("two.dat", "9:03");
  EXPECT_FALSE(document.IsAsItCame());
  document.GoTo(1);
  EXPECT_EQ(document.FileName(), "one.dat");
  EXPECT_EQ(document.Time(), "9:01");
  EXPECT_EQ(document.Data().MODELTYPE, 5);
  EXPECT_TRUE(document.IsSaved()) << "saving another file leaves this one's mark";
  document.Redo();
  EXPECT_EQ(document.ComesFrom(), Origin::kOpened);
  EXPECT_FALSE(document.IsSaved()) << "two.dat has been written over since";
  document.Redo();
  EXPECT_TRUE(document.IsSaved());

  document.GoTo(1);
  document.MarkSaved("two.dat", "9:04");  // the other data set under the same name
  document.GoTo(3);
  EXPECT_FALSE(document.IsSaved());
}

TEST(Document, TheOldestStepsGoWhenTheHistoryIsFull) {
  constexpr std::size_t kBound = 100000;
  Document document(Fresh(), kBound);
  for (int i = 0; i < 2000; ++i) Rename(document, "NAME " + std::to_string(i));
  EXPECT_LE(document.HistorySize(), kBound);
  EXPECT_GT(document.Steps().size(), 100U);
  const auto kept = static_cast<int>(document.Steps().size());
  document.GoTo(0);
  EXPECT_EQ(document.Data().Marine[0][32].ChTag, "NAME " + std::to_string(1999 - kept));
  // A single step is kept, whatever it takes.
  document.Replace("New", {.data = NewData(1)}, false);
  EXPECT_TRUE(document.CanUndo());
}

class Recorder : public Watcher {
 public:
  void Changed(std::span<const core::Change> changes) override {
    heard += "changed " + core::PathOf(changes.front().at) + "; ";
  }
  void Replaced() override { heard += "replaced; "; }
  void StatusChanged() override { heard += "status; "; }
  std::string heard;
};

TEST(Document, WatchersHearWhatHappened) {
  Document document(Fresh());
  Recorder recorder;
  document.Watch(recorder);
  Rename(document, "ONE");
  document.Replace("New", {.data = NewData(5)}, false);
  document.Undo();
  document.Undo();
  document.MarkSaved("boat.dat", "14:02");
  EXPECT_EQ(recorder.heard,
            "changed usa/16/name; status; replaced; status; replaced; status; "
            "changed usa/16/name; status; status; ");
  document.Unwatch(recorder);
  document.Redo();
  EXPECT_TRUE(recorder.heard.ends_with("status; status; "));
}

TEST(EditedFields, AreTheUsersOwnSinceTheDataSetCame) {
  Document document(Fresh());
  const auto name_of = [&](std::size_t position) {
    return core::RefTo<&core::ChannelRecord::ChTag>(document.Data(),
                                                    document.Data().Marine[0][position]);
  };
  const auto rename = [](std::size_t position) {
    return [=](RadioData& data) { data.Marine[0][position].ChTag += "X"; };
  };
  document.Edit("before", rename(31));
  document.Replace("Open", {.data = document.Data()}, true);
  Rename(document, "ONE");
  document.Edit("several at once", rename(33));
  document.Adjust("by the program", rename(34));
  EXPECT_EQ(document.EditedFields(), (std::vector<core::FieldRef>{name_of(33), name_of(32)}));
  EXPECT_TRUE(document.HasChanged());
}

}  // namespace
}  // namespace orvane::document
