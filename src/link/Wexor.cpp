#include "link/Wexor.h"

#include "base/OwnFiles.h"
#include "base/Text.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>

namespace quillary::link {

struct WebCall {
  QString url;
  Parameters parameters;
  EasyXML result;
  QByteArray raw;
  bool done = false;
  CallProgress progress;
  QDeadlineTimer until = QDeadlineTimer(QDeadlineTimer::Forever);
  std::exception_ptr failure;
};

namespace {

constexpr int kShownOfKey = 10;
constexpr int kReadEvery = 10;          // milliseconds, while nobody waits
constexpr int kLongestFarewell = 3000;  // milliseconds that leaving may take
constexpr int kLargestPort = 65535;
constexpr int kHttpPort = 80;
constexpr int kHttpsPort = 443;

}  // namespace

ServerAddress ParseURL(const QString& address) {
  ServerAddress parsed;
  const QString upper = address.toUpper();
  if (upper.startsWith(u"HTTPS:")) {
    parsed = {QStringLiteral("https"), {}, kHttpsPort, {}};
  } else if (upper.startsWith(u"HTTP:")) {
    parsed = {QStringLiteral("http"), {}, kHttpPort, {}};
  } else {
    throw LinkError("HTTP wrapper", QStringLiteral("Unknown protocol. Please use HTTP or HTTPS."));
  }
  const qsizetype slashes = address.indexOf(u"//");
  const QString rest = slashes < 0 ? QString() : address.mid(slashes + 2);
  const qsizetype slash = rest.indexOf(u'/');
  const QString place = slash < 0 ? rest : rest.left(slash);
  parsed.path = slash < 0 ? QString() : rest.mid(slash + 1);
  const qsizetype colon = place.indexOf(u':');
  parsed.host = colon < 0 ? place : place.left(colon);
  if (colon < 0) return parsed;
  bool isNumber = false;
  parsed.port = place.mid(colon + 1).toInt(&isNumber);
  if (!isNumber || parsed.port < 1 || parsed.port > kLargestPort)
    throw LinkError("HTTP wrapper",
                    QStringLiteral("Invalid port. Please specify between 1 and 65535, or leave "
                                   "blank to use the default."));
  return parsed;
}

Wexor::Wexor(const Clock& clock, const QString& authorities) : clock_(clock), line_(authorities) {
  line_.onRetry = [this] { Log(QStringLiteral("SendRequest() Write failed - retrying")); };
  connect(&reader_, &QTimer::timeout, this, &Wexor::Advance);
  connect(&pinger_, &QTimer::timeout, this, &Wexor::KeepAlive);
  reader_.setInterval(kReadEvery);
  SetKeepAlive(static_cast<int>(quiet_));
}

Wexor::~Wexor() {
  blockSignals(true);
  try {
    if (isLoggedOn_) LogOut();
  } catch (const std::exception&) {
    // The server ends a session that nobody keeps alive.
  }
}

void Wexor::SetKeepAlive(int milliseconds, int lookEvery) {
  quiet_ = milliseconds;
  pinger_.setInterval(lookEvery);
}

void Wexor::Log(const QString& text) const {
  if (logFile_.isEmpty()) return;
  if (!QFile::exists(logFile_)) MakeOwnFile(logFile_);
  QFile file(logFile_);
  if (!file.open(QIODevice::Append)) return;
  const DateTime now = clock_.Now();
  const QString moment = now.date.toString(QStringLiteral("yyyy.MM.dd ")) +
                         now.time.toString(QStringLiteral("HH:mm:ss.zzz")).chopped(1);
  // One line each, whatever the server or a field says.
  QString line = text;
  line.replace(u'\r', u' ').replace(u'\n', u' ');
  file.write(QStringLiteral("%1 %2 %3 %4\n")
                 .arg(moment,
                      IsConnected() ? QStringLiteral("connected") : QStringLiteral("closed"),
                      queue_.empty() ? QStringLiteral("idle") : QStringLiteral("busy"), line)
                 .toUtf8());
}

EasyXML Wexor::Trace(const QString& data) {
  EasyXML document;
  document.NewRow(QStringLiteral("Row")).AddField(QStringLiteral("Data"), data);
  trace_ = document;
  return document;
}

EasyXML Wexor::Login(const QString& userName, const QString& password, const QString& serverURL,
                     const QString& database, const QString& data) {
  Log(QStringLiteral("LogIn() Enter - User_Name=%1, pwd-len=%2, ServerURL=%3, Database=%4")
          .arg(userName, QString::number(password.size()), serverURL, database));
  if (isLoggedOn_ || !queue_.empty())
    throw LinkError("Wexor", QStringLiteral("Session already open or busy."));
  serverURL_ = serverURL.endsWith(u'/') ? serverURL : serverURL + u'/';
  lastError_.clear();
  EasyXML reply;
  try {
    ParseURL(serverURL_);
    emit statusChanged(QStringLiteral("Connecting"));
    reply = ExecuteXML(QStringLiteral("Log_In"), QStringLiteral("Sessions"),
                       {{QStringLiteral("Database_Name"), database},
                        {QStringLiteral("User_Name"), userName},
                        {QStringLiteral("Password"), password},
                        {QStringLiteral("Data"), data}});
  } catch (const LinkError& error) {
    lastError_ = QString::fromUtf8(error.what());
    Log(QStringLiteral("LogIn() Failed - not connected"));
    return reply;
  }
  if (reply.Field(QStringLiteral("Authenticated"))
          .trimmed()
          .compare(u"true", Qt::CaseInsensitive) == 0) {
    sessionKey_ = reply.Field(QStringLiteral("Session_Key"));
    isLoggedOn_ = true;
    pinger_.start();
    Log(QStringLiteral("LogIn() Success - Session_Key starts with %1...")
            .arg(sessionKey_.left(kShownOfKey)));
    return reply;
  }
  lastError_ = reply.IsReady() ? reply.Field(QStringLiteral("Error"))
                               : QStringLiteral(
                                     "The answer of the server could not be read. Please check the "
                                     "server address.");
  Log(QStringLiteral("LogIn() Failed - ") + lastError_);
  return reply;
}

void Wexor::LogOut() {
  if (!isLoggedOn_) throw LinkError("Wexor", QStringLiteral("Not logged on."));
  Log(QStringLiteral("LogOut() Enter"));
  isLoggedOn_ = false;
  pinger_.stop();
  try {
    // What waits in the queue, such as the last activities, still goes out before.
    const auto call =
        Queue(QStringLiteral("Log_Out"), QStringLiteral("Sessions"), {}, /*progress=*/{});
    call->until = QDeadlineTimer(kLongestFarewell);
    Wait(*call);
  } catch (const LinkError& error) {
    lastError_ = QString::fromUtf8(error.what());
  }
  sessionKey_.clear();
  emit statusChanged(QStringLiteral("Disconnecting"));
  line_.Disconnect();
  wasConnected_ = false;
  emit statusChanged(QStringLiteral("Disconnected"));
}

EasyXML Wexor::ExecuteXML(const QString& method, const QString& service,
                          const Parameters& parameters, const CallProgress& progress) {
  return Request(method, service, parameters, true, progress)->result;
}

QByteArray Wexor::ExecuteBinaryData(const QString& method, const QString& service,
                                    const Parameters& parameters) {
  return Request(method, service, parameters, true)->raw;
}

EasyXML Wexor::StartXML(const QString& method, const QString& service,
                        const Parameters& parameters) {
  return Request(method, service, parameters, false)->result;
}

void Wexor::WaitForXML(const std::vector<EasyXML>& documents) {
  const auto isReady = [](const EasyXML& document) { return document.IsReady(); };
  while (!queue_.empty() && !std::all_of(documents.begin(), documents.end(), isReady)) {
    Advance();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
}

std::shared_ptr<WebCall> Wexor::Request(const QString& method, const QString& service,
                                        const Parameters& parameters, bool block,
                                        const CallProgress& progress) {
  const auto call = Queue(method, service, parameters, progress);
  if (block) Wait(*call);
  return call;
}

std::shared_ptr<WebCall> Wexor::Queue(const QString& method, const QString& service,
                                      const Parameters& parameters, const CallProgress& progress) {
  auto call = std::make_shared<WebCall>();
  call->url = serverURL_ + service + QStringLiteral(".asmx/") + method;
  // A request without parameters has one empty pair.
  call->parameters = parameters.empty() ? Parameters{{{}, QString()}} : parameters;
  call->progress = progress;
  Log(QStringLiteral("Request() Enter - URL=%1, %2").arg(call->url, ForTrace(parameters)));
  if (trace_) call->parameters.push_back({QStringLiteral("_TRACE"), trace_->ToString()});
  queue_.push_back(call);
  if (queue_.size() > 1)
    Log(QStringLiteral("Request() IsBusy - Queuing ") + call->url);
  else
    StartQueueRequest();
  return call;
}

void Wexor::StartQueueRequest() {
  while (!queue_.empty()) {
    const auto call = queue_.front();
    emit statusChanged(QStringLiteral("Requesting"));
    try {
      line_.Start(call->url, call->parameters, sessionKey_, static_cast<bool>(call->progress));
      lastActivity_.start();
      emit statusChanged(QStringLiteral("Downloading"));
      reader_.start();
      return;
    } catch (const std::exception& error) {
      queue_.pop_front();
      Fail(*call, "Wexor", QString::fromUtf8(error.what()));
      call->failure = std::current_exception();  // as it is: the caller may know it
    }
  }
  reader_.stop();
}

void Wexor::Advance() {
  const auto reply = line_.Step();
  if (queue_.empty()) return;
  const HttpLine::Progress progress = line_.HowFar();
  if (!reply) {
    if (progress.received > 0) emit progressed(progress.received, progress.toReceive);
    return;
  }
  const auto call = queue_.front();
  queue_.pop_front();
  CleanUp(*call, *reply);
  StartQueueRequest();
}

void Wexor::CleanUp(WebCall& call, const HttpReply& reply) {
  if (!reply.failure.isEmpty() && !reply.reachedIt) {
    emit statusChanged(QStringLiteral("Connection failed"));
    Fail(call, "Wexor", QStringLiteral("Connection failed - ") + reply.failure);
    return;
  }
  if (reply.failure.contains(u"chunk", Qt::CaseInsensitive)) {
    Fail(call, "EasyHTTP", QStringLiteral("ChunkLength of no number encountered"));
    return;
  }
  if (!reply.failure.isEmpty()) {
    Log(QStringLiteral("SendRequest() Write failed - raising error"));
    Fail(call, "Wexor", reply.failure);
    return;
  }
  if (!wasConnected_) {
    wasConnected_ = true;
    Log(QStringLiteral("Connect() Success"));
  }
  if (reply.statusLine != "HTTP/1.1 200 OK") {
    Log(QStringLiteral("CleanUp() Raising Error "));
    Fail(call, "EasyHTTP",
         QString::fromUtf8(reply.statusLine) + u'\n' + QString::fromUtf8(reply.body));
    return;
  }
  call.raw = reply.body;
  call.result.LoadXml(reply.body);
  call.done = true;
  emit statusChanged(QStringLiteral("Connected"));
  emit requestCompleted();
}

void Wexor::Fail(WebCall& call, const char* source, const QString& text) {
  Log(QStringLiteral("Failed - ") + text.left(200));
  lastError_ = text;
  wasConnected_ = line_.IsConnected();
  call.failure = std::make_exception_ptr(LinkError(source, text));
  call.done = true;
}

void Wexor::Wait(WebCall& call) {
  while (!call.done) {
    Advance();
    if (call.done) break;
    // Clicks arrive only where the progress shows, since there Cancel is all that can be clicked.
    QCoreApplication::processEvents(call.progress ? QEventLoop::AllEvents
                                                  : QEventLoop::ExcludeUserInputEvents);
    if (call.done) break;
    if (call.until.hasExpired() || (call.progress && !call.progress(line_.HowFar()))) Cancel(call);
  }
  if (call.failure) std::rethrow_exception(call.failure);
}

void Wexor::Cancel(WebCall& call) {
  const bool runs = queue_.front().get() == &call;
  if (runs) line_.Abort();
  std::erase_if(queue_, [&](const auto& queued) { return queued.get() == &call; });
  Log(QStringLiteral("Cancelled"));
  call.failure = std::make_exception_ptr(CallCancelled());
  call.done = true;
  if (runs) StartQueueRequest();
}

void Wexor::KeepAlive() {
  if (!isLoggedOn_ || !queue_.empty() || lastActivity_.elapsed() < quiet_) return;
  StartXML(QStringLiteral("Ping"), QStringLiteral("Sessions"), {});
}

}  // namespace quillary::link
