#pragma once

#include <QListView>

#include <vector>

class QStandardItemModel;

namespace quillary {

/// The entries that match what is being typed, below the field. It never takes the focus: the field
/// hands it the keys that are meant for it.
class MatchList : public QListView {
  Q_OBJECT

 public:
  explicit MatchList(QWidget* field);

  struct Match {
    int index;
    QString words;
  };
  void ShowBelow(const std::vector<Match>& matches, int chosen);
  /// Moves the choice by rows; stays within the list. The index of the entry now chosen.
  int Move(int by);
  /// The entry chosen; -1 in an empty list.
  int Chosen() const;

 signals:
  void chosenByClick(int index);

 private:
  QWidget* field_;
  QStandardItemModel* rows_;
};

}  // namespace quillary
