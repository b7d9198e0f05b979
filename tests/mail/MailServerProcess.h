#pragma once

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace quillary {

/// A mail server of its own on the loopback address, and what it was given.
class MailServerProcess {
 public:
  void Start(const QStringList& options) {
    MakeCertificate();
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_->start("/usr/bin/python3",
                    QStringList{QUILLARY_MAILSERVER, "serve", folder_.path()} + options);
    ASSERT_TRUE(process_->waitForReadyRead(30'000));
    port_ = process_->readLine().trimmed().toInt();
    ASSERT_GT(port_, 0);
  }
  ~MailServerProcess() {
    if (!process_) return;
    process_->closeWriteChannel();
    process_->waitForFinished(10'000);
  }

  int Port() const { return port_; }
  QString Certificate() const { return folder_.filePath("cert.pem"); }
  /// How many mails it has taken.
  int Count() const {
    return static_cast<int>(QDir(folder_.path()).entryList({"*.eml"}, QDir::Files).size());
  }
  /// What another parser than ours makes of the mails, in the order in which they came.
  QJsonArray Mails() const {
    QProcess reader;
    reader.start("/usr/bin/python3", {QUILLARY_MAILSERVER, "read", folder_.path()});
    EXPECT_TRUE(reader.waitForFinished(60'000));
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
    return QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
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
};

}  // namespace quillary
