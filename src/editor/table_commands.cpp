#include "editor/table_commands.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/app_settings.h"
#include "core/message_facts.h"
#include "core/product.h"
#include "core/text.h"
#include "editor/save_as.h"
#include "editor/table_dialogs.h"

namespace orvane::editor {
namespace {

constexpr const char* kExportFilter = "CSV tables(*.csv)|*.csv|All files(*.*)|*.*";
constexpr const char* kImportFilter =
    "Tables(*.csv *.tsv *.txt)|*.csv *.tsv *.txt|All files(*.*)|*.*";

// Whether two nodes show fields of one table.
bool ShareTable(const NodeRef& a, const NodeRef& b) {
  const std::optional<document::ChannelPlace> first = PlaceOfNode(a);
  const std::optional<document::ChannelPlace> second = PlaceOfNode(b);
  if (!first || !second) return a.kind == b.kind;
  return first->IsMarine() == second->IsMarine() &&
         (!first->IsMarine() || first->kind == second->kind);
}

// A node with a table of channels stands for its first channel.
NodeRef WithChannel(NodeRef node) {
  if (node.kind == NodeKind::kMarineGroup) node.kind = NodeKind::kMarineChannel;
  if (node.kind == NodeKind::kLmrRoot) return {.kind = NodeKind::kLmrChannel, .number = 1};
  if (node.kind == NodeKind::kExpRoot) return {.kind = NodeKind::kExpChannel, .number = 1};
  return node;
}

}  // namespace

std::uint8_t TableCommands::ShownTable() const {
  const core::RadioData& data = services_.document.Data();
  const NodeRef shown = WithChannel(host_.ShownNode());
  const std::vector<std::uint8_t> tables = files::TextTables(core::ProfileOf(data));
  const auto is_shown = [&](std::uint8_t table) {
    const std::optional<NodeRef> node = NodeOfField(data, {.table = table});
    return node && ShareTable(*node, shown);
  };
  const auto is_marine = [](std::uint8_t table) {
    return core::Catalogue()[table].kind == core::TableKind::kMarine;
  };
  const auto found = std::find_if(tables.begin(), tables.end(), is_shown);
  return found != tables.end() ? *found : *std::find_if(tables.begin(), tables.end(), is_marine);
}

std::uint8_t TableCommands::TableFor(const std::string& bytes) const {
  const std::vector<std::uint8_t> fitting =
      files::TablesFor(bytes, core::ProfileOf(services_.document.Data()));
  const std::uint8_t shown = ShownTable();
  const bool fits = std::find(fitting.begin(), fitting.end(), shown) != fitting.end();
  return fits || fitting.empty() ? shown : fitting.front();
}

void TableCommands::ExportTable() {
  if (!host_.CheckPage()) return;
  ExportTableDialog dialog(services_, ShownTable(), &host_.Widget());
  if (dialog.exec() != QDialog::Accepted) return;
  core::AppSettings(services_.settings).SetTableSeparator(static_cast<int>(dialog.Separator()));
  SaveAs(services_, kExportFilter, [&](const std::string& /*path*/) {
    return files::TableText(services_.document.Data(), dialog.Table(), dialog.Separator());
  });
}

void TableCommands::ImportTable() {
  if (!host_.CheckPage()) return;
  const std::string path =
      services_.dialogs.AskOpen({.filter = kImportFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return;
  core::FileBytes file = services_.files.ReadFile(path);
  if (file.error) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kFileRead, core::kProgramTitle,
                                             core::FileFacts(path, *file.error)));
    return;
  }
  const std::uint8_t table = TableFor(file.bytes);
  ImportTableDialog dialog(services_, path, std::move(file.bytes), table, &host_.Widget());
  if (!dialog.Plan().unreadable.empty()) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kTableUnreadable, core::kProgramTitle,
                                             {{"reason", dialog.Plan().unreadable}}));
    return;
  }
  if (dialog.exec() != QDialog::Accepted) return;
  const files::ImportPlan& plan = dialog.Plan();
  services_.document.Edit("Import " + std::string(core::Catalogue()[dialog.Table()].label) +
                              " from " + core::WithoutFolder(path),
                          [&](core::RadioData& data) { core::Apply(data, plan.changes); });
}

}  // namespace orvane::editor
