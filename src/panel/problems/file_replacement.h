// A text put in the place of a file.
#pragma once

#include <string>

class QString;

// Why no file of that name can be written, as part of a sentence; empty if one can as far as can be
// seen before: only writing tells that a disk is full.
std::string WhyNotWritable(const QString& name);

// The new content replaces the old as a whole once the disk has said that it holds it, or the old
// stays. A file that may be written, in a folder that takes no new ones, is written where it lies,
// where only a loss of power in between can leave some of both. What is there and is no plain file,
// say a pipe or a device, is left alone. Gives the reason of a failure, as part of a sentence;
// empty if the file is written.
std::string ReplaceFile(const QString& name, const std::string& text);
