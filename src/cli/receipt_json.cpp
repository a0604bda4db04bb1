#include "cli/receipt_json.h"

#include <nlohmann/json.hpp>

#include "cli/data_tree.h"
#include "files/snapshot.h"

namespace orvane::cli {

std::string ReceiptJson(const link::Receipt& receipt,
                        const std::vector<files::DifferingField>& fields) {
  using Json = nlohmann::ordered_json;
  Json json = {{"began", receipt.began},
               {"ended", receipt.ended},
               {"port", receipt.port},
               {"model_type", receipt.model_type},
               {"model", receipt.model},
               {"destination", receipt.destination},
               {"file", receipt.file},
               {"bytes_written", receipt.bytes_written},
               {"blocks_written", receipt.blocks_written},
               {"bytes_compared", receipt.bytes_compared},
               {"blocks_compared", receipt.blocks_compared},
               {"compared_all", receipt.compared_all},
               {"verified", receipt.Verified()},
               {"crc32_before", nullptr},
               {"crc32_after", files::ChecksumText(receipt.crc_after)},
               {"fields", Json::array()},
               {"bytes", Json::array()}};
  if (receipt.crc_before) json["crc32_before"] = files::ChecksumText(*receipt.crc_before);
  for (const files::DifferingField& field : fields) {
    json["fields"].push_back({{"name", field.name}, {"sent", field.sent}, {"found", field.found}});
  }
  for (const link::Mismatch& byte : receipt.mismatches) {
    json["bytes"].push_back(
        {{"address", byte.address}, {"written", byte.written}, {"found", byte.found}});
  }
  return JsonText(json);
}

}  // namespace orvane::cli
