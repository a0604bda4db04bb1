#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::platform {

/// Filters are pairs "description|pattern" joined by "|"; the first one is selected. Paths are
/// UTF-8.
struct FileDialogRequest {
  std::string filter;
  std::string folder;  ///< initial folder
  /// Offered beside it, as far as they are there.
  std::vector<std::string> last_folders{};
};

/// Asks the user for a file. Nothing when the user cancelled.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// An existing file.
  [[nodiscard]] virtual std::optional<std::string> AskOpen(const FileDialogRequest& request) = 0;
  /// A file to write; replacing an existing one has been confirmed. A name without extension gets
  /// that of the filter.
  [[nodiscard]] virtual std::optional<std::string> AskSave(const FileDialogRequest& request) = 0;
};

/// The platform's own dialogs.
class QtFileDialogs : public FileDialogs {
 public:
  [[nodiscard]] std::optional<std::string> AskOpen(const FileDialogRequest& request) override;
  [[nodiscard]] std::optional<std::string> AskSave(const FileDialogRequest& request) override;
};

/// "dat files(*.dat)|*.dat|All files(*.*)|*.*" as the list "dat files (*.dat)", "All files (*)".
[[nodiscard]] QStringList NameFilters(std::string_view filter);
/// "dat": extension of the filter's first pattern, "" when it has none.
[[nodiscard]] QString DefaultExtension(std::string_view filter);

}  // namespace orvane::platform
