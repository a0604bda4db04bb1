#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/flag.h"

/// The records of the radio data. Field names are the names the settings file uses, with "_" for
/// a blank. All texts are 8-bit Windows-1252 bytes, as in files and in the radio.
namespace orvane::core {

/// The two kinds of extra channels, as the record marks them. Any other mark is of neither kind.
inline constexpr std::int16_t kLmrMark = -1;
inline constexpr std::int16_t kExpMark = 0;

/// One channel of any table. Marine, weather and EXP/LMR channels share the record and use
/// different fields of it.
struct ChannelRecord {
  std::int16_t Position = 0;  ///< the entry's own index in its table
  Flag Enable;                ///< programmed: shown and usable in the radio
  Flag LowPower;              ///< transmits at low power
  std::uint8_t TXPower = 0;   ///< 0 = transmit inhibited, 1 = low, 2 and 3 = the higher steps
  Flag ClockShift;            ///< EXP/LMR: processor clock shifted on this channel
  Flag PowUp;                 ///< power-up flag, column "UP"
  Flag Duplex;                ///< works duplex
  Flag DuplexAllowed;         ///< the channel plan allows duplex here
  Flag TxEnable;              ///< transmit allowed
  Flag DispayA;               ///< display flag; lives in the settings file only
  Flag ScanMemory;            ///< in the scan memory
  std::string ChTag;          ///< name, up to 12 characters, upper case
  std::int16_t Scramble = 0;  ///< 0..7; bit 2 switches the scrambler on, bits 1..0 are its code
  Flag RxOnly;                ///< the plan allows reception only
  Flag Narrow;                ///< narrow bandwidth
  std::int16_t TxDCS = 0;     ///< 0 = off, 1..104 a code, 105..208 the same codes inverted
  std::int16_t RxDCS = 0;     ///< as TxDCS
  std::int16_t TxCTCSS = 0;   ///< 0 = off, 1..50 a tone
  std::int16_t RxCTCSS = 0;   ///< as TxCTCSS
  Flag RxComp;                ///< complement of the receive tone
  std::string CHDisplayL;     ///< left half of the number the radio shows, 2 characters
  std::string CHDisplayR;     ///< right half, 2 characters
  double Txfreq = 0;          ///< MHz, 0 = none
  double Rxfreq = 0;          ///< MHz, 0 = none
  Flag SelectedPlan;          ///< marine: copy of the SEL1 destination bit
  std::int16_t LMR_EXP = kExpMark;  ///< EXP/LMR: the kind, see IsLmr and IsExp
  Flag USA_Group;                   ///< EXP/LMR: belongs to the USA channel group
  Flag INT_Group;                   ///< EXP/LMR: belongs to the INTL channel group
  Flag CAN_Group;                   ///< EXP/LMR: belongs to the Canada channel group

  [[nodiscard]] bool IsLmr() const { return LMR_EXP == kLmrMark; }
  [[nodiscard]] bool IsExp() const { return LMR_EXP == kExpMark; }
  void SetLmr(bool lmr) { LMR_EXP = lmr ? kLmrMark : kExpMark; }

  bool operator==(const ChannelRecord&) const = default;
};

/// Availability of one channel group.
struct UsableGroup {
  Flag Enable;                   ///< the group can be selected on the radio
  Flag TX_TOT;                   ///< transmit time-out timer on
  std::int32_t Priority_CH = 0;  ///< combined channel number, -1 = none
  Flag Status_Icon;              ///< status icon shown for the group
  std::string Status_name;       ///< up to 4 characters; lives in the settings file only
  std::int32_t Backup = 0;       ///< 0..255 in the radio

  bool operator==(const UsableGroup&) const = default;
};

struct CommonSettings {
  std::int16_t TX_Po_Display = 0;  ///< 0..2, see TxPoDisplayText
  std::int16_t Last_TX_Power = 0;
  std::int16_t SQL = 0;  ///< squelch level 0..15
  std::int16_t Last_CH_Group = 0;
  std::int32_t Last_Display_CH = 0;  ///< combined channel number, -1 = none
  std::int32_t Marine_LMR_CH = 0;    ///< combined channel number, -1 = none
  Flag SCAN;
  std::int16_t Resume_Time = 0;  ///< 0..3, see ResumeTimeText
  Flag PTT_SCAN_Clear;
  Flag Dual_Watch;
  std::int16_t Offset_Time = 0;         ///< 0..24 for -12..+12 hours
  std::int16_t Magnetic_Variation = 0;  ///< 0 = true, 1 = magnetic
  std::int16_t Weater = 0;              ///< weather alert, two bits: 0 = off, 3 = on
  Flag RotaryBeep;

  bool operator==(const CommonSettings&) const = default;
};

/// An on/off flag with a second flag that is shown as "Hi"/"Low".
struct FlagPair {
  Flag On;
  Flag Hi;

  bool operator==(const FlagPair&) const = default;
};

/// Digital selective calling.
struct DscSettings {
  std::array<Flag, 3> AvailableGroup;  ///< USA, INTL, Canada
  std::string UserMmsi;                ///< decimal digits, up to 10
  Flag DistressCancelCall;
  Flag StanbyMode;
  FlagPair PosRequest;
  FlagPair PosSend;
  /// Send Distress Alert, Received All Ships, Group, Individual, POS Request, POS Send,
  /// Geografic, and one more that is stored only.
  std::array<Flag, 8> BeepOutput;
  std::array<FlagPair, 4> AllShipsCall;    ///< Distress, Urgency, Safty, Routine
  std::array<FlagPair, 4> GroupCall;       ///< the same order
  std::array<FlagPair, 4> IndividualCall;  ///< the same order
  Flag IndividualAckMenu;
  Flag IndividualAckMessageMenu;
  Flag PosRequestAckMenu;

  bool operator==(const DscSettings&) const = default;
};

/// Automatic transmitter identification (European inland waterways).
struct AtisSettings {
  std::array<Flag, 4> UsableGroup;  ///< USA, INTL, Canada, EXP/LMR
  std::string Code;                 ///< decimal digits, up to 10
  std::array<Flag, 4> KillerGroup;  ///< the same order

  bool operator==(const AtisSettings&) const = default;
};

struct AtisCallSign {
  std::string Mid;      ///< 3 characters
  std::string Display;  ///< 3 characters

  bool operator==(const AtisCallSign&) const = default;
};

/// A station or group that can be called by number.
struct DirectoryEntry {
  Flag Enable;
  std::string TagName;  ///< up to 11 characters
  std::string Mmsid;    ///< decimal digits, up to 10

  bool operator==(const DirectoryEntry&) const = default;
};

}  // namespace orvane::core
