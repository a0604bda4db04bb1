#include <string_view>
#include <tuple>

#include "core/product.h"
#include "editor/channel_page.h"
#include "editor/field_rules.h"
#include "page_desk.h"

using namespace orvane;
using core::ChannelRecord;
using testing::Row;
using Desk = testing::PageDesk<editor::ChannelPage>;

namespace {

using Name = const char*;

constexpr Name kLmr = "L1";
constexpr Name kWrong = "Data Error!!";
constexpr Name kIncomplete = "Data Error!!\r\nPlease input correct data.";

}  // namespace

/// What is typed into the channel page, from the key to the record or the refusal.
class ChannelEntryTest : public QObject {
  Q_OBJECT

 private slots:
  void EscapeBringsTheFrequencyBack() {
    Desk desk(5, kLmr);
    const ChannelRecord before = desk.data.EXP[1];
    for (Name name : {"txtCRF", "txtCTF"}) {
      const QString shown = desk.Text(name);
      desk.Type(name, "120");
      QTest::keyClick(desk[name], Qt::Key_Escape);
      QCOMPARE(desk.Text(name), shown);
      QTest::keyClick(desk[name], Qt::Key_Tab);
      QVERIFY(!desk[name]->hasFocus() && desk.prompts.messages.empty());
      QVERIFY(desk.data.EXP[1] == before);
    }
  }

  void FieldsLetInWhatTheyMayHold() {
    const std::tuple<Name, Name, Name> rows[] = {{"txtCRF", "1a5-6,.0 1256", "156.0125"},
                                                 {"txtCTF", "1x5+5.,0 0000", "155.0000"},
                                                 {"txtCRF", "15-0", "150"},
                                                 {"txtCN_0", "m1", "1"},
                                                 {"txtCN_0", "M1", "M1"},
                                                 {"txtCN_0", "1K", "1"},
                                                 {"txtCN_0", "bB", "b"},
                                                 {"txtCN_0", "123", "12"},
                                                 {"txtCN_1", "MK7", "7"},
                                                 {"txtCN_1", "K5", "5"},
                                                 {"txtCN_1", "Vyz5", "y5"},
                                                 {"txtCTag", "aB-/,_. 9", "AB-/,_. 9"},
                                                 {"txtCTag", "a!\"#b", "AB"},
                                                 {"txtCTag", "ABCDEFGHIJKLM", "ABCDEFGHIJKL"}};
    for (const auto& [name, typed, held] : rows) {
      const Row row(name, typed);
      Desk desk(5, kLmr);
      desk.Type(name, typed);
      QCOMPARE(desk.Text(name), held);
      QVERIFY(desk.host.changes > 0);
      const ChannelRecord& channel = desk.data.EXP[1];
      const std::string upper = QString(held).toUpper().toStdString();
      const std::string_view box = name;
      if (box == "txtCN_0") QCOMPARE(channel.CHDisplayL, upper);
      if (box == "txtCN_1") QCOMPARE(channel.CHDisplayR, upper);
      if (box == "txtCTag") QCOMPARE(channel.ChTag, upper);
      desk.Paste(name, typed);
      QCOMPARE(desk.Text(name), held);
      // What an input method sends is cut before it is filtered.
      if (qstrlen(typed) <= static_cast<std::size_t>(desk.Find<QLineEdit>(name)->maxLength())) {
        desk.Commit(name, typed);
        QCOMPARE(desk.Text(name), held);
      }
      if (box == "txtCRF" || box == "txtCTF") continue;
      desk.Open(kLmr);
      QCOMPARE(desk.Text(name), held);
    }
  }

  void WhatIsNotAllowedIsDroppedWhateverItsWayIn() {
    Desk desk(5, kLmr);
    desk.Type("txtCRF", "x");
    QCOMPARE(desk.Text("txtCRF"), "151.6000");
    QCOMPARE(desk.Find<QLineEdit>("txtCRF")->selectedText(), "151.6000");
    QCOMPARE(desk.host.changes, 0);
    desk.Paste("txtCRF", " \t155.0125 MHz");
    QCOMPARE(desk.Text("txtCRF"), "155.0125");
    desk.Commit("txtCTag", QStringLiteral("a\u3042\u00e9b"));
    QCOMPARE(desk.Text("txtCTag"), "AB");
  }

  void BackspaceWorksOutsideTheDisplay() {
    Desk desk(5, kLmr);
    for (const auto& [name, left] :
         {std::pair("txtCN_0", "12"), {"txtCTag", "1"}, {"txtCRF", "1"}}) {
      const Row row(name);
      desk.Type(name, "12");
      QTest::keyClick(desk[name], Qt::Key_Backspace);
      QCOMPARE(desk.Text(name), left);
      desk.Type(name, "");
      QTest::keyClick(desk[name], Qt::Key_Delete);
      QCOMPARE(desk.Text(name), "");
    }
  }

