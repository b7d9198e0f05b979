#include "clients/screens/ClientGrids.h"

#include <QLocale>
#include <QObject>

namespace quillary::clients {

namespace {

GridCell StatusCell(const ClientJob& job) {
  const QString words = WordsOf(job.status);
  return {job.status, job.isPaid ? words + QObject::tr(" · paid") : words};
}

/// A visit has no price; a job of nothing shows its $0.00.
Value PriceOf(const ClientJob& job) {
  if (IsVisit(job.status) && job.totalPrice == Money()) return {};
  return job.totalPrice;
}

/// Two numbers, one or none, without a stray separator.
QString Phones(const QString& joined) {
  QStringList numbers;
  for (const QString& number : joined.split(u';'))
    if (!number.trimmed().isEmpty()) numbers += number.trimmed();
  return numbers.join(QStringLiteral("; "));
}

GridCell DateOrNone(QDate date) {
  return date.isValid() ? GridCell(date) : GridCell(Value());
}

}  // namespace

std::vector<GridColumn> ServiceColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Service"), ColumnKind::StrongText, 232},
          {QObject::tr("Price"), ColumnKind::Money, 80},
          {QObject::tr("Notes"), ColumnKind::Text, 88},
          {QObject::tr("Job type"), ColumnKind::Text, 80},
          {QObject::tr("Days"), ColumnKind::Number, 52},
          {QObject::tr("Employee"), ColumnKind::Text, 104},
          {QObject::tr("Next"), ColumnKind::Date, 100}};
}

std::vector<GridRow> ServiceRows(const ClientServiceArray& services) {
  std::vector<GridRow> rows;
  for (size_t at = 0; at < services.size(); ++at) {
    const ClientServiceRecord& service = services[at];
    if (service.IsEmpty()) continue;
    const bool main = at == 0;
    const bool follows = service.otherScheduleClientServiceId.has_value();
    const QString name =
        main ? service.service + QStringLiteral(" - Main service") : service.service;
    GridRow row;
    row.cells = {static_cast<qint64>(at), GridCell(service.service, name), service.price,
                 service.notes.simplified()};
    if (follows) {
      row.cells.insert(row.cells.end(), {QObject::tr("as main"), Value(), Value(), Value()});
      row.note = QObject::tr("Same schedule as the main service");
    } else {
      row.cells.insert(row.cells.end(), {service.status, service.frequency, service.employeeName,
                                         DateOrNone(service.nextVisit)});
    }
    row.hue = main ? Hue::Green : Hue::None;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<GridColumn> ClientJobColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 112},
          {QObject::tr("Client"), ColumnKind::StrongText, 200},
          {QObject::tr("Services"), ColumnKind::Text, 280},
          {QObject::tr("Price"), ColumnKind::Money, 104},
          {QObject::tr("Status"), ColumnKind::Chip, 176}};
}

std::vector<GridRow> ClientJobRows(const std::vector<ClientJob>& jobs) {
  std::vector<GridRow> rows;
  rows.reserve(jobs.size());
  for (const ClientJob& job : jobs) {
    GridRow row;
    row.cells = {job.entry,       DateOrNone(job.scheduleDate),
                 job.displayName, job.description,
                 PriceOf(job),    StatusCell(job)};
    row.hue = HueOf(job.status, job.isPaid);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<GridColumn> NextJobColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 96},
          {QObject::tr("Services"), ColumnKind::Text, 64},
          {QObject::tr("Price"), ColumnKind::Money, 76},
          {QObject::tr("Status"), ColumnKind::Chip, 136}};
}

