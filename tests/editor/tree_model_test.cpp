#include <QAbstractItemModelTester>
#include <QTest>
#include <tuple>

#include "editor/tree_model.h"
#include "image/codec.h"
#include "support/fakes.h"
#include "support/row.h"

using orvane::core::RadioData;
using orvane::editor::KeyOf;
using orvane::editor::NodeKind;
using orvane::editor::NodeOfKey;
using orvane::editor::NodeRef;
using orvane::editor::TreeModel;
using orvane::testing::Row;

namespace {

RadioData NewData(int model_type) {
  RadioData data;
  data.MODELTYPE = static_cast<std::int16_t>(model_type);
  orvane::image::ResetToDefaults(data, orvane::testing::ManualClock().today);
  for (auto& group : data.Usable) group.Enable = true;
  data.ExpPresent = true;
  return data;
}

QString TextOf(const TreeModel& model, const QString& key) {
  return model.IndexOfKey(key).data().toString();
}

QStringList ChildKeys(const TreeModel& model, const QString& key) {
  QStringList keys;
  const QModelIndex parent = key.isEmpty() ? QModelIndex() : model.IndexOfKey(key);
  for (int row = 0; row < model.rowCount(parent); ++row) {
    keys << model.index(row, 0, parent).data(TreeModel::kKeyRole).toString();
  }
  return keys;
}

}  // namespace

class TreeModelTest : public QObject {
  Q_OBJECT

 private slots:
  void KeysAndNodesNameEachOther() {
    for (const char* key : {"General", "Usable", "Common", "Program", "PU", "PI", "PC", "PU0",
                            "PI37", "PC239", "PW", "LMRChannel", "L1", "L40", "ExpChannel", "E7"}) {
      const auto node = NodeOfKey(QLatin1String(key));
      QVERIFY2(node.has_value(), key);
      QCOMPARE(KeyOf(*node), QLatin1String(key));
      QCOMPARE(NodeOfKey(QString(QLatin1String(key)).toLower()), node);
    }
    for (const char* key :
         {"", "P", "PU240", "PU-1", "PU07", "L0", "L41", "E", "E4x", "Generals"}) {
      QVERIFY2(!NodeOfKey(QLatin1String(key)).has_value(), key);
    }
  }

  void OrderIsFixed() {
    RadioData data = NewData(5);
    const TreeModel model(data);
    QCOMPARE(ChildKeys(model, {}), QStringList({"General", "Program", "LMRChannel", "ExpChannel"}));
    QCOMPARE(ChildKeys(model, "General"), QStringList({"Usable", "Common"}));
    QCOMPARE(ChildKeys(model, "Program"), QStringList({"PU", "PI", "PC", "PW"}));
    QCOMPARE(ChildKeys(model, "PI").size(), 240);
    QCOMPARE(ChildKeys(model, "PI").at(37), "PI37");
    QCOMPARE(ChildKeys(model, "LMRChannel").size(), 40);
    QCOMPARE(ChildKeys(model, "ExpChannel").constLast(), "E40");
    QCOMPARE(TextOf(model, "Usable"), "Available CH Group Setup");
    QCOMPARE(TextOf(model, "Common"), "Common Setup");
    QCOMPARE(TextOf(model, "Program"), "Programmable Channel");
    QCOMPARE(TextOf(model, "PC"), "CANADA");
    QCOMPARE(TextOf(model, "PU1"), "CH00A");
    QCOMPARE(TextOf(model, "PU32"), "CH16[Enable]");
    QCOMPARE(TextOf(model, "PU239"), "CH119A");
  }

  void MarksFollowTheModel() {
    const std::tuple<int, int, const char*, const char*, const char*> rows[] = {
        {0, 0, "EXP Channel", "EXP7[Enable]", "EXP7[Enable]"},
        {1, 0, "EXP Channel", "EXP7[Enable]", "EXP7[Enable]"},
        {3, 0, "EXP Channel", "EXP7[Enable]", "EXP7[Enable]"},
        {4, 0, "LMR Channel", "LMR7[Enable]", "EXP7[Enable]"},
        {6, 0, "LMR Channel", "LMR7[Enable]", "EXP7[Enable]"},
        {5, 0, "LMR Channel", "LMR7", "EXP7[Enable]"},
        {5, -1, "LMR Channel", "LMR7[Enable]", "EXP7"}};
    for (const auto& [model_type, kind, lmr_root, lmr_channel, exp_channel] : rows) {
      const Row row(model_type, kind);
      RadioData data = NewData(model_type);
      data.EXP[7].Enable = true;
      data.EXP[7].LMR_EXP = static_cast<std::int16_t>(kind);
      data.EXP[8].Enable = false;
      const TreeModel model(data);
      QCOMPARE(TextOf(model, "LMRChannel"), lmr_root);
      QCOMPARE(TextOf(model, "L7"), lmr_channel);
      QCOMPARE(TextOf(model, "E7"), exp_channel);
      QVERIFY(!TextOf(model, "L8").endsWith("[Enable]"));
      QCOMPARE(TextOf(model, "ExpChannel"), "EXP Channel");
    }
  }

  void StatusNameStandsInForAMissingIcon() {
    for (const auto& [model_type, icon, text] : {std::tuple(5, false, "USA(ABCD)"),
                                                 {5, true, "USA"},
                                                 {1, false, "USA"}}) {  // a model without names
      const Row row(model_type, icon);
      RadioData data = NewData(model_type);
      data.Usable[0].Status_name = "ABCD";
      data.Usable[0].Status_Icon = icon;
      data.Usable[3].Status_name = "\xC4";  // A with diaeresis in the radio's character set
      data.Usable[3].Status_Icon = false;
      const TreeModel model(data);
      QCOMPARE(TextOf(model, "PU"), text);
      QCOMPARE(TextOf(model, "LMRChannel").contains(QStringLiteral("(\u00C4)")), model_type != 1);
    }
  }

  void EveryChangeKeepsTheModelSound() {
    RadioData data = NewData(5);
    TreeModel model(data);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    data.Table(orvane::core::MarineGroup::kUsa)[32].Enable = false;
    QVERIFY(!model.Rebuild());
    QCOMPARE(TextOf(model, "PU32"), "CH16");
    data.Usable[1].Enable = false;
    data.ExpPresent = false;
    QVERIFY(model.Rebuild());
    QVERIFY(!model.IndexOfKey("PI3").isValid());
    QCOMPARE(model.parent(model.IndexOfKey("PC3")), model.IndexOfKey("PC"));
    QCOMPARE(model.NodeAt(model.IndexOfKey("L3")),
             (NodeRef{.kind = NodeKind::kLmrChannel, .number = 3}));
    for (auto& group : data.Usable) group.Enable = false;
    QVERIFY(model.Rebuild());
    QCOMPARE(ChildKeys(model, "Program"), QStringList({"PW"}));
    QCOMPARE(ChildKeys(model, {}), QStringList({"General", "Program"}));
  }
};

QTEST_MAIN(TreeModelTest)
#include "tree_model_test.moc"
