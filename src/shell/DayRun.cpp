#include "shell/DayRun.h"

#include "base/ports/requests/Screens.h"
#include "billing/invoices/InvoicePrint.h"
#include "billing/invoices/InvoiceRecord.h"
#include "diary/screens/DiaryGrid.h"
#include "documents/billing/BillingDocuments.h"
#include "kit/Grid.h"
#include "session/BusinessFacts.h"
#include "session/ProgramFolder.h"
#include "shell/Hands.h"
#include "shell/Ports.h"
#include "shell/Program.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTextStream>

#include <stdexcept>

namespace quillary::shell {

namespace {

void Say(const QString& line) {
  QTextStream(stdout) << line << Qt::endl;
}

/// Nobody sits here: leaves when asked to, and declines everything else.
class PlainAnswers : public Prompter {
 public:
  Answer Ask(const QString& text, const QString&) override {
    const bool leaving = text.contains(QLatin1StringView("exit from the system"));
    Say(QStringLiteral("Asked \"%1\": answered %2.")
            .arg(text.simplified(), leaving ? "Yes" : "No"));
    return leaving ? Answer::Yes : Answer::No;
  }
  void Tell(Tone, const QString& text, const QString&) override {
    lastTold = text.simplified();
    Say(QStringLiteral("Told \"%1\".").arg(lastTold));
  }
  std::optional<QString> AskText(const QString&, const QString&, const QString&) override {
    return std::nullopt;
  }
  QString lastTold;
};

/// A failure ends the run.
class FailingErrors : public ErrorReporter {
 public:
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString&) override {
    failure = QStringLiteral("%1 (in %2, %3)").arg(errorLine, form, procedure);
  }
  QString failure;
};

/// Nobody looks at a document that is done.
class UnwatchedDesktop : public MachineDesktop {
 public:
  bool OpenInBrowser(const QString&) override { return true; }
};

[[noreturn]] void Fail(const QString& why) {
  throw std::runtime_error(why.toStdString());
}

/// The row of the first job that is still to be done.
int FirstOpenJob(const Grid& grid) {
  for (size_t row = 0; row < grid.Rows().size(); ++row) {
    const GridRow& entry = grid.Rows()[row];
    if (entry.cells[diary::kStatus].value == Value(EntryStatus::JobOpen))
      return static_cast<int>(row);
  }
  return -1;
}

QString NameIn(const Grid& grid, int row) {
  return grid.Rows()[static_cast<size_t>(row)].cells[diary::kDisplayName].value.ToText();
}

/// The entry of the job, unless none was left to mark.
std::optional<qint64> MarkFirstJobDone(QWidget* window, const FailingErrors& errors) {
  auto* grid = window->findChild<Grid*>(QStringLiteral("grdSchedule"));
  if (!grid) Fail(QStringLiteral("The diary did not open"));
  Say(QStringLiteral("The diary shows %1 entries for today.").arg(grid->Rows().size()));
  const int row = FirstOpenJob(*grid);
  if (row < 0) {
    Say(QStringLiteral("No job of today is still open, so none was marked."));
    return std::nullopt;
  }
  const qint64 key = grid->Key(row);
  grid->SelectKey(key);  // scrolls it into sight
  const QPoint onName(grid->columnViewportPosition(diary::kDisplayName) + 16,
                      grid->RowRect(row).center().y());
  Hands::ClickAt(grid->viewport(), onName);
  Hands::Click(window->findChild<QPushButton*>(QStringLiteral("cmdDoneUnPaid")));
  if (!errors.failure.isEmpty()) Fail(errors.failure);
  const std::vector<qint64> keys = grid->Keys();
  for (size_t at = 0; at < keys.size(); ++at) {
    if (keys[at] != key) continue;
    if (!(grid->Rows()[at].cells[diary::kStatus].value == Value(EntryStatus::JobDone)))
      Fail(QStringLiteral("The job was not marked done"));
    Say(QStringLiteral("Marked the job of %1 done.").arg(NameIn(*grid, static_cast<int>(at))));
    return key;
  }
  Fail(QStringLiteral("The job that was marked is no longer listed"));
}

/// An invoice for the job.
billing::InvoiceForm BillJob(Business& business, Id<Entry> job) {
  billing::InvoiceForm form = billing::NewInvoice(business, std::nullopt, job);
  if (form.statementType.isEmpty()) form.statementType = billing::TypesOfInvoice().first();
  if (const auto refusal = billing::SaveInvoices(business, form)) Fail(refusal->message);
  Say(QStringLiteral("Billed it by invoice %1 over %2.")
          .arg(form.number, form.totalAmount.ToCurrencyText()));
  return form;
}

billing::InvoiceForm NewestInvoice(Business& business) {
  const Value newest = business.FirstField(Sql("SELECT MAX(Invoice_ID) FROM Invoices"));
  const auto form = billing::LoadInvoiceDetails(business, Id<Invoice>(newest.ToLong()));
  if (!form) Fail(QStringLiteral("There is no invoice to print"));
  return *form;
}

void PrintInBothForms(Business& business, const billing::InvoiceForm& invoice) {
  billing::PrepareInvoicePrint(business);
  const documents::BillingPlaces places{.report =
                                            documents::ReportPlacesUnder(session::ProgramFolder())};
  QStringList told;  // both forms miss the same picture
  for (const auto& [form, words] : {std::pair{documents::BillingForm::Pdf, "PDF"},
                                    std::pair{documents::BillingForm::Word, "word processor"}}) {
    const documents::ReportDocument done = documents::PrintBillingDocument(
        business, places,
        {.form = form, .invoices = {*invoice.invoiceId}, .fileNamePart = invoice.madeOutTo});
    Say(QStringLiteral("Invoice %1 as %2: %3")
            .arg(invoice.number, QString::fromLatin1(words), done.docFile));
    for (const QString& trouble : done.troubles) {
      if (!told.contains(trouble)) Say(trouble);
      told += trouble;
    }
    if (!QFileInfo::exists(done.docFile)) Fail(QStringLiteral("The document was not written"));
  }
}

QString TakePicture(QWidget* window, const QString& folder) {
  if (!QDir().mkpath(folder)) Fail(QStringLiteral("Cannot make the folder %1").arg(folder));
  const QString path = QDir(folder).absoluteFilePath(QStringLiteral("main-window.png"));
  Hands::Settle();
  if (!window->grab().save(path)) Fail(QStringLiteral("Cannot write %1").arg(path));
  return path;
}

void Run(const QString& commandLine, const QString& file, const QString& folder) {
  DesktopPorts ports;
  PlainAnswers prompter;
  FailingErrors errors;
  UnwatchedDesktop desktop;
  Outside outside{ports.clock,    prompter,         errors, ports.busy,
                  ports.settings, ports.headOffice, desktop};
  Program program(outside, ports.navigator, session::ProgramFolder());
  program.UseFile(file);
  if (!program.Start(commandLine))
    Fail(QStringLiteral("The start-up ended early. ") + prompter.lastTold);
  MainMenuMDI* window = program.MainMenu();
  window->resize(1280, 720);
  Say(QStringLiteral("Opened %1.").arg(program.OpenBusiness().DatabaseFile()));
  Say(QStringLiteral("The schedule is filled to %1.")
          .arg(ToShortDateText(
              session::ReadBusinessFacts(program.OpenBusiness()).scheduleFilledTo)));
  ports.navigator.Open(OpenDiary{});
  Hands::Settle();
  const auto job = MarkFirstJobDone(window, errors);
  const QString picture = TakePicture(window, folder);
  Business& business = program.OpenBusiness();
  PrintInBothForms(business, job ? BillJob(business, Id<Entry>(*job)) : NewestInvoice(business));
  window->close();
  if (!errors.failure.isEmpty()) Fail(errors.failure);
  Say(QStringLiteral("Picture of the main window: %1").arg(picture));
  Say(QStringLiteral("Business file: %1").arg(program.OpenBusiness().DatabaseFile()));
}

}  // namespace

int RunTheDay(const QString& commandLine, const QString& file, const QString& folder) {
  try {
    Run(commandLine, file, folder);
    return 0;
  } catch (const std::exception& error) {
    QTextStream(stderr) << "quillary: " << error.what() << Qt::endl;
    return 1;
  }
}

}  // namespace quillary::shell
