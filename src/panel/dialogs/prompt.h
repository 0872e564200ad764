// The modal boxes of the panel. No tick runs while one is open.
#pragma once

#include <string>

struct Controls;

enum class PromptPlace { NearScreenCorner, Centred };

// Asks for a line of text. Gives the answer as typed, or the empty string for Cancel.
std::string Prompt(Controls& controls, const std::string& message, const std::string& title,
                   const std::string& defaultAnswer,
                   PromptPlace place = PromptPlace::NearScreenCorner);

// Shows a text until OK is pressed. Line ends may be LF or CR LF.
void ShowMessage(Controls& controls, const std::string& text);
