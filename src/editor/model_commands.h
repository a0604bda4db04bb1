#pragma once

#include <QObject>
#include <optional>
#include <string>

#include "core/app_settings.h"
#include "core/messages.h"
#include "editor/command_host.h"
#include "editor/destination_menu.h"
#include "editor/file_commands.h"
#include "editor/menus.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// The commands that replace the data set by a fresh one of another model or destination. Both ask
/// before they do; neither saves anything.
class ModelCommands : public QObject {
  Q_OBJECT

 public:
  ModelCommands(const WindowServices& services, CommandHost& host, const Menus& menus,
                DestinationMenu& destinations, FileCommands& file_commands);

  /// The first model command is offered under the name of its series, the others are not offered.
  void CaptionModels();
  /// index: which of the model commands.
  void SelectModel(int index);
  void SelectDestination(const std::string& name);

 private:
  [[nodiscard]] bool Ask(core::MessageId question, const core::Fact& fact);
  /// What the refusal says of the template's file; nothing when it was loaded.
  [[nodiscard]] std::optional<std::string> LoadTemplate(const std::string& name,
                                                        core::RadioData& data);

  const WindowServices services_;
  document::Document& document_;
  CommandHost& host_;
  const Menus menus_;
  DestinationMenu& destinations_;
  FileCommands& file_commands_;
};

}  // namespace orvane::editor
