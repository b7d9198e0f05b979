#include "documents/screens/ReportPlacing.h"

#include "session/ProgramFolder.h"

#include <QPrinterInfo>

namespace quillary::documents {

namespace {

/// Of the default printer; `usual` where there is none.
Paper PrinterPaper(Paper usual) {
  const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
  if (printer.isNull()) return usual;
  switch (printer.defaultPageSize().id()) {
    case QPageSize::A3:
      return Paper::A3;
    case QPageSize::A5:
      return Paper::A5;
    case QPageSize::Letter:
      return Paper::Letter;
    case QPageSize::Legal:
      return Paper::Legal;
    default:
      return Paper::A4;
  }
}

}  // namespace

ReportPlaces PlacesOfReports() {
  ReportPlaces places = ReportPlacesUnder(session::ProgramFolder());
  places.paper = PrinterPaper(places.paper);
  return places;
}

}  // namespace quillary::documents
