#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "link/OstrelHeadOffice.h"

class QLabel;
class QLineEdit;

namespace quillary::link {

/// Asks who uploads the business, and logs in as that user.
class dlgVerifyFSECode : public Dialog {
  Q_OBJECT

 public:
  dlgVerifyFSECode(Business& business, const ScreenTools& tools, const HeadOfficeAccount& account);
  /// The session that was opened; null when the user gave up.
  std::unique_ptr<Wexor> TakeSession();

 protected:
  bool IsDataChanged() const override { return false; }
  void showEvent(QShowEvent* event) override;

 private:
  enum class Look { Plain, Working, Failed };
  void LogIn();
  void Say(const QString& text, Look look);
  void EnableCommands(bool on);

  Business& business_;
  HeadOfficeAccount account_;
  std::unique_ptr<Wexor> session_;
  QLabel* lblError;
  QLineEdit* txtUserName;
  QLineEdit* txtPassword;
  QPushButton* cmdCancel;
  QPushButton* cmdLogIn;
};

}  // namespace quillary::link
