#include "platform/message_box_prompts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

namespace orvane::platform {
namespace {

// Shows the message and lets `act` work on the box as soon as it is open.
core::Answer ShowAnd(const core::Message& message, const std::function<void(QMessageBox&)>& act) {
  QTimer opened;
  opened.setSingleShot(true);
  QObject::connect(&opened, &QTimer::timeout, &opened, [&act] {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->objectName(), "messageBox");
    act(*box);
  });
  opened.start(0);
  MessageBoxPrompts prompts;
  return prompts.Show(message);
}

TEST(MessageBoxPrompts, EachButtonGivesItsAnswer) {
  const struct {
    core::Buttons buttons;
    QMessageBox::StandardButton pressed;
    core::Answer answer;
  } cases[] = {{core::Buttons::kOk, QMessageBox::Ok, core::Answer::kOk},
               {core::Buttons::kOkCancel, QMessageBox::Cancel, core::Answer::kCancel},
               {core::Buttons::kYesNo, QMessageBox::No, core::Answer::kNo},
               {core::Buttons::kYesNoCancel, QMessageBox::Yes, core::Answer::kYes},
               {core::Buttons::kRetryCancel, QMessageBox::Retry, core::Answer::kRetry}};
  for (const auto& expected : cases) {
    const core::Message message{"Title", "Text", core::Icon::kQuestion, expected.buttons};
    EXPECT_EQ(ShowAnd(message, [&](QMessageBox& box) { box.button(expected.pressed)->click(); }),
              expected.answer);
  }
}

TEST(MessageBoxPrompts, EnterPressesTheDefaultButtonAndClosingCancels) {
  const core::Message message{"T", "Radio is busy!!", core::Icon::kExclamation,
                              core::Buttons::kRetryCancel, core::Answer::kCancel};
  EXPECT_EQ(ShowAnd(message, [](QMessageBox& box) { box.defaultButton()->click(); }),
            core::Answer::kCancel);
  EXPECT_EQ(ShowAnd(message, [](QMessageBox& box) { box.close(); }), core::Answer::kCancel);
  ShowAnd(message, [](QMessageBox& box) {
    EXPECT_EQ(box.button(QMessageBox::Retry)->shortcut(), QKeySequence("Alt+R"));
    box.close();
  });
}

TEST(MessageBoxPrompts, ShowsTheTextAsWrittenAndTheReasonBelow) {
  core::Message message{"KT740 PC Program for KT740 Series", "<b>1</b>\r\n2\r\r3",
                        core::Icon::kCritical};
  message.details = "No such device\r\nConnect it.";
  ShowAnd(message, [](QMessageBox& box) {
    EXPECT_EQ(box.text(), "<b>1</b>\n2\n\n3");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.informativeText(), "No such device\nConnect it.");
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    QFont bold = box.font();
    bold.setBold(true);
    const int title = QFontMetrics(bold).horizontalAdvance(box.windowTitle());
    EXPECT_GE(box.width(), title + 100) << "the title and the buttons of a frame";
    box.accept();
  });
}

}  // namespace
}  // namespace orvane::platform
