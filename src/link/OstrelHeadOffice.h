#pragma once

#include "base/ports/Clock.h"
#include "base/ports/HeadOffice.h"
#include "base/ports/Prompter.h"
#include "link/Wexor.h"

#include <memory>

namespace quillary::link {

/// The names by which the server knows the databases that are meant.
inline QString ServerDatabase() {
  return QStringLiteral("Kelvane Live");
}
inline QString ServerData() {
  return QStringLiteral("Ostrel4 Live");
}

/// Where head office is and as whom this installation talks to it.
struct HeadOfficeAccount {
  QString url;
  QString userName;
  QString password;
  QString authorities;  // a file of certificates to trust instead of the system's; mostly empty

  /// False for the address of an installation in which nobody has entered one.
  bool IsKnown() const;
};
/// As qy.ini in that folder says. Nothing, after telling the user, when it holds placeholders.
std::optional<HeadOfficeAccount> ReadHeadOfficeAccount(const QString& programFolder,
                                                       Prompter& prompter);

/// Head office over the net, in one session for the whole program.
class OstrelHeadOffice : public HeadOffice {
 public:
  OstrelHeadOffice(const Clock& clock, Prompter& prompter, const QString& programFolder)
      : clock_(clock), prompter_(prompter), programFolder_(programFolder) {}
  /// Talks to this account instead of that of qy.ini.
  void Use(const HeadOfficeAccount& account) { account_ = account; }

  bool IsConnected() const override;
  /// One that stands already is kept.
  bool LogIn() override;
  QString SessionKey() const override;
  QString FSECode() const override;
  void SetFSECode(const QString& code) override { fseCode_ = code; }
  MailServer GetSMTPDetails() override;
  void LogQuillaryActivity(const QString& activity) override;
  void SetLogFile(const QString& path) override;
  std::optional<QString> CallMessages(
      const QString& method, const std::vector<std::pair<QString, QString>>& parameters) override;
  void Trace(const QString& text) override;

  /// Why the last login or call failed.
  QString LastError() const { return session_ ? session_->LastError() : QString(); }
  /// The session; null before the first login.
  Wexor* Session() { return session_.get(); }

 private:
  /// Nothing without a session, or when the call failed; the session is then taken for ended.
  std::optional<EasyXML> CallWebService(const QString& service, const QString& method,
                                        const Parameters& parameters);
  std::optional<HeadOfficeAccount> Account() const;

  const Clock& clock_;
  Prompter& prompter_;
  QString programFolder_;
  std::optional<HeadOfficeAccount> account_;
  std::unique_ptr<Wexor> session_;
  bool webServicesConnected_ = false;
  QString fseCode_;
  QString logFile_;
};

}  // namespace quillary::link
