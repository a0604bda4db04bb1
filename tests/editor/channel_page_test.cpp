#include "editor/channel_page.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QtTest>

#include "editor/field_rules.h"
#include "page_desk.h"

using orvane::core::ChannelRecord;
using orvane::editor::ChannelPage;
using orvane::editor::kHelpContextProperty;
using Desk = orvane::testing::PageDesk<ChannelPage>;

namespace {

constexpr std::size_t k16 = 32;
constexpr std::size_t k24 = 48;
constexpr const char* kLmr = "L1";
constexpr const char* kExp = "E9";

ChannelRecord& Usa(Desk& desk, std::size_t index) {
  return desk.data.Marine[0][index];
}
bool On(const Desk& desk, const char* name) {
  return desk[name]->isEnabled();
}
bool Checked(const Desk& desk, const char* name) {
  return desk.Find<QAbstractButton>(name)->isChecked();
}
QString Text(const Desk& desk, const char* name) {
  return desk.Find<QLineEdit>(name)->text();
}
QString Item(const Desk& desk, const char* name) {
  return desk.Find<QComboBox>(name)->currentText();
}

}  // namespace

class ChannelPageTest : public QObject {
  Q_OBJECT

 private slots:
  void FlagsFollowTheirBoxes_data();
  void FlagsFollowTheirBoxes();
  void BusyPageWritesNothing();
  void DuplexSwitchesTheShownReceiveFrequency();
  void TransmitControlsDependOnEachOther();
  void MarineEntryRules_data();
  void MarineEntryRules();
  void DisabledChannelGreysAllButItsSwitch();
  void LastEnabledChannelStays_data();
  void LastEnabledChannelStays();
  void EnablingTakesKindAndGroupsFromTheRoot();
  void OtherKindShowsUnchecked();
  void GroupsCarryTheEnableOfExpChannels();
  void LastGroupOfTheLastExpChannelStays();
  void ScramblerItemsKeepTheOnBit_data();
  void ScramblerItemsKeepTheOnBit();
  void ToneAndCodeExcludeEachOther_data();
  void ToneAndCodeExcludeEachOther();
  void InvertedCodeSurvivesFilling();
  void BandwidthWritesNarrow();
  void NarrowbandRule_data();
  void NarrowbandRule();
  void ModelsHideControls_data();
  void ModelsHideControls();
  void HelpContextsFollowTheKindOfChannel();
  void HintsFollowTheFocus();

  void FieldsLetIn_data();
  void FieldsLetIn();
  void PastingIsFilteredBeforeItIsCut();
  void InputMethodsAreFiltered();
  void BackspaceWorksOutsideTheDisplay();
  void DisallowedKeyKeepsTheSelectedText();
  void FrequencyRule_data();
  void FrequencyRule();
  void WrongFrequencyKeepsTheFocus_data();
  void WrongFrequencyKeepsTheFocus();
  void RefusedClickHasNoEffect();
  void OtherWindowsDoNotAskForTheValue();
  void PageCheck_data();
  void PageCheck();
  void FillingChangesNothing();
};

void ChannelPageTest::FlagsFollowTheirBoxes_data() {
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<int>("flag");
  QTest::newRow("enable") << QByteArray("PU32") << QByteArray("chkCEnable") << 0;
  QTest::newRow("tx enable") << QByteArray("PU32") << QByteArray("chkCTXEnable") << 1;
  QTest::newRow("low power") << QByteArray("PU32") << QByteArray("chkCTXOnly") << 2;
  QTest::newRow("duplex") << QByteArray("PU32") << QByteArray("chkCDup") << 3;
  QTest::newRow("marine scan") << QByteArray("PU32") << QByteArray("chkCScan") << 4;
  QTest::newRow("extra scan") << QByteArray(kLmr) << QByteArray("chkCScan") << 4;
  QTest::newRow("extra enable") << QByteArray(kLmr) << QByteArray("chkCEnable") << 0;
}

