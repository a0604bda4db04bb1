#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <vector>

#include "editor/controls.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictUsable`: which channel groups the radio offers, and what goes with each of them.
class UsablePage : public Page {
  Q_OBJECT

 public:
  explicit UsablePage(PageServices services, QWidget* parent = nullptr);
  void ModelChanged() override;
  void Fill(const NodeRef& node) override;
  [[nodiscard]] QWidget* ControlOf(core::FieldRef at) const override;

 private:
  struct Group {
    GreyableFrame* frame;
    QCheckBox* enable;
    PickBox* time_out;
    PickBox* priority;
    PickBox* icon;
    std::array<QLabel*, 3> captions;
  };

  void BuildGroup(std::size_t index, const QString& caption);
  void NameGroup(std::size_t index, const QString& caption);
  void ConnectGroup(std::size_t index);
  void ListPriorityChannels(std::size_t index);
  /// The lists of a group can be set only while the group is switched on.
  void FollowEnable(std::size_t index);
  void SwitchGroup(std::size_t index, bool on);
  void SwitchExp(bool on);
  [[nodiscard]] bool MayWrite() const { return isEnabled() && !State().Busy; }

  ControlMaker* maker_;
  std::array<Group, core::kUsableGroups> groups_{};
  QCheckBox* exp_ = nullptr;
};

}  // namespace orvane::editor
