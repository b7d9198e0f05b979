#include "documents/reports/ReportFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quillary::documents {
namespace {

TEST(ReportFiles, ANameNeverLeavesItsFolder) {
  for (const char* hostile : {"../../etc/passwd", "..\\..\\boot", "a:b", "/root", "x\r\ny", "."}) {
    const QString name = CleanFileName(QString::fromUtf8(hostile));
    EXPECT_FALSE(name.contains(u'/') || name.contains(u'\\') || name.contains(u'.') ||
                 name.contains(u'\n'))
        << hostile;
  }
}

TEST(ReportFiles, TheFolderIsMadeOnceAndFoundAgain) {
  const QTemporaryDir home;
  const QString made = ReportFolder(home.path());
  EXPECT_TRUE(QFileInfo(made).isDir());
  EXPECT_EQ(ReportFolder(home.path()), made);
}

}  // namespace
}  // namespace quillary::documents