void ChannelPageTest::FlagsFollowTheirBoxes() {
  QFETCH(const QByteArray, key);
  QFETCH(const QByteArray, name);
  QFETCH(const int, flag);
  static constexpr std::array kFlags = {&ChannelRecord::Enable, &ChannelRecord::TxEnable,
                                        &ChannelRecord::LowPower, &ChannelRecord::Duplex,
                                        &ChannelRecord::ScanMemory};
  Desk desk(5, key);
  const auto member = kFlags[static_cast<std::size_t>(flag)];
  ChannelRecord& channel = key == kLmr ? desk.data.EXP[1] : Usa(desk, k16);
  const bool before = channel.*member;
  desk.Press(name);
  QCOMPARE(static_cast<bool>(channel.*member), !before);
  QVERIFY(desk.host.changes > 0);
  QCOMPARE(desk.host.marks, flag == 0 ? 1 : 0);
  desk.Press(name);
  QCOMPARE(static_cast<bool>(channel.*member), before);
}

void ChannelPageTest::BusyPageWritesNothing() {
  Desk desk(5, kLmr);
  const ChannelRecord before = desk.data.EXP[1];
  desk.data.Flags.Busy = true;
  for (const char* name : {"chkCEnable", "chkCScan"}) desk.Press(name);
  desk.Pick("cmbCTCSS_1", 7);
  desk.Type("txtCTag", "X");
  desk.Type("txtCN_0", "1");
  QVERIFY(desk.data.EXP[1] == before);
  QCOMPARE(desk.host.changes, 0);
}

void ChannelPageTest::DuplexSwitchesTheShownReceiveFrequency() {
  Desk desk(5, "PU48");
  QCOMPARE(Text(desk, "txtCRF"), "161.800");
  desk.Press("chkCDup");
  QCOMPARE(Text(desk, "txtCRF"), "157.200");
  QCOMPARE(Text(desk, "txtCTF"), "157.200");
  QVERIFY(!Usa(desk, k24).Duplex);
}

void ChannelPageTest::TransmitControlsDependOnEachOther() {
  Desk desk(5, "PU32");
  ChannelRecord& channel = Usa(desk, k16);
  QVERIFY(On(desk, "chkCTXOnly") && !On(desk, "chkCTXPower"));
  desk.Press("chkCTXOnly");
  QCOMPARE(channel.TXPower, 1);
  QVERIFY(On(desk, "chkCTXPower"));
  desk.Press("chkCTXPower");
  QVERIFY(channel.PowUp);
  desk.Press("chkCTXEnable");
  QVERIFY(!On(desk, "chkCTXOnly") && !On(desk, "chkCTXPower"));
  QVERIFY(!channel.TxEnable && channel.LowPower);
  QCOMPARE(channel.TXPower, 1);
  desk.Press("chkCTXEnable");
  desk.Press("chkCTXOnly");
  QCOMPARE(channel.TXPower, 3);
}

void ChannelPageTest::MarineEntryRules_data() {
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<bool>("sel1");
  QTest::addColumn<QString>("label");
  QTest::addColumn<bool>("duplex");
  QTest::addColumn<bool>("transmit");
  QTest::addColumn<bool>("scrambler");
  QTest::newRow("09") << QByteArray("PU18") << true << "09" << true << true << true;
  QTest::newRow("16") << QByteArray("PU32") << true << "16" << true << true << false;
  QTest::newRow("70") << QByteArray("PU140") << true << "70" << false << false << false;
  QTest::newRow("15 receives only") << QByteArray("PU30") << true << "15" << false << false << true;
  QTest::newRow("22A") << QByteArray("PU45") << true << "22A" << false << true << true;
  QTest::newRow("09 without SEL1") << QByteArray("PU18") << false << "09" << true << true << false;
}

