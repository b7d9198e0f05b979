#include "mail/SmtpCourier.h"

#include "mail/Mime.h"

#include <QStringList>

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace quillary::mail {
namespace {

constexpr long kConnectSeconds = 30;
constexpr long kSilentSeconds = 60;
constexpr long kFirstRefusal = 400;
constexpr long kFirstFinalRefusal = 500;

struct FreeList {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

/// The mail on its way to the server.
struct Handover {
  const QByteArray& bytes;
  qsizetype done = 0;
  bool IsComplete() const { return done == bytes.size(); }
};

size_t HandOver(char* into, size_t size, size_t count, void* data) {
  auto& mail = *static_cast<Handover*>(data);
  const auto next = std::min(static_cast<qsizetype>(size * count), mail.bytes.size() - mail.done);
  std::memcpy(into, mail.bytes.constData() + mail.done, static_cast<size_t>(next));
  mail.done += next;
  return static_cast<size_t>(next);
}

int AskWhetherToGoOn(void* data, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  const auto& keepGoing = *static_cast<const std::function<bool()>*>(data);
  return keepGoing && !keepGoing() ? 1 : 0;
}

bool NobodyThere(CURLcode code) {
  return code == CURLE_COULDNT_CONNECT || code == CURLE_COULDNT_RESOLVE_HOST ||
         code == CURLE_LOGIN_DENIED || code == CURLE_USE_SSL_FAILED ||
         code == CURLE_SSL_CONNECT_ERROR || code == CURLE_PEER_FAILED_VERIFICATION ||
         code == CURLE_SSL_CACERT_BADFILE;
}

}  // namespace

/// One connection, with the library's handle to it.
class SmtpConversation {
 public:
  SmtpConversation(const SmtpServer& server, std::function<bool()> keepGoing)
      : keepGoing_(std::move(keepGoing)) {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    handle_ = started == CURLE_OK ? curl_easy_init() : nullptr;
    if (!handle_) throw std::runtime_error("The library that sends mail could not be started.");
    const bool tls = server.security == LineSecurity::Tls;
    const QByteArray url = QStringLiteral("%1://%2:%3")
                               .arg(tls ? QStringLiteral("smtps") : QStringLiteral("smtp"),
                                    server.host, QString::number(server.UsedPort()))
                               .toLatin1();
    Set(CURLOPT_URL, url.constData());
    Set(CURLOPT_PROTOCOLS_STR, "smtp,smtps");
    Set(CURLOPT_PROXY, "");
    Set(CURLOPT_USE_SSL, static_cast<long>(server.security == LineSecurity::None ? CURLUSESSL_NONE
                                                                                 : CURLUSESSL_ALL));
    Set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!server.authorities.isEmpty())
      Set(CURLOPT_CAINFO, server.authorities.toLocal8Bit().constData());
    if (!server.userName.isEmpty()) {
      Set(CURLOPT_USERNAME, server.userName.toUtf8().constData());
      Set(CURLOPT_PASSWORD, server.password.toUtf8().constData());
    }
    Set(CURLOPT_UPLOAD, 1L);
    Set(CURLOPT_NOSIGNAL, 1L);
    Set(CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    Set(CURLOPT_LOW_SPEED_LIMIT, 1L);
    Set(CURLOPT_LOW_SPEED_TIME, kSilentSeconds);
    Set(CURLOPT_SERVER_RESPONSE_TIMEOUT, kSilentSeconds);
    Set(CURLOPT_READFUNCTION, &HandOver);
    Set(CURLOPT_ERRORBUFFER, words_.data());
    Set(CURLOPT_XFERINFOFUNCTION, &AskWhetherToGoOn);
    Set(CURLOPT_XFERINFODATA, &keepGoing_);
    Set(CURLOPT_NOPROGRESS, 0L);
  }
  ~SmtpConversation() { curl_easy_cleanup(handle_); }
  SmtpConversation(const SmtpConversation&) = delete;
  SmtpConversation& operator=(const SmtpConversation&) = delete;

  Delivery Send(const Message& message, const QByteArray& bytes) {
    std::unique_ptr<curl_slist, FreeList> receivers;
    for (const QString& address : QStringList{message.to} + AddressesIn(message.copyTo)) {
      curl_slist* longer = curl_slist_append(receivers.get(), InBrackets(address).constData());
      static_cast<void>(receivers.release());
      receivers.reset(longer);
    }
    Handover mail{bytes};
    words_[0] = '\0';
    Set(CURLOPT_MAIL_FROM, InBrackets(message.from).constData());
    Set(CURLOPT_MAIL_RCPT, receivers.get());
    Set(CURLOPT_READDATA, &mail);
    Set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(bytes.size()));
    const CURLcode code = curl_easy_perform(handle_);
    long answer = 0;
    curl_easy_getinfo(handle_, CURLINFO_RESPONSE_CODE, &answer);
    return Judge(code, answer, mail);
  }

 private:
  template <typename Option>
  void Set(CURLoption name, Option value) {
    if (curl_easy_setopt(handle_, name, value) != CURLE_OK)
      throw std::runtime_error("The library that sends mail does not know an option.");
  }
  static QByteArray InBrackets(const QString& address) { return '<' + address.toLatin1() + '>'; }

  Delivery Judge(CURLcode code, long answer, const Handover& mail) const {
    if (code == CURLE_OK) return {Outcome::Sent};
    const QString why = Reason(code, answer);
    if (NobodyThere(code)) return {Outcome::Unreachable, why};
    // The server takes a mail over with its answer to the last line. When that line has left and no
    // answer came, nobody here can know.
    if (mail.IsComplete() && answer < kFirstRefusal) return {Outcome::InDoubt, why};
    return {answer >= kFirstFinalRefusal ? Outcome::Refused : Outcome::TryLater, why};
  }

  QString Reason(CURLcode code, long answer) const {
    QString words = QString::fromUtf8(words_.data()).simplified();
    if (words.isEmpty()) words = QString::fromUtf8(curl_easy_strerror(code));
    if (answer >= kFirstRefusal && !words.contains(QString::number(answer)))
      words += QStringLiteral(" (the server's answer was %1)").arg(answer);
    return words;
  }

  CURL* handle_;
  std::function<bool()> keepGoing_;
  std::array<char, CURL_ERROR_SIZE> words_{};
};

SmtpCourier::SmtpCourier(SmtpServer server, std::function<bool()> keepGoing)
    : server_(std::move(server)),
      conversation_(std::make_unique<SmtpConversation>(server_, std::move(keepGoing))) {}

SmtpCourier::~SmtpCourier() = default;

Delivery SmtpCourier::Send(const Message& message) {
  if (const auto refusal = CheckSmtpServer(server_))
    return {Outcome::Unreachable, refusal->message};
  for (const QString& address : QStringList{message.from, message.to} + AddressesIn(message.copyTo))
    if (const auto fault = FaultOfAddress(address)) return {Outcome::Refused, *fault};
  return conversation_->Send(message, MimeOf(message));
}

}  // namespace quillary::mail
