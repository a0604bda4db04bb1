// Writes the destination templates that ship beside the program into the folder given.

#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>

#include "core/app_settings.h"
#include "core/model_profile.h"
#include "image/sample_radio.h"

namespace {

struct Destination {
  const char* name;
  bool sel1;  ///< destination bit of the image: set for the KT740's own channel plan
};
constexpr Destination kDestinations[] = {{"KT740-usa", true}, {"KT520-usa", false}};

// A fixed day, so that building twice gives the same files.
constexpr orvane::core::Date kDay{std::chrono::year{2026}, std::chrono::month{1},
                                  std::chrono::day{1}};

bool WriteTemplate(const std::string& folder, const Destination& destination,
                   std::int16_t model_type) {
  const orvane::core::MemoryImage image =
      orvane::image::MakeDestinationTemplate(model_type, destination.sel1, kDay);
  const std::string path =
      folder + "/" + orvane::core::DestinationFileName(destination.name, model_type);
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
  for (const std::int16_t model_type : {std::int16_t{4}, std::int16_t{5}, std::int16_t{6}}) {
    for (const Destination& destination : kDestinations) {
      written = WriteTemplate(argv[1], destination, model_type) && written;
    }
  }
  return written ? 0 : 1;
}
