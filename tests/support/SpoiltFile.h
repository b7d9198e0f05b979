#pragma once

#include <QByteArray>
#include <QRandomGenerator>

namespace quillary {

/// An Access file spoilt in one of the ways in which disks, cables and programs spoil them.
inline QByteArray Spoil(QByteArray bytes, QRandomGenerator& random) {
  constexpr int kMutatedPage = 4096;
  const int pages = static_cast<int>(bytes.size()) / kMutatedPage;
  const auto page = [&] { return random.bounded(pages) * kMutatedPage; };
  const auto anywhere = [&] { return random.bounded(static_cast<int>(bytes.size())); };
  switch (random.bounded(6)) {
    case 0:  // single bits
      for (int i = random.bounded(1, 40); i > 0; --i) {
        const int at = anywhere();
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << random.bounded(8)));
      }
      break;
    case 1:  // pages that were never written
      for (int i = random.bounded(1, 4); i > 0; --i) {
        bytes.replace(page(), kMutatedPage, QByteArray(kMutatedPage, '\0'));
      }
      break;
    case 2:  // a stretch of noise
      for (int at = anywhere(), end = at + random.bounded(1, 600); at < end; ++at) {
        bytes[at % bytes.size()] = static_cast<char>(random.bounded(256));
      }
      break;
    case 3:  // the end is missing
      bytes.truncate(random.bounded(1, pages) * kMutatedPage);
      break;
    case 4:  // a page in the place of another
      bytes.replace(page(), kMutatedPage, bytes.mid(page(), kMutatedPage));
      break;
    default:  // the head of a page, where its kind, owner and row count stand
      for (int start = page(), i = random.bounded(1, 8); i > 0; --i) {
        bytes[start + random.bounded(64)] = static_cast<char>(random.bounded(256));
      }
  }
  return bytes;
}

}  // namespace quillary
