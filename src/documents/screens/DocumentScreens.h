#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::documents {

/// Lets the navigator open the preview and print the documents.
void RegisterDocumentScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::documents
