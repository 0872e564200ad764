#include "core/setup/set_up_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"

namespace {

// A line of the first block: a key and a number, which is either real or whole.
struct Parameter {
    const char* Key;
    double ExperimentState::*Real;
    double SetUpValues::*ReadReal;
    int ExperimentState::*Whole;
    int SetUpValues::*ReadWhole;
};

constexpr Parameter RealNumber(const char* key, double ExperimentState::*live,
                               double SetUpValues::*read) {
    return {key, live, read, nullptr, nullptr};
}

constexpr Parameter WholeNumber(const char* key, int ExperimentState::*live,
                                int SetUpValues::*read) {
    return {key, nullptr, nullptr, live, read};
}

constexpr std::array<Parameter, 13> Parameters{{
    WholeNumber("NDifferenceScheme", &ExperimentState::NDifferenceScheme,
                &SetUpValues::NDifferenceScheme),
    WholeNumber("NGridCells", &ExperimentState::NGridCells, &SetUpValues::NGridCells),
    RealNumber("SoundSpeed0", &ExperimentState::SoundSpeed0, &SetUpValues::SoundSpeed0),
    RealNumber("CourantNumber", &ExperimentState::CourantNumber, &SetUpValues::CourantNumber),
    RealNumber("RhoMax", &ExperimentState::RhoMax, &SetUpValues::RhoMax),
    RealNumber("RhoMin", &ExperimentState::RhoMin, &SetUpValues::RhoMin),
    RealNumber("PMax", &ExperimentState::PMax, &SetUpValues::PMax),
    RealNumber("PMin", &ExperimentState::PMin, &SetUpValues::PMin),
    RealNumber("VXMax", &ExperimentState::VXMax, &SetUpValues::VXMax),
    RealNumber("VXMin", &ExperimentState::VXMin, &SetUpValues::VXMin),
    RealNumber("Periods", &ExperimentState::Periods, &SetUpValues::Periods),
    WholeNumber("NPlotsPerPeriod", &ExperimentState::NPlotsPerPeriod,
                &SetUpValues::NPlotsPerPeriod),
    WholeNumber("NSelected", &ExperimentState::NSelected, &SetUpValues::NSelected),
}};

constexpr std::array<std::string_view, 5> ColumnNames = {"MSelected", "X", "Rho", "P", "VX"};

// Columns count from 1. The numbers stand five columns left of their names but for the first.
constexpr std::size_t ValueColumn = 25;
constexpr std::array<std::size_t, 5> NameColumns = {1, 20, 45, 70, 95};
constexpr std::array<std::size_t, 5> NumberColumns = {1, 15, 40, 65, 90};

constexpr std::string_view LineEnd = "\r\n";

// ---- Writing ----

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

// Five fields that begin in their columns, the comma directly behind the field before.
std::string Row(const std::array<std::string, 5>& fields,
                const std::array<std::size_t, 5>& columns) {
    std::string line;
    for (std::size_t k = 0; k < fields.size(); ++k) {
        line.resize(std::max(line.size(), columns[k] - 1), ' ');
        line += fields[k];
        if (k + 1 < fields.size()) line += ',';
    }
    return line.append(LineEnd);
}

// ---- Reading ----

// A place in the text. Once a field is missing or malformed everything read is empty or 0.
struct Fields {
    std::string_view Rest;
    int Count = 0;             // fields begun, the one under way included
    std::string Trouble = {};  // why a field failed
    bool BeginsRight = false;  // with the name of the first line

    bool Failed() const { return !Trouble.empty(); }
    void Fail(const std::string& trouble) {
        if (!Failed()) Trouble = trouble;
    }
    void FailHere(const std::string& trouble) {
        Fail("field " + std::to_string(Count) + ' ' + trouble);
    }
};

constexpr const char* EndsTooSoon = "it ends too soon";

void SkipBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

// Takes the comma or the line end behind a field; the end of the text will do, nothing else.
bool TakeDelimiter(std::string_view& text) {
    if (text.empty()) return true;
    const char first = text.front();
    if (first != ',' && first != '\r' && first != '\n') return false;
    text.remove_prefix(text.substr(0, LineEnd.size()) == LineEnd ? LineEnd.size() : 1);
    return true;
}

std::string_view QuotedField(Fields& fields) {
    std::string_view& rest = fields.Rest;
    rest.remove_prefix(1);
    const std::size_t quote = rest.find('"');
    if (quote == std::string_view::npos) {
        fields.Fail(EndsTooSoon);
        return {};
    }
    const std::string_view field = rest.substr(0, quote);
    rest.remove_prefix(quote + 1);
    SkipBlanks(rest);
    return field;
}

std::string_view BareField(Fields& fields) {
    std::string_view& rest = fields.Rest;
    const std::size_t end = std::min(rest.find_first_of(",\r\n"), rest.size());
    std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end);
    field = field.substr(0, field.find_last_not_of(" \t") + 1);
    return field;
}

