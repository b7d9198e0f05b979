#pragma once

#include "documents/pages/PageModel.h"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>

namespace quillary::documents {

/// The pages of a document, of which the last is open as long as it is being made. The first ones
/// are kept as they are; of a document of thousands the others are packed, to some hundredth of
/// what they take otherwise, and unpacked one at a time. Copies share the pages: who shows a
/// document sees it grow while it is still being made.
class PageList {
 public:
  /// The line at the foot of a page, told the page's number, counted from 1, and that of all.
  using Footer = std::function<TextRun(int number, int count)>;

  PageList();

  size_t size() const;
  bool empty() const { return size() == 0; }
  /// A page with its footer.
  Page operator[](size_t at) const;
  Page front() const { return (*this)[0]; }

  /// Closes the last page and opens another.
  void Add();
  /// The last page, without footer.
  Page& Last();
  void SetFooter(Footer footer);

  /// One more than the highest link of any text.
  int LinkCount() const;
  /// The first page with a text of that link, where links grow from page to page.
  size_t PageOfLink(int link) const;

  class Iterator {
   public:
    Iterator(const PageList* pages, size_t at) : pages_(pages), at_(at) {}
    Page operator*() const { return (*pages_)[at_]; }
    Iterator& operator++() {
      ++at_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    const PageList* pages_;
    size_t at_;
  };
  Iterator begin() const { return {this, 0}; }
  Iterator end() const { return {this, size()}; }

 private:
  struct Pages;
  std::shared_ptr<Pages> pages_;
};

}  // namespace quillary::documents
