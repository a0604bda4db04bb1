#include "core/message_rows.h"

namespace orvane::core {
namespace {

using enum MessageGroup;
using enum MessageId;

constexpr std::string_view kChooseModel =
    "Set the program to {name|that model} first: in the window under Edit, "
    "[Model](window.html#models); a model that is not offered there is served by the "
    "[command line](cli.html), {option|--model}.";

constexpr std::array kRows = {
    MessageRow{.id = kPortFailed,
               .group = kTransfer,
               .text = {"port inicialize error!!"},
               .meaning = "{port|The serial port} cannot be opened: {reason|the system's reason "
                          "stands here.}",
               .remedy =
                   "Choose the cable's [port](connect.html#port) under Options, SerialPort; see "
                   "[Serial port trouble](serial.html) in the help."},
    MessageRow{.id = kNoAnswer,
               .group = kTransfer,
               .text = {"Communication Error!!"},
               .where = "right after OK",
               .meaning =
                   "The radio did not answer on {port|the chosen port} in three tries: it is off "
                   "or not in clone mode, the cable is not plugged in, or the port is another one.",
               .remedy = "Check cable and [port](connect.html#port), put the radio into "
                         "[clone mode](connect.html) and repeat the transfer."},
    MessageRow{.id = kExchangeFailed,
               .group = kTransfer,
               .text = {"Communication Error!!"},
               .where = "Model Check, or while reading",
               .meaning = "An answer of the radio was wrong, missing or late. Nothing was "
                          "taken over from the radio.",
               .remedy = "Check the plugs, put the radio into [clone mode](connect.html) again and "
                         "repeat the transfer. If it fails at the same place, try another adapter "
                         "or USB socket."},
    MessageRow{.id = kWritingFailed,
               .group = kTransfer,
               .text = {"Communication Error!!"},
               .where = "while programming",
               .meaning = "An answer of the radio was wrong, missing or late. {note|The "
                          "radio is partly written.}",
               .remedy = "Check the plugs, put the radio into [clone mode](connect.html) again and "
                         "[program it again](program.html#partly), whole. If it fails at the same "
                         "place, try another adapter or USB socket."},
    MessageRow{.id = kModeRefused,
               .group = kTransfer,
               .text = {"ACMD Command error!!"},
               .meaning = "The radio refused to enter clone mode.",
               .remedy = "Switch it off, hold [PRESET]+[DOWN]+[SQL] while switching it on, and "
                         "repeat the transfer."},
    MessageRow{.id = kModeUnknown,
               .group = kTransfer,
               .text = {"error!!"},
               .meaning = "The radio gave an unknown answer to the request for clone mode.",
               .remedy = "Switch it off, hold [PRESET]+[DOWN]+[SQL] while switching it on, and "
                         "repeat the transfer. If it stays, the radio is none of the models this "
                         "program knows."},
    MessageRow{.id = kTimeOut,
               .group = kTransfer,
               .text = {"time out!!"},
               .meaning = "The radio took up a command but sent no data within 10 seconds.",
               .remedy = kStartAgain},
    MessageRow{.id = kCancelled,
               .group = kTransfer,
               .text = {"cancel!!"},
               .meaning = "You cancelled while the program waited for the radio's data.",
               .remedy = "Nothing is to be done."},
    MessageRow{.id = kWrongAddress,
               .group = kTransfer,
               .text = {"address error!!"},
               .meaning = "The radio sent another part of its memory than was asked for.",
               .remedy = kStartAgain},
    MessageRow{.id = kWrongLength,
               .group = kTransfer,
               .text = {"data error!!"},
               .meaning = "The radio sent more or fewer bytes than were asked for, or bytes that "
                          "are none.",
               .remedy = kStartAgain},
    MessageRow{.id = kConfirmSync,
               .group = kTransfer,
               .text = {"confirm the synchronization of the communication"},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kOkCancel,
               .meaning = "The radio refused a command.",
               .remedy = "OK agrees anew with the radio and tries once more; Cancel gives up."},
    MessageRow{.id = kRadioBusy,
               .group = kTransfer,
               .text = {"Radio is busy!!"},
               .icon = Icon::kExclamation,
               .buttons = Buttons::kRetryCancel,
               .meaning = "The radio is busy with something else.",
               .remedy = "Wait a moment, then Retry asks it again; Cancel gives up."},
    MessageRow{.id = kRadioNotReady,
               .group = kTransfer,
               .text = {"Radio not ready!!"},
               .meaning = "The radio answered, but did not say that it is ready. Nothing was read "
                          "or written.",
               .remedy = kStartAgain},
    MessageRow{.id = kModelOfRadio,
               .group = kTransfer,
               .text = {"ModelType Error !!"},
               .meaning = "The radio's model is {theirs|another one}; the program is set to "
                          "{ours|the model of its data}. Nothing was read or written.",
               .remedy = kChooseModel},
    MessageRow{.id = kUnknownRadio,
               .group = kTransfer,
               .text = {"ModelType Error !!"},
               .meaning = "The radio names {theirs|a model that this program does not know, or two "
                          "models at once}; the program is set to {ours|the model of its data}. "
                          "Nothing was read or written.",
               .remedy = "Connect a radio of a model that this program knows. A radio that names "
                         "two models at once is damaged."},
    MessageRow{.id = kProductOfRadio,
               .group = kTransfer,
               .text = {"Product Error !!"},
               .meaning = "The product byte of {ours|KT740} is {wanted|2}, the radio's is {theirs|"
                          "another}: it is another product. Nothing was read or written.",
               .remedy = "Connect another radio; this one can be neither read nor programmed as "
                         "{ours|KT740}."},
    MessageRow{.id = kDestinationOfRadio,
               .group = kTransfer,
               .text = {"Destination Error !!"},
               .meaning = "The radio's destination is {theirs|one}, the data's is {ours|another}. "
                          "Nothing was read or written.",
               .remedy = "Choose {name|the radio's [destination](window.html#models)} from the "
                         "Destination menu (it replaces the data, so save it first), or open a "
                         "file of that destination. On the command line give a file of that "
                         "destination, for reading with --base."},
    MessageRow{.id = kComplete,
               .group = kTransfer,
               .text = {"Complete!!"},
               .icon = Icon::kInformation,
               .meaning = "The transfer has reached its end and every block was confirmed.",
               .remedy = "After programming: switch the radio off and on, and check it.",
               .explained = false},
    MessageRow{.id = kPartlyWritten,
               .group = kTransfer,
               .text = {kPartlyWrittenText},
               .icon = Icon::kNone,
               .where = "Program to Radio",
               .meaning = "Programming failed or was cancelled after it had begun to write.",
               .remedy = "[Program the radio again](program.html#partly), whole.",
               .explained = false},
    MessageRow{.id = kNothingWritten,
               .group = kTransfer,
               .text = {kNothingWrittenText},
               .icon = Icon::kInformation,
               .where = "Program to Radio, cancelled",
               .meaning = "You cancelled while the radio's memory was read before programming.",
               .remedy = "Nothing is to be done: the radio is as it was.",
               .explained = false},
    MessageRow{.id = kCopyFailed,
               .group = kTransfer,
               .text = {"Communication Error!!"},
               .where = "while the radio is read before programming",
               .meaning = "An answer of the radio was wrong, missing or late while its memory was "
                          "read. Nothing was written to the radio.",
               .remedy = "Check the plugs, put the radio into [clone mode](connect.html) again and "
                         "repeat the transfer. If it fails at the same place, try another adapter "
                         "or USB socket."},
    MessageRow{.id = kCopyNotKept,
               .group = kTransfer,
               .text = {"The copy of what the radio holds could not be kept."},
               .where = "Program to Radio",
               .meaning = "{reason|The system's reason stands here.} Nothing was written to the "
                          "radio.",
               .remedy = "Make room on the disk or choose another place, then repeat the transfer; "
                         "or program without keeping a copy."},
    MessageRow{.id = kNotReadBack,
               .group = kTransfer,
               .text = {"The radio was written and has acknowledged everything, but it could not "
                        "be read back."},
               .icon = Icon::kExclamation,
               .where = "Program to Radio",
               .meaning = "Programming has ended well. {reason|Comparing was cancelled, or an "
                          "answer of the radio was wrong, missing or late.}",
               .remedy = "Switch the radio off and on, and check it. To have it compared, put it "
                         "into [clone mode](connect.html) again and program it once more."},
    MessageRow{.id = kRadioDiffers,
               .group = kTransfer,
               .text = {"The radio does not hold what was sent."},
               .where = "Program to Radio",
               .meaning = "It acknowledged everything, but read back it differs: {fields|the "
                          "fields stand here, each with what was sent and what the radio holds.}",
               .remedy = "[Program the radio again](program.html#partly), whole. If the same "
                         "fields differ again, the radio does not keep what is written to it: do "
                         "not use it."},
    MessageRow{.id = kRadioMixed,
               .group = kTransfer,
               .text = {"The radio does not hold what an earlier run was writing."},
               .icon = Icon::kExclamation,
               .where = "Program to Radio",
               .meaning = "What a settings file has no place for stays as the radio has it. But a "
                          "run at this port did not complete, and since then the radio holds "
                          "something else there: a slip that would be taken for its own settings, "
                          "or it is another radio. Nothing was written to the radio.",
               .remedy = "Is it the same radio, press Program Again or Put Back What Was There in "
                         "the red strip; is it another one, It Is Settled. In orvane-cli name a "
                         "file of the radio with --base."},
    MessageRow{.id = kOtherPort,
               .group = kTransfer,
               .text = {"The radio was left partly written at another port. Write to this one?"},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kYesNo,
               .where = "Program Again and Put Back What Was There",
               .meaning = "{port|The port at which it was} is not there. {chosen|Another one} is "
                          "chosen, and what the radio at it holds would be replaced.",
               .remedy = "Plug the cable in where it was. Press Yes only when the same radio is at "
                         "the other port now; the warning stays until you press It Is Settled."},
    MessageRow{.id = kSettle,
               .group = kTransfer,
               .text = {"Is the radio in order again?"},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kYesNo,
               .where = "It Is Settled",
               .meaning = "Yes takes the warning about the partly written radio away, and what was "
                          "kept for it: what was being written and what was there before.",
               .remedy = "Press Yes when the radio was programmed by other means, or is out of "
                         "use."},
    MessageRow{.id = kUnexpectedFailure,
               .group = kTransfer,
               .text = {"{failure|A number and a description}"},
               .where = "titled Orvane",
               .meaning = "{port|The port} failed in the middle of the transfer, for instance "
                          "because the adapter was pulled out. {note|If it was programming, the "
                          "radio may be partly written.}",
               .remedy = "Plug the adapter in again, choose its [port](connect.html#port), put the "
                         "radio into [clone mode](connect.html) and repeat the transfer."},
    MessageRow{.id = kTransferEnded,
               .group = kTransfer,
               .text = {"Complete"},
               .icon = Icon::kNone,
               .where = "under the progress bar",
               .meaning = "Everything was transferred.",
               .remedy = "Nothing is to be done.",
               .explained = false},
    MessageRow{.id = kNothingTransferred,
               .group = kTransfer,
               .text = {"Nothing was transferred"},
               .icon = Icon::kNone,
               .where = "under the progress bar",
               .meaning = "You answered no to a question, or there was nothing to do.",
               .remedy = "Nothing is to be done.",
               .explained = false},
    MessageRow{.id = kTransferFailed,
               .group = kTransfer,
               .text = {"Failed {place|at block n, or before the first block}"},
               .icon = Icon::kNone,
               .where = "under the progress bar; the command line too",
               .meaning = "Where the transfer stopped. The message before it says why.",
               .remedy = "Follow that message.",
               .explained = false},
    MessageRow{.id = kNothingComesBack,
               .group = kTransfer,
               .text = {"Nothing comes back on {port|the port}. Check the cable, or {way|choose "
                        "another port.}"},
               .icon = Icon::kNone,
               .where = "under the progress bar; the command line too",
               .meaning = "For three seconds the cable has not sent back what the PC sends. The "
                          "program goes on waiting.",
               .remedy = "See [Serial port trouble](serial.html).",
               .explained = false},
    MessageRow{.id = kSimulatedRadioFailed,
               .group = kTransfer,
               .text = {"The simulated radio could not be started."},
               .icon = Icon::kExclamation,
               .where = "Options, SerialPort, Try the Simulated Radio",
               .meaning = "{reason|Its program orvane-radio is missing, or each of the sixteen "
                          "port numbers is taken; the reason stands here.}",
               .remedy = "Install the program again if orvane-radio is missing. Else end other "
                         "[simulated radios](simulated.html), or unplug an adapter. Real radios "
                         "and the chosen port are as they were."},
};

}  // namespace

std::span<const MessageRow> TransferMessageRows() {
  return kRows;
}

}  // namespace orvane::core
