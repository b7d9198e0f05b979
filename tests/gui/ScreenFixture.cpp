#include "gui/ScreenFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace quillary {

void ScreenFixture::SetUp() {
  TestApplication();
  BusinessTest::SetUp();
  business().values.gstPercentage = 0.1F;
  business().values.defaultEmployee = Id<Employee>(1);
  for (const char* name : {"Casey", "Robin"})
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ({})", name));
  for (const char* name : {"Abbott", "Brown"})
    Run(
        Sql("INSERT INTO Clients (Status, Display_Name, Suburb, Is_Billed_To) "
            "VALUES ('Active', {}, 'KEW', True)",
            name));
  Run(Sql("UPDATE Clients SET Billing_Client_ID = Client_ID"));
  Run(Sql("DELETE FROM Services"));
  Run(
      Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Garden income', 'Revenue')"));
  const qint64 account = Number(Sql("SELECT MAX(GL_Account_ID) FROM General_Ledger_Accounts"));
  for (const char* service : {"Hedging", "Mowing"})
    Run(
        Sql("INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID) "
            "VALUES ({}, {}, {})",
            service, QString(service).left(2).toUpper(), account));
  lists::RegisterListScreens(business(), {navigator, host, runner});
  diary::RegisterDiaryScreens(business(), {navigator, host, runner});
}

QString ScreenFixture::Told() {
  return outside.prompter.TakeTold().join(u'|');
}

QString ScreenFixture::RowText(const Grid* grid, int row) {
  QStringList words;
  for (int column = 0; column < grid->model()->columnCount(); ++column)
    if (!grid->isColumnHidden(column)) words += grid->model()->index(row, column).data().toString();
  return words.join(u'|');
}

QPoint ScreenFixture::Middle(const Grid* grid, int row, int column) {
  return grid->visualRect(grid->model()->index(row, column)).center();
}

void ScreenFixture::TypeInto(Grid* grid, int row, int column, const QString& typed) {
  grid->setCurrentIndex(grid->model()->index(row, column));
  QTest::keyClick(grid, Qt::Key_F2);
  auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  if (!editor) throw std::runtime_error("the cell cannot be edited");
  editor->selectAll();
  QTest::keyClicks(editor, typed);
  const QPointer<QLineEdit> open(editor);
  QTest::keyClick(editor, Qt::Key_Return);
  // The delegate commits later, and the screen loads after that.
  EXPECT_TRUE(QTest::qWaitFor([&] { return !open || !open->isVisible(); }));
  QTest::qWait(10);
}

void ScreenFixture::Meanwhile(const std::function<void(Dialog&)>& use) {
  QTimer::singleShot(0, qApp, [use] {
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (!dialog) {
      ADD_FAILURE() << "no dialog has opened";
      return;
    }
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    try {
      use(*dialog);
    } catch (const std::exception& failure) {
      ADD_FAILURE() << failure.what();
    }
    if (dialog->isVisible()) dialog->done(QDialog::Rejected);
  });
}

void TypeChoice(const QObject* in, const char* combo, const QString& letters) {
  EnterField(Find<QComboBox>(in, combo));
  TypeKeys(letters);
  PressKey(Qt::Key_Tab);
}

void TypeOver(const QObject* in, const char* field, const QString& typed) {
  auto* line = Find<QLineEdit>(in, field);
  line->setFocus();
  line->selectAll();
  QTest::keyClicks(line, typed);
  QTest::keyClick(line, Qt::Key_Tab);
}

}  // namespace quillary
