#pragma once

#include <cstdint>
#include <string>

#include "core/records.h"
#include "image/row.h"

/// The forms that values take in the radio's memory: how a member is read from its place and
/// written to it. Read and Write of one form are each other's inverse wherever the radio allows.
namespace orvane::image {

/// An unsigned number. Values wider than the place are cut to its low bits.
struct NumberForm {
  template <class T>
  static void Read(const std::uint8_t* base, const Place& place, T& value) {
    value = static_cast<T>(ReadBits(base, place.bits));
  }
  template <class T>
  static void Write(std::uint8_t* base, const Place& place, const T& value) {
    WriteBits(base, place.bits, static_cast<std::uint32_t>(value));
  }
};

struct FlagForm {
  static void Read(const std::uint8_t* base, const Place& place, core::Flag& flag) {
    flag = ReadBits(base, place.bits) != 0;
  }
  static void Write(std::uint8_t* base, const Place& place, const core::Flag& flag) {
    WriteBits(base, place.bits, flag ? 1 : 0);
  }
};

/// The bit is set when the flag is not.
struct InvertedFlagForm {
  static void Read(const std::uint8_t* base, const Place& place, core::Flag& flag) {
    flag = ReadBits(base, place.bits) == 0;
  }
  static void Write(std::uint8_t* base, const Place& place, const core::Flag& flag) {
    WriteBits(base, place.bits, flag ? 0 : 1);
  }
};

/// A set bit marks an LMR entry.
struct LmrMarkForm {
  static void Read(const std::uint8_t* base, const Place& place, std::int16_t& mark) {
    mark = ReadBits(base, place.bits) != 0 ? core::kLmrMark : core::kExpMark;
  }
  static void Write(std::uint8_t* base, const Place& place, const std::int16_t& mark) {
    WriteBits(base, place.bits, mark == core::kLmrMark ? 1 : 0);
  }
};

/// A combined channel number in 16 bits, big-endian; 65535 is none (-1).
struct ChannelNumberForm {
  static constexpr std::uint32_t kNone = 0xFFFF;
  static constexpr std::uint32_t Coded(std::int32_t channel) {
    return channel < 0 ? kNone : static_cast<std::uint32_t>(channel);
  }
  static void Read(const std::uint8_t* base, const Place& place, std::int32_t& channel) {
    const std::uint32_t coded = ReadBits(base, place.bits);
    channel = coded == kNone ? core::kNoChannel : static_cast<std::int32_t>(coded);
  }
  static void Write(std::uint8_t* base, const Place& place, const std::int32_t& channel) {
    WriteBits(base, place.bits, Coded(channel));
  }
};

/// The EXP/LMR group has one bit for two switches: the radio offers the group as soon as either
/// its LMR or its EXP channels are in use.
struct ExtraGroupEnableForm {
  static void Read(const std::uint8_t* base, const Place& place, core::Flag& lmr_present) {
    FlagForm::Read(base, place, lmr_present);
  }
  static void Write(std::uint8_t* base, const Place& place, const core::Flag& lmr_present,
                    const EncodeContext& context) {
    FlagForm::Write(base, place, lmr_present || context.data.ExpPresent);
  }
};

/// Sign and magnitude in five bits: bit 4 set is ahead, clear is behind. The record holds hours
/// plus 12. Reads 0 and 31 as no offset and more than 12 hours as 12.
struct OffsetTimeForm {
  static void Read(const std::uint8_t* base, const Place& place, std::int16_t& value);
  static void Write(std::uint8_t* base, const Place& place, const std::int16_t& value);
};

/// Decimal digits, two a byte, high nibble first; a nibble above 9 ends the number and fills the
/// places beyond it.
struct DigitsForm {
  static void Read(const std::uint8_t* base, const Place& place, std::string& digits);
  static void Write(std::uint8_t* base, const Place& place, const std::string& digits);
};

/// MHz above 100 as six decimal digits, four of them behind the point. Anything outside
/// 100..200 MHz reads as none.
struct FrequencyForm {
  static void Read(const std::uint8_t* base, const Place& place, double& mhz);
  static void Write(std::uint8_t* base, const Place& place, const double& mhz);
};

/// Left-aligned, filled with 255. Reading ends at the first character a name may not have; the
/// radio's set for writing is larger, so that a "+" reaches the radio but does not come back.
struct NameForm {
  static void Read(const std::uint8_t* base, const Place& place, std::string& name);
  static void Write(std::uint8_t* base, const Place& place, const std::string& name);
};

/// As a name, but filled with blanks: the places are fixed positions of the radio's display.
struct DisplayForm {
  static void Read(const std::uint8_t* base, const Place& place, std::string& text) {
    NameForm::Read(base, place, text);
  }
  static void Write(std::uint8_t* base, const Place& place, const std::string& text);
};

/// Right-aligned, filled with 255 on the left. Reading skips what a call sign may not have.
struct CallSignForm {
  static void Read(const std::uint8_t* base, const Place& place, std::string& text);
  static void Write(std::uint8_t* base, const Place& place, const std::string& text);
};

/// One bit per entry of a table, in table order.
template <auto Member>
struct BitmapForm {
  template <class Table>
  static void Read(const std::uint8_t* base, const Place& place, Table& table) {
    Bits bit{place.bits.first, 1};
    for (core::ChannelRecord& channel : table) {
      FlagForm::Read(base, bit, channel.*Member);
      ++bit.first;
    }
  }
  template <class Table>
  static void Write(std::uint8_t* base, const Place& place, const Table& table) {
    Bits bit{place.bits.first, 1};
    for (const core::ChannelRecord& channel : table) {
      FlagForm::Write(base, bit, channel.*Member);
      ++bit.first;
    }
  }
  static std::string Text(const std::uint8_t* base, const Place& place) {
    return SetBitsText(base, place.bits);
  }
};

/// The enable bitmap of the extra channels. A radio with both LMR and EXP channels knows no group
/// switch of its own for each kind, so entries of a kind that is switched off are not marked.
struct ExtraEnableForm : BitmapForm<&core::ChannelRecord::Enable> {
  static void Write(std::uint8_t* base, const Place& place, const core::ExtraTable& table,
                    const EncodeContext& context);
};

/// Power code of a marine channel: 0 transmit inhibited, 1 low, 2 and 3 the higher steps. One
/// code carries three members; inhibited wins over low, low over the step.
struct MarinePowerForm {
  static void Read(const std::uint8_t* base, const Place& place, core::ChannelRecord& channel);
  static void Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel);
  static std::string Text(const std::uint8_t* base, const Place& place) {
    return NumberText(base, place);
  }
};

