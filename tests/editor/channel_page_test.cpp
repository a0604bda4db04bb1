#include "editor/channel_page.h"

#include <string_view>
#include <tuple>

#include "page_desk.h"

using namespace orvane;
using core::ChannelRecord;
using core::Flag;
using editor::ChannelPage;
using testing::Row;
using Desk = testing::PageDesk<ChannelPage>;

namespace {

using Name = const char*;

constexpr Name kLmr = "L1";
constexpr Name kExp = "E9";

ChannelRecord& Channel(Desk& desk, Name key) {
  const editor::NodeRef node = *editor::NodeOfKey(QLatin1String(key));
  if (node.kind != editor::NodeKind::kMarineChannel) return desk.data.EXP[node.number];
  return desk.data.Table(node.group)[static_cast<std::size_t>(node.number)];
}

/// The controls that the user can reach.
QStringList Reachable(const Desk& desk) {
  QStringList names;
  for (const QWidget* control : desk.page->findChildren<QWidget*>()) {
    const bool offered = control->isEnabled() && control->isVisible();
    if (offered && control->focusPolicy() != Qt::NoFocus) names << control->objectName();
  }
  return names;
}

}  // namespace

class ChannelPageTest : public QObject {
  Q_OBJECT

 private slots:
  void BoxesShowAndWriteTheirOwnFlagOnly() {
    const std::tuple<Name, Name, Flag ChannelRecord::*> rows[] = {
        {"PU32", "chkCEnable", &ChannelRecord::Enable},
        {"PU32", "chkCTXEnable", &ChannelRecord::TxEnable},
        {"PU32", "chkCTXOnly", &ChannelRecord::LowPower},
        {"PU32", "chkCDup", &ChannelRecord::Duplex},
        {"PU32", "chkCScan", &ChannelRecord::ScanMemory},
        {kLmr, "chkCEnable", &ChannelRecord::Enable},
        {kLmr, "chkCScan", &ChannelRecord::ScanMemory},
        {"L3", "chkComp", &ChannelRecord::RxComp},
        {kLmr, "chkCTXPower", &ChannelRecord::PowUp},
        {"L7", "optCWide_1", &ChannelRecord::Narrow},  // outside the rule's band
        {kExp, "chkCGroup_0", &ChannelRecord::USA_Group},
        {kExp, "chkCGroup_1", &ChannelRecord::INT_Group},
        {kExp, "chkCGroup_2", &ChannelRecord::CAN_Group}};
    for (const auto& [key, name, flag] : rows) {
      const Row row(key, name);
      Desk desk(5);
      ChannelRecord& channel = Channel(desk, key);
      channel.TxEnable = channel.LowPower = true;  // Power Up follows them
      ChannelRecord expected = channel;
      const Name back = flag == &ChannelRecord::Narrow ? "optCWide_0" : name;
      for (const Name pressed : {name, back}) {
        desk.Open(key);
        desk.Press(pressed);
        expected.*flag = !(expected.*flag);
        expected.TXPower = channel.TXPower;
        QVERIFY(channel == expected);
        QVERIFY(desk.host.changes > 0);
        if (flag == &ChannelRecord::Enable) QCOMPARE(desk.host.marks, 1);
        desk.Open(key);
        QCOMPARE(desk.Checked(name), static_cast<bool>(expected.*flag));
      }
    }
  }

  void BusyPageWritesNothing() {
    for (Name key : {"PU32", kLmr, kExp}) {
      const Row row(key);
      Desk desk(5, key);
      const core::RadioData before = desk.data;
      desk.state.Busy = true;
      desk.WorkAll();
      QVERIFY(desk.data == before);
      QCOMPARE(desk.host.changes, 0);
    }
  }

  void DuplexSwitchesTheShownReceiveFrequency() {
    Desk desk(5, "PU48");
    QCOMPARE(desk.Text("txtCRF"), "161.800");
    desk.Press("chkCDup");
    QCOMPARE(desk.Text("txtCRF"), "157.200");
    QCOMPARE(desk.Text("txtCTF"), "157.200");
  }

  void TransmitControlsDependOnEachOther() {
    Desk desk(5, "PU32");
    const ChannelRecord& channel = Channel(desk, "PU32");
    QVERIFY(desk.On("chkCTXOnly") && !desk.On("chkCTXPower"));
    desk.Press("chkCTXOnly");
    QCOMPARE(channel.TXPower, 1);
    QVERIFY(desk.On("chkCTXPower"));
    desk.Press("chkCTXEnable");
    QVERIFY(!desk.On("chkCTXOnly") && !desk.On("chkCTXPower"));
    QVERIFY(!channel.TxEnable && channel.LowPower);
    QCOMPARE(channel.TXPower, 1);
    desk.Press("chkCTXEnable");
    desk.Press("chkCTXOnly");
    QCOMPARE(channel.TXPower, 3);
  }

