#include "setup/sheets/ClientSheet.h"

#include "clients/BillingNames.h"
#include "clients/ClientColumns.h"
#include "clients/ClientRecord.h"

namespace quillary::setup {
namespace {

using clients::ClientRecord;

QString NameOf(Business& business, const ClientRecord& client) {
  const bool surnameFirst =
      business.World().settings.Read(QStringLiteral("Display Format"),
                                     QStringLiteral("Billing Name Format"), QStringLiteral("FS")) ==
      clients::CodeOf(clients::NameOrder::SurnameFirst);
  const QString first = client.firstName.trimmed();
  const QString last = client.surname.trimmed();
  if (first.isEmpty() || last.isEmpty()) return first + last;
  return surnameFirst ? last + QStringLiteral(", ") + first : first + u' ' + last;
}

ClientRecord NewRow() {
  ClientRecord client = clients::NewClientRecord();
  client.status = ClientStatus::Active;
  return client;
}

/// The title of a column as the sheet shows it.
QString TitleOf(const QString& field) {
  for (const SheetColumn& column : ClientSheetColumns())
    for (const clients::ClientColumn& known : clients::ClientColumns())
      if (field == QLatin1StringView(known.field) &&
          QLatin1StringView(column.column) == QLatin1StringView(known.column))
        return QString::fromLatin1(column.title);
  return {};
}

}  // namespace

const std::vector<SheetColumn>& ClientSheetColumns() {
  static const std::vector<SheetColumn> columns = {
      {"Display_Name", "Billing name", 170, {}},
      {"First_Name", "First name", 110, {}},
      {"Surname", "Surname", 110, {}},
      {"Status", "Status", 110, WordsIn<ClientStatus>(ClientGroup::OfferedByHand)},
      {"Street_Number", "No.", 60, {}},
      {"Street", "Street", 140, {}},
      {"Suburb", "Suburb", 120, {}},
      {"Post_Code", "Post code", 80, {}},
      {"Phone_1", "Phone 1", 110, {}},
      {"Phone_2", "Phone 2", 110, {}},
      {"Email", "Email", 170, {}},
      {"Statement_Type", "Invoicing", 100, clients::InvoiceTypes()},
      {"Notes", "Notes", 160, {}},
  };
  return columns;
}

std::vector<SheetRow> LoadClientSheet(Business& business) {
  std::vector<SheetRow> rows;
  for (const Record row :
       business.RunSQL(Sql("SELECT * FROM Clients ORDER BY Display_Name, Client_ID"))) {
    SheetRow sheetRow{row[u"Client_ID"].ToLong(), {}};
    for (const SheetColumn& column : ClientSheetColumns())
      sheetRow.cells += row[QString::fromLatin1(column.column)].ToText();
    rows.push_back(std::move(sheetRow));
  }
  return rows;
}

std::optional<Refusal> StoreClientRow(Business& business, std::optional<Id<Client>>& client,
                                      const std::vector<NamedCell>& cells) {
  ClientRecord record = NewRow();
  ClientRecord loaded = clients::NewClientRecord();
  if (client) {
    if (auto refusal = clients::CheckClientIsThere(business, *client)) return refusal;
    record = *clients::LoadClientDetails(business, *client);
    loaded = record;
  }
  for (const NamedCell& cell : cells) {
    const bool keepsDefault = !client && cell.value.isEmpty();
    if (keepsDefault) continue;
    if (auto refusal = clients::SetClientColumn(business, record, cell.column, cell.value))
      return refusal;
  }
  if (!client && record.displayName.trimmed().isEmpty())
    record.displayName = NameOf(business, record);
  if (auto refusal = clients::SaveClientDetails(business, record, loaded)) return refusal;
  client = record.clientId;
  return std::nullopt;
}

SheetOutcome WriteClients(Business& business, const SheetBlock& block) {
  SheetOutcome outcome;
  const auto& columns = ClientSheetColumns();
  Transaction all(business);
  for (size_t at = 0; at < block.rows.size(); ++at) {
    std::vector<NamedCell> cells;
    const QStringList& row = block.rows[at];
    for (qsizetype cell = 0; cell < row.size(); ++cell) {
      const auto column = static_cast<size_t>(block.firstColumn + cell);
      if (column < columns.size())
        cells.push_back({QString::fromLatin1(columns[column].column), row[cell]});
    }
    auto client = IdFrom<Client>(block.KeyOf(at));
    const bool isNew = !client;
    if (const auto refusal = StoreClientRow(business, client, cells)) {
      outcome.troubles.push_back({static_cast<int>(at), TitleOf(refusal->field), refusal->message});
      continue;
    }
    ++(isNew ? outcome.added : outcome.changed);
    outcome.lastKey = client->Number();
  }
  all.Commit();
  return outcome;
}

}  // namespace quillary::setup
