// A run of the outbox with attachments, marks and all, to a mail server on this machine, beside a
// bare loop of the library that sends the very same bytes over one connection.

#include "BenchPorts.h"
#include "Timing.h"
#include "data/Business.h"
#include "data/schema/Schema.h"
#include "mail/Mime.h"
#include "mail/OutboxRun.h"
#include "mail/SmtpCourier.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <curl/curl.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace quillary::bench {
namespace {

constexpr int kMails = 300;
constexpr int kRounds = 3;
constexpr int kAttachment = 40'000;
constexpr double kMostTimesBare = 2;

class Server {
 public:
  Server() {
    process_.start("/usr/bin/python3", {QUILLARY_MAILSERVER, "serve", folder_.path()});
    if (!process_.waitForReadyRead(30'000)) throw std::runtime_error("no mail server");
    port_ = process_.readLine().trimmed().toInt();
  }
  ~Server() {
    process_.closeWriteChannel();
    process_.waitForFinished();
  }
  int Port() const { return port_; }

 private:
  QTemporaryDir folder_;
  QProcess process_;
  int port_ = 0;
};

struct Bytes {
  const QByteArray& bytes;
  qsizetype done = 0;
};

size_t Read(char* into, size_t size, size_t count, void* data) {
  auto& mail = *static_cast<Bytes*>(data);
  const auto next = std::min(static_cast<qsizetype>(size * count), mail.bytes.size() - mail.done);
  std::memcpy(into, mail.bytes.constData() + mail.done, static_cast<size_t>(next));
  mail.done += next;
  return static_cast<size_t>(next);
}

void SendBare(int port, const std::vector<QByteArray>& mails) {
  CURL* curl = curl_easy_init();
  curl_slist* to = curl_slist_append(nullptr, "<ann@example.org>");
  curl_easy_setopt(curl, CURLOPT_URL,
                   QStringLiteral("smtp://127.0.0.1:%1").arg(port).toLatin1().constData());
  curl_easy_setopt(curl, CURLOPT_MAIL_FROM, "<owner@example.org>");
  curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, to);
  curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
  curl_easy_setopt(curl, CURLOPT_READFUNCTION, &Read);
  for (const QByteArray& mail : mails) {
    Bytes bytes{mail};
    curl_easy_setopt(curl, CURLOPT_READDATA, &bytes);
    if (curl_easy_perform(curl) != CURLE_OK) throw std::runtime_error("the bare loop failed");
  }
  curl_slist_free_all(to);
  curl_easy_cleanup(curl);
}

int Run() {
  const QTemporaryDir folder;
  BenchPorts ports(QDate(2026, 11, 2));
  const QString file = folder.filePath("DATA.MDB");
  CreateEmptyBusiness(file);
  Business business(ports.Ports(), file);
  business.ConnectToDatabase();
  QFile attachment(folder.filePath("Invoice.pdf"));
  if (!attachment.open(QIODevice::WriteOnly)) return 1;
  attachment.write(QByteArray(kAttachment, 'x'));
  attachment.close();
  const Server server;
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < kRounds; ++round) {
    mail::Outbox outbox(business);
    mail::NewMail mail;
    mail.route = mail::Route::Smtp;
    mail.to = "ann@example.org";
    mail.subject = "Invoice";
    mail.text = "Dear client";
    mail.document = attachment.fileName();
    outbox.Put(std::vector<mail::NewMail>(kMails, mail));
    std::vector<QByteArray> same;
    for (const mail::StoredMail& one : outbox.In(mail::State::Waiting))
      same.push_back(mail::MimeOf(mail::MessageOf(business, one)));
    mail::SmtpCourier courier(
        {.host = "127.0.0.1", .port = server.Port(), .security = mail::LineSecurity::None});
    ours.push_back(Seconds([&] {
      if (mail::SendWaiting(business, outbox, courier).sent != kMails)
        throw std::runtime_error("not all was sent");
    }));
    bare.push_back(Seconds([&] { SendBare(server.Port(), same); }));
  }
  const double ratio = Median(ours) / Median(bare);
  std::printf("Mails: %d with %d kB each, medians of %d\n", kMails, kAttachment / 1000, kRounds);
  std::printf("  outbox    %6.0f ms\n  bare loop %6.0f ms\n", Median(ours) * 1000,
              Median(bare) * 1000);
  std::printf("  ratio %.2f, to reach: at most %.0f: %s\n", ratio, kMostTimesBare,
              ratio <= kMostTimesBare ? "reached" : "missed");
  return ratio <= kMostTimesBare ? 0 : 1;
}

}  // namespace
}  // namespace quillary::bench

int main(int count, char** words) {
  const QCoreApplication application(count, words);
  try {
    return quillary::bench::Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
