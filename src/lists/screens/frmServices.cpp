#include "lists/screens/frmServices.h"

#include "base/ports/requests/Setup.h"
#include "kit/Combos.h"
#include "kit/Controls.h"
#include "lists/Choices.h"
#include "lists/Services.h"

namespace quillary::lists {

namespace {

enum ServiceColumn { kService, kServiceId, kAccountId, kCode, kAccount, kRegular, kDefault };

std::vector<GridRow> ServiceRows(Business& business) {
  std::vector<GridRow> rows;
  for (const ListedService& service : ListServices(business))
    rows.push_back({{service.name, service.id, service.account, service.serviceCode,
                     service.accountName, service.regular, service.isDefault}});
  return rows;
}

ServiceForm ServiceFormOf(const RecordFields& fields) {
  return {fields.Text("txtService"), fields.Text("txtServiceCode"),
          fields.Choice<Account>("cboDefaultGLAccountID"), fields.IsTicked("chkRegular"),
          fields.IsTicked("chkDefault")};
}

RecordList ServicesList(Business& business) {
  Prompter& prompter = business.World().prompter;
  return {
      .name = "frmServices",
      .title = QObject::tr("Services provided"),
      .gridName = QStringLiteral("fgServices"),
      .about = QObject::tr("Jobs and clients take their services from this list. The code is what "
                           "the diary shows."),
      .emptyWhat = QObject::tr("There are no services yet."),
      .emptyNext = QObject::tr("Fill in the service, its code and its account, and add it."),
      .columns = {{QObject::tr("Service"), ColumnKind::StrongText, 200},
                  {{}, ColumnKind::HiddenId},
                  {{}, ColumnKind::HiddenId},
                  {QObject::tr("Code"), ColumnKind::Text, 72},
                  {QObject::tr("Revenue account"), ColumnKind::Text, 192},
                  {QObject::tr("Regular"), ColumnKind::Tick, 80},
                  {QObject::tr("Default"), ColumnKind::Tick, 80}},
      .fields = {{"txtService", "name", QObject::tr("Na&me of the service"), FieldKind::Text,
                  kService, 100},
                 {"txtServiceCode", "serviceCode", QObject::tr("Ser&vice code"), FieldKind::Text,
                  kCode, 20},
                 {"cboDefaultGLAccountID", "account", QObject::tr("Default led&ger account"),
                  FieldKind::Choice, kAccountId, 0,
                  [&business](QComboBox* combo) {
                    FillCombo(combo, ListRevenueAccountChoices(business));
                  }},
                 {"chkRegular", "regular", QObject::tr("A regular serv&ice"), FieldKind::Tick,
                  kRegular},
                 {"chkDefault", "isDefault", QObject::tr("The service offered first (&by default)"),
                  FieldKind::Tick, kDefault}},
      .load = [&business] { return ServiceRows(business); },
      .insert =
          [&business](const RecordFields& fields) {
            return InsertService(business, ServiceFormOf(fields));
          },
      .update =
          [&business](std::optional<qint64> key, const RecordFields& fields) {
            return UpdateService(business, IdFrom<Service>(key), ServiceFormOf(fields));
          },
      .remove =
          [&business, &prompter](std::optional<qint64> key) {
            return DeleteService(business, prompter, IdFrom<Service>(key));
          },
  };
}

}  // namespace

frmServices::frmServices(Business& business, const ScreenTools& tools)
    : RecordListScreen(ServicesList(business), tools, business.World()) {
  cmdDownloadServices = MakeButton("cmdDownloadServices", tr("Download services…"),
                                   ButtonKind::Plain, QStringLiteral("download"));
  cmdDownloadServices->setEnabled(tools.navigator.CanOpen<OpenAcquireServices>());
  AddCommand(cmdDownloadServices);
  tools.runner.OnClick(cmdDownloadServices, objectName(),
                       [this, &prompter = business.World().prompter, &navigator = tools.navigator] {
                         if (!MayDownloadServices(prompter)) return;
                         navigator.Open(OpenAcquireServices{});
                         Reload();
                       });
}

}  // namespace quillary::lists
