#include "link/HttpLine.h"

#include <curl/curl.h>

#include <mutex>

namespace quillary::link {
namespace {

constexpr long kConnectSeconds = 15;
constexpr long kSilentSeconds = 60;  // a line on which nothing moves for so long is dead
constexpr qsizetype kLargestReply = 256 * 1024 * 1024;
constexpr int kStepMilliseconds = 5;

void InitializeCurl() {
  static std::once_flag once;
  std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

bool NeverConnected(CURLcode code) {
  return code == CURLE_COULDNT_CONNECT || code == CURLE_COULDNT_RESOLVE_HOST ||
         code == CURLE_SSL_CONNECT_ERROR || code == CURLE_PEER_FAILED_VERIFICATION ||
         code == CURLE_SSL_CACERT_BADFILE;
}

}  // namespace

struct HttpState {
  CURL* easy = nullptr;
  CURLM* multi = nullptr;
  curl_slist* headers = nullptr;
  QByteArray authorities;
  std::unique_ptr<FormBody> form;
  HttpReply reply;
  char error[CURL_ERROR_SIZE] = {};
  bool running = false;
  bool connected = false;
  HttpLine* line = nullptr;

  static size_t Give(char* into, size_t size, size_t count, void* user) {
    auto* self = static_cast<HttpState*>(user);
    try {
      const qint64 given = self->form->Read(into, static_cast<qint64>(size * count));
      return given < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(given);
    } catch (const std::exception&) {
      return CURL_READFUNC_ABORT;
    }
  }
  static int Seek(void* user, curl_off_t offset, int) {
    auto* self = static_cast<HttpState*>(user);
    if (offset != 0 || !self->form->Rewind()) return CURL_SEEKFUNC_CANTSEEK;
    if (self->line->onRetry) self->line->onRetry();
    return CURL_SEEKFUNC_OK;
  }
  static size_t Take(char* data, size_t size, size_t count, void* user) {
    auto* self = static_cast<HttpState*>(user);
    const auto bytes = static_cast<qsizetype>(size * count);
    if (self->reply.body.size() + bytes > kLargestReply) return 0;
    self->reply.body.append(data, bytes);
    return size * count;
  }
  static size_t TakeHeader(char* data, size_t size, size_t count, void* user) {
    auto* self = static_cast<HttpState*>(user);
    const QByteArray header(data, static_cast<qsizetype>(size * count));
    // The last one counts: a block of status 100 may stand before it.
    if (header.startsWith("HTTP/")) self->reply.statusLine = header.trimmed();
    return size * count;
  }
};

HttpLine::HttpLine(const QString& authorities) : state_(std::make_unique<HttpState>()) {
  InitializeCurl();
  state_->authorities = authorities.toLocal8Bit();
  state_->line = this;
  state_->multi = curl_multi_init();
  state_->easy = curl_easy_init();
  if (!state_->multi || !state_->easy) throw std::bad_alloc();
}

HttpLine::~HttpLine() {
  Abort();
  curl_easy_cleanup(state_->easy);
  curl_multi_cleanup(state_->multi);
  curl_slist_free_all(state_->headers);
}

void HttpLine::Start(const QString& url, const Parameters& parameters, const QString& sessionKey,
                     bool readsAtLeisure) {
  HttpState& state = *state_;
  state.form = std::make_unique<FormBody>(parameters);
  state.reply = {};
  state.error[0] = '\0';
  CURL* easy = state.easy;
  curl_easy_reset(easy);
  curl_slist_free_all(state.headers);
  state.headers = nullptr;
  // A line end in the key, which came from outside, must not become a header of its own.
  QByteArray key = sessionKey.toUtf8();
  key.replace('\r', "").replace('\n', "");
  for (const QByteArray& header :
       {QByteArray("Content-Type: application/x-www-form-urlencoded"),
        key.isEmpty() ? QByteArray("Session_Key;") : "Session_Key: " + key, QByteArray("Accept:"),
        QByteArray("Expect:")})
    state.headers = curl_slist_append(state.headers, header.constData());
  curl_easy_setopt(easy, CURLOPT_URL, url.toUtf8().constData());
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1);
  curl_easy_setopt(easy, CURLOPT_POST, 1L);
  curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(state.form->Size()));
  curl_easy_setopt(easy, CURLOPT_HTTPHEADER, state.headers);
  curl_easy_setopt(easy, CURLOPT_USERAGENT, "Quillary");
  curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "deflate");
  curl_easy_setopt(easy, CURLOPT_READFUNCTION, &HttpState::Give);
  curl_easy_setopt(easy, CURLOPT_READDATA, &state);
  curl_easy_setopt(easy, CURLOPT_SEEKFUNCTION, &HttpState::Seek);
  curl_easy_setopt(easy, CURLOPT_SEEKDATA, &state);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &HttpState::Take);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, &state);
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &HttpState::TakeHeader);
  curl_easy_setopt(easy, CURLOPT_HEADERDATA, &state);
  curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, state.error);
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
  curl_easy_setopt(easy, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(easy, CURLOPT_LOW_SPEED_TIME, kSilentSeconds * (readsAtLeisure ? 10 : 1));
  curl_easy_setopt(easy, CURLOPT_UPLOAD_BUFFERSIZE, 256L * 1024);
  if (!state.authorities.isEmpty())
    curl_easy_setopt(easy, CURLOPT_CAINFO, state.authorities.constData());
  curl_multi_add_handle(state.multi, easy);
  state.running = true;
}

std::optional<HttpReply> HttpLine::Step() {
  HttpState& state = *state_;
  if (!state.running) return std::nullopt;
  int active = 0;
  curl_multi_perform(state.multi, &active);
  if (active > 0) {
    curl_multi_poll(state.multi, nullptr, 0, kStepMilliseconds, nullptr);
    return std::nullopt;
  }
  CURLcode code = CURLE_OK;
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(state.multi, &left))
    if (message->msg == CURLMSG_DONE) code = message->data.result;
  curl_multi_remove_handle(state.multi, state.easy);
  state.running = false;
  state.connected = code == CURLE_OK;
  HttpReply reply = std::move(state.reply);
  reply.code = static_cast<int>(code);
  reply.reachedIt = !NeverConnected(code);
  if (code != CURLE_OK)
    reply.failure = QString::fromUtf8(state.error[0] ? state.error : curl_easy_strerror(code));
  state.form.reset();
  return reply;
}

void HttpLine::Abort() {
  if (!state_->running) return;
  curl_multi_remove_handle(state_->multi, state_->easy);
  state_->running = false;
  state_->connected = false;
}

void HttpLine::Disconnect() {
  Abort();
  // The kept connection belongs to the multi handle and goes with it.
  curl_multi_cleanup(state_->multi);
  state_->multi = curl_multi_init();
  state_->connected = false;
}

bool HttpLine::IsConnected() const {
  return state_->connected;
}

HttpLine::Progress HttpLine::HowFar() const {
  Progress progress;
  if (!state_->running) return progress;
  curl_off_t sent = 0;
  curl_off_t received = 0;
  curl_off_t expected = -1;
  curl_easy_getinfo(state_->easy, CURLINFO_SIZE_UPLOAD_T, &sent);
  curl_easy_getinfo(state_->easy, CURLINFO_SIZE_DOWNLOAD_T, &received);
  curl_easy_getinfo(state_->easy, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &expected);
  progress.sent = sent;
  progress.toSend = state_->form->Size();
  progress.received = received;
  progress.toReceive = expected;
  return progress;
}

}  // namespace quillary::link
