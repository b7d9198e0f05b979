#include "reports/screens/ReportRun.h"

#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "diary/Jobs.h"
#include "diary/OpenEntry.h"
#include "documents/screens/ReportPlacing.h"
#include "documents/screens/frmReportViewer.h"
#include "kit/DateField.h"
#include "kit/Layouts.h"
#include "kit/PeriodField.h"
#include "reports/ReportForms.h"

#include <QComboBox>

#include <stdexcept>

namespace quillary::reports {

namespace {

using Viewer = documents::frmReportViewer;

bool HasRange(Asks asks) {
  return asks == Asks::Days || asks == Asks::DaysAndClients || asks == Asks::DaysAndEmployee;
}

void Show(Business& business, const ScreenTools& tools, const char* name,
          const ReportCriteria& criteria, Viewer::Comes comes) {
  const ReportKind* kind = FindReportKind(QString::fromLatin1(name));
  if (kind == nullptr) throw std::logic_error(std::string("There is no report named ") + name);
  try {
    documents::OpenLiveReport(business, tools,
                              std::make_unique<ReportRun>(business, tools, *kind, criteria), comes);
  } catch (const std::invalid_argument& refused) {
    business.World().prompter.Tell(Tone::Exclamation, QString::fromUtf8(refused.what()));
  }
}

void OpenEntryOfRow(Business& business, const Navigator& navigator, Id<Entry> entry) {
  if (const auto job = diary::LoadJob(business, entry))
    diary::OpenEntry(navigator, job->storedStatus, entry);
}

/// Opens the screen of the request, where this build has one.
template <typename Request>
void OpenIfThere(const Navigator& navigator, const Request& request) {
  if (navigator.CanOpen<Request>()) navigator.Open(request);
}

}  // namespace

ReportRun::ReportRun(Business& business, const ScreenTools& tools, const ReportKind& kind,
                     const ReportCriteria& criteria)
    : business_(business), tools_(tools), kind_(kind), criteria_(criteria) {}

documents::ReportDocument ReportRun::Make() {
  growing_.reset();
  data_ = BeginReport(business_, kind_, criteria_);
  const ReportTarget target{.places = documents::PlacesOfReports(),
                            .file = FileNameOf(kind_, data_)};
  if (data_.rest) {
    constexpr int kUnnoticed = 60;  // milliseconds, in which most businesses have it whole
    growing_ = std::make_unique<GrowingReport>(business_, target, data_);
    growing_->Grow(kUnnoticed);
    return growing_->Document();
  }
  LaidReport laid = LayOutReport(business_, target, data_);
  links_ = std::move(laid.links);
  return std::move(laid.document);
}

documents::ReportDocument ReportRun::Grow(int milliseconds) {
  growing_->Grow(milliseconds);
  return growing_->Document();
}

QComboBox* ReportRun::MakeChoice(const char* name, const QString& heardAs,
                                 const std::vector<ReportChoice>& choices, QString& chosen) {
  auto* combo = Named(new QComboBox, name, heardAs);
  for (const ReportChoice& choice : choices)
    combo->addItem(QString::fromLatin1(choice.words), QString::fromLatin1(choice.name));
  combo->setCurrentIndex(std::max(0, combo->findData(chosen)));
  connect(combo, &QComboBox::activated, this, [this, combo, &chosen] {
    chosen = combo->currentData().toString();
    emit changed();
  });
  return combo;
}

QWidget* ReportRun::MakeBar() {
  const bool hasRange = HasRange(kind_.asks);
  if (!hasRange && kind_.asks != Asks::FromDay && kind_.sorts.empty() && kind_.options.empty())
    return nullptr;
  auto* bar = Named(new QWidget, "reportBar");
  auto* line = new QHBoxLayout(bar);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(8);
  if (hasRange) {
    auto* days = new PeriodField(business_, {.from = "dtReportFrom", .to = "dtReportTo"});
    days->SetDays(criteria_.days);
    connect(days, &PeriodField::daysChosen, this, [this, days] { TakeDays(days); });
    line->addWidget(days);
  } else if (kind_.asks == Asks::FromDay) {
    auto* from = Named(new DateField(business_.Today()), "dtReportFrom");
    from->SetDate(criteria_.days.from);
    connect(from, &DateField::dateChosen, this, [this](QDate day) {
      criteria_.days = DateRange::Of(day);
      emit changed();
    });
    line->addLayout(LabelOver(from, tr("&From")));
  }
  if (!kind_.sorts.empty())
    line->addLayout(
        LabelOver(MakeChoice("cmbReportSort", tr("Sorted by"), kind_.sorts, criteria_.sort),
                  tr("&Sorted by")));
  if (!kind_.options.empty())
    line->addLayout(LabelOver(
        MakeChoice("cmbReportOption", tr("Form"), kind_.options, criteria_.option), tr("Fo&rm")));
  line->addStretch(1);
  return bar;
}

void ReportRun::TakeDays(const PeriodField* days) {
  // While the first of both dates has been typed the range may run backwards for a moment.
  if (!days->Days().IsValid()) return;
  criteria_.days = days->Days();
  emit changed();
}

void ReportRun::OpenLink(int link) {
  const std::vector<ReportLink>& links = growing_ ? growing_->Links() : links_;
  if (link < 0 || static_cast<size_t>(link) >= links.size()) return;
  const ReportLink to = links[static_cast<size_t>(link)];
  const Navigator& navigator = tools_.navigator;
  switch (to.to) {
    case ReportLink::To::Nothing:
      return;
    case ReportLink::To::Client:
      return OpenIfThere(navigator, OpenClient{Id<Client>(to.id)});
    case ReportLink::To::Entry:
      return OpenEntryOfRow(business_, navigator, Id<Entry>(to.id));
    case ReportLink::To::Payment:
      return OpenIfThere(navigator, ViewPayment{Id<Payment>(to.id)});
    case ReportLink::To::Invoice:
      return OpenIfThere(navigator, EditInvoice{Id<Invoice>(to.id)});
    case ReportLink::To::Purchase:
      return OpenIfThere(navigator, ViewPurchase{Id<Purchase>(to.id)});
    case ReportLink::To::RevenueAccount:
      return OpenAccount("revenue-of-account", to.id);
    case ReportLink::To::LedgerAccount:
      return OpenAccount("purchases-by-account", to.id);
  }
}

void ReportRun::OpenAccount(const char* report, qint64 account) {
  ReportCriteria criteria;
  criteria.days = criteria_.days;
  criteria.record = account;
  Show(business_, tools_, report, criteria, Viewer::Comes::FromShown);
}

std::vector<ReportRun::CsvTable> ReportRun::Csv() const {
  std::vector<CsvTable> tables;
  const ReportData whole = data_.rest ? CollectReport(business_, kind_, criteria_) : data_;
  for (CsvFile& file : WriteReportCsvFiles(whole, FileNameOf(kind_, data_)))
    tables.push_back({file.name, std::move(file.content)});
  return tables;
}

Tables ReportRun::Shows() const {
  return {"Clients",  "Client_Services", "Diary",          "Diary_Services",
          "Services", "Payments",        "Purchases",      "Suppliers",
          "Invoices", "Bankings",        "Bank_Accounts",  "General_Ledger_Entries",
          "Quotes",   "Employees",       "Quote_Services", "General_Ledger_Accounts"};
}

void ShowReport(Business& business, const ScreenTools& tools, const char* name,
                const ReportCriteria& criteria) {
  Show(business, tools, name, criteria, Viewer::Comes::Anew);
}

}  // namespace quillary::reports
