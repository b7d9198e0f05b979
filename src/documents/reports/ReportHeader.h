#pragma once

#include "data/Business.h"
#include "documents/pages/PageModel.h"

namespace quillary::documents {

/// Who the business is, in the words of the head of its documents.
struct HeaderStrings {
  QString company;
  QString contact;       // first name and surname
  QString address;       // two lines, the second one moved in to stand below the first
  QString plainAddress;  // two lines
  QString phone;         // "1234 or 5678"
  // A label, the text and a line end; empty when there is no text.
  QString emailLine;
  QString faxLine;
  QString providerLine;
  QString acnLine;
  QString accountName;
  QString bsbAndAccount;
  QString taxLine;  // the country's word for the tax number, and the number
  QString number;   // the tax number alone
};

/// Reads the header strings; all empty, but for the blanks between their parts, in a business
/// without personal details.
HeaderStrings SetHeaderVariable(Business& business);

/// The JPEG of the business's division, below the folder of the program. It need not be there.
QString LogoFile(Business& business, const QString& applicationFolder);

/// The font of the notes of a document, as the user chose it.
PageFont ReadNotesFont(const SettingsStore& settings);

}  // namespace quillary::documents
