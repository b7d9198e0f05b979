#include "GuiTest.h"
#include "shell/FrontDoor.h"

#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillary {
namespace {

class FrontDoorTest : public ::testing::Test {
 protected:
  FrontDoorTest() {
    qunsetenv("XDG_RUNTIME_DIR");
    QFile made(file);
    EXPECT_TRUE(made.open(QIODevice::WriteOnly));
  }
  /// From a thread of its own, as from another process: the door is answered meanwhile.
  bool Ask() {
    bool answered = false;
    const std::unique_ptr<QThread> caller(
        QThread::create([&] { answered = shell::AskToTheFront(file, folder.path()); }));
    caller->start();
    while (!caller->isFinished()) QTest::qWait(5);
    return answered;
  }

  QApplication& application = TestApplication();
  QTemporaryDir folder;
  QString file = folder.filePath("A.MDB");
  QWidget window;
};

TEST_F(FrontDoorTest, NobodyIsAskedWhereNoneIsOpen) {
  EXPECT_FALSE(Ask());
}

TEST_F(FrontDoorTest, AMinimisedWindowComesBack) {
  const shell::FrontDoor door(file, folder.path(), window);
  window.showMinimized();
  EXPECT_TRUE(Ask());
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(window.isMinimized());
}

TEST_F(FrontDoorTest, WhatACrashLeftBehindIsNoHindrance) {
  QFile(shell::SocketOf(file, folder.path())).open(QIODevice::WriteOnly);
  EXPECT_FALSE(Ask());
  const shell::FrontDoor door(file, folder.path(), window);
  EXPECT_TRUE(Ask());
}

TEST_F(FrontDoorTest, AnotherBusinessHasAnotherDoor) {
  const shell::FrontDoor door(file, folder.path(), window);
  file = folder.filePath("B.MDB");
  QFile(file).open(QIODevice::WriteOnly);
  EXPECT_FALSE(Ask());
}

TEST_F(FrontDoorTest, OnlyTheUserMayKnock) {
  const shell::FrontDoor door(file, folder.path(), window);
  struct stat found {};
  ASSERT_EQ(stat(qPrintable(shell::SocketOf(file, folder.path())), &found), 0);
  EXPECT_EQ(found.st_mode & 0077, 0U);
}

TEST_F(FrontDoorTest, AnyOtherWordIsHungUpOn) {
  const shell::FrontDoor door(file, folder.path(), window);
  for (const QByteArray& word :
       {QByteArray("quit\n"), QByteArray("front\nmore"), QByteArray("FRONT\n"), QByteArray("\0", 1),
        QByteArray(1 << 20, 'f')}) {
    QLocalSocket caller;
    caller.connectToServer(shell::SocketOf(file, folder.path()));
    ASSERT_TRUE(caller.waitForConnected(2000));
    caller.write(word);
    EXPECT_TRUE(QTest::qWaitFor([&] { return caller.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(caller.readAll(), "");
    EXPECT_FALSE(window.isVisible()) << word.left(10).toStdString();
  }
}

/// The program itself, started twice for one business.
TEST_F(FrontDoorTest, TheSecondStartLeavesTheFileToTheFirst) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QUILLARY_HOME", folder.path());
  const QString business = folder.filePath("DATA.MDB");
  const auto start = [&](QProcess& process, const char* name, const QStringList& words) {
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUILLARY_BIN "/") + name, words);
  };
  QProcess companion;
  start(companion, "quillaryctl", {"demo", business, "--clients", "3"});
  ASSERT_TRUE(companion.waitForFinished(60'000));
  ASSERT_EQ(companion.exitCode(), 0);

  QProcess first;
  start(first, "quillary", {business});
  ASSERT_TRUE(QTest::qWaitFor(
      [&] { return QFile::exists(shell::SocketOf(business, folder.path())); }, 60'000));
  QProcess second;
  start(second, "quillary", {business});
  EXPECT_TRUE(second.waitForFinished(20'000));
  EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(first.state(), QProcess::Running);
  second.kill();
  first.kill();
  first.waitForFinished();
}

}  // namespace
}  // namespace quillary
