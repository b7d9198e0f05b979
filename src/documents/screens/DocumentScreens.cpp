#include "documents/screens/DocumentScreens.h"

namespace quillary {

void RegisterDocumentScreens(Business&, const ScreenTools&) {}

}  // namespace quillary
