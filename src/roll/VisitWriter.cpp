#include "roll/VisitWriter.h"

#include "roll/DiaryEntries.h"

namespace quillary::roll {

int DaySequences::Next(QDate day) {
  const auto known = highest_.find(day.toJulianDay());
  if (known != highest_.end()) return ++*known;
  const int next = HighestSequence(business_, day) + 1;
  highest_.insert(day.toJulianDay(), next);
  return next;
}

VisitWriter::VisitWriter(Business& business, DaySequences& sequences, Id<Client> client, QDate from)
    : business_(business), sequences_(sequences), client_(client), taxRate_(TaxRate::Of(business)) {
  LoadDiary(from);
}

void VisitWriter::LoadDiary(QDate from) {
  const Recordset rows = business_.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Employee_ID, Diary.Status, Diary.Schedule_Date, "
          "Diary.Description, Diary.Notes, Diary_Services.Service_ID "
          "FROM Diary LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID "
          "WHERE Diary.Client_ID = {} AND Diary.Schedule_Date >= {} ORDER BY Diary.Diary_ID",
          client_, from));
  for (const Record row : rows) {
    const auto moment = row[u"Schedule_Date"].ToDateTime();
    if (!moment || moment->time != QTime(0, 0)) continue;  // no whole day: no date is equal to it
    const qint64 day = moment->date.toJulianDay();
    const Value& service = row[u"Service_ID"];
    if (!service.IsNull()) scheduled_.insert({service.ToLong(), day});

    const Value& employee = row[u"Employee_ID"];
    const bool isOpenJob = StoredEntryStatus(row[u"Status"].ToText()).Is(EntryStatus::JobOpen);
    const Place place(employee.ToLong(), day);
    if (!isOpenJob || employee.IsNull() || openJobs_.contains(place)) continue;
    openJobs_.insert(place, visits_.size());
    visits_.push_back({.entry = row[u"Diary_ID"].ToId<Entry>(),
                       .description = row[u"Description"].ToText(),
                       .notes = row[u"Notes"].ToText()});
  }
}

bool VisitWriter::IsScheduled(std::optional<Id<Service>> service, QDate day) const {
  return scheduled_.contains({NumberOrZero(service), day.toJulianDay()});
}

void VisitWriter::AddVisit(std::optional<Id<Employee>> employee, QDate day, const VisitLine& line) {
  const Place place(NumberOrZero(employee), day.toJulianDay());
  auto job = openJobs_.constFind(place);
  if (job == openJobs_.constEnd()) {
    job = openJobs_.insert(place, visits_.size());
    visits_.push_back({.employee = employee, .day = day, .sequence = sequences_.Next(day)});
  }
  const Money gst = taxRate_.CalculateGSTComponent(line.price);
  Visit& visit = visits_[*job];
  visit.description = JoinDescription(visit.description, line.serviceCode);
  visit.notes = JoinNotes(visit.notes, line.notes);
  visit.price += line.price;
  visit.gst += gst;
  visit.isChanged = true;
  lines_.push_back({*job, line.service, line.price, gst, line.frequency});
  scheduled_.insert({NumberOrZero(line.service), day.toJulianDay()});
}

int VisitWriter::Write() {
  UpdateOldVisits();
  const int made = InsertNewVisits();
  InsertLines();
  return made;
}

void VisitWriter::UpdateOldVisits() {
  for (const Visit& visit : visits_) {
    if (!visit.entry || !visit.isChanged) continue;
    business_.Write(Sql("UPDATE Diary SET Description = {}, Notes = {}, "
                        "Total_Price = Total_Price + {}, Total_GST = Total_GST + {} "
                        "WHERE Diary_ID = {}; ",
                        visit.description, visit.notes, visit.price, visit.gst, visit.entry),
                    Rows::Exactly(1));
  }
}

int VisitWriter::InsertNewVisits() {
  int made = 0;
  for (Visit& visit : visits_) {
    if (visit.entry) continue;
    visit.entry = business_.InsertReturningKey<Entry>(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Total_GST, Time_Requested, Estimated_Minutes, Sequence, Notes) "
            "VALUES ({}, {}, {}, {}, {}, {}, {}, 0, 0, {}, {});",
            client_, NumberOrZero(visit.employee), EntryStatus::JobOpen, visit.day,
            visit.description, visit.price, visit.gst, visit.sequence, visit.notes));
    ++made;
  }
  return made;
}

void VisitWriter::InsertLines() {
  for (const Line& line : lines_) {
    business_.Write(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST, Frequency) "
                        "VALUES ({}, {}, {}, {}, {}); ",
                        visits_[line.visit].entry, NumberOrZero(line.service), line.price, line.gst,
                        line.frequency),
                    Rows::Exactly(1));
  }
}

}  // namespace quillary::roll
