#include "core/message_rows.h"

namespace orvane::core {
namespace {

using enum MessageGroup;
using enum MessageId;

constexpr std::string_view kCaution = "FCC Rule Caution!\r\n\r\n";
constexpr std::string_view kIncludesWide =
    "Your Data includes some Wide bandwidth CHs in 150 - 174 MHz band.\r\n"
    "After Jan.1, 2013, You must change their CHs to Narrow bandwidth.\r\n\r\n";

constexpr std::string_view kChooseFileOfModel =
    "Choose a file of {ours|that model}, or set the program to {name|the file's model}: in the "
    "window under Edit, [Model](window.html#models); a model that is not offered there is served "
    "by the [command line](cli.html), {option|--model}.";

constexpr std::array kRows = {
    MessageRow{.id = kModelOfSettings,
               .group = kFiles,
               .text = {"different model!!"},
               .where = "Open",
               .meaning = "The file is for {theirs|another model}; the program is set to {ours|"
                          "the model in its status bar}.",
               .remedy = kChooseFileOfModel},
    MessageRow{.id = kUnknownSettings,
               .group = kFiles,
               .text = {"different model!!"},
               .where = "Open",
               .meaning = "The file is for {theirs|a model that this program does not know}; the "
                          "program is set to {ours|the model in its status bar}.",
               .remedy = "Choose a file of {ours|the model}."},
    MessageRow{.id = kNoSettingFile,
               .group = kFiles,
               .text = {"different model!!"},
               .where = "Open",
               .meaning = "The file does not say which model it is for, so it is no settings file.",
               .remedy = "Choose a file that this program has saved (.dat)."},
    MessageRow{.id = kUnreadableSettings,
               .group = kFiles,
               .text = {"different model!!"},
               .where = "Open",
               .meaning = "{reason|The file cannot be read, so its model is unknown; the file's "
                          "name and the system's reason stand here.}",
               .remedy = "Check that the file and its drive are there, and that you may read it."},
    MessageRow{.id = kFileRead,
               .group = kFiles,
               .text = {"FileRead Error!!"},
               .icon = Icon::kExclamation,
               .where = "Open; loading an image file",
               .meaning = "{reason|The file cannot be read; its name and the system's reason stand "
                          "here.}",
               .remedy = "Check that the file and its drive are there, and that you may read it. "
                         "The data in the program is unchanged."},
    MessageRow{.id = kFileChanged,
               .group = kFiles,
               .text = {"FileRead Error!!"},
               .icon = Icon::kExclamation,
               .where = "Open",
               .meaning = "The file changed while it was being read.",
               .remedy = "Let the program that writes the file finish, then open it again. The "
                         "data in the program is unchanged."},
    MessageRow{.id = kFileSave,
               .group = kFiles,
               .text = {"FileSave Error!!"},
               .icon = Icon::kExclamation,
               .where = "Save; saving an image file; convert to .pdf",
               .meaning = "{reason|The file cannot be written: no permission, a full drive, a "
                          "drive that has gone. Its name and the system's reason stand here.}",
               .remedy = "What stood in the file before is still whole. Save to another place, "
                         "or remove the cause and save again."},
    MessageRow{.id = kFileOvertaken,
               .group = kFiles,
               .text = {"Another program has changed the file since it was opened or saved here."},
               .icon = Icon::kExclamation,
               .buttons = Buttons::kOverwriteSaveAsCancel,
               .where = "Save",
               .meaning = "{path|The file's name stands here.}\nWhat the other program wrote would "
                          "be lost.",
               .remedy = "Save As keeps both: the data here go into another file. Overwrite "
                         "replaces the other program's work."},
    MessageRow{.id = kImageLength,
               .group = kFiles,
               .text = {"bad file!!"},
               .where = "loading an image file",
               .meaning = "The file has {length|another length}; an image of {ours|a radio} has "
                          "{wanted|16384 bytes, of KT310 8192}.",
               .remedy = "Choose an image file of {ours|the [model](window.html#models)}."},
    MessageRow{.id = kModelOfImage,
               .group = kFiles,
               .text = {"ModelType Error !!"},
               .where = "loading an image file",
               .meaning = "The image is of {theirs|another model}; the program is set to {ours|"
                          "the model in its status bar}.",
               .remedy = kChooseFileOfModel},
    MessageRow{.id = kUnknownImage,
               .group = kFiles,
               .text = {"ModelType Error !!"},
               .where = "loading an image file",
               .meaning = "The image names {theirs|a model that this program does not know, or two "
                          "models at once}.",
               .remedy = "Choose an image file of {ours|a model that this program knows}. An image "
                         "that names two models at once is damaged."},
    MessageRow{.id = kProductOfImage,
               .group = kFiles,
               .text = {"ProductType Error !!"},
               .where = "loading an image file",
               .meaning = "The product byte of {ours|KT740} is {wanted|2}, the image's is {theirs|"
                          "another}: it is another product's.",
               .remedy = "Choose an image file of {ours|KT740}."},
    MessageRow{.id = kTemplateFailed,
               .group = kFiles,
               .text = {"IniFileRead Error!!"},
               .icon = Icon::kExclamation,
               .where = "Destination menu",
               .meaning =
                   "The template of the destination cannot be used. {reason|It is missing or "
                   "damaged.}",
               .remedy = "The data now holds the defaults. Install the program again, or read a "
                         "radio of that destination."},
    MessageRow{.id = kSaveChanges,
               .group = kFiles,
               .text = {"KIV data has changed.\r\nDo you want to save changes?"},
               .icon = Icon::kExclamation,
               .buttons = Buttons::kYesNoCancel,
               .where = "Exit",
               .meaning = "Something was changed since the data was made or read.",
               .remedy = "Yes saves and exits, No exits without saving, Cancel stays. Saving "
                         "before does not silence the question.",
               .explained = false},
    MessageRow{.id = kRecovered,
               .group = kFiles,
               .text = {"Data that were never saved have been found."},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kRestoreKeepDiscard,
               .where = "at the start, after a power cut or a crash",
               .meaning = "They were kept at {time|a time that stands here}: {loss|what would be "
                          "restored}. {file|The name of their file follows.}",
               .remedy = "Restore brings them back, and [Undo](window.html#undo) takes that back. "
                         "Keep for Later asks again at the next start. Discard removes them."},
    MessageRow{.id = kDeleteBackup,
               .group = kFiles,
               .text = {"Delete {what|the backup}?"},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kYesNo,
               .where = "Backups",
               .meaning = "What is deleted here is gone for good.",
               .remedy = "No keeps it. Past 200 MB the oldest backups go by themselves."},
    MessageRow{.id = kBackupDamaged,
               .group = kFiles,
               .text = {"The backup cannot be read.\r\n{reason|The line and column where it is "
                        "damaged}"},
               .where = "Backups",
               .meaning = "The file of the backup was changed, or its disk has faults.",
               .remedy = "Choose another one. The file stays where it is."},
    MessageRow{.id = kTableUnreadable,
               .group = kFiles,
               .text = {"The table cannot be read.\r\n{reason|The line and what is wrong there}"},
               .icon = Icon::kExclamation,
               .where = "Import Table; import",
               .meaning = "The file is no table as this program and spreadsheets write them, or it "
                          "is damaged.",
               .remedy = "Save it as CSV in the spreadsheet again, or [export](tables-csv.html) "
                         "the table once more to see its form. The data is unchanged."},
    MessageRow{.id = kPrintFailed,
               .group = kFiles,
               .text = {"Print Error!!"},
               .icon = Icon::kExclamation,
               .where = "Print",
               .meaning = "{reason|The printer failed; the reason stands here: Printing was "
                          "aborted; The printer reports an error; The printer does not take the "
                          "pages; The pages could not be painted; or the system's own words.}",
               .remedy = "Check the printer, its paper and its queue, or print to a PDF file. The "
                         "data is unharmed."},
    MessageRow{.id = kNoPrinter,
               .group = kFiles,
               .text = {"This computer has no printer.\r\n"
                        "Do you want to save the printout as a PDF file?"},
               .icon = Icon::kInformation,
               .buttons = Buttons::kOkCancel,
               .where = "Print",
               .meaning = "No printer is set up.",
               .remedy = "OK asks for a file name; Cancel prints nothing.",
               .explained = false},
    MessageRow{.id = kReportSave,
               .group = kFiles,
               .text = {"{reason|The system's words}"},
               .icon = Icon::kExclamation,
               .where = "titled with the model, from the report window or the command line",
               .meaning = "{path|The report} was not written. What stood in the file before is "
                          "still whole.",
               .remedy = "Save it to another place, or remove the cause and save again."},

    MessageRow{.id = kWrongFrequency,
               .group = kEditing,
               .text = {"Data Error!!"},
               .icon = Icon::kExclamation,
               .where = "titled Rx frequency or Tx frequency",
               .meaning = "{typed|The entry} is no {field|frequency} of {model|this model}: it "
                          "takes {low|134 or 137} to {high|174} MHz{raster|, on some models in "
                          "steps of 25 kHz}.",
               .remedy = "Correct the [frequency](channel.html#context-2502), or empty the field "
                         "for none."},
    MessageRow{.id = kIncompleteChannel,
               .group = kEditing,
               .text = {"Data Error!!\r\nPlease input correct data."},
               .icon = Icon::kExclamation,
               .where = "on leaving an extra channel",
               .meaning = "The channel is in use, but {missing|it has no Rx Frequency, or CH "
                          "Display has fewer than 2 characters on the left}.",
               .remedy = "Fill that in. {way|Or switch CH Enable off: a channel that is not in "
                         "use may be left as it is.}"},
    MessageRow{.id = kChangeModel,
               .group = kEditing,
               .text = {"Do yo want to program the {series|KT520} series?"},
               .icon = Icon::kExclamation,
               .buttons = Buttons::kOkCancel,
               .where = "Edit, Model (or another series)",
               .meaning = "Changing the model replaces all data by defaults.",
               .remedy = "OK if the data is saved or not needed; else Cancel.",
               .explained = false},
    MessageRow{.id = kChangeDestination,
               .group = kEditing,
               .text = {"Do yo want to change to {name|KT740-usa}?"},
               .icon = Icon::kExclamation,
               .buttons = Buttons::kOkCancel,
               .where = "Destination menu (or another name)",
               .meaning = "Choosing a destination replaces all data by its template.",
               .remedy = "OK if the data is saved or not needed; else Cancel.",
               .explained = false},

    MessageRow{.id = kWideForbidden,
               .group = kNarrowband,
               .text = {kCaution, kIncludesWide,
                        "Your Data was changed Wide CHs to Narrow, and Do you start downloading "
                        "them?"},
               .icon = Icon::kNone,
               .buttons = Buttons::kYesNo,
               .where = "Download",
               .meaning = "Wide LMR channels in the band, before programming.",
               .remedy = "Yes programs the radio with narrow channels. No sends nothing; the "
                         "channels are narrow in the program all the same.",
               .explained = false},
    MessageRow{.id = kWideAllowed,
               .group = kNarrowband,
               .text = {kCaution, kIncludesWide,
                        "Do you change their CHs to Narrow bandwidth automatically, and start Do "
                        "you start downloading them?\r\n"
                        "    Yes : It will be change the bandwidth into Narrow and start "
                        "downloading.\r\n"
                        "    No : It will start downloading (w/o changing the bandwidth)"},
               .icon = Icon::kNone,
               .buttons = Buttons::kYesNo,
               .where = "Download",
               .meaning = "The same, but the PC's clock stands before 2013.",
               .remedy = "Set the clock right. Yes makes the channels narrow.",
               .explained = false},
    MessageRow{.id = kMadeNarrow,
               .group = kNarrowband,
               .text = {kCaution,
                        "After Jan.1, 2013, You must change some Wide CHs to Narrow in the 150 - "
                        "174 MHz band.\r\n\r\n",
                        "Your Data was changed Wide CHs to Narrow."},
               .icon = Icon::kNone,
               .where = "Upload, Save",
               .meaning = "Wide LMR channels in the band were read from a radio, or are about to "
                          "be saved.",
               .remedy = "Nothing; the channels in the program are narrow now. After reading, the "
                         "radio still has them wide until you program it.",
               .explained = false},

    MessageRow{.id = kNoHelp,
               .group = kHelp,
               .text = {"Unable to display Help Contents. There is no Help associated with this "
                        "project."},
               .icon = Icon::kInformation,
               .where = "Help",
               .meaning = "The help file Orvane.qch is not where the program's data files are.",
               .remedy = "Install the program again."},
    MessageRow{.id = kHelpFailed,
               .group = kHelp,
               .text = {"{failure|The help has no topic and a number; or the help file's name and "
                        "the system's words}"},
               .icon = Icon::kNone,
               .where = "F1, Help",
               .meaning = "The help file is damaged, cannot be read or is of another version than "
                          "the program.",
               .remedy = "Install the program again."},

    MessageRow{.id = kRadioSilent,
               .group = kCommandLine,
               .text = {"The radio does not answer on {port|the chosen port}"},
               .icon = Icon::kNone,
               .where = "read, program",
               .meaning = "The radio answered the handshake and then fell silent.",
               .remedy = kStartAgain},
    MessageRow{.id = kKeptAlready,
               .group = kCommandLine,
               .text = {"The file {path|of --keep} is there already."},
               .where = "program --keep",
               .meaning =
                   "The radio was left partly written, and this file may be all that is left "
                   "of what it held before. Nothing was written to the radio.",
               .remedy = "Name another file with --keep."},
    MessageRow{.id = kTransferCancelled,
               .group = kCommandLine,
               .text = {"Cancelled {place|at block n}"},
               .icon = Icon::kNone,
               .where = "read, program",
               .meaning = "Ctrl-C was pressed, or the program was told to end.",
               .remedy = "Nothing after reading; no file was written. After programming see the "
                         "line about a partly written image, if there is one.",
               .explained = false},
    MessageRow{.id = kImportRest,
               .group = kCommandLine,
               .text = {"{summary|Some lines are refused}.\r\nImport the rest?"},
               .icon = Icon::kQuestion,
               .buttons = Buttons::kYesNo,
               .where = "import",
               .meaning = "The lines above cannot be taken over, for the reasons named there.",
               .remedy = "No writes nothing. Yes takes the other lines over and leaves what the "
                         "refused ones are about as it is.",
               .explained = false},
};

}  // namespace

std::span<const MessageRow> EditorMessageRows() {
  return kRows;
}

}  // namespace orvane::core