  void EntriesHaveTheirRulesBeforeAndAfterTheyWereSwitchedOff() {
    const std::tuple<Name, bool, Name, bool, bool, bool> rows[] = {
        {"PU18", true, "09", true, true, true},   {"PU18", false, "09", true, true, false},
        {"PU32", true, "16", true, true, false},  {"PU140", true, "70", false, false, false},
        {"PU30", true, "15", false, false, true},  // receives only
        {"PU45", true, "22A", false, true, true}, {kLmr, true, "L0", false, true, true},
        {kLmr, false, "L0", false, true, false},  {kExp, false, "E0", false, true, false}};
    for (const auto& [key, sel1, label, duplex, transmit, scrambler] : rows) {
      const Row row(key, sel1);
      Desk desk(5);
      image::SetDestinationBits(desk.data.Image, sel1, false);
      image::CopyPlanSelection(desk.data);
      desk.Open(key);
      for (int round = 0; round < 2; ++round) {
        QCOMPARE(desk.Text("txtCN_0"), label);
        QCOMPARE(desk.On("chkCDup"), duplex);
        QCOMPARE(desk.On("chkCTXEnable"), transmit);
        QCOMPARE(desk.On("cmbScramble"), scrambler);
        for (Name name : {"txtCN_0", "txtCRF", "txtCTF"}) {
          QCOMPARE(desk.Find<QLineEdit>(name)->isReadOnly(), *key == 'P');
        }
        for (int press = 0; press < 2; ++press) desk.Press("chkCEnable");
      }
    }
  }

  void DisabledChannelGreysAllButItsSwitches() {
    const QStringList groups = {"chkCGroup_0", "chkCGroup_1", "chkCGroup_2"};
    for (Name key : {"PU48", kLmr, kExp}) {
      const Row row(key);
      Desk desk(5, key);
      const QStringList reachable = Reachable(desk);
      QVERIFY(reachable.contains("txtCRF") && reachable.contains("txtCTag"));
      desk.Press("chkCEnable");
      QCOMPARE(Reachable(desk), QStringList("chkCEnable") + (key == kExp ? groups : QStringList()));
      desk.Press("chkCEnable");
      QCOMPARE(Reachable(desk), reachable);
      QVERIFY(desk["chkCEnable"]->hasFocus());
    }
  }

  void LastEnabledChannelStays() {
    const std::tuple<Name, Name, bool, bool> rows[] = {
        {"PI32", "chkCEnable", true, true}, {kLmr, "chkCEnable", true, true},
        {kExp, "chkCEnable", true, true},   {kExp, "chkCGroup_0", true, true},
        {kLmr, "chkCEnable", false, false}, {kExp, "chkCEnable", false, false},
        {kExp, "chkCGroup_0", false, false}};
    for (const auto& [key, name, group_on, stays] : rows) {
      const Row row(key, name, group_on);
      Desk desk(5);
      for (ChannelRecord& channel : desk.data.Marine[1]) channel.Enable = channel.Position == 32;
      // One channel of either kind: that of the other kind does not count.
      for (int n = 1; n <= 40; ++n) desk.data.EXP[n].Enable = n == 1 || n == 9;
      desk.data.EXP[9].INT_Group = desk.data.EXP[9].CAN_Group = false;
      // Nor does the other group's use.
      desk.data.LmrPresent() = (key == kLmr) == group_on;
      desk.data.ExpPresent = (key == kExp) == group_on;
      const ChannelRecord before = Channel(desk, key);
      desk.Open(key);
      desk.Press(name);
      QCOMPARE(desk.Checked(name), stays);
      QCOMPARE(desk.Checked("chkCEnable"), stays);
      QCOMPARE(desk.On("chkCScan"), stays);
      QCOMPARE(Channel(desk, key) == before, stays);
      QCOMPARE(desk.host.changes > 0, !stays);
      const QString kind = *key == 'P' ? "INTL" : *key == 'L' ? "LMR" : "EXP";
      const QString why = QString("Stays on: the last %1 channel in use.").arg(kind);
      QCOMPARE(desk.host.notice, stays ? why : QString());
    }
  }

  void FreshExtraChannelsShowTheirUseAndCanBeLeft() {
    for (int model = 0; model <= 6; ++model) {
      const Row row(model);
      Desk desk(model);
      image::ResetToDefaults(desk.data, desk.clock.today);
      desk.data.LmrPresent() = true;
      ChannelRecord& channel = desk.data.EXP[1];
      desk.Open("L1");
      QVERIFY(!desk.Checked("chkCEnable"));
      QVERIFY(desk.page->Check() && desk.prompts.messages.empty());
      channel.Enable = true;
      channel.LMR_EXP = model == 5 ? -1 : 0;
      desk.Open("L1");
      QVERIFY(desk.Checked("chkCEnable"));
      channel.LMR_EXP = 0;
      channel.USA_Group = channel.INT_Group = channel.CAN_Group = false;
      desk.Open("E1");
      QVERIFY(!desk.Checked("chkCEnable"));
      channel.CAN_Group = true;
      desk.Open("E1");
      QVERIFY(desk.Checked("chkCEnable"));
    }
  }

