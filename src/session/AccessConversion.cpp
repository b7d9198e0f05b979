#include "session/AccessConversion.h"

#include "base/Errors.h"
#include "data/access/ConvertAccessFile.h"
#include "data/access/ReceiptFile.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/FileReplacement.h"

#include <QFileInfo>

namespace quillary::session {

namespace {

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

void ConvertInPlace(const Clock& clock, const QString& path, const QString& archive,
                    const ConversionOptions& options) {
  const QFileInfo original(path);
  FileInTheMaking converted(path, FileInTheMaking::Place::Replacing);
  const ConversionReceipt receipt = ConvertAccessFile(path, converted.Path(), options);
  const QString kept = KeepIn(archive, original.canonicalFilePath(),
                              QStringLiteral("%1 Access %2.%3")
                                  .arg(original.completeBaseName(),
                                       clock.Today().toString(Qt::ISODate), original.suffix()));
  converted.TakeItsPlace();
  KeepReceipt(receipt, kept, path, clock.Now(),
              receipt.IsClean() ? QStringLiteral("Everything was taken over.")
                                : QStringLiteral("The differences were accepted."));
}

}  // namespace

QString ConvertIfAccessFile(const Outside& outside, const QString& path, const QString& archive) {
  if (!IsAccessFile(path)) return path;
  const Answer answer = outside.prompter.Ask(
      QStringLiteral("%1 is a Microsoft Access file. Quillary can make a business file of it, "
                     "which takes its name; the Access file itself goes unchanged into the folder "
                     "%2.\n\nDo you want to convert it now?")
          .arg(path, archive));
  if (answer != Answer::Yes) return {};

  ConversionOptions options;
  if (NeedsCodePage(path)) {
    const auto codePage = AskCodePage(outside.prompter);
    if (!codePage) return {};
    options.codePage = *codePage;
  }
  options.accept = [&](const ConversionReceipt& differing) {
    return AcceptFindings(outside.prompter, differing);
  };
  try {
    const BusyWhile busy(outside.busy);
    ConvertInPlace(outside.clock, path, archive, options);
    return path;
  } catch (const ConversionRefused& refused) {
    // The user has seen the findings and said no.
    KeepReceipt(refused.Receipt(), path, path, outside.clock.Now(),
                QString::fromUtf8(refused.what()));
  } catch (const std::exception& error) {
    outside.prompter.Tell(
        Tone::Stop,
        QStringLiteral("The Access file could not be converted, and stays as it is.\n\n%1")
            .arg(ErrorLine(error)));
  }
  return {};
}

}  // namespace quillary::session
