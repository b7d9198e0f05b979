#include "setup/screens/SheetScreen.h"
#include "setup/sheets/ClientSheet.h"
#include "setup/sheets/ScheduleSheet.h"

namespace quillary::setup {

SheetDeclaration ClientDetailsSheet(Business& business) {
  return {.name = "frmInitialSetup_ClientDetails",
          .title = QObject::tr("Client details"),
          .gridName = QStringLiteral("grdClientDetails"),
          .about = QObject::tr(
              "Type into the cells, or paste rows copied in a spreadsheet. The empty row at the "
              "end takes a new client; a client without a billing name is called by its names."),
          .one = QObject::tr("client"),
          .many = QObject::tr("clients"),
          .shows = {"Clients"},
          .growing = true,
          .columns = [] { return ClientSheetColumns(); },
          .load = [&business] { return LoadClientSheet(business); },
          .write = [&business](const SheetBlock& block) { return WriteClients(business, block); }};
}

SheetDeclaration SchedulesSheet(Business& business) {
  return {
      .name = "frmInitialSetup_Schedules",
      .title = QObject::tr("Client schedules"),
      .gridName = QStringLiteral("grdSchedules"),
      .about = QObject::tr(
          "One row a service of an active client. A frequency in days makes it a regular one; what "
          "is left empty in a new row is filled with what is usual. The diary follows at once."),
      .one = QObject::tr("service"),
      .many = QObject::tr("services"),
      .shows = {"Clients", "Client_Services", "Services", "Employees"},
      .firstTyped = 1,
      .columns = [&business] { return ScheduleSheetColumns(business); },
      .load = [&business] { return LoadScheduleSheet(business); },
      .write = [&business](const SheetBlock& block) { return WriteSchedules(business, block); }};
}

}  // namespace quillary::setup
