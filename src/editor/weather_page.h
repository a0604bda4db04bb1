#pragma once

#include <QCheckBox>
#include <array>

#include "editor/field_box.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictD`: the ten weather channels, one row each.
class WeatherPage : public Page {
  Q_OBJECT

 public:
  explicit WeatherPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;
  [[nodiscard]] QWidget* ControlOf(core::FieldRef at) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Row {
    QCheckBox* enable;
    QCheckBox* scan;
    FieldBox* name;
  };

  void BuildRow(int index);
  void ConnectRow(int index);
  [[nodiscard]] const core::ChannelRecord& Channel(int index) const;
  /// Scan and name can be set for a channel in use only.
  static void FollowEnable(const Row& row);
  /// Whether a handler may write: the page is on show and no fill runs.
  [[nodiscard]] bool MayWrite() const { return isEnabled() && !State().Busy; }

  std::array<Row, core::kWxChannels> rows_{};
};

}  // namespace orvane::editor
