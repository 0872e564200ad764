// The version of the project, as the build knows it.
#pragma once

extern const char* const Version;
