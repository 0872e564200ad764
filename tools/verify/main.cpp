// Measures the four schemes on problems with known solutions:
//   verify <blast reference> <verification.md to write> <folder for pictures>
// and on families of problems drawn from a seed, beside classic schemes:
//   verify --families [options]
#include <exception>
#include <fstream>
#include <iostream>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "verify/families/family_command.h"
#include "verify/families/family_report.h"
#include "verify/verification_pictures.h"
#include "verify/verification_report.h"

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    const bool families = argc > 1 && arguments[1] == std::string_view("--families");
    if (argc != 4 && !families) {
        std::cerr << "usage: verify <blast-400.csv> <verification.md> <picture folder>\n"
                     "       verify --families [options]\n";
        return 2;
    }
    try {
        if (families) return RunFamilyCommand(arguments.subspan(2));
        std::ostringstream text;
        WriteVerification(text, argv[1]);
        std::cout << text.str();
        std::ofstream file(argv[2]);
        file << text.str();
        if (!file.flush()) throw std::runtime_error(std::string("cannot write ") + argv[2]);
        DrawPictures(argv[3], argv[1]);
    } catch (const std::exception& failure) {
        std::cerr << "verify: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
