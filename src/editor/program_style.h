#pragma once

#include <QProxyStyle>

namespace orvane::editor {

/// The desktop's style, but for two things that take long and look the same done otherwise.
///
/// The icon of the button which shows what did not fit into a menu bar or toolbar: the styles keep
/// it as picture files, and to look at the first one each plug-in for pictures is loaded, which
/// takes as long as all menus together. Here it is drawn.
///
/// The ground of a toolbar in the style "fusion": its three lines are translucent, and of such a
/// line each pixel is a span of its own. From 96 spans on the painter shares them out among threads
/// that it has to make, and waits for them: half a millisecond of the first paint's three. Here the
/// ground is drawn in pieces that stay below that.
class ProgramStyle : public QProxyStyle {
  Q_OBJECT

 public:
  [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                   const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

}  // namespace orvane::editor