  void ScramblerItemsKeepTheOnBit() {
    for (const auto& [value, shown] : {std::pair(0, "Off"), {3, "Off"}, {4, "0"}, {6, "2"}}) {
      Desk desk(5);
      ChannelRecord& channel = Channel(desk, "PU18");
      channel.Scramble = static_cast<std::int16_t>(value);
      desk.Open("PU18");
      QCOMPARE(desk.Item("cmbScramble"), shown);
      desk.Pick("cmbScramble", 4);
      QCOMPARE(channel.Scramble, 7);
      desk.Pick("cmbScramble", 0);
      QCOMPARE(channel.Scramble, 0);
    }
  }

  void ToneAndCodeOfADirectionExcludeEachOther() {
    const std::tuple<Name, std::int16_t ChannelRecord::*, std::int16_t> lists[] = {
        {"cmbCTCSS_0", &ChannelRecord::TxCTCSS, 2},
        {"cmbDCS_0", &ChannelRecord::TxDCS, 3},
        {"cmbCTCSS_1", &ChannelRecord::RxCTCSS, 4},
        {"cmbDCS_1", &ChannelRecord::RxDCS, 208}};
    for (std::size_t i = 0; i < std::size(lists); ++i) {
      const auto& [list, index, shown] = lists[i];
      const auto& [excluded, excluded_index, excluded_shown] = lists[i ^ 1];
      const Row row(list);
      Desk desk(5);
      ChannelRecord& channel = desk.data.EXP[9];
      for (const auto& [name, member, value] : lists) channel.*member = value;
      ChannelRecord expected = channel;
      desk.Open(kExp);
      for (const auto& [name, member, value] : lists) {
        QCOMPARE(desk.Find<QComboBox>(name)->currentIndex(), value);
      }
      QCOMPARE(desk.Item("cmbDCS_1"), "754I");
      QVERIFY(channel == expected);
      desk.Pick(list, 12);
      expected.*index = 12;
      expected.*excluded_index = 0;
      QVERIFY(channel == expected);
      QCOMPARE(desk.Item(excluded), "Off");
      QCOMPARE(desk.On("chkComp"), expected.RxDCS != 0);
      desk.Pick(list, 0);
      expected.*index = 0;
      QVERIFY(channel == expected);
      QCOMPARE(desk.On("chkComp"), expected.RxDCS != 0);
    }
  }

  void NarrowbandRule() {
    const std::tuple<int, Name, int, bool> rows[] = {{5, kLmr, 2013, true},
                                                     {5, kLmr, 2012, false},
                                                     {5, kExp, 2026, false},
                                                     {6, kLmr, 2026, false}};
    for (const auto& [model, key, year, forced] : rows) {
      const Row row(model, key, year);
      Desk desk(model);
      ChannelRecord& channel = Channel(desk, key);
      channel.Txfreq = 149;
      channel.Narrow = false;
      desk.clock.today =
          core::Date{std::chrono::year{year}, std::chrono::January, std::chrono::day{1}};
      desk.Open(key);
      QVERIFY(desk.On("optCWide_0") && desk.Checked("optCWide_0"));
      desk.Type("txtCTF", "155");
      QTest::keyClick(desk["txtCTF"], Qt::Key_Tab);
      QCOMPARE(desk.On("optCWide_0"), !forced);
      QCOMPARE(desk.On("optCWide_1"), !forced);
      QCOMPARE(desk.Checked("optCWide_1"), forced);
      QCOMPARE(static_cast<bool>(channel.Narrow), forced);
      channel.Narrow = false;
      desk.Open(key);
      QCOMPARE(desk.Checked("optCWide_1"), forced);
      QVERIFY(!channel.Narrow);  // showing is no change
      desk.Type("txtCTF", "149");
      QTest::keyClick(desk["txtCTF"], Qt::Key_Tab);
      QVERIFY(desk.Checked("optCWide_0") && desk.On("optCWide_0") && !channel.Narrow);
    }
  }

  void ChosenBandwidthStaysWhereTheRecordsIsNotShown() {
    Desk desk(4, kLmr);
    QVERIFY(!desk.Checked("optCWide_0") && !desk.Checked("optCWide_1"));
    desk.Press("optCWide_0");
    desk.Type("txtCTF", "155");
    QTest::keyClick(desk["txtCTF"], Qt::Key_Tab);
    QVERIFY(desk.Checked("optCWide_0"));
    for (int press = 0; press < 2; ++press) desk.Press("chkCEnable");
    QVERIFY(desk.Checked("optCWide_0") && !desk.data.EXP[1].Narrow);
  }

