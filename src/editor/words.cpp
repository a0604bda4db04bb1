#include "editor/words.h"

#include <algorithm>

namespace orvane::editor {

QStringList WordsOf(const QString& text) {
  return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool HasEachWord(const QString& columns, const QStringList& words) {
  return std::all_of(words.begin(), words.end(), [&columns](const QString& word) {
    return columns.contains(word, Qt::CaseInsensitive);
  });
}

}  // namespace orvane::editor
