#include "editor/dialog_parts.h"

#include <optional>
#include <string>

#include "core/messages.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

QPushButton* AddButton(QWidget& parent, QBoxLayout& row, const char* name, const QString& caption) {
  auto* button = new QPushButton(caption, &parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoDefault(false);
  row.addWidget(button);
  return button;
}

void OpenTopic(QWidget& dialog, help::HelpOpener* help, core::Prompts& prompts, int context) {
  const std::string title = platform::ToUtf8(dialog.windowTitle());
  if (help == nullptr || !help->HasHelp()) {
    prompts.Show(core::MakeMessage(core::MessageId::kNoHelp, title));
    return;
  }
  if (const std::optional<std::string> failure = help->Open(dialog, context)) {
    prompts.Show(core::MakeMessage(core::MessageId::kHelpFailed, title, {{"failure", *failure}}));
  }
}

}  // namespace orvane::editor
