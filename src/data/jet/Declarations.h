#pragma once

#include "data/jet/Catalogue.h"

#include <QString>
#include <QStringView>

#include <optional>

/// How a column is declared in the file, so that its type can be read back from the declaration
/// alone and SQLite's affinity suits the values: a currency and a double keep whole values as whole
/// numbers, and texts stay texts even when they look like numbers.
namespace quillary::jet {

/// The declared type with its constraints, such as "TEXT(50) COLLATE NOCASE".
QString DeclarationOf(const Column& column);
/// The type behind a declaration as SQLite's table info tells it, constraints left out or not. A
/// foreign declaration is taken by its affinity. An INTEGER that is the table's counter reads as
/// Long when the words PRIMARY KEY are missing: the caller knows whether it is the key.
ColumnType TypeOfDeclaration(QStringView declared);
/// The width of "TEXT(50)"; 0 when none was given.
int WidthOfDeclaration(QStringView declared);
/// The type that a word of CREATE TABLE stands for, without regard to case; nothing for no type.
std::optional<ColumnType> TypeOfWord(QStringView word);

}  // namespace quillary::jet
