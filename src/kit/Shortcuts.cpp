#include "kit/Shortcuts.h"

#include "kit/Controls.h"

#include <QAbstractButton>
#include <QShortcut>

#include <algorithm>

namespace quillary {

namespace {

QString KeysText(const QKeySequence& keys) {
  return keys.toString(QKeySequence::NativeText);
}

QString WordsOf(const QAbstractButton* button) {
  const QString caption = PlainCaption(button->text());
  return caption.isEmpty() || caption.size() == 1 ? button->accessibleName() : caption;
}

}  // namespace

void AddShortcut(QWidget* screen, const QKeySequence& keys, const QString& what,
                 const std::function<void()>& run) {
  auto* shortcut = new QShortcut(keys, screen);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  shortcut->setWhatsThis(what);
  QObject::connect(shortcut, &QShortcut::activated, screen, run);
}

void AddShortcut(QWidget* screen, const QKeySequence& keys, QAbstractButton* button) {
  AddShortcut(screen, keys, WordsOf(button), [button] { button->click(); });
  const QString tip = button->toolTip().isEmpty() ? WordsOf(button) : button->toolTip();
  if (!tip.contains(KeysText(keys)))
    button->setToolTip(QStringLiteral("%1 (%2)").arg(tip, KeysText(keys)));
}

std::vector<ShortcutLine> ShortcutsOf(const QWidget* screen, const QWidget* apart) {
  std::vector<ShortcutLine> lines;
  const auto add = [&](const QWidget* place, const QKeySequence& keys, const QString& what) {
    if (keys.isEmpty() || what.isEmpty() || place->window() != screen->window()) return;
    if (apart && apart->isAncestorOf(place)) return;
    const ShortcutLine line{KeysText(keys), what};
    if (std::ranges::none_of(lines, [&](const ShortcutLine& known) {
          return known.keys == line.keys && known.what == line.what;
        }))
      lines.push_back(line);
  };
  for (const auto* shortcut : screen->findChildren<QShortcut*>())
    add(qobject_cast<const QWidget*>(shortcut->parent()), shortcut->key(), shortcut->whatsThis());
  for (const auto* button : screen->findChildren<QAbstractButton*>())
    add(button, button->shortcut(), WordsOf(button));
  return lines;
}

const std::vector<ShortcutLine>& ShortcutsEverywhere() {
  // Handled where the controls are: Grid, RowTicks, DateField, Dialog.
  static const std::vector<ShortcutLine> lines = {
      {QStringLiteral("Enter"), QObject::tr("In a list: opens the row")},
      {QStringLiteral("Space"), QObject::tr("In a list: ticks or marks the row")},
      {QStringLiteral("Ctrl+A"), QObject::tr("In a list: marks all rows")},
      {QStringLiteral("Ctrl+C"), QObject::tr("In a list: copies the marked rows")},
      {QStringLiteral("Alt+Up"), QObject::tr("In a list with an order: moves the row up")},
      {QStringLiteral("Alt+Down"), QObject::tr("In a list with an order: moves the row down")},
      {QStringLiteral("Menu"), QObject::tr("In a list: what can be done with the row")},
      {QStringLiteral("F4"), QObject::tr("In a date: opens the calendar")},
      {QStringLiteral("Up"), QObject::tr("In a date: the next day")},
      {QStringLiteral("Down"), QObject::tr("In a date: the day before")},
      {QStringLiteral("PgUp"), QObject::tr("In a date: the next month")},
      {QStringLiteral("PgDown"), QObject::tr("In a date: the month before")},
      {QStringLiteral("Esc"), QObject::tr("In a dialog: closes it without saving")},
      {QStringLiteral("Tab"), QObject::tr("To the next field; with Shift, to the one before")},
  };
  return lines;
}

}  // namespace quillary
