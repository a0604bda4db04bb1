#include <algorithm>
#include <array>

#include "link/doctor.h"

namespace orvane::link {
namespace {

using enum Verdict;

constexpr std::string_view kSetModel =
    "Set the program to {name|that model}: in the window under Edit, [Model](window.html#models), "
    "if it is offered there, on the [command line](cli.html) by {option|--model}.";

constexpr std::array kRows = {
    VerdictRow{.verdict = kNoDevice,
               .name = "no-device",
               .text = "There is no such device.",
               .remedy = "Connect the cable or choose another port."},
    VerdictRow{.verdict = kNoDeviceBrltty,
               .name = "no-device-brltty",
               .text =
                   "There is no such device; {holder|brltty} runs, which takes adapters of some "
                   "cables for Braille displays.",
               .remedy = "Connect the cable; if its port does not appear and no Braille display is "
                         "in use, remove brltty and plug the cable in again.",
               .command = "sudo apt remove brltty"},
    VerdictRow{.verdict = kNotSerial,
               .name = "not-serial",
               .text = "This is not a serial port.",
               .remedy = "Choose another port."},
    VerdictRow{.verdict = kBusy,
               .name = "busy",
               .text = "The port is in use by {holder|another program, which is named here}.",
               .remedy = "Close that program."},
    VerdictRow{.verdict = kBusyUnknown,
               .name = "busy-unknown",
               .text = "Another program is using the port.",
               .remedy = "Close that program.",
               .command = "sudo fuser -v {device|/dev/ttyUSB0}"},
    VerdictRow{.verdict = kModemManager,
               .name = "modem-manager",
               .text =
                   "The port is in use{likely|} by {holder|ModemManager}, which looks for a modem "
                   "at every port.",
               .remedy = "Stop ModemManager until the computer starts the next time.",
               .command = "sudo systemctl stop ModemManager"},
    VerdictRow{
        .verdict = kBrltty,
        .name = "brltty",
        .text = "The port is in use{likely|} by {holder|brltty}, which takes the cable for a "
                "Braille display.",
        .remedy = "If no Braille display is in use, remove brltty and plug the cable in again.",
        .command = "sudo apt remove brltty"},
    VerdictRow{.verdict = kNoPermission,
               .name = "no-permission",
               .text = "You may not use the port.",
               .remedy = "Join the group \"{group|dialout}\", then log in again.",
               .command = "sudo usermod -aG {group|dialout} {user|USER}"},
    VerdictRow{.verdict = kNoGroup,
               .name = "no-group",
               .text = "You may not use the port, and there is no group that one could join.",
               .remedy = "Ask the administrator for permission to use {device|the device}."},
    VerdictRow{.verdict = kCannotOpen,
               .name = "cannot-open",
               .text = "The port cannot be opened: {reason|the system's reason stands here.}",
               .remedy = "Plug the cable out and in again, or choose another port."},
    VerdictRow{.verdict = kNothingBack,
               .name = "nothing-back",
               .text =
                   "The port opens, but nothing comes back: no cable is at it, or a cable without "
                   "working electronics.",
               .remedy = "Push in the cable's plug at the computer, or choose another port."},
    VerdictRow{.verdict = kOtherDevice,
               .name = "other-device",
               .text =
                   "What comes back is not what was sent: another device than the cable is at the "
                   "port.",
               .remedy = "Choose another port."},
    VerdictRow{.verdict = kNoRadio,
               .name = "no-radio",
               .text = "The cable works, but no radio answers.",
               .remedy =
                   "Push in the plug at the radio, switch it off and hold [PRESET]+[DOWN]+[SQL] "
                   "while switching it on ([clone mode](connect.html))."},
    VerdictRow{.verdict = kNotReady,
               .name = "not-ready",
               .text = "A radio answers, but cannot be asked for its model. {complaint|It does "
                       "not answer the commands of clone mode.}",
               .remedy = "Switch it off and hold [PRESET]+[DOWN]+[SQL] while switching it on."},
    VerdictRow{.verdict = kOtherModel,
               .name = "other-model",
               .text = "A radio answers, but it is a {theirs|another model}; the program is set to "
                       "{ours|the model of its data}.",
               .remedy = kSetModel},
    VerdictRow{.verdict = kUnknownModel,
               .name = "unknown-model",
               .text =
                   "A radio answers, but it names {theirs|a model that this program does not know, "
                   "or two models at once}.",
               .remedy = "Connect a radio of a model that this program knows."},
    VerdictRow{.verdict = kOtherProduct,
               .name = "other-product",
               .text = "A {ours|KT740} answers, but its product byte is {theirs|another}, not "
                       "{wanted|2}: it is another product.",
               .remedy = "Connect another radio."},
    VerdictRow{.verdict = kReady,
               .name = "ready",
               .text = "The cable works, and a {ours|radio of the right model} answers.",
               .remedy = "It can be read and programmed."},
    VerdictRow{.verdict = kBrokeOff,
               .name = "broke-off",
               .text = "The connection broke off during the test.",
               .remedy = "Push in both plugs of the cable and test again."},
    VerdictRow{.verdict = kCancelled,
               .name = "cancelled",
               .text = "The test was cancelled.",
               .remedy = "Test again when you want to know."},
};

consteval bool InOrder() {
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    if (kRows[i].verdict != static_cast<Verdict>(i)) return false;
  }
  return kRows.size() == static_cast<std::size_t>(kCancelled) + 1;
}
static_assert(InOrder(), "a verdict is the index of its row");

}  // namespace

std::span<const VerdictRow> VerdictRows() {
  return kRows;
}

const VerdictRow& RowOf(Verdict verdict) {
  return kRows[static_cast<std::size_t>(verdict)];
}

}  // namespace orvane::link
