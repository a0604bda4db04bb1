#pragma once

#include <QMainWindow>
#include <QObject>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "core/app_settings.h"
#include "document/document.h"
#include "editor/destination_menu.h"
#include "editor/live_label.h"
#include "editor/menus.h"
#include "editor/nav_tree.h"
#include "editor/navigator.h"
#include "editor/page_area.h"
#include "editor/page_heading.h"

namespace orvane::editor {

/// Keeps the window in step with the document, whoever changed it: tree, page, heading, title,
/// model, status bar, and the commands that walk through the history. The document outlives it.
class Follower : public QObject, private document::Watcher {
  Q_OBJECT

 public:
  /// What follows. Everything outlives this object.
  struct Views {
    QMainWindow& window;
    NavTree& tree;
    Navigator& navigator;
    PageArea& area;
    PageHeading& heading;
    DestinationMenu& destinations;
    LiveLabel& notice;      ///< second panel of the status bar
    LiveLabel& model_name;  ///< third panel
    Menus menus;
  };
  Follower(document::Document& document, core::SettingsStore& settings, const Views& views);
  ~Follower() override;
  Follower(const Follower&) = delete;
  Follower& operator=(const Follower&) = delete;

  /// An edit made on the page on show, which shows it itself.
  void EditByPage(core::FieldRef at, const document::Document::Body& edit,
                  document::Document::Manner manner);

  void EditByPage(const std::string& name, const document::Document::Body& edit);

  /// The step before, or the one that was taken back last. Input not yet taken over comes first.
  void Undo();
  void Redo();
  /// Until that many steps are done. Shows where the last one of them happened.
  void GoTo(std::size_t done);

  /// The page with that field, and the focus in it.
  void ShowField(core::FieldRef at);
  /// The same for a user who leaves the page on show: not while it holds what must not be left.
  /// False when the page stays; it has said why.
  bool VisitField(core::FieldRef at);
  /// The page alone, in the same way; the focus stays where it is.
  bool ShowPageOf(core::FieldRef at);

  /// The second panel tells whether the data is saved, but for a notice, which stays until the
  /// next hint.
  void ShowNotice(const QString& notice);
  void EndNotice();
  /// Why no copies of unsaved data, or no backups, are being kept; "" when they are.
  void ShowCopyFailure(const QString& reason);
  void ShowBackupFailure(const QString& reason);
  /// How many problems the data has.
  void ShowProblemCount(int count);

  /// What has no page: title, model, commands. For the window's start.
  void Begin();

 signals:
  /// The history has other steps, or more or fewer of them are done.
  void HistoryChanged();

 private:
  // document::Watcher
  void Changed(std::span<const core::Change> changes) override;
  void Replaced() override;
  void StatusChanged() override;

  /// Where a step happened: its field, as far as a page shows it.
  [[nodiscard]] std::optional<core::FieldRef> FieldOf(const document::Step& step) const;
  [[nodiscard]] QString StatusText() const;
  void ShowSaved();
  /// The node that ShowField goes to; "" where no page shows the field.
  [[nodiscard]] QString KeyOfField(core::FieldRef at) const;
  void ShowCurrentPage();
  void FollowDestination();
  void FollowModel();
  static void NameCommand(QAction& item, const QString& word, const document::Step* step);

  document::Document& document_;
  core::AppSettings settings_;
  const Views views_;
  std::int16_t model_type_;  ///< that the window shows
  bool quiet_ = false;       ///< whoever changes the document shows it afterwards
  bool replaced_ = false;    ///< since a walk through the history began
  bool notice_shown_ = false;
  QString copy_failure_;
  QString backup_failure_;
  int problem_count_ = 0;  ///< as last told; none are told of a data set that just came
};

}  // namespace orvane::editor
