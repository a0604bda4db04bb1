#pragma once

#include <QLabel>
#include <array>
#include <cstddef>

#include "editor/controls.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictCommon`: the common settings. Every control is a drop-down list.
class CommonPage : public Page {
  Q_OBJECT

 public:
  explicit CommonPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;
  [[nodiscard]] QWidget* ControlOf(core::FieldRef at) const override;

 private:
  static constexpr std::size_t kSettings = 7;
  /// Frames of the page; the one for dual watch has no lines.
  enum Frame { kStarting, kScanning, kDual, kWeather, kFrames };

  void BuildSetting(std::size_t index);
  void ShowForModel();
  /// The times of the scan can be set only while the scan is on.
  void FollowScan();

  ControlMaker* maker_;
  std::array<PickBox*, kSettings> lists_{};
  std::array<QLabel*, kSettings> captions_{};
  std::array<GreyableFrame*, kFrames> frames_{};
};

}  // namespace orvane::editor
