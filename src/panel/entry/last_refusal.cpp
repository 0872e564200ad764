#include "panel/entry/last_refusal.h"

#include <utility>

#include "panel/controls.h"

void NoteRefusal(Controls& controls, LastRefusal refusal) {
    *controls.Refused = std::move(refusal);
}

const LastRefusal& ReadLastRefusal(const Controls& controls) {
    return *controls.Refused;
}
