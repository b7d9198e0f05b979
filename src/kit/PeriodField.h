#pragma once

#include "domain/Periods.h"

#include <QWidget>

class QComboBox;

namespace quillary {

class DateField;

/// The days of a list or report: two dates, and beside them the periods that owners ask for. The
/// last choice of each screen is remembered for its user: a period by its name, so that "This
/// month" is that of the day on which it is asked again.
class PeriodField : public QWidget {
  Q_OBJECT

 public:
  /// The names of the two fields, by which they are known, and where the choice is remembered.
  struct Names {
    const char* from = "dtFrom";
    const char* to = "dtTo";
    const char* remembered = "";  // nowhere when empty
  };
  /// Begins with what is remembered, else with this month.
  PeriodField(Business& business, const Names& names);

  DateRange Days() const;
  void SetDays(const DateRange& days);
  DateField* From() const { return from_; }
  DateField* To() const { return to_; }
  void Remember();

 signals:
  /// The user chose other days.
  void daysChosen();

 private:
  void LayOut();
  /// The period that these days are, or none.
  void ShowPeriod();
  void TakePeriod(int index);
  void BeginWithRemembered();

  Business& business_;
  QString remembered_;
  std::vector<NamedPeriod> periods_;
  QComboBox* period_;
  DateField* from_;
  DateField* to_;
};

}  // namespace quillary
