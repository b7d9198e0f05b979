#include "documents/screens/PagePrinting.h"

#include "documents/screens/PagePainter.h"

#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <stdexcept>

namespace quillary::documents {

namespace {

QPageSize::PageSizeId SizeOf(Paper paper) {
  switch (paper) {
    case Paper::A3:
      return QPageSize::A3;
    case Paper::A5:
      return QPageSize::A5;
    case Paper::Letter:
      return QPageSize::Letter;
    case Paper::Legal:
      return QPageSize::Legal;
    case Paper::A4:
      break;
  }
  return QPageSize::A4;
}

}  // namespace

void FitPrinter(QPrinter& printer, const Composition& document) {
  printer.setDocName(document.title);
  printer.setFullPage(true);
  printer.setPageSize(QPageSize(SizeOf(document.setup.paper)));
  printer.setPageOrientation(document.setup.landscape ? QPageLayout::Landscape
                                                      : QPageLayout::Portrait);
}

void PrintPages(QPrinter& printer, const Composition& document) {
  const int count = static_cast<int>(document.pages.size());
  const int first = printer.fromPage() > 0 ? printer.fromPage() : 1;
  const int last = printer.toPage() > 0 ? std::min(printer.toPage(), count) : count;
  QPainter painter;
  if (!painter.begin(&printer)) throw std::runtime_error("The printer cannot be started.");
  const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
  const double scale =
      std::min({printer.resolution() / kTwipsPerInch, paper.width() / document.setup.Width(),
                paper.height() / document.setup.Height()});
  PagePainter pages;
  for (int number = first; number <= last; ++number) {
    if (number > first && !printer.newPage())
      throw std::runtime_error("The printer did not take a further page.");
    painter.resetTransform();
    painter.scale(scale, scale);
    pages.Draw(painter, document.pages[static_cast<size_t>(number - 1)]);
  }
  if (!painter.end()) throw std::runtime_error("The printer did not finish.");
}

}  // namespace quillary::documents
