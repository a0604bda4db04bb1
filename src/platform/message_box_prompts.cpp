#include "platform/message_box_prompts.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <array>
#include <optional>
#include <utility>

#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

constexpr std::array<std::pair<core::Answer, QMessageBox::StandardButton>, 13> kAnswers = {
    {{core::Answer::kOk, QMessageBox::Ok},
     {core::Answer::kCancel, QMessageBox::Cancel},
     {core::Answer::kYes, QMessageBox::Yes},
     {core::Answer::kNo, QMessageBox::No},
     {core::Answer::kRetry, QMessageBox::Retry},
     {core::Answer::kOverwrite, QMessageBox::YesToAll},
     {core::Answer::kSaveAs, QMessageBox::Save},
     {core::Answer::kRestore, QMessageBox::Open},
     {core::Answer::kKeep, QMessageBox::Ignore},
     {core::Answer::kDiscard, QMessageBox::Discard},
     {core::Answer::kProgramAgain, QMessageBox::Reset},
     {core::Answer::kSaveReceipt, QMessageBox::SaveAll},
     {core::Answer::kClose, QMessageBox::Close}}};

// Buttons without Enter or Escape that Qt gives no access key, or another caption.
constexpr std::array<std::pair<QMessageBox::StandardButton, const char*>, 8> kCaptions = {
    {{QMessageBox::Retry, QT_TRANSLATE_NOOP("QMessageBox", "&Retry")},
     {QMessageBox::YesToAll, QT_TRANSLATE_NOOP("QMessageBox", "&Overwrite")},
     {QMessageBox::Open, QT_TRANSLATE_NOOP("QMessageBox", "&Restore")},
     {QMessageBox::Ignore, QT_TRANSLATE_NOOP("QMessageBox", "&Keep for Later")},
     {QMessageBox::Discard, QT_TRANSLATE_NOOP("QMessageBox", "&Discard")},
     {QMessageBox::Reset, QT_TRANSLATE_NOOP("QMessageBox", "&Program Again")},
     {QMessageBox::SaveAll, QT_TRANSLATE_NOOP("QMessageBox", "Save &Receipt...")},
     {QMessageBox::Save, QT_TRANSLATE_NOOP("QMessageBox", "Save &As...")}}};

QMessageBox::StandardButton ButtonOf(core::Answer answer) {
  for (const auto& [candidate, button] : kAnswers) {
    if (candidate == answer) return button;
  }
  return QMessageBox::NoButton;
}

std::optional<core::Answer> AnswerOf(int button) {
  for (const auto& [answer, candidate] : kAnswers) {
    if (candidate == button) return answer;
  }
  return std::nullopt;
}

QMessageBox::StandardButtons ButtonsOf(core::Buttons buttons) {
  switch (buttons) {
    case core::Buttons::kOk:
      return QMessageBox::Ok;
    case core::Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case core::Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case core::Buttons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case core::Buttons::kRetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
    case core::Buttons::kOverwriteSaveAsCancel:
      return QMessageBox::YesToAll | QMessageBox::Save | QMessageBox::Cancel;
    case core::Buttons::kRestoreKeepDiscard:
      return QMessageBox::Open | QMessageBox::Ignore | QMessageBox::Discard;
    case core::Buttons::kAgainReceiptClose:
      return QMessageBox::Reset | QMessageBox::SaveAll | QMessageBox::Close;
  }
  return QMessageBox::Ok;
}

// The button Enter presses when the message names none.
core::Answer FirstAnswer(core::Buttons buttons) {
  switch (buttons) {
    case core::Buttons::kOk:
    case core::Buttons::kOkCancel:
      return core::Answer::kOk;
    case core::Buttons::kYesNo:
    case core::Buttons::kYesNoCancel:
      return core::Answer::kYes;
    case core::Buttons::kRetryCancel:
      return core::Answer::kRetry;
    case core::Buttons::kOverwriteSaveAsCancel:
      return core::Answer::kSaveAs;
    case core::Buttons::kRestoreKeepDiscard:
      return core::Answer::kRestore;
    case core::Buttons::kAgainReceiptClose:
      return core::Answer::kProgramAgain;
  }
  return core::Answer::kOk;
}

// What closing the box by other means than a button counts as.
core::Answer ClosedAnswer(core::Buttons buttons) {
  switch (buttons) {
    case core::Buttons::kOk:
      return core::Answer::kOk;
    case core::Buttons::kYesNo:
      return core::Answer::kNo;
    case core::Buttons::kRestoreKeepDiscard:
      return core::Answer::kKeep;
    case core::Buttons::kAgainReceiptClose:
      return core::Answer::kClose;
    default:
      return core::Answer::kCancel;
  }
}

QMessageBox::Icon IconOf(core::Icon icon) {
  switch (icon) {
    case core::Icon::kNone:
      return QMessageBox::NoIcon;
    case core::Icon::kInformation:
      return QMessageBox::Information;
    case core::Icon::kQuestion:
      return QMessageBox::Question;
    case core::Icon::kExclamation:
      return QMessageBox::Warning;
    case core::Icon::kCritical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QString Lines(const std::string& text) {
  return FromUtf8(text).replace("\r\n", "\n").replace('\r', '\n');
}

/// The box counts neither the bold face of a frame's title nor the buttons beside it.
void FitTitle(QMessageBox& box) {
  constexpr int kFrameButtons = 4;
  QFont font = box.font();
  font.setBold(true);
  const QFontMetrics metrics(font);
  const int width =
      metrics.horizontalAdvance(box.windowTitle()) + kFrameButtons * 2 * metrics.height();
  if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
  }
}

QWidget* FrontWindow() {
  QWidget* const modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : QApplication::activeWindow();
}

}  // namespace

core::Answer MessageBoxPrompts::Show(const core::Message& message) {
  QMessageBox box(FrontWindow());
  box.setObjectName("messageBox");
  box.setWindowTitle(Lines(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(Lines(message.text));
  box.setInformativeText(Lines(message.details));
  box.setIcon(IconOf(message.icon));
  box.setStandardButtons(ButtonsOf(message.buttons));
  for (const auto& [button, caption] : kCaptions) {
    if (QAbstractButton* const named = box.button(button)) named->setText(QMessageBox::tr(caption));
  }
  box.setDefaultButton(ButtonOf(message.default_answer.value_or(FirstAnswer(message.buttons))));
  FitTitle(box);
  const std::optional<core::Answer> answer = AnswerOf(box.exec());
  return answer.value_or(ClosedAnswer(message.buttons));
}

}  // namespace orvane::platform
