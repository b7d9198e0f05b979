#include "billing/screens/PaymentScreens.h"

#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Scheduling.h"
#include "billing/screens/dlgPaymentJobs.h"
#include "billing/screens/dlgPaymentOptions.h"
#include "billing/screens/frmJobsAndPaymentChecker.h"
#include "billing/screens/frmPayments.h"
#include "billing/screens/frmPaymentsList.h"

namespace quillary::billing {

namespace {

bool Run(Dialog&& dialog) {
  return dialog.exec() == QDialog::Accepted;
}

PaymentForm FormOf(Business& business, const AddPayment& request) {
  if (request.client) return NewPayment(business, *request.client, request.amount, request.entry);
  PaymentForm form = BlankPayment(business);
  form.amount = request.amount;
  form.gst = TaxWithin(business, form.amount, form.taxExempt);
  form.forJob = request.entry;
  return form;
}

}  // namespace

void RegisterPaymentScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenPaymentsList>([&business, tools](const OpenPaymentsList& request) {
    auto* payments =
        qobject_cast<frmPaymentsList*>(tools.host.BringToFront(QStringLiteral("frmPaymentsList")));
    if (payments && !request.days) return payments->Reload();
    if (!payments) {
      payments = new frmPaymentsList(business, tools);
      tools.host.ShowScreen(payments);
    }
    payments->ShowDays(request.days.value_or(DateRange::MonthOf(business.Today())));
  });
  navigator.Register<OpenJobsAndPaymentChecker>(
      [&business, tools](const OpenJobsAndPaymentChecker&) {
        ShowTab(tools, "frmJobsAndPaymentChecker",
                [&] { return new frmJobsAndPaymentChecker(business, tools); });
      });
  navigator.Register<AddPayment>([&business, tools](const AddPayment& request) {
    return Run(frmPayments(business, tools, FormOf(business, request)));
  });
  navigator.Register<ViewPayment>([&business, tools](const ViewPayment& request) {
    return Run(frmPayments(business, tools, LoadPayment(business, request.payment)));
  });
  navigator.Register<PayForJob>([&business, tools](const PayForJob& request) {
    return Run(dlgPaymentOptions(business, tools, request));
  });
  navigator.Register<AllocatePayment>([&business, tools](const AllocatePayment& request) {
    return Run(dlgPaymentJobs(business, tools, request.payment));
  });
}

}  // namespace quillary::billing
