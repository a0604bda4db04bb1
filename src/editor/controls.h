#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QObject>
#include <QRadioButton>
#include <QString>
#include <QStringList>

#include "editor/field_box.h"
#include "editor/page.h"

/// Small parts that the pages share.
namespace orvane::editor {

inline constexpr const char* kToggleHint = "[Space]:An effective and invalid change.";
inline constexpr const char* kListHint = "[Up]/[Down]:Change of a Selection item.";
inline constexpr const char* kOptionHint = "[Up]/[Down]/[Left]/[Right]:Change of a Selection item.";

/// A drop-down list that the wheel changes only while it has the focus, so that scrolling a page
/// never changes the data.
class PickBox : public QComboBox {
  Q_OBJECT

 public:
  explicit PickBox(QWidget* parent = nullptr);

  /// Shows an item that stands for the data; -1 shows none. Picked is not emitted.
  void ShowItem(int index);

 signals:
  /// The choice changed otherwise than by ShowItem, whether by mouse, key or an assistive
  /// technology, or the item on show was chosen again before any other.
  void Picked(int index);

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool picked_ = false;  ///< the item on show was picked, so that its handler has run
};

/// One of several buttons that exclude each other. Up and Left choose the one before, Down and
/// Right the one behind, however they are laid out.
class OptionButton : public QRadioButton {
  Q_OBJECT

 public:
  using QRadioButton::QRadioButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// A frame whose lines and title can be greyed while controls in it stay enabled.
class GreyableFrame : public QGroupBox {
  Q_OBJECT

 public:
  using QGroupBox::QGroupBox;
  void SetGrey(bool grey);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool grey_ = false;
};

/// Makes the controls of a page. A caption may carry "&"; the accessible name is the caption
/// without it.
class ControlMaker : public QObject {
  Q_OBJECT

 public:
  ControlMaker(QWidget& page, PageHost& host) : QObject(&page), page_(page), host_(host) {}

  QCheckBox* Check(const QString& name, const QString& caption, int help_context = 0);
  PickBox* List(const QString& name, const QString& caption, const QStringList& items,
                int help_context = 0);
  /// A caption beside a control; its access key leads there.
  QLabel* Caption(const QString& caption, QWidget* buddy);

  /// Name, hint and help context of a control made elsewhere. The hint is written into the status
  /// bar whenever the control gets the focus; that of a locked field is empty.
  void Adopt(QWidget& control, const QString& name, const QString& caption, const char* hint,
             int help_context = 0);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& page_;
  PageHost& host_;
};

/// Object name of a member of an array of controls.
[[nodiscard]] QString MemberName(const char* array, int index);
void SetHelpContext(QWidget& control, int number);
/// Width of so many digits, with the frame of a text field around them.
void SetDigits(QLineEdit& box, int digits);

}  // namespace orvane::editor
