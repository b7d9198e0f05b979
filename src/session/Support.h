#pragma once

#include <QString>

namespace quillary::session {

// Where users are sent for help. A build for a group puts its own in place.
inline const QString kSupportAddress = QStringLiteral("support@quillary.example");
inline const QString kSupportPage = QStringLiteral("https://www.quillary.example/faq");
inline const QString kManualPage = QStringLiteral("https://www.quillary.example/manual");
inline const QString kWebSite = QStringLiteral("https://www.quillary.example/");

}  // namespace quillary::session