void ChannelPageTest::MarineEntryRules() {
  QFETCH(const QByteArray, key);
  QFETCH(const bool, sel1);
  Desk desk(5);
  for (ChannelRecord& channel : desk.data.Marine[0]) channel.SelectedPlan = sel1;
  desk.Open(key);
  QTEST(Text(desk, "txtCN_0"), "label");
  QTEST(On(desk, "chkCDup"), "duplex");
  QTEST(On(desk, "chkCTXEnable"), "transmit");
  QTEST(On(desk, "cmbScramble"), "scrambler");
  for (const char* locked : {"txtCN_0", "txtCRF", "txtCTF"}) {
    QVERIFY(desk.Find<QLineEdit>(locked)->isReadOnly());
  }
}

void ChannelPageTest::DisabledChannelGreysAllButItsSwitch() {
  for (const char* key : {"PU48", kLmr}) {
    Desk desk(5, key);
    desk.Press("chkCEnable");
    for (const char* name :
         {"txtCN_0", "txtCN_1", "txtCRF", "txtCTF", "chkCTXEnable", "chkCTXOnly", "chkCTXPower",
          "chkCDup", "chkCScan", "cmbScramble", "txtCTag", "optCWide_0", "optCWide_1", "cmbCTCSS_0",
          "cmbCTCSS_1", "cmbDCS_0", "cmbDCS_1", "chkComp"}) {
      QVERIFY2(!On(desk, name), name);
    }
    QVERIFY(On(desk, "chkCEnable"));
    desk.Press("chkCEnable");
    QVERIFY(On(desk, "txtCTag") && On(desk, "txtCRF") && On(desk, "cmbCTCSS_0"));
    QVERIFY(desk["chkCEnable"]->hasFocus());
  }
}

void ChannelPageTest::LastEnabledChannelStays_data() {
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<bool>("group_on");
  QTest::addColumn<bool>("stays");
  QTest::newRow("marine") << QByteArray("PI32") << true << true;
  QTest::newRow("lmr") << QByteArray(kLmr) << true << true;
  QTest::newRow("exp") << QByteArray(kExp) << true << true;
  QTest::newRow("lmr, group off") << QByteArray(kLmr) << false << false;
  QTest::newRow("exp, group off") << QByteArray(kExp) << false << false;
}

void ChannelPageTest::LastEnabledChannelStays() {
  QFETCH(const QByteArray, key);
  QFETCH(const bool, group_on);
  QFETCH(const bool, stays);
  Desk desk(5);
  for (ChannelRecord& channel : desk.data.Marine[1]) channel.Enable = channel.Position == k16;
  // One channel of either kind: that of the other kind does not count.
  for (int n = 1; n <= 40; ++n) desk.data.EXP[n].Enable = n == 1 || n == 9;
  desk.data.LmrPresent() = group_on;
  desk.data.ExpPresent = group_on;
  desk.Open(key);
  desk.Press("chkCEnable");
  QCOMPARE(Checked(desk, "chkCEnable"), stays);
  QCOMPARE(On(desk, "chkCScan"), stays);
  QCOMPARE(desk.host.changes > 0, !stays);
}

void ChannelPageTest::EnablingTakesKindAndGroupsFromTheRoot() {
  Desk desk(5, "E7");
  ChannelRecord& channel = desk.data.EXP[7];
  QCOMPARE(channel.LMR_EXP, -1);
  desk.Press("chkCEnable");
  QVERIFY(channel.Enable);
  QCOMPARE(channel.LMR_EXP, 0);
  QVERIFY(!channel.USA_Group && !channel.INT_Group && !channel.CAN_Group);
  QCOMPARE(desk.host.marks, 1);
  desk.Open("L7");
  desk.Press("chkCEnable");
  QCOMPARE(channel.LMR_EXP, -1);
}

void ChannelPageTest::OtherKindShowsUnchecked() {
  for (const auto& [key, checked] : {std::pair("E1", false), {"L1", true}, {"L9", false}}) {
    const Desk desk(5, key);
    QCOMPARE(Checked(desk, "chkCEnable"), checked);
    QVERIFY(std::string_view(key) == "L1" || !Checked(desk, "chkCGroup_0"));
  }
}

