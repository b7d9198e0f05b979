#pragma once

#include <QComboBox>

#include <vector>

namespace quillary {

class MatchList;

/// A list that is picked from by typing: the entries of which some word begins with what was typed
/// show below the field, those that begin with it first, without regard to case and accents. The
/// first of them is the pick; when the entry itself begins so, its rest is proposed in the field.
/// Enter, Tab and a click take it, the arrow keys move on to another, Esc goes back to what stood
/// there. Without a match the text stays as typed and nothing is picked; nor is it when the text
/// was cut, deleted or pasted over.
class ComboSearch : public QComboBox {
  Q_OBJECT

 public:
  /// Beside the words of an entry, where several have the same: the data under this role.
  static constexpr int kBesideRole = Qt::UserRole + 1;

  explicit ComboSearch(QWidget* parent = nullptr);

  /// Picks the entry whose data equals the value; none when there is none.
  void SelectComboItem(const QVariant& value);
  /// Leaving the field under words that match nothing brings back the last pick: for a choice of
  /// what a list shows, where none picked would show an empty list.
  void GoBackWhenNothingMatches() { goesBack_ = true; }
  /// Takes what was typed for done, as leaving the field does.
  void Settle();

 signals:
  /// The user picked an entry, or left the field without a match (-1).
  void picked(int index);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// Looks for what was typed up to the cursor, with the text behind it.
  void Search(const QString& typed, const QString& tail);
  /// Picks the entry under the words as typed, proposing its rest where it begins with them.
  void Propose(int index, const QString& typed);
  std::vector<int> MatchesOf(const QString& typed);
  void ShowMatches(const std::vector<int>& matches, int chosen);
  bool MoveInMatches(int key);
  void TakeMatch(int index);
  /// The last typed letter goes, not the proposed rest.
  bool TakeBackspace();
  /// After an edit other than typing: a text that is not the entry's any more picks none.
  void TakeEdited(const QString& text);
  const QStringList& FoldedEntries();

  MatchList* matches_;
  QStringList folded_;  // the entries as they are compared; empty when they have changed
  bool goesBack_ = false;
  int settled_ = -1;
  int proposedFrom_ = -1;  // where the proposed rest begins; -1 without one
};

}  // namespace quillary
