#include "link/doctor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "image/image_check.h"
#include "image/sample_radio.h"
#include "link/port_check.h"
#include "link/replug.h"
#include "link/transfer_session.h"
#include "support/scripted_devices.h"
#include "support/scripted_port.h"
#include "support/simulated_bench.h"

namespace orvane::link {
namespace {

constexpr std::int16_t kModel = 5;

Observations CannotOpen(const char* device, int number) {
  return {.device = device,
          .open_failure = number,
          .reason = "Words of the system",
          .takers = {{"ModemManager", 612}, {"brltty", 613}}};
}

// The other causes are tested at a real device.
TEST(Doctor, OpeningThatFailsIsToldByItsNumberAndByWhatRuns) {
  Observations alone = CannotOpen("/dev/my port", EBUSY);
  alone.takers.clear();
  Observations no_file = alone;
  no_file.device = "COM3";
  const struct {
    Observations seen;
    const char* told;
    const char* command = "";
  } cases[] = {
      {CannotOpen("COM3", ENXIO), "brltty (process 613) runs", "sudo apt remove brltty"},
      {CannotOpen("/dev/ttyS0", EBUSY), "most likely by ModemManager (process 612), which",
       "sudo systemctl stop ModemManager"},
      {CannotOpen("/dev/ttyS0", EIO), "cannot be opened: Words of the system"},
      {alone, "Another program", "sudo fuser -v '/dev/my port'"},
      {no_file, "Another program"},
  };
  for (const auto& expected : cases) {
    const Diagnosis found = Diagnose(expected.seen, nullptr);
    SCOPED_TRACE(expected.told);
    EXPECT_NE(found.text.find(expected.told), std::string::npos) << found.text;
    EXPECT_EQ(found.command, expected.command);
  }
}

TEST(Doctor, EveryVerdictIsToldApartAndHasARemedyOfOneSentence) {
  std::set<std::string_view> names;
  std::set<std::string_view> texts;
  for (const VerdictRow& row : VerdictRows()) {
    SCOPED_TRACE(row.name);
    EXPECT_TRUE(names.insert(row.name).second && texts.insert(row.text).second);
    const std::string remedy = core::GeneralText(row.remedy);
    EXPECT_EQ(remedy.find(". "), std::string::npos);
    EXPECT_TRUE(remedy.ends_with('.'));
  }
}

/// A radio of some model at a port, and what a check of it says.
struct CheckBench : testing::SimulatedBench {
  explicit CheckBench(std::int16_t model, std::vector<const char*> fault_texts = {})
      : SimulatedBench(MemoryOf(model), 9600) {
    FaultPlan plan;
    for (const char* text : fault_texts) plan.Add(*ParseFault(text).fault);
    radio.SetFaults(plan);
  }
  static std::vector<std::uint8_t> MemoryOf(std::int16_t model) {
    const core::RadioData sample = image::MakeSampleRadio(model, testing::kAfterCutOver);
    return RadioMemory(core::ProfileOf(model), sample.Image.Used());
  }
  Diagnosis Run(const core::ModelProfile* wanted) {
    const std::vector<std::uint8_t> before(radio.Memory().begin(), radio.Memory().end());
    Diagnosis found = check.Run(port, "/dev/radio", wanted);
    EXPECT_TRUE(std::equal(before.begin(), before.end(), radio.Memory().begin()));
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(Asked(ExchangeKind::kWrite), 0);
    return found;
  }
  [[nodiscard]] std::ptrdiff_t Asked(ExchangeKind kind) const {
    return std::count_if(asked.begin(), asked.end(),
                         [=](const Exchange& exchange) { return exchange.kind == kind; });
  }