void ChannelPageTest::GroupsCarryTheEnableOfExpChannels() {
  Desk desk(5, "E13");
  ChannelRecord& channel = desk.data.EXP[13];
  channel = ChannelRecord{};
  desk.Open("E13");
  desk.Press("chkCGroup_1");
  QVERIFY(channel.Enable && channel.INT_Group && !channel.USA_Group);
  QVERIFY(Checked(desk, "chkCEnable") && On(desk, "chkCScan"));
  desk.Press("chkCGroup_2");
  desk.Press("chkCGroup_1");
  QVERIFY(channel.Enable && channel.CAN_Group && !channel.INT_Group);
  desk.Press("chkCGroup_2");
  QVERIFY(!channel.Enable && !channel.CAN_Group && !Checked(desk, "chkCEnable"));
}

void ChannelPageTest::LastGroupOfTheLastExpChannelStays() {
  Desk desk(5);
  for (int n = 1; n <= 40; ++n) desk.data.EXP[n].Enable = n == 1 || n == 9;
  ChannelRecord& channel = desk.data.EXP[9];
  channel.INT_Group = channel.CAN_Group = false;
  desk.Open(kExp);
  desk.Press("chkCGroup_0");
  QVERIFY(channel.Enable && channel.USA_Group && Checked(desk, "chkCGroup_0"));
  QCOMPARE(desk.host.changes, 0);
}

void ChannelPageTest::ScramblerItemsKeepTheOnBit_data() {
  QTest::addColumn<int>("value");
  QTest::addColumn<QString>("shown");
  for (const auto& [value, shown] : {std::pair(0, "Off"), {3, "Off"}, {4, "0"}, {6, "2"}}) {
    QTest::newRow(shown) << value << QString(shown);
  }
}

void ChannelPageTest::ScramblerItemsKeepTheOnBit() {
  QFETCH(const int, value);
  Desk desk(5);
  Usa(desk, 18).Scramble = static_cast<std::int16_t>(value);
  Usa(desk, 18).SelectedPlan = true;
  desk.Open("PU18");
  QTEST(Item(desk, "cmbScramble"), "shown");
  desk.Pick("cmbScramble", 4);
  QCOMPARE(Usa(desk, 18).Scramble, 7);
  desk.Pick("cmbScramble", 0);
  QCOMPARE(Usa(desk, 18).Scramble, 0);
}

void ChannelPageTest::ToneAndCodeExcludeEachOther_data() {
  QTest::addColumn<QByteArray>("member");
  QTest::newRow("transmit") << QByteArray("_0");
  QTest::newRow("receive") << QByteArray("_1");
}

void ChannelPageTest::ToneAndCodeExcludeEachOther() {
  QFETCH(const QByteArray, member);
  const bool receive = member == "_1";
  const QByteArray ctcss = "cmbCTCSS" + member;
  const QByteArray dcs = "cmbDCS" + member;
  Desk desk(5, "L9");
  desk.Open("E9");
  const ChannelRecord& channel = desk.data.EXP[9];
  const auto indexes = [&] {
    return receive ? std::pair(channel.RxCTCSS, channel.RxDCS)
                   : std::pair(channel.TxCTCSS, channel.TxDCS);
  };
  using Indexes = std::pair<std::int16_t, std::int16_t>;
  desk.Pick(ctcss, 12);
  QVERIFY((indexes() == Indexes{12, 0}));
  desk.Pick(dcs, 5);
  QVERIFY((indexes() == Indexes{0, 5}));
  QCOMPARE(Item(desk, ctcss), "Off");
  QCOMPARE(Item(desk, dcs), "032");
  QCOMPARE(On(desk, "chkComp"), receive);
  if (receive) {
    desk.Press("chkComp");
    QVERIFY(channel.RxComp);
  }
  desk.Pick(ctcss, 3);
  QVERIFY((indexes() == Indexes{3, 0}));
  QCOMPARE(Item(desk, dcs), "Off");
  QVERIFY(!On(desk, "chkComp"));
}

