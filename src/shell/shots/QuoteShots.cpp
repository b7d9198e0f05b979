#include "accounts/budgets/YearlyBudgets.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Clients.h"
#include "diary/screens/dlgQuotePostponed.h"
#include "diary/screens/frmQuote.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QPushButton>
#include <QTabWidget>

/// The pictures of quotes and budgets.
namespace quillary::shell {

namespace {

void BookSomething(Business& business) {
  const auto period = accounts::InitializeBudgets(business);
  int at = 0;
  for (const Record account :
       business.RunSQL(Sql("SELECT GL_Account_ID FROM General_Ledger_Accounts"))) {
    business.Write(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) "
            "VALUES ({}, {}, {})",
            account[size_t{0}], business.Today(), 900 + 410 * at));
    business.Write(
        Sql("UPDATE Budgets SET Budget_Amount = {} WHERE GL_Account_ID = {} AND "
            "Budget_Period_ID = {}",
            6000 + 700 * at++, account[size_t{0}], period));
  }
}

}  // namespace

void Shots::Quotes() {
  MainMenuMDI* window = program_.MainMenu();
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = window->Tools();
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  const auto shown = [&] { return tabs->currentWidget()->findChild<Screen*>(); };
  const auto small = [&](const QString& name) {
    window->resize(853, 480);
    Save(window, name);
    window->resize(1280, 720);
  };
  const Id<Client> client(business
                              .FirstField(Sql("SELECT TOP 1 Client_ID FROM Clients WHERE Status = "
                                              "{} ORDER BY Client_ID",
                                              ClientStatus::QuoteOnly))
                              .ToLong());
  tools.navigator.Open(OpenCreateAQuote{client});
  shown()->findChild<Grid*>(QStringLiteral("fgExistingQuotes"))->SelectFirst();
  shown()->findChild<QPushButton*>(QStringLiteral("cmdLoadQuote"))->click();
  Save(window, QStringLiteral("frmCreateAQuote"));
  small(QStringLiteral("frmCreateAQuote-at-150-percent"));
  CloseScreen();
  const Value visit = business.FirstField(
      Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = {}", EntryStatus::QuoteOpen));
  if (const auto stored = diary::LoadQuoteVisit(business, Id<Entry>(visit.ToLong()))) {
    diary::frmQuote quote(business, tools, *stored);
    quote.show();
    Save(&quote, QStringLiteral("frmQuote"));
    quote.hide();
  }
  SaveDialog(
      [&] { diary::dlgQuotePostponed::GetDate(business.World().prompter, business.Today()); });
  BookSomething(business);
  tools.navigator.Open(OpenBudgets{});
  Save(window, QStringLiteral("frmBudgets"));
  small(QStringLiteral("frmBudgets-at-150-percent"));
  CloseScreen();
  tools.navigator.Open(OpenSetupBudgets{});
  Save(window, QStringLiteral("frmSetupBudgets"));
  CloseScreen();
}

}  // namespace quillary::shell
