// A text put in the place of a file.
#pragma once

#include <string>

class QString;

// The new content replaces the old as a whole, or the old stays. A file that may be written, in a
// folder that takes no new ones, is written where it lies, where only a loss of power in between
// can leave some of both. What is there and is no plain file, say a pipe or a device, is left
// alone. A failure is silent.
void ReplaceFile(const QString& name, const std::string& text);
