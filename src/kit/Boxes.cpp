#include "kit/Boxes.h"

#include "kit/Controls.h"
#include "kit/Roles.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPainter>
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

/// The tone as a sign in the colours of the program.
QPixmap Sign(QChar letter, Hue hue, const QWidget& box) {
  constexpr int kSize = 40;
  const HueColours& colours = RolesOf(box.palette()).Of(hue);
  QPixmap sign(QSize(kSize, kSize) * box.devicePixelRatioF());
  sign.setDevicePixelRatio(box.devicePixelRatioF());
  sign.fill(Qt::transparent);
  QPainter painter(&sign);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colours.edge);
  painter.setBrush(colours.fill);
  painter.drawEllipse(QRectF(0.5, 0.5, kSize - 1, kSize - 1));
  QFont font = box.font();
  font.setPixelSize(22);
  font.setWeight(QFont::Bold);
  painter.setFont(font);
  painter.setPen(colours.words);
  painter.drawText(QRect(0, 0, kSize, kSize), Qt::AlignCenter, letter);
  return sign;
}

}  // namespace

Answer MessageBoxPrompter::Ask(const QString& text, const QString& title) {
  return AskWith(Answer::Yes, text, title);
}

Answer MessageBoxPrompter::AskBeforeLosing(const QString& text, const QString& title) {
  return AskWith(Answer::No, text, title);
}

Answer MessageBoxPrompter::AskWith(Answer byEnter, const QString& text, const QString& title) {
  const PointerRelease release;
  QMessageBox box(QApplication::activeWindow());
  Fill(box, text, title);
  box.setIconPixmap(Sign(u'?', Hue::Green, box));
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  const auto main = byEnter == Answer::Yes ? QMessageBox::Yes : QMessageBox::No;
  box.setDefaultButton(main);
  box.setEscapeButton(QMessageBox::No);
  SetKind(qobject_cast<QPushButton*>(box.button(main)), ButtonKind::Main);
  if (byEnter == Answer::No)
    SetKind(qobject_cast<QPushButton*>(box.button(QMessageBox::Yes)), ButtonKind::Danger);
  return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

void MessageBoxPrompter::Tell(Tone tone, const QString& text, const QString& title) {
  const PointerRelease release;
  QMessageBox box(QApplication::activeWindow());
  Fill(box, text, title);
  box.setIconPixmap(tone == Tone::Stop          ? Sign(u'✕', Hue::Red, box)
                    : tone == Tone::Exclamation ? Sign(u'!', Hue::Yellow, box)
                                                : Sign(u'i', Hue::Blue, box));
  box.setStandardButtons(QMessageBox::Ok);
  SetKind(qobject_cast<QPushButton*>(box.button(QMessageBox::Ok)), ButtonKind::Main);
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
