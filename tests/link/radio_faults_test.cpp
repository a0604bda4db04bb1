#include "link/radio_faults.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace orvane::link {
namespace {

TEST(ParseFault, ReadsEveryKindOfPlace) {
  struct Case {
    std::string text;
    Fault fault;
  };
  const std::vector<Case> cases = {
      {"wrong-checksum@12", {FaultKind::kWrongChecksum, std::nullopt, 12, 0}},
      {"late-reply@3", {FaultKind::kLateReply, std::nullopt, 3, 15}},
      {"late-reply@read:2=0.5", {FaultKind::kLateReply, ExchangeKind::kRead, 2, 0.5}},
      {"busy@status", {FaultKind::kBusy, ExchangeKind::kStatus, 0, 0}},
      {"missing-echo@all", {FaultKind::kMissingEcho, std::nullopt, 0, 1}},
      {"unplug@write:20=7", {FaultKind::kUnplug, ExchangeKind::kWrite, 20, 7}},
      {"other-status@1=255", {FaultKind::kOtherStatus, std::nullopt, 1, 255}},
  };
  for (const Case& c : cases) {
    const ParsedFault parsed = ParseFault(c.text);
    ASSERT_TRUE(parsed.fault) << parsed.error;
    EXPECT_EQ(*parsed.fault, c.fault) << c.text;
  }
}

TEST(ParseFault, EveryNameIsReadAsItsOwnKind) {
  for (const FaultInfo& info : Faults()) {
    const ParsedFault parsed = ParseFault(std::string(info.name) + "@7");
    ASSERT_TRUE(parsed.fault) << parsed.error;
    EXPECT_EQ(parsed.fault->kind, info.kind);
    EXPECT_EQ(&InfoOf(info.kind), &info);
  }
}

TEST(ParseFault, RefusesWithASentence) {
  for (const char* const text :
       {"", "busy", "busy@", "busy@0", "busy@-1", "busy@1.5", "busy@99999999", "nonsense@1",
        "busy@status:0", "busy@status:", "busy@nothing:1", "busy@read", "busy@1=1",
        "late-reply@1=", "late-reply@1=-1", "late-reply@1=5000", "wrong-echo@1=1.5",
        "other-status@1=256", "wrong-echo@1=x"}) {
    const ParsedFault parsed = ParseFault(text);
    EXPECT_FALSE(parsed.fault) << text;
    EXPECT_NE(parsed.error.find(text), std::string::npos) << parsed.error;
  }
}

std::optional<Fault> AnyOf(const FaultPlan& plan, int number, ExchangeKind kind) {
  std::vector<FaultKind> all;
  for (const FaultInfo& info : Faults()) all.push_back(info.kind);
  return plan.Find({number, kind, number}, all);
}

TEST(ScatteredFaults, DependOnTheSeedAloneAndComeAsOftenAsAsked) {
  constexpr int kExchanges = 20000;
  FaultPlan plan, same, other;
  plan.Scatter(7, 3);
  same.Scatter(7, 3);
  other.Scatter(8, 3);
  int count = 0, differing = 0;
  std::set<FaultKind> kinds;
  for (int number = kExchanges; number >= 1; --number) {
    const std::optional<Fault> fault = AnyOf(plan, number, ExchangeKind::kStatus);
    EXPECT_EQ(fault, AnyOf(same, number, ExchangeKind::kStatus));
    if (fault != AnyOf(other, number, ExchangeKind::kStatus)) ++differing;
    if (!fault) continue;
    ++count;
    kinds.insert(fault->kind);
    EXPECT_TRUE(Affects(fault->kind, ExchangeKind::kStatus));
  }
  // Three in a hundred are drawn; the three of the fifteen kinds that only reads show are not.
  EXPECT_NEAR(count, kExchanges * 0.03 * 12 / 15, 60);
  EXPECT_EQ(kinds.size(), 12U);
  EXPECT_GT(differing, count);
}

TEST(ScatteredFaults, GiveWayToListedOnes) {
  FaultPlan plan({MakeFault(FaultKind::kBusy, 5)});
  plan.Scatter(1, 100);
  EXPECT_EQ(AnyOf(plan, 5, ExchangeKind::kStatus)->kind, FaultKind::kBusy);
}

}  // namespace
}  // namespace orvane::link
