#pragma once

#include <QObject>
#include <QPointer>
#include <cstdint>

#include "editor/command_host.h"
#include "editor/menus.h"
#include "editor/serial_port_menu.h"
#include "editor/simulated_radio_strip.h"
#include "editor/window_services.h"
#include "files/partly_written.h"

class QBoxLayout;

namespace orvane::editor {

/// The simulated radio of the window: started on demand at a port of its own, which is the chosen
/// one meanwhile, but not in the next run. A strip tells of it for as long as its port is there to
/// be taken for a radio's.
class SimulatedRadio : public QObject {
  Q_OBJECT

 public:
  /// The strip is put at the top of the column when it is first needed.
  SimulatedRadio(const WindowServices& services, CommandHost& host, const Menus& menus,
                 SerialPortMenu& ports, QBoxLayout& column);
  ~SimulatedRadio() override;

  /// Starts one of the data's model, and tells if it runs already.
  void Try();
  void End();

 private:
  [[nodiscard]] std::string Start(std::int16_t model_type);
  void Run(std::int16_t model_type);
  void TellThatItRuns();
  void TellThatItIsLost();
  /// Ends the process. Its memory is gone then, and with it what was left half written there.
  void EndProcess();
  void GiveBack();
  SimulatedRadioStrip& Strip();

  const WindowServices services_;
  CommandHost& host_;
  const Menus menus_;
  SerialPortMenu& ports_;
  files::PartlyWrittenMarks marks_;
  QBoxLayout& column_;
  QPointer<SimulatedRadioStrip> strip_;
  int number_ = 0;  ///< of its port, until it is given back; 0: there is none
  std::int16_t model_type_ = 0;
};

}  // namespace orvane::editor
