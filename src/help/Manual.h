#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace quillary::help {

/// A stretch of the manual: a heading and what stands under it.
struct Passage {
  QString place;  // "week.html#frmBanking"
  QString title;
  int level = 1;  // of the heading; 1 begins a page
  QString text;   // without marks
};

/// The manual as it was built: pages in a folder, in the order in which the first of them, the
/// index, names them. An anchor that bears the name of a screen or of a menu's command says that
/// the words behind it explain that.
class Manual {
 public:
  /// Reads the pages; a folder without them gives a manual without passages.
  explicit Manual(const QString& folder);

  const QString& Folder() const { return folder_; }
  const std::vector<Passage>& Passages() const { return passages_; }
  /// Where the name is explained; empty when it is not.
  QString PlaceOf(const QString& name) const { return places_.value(name); }
  /// The place of the heading under which a place lies; the same for a heading's own.
  QString HeadingOf(const QString& place) const { return headings_.value(place, place); }
  /// All names that are explained.
  QStringList Names() const { return places_.keys(); }
  /// What stands behind the name, up to the next name: the words that explain it.
  QString WordsOn(const QString& name) const { return words_.value(name); }
  /// The passages that hold all the words, however they begin or end; first those that hold them
  /// in their heading.
  std::vector<const Passage*> Find(const QString& words) const;

 private:
  void ReadPage(const QString& file);

  QString folder_;
  std::vector<Passage> passages_;
  QHash<QString, QString> places_;
  QHash<QString, QString> words_;
  QHash<QString, QString> headings_;
};

/// Where the manual of this installation lies, seen from the folder of the running program. Empty
/// when there is none.
QString ManualFolder(const QString& programs);

}  // namespace quillary::help
