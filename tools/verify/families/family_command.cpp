#include "verify/families/family_command.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "verify/families/family_report.h"
#include "verify/families/family_run.h"

namespace {

constexpr const char* Usage =
    "usage: verify --families [--seed S] [--cases N] [--only FAMILY,...] [--scheme NAME,...]\n"
    "                         [--libraries FOLDER] [--threads N] [--section FILE]\n"
    "                         [--list] [--brief]\n";

std::vector<std::string> Split(const std::string& list) {
    std::vector<std::string> parts;
    std::istringstream in(list);
    for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
    return parts;
}

std::vector<SchemeKind> SchemesNamed(const std::string& list) {
    std::vector<SchemeKind> kinds;
    for (const std::string& name : Split(list)) {
        const auto found = std::find_if(AllSchemes.begin(), AllSchemes.end(),
                                        [&](SchemeKind kind) { return name == SchemeName(kind); });
        if (found == AllSchemes.end()) throw std::invalid_argument("no scheme " + name);
        kinds.push_back(*found);
    }
    return kinds;
}

std::vector<std::string> FamiliesNamed(const std::string& list) {
    const auto families = AllFamilies();
    const std::vector<std::string> names = Split(list);
    for (const std::string& name : names)
        if (std::none_of(families.begin(), families.end(),
                         [&](const Family& family) { return name == family.Name; }))
            throw std::invalid_argument("no family " + name + "; --list names them");
    return names;
}

void ListFamilies() {
    for (const Family& family : AllFamilies())
        std::cout << family.Name << ": " << family.What << "\n";
}

}  // namespace

int RunFamilyCommand(std::span<char*> options) {
    FamilySettings settings;
    bool brief = false;
    std::string section;
    for (std::size_t k = 0; k < options.size(); ++k) {
        const std::string option = options[k];
        if (option == "--list") {
            ListFamilies();
            return 0;
        }
        if (option == "--brief") {
            brief = true;
            continue;
        }
        if (k + 1 == options.size()) {
            std::cerr << Usage;
            return 2;
        }
        const std::string value = options[++k];
        if (option == "--seed") {
            settings.Seed = std::stoull(value);
        } else if (option == "--cases") {
            settings.Cases = std::stoi(value);
        } else if (option == "--only") {
            settings.Only = FamiliesNamed(value);
        } else if (option == "--scheme") {
            settings.Schemes = SchemesNamed(value);
        } else if (option == "--libraries") {
            settings.Folder = value;
        } else if (option == "--section") {
            section = value;
        } else if (option == "--threads") {
            settings.Threads = std::stoi(value);
        } else {
            std::cerr << Usage;
            return 2;
        }
    }
    const std::vector<FamilyResult> results = RunFamilies(settings);
    PrintFamilies(std::cout, settings, results, !settings.Only.empty() && !brief);
    if (!section.empty()) {
        std::ofstream file(section);
        WriteFamilySection(file, settings, results);
    }
    return 0;
}