void ChannelPageTest::InvertedCodeSurvivesFilling() {
  Desk desk(5);
  desk.data.EXP[1].RxDCS = 208;
  desk.Open(kLmr);
  QCOMPARE(Item(desk, "cmbDCS_1"), "754I");
  QCOMPARE(desk.data.EXP[1].RxDCS, 208);
  QVERIFY(On(desk, "chkComp"));
}

void ChannelPageTest::BandwidthWritesNarrow() {
  Desk desk(5);
  desk.data.EXP[7].Narrow = false;  // 147 MHz, outside the rule's band
  desk.Open("L7");
  QVERIFY(Checked(desk, "optCWide_0"));
  desk.Press("optCWide_1");
  QVERIFY(desk.data.EXP[7].Narrow);
  desk.Press("optCWide_0");
  QVERIFY(!desk.data.EXP[7].Narrow);
}

void ChannelPageTest::NarrowbandRule_data() {
  QTest::addColumn<int>("model");
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<int>("year");
  QTest::addColumn<bool>("forced");
  QTest::newRow("lmr") << 5 << QByteArray("L1") << 2013 << true;
  QTest::newRow("before the day") << 5 << QByteArray("L1") << 2012 << false;
  QTest::newRow("exp channel") << 5 << QByteArray("E9") << 2026 << false;
  QTest::newRow("other model") << 6 << QByteArray("L1") << 2026 << false;
}

void ChannelPageTest::NarrowbandRule() {
  QFETCH(const int, model);
  QFETCH(const QByteArray, key);
  QFETCH(const int, year);
  QFETCH(const bool, forced);
  Desk desk(model);
  ChannelRecord& channel = desk.data.EXP[key.mid(1).toInt()];
  channel.Txfreq = 149;
  channel.Narrow = false;
  desk.clock.today =
      orvane::core::Date{std::chrono::year{year}, std::chrono::January, std::chrono::day{1}};
  desk.Open(key);
  QVERIFY(On(desk, "optCWide_0") && Checked(desk, "optCWide_0"));
  desk.Type("txtCTF", "155");
  QTest::keyClick(desk["txtCTF"], Qt::Key_Tab);
  QCOMPARE(On(desk, "optCWide_0"), !forced);
  QCOMPARE(On(desk, "optCWide_1"), !forced);
  QCOMPARE(Checked(desk, "optCWide_1"), forced);
  QCOMPARE(static_cast<bool>(channel.Narrow), forced);
  channel.Narrow = false;
  desk.Open(key);
  QCOMPARE(Checked(desk, "optCWide_1"), forced);
  QVERIFY(!channel.Narrow);  // showing is no change
}

void ChannelPageTest::ModelsHideControls_data() {
  QTest::addColumn<int>("model");
  QTest::addColumn<bool>("name");
  QTest::addColumn<bool>("scrambler");
  QTest::newRow("0") << 0 << true << true;
  QTest::newRow("1") << 1 << false << true;
  QTest::newRow("3") << 3 << true << false;
  QTest::newRow("5") << 5 << true << true;
}

void ChannelPageTest::ModelsHideControls() {
  QFETCH(const int, model);
  Desk desk(5, "PU32");
  desk.data.MODELTYPE = static_cast<std::int16_t>(model);
  desk.page->ModelChanged();
  QTEST(desk["txtCTag"]->isVisible(), "name");
  QTEST(desk["cmbScramble"]->isVisible(), "scrambler");
}

void ChannelPageTest::HelpContextsFollowTheKindOfChannel() {
  Desk desk(5);
  const auto numbers = [&desk](const char* key) {
    desk.Open(key);
    QList<int> found;
    for (const char* name : {"chkCEnable", "txtCN_0", "txtCN_1", "txtCRF", "txtCTF"}) {
      found << desk[name]->property(kHelpContextProperty).toInt();
    }
    return found;
  };
  QCOMPARE(numbers(kLmr), (QList<int>{2500, 2501, 2501, 2502, 2503}));
  QCOMPARE(numbers("PU32"), (QList<int>{1028, 0, 0, 0, 0}));
}

