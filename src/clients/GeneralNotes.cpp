#include "clients/GeneralNotes.h"

namespace quillary::clients {

QString LoadGeneralNotes(Business& business) {
  return business.FirstField(Sql("SELECT Invoice_Notes FROM infOptions;")).ToText();
}

void SaveGeneralNotes(Business& business, const QString& notes) {
  business.Write(Sql("UPDATE infOptions SET Invoice_Notes = {}", notes), Rows::AtLeast(1));
}

}  // namespace quillary::clients