  void OptionsFollowAllArrowKeys() {
    const std::tuple<Name, Qt::Key, Name> rows[] = {{"optCWide_0", Qt::Key_Down, "optCWide_1"},
                                                    {"optCWide_0", Qt::Key_Right, "optCWide_1"},
                                                    {"optCWide_1", Qt::Key_Up, "optCWide_0"},
                                                    {"optCWide_1", Qt::Key_Left, "optCWide_0"},
                                                    {"optCWide_0", Qt::Key_Up, "optCWide_0"}};
    for (const auto& [from, key, to] : rows) {
      const Row row(from, key);
      Desk desk(5);
      desk.data.EXP[7].Narrow = from == std::string_view("optCWide_1");
      desk.Open("L7");
      QTest::keyClick(desk.Focused(from), key);
      QVERIFY(desk[to]->hasFocus() && desk.Checked(to));
      QCOMPARE(static_cast<bool>(desk.data.EXP[7].Narrow), to == std::string_view("optCWide_1"));
    }
  }

  void PageCheckLooksAtTheStoredUseAndShowsTheWayOut() {
    // What is stored decides, not the groups that the box shows.
    const std::tuple<bool, bool, bool, bool, Name> rows[] = {
        {false, true, false, true, nullptr},
        {true, true, false, true, "no Rx Frequency.\r\nFill that in. Or switch CH Enable off"},
        {true, true, true, false, "in use, but CH Display has fewer than 2 characters"},
        {true, true, false, false, "no Rx Frequency, and CH Display has"},
        {true, false, false, true, "Fill that in. Switch CH Enable on for that; on and off"}};
    for (const auto& [in_use, in_group, frequency, number, way] : rows) {
      const Row row(in_use, in_group, frequency, number);
      Desk desk(5);
      ChannelRecord& channel = desk.data.EXP[13];
      channel = {};
      channel.Enable = in_use;
      channel.USA_Group = in_group;
      channel.Rxfreq = frequency ? 156 : 0;
      channel.CHDisplayL = number ? "13" : "1";
      desk.Open("E13");
      QCOMPARE(desk.Checked("chkCEnable"), in_group);
      QCOMPARE(desk.page->Check(), way == nullptr);
      if (way == nullptr) continue;
      QVERIFY(desk.prompts.messages[0].details.find(way) != std::string::npos);
      for (int press = in_group ? 1 : 0; press < 2; ++press) desk.Press("chkCEnable");
      QVERIFY(desk.page->Check());
    }
    Desk desk(5);
    for (int n = 2; n <= 40; ++n) desk.data.EXP[n].Enable = false;
    desk.data.LmrPresent() = true;
    desk.data.EXP[1].Rxfreq = 0;
    desk.Open(kLmr);
    QVERIFY(!desk.page->Check());
    QVERIFY(desk.prompts.messages[0].details.find("cannot be switched off") != std::string::npos);
  }

  void ModelsHideControls() {
    for (int model = 0; model <= 6; ++model) {
      const Row row(model);
      const Desk desk(model, "PU32");
      QCOMPARE(desk["txtCTag"]->isVisible(), model != 1);
      QCOMPARE(desk["cmbScramble"]->isVisible(), model != 3);
    }
  }

  void HintsFollowTheFocus() {
    Desk desk(5, "L7");
    const std::pair<Name, Name> rows[] = {
        {"txtCN_0", "Indispensable 2 figures."},
        {"txtCRF", "Rx frequency"},
        {"txtCTF", "Tx frequency"},
        {"chkCScan", "[Space]:An effective and invalid change."},
        {"cmbDCS_0", "[Up]/[Down]:Change of a Selection item."},
        {"optCWide_0", "[Up]/[Down]/[Left]/[Right]:Change of a Selection item."},
        {"txtCTag", "A maximum of 12 characters"}};
    for (const auto& [name, hint] : rows) QCOMPARE(desk.HintOf(name), hint);
    desk.Open("PU32");
    QCOMPARE(desk.HintOf("txtCRF"), "");
    QVERIFY(!desk.Find<QLineEdit>("txtCRF")->hasSelectedText());
  }

  void FillingChangesNothing() {
    QStringList keys;
    for (int i = 0; i < 240; ++i) {
      for (Name group : {"PU", "PI", "PC"}) keys << group + QString::number(i);
    }
    for (int n = 1; n <= 40; ++n) keys << "L" + QString::number(n) << "E" + QString::number(n);
    for (int model = 0; model <= 6; ++model) QVERIFY(Desk(model).FillsWithoutTrace(keys));
  }
};

QTEST_MAIN(ChannelPageTest)
#include "channel_page_test.moc"
