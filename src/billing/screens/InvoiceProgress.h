#pragma once

#include "billing/runs/InvoiceRun.h"

#include <QProgressBar>

namespace quillary::billing {

/// How far a run has come, shown for as long as it goes on.
class InvoiceProgress : public QProgressBar {
  Q_OBJECT

 public:
  explicit InvoiceProgress(const char* name);

  /// What the run is to call. It keeps the bar moving and takes no clicks meanwhile.
  RunProgress Listener();
};

}  // namespace quillary::billing
