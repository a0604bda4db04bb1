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
  /// Brings back what Close() closed, at the page that was open, without taking the focus.
  virtual void Reopen() = 0;
};

/// Topics of whole windows and pages, for controls that have none of their own.
inline constexpr int kProgramContext = 1000;
inline constexpr int kGroupsPageContext = 1001;
inline constexpr int kCommonPageContext = 1002;
inline constexpr int kTablePageContext = 1003;
inline constexpr int kChannelPageContext = 1004;
inline constexpr int kWeatherPageContext = 1005;
inline constexpr int kTransferContext = 1012;
inline constexpr int kFindCableContext = 3000;
inline constexpr int kProblemsContext = 3001;
inline constexpr int kTablesAsTextContext = 3010;
inline constexpr int kFindContext = 3011;
inline constexpr int kCompareContext = 3020;

}  // namespace orvane::help