void ChannelPageTest::HintsFollowTheFocus() {
  Desk desk(5, kLmr);
  const auto hint = [&desk](const char* name) {
    desk.Focused(name);
    return desk.host.hint;
  };
  QCOMPARE(hint("txtCN_1"), "Indispensable 2 figures.");
  QCOMPARE(hint("txtCTF"), "Tx frequency");
  QCOMPARE(hint("chkCScan"), "[Space]:An effective and invalid change.");
  QCOMPARE(hint("cmbDCS_0"), "[Up]/[Down]:Change of a Selection item.");
  QCOMPARE(hint("txtCTag"), "A maximum of 12 characters");
  desk.Open("PU32");
  QCOMPARE(hint("txtCRF"), "");
  QVERIFY(!desk.Find<QLineEdit>("txtCRF")->hasSelectedText());
}

void ChannelPageTest::FieldsLetIn_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("held");
  const auto row = [](const char* name, const char* typed, const char* held) {
    QTest::addRow("%s %s", name, typed) << QByteArray(name) << QString(typed) << QString(held);
  };
  row("txtCRF", "1a5-6,.0 1256", "156.0125");
  row("txtCTF", "155.00000", "155.0000");
  row("txtCN_0", "m1", "1");
  row("txtCN_0", "M1", "M1");
  row("txtCN_0", "1K", "1");
  row("txtCN_0", "bB", "b");
  row("txtCN_0", "123", "12");
  row("txtCN_1", "MK7", "7");
  row("txtCN_1", "Vyz5", "y5");
  row("txtCTag", "aB-/,_. 9", "AB-/,_. 9");
  row("txtCTag", "a!\"#b", "AB");
  row("txtCTag", "ABCDEFGHIJKLM", "ABCDEFGHIJKL");
}

void ChannelPageTest::FieldsLetIn() {
  QFETCH(const QByteArray, name);
  QFETCH(const QString, typed);
  QFETCH(const QString, held);
  Desk desk(5, kLmr);
  desk.Type(name, typed);
  QCOMPARE(Text(desk, name), held);
  const ChannelRecord& channel = desk.data.EXP[1];
  const std::string upper = held.toUpper().toStdString();
  if (name == "txtCN_0") QCOMPARE(channel.CHDisplayL, upper);
  if (name == "txtCN_1") QCOMPARE(channel.CHDisplayR, upper);
  if (name == "txtCTag") QCOMPARE(channel.ChTag, upper);
  QVERIFY(desk.host.changes > 0);
  if (typed.size() > desk.Find<QLineEdit>(name)->maxLength()) return;
  desk.Type(name, "");
  QGuiApplication::clipboard()->setText(typed);
  QTest::keyClick(desk[name], Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(Text(desk, name), held);
}

void ChannelPageTest::PastingIsFilteredBeforeItIsCut() {
  Desk desk(5, kLmr);
  desk.Type("txtCRF", "");
  QGuiApplication::clipboard()->setText(" \t155.0125 MHz");
  QTest::keyClick(desk["txtCRF"], Qt::Key_V, Qt::ControlModifier);
  QCOMPARE(Text(desk, "txtCRF"), "155.0125");
}

void ChannelPageTest::InputMethodsAreFiltered() {
  Desk desk(5, kLmr);
  desk.Type("txtCTag", "");
  QTest::keyClick(desk["txtCTag"], Qt::Key_Delete);
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("a\u3042\u00e9b"));
  QCoreApplication::sendEvent(desk["txtCTag"], &commit);
  QCOMPARE(Text(desk, "txtCTag"), "AB");
}

void ChannelPageTest::BackspaceWorksOutsideTheDisplay() {
  Desk desk(5, kLmr);
  for (const auto& [name, typed, left] :
       {std::tuple("txtCN_0", "12", "12"), {"txtCTag", "12", "1"}, {"txtCRF", "12", "1"}}) {
    desk.Type(name, typed);
    QTest::keyClick(desk[name], Qt::Key_Backspace);
    QCOMPARE(Text(desk, name), left);
    desk.Type(name, "");
    QTest::keyClick(desk[name], Qt::Key_Delete);
    QCOMPARE(Text(desk, name), "");
  }
}

