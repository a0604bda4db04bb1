#include "core/channel_plan_rows.h"

#include <array>
#include <string_view>

namespace orvane::core {
namespace {

using enum MarineDefault::Flags;

/// Position of a channel label: "07" is 14, "07A" is 15.
consteval int At(std::string_view label) {
  int number = 0;
  for (const char c : label) {
    if (c != 'A') number = number * 10 + (c - '0');
  }
  return 2 * number + (label.ends_with('A') ? 1 : 0);
}

constexpr std::array<MarineDefault, 56> kUsaRows = {{
    {At("01A"), "VTS", kNone},
    {At("03A"), "", kNone},
    {At("05A"), "VTS", kNone},
    {At("06"), "SAFTY", kNone},
    {At("07A"), "COMMERCIAL", kNone},
    {At("08"), "COMMERCIAL", kNone},
    {At("09"), "CALLING", kNone},
    {At("10"), "COMMERCIAL", kNone},
    {At("11"), "VTS", kNone},
    {At("12"), "VTS", kNone},
    {At("13"), "BRG/BRG", kPowUp | kLowPower},
    {At("14"), "VTS", kNone},
    {At("15"), "COMMERCIAL", kRxOnly},
    {At("16"), "DISTRESS", kNone},
    {At("17"), "SAR", kLowPower},
    {At("18A"), "COMMERCIAL", kNone},
    {At("19A"), "COMMERCIAL", kNone},
    {At("20"), "PORT OPR", kDuplex},
    {At("20A"), "PORT OPR", kNone},
    {At("21A"), "CCG", kNone},
    {At("22A"), "USCG", kNone},
    {At("23A"), "USCG", kNone},
    {At("24"), "TELEPHONE", kDuplex},
    {At("25"), "TELEPHONE", kDuplex},
    {At("26"), "TELEPHONE", kDuplex},
    {At("27"), "TELEPHONE", kDuplex},
    {At("28"), "TELEPHONE", kDuplex},
    {At("61A"), "CCG", kNone},
    {At("63A"), "VTS", kNone},
    {At("64A"), "COMMERCIAL", kNone},
    {At("65A"), "PORT OPR", kNone},
    {At("66A"), "PORT OPR", kNone},
    {At("67"), "BRG/BRG", kPowUp | kLowPower},
    {At("68"), "SHIP-SHIP", kNone},
    {At("69"), "PLEASURE", kNone},
    {At("70"), "DSC", kRxOnly},
    {At("71"), "PLEASURE", kNone},
    {At("72"), "SHIP-SHIP", kNone},
    {At("73"), "PORT OPR", kNone},
    {At("74"), "PORT OPR", kNone},
    {At("75"), "PORT OPR", kLowPower},
    {At("76"), "PORT OPR", kLowPower},
    {At("77"), "PORT OPR", kLowPower},
    {At("78A"), "SHIP-SHIP", kNone},
    {At("79A"), "SHIP-SHIP", kNone},
    {At("80A"), "SHIP-SHIP", kNone},
    {At("81A"), "CCG", kNone},
    {At("82A"), "CCG", kNone},
    {At("83A"), "USCG", kNone},
    {At("84"), "TELEPHONE", kDuplex},
    {At("85"), "TELEPHONE", kDuplex},
    {At("86"), "TELEPHONE", kDuplex},
    {At("87"), "", kDuplex | kDisabled},
    {At("87A"), "COMMERCIAL", kNone},
    {At("88"), "", kDuplex | kDisabled},
    {At("88A"), "COMMERCIAL", kNone},
}};

constexpr std::array<MarineDefault, 57> kIntlRows = {{
    {At("01"), "TELEPHONE", kDuplex},
    {At("02"), "TELEPHONE", kDuplex},
    {At("03"), "TELEPHONE", kDuplex},
    {At("04"), "INTL", kDuplex},
    {At("05"), "INTL", kDuplex},
    {At("06"), "SAFETY", kNone},
    {At("07"), "INTL", kDuplex},
    {At("08"), "COMMERCIAL", kNone},
    {At("09"), "CALLING", kNone},
    {At("10"), "COMMERCIAL", kNone},
    {At("11"), "VTS", kNone},
    {At("12"), "VTS", kNone},
    {At("13"), "BRG/BRG", kNone},
    {At("14"), "VTS", kNone},
    {At("15"), "COMMERCIAL", kLowPower},
    {At("16"), "DISTRESS", kNone},
    {At("17"), "SAR", kLowPower},
    {At("18"), "INTL", kDuplex},
    {At("19"), "INTL", kDuplex},
    {At("20"), "PORT OPR", kDuplex},
    {At("21"), "INTL", kDuplex},
    {At("22"), "INTL", kDuplex},
    {At("23"), "INTL", kDuplex},
    {At("24"), "TELEPHONE", kDuplex},
    {At("25"), "TELEPHONE", kDuplex},
    {At("26"), "TELEPHONE", kDuplex},
    {At("27"), "TELEPHONE", kDuplex},
    {At("28"), "TELEPHONE", kDuplex},
    {At("60"), "TELEPHONE", kDuplex},
    {At("61"), "INTL", kDuplex},
    {At("62"), "INTL", kDuplex},
    {At("63"), "INTL", kDuplex},
    {At("64"), "TELEPHONE", kDuplex},
    {At("65"), "INTL", kDuplex},
    {At("66"), "INTL", kDuplex},
    {At("67"), "BRG/BRG", kNone},
    {At("68"), "SHIP-SHIP", kNone},
    {At("69"), "PLEASURE", kNone},
    {At("70"), "DSC", kRxOnly},
    {At("71"), "PLEASURE", kNone},
    {At("72"), "SHIP-SHIP", kNone},
    {At("73"), "PORT OPR", kNone},
    {At("74"), "PORT OPR", kNone},
    {At("75"), "PORT OPR", kLowPower},
    {At("76"), "PORT OPR", kLowPower},
    {At("77"), "PORT OPR", kNone},
    {At("78"), "INTL", kDuplex},
    {At("79"), "INTL", kDuplex},
    {At("80"), "INTL", kDuplex},
    {At("81"), "INTL", kDuplex},
    {At("82"), "INTL", kDuplex},
    {At("83"), "INTL", kDuplex},
    {At("84"), "TELEPHONE", kDuplex},
    {At("85"), "TELEPHONE", kDuplex},
    {At("86"), "TELEPHONE", kDuplex},
    {At("87"), "TELEPHONE", kNone},
    {At("88"), "TELEPHONE", kNone},
}};

constexpr std::array<MarineDefault, 59> kCanadaRows = {{
    {At("01"), "TELEPHONE", kDuplex},
    {At("02"), "TELEPHONE", kDuplex},
    {At("03"), "TELEPHONE", kDuplex},
    {At("04A"), "CCG", kNone},
    {At("05A"), "VTS", kNone},
    {At("06"), "SAFETY", kNone},
    {At("07A"), "COMMERCIAL", kNone},
    {At("08"), "COMMERCIAL", kNone},
    {At("09"), "CALLING", kNone},
    {At("10"), "COMMERCIAL", kNone},
    {At("11"), "VTS", kNone},
    {At("12"), "VTS", kNone},
    {At("13"), "BRG/BRG", kPowUp | kLowPower},
    {At("14"), "VTS", kNone},
    {At("15"), "COMMERCIAL", kLowPower},
    {At("16"), "DISTRESS", kNone},
    {At("17"), "SAR", kLowPower},
    {At("18A"), "COMMERCIAL", kNone},
    {At("19A"), "COMMERCIAL", kNone},
    {At("20"), "PORT OPR", kLowPower | kDuplex},
    {At("21A"), "CCG", kNone},
    {At("22A"), "USCG", kNone},
    {At("23"), "INTL", kDuplex},
    {At("24"), "TELEPHONE", kDuplex},
    {At("25"), "TELEPHONE", kDuplex},
    {At("26"), "TELEPHONE", kDuplex},
    {At("27"), "TELEPHONE", kDuplex},
    {At("28"), "TELEPHONE", kDuplex},
    {At("60"), "TELEPHONE", kDuplex},
    {At("61A"), "CCG", kNone},
    {At("62A"), "CCG", kNone},
    {At("63A"), "SHIP-SHIP", kNone},
    {At("64"), "USCG", kDuplex},
    {At("64A"), "TELEPHONE", kNone},
    {At("65A"), "PORT OPR", kNone},
    {At("66A"), "PORT OPR", kNone},
    {At("67"), "BRG/BRG", kNone},
    {At("68"), "SHIP-SHIP", kNone},
    {At("69"), "PLEASURE", kNone},
    {At("70"), "DSC", kRxOnly},
    {At("71"), "PLEASURE", kNone},
    {At("72"), "SHIP-SHIP", kNone},
    {At("73"), "PORT OPR", kNone},
    {At("74"), "PORT OPR", kNone},
    {At("75"), "PORT OPR", kLowPower},
    {At("76"), "PORT OPR", kLowPower},
    {At("77"), "PORT OPR", kLowPower},
    {At("78A"), "SHIP-SHIP", kNone},
    {At("79A"), "SHIP-SHIP", kNone},
    {At("80A"), "SHIP-SHIP", kNone},
    {At("81A"), "CCG", kNone},
    {At("82A"), "CCG", kNone},
    {At("83"), "CCG", kDuplex},
    {At("83A"), "CCG", kNone},
    {At("84"), "TELEPHONE", kDuplex},
    {At("85"), "TELEPHONE", kDuplex},
    {At("86"), "TELEPHONE", kDuplex},
    {At("87"), "PORT OPR", kNone},
    {At("88"), "PORT OPR", kNone},
}};

}  // namespace

std::span<const MarineDefault> MarineDefaults(MarineGroup group) {
  switch (group) {
    case MarineGroup::kUsa:
      return kUsaRows;
    case MarineGroup::kIntl:
      return kIntlRows;
    case MarineGroup::kCanada:
      return kCanadaRows;
  }
  return {};
}

}  // namespace orvane::core
