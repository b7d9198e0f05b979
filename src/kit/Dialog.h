#pragma once

#include "base/ports/Prompter.h"
#include "kit/Form.h"

#include <QDialog>

class QBoxLayout;
class QPushButton;

namespace quillary {

/// A screen that stands over the others until the user has finished with it: its fields, and below
/// them one row of commands. Esc and the frame's own close button give up; when a field was changed
/// the user is asked about it first, once.
///
///   class frmVisit : public Dialog { ... };
///   frmVisit::frmVisit(Business& business)
///       : Dialog("frmVisit", tr("Visit"), business.World().prompter) {
///     ...                                        // make the controls
///     SetContent(FieldColumns());
///     AddActions({cmdDelete, cmdClose, cmdSave}); // each goes where its kind belongs
///     state_.WatchFieldsOf(this);
///     connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
///   }
///   ...
///   if (frmVisit(business).exec() == QDialog::Accepted) ...
class Dialog : public QDialog {
  Q_OBJECT

 public:
  /// It stands over the window in which the user works, unless given another.
  Dialog(const char* name, const QString& title, Prompter& prompter, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  /// Opens as large as its fields ask for and the display allows.
  void setVisible(bool visible) override;
  /// Closes without saving, unless the user would rather not lose a change.
  void reject() override;

 protected:
  /// The fields. They scroll where the display is too small for them.
  void SetContent(QLayout* content);
  /// The size to open with, where the fields alone would ask for less.
  void SetRoom(const QSize& room) { room_ = room; }
  /// Adds to the row of commands: destructive ones apart at the left, the main one, which Enter
  /// presses, at the right.
  void AddActions(const QList<QPushButton*>& actions);
  /// Accepted() of a form: tells what was refused and puts the focus there; true when nothing was.
  bool IsAccepted(const std::optional<Refusal>& refusal);
  /// Whether there is something to lose.
  virtual bool IsDataChanged() const { return state_.IsDataChanged(); }
  /// Asks when there is something to lose; false when the user would rather stay.
  bool MayLeave();
  /// Closes with the given result and asks nothing.
  void Close(DialogCode result);

  FormState state_;

 private:
  Prompter& prompter_;
  QWidget* content_ = nullptr;
  QBoxLayout* column_;
  QBoxLayout* apart_;
  QBoxLayout* actions_;
  QSize room_;
};

}  // namespace quillary
