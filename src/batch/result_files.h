// The files of a run: its last state, and all stored states if asked for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/run_result.h"

// What the head of a file tells, a line each without the mark: the command that does the run again,
// and the text of a set-up file.
using FileHead = std::vector<std::string>;

// The last state as comma-separated values, cells 1..N, with the exact one beside it where there is
// one. The last line of the head is the run's figures, by which a whole file is known.
std::string LastStateText(const RunResult& result, const FileHead& head);

// All stored states, with their number and time in front of each cell.
std::string StoredStatesText(const RunResult& result, const FileHead& head);

// Replaces the file as a whole or not at all, through a name beside it, and sees to it that the
// disk has it. Empty, or why not.
std::string WriteWhole(const std::string& path, const std::string& text);

// The figures in a file that an earlier study wrote under the same head, as JSON; nothing if there
// is no such file, or if its last line is not that of `lastCell`.
std::optional<std::string> FiguresInFile(const std::string& path, const FileHead& head,
                                         int lastCell);

// The content of a set-up file; nothing if it cannot be read, is empty or larger than 8 MB.
std::optional<std::string> ContentOf(const std::string& path);
