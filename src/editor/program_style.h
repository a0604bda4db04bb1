#pragma once

#include <QProxyStyle>

namespace orvane::editor {

/// The desktop's style, but for one icon: that of the button which shows what did not fit into a
/// menu bar or toolbar. The styles keep it as picture files; to look at the first one, each plug-in
/// for pictures is loaded, which takes as long as all menus together. Here it is drawn.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                   const QWidget* widget) const override;
};

}  // namespace orvane::editor
