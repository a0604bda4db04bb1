#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "core/model_profile.h"
#include "core/run_state.h"
#include "core/services.h"
#include "editor/live_label.h"
#include "help/help_opener.h"
#include "link/doctor.h"
#include "link/port_check.h"
#include "link/port_list.h"
#include "link/replug.h"
#include "platform/interrupts.h"

namespace orvane::editor {

/// What finding the cable needs of the world. Everything outlives the dialog.
struct FindCableServices {
  const core::ModelProfile& model;  ///< that the program is set to
  core::RunState& state;            ///< busy while a port is tested
  core::Prompts& prompts;
  core::Clock& clock;
  core::EventPump& pump;
  core::ErrorLog& log;
  link::PortFinder& ports;
  link::DeviceFacts* devices;  ///< null: the system tells nothing about them
  std::function<std::unique_ptr<link::SerialPort>(int number)> make_port;
  std::function<int()> chosen;             ///< the window's port
  std::function<void(int number)> choose;  ///< makes a port of the list the window's
  platform::Interrupts* interrupts;        ///< null: nothing but Cancel ends a test
  help::HelpOpener* help;                  ///< null: the program has no help
};

/// `frmFindCable`: lists the ports and who has them, as they come and go; finds the one of the
/// cable by unplugging it and plugging it in again, and makes it the window's; tests a port up to
/// the radio, with what to do about it. Esc ends what runs, then closes.
class FindCableDialog : public QDialog {
  Q_OBJECT

 public:
  FindCableDialog(const FindCableServices& services, QWidget* parent);

  /// Close, and the Escape key: ends a test or a search first.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildList();
  void BuildCommand();
  void BuildButtons();

  void LookAtPorts();
  void ShowPorts();
  [[nodiscard]] QTreeWidgetItem* RowOf(int number) const;
  void SelectPort(int number);
  /// The port of the row that is selected, or else the window's.
  [[nodiscard]] link::PortEntry SelectedPort() const;
  void SetControls();
  void Tell(const QString& text, const QString& command = {});

  void BeginSearch();
  void EndSearch(const QString& text);
  void FollowSearch();
  void UseSelected();
  void Test();

  const FindCableServices services_;
  std::vector<link::PortEntry> ports_;  ///< on show
  std::vector<std::vector<link::PortHolder>> holders_;
  std::optional<link::Replug> search_;
  link::PortCheck* check_ = nullptr;  ///< while a port is tested
  int looks_ = 0;

  QTreeWidget* list_;
  LiveLabel* state_;
  QWidget* command_row_ = nullptr;
  QLineEdit* command_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* find_ = nullptr;
  QPushButton* test_ = nullptr;
  QPushButton* use_ = nullptr;
  QPushButton* close_ = nullptr;
  QPushButton* help_ = nullptr;
  QTimer* timer_;
};

}  // namespace orvane::editor
