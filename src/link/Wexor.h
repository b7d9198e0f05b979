#pragma once

#include "base/Errors.h"
#include "base/ports/Clock.h"
#include "link/EasyXML.h"
#include "link/FormBody.h"
#include "link/HttpLine.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <exception>
#include <functional>
#include <memory>

namespace quillary::link {

struct WebCall;

/// A call to head office that failed, with the part of the link where it did.
class LinkError : public ProgramError {
 public:
  LinkError(const char* source, const QString& text, int number = 5)
      : ProgramError(number, text), source_(source) {}
  const char* Source() const { return source_; }
  QString FurtherInformation() const override { return QString::fromLatin1(source_); }

 private:
  const char* source_;
};

/// The user has cancelled the call.
class CallCancelled : public LinkError {
 public:
  CallCancelled() : LinkError("Wexor", QStringLiteral("Cancelled.")) {}
};

struct ServerAddress {
  QString protocol;  // "http" or "https"
  QString host;
  int port = 0;
  QString path;  // without the slash before it
};
/// Throws LinkError of the source "HTTP wrapper" for what is no address of a server.
ServerAddress ParseURL(const QString& address);

/// How far a call has come; false gives it up.
using CallProgress = std::function<bool(const HttpLine::Progress& progress)>;

/// A session with the server of head office. Requests go one after the other over one connection:
/// what is asked while another runs waits in a queue. A blocking call lets the windows paint
/// meanwhile, but takes no keys and clicks unless its progress is shown.
class Wexor : public QObject {
  Q_OBJECT

 public:
  /// `authorities` is a file of certificates to trust instead of the system's; mostly empty.
  explicit Wexor(const Clock& clock, const QString& authorities = {});
  /// Logs out, as far as that can be done at once.
  ~Wexor() override;

  /// Logs in and returns the reply. Why it failed stands in LastError(). Throws LinkError when a
  /// session is open already.
  EasyXML Login(const QString& userName, const QString& password, const QString& serverURL,
                const QString& database, const QString& data);
  /// Throws LinkError "Not logged on." without a session.
  void LogOut();
  bool IsLoggedOn() const { return isLoggedOn_; }
  bool IsConnected() const { return line_.IsConnected(); }

  /// Calls a method and waits for its reply. Throws LinkError, and CallCancelled.
  EasyXML ExecuteXML(const QString& method, const QString& service, const Parameters& parameters,
                     const CallProgress& progress = {});
  QByteArray ExecuteBinaryData(const QString& method, const QString& service,
                               const Parameters& parameters);
  /// Queues a call that nobody waits for; its failure stands in LastError().
  EasyXML StartXML(const QString& method, const QString& service, const Parameters& parameters);
  /// Waits until each is ready, or has failed.
  void WaitForXML(const std::vector<EasyXML>& documents);

  const QString& LastError() const { return lastError_; }
  const QString& ServerURL() const { return serverURL_; }
  const QString& SessionKey() const { return sessionKey_; }
  /// Every step is written there, a line each, without secrets; an empty path writes none.
  void SetLogFile(const QString& path) { logFile_ = path; }
  void Log(const QString& text) const;
  /// Sent along with every request from now on, for those who look for a fault on the server.
  EasyXML Trace(const QString& data);
  /// After how much quiet the session is kept alive by a ping.
  void SetKeepAlive(int milliseconds, int lookEvery = 1000);

 signals:
  void statusChanged(const QString& text);
  void requestCompleted();
  void progressed(qint64 received, qint64 total);

 private:
  ServerAddress Address() const;
  std::shared_ptr<WebCall> Request(const QString& method, const QString& service,
                                   const Parameters& parameters, bool block,
                                   const CallProgress& progress = {});
  std::shared_ptr<WebCall> Queue(const QString& method, const QString& service,
                                 const Parameters& parameters, const CallProgress& progress);
  void StartQueueRequest();
  void Advance();
  void CleanUp(WebCall& call, const HttpReply& reply);
  void Wait(WebCall& call);
  void Cancel(WebCall& call);
  void KeepAlive();
  void Fail(WebCall& call, const char* source, const QString& text);

  const Clock& clock_;
  HttpLine line_;
  QTimer reader_;
  QTimer pinger_;
  std::deque<std::shared_ptr<WebCall>> queue_;  // its first one runs
  QString serverURL_;
  QString sessionKey_;
  bool isLoggedOn_ = false;
  bool wasConnected_ = false;
  QString lastError_;
  QString logFile_;
  std::optional<EasyXML> trace_;
  QElapsedTimer lastActivity_;
  qint64 quiet_ = 120'000;
};

}  // namespace quillary::link
