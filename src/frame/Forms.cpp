#include "frame/Forms.h"

#include "data/RunTimeError.h"
#include "frame/Screen.h"
#include "runtime/EventGuard.h"

#include <algorithm>

namespace tarnwell {

namespace {

std::vector<Screen*>& forms() {
    static std::vector<Screen*> loaded;
    return loaded;
}

/// Raises SubscriptOutOfRange (9) past the end.
Screen& formAt(std::size_t index) {
    if (index >= forms().size())
        raise(Failure::SubscriptOutOfRange);
    return *forms()[index];
}

} // namespace

const std::vector<Screen*>& loadedForms() {
    return forms();
}

void registerForm(Screen& form) {
    forms().push_back(&form);
}

void forgetForm(Screen& form) {
    std::erase(forms(), &form);
}

void CloseAllForms() {
    const std::size_t count = forms().size();
    for (std::size_t index = 0; index < count; ++index) {
        try {
            formAt(index).Unload();
        } catch (const RunTimeError&) {
            // The loop goes on with its next form; `unloadRemainingForms` comes back to this one.
            continue;
        }
    }
}

void unloadRemainingForms() {
    const std::vector<Screen*> left(forms().rbegin(), forms().rend());
    for (Screen* form : left)
        if (std::ranges::find(forms(), form) != forms().end())
            runEvent([form] { form->Unload(); });
}

} // namespace tarnwell
