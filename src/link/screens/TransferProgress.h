#pragma once

#include "link/HttpLine.h"

#include <memory>

class QProgressDialog;

namespace quillary::link {

/// How far a long transfer has come, with a way to give it up. It shows at the first news.
class TransferProgress {
 public:
  TransferProgress();
  ~TransferProgress();
  /// False when the user has cancelled.
  bool Show(const HttpLine::Progress& far);

 private:
  std::unique_ptr<QProgressDialog> dialog_;
};

}  // namespace quillary::link
