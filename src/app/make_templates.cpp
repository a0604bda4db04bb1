// Writes the destination templates that ship beside the program into the folder given.

#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>

#include "core/app_settings.h"
#include "core/model_profile.h"
#include "image/image_check.h"
#include "image/sample_radio.h"

namespace {

// A fixed day, so that building twice gives the same files.
constexpr orvane::core::Date kDay{std::chrono::year{2026}, std::chrono::month{1},
                                  std::chrono::day{1}};

bool WriteTemplate(const std::string& folder, bool sel1, std::int16_t model_type) {
  const orvane::core::MemoryImage image =
      orvane::image::MakeDestinationTemplate(model_type, sel1, kDay);
  const std::string path =
      folder + "/" +
      orvane::core::DestinationFileName(orvane::core::BuiltInDestination(sel1), model_type);
  if (orvane::image::CheckImage(image.Used(), orvane::core::ProfileOf(model_type)).Any()) {
    std::cerr << path << ": would be refused\n";
    return false;
  }
  std::ofstream file(path, std::ios::binary);
  for (const std::uint8_t byte : image.Used()) file.put(static_cast<char>(byte));
  file.close();
  if (!file) std::cerr << path << ": cannot be written\n";
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_templates FOLDER\n";
    return 2;
  }
  bool written = true;
  for (const std::int16_t model_type : orvane::image::kTemplateModels) {
    for (const bool sel1 : {true, false}) {
      written = WriteTemplate(argv[1], sel1, model_type) && written;
    }
  }
  return written ? 0 : 1;
}
