#include "image/forms.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>

#include "core/narrowband.h"
#include "core/tones.h"

namespace orvane::image {
namespace {

constexpr std::uint8_t kEmpty = 255;
constexpr int kZeroOffset = 12;  // hours; also the largest offset
constexpr std::uint8_t kNotADigit = 15;

enum CharacterSet : std::uint8_t { kNameRead = 1, kNameWrite = 2, kCallSignWrite = 4 };

constexpr std::array<std::uint8_t, 256> MakeCharacterSets() {
  std::array<std::uint8_t, 256> sets{};
  const auto add = [&sets](std::string_view characters, unsigned in) {
    for (const char c : characters) {
      sets[static_cast<std::uint8_t>(c)] = static_cast<std::uint8_t>(in);
    }
  };
  add("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-/,_",
      kNameRead | kNameWrite | kCallSignWrite);
  add(" ", kNameRead | kNameWrite);
  add("+().*", kNameWrite);
  return sets;
}
constexpr std::array<std::uint8_t, 256> kCharacterSets = MakeCharacterSets();

bool IsIn(CharacterSet set, std::uint8_t character) {
  return (kCharacterSets[character] & set) != 0;
}

std::uint8_t Stored(CharacterSet set, char character) {
  const auto byte = static_cast<std::uint8_t>(character);
  return IsIn(set, byte) ? byte : kEmpty;
}

std::span<const std::uint8_t> BytesOf(const std::uint8_t* base, const Place& place) {
  return {base + place.bits.FirstByte(), static_cast<std::size_t>(place.bits.Length())};
}
std::span<std::uint8_t> BytesOf(std::uint8_t* base, const Place& place) {
  return {base + place.bits.FirstByte(), static_cast<std::size_t>(place.bits.Length())};
}

void AssignChar(std::string& text, std::span<const std::uint8_t> bytes) {
  text.resize(bytes.size());
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](std::uint8_t byte) { return static_cast<char>(byte); });
  while (!text.empty() && text.back() == ' ') text.pop_back();
}

void WriteLeftAligned(std::span<std::uint8_t> bytes, std::string_view text, std::uint8_t fill) {
  const std::size_t length = std::min(text.size(), bytes.size());
  for (std::size_t i = 0; i < length; ++i) bytes[i] = Stored(kNameWrite, text[i]);
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(length), bytes.end(), fill);
}

// Index without its bank, and the bank.
struct BankedCode {
  std::uint32_t index;
  bool inverted;
};
BankedCode SplitDcs(std::int16_t index) {
  const bool inverted = index > core::kLastDcs;
  return {static_cast<std::uint32_t>(inverted ? index - core::kLastDcs : index), inverted};
}
std::int16_t JoinDcs(std::uint32_t index, bool inverted) {
  if (index == kEmpty) return 0;
  return static_cast<std::int16_t>(index + (inverted ? core::kLastDcs : 0));
}

constexpr std::uint32_t kModeInverted = 1;
constexpr std::uint32_t kModeComplement = 2;

}  // namespace

void OffsetTimeForm::Read(const std::uint8_t* base, const Place& place, std::int16_t& value) {
  const std::uint32_t coded = ReadBits(base, place.bits);
  const int hours = coded == 31 ? 0 : std::min(static_cast<int>(coded & 15), kZeroOffset);
  const bool ahead = (coded & 16) != 0;
  value = static_cast<std::int16_t>(kZeroOffset + (ahead ? hours : -hours));
}

void OffsetTimeForm::Write(std::uint8_t* base, const Place& place, const std::int16_t& value) {
  const int hours = std::clamp(static_cast<int>(value), 0, 2 * kZeroOffset) - kZeroOffset;
  WriteBits(base, place.bits, static_cast<std::uint32_t>(hours >= 0 ? 16 + hours : -hours));
}

void DigitsForm::Read(const std::uint8_t* base, const Place& place, std::string& digits) {
  digits.clear();
  for (const std::uint8_t byte : BytesOf(base, place)) {
    for (const int nibble : {byte >> 4, byte & 15}) {
      if (nibble > 9) return;
      digits.push_back(static_cast<char>('0' + nibble));
    }
  }
}

void DigitsForm::Write(std::uint8_t* base, const Place& place, const std::string& digits) {
  const auto nibble = [&digits](std::size_t i) {
    const bool is_digit = i < digits.size() && digits[i] >= '0' && digits[i] <= '9';
    return is_digit ? digits[i] - '0' : int{kNotADigit};
  };
  std::size_t position = 0;
  for (std::uint8_t& byte : BytesOf(base, place)) {
    byte = static_cast<std::uint8_t>(nibble(position) << 4 | nibble(position + 1));
    position += 2;
  }
}

void FrequencyForm::Read(const std::uint8_t* base, const Place& place, double& mhz) {
  constexpr int kUnitsPerMhz = 10000;
  int units = 100 * kUnitsPerMhz;
  int weight = 10 * kUnitsPerMhz;
  const std::uint32_t packed = ReadBits(base, place.bits);
  for (int shift = place.bits.count - 4; shift >= 0; shift -= 4) {
    const int digit = static_cast<int>(packed >> shift & 15);
    if (digit > 9) break;
    units += digit * weight;
    weight /= 10;
  }
  const bool usable = units > 100 * kUnitsPerMhz && units < 200 * kUnitsPerMhz;
  mhz = usable ? static_cast<double>(units) / kUnitsPerMhz : 0;
}

