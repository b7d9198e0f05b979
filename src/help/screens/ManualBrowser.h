#pragma once

#include <QTextBrowser>

namespace quillary::help {

/// The pages of the manual in the colours of the program's theme.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  ManualBrowser();
  /// Pictures are taken from `folder`/dark where the theme is dark and they are there.
  QVariant loadResource(int type, const QUrl& name) override;

 signals:
  /// A link leads out of the manual.
  void leavesManual(const QString& address);

 protected:
  void changeEvent(QEvent* event) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  QVariant LoadPicture(const QUrl& name);
};

}  // namespace quillary::help
