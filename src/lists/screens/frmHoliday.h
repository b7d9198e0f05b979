#pragma once

#include "kit/RecordList.h"

class QComboBox;

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The days on which nobody works, a year at a time.
class frmHoliday : public RecordListScreen {
  Q_OBJECT

 public:
  frmHoliday(Business& business, const ScreenTools& tools);

 private:
  /// The year stands outside the fields of a record, so that the list can ask for it before the
  /// screen exists.
  struct Shown {
    int year = 0;
  };
  frmHoliday(Business& business, const ScreenTools& tools, std::shared_ptr<Shown> shown);
  static RecordList HolidayList(Business& business, const std::shared_ptr<Shown>& shown);
  void FillYears();

  Business& business_;
  std::shared_ptr<Shown> shown_;
  QComboBox* cboYear;
};

}  // namespace quillary::lists
