#pragma once

#include <QWidget>
#include <optional>
#include <string>

namespace orvane::help {

/// Shows the program's help by context number.
class HelpOpener {
 public:
  virtual ~HelpOpener() = default;
  /// The installation has help at all.
  [[nodiscard]] virtual bool HasHelp() const = 0;
  /// Brings the topic to the front. A modal owner leaves it usable. Returns what went wrong, if
  /// anything.
  [[nodiscard]] virtual std::optional<std::string> Open(QWidget& owner, int context) = 0;
  /// Closes every help window.
  virtual void Close() = 0;
};

/// Topic of the transfer dialog.
inline constexpr int kTransferContext = 1012;

}  // namespace orvane::help
