#pragma once

#include <QString>
#include <QWidget>
#include <string>

#include "core/field_ref.h"
#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"
#include "document/document.h"
#include "editor/node.h"

namespace orvane::editor {

/// What a page asks of the window it stands in.
class PageHost {
 public:
  virtual ~PageHost() = default;
  /// The user set a field. What the edit does becomes a step of the history; the page shows it
  /// itself.
  virtual void Edit(core::FieldRef at, const document::Document::Body& edit,
                    document::Document::Manner manner) = 0;
  /// The user set several fields at once, which is one step of that name.
  virtual void EditMany(const std::string& name, const document::Document::Body& edit) = 0;
  /// The user set something, whether or not anything differs now, or began an input that is taken
  /// over later: sets the data-changed flag.
  virtual void DataChanged() = 0;
  /// A channel group was switched on or off: nodes come and go.
  virtual void RebuildTree() = 0;
  /// Channels were enabled or disabled: the "[Enable]" marks follow, nodes stay.
  virtual void RefreshMarks() = 0;
  /// First panel of the status bar.
  virtual void ShowHint(const QString& hint) = 0;
  /// Second panel of the status bar: why something the user asked for did not happen. It stays
  /// until the next hint.
  virtual void ShowNotice(const QString& notice) = 0;
  /// Selects a node as if the user had clicked it.
  virtual void SelectNode(const QString& key) = 0;
};

/// What every page works on.
struct PageServices {
  const core::RadioData& data;
  core::RunState& state;
  core::Prompts& prompts;
  core::Clock& clock;
  PageHost& host;
};

/// One page of the page area. It holds no state of its own: it is filled from the data whenever
/// its node is shown or the data changed underneath it, and each change is an edit of the document.
/// Filling never changes the data or its flags.
class Page : public QWidget {
 public:
  explicit Page(PageServices services, QWidget* parent = nullptr)
      : QWidget(parent), services_(services) {}

  /// Rebuilds pick lists and visibility after the model changed.
  virtual void ModelChanged() {}
  virtual void Fill(const NodeRef& node) = 0;
  /// Page check: false keeps the user on the page; the message has been shown.
  [[nodiscard]] virtual bool Check() { return true; }
  /// Takes over what is still being typed, before the page is filled again. False when that is not
  /// valid; the message has been shown.
  [[nodiscard]] virtual bool TakePending() { return true; }
  /// The control that shows the field while this node is on show, null when none does.
  [[nodiscard]] virtual QWidget* ControlOf(core::FieldRef /*at*/) const { return nullptr; }

 protected:
  [[nodiscard]] const core::RadioData& Data() const { return services_.data; }
  [[nodiscard]] core::RunState& State() const { return services_.state; }
  [[nodiscard]] PageHost& Host() const { return services_.host; }
  [[nodiscard]] const PageServices& Services() const { return services_; }

  using Manner = document::Document::Manner;
  /// The user set the field, by one of the rules of document/edits.
  void Edit(core::FieldRef at, const document::Document::Body& edit) const {
    services_.host.Edit(at, edit, Manner::kChoice);
    services_.host.DataChanged();
  }
  /// The user set the field, which nothing else follows. The value has the type that Get returns.
  void Store(core::FieldRef at, const core::Value& value, Manner manner = Manner::kChoice) const {
    services_.host.Edit(
        at, [&](core::RadioData& radio) { core::Set(radio, at, value); }, manner);
    services_.host.DataChanged();
  }
  void StoreTyped(core::FieldRef at, const core::Value& value) const {
    Store(at, value, Manner::kTyping);
  }

 private:
  PageServices services_;
};

/// Dynamic property that carries a control's help context number; 0 or absent means none.
inline constexpr const char* kHelpContextProperty = "helpContext";

}  // namespace orvane::editor
