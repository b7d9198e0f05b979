#pragma once

#include "base/ports/requests/Clients.h"
#include "clients/screens/ClientScreens.h"
#include "gui/GuiTest.h"
#include "kit/DateField.h"
#include "kit/Grid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>

namespace quillary {

/// A business of one active client who pays for itself (1), an address that is billed (2), its site
/// (3) and a prospect (4); two services, two employees and a holiday.
class ClientFixture : public BusinessTest {
 protected:
  void SetUp() override {
    TestApplication();
    BusinessTest::SetUp();
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Casey')"));
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Robin')"));
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Lawn mowing', 'LM')"));
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Hedge trimming', 'HT')"));
    AddClient("Active", "Abbott, Anna", 1);
    AddClient("Billing address", "Strata Pty", 2);
    AddClient("Active", "Brown, Bill", 2);
    AddClient("Quote only", "Chen, Cara", 4);
    Run(
        Sql("UPDATE Clients SET Street_Number = '18', Street = 'High St', Suburb = 'KEW', "
            "Post_Code = '3101', Phone_1 = '0412 555 018' WHERE Client_ID = 1"));
    Run(
        Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) "
            "VALUES ('03/11', 2026, 0, 'Cup day')"));
    LoadHolidaysIntoArray(business());
    business().values.daysToAdvanceSchedule = 30;
    clients::RegisterClientScreens(business(), {navigator, host, runner});
  }

  void AddClient(const char* status, const char* name, int billedTo) {
    Build().Add<Client>({{"Status", status},
                         {"Display_Name", name},
                         {"First_Name", name},
                         {"Billing_Client_ID", billedTo},
                         {"Is_Billed_To", ++clients_ == billedTo},
                         {"Statement_Type", "With Job"}});
  }
  void AddJob(int client, const char* status, QDate day, double price) {
    Build().Add<Entry>({{"Client_ID", client},
                        {"Employee_ID", 1},
                        {"Status", status},
                        {"Schedule_Date", day},
                        {"Description", "LM"},
                        {"Total_Price", price},
                        {"Total_GST", 0}});
  }
  Value Stored(const char* column, qint64 clientId) {
    return business()
        .RunSQL(QStringLiteral("SELECT %1 FROM Clients WHERE Client_ID = %2")
                    .arg(QString(column))
                    .arg(clientId))
        .Field(size_t{0});
  }

  Screen* OpenOf(qint64 clientId) {
    host.shown.reset();
    navigator.Open(OpenClient{Id<Client>(clientId)});
    return host.shown.get();
  }
  Screen* OpenNew() {
    navigator.Open(quillary::AddClient{});
    return host.shown.get();
  }
  static QLineEdit* Line(const QWidget* in, const char* name) { return Find<QLineEdit>(in, name); }
  static void Type(QWidget* field, const QString& words) {
    field->setFocus();
    QTest::keyClicks(field, words);
  }
  /// Picks an entry as a user does, so that what follows from a choice follows.
  static void Pick(QComboBox* combo, const QString& words) {
    combo->setCurrentIndex(combo->findText(words));
    emit combo->activated(combo->currentIndex());
  }
  static void ShowPage(const QWidget* screen, const QString& title) {
    auto* pages = Find<QTabWidget>(screen, "pages");
    for (int at = 0; at < pages->count(); ++at)
      if (pages->tabText(at).startsWith(title)) {
        QTest::mouseClick(pages->tabBar(), Qt::LeftButton, {},
                          pages->tabBar()->tabRect(at).center());
        EXPECT_EQ(pages->currentIndex(), at) << title.toStdString();
        return;
      }
    ADD_FAILURE() << "no page " << title.toStdString();
  }
  static int RowCount(const Grid* grid) { return grid->model()->rowCount(); }
  static QString Cell(const Grid* grid, int row, int column) {
    return grid->model()->index(row, column).data().toString();
  }
  QString Told() { return outside.prompter.TakeTold().join(u'|'); }
  static QString FocusOf(const QWidget* window) {
    return window->window()->focusWidget() ? window->window()->focusWidget()->objectName()
                                           : QString();
  }
  /// What the user does in the dialog that the next command opens.
  static void InDialog(const std::function<void(QDialog*)>& act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(dialog);
      if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
  }

  Navigator navigator;
  SingleHost host;
  CommandRunner runner{outside.errors, outside.busy};

 private:
  int clients_ = 0;
};

}  // namespace quillary
