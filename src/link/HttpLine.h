#pragma once

#include "link/FormBody.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace quillary::link {

struct HttpState;

/// What became of one request. `failure` is empty when a whole reply came.
struct HttpReply {
  QString failure;
  int code = 0;           // libcurl's, of the failure
  bool reachedIt = true;  // whether there was a connection at all
  QByteArray statusLine;  // "HTTP/1.1 200 OK"
  QByteArray body;        // unpacked
};

/// One kept connection to a server, over which requests go one after the other. The certificates of
/// the server are held against those that the system trusts. A connection that the server has
/// closed meanwhile is opened again and the request sent once more.
class HttpLine {
 public:
  /// `authorities` is a file of certificates to trust instead of the system's; mostly empty.
  explicit HttpLine(const QString& authorities);
  ~HttpLine();
  HttpLine(const HttpLine&) = delete;
  HttpLine& operator=(const HttpLine&) = delete;

  void Start(const QString& url, const Parameters& parameters, const QString& sessionKey,
             bool readsAtLeisure);
  /// Lets the request go on for a few milliseconds; the reply when it has ended.
  std::optional<HttpReply> Step();
  /// Gives the running request up.
  void Abort();
  void Disconnect();
  bool IsConnected() const;

  struct Progress {
    qint64 sent = 0;
    qint64 toSend = 0;
    qint64 received = 0;
    qint64 toReceive = -1;  // unknown
  };
  Progress HowFar() const;
  /// Hears when a request is sent a second time.
  std::function<void()> onRetry;

 private:
  std::unique_ptr<HttpState> state_;
};

}  // namespace quillary::link
