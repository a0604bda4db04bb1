#pragma once

#include <QObject>
#include <QPointer>
#include <QVBoxLayout>

#include "document/document.h"
#include "editor/command_host.h"
#include "editor/find_box.h"
#include "editor/follower.h"
#include "editor/menus.h"
#include "editor/nav_tree.h"
#include "editor/navigator.h"
#include "editor/page_area.h"

namespace orvane::editor {

/// Find, Find Next and Find Previous: brings the box over the tree up when it is first asked for,
/// goes to what it finds, and back to where the user was. Looking changes nothing in the data.
class Finder : public QObject {
  Q_OBJECT

 public:
  /// Everything outlives this object, which must go before the window's children do.
  struct Place {
    QVBoxLayout& column;  ///< the tree's; the box goes to its top
    CommandHost& host;
    Follower& follower;
    Navigator& navigator;
    NavTree& tree;
    PageArea& area;
    const Menus& menus;
  };
  Finder(document::Document& document, const Place& place);

 private:
  FindBox& Box();
  void Open();
  /// The next hit, or with -1 the one before. Without one, the box says so.
  void GoOn(int step);
  void GoToCurrent(bool by_enter);
  /// False: the page on show holds what must not be left, and has said so.
  bool Visit(const document::Hit& hit);
  void NoteFocus(QWidget* old, QWidget* now);
  void Return();
  void Close();

  document::Document& document_;
  const Place place_;
  FindBox* box_ = nullptr;
  // Where the user was before the box got the focus.
  QString key_before_;
  QPointer<QWidget> focus_before_;
};

}  // namespace orvane::editor
