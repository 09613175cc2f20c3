#pragma once

#include <QPointer>

#include <vector>

namespace tarnwell {

class Screen;

/// The forms that are loaded, in the order of their loading; the main window is the first.
[[nodiscard]] const std::vector<Screen*>& loadedForms();

/// Called by a form when its loading begins, and when it is unloaded or deleted. The list does not own it.
void registerForm(Screen& form);
void forgetForm(Screen& form);

/// Unloads forms by an index that runs up to the number of forms at the beginning. The list shrinks
/// meanwhile, so forms are skipped; errors are ignored.
void CloseAllForms();

/// Unloads what is left, the latest first, so that every form saves before the process ends. A form that is
/// unloading already is left alone. The error of an unload goes to the outer handler.
void unloadRemainingForms();

/// The one instance of a screen, made at first use and again after it was unloaded.
template <class Form>
[[nodiscard]] Form& theForm() {
    static QPointer<Form> instance;
    if (instance.isNull() || instance->isUnloaded())
        instance = new Form;
    return *instance;
}

} // namespace tarnwell
