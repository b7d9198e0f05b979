#include "kit/ComboSearch.h"

#include "base/Text.h"
#include "kit/Keys.h"
#include "kit/MatchList.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace quillary {

namespace {

/// How well an entry matches: better is less; nothing when it does not.
std::optional<int> RankOf(const QString& entry, const QString& typed, const QStringList& words) {
  if (entry.startsWith(typed)) return 0;
  if (BeginsAWord(entry, typed)) return 1;
  const bool all = words.size() > 1 && std::ranges::all_of(words, [&](const QString& word) {
                     return BeginsAWord(entry, word);
                   });
  return all ? std::optional(2) : std::nullopt;
}

}  // namespace

ComboSearch::ComboSearch(QWidget* parent) : QComboBox(parent), matches_(new MatchList(this)) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  SelectAllText(lineEdit());
  connect(this, &QComboBox::activated, this, [this](int index) {
    settled_ = index;
    emit picked(index);
  });
  connect(lineEdit(), &QLineEdit::textEdited, this, &ComboSearch::TakeEdited);
  connect(lineEdit(), &QLineEdit::editingFinished, this, &ComboSearch::Settle);
  connect(matches_, &MatchList::chosenByClick, this, &ComboSearch::TakeMatch);
  for (const auto& changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
    connect(model(), changed, this, [this] { folded_.clear(); });
  connect(model(), &QAbstractItemModel::modelReset, this, [this] { folded_.clear(); });
  connect(model(), &QAbstractItemModel::dataChanged, this, [this] { folded_.clear(); });
}

void ComboSearch::SelectComboItem(const QVariant& value) {
  setCurrentIndex(value.isNull() ? -1 : findData(value));
  settled_ = currentIndex();
}

const QStringList& ComboSearch::FoldedEntries() {
  if (folded_.size() != count()) {
    folded_.clear();
    for (int at = 0; at < count(); ++at) folded_ += FoldedForSearch(itemText(at));
  }
  return folded_;
}

void ComboSearch::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool command = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (!command && MoveInMatches(key)) return;
  if (matches_->isVisible() && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
    // The first Enter takes the entry; what Enter does on this form is for the second.
    Settle();
    return;
  }
  if (matches_->isVisible() && key == Qt::Key_Escape) {
    matches_->hide();
    setCurrentIndex(settled_);
    if (settled_ < 0) clearEditText();
    lineEdit()->selectAll();
    return;
  }
  if (command || event->text().isEmpty() || !event->text().at(0).isPrint()) {
    if (!command && key == Qt::Key_Backspace && TakeBackspace()) return;
    QComboBox::keyPressEvent(event);
    return;
  }
  const QLineEdit* line = lineEdit();
  const bool selected = line->hasSelectedText();
  const int start = selected ? line->selectionStart() : line->cursorPosition();
  const QString tail = line->text().mid(selected ? line->selectionEnd() : start);
  Search(line->text().left(start) + event->text(), tail);
}

bool ComboSearch::TakeBackspace() {
  const QLineEdit* line = lineEdit();
  const bool selected = line->hasSelectedText();
  const int start = selected ? line->selectionStart() : line->cursorPosition();
  const QString tail = line->text().mid(selected ? line->selectionEnd() : start);
  // What the user selected himself it takes as everywhere.
  const bool proposed = !selected || (start == proposedFrom_ && tail.isEmpty());
  if (start == 0 || !proposed) return false;
  Search(line->text().left(start - 1), tail);
  return true;
}

std::vector<int> ComboSearch::MatchesOf(const QString& typed) {
  const QString folded = FoldedForSearch(typed);
  const QStringList words = folded.split(u' ', Qt::SkipEmptyParts);
  std::vector<std::pair<int, int>> ranked;
  const QStringList& entries = FoldedEntries();
  for (int at = 0; at < entries.size(); ++at)
    if (const auto rank = RankOf(entries[at], folded, words)) ranked.emplace_back(*rank, at);
  std::ranges::stable_sort(ranked, {}, &std::pair<int, int>::first);
  std::vector<int> matches;
  for (const auto& [rank, at] : ranked) matches.push_back(at);
  return matches;
}

