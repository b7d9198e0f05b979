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

VisitWriter::VisitWriter(Business& business, DaySequences& sequences, qint64 clientId, QDate from)
    : business_(business),
      sequences_(sequences),
      clientId_(clientId),
      taxRate_(TaxRate::Of(business)) {
  LoadDiary(from);
}

void VisitWriter::LoadDiary(QDate from) {
  const Recordset rows = business_.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Employee_ID, Diary.Status, Diary.Schedule_Date, "
          "Diary.Description, Diary.Notes, Diary_Services.Service_ID "
          "FROM Diary LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID "
          "WHERE Diary.Client_ID = {} AND Diary.Schedule_Date >= {} ORDER BY Diary.Diary_ID",
          clientId_, from));
  for (const Record row : rows) {
    const auto moment = row[u"Schedule_Date"].ToDateTime();
    if (!moment || moment->time != QTime(0, 0)) continue;  // no whole day: no date is equal to it
    const qint64 day = moment->date.toJulianDay();
    const Value& serviceId = row[u"Service_ID"];
    if (!serviceId.IsNull()) scheduled_.insert({serviceId.ToLong(), day});

    const Value& employeeId = row[u"Employee_ID"];
    const bool isOpenJob =
        row[u"Status"].ToText().compare(QStringLiteral("J"), Qt::CaseInsensitive) == 0;
    const Place place(employeeId.ToLong(), day);
    if (!isOpenJob || employeeId.IsNull() || openJobs_.contains(place)) continue;
    openJobs_.insert(place, entries_.size());
    Entry entry;
    entry.diaryId = row[u"Diary_ID"].ToLong();
    entry.description = row[u"Description"].ToText();
    entry.notes = row[u"Notes"].ToText();
    entries_.push_back(entry);
  }
}

bool VisitWriter::IsScheduled(qint64 serviceId, QDate day) const {
  return scheduled_.contains({serviceId, day.toJulianDay()});
}

void VisitWriter::AddVisit(qint64 employeeId, QDate day, const VisitLine& line) {
  const Place place(employeeId, day.toJulianDay());
  auto job = openJobs_.constFind(place);
  if (job == openJobs_.constEnd()) {
    Entry entry;
    entry.employeeId = employeeId;
    entry.day = day;
    entry.sequence = sequences_.Next(day);
    entry.isNew = true;
    job = openJobs_.insert(place, entries_.size());
    entries_.push_back(entry);
  }
  const Money gst = taxRate_.CalculateGSTComponent(line.price);
  Entry& entry = entries_[*job];
  entry.description = JoinDescription(entry.description, line.serviceCode);
  entry.notes = JoinNotes(entry.notes, line.notes);
  entry.price += line.price;
  entry.gst += gst;
  entry.isChanged = true;
  lines_.push_back({*job, line.serviceId, line.price, gst, line.frequency});
  scheduled_.insert({line.serviceId, day.toJulianDay()});
}

int VisitWriter::Write() {
  const int made = InsertNewEntries();
  UpdateOldEntries();
  InsertLines();
  return made;
}

int VisitWriter::InsertNewEntries() {
  std::vector<Entry*> added;
  for (Entry& entry : entries_) {
    if (entry.isNew) added.push_back(&entry);
  }
  if (added.empty()) return 0;
  const qint64 last = business_.FirstField(Sql("SELECT MAX(Diary_ID) FROM Diary; ")).ToLong();
  for (const Entry* entry : added) {
    business_.RunSQL(
        Sql("INSERT INTO Diary (Client_ID, Employee_ID, Status, Schedule_Date, Description, "
            "Total_Price, Total_GST, Time_Requested, Estimated_Minutes, Sequence, Notes) "
            "VALUES ({}, {}, 'J', {}, {}, {}, {}, 0, 0, {}, {});",
            clientId_, entry->employeeId, entry->day, entry->description, entry->price, entry->gst,
            entry->sequence, entry->notes));
  }
  // Keys only grow, so the new rows are those beyond the last one, in the order of their making.
  const Recordset keys = business_.RunSQL(
      Sql("SELECT Diary_ID FROM Diary WHERE Diary_ID > {} ORDER BY Diary_ID", last));
  if (keys.RowCount() != added.size()) {
    throw ProgramError(
        5, QStringLiteral("The diary did not take all visits of client %1").arg(clientId_));
  }
  for (size_t row = 0; row < added.size(); ++row)
    added[row]->diaryId = keys.Row(row)[u"Diary_ID"].ToLong();
  return static_cast<int>(added.size());
}

void VisitWriter::UpdateOldEntries() {
  for (const Entry& entry : entries_) {
    if (entry.isNew || !entry.isChanged) continue;
    business_.RunSQL(
        Sql("UPDATE Diary SET Description = {}, Notes = {}, "
            "Total_Price = Total_Price + {}, Total_GST = Total_GST + {} "
            "WHERE Diary_ID = {}; ",
            entry.description, entry.notes, entry.price, entry.gst, entry.diaryId));
  }
}

void VisitWriter::InsertLines() {
  for (const Line& line : lines_) {
    business_.RunSQL(
        Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST, Frequency) "
            "VALUES ({}, {}, {}, {}, {}); ",
            entries_[line.entry].diaryId, line.serviceId, line.price, line.gst, line.frequency));
  }
}

}  // namespace quillary::roll
