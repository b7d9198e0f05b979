#pragma once

#include <QString>

/// Requests for what the program tells of itself.
namespace quillary {

/// The manual where it tells of what is in front.
struct OpenManual {};
/// The manual's questions and answers.
struct OpenFAQ {};
/// The manual in the desktop's browser: the group's on the internet, where the installation names
/// one, or else the one that is installed.
struct OpenManualInBrowser {};
/// All keys of the screen in front and of the main window.
struct OpenShortcuts {};

}  // namespace quillary
