#include "billing/screens/dlgFromDate.h"
#include "billing/screens/dlgInvoiceList.h"
#include "billing/screens/dlgInvoiceOptions.h"
#include "billing/screens/dlgMonthlyInvoices_Reminder.h"
#include "billing/screens/frmInvoice.h"
#include "billing/screens/frmInvoiceNotesSelection.h"
#include "billing/screens/frmListOfJobs.h"
#include "billing/screens/frmTermOfTrade.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QTabWidget>

/// The pictures of the invoices.
namespace quillary::shell {

void Shots::Invoices() {
  MainMenuMDI* window = program_.MainMenu();
  window->Tools().navigator.Open(OpenInvoicesList{});
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  QWidget* list = tabs->currentWidget();
  Save(window, QStringLiteral("frmInvoicesList-empty"));
  auto* month = list->findChild<QComboBox*>(QStringLiteral("cboMonth"));
  month->setCurrentIndex(month->currentIndex() - 1);
  emit month->activated(month->currentIndex());
  list->findChild<QPushButton*>(QStringLiteral("cmdList"))->click();
  list->findChild<QCheckBox*>(QStringLiteral("chkTickUntickAll"))->click();
  Save(window, QStringLiteral("frmInvoicesList"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmInvoicesList-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  InvoiceDialogs();
}

void Shots::InvoiceDialogs() {
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = program_.MainMenu()->Tools();
  const auto first = [&](const Sql& statement) { return business.FirstField(statement).ToLong(); };
  const auto shoot = [this](QDialog& dialog, const char* name = nullptr) {
    dialog.show();
    if (auto* grid = dialog.findChild<Grid*>()) grid->SelectFirst();
    Save(&dialog, name ? QString(name) : dialog.objectName());
    dialog.hide();
  };
  const Id<Invoice> invoice(
      first(Sql("SELECT TOP 1 Invoice_ID FROM Diary WHERE Invoice_ID IS NOT NULL "
                "GROUP BY Invoice_ID ORDER BY Count(*) DESC, Invoice_ID")));
  billing::frmInvoice monthly(business, tools, *billing::LoadInvoiceDetails(business, invoice));
  shoot(monthly);
  monthly.resize(853, 424);
  shoot(monthly, "frmInvoice-at-150-percent");
  const Id<Entry> job(
      first(Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = {} "
                "AND Total_Price > 0 ORDER BY Diary_ID DESC",
                EntryStatus::JobDone)));
  billing::frmInvoice ofJob(business, tools, billing::NewInvoice(business, std::nullopt, job));
  shoot(ofJob, "frmInvoice-of-a-job");
  billing::frmInvoice blank(business, tools,
                            billing::NewInvoice(business, std::nullopt, std::nullopt));
  shoot(blank, "frmInvoice-new");
  const Id<Client> payer = billing::LoadInvoiceDetails(business, invoice)->clientId.value();
  billing::frmListOfJobs jobs(business, tools, invoice, payer);
  // Of last month, of which some are billed.
  auto* monthOfJobs = jobs.findChild<QComboBox*>(QStringLiteral("cboMonth"));
  monthOfJobs->setCurrentIndex(monthOfJobs->currentIndex() - 1);
  emit monthOfJobs->activated(monthOfJobs->currentIndex());
  jobs.findChild<QPushButton*>(QStringLiteral("cmdList"))->click();
  shoot(jobs);
  business.RunSQL(
      Sql("UPDATE Invoices SET Invoice_Notes = 'Thank you for your business.' "
          "WHERE Invoice_ID = {}",
          invoice));
  billing::frmInvoiceNotesSelection notes(business, tools);
  shoot(notes);
  billing::dlgInvoiceOptions options(
      business, tools, {.payer = payer, .entry = job, .days = DateRange::Of(business.Today())});
  shoot(options);
  billing::dlgInvoiceList criteria(business, tools);
  shoot(criteria);
  billing::dlgFromDate date(business, QStringLiteral("Generation date"), business.Today());
  shoot(date);
  billing::dlgMonthlyInvoices_Reminder reminder(business, tools);
  shoot(reminder);
  billing::frmTermOfTrade terms(business, tools);
  shoot(terms);
}

}  // namespace quillary::shell
