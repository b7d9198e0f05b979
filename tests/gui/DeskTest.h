#pragma once

#include "base/ports/requests/Clients.h"
#include "gui/GuiTest.h"
#include "kit/Grid.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include <functional>

namespace quillary {

/// Works at the real main window on the invented business, by keys and clicks. One client screen is
/// open at a time: `client`.
class DeskTest : public ProgramTest {
 protected:
  void SetUp() override;

  template <typename Control>
  Control* On(const char* name) {
    return Find<Control>(client, name);
  }
  static void Key(int key);
  static void Keys(const QString& words);
  /// What stands in a field is selected as it is entered, and so typed over.
  void TypeInto(const char* field, const QString& words);
  void Pick(const char* combo, const QString& words);
  void ShowPage(const QString& title);
  /// What the user does in the dialog that opens next; it is closed in the end.
  static void Then(const char* dialog, const std::function<void(QDialog&)>& use);

  /// Enters Zelda Zimmer of Correa Ct, who is billed with each job, and stores her.
  void NewClientByKeyboard();
  qint64 Number() { return On<QLineEdit>("txtClientID")->text().toLongLong(); }
  Recordset Run(const Sql& statement) { return program->OpenBusiness().RunSQL(statement); }
  qint64 CountJobs(const char* status);

  Screen* client = nullptr;
};

}  // namespace quillary