  testing::RecordingLog log;
  PortCheck check{{clock, pump, log, nullptr}};
};

TEST(PortCheck, TellsWhatTheLineAndTheRadioDo) {
  const struct {
    std::vector<const char*> faults;
    Verdict verdict;
    const char* told;
    double longest = 5;  // seconds
  } cases[] = {
      {{"missing-echo@all", "missing-reply@all"}, Verdict::kNothingBack, "nothing comes back", 4},
      {{"wrong-echo@all"}, Verdict::kOtherDevice, "not what was sent"},
      {{"missing-reply@all"}, Verdict::kNoRadio, "no radio answers"},
      {{"refusal@mode"}, Verdict::kNotReady, "The radio refused to enter clone mode."},
      {{"missing-reply@sync"}, Verdict::kNotReady, "not answer the commands of clone", 30},
      {{"busy@status"}, Verdict::kNotReady, "The radio is busy with something else."},
      {{"garbled-reply@read:1"}, Verdict::kNotReady, "cannot be asked for its model"},
      {{"unplug@read:1"}, Verdict::kBrokeOff, "broke off"},
      {{"missing-echo@3", "missing-reply@3"}, Verdict::kBrokeOff, "broke off", 4},
      {{"missing-echo@status", "missing-reply@status"}, Verdict::kBrokeOff, "broke off", 30},
      {{"missing-reply@cancel"}, Verdict::kReady, "a KT740 answers", 13},
      {{"wrong-echo@1"}, Verdict::kReady, "a KT740 answers"},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.faults.front());
    CheckBench bench(kModel, expected.faults);
    const double began = bench.clock.now;
    const Diagnosis found = bench.Run(&core::ProfileOf(kModel));
    EXPECT_EQ(RowOf(found.verdict).name, RowOf(expected.verdict).name);
    EXPECT_NE(found.text.find(expected.told), std::string::npos) << found.text;
    EXPECT_LT(bench.clock.now - began, expected.longest);
  }
}

TEST(PortCheck, NamesTheModelWhateverTheProgramIsSetTo) {
  for (const core::ModelProfile& theirs : core::ModelProfiles()) {
    for (const core::ModelProfile& ours : core::ModelProfiles()) {
      SCOPED_TRACE(std::string(theirs.model) + " at " + std::string(ours.model));
      CheckBench bench(theirs.model_type);
      const Diagnosis found = bench.Run(&ours);
      const bool same = theirs.code == ours.code;
      EXPECT_EQ(found.verdict, same ? Verdict::kReady : Verdict::kOtherModel);
      const std::string named = std::string(theirs.model) + (same ? " answers" : " (code ");
      EXPECT_NE(found.text.find(named), std::string::npos) << found.text;
    }
    EXPECT_EQ(CheckBench(theirs.model_type).Run(nullptr).verdict, Verdict::kReady);
  }
}

TEST(PortCheck, ARadioThatIsNoneOfTheModelsIsNamedByItsCode) {
  const core::ModelProfile& ours = core::ProfileOf(kModel);
  CheckBench product(kModel);
  product.radio.Memory()[static_cast<std::size_t>(image::kProductOffset)] = 7;
  const Diagnosis other = product.Run(&ours);
  EXPECT_EQ(other.verdict, Verdict::kOtherProduct);
  EXPECT_NE(other.text.find("product byte is 7, not 2"), std::string::npos) << other.text;

  for (const core::ModelProfile* like : {&ours, &core::ProfileOf(1)}) {
    SCOPED_TRACE(like->image_size);
    CheckBench unknown(like->model_type);
    for (const int code : {0, image::kModelCodeOffset, like->image_size - 2}) {
      const auto at = static_cast<std::size_t>(code);
      unknown.radio.Memory()[at] = 3;
      unknown.radio.Memory()[at + 1] = 8;
    }
    const Diagnosis found = unknown.Run(&ours);
    EXPECT_EQ(RowOf(found.verdict).name, RowOf(Verdict::kUnknownModel).name);
    EXPECT_NE(found.text.find("code 776"), std::string::npos) << found.text;
  }

  CheckBench damaged(kModel);
  damaged.radio.Memory().back() ^= 1;
  EXPECT_EQ(damaged.Run(&ours).verdict, Verdict::kUnknownModel);
}

TEST(PortCheck, ATransferCanFollow) {
  CheckBench bench(kModel);
  EXPECT_EQ(bench.Run(&core::ProfileOf(kModel)).verdict, Verdict::kReady);
  EXPECT_EQ(bench.Asked(ExchangeKind::kCancel), 1) << "the radio is told that this is all";
  core::RadioData data = image::MakeSampleRadio(kModel, testing::kAfterCutOver);
  core::RunState state;
  testing::RecordingView view;
  testing::ScriptedPrompts prompts;
  TransferSession session(data, state, {bench.port, bench.clock, bench.pump, bench.log, view},
                          prompts);
  EXPECT_EQ(session.Run(SessionKind::kRead).ending, Ending::kDone);
}

TEST(PortCheck, CancelEndsItAtTheNextWait) {
  for (const int wait : {1, 5, 20}) {
    SCOPED_TRACE(wait);
    CheckBench bench(kModel, {"missing-reply@read:1"});
    bench.pump.on_wait = [&, usual = bench.pump.on_wait](double deadline) {
      if (bench.pump.waits != wait) return usual(deadline);
      bench.check.Cancel();
      return std::optional(bench.clock.now);
    };
    const double began = bench.clock.now;
    EXPECT_EQ(bench.Run(nullptr).verdict, Verdict::kCancelled);
    EXPECT_LT(bench.clock.now - began, 3);
  }
}

TEST(PortCheck, APortThatAnotherProgramHasIsNotTouched) {
  CheckBench bench(kModel);
  testing::ScriptedDevices facts;
  facts.holders = {{"minicom", 12}};
  PortCheck check({bench.clock, bench.pump, bench.log, &facts});
  EXPECT_EQ(check.Run(bench.port, "/dev/radio", nullptr).verdict, Verdict::kBusy);
  EXPECT_TRUE(bench.asked.empty());
}

PortEntry Port(int number, const char* device) {
  return {.port_number = static_cast<std::int16_t>(number),
          .found = true,
          .description = {},
          .device = device};
}

TEST(Replug, FindsThePortThatGoesAndComesBack) {
  using Ports = std::vector<PortEntry>;
  using Stage = Replug::Stage;
  const PortEntry built_in = Port(1, "S0");
  const PortEntry cable = Port(2, "USB0");
  const PortEntry other = Port(3, "USB1");
  const struct {
    const char* name;
    Ports first;
    std::vector<Ports> looks;
    Stage stage;
    int number;  ///< found, or how many came
  } cases[] = {
      {"unplugged and back",
       {built_in, cable},
       {{built_in}, {built_in}, {built_in, cable}, {built_in, cable}},
       Stage::kFound,
       2},
      {"seen by one look only",
       {built_in, cable},
       {{built_in}, {built_in, cable}},
       Stage::kUnplug,
       0},
      {"not back yet", {built_in, cable}, {{built_in}, {built_in}, {built_in}}, Stage::kPlugIn, 0},
      {"back as another device",
       {built_in, cable},
       {{built_in}, {built_in}, {built_in, Port(4, "USB5")}, {built_in, Port(4, "USB5")}},
       Stage::kFound,
       4},
      {"another takes its number meanwhile",
       {built_in, cable, other},
       {{built_in, Port(2, "USB1")},
        {built_in, Port(2, "USB1")},
        {built_in, cable, other},
        {built_in, cable, other}},
       Stage::kFound,
       2},
      {"plugged in for the first time",
       {built_in},
       {{built_in}, {built_in, cable}, {built_in, cable}},
       Stage::kFound,
       2},
      {"a hub with two",
       {built_in, cable, other},
       {{built_in, other},
        {built_in, other},
        {built_in},
        {built_in},
        {built_in, other},
        {built_in, cable, other},
        {built_in, cable, other}},
       Stage::kSeveral,
       2},
      {"nothing happens",
       {built_in, cable},
       {{built_in, cable}, {built_in, cable}},
       Stage::kUnplug,
       0},
  };
  for (const auto& expected : cases) {
    SCOPED_TRACE(expected.name);
    Replug replug(expected.first);
    for (const Ports& ports : expected.looks) replug.Look(ports);
    EXPECT_EQ(replug.Where(), expected.stage);
    const std::size_t came = expected.number == 0 ? 0 : expected.stage == Stage::kFound ? 1 : 2;
    ASSERT_EQ(replug.Came().size(), came);
    if (expected.stage == Stage::kFound) {
      EXPECT_EQ(replug.Came()[0].port_number, expected.number);
    }
  }
}

}  // namespace
}  // namespace orvane::link
