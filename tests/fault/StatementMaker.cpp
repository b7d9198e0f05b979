#include "StatementMaker.h"

#include <algorithm>
#include <cctype>

namespace quillary {
namespace {

const std::vector<std::string> kStrange = {
    "'",
    "''",
    "'O''Brien'",
    "#",
    "#2026/2/30#",
    "#2026/11/2#",
    "[",
    "]",
    "(",
    ")",
    "NULL",
    "Is Null",
    "99999999999999999999",
    "-1",
    "1e308",
    ".5",
    "$1,234.50",
    "'*a?#['",
    "SELECT",
    "FROM",
    "WHERE",
    "AND NOT",
    "OR",
    "UNION",
    "TOP 3",
    "DISTINCT",
    "GROUP BY",
    "HAVING",
    "ORDER BY",
    "INNER JOIN",
    "ON",
    "IN (1, 2)",
    "BETWEEN 1 AND",
    "LIKE",
    ";",
    "--",
    "/*",
    "\x01",
    "\xc3\xa9",
    "\xff",
    "{}",
    "?1",
    "@a",
    "sqlite_master",
    "rowid",
    "INTO Made",
    "\n",
    "True",
    "& 'x' &",
    "Mod",
    "\\",
    "^",
    "a.b.c",
    ".",
};
const std::vector<std::string> kHeads = {"",       "",          "",
                                         "TOP 2 ", "DISTINCT ", "DISTINCTROW TOP 30 PERCENT "};
const std::vector<std::string> kTables = {"Clients",         "Diary",    "Diary_Services",
                                          "Client_Services", "Payments", "Invoices",
                                          "Services",        "Holiday"};
const std::vector<std::string> kColumns = {
    "Client_ID", "Diary_ID", "Status", "Display_Name", "Schedule_Date", "Total_Price",
    "Price",     "Amount",   "Notes",  "Is_Billed_To", "Service_ID",    "Account_Balance",
    "Frequency", "Default",  "Suburb", "Next_Visit",   "Hol_Recurring", "Payment_Method"};
const std::vector<std::string> kLiterals = {
    "1",           "0",    "-1", "2.5",  "'J'",   "'j*'",   "True",         "NULL",
    "#2026/11/2#", "'12'", "''", "'$5'", "False", "100000", "'2026-11-02'", ".0001"};
const std::vector<std::string> kFunctions = {
    "IsNull", "UCase", "LCase", "Trim", "Len",   "CLng", "CDbl", "CStr", "Abs",    "Int", "Year",
    "Month",  "Day",   "Val",   "Sum",  "Count", "Max",  "Min",  "Avg",  "Format", "Nz"};
// A @ stands for each argument.
const std::vector<std::string> kCalls = {
    "Date()",
    "Now()",
    "DateAdd('m', @, @)",
    "DateDiff('ww', @, @)",
    "DatePart('ww', @, 2, 2)",
    "DateSerial(@, @, 1)",
    "MonthName(@)",
    "Weekday(@, @)",
    "Format(@, '#,##0.00;(0)')",
    "Format(@, 'd mmm yyyy h:nn AM/PM')",
    "Format(@, @)",
    "Replace(@, @, 'x')",
    "InStr(@, @)",
    "Mid(@, @, 2)",
    "Right(@, @)",
    "Switch(@ = @, @, True, 'x')",
    "Choose(@, @, @)",
    "IsDate(@)",
    "IsNumeric(@)",
    "First(@)",
    "Last(@)",
};
const std::vector<std::string> kOperators = {"+", "-",  "*",  "/",   "&",  "=",    "<>",  "<",
                                             ">", "<=", ">=", "AND", "OR", "LIKE", "Mod", "\\"};

bool IsWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

std::string Joined(const std::vector<std::string>& tokens) {
  std::string text;
  for (const std::string& token : tokens) text += token;
  return text;
}

}  // namespace

StatementMaker::StatementMaker(std::vector<std::string> real, unsigned seed)
    : real_(std::move(real)), random_(seed) {}

std::string StatementMaker::Next() {
  return Below(4) == 0 ? Grown() : Mutated();
}

StatementMaker::Tokens StatementMaker::Cut(const std::string& text) {
  Tokens tokens;
  for (size_t at = 0; at < text.size();) {
    size_t end = at + 1;
    const char first = text[at];
    if (first == '\'' || first == '#') {
      end = std::min(text.find(first, at + 1), text.size() - 1) + 1;
    } else if (IsWord(first)) {
      while (end < text.size() && IsWord(text[end])) ++end;
    }
    tokens.push_back(text.substr(at, end - at));
    at = end;
  }
  return tokens;
}

std::string StatementMaker::Mutated() {
  Tokens tokens = Real();
  if (Below(2) == 0) {
    // Another value in a statement that stays what it is.
    std::string& token = tokens[Below(tokens.size())];
    const bool isLiteral = token.front() == '\'' || token.front() == '#' ||
                           std::isdigit(static_cast<unsigned char>(token.front())) != 0;
    if (isLiteral) {
      token = Any(kLiterals);
      return Joined(tokens);
    }
  }
  for (size_t changes = Below(2) == 0 ? 1 : 1 + Below(4); changes > 0 && !tokens.empty(); --changes)
    MutateOnce(tokens);
  return Joined(tokens);
}

void StatementMaker::MutateOnce(Tokens& tokens) {
  const auto place = [&] { return tokens.begin() + static_cast<long>(Below(tokens.size())); };
  switch (Below(11)) {
    case 0:
      tokens.erase(place());
      break;
    case 1:
      tokens.insert(place(), " " + tokens[Below(tokens.size())] + " ");
      break;
    case 2:
      std::iter_swap(place(), place());
      break;
    case 3:
      *place() = Any(Real());
      break;
    case 4:
      *place() = Any(kStrange);
      break;
    case 5:
      tokens.insert(place(), " " + Any(kStrange) + " ");
      break;
    case 6:
      *place() = Below(2) == 0 ? Any(kColumns) : Any(kLiterals);
      break;
    case 7: {
      tokens.erase(place(), tokens.end());
      const Tokens other = Real();
      tokens.insert(tokens.end(), other.begin() + static_cast<long>(Below(other.size())),
                    other.end());
      break;
    }
    case 8: {
      const size_t depth = size_t{1} << Below(13);
      *place() = std::string(depth, '(') + Any(kLiterals) + std::string(depth, ')');
      break;
    }
    case 9: {
      std::string& token = *place();
      token[Below(token.size())] = static_cast<char>(Below(256));
      break;
    }
    default: {
      const Tokens copy(place(), tokens.end());
      for (size_t times = Below(6); times > 0 && tokens.size() < 4000; --times) {
        tokens.insert(place(), copy.begin(), copy.end());
      }
    }
  }
}

std::string StatementMaker::Expression(int depth) {
  if (depth <= 0 || Below(4) == 0) return Below(2) == 0 ? Any(kColumns) : Any(kLiterals);
  switch (Below(8)) {
    case 7: {
      std::string call = Any(kCalls);
      for (size_t at = call.find('@'); at != std::string::npos; at = call.find('@')) {
        call.replace(at, 1, Expression(depth - 2));
      }
      return call;
    }
    case 0:
      return Any(kFunctions) + "(" + Expression(depth - 1) + ")";
    case 1:
      return "(" + Expression(depth - 1) + ")";
    case 2:
      return "IIf(" + Expression(depth - 1) + ", " + Expression(depth - 1) + ", " +
             Expression(depth - 1) + ")";
    case 3:
      return "NOT " + Expression(depth - 1);
    default:
      return Expression(depth - 1) + " " + Any(kOperators) + " " + Expression(depth - 1);
  }
}

std::string StatementMaker::Source(int depth) {
  if (depth <= 0 || Below(2) == 0) return Any(kTables);
  const char* joins[] = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
  const std::string left = Any(kTables);
  const std::string right = Any(kTables);
  return "(" + left + joins[Below(3)] + right + " ON " + left + "." + Any(kColumns) + " = " +
         right + "." + Any(kColumns) + ")";
}

std::string StatementMaker::Grown() {
  const std::string where = " WHERE " + Expression(4);
  switch (Below(5)) {
    case 0:
      return "UPDATE " + Source(1) + " SET " + Any(kColumns) + " = " + Expression(3) + where;
    case 1:
      return "DELETE FROM " + Source(1) + where;
    case 2:
      return "INSERT INTO " + Any(kTables) + " (" + Any(kColumns) + ", " + Any(kColumns) +
             ") VALUES (" + Expression(2) + ", " + Expression(2) + ")";
    default:
      return "SELECT " + Any(kHeads) + Expression(3) + ", " + Expression(2) + " FROM " + Source(1) +
             where + (Below(3) == 0 ? " GROUP BY " + Expression(1) : "") +
             (Below(3) == 0 ? " ORDER BY " + Expression(1) : "");
  }
}

}  // namespace quillary
