#pragma once

#include "base/Refusal.h"
#include "base/ports/Prompter.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <optional>

class QWidget;

namespace quillary {

/// Knows the fields of a form and whether the user has changed any of them. A field is a text box
/// (those of money and dates too), a combo, a check box, a radio button or a box of plain text. A
/// change that the user takes back is none.
///
///   FormState state_;                       // a member of the screen
///   state_.Watch({txtName, cmbService});    // or state_.WatchFieldsOf(this)
///   LoadClient();
///   state_.ClearDataChanged();              // what stands there now is what is stored
///   ...
///   if (state_.IsDataChanged()) ...
class FormState : public QObject {
  Q_OBJECT

 public:
  explicit FormState(QObject* parent = nullptr) : QObject(parent) {}

  void Watch(const QList<QWidget*>& fields);
  /// Watches every field that stands below `form` by now, except search boxes and what belongs to
  /// a table.
  void WatchFieldsOf(const QWidget* form);

  bool IsDataChanged() const { return changed_; }
  /// Whether the user has changed this one.
  bool IsChanged(const QWidget* field) const;
  /// Takes what the fields hold now for what is stored.
  void ClearDataChanged();
  /// The same for one field, which the program has filled anew.
  void TakeAsStored(const QWidget* field);

 signals:
  /// Some field differs from what is stored, or none does any more.
  void changed(bool isChanged);

 private:
  void Check();

  QList<QWidget*> fields_;
  QStringList stored_;
  bool changed_ = false;
};

/// Empties every text box and every editable combo below `form`; the rest stays as it is.
void ClearControls(QWidget* form);

/// Tells which field of a form a control is for. Rules refuse fields by that name, since they know
/// no controls.
///
///   cmbEmployee = ForField("employee", Named(new ComboSearch, "cmbEmployee"));
template <typename Control>
Control* ForField(const char* field, Control* control) {
  control->setProperty("formField", QLatin1StringView(field).toString());
  return control;
}
/// Puts the focus on the control for that field, bringing it into view on its tab, and selects
/// what it holds. False when there is none.
bool FocusField(QWidget* form, const QString& field);

/// Tells the user what was refused and puts the focus where it has to be mended; true when nothing
/// was refused.
///
///   if (!Accepted(prompter, this, SaveJob(business, job))) return;
bool Accepted(Prompter& prompter, QWidget* form, const std::optional<Refusal>& refusal);

/// Holds a field to the width of its column, so that no typed text is lost to a refused statement.
/// `field` is a text box, an editable combo or a box of plain text; a width of 0 sets no limit.
///
///   LimitTo(txtDivisionName, 50);
void LimitTo(QWidget* field, int width);

}  // namespace quillary
