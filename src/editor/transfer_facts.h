#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <vector>

#include "core/catalogue.h"
#include "document/problems.h"
#include "link/port_list.h"

namespace orvane::editor {

/// What the transfer dialog tells of the run to come, below the instructions: the port, what goes
/// where, what speaks against it, and what the run may do beside.
class TransferFacts : public QWidget {
  Q_OBJECT

 public:
  explicit TransferFacts(QWidget* parent);

  /// The ports there are. The chosen one is listed also while it is gone.
  void ShowPorts(const std::vector<link::PortEntry>& ports, int chosen,
                 const link::PortLabel& label);
  /// consequence: what becomes of what was there before.
  void ShowSubject(const QString& subject, const QString& consequence);
  void ShowProblems(const std::vector<document::SendingProblem>& problems);
  /// Seconds that the two options take. kept: the time of a copy that makes another one needless,
  /// "" for none.
  void ShowOptions(double copy_seconds, double read_back_seconds, const QString& kept,
                   bool keeps_copy, bool reads_back);
  void HideOptions();

  [[nodiscard]] bool KeepsCopy() const { return copy_->isChecked() && !copy_->isHidden(); }
  [[nodiscard]] bool ReadsBack() const {
    return read_back_->isChecked() && !read_back_->isHidden();
  }

 signals:
  void PortChosen(int number);
  void FindCableAsked();
  void ShowAsked(core::FieldRef at);
  void MendAsked(document::ProblemKind kind);
  /// By the user.
  void CopyChosen(bool keeps);
  void ReadBackChosen(bool reads);

 private:
  void AddPortRow();
  void AddProblem(const document::SendingProblem& problem);

  QComboBox* ports_;
  QLabel* subject_;
  QLabel* consequence_;
  QWidget* problems_ = nullptr;  ///< made anew for each list
  QVBoxLayout* column_;
  QCheckBox* copy_;
  QCheckBox* read_back_;
};

}  // namespace orvane::editor
