#include "billing/screens/InvoiceScreens.h"

#include "base/ports/requests/Billing.h"
#include "billing/screens/dlgFromDate.h"
#include "billing/screens/dlgInvoiceList.h"
#include "billing/screens/dlgInvoiceOptions.h"
#include "billing/screens/frmInvoice.h"
#include "billing/screens/frmInvoicesList.h"

namespace quillary::billing {

namespace {

void ShowList(Business& business, const ScreenTools& tools, const OpenInvoicesList& request) {
  const bool monthly = request.monthly;
  if (Screen* open = tools.host.BringToFront(QStringLiteral("frmInvoicesList"))) {
    auto* list = static_cast<frmInvoicesList*>(open);
    if (request.days)
      list->ShowDays(*request.days, request.ticked);
    else if (monthly)
      list->ShowYourself(true);
    else
      list->ShowAgain();
    return;
  }
  auto* list = new frmInvoicesList(business, tools);
  tools.host.ShowScreen(list);
  if (request.days)
    list->ShowDays(*request.days, request.ticked);
  else
    list->ShowYourself(monthly);
}

bool Edit(Business& business, const ScreenTools& tools, const InvoiceForm& form) {
  frmInvoice screen(business, tools, form);
  screen.exec();
  return screen.WasSaved();
}

void RegisterInvoices(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenInvoicesList>(
      [&business, tools](const OpenInvoicesList& request) { ShowList(business, tools, request); });
  navigator.Register<ChooseInvoiceFor>([&business, tools](const ChooseInvoiceFor& request) {
    return dlgInvoiceOptions(business, tools, request).exec() == QDialog::Accepted;
  });
  navigator.Register<AddInvoice>([&business, tools](const AddInvoice& request) {
    return Edit(business, tools, NewInvoice(business, request.client, request.entry));
  });
  navigator.Register<EditInvoice>([&business, tools](const EditInvoice& request) {
    if (const auto form = LoadInvoiceDetails(business, request.invoice))
      return Edit(business, tools, *form);
    business.World().prompter.Tell(
        Tone::Exclamation,
        QObject::tr("This invoice is no longer there. Please refresh the list."));
    return false;
  });
}

}  // namespace

void RegisterInvoiceScreens(Business& business, const ScreenTools& tools) {
  RegisterInvoices(business, tools);
  tools.navigator.Register<PickDate>([&business](const PickDate& request) {
    dlgFromDate dialog(business, request.label, request.proposed.value_or(business.Today()));
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Date()) : std::nullopt;
  });
  tools.navigator.Register<PickInvoiceList>([&business, tools](const PickInvoiceList&) {
    dlgInvoiceList dialog(business, tools);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Criteria()) : std::nullopt;
  });
}

}  // namespace quillary::billing
