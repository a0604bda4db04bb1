#include "help/help_library.h"

#include <QHelpLink>
#include <QList>

#include "platform/ansi_text.h"

namespace orvane::help {

std::optional<std::string> HelpLibrary::Load(const QString& help_file) {
  if (folder_.Path().isEmpty()) return platform::ToUtf8(folder_.Reason());
  engine_ = std::make_unique<QHelpEngine>(folder_.Path() + QStringLiteral("/help.qhc"));
  engine_->setReadOnly(false);
  // Contents and index are those of the documentation known when the engine is set up.
  const bool loaded =
      engine_->setupData() && engine_->registerDocumentation(help_file) && engine_->setupData();
  if (loaded) return std::nullopt;
  return platform::ToUtf8(help_file) + ": " + platform::ToUtf8(engine_->error());
}

QUrl HelpLibrary::TopicOf(int context) const {
  const QList<QHelpLink> links =
      engine_->documentsForIdentifier(QStringLiteral("context-%1").arg(context));
  return links.isEmpty() ? QUrl() : links.constFirst().url;
}

}  // namespace orvane::help
