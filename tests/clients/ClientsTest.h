#pragma once

#include "clients/ClientRecord.h"
#include "support/BusinessTest.h"

namespace quillary {

inline QDate Day(const char* iso) {
  return QDate::fromString(QString(iso), Qt::ISODate);
}

/// A business with services 1 Lawn and 2 Hedge, employee 1 Ann, and no client.
class ClientsTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.gstPercentage = 0.1F;
    business().values.daysToAdvanceSchedule = 14;
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Lawn', 'LM')"));
    Run(Sql("INSERT INTO Services (Service, Service_Code) VALUES ('Hedge', 'HT')"));
    Run(Sql("INSERT INTO Employees (Employee_Name) VALUES ('Ann')"));
  }

  /// A client saved through the record.
  clients::ClientRecord AddClient(const char* name, const char* status = "Active",
                                  std::optional<Id<Client>> payer = {}) {
    clients::ClientRecord client = clients::NewClientRecord();
    client.displayName = name;
    client.status = StoredClientStatus(status);
    client.otherPayer = payer;
    EXPECT_FALSE(clients::SaveClientDetails(business(), client, clients::NewClientRecord()))
        << name;
    return client;
  }

  Id<Entry> AddJob(const Value& client, const char* status, const char* day,
                   const Value& price = 10, int lines = 1) {
    const auto entry = Build().Add<Entry>({{"Client_ID", client},
                                           {"Employee_ID", 1},
                                           {"Status", status},
                                           {"Schedule_Date", Day(day)},
                                           {"Total_Price", price}});
    for (int line = 0; line < lines; ++line) {
      Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 1, 0)", entry));
    }
    return entry;
  }

  void Pay(const Value& client, const Value& amount) {
    Run(Sql("INSERT INTO Payments (Client_ID, Amount, Payment_Date) VALUES ({}, {}, {})", client,
            amount, Day("2026-10-15")));
  }

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
};

}  // namespace quillary
