#include "core/explanations.h"

#include <algorithm>
#include <array>

namespace orvane::core {
namespace {

// clang-format off
constexpr std::array kExplanations = {
    // Channel page and channel tables
    Explanation{"CH", "", "CH",
                "Channel number; for an extra channel its place among the forty."},
    Explanation{"CH Display", "txtCN", "DISP",
                "Channel display: what the radio shows as the number of the channel."},
    Explanation{"CHD", "", "CHD",
                "Channel display: what the radio shows as the number of an extra channel."},
    Explanation{"Rx Frequency", "txtCRF", "RX[MHz]",
                "Receive frequency in MHz: where the radio listens. Dashes mean none."},
    Explanation{"Tx Frequency", "txtCTF", "TX[MHz]",
                "Transmit frequency in MHz: where the radio sends. Dashes mean none: the channel "
                "only receives."},
    Explanation{"CH Enable", "chkCEnable", "ENABLE",
                "Whether the channel is in use: the radio offers it only then."},
    Explanation{"Tx Enable", "chkCTXEnable", "TX",
                "Transmitting: whether the radio may send on the channel, or only listens to it."},
    Explanation{"Low Power Only", "chkCTXOnly", "LOW",
                "Low power: the radio sends with low power on the channel."},
    Explanation{"Power Up", "chkCTXPower", "UP",
                "Power up: on a low-power channel, the user of the radio may raise the power for "
                "a call."},
    Explanation{"Duplex", "chkCDup", "DUP",
                "Duplex: the radio listens on another frequency than it sends on, that of the "
                "shore station."},
    Explanation{"Scan Memory", "chkCScan", "MEM",
                "Scan memory: the channel is one of those the radio goes through when it scans."},
    Explanation{"Scrambler", "cmbScramble", "VS",
                "Voice scrambler: makes speech unintelligible to radios that are not set to the "
                "same code, 0 to 3."},
    Explanation{"CH Name", "txtCTag", "CH Name",
                "Channel name: up to 12 characters, shown on the radio."},
    Explanation{"Wide, Narrow", "optCWide", "W/N",
                "Bandwidth: wide, or narrow (N), which takes half the room on the air. Both radios "
                "need the same."},
    Explanation{"TX Tone", "", "TxTone",
                "Transmit tone: sent along with your voice, so that radios set to it open up. A "
                "CTCSS tone or a DCS code."},
    Explanation{"RX Tone", "", "RxTone",
                "Receive tone: the radio stays silent until it hears that tone. A CTCSS tone or a "
                "DCS code."},
    Explanation{"CTCSS", "cmbCTCSS", "",
                "A low tone, in hertz, that goes along with speech. Choosing one sets DCS to Off."},
    Explanation{"DCS", "cmbDCS", "",
                "A digital code that goes along with speech; N is normal, I inverted. Choosing one "
                "sets CTCSS to Off."},
    Explanation{"COMP", "chkComp", "Comp",
                "Complement: goes with the receive DCS code and works only while there is one. "
                "Leave it as it was read unless your dealer says otherwise."},
    Explanation{"[USA]", "chkCGroup_0", "USA",
                "The radio offers this EXP channel in its channel group USA."},
    Explanation{"[INTL]", "chkCGroup_1", "INTL",
                "The radio offers this EXP channel in its international channel group."},
    Explanation{"[CAN]", "chkCGroup_2", "CAN",
                "The radio offers this EXP channel in its Canadian channel group."},

    // Available CH Group Setup
    Explanation{"USA", "chkUsable_0", "",
                "The marine channels as used in the United States. Switched off, the radio does "
                "not offer them."},
    Explanation{"INTL", "chkUsable_1", "",
                "The international marine channels. Switched off, the radio does not offer them."},
    Explanation{"CANADA", "chkUsable_2", "",
                "The marine channels as used in Canada. Switched off, the radio does not offer "
                "them."},
    Explanation{"LMR CH", "chkUsable_3", "",
                "Extra channels with free frequencies that are each switched on by themselves. LMR "
                "means land mobile radio, EXP expanded."},
    Explanation{"EXP CH", "chkUsableEXP", "",
                "Expanded channels: the extra channels that go with the groups USA, INTL and CAN. "
                "Switching them on switches off those that belong to none."},
    Explanation{"TX TOT", "cmbUsableTot", "",
                "Transmit time-out timer: ends a transmission that lasts too long, such as one "
                "from a key that is stuck."},
    Explanation{"Priority CH", "cmbUsablePri", "",
                "Priority channel: the one the radio keeps an eye on while it is on another; Off "
                "for none."},
    Explanation{"Status Icon", "cmbUsableSts", "",
                "On: the radio shows an icon for the group. Off: the group's status name, if it "
                "has one, stands behind its name in the tree."},

    // Common Setup
    Explanation{"TX Po Display", "cmbCommonTXPo", "",
                "The transmit power that the radio starts with."},
    Explanation{"Lo Po Only", "", "", "Low power only: always start with low power."},
    Explanation{"Lo Po on Changing CH", "", "",
                "Low power on changing the channel: back to low power at each change of channel."},
    Explanation{"Last TX Po", "", "",
                "Last transmit power: start with the power that was used last."},
    Explanation{"SCAN", "cmbCommonScan", "",
                "Whether the radio can scan: go through channels until one is in use."},
    Explanation{"Resume Time", "cmbCommonResume", "",
                "How long a scan waits on a channel before it goes on."},
    Explanation{"PTT SCAN Clear", "cmbCommonPTTSCAN", "",
                "On: pressing the transmit key (PTT, push to talk) ends a scan."},
    Explanation{"Dual Watch", "cmbCommonDual", "",
                "Listening to two channels in turn."},
    Explanation{"Rotary Beep", "cmbCommonRotary", "",
                "A beep at each step of the radio's knob."},
    Explanation{"Weather Alert", "cmbCommonWeater", "",
                "The radio sounds the alarm of the weather service. It listens for it on the "
                "weather channels that are enabled."},

    // Menus
    Explanation{"Destination", "", "",
                "The variant of the model: which channel plans the radio is made for. Its memory "
                "holds it in two bits, SEL1 and SEL2."},

    // Weather
    Explanation{"Enable", "chkDEnable", "",
                "Whether the weather channel is in use: the radio offers it only then."},
    Explanation{"Scan", "chkDScan", "",
                "The weather channel is one of those the radio goes through when it scans."},
    Explanation{"CH Name", "txtDTagName", "",
                "Channel name: up to 12 characters, shown on the radio."},
};
// clang-format on

std::string_view TextOf(std::string_view Explanation::*key, std::string_view value) {
  if (value.empty()) return {};
  const auto* const row =
      std::find_if(kExplanations.begin(), kExplanations.end(),
                   [&](const Explanation& candidate) { return candidate.*key == value; });
  return row == kExplanations.end() ? std::string_view() : row->text;
}

}  // namespace

std::span<const Explanation> Explanations() {
  return kExplanations;
}

std::string_view ExplainControl(std::string_view object_name) {
  const std::string_view own = TextOf(&Explanation::control, object_name);
  if (!own.empty()) return own;
  return TextOf(&Explanation::control, object_name.substr(0, object_name.find('_')));
}

std::string_view ExplainColumn(std::string_view caption) {
  return TextOf(&Explanation::column, caption);
}

std::string_view ExplainWord(std::string_view word) {
  return TextOf(&Explanation::word, word);
}

}  // namespace orvane::core
