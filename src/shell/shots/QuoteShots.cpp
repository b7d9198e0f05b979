#include "accounts/budgets/YearlyBudgets.h"
#include "accounts/screens/frmSortOut.h"
#include "accounts/yearend/SortOut.h"
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

/// Budgets near to what was booked, some above it and some below, and a year before.
void SetSomeBudgets(Business& business) {
  accounts::InitializeBudgets(business);
  const accounts::BudgetYear year = accounts::ListBudgetYears(business).front();
  business.Write(Sql("INSERT INTO Budget_Periods (Starting_Date, Ending_Date) VALUES ({}, {})",
                     year.days.from.addYears(-1), year.days.from.addDays(-1)));
  const accounts::BudgetYear before = accounts::ListBudgetYears(business).back();
  const DateRange sofar{year.days.from, business.Today()};
  int at = 0;
  for (const accounts::BudgetLine& line : accounts::LoadBudgets(business, year, sofar)) {
    const double dollars = line.actual.ToDouble() * 3 * (0.7 + 0.12 * (at++ % 5)) + 600;
    const Money amount = Money::FromWhole(100 * qRound(dollars / 100));
    accounts::SetBudget(business, before, line.account, amount);
    accounts::SetBudget(business, year, line.account, amount);
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
  SetSomeBudgets(business);
  tools.navigator.Open(OpenBudgets{});
  Save(window, QStringLiteral("frmBudgets"));
  small(QStringLiteral("frmBudgets-at-150-percent"));
  CloseScreen();
  tools.navigator.Open(OpenSetupBudgets{});
  Save(window, QStringLiteral("frmSetupBudgets"));
  small(QStringLiteral("frmSetupBudgets-at-150-percent"));
  CloseScreen();
  business.Write(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (1, 0)"));
  business.Write(Sql("INSERT INTO Purchases (Amount) VALUES (0)"));
  business.Write(Sql("UPDATE Diary SET Total_Price = 1 WHERE Diary_ID < 20"));
  auto* steps = new accounts::frmSortOut(business, tools);
  tools.host.ShowScreen(steps);
  steps->Begin(accounts::CountWhatToSortOut(business));
  steps->ShowStep(9);
  Save(window, QStringLiteral("frmSortOut-at-work"));
  accounts::SortOutRecords(business);
  steps->Reload();
  Save(window, QStringLiteral("frmSortOut"));
  small(QStringLiteral("frmSortOut-at-150-percent"));
  CloseScreen();
}

}  // namespace quillary::shell
