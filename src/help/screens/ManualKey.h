#pragma once

#include "base/ports/Outside.h"
#include "help/screens/frmManual.h"

#include <QObject>
#include <QPointer>

#include <functional>

namespace quillary::help {

/// F1, anywhere in the program: opens the manual where it tells of what the user is at. That is
/// the command marked in an open menu, or else the nearest thing around the focus that the manual
/// names.
class ManualKey : public QObject {
  Q_OBJECT

 public:
  /// `front` gives the screen in front, for when the focus is on the frame around it.
  ManualKey(const Outside& outside, const QString& programs, std::function<QWidget*()> front);
  ~ManualKey() override;

  void ExplainFront();
  /// The place where a name is explained; the first page when the manual does not know it.
  void Explain(const QString& name);
  const Manual& Pages() const { return manual_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QString NameInFront() const;

  Outside outside_;
  Manual manual_;
  std::function<QWidget*()> front_;
  QPointer<frmManual> window_;
};

}  // namespace quillary::help
