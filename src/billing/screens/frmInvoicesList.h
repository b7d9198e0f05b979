#pragma once

#include "billing/invoices/InvoiceList.h"
#include "kit/Screen.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class DateField;
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::billing {

class InvoiceProgress;

/// The invoices of a period: viewed, made by hand or by the monthly run, printed and deleted.
class frmInvoicesList : public Screen {
  Q_OBJECT

 public:
  frmInvoicesList(Business& business, const ScreenTools& tools);

  /// This month, all invoices or the monthly ones.
  void ShowYourself(bool monthly);
  /// The invoices of those days, with these ticked.
  void ShowDays(const DateRange& days, const std::vector<Id<Invoice>>& ticked);
  /// Loads the list again, unless invoices are ticked: who has just printed them as invoices may
  /// want the same ones as statements.
  void ShowAgain();
  void LoadInvoicesIntoGrid(const std::vector<Id<Invoice>>& ticked = {});
  void Reload() override { LoadInvoicesIntoGrid(); }
  Tables Shows() const override { return {"Invoices", "Clients"}; }

 private:
  void MakeControls();
  void MakeList();
  void MakeCommands();
  void MakePrintCommands();
  void LayOut();
  QLayout* PeriodLine();
  QLayout* TicksLine();
  QLayout* SetupLine();
  QLayout* CommandLine();
  void ConnectControls();
  void ConnectPrintCommands();
  void TakeMonth(int month);
  void ShowTotals();
  std::optional<Id<Invoice>> SelectedInvoice() const;
  void View();
  void DeleteTicked();
  void GenerateMonthly();

  Business& business_;
  ScreenTools tools_;
  std::vector<InvoiceListRow> invoices_;

  QComboBox* cboMonth;
  DateField* dtFrom;
  DateField* dtTo;
  QPushButton* cmdList;
  QCheckBox* chkShowMonthly;
  QLineEdit* txtFilter;
  QCheckBox* chkTickUntickAll;
  Grid* fgInvoices;
  RowTicks* ticks_;
  InvoiceProgress* prgRun;
  QLabel* lblTotals;
  QPushButton* cmdGenerateInvoiceAutomatically;
  QPushButton* cmdMonthlyInvoiceReminder;
  QPushButton* cmdGeneralNotes;
  QPushButton* cmdTermOfTrade;
  QPushButton* cmdPrintGrid;
  QCheckBox* chkPriceExcludesGST;
  QPushButton* cmdPrintInvoices;
  QPushButton* cmdPrintStatement;
  QPushButton* cmdPrintReminder;
  QPushButton* cmdEmailTicked;
  QPushButton* cmdDeleteInvoice;
  QPushButton* cmdClose;
  QPushButton* cmdNewInvoice;
  QPushButton* cmdViewInvoice;
};

}  // namespace quillary::billing
