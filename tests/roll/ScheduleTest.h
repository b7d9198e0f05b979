#pragma once

#include "support/BusinessTest.h"

#include <QStringList>

namespace quillary {

inline QDate Day(const char* iso) {
  return QDate::fromString(QString(iso), Qt::ISODate);
}

/// A service as a test thinks of it; only what the case is about differs from the default.
struct ServiceRow {
  int service = 1;  // 1 LM, 2 HT, 3 WC
  const char* status = "Regular";
  Value frequency = 7;
  const char* nextVisit = "2026-11-02";  // null for none
  Value employee = 1;
  double price = 55;
  const char* notes = "";
  Value follows = 0;
};

/// A business with three services, ten percent of tax and a horizon of 14 days: Monday 2 November
/// to Monday 16 November 2026.
class ScheduleTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.gstPercentage = 0.1F;
    business().values.daysToAdvanceSchedule = 14;
    for (const char* code : {"LM", "HT", "WC"}) {
      Run(Sql("INSERT INTO Services (Service_Code) VALUES ({})", code));
    }
  }

  Id<Client> AddClient(const char* status = "Active") {
    return Build().Add<Client>({{"Status", status}, {"Display_Name", "Client"}});
  }

  Id<ClientService> AddService(Id<Client> client, const ServiceRow& row = {}) {
    return business().InsertReturningKey<ClientService>(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
            "Frequency, Next_Visit, Notes, Other_Schedule_Client_Service_ID) "
            "VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {})",
            client, row.service, row.employee, row.status, row.price, row.frequency,
            row.nextVisit ? Value(Day(row.nextVisit)) : Value(), row.notes, row.follows));
  }

  /// An entry made by hand, with a line for `service` unless that is 0.
  Id<Entry> AddEntry(Id<Client> client, const Value& date, const char* status, int service = 1,
                     int sequence = 1) {
    const auto entry = Build().Add<Entry>({{"Client_ID", client},
                                           {"Employee_ID", 1},
                                           {"Status", status},
                                           {"Schedule_Date", date},
                                           {"Total_Price", 0},
                                           {"Total_GST", 0},
                                           {"Sequence", sequence}});
    if (service != 0) {
      Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, 0, 0)",
              entry, service));
    }
    return entry;
  }

  void AddHoliday(const char* dayAndMonth, int year = 0) {
    business().holidays.push_back({QString(dayAndMonth), year, year == 0, QString()});
  }

  /// All rows of a statement, fields joined by blanks.
  QStringList Rows(const char* statement) {
    QStringList rows;
    for (const Record record : business().RunSQL(QString(statement))) {
      QStringList fields;
      for (size_t field = 0; field < record.Size(); ++field) {
        const Value& value = record[field];
        fields += value.IsDate() ? value.ToDate().toString(Qt::ISODate)
                                 : value.ToText(QStringLiteral("-"));
      }
      rows += fields.join(u' ');
    }
    return rows;
  }
  QStringList Visits() {
    return Rows(
        "SELECT Schedule_Date, Status, Description FROM Diary "
        "ORDER BY Schedule_Date, Diary_ID");
  }
  QStringList NextVisits() {
    return Rows("SELECT Next_Visit FROM Client_Services ORDER BY Client_Service_ID");
  }
};

}  // namespace quillary