void ComboSearch::Search(const QString& typed, const QString& tail) {
  const QString text = typed + tail;
  if (!tail.isEmpty()) {
    // A rest is proposed only to what ends with the cursor; in the middle it would overwrite
    // letters.
    const int same = text.isEmpty() ? -1 : findText(text, Qt::MatchFixedString);
    Propose(same, text);
    lineEdit()->setCursorPosition(static_cast<int>(typed.size()));
    proposedFrom_ = -1;
    matches_->hide();
    return;
  }
  const std::vector<int> matches =
      typed.trimmed().isEmpty() ? std::vector<int>() : MatchesOf(typed);
  Propose(matches.empty() ? -1 : matches.front(), typed);
  ShowMatches(matches, matches.empty() ? -1 : matches.front());
}

void ComboSearch::Propose(int index, const QString& typed) {
  const int cursor = static_cast<int>(typed.size());
  const bool begins = index >= 0 && itemText(index).startsWith(typed, Qt::CaseInsensitive);
  proposedFrom_ = -1;
  setCurrentIndex(index);
  lineEdit()->setText(begins ? itemText(index) : typed);
  lineEdit()->setCursorPosition(cursor);
  const int whole = static_cast<int>(lineEdit()->text().size());
  if (!begins || whole <= cursor) return;
  lineEdit()->setSelection(whole, cursor - whole);
  proposedFrom_ = cursor;
}

void ComboSearch::ShowMatches(const std::vector<int>& matches, int chosen) {
  std::vector<MatchList::Match> rows;
  QHash<QString, int> namesakes;
  for (const int at : matches) ++namesakes[itemText(at)];
  for (const int at : matches) {
    const QString beside = itemData(at, kBesideRole).toString();
    const bool alone = namesakes[itemText(at)] < 2 || beside.isEmpty();
    rows.push_back({at, alone ? itemText(at) : itemText(at) + QStringLiteral("  ·  ") + beside});
  }
  matches_->ShowBelow(rows, chosen);
}

bool ComboSearch::MoveInMatches(int key) {
  int by = 0;
  if (key == Qt::Key_Down) by = 1;
  if (key == Qt::Key_Up) by = -1;
  if (key == Qt::Key_PageDown) by = 8;
  if (key == Qt::Key_PageUp) by = -8;
  if (by == 0 || count() == 0) return false;
  if (matches_->isVisible()) {
    const int index = matches_->Move(by);
    setCurrentIndex(index);
    lineEdit()->selectAll();
    return true;
  }
  std::vector<int> all(static_cast<size_t>(count()));
  for (int at = 0; at < count(); ++at) all[static_cast<size_t>(at)] = at;
  ShowMatches(all, qMax(0, currentIndex()));
  setCurrentIndex(matches_->Chosen());
  lineEdit()->selectAll();
  return true;
}

void ComboSearch::TakeMatch(int index) {
  setCurrentIndex(index);
  Settle();
}

void ComboSearch::TakeEdited(const QString& text) {
  matches_->hide();
  if (currentIndex() < 0 || text == itemText(currentIndex())) return;
  const int cursor = lineEdit()->cursorPosition();
  setCurrentIndex(-1);  // empties the line
  lineEdit()->setText(text);
  lineEdit()->setCursorPosition(cursor);
}

void ComboSearch::Settle() {
  matches_->hide();
  // Typed whole, perhaps in other letters, it is the entry as well. What matches none stays typed.
  int index = currentIndex();
  if (index < 0) index = findText(lineEdit()->text(), Qt::MatchFixedString);
  if (index < 0 && goesBack_) index = settled_;
  if (index >= 0) {
    setCurrentIndex(index);
    if (lineEdit()->text() != itemText(index)) lineEdit()->setText(itemText(index));
  }
  if (index == settled_) return;
  settled_ = index;
  emit picked(settled_);
}

void ComboSearch::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason) Settle();
}

void ComboSearch::hideEvent(QHideEvent* event) {
  matches_->hide();
  QComboBox::hideEvent(event);
}

void ComboSearch::wheelEvent(QWheelEvent* event) {
  event->ignore();  // the page scrolls; a value is never changed in passing
}

}  // namespace quillary
