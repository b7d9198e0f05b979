#include "shell/AccessConversion.h"

#include "base/Errors.h"
#include "data/access/ConvertAccessFile.h"
#include "data/access/ReceiptFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quillary {

namespace {

/// A name in Archive that no earlier original has.
QString FreeName(const QDir& archive, const QFileInfo& original, QDate today) {
  const QString stem =
      original.completeBaseName() + QStringLiteral(" Access ") + today.toString(Qt::ISODate);
  QString name = stem + u'.' + original.suffix();
  for (int number = 2; archive.exists(name); ++number)
    name = QStringLiteral("%1 (%2).%3").arg(stem).arg(number).arg(original.suffix());
  return archive.filePath(name);
}

bool AcceptFindings(Prompter& prompter, const ConversionReceipt& receipt) {
  QStringList findings = receipt.Findings();
  constexpr qsizetype kMost = 10;
  const qsizetype more = findings.size() - kMost;
  findings = findings.mid(0, kMost);
  if (more > 0) findings += QStringLiteral("... and %1 more").arg(more);
  return prompter.Ask(QStringLiteral("The new file would differ from the old one:\n\n%1\n\nDo you "
                                     "want to go on with it? The old file stays as it is.")
                          .arg(findings.join(u'\n'))) == Answer::Yes;
}

/// Files of Access 97 and before do not tell the code page of their texts. Nothing when the user
/// leaves.
std::optional<QString> AskCodePage(Prompter& prompter) {
  QString proposed = kUsualCodePage;
  for (;;) {
    const auto typed = prompter.AskText(
        QStringLiteral("Code page"),
        QStringLiteral("This file was made by Access 97 or before and does not tell in which code "
                       "page its texts are. CP1252 is that of English and other Western "
                       "languages."),
        proposed);
    if (!typed || IsCodePage(typed->trimmed())) return typed ? typed->trimmed() : typed;
    proposed = *typed;
    prompter.Tell(Tone::Exclamation, QStringLiteral("%1 is no code page.").arg(*typed));
  }
}

}  // namespace

QString ConvertIfAccessFile(const Outside& outside, const QString& path) {
  if (!IsAccessFile(path)) return path;
  const QFileInfo original(path);
  QDir archive(original.absoluteDir().filePath(QStringLiteral("Archive")));
  const Answer answer = outside.prompter.Ask(
      QStringLiteral("%1 is a Microsoft Access file. Quillary can make a business file of it, "
                     "which takes its name; the Access file itself goes unchanged into the folder "
                     "%2.\n\nDo you want to convert it now?")
          .arg(path, archive.path()));
  if (answer != Answer::Yes) return {};

  ConversionOptions options;
  if (NeedsCodePage(path)) {
    const auto codePage = AskCodePage(outside.prompter);
    if (!codePage) return {};
    options.codePage = *codePage;
  }
  const QString converted = path + QStringLiteral(".new");
  QString kept;
  try {
    QFile::remove(converted);  // of an attempt that was cut off
    ConversionReceipt receipt;
    options.accept = [&](const ConversionReceipt& differing) {
      return AcceptFindings(outside.prompter, differing);
    };
    {
      const BusyWhile busy(outside.busy);
      receipt = ConvertAccessFile(path, converted, options);
    }
    if (!archive.mkpath(QStringLiteral(".")))
      throw ProgramError(76, QStringLiteral("The folder %1 cannot be made").arg(archive.path()));
    kept = FreeName(archive, original, outside.clock.Today());
    if (!QFile::rename(path, kept)) {
      kept.clear();
      throw ProgramError(75, QStringLiteral("%1 cannot be moved to Archive").arg(path));
    }
    if (!QFile::rename(converted, path))
      throw ProgramError(75, QStringLiteral("%1 cannot be renamed").arg(converted));
    KeepReceipt(receipt, kept, path, outside.clock.Now(),
                receipt.IsClean() ? QStringLiteral("Everything was taken over.")
                                  : QStringLiteral("The differences were accepted."));
    return path;
  } catch (const ConversionRefused& refused) {
    // The user has seen the findings and said no.
    KeepReceipt(refused.Receipt(), path, path, outside.clock.Now(),
                QString::fromUtf8(refused.what()));
  } catch (const std::exception& error) {
    if (!kept.isEmpty()) QFile::rename(kept, path);
    outside.prompter.Tell(
        Tone::Stop,
        QStringLiteral("The Access file could not be converted, and stays as it is.\n\n%1")
            .arg(ErrorLine(error)));
  }
  QFile::remove(converted);
  return {};
}

}  // namespace quillary
