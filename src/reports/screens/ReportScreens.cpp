#include "reports/screens/ReportScreens.h"

#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "reports/screens/CriteriaDialog.h"
#include "reports/screens/ReportRun.h"

namespace quillary::reports {

namespace {

/// Registers the requests of the reports over one business.
class Registration {
 public:
  Registration(Business& business, const ScreenTools& tools) : business_(business), tools_(tools) {}

  /// The request shows the report as it is.
  template <typename Request>
  void Shows(const char* report) const {
    tools_.navigator.Register<Request>([*this, report](const Request&) { Show(report, {}); });
  }
  /// The request asks by the form first.
  template <typename Request>
  void Asks(const char* report, CriteriaForm (*form)()) const {
    tools_.navigator.Register<Request>([*this, report, form](const Request&) {
      if (const auto criteria = Ask(form())) Show(report, *criteria);
    });
  }

  void Show(const char* report, const ReportCriteria& criteria) const {
    ShowReport(business_, tools_, report, criteria);
  }
  std::optional<ReportCriteria> Ask(const CriteriaForm& form) const {
    CriteriaDialog dialog(business_, tools_, form);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Criteria();
  }

  Business& business_;
  ScreenTools tools_;
};

// The reports whose dialogs other areas own.

void ShowClients(const Registration& reports, ClientReportCriteria::Which which,
                 ClientReportCriteria::Order order) {
  static const char* const kWhich[] = {"all", "regular", "casual", "quotes"};
  ReportCriteria criteria;
  criteria.option = QString::fromLatin1(kWhich[static_cast<size_t>(which)]);
  reports.Show(
      order == ClientReportCriteria::Order::Suburb ? "clients-by-suburb" : "clients-by-status",
      criteria);
}

void ShowInvoices(const Registration& reports, const InvoiceListCriteria& chosen) {
  static const char* const kSorts[] = {"name", "number", "date"};
  ReportCriteria criteria{.days = chosen.days};
  criteria.sort = QString::fromLatin1(kSorts[static_cast<size_t>(chosen.order)]);
  reports.Show("invoice-list", criteria);
}

void ShowForClients(const Registration& reports, const char* report, bool isSorted) {
  const auto chosen = reports.tools_.navigator.Open(PickDatesWithClients{});
  if (!chosen) return;
  ReportCriteria criteria{.days = chosen->days, .clients = chosen->clients};
  if (isSorted)
    criteria.sort = chosen->order == DatesWithClients::Order::Date ? QStringLiteral("date")
                                                                   : QStringLiteral("client");
  criteria.option = chosen->summaryOnly ? QStringLiteral("summary") : QStringLiteral("rows");
  reports.Show(report, criteria);
}

void RegisterClientReports(const Registration& reports) {
  Navigator& navigator = reports.tools_.navigator;
  navigator.Register<ReportOnClients>([reports](const ReportOnClients&) {
    if (const auto chosen = reports.tools_.navigator.Open(PickClientReport{}))
      ShowClients(reports, chosen->which, chosen->order);
  });
  navigator.Register<AskForDays>([reports](const AskForDays& request) -> std::optional<DateRange> {
    CriteriaForm form = DatesForm(request.title, "DaysOfRecords");
    form.accept = "&Go on";
    CriteriaDialog dialog(reports.business_, reports.tools_, form);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.Criteria().days;
  });
  navigator.Register<ReportOnQuotes>([reports](const ReportOnQuotes&) {
    ShowClients(reports, ClientReportCriteria::Which::PendingQuotes,
                ClientReportCriteria::Order::Status);
  });
  navigator.Register<ReportOnPaymentsReceived>(
      [reports](const ReportOnPaymentsReceived&) { ShowForClients(reports, "payments", true); });
  navigator.Register<ReportOnWorkDone>(
      [reports](const ReportOnWorkDone&) { ShowForClients(reports, "work-done", false); });
  navigator.Register<ReportOnInvoices>([reports](const ReportOnInvoices&) {
    if (const auto chosen = reports.tools_.navigator.Open(PickInvoiceList{}))
      ShowInvoices(reports, *chosen);
  });
  navigator.Register<ShowAccountOfClient>([reports](const ShowAccountOfClient& request) {
    if (request.client) {
      ReportCriteria criteria;
      criteria.record = request.client->Number();
      reports.Show("account-of-client", criteria);
    } else if (const auto criteria = reports.Ask(ClientForm())) {
      reports.Show("account-of-client", *criteria);
    }
  });
}

void RegisterBookReports(const Registration& reports) {
  Navigator& navigator = reports.tools_.navigator;
  navigator.Register<ReportOnProfitAndLoss>([reports](const ReportOnProfitAndLoss& request) {
    auto criteria = reports.Ask(DatesForm(QStringLiteral("Profit & Loss"), "Profit and loss"));
    if (!criteria) return;
    criteria->option = request.withGST ? QStringLiteral("with-tax") : QStringLiteral("without-tax");
    reports.Show("profit-loss", *criteria);
  });
  navigator.Register<ReportOnGST>([reports](const ReportOnGST&) {
    const QString title = reports.business_.values.taxName + QStringLiteral(" Report");
    if (const auto criteria = reports.Ask(DatesForm(title, "Tax"))) reports.Show("gst", *criteria);
  });
  navigator.Register<ReportOnPurchases>([reports](const ReportOnPurchases&) {
    auto criteria = reports.Ask(ExpensesForm());
    if (!criteria) return;
    const bool byAccount = criteria->sort == u"account";
    if (byAccount) criteria->sort.clear();
    reports.Show(byAccount ? "purchases-by-account" : "purchases", *criteria);
  });
  reports.Asks<ReportOnDebtors>("debtors-creditors", DebtorsForm);
  reports.Shows<ReportOnBadDebtors>("bad-debtors");
  reports.Shows<ReportOnAssets>("asset-register");
  reports.Shows<ReportOnUnpresentedCheques>("unpresented-cheques");
}

void RegisterJobReports(const Registration& reports) {
  Navigator& navigator = reports.tools_.navigator;
  reports.Asks<ReportOnJobs>("jobs",
                             [] { return DatesForm(QStringLiteral("Jobs list"), "Jobs list"); });
  reports.Asks<ReportOnConversionRate>("conversion-rate", [] {
    return DatesForm(QStringLiteral("Conversion rate"), "Conversion rate");
  });
  reports.Asks<ReportOnAccountantPack>("accountant-pack", [] {
    return DatesForm(QStringLiteral("Accountant's pack"), "Accountant's pack");
  });
  reports.Asks<ReportOnJobsSummary>("job-summary", DatesWithEmployeeForm);
  navigator.Register<ReportOnOverdueJobs>([reports](const ReportOnOverdueJobs&) {
    const QDate monthAgo = reports.business_.Today().addMonths(-1);
    const auto from =
        reports.tools_.navigator.Open(PickDate{QStringLiteral("From date"), monthAgo});
    if (from) reports.Show("overdue-jobs", {.days = DateRange::Of(*from)});
  });
  navigator.Register<PrintWorkSheet>([reports](const PrintWorkSheet& request) {
    ReportCriteria criteria{.days = request.days, .employee = request.employee};
    criteria.sort =
        request.bySuburbPosition ? QStringLiteral("suburb") : QStringLiteral("sequence");
    reports.Show("diary-sheet", criteria);
  });
  navigator.Register<PrintDailyTotals>([reports](const PrintDailyTotals& request) {
    reports.Show("diary-totals", {.days = request.days});
  });
  navigator.Register<PickDates>([reports](const PickDates& request) -> std::optional<DateRange> {
    const auto criteria = reports.Ask(DatesForm(request.title, ""));
    if (!criteria) return std::nullopt;
    return criteria->days;
  });
}

}  // namespace

void RegisterReportScreens(Business& business, const ScreenTools& tools) {
  const Registration reports(business, tools);
  RegisterClientReports(reports);
  RegisterBookReports(reports);
  RegisterJobReports(reports);
  const auto ofRecord = [reports](const char* report, qint64 record) {
    ReportCriteria criteria;
    criteria.record = record;
    reports.Show(report, criteria);
  };
  tools.navigator.Register<PrintQuote>([reports](const PrintQuote& request) {
    ReportCriteria criteria;
    criteria.record = request.quote.Number();
    criteria.option = QString::fromLatin1(request.pricesExcludeTax ? "without-tax" : "with-tax");
    reports.Show("quote", criteria);
  });
  tools.navigator.Register<ShowLedgerEntries>([reports](const ShowLedgerEntries& request) {
    ReportCriteria criteria;
    criteria.days = request.days;
    criteria.record = request.account.Number();
    reports.Show("ledger-entries", criteria);
  });
  tools.navigator.Register<PrintPayInSlip>([ofRecord](const PrintPayInSlip& request) {
    ofRecord("pay-in-slip", request.banking.Number());
  });
}

}  // namespace quillary::reports
