#include "mail/DocumentMails.h"

#include "base/Text.h"
#include "mail/ClientAddresses.h"

#include <QTemporaryDir>

#include <stdexcept>

namespace quillary::mail {
namespace {

/// One document: whom it goes to, what it is about.
struct Piece {
  Id<Client> client;
  std::vector<Id<Invoice>> invoices;
};

std::vector<Piece> PiecesOf(Business& business, const DocumentRun& run) {
  std::vector<Piece> pieces;
  for (const Id<Invoice> invoice : run.invoices) {
    const auto clients = ClientsOfInvoices(business, {invoice});
    if (clients.empty()) continue;
    const Id<Client> client = clients.front();
    const auto same = std::ranges::find(pieces, client, &Piece::client);
    if (run.contents != Contents::Invoice && same != pieces.end())
      same->invoices.push_back(invoice);
    else
      pieces.push_back({client, {invoice}});
  }
  return pieces;
}

documents::StatementDays DaysOf(Business& business, const DocumentRun& run, const Piece& piece) {
  if (run.days.from.isValid() && run.days.to.isValid()) return run.days;
  documents::StatementDays days{business.Today(), business.Today()};
  for (const Id<Invoice> invoice : piece.invoices)
    days.from = std::min(
        days.from,
        business
            .FirstField(Sql("SELECT Generation_Date FROM Invoices WHERE Invoice_ID = {}", invoice))
            .ToDate(business.Today()));
  return days;
}

documents::BillingKind KindOf(Contents contents) {
  return contents == Contents::Statement  ? documents::BillingKind::Statement
         : contents == Contents::Reminder ? documents::BillingKind::Reminder
                                          : documents::BillingKind::Invoice;
}

QString SubjectOf(Contents contents) {
  return contents == Contents::Statement  ? QStringLiteral("Statement")
         : contents == Contents::Reminder ? QStringLiteral("Reminder")
                                          : QStringLiteral("Invoice");
}

bool IsKnown(Outbox& outbox, const DocumentRun& run, const Piece& piece) {
  return !run.again && std::ranges::all_of(piece.invoices, [&](Id<Invoice> invoice) {
    return outbox.FindDocument(run.contents, invoice).has_value();
  });
}

QString NameOf(Business& business, Id<Client> client) {
  return business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", client))
      .ToText();
}

}  // namespace

QString QueuedDocuments::InWords() const {
  QString text = Counted(mails.size(), "mail was put into the outbox",
                         "mails were put into the "
                         "outbox") +
                 u'.';
  if (known > 0)
    text += QStringLiteral("\n%1 in the outbox already and not put there again.")
                .arg(Counted(static_cast<size_t>(known), "document is", "documents are"));
  if (!withoutAddress.isEmpty())
    text += QStringLiteral("\nWithout an email address: %1.")
                .arg(withoutAddress.join(QStringLiteral(", ")));
  return text;
}

QString DefaultText(Business& business) {
  const Recordset options = business.RunSQL(Sql("SELECT Default_Email_Message FROM infOptions;"));
  return options.HasRows() ? options.Field(u"Default_Email_Message").ToText() : QString();
}

QueuedDocuments QueueDocuments(Business& business, Outbox& outbox,
                               const documents::BillingPlaces& places, const DocumentRun& run,
                               const std::function<void(int, int)>& progress) {
  QueuedDocuments queued;
  std::vector<NewMail> mails;
  // A folder for each document, since names are told apart by the second only.
  const QTemporaryDir folder;
  if (!folder.isValid()) throw std::runtime_error(folder.errorString().toStdString());
  const std::vector<Piece> pieces = PiecesOf(business, run);
  for (size_t at = 0; at < pieces.size(); ++at) {
    const Piece& piece = pieces[at];
    if (progress) progress(static_cast<int>(at), static_cast<int>(pieces.size()));
    if (IsKnown(outbox, run, piece)) {
      ++queued.known;
      continue;
    }
    const QString name = NameOf(business, piece.client);
    const auto addresses = LoadClientEmail(business, {piece.client});
    const auto own = std::ranges::find(addresses, piece.client, &ClientAddress::client);
    if (own == addresses.end()) {
      if (!queued.withoutAddress.contains(name)) queued.withoutAddress += name;
      continue;
    }
    documents::BillingPlaces inFolder = places;
    inFolder.folder = folder.filePath(QString::number(at));
    QDir().mkpath(inFolder.folder);
    inFolder.opensViewer = false;
    mails.push_back(
        {.route = run.route,
         .contents = run.contents,
         .client = piece.client,
         .invoices = piece.invoices,
         .to = own->address,
         .toName = name,
         .subject = SubjectOf(run.contents),
         .text = run.text,
         .document = documents::PrintBillingDocument(business, inFolder,
                                                     {.kind = KindOf(run.contents),
                                                      .invoices = piece.invoices,
                                                      .mode = run.mode,
                                                      .fileNamePart = name,
                                                      .days = DaysOf(business, run, piece)})
                         .docFile});
  }
  if (!mails.empty()) queued.mails = outbox.Put(mails);
  return queued;
}

}  // namespace quillary::mail
