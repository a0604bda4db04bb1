#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/services.h"

/// Every message that the user can be shown, with its meaning and what to do about it. The same
/// rows feed the message boxes, the command line and the page of messages in the help.
namespace orvane::core {

enum class MessageId {
  // Transfers.
  kPortFailed,
  kNoAnswer,
  kExchangeFailed,
  kWritingFailed,
  kModeRefused,
  kModeUnknown,
  kTimeOut,
  kCancelled,
  kWrongAddress,
  kWrongLength,
  kConfirmSync,
  kRadioBusy,
  kRadioNotReady,
  kModelOfRadio,
  kUnknownRadio,
  kProductOfRadio,
  kDestinationOfRadio,
  kComplete,
  kPartlyWritten,
  kNothingWritten,
  kCopyFailed,
  kCopyNotKept,
  kNotReadBack,
  kRadioDiffers,
  kRadioMixed,
  kOtherPort,
  kSettle,
  kUnexpectedFailure,
  kTransferEnded,
  kNothingTransferred,
  kTransferFailed,
  kNothingComesBack,
  kSimulatedRadioFailed,
  // Files and printing.
  kModelOfSettings,
  kUnknownSettings,
  kNoSettingFile,
  kUnreadableSettings,
  kFileRead,
  kFileChanged,
  kFileSave,
  kFileOvertaken,
  kImageLength,
  kModelOfImage,
  kUnknownImage,
  kProductOfImage,
  kTemplateFailed,
  kSaveChanges,
  kRecovered,
  kDeleteBackup,
  kBackupDamaged,
  kTableUnreadable,
  kPrintFailed,
  kNoPrinter,
  kReportSave,
  // Editing.
  kWrongFrequency,
  kIncompleteChannel,
  kChangeModel,
  kChangeDestination,
  // Narrowband rule.
  kWideForbidden,
  kWideAllowed,
  kMadeNarrow,
  // Help and lists.
  kNoHelp,
  kHelpFailed,
  // Command line only.
  kRadioSilent,
  kKeptAlready,
  kTransferCancelled,
  kImportRest
};

/// Headings of the page of messages.
enum class MessageGroup { kTransfer, kFiles, kEditing, kNarrowband, kHelp, kCommandLine };

/// Texts may hold places for facts, written {name|words}: the fact of that name, or the words
/// where there is none, as on the page of messages. A link to another help page, written
/// [words](page), is its words everywhere else.
struct MessageRow {
  MessageId id;
  MessageGroup group;
  std::array<std::string_view, 3> text;  ///< joined; line breaks are CR LF
  Icon icon = Icon::kCritical;
  Buttons buttons = Buttons::kOk;
  std::string_view where{};  ///< the command or title, where the text alone does not say it
  std::string_view meaning;
  std::string_view remedy;
  /// A second paragraph stands below the text. Questions that say all themselves have none.
  bool explained = true;
};

/// Of a program run that did not end in "Complete!!". Also shown by itself, for as long as it is
/// true.
inline constexpr std::string_view kPartlyWrittenText =
    "The radio now holds a partly written image. Do not use it until it has been programmed again.";

/// Of a program run that ended before its first byte was written.
inline constexpr std::string_view kNothingWrittenText = "Nothing was written to the radio.";

/// In the order of MessageId, which is that of the page of messages.
[[nodiscard]] std::span<const MessageRow> MessageRows();
[[nodiscard]] const MessageRow& RowOf(MessageId id);

/// What is known about one case, by the name of its place in the texts. An empty value empties the
/// place; a fact that is not given leaves the general words.
struct Fact {
  std::string_view name;
  std::string value;
};
using Facts = std::vector<Fact>;

/// The text with general words in place of facts, its links as they are written.
[[nodiscard]] std::string GeneralText(std::string_view text);
/// The text with its facts in place, and without links.
[[nodiscard]] std::string FilledText(std::string_view text, const Facts& facts = {});
/// The text of a row, letter for letter as it is shown.
[[nodiscard]] std::string TextOf(MessageId id, const Facts& facts = {});
/// The message box of a row; its details are the meaning and, on the next line, the remedy.
[[nodiscard]] Message MakeMessage(MessageId id, std::string_view title, const Facts& facts = {});
/// The meaning alone, for a message that stands below another one's text.
[[nodiscard]] std::string MeaningOf(MessageId id, const Facts& facts = {});

}  // namespace orvane::core
