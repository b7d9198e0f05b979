#include "older/Copying.h"

/// The tables that come over row by row, with no more than their keys changed.
namespace quillary::older {

namespace {

/// Remembers under which number a row of that source key stands now.
void Note(QHash<qint64, qint64>& map, const OlderRow& row, const char* key, qint64 now) {
  if (const auto old = row.Number(key)) map.insert(*old, now);
}

Money SumOf(Copying& copying, const char* column, const char* table) {
  return copying.business.FirstField(Sql("SELECT Sum({}) FROM {}", Sql(column), Sql(table)))
      .ToMoney();
}

}  // namespace

void CopyTrailers(Copying& copying) {
  copying.Table("Copying employees", "tblTrailers", "Employees", [&](const OlderRow& row) {
    const auto key = copying.business.InsertReturningKey<Employee>(
        Sql("INSERT INTO Employees (Employee_Name) VALUES ({})", row.Text("Trailer_Name")));
    Note(copying.employees, row, "TrailerID", key.Number());
    return std::nullopt;
  });
}

void CopyGLAccounts(Copying& copying) {
  copying.Table(
      "Copying ledger accounts", "tblGeneralLedger", "General_Ledger_Accounts",
      [&](const OlderRow& row) {
        const auto key = copying.business.InsertReturningKey<Account>(Sql(
            "INSERT INTO General_Ledger_Accounts (GL_Account_Name, "
            "GL_Account_Number, GL_Account_Type, Budget_Amount) VALUES ({}, {}, {}, "
            "{})",
            row.Text("GL_Name"), row.Text("GL_Number"), row.Text("GL_Type"), row.Amount("Budget")));
        Note(copying.accounts, row, "GL_ID", key.Number());
        return std::nullopt;
      });
  copying.Compare("Budget", copying.source.Sum("tblGeneralLedger", "Budget"),
                  SumOf(copying, "Budget_Amount", "General_Ledger_Accounts"));
}

void CopyGLEntries(Copying& copying) {
  copying.Table("Copying ledger entries", "tblGLTrans", "General_Ledger_Entries",
                [&](const OlderRow& row) {
                  copying.business.Write(
                      Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, "
                          "GL_Entry_Description, GL_Amount, GST_Included, Payment_ID, Purchase_ID) "
                          "VALUES ({}, {}, {}, {}, {}, {}, {})",
                          copying.KeyIn(copying.accounts, row, "GL_ID"), row.Day("Trans_Date"),
                          row.Text("Description"), row.Amount("Amount"), row.Amount("GST"),
                          row.Number("PaymentID"), row.Number("PurchaseID")));
                  return std::nullopt;
                });
  copying.Compare("Amount", copying.source.Sum("tblGLTrans", "Amount"),
                  SumOf(copying, "GL_Amount", "General_Ledger_Entries"));
}

void LinkGLEntries(Copying& copying) {
  Business& business = copying.business;
  struct Link {
    const char* column;
    const QHash<qint64, qint64>& keys;
    const char* update;
  };
  const Link links[] = {
      {"Payment_ID", copying.payments,
       "UPDATE General_Ledger_Entries SET Payment_ID = {} WHERE GL_Entry_ID = {}"},
      {"Purchase_ID", copying.purchases,
       "UPDATE General_Ledger_Entries SET Purchase_ID = {} WHERE GL_Entry_ID = {}"}};
  for (const Link& link : links) {
    for (const Record entry : business.RunSQL(
             Sql("SELECT GL_Entry_ID, {} AS Old_ID FROM General_Ledger_Entries WHERE {} IS NOT "
                 "NULL",
                 Sql(link.column), Sql(link.column)))) {
      const auto now = link.keys.constFind(entry[u"Old_ID"].ToLong());
      const bool isThere = now != link.keys.constEnd();
      if (!isThere)
        copying.receipt.troubles +=
            QStringLiteral("A ledger entry is of %1 %2, which is not there.")
                .arg(QLatin1StringView(link.column))
                .arg(entry[u"Old_ID"].ToLong());
      business.Write(
          Sql(link.update, isThere ? std::optional(*now) : std::nullopt, entry[u"GL_Entry_ID"]),
          Rows::Exactly(1));
    }
  }
}

void CopyServices(Copying& copying) {
  copying.Table("Copying services", "tblMowingServices", "Services",
                [&](const OlderRow& row) -> std::optional<QString> {
                  const QString code = row.Text("Job_Type_Code");
                  const auto key = copying.business.InsertReturningKey<Service>(
                      Sql("INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, "
                          "Sequence_Number) VALUES ({}, {}, {}, {})",
                          row.Text("Job_Type_Description"), code,
                          copying.KeyIn(copying.accounts, row, "GL_ID"), row.Number("Seq")));
                  copying.services.insert(code.toUpper(), key.Number());
                  return std::nullopt;
                });
}

void CopySuppliers(Copying& copying) {
  copying.Table("Copying suppliers", "tblSupplier", "Suppliers", [&](const OlderRow& row) {
    const auto key = copying.business.InsertReturningKey<Supplier>(
        Sql("INSERT INTO Suppliers (Supplier_Name, Contact_Name, Street_Number, Street, Suburb, "
            "Post_Code, Phone, Fax, Email, ABN, Payment_Type, GL_Account_ID) VALUES ({}, {}, {}, "
            "{}, {}, {}, {}, {}, {}, {}, {}, {})",
            row.Text("Supplier_Name"), row.Text("Contact"), row.Text("Number"), row.Text("Street"),
            row.Text("Suburb"), row.Text("PostCode"), row.Text("Phone"), row.Text("Fax"),
            row.Text("Email"), row.Text("ABN"), row.Text("Payment_Type"),
            copying.KeyIn(copying.accounts, row, "GL_ID")));
    Note(copying.suppliers, row, "SupplierID", key.Number());
    return std::nullopt;
  });
}

