#pragma once

#include <QDebug>
#include <QTest>

namespace orvane::testing {

/// Names the row of a table that a test had reached when it failed.
class Row {
 public:
  template <class... Parts>
  explicit Row(const Parts&... parts) {
    (QDebug(&text_).noquote() << ... << parts);
  }
  ~Row() {
    if (QTest::currentTestFailed()) qWarning().noquote() << "at:" << text_;
  }
  Row(const Row&) = delete;
  Row& operator=(const Row&) = delete;

 private:
  QString text_;
};

}  // namespace orvane::testing
