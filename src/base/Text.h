#pragma once

#include <QByteArray>
#include <QString>

namespace quillary {

/// The text before the last "/" or "\"; "" when there is neither.
QString ParentFolder(const QString& path);
/// The text after the last "/" or "\"; the whole text when there is neither.
QString FileNameOfPath(const QString& path);
/// The text before the last "."; the whole text when there is none.
QString FileNameWithoutExtension(const QString& name);
/// The text after the last "."; "" when there is none.
QString FileExtension(const QString& name);
/// For names of files made from client and report names, so that a name can neither leave its
/// folder nor be refused: line ends and "?" become a blank, "%" becomes "-", and : / \ * | < > .
/// go.
QString RemoveIllegalFileCharacters(const QString& text);
/// The text as searches compare it: without regard to case, and letters without their accents, so
/// that "orn" finds "Örn".
QString FoldedForSearch(const QString& text);
/// Whether some word of the text begins with `start`; both as FoldedForSearch() gives them. Words
/// begin behind anything that is no letter or digit.
bool BeginsAWord(const QString& text, const QString& start);
/// "1 job", "3 jobs": a count with its noun, whose plural ends in s unless it is given.
QString Counted(size_t count, const char* one, const char* many = nullptr);
/// RFC 4648 section 4: standard alphabet, "=" padding, no line breaks.
QString Base64Encode(const QByteArray& bytes);

}  // namespace quillary
