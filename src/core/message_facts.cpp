#include "core/message_facts.h"

#include <algorithm>

#include "core/app_settings.h"
#include "core/number_text.h"

namespace orvane::core {
namespace {

std::string Number(std::uint64_t number) {
  return std::to_string(number);
}

/// Two models may bear one name; their codes differ.
std::string ModelText(const ModelProfile& profile) {
  return std::string(profile.model) + " (code " + Number(profile.code) + ")";
}

std::string CodesText(CodePair codes) {
  if (codes.first == codes.second) {
    return "code " + Number(codes.first) + ", a model that this program does not know";
  }
  return "two models at once, codes " + Number(codes.first) + " and " + Number(codes.second);
}

Facts OtherModelFacts(const ModelProfile& theirs, const ModelProfile& ours) {
  return {{"theirs", ModelText(theirs)},
          {"ours", ModelText(ours)},
          {"name", ModelText(theirs)},
          {"option", "--model " + Number(static_cast<std::uint64_t>(theirs.model_type))}};
}

const ModelProfile* ModelOf(CodePair codes) {
  return codes.first == codes.second ? FindProfileByCode(codes.first) : nullptr;
}

std::string DestinationText(DestinationBits bits) {
  return std::string(BuiltInDestination(bits.sel1)) + " (SEL1 " + (bits.sel1 ? "1" : "0") +
         ", SEL2 " + (bits.sel2 ? "1" : "0") + ")";
}

}  // namespace

MessageCase OtherModelOfRadio(CodePair theirs, const ModelProfile& ours) {
  if (const ModelProfile* const model = ModelOf(theirs)) {
    return {MessageId::kModelOfRadio, OtherModelFacts(*model, ours)};
  }
  return {MessageId::kUnknownRadio, {{"theirs", CodesText(theirs)}, {"ours", ModelText(ours)}}};
}

MessageCase OtherModelOfImage(CodePair theirs, const ModelProfile* ours) {
  const ModelProfile* const model = ModelOf(theirs);
  if (model != nullptr && ours != nullptr) {
    return {MessageId::kModelOfImage, OtherModelFacts(*model, *ours)};
  }
  MessageCase unknown{MessageId::kUnknownImage, {{"theirs", CodesText(theirs)}}};
  if (ours != nullptr) unknown.facts.push_back({"ours", ModelText(*ours)});
  return unknown;
}

MessageCase OtherModelOfSettings(std::optional<double> theirs, const ModelProfile& ours) {
  if (!theirs) return {MessageId::kNoSettingFile, {}};
  const auto& profiles = ModelProfiles();
  const auto* const model =
      std::find_if(profiles.begin(), profiles.end(),
                   [&](const ModelProfile& profile) { return profile.model_type == *theirs; });
  if (model == profiles.end()) {
    return {MessageId::kUnknownSettings,
            {{"theirs",
              "MODELTYPE " + ShortestText(*theirs) + ", a model that this program does not know"},
             {"ours", ModelText(ours)}}};
  }
  return {MessageId::kModelOfSettings, OtherModelFacts(*model, ours)};
}

Facts ProductFacts(std::uint8_t theirs, const ModelProfile& ours) {
  return {{"theirs", Number(theirs)},
          {"wanted", Number(ours.product_byte.value_or(theirs))},
          {"ours", std::string(ours.model)}};
}

Facts DestinationFacts(DestinationBits theirs, DestinationBits ours) {
  return {{"theirs", DestinationText(theirs)},
          {"ours", DestinationText(ours)},
          {"name", DestinationText(theirs)}};
}

Facts LengthFacts(std::uint64_t length, const ModelProfile* ours) {
  Facts facts{{"length", Number(length) + " bytes"}};
  if (ours == nullptr) return facts;
  facts.push_back({"ours", std::string(ours->model)});
  facts.push_back({"wanted", Number(static_cast<std::uint64_t>(ours->image_size)) + " bytes"});
  return facts;
}

Facts FrequencyFacts(std::string_view typed, std::string_view field, const ModelProfile& ours) {
  return {{"typed", "\"" + std::string(typed) + "\""},
          {"field", std::string(field)},
          {"model", std::string(ours.model)},
          {"low", ShortestText(ours.min_frequency)},
          {"high", ShortestText(kMaxFrequency)},
          {"raster", ours.raster_25khz ? ", in steps of 25 kHz such as 156.025" : ""}};
}

Facts MissingFacts(bool no_frequency, bool short_display, WayOut way) {
  std::string missing;
  if (no_frequency) missing = "it has no Rx Frequency";
  if (no_frequency && short_display) missing += ", and ";
  if (short_display) missing += "CH Display has fewer than 2 characters on the left";
  Facts facts = {{"missing", missing}};
  if (way == WayOut::kSwitchOnAndOff) {
    facts.push_back({"way", "Switch CH Enable on for that; on and off again leads out as well."});
  }
  if (way == WayOut::kNone) {
    facts.push_back({"way", "The last channel in use cannot be switched off."});
  }
  return facts;
}

Facts PlaceFacts(const std::optional<std::string>& block) {
  return {{"place", block ? "at block " + *block : "before the first block"}};
}

Facts FileFacts(std::string_view path, const SystemError& error) {
  return {{"reason", std::string(path) + ": " + error.description}, {"path", std::string(path)}};
}

}  // namespace orvane::core
