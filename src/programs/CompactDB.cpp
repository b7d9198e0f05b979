#include "data/store/FileInTheMaking.h"
#include "data/store/Integrity.h"
#include "data/store/StorageFailure.h"
#include "maintenance/Salvage.h"
#include "session/ProgramFolder.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTextStream>
#include <QThread>

#include <unistd.h>

/// CompactDB [FILE [NEW_FILE]]
///
/// Repairs a business file: with NEW_FILE into a new one, otherwise where it stands, the damaged
/// file going to Archive. Without words it takes DATA.MDB of the program's folder. Exit code: 0
/// when the file is in order at the end, 1 when not.
namespace quillary {
namespace {

struct Outcome {
  bool done = false;
  QStringList lines;
};

QString Stamp() {
  return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh-mm-ss"));
}

/// The desktop starts us just before it lets go of the file.
QStringList FindDamageWhenFree(const QString& file) {
  constexpr int kTries = 50;
  constexpr unsigned long kPauseMilliseconds = 200;
  for (int attempt = 1;; ++attempt) {
    try {
      return FindDamage(file);
    } catch (const StorageFailure& failure) {
      if (failure.Fault() != StorageFault::InUse || attempt == kTries) throw;
    }
    QThread::msleep(kPauseMilliseconds);
  }
}

void KeepReport(const QString& path, const QStringList& lines) {
  try {
    WriteWhole(path, lines.join(u'\n').toUtf8() + '\n');
  } catch (const StorageFailure&) {
    // What it says was printed too.
  }
}

Outcome Repair(const QString& file, const QString& newFile) {
  Outcome outcome;
  const QStringList damage = FindDamageWhenFree(file);
  if (newFile.isEmpty() && damage.isEmpty()) {
    outcome.done = true;
    outcome.lines = {QStringLiteral("%1 is not damaged and was left as it is.").arg(file)};
    return outcome;
  }
  const QString archive = session::ArchiveUnder(session::ProgramFolder());
  QString where = newFile;
  maintenance::SalvageReceipt receipt;
  if (newFile.isEmpty()) {
    const maintenance::RepairInPlaceResult result =
        maintenance::RepairInPlace(file, archive, Stamp());
    receipt = result.receipt;
    where = file;
    outcome.lines +=
        QStringLiteral("%1 was repaired. The damaged file lies in %2.").arg(file, result.keptAt);
  } else {
    receipt = maintenance::SalvageFile(file, newFile);
    outcome.lines += QStringLiteral("What could be read of %1 is in %2.").arg(file, newFile);
  }
  outcome.lines += receipt.LostNothing()
                       ? QStringLiteral("Nothing was lost.")
                       : QStringLiteral(
                             "Not everything could be saved. Compare with the newest "
                             "backup in the folder %1.")
                             .arg(archive);
  outcome.lines += maintenance::SalvageLines(receipt);
  KeepReport(where + QStringLiteral(".repair.txt"), outcome.lines);
  outcome.done = true;
  return outcome;
}

Outcome Run(const QStringList& words) {
  const QString file =
      words.value(0, QDir(session::ProgramFolder()).filePath(QStringLiteral("DATA.MDB")));
  try {
    return Repair(file, words.value(1));
  } catch (const std::exception& error) {
    return {false, {QString::fromUtf8(error.what())}};
  }
}

/// Started by the desktop there is nobody to read what is printed.
bool NeedsABox() {
  const bool hasDisplay =
      qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  return hasDisplay && isatty(STDOUT_FILENO) == 0 && isatty(STDERR_FILENO) == 0;
}

void ShowBox(const Outcome& outcome) {
  constexpr qsizetype kShownAtOnce = 3;
  QMessageBox box(outcome.done ? QMessageBox::Information : QMessageBox::Warning,
                  QStringLiteral("Quillary System"),
                  outcome.lines.mid(0, kShownAtOnce).join(QStringLiteral("\n\n")));
  if (outcome.lines.size() > kShownAtOnce) {
    box.setDetailedText(outcome.lines.mid(kShownAtOnce).join(u'\n'));
  }
  box.exec();
}

}  // namespace
}  // namespace quillary

int main(int count, char** arguments) {
  using namespace quillary;
  const bool box = NeedsABox();
  const std::unique_ptr<QCoreApplication> application(box ? new QApplication(count, arguments)
                                                          : new QCoreApplication(count, arguments));
  const Outcome outcome = Run(QCoreApplication::arguments().mid(1));
  QTextStream out(outcome.done ? stdout : stderr);
  for (const QString& line : outcome.lines) out << line << '\n';
  out.flush();
  if (box) ShowBox(outcome);
  return outcome.done ? 0 : 1;
}
