#pragma once

#include <QString>
#include <QWidget>

#include "core/radio_data.h"
#include "core/services.h"
#include "editor/node.h"

namespace orvane::editor {

/// What a page asks of the window it stands in.
class PageHost {
 public:
  virtual ~PageHost() = default;
  /// The user changed the data: sets the data-changed flag.
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
  core::RadioData& data;
  core::Prompts& prompts;
  core::Clock& clock;
  PageHost& host;
};

/// One page of the page area. It holds no state of its own: it is filled from the data whenever
/// its node is shown, and each change goes straight into the data. Filling never changes the data
/// or its flags.
class Page : public QWidget {
 public:
  explicit Page(PageServices services, QWidget* parent = nullptr)
      : QWidget(parent), services_(services) {}

  /// Rebuilds pick lists and visibility after the model changed.
  virtual void ModelChanged() {}
  virtual void Fill(const NodeRef& node) = 0;
  /// Page check: false keeps the user on the page; the message has been shown.
  [[nodiscard]] virtual bool Check() { return true; }

 protected:
  [[nodiscard]] core::RadioData& Data() const { return services_.data; }
  [[nodiscard]] PageHost& Host() const { return services_.host; }
  [[nodiscard]] const PageServices& Services() const { return services_; }

 private:
  PageServices services_;
};

/// Dynamic property that carries a control's help context number; 0 or absent means none.
inline constexpr const char* kHelpContextProperty = "helpContext";

}  // namespace orvane::editor
