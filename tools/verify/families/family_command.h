// The command line `verify --families ...`.
#pragma once

#include <span>

// Returns the exit status. Options: --seed S, --cases N, --only FAMILY[,FAMILY...],
// --scheme NAME[,NAME...], --libraries FOLDER, --threads N, --section FILE (the section of the
// document), --list, --brief.
int RunFamilyCommand(std::span<char*> options);
