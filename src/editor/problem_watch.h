#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

#include "core/services.h"
#include "document/document.h"
#include "document/problems.h"

namespace orvane::editor {

/// Knows what is wrong with the document's data. It looks once after each change, when the events
/// that wait have been seen to, so that steps in a row cost one pass. Document and clock outlive
/// it.
class ProblemWatch : public QObject, private document::Watcher {
  Q_OBJECT

 public:
  ProblemWatch(document::Document& document, core::Clock& clock);
  ~ProblemWatch() override;
  ProblemWatch(const ProblemWatch&) = delete;
  ProblemWatch& operator=(const ProblemWatch&) = delete;

  /// Nothing is found before that.
  void Begin();
  /// Looks at once when a change has not been looked at yet.
  void CatchUp();

  /// In catalogue order.
  [[nodiscard]] const std::vector<document::Problem>& Problems() const { return problems_; }
  /// Errors and warnings. A note needs nobody to do anything.
  [[nodiscard]] int Count() const;

 signals:
  void Found();

 private:
  // document::Watcher
  void Changed(std::span<const core::Change> /*changes*/) override { timer_.start(); }
  void Replaced() override { timer_.start(); }
  void StatusChanged() override {}

  void Look();

  document::Document& document_;
  core::Clock& clock_;
  QTimer timer_;
  std::vector<document::Problem> problems_;
};

}  // namespace orvane::editor
