// A dialog a page opens modally, played from inside its own message loop:
// the step runs on the first dialog of this thread holding `marker`. A step
// that leaves its dialog open has it cancelled, so a failed check never
// hangs the suite.
#pragma once

#include <windows.h>

#include <functional>

namespace tw::test {

using ModalStep = std::function<void(HWND dialog)>;

// Runs open() (which returns when its dialog closes) while the step waits.
void WithModal(int marker, ModalStep step, const std::function<void()>& open);

}  // namespace tw::test
