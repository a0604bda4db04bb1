#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <string>

#include "core/catalogue.h"
#include "core/radio_data.h"
#include "core/services.h"
#include "editor/node.h"

namespace orvane::editor {

/// What a command asks of the window it was chosen in. What shows data follows the document by
/// itself.
class CommandHost {
 public:
  virtual ~CommandHost() = default;
  /// Parent for the command's own windows; disabled while a command works (see Working).
  [[nodiscard]] virtual QWidget& Widget() = 0;
  /// Checks the page on show. False: the message has been shown and the command must not run.
  [[nodiscard]] virtual bool CheckPage() = 0;
  /// Shows the page "General" without checking the one left: for data that is about to be replaced.
  virtual void ShowGeneralPage() = 0;
  /// First panel of the status bar.
  virtual void ShowHint(const QString& hint) = 0;
  /// Second panel of the status bar, until the next hint.
  virtual void ShowNotice(const QString& notice) = 0;
  /// Lists the destinations of the data's model and checks the one chosen last.
  virtual void RebuildDestinations() = 0;
  /// Checks the Destination entry that the image's SEL1 bit stands for.
  virtual void CheckDestinationOfImage() = 0;
  /// Puts the data into the backup library as what stood at the radio; origin says how they came
  /// there, file where they are saved, "" for nowhere. Why they were not kept, if they were not.
  virtual std::optional<core::SystemError> KeepBackup(const core::RadioData& data,
                                                      const std::string& origin,
                                                      const std::string& file) = 0;
  /// See BackupKeeper. "" where no backups are kept.
  [[nodiscard]] virtual std::string CopyWithinTheHour(std::int16_t model_type) const = 0;
  virtual void KeepReceipt(const std::string& began, const std::string& text) = 0;
  /// What the page on show is about.
  [[nodiscard]] virtual NodeRef ShownNode() const = 0;
  /// The page with that field, and the focus in it.
  virtual void ShowField(core::FieldRef at) = 0;
  /// The strip about partly written radios, as the marks are now.
  virtual void ShowPartlyWritten() = 0;
  /// Lets the window process its messages for that long.
  virtual void Wait(double seconds) = 0;
  /// The serial port chosen in the menu, or kept from the last run; it may be absent just now.
  [[nodiscard]] virtual int PortNumber() const = 0;
  /// Makes a port that is there the one chosen.
  virtual void ChoosePort(int number) = 0;
};

/// Every file operation and reset shows its hourglass at least that long, in seconds.
inline constexpr double kCommandPause = 0.5;

}  // namespace orvane::editor