  void FrequencyRule() {
    constexpr double kRefused = -1;
    const std::tuple<std::string_view, Name, double> rows[] = {
        {"456", "134.0000", 134},     {"456", "133.9999", kRefused},
        {"12", "134.0000", kRefused}, {"12", "137", 137},
        {"12", "156.0125", 156.0125}, {"03", "156.0125", kRefused},
        {"03", "156.025", 156.025},   {"03", "136.975", kRefused},
        {"0123456", "174", 174},      {"0123456", "174.0001", kRefused},
        {"0123456", ".", kRefused},   {"0123456", "", 0}};
    for (const auto& [models, text, taken] : rows) {
      for (const char model : models) {
        const Row row(model, text);
        const auto model_type = static_cast<std::int16_t>(model - '0');
        QCOMPARE(editor::FrequencyOf(text, core::ProfileOf(model_type)).value_or(kRefused), taken);
      }
    }
  }

  void WrongFrequencyKeepsTheFocus() {
    const std::tuple<Name, Name, double ChannelRecord::*> rows[] = {
        {"txtCRF", "Rx frequency", &ChannelRecord::Rxfreq},
        {"txtCTF", "Tx frequency", &ChannelRecord::Txfreq}};
    for (const auto& [name, title, value] : rows) {
      for (Name way : {"tab", "click", "access key", "check"}) {
        const Row row(name, way);
        Desk desk(5, kLmr);
        const ChannelRecord before = desk.data.EXP[1];
        desk.Type(name, "120");
        if (*way == 't') QTest::keyClick(desk[name], Qt::Key_Tab);
        if (way == std::string_view("click")) QTest::mouseClick(desk["txtCTag"], Qt::LeftButton);
        if (*way == 'a') desk["chkCScan"]->setFocus(Qt::ShortcutFocusReason);
        if (way == std::string_view("check")) QVERIFY(!desk.page->Check());
        QCoreApplication::processEvents();
        QVERIFY(desk[name]->hasFocus());
        QCOMPARE(desk.prompts.Texts(), std::vector<std::string>{kWrong});
        QCOMPARE(desk.prompts.messages[0].title, title);
        QVERIFY(desk.prompts.messages[0].icon == core::Icon::kExclamation);
        QVERIFY(desk.data.EXP[1] == before);
        QTest::keyClick(desk[name], Qt::Key_Tab);  // refused again, until it is right
        QCOMPARE(desk.prompts.messages.size(), 2U);
        desk.Type(name, "150.1");
        QTest::keyClick(desk[name], Qt::Key_Tab);
        QVERIFY(!desk[name]->hasFocus());
        QCOMPARE(desk.Text(name), "150.1000");
        QCOMPARE(desk.data.EXP[1].*value, 150.1);
        desk.Open(kLmr);
        QCOMPARE(desk.Text(name), "150.1000");
      }
    }
  }

  void RefusedClickHasNoEffect() {
    Desk desk(5, kLmr);
    const bool scan = desk.data.EXP[1].ScanMemory;
    for (Name typed : {"9", "150"}) {
      desk.Type("txtCRF", typed);
      QTest::mouseClick(desk["chkCScan"], Qt::LeftButton, {}, QPoint(8, 8));
      QCoreApplication::processEvents();
      QCOMPARE(desk.data.EXP[1].ScanMemory == scan, *typed == '9');
      QCOMPARE(desk.prompts.messages.size(), 1U);
    }
  }

  void PageCheckAsksForCompleteChannels() {
    using Texts = std::vector<std::string>;
    const std::tuple<Name, Name, Name, Name, bool, Texts> rows[] = {
        {kLmr, "12", "txtCTag", "", true, {}},
        {kLmr, "1", "txtCTag", "", true, {kIncomplete}},
        {kLmr, nullptr, "txtCRF", "", true, {kIncomplete}},
        {kLmr, nullptr, "txtCTF", "", true, {}},
        {kLmr, "1", "txtCTF", "120", true, {kWrong, kIncomplete}},
        {kLmr, nullptr, "txtCRF", "", false, {}},
        {"PU32", nullptr, "txtCTag", "", true, {}}};
    for (const auto& [key, number, name, text, enabled, messages] : rows) {
      const Row row(key, number, name, text, enabled);
      Desk desk(5, key);
      if (number != nullptr) desk.Type("txtCN_0", number);
      desk.Type(name, text);
      if (*text == '\0') QTest::keyClick(desk[name], Qt::Key_Delete);
      if (!enabled) desk.Press("chkCEnable");
      QCOMPARE(desk.page->Check(), messages.empty());
      QCOMPARE(desk.prompts.Texts(), messages);
      if (!messages.empty()) QCOMPARE(desk.prompts.messages.back().title, core::kProgramTitle);
      if (name == std::string_view("txtCRF")) QCOMPARE(desk.Text("txtCRF"), "---.----");
    }
  }
};

QTEST_MAIN(ChannelEntryTest)
#include "channel_entry_test.moc"