void FrequencyForm::Write(std::uint8_t* base, const Place& place, const double& mhz) {
  // A frequency that the six digits cannot tell is none: what is left of it would be another one,
  // on which the radio would transmit.
  constexpr double kUnitsPerMhz = 10000;
  constexpr double kLastUnit = 999999;
  std::uint32_t packed = 0;
  const double rounded = std::round((mhz - 100) * kUnitsPerMhz);
  if (rounded > 0 && rounded <= kLastUnit) {
    auto units = static_cast<std::uint32_t>(rounded);
    for (int shift = 0; shift < place.bits.count; shift += 4) {
      packed |= units % 10 << shift;
      units /= 10;
    }
  }
  WriteBits(base, place.bits, packed);
}

void NameForm::Read(const std::uint8_t* base, const Place& place, std::string& name) {
  const std::span<const std::uint8_t> bytes = BytesOf(base, place);
  std::size_t length = 0;
  while (length < bytes.size() && IsIn(kNameRead, bytes[length])) ++length;
  AssignChar(name, bytes.first(length));
}

void NameForm::Write(std::uint8_t* base, const Place& place, const std::string& name) {
  WriteLeftAligned(BytesOf(base, place), name, kEmpty);
}

void DisplayForm::Write(std::uint8_t* base, const Place& place, const std::string& text) {
  WriteLeftAligned(BytesOf(base, place), text, ' ');
}

void CallSignForm::Read(const std::uint8_t* base, const Place& place, std::string& text) {
  text.clear();
  for (const std::uint8_t byte : BytesOf(base, place)) {
    if (IsIn(kNameRead, byte)) text.push_back(static_cast<char>(byte));
  }
  while (!text.empty() && text.back() == ' ') text.pop_back();
}

void CallSignForm::Write(std::uint8_t* base, const Place& place, const std::string& text) {
  const std::span<std::uint8_t> bytes = BytesOf(base, place);
  auto position = bytes.rbegin();
  for (auto c = text.rbegin(); c != text.rend() && position != bytes.rend(); ++c, ++position) {
    *position = Stored(kCallSignWrite, *c);
  }
  std::fill(position, bytes.rend(), kEmpty);
}

void ExtraEnableForm::Write(std::uint8_t* base, const Place& place, const core::ExtraTable& table,
                            const EncodeContext& context) {
  const auto in_use = [&context](const core::ChannelRecord& channel) {
    if (!context.profile.splits_lmr_and_exp) return true;
    if (channel.IsLmr()) return bool{context.data.LmrPresent()};
    return channel.IsExp() && context.data.ExpPresent;
  };
  Bits bit{place.bits.first, 1};
  for (const core::ChannelRecord& channel : table) {
    FlagForm::Write(base, bit, channel.Enable && in_use(channel));
    ++bit.first;
  }
}

void MarinePowerForm::Read(const std::uint8_t* base, const Place& place,
                           core::ChannelRecord& channel) {
  channel.TXPower = static_cast<std::uint8_t>(ReadBits(base, place.bits));
  channel.TxEnable = channel.TXPower != 0;
  channel.LowPower = channel.TXPower == 1;
}

void MarinePowerForm::Write(std::uint8_t* base, const Place& place,
                            const core::ChannelRecord& channel) {
  std::uint32_t code = channel.TXPower;
  if (channel.LowPower) code = 1;
  if (!channel.TxEnable) code = 0;
  WriteBits(base, place.bits, code);
}

void ExtraPowerForm::Read(const std::uint8_t* base, const Place& place,
                          core::ChannelRecord& channel) {
  channel.TXPower = static_cast<std::uint8_t>(ReadBits(base, place.bits));
  channel.LowPower = channel.TXPower == 1;
}

void ExtraPowerForm::Write(std::uint8_t* base, const Place& place,
                           const core::ChannelRecord& channel) {
  WriteBits(base, place.bits, channel.LowPower ? 1U : channel.TXPower);
}

void NarrowForm::Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel,
                       const EncodeContext& context) {
  const bool forced =
      core::WideTest(context.data, channel, context.today) == core::WideState::kForbidden;
  FlagForm::Write(base, place, channel.Narrow || forced);
}

void TransmitDcsForm::Read(const std::uint8_t* base, const Place& place, std::int16_t& index) {
  index = JoinDcs(ReadBits(base, place.bits), ReadBits(base, place.head) != 0);
}

void TransmitDcsForm::Write(std::uint8_t* base, const Place& place, const std::int16_t& index) {
  const BankedCode code = SplitDcs(index);
  WriteBits(base, place.bits, code.index);
  WriteBits(base, place.head, code.inverted ? 1 : 0);
}

void ReceiveDcsForm::Read(const std::uint8_t* base, const Place& place,
                          core::ChannelRecord& channel) {
  const std::uint32_t mode = ReadBits(base, place.head);
  channel.RxDCS = JoinDcs(ReadBits(base, place.bits), mode == kModeInverted);
  channel.RxComp = mode == kModeComplement;
}

void ReceiveDcsForm::Write(std::uint8_t* base, const Place& place,
                           const core::ChannelRecord& channel) {
  const BankedCode code = SplitDcs(channel.RxDCS);
  std::uint32_t mode = code.inverted ? kModeInverted : 0;
  if (channel.RxComp) mode = kModeComplement;
  WriteBits(base, place.bits, code.index);
  WriteBits(base, place.head, mode);
}

std::string ReceiveDcsForm::Text(const std::uint8_t* base, const Place& place) {
  core::ChannelRecord channel;
  Read(base, place, channel);
  return std::to_string(channel.RxDCS) + (channel.RxComp ? ", complement" : "");
}

}  // namespace orvane::image
