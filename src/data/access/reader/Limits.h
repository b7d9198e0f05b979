#pragma once

#include <QtGlobal>

namespace quillary {

/// What the reader may take of the machine.
struct Limits {
  quint64 memoryBytes = 0;
  quint64 processorSeconds = 0;
};

/// Binds this process: to the limits, to writing no file and no core, and to dying with the program
/// that started it. False when the machine refuses.
bool BindProcess(const Limits& limits);
/// From here on no file can be opened any more. Whatever is needed has to be open.
bool ForbidFiles();

}  // namespace quillary
