#pragma once

#include "clients/ClientChoices.h"
#include "clients/quotes/Prospects.h"
#include "kit/Form.h"
#include "kit/Screen.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabBar;

namespace quillary {
class ComboSearch;
class CurrencyField;
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::clients {

class WordCombo;

/// Prospects and the priced lists of services that they are offered: the client on the left, its
/// quotes and the one being edited on the right, a tab for each of its services. Nothing is stored
/// before "Save", but the removal of a service or a quote is done at once.
class frmCreateAQuote : public Screen {
  Q_OBJECT

 public:
  frmCreateAQuote(Business& business, const ScreenTools& tools);

  void ShowClient(std::optional<Id<Client>> client);
  void Reload() override;
  Tables Shows() const override { return {"Clients", "Quotes", "Quote_Services", "Services"}; }
  bool HasEdits() const override;
  bool MayClose() override;

 private:
  void MakeClientControls();
  void MakeQuoteControls();
  void MakeServiceControls();
  void MakeCommands();
  void LayOut();
  QLayout* ClientColumn();
  QLayout* QuotesArea();
  QLayout* QuoteArea();
  QLayout* CommandLine();
  void ConnectControls();
  void ConnectCommands();

  void LoadClientDetails();
  void LoadExistingQuotes();
  void LoadSuburbsIntoCombo();
  void ClearTabs();
  void ShowProspect();
  void ShowQuote();
  void ShowTabs(int current);
  void ShowService();
  void ShowTotal();
  /// What is typed, taken from the fields.
  void TakeTyped();
  void TakeService();
  bool MayLoseEdits();

  void AddQuoteClient();
  void TakeClient();
  void LoadQuote();
  void AddNewQuote();
  void RemoveQuote();
  void AddAService();
  void RemoveService();
  bool SaveRecords();
  void MakeActive();
  void Print();

  Business& business_;
  ScreenTools tools_;
  Prospect prospect_;
  QuoteForm quote_;
  int shownService_ = -1;  // whose fields show
  FormState state_;
  bool linesChanged_ = false;
  SuburbChoices suburbs_;

  ComboSearch* cmbClients;
  QPushButton* cmdAddQuote;
  QLabel* lblStatus;
  QLineEdit* txtFirstname;
  QLineEdit* txtSurname;
  QLineEdit* txtDisplayName;
  QLineEdit* txtStreetNumber;
  QLineEdit* txtStreet;
  WordCombo* cmbSuburb;
  QLineEdit* txtPostCode;
  QLineEdit* txtMap;
  QLineEdit* txtPhone1;
  QLineEdit* txtEmail;
  QPlainTextEdit* txtNotes;

  Grid* fgExistingQuotes;
  QPushButton* cmdLoadQuote;
  QPushButton* cmdAddNewQuote;
  QPushButton* cmdRemoveQuote;

  QLabel* lblQuote;
  DateField* dtQuoteDate;
  QTabBar* tabServices;
  QWidget* fraService;
  ComboSearch* cmbService;
  CurrencyField* txtPrice;
  QPlainTextEdit* txtServiceNotes;
  QLabel* lblGSTInc;
  QLabel* lblTotal;
  QPushButton* cmdAddAService;
  QPushButton* cmdRemoveService;

  QPushButton* cmdMakeActive;
  QCheckBox* chkPricesExcludeGST;
  QPushButton* cmdPrint;
  QPushButton* cmdClose;
  QPushButton* cmdSave;
};

}  // namespace quillary::clients
