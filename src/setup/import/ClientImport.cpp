#include "setup/import/ClientImport.h"

#include "clients/ClientColumns.h"
#include "setup/sheets/ClientSheet.h"
#include "setup/sheets/Delimited.h"

namespace quillary::setup {
namespace {

/// What other programs call a column, in small letters without blanks and marks.
struct Alias {
  const char* column;
  const char* names;  // separated by blanks
};
constexpr Alias kAliases[] = {
    {"Display_Name",
     "displayname name client clientname customer customername billingname "
     "company companyname fullname"},
    {"First_Name", "firstname first givenname forename"},
    {"Surname", "surname lastname last familyname"},
    {"Status", "status"},
    {"Street_Number", "streetnumber streetno number no houseno housenumber"},
    {"Street", "street address address1 addressline1 streetaddress streetname"},
    {"Suburb", "suburb city town locality addressline2 address2"},
    {"Post_Code", "postcode zip zipcode postalcode pcode"},
    {"Phone_1", "phone1 phone telephone tel homephone phonenumber"},
    {"Phone_2", "phone2 mobile cell mobilephone cellphone workphone"},
    {"Fax", "fax"},
    {"Email", "email emailaddress mail"},
    {"Map", "map mapref"},
    {"Notes", "notes note comments comment remarks"},
    {"Private_Notes", "privatenotes"},
    {"Statement_Type", "statementtype invoicing invoicetype"},
};

QString Bare(const QString& header) {
  QString bare;
  for (const QChar character : header.toLower())
    if (character.isLetterOrNumber()) bare += character;
  return bare;
}

QString ColumnFor(const QString& header) {
  const QString bare = Bare(header);
  for (const Alias& alias : kAliases)
    if (QString::fromLatin1(alias.names).split(u' ', Qt::SkipEmptyParts).contains(bare))
      return QString::fromLatin1(alias.column);
  return {};
}

bool IsGiven(const ClientList& list, const char* column) {
  return std::ranges::any_of(list.columns, [&](const MappedColumn& mapped) {
    return mapped.column == QLatin1StringView(column);
  });
}

std::vector<NamedCell> CellsOf(const ClientList& list, const QStringList& row) {
  std::vector<NamedCell> cells;
  for (qsizetype at = 0; at < row.size(); ++at) {
    const auto column = static_cast<size_t>(at);
    if (column < list.columns.size() && !list.columns[column].column.isEmpty())
      cells.push_back({list.columns[column].column, row[at]});
  }
  return cells;
}

/// Someone else of the same name and address: the list has been read before.
bool IsThereTwice(Business& business, Id<Client> client) {
  return business
      .RunSQL(Sql("SELECT Other.Client_ID FROM Clients INNER JOIN Clients AS Other ON "
                  "Clients.Display_Name = Other.Display_Name WHERE Clients.Client_ID = {} AND "
                  "Other.Client_ID <> {} AND IIf(IsNull(Other.Street), '', Other.Street) = "
                  "IIf(IsNull(Clients.Street), '', Clients.Street) AND "
                  "IIf(IsNull(Other.Street_Number), '', Other.Street_Number) = "
                  "IIf(IsNull(Clients.Street_Number), '', Clients.Street_Number)",
                  client, client))
      .HasRows();
}

std::optional<Refusal> StoreNew(Business& business, const ClientList& list,
                                const QStringList& row) {
  if (row.size() > static_cast<qsizetype>(list.columns.size()))
    return Refusal{QStringLiteral("It has more cells than there are headers."), {}};
  Transaction one(business);
  std::optional<Id<Client>> client;
  if (auto refusal = StoreClientRow(business, client, CellsOf(list, row))) return refusal;
  if (IsThereTwice(business, *client))
    return Refusal{QStringLiteral("This client is there already."), {}};
  one.Commit();
  return std::nullopt;
}

std::optional<Refusal> StoreAll(Business& business, const ClientList& list, SheetOutcome& outcome) {
  if (!IsGiven(list, "Display_Name") && !IsGiven(list, "First_Name") && !IsGiven(list, "Surname"))
    return Refusal{QStringLiteral("No column of the list gives the names of the clients. Please "
                                  "say which one does."),
                   {}};
  for (size_t at = 0; at < list.rows.size(); ++at) {
    if (const auto refusal = StoreNew(business, list, list.rows[at]))
      outcome.troubles.push_back({static_cast<int>(at), {}, refusal->message});
    else
      ++outcome.added;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Refusal> ReadClientList(const QString& text, ClientList& list) {
  std::vector<QStringList> rows = ParseDelimited(text, SeparatorOf(text));
  if (rows.size() < 2)
    return Refusal{QStringLiteral("The list needs a line of headers and at least one row below "
                                  "it."),
                   {}};
  for (const QString& header : rows.front()) {
    const QString column = ColumnFor(header);
    const bool isTaken = IsGiven(list, qPrintable(column));
    list.columns.push_back({header, isTaken ? QString() : column});
  }
  list.rows.assign(rows.begin() + 1, rows.end());
  return std::nullopt;
}

std::optional<Refusal> MapColumn(ClientList& list, const QString& header, const QString& column) {
  const auto at = std::ranges::find_if(list.columns, [&](const MappedColumn& mapped) {
    return mapped.header.compare(header, Qt::CaseInsensitive) == 0;
  });
  if (at == list.columns.end())
    return Refusal{QStringLiteral("The list has no column \"%1\".").arg(header), {}};
  if (column.isEmpty() || column == u"-") {
    at->column.clear();
    return std::nullopt;
  }
  for (const clients::ClientColumn& known : clients::ClientColumns()) {
    if (column.compare(known.Name(), Qt::CaseInsensitive) != 0) continue;
    for (MappedColumn& other : list.columns)
      if (other.column == known.Name()) other.column.clear();
    at->column = known.Name();
    return std::nullopt;
  }
  return Refusal{QStringLiteral("A client has no column %1 to be set.").arg(column), {}};
}

std::optional<Refusal> ImportClients(Business& business, const ClientList& list,
                                     SheetOutcome& outcome) {
  Transaction all(business);
  if (auto refusal = StoreAll(business, list, outcome)) return refusal;
  all.Commit();
  return std::nullopt;
}

std::optional<Refusal> PreviewClients(Business& business, const ClientList& list,
                                      SheetOutcome& outcome) {
  Transaction undone(business);  // on the way out, since nothing commits it
  return StoreAll(business, list, outcome);
}

}  // namespace quillary::setup
