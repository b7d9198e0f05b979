#include "mail/MailMerge.h"

#include "data/store/FileInTheMaking.h"
#include "domain/ClientStatus.h"

namespace quillary::mail {

int WriteMailMerge(Business& business, const QString& path) {
  static const char* const kFields[] = {"Display_Name", "First_Name", "Surname",   "Street_Number",
                                        "Street",       "Suburb",     "Post_Code", "Phone_1",
                                        "Phone_2",      "Fax",        "Email"};
  QByteArray text;
  for (const char* field : kFields) text += (text.isEmpty() ? "" : "\t") + QByteArray(field);
  const Recordset clients =
      business.RunSQL(Sql("SELECT * FROM Clients WHERE {} ORDER BY Clients.Display_Name, "
                          "Clients.Surname, Clients.First_name;",
                          IsNoProspect("Clients.Status")));
  for (const Record client : clients) {
    QStringList cells;
    for (const char* field : kFields)
      cells += client[QString::fromLatin1(field)].ToText().simplified();
    text += "\r\n" + cells.join(u'\t').toUtf8();
  }
  WriteWhole(path, text + "\r\n");
  return static_cast<int>(clients.RowCount());
}

}  // namespace quillary::mail
