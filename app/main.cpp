// The program: everything else is in the tw_ui library, so the UI tests
// drive the same code.
#include <windows.h>

#include "app/main_window.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int showCommand) {
  return tw::RunSettingsProgram(instance, commandLine, showCommand);
}
