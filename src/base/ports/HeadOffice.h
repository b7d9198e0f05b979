#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace quillary {

struct MailServer {
  QString server;
  QString userName;
  QString password;
  QString port;
  bool useAuthentication = false;
};

/// The group's server, as far as the whole program needs it. Every call returns at once with an
/// empty answer while no session stands.
class HeadOffice {
 public:
  virtual ~HeadOffice() = default;
  /// Whether this machine has a connection to the internet at all.
  virtual bool IsConnected() const = 0;
  /// Opens a session; false when the server does not let us in.
  virtual bool LogIn() = 0;
  /// Empty while no session stands.
  virtual QString SessionKey() const = 0;
  virtual QString FSECode() const = 0;
  /// Under which code head office knows the business that is open.
  virtual void SetFSECode(const QString& /*code*/) {}
  virtual MailServer GetSMTPDetails() = 0;
  virtual void LogQuillaryActivity(const QString& activity) = 0;
  /// Where the traffic is logged; an empty path stops the log.
  virtual void SetLogFile(const QString& path) = 0;
  /// Calls a method of the service that sends mails, with names and values in their order. What the
  /// reply says; nothing when no reply came.
  virtual std::optional<QString> CallMessages(
      const QString& /*method*/, const std::vector<std::pair<QString, QString>>& /*parameters*/) {
    return std::nullopt;
  }
  /// Writes a line to that log.
  virtual void Trace(const QString& /*text*/) {}

  bool Online() const { return !SessionKey().trimmed().isEmpty(); }
};

/// No head office: the answer of a machine without a connection.
class NoHeadOffice : public HeadOffice {
 public:
  bool IsConnected() const override { return false; }
  bool LogIn() override { return false; }
  QString SessionKey() const override { return {}; }
  QString FSECode() const override { return QStringLiteral("[Not Set]"); }
  MailServer GetSMTPDetails() override { return {}; }
  void LogQuillaryActivity(const QString&) override {}
  void SetLogFile(const QString&) override {}
};

}  // namespace quillary
