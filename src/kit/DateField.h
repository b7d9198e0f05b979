#pragma once

#include <QDate>
#include <QLineEdit>

class QCalendarWidget;

namespace quillary {

/// A day, typed as an owner types it ("2/11", "2 Nov 26", "2026-11-02") or picked from a calendar
/// (the arrow, Alt+Down or F4). Up and Down move by a day, Page Up and Page Down by a month. What
/// is no date falls back to the day that stood there, and a note below the field says so.
class DateField : public QLineEdit {
  Q_OBJECT

 public:
  /// `today` is the day whose year completes "2/11" and which the calendar marks.
  explicit DateField(QDate today, QWidget* parent = nullptr);
  /// Without it the day of the week is left out.
  void ShowWeekday(bool show);

  QDate Date() const { return date_; }
  void SetDate(QDate date);

 signals:
  /// The user chose another day.
  void dateChosen(QDate date);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void TakeTyped();
  void SayRefused(const QString& typed);
  void Choose(QDate date);
  void ShowPicker();
  void DressArrow();

  QDate today_;
  QDate date_;
  QAction* arrow_;
  QString format_ = QStringLiteral("ddd d MMM yyyy");
};

/// A calendar that opens on a day, as all of them look: today marked, weekends muted.
QCalendarWidget* MakeCalendar(const char* name, QDate shown, QDate today);

}  // namespace quillary
