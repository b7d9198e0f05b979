#include "kit/Boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace quillary {

namespace {

/// A box must not stand under an hourglass that a command has put up; the pointer comes back when
/// the box has gone.
class PointerRelease {
 public:
  PointerRelease() : held_(QApplication::overrideCursor() != nullptr) {
    if (held_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PointerRelease() {
    if (held_) QApplication::restoreOverrideCursor();
  }
  PointerRelease(const PointerRelease&) = delete;
  PointerRelease& operator=(const PointerRelease&) = delete;

 private:
  bool held_;
};

/// The texts are data, perhaps a client's name, and never markup.
void Fill(QMessageBox& box, const QString& text, const QString& title) {
  box.setObjectName(QStringLiteral("box"));
  box.setTextFormat(Qt::PlainText);
  box.setWindowTitle(title);
  box.setText(text);
}

}  // namespace

Answer MessageBoxPrompter::Ask(const QString& text, const QString& title) {
  const PointerRelease release;
  QMessageBox box(QApplication::activeWindow());
  Fill(box, text, title);
  box.setIcon(QMessageBox::Question);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  box.button(QMessageBox::Yes)->setProperty("kind", QStringLiteral("main"));
  return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void MessageBoxPrompter::Tell(Tone tone, const QString& text, const QString& title) {
  const PointerRelease release;
  QMessageBox box(QApplication::activeWindow());
  Fill(box, text, title);
  box.setIcon(tone == Tone::Stop          ? QMessageBox::Critical
              : tone == Tone::Exclamation ? QMessageBox::Warning
                                          : QMessageBox::Information);
  box.setStandardButtons(QMessageBox::Ok);
  box.button(QMessageBox::Ok)->setProperty("kind", QStringLiteral("main"));
  box.exec();
}

std::optional<QString> MessageBoxPrompter::AskText(const QString& title, const QString& prompt,
                                                   const QString& current) {
  const PointerRelease release;
  bool accepted = false;
  const QString typed = QInputDialog::getText(QApplication::activeWindow(), title, prompt,
                                              QLineEdit::Normal, current, &accepted);
  if (!accepted) return std::nullopt;
  return typed;
}

void CursorBusyPointer::ShowBusyPointer(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

}  // namespace quillary
