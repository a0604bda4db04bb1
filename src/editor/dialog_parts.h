#pragma once

#include <QBoxLayout>
#include <QPushButton>

#include "core/services.h"
#include "help/help_opener.h"

/// What several dialogs are built from.
namespace orvane::editor {

/// A button at the end of the row. Enter presses it only where it is made the default.
QPushButton* AddButton(QWidget& parent, QBoxLayout& row, const char* name, const QString& caption);

/// The topic of a dialog. That the program has no help, or cannot show it, is told under the
/// dialog's title. help: null when the program has none.
void OpenTopic(QWidget& dialog, help::HelpOpener* help, core::Prompts& prompts, int context);

}  // namespace orvane::editor