std::vector<GridRow> NextJobRows(const std::vector<ClientJob>& jobs, size_t atMost) {
  const QLocale english(QLocale::English);
  std::vector<GridRow> rows;
  for (const ClientJob& job : jobs) {
    if (rows.size() == atMost) break;
    GridRow row;
    row.cells = {
        job.entry,
        GridCell(job.scheduleDate, english.toString(job.scheduleDate, QStringLiteral("ddd d MMM"))),
        job.description, PriceOf(job), StatusCell(job)};
    row.hue = HueOf(job.status, job.isPaid);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<GridColumn> InvoiceColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Number"), ColumnKind::StrongText, 104},
          {QObject::tr("Date"), ColumnKind::Date, 112},
          {QObject::tr("From"), ColumnKind::Date, 112},
          {QObject::tr("To"), ColumnKind::Date, 112},
          {QObject::tr("Description"), ColumnKind::Text, 240},
          {QObject::tr("Type"), ColumnKind::Text, 104},
          {QObject::tr("Amount"), ColumnKind::Money, 112},
          {QObject::tr("State"), ColumnKind::Chip, 104}};
}

std::vector<GridRow> InvoiceRows(const std::vector<ClientInvoice>& invoices) {
  std::vector<GridRow> rows;
  for (const ClientInvoice& invoice : invoices) {
    GridRow row;
    row.cells = {invoice.invoice,
                 invoice.invoiceNumber,
                 DateOrNone(invoice.generationDate),
                 DateOrNone(invoice.fromDate),
                 DateOrNone(invoice.toDate),
                 invoice.description,
                 invoice.statementType,
                 invoice.totalAmount,
                 invoice.isPaid ? QObject::tr("Paid") : QObject::tr("Unpaid")};
    row.hue = invoice.isPaid ? Hue::Blue : Hue::Neutral;
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<GridColumn> PaymentColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Date"), ColumnKind::Date, 112},
          {QObject::tr("Amount"), ColumnKind::Money, 112},
          {QObject::tr("Method"), ColumnKind::StrongText, 144},
          {QObject::tr("Description"), ColumnKind::Text, 320}};
}

std::vector<GridRow> PaymentRows(const std::vector<ClientPayment>& payments) {
  std::vector<GridRow> rows;
  for (const ClientPayment& payment : payments)
    rows.push_back({{payment.payment, DateOrNone(payment.paymentDate), payment.amount,
                     payment.paymentMethod, payment.description}});
  return rows;
}

std::vector<GridColumn> SiteColumns() {
  return {{QObject::tr("Number"), ColumnKind::Number, 88},
          {{}, ColumnKind::HiddenId},
          {QObject::tr("Display name"), ColumnKind::StrongText, 280},
          {QObject::tr("First name"), ColumnKind::Text, 200},
          {QObject::tr("Surname"), ColumnKind::Text, 200}};
}

std::vector<GridRow> SiteRows(const std::vector<Site>& sites) {
  std::vector<GridRow> rows;
  for (const Site& site : sites)
    rows.push_back({{site.client, site.client, site.displayName, site.firstName, site.surname}});
  return rows;
}

std::vector<GridColumn> ClientListColumns() {
  return {{{}, ColumnKind::HiddenId},
          {QObject::tr("Name"), ColumnKind::StrongText, 168},
          {QObject::tr("First name"), ColumnKind::Text, 88},
          {QObject::tr("Surname"), ColumnKind::Text, 88},
          {QObject::tr("Street"), ColumnKind::Text, 136},
          {QObject::tr("Suburb"), ColumnKind::Text, 120},
          {QObject::tr("Code"), ColumnKind::Text, 56},
          {QObject::tr("Phone"), ColumnKind::Text, 200},
          {QObject::tr("Fax"), ColumnKind::Text, 56},
          {QObject::tr("Email"), ColumnKind::Text, 128},
          {QObject::tr("Status"), ColumnKind::Chip, 124}};
}

GridRow ClientListGridRow(const ClientListRow& client) {
  GridRow row;
  row.cells = {client.client,
               client.displayName,
               client.firstName,
               client.surname,
               QString(client.streetNumber + u' ' + client.street).trimmed(),
               client.suburb,
               client.postCode,
               Phones(client.phones),
               client.fax,
               client.email,
               client.status};
  row.hue = HueOf(client.status);
  return row;
}

}  // namespace quillary::clients
