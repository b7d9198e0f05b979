#include "reports/LedgerReport.h"

#include "reports/Headings.h"
#include "reports/ListReport.h"

namespace quillary::reports {
namespace {

ReportLink SourceOf(const Record& row) {
  if (const qint64 payment = row[u"Payment_ID"].ToLong()) return {ReportLink::To::Payment, payment};
  if (const qint64 purchase = row[u"Purchase_ID"].ToLong())
    return {ReportLink::To::Purchase, purchase};
  return {};
}

Value SourceWords(const Record& row) {
  switch (SourceOf(row).to) {
    case ReportLink::To::Payment:
      return "Payment";
    case ReportLink::To::Purchase:
      return "Purchase";
    default:
      return {};
  }
}

ReportData CollectLedger(Business& business, const ReportCriteria& criteria) {
  ListReport list;
  list.columns = {
      FieldColumn("Description", "<+2.75in", CellKind::Text, "GL_Entry_Description", Total::Word),
      FieldColumn("Date", "<+1in", CellKind::Day, "Entry_Date"),
      CellColumn(QStringLiteral("Of"), "<+1in", CellKind::Text, SourceWords, Total::Count),
      FieldColumn("Amount", ">+1.25in", CellKind::Money, "GL_Amount", Total::Sum),
      CellColumn(
          TaxHeading(business), ">+1in", CellKind::Money,
          [](const Record& row) { return row[u"GST_Included"]; }, Total::Sum),
  };
  list.group = [](const Record& row) {
    const QString number = row[u"GL_Account_Number"].ToText();
    const QString name = row[u"GL_Account_Name"].ToText(QStringLiteral("(No specific account)"));
    return GroupKey{number.isEmpty() ? name : number + u' ' + name, row[u"GL_Account_ID"].ToLong()};
  };
  list.link = SourceOf;
  ReportData data{.title = QStringLiteral("Ledger Entries")};
  data.scope = {FromTo(criteria.days)};
  data.sections = {CollectList(
      list,
      business.RunSQL(
          Sql("SELECT General_Ledger_Entries.*, General_Ledger_Accounts.GL_Account_Name, "
              "General_Ledger_Accounts.GL_Account_Number FROM General_Ledger_Entries LEFT JOIN "
              "General_Ledger_Accounts ON General_Ledger_Entries.GL_Account_ID = "
              "General_Ledger_Accounts.GL_Account_ID WHERE ") +
          Within("Entry_Date", criteria.days) +
          OfAccount("General_Ledger_Entries.GL_Account_ID", criteria.record) +
          Sql(" ORDER BY General_Ledger_Accounts.GL_Account_Number, "
              "General_Ledger_Accounts.GL_Account_Name, General_Ledger_Entries.GL_Account_ID, "
              "Entry_Date, GL_Entry_ID;")))};
  return data;
}

}  // namespace

std::vector<ReportKind> LedgerReportKinds() {
  return {{"ledger-entries", "Ledger entries", "Ledger Entries.doc", Asks::Days, CollectLedger}};
}

}  // namespace quillary::reports
