#include "core/messages.h"

#include <gtest/gtest.h>

#include "core/message_facts.h"

namespace orvane::core {
namespace {

// A refusal that is shown without a word on what to do would leave its user alone with it.
TEST(Messages, EveryRowSaysWhatItMeansAndWhatToDo) {
  int position = 0;
  for (const MessageRow& row : MessageRows()) {
    const Message message = MakeMessage(row.id, "title");
    SCOPED_TRACE(message.text);
    EXPECT_EQ(static_cast<int>(row.id), position++);
    EXPECT_FALSE(message.text.empty());
    EXPECT_GT(row.meaning.size(), 10U);
    EXPECT_GT(row.remedy.size(), 10U);
    const bool refuses = row.icon == Icon::kCritical || row.icon == Icon::kExclamation;
    EXPECT_TRUE(row.explained || !refuses || row.buttons != Buttons::kOk);
    EXPECT_EQ(!message.details.empty(), row.explained);
    const std::string shown = message.text + MeaningOf(row.id) + FilledText(row.remedy);
    EXPECT_EQ(shown.find_first_of("{}|"), std::string::npos) << shown;
    EXPECT_EQ(shown.find("]("), std::string::npos) << shown;
  }
}

TEST(Messages, PlacesTakeFactsOrTheirWordsAndLinksAreForTheHelp) {
  const std::string text = "A {x|b [c](d.html)} [e](f.html) [g] {y|h}.";
  EXPECT_EQ(FilledText(text), "A b c e [g] h.");
  EXPECT_EQ(FilledText(text, {{"y", "[i](j)"}, {"x", ""}}), "A  e [g] [i](j).");
  EXPECT_EQ(GeneralText(text), "A b [c](d.html) [e](f.html) [g] h.");
}

const ModelProfile& Profile(std::string_view model) {
  for (const ModelProfile& profile : ModelProfiles()) {
    if (profile.model == model) return profile;
  }
  ADD_FAILURE() << model;
  return ProfileOf(kDefaultModelType);
}

// The second paragraph names what the program compared: whose is which must not be exchanged.
TEST(Messages, RefusalsNameBothSides) {
  const ModelProfile& kt740 = Profile("KT740");
  const ModelProfile& rb6100s = Profile("RB6100S");
  struct Case {
    MessageCase refusal;
    std::string text;
    std::vector<std::string> says;
  };
  const Case cases[] = {
      {OtherModelOfRadio({520, 520}, kt740),
       "ModelType Error !!",
       {"radio's model is KT520 (code 520); the program is set to KT740 (code 740)",
        "Set the program to KT520 (code 520)", "--model 4"}},
      {OtherModelOfRadio({999, 999}, rb6100s),
       "ModelType Error !!",
       {"names code 999, a model", "set to RB6100S (code 6100)"}},
      {OtherModelOfRadio({740, 65535}, kt740),
       "ModelType Error !!",
       {"codes 740 and 65535; the program is set to KT740 (code 740)"}},
      {OtherModelOfImage({9000, 9000}, &rb6100s),
       "ModelType Error !!",
       {"of QM9000 (code 9000); the program is set to RB6100S (code 6100)",
        "Choose a file of RB6100S (code 6100), or set the program to QM9000 (code 9000)",
        "--model 3"}},
      {OtherModelOfImage({310, 311}, nullptr), "ModelType Error !!", {"codes 310 and 311"}},
      {OtherModelOfSettings(2.0, kt740),
       "different model!!",
       {"for KT510 (code 510); the program is set to KT740 (code 740)", "--model 2"}},
      {OtherModelOfSettings(7.0, kt740), "different model!!", {"does not know", "KT740"}},
      {OtherModelOfSettings(std::nullopt, kt740), "different model!!", {"no settings file"}},
      {{MessageId::kProductOfRadio, ProductFacts(3, kt740)},
       "Product Error !!",
       {"product byte of KT740 is 2, the radio's is 3"}},
      {{MessageId::kProductOfImage, ProductFacts(255, kt740)},
       "ProductType Error !!",
       {"product byte of KT740 is 2, the image's is 255"}},
      {{MessageId::kDestinationOfRadio, DestinationFacts({false, true}, {true, false})},
       "Destination Error !!",
       {"The radio's destination is KT520-usa (SEL1 0, SEL2 1), the data's is KT740-usa (SEL1 1, "
        "SEL2 0)",
        "Choose KT520-usa (SEL1 0, SEL2 1) from"}},
      {{MessageId::kImageLength, LengthFacts(16384, &Profile("KT310"))},
       "bad file!!",
       {"has 16384 bytes; an image of KT310 has 8192 bytes", "file of KT310"}},
      {{MessageId::kImageLength, LengthFacts(5, nullptr)}, "bad file!!", {"has 5 bytes", "16384"}},
      {{MessageId::kWrongFrequency, FrequencyFacts("156.0125", "Tx frequency", rb6100s)},
       "Data Error!!",
       {"\"156.0125\" is no Tx frequency of RB6100S", "137 to 174 MHz, in steps of 25 kHz"}},
      {{MessageId::kWrongFrequency, FrequencyFacts("133", "Rx frequency", kt740)},
       "Data Error!!",
       {"\"133\" is no Rx frequency of KT740: it takes 134 to 174 MHz.\r\n"}},
      {{MessageId::kIncompleteChannel, MissingFacts(true, false, WayOut::kSwitchOff)},
       "Data Error!!\r\nPlease input correct data.",
       {"but it has no Rx Frequency.\r\n", "switch CH Enable off"}},
      {{MessageId::kIncompleteChannel, MissingFacts(false, true, WayOut::kSwitchOnAndOff)},
       "Data Error!!\r\nPlease input correct data.",
       {"but CH Display has fewer than 2 characters on the left.\r\nFill that in. Switch CH Enable "
        "on for that"}},
      {{MessageId::kIncompleteChannel, MissingFacts(true, true, WayOut::kNone)},
       "Data Error!!\r\nPlease input correct data.",
       {"Rx Frequency, and CH Display", "cannot be switched off"}},
      {{MessageId::kFileSave, FileFacts("/a/b.dat", {28, "No space left on device"})},
       "FileSave Error!!",
       {"/a/b.dat: No space left on device\r\nWhat stood"}},
  };
  for (const Case& c : cases) {
    const Message message = MakeMessage(c.refusal.id, "title", c.refusal.facts);
    SCOPED_TRACE(message.details);
    EXPECT_EQ(message.title, "title");
    EXPECT_EQ(message.text, c.text);
    EXPECT_NE(message.details.find("\r\n"), std::string::npos);
    for (const std::string& words : c.says) {
      EXPECT_NE(message.details.find(words), std::string::npos) << words;
    }
  }
}

}  // namespace
}  // namespace orvane::core
