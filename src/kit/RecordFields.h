#pragma once

#include "base/Money.h"
#include "kit/GridColumns.h"

#include <QHash>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QVBoxLayout;
class QWidget;

namespace quillary {

enum class FieldKind {
  Text,
  Digits,
  DayAndMonth,
  Money,
  Tick,
  Choice,  // one of a list
  Words,   // anything, typed or taken from a list
};

/// One field of a record, beside its list. Picking a row fills it from the row's cell.
struct RecordField {
  const char* name = "";   // of the control
  const char* field = "";  // of the form, as rules refuse it
  QString label;           // with its mnemonic
  FieldKind kind = FieldKind::Text;
  int column = -1;                            // of the list
  int width = 0;                              // of the stored column, in letters; 0 sets no limit
  std::function<void(QComboBox*)> fill = {};  // the entries of a list
  bool beside = false;                        // in the line of the field before it
  const char* labelName = "";                 // where others look for the label
};

/// The fields of a record by the names of their controls.
class RecordFields {
 public:
  /// Makes the controls, each under its label.
  void Build(const std::vector<RecordField>& fields, QVBoxLayout* into);

  QString Text(const char* name) const;
  bool IsTicked(const char* name) const;
  Money Amount(const char* name) const;
  template <NumberedRow Row>
  std::optional<Id<Row>> Choice(const char* name) const {
    return IdFrom<Row>(ChosenKey(name));
  }

  void Enable(const char* name, bool on) const;
  /// Shows a record, or nothing at all.
  void Show(const GridRow* row) const;
  QList<QWidget*> Controls() const;

 private:
  std::optional<qint64> ChosenKey(const char* name) const;
  template <typename Control>
  Control* Find(const char* name) const;

  std::vector<RecordField> fields_;
  QHash<QString, QWidget*> controls_;
};

}  // namespace quillary
