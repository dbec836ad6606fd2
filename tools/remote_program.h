// Drives the settings program from another process, as a user's taps would
// reach it: start it, find its main window, wait until it is idle, answer its
// message boxes, and close it again.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tw::tools {

struct RemoteProgram {
  PROCESS_INFORMATION process{};
  HWND main = nullptr;
};

// The window class and title a program registers, from its own string table
// (ids 3 and 1), so a renamed window is still found.
bool ReadWindowNames(const std::wstring& exe, std::wstring& className, std::wstring& title);

// Starts exe in its own folder. The child inherits this process's environment.
bool StartProgram(const std::wstring& exe, const std::wstring& arguments, RemoteProgram& program);

// The visible top-level window of that class and title owned by the process,
// or null.
HWND FindProgramWindow(DWORD processId, const wchar_t* className, const wchar_t* title);

// Polls for the main window until it appears or the time runs out.
bool WaitForMainWindow(RemoteProgram& program, const wchar_t* className, const wchar_t* title, DWORD timeoutMs);

// Returns once the window's thread has handled everything sent to it so far,
// i.e. it is back in its message loop.
bool WaitIdle(HWND window, DWORD timeoutMs);

// Answers every message box the process shows with OK; returns how many.
int DismissMessageBoxes(DWORD processId);

// Posts the cancel command, answers its question with Yes and waits for the
// end; a program that does not end in time is terminated. Returns its exit code.
DWORD CloseProgram(RemoteProgram& program, WORD cancelCommand, DWORD timeoutMs);

// The page selector: the main window's own drop-down whose entries carry
// their page numbers (pages may hold drop-downs of their own), or null.
HWND FindPageSelector(HWND main, int pages);

// Selects a page as a tap on the selector would; returns once the program
// has switched, before the children it made have painted.
void SelectPage(HWND main, HWND selector, int page);

// Ends the program at once and waits for it.
DWORD KillProgram(RemoteProgram& program);

// The middle of the timed runs (the mean of the two middle ones for an even count).
double Median(std::vector<double> values);

}  // namespace tw::tools
