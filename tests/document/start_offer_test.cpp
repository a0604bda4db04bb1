#include "document/start_offer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "support/dates.h"

namespace orvane::document {
namespace {

constexpr std::int16_t kModel = 5;

Contents Fresh(Origin origin = Origin::kNew, std::string file = {}) {
  Contents contents = NewContents(kModel, ::orvane::testing::kAfterCutOver);
  contents.origin = origin;
  contents.file_name = std::move(file);
  return contents;
}

TEST(StartOffer, LastsUntilSomethingIsOpenedReadOrEdited) {
  const auto edit = [](Document& document) {
    document.Edit("edit", [](core::RadioData& data) {
      data.Table(core::MarineGroup::kUsa)[3].ChTag = "MINE";
    });
  };
  const struct {
    const char* what;
    std::function<void(Document&)> deed;
    bool offered;
  } cases[] = {
      {"nothing", [](Document& /*document*/) {}, true},
      {"an edit", edit, false},
      {"an edit taken back",
       [&](Document& document) {
         edit(document);
         document.Undo();
       },
       true},
      {"a file", [](Document& d) { d.Replace("Open", Fresh(Origin::kOpened, "a.dat"), true); },
       false},
      {"a new one that was saved", [](Document& d) { d.MarkSaved("a.dat", "14:02"); }, false},
      {"a radio", [](Document& d) { d.Replace("Read", Fresh(Origin::kRead), false); }, false},
      {"a destination", [](Document& d) { d.Replace("USA", Fresh(Origin::kTemplate), false); },
       false},
      {"new again after a file",
       [](Document& document) {
         document.Replace("Open", Fresh(Origin::kOpened, "a.dat"), true);
         document.Replace("New", Fresh(), false);
       },
       true},
  };
  for (const auto& c : cases) {
    Document document(std::make_unique<Contents>(Fresh()));
    c.deed(document);
    EXPECT_EQ(OfferFor(document, false), c.offered ? StartOffer::kFirstSteps : StartOffer::kNothing)
        << c.what;
    EXPECT_EQ(OfferFor(document, true), c.offered ? StartOffer::kRecentFiles : StartOffer::kNothing)
        << c.what;
  }
}

}  // namespace
}  // namespace orvane::document
