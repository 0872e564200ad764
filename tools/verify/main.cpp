// Measures the four schemes on problems with known solutions:
//   verify <blast reference> <verification.md to write> <folder for pictures>
// and on families of problems drawn from a seed, beside classic schemes:
//   verify --families [options]
#include <exception>
#include <fstream>
#include <iostream>
#include <span>
#include <sstream>
#include <string_view>

#include "verify/families/family_command.h"
#include "verify/families/family_report.h"
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
        std::ostringstream tables;
        WriteVerification(tables, argv[1]);
        std::cout << tables.str();
        std::ofstream file(argv[2]);
        file
            << "# What the schemes were measured to do\n\n"
               "Written by `tools/verify`; do not edit by hand. Errors are means over the cells of "
               "the absolute difference from the exact cell averages at exactly the stopping time, "
               "with the default constants, the instrument's step control and a Courant target of "
               "0.85. The best public figure is the best, problem by problem, that any of several "
               "public codes reaches at its best settings; for the density in brackets the ratios "
               "at 100 and 400 cells to the best of "
               "those that work on a fixed grid throughout, where that differs. Overshoot is that "
               "of the density past the range of the solution, over that range; floored counts "
               "cells that a floor had to lift.\n\n"
               "The 32-bit sound waves end at rounding.\n"
            << tables.str();
        const FamilySettings drawn;
        WriteFamilySection(file, drawn, RunFamilies(drawn));
        file << "\n## Pictures of Kestrel\n";
        for (const char* name :
             {"test1", "test2", "test3", "test4", "test5", "test6", "test7", "test8", "blast"})
            file << "\n![" << name << "](pictures/" << name << ".svg)\n";
        DrawPictures(argv[3], argv[1]);
    } catch (const std::exception& failure) {
        std::cerr << "verify: " << failure.what() << "\n";
        return 1;
    }
    return 0;
}
