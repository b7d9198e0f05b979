#include "cli/Ports.h"

namespace quillary::cli {

QString OneLine(const QString& text) {
  return text.simplified();
}

Answer PrintingPrompter::Ask(const QString& text, const QString&) {
  if (!quiet_) {
    out_ << OneLine(text) << (answer_ == Answer::Yes ? " Yes" : " No") << '\n';
  }
  return answer_;
}

void PrintingPrompter::Tell(Tone tone, const QString& text, const QString&) {
  if (tone != Tone::Information) {
    toldOfFailure_ = true;
    err_ << "quillaryctl: " << OneLine(text) << '\n';
  } else if (!quiet_) {
    out_ << OneLine(text) << '\n';
  }
}

std::optional<QString> PrintingPrompter::AskText(const QString&, const QString&, const QString&) {
  return std::nullopt;
}

void PrintedErrors::ReportError(const QString& form, const QString& errorLine,
                                const QString& procedure, const QString& furtherInformation) {
  reported_ = true;
  err_ << "quillaryctl: " << OneLine(errorLine) << " (" << form << ", " << procedure;
  if (!furtherInformation.isEmpty()) err_ << ": " << OneLine(furtherInformation);
  err_ << ")\n";
}

QString ForgottenSettings::Read(const QString& section, const QString& key,
                                const QString& ifMissing) const {
  const auto at = values_.find({section, key});
  return at == values_.end() ? ifMissing : at->second;
}

void ForgottenSettings::Write(const QString& section, const QString& key, const QString& value) {
  values_[{section, key}] = value;
}

}  // namespace quillary::cli
