#include "support/ScriptedOutside.h"

namespace quillary {

void ScriptedPrompter::Expect(const QString& part, Answer answer) {
  expectations_.push_back({part, answer, {}, false});
}

void ScriptedPrompter::ExpectText(const QString& part, std::optional<QString> typed) {
  expectations_.push_back({part, Answer::No, std::move(typed), true});
}

QStringList ScriptedPrompter::TakeTold() {
  return std::exchange(told_, {});
}

void ScriptedPrompter::CheckAllAsked() const {
  for (const Expectation& expected : expectations_) {
    ADD_FAILURE() << "Nobody asked: " << expected.part.toStdString();
  }
}

const ScriptedPrompter::Expectation* ScriptedPrompter::Take(const QString& text, bool isText) {
  for (auto at = expectations_.begin(); at != expectations_.end(); ++at) {
    if (at->isText != isText || !text.contains(at->part)) continue;
    current_ = *at;
    expectations_.erase(at);
    return &current_;
  }
  ADD_FAILURE() << "Unexpected question: " << text.toStdString();
  return nullptr;
}

Answer ScriptedPrompter::Ask(const QString& text, const QString&) {
  const Expectation* expected = Take(text, false);
  return expected ? expected->answer : Answer::No;
}

void ScriptedPrompter::Tell(Tone, const QString& text, const QString&) {
  told_ += text;
}

std::optional<QString> ScriptedPrompter::AskText(const QString&, const QString& prompt,
                                                 const QString&) {
  const Expectation* expected = Take(prompt, true);
  return expected ? expected->typed : std::nullopt;
}

QString MemorySettings::Read(const QString& section, const QString& key,
                             const QString& ifMissing) const {
  const auto at = values_.find({section, key});
  return at == values_.end() ? ifMissing : at->second;
}

void MemorySettings::Write(const QString& section, const QString& key, const QString& value) {
  values_[{section, key}] = value;
}

void CollectedErrors::ReportError(const QString& form, const QString& errorLine,
                                  const QString& procedure, const QString& furtherInformation) {
  reports_ += QStringList{form, procedure, errorLine, furtherInformation}.join(u'|');
}

QStringList CollectedErrors::TakeReports() {
  return std::exchange(reports_, {});
}

std::optional<QString> ScriptedHeadOffice::CallMessages(
    const QString& method, const std::vector<std::pair<QString, QString>>& parameters) {
  QString call = method;
  for (const auto& [name, value] : parameters) call += u' ' + name + u'=' + value;
  calls += call;
  const auto reply = replies.find(method);
  return reply == replies.end() ? std::nullopt : reply->second;
}

bool ScriptedHeadOffice::LogIn() {
  if (letsIn) sessionKey = QStringLiteral("SESSION");
  return letsIn;
}

bool RecordedDesktop::StartProgram(const QString& name, const QStringList& arguments) {
  if (!programsPresent.contains(name)) return false;
  started += name;
  startedWith += arguments;
  return true;
}

}  // namespace quillary
