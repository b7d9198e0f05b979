#pragma once

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace quillary {

/// A head office of its own on the loopback address, and what it was asked.
class HeadOfficeProcess {
 public:
  static constexpr char kUser[] = "quillary";
  static constexpr char kPassword[] = "m4t7wz";

  void Start(bool withTls = false) {
    QStringList arguments{QUILLARY_HEADOFFICE, "--folder", folder_.path()};
    if (withTls) {
      MakeCertificate();
      arguments += {"--certificate", Certificate(), "--key", folder_.filePath("key.pem")};
    }
    isSecured_ = withTls;
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_->start("/usr/bin/python3", arguments);
    ASSERT_TRUE(process_->waitForReadyRead(30'000));
    port_ = process_->readLine().trimmed().toInt();
    ASSERT_GT(port_, 0);
  }
  ~HeadOfficeProcess() { Stop(); }
  void Stop() {
    if (!process_) return;
    process_->closeWriteChannel();
    process_->waitForFinished(10'000);
    process_.reset();
  }

  QString Url() const {
    return QStringLiteral("%1://localhost:%2/").arg(isSecured_ ? "https" : "http").arg(port_);
  }
  QString Certificate() const { return folder_.filePath("cert.pem"); }
  QString Path(const QString& name) const { return folder_.filePath(name); }

  /// How the next replies are to differ from plain ones.
  void SetMoods(const QStringList& moods) const {
    QFile file(Path("moods"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(moods.join('\n').toUtf8());
  }
  /// What it was asked, in order: {"method", "form", "headers"}.
  std::vector<QJsonObject> Requests() const {
    QFile file(Path("requests.jsonl"));
    std::vector<QJsonObject> requests;
    if (!file.open(QIODevice::ReadOnly)) return requests;
    while (!file.atEnd()) requests.push_back(QJsonDocument::fromJson(file.readLine()).object());
    return requests;
  }
  QStringList Methods() const {
    QStringList methods;
    for (const QJsonObject& request : Requests()) methods += request["method"].toString();
    return methods;
  }

 private:
  void MakeCertificate() const {
    if (QFile::exists(Certificate())) return;
    QProcess maker;
    maker.start("openssl", {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                            "/CN=localhost", "-addext", "subjectAltName=DNS:localhost", "-keyout",
                            folder_.filePath("key.pem"), "-out", Certificate()});
    ASSERT_TRUE(maker.waitForFinished(60'000));
    ASSERT_EQ(maker.exitCode(), 0);
  }

  QTemporaryDir folder_;
  std::unique_ptr<QProcess> process_;
  int port_ = 0;
  bool isSecured_ = false;
};

}  // namespace quillary
