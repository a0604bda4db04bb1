#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/channel_plan.h"
#include "core/message_facts.h"
#include "document/edits.h"
#include "editor/controls.h"
#include "editor/frequency_box.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictC`: one channel, marine or EXP/LMR, in one set of controls.
class ChannelPage : public Page {
  Q_OBJECT

 public:
  explicit ChannelPage(PageServices services, QWidget* parent = nullptr);
  void ModelChanged() override;
  void Fill(const NodeRef& node) override;
  [[nodiscard]] bool Check() override;
  [[nodiscard]] bool TakePending() override;
  [[nodiscard]] QWidget* ControlOf(core::FieldRef at) const override;

 private:
  enum Direction : std::size_t { kTransmit, kReceive };
  static document::Way WayOf(Direction direction) {
    return direction == kTransmit ? document::Way::kTransmit : document::Way::kReceive;
  }
  struct ToneLists {
    PickBox* ctcss;
    PickBox* dcs;
  };
  struct Frequency {
    FrequencyBox* box;
    double core::ChannelRecord::*value;
  };

  // Layout: every control is built once.
  void Build();
  void BuildSwitches();
  void BuildFields(QGridLayout& grid);
  void BuildDisplay(QGridLayout& grid);
  [[nodiscard]] FrequencyBox* BuildFrequency(QGridLayout& grid, Field field,
                                             const QString& caption);
  [[nodiscard]] QWidget* BuildTransmit();
  void BuildNameAndScrambler(QGridLayout& grid);
  void BuildSwitchColumn(QVBoxLayout& column);
  [[nodiscard]] QWidget* BuildTones();
  void ShowForm();
  void SetHelpContexts();

  // What the page stands for.
  [[nodiscard]] bool IsMarine() const { return node_.kind == NodeKind::kMarineChannel; }
  [[nodiscard]] bool UnderLmrRoot() const { return node_.kind == NodeKind::kLmrChannel; }
  [[nodiscard]] const core::ChannelRecord& Channel() const;
  template <auto kMember>
  [[nodiscard]] core::FieldRef At() const {
    return core::RefTo<kMember>(Data(), Channel());
  }
  [[nodiscard]] const core::ChannelPlanEntry& Plan() const;
  [[nodiscard]] bool OfShownKind() const;
  /// The channel on show, as the rules of editing call it.
  [[nodiscard]] document::ChannelPlace Place() const;
  [[nodiscard]] core::Date Today() const { return Services().clock.Today(); }
  /// False before the first filling.
  [[nodiscard]] bool ShowsChannel() const {
    return IsMarine() || core::ExtraTable::Contains(node_.number);
  }
  /// Whether a handler may write: the page is on show, with a channel, and no fill runs.
  [[nodiscard]] bool MayWrite() const { return isEnabled() && ShowsChannel() && !State().Busy; }
  [[nodiscard]] bool MustBeNarrow() const {
    return ShowsChannel() && document::MustBeNarrow(Data(), Place(), Today());
  }

  // Filling.
  void FillMarine();
  void FillExtra();
  void FillFlags();
  /// Switches a button without running its handler.
  void ShowChecked(QAbstractButton& button, bool checked);
  void FillScrambler();
  void ShowFrequency(const Frequency& frequency);
  void ShowPlanReceiveFrequency();
  void ShowBandwidth();
  void ShowTones();

  // Which controls can be used just now.
  void FollowEntry();
  void FollowEnable();
  void FollowTxEnable();
  void FollowLowPower();
  void FollowReceiveDcs();
  void FollowNarrowbandRule();

  // Handlers.
  void Connect();
  template <core::Flag core::ChannelRecord::*kFlag>
  void ConnectFlag(QCheckBox& box);
  void ConnectFields();
  void EnableClicked(bool on);
  bool EditUnlessLast(core::FieldRef at, const std::function<bool(core::RadioData&)>& edit);
  void ShowChannelEnable(bool on);
  [[nodiscard]] document::GroupMembership ShownGroups() const;
  void GroupClicked(QCheckBox& box, bool on);
  void HandleTxEnable();
  void HandleLowPower();
  void StoreTransmit(core::FieldRef at);
  void HandleCtcss(Direction direction);
  void HandleDcs(Direction direction);
  template <std::string core::ChannelRecord::*kHalf>
  void StoreDisplay(const FieldBox& box);
  /// Says why the switch of the last channel in use stays on.
  void TellLastEnabled();

  // Frequencies.
  [[nodiscard]] bool TakeOver(const Frequency& frequency);
  void Abandon(const Frequency& frequency);
  void ShowNarrowbandRule();
  void TellWrongFrequency(const FrequencyBox& box);
  [[nodiscard]] bool CheckCompleteness();
  [[nodiscard]] std::vector<std::pair<core::FieldRef, QWidget*>> Controls() const;
  /// How the page can be left while the channel is incomplete.
  [[nodiscard]] core::WayOut WayOut() const;

  ControlMaker* maker_;
  NodeRef node_{NodeKind::kMarineChannel};

  QCheckBox* enable_ = nullptr;
  QWidget* groups_area_ = nullptr;
  std::array<QCheckBox*, 3> groups_{};
  QWidget* body_ = nullptr;  ///< everything that a channel not in use has greyed
  FieldBox* display_left_ = nullptr;
  FieldBox* display_right_ = nullptr;
  std::array<Frequency, 2> frequencies_{};  ///< by Direction
  QCheckBox* tx_enable_ = nullptr;
  QCheckBox* low_power_ = nullptr;
  QCheckBox* power_up_ = nullptr;
  QCheckBox* duplex_ = nullptr;
  QCheckBox* scan_ = nullptr;
  QLabel* scrambler_caption_ = nullptr;
  PickBox* scrambler_ = nullptr;
  QLabel* name_caption_ = nullptr;
  FieldBox* name_ = nullptr;
  OptionButton* wide_ = nullptr;
  OptionButton* narrow_ = nullptr;
  QGroupBox* tone_frame_ = nullptr;
  std::array<ToneLists, 2> tones_{};  ///< by Direction
  QCheckBox* complement_ = nullptr;
  /// The check boxes that show one flag each.
  std::vector<std::pair<QCheckBox*, core::Flag core::ChannelRecord::*>> flags_;
};

}  // namespace orvane::editor
