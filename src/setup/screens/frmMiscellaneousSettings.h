#pragma once

#include "data/Business.h"
#include "kit/DateField.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "setup/settings/MiscellaneousSettings.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace quillary::setup {

/// The options of the business, its counters, and what this user chose for mail, printing and
/// screens.
class frmMiscellaneousSettings : public Dialog {
  Q_OBJECT

 public:
  frmMiscellaneousSettings(Business& business, const ScreenTools& tools,
                           const QString& programFolder);

 private:
  void MakeControls();
  void LayOut();
  QWidget* BusinessPage();
  QWidget* PrintingPage();
  QWidget* MailPage();
  QWidget* TechnicalPage();
  void Load();
  void EnableSmtp();
  void CheckDays();
  MiscellaneousSettings Form() const;
  void Save();

  Business& business_;
  QString logFile_;
  QLineEdit* txtGSTPercentage;
  QLineEdit* txtAutoScheduleDays;
  QRadioButton* optAccrual;
  QRadioButton* optCash;
  QLineEdit* txtInvoiceNumber;
  QLineEdit* txtDBVersion;
  DateField* dtScheduleEnd;
  QCheckBox* chkEnableLogging;
  QCheckBox* chkEnableOstrel4WebServices;
  QCheckBox* chkCompactDatabaseBeforeUpload;
  QPlainTextEdit* txtDefaultEmailMessage;
  QLineEdit* txtAdobePath;
  QLineEdit* txtCCEmailAddress;
  QCheckBox* chkCalculateClientAmtsOwingOnPrint;
  QCheckBox* chkShowDBSelection;
  QCheckBox* chkUseButtonsInDiary;
  QComboBox* cboNameOrder;
  QRadioButton* optMAPI;
  QRadioButton* optVBSendMail;
  QWidget* fraVBSendMail;
  QLineEdit* txtSMTPHost;
  QLineEdit* txtSMTPUserName;
  QLineEdit* txtSMTPPassword;
  QComboBox* cboSMTPSecurity;
  QRadioButton* optMSWordCompatible;
  QRadioButton* optPDF;
  QRadioButton* optClean;
  QRadioButton* optClassic;
  QPushButton* cmdCancel;
  QPushButton* cmdCloseAndSave;
};

}  // namespace quillary::setup
