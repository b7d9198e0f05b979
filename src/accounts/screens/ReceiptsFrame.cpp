#include "accounts/screens/ReceiptsFrame.h"

#include "kit/Form.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QUrl>

namespace quillary::accounts {

namespace {

constexpr char kFormOfReceipts[] = "frmPurchase";

QStringList FilesIn(const QMimeData* data) {
  QStringList files;
  for (const QUrl& url : data->urls())
    if (url.isLocalFile()) files += url.toLocalFile();
  return files;
}

}  // namespace

ReceiptsFrame::ReceiptsFrame(Business& business, const ScreenTools& tools,
                             std::function<std::optional<Id<Purchase>>()> stored)
    : business_(business), tools_(tools), stored_(std::move(stored)) {
  setAcceptDrops(true);
  grdReceipts = new Grid(QStringLiteral("grdReceipts"));
  grdReceipts->SetColumns({{tr("Receipt"), ColumnKind::StrongText, 320},
                           {{}, ColumnKind::HiddenId},
                           {{}, ColumnKind::Text, 120}});
  grdReceipts->SetEmptyText(tr("No receipt is attached."),
                            tr("Drop a picture or a PDF here, or attach one."));
  grdReceipts->setMinimumHeight(72);
  grdReceipts->setSizePolicy(grdReceipts->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
  cmdAttachReceipt = MakeButton("cmdAttachReceipt", tr("Attac&h receipt…"));
  cmdRemoveReceipt = MakeButton("cmdRemoveReceipt", tr("Remove receipt"), ButtonKind::Danger);
  auto* commands = new QHBoxLayout;
  commands->setSpacing(8);
  commands->addWidget(cmdRemoveReceipt);
  commands->addStretch(1);
  commands->addWidget(cmdAttachReceipt);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  column->addWidget(MakeLabelFor(grdReceipts, tr("Receipts")));
  column->addWidget(grdReceipts, 1);
  column->addLayout(commands);
  const QString form = QString::fromLatin1(kFormOfReceipts);
  tools_.runner.OnClick(cmdAttachReceipt, form, [this] { ChooseAndAttach(); });
  tools_.runner.OnClick(cmdRemoveReceipt, form, [this] { DetachSelected(); });
  connect(grdReceipts, &Grid::rowOpened, this, &ReceiptsFrame::OpenReceipt);
}

void ReceiptsFrame::ShowReceiptsOf(std::optional<Id<Purchase>> purchase) {
  receipts_ = purchase ? ListReceipts(business_, *purchase) : std::vector<StoredReceipt>();
  std::vector<GridRow> rows;
  for (const StoredReceipt& receipt : receipts_)
    rows.push_back(
        {{receipt.title, receipt.receipt, receipt.isThere ? QString() : tr("file missing")}});
  grdReceipts->SetRows(std::move(rows));
  cmdRemoveReceipt->setEnabled(!receipts_.empty());
}

void ReceiptsFrame::Attach(const QStringList& paths) {
  if (paths.isEmpty()) return;
  const auto purchase = stored_();
  if (!purchase) return;
  for (const QString& path : paths)
    Accepted(business_.World().prompter, this, AttachReceipt(business_, *purchase, path));
  ShowReceiptsOf(purchase);
}

void ReceiptsFrame::ChooseAndAttach() {
  Attach(QFileDialog::getOpenFileNames(
      this, tr("Attach receipts"), {},
      tr("Pictures and PDF (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff *.heic *.pdf)")));
}

void ReceiptsFrame::DetachSelected() {
  if (!Accepted(business_.World().prompter, this,
                DetachReceipt(business_, grdReceipts->SelectedId<Receipt>())))
    return;
  ShowReceiptsOf(stored_());
}

void ReceiptsFrame::OpenReceipt(int row) {
  tools_.runner.Run(
      QString::fromLatin1(kFormOfReceipts), QStringLiteral("grdReceipts_DblClick"), [this, row] {
        const StoredReceipt& receipt = receipts_[static_cast<size_t>(row)];
        if (receipt.isThere) {
          business_.World().desktop.OpenInBrowser(
              QUrl::fromLocalFile(receipt.path).toString(QUrl::FullyEncoded));
          return;
        }
        business_.World().prompter.Tell(
            Tone::Exclamation,
            tr("%1 is no longer there. The purchase stands as it was.").arg(receipt.path));
      });
}

void ReceiptsFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!FilesIn(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void ReceiptsFrame::dropEvent(QDropEvent* event) {
  const QStringList files = FilesIn(event->mimeData());
  event->acceptProposedAction();
  tools_.runner.Run(QString::fromLatin1(kFormOfReceipts), QStringLiteral("DropReceipts"),
                    [this, files] { Attach(files); });
}

}  // namespace quillary::accounts
