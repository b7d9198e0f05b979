#include "reports/screens/CriteriaDialog.h"

#include "kit/ComboSearch.h"
#include "kit/Combos.h"
#include "kit/DateField.h"
#include "kit/Layouts.h"
#include "kit/PeriodField.h"
#include "lists/Choices.h"

#include <QGroupBox>
#include <QRadioButton>

namespace quillary::reports {

CriteriaDialog::CriteriaDialog(Business& business, const ScreenTools& tools,
                               const CriteriaForm& form)
    : Dialog(form.name, form.title, business.World().prompter), business_(business), form_(form) {
  MakeControls();
  LayOut();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools.runner.OnClick(cmdPreview, objectName(), [this] { Preview(); });
  ShowNote();
}

void CriteriaDialog::MakeControls() {
  const char* remembered = *form_.remembered ? form_.remembered : form_.name;
  if (form_.days) days_ = new PeriodField(business_, {.remembered = remembered});
  if (form_.employee) {
    cmbEmployees = Named(new QComboBox, "cmbEmployees");
    cmbEmployees->addItem(QStringLiteral(" All"));
    for (const auto& employee : lists::ListEmployeesByName(business_))
      cmbEmployees->addItem(employee.words, employee.id.Number());
  }
  if (form_.client) {
    cmbClient = ForField("client", Named(new ComboSearch, "cmbClient"));
    FillCombo(cmbClient, lists::ListClientChoices(business_));
  }
  for (const CriteriaChoice& choice : form_.sorts) {
    const QString caption = tr(choice.caption);
    sorts_.push_back(Named(new QRadioButton(caption), choice.name, PlainCaption(caption)));
    connect(sorts_.back(), &QRadioButton::toggled, this, &CriteriaDialog::ShowNote);
  }
  if (!sorts_.empty()) sorts_.front()->setChecked(true);
  note_ = MakeParagraph("lblByAccountNote", {});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdPreview = MakeButton("cmdPreview", tr(form_.accept), ButtonKind::Main);
}

void CriteriaDialog::LayOut() {
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  if (days_) column->addWidget(days_);
  if (cmbEmployees) column->addLayout(LabelOver(cmbEmployees, tr("E&mployee")));
  if (cmbClient) column->addLayout(LabelOver(cmbClient, tr("C&lient")));
  if (!sorts_.empty()) {
    auto* group = new QGroupBox(tr("Sorted by"));
    auto* line = new QHBoxLayout(group);
    line->setSpacing(16);
    for (QRadioButton* sort : sorts_) line->addWidget(sort);
    line->addStretch(1);
    column->addWidget(group);
  }
  column->addWidget(note_);
  column->addStretch(1);
  SetContent(column);
  SetRoom({days_ ? 600 : 440, 0});
  AddActions({cmdCancel, cmdPreview});
}

const CriteriaChoice* CriteriaDialog::Chosen() const {
  for (size_t at = 0; at < sorts_.size(); ++at)
    if (sorts_[at]->isChecked()) return &form_.sorts[at];
  return nullptr;
}

void CriteriaDialog::ShowNote() {
  if (!note_) return;
  const CriteriaChoice* chosen = Chosen();
  note_->setText(chosen ? tr(chosen->note) : QString());
  note_->setVisible(chosen && *chosen->note);
}

void CriteriaDialog::Preview() {
  std::optional<Refusal> refusal;
  if (days_ && !days_->Days().IsValid())
    refusal = Refusal{QStringLiteral("Please enter a valid date range."), QStringLiteral("days")};
  else if (cmbClient && !ComboKey(cmbClient))
    refusal = Refusal{tr("Please select a client."), QStringLiteral("client")};
  if (!IsAccepted(refusal)) return;
  if (days_) days_->Remember();
  Close(QDialog::Accepted);
}

ReportCriteria CriteriaDialog::Criteria() const {
  ReportCriteria criteria;
  if (days_) criteria.days = days_->Days();
  if (cmbEmployees && cmbEmployees->currentIndex() > 0)
    criteria.employee = Id<Employee>(cmbEmployees->currentData().toLongLong());
  if (cmbClient) criteria.record = ComboKey(cmbClient);
  if (const CriteriaChoice* chosen = Chosen()) criteria.sort = QString::fromLatin1(chosen->value);
  return criteria;
}

CriteriaForm DatesForm(const QString& title, const char* remembered) {
  return {.name = "dlgDates", .title = title, .remembered = remembered};
}

CriteriaForm DatesWithEmployeeForm() {
  return {
      .name = "dlgDatesWithEmployee", .title = QStringLiteral("Jobs summary"), .employee = true};
}

CriteriaForm ExpensesForm() {
  return {.name = "dlgExpenses",
          .title = QStringLiteral("Purchases made"),
          .sorts = {{"optDatePurchased", "&Date purchased", "date"},
                    {"optSupplier", "&Supplier", "supplier"},
                    {"optExpenseAccount", "E&xpense account", "account",
                     "Note: This report is based on the Account amount and not the actual purchase "
                     "amount..."}}};
}

CriteriaForm DebtorsForm() {
  return {.name = "dlgDebtorsOptions",
          .title = QStringLiteral("Debtors/Creditors"),
          .days = false,
          .sorts = {{"optName", "&Name", "name"},
                    {"optAmountOwing", "&Amount owing", "amount"},
                    {"optDaysAsDebtors", "&Days as debtors", "days"}}};
}

CriteriaForm ClientForm() {
  return {.name = "dlgClient",
          .title = QStringLiteral("Account of a client"),
          .days = false,
          .client = true};
}

}  // namespace quillary::reports