void ChannelPageTest::DisallowedKeyKeepsTheSelectedText() {
  Desk desk(5, kLmr);
  desk.Type("txtCRF", "x");
  QCOMPARE(Text(desk, "txtCRF"), "151.6000");
  QCOMPARE(desk.Find<QLineEdit>("txtCRF")->selectedText(), "151.6000");
  QCOMPARE(desk.host.changes, 0);
}

void ChannelPageTest::FrequencyRule_data() {
  QTest::addColumn<int>("model");
  QTest::addColumn<QString>("text");
  QTest::addColumn<double>("taken");
  const auto row = [](int model, const char* text, double taken) {
    QTest::addRow("%d %s", model, text) << model << QString(text) << taken;
  };
  constexpr double kRefused = -1;
  for (const int model : {4, 5, 6}) {
    row(model, "134.0000", 134);
    row(model, "133.9999", kRefused);
  }
  for (const int model : {1, 2}) {
    row(model, "134.0000", kRefused);
    row(model, "137", 137);
    row(model, "156.0125", 156.0125);
  }
  for (const int model : {0, 3}) {
    row(model, "156.0125", kRefused);
    row(model, "156.025", 156.025);
    row(model, "136.975", kRefused);
  }
  row(5, "174", 174);
  row(5, "174.0001", kRefused);
  row(5, ".", kRefused);
  row(5, "", 0);
}

void ChannelPageTest::FrequencyRule() {
  QFETCH(const int, model);
  QFETCH(const QString, text);
  QFETCH(const double, taken);
  const auto mhz =
      orvane::editor::FrequencyOf(text, orvane::core::ProfileOf(static_cast<std::int16_t>(model)));
  QCOMPARE(mhz.value_or(-1), taken);
}

void ChannelPageTest::WrongFrequencyKeepsTheFocus_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("title");
  QTest::addColumn<int>("way");
  for (int way = 0; way < 4; ++way) {
    QTest::addRow("rx %d", way) << QByteArray("txtCRF") << "Rx frequency" << way;
    QTest::addRow("tx %d", way) << QByteArray("txtCTF") << "Tx frequency" << way;
  }
}

void ChannelPageTest::WrongFrequencyKeepsTheFocus() {
  QFETCH(const QByteArray, name);
  QFETCH(const QString, title);
  QFETCH(const int, way);
  Desk desk(5, kLmr);
  const double rx = desk.data.EXP[1].Rxfreq;
  const double tx = desk.data.EXP[1].Txfreq;
  desk.Type(name, "120");
  if (way == 0) QTest::keyClick(desk[name], Qt::Key_Tab);
  if (way == 1) QTest::mouseClick(desk["txtCTag"], Qt::LeftButton);
  if (way == 2) desk["chkCScan"]->setFocus(Qt::ShortcutFocusReason);
  if (way == 3) QVERIFY(!desk.page->Check());
  QCoreApplication::processEvents();
  QVERIFY(desk[name]->hasFocus());
  QCOMPARE(desk.prompts.messages.size(), 1U);
  QCOMPARE(desk.prompts.messages[0].title, title.toStdString());
  QCOMPARE(desk.prompts.messages[0].text, "Data Error!!");
  QVERIFY(desk.prompts.messages[0].icon == orvane::core::Icon::kExclamation);
  QVERIFY(desk.data.EXP[1].Rxfreq == rx && desk.data.EXP[1].Txfreq == tx);
  QTest::keyClick(desk[name], Qt::Key_Tab);  // refused again, until it is right
  QCOMPARE(desk.prompts.messages.size(), 2U);
  desk.Type(name, "150.1");
  QTest::keyClick(desk[name], Qt::Key_Tab);
  QVERIFY(!desk[name]->hasFocus());
  QCOMPARE(Text(desk, name), "150.1000");
  QCOMPARE(name == "txtCRF" ? desk.data.EXP[1].Rxfreq : desk.data.EXP[1].Txfreq, 150.1);
}

