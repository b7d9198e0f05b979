#pragma once

#include "kit/Roles.h"

#include <QLabel>

namespace quillary {

/// A status outside a table: its word on the hue that its rows have.
///
///   chip->ShowStatus(client.status, HueOfClientStatus(client.status));
class Chip : public QLabel {
 public:
  explicit Chip(const char* name);

  /// Without a word nothing shows.
  void ShowStatus(const QString& word, Hue hue);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont SmallFont() const;

  Hue hue_ = Hue::None;
};

}  // namespace quillary
