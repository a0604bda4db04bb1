#pragma once

#include <QImage>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "editor/autosave.h"
#include "editor/backup_keeper.h"
#include "editor/command_host.h"
#include "editor/comparison_commands.h"
#include "editor/destination_menu.h"
#include "editor/file_commands.h"
#include "editor/finder.h"
#include "editor/first_steps.h"
#include "editor/follower.h"
#include "editor/live_label.h"
#include "editor/menus.h"
#include "editor/model_commands.h"
#include "editor/nav_tree.h"
#include "editor/navigator.h"
#include "editor/page_area.h"
#include "editor/page_heading.h"
#include "editor/partly_written_strip.h"
#include "editor/plain_pages.h"
#include "editor/recent_menu.h"
#include "editor/serial_port_menu.h"
#include "editor/side_lists.h"
#include "editor/simulated_radio.h"
#include "editor/splitter.h"
#include "editor/table_commands.h"
#include "editor/transfer_commands.h"
#include "editor/tree_model.h"
#include "editor/window_commands.h"
#include "editor/window_services.h"
#include "platform/another_core.h"

namespace orvane::editor {

/// `frmMain`, the program's only editing window: navigation tree, page area, menus, toolbar and
/// status bar over the one document. The constructor brings document and window into their first
/// state; a timer then finishes the start once events run.
class MainWindow : public QMainWindow, public PageHost, public CommandHost {
  Q_OBJECT

 public:
  explicit MainWindow(const WindowServices& services);
  ~MainWindow() override;

  /// The file is opened when the start is over.
  void OpenAtStart(const std::string& path) { file_at_start_ = path; }
  /// After that, as if the user had chosen the menu items, in that order.
  void TrySimulatedRadioAtStart() { simulated_at_start_ = true; }
  void ReadAtStart() { reads_at_start_ = true; }
  /// Of the copies of unsaved data; null before they are kept.
  [[nodiscard]] QTimer* AutosaveTimer() const {
    return autosave_ == nullptr ? nullptr : &autosave_->Timer();
  }

  // PageHost
  void Edit(core::FieldRef at, const document::Document::Body& edit,
            document::Document::Manner manner) override;
  void EditMany(const std::string& name, const document::Document::Body& edit) override;
  void DataChanged() override;
  void RebuildTree() override;
  void RefreshMarks() override;
  void ShowHint(const QString& hint) override;
  void ShowNotice(const QString& notice) override;
  void SelectNode(const QString& key) override;

  // CommandHost
  [[nodiscard]] QWidget& Widget() override { return *this; }
  [[nodiscard]] bool CheckPage() override;
  void ShowGeneralPage() override;
  void RebuildDestinations() override;
  void CheckDestinationOfImage() override;
  std::optional<core::SystemError> KeepBackup(const core::RadioData& radio,
                                              const std::string& origin,
                                              const std::string& file) override;
  [[nodiscard]] std::string CopyWithinTheHour(std::int16_t model_type) const override;
  void KeepReceipt(const std::string& began, const std::string& text) override;
  [[nodiscard]] NodeRef ShownNode() const override;
  void ShowField(core::FieldRef at) override;
  void ShowPartlyWritten() override;
  void Wait(double seconds) override;
  [[nodiscard]] int PortNumber() const override;
  void ChoosePort(int number) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void MakePanels();
  void BuildStatusBar();
  void BuildPages();
  /// help_context: 0 stands for that of the window.
  template <class PageType>
  PageType* MakePage(int help_context);
  template <class PageType>
  [[nodiscard]] LazyPage PageLater(int help_context);
  /// The tree with its layout, to whose top other things may come.
  [[nodiscard]] QVBoxLayout& BuildNavigation();
  void BuildHeading();
  [[nodiscard]] QWidget* BuildCentre();
  void ConnectCommands();

  void Load();
  void PlaceWindow();
  void FinishStart();
  /// Opens the file of the start, offers what was left behind, and keeps copies from then on.
  void BeginWork();
  void BeginKeepingCopies();
  void ShowStartOffer();
  void StoreGeometry();
  /// Over the whole screen, maximized or more.
  [[nodiscard]] bool IsSpread() const;

  /// True when what is dragged is a file that can be opened now; the answer is then Copy.
  bool TakeDrop(QDropEvent& event) const;
  /// True when the key was meant for the window; the control must not see it then.
  [[nodiscard]] bool TakeKey(QWidget& target, const QKeyEvent& event);
  void OpenHelp(const QWidget* focus);
  void SwitchSide();
  void LookAtWhatOthersDid();

  const WindowServices services_;
  platform::Meanwhile<QImage> logo_;  ///< read while the window is built
  document::Document& document_;
  core::RunState& state_;
  core::AppSettings settings_;
  TreeModel tree_model_;

  Menus menus_;
  PartlyWrittenStrip* strip_;
  Splitter* splitter_;
  NavTree* tree_;
  PageHeading* heading_;
  PageArea* area_;
  GeneralPage* general_ = nullptr;
  FirstSteps* first_steps_ = nullptr;  ///< null as long as there was nothing to offer
  Navigator* navigator_ = nullptr;
  LiveLabel* hint_ = nullptr;
  LiveLabel* notice_ = nullptr;
  LiveLabel* model_name_ = nullptr;
  Follower* follower_ = nullptr;
  std::unique_ptr<Autosave> autosave_;     ///< null: unsaved data are not kept
  std::unique_ptr<BackupKeeper> backups_;  ///< null: none are kept
  std::unique_ptr<SideLists> side_lists_;
  std::unique_ptr<Finder> finder_;
  QTimer* start_timer_;
  std::string file_at_start_;
  bool simulated_at_start_ = false;
  bool reads_at_start_ = false;
  const bool earlier_settings_;
  QPoint frame_;  ///< left and upper width of the frame that the window manager draws

  SerialPortMenu port_menu_;
  DestinationMenu destination_menu_;
  RecentMenu recent_menu_;
  FileCommands file_commands_;
  ModelCommands model_commands_;
  WindowCommands window_commands_;
  TableCommands table_commands_;
  TransferCommands transfer_commands_;
  std::unique_ptr<SimulatedRadio> simulated_radio_;
  ComparisonCommands comparison_commands_;
};

}  // namespace orvane::editor