void ChannelPageTest::RefusedClickHasNoEffect() {
  Desk desk(5, kLmr);
  const bool scan = desk.data.EXP[1].ScanMemory;
  desk.Type("txtCRF", "9");
  QTest::mouseClick(desk["chkCScan"], Qt::LeftButton, {}, QPoint(8, 8));
  QCoreApplication::processEvents();
  QCOMPARE(static_cast<bool>(desk.data.EXP[1].ScanMemory), scan);
  QCOMPARE(desk.prompts.messages.size(), 1U);
  desk.Type("txtCRF", "150");
  QTest::mouseClick(desk["chkCScan"], Qt::LeftButton, {}, QPoint(8, 8));
  QCOMPARE(static_cast<bool>(desk.data.EXP[1].ScanMemory), !scan);
}

void ChannelPageTest::OtherWindowsDoNotAskForTheValue() {
  Desk desk(5, kLmr);
  desk.Type("txtCRF", "9");
  for (const Qt::FocusReason reason :
       {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QFocusEvent in(QEvent::FocusIn, reason);
    QCoreApplication::sendEvent(desk["txtCRF"], &out);
    QCoreApplication::sendEvent(desk["txtCRF"], &in);
    QCoreApplication::processEvents();
  }
  QCOMPARE(desk.prompts.messages.size(), 0U);
  QVERIFY(!desk.page->Check());  // still pending
}

void ChannelPageTest::PageCheck_data() {
  QTest::addColumn<QByteArray>("key");
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("enabled");
  QTest::addColumn<QStringList>("messages");
  const QString incomplete = QStringLiteral("Data Error!!\r\nPlease input correct data.");
  const QStringList none;
  QTest::newRow("complete") << QByteArray(kLmr) << QByteArray("txtCN_0") << "12" << true << none;
  QTest::newRow("one figure") << QByteArray(kLmr) << QByteArray("txtCN_0") << "1" << true
                              << QStringList{incomplete};
  QTest::newRow("no receive frequency")
      << QByteArray(kLmr) << QByteArray("txtCRF") << "" << true << QStringList{incomplete};
  QTest::newRow("no transmit frequency")
      << QByteArray(kLmr) << QByteArray("txtCTF") << "" << true << none;
  QTest::newRow("not in use") << QByteArray(kLmr) << QByteArray("txtCRF") << "" << false << none;
  QTest::newRow("marine") << QByteArray("PU32") << QByteArray("txtCTag") << "" << true << none;
}

void ChannelPageTest::PageCheck() {
  QFETCH(const QByteArray, key);
  QFETCH(const QByteArray, name);
  QFETCH(const QString, text);
  QFETCH(const bool, enabled);
  QFETCH(const QStringList, messages);
  Desk desk(5, key);
  desk.Type(name, text);
  if (text.isEmpty()) QTest::keyClick(desk[name], Qt::Key_Delete);
  if (!enabled) desk.Press("chkCEnable");
  QCOMPARE(desk.page->Check(), messages.isEmpty());
  QStringList shown;
  for (const std::string& shown_text : desk.prompts.Texts()) {
    shown << QString::fromStdString(shown_text);
  }
  QCOMPARE(shown, messages);
  if (!messages.isEmpty()) QCOMPARE(desk.prompts.messages[0].title, "Title");
  if (name == "txtCRF") QCOMPARE(Text(desk, "txtCRF"), "---.----");
}

void ChannelPageTest::FillingChangesNothing() {
  for (int model = 0; model <= 6; ++model) {
    Desk desk(model);
    QStringList keys;
    for (int i = 0; i < 240; ++i) {
      for (const char* group : {"PU", "PI", "PC"})
        keys << QLatin1String(group) + QString::number(i);
    }
    for (int n = 1; n <= 40; ++n)
      keys << QStringLiteral("L%1").arg(n) << QStringLiteral("E%1").arg(n);
    QVERIFY(desk.FillsWithoutTrace(keys));
  }
}

QTEST_MAIN(ChannelPageTest)
#include "channel_page_test.moc"
