#pragma once

#include "documents/pages/Composer.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace quillary {

inline std::shared_ptr<const documents::PageFonts> TestFonts() {
  static const auto fonts =
      std::make_shared<const documents::PageFonts>(QStringLiteral(QUILLARY_BIN "/Fonts"));
  return fonts;
}

/// The texts of a page in the order in which they were put there.
inline QStringList TextsOf(const documents::Page& page) {
  QStringList texts;
  for (const documents::TextRun& run : page.texts) texts.append(run.text);
  return texts;
}

/// Fails for every pair of texts that overlap, and for every text beyond the margins.
inline void ExpectTidy(const documents::Composition& document) {
  const documents::Margins margins = document.setup.margins;
  const double right = document.setup.Width() - margins.right;
  const double bottom = document.setup.Height() - margins.bottom;
  constexpr double kTouch = 0.5;
  for (const documents::Page& page : document.pages) {
    for (size_t i = 0; i < page.texts.size(); ++i) {
      const documents::TextRun& a = page.texts[i];
      EXPECT_GE(a.x, margins.left - kTouch) << a.text.toStdString();
      EXPECT_LE(a.x + a.width, right + kTouch) << a.text.toStdString();
      EXPECT_GE(a.top, margins.top - kTouch) << a.text.toStdString();
      EXPECT_LE(a.top + a.height, bottom + kTouch) << a.text.toStdString();
      for (size_t j = i + 1; j < page.texts.size(); ++j) {
        const documents::TextRun& b = page.texts[j];
        const bool apart = a.x + a.width <= b.x + kTouch || b.x + b.width <= a.x + kTouch ||
                           a.top + a.height <= b.top + kTouch || b.top + b.height <= a.top + kTouch;
        EXPECT_TRUE(apart) << a.text.toStdString() << " / " << b.text.toStdString();
      }
    }
  }
}

/// What a program says of a file; nothing when the machine does not have the program.
inline std::optional<QString> Ask(const QString& program, const QStringList& arguments,
                                  int* exitCode = nullptr) {
  if (QStandardPaths::findExecutable(program).isEmpty()) return std::nullopt;
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  process.waitForFinished(30000);
  if (exitCode != nullptr) *exitCode = process.exitCode();
  return QString::fromUtf8(process.readAll());
}

}  // namespace quillary
