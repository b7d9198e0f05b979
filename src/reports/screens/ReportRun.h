#pragma once

#include "documents/screens/LiveReport.h"
#include "kit/Screen.h"
#include "reports/ReportLayout.h"

class QComboBox;

namespace quillary {
class PeriodField;
}  // namespace quillary

namespace quillary::reports {

/// One report as the user looks at it: its days, order and form can be chosen above the pages, and
/// its rows open what they are made of.
class ReportRun : public documents::LiveReport {
  Q_OBJECT

 public:
  ReportRun(Business& business, const ScreenTools& tools, const ReportKind& kind,
            const ReportCriteria& criteria);

  documents::ReportDocument Make() override;
  bool IsGrowing() const override { return growing_ && !growing_->IsDone(); }
  documents::ReportDocument Grow(int milliseconds) override;
  QWidget* MakeBar() override;
  void OpenLink(int link) override;
  std::vector<CsvTable> Csv() const override;
  Tables Shows() const override;

 private:
  QComboBox* MakeChoice(const char* name, const QString& heardAs,
                        const std::vector<ReportChoice>& choices, QString& chosen);
  void TakeDays(const PeriodField* days);
  /// The report of what an account is made of, in the same viewer.
  void OpenAccount(const char* report, qint64 account);

  Business& business_;
  ScreenTools tools_;
  const ReportKind& kind_;
  ReportCriteria criteria_;
  ReportData data_;
  std::vector<ReportLink> links_;
  std::unique_ptr<GrowingReport> growing_;  // of a report too long to be made at once
};

/// Makes the report and shows it in the viewer; what it refuses is told to the user.
void ShowReport(Business& business, const ScreenTools& tools, const char* name,
                const ReportCriteria& criteria);

}  // namespace quillary::reports
