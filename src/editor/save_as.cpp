#include "editor/save_as.h"

#include "core/message_facts.h"
#include "core/product.h"

namespace orvane::editor {

void SaveAs(const WindowServices& services, const char* filter,
            const std::function<std::string(const std::string& path)>& bytes) {
  const std::string path =
      services.dialogs.AskSave({.filter = filter, .folder = services.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  if (const auto failure = services.files.WriteFile(path, bytes(path))) {
    services.prompts.Show(core::MakeMessage(core::MessageId::kFileSave, core::kProgramTitle,
                                            core::FileFacts(path, *failure)));
  }
}

}  // namespace orvane::editor
