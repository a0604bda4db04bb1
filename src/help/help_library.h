#pragma once

#include <QByteArray>
#include <QHelpEngine>
#include <QString>
#include <QUrl>
#include <memory>
#include <optional>
#include <string>

#include "help/help_folder.h"

namespace orvane::help {

/// The pages of a compiled help file. Qt's help engine writes beside the collection it works on
/// (settings, search index), so the collection is made anew in a folder of its own below the given
/// one: the program's folder is only read, and two programs never meet in one collection.
class HelpLibrary {
 public:
  explicit HelpLibrary(const QString& cache_folder) : folder_(cache_folder) {}

  /// Returns what went wrong; nothing when the pages are at hand. To be called once.
  [[nodiscard]] std::optional<std::string> Load(const QString& help_file);

  /// The place of a context number's topic: a page and an anchor in it; invalid when the help has
  /// no such topic.
  [[nodiscard]] QUrl TopicOf(int context) const;
  /// A page, or a file it needs; empty when there is none.
  [[nodiscard]] QByteArray File(const QUrl& url) const { return engine_->fileData(url); }
  [[nodiscard]] QHelpEngine& Engine() const { return *engine_; }

 private:
  HelpFolder folder_;
  std::unique_ptr<QHelpEngine> engine_;  // its files are in the folder, so it goes first
};

}  // namespace orvane::help
