#pragma once

#include <QString>
#include <QStringList>

/// Filters of lists: words, each of which some column must hold, in whichever letter case.
namespace orvane::editor {

[[nodiscard]] QStringList WordsOf(const QString& text);
/// columns: their texts, one after the other.
[[nodiscard]] bool HasEachWord(const QString& columns, const QStringList& words);

}  // namespace orvane::editor
