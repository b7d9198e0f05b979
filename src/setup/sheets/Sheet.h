#pragma once

#include "base/Id.h"
#include "base/Refusal.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A table of the business that is typed into like a spreadsheet, cell by cell or a pasted block at
/// a time.
namespace quillary::setup {

struct SheetColumn {
  const char* column;  // as rules name it
  const char* title;
  int width;            // on screen
  QStringList choices;  // that the cell is picked from; none where it is typed
};

struct SheetRow {
  qint64 key;
  QStringList cells;
};

/// A cell, or a row, that was not taken.
struct SheetTrouble {
  int row;         // of the block, from 0
  QString column;  // its title; empty for the row as a whole
  QString message;
};

struct SheetOutcome {
  int added = 0;
  int changed = 0;
  std::vector<SheetTrouble> troubles;
  std::optional<qint64> lastKey;  // of the row written last

  /// "Added 2 clients, changed 1."; what was not taken follows line by line.
  QString InWords(const QString& one, const QString& many) const;
};

/// The cells of a block, each row for the key beside it; a row beyond them is a new one.
struct SheetBlock {
  std::vector<qint64> keys;
  int firstColumn = 0;
  std::vector<QStringList> rows;

  std::optional<qint64> KeyOf(size_t row) const {
    return row < keys.size() ? std::optional(keys[row]) : std::nullopt;
  }
};

}  // namespace quillary::setup
