#pragma once

#include "base/Value.h"
#include "kit/Roles.h"

#include <QString>

#include <type_traits>
#include <vector>

/// How a screen declares its table: one line a column, plain values for the cells.
namespace quillary {

enum class ColumnKind {
  Text,
  StrongText,  // what a row is known by
  Number,
  Money,     // currency form, right-aligned
  Date,      // "2 Nov 2026"
  Tick,      // yes or no as a box
  Mark,      // a box that is ticked while the row is marked; holds no value
  Chip,      // a status: its word on the row's hue; edited from choices when there are some
  Choice,    // one of a list: shows the word of the stored key
  Bar,       // a share, 1 being the whole: a bar with its percentage
  HiddenId,  // never shown; the first one is the key that tells rows apart
};

struct GridColumn {
  QString title;
  ColumnKind kind = ColumnKind::Text;
  int width = 120;
  bool editable = false;
};

/// One entry of the list that a Chip or Choice column is edited from.
struct GridChoice {
  Value key;
  QString word;
};

/// What a cell holds; `words` are shown instead of the value when they are given.
struct GridCell {
  template <typename T>
  requires(!std::is_same_v<std::remove_cvref_t<T>, GridCell>) GridCell(T&& from)
      : value(std::forward<T>(from)) {}  // NOLINT: cells are meant to convert
  GridCell(const Value& from, const QString& shown);

  Value value;
  QString words;
};

struct GridRow {
  std::vector<GridCell> cells;
  Hue hue = Hue::None;
  QString note = {};  // shown when the pointer rests on the row
};

/// A cell as the user reads it.
QString ShownText(const GridColumn& column, const GridCell& cell,
                  const std::vector<GridChoice>& choices);

}  // namespace quillary