void CopyPurchases(Copying& copying) {
  copying.Table("Copying purchases", "tblPurchases", "Purchases", [&](const OlderRow& row) {
    const auto key = copying.business.InsertReturningKey<Purchase>(Sql(
        "INSERT INTO Purchases (Supplier_ID, GL_Account_ID, Description, Purchase_Date, "
        "Amount, GST_Included, Payment_Method, Cheque_Number, Invoice_Number, Notes, Capital, "
        "Model, Serial_Number, Depreciation) VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, {}, "
        "{}, {}, {}, {})",
        copying.KeyIn(copying.suppliers, row, "SupplierID"),
        copying.KeyIn(copying.accounts, row, "GL_ID"), row.Text("Item"), row.Day("Purchase_Date"),
        row.Amount("Amount"), row.Amount("GST"), row.Text("Payment_Type"), row.Text("Cheque_No"),
        row.Text("Invoice_No"), row.Text("Notes"), row.Yes("Capital"), row.Text("Model"),
        row.Text("Serial_No"), row.Number("Depreciation")));
    Note(copying.purchases, row, "PurchaseID", key.Number());
    return std::nullopt;
  });
  copying.Compare("Amount", copying.source.Sum("tblPurchases", "Amount"),
                  SumOf(copying, "Amount", "Purchases"));
}

void CopyBankAccounts(Copying& copying) {
  copying.Table("Copying bank accounts", "tblMyBanks", "Bank_Accounts", [&](const OlderRow& row) {
    const auto key = copying.business.InsertReturningKey<BankAccount>(
        Sql("INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) VALUES ({}, {})",
            row.Text("Account_Name"), row.Text("Account_No")));
    Note(copying.bankAccounts, row, "BankAccID", key.Number());
    return std::nullopt;
  });
}

void CopyBankings(Copying& copying) {
  copying.Table("Copying bankings", "tblBankings", "Bankings", [&](const OlderRow& row) {
    const auto key = copying.business.InsertReturningKey<Banking>(
        Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_Unbanked, "
            "Total_Banked) VALUES ({}, {}, {}, 0, {})",
            copying.KeyIn(copying.bankAccounts, row, "BankAccID"), row.Day("Banking_Date"),
            row.Amount("Cash_Banked"), row.Amount("Total_Banked")));
    Note(copying.bankings, row, "BankingID", key.Number());
    return std::nullopt;
  });
  copying.Compare("Total_Banked", copying.source.Sum("tblBankings", "Total_Banked"),
                  SumOf(copying, "Total_Banked", "Bankings"));
}

void CopyPayments(Copying& copying) {
  copying.Table("Copying payments", "tblPayments", "Payments",
                [&](const OlderRow& row) -> std::optional<QString> {
                  const auto party = copying.KeyIn(copying.parties, row, "CorpID");
                  if (!party) return QStringLiteral("of no corporation");
                  const auto key = copying.business.InsertReturningKey<Payment>(
                      Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount, GST_Included, "
                          "Payment_Method, Cheque_Number, Bank, Bank_Branch, Bank_Account_Name, "
                          "Banking_ID, Description) VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, "
                          "{}, {})",
                          party, row.Day("Payment_Date"), row.Amount("Amount"), row.Amount("GST"),
                          row.Text("Payment_Type"), row.Text("Cheque_No"), row.Text("Bank_Name"),
                          row.Text("Branch_Name"), row.Text("Bank_Acc_Name"),
                          copying.KeyIn(copying.bankings, row, "BankingID"), row.Text("Notes")));
                  Note(copying.payments, row, "PaymentID", key.Number());
                  return std::nullopt;
                });
  copying.Compare("Amount", copying.source.Sum("tblPayments", "Amount"),
                  SumOf(copying, "Amount", "Payments"));
}

void CopyBanks(Copying& copying) {
  copying.Table("Copying banks", "tblBanks", "lstBanks", [&](const OlderRow& row) {
    copying.business.Write(Sql("INSERT INTO lstBanks (Bank) VALUES ({})", row.Text("Bank_Name")));
    return std::nullopt;
  });
}

void CopyFrequencies(Copying& copying) {
  copying.Table("Copying frequencies", "tblFrequency", "lstFrequencies",
                [&](const OlderRow& row) -> std::optional<QString> {
                  const auto days = row.Number("Frequency_Days");
                  if (!days || *days < 1) return QStringLiteral("no number of days");
                  copying.business.Write(
                      Sql("INSERT INTO lstFrequencies (Frequency_Days) VALUES ({})", days));
                  return std::nullopt;
                });
}

void CopyPaymentMethods(Copying& copying) {
  int place = 0;
  copying.Table("Copying payment methods", "tblPaymentTypes", "lstPayment_Methods",
                [&](const OlderRow& row) {
                  copying.business.Write(
                      Sql("INSERT INTO lstPayment_Methods (Payment_Method, Sequence) VALUES ({}, "
                          "{})",
                          row.Text("Payment_Type"), ++place));
                  return std::nullopt;
                });
}

}  // namespace quillary::older
