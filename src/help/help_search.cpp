#include "help/help_search.h"

#include <QHelpSearchResult>
#include <QRegularExpression>
#include <QStringList>
#include <QVBoxLayout>

namespace orvane::help {
namespace {

// Marks have a meaning of their own to the search engine, and messages are full of them.
QStringList WordsOf(const QString& text) {
  static const QRegularExpression kNoWord(QStringLiteral("[^\\w]+"),
                                          QRegularExpression::UseUnicodePropertiesOption);
  return text.split(kNoWord, Qt::SkipEmptyParts);
}

}  // namespace

HelpSearch::HelpSearch(QHelpSearchEngine& engine, QWidget* parent)
    : QWidget(parent),
      engine_(engine),
      words_(new QLineEdit(this)),
      results_(new QListWidget(this)),
      outcome_(new QLabel(this)) {
  words_->setObjectName(QStringLiteral("txtHelpSearch"));
  words_->setAccessibleName(tr("Words to search for"));
  words_->setPlaceholderText(tr("Words to search for"));
  words_->setClearButtonEnabled(true);
  results_->setObjectName(QStringLiteral("lstHelpResults"));
  results_->setAccessibleName(tr("Pages found"));
  outcome_->setObjectName(QStringLiteral("lblHelpOutcome"));
  outcome_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->addWidget(words_);
  column->addWidget(outcome_);
  column->addWidget(results_, 1);

  connect(words_, &QLineEdit::returnPressed, this, &HelpSearch::Search);
  connect(results_, &QListWidget::itemActivated, this, &HelpSearch::Choose);
  connect(results_, &QListWidget::itemClicked, this, &HelpSearch::Choose);
  connect(&engine_, &QHelpSearchEngine::indexingFinished, this, [this] {
    indexed_ = true;
    Search();
  });
  connect(&engine_, &QHelpSearchEngine::searchingFinished, this, &HelpSearch::ShowResults);
  engine_.reindexDocumentation();
}

void HelpSearch::Begin() {
  words_->setFocus();
  words_->selectAll();
}

void HelpSearch::Search() {
  const QStringList words = WordsOf(words_->text());
  if (indexed_ && !words.isEmpty()) engine_.search(words.join(QLatin1Char(' ')));
}

void HelpSearch::ShowResults() {
  results_->clear();
  for (const QHelpSearchResult& result : engine_.searchResults(0, engine_.searchResultCount())) {
    auto* item = new QListWidgetItem(result.title(), results_);
    item->setData(Qt::UserRole, result.url());
  }
  outcome_->setText(results_->count() == 0 ? tr("No page holds all these words.")
                                           : tr("Pages found: %1").arg(results_->count()));
}

void HelpSearch::Choose(const QListWidgetItem* item) {
  emit PageChosen(item->data(Qt::UserRole).toUrl(), WordsOf(words_->text()).value(0));
}

}  // namespace orvane::help
