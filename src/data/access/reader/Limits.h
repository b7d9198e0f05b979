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
/// From here on the process can read what it has open, write to the pipe and take memory, and
/// nothing else: no file, no socket, no process, no signal. Whatever is needed has to be open. What
/// is tried all the same fails with EPERM. False when the machine refuses.
bool ForbidAllButReading(int pipe);

}  // namespace quillary
