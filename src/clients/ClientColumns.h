#pragma once

#include "clients/ClientRecord.h"

#include <QStringList>

#include <variant>
#include <vector>

/// The editable columns of a client by name: for the companion, which sets them one by one, and for
/// the fields of the screen, which hold as many characters as their column.
namespace quillary::clients {

struct ClientColumn {
  const char* column;
  const char* field;  // of a form
  std::variant<QString ClientRecord::*, StoredClientStatus ClientRecord::*,
               StoredStatementType ClientRecord::*, bool ClientRecord::*>
      member;

  QString Name() const { return QString::fromLatin1(column); }
  bool IsYesNo() const { return std::holds_alternative<bool ClientRecord::*>(member); }
  /// Yes/no, or text.
  Value Of(const ClientRecord& client) const;
  void Put(ClientRecord& client, const Value& value) const;
};
/// The text and yes/no columns that a user may write, in the order of the save.
const std::vector<ClientColumn>& ClientColumns();

/// Puts a typed value into the record: a yes/no column takes yes, no, true, false, 1 and 0,
/// Debtor_Since a date or nothing, and Billing_Client_ID the key of a client who can be billed, or
/// the client's own. Tells the user when payments stay behind. Column names go without regard to
/// case. Refuses an unknown column, a value that its column does not take, and a text wider than
/// its column. The checks of the whole record are those of SaveClientDetails().
std::optional<Refusal> SetClientColumn(Business& business, ClientRecord& client,
                                       const QString& column, const QString& value);

/// How many characters a text column holds; nothing for memos, other types and unknown columns.
std::optional<int> ColumnWidth(Business& business, const QString& table, const QString& column);

}  // namespace quillary::clients
