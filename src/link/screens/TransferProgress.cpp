#include "link/screens/TransferProgress.h"

#include <QApplication>
#include <QLocale>
#include <QProgressDialog>

namespace quillary::link {

TransferProgress::TransferProgress() = default;
TransferProgress::~TransferProgress() = default;

bool TransferProgress::Show(const HttpLine::Progress& far) {
  constexpr int kSteps = 1000;
  if (!dialog_) {
    dialog_ = std::make_unique<QProgressDialog>(QString(), QObject::tr("Cancel"), 0, kSteps,
                                                QApplication::activeWindow());
    dialog_->setObjectName(QStringLiteral("dlgTransfer"));
    dialog_->setWindowTitle(QObject::tr("Upload"));
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setMinimumDuration(0);
    dialog_->setMinimumWidth(400);
  }
  const QLocale locale;
  const bool isSent = far.toSend > 0 && far.sent >= far.toSend;
  dialog_->setLabelText(
      isSent ? QObject::tr("Waiting for the answer of head office…")
             : QObject::tr("%1 of %2 sent")
                   .arg(locale.formattedDataSize(far.sent), locale.formattedDataSize(far.toSend)));
  // One step short of the end, since the answer is still to come.
  const qint64 steps = far.toSend > 0 ? far.sent * (kSteps - 1) / far.toSend : 0;
  dialog_->setValue(static_cast<int>(steps));
  return !dialog_->wasCanceled();
}

}  // namespace quillary::link
