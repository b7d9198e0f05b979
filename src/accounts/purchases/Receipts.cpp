#include "accounts/purchases/Receipts.h"

#include "base/Text.h"
#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>

namespace quillary::accounts {
namespace {

constexpr qint64 kMostBytes = 32LL * 1024 * 1024;
constexpr qsizetype kMostLettersOfName = 80;

bool HasReceipts(Business& business) {
  business.ConnectToDatabase();
  return business.StoreConnection().Schema().FindTable(u"Purchase_Receipts") != nullptr;
}

/// Own tables of this house come with their first row: a file without receipts stays as every
/// reader of such files knows it.
void EnsureReceiptsTable(Business& business) {
  if (HasReceipts(business)) return;
  business.Write(
      Sql("CREATE TABLE Purchase_Receipts (Receipt_ID COUNTER, Purchase_ID LONG, "
          "Title TEXT(255), File_Name TEXT(255))"));
}

QDir ReceiptsFolder(const Business& business) {
  return QDir(business.DatabaseFolder() + QStringLiteral("/Receipts"));
}

Refusal Refuse(const QString& path, const QString& why) {
  return {QStringLiteral("The receipt %1 %2. Nothing was attached.")
              .arg(QFileInfo(path).fileName(), why),
          {}};
}

bool IsPictureOrPdf(const QString& path, const QByteArray& content) {
  const QString type =
      QMimeDatabase().mimeTypeForFileNameAndData(QFileInfo(path).fileName(), content).name();
  return type.startsWith(u"image/") || type == u"application/pdf";
}

/// A name in the folder that no file bears: "17 Fuel docket.jpg", "17 Fuel docket 2.jpg".
QString FreeName(const QDir& folder, Id<Purchase> purchase, const QFileInfo& file) {
  const QString words =
      RemoveIllegalFileCharacters(file.completeBaseName()).left(kMostLettersOfName).trimmed();
  const QString ending = RemoveIllegalFileCharacters(file.suffix()).toLower();
  const QString begin = QStringLiteral("%1 %2").arg(purchase.Number()).arg(words).trimmed();
  for (int count = 1;; ++count) {
    const QString name = (count == 1 ? begin : QStringLiteral("%1 %2").arg(begin).arg(count)) +
                         (ending.isEmpty() ? QString() : u'.' + ending);
    if (!folder.exists(name)) return name;
  }
}

}  // namespace

std::vector<StoredReceipt> ListReceipts(Business& business, Id<Purchase> purchase) {
  std::vector<StoredReceipt> receipts;
  if (!HasReceipts(business)) return receipts;
  const QDir folder = ReceiptsFolder(business);
  for (const Record row :
       business.RunSQL(Sql("SELECT Receipt_ID, Title, File_Name FROM Purchase_Receipts "
                           "WHERE Purchase_ID = {} ORDER BY Receipt_ID;",
                           purchase))) {
    // The name alone, so that no row can lead out of the folder.
    const QString path = folder.filePath(FileNameOfPath(row[2].ToText()));
    receipts.push_back(
        {Id<Receipt>(row[size_t{0}].ToLong()), row[1].ToText(), path, QFileInfo(path).isFile()});
  }
  return receipts;
}

std::optional<Refusal> AttachReceipt(Business& business, Id<Purchase> purchase,
                                     const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
    return Refuse(path, QStringLiteral("cannot be read"));
  if (file.size() > kMostBytes) return Refuse(path, QStringLiteral("is larger than 32 MB"));
  const QByteArray content = file.readAll();
  if (file.error() != QFile::NoError || content.isEmpty())
    return Refuse(path, QStringLiteral("cannot be read"));
  if (!IsPictureOrPdf(path, content))
    return Refuse(path, QStringLiteral("is neither a picture nor a PDF"));
  const QDir folder = ReceiptsFolder(business);
  if (!folder.mkpath(QStringLiteral(".")))
    return Refuse(path, QStringLiteral("cannot be copied to %1").arg(folder.path()));
  const QString name = FreeName(folder, purchase, QFileInfo(path));
  try {
    WriteWhole(folder.filePath(name), content);
  } catch (const StorageFailure& failure) {
    return Refuse(path, QStringLiteral("cannot be copied: ") + QString(failure.what()));
  }
  try {
    EnsureReceiptsTable(business);
    business.Write(Sql("INSERT INTO Purchase_Receipts (Purchase_ID, Title, File_Name) "
                       "VALUES ({}, {}, {})",
                       purchase, QFileInfo(path).fileName(), name),
                   Rows::Exactly(1));
  } catch (...) {
    QFile::remove(folder.filePath(name));
    throw;
  }
  return std::nullopt;
}

std::optional<Refusal> DetachReceipt(Business& business, std::optional<Id<Receipt>> receipt) {
  if (!receipt) return Refusal{QStringLiteral("Please select a receipt to remove."), {}};
  business.Write(Sql("DELETE FROM Purchase_Receipts WHERE Receipt_ID = {}", receipt),
                 Rows::Exactly(1));
  return std::nullopt;
}

void DetachReceiptsOf(Business& business, Id<Purchase> purchase) {
  if (HasReceipts(business))
    business.Write(Sql("DELETE FROM Purchase_Receipts WHERE Purchase_ID = {}", purchase));
}

}  // namespace quillary::accounts
