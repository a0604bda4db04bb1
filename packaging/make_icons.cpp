#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <iostream>

// make_icons DRAWING.svg SIZE ICON.png ...: draws icons, each of a drawing, in pixels a side.
int main(int argc, char** argv) {
  constexpr int kWordsOfIcon = 3;
  for (int word = 1; word + kWordsOfIcon <= argc; word += kWordsOfIcon) {
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[word]));
    const int size = QString::fromLocal8Bit(argv[word + 1]).toInt();
    QImage icon(size, size, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    if (drawing.isValid() && !icon.isNull()) {
      QPainter painter(&icon);
      drawing.render(&painter);
    }
    if (!drawing.isValid() || !icon.save(QString::fromLocal8Bit(argv[word + 2]))) {
      std::cerr << "make_icons: cannot draw " << argv[word] << " as " << argv[word + 2]
                << std::endl;
      return 1;
    }
  }
  return 0;
}
