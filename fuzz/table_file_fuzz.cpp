#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/table_file.h"
#include "hostile_world.h"
#include "patched_image.h"

/// Any bytes are refused, with reasons, or change the data set by its rules; what they made of it
/// is exported and comes back equal.
namespace orvane::fuzz {
namespace {

using Plan = files::ImportPlan;
using Verdict = Plan::Verdict;

const core::RadioData& Used(std::size_t model) {
  static const auto made = [] {
    auto all = std::make_unique<std::array<core::RadioData, kModels>>();
    for (std::size_t m = 0; m < kModels; ++m) (*all)[m] = MakeStart(m, Start::kUsed);
    return all;
  }();
  return (*made)[model];
}

/// With the headings of the table in front, most inputs get to the cells.
std::string BehindHeadings(std::string_view input, const core::RadioData& data, std::uint8_t table,
                           files::TableSeparator separator) {
  const std::string whole = files::TableText(data, table, separator);
  return whole.substr(0, whole.find('\n') + 1) + std::string(input);
}

void CheckPlan(const Plan& plan) {
  const bool nothing = plan.lines.empty() && plan.changes.empty() && plan.elsewhere.empty();
  Require(plan.unreadable.empty() || nothing);
  for (const Plan::Line& line : plan.lines) {
    Require(line.verdict != Verdict::kSame || (line.cells.empty() && line.refusal.empty()));
    Require(line.verdict == Verdict::kSame || !line.cells.empty() || !line.refusal.empty());
    for (const Plan::Cell& cell : line.cells) {
      Require((line.verdict == Verdict::kRefused) == !cell.refusal.empty());
    }
  }
}

void Check(const std::string& text, std::uint8_t table, const core::RadioData& data) {
  static_cast<void>(files::TablesFor(text, core::ProfileOf(data)));
  const Plan plan = files::PlanImport(text, table, data, kToday);
  CheckPlan(plan);
  if (plan.changes.empty()) return;
  const auto result = std::make_unique<core::RadioData>(data);
  core::Apply(*result, plan.changes);
  const Plan again = files::PlanImport(text, table, *result, kToday);
  Require(plan.Count(Verdict::kRefused) > 0 || again.changes.empty());
  const Plan back = files::PlanImport(files::TableText(*result, table), table, *result, kToday);
  Require(back.Count(Verdict::kSame) == core::Catalogue()[table].count);
}

}  // namespace
}  // namespace orvane::fuzz

/// The first byte picks the model and whether the rest is a whole text or stands behind the
/// headings, parted by which separator; the second byte picks the table.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace orvane;
  if (size < 2) return 0;
  const fuzz::Choice choice({bytes, size});
  const core::RadioData& data = fuzz::Used(choice.model);
  const std::vector<std::uint8_t> tables = files::TextTables(core::ProfileOf(data));
  const std::uint8_t table = tables[bytes[1] % tables.size()];
  const std::string_view input(reinterpret_cast<const char*>(bytes + 2), size - 2);
  constexpr std::size_t kSeparators = 3;
  const std::size_t part = choice.rest % (kSeparators + 1);
  const std::string text =
      part == kSeparators
          ? std::string(input)
          : fuzz::BehindHeadings(input, data, table, static_cast<files::TableSeparator>(part));
  fuzz::Check(text, table, data);
  return 0;
}
