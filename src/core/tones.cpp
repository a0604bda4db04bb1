#include "core/tones.h"

namespace orvane::core {
namespace {

constexpr std::array<std::string_view, 51> kCtcss = {
    "Off",     "67.0Hz",  "69.3Hz",  "71.9Hz",  "74.4Hz",  "77.0Hz",  "79.7Hz",  "82.5Hz",
    "85.4Hz",  "88.5Hz",  "91.5Hz",  "94.8Hz",  "97.4Hz",  "100.0Hz", "103.5Hz", "107.2Hz",
    "110.9Hz", "114.8Hz", "118.8Hz", "123.0Hz", "127.3Hz", "131.8Hz", "136.5Hz", "141.3Hz",
    "146.2Hz", "151.4Hz", "156.7Hz", "159.8Hz", "162.2Hz", "165.5Hz", "167.9Hz", "171.3Hz",
    "173.8Hz", "177.3Hz", "179.9Hz", "183.5Hz", "186.2Hz", "189.9Hz", "192.8Hz", "196.6Hz",
    "199.5Hz", "203.5Hz", "206.5Hz", "210.7Hz", "218.1Hz", "225.7Hz", "229.1Hz", "233.6Hz",
    "241.8Hz", "250.3Hz", "254.1Hz"};

/// Three octal digits each.
constexpr std::array<std::string_view, 105> kDcs = {
    "Off", "023", "025", "026", "031", "032", "036", "043", "047", "051", "053", "054",
    "065", "071", "072", "073", "074", "114", "115", "116", "122", "125", "131", "132",
    "134", "143", "145", "152", "155", "156", "162", "165", "172", "174", "205", "212",
    "223", "225", "226", "243", "244", "245", "246", "251", "252", "255", "261", "263",
    "265", "266", "271", "274", "306", "311", "315", "325", "331", "332", "343", "346",
    "351", "356", "364", "365", "371", "411", "412", "413", "423", "431", "432", "445",
    "446", "452", "454", "455", "462", "464", "465", "466", "503", "506", "516", "523",
    "526", "532", "546", "565", "606", "612", "624", "627", "631", "632", "654", "662",
    "664", "703", "712", "723", "731", "732", "734", "743", "754"};

constexpr std::string_view kNoTone = "-------";

}  // namespace

const std::array<std::string_view, 51>& CtcssList() {
  return kCtcss;
}

const std::array<std::string_view, 105>& DcsList() {
  return kDcs;
}

std::string_view CtcssText(int index) {
  if (index < 0 || index >= static_cast<int>(kCtcss.size())) return {};
  return kCtcss[static_cast<std::size_t>(index)];
}

std::string DcsText(int index) {
  if (index < 1 || index > 2 * kLastDcs) return {};
  const bool inverted = index > kLastDcs;
  const int code = inverted ? index - kLastDcs : index;
  return std::string(kDcs[static_cast<std::size_t>(code)]) + (inverted ? 'I' : 'N');
}

std::string ToneText(const ChannelRecord& channel, ToneDirection direction) {
  const bool receive = direction == ToneDirection::kReceive;
  const int ctcss = receive ? channel.RxCTCSS : channel.TxCTCSS;
  const int dcs = receive ? channel.RxDCS : channel.TxDCS;
  const std::string text = ctcss >= 1 ? std::string(CtcssText(ctcss)) : DcsText(dcs);
  return text.empty() ? std::string(kNoTone) : text;
}

}  // namespace orvane::core
