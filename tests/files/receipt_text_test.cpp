#include "files/receipt_text.h"

#include <gtest/gtest.h>

#include "image/sample_radio.h"
#include "support/dates.h"

namespace orvane::files {
namespace {

link::Receipt SampleReceipt(const std::vector<std::pair<int, std::uint8_t>>& found) {
  const core::MemoryImage image = image::MakeSampleRadio(5, testing::kAfterCutOver).Image;
  link::Receipt receipt{.began = "2026-11-24 14:02:12",
                        .ended = "2026-11-24 14:03:20",
                        .port = "COM3 Cable",
                        .model_type = 5,
                        .model = "KT740",
                        .destination = "KT740-usa",
                        .bytes_written = 12000,
                        .blocks_written = 760,
                        .bytes_compared = 11999,
                        .blocks_compared = 759,
                        .compared_all = true,
                        .crc_after = 0xBEEF,
                        .sent = image,
                        .found = image};
  for (const auto& [address, byte] : found) {
    receipt.mismatches.push_back({address, image[address], byte});
    receipt.found[address] = byte;
  }
  return receipt;
}

TEST(ReceiptText, NamesWhatDiffersByFieldElseByByte) {
  constexpr int kNameOf16 = 3072 + 12 * 32;
  const auto both = DifferingFields(SampleReceipt({{68, 2}, {kNameOf16, 'Q'}}));
  ASSERT_EQ(both.size(), 2U);
  EXPECT_EQ(FieldLines(both, 2), "Common Setup TX Po Display: sent " + both[0].sent +
                                     ", the radio holds " + both[0].found +
                                     "\r\nUSA 16 CH Name: sent " + both[1].sent +
                                     ", the radio holds Q" + both[1].sent.substr(1));
  EXPECT_NE(both[0].sent, both[0].found);
  EXPECT_TRUE(FieldLines(both, 1).ends_with("\r\nand 1 more"));
  // A checksum is no field.
  EXPECT_EQ(FieldLines(DifferingFields(SampleReceipt({{95, 0x5A}})), 9),
            "Memory 005F: sent AB, the radio holds 5A");
  EXPECT_TRUE(DifferingFields(SampleReceipt({})).empty());
}

TEST(ReceiptText, TellsWhatWasWrittenAndWhatIsProved) {
  link::Receipt receipt = SampleReceipt({});
  EXPECT_EQ(ReceiptText(receipt, {}),
            "Receipt of programming a radio\r\n\r\n"
            "Began           2026-11-24 14:02:12\r\n"
            "Ended           2026-11-24 14:03:20\r\n"
            "Port            COM3 Cable\r\n"
            "Model           KT740\r\n"
            "Destination     KT740-usa\r\n"
            "File            none, unsaved data\r\n"
            "Written         12000 bytes in 760 blocks\r\n"
            "Compared        11999 bytes in 759 blocks\r\n"
            "CRC-32 before   not read\r\n"
            "CRC-32 after    0000BEEF\r\n"
            "Differences     none\r\n");
  receipt.compared_all = false;
  EXPECT_NE(ReceiptText(receipt, {}).find("Differences     not known"), std::string::npos);
  receipt = SampleReceipt({{68, 2}});
  EXPECT_TRUE(ReceiptText(receipt, DifferingFields(receipt))
                  .ends_with("Differences     1 byte\r\n  " +
                             FieldLines(DifferingFields(receipt), 1) + "\r\n"));
}

}  // namespace
}  // namespace orvane::files
