#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace quillary::help {

/// The pages of the manual in the colours of the program's theme.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  ManualBrowser();
  /// Pictures are taken from `folder`/dark where the theme is dark and they are there.
  QVariant loadResource(int type, const QUrl& name) override;
  /// The page and place that was gone to last.
  const QUrl& Shown() const { return shown_; }

 signals:
  /// Another place is in view.
  void shown();
  /// A link leads out of the manual.
  void leavesManual(const QString& address);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  QVariant LoadPicture(const QUrl& name);
  int RoomForPictures() const;
  /// Lays the page out anew and goes back to where it was.
  void ShowAnew();

  QUrl shown_;
  int pictureWidth_ = 0;
  QTimer later_;
};

}  // namespace quillary::help
