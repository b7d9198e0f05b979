#include "mail/SentDocuments.h"

#include "base/Text.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace quillary::mail {

QString SentDocument::DateHidden() const {
  return ToIsoText(date);
}

std::vector<SentDocument> ShowClientsReport(Business& business, const QString& folder) {
  const std::vector<StoredMail> mails =
      Outbox::Exists(business) ? Outbox(business).All() : std::vector<StoredMail>();
  std::vector<SentDocument> list;
  for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
    const QDateTime changed = file.lastModified();
    SentDocument document{file.absoluteFilePath(), {changed.date(), changed.time()}, {}};
    const auto carried = std::ranges::find_if(
        mails, [&](const StoredMail& mail) { return QFileInfo(mail.source) == file; });
    if (carried != mails.end()) document.mail = *carried;
    list.push_back(std::move(document));
  }
  for (const StoredMail& mail : mails) {
    if (mail.document.isEmpty() || QFileInfo::exists(mail.source)) continue;
    list.push_back({mail.document, mail.ended.IsValid() ? mail.ended : mail.queued, mail});
  }
  std::ranges::stable_sort(list, [](const SentDocument& one, const SentDocument& other) {
    return one.date > other.date;
  });
  return list;
}

std::vector<StoredMail> LoadSent(Business& business, std::optional<Id<Client>> client) {
  if (!Outbox::Exists(business)) return {};
  std::vector<StoredMail> mails = Outbox(business).All();
  if (client)
    std::erase_if(mails, [client](const StoredMail& mail) { return mail.client != client; });
  return mails;
}

bool OpenDocument(Business& business, const QString& file) {
  const Outside& world = business.World();
  if (!QFileInfo::exists(file)) {
    world.prompter.Tell(Tone::Exclamation,
                        QStringLiteral("The document %1 is no longer there.").arg(file));
    return false;
  }
  const QString& viewer = business.values.adobePath;
  const bool isPdf = FileExtension(file).compare(u"pdf", Qt::CaseInsensitive) == 0;
  if (isPdf && !viewer.isEmpty() &&
      world.desktop.StartProgram(viewer, {QDir::toNativeSeparators(file)}))
    return true;
  world.desktop.OpenInBrowser(QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded));
  return true;
}

}  // namespace quillary::mail
