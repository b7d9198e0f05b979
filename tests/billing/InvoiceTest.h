#pragma once

#include "billing/invoices/InvoiceRecord.h"
#include "support/BusinessTest.h"

#include <QStringList>

namespace quillary {

/// A business at ten percent of tax with two clients: 1 "Abbott", who pays for itself, and 2
/// "Strata", a billing address; 3 "Site" is billed to 2. The last invoice number is 1000.
class InvoiceTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.gstPercentage = 0.1F;
    Run(Sql("UPDATE infOptions SET GST_Percentage = 0.1"));
    Run(Sql("UPDATE infSystem SET Invoice_Number = 1000"));
    AddClient("Abbott", "Active", "With Job", 1);
    AddClient("Strata", "Billing address", "Monthly", 2);
    AddClient("Site", "Active", "Monthly", 2);
    Run(
        Sql("UPDATE Clients SET Street_Number = '18', Street = 'High St', Suburb = 'KEW', "
            "Post_Code = '3101', InvoiceWithNextJob = Yes WHERE Client_ID = 1"));
  }

  qint64 AddClient(const char* name, const char* status, const char* billed, qint64 billedTo) {
    Build().Add<Client>({{"Display_Name", name},
                         {"Status", status},
                         {"Statement_Type", billed},
                         {"Billing_Client_ID", billedTo},
                         {"Is_Billed_To", ++clients_ == billedTo},
                         {"Account_Balance", 0}});
    return clients_;
  }
  Id<Entry> AddJob(const Value& client, const char* status, QDate day, const Value& price = 110,
                   const Value& gst = 10) {
    return Build().Add<Entry>({{"Client_ID", client},
                               {"Employee_ID", 1},
                               {"Status", status},
                               {"Schedule_Date", day},
                               {"Description", "LM"},
                               {"Total_Price", price},
                               {"Total_GST", gst}});
  }
  /// A saved invoice of the client with these jobs.
  billing::InvoiceForm AddInvoice(Id<Client> client, const std::vector<Id<Entry>>& jobs = {}) {
    billing::InvoiceForm form = billing::NewInvoice(business(), client, std::nullopt);
    form.jobsToAttach = jobs;
    EXPECT_FALSE(billing::SaveInvoices(business(), form));
    return form;
  }

  qint64 Number(const Sql& statement) { return business().FirstField(statement).ToLong(); }
  /// All rows of a statement: fields joined by blanks, rows by commas.
  QString Rows(const Sql& statement) {
    QStringList rows;
    for (const Record record : Run(statement)) {
      QStringList fields;
      for (size_t field = 0; field < record.Size(); ++field) {
        const Value& value = record[field];
        fields += value.IsDate() ? value.ToDate().toString(Qt::ISODate)
                                 : value.ToText(QStringLiteral("-"));
      }
      rows += fields.join(u' ');
    }
    return rows.join(u',');
  }
  /// "JD 1": status and invoice of a job.
  QString StateOf(Id<Entry> diaryId) {
    return Rows(Sql("SELECT Status, Invoice_ID FROM Diary WHERE Diary_ID = {}", diaryId));
  }
  QString JobStates() {
    return Rows(Sql("SELECT Status, Invoice_ID FROM Diary ORDER BY Diary_ID"));
  }

 private:
  qint64 clients_ = 0;
};

}  // namespace quillary
