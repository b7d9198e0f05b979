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

std::optional<Refusal> SetText(Business& business, const ClientColumn& column, ClientRecord& client,
                               const QString& value) {
  const auto width = ColumnWidth(business, QStringLiteral("Clients"), column.Name());
  if (width && value.size() > *width)
    return Refusal{QStringLiteral("%1 holds at most %2 characters.").arg(column.Name()).arg(*width),
                   column.field};
  column.Put(client, value);
  return std::nullopt;
}

std::optional<Refusal> SetPayer(Business& business, ClientRecord& client, const QString& value) {
  bool isKey = false;
  const Id<Client> payer(value.trimmed().toLongLong(&isKey));
  if (isKey && payer == client.clientId) {
    BillSameAddress(client);
    return std::nullopt;
  }
  const auto others = ListBillableOthers(business, client.clientId);
  if (!isKey || std::ranges::none_of(others, [&](const auto& other) { return other.id == payer; }))
    return Refusal{QStringLiteral("%1 is no client who can be billed.").arg(value), "payer"};
  BillExistingAddress(business, business.World().prompter, client, payer);
  return std::nullopt;
}

std::optional<Refusal> SetDebtorSince(Business& business, ClientRecord& client,
                                      const QString& value) {
  const auto since = ParseTypedDate(value, business.Today());
  if (!since && !value.trimmed().isEmpty())
    return Refusal{QStringLiteral("%1 is no date.").arg(value), "debtorSince"};
  client.debtorSince = since;
  return std::nullopt;
}

bool IsColumn(const QString& typed, const char* column) {
  return typed.compare(QLatin1StringView(column), Qt::CaseInsensitive) == 0;
}

}  // namespace

Value ClientColumn::Of(const ClientRecord& client) const {
  return std::visit([&](auto part) { return Value(client.*part); }, member);
}

void ClientColumn::Put(ClientRecord& client, const Value& value) const {
  std::visit(
      [&](auto part) {
        auto& held = client.*part;
        using Held = std::remove_reference_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, bool>)
          held = value.ToBool();
        else
          held = Held(value.ToText());
      },
      member);
}

const std::vector<ClientColumn>& ClientColumns() {
  using Client = ClientRecord;
  static const std::vector<ClientColumn> columns = {
      {"Display_Name", "displayName", &Client::displayName},
      {"First_Name", "firstName", &Client::firstName},
      {"Surname", "surname", &Client::surname},
      {"Status", "status", &Client::status},
      {"Street_Number", "streetNumber", &Client::streetNumber},
      {"Street", "street", &Client::street},
      {"Suburb", "suburb", &Client::suburb},
      {"Post_Code", "postCode", &Client::postCode},
      {"Map", "map", &Client::map},
      {"Phone_1", "phone1", &Client::phone1},
      {"Phone_2", "phone2", &Client::phone2},
      {"Fax", "fax", &Client::fax},
      {"Email", "email", &Client::email},
      {"Notes", "notes", &Client::notes},
      {"Requires_Statement", "requiresStatement", &Client::requiresStatement},
      {"Statement_Type", "statementType", &Client::statementType},
      {"Work_Cover_Number", "workCoverNumber", &Client::workCoverNumber},
      {"InvoiceWithOutstanding", "invoiceWithOutstanding", &Client::invoiceWithOutstanding},
      {"InvoiceWithNextJob", "invoiceWithNextJob", &Client::invoiceWithNextJob},
      {"InvoiceWithUnpaidPastJobs", "invoiceWithUnpaidPastJobs",
       &Client::invoiceWithUnpaidPastJobs},
      {"InvoiceWithTelNo", "invoiceWithTelNo", &Client::invoiceWithTelNo},
      {"StatementWithPayments", "statementWithPayments", &Client::statementWithPayments},
      {"WorkCoverLabel", "workCoverLabel", &Client::workCoverLabel},
      {"Private_Notes", "privateNotes", &Client::privateNotes},
  };
  return columns;
}

std::optional<Refusal> SetClientColumn(Business& business, ClientRecord& client,
                                       const QString& column, const QString& value) {
  if (IsColumn(column, "Billing_Client_ID")) return SetPayer(business, client, value);
  if (IsColumn(column, "Debtor_Since")) return SetDebtorSince(business, client, value);
  for (const ClientColumn& known : ClientColumns()) {
    if (!IsColumn(column, known.column)) continue;
    if (!known.IsYesNo()) return SetText(business, known, client, value);
    const auto yes = YesOrNo(value);
    if (!yes) return Refusal{QStringLiteral("%1 is yes or no.").arg(column), known.field};
    known.Put(client, *yes);
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