// The next field without its quotes or the blanks around it.
std::string_view ReadField(Fields& fields) {
    if (fields.Rest.empty()) fields.Fail(EndsTooSoon);
    if (fields.Failed()) return {};
    fields.Count += 1;
    SkipBlanks(fields.Rest);
    const bool isQuoted = !fields.Rest.empty() && fields.Rest.front() == '"';
    const std::string_view field = isQuoted ? QuotedField(fields) : BareField(fields);
    if (!fields.Failed() && !TakeDelimiter(fields.Rest)) {
        fields.FailHere("goes on behind its quotes");
    }
    return fields.Failed() ? std::string_view() : field;
}

double ReadReal(Fields& fields) {
    const std::string_view field = ReadField(fields);
    const std::optional<double> number = ReadNumber(field);
    if (!number) fields.FailHere("is no number");
    return number.value_or(0.0);
}

// A fraction is rounded away; a number that 32 bits cannot hold is no whole number here.
int ToWhole(double number, Fields& fields) {
    const int whole = RoundToEven(number);
    if (whole != std::nearbyint(number)) fields.FailHere("is out of range");
    return whole;
}

// ---- Messages ----

// What was read, as far as it fits into a line of a message box: a line end in quotes counts as a
// blank, and a character of several bytes is not cut in two.
std::string Shown(std::string_view read) {
    constexpr std::size_t most = 80;
    std::size_t end = std::min(most, read.size());
    while (end > 0 && end < read.size() &&
           (static_cast<unsigned char>(read[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    std::string shown(read.substr(0, end));
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    return end < read.size() ? shown + "..." : shown;
}

std::string Instead(std::string_view expected, std::string_view read) {
    return "I expected to read " + std::string(expected) + " but got instead " + Shown(read) +
           std::string(LineEnd);
}

std::string StringInstead(std::string_view expected, std::string_view read) {
    return Instead("the string '" + std::string(expected) + "'", read);
}

// A text whose first line is not even that of a set-up has nothing else to be told of.
SetUpReading IgnoredSilently(const Fields& fields, const std::string& reason) {
    return {std::nullopt, {}, fields.BeginsRight ? reason : "it is no set-up file"};
}

// The fields are read as far as the wrong string and what belongs to it.
SetUpReading Refused(const std::string& lines, const Fields& fields) {
    SetUpReading reading =
        IgnoredSilently(fields, "a name is wrong before field " + std::to_string(fields.Count + 1));
    reading.Message = lines + "You screwed up.   This input file will be ignored.";
    return reading;
}

// ---- The blocks of the file ----

// The message for a wrong key; empty if all keys are right or a field failed.
std::string ReadParameters(Fields& fields, SetUpValues& read) {
    for (const Parameter& parameter : Parameters) {
        const std::string_view key = ReadField(fields);
        fields.BeginsRight = fields.BeginsRight || key == Parameters.front().Key;
        const double number = ReadReal(fields);
        if (fields.Failed()) return {};
        if (key != parameter.Key) return StringInstead(parameter.Key, key);
        if (parameter.ReadReal != nullptr) {
            read.*parameter.ReadReal = number;
        } else {
            read.*parameter.ReadWhole = ToWhole(number, fields);
        }
    }
    return {};
}

// The same for the line of the column names: one line for each column, right or wrong.
std::string ReadColumnNames(Fields& fields) {
    std::string lines;
    bool allRight = true;
    for (const std::string_view name : ColumnNames) {
        const std::string_view found = ReadField(fields);
        allRight = allRight && found == name;
        lines += StringInstead(name, found);
    }
    return fields.Failed() || allRight ? std::string() : lines;
}

void ReadControlPoints(Fields& fields, SetUpValues& read) {
    const int last = read.NGridCells + 2;
    read.MSelList = OffsetArray<int>(0, last);
    for (OffsetArray<double>* list :
         {&read.XSelList, &read.RhoSelList, &read.PSelList, &read.VxSelList}) {
        *list = OffsetArray<double>(0, last);
    }
    for (int k = 0; k <= read.NSelected + 1 && !fields.Failed(); ++k) {
        read.MSelList[k] = ToWhole(ReadReal(fields), fields);
        read.XSelList[k] = ReadReal(fields);
        read.RhoSelList[k] = ReadReal(fields);
        read.PSelList[k] = ReadReal(fields);
        read.VxSelList[k] = ReadReal(fields);
    }
    read.MSelList[0] = 0;
    read.MSelList[read.NSelected + 1] = read.NGridCells + 1;
}

// ---- Limits: each gives the reason for which a set-up cannot stand, empty if it can ----

std::string OutOfRange(const std::string& name) {
    return name + " is out of range";
}

std::string WhyGridCannotStand(const SetUpValues& read, int maxGridCells) {
    constexpr int fewestCells = 6;
    if (read.NGridCells < fewestCells || read.NGridCells > maxGridCells) {
        return OutOfRange("NGridCells");
    }
    return read.NSelected < 0 || read.NSelected > read.NGridCells ? OutOfRange("NSelected") : "";
}

bool AxisCanStand(double min, double max, int points) {
    if (std::abs(min) > LargestAxis || std::abs(max) > LargestAxis) return false;
    return points == 0 ? min < max : min <= max;
}

bool IsPossible(double v) {
    return v > 0.0 && v <= LargestValue;
}

std::string WhyParametersCannotStand(const SetUpValues& read) {
    if (!IsPossible(read.SoundSpeed0)) return OutOfRange("SoundSpeed0");
    if (!IsPossible(read.Periods)) return OutOfRange("Periods");
    if (read.NPlotsPerPeriod < 1) return OutOfRange("NPlotsPerPeriod");
    if (!(read.CourantNumber >= SmallestCourantNumber && read.CourantNumber < 1.0)) {
        return OutOfRange("CourantNumber");
    }
    const struct {
        const char* Name;
        double Min, Max;
    } axes[] = {{"RhoMin to RhoMax", read.RhoMin, read.RhoMax},
                {"PMin to PMax", read.PMin, read.PMax},
                {"VXMin to VXMax", read.VXMin, read.VXMax}};
    for (const auto& axis : axes) {
        if (!AxisCanStand(axis.Min, axis.Max, read.NSelected)) {
            return std::string(axis.Name) + " is no axis";
        }
    }
    return "";
}

std::string WhyControlPointsCannotStand(const SetUpValues& read) {
    for (int k = 0; k <= read.NSelected + 1; ++k) {
        const std::string row = " in row " + std::to_string(k + 1) + " of the points";
        if (!IsPossible(read.RhoSelList[k])) return OutOfRange("Rho" + row);
        if (!IsPossible(read.PSelList[k])) return OutOfRange("P" + row);
        if (std::abs(read.VxSelList[k]) > LargestValue) return OutOfRange("VX" + row);
        // The closing entry stands behind the grid, wherever the points will be mapped to.
        if (k > 0 && k <= read.NSelected && read.MSelList[k] <= read.MSelList[k - 1]) {
            return "MSelected" + row + " does not lie behind the cell before";
        }
    }
    return "";
}

}  // namespace

std::string WriteSetUpText(const ExperimentState& state) {
    std::string text;
    for (const Parameter& parameter : Parameters) {
        std::string line = Quoted(parameter.Key) + ',';
        line.resize(ValueColumn - 1, ' ');
        line += parameter.Real != nullptr ? GeneralNumber(state.*parameter.Real)
                                          : GeneralNumber(state.*parameter.Whole);
        text += line.append(LineEnd);
    }

    text += Quoted("").append(LineEnd);
    std::array<std::string, 5> names;
    std::transform(ColumnNames.begin(), ColumnNames.end(), names.begin(), Quoted);
    text += Row(names, NameColumns);

    for (int k = 0; k <= state.NSelected + 1; ++k) {
        text += Row({GeneralNumber(state.MSelList[k]), GeneralNumber(state.XSelList[k]),
                     GeneralNumber(state.RhoSelList[k]), GeneralNumber(state.PSelList[k]),
                     GeneralNumber(state.VxSelList[k])},
                    NumberColumns);
    }
    return text;
}

SetUpReading ReadSetUpText(std::string_view text, int maxGridCells) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";  // some editors put it in front
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    Fields fields{text};
    SetUpValues read;
    const std::string wrongKey = ReadParameters(fields, read);
    if (!wrongKey.empty()) return Refused(wrongKey, fields);

    const std::string_view empty = ReadField(fields);
    if (!empty.empty()) return Refused(Instead("the null string", empty), fields);

    const std::string wrongNames = ReadColumnNames(fields);
    if (!wrongNames.empty()) return Refused(wrongNames, fields);

    std::string reason = fields.Trouble;
    if (reason.empty()) reason = WhyGridCannotStand(read, maxGridCells);
    if (reason.empty()) {
        ReadControlPoints(fields, read);
        reason = fields.Trouble;
    }
    if (reason.empty()) reason = WhyParametersCannotStand(read);
    if (reason.empty()) reason = WhyControlPointsCannotStand(read);
    if (!reason.empty()) return IgnoredSilently(fields, reason);
    return {std::move(read)};
}

void TakeSetUpValues(ExperimentState& state, SetUpValues values) {
    for (int k = 0; k <= values.NSelected + 1; ++k) {
        values.RhoSelList[k] = std::max(values.RhoSelList[k], state.RhoFloor);
        values.PSelList[k] = std::max(values.PSelList[k], state.PFloor);
    }
    for (const Parameter& parameter : Parameters) {
        if (parameter.Real != nullptr) {
            state.*parameter.Real = values.*parameter.ReadReal;
        } else {
            state.*parameter.Whole = values.*parameter.ReadWhole;
        }
    }
    state.MSelList = std::move(values.MSelList);
    state.XSelList = std::move(values.XSelList);
    state.RhoSelList = std::move(values.RhoSelList);
    state.PSelList = std::move(values.PSelList);
    state.VxSelList = std::move(values.VxSelList);
}
