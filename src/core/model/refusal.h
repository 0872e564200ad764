// Why a run could not go on.
#pragma once

#include <string>

enum class RefusalKind {
    None,
    SchemeMissing,      // no scheme of that name, or its library could not be loaded
    CourantNotANumber,  // the scheme gave no Courant number
    CourantTooLarge,    // 1 or more, however short the step
    ResultNotFinite,    // a cell was left without a finite result
};

// A fact of the experiment; the text for the user is worked out from it.
struct RunRefusal {
    RefusalKind Kind = RefusalKind::None;
    std::string Scheme = {};   // by name
    std::string Trouble = {};  // SchemeMissing: what the loader says, as part of a sentence

    explicit operator bool() const { return Kind != RefusalKind::None; }
};