/// Power code of an extra channel: there is no plan that inhibits transmission.
struct ExtraPowerForm {
  static void Read(const std::uint8_t* base, const Place& place, core::ChannelRecord& channel);
  static void Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel);
  static std::string Text(const std::uint8_t* base, const Place& place) {
    return NumberText(base, place);
  }
};

/// Never duplex where the channel plan does not allow it.
struct DuplexForm {
  static void Read(const std::uint8_t* base, const Place& place, core::ChannelRecord& channel) {
    FlagForm::Read(base, place, channel.Duplex);
  }
  static void Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel) {
    FlagForm::Write(base, place, channel.Duplex && channel.DuplexAllowed);
  }
  static std::string Text(const std::uint8_t* base, const Place& place) {
    return ValueText(core::Flag(ReadBits(base, place.bits) != 0));
  }
};

/// Narrow bandwidth, whatever the record says, where the law forbids wide.
struct NarrowForm {
  static void Read(const std::uint8_t* base, const Place& place, core::ChannelRecord& channel) {
    FlagForm::Read(base, place, channel.Narrow);
  }
  static void Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel,
                    const EncodeContext& context);
  static std::string Text(const std::uint8_t* base, const Place& place) {
    return ValueText(core::Flag(ReadBits(base, place.bits) != 0));
  }
};

/// CTCSS index in six bits; 63, as erased memory reads, is off.
struct CtcssForm {
  static void Read(const std::uint8_t* base, const Place& place, std::int16_t& index) {
    constexpr std::uint32_t kErased = 63;
    const std::uint32_t coded = ReadBits(base, place.bits);
    index = static_cast<std::int16_t>(coded == kErased ? 0 : coded);
  }
  static void Write(std::uint8_t* base, const Place& place, const std::int16_t& index) {
    NumberForm::Write(base, place, index);
  }
};

/// DCS index in a byte, 255 is off; the head bit selects the bank of inverted codes.
struct TransmitDcsForm {
  static void Read(const std::uint8_t* base, const Place& place, std::int16_t& index);
  static void Write(std::uint8_t* base, const Place& place, const std::int16_t& index);
};

/// As TransmitDcsForm, but the head is a mode: 1 the bank of inverted codes, 2 the complement of
/// the receive tone, which wins over the bank.
struct ReceiveDcsForm {
  static void Read(const std::uint8_t* base, const Place& place, core::ChannelRecord& channel);
  static void Write(std::uint8_t* base, const Place& place, const core::ChannelRecord& channel);
  static std::string Text(const std::uint8_t* base, const Place& place);
};

}  // namespace orvane::image
