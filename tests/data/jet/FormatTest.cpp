#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

struct FormatCase {
  const char* arguments;
  const char* text;
};

void CheckFormats(const std::vector<FormatCase>& cases) {
  ScratchFile file;
  file.RunAll(R"(CREATE TABLE One (Name TEXT(50), Day DATE, Price CURRENCY, Done YESNO)
INSERT INTO One (Name, Day, Price, Done) VALUES ('Ann', #2026/11/2 14:05:07#, -1234.565, True))");
  for (const FormatCase& each : cases) {
    SCOPED_TRACE(each.arguments);
    EXPECT_EQ(Shown(file.Run("SELECT Format(" + std::string(each.arguments) + ") FROM One")),
              each.text);
  }
}

TEST(Format, WritesNumbers) {
  CheckFormats({
      {"Price, 'Currency'", "-$1,234.57"},
      {"Price, 'standard'", "-1,234.57"},
      {"Price, 'Fixed'", "-1234.57"},
      {"Price, 'General Number'", "-1234.565"},
      {"Price", "-1234.565"},
      {".1275, 'Percent'", "12.75%"},
      {"12345, 'Scientific'", "1.23E+04"},
      {"9.999E-05, '0.0E-00'", "1.0E-04"},
      {"0, '0.00E+00'", "0.00E+00"},
      {"Done, 'Yes/No'", "Yes"},
      {"0, 'On/Off'", "Off"},
      {"2.5, '0'", "3"},
      {"-2.5, '0'", "-3"},
      {"0.285, '0.00'", "0.29"},
      {"9.995, '0.00'", "10.00"},
      {".05, '0.00'", "0.05"},
      {"-0.001, '0.00'", "0.00"},
      {"1234567.891, '#,##0.0#'", "1,234,567.89"},
      {"999.5, '#,##0'", "1,000"},
      {"7, '000'", "007"},
      {"7, '0000,000'", "0,000,007"},
      {"0, '#'", ""},
      {"5, '#.##'", "5."},
      {".5, '#.00'", ".50"},
      {"12.5, '.00'", "12.50"},
      {"12345678, '0,,'", "12"},
      {"1234, '$ 0 \"each\" \\d'", "$ 1234 each d"},
      {"5551234, '(#) ###-##'", "(55) 512-34"},
      {"-5, '0;(0);nil'", "(5)"},
      {"0, '0;(0);nil'", "nil"},
      {"Null, '0;(0);nil;none'", "none"},
      {"Null, '0.00'", ""},
      {"100000000000000000000, '0'", "100000000000000000000"},
      {"'12.345', '0.0'", "12.3"},
      {"'about 12', '0.0'", "about 12"},
      {"Day, '0.0'", "46328.6"},
  });
}

TEST(Format, WritesMoments) {
  CheckFormats({
      {"Day", "2/11/2026 2:05:07 PM"},
      {"Day, 'General Date'", "2/11/2026 2:05:07 PM"},
      {"Day, 'Long Date'", "Monday, 2 November 2026"},
      {"Day, 'Medium Date'", "02-Nov-26"},
      {"Day, 'Short Date'", "2/11/2026"},
      {"Day, 'Long Time'", "2:05:07 PM"},
      {"Day, 'Medium Time'", "02:05 PM"},
      {"Day, 'Short Time'", "14:05"},
      {"Day, 'd mmm yyyy'", "2 Nov 2026"},
      {"Day, 'DDDD, mmmm DD'", "Monday, November 02"},
      {"Day, 'ddd m/yy'", "Mon 11/26"},
      {"Day, 'hh:mm:ss'", "14:05:07"},
      {"Day, 'h:m am/pm'", "2:5 pm"},
      {"Day, 'yyyymmddhhnnss'", "20261102140507"},
      {"Day, '\"Day\" y, \\q\\uarter q, ww, w'", "Day 306, quarter 4, 45, 2"},
      {"Day, 'w', 2", "1"},
      {"46328, 'd/m/yyyy'", "2/11/2026"},
      {"'5 Mar 2019', 'yyyy-mm-dd'", "2019-03-05"},
      {"'46328', 'd'", "2"},
      {"'soon', 'd mmm'", "soon"},
      {"#12:30#, 'h:nn AM/PM'", "12:30 PM"},
      {"#0:30#, 'h A/P'", "12 A"},
      {"Null, 'd mmm'", ""},
  });
}

TEST(Format, WritesTexts) {
  CheckFormats({
      {"Name, '>'", "ANN"},
      {"Name, '<'", "ann"},
      {"Name, '@@@@@'", "  Ann"},
      {"Name, '!@@@@@'", "Ann  "},
      {"Name, '&&&&&'", "Ann"},
      {"'5551234', '@@@-@@'", "55512-34"},
      {"Name, '@\"!\"'", "Ann!"},
      {"'', '@;\"none\"'", "none"},
      {"Null, '@;\"none\"'", "none"},
      {"Null", ""},
      {"Done, '@@@@'", "  -1"},
  });
}

}  // namespace
}  // namespace quillary::jet
