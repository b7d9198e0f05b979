#pragma once

#include "base/ports/requests/Billing.h"
#include "billing/invoices/InvoiceJobs.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QPushButton;

namespace quillary::billing {

class InvoiceProgress;

/// How a job of the diary gets its invoice: one of its own, or with all jobs of those days whose
/// clients are billed with each job.
class dlgInvoiceOptions : public Dialog {
  Q_OBJECT

 public:
  dlgInvoiceOptions(Business& business, const ScreenTools& tools, const ChooseInvoiceFor& request);

 private:
  void MakeControls();
  void LayOut();
  QString DaysWords() const;
  void CreateNewInvoice();
  void CreateNonMonthlyInvoices();

  Business& business_;
  ScreenTools tools_;
  ChooseInvoiceFor request_;
  std::optional<JobToInvoice> job_;

  QPushButton* cmdCreateNewInvoice;
  QPushButton* cmdCreateNonMonthlyInvoice;
  QCheckBox* chkPriceExcludesGST;
  InvoiceProgress* prgRun;
  QPushButton* cmdClose;
};

}  // namespace quillary::billing
