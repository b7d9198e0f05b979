#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::documents {

/// Lets the navigator print invoices, statements and reminders: to the preview when the user wants
/// them for the word processor, otherwise to a PDF file in the viewer of the machine.
void RegisterBillingDocumentScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::documents
