#include "editor/model_commands.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/model_profile.h"
#include "core/product.h"
#include "editor/working.h"
#include "files/image_file.h"

namespace orvane::editor {
namespace {

struct ModelCommand {
  std::string_view series;
  std::int16_t model_type;  ///< the model of the series that it selects
};
constexpr std::array<ModelCommand, Menus::kModels> kModelCommands = {
    {{"KT520", 4}, {"KT310", 1}, {"RB6100S", 0}, {"QM9000", 3}}};

/// Keeps what the image reader would say of the file, so that it can stand below the command's own
/// message. What to do is another matter there.
class Overheard : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override {
    said = message.details.substr(0, message.details.find("\r\n"));
    return core::Answer::kOk;
  }

  std::string said;
};

}  // namespace

ModelCommands::ModelCommands(const WindowServices& services, CommandHost& host, const Menus& menus,
                             DestinationMenu& destinations, FileCommands& file_commands)
    : services_(services),
      document_(services.document),
      host_(host),
      menus_(menus),
      destinations_(destinations),
      file_commands_(file_commands) {
  for (int index = 0; index < Menus::kModels; ++index) {
    connect(menus_.models[static_cast<std::size_t>(index)], &QAction::triggered, this,
            [this, index] { SelectModel(index); });
  }
  connect(&destinations_, &DestinationMenu::Picked, this, &ModelCommands::SelectDestination);
}

void ModelCommands::CaptionModels() {
  menus_.models[0]->setText(QStringLiteral("&KT740 Series"));
  for (std::size_t i = 1; i < menus_.models.size(); ++i) {
    menus_.models[i]->setVisible(false);
    menus_.models[i]->setEnabled(false);
  }
}

bool ModelCommands::Ask(core::MessageId question, const core::Fact& fact) {
  return services_.prompts.Show(core::MakeMessage(question, core::kProgramTitle, {fact})) ==
         core::Answer::kOk;
}

void ModelCommands::SelectModel(int index) {
  const ModelCommand& command = kModelCommands[static_cast<std::size_t>(index)];
  if (core::ProfileOf(document_.Data()).series == command.series) return;
  if (!Ask(core::MessageId::kChangeModel, {"series", std::string(command.series)})) return;
  if (!host_.CheckPage()) return;
  file_commands_.NewUnchecked(command.model_type, "Model " + std::string(command.series));
}

void ModelCommands::SelectDestination(const std::string& name) {
  if (!Ask(core::MessageId::kChangeDestination, {"name", name})) return;
  const Working working(host_.Widget());
  host_.ShowGeneralPage();
  host_.Wait(kCommandPause);
  const std::int16_t model_type = document_.Data().MODELTYPE;
  // A template is no document to be saved over.
  document::Contents fresh = document::NewContents(model_type, services_.clock.Today());
  const std::optional<std::string> refusal = LoadTemplate(name, fresh.data);
  if (!refusal) fresh.origin = document::Origin::kTemplate;
  document_.Replace("Destination " + name, std::move(fresh), false);
  host_.ShowHint({});
  if (!refusal) {
    destinations_.Remember(model_type, name);
  } else {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kTemplateFailed, core::kProgramTitle,
                                             {{"reason", *refusal}}));
  }
  document_.ForgetChange();
}

std::optional<std::string> ModelCommands::LoadTemplate(const std::string& name,
                                                       core::RadioData& data) {
  const std::string path = destinations_.TemplatePath(name, data.MODELTYPE);
  Overheard reader;
  files::LoadHexFile(data, services_.state, path, services_.files, reader, services_.log);
  return services_.state.Error ? std::optional(reader.said) : std::nullopt;
}

}  // namespace orvane::editor
