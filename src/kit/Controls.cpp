#include "kit/Controls.h"

#include "kit/Shortcuts.h"

#include <QIcon>
#include <QStyle>

namespace quillary {

namespace {

QString NameOf(LabelRole role) {
  switch (role) {
    case LabelRole::Muted:
      return QStringLiteral("muted");
    case LabelRole::Hint:
      return QStringLiteral("hint");
    case LabelRole::Title:
      return QStringLiteral("title");
    case LabelRole::Figure:
      return QStringLiteral("figure");
    case LabelRole::Warning:
      return QStringLiteral("warning");
    default:
      return {};
  }
}

void Dress(QLabel* label, const char* name, LabelRole role) {
  label->setObjectName(QLatin1StringView(name));
  label->setTextFormat(Qt::PlainText);
  label->setProperty("role", NameOf(role));
}

/// Its mnemonic selects what the field holds, also when the field has the focus already: typing
/// then replaces it either way.
class FieldLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  bool event(QEvent* event) override {
    const bool taken = QLabel::event(event);
    if (event->type() != QEvent::Shortcut || !buddy() || !buddy()->hasFocus()) return taken;
    if (auto* line = qobject_cast<QLineEdit*>(buddy())) line->selectAll();
    return taken;
  }
};

}  // namespace

QString PlainCaption(const QString& caption) {
  QString plain;
  for (qsizetype at = 0; at < caption.size(); ++at) {
    if (caption[at] == u'&' && at + 1 < caption.size()) ++at;  // "&&" is one "&", "&x" is "x"
    plain += caption[at];
  }
  while (plain.endsWith(u'.') || plain.endsWith(u'…')) plain.chop(1);
  return plain.trimmed();
}

void SetKind(QPushButton* button, ButtonKind kind) {
  const char* const names[] = {"", "main", "danger", "link"};
  button->setProperty("kind", QString::fromLatin1(names[static_cast<size_t>(kind)]));
  button->style()->unpolish(button);
  button->style()->polish(button);
}

QPushButton* MakeButton(const char* name, const QString& caption, ButtonKind kind,
                        const QString& iconName) {
  auto* button = new QPushButton(caption);
  button->setObjectName(QLatin1StringView(name));
  button->setAccessibleName(PlainCaption(caption));
  button->setAutoDefault(false);
  SetKind(button, kind);
  if (!iconName.isEmpty()) {
    button->setIcon(QIcon::fromTheme(iconName));
    if (caption.isEmpty())
      button->setProperty("shape", QStringLiteral("icon"));
    else
      button->setText(u' ' + caption);  // room between the icon and the words
  }
  return button;
}

QLabel* MakeLabel(const char* name, const QString& text, LabelRole role) {
  auto* label = new QLabel(text);
  Dress(label, name, role);
  return label;
}

QLabel* MakeLabelFor(QWidget* control, const QString& text, LabelRole role) {
  auto* label = new FieldLabel(text);
  Dress(label, "", role);
  label->setBuddy(control);
  control->setAccessibleName(PlainCaption(text));
  return label;
}

QLineEdit* MakeFilterBox(QWidget* screen, const char* name) {
  auto* box = new QLineEdit;
  box->setObjectName(QLatin1StringView(name));
  box->setPlaceholderText(QObject::tr("Filter this list"));
  box->setAccessibleName(QObject::tr("Filter this list"));
  box->setToolTip(QObject::tr("Shows the rows that hold all the words typed (Ctrl+F)"));
  box->setClearButtonEnabled(true);
  box->setProperty("kind", QStringLiteral("search"));
  AddShortcut(screen, QKeySequence::Find, QObject::tr("Filters the list"), [box] {
    box->setFocus(Qt::ShortcutFocusReason);
    box->selectAll();
  });
  return box;
}

}  // namespace quillary
