// What the program says on standard error when it cannot go on.
#pragma once

// From here on a crash names the library in which it has happened, which may be a scheme of the
// user's own; the toolkit's fatal errors (no display, say) end the program with their message and
// no core file; and a write beyond the limit for files fails instead of ending the program.
void PrepareLastWords();
