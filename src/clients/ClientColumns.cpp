#include "clients/ClientColumns.h"

#include "base/DateTime.h"
#include "clients/BillingChoice.h"
#include "clients/ClientChoices.h"
#include "data/store/Connection.h"

#include <algorithm>

namespace quillary::clients {
namespace {

std::optional<bool> YesOrNo(const QString& typed) {
  const QString word = typed.trimmed().toLower();
  if (QStringList{"yes", "true", "1", "-1"}.contains(word)) return true;
  if (QStringList{"no", "false", "0"}.contains(word)) return false;
  return std::nullopt;
}

std::optional<Refusal> SetText(Business& business, const ClientColumn& column, QString& text,
                               const QString& value) {
  const auto width = ColumnWidth(business, QStringLiteral("Clients"), column.column);
  if (width && value.size() > *width) {
    return Refusal{
        QStringLiteral("%1 holds at most %2 characters.").arg(QString(column.column)).arg(*width),
        column.field};
  }
  text = value;
  return std::nullopt;
}

std::optional<Refusal> SetPayer(Business& business, ClientRecord& client, const QString& value) {
  bool isKey = false;
  const qint64 payer = value.trimmed().toLongLong(&isKey);
  if (isKey && payer == client.clientId) {
    BillSameAddress(client);
    return std::nullopt;
  }
  const auto others = ListBillableOthers(business, client.clientId);
  if (!isKey || std::ranges::none_of(others, [&](const lists::Choice<Client>& at) {
        return at.id.Number() == payer;
      }))
    return Refusal{QStringLiteral("%1 is no client who can be billed.").arg(value),
                   QStringLiteral("cmbOtherAddressToBill")};
  BillExistingAddress(business, business.World().prompter, client, payer);
  return std::nullopt;
}

std::optional<Refusal> SetDebtorSince(Business& business, ClientRecord& client,
                                      const QString& value) {
  const auto since = ParseTypedDate(value, business.Today());
  if (!since && !value.trimmed().isEmpty())
    return Refusal{QStringLiteral("%1 is no date.").arg(value), QStringLiteral("dtDebtorSince")};
  client.debtorSince = since;
  return std::nullopt;
}

bool IsColumn(const QString& typed, const char* column) {
  return typed.compare(QLatin1StringView(column), Qt::CaseInsensitive) == 0;
}

}  // namespace

const std::vector<ClientColumn>& ClientColumns() {
  using Client = ClientRecord;
  static const std::vector<ClientColumn> columns = {
      {"Display_Name", "txtDisplayName", &Client::displayName},
      {"First_Name", "txtFirstname", &Client::firstName},
      {"Surname", "txtSurname", &Client::surname},
      {"Status", "cmbStatus", &Client::status},
      {"Street_Number", "txtStreetNumber", &Client::streetNumber},
      {"Street", "txtStreet", &Client::street},
      {"Suburb", "cmbSuburb", &Client::suburb},
      {"Post_Code", "cmbPostcode", &Client::postCode},
      {"Map", "txtMap", &Client::map},
      {"Phone_1", "txtPhone1", &Client::phone1},
      {"Phone_2", "txtPhone2", &Client::phone2},
      {"Fax", "txtFax", &Client::fax},
      {"Email", "txtEmail", &Client::email},
      {"Notes", "txtGeneralNotes", &Client::notes},
      {"Requires_Statement", "chkMonthlyStatement", &Client::requiresStatement},
      {"Statement_Type", "cmbInvoiceType", &Client::statementType},
      {"Work_Cover_Number", "txtClaimNumber", &Client::workCoverNumber},
      {"InvoiceWithOutstanding", "chkShowOutstanding", &Client::invoiceWithOutstanding},
      {"InvoiceWithNextJob", "chkShowNextJobdate", &Client::invoiceWithNextJob},
      {"InvoiceWithUnpaidPastJobs", "chkInvoiceWithPastJobs", &Client::invoiceWithUnpaidPastJobs},
      {"InvoiceWithTelNo", "chkInvoiceWithTelNo", &Client::invoiceWithTelNo},
      {"StatementWithPayments", "chkStatementWithPayments", &Client::statementWithPayments},
      {"WorkCoverLabel", "cmbWorkCoverLabel", &Client::workCoverLabel},
      {"Private_Notes", "txtPrivateNotes", &Client::privateNotes},
  };
  return columns;
}

std::optional<Refusal> SetClientColumn(Business& business, ClientRecord& client,
                                       const QString& column, const QString& value) {
  if (IsColumn(column, "Billing_Client_ID")) return SetPayer(business, client, value);
  if (IsColumn(column, "Debtor_Since")) return SetDebtorSince(business, client, value);
  for (const ClientColumn& known : ClientColumns()) {
    if (!IsColumn(column, known.column)) continue;
    if (const auto* text = std::get_if<QString ClientRecord::*>(&known.member)) {
      return SetText(business, known, client.*(*text), value);
    }
    const auto yes = YesOrNo(value);
    if (!yes) return Refusal{QStringLiteral("%1 is yes or no.").arg(column), known.field};
    client.*std::get<bool ClientRecord::*>(known.member) = *yes;
    return std::nullopt;
  }
  return Refusal{QStringLiteral("A client has no column %1 to be set.").arg(column), {}};
}

std::optional<int> ColumnWidth(Business& business, const QString& table, const QString& column) {
  const jet::Table* found = business.StoreConnection().Schema().FindTable(table);
  const jet::Column* definition = found ? found->Find(column) : nullptr;
  if (!definition || definition->type != jet::ColumnType::Text || definition->width == 0) {
    return std::nullopt;
  }
  return definition->width;
}

}  // namespace quillary::clients
