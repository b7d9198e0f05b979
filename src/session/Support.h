#pragma once

#include <QString>

namespace quillary {

class LocalSettings;

namespace session {

/// Where users are sent for help: what the installation's settings say. Empty where they say
/// nothing, and then nothing is offered.
struct Support {
  QString address;     // of mail
  QString faqPage;     // questions and answers, on the internet
  QString manualPage;  // the group's own edition of the manual
  QString webSite;
};

/// From the section "SUPPORT" of qy.ini: Address, FAQ, Manual, Website.
Support ReadSupport(const LocalSettings& settings);

}  // namespace session
}  // namespace quillary
