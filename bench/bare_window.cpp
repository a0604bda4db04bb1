// What a window costs before it does anything: the yardstick for the start of the program.

#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTreeView>

namespace {

constexpr QSize kSize(607, 480);  // as the program's first window
constexpr int kRoots = 6;
constexpr int kChildren = 139;  // 840 nodes in all

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  QStandardItemModel model;
  for (int root = 0; root < kRoots; ++root) {
    auto* item = new QStandardItem(QStringLiteral("Group %1").arg(root));
    for (int child = 0; child < kChildren; ++child) {
      item->appendRow(new QStandardItem(QStringLiteral("CH%1").arg(child)));
    }
    model.appendRow(item);
  }
  auto* tree = new QTreeView(&window);
  tree->setModel(&model);
  window.setCentralWidget(tree);
  window.resize(kSize);
  window.show();
  return QApplication::exec();
}
