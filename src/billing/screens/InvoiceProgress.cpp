#include "billing/screens/InvoiceProgress.h"

#include "kit/Layouts.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <memory>

namespace quillary::billing {

InvoiceProgress::InvoiceProgress(const char* name) {
  Named(this, name, tr("Progress of the run"));
  setFormat(tr("%v of %m"));
  setMinimumWidth(160);
  hide();
}

RunProgress InvoiceProgress::Listener() {
  auto since = std::make_shared<QElapsedTimer>();
  since->start();
  return [this, since](int done, int total) {
    constexpr int kBetweenPictures = 40;  // milliseconds: a picture costs more than a client
    if (done < total && since->elapsed() < kBetweenPictures) return;
    since->restart();
    setMaximum(total);
    setValue(done);
    setVisible(done < total);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  };
}

}  // namespace quillary::billing
