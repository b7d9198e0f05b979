#include "help/Manual.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace quillary::help {

namespace {

const QString kIndex = QStringLiteral("index.html");

/// The words of a piece of a page, without its marks.
QString Plain(const QString& html) {
  static const QRegularExpression mark(QStringLiteral("<[^>]*>"));
  QString words = html;
  words.replace(mark, QStringLiteral(" "));
  const std::pair<const char*, const char*> signs[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}};
  for (const auto& [sign, letter] : signs)
    words.replace(QLatin1StringView(sign), QLatin1StringView(letter));
  return words.simplified();
}

QString ReadWhole(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

Manual::Manual(const QString& folder) : folder_(folder) {
  if (folder.isEmpty()) return;
  static const QRegularExpression link(QStringLiteral("href=\"([a-z-]+\\.html)"));
  QStringList pages{kIndex};
  const QString index = ReadWhole(QDir(folder).filePath(kIndex));
  for (auto match = link.globalMatch(index); match.hasNext();) pages += match.next().captured(1);
  pages.removeDuplicates();
  for (const QString& page : pages) ReadPage(page);
  for (const Passage& passage : passages_)
    if (passage.level == 1) headings_.insert(passage.place.section(u'#', 0, 0), passage.place);
}

void Manual::ReadPage(const QString& file) {
  static const QRegularExpression heading(QStringLiteral("<h([1-3])>(.*?)</h\\1>"));
  static const QRegularExpression anchor(QStringLiteral("<a name=\"([^\"]+)\">"));
  const QString page = ReadWhole(QDir(folder_).filePath(file));
  std::vector<QRegularExpressionMatch> heads;
  for (auto match = heading.globalMatch(page); match.hasNext();) heads.push_back(match.next());
  for (size_t at = 0; at < heads.size(); ++at) {
    const QString inner = heads[at].captured(2);
    const QString name = anchor.match(inner).captured(1);
    const qsizetype from = heads[at].capturedEnd();
    const qsizetype to = at + 1 < heads.size() ? heads[at + 1].capturedStart() : page.size();
    passages_.push_back({name.isEmpty() ? file : file + u'#' + name, Plain(inner),
                         heads[at].captured(1).toInt(), Plain(page.mid(from, to - from))});
  }
  std::vector<QRegularExpressionMatch> anchors;
  for (auto match = anchor.globalMatch(page); match.hasNext();) anchors.push_back(match.next());
  for (size_t at = 0; at < anchors.size(); ++at) {
    const QString name = anchors[at].captured(1);
    places_.insert(name, file + u'#' + name);
    // The last heading that begins before the name does, or that holds it.
    for (size_t head = 0; head < heads.size(); ++head)
      if (heads[head].capturedStart() < anchors[at].capturedStart())
        headings_.insert(file + u'#' + name,
                         passages_[passages_.size() - heads.size() + head].place);
    // Names that stand side by side share what follows them.
    size_t last = at;
    while (last + 1 < anchors.size() &&
           Plain(page.mid(anchors[last].capturedEnd(),
                          anchors[last + 1].capturedStart() - anchors[last].capturedEnd()))
               .isEmpty())
      ++last;
    const qsizetype to =
        last + 1 < anchors.size() ? anchors[last + 1].capturedStart() : page.size();
    words_.insert(name,
                  Plain(page.mid(anchors[last].capturedEnd(), to - anchors[last].capturedEnd())));
  }
}

std::vector<const Passage*> Manual::Find(const QString& words) const {
  const QStringList asked = words.simplified().split(u' ', Qt::SkipEmptyParts);
  const auto holds = [&](const QString& text) {
    return std::ranges::all_of(
        asked, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
  };
  std::vector<const Passage*> inHeading;
  std::vector<const Passage*> inText;
  for (const Passage& passage : passages_) {
    if (asked.isEmpty()) break;
    if (holds(passage.title))
      inHeading.push_back(&passage);
    else if (holds(passage.title + u' ' + passage.text))
      inText.push_back(&passage);
  }
  inHeading.insert(inHeading.end(), inText.begin(), inText.end());
  return inHeading;
}

QString ManualFolder(const QString& programs) {
  // Programs lie in bin, or in a folder of their own under lib.
  for (const char* way : {"../share/quillary/manual", "../../share/quillary/manual", "manual"}) {
    const QString folder = QDir::cleanPath(QDir(programs).filePath(QLatin1StringView(way)));
    if (QFile::exists(QDir(folder).filePath(kIndex))) return folder;
  }
  return {};
}

}  // namespace quillary::help
