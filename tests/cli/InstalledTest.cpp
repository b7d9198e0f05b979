#include "CompanionFixture.h"

#include <QDir>

namespace quillary {
namespace {

/// The companion in folders that look installed and such that do not.
class InstalledTest : public CompanionTest {
 protected:
  void Lay(const QString& place) {
    ASSERT_TRUE(QDir().mkpath(Path(place)));
    for (const char* name : {"quillaryctl", "quillary-accessreader"}) {
      ASSERT_TRUE(QFile::copy(QStringLiteral(QUILLARY_BIN "/") + name,
                              Path(place + u'/' + QLatin1String(name))));
    }
    program = Path(place + "/quillaryctl");
  }
  /// Converts a file while a variable names a reader that says nothing good.
  Result Convert() {
    Write("evil", "#!/bin/sh\nprintf '\\0\\0\\0\\2\\5no' >&3\n");
    QFile::setPermissions(Path("evil"), QFile::ReadOwner | QFile::ExeOwner);
    environment.insert("QUILLARY_ACCESS_READER", Path("evil"));
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, {"convert", Path(Sample(44)), Path("NEW.MDB")});
    EXPECT_TRUE(process.waitForFinished(60'000));
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
  }
  QString program;
};

TEST_F(InstalledTest, AVariableNamesTheReaderOfAnUninstalledProgramOnly) {
  Lay("work/bin");
  Result result = Convert();
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.err.contains("is damaged: no")) << result.err.toStdString();

  Lay("usr/lib/quillary");
  result = Convert();
  EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
  EXPECT_TRUE(QFile::exists(Path("NEW.MDB")));
}

TEST_F(InstalledTest, ALinkInBinFindsTheOtherPrograms) {
  Lay("usr/lib/quillary");
  ASSERT_TRUE(QDir().mkpath(Path("usr/bin")));
  ASSERT_TRUE(QFile::link("../lib/quillary/quillaryctl", Path("usr/bin/quillaryctl")));
  program = Path("usr/bin/quillaryctl");
  EXPECT_EQ(Convert().exitCode, 0);
}

TEST_F(InstalledTest, BothProgramsAreOfOneVersion) {
  const QString version = Done({"--version"}).section(u' ', 1).trimmed();
  EXPECT_EQ(version.count(u'.'), 2) << version.toStdString();
  QProcess desktop;
  desktop.start(QUILLARY_BIN "/quillary", {"--version"});
  ASSERT_TRUE(desktop.waitForFinished());
  EXPECT_EQ(QString::fromUtf8(desktop.readAllStandardOutput()), "quillary " + version + "\n");
}

/// What bash offers for the last of these words.
struct Completion {
  const char* words;
  const char* offered;
};

TEST_F(InstalledTest, BashOffersCommandsAndTheirOptions) {
  Write("completion", Done({"completion"}).toUtf8());
  for (const auto& [words, offered] :
       {Completion{"quillaryctl undep", "undeposited"},
        Completion{"quillaryctl new --to", "--today"},
        Completion{"quillaryctl --json demo x.mdb --cli", "--clients"},
        Completion{"quillaryctl new x.mdb --cli", ""}, Completion{"quillaryctl check evi", ""}}) {
    QProcess bash;
    bash.start("bash", {"-c", QStringLiteral("source '%1'; COMP_WORDS=(%2); "
                                             "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _quillaryctl; "
                                             "echo \"${COMPREPLY[*]}\"")
                                  .arg(Path("completion"), QLatin1String(words))});
    ASSERT_TRUE(bash.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(bash.readAllStandardOutput()).trimmed(), offered) << words;
    EXPECT_EQ(bash.readAllStandardError(), "") << words;
  }
}

}  // namespace
}  // namespace quillary
