#pragma once

namespace quillary {

/// The sign that long work is under way.
class BusyPointer {
 public:
  virtual ~BusyPointer() = default;
  virtual void ShowBusyPointer(bool on) = 0;
};

/// Shows the busy pointer for as long as it lives.
class BusyWhile {
 public:
  explicit BusyWhile(BusyPointer& pointer) : pointer_(pointer) { pointer_.ShowBusyPointer(true); }
  ~BusyWhile() { pointer_.ShowBusyPointer(false); }
  BusyWhile(const BusyWhile&) = delete;
  BusyWhile& operator=(const BusyWhile&) = delete;

 private:
  BusyPointer& pointer_;
};

}  // namespace quillary
