#include "kit/DateField.h"

#include "base/DateTime.h"
#include "kit/Keys.h"
#include "kit/Roles.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QRegularExpression>
#include <QTextCharFormat>
#include <QToolTip>
#include <QWidgetAction>

namespace quillary {

namespace {

/// The field itself shows the day of the week, so an edited text may still begin with one.
QString WithoutWeekday(const QString& typed) {
  static const QRegularExpression weekday(QStringLiteral("^\\s*[A-Za-z]{3,9},?\\s+(?=\\d)"));
  return QString(typed).remove(weekday);
}

}  // namespace

DateField::DateField(QDate today, QWidget* parent) : QLineEdit(parent), today_(today) {
  SelectAllText(this);
  setFixedWidth(160);
  arrow_ = addAction(QIcon(), QLineEdit::TrailingPosition);
  arrow_->setToolTip(tr("Pick a day (F4)"));
  connect(arrow_, &QAction::triggered, this, &DateField::ShowPicker);
  DressArrow();
  connect(this, &QLineEdit::editingFinished, this, &DateField::TakeTyped);
}

void DateField::ShowWeekday(bool show) {
  format_ = show ? QStringLiteral("ddd d MMM yyyy") : QStringLiteral("d MMM yyyy");
  setFixedWidth(show ? 160 : 128);
  SetDate(date_);
}

void DateField::SetDate(QDate date) {
  date_ = date;
  setText(QLocale(QLocale::English).toString(date, format_));
  setCursorPosition(0);
}

void DateField::DressArrow() {
  arrow_->setIcon(QIcon(RolesOf(palette()).dark ? QStringLiteral(":/kit/pick-dark.svg")
                                                : QStringLiteral(":/kit/pick-light.svg")));
}

void DateField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) DressArrow();
}

void DateField::Choose(QDate date) {
  if (!date.isValid() || date == date_) return;
  SetDate(date);
  emit dateChosen(date);
}

void DateField::TakeTyped() {
  const QString words = text().trimmed();
  const auto typed = ParseTypedDate(WithoutWeekday(words), today_);
  if (typed && *typed != date_) return Choose(*typed);
  SetDate(date_);
  if (!typed && !words.isEmpty()) SayRefused(words);
}

void DateField::SayRefused(const QString& typed) {
  const QString stays = text().isEmpty() ? tr("It is left blank.") : tr("%1 stays.").arg(text());
  QToolTip::showText(mapToGlobal(QPoint(0, height())),
                     tr("\"%1\" is no day. %2").arg(typed.toHtmlEscaped(), stays), this);
}

QCalendarWidget* MakeCalendar(const char* name, QDate shown, QDate today) {
  auto* calendar = new QCalendarWidget;
  calendar->setObjectName(QLatin1StringView(name));
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setSelectedDate(shown);
  QTextCharFormat marked;
  marked.setFontWeight(QFont::Bold);
  calendar->setDateTextFormat(today, marked);
  QTextCharFormat weekend;
  weekend.setForeground(RolesOf(calendar->palette()).muted);
  for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
    calendar->setWeekdayTextFormat(day, weekend);
  return calendar;
}

void DateField::ShowPicker() {
  // What is typed but not yet taken belongs to the day that the calendar opens on.
  TakeTyped();
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QCalendarWidget* calendar = MakeCalendar("calendar", date_, today_);
  auto* holder = new QWidgetAction(menu);
  holder->setDefaultWidget(calendar);
  menu->addAction(holder);
  const auto take = [this, menu](QDate date) {
    menu->close();
    Choose(date);
  };
  connect(calendar, &QCalendarWidget::clicked, this, take);
  connect(calendar, &QCalendarWidget::activated, this, take);
  menu->popup(mapToGlobal(QPoint(0, height() + 2)));
  calendar->setFocus();
}

void DateField::keyPressEvent(QKeyEvent* event) {
  const bool alt = event->modifiers() == Qt::AltModifier;
  switch (event->key()) {
    case Qt::Key_F4:
      return ShowPicker();
    case Qt::Key_Down:
      return alt ? ShowPicker() : Choose(date_.addDays(-1));
    case Qt::Key_Up:
      return Choose(date_.addDays(1));
    case Qt::Key_PageDown:
      return Choose(date_.addMonths(-1));
    case Qt::Key_PageUp:
      return Choose(date_.addMonths(1));
    default:
      QLineEdit::keyPressEvent(event);
  }
}

}  // namespace quillary
